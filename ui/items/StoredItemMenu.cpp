#include "ui/items/StoredItemMenu.h"

#include "base/Screen.h"
#include "core/Actions.h"
#include "core/Stores.h"
#include "ui/common/PrintReport.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/controls/Link.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"

#include <QPainter>
#include <QScopeGuard>

#include <algorithm>
#include <array>

namespace quellbrook {

namespace {

constexpr float FirstLinkLeft = 300, LinkGap = 280, RightMargin = 150;
constexpr float StatusGap = 60, UndoGap = 30;
// Pixels.
constexpr int BarHeight = 44, StatusInset = 14, MessageInset = 10;

struct LinkTexts {
    const char* caption;
    const char* icon;
};

constexpr std::array Links = {LinkTexts{"PRINT BARCODE", "print"}, LinkTexts{"SIGN THIS ITEM OUT", "sign_out"},
                              LinkTexts{"SIGN THIS ITEM IN", "sign_in"}, LinkTexts{"MOVE THIS ITEM", "move"},
                              LinkTexts{"DISPOSE THIS ITEM", "dispose"}};

struct PendingTexts {
    int32_t type;
    const char* status;
    const char* message;
};

constexpr PendingTexts PendingByType[] = {
    {TransactionType::SignOut, "SIGN OUT PENDING", "This item is in your current sign-out batch"},
    {TransactionType::SignIn, "SIGN IN PENDING", "This item is in your current sign-in batch"},
    {TransactionType::Move, "MOVE PENDING", "This item is being moved elsewhere in your on-site evidence storage"},
    {TransactionType::Dispose, "DISPOSAL PENDING", "This item has been marked for disposal"},
};

void SetLinkState(Link& link, bool isAllowed) {
    link.setVisible(isAllowed);
    link.setEnabled(isAllowed);
}

}  // namespace

StoredItemMenu::StoredItemMenu(QWidget* parent) : Control(parent) {
    m_bottomLine = new Line(this);
    m_bottomLine->setObjectName("lnBottom");
    BuildStatusStrip();
    BuildLinks();
    SetHeight(ToTwips(BarHeight));
}

void StoredItemMenu::BuildLinks() {
    for (size_t index = 0; index < Links.size(); ++index) {
        Link* link = LoadMember(m_lnkMenu, this);
        link->setObjectName("lnkMenu");
        link->SetType(Theme::Type::StripCaption);
        link->SetIcon(Links[index].icon);
        link->SetCaption(Links[index].caption);
        link->hide();
        connect(link, &Link::Clicked, this, [this, index] { lnkMenu_Click(static_cast<int>(index)); });
    }
    setTabOrder(m_lnkMenu.back(), m_lnkMenu.front());
}

void StoredItemMenu::BuildStatusStrip() {
    const auto addShape = [this](const char* name, Theme::Color color) {
        auto* shape = new GroupBox(this);
        shape->setObjectName(name);
        shape->SetBackColor(color);
        return shape;
    };
    m_shpMessage = addShape("shpMessage", Theme::Color::Tint);
    m_shpStatus = addShape("shpStatus", Theme::Color::Strong);
    m_lblStatus = new Label(this);
    m_lblStatus->setObjectName("lblStatus");
    m_lblStatus->SetType(Theme::Type::StripCaption);
    m_lblStatus->SetForeColor(Theme::Color::StrongText);
    m_lblStatus->setContentsMargins(StatusInset, 0, StatusInset, 0);
    m_lblStatus->SetCaption("Unknown");
    m_lblMessage = new Label(this);
    m_lblMessage->setObjectName("lblMessage");
    m_lblMessage->setContentsMargins(MessageInset, 0, 0, 0);
    m_lblMessage->SetCaption("This item is part of an in-progress evidence transfer.");
    m_lnkUndo = new Link(this);
    m_lnkUndo->setObjectName("lnkUndo");
    m_lnkUndo->SetType(Theme::Type::StripCaption);
    m_lnkUndo->SetCaption("UNDO");
    connect(m_lnkUndo, &Link::Clicked, this, [this] { Guard([this] { lnkUndo_Click(); }); });
}

void StoredItemMenu::SetItem(const StoredItemRef& item) {
    Require(item, "StoredItemMenu.SetItem");
    m_cartStore = GetStores().Cart;
    m_cartSubscription = m_cartStore->OnChange.connect([this] { Guard([this] { RefreshMenu(); }); });
    m_item = item;
    RefreshMenu();
}

void StoredItemMenu::RefreshMenu() {
    const QWidget* focused = window()->focusWidget();
    m_inCart = m_cartStore->IsItemInCart(m_item);
    ShowPending();
    const auto layOut = qScopeGuard([this, focused] {
        LayoutMenu();
        KeepFocus(focused);
    });
    ShowLinks();
}

void StoredItemMenu::ShowPending() {
    for (Control* part :
         std::initializer_list<Control*>{m_shpMessage, m_shpStatus, m_lblStatus, m_lblMessage, m_lnkUndo})
        part->setVisible(m_inCart);
    for (const PendingTexts& texts : PendingByType) {
        if (texts.type != m_cartStore->GetTransactionType()) continue;
        // The whole batch, with this item.
        const int32_t count = m_cartStore->GetItems()->Count();
        m_lblStatus->SetCaption(texts.status);
        m_lblMessage->SetCaption(texts.message +
                                 (count >= 2 ? QString(", along with %1 other items.").arg(count) : QString(".")));
    }
}

void StoredItemMenu::ShowLinks() {
    // Known without the database, which the rights may not be.
    if (m_inCart)
        for (Link* link : m_lnkMenu)
            if (link != m_lnkMenu.front()) SetLinkState(*link, false);
    const AllowedTasks tasks = m_cartStore->GetAllowedTasks(m_item);
    const std::array shown = {tasks.CanPrint, tasks.CanCheckOut && !m_inCart, tasks.CanCheckIn && !m_inCart,
                              tasks.CanMove && !m_inCart, tasks.CanDispose && !m_inCart};
    for (size_t index = 0; index < shown.size(); ++index) SetLinkState(*m_lnkMenu[index], shown[index]);
}

// A click hides the link that had the focus and shows the status strip, or vice versa.
void StoredItemMenu::KeepFocus(const QWidget* focused) {
    if (!isAncestorOf(focused) || focused->isVisible()) return;
    for (Link* link : {m_lnkUndo, m_lnkMenu[1], m_lnkMenu[2], m_lnkMenu[3], m_lnkMenu[4], m_lnkMenu[0]})
        if (link->isVisible()) return link->setFocus();
}

void StoredItemMenu::LayoutMenu() {
    GuardSilently([this] {
        LayoutLinks();
        LayoutStatusStrip();
        m_bottomLine->Move(0, Height() - TwipsPerPixel, Width(), TwipsPerPixel);
    });
}

void StoredItemMenu::LayoutLinks() {
    for (Link* link : m_lnkMenu) link->SetTop((Height() - link->Height()) / 2);
    float left = FirstLinkLeft;
    for (Link* link : m_lnkMenu) {
        if (link == m_lnkMenu.front() || !link->isEnabled()) continue;
        link->SetLeft(left);
        left = link->Right() + LinkGap;
    }
    m_lnkMenu.front()->SetLeft(Width() - m_lnkMenu.front()->Width() - RightMargin);
}

void StoredItemMenu::LayoutStatusStrip() {
    m_shpMessage->Move(0, 0, m_shpMessage->Width(), Height() - TwipsPerPixel);
    const float margin = (m_shpMessage->Height() - m_lblStatus->Height()) / 2;
    m_lblStatus->Move(0, margin);
    m_lblMessage->Move(m_lblStatus->Right() + StatusGap, margin);
    const float right = m_lnkMenu.front()->isEnabled() ? m_lnkMenu.front()->Left() : Width() - RightMargin;
    const float space = right - LinkGap - m_lnkUndo->Width() - UndoGap - margin - FirstLinkLeft - m_lblMessage->Left();
    m_lblMessage->SetWidth(std::clamp(space, 0.0f, ToTwips(m_lblMessage->sizeHint().width())));
    m_shpMessage->SetWidth(m_lblMessage->Right() + margin);
    m_lnkUndo->Move(m_shpMessage->Right() + UndoGap, margin);
    for (Control* part : std::initializer_list<Control*>{m_shpMessage, m_lblStatus, m_lblMessage, m_lnkUndo})
        part->SetLeft(part->Left() + FirstLinkLeft);
    m_shpStatus->Move(m_lblStatus->Left(), 0, m_lblStatus->Width(), m_shpMessage->Height());
}

void StoredItemMenu::Layout() { LayoutMenu(); }

void StoredItemMenu::lnkMenu_Click(int index) {
    bool hasPrinted = false;
    Guard(
        [this, index, &hasPrinted] {
            const StoredItemRef item = Require(m_item, "StoredItemMenu.lnkMenu_Click");
            if (index == 0) {
                item->PrintBarcodeLabel();
                hasPrinted = true;
            } else {
                auto items = std::make_shared<ObjectVector>();
                items->Add(item);
                GetActions().BeginTransaction(index, std::move(items));
            }
        },
        [](const Error& error) { ShowMessage(error.Description(), MessageStyle::Critical, "Error"); });
    if (hasPrinted) Guard([] { ReportPrintedLabels(1); });
}

void StoredItemMenu::lnkUndo_Click() {
    const StoredItemRef item = Require(m_item, "StoredItemMenu.lnkUndo_Click");
    const int32_t answer =
        ShowMessage("Are you sure you want to remove this item from the current evidence transfer batch?",
                    MessageStyle::YesNoQuestion, "Remove this item from the current batch?");
    if (answer == MessageAnswer::Yes) GetActions().RemoveFromCart(item);
}

void StoredItemMenu::paintEvent(QPaintEvent*) {
    GuardPainting([this] { QPainter(this).fillRect(rect(), Theme::Get(Theme::Color::Panel)); });
}

}  // namespace quellbrook

#include "ui/shell/InfoBar.h"

#include "core/Actions.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QAccessible>
#include <QPainter>
#include <QPointer>

namespace quellbrook {

namespace {

constexpr float OpenHeight = 630;
constexpr float HiddenHeight = 2;
constexpr int IconLeft = 17;
constexpr int IconSize = 18;
constexpr int TextLeft = 45;
constexpr float ButtonHeight = 420;
constexpr float ButtonGap = 135;
constexpr float ButtonTrim = 90;  // narrower than on forms

const char* PurposeOf(int32_t transactionType) {
    switch (transactionType) {
    case TransactionType::SignOut: return "signing out of storage";
    case TransactionType::SignIn: return "signing into storage";
    case TransactionType::Move: return "moving within evidence storage";
    case TransactionType::Dispose: return "disposal";
    default: return "";
    }
}

}  // namespace

InfoBar::InfoBar(QWidget* parent) : View(parent) {
    setObjectName("infobar");
    SetAccessibleRole(QAccessible::AlertMessage);
    BuildControls();
    // If the stores cannot be built yet, the shell calls Subscribe when it is shown.
    if (!IsInsideDesigner()) GuardSilently([this] { Subscribe(GetStores()); });
    SetAlign(Alignment::Bottom);
    SetHeight(DesiredHeight());
}

void InfoBar::BuildControls() {
    m_topBorder = new Line(this);
    m_topBorder->setObjectName("topBorder");
    m_topBorder->SetColor(Theme::Color::Accent);
    m_icon = new FontIcon(this);
    m_icon->setObjectName("icoSelected");
    m_icon->SetIcon("marked", IconSize);
    m_icon->SetForeColor(Theme::Color::Link);
    m_selected = new Label(this);
    m_selected->setObjectName("lblSelected");
    m_selected->SetType(Theme::Type::BodySemiBold);
    m_selected->SetAutoSize(false);
    m_selected->SetCaption(tr("NO ITEMS SELECTED"));

    m_buttonGroup = new GroupBox(this);
    m_buttonGroup->setObjectName("buttonGroup");
    m_cancel = new FlatButton(m_buttonGroup);
    m_cancel->setObjectName("btnCancel");
    m_cancel->SetCaption(tr("Cancel"));
    m_cancel->SetInverted(true);
    m_complete = new FlatButton(m_buttonGroup);
    m_complete->setObjectName("btnComplete");
    m_complete->SetCaption(tr("Finish"));
    connect(m_cancel, &FlatButton::Clicked, this, [] { Guard([] { GetActions().CancelTransactionWithPrompt(); }); });
    connect(m_complete, &FlatButton::Clicked, this,
            [] { Guard([] { GetActions().NavigateTo(ViewNames::Cart, nullptr); }); });
}

void InfoBar::Subscribe(const StoresRecord& stores) {
    if (m_cartstore == stores.Cart) return;
    const auto changed = [this] { Guard([this] { Update(); }); };
    m_cartstore = stores.Cart;
    m_loadingStore = stores.Loading;
    m_viewStore = stores.View;
    m_cartSubscription = m_cartstore->OnChange.connect(changed);
    m_loadingSubscription = m_loadingStore->OnChange.connect(changed);
    m_viewSubscription = m_viewStore->OnChange.connect(changed);
    if (m_wasShown) Update();
}

bool InfoBar::ShouldShow() const {
    if (!m_cartstore) return IsInsideDesigner();
    return m_viewStore->ViewName() != ViewNames::Cart && !m_loadingStore->IsLoading() && !m_cartstore->IsEmpty();
}

float InfoBar::DesiredHeight() const { return ShouldShow() ? OpenHeight : HiddenHeight; }

void InfoBar::Shown() {
    if (std::exchange(m_wasShown, true)) return;
    if (m_cartstore) Update();
}

void InfoBar::Update() {
    SetHeight(DesiredHeight());
    ForceSizeMessage(this);
    const QString status = StatusText();
    const bool changed = m_selected->Caption() != status;
    m_selected->SetCaption(status);
    setAccessibleName(status);  // before it appears, since a screen reader reads an alert when it appears
    const QPointer<InfoBar> self(this);
    if (!ShouldShow() && isAncestorOf(window()->focusWidget())) emit LosesFocus();
    if (!self) return;
    setVisible(ShouldShow());
    if (changed) Announce();
}

QString InfoBar::StatusText() const {
    if (m_cartstore->IsEmpty()) return tr("No items currently selected");
    const int32_t count = m_cartstore->GetItems()->Count();
    const std::string plural = count == 1 ? "" : "s";
    return ToQString(std::to_string(count) + " item" + plural + " selected for " +
                     PurposeOf(m_cartstore->GetTransactionType()));
}

void InfoBar::Announce() {
    if (!isVisible()) return;
    QAccessibleEvent alert(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

// The height of the bar is fixed.
void InfoBar::Layout() {
    if (!m_resizing) {
        m_resizing = true;
        SetHeight(DesiredHeight());
        m_resizing = false;
    }
    const auto widthOf = [](const FlatButton& button) { return ToTwips(button.sizeHint().width()) - ButtonTrim; };
    m_topBorder->Move(0, 0, ClientWidth(), TwipsPerPixel);
    m_cancel->Move(0, 0, widthOf(*m_cancel), ButtonHeight);
    m_complete->Move(m_cancel->Right() + ButtonGap, 0, widthOf(*m_complete), ButtonHeight);
    const float groupWidth = m_complete->Right();
    m_buttonGroup->Move(ClientWidth() - groupWidth - ToTwips(Theme::Margin),
                        (OpenHeight - ButtonHeight) / 2 + TwipsPerPixel, groupWidth, ButtonHeight);
    const float iconSize = ToTwips(IconSize);
    m_icon->Move(ToTwips(IconLeft), (OpenHeight - iconSize) / 2 + TwipsPerPixel, iconSize, iconSize);
    const float textLeft = ToTwips(TextLeft);
    m_selected->Move(textLeft, TwipsPerPixel, m_buttonGroup->Left() - textLeft - ToTwips(Theme::Margin),
                     OpenHeight - TwipsPerPixel);
}

void InfoBar::paintEvent(QPaintEvent*) {
    GuardPainting([this] { QPainter(this).fillRect(rect(), Theme::Get(Theme::Color::Tint)); });
}

}  // namespace quellbrook

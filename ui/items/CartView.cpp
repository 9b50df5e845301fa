#include "ui/items/CartView.h"

#include "base/Clock.h"
#include "base/Screen.h"
#include "core/Actions.h"
#include "core/Stores.h"
#include "host/CodeTableLookup.h"
#include "ui/common/Dialogs.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/controls/Link.h"
#include "ui/controls/TessarineDropdown.h"
#include "ui/explorer/SearchResultList.h"
#include "ui/items/GoBack.h"
#include "ui/locations/LocationPicker.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QKeyEvent>
#include <QMenu>
#include <QPointer>

#include <algorithm>
#include <utility>
#include <vector>

namespace quellbrook {

namespace {

constexpr float OuterMargin = 240, ButtonGap = 135;
// Pixels.
constexpr int TitleAreaHeight = 56, TitleTop = 14, CloseHeight = 40;
constexpr int FormWidth = 360, FirstCaptionTop = 16, CaptionToField = 26, CaptionToCaption = 82;
constexpr int TightCaptionToCaption = CaptionToField + Theme::FieldHeight + 2;
constexpr int TransferWidth = 112, CancelWidth = 96;
constexpr int ListCaptionTop = 4, ItemCountTop = 6, ListTop = 36;

struct TransactionTexts {
    int32_t type;
    const char* title;
    const char* button;
    StorageLocationTypes destination;
};

constexpr TransactionTexts TextsByType[] = {
    {TransactionType::SignOut, "Sign Out Evidence", "Sign Out", StorageLocationTypes::External},
    {TransactionType::SignIn, "Sign In Evidence", "Sign In", StorageLocationTypes::Internal},
    {TransactionType::Move, "Move Evidence", "Move", StorageLocationTypes::Internal},
    {TransactionType::Dispose, "Dispose Evidence", "Dispose", StorageLocationTypes::DisposalLocation},
};

// Shows the message and moves the focus to the field. Returns false, for a validation to return.
bool ReportFault(const char* message, const char* title, QWidget* field) {
    const QPointer<QWidget> wanted(field);
    ShowMessage(message, MessageStyle::Critical, title);
    if (wanted) TrySetFocus(wanted);
    return false;
}

std::vector<StoredItemRef> ItemsOf(const CartStore& cart) {
    const std::shared_ptr<const CartItems> batch = cart.GetItems();
    std::vector<StoredItemRef> items;
    for (int32_t i = 0; i < batch->Count(); ++i) items.push_back(batch->ItemAt(i));
    return items;
}

std::string RemovalQuestion(StoredItem& item) {
    return std::string("Do you want really want to remove the following ") +
           (item.ItemType() == StoredItemTypes::vehicle ? "vehicle" : "property") +
           " from the current evidence transfer?\r\n\r\n    \u2022 " + item.DisplayID() + " ('" + item.Description() +
           "')";
}

void ReportTransferError(const Error& error) {
    ShowMessage(
        "An unexpected error occurred while transferring these items. No items were moved in the system.\r\n\r\n" +
            error.Description(),
        MessageStyle::Critical, "Unexpected error");
}

}  // namespace

CartView::CartView(QWidget* parent) : View(parent) {
    BuildTitleArea();
    BuildFormPanel();
    BuildListPanel();
    BuildMenu();
    BuildBarcodeListener();
    for (GroupBox* panel : {m_listPanel, m_formPanel}) panel->SetTabIndex(0);
    m_titleArea->SetAlign(Alignment::Top);
    if (IsInsideDesigner()) return;
    m_cartStore = GetStores().Cart;
    m_cartSubscription = m_cartStore->OnChange.connect([this] { CartStore_OnChange(); });
}

void CartView::BuildTitleArea() {
    m_titleArea = new GroupBox(this);
    m_titleArea->setObjectName("picTitleArea");
    m_titleArea->SetHeight(ToTwips(TitleAreaHeight));
    m_title = new Label(m_titleArea);
    m_title->setObjectName("lblTitle");
    m_title->SetType(Theme::Type::Title);
    m_title->SetCaption("Transfer Evidence");
    m_title->Move(OuterMargin, ToTwips(TitleTop));
    m_close = AddCloseLink(m_titleArea, CloseHeight);
}

void CartView::BuildFormPanel() {
    m_formPanel = new GroupBox(this);
    m_formPanel->setObjectName("formPanel");
    m_formPanel->SetBackColor(Theme::Color::Panel);
    m_formPanel->SetFramed(true);
    m_formPanel->SetWidth(ToTwips(FormWidth));
    const auto addField = [&](const char* captionName, const char* caption, auto* field, const char* fieldName) {
        auto* label = new Label(m_formPanel);
        label->setObjectName(captionName);
        label->SetType(Theme::Type::BodySemiBold);
        label->SetCaption(caption);
        field->setObjectName(fieldName);
        field->SetAccessibleCaption(caption);
        field->Move(OuterMargin, 0, ToTwips(FormWidth) - 2 * OuterMargin, ToTwips(Theme::FieldHeight));
        m_fields.emplace_back(label, field);
        return field;
    };
    const auto addCode = [&](const char* captionName, const char* caption, const char* fieldName, int tableNumber) {
        auto* field = addField(captionName, caption, new TessarineDropdown(m_formPanel), fieldName);
        field->SetTableNumber(tableNumber);
        return field;
    };
    m_receivedFrom =
        addCode("Label4", "This evidence is being transferred from", "receivedFromField", CodeTable::Officers);
    m_receivedBy = addCode("Label3", "into the custody of", "receivedByField", CodeTable::Officers);
    m_location = addField("Label2", "and will be going to", new LocationPicker(m_formPanel), "locationField");
    m_reason = addCode("Label1", "for the purpose of", "reasonField", CodeTable::CustodyReason);

    const auto addButton = [this](const char* name, const char* caption, int width) {
        auto* button = new FlatButton(m_formPanel);
        button->setObjectName(name);
        button->SetCaption(caption);
        button->SetWidth(ToTwips(width));
        button->SetHeight(ToTwips(Theme::FieldHeight));
        return button;
    };
    m_cancel = addButton("btnCancel", "Cancel", CancelWidth);
    m_cancel->SetInverted(true);
    connect(m_cancel, &FlatButton::Clicked, this, [this] {
        Guard([this] {
            const QPointer<CartView> self(this);
            GetActions().CancelTransactionWithPrompt();
            if (self) GetActions().GoBack();
        });
    });
    m_transfer = addButton("btnTransfer", "Transfer", TransferWidth);
    connect(m_transfer, &FlatButton::Clicked, this, [this] { TransferButton_Click(); });
}

void CartView::BuildListPanel() {
    m_listPanel = new GroupBox(this);
    m_listPanel->setObjectName("listPanel");
    m_listCaption = new Label(m_listPanel);
    m_listCaption->setObjectName("lblListCaption");
    m_listCaption->SetType(Theme::Type::Section);
    m_listCaption->SetCaption("Items in this batch");
    m_listCaption->Move(0, ToTwips(ListCaptionTop));
    m_itemCount = new Label(m_listPanel);
    m_itemCount->setObjectName("lblItemCount");
    m_itemCount->SetType(Theme::Type::RowHeading);
    m_itemCount->SetForeColor(Theme::Color::GrayText);
    m_itemCount->SetTop(ToTwips(ItemCountTop));
    m_underline = new Line(m_listPanel);
    m_underline->setObjectName("lnUnderline");
    m_itemList = new SearchResultList(m_listPanel);
    m_itemList->setObjectName("itemList");
    m_itemList->setAccessibleName(m_listCaption->Caption());
    m_itemList->SetTop(ToTwips(ListTop));
    connect(m_itemList, &SearchResultList::ItemContextMenu, this, [this](QMenu*& menu, QAction*& defaultItem) {
        menu = m_itemsMenu;
        defaultItem = m_openEntry;
    });
    connect(m_itemList, &SearchResultList::ItemOpenRequest, this,
            [this](const StoredItemRef& item) { Guard([&] { OpenItem(item); }); });
}

void CartView::BuildMenu() {
    m_itemsMenu = new QMenu("Items", this);
    m_itemsMenu->setObjectName("mnuItems");
    m_openEntry = m_itemsMenu->addAction("Open");
    m_openEntry->setObjectName("mnuOpen");
    m_itemsMenu->addSeparator()->setObjectName("mnuGroup");
    QAction* remove = m_itemsMenu->addAction("Remove from this batch");
    remove->setObjectName("mnuRemove");
    connect(remove, &QAction::triggered, this, [this] { Guard([this] { RemoveItem_Click(); }); });
}

void CartView::Shown() {
    if (m_shown) return;
    const QPointer<CartView> self(this);
    RefreshFromStore();
    if (self) m_shown = true;
}

void CartView::OpenItem(const StoredItemRef& item) {
    const QPointer<CartView> self(this);
    GetActions().OpenStoredItem(item);
    if (self) m_returnsToList = true;
}

QWidget* CartView::FirstFocus() {
    return std::exchange(m_returnsToList, false) && m_itemList->isEnabled() ? m_itemList : View::FirstFocus();
}

void CartView::CartStore_OnChange() {
    Guard([this] {
        if (m_cartStore->GetTransactionType() == TransactionType::None) {
            m_returnsToList = false;
            return;
        }
        const QPointer<CartView> self(this);
        const bool wasShown = std::exchange(m_shown, false);  // after a failure, the next Shown() refreshes
        RefreshFromStore();
        if (self) m_shown = wasShown;
    });
}

void CartView::RefreshFromStore() {
    const QPointer<CartView> self(this);
    ShowTransactionType(m_cartStore->GetTransactionType());
    const std::shared_ptr<const CartItems> items = m_cartStore->GetItems();
    m_itemCount->SetCaption(QString(" (%1)").arg(items->Count()));
    const QPointer<QWidget> focused = window()->focusWidget();
    const SearchResultList::Place place = m_itemList->CurrentPlace();
    m_itemList->SetItems(items);
    if (m_cartStore->IsItemInCart(place.item)) m_itemList->Restore(place);
    if (!self) return;  // a row that could not be read was reported
    // The list has taken the focus. Not TrySetFocus, which counts its calls: a batch can have hundreds of scans.
    if (focused && m_formPanel->isAncestorOf(focused)) focused->setFocus();
    LayoutControls();
    LoadTransferData();
}

void CartView::ShowTransactionType(int32_t transactionType) {
    for (const TransactionTexts& texts : TextsByType) {
        if (texts.type != transactionType) continue;
        m_title->SetCaption(texts.title);
        m_transfer->SetCaption(texts.button);
        m_destinationType = texts.destination;
        m_location->LoadLocations(m_destinationType);
    }
}

void CartView::LoadTransferData() {
    const std::shared_ptr<TransferData> details = m_cartStore->GetTransferData();
    m_receivedFrom->SetValue(details->ReceivedFrom);
    m_receivedBy->SetValue(details->ReceivedBy);
    if (!m_location->IsEmpty()) m_location->SetSelectedLocation(details->Location);
    m_reason->SetValue(details->Reason);
}

bool CartView::ValidateForm() {
    if (m_cartStore->IsEmpty()) {
        ShowMessage(
            "You have no items to transfer.\r\n\r\nAfter clicking OK, you can either scan your items with a "
            "barcode scanner, or go back to the main screen to select items manually.",
            MessageStyle::Critical, "No items to transfer");
        return false;
    }
    // The location of before must not be taken for the one that was typed.
    if (m_location->TakeDroppedText() || !m_location->SelectedLocation())
        return ReportFault("Please specify where this evidence is going.", "Missing destination", m_location);
    if (m_receivedFrom->Value().HasNoValue())
        return ReportFault("Please specify the officer or employee who is transferring this evidence.",
                           "Missing transferring officer/employee", m_receivedFrom);
    if (m_receivedBy->Value().HasNoValue())
        return ReportFault("Please specify the officer or employee who is receiving this evidence.",
                           "Missing receiving officer/employee", m_receivedBy);
    if (m_reason->Value().HasNoValue())
        return ReportFault("Please indicate why this evidence is being transferred.", "Missing transfer reason",
                           m_reason);
    return true;
}

std::shared_ptr<TransferData> CartView::MakeTransferData() const {
    auto details = std::make_shared<TransferData>();
    details->DateReceived = GetClock().Now();
    details->Location = m_location->SelectedLocation();
    details->LocationType = m_destinationType;
    details->Reason = m_reason->Value();
    details->ReceivedFrom = m_receivedFrom->Value();
    details->ReceivedBy = m_receivedBy->Value();
    return details;
}

// Whether the transfer was attempted, successfully or not.
bool CartView::TransferItems() {
    if (!ValidateForm()) return false;
    const std::shared_ptr<TransferData> details = MakeTransferData();
    if (m_cartStore->GetTransactionType() == TransactionType::Dispose) {
        const QPointer<CartView> self(this);
        const std::vector<StoredItemRef> items = ItemsOf(*m_cartStore);
        details->FinalDisposition = GetDialogs().GetFinalDisposition();
        if (!self || !details->FinalDisposition) return false;
        if (ItemsOf(*m_cartStore) != items || m_cartStore->GetTransactionType() != TransactionType::Dispose) {
            Raise(
                ErrorNumber::General, "CartView.TransferItems",
                "The batch was changed while its final disposition was being entered. Check the items and try again.");
        }
    }
    GetActions().ProcessTransaction(details);
    return true;
}

// GoBack is guarded separately: after a successful transfer, the message of ReportTransferError would be wrong.
void CartView::TransferButton_Click() {
    const QPointer<CartView> self(this);
    bool transferred = false;
    Guard([&] { transferred = TransferItems(); }, ReportTransferError);
    if (transferred && self) Guard([] { GetActions().GoBack(); });
}

void CartView::RemoveItem_Click() {
    const StoredItemRef item = m_itemList->SelectedItem();
    Require(item, "CartView.RemoveItem_Click");
    const QPointer<CartView> self(this);
    if (ShowMessage(RemovalQuestion(*item), MessageStyle::YesNoQuestion, "Confirm Remove") != MessageAnswer::Yes)
        return;
    if (!self) return;
    GetActions().RemoveFromCart(item);
    if (self && m_cartStore->IsEmpty()) GetActions().GoBack();
}

void CartView::keyPressEvent(QKeyEvent* event) {
    if (!GoBackByKey(*event)) View::keyPressEvent(event);
}

void CartView::Layout() { LayoutControls(); }

void CartView::LayoutControls() {
    GuardSilently([this] {
        m_close->Move(Width() - m_close->Width() - OuterMargin, 0);
        m_itemCount->SetLeft(m_listCaption->Right());
        m_formPanel->Move(OuterMargin, m_titleArea->Height());
        m_formPanel->SetHeight(Height() - m_titleArea->Height() - OuterMargin);
        const float listLeft = m_formPanel->Right() + OuterMargin;
        m_listPanel->Move(listLeft, m_formPanel->Top(), Width() - listLeft - OuterMargin, m_formPanel->Height());
        m_itemList->Move(0, m_itemList->Top(), m_listPanel->Width(), m_listPanel->Height() - m_itemList->Top());
        LayoutFormPanel();
        m_underline->Move(m_itemList->Left(), m_itemList->Top() - TwipsPerPixel, m_itemList->Width(), TwipsPerPixel);
    });
}

void CartView::LayoutFormPanel() {
    m_transfer->Move(m_formPanel->Width() - m_transfer->Width() - OuterMargin,
                     m_formPanel->Height() - m_transfer->Height() - OuterMargin);
    m_cancel->Move(m_transfer->Left() - ButtonGap - m_cancel->Width(), m_transfer->Top());
    LayoutFields();
    const float rightEdge = m_formPanel->Width() - OuterMargin;
    for (Control* control : m_formPanel->findChildren<Control*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (control->Left() < OuterMargin) control->SetLeft(OuterMargin);
        if (control->Right() > rightEdge) control->SetWidth(rightEdge - control->Left());
    }
}

// At small heights the fields move closer together, so that the buttons do not cover the last one.
void CartView::LayoutFields() {
    const float fieldBottom = ToTwips(FirstCaptionTop + CaptionToField + Theme::FieldHeight);
    const float room = m_transfer->Top() - ButtonGap - fieldBottom;
    const float step = std::clamp(room / static_cast<float>(m_fields.size() - 1), ToTwips(TightCaptionToCaption),
                                  ToTwips(CaptionToCaption));
    float top = ToTwips(FirstCaptionTop);
    for (const auto& [label, field] : m_fields) {
        label->Move(OuterMargin, top);
        field->SetTop(top + ToTwips(CaptionToField));
        top += step;
    }
}

}  // namespace quellbrook

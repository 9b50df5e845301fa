#include "ui/explorer/EvidenceExplorer.h"

#include "access/User.h"
#include "base/FormatCount.h"
#include "base/Screen.h"
#include "core/Actions.h"
#include "core/Stores.h"
#include "data/StorageLocationStatic.h"
#include "host/HostServices.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/explorer/ActionMenu.h"
#include "ui/explorer/LocationTree.h"
#include "ui/explorer/LocationView.h"
#include "ui/explorer/StatePanel.h"
#include "ui/platform/Guard.h"
#include "ui/platform/MousePointer.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QAction>
#include <QEvent>
#include <QPointer>
#include <QScopeGuard>
#include <QShortcut>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr float treeLeft = 240, treeWidth = 4200, panelMargin = 240;
constexpr float headingHeight = 1080, headingInset = 120;
constexpr float titleTop = 150, subtitleTop = 600;

void ReportDisplayError(const Error& error, int step) {
    ShowMessage(
        "An unexpected error occurred attempting to display the items in this location. Some items may not be "
        "displayed. Please contact Tessarine Support for assistance.\r\n\r\n[DisplayCurrentLocation (line " +
            std::to_string(step) + ")] ~ " + error.Source() + " (" + std::to_string(error.Number()) + ") " +
            error.Description(),
        MessageStyle::Critical, "Unexpected Error");
}

void PrintBarcodeLabelOf(const ObjectRef& object) {
    if (const auto location = std::dynamic_pointer_cast<StorageLocation>(object)) location->PrintBarcodeLabel();
    if (const auto item = std::dynamic_pointer_cast<StoredItem>(object)) item->PrintBarcodeLabel();
}

void ReportPrinted(int32_t count) {
    GetActions().NotifyUser("Sent " + FormatCount(count, "%d label", "%d labels") + " " +
                            HostServices::Current().Printer().Destination() + ".");
}

}  // namespace

EvidenceExplorer::EvidenceExplorer(QWidget* parent) : View(parent) {
    setAccessibleName("Evidence Explorer");
    MakeLeftColumn();
    MakeHeading();
    m_itemPane = new LocationView(this);
    m_itemPane->setObjectName("ItemPane");
    MakeLoadingCover();
    m_mnuItems = new ActionMenu(this);
    ApplyColors();
    ConnectPanes();
    ConnectMenu();
    MakeBarcodeListener();
    if (IsInsideDesigner()) return;
    m_cartstore = GetStores().Cart;
    SetMousePointer(MousePointer::Hourglass);
    m_grpLoading->show();
    m_grpLoading->repaint();
}

void EvidenceExplorer::MakeLeftColumn() {
    m_picLeftPanel = new GroupBox(this);
    m_picLeftPanel->setObjectName("picLeftPanel");
    m_locationPane = new LocationTree(this);
    m_locationPane->setObjectName("LocationPane");
    m_locationPane->SetAppearance(0);
    m_locationPane->SetBorderStyle(0);
    m_locationPane->Move(treeLeft, headingInset, treeWidth, 0);
    m_lnDivider = new Line(this);
    m_lnDivider->setObjectName("lnDivider");
}

void EvidenceExplorer::MakeHeading() {
    m_picInfobar = new GroupBox(this);
    m_picInfobar->setObjectName("picInfobar");
    m_picInfobar->SetHeight(headingHeight);

    m_lblTitle = new Label(m_picInfobar);
    m_lblTitle->setObjectName("lblTitle");
    m_lblTitle->SetType(Theme::Type::Title);
    m_lblTitle->Move(0, titleTop);

    m_lblSubtitle = new Label(m_picInfobar);
    m_lblSubtitle->setObjectName("lblSubtitle");
    m_lblSubtitle->SetType(Theme::Type::Subtitle);
    m_lblSubtitle->SetForeColor(Theme::Color::GrayText);
    m_lblSubtitle->Move(0, subtitleTop);

    m_lnSeparator = new Line(m_picInfobar);
    m_lnSeparator->setObjectName("lnSeparator");
}

void EvidenceExplorer::MakeLoadingCover() {
    m_grpLoading = new GroupBox(this);
    m_grpLoading->setObjectName("grpLoading");
    m_grpLoading->SetBackColor(Theme::Color::Window);
    m_grpLoading->hide();
    m_grpMessage = new StatePanel("busy", "Starting up...", "Please wait. This may take a few moments. ", m_grpLoading);
    m_grpMessage->setObjectName("grpMessage");
    m_grpLoading->raise();
}

void EvidenceExplorer::ConnectPanes() {
    m_locationPane->LocationSelected.connect([this](const StorageLocationRef&) { DisplayCurrentLocation(); });
    m_locationPane->GetContextMenu.connect([this](QMenu*& contextMenu, QAction*& defaultMenu) {
        OfferMenu(MenuSource::LocationPane, m_locationPane, contextMenu, defaultMenu);
    });
    m_itemPane->LocationChanged.connect(
        [this](const StorageLocationRef& location) { m_locationPane->SetSelectedLocation(location); });
    m_itemPane->ItemContextMenu.connect([this](QMenu*& contextMenu, QAction*& defaultMenu) {
        OfferMenu(MenuSource::ItemPane, m_itemPane, contextMenu, defaultMenu);
    });
    m_itemPane->ItemOpenRequest.connect([this](const ObjectRef& item) { OpenItemRequest(item); });
}

void EvidenceExplorer::ConnectMenu() {
    Bind(MenuEntry::Open, [this] {
        if (const ObjectRef object = SingleSelectedObject()) OpenItemRequest(object);
    });
    Bind(MenuEntry::OpenInTessarine, [this] {
        if (const ObjectRef object = SingleSelectedObject()) OpenInHost(object);
    });
    Bind(MenuEntry::Print, [this] { PrintSelected(); });
    const auto bindTransfer = [this](MenuEntry entry, int32_t transactionType) {
        Bind(entry, [=, this] { GetActions().BeginTransaction(transactionType, GetSelectedObjects()); });
    };
    bindTransfer(MenuEntry::CheckOut, TransactionType::SignOut);
    bindTransfer(MenuEntry::CheckIn, TransactionType::SignIn);
    bindTransfer(MenuEntry::Move, TransactionType::Move);
    Bind(MenuEntry::RemoveFromBatch, [this] { GetActions().BulkRemoveFromCart(GetSelectedObjects()); });
    Bind(MenuEntry::SelectAll, [this] { m_itemPane->SelectAll(); });
    Bind(MenuEntry::NewLocation, [this] { PromptAddLocation(GetContextLocation()); });
    Bind(MenuEntry::EditLocation, [this] { PromptEditLocation(GetContextLocation()); });
    Bind(MenuEntry::DeleteLocation, [this] { PromptDeleteLocation(GetContextLocation()); });
    auto* again = new QShortcut(Qt::Key_F5, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
    again->setAutoRepeat(false);
    connect(again, &QShortcut::activated, this, [this] { ReadAgain(); });
}

void EvidenceExplorer::Bind(MenuEntry entry, std::function<void()> command) {
    connect(m_mnuItems->Entry(entry), &QAction::triggered, this, [command = std::move(command)] { Guard(command); });
}

const StorageLocationRef& EvidenceExplorer::SelectedLocation() const { return m_locationPane->SelectedLocation(); }

void EvidenceExplorer::SetSelectedLocation(const StorageLocationRef& location) {
    m_locationPane->SetSelectedLocation(location);
    if (!location) DisplayCurrentLocation();
}

void EvidenceExplorer::Shown() { Refresh(); }

void EvidenceExplorer::Refresh() { RefreshContents(&LocationView::Refresh); }

void EvidenceExplorer::RefreshContents(void (LocationView::*refresh)()) {
    const StorageLocationRef location = SelectedLocation();
    try {
        // After a failure, the pane shows no location.
        if (m_itemPane->Location())
            (m_itemPane->*refresh)();
        else
            m_itemPane->SetLocation(location);
        if (location) ShowCounts(*location);
    } catch (...) {
        ShowFailure(CurrentError());
        throw;
    }
}

void EvidenceExplorer::OpenItemRequest(const ObjectRef& item) {
    const QPointer<EvidenceExplorer> self(this);
    if (const auto location = std::dynamic_pointer_cast<StorageLocation>(item)) {
        const bool hadFocus = ActiveChild() == m_itemPane;
        try {
            m_itemPane->SetLocation(location);
        } catch (...) {
            if (self) ShowFailure(CurrentError());
            throw;
        }
        if (self && hadFocus && !m_itemPane->isEnabled()) TrySetFocus(m_locationPane);
    } else if (const auto storedItem = std::dynamic_pointer_cast<StoredItem>(item)) {
        GetActions().OpenStoredItem(storedItem);
    }
}

void EvidenceExplorer::DisplayCurrentLocation() {
    const QPointer<EvidenceExplorer> self(this);
    int step = 1;
    Guard(
        [&] {
            SetMousePointer(MousePointer::Hourglass);
            step = 2;
            m_itemPane->show();
            step = 3;
            const StorageLocationRef location = SelectedLocation();
            if (location)
                DisplayLocation(location, step);
            else
                DisplayNoLocation();
            if (!self) return;
            step = 5;
            LayoutView();
        },
        [&](const Error& error) {
            if (self) ShowFailure(error);
            ReportDisplayError(error, step);
        });
    SetMousePointer(MousePointer::Default);
    if (self) m_grpLoading->hide();
}

void EvidenceExplorer::DisplayNoLocation() {
    m_lblTitle->SetCaption("Evidence Locations");
    m_lblSubtitle->SetCaption("Select a location on the left.");
    m_itemPane->SetLocation(nullptr);
}

void EvidenceExplorer::DisplayLocation(const StorageLocationRef& location, int& step) {
    step = 4;
    m_lblTitle->SetCaption(ToQString(location->Name()));
    LayoutView();
    m_lblSubtitle->SetCaption("Loading...");
    m_picInfobar->repaint();
    ShowCounts(*location);
    m_picInfobar->repaint();
    m_itemPane->SetLocation(location);
}

void EvidenceExplorer::ShowCounts(StorageLocation& location) {
    const auto subLocations = static_cast<int64_t>(location.SubLocations().size());
    m_lblSubtitle->SetCaption(ToQString(FormatCount(subLocations, "%d storage unit", "%d storage units") + ", " +
                                        FormatCount(location.StoredItemsCount(), "%d item", "%d items")));
}

// Rows of another location must not remain below the heading.
void EvidenceExplorer::ShowFailure(const Error& error) {
    m_itemPane->Clear();
    m_lblSubtitle->SetCaption(ToQString(error.Description()).simplified());
    LayoutView();
}

QWidget* EvidenceExplorer::ActiveChild() const {
    QWidget* child = window()->focusWidget();
    if (!child || !isAncestorOf(child)) return nullptr;
    while (child->parentWidget() != this) child = child->parentWidget();
    return child;
}

std::shared_ptr<ObjectVector> EvidenceExplorer::GetSelectedObjects() const {
    auto selected = std::make_shared<ObjectVector>();
    const QWidget* active = ActiveChild();
    if (active == m_itemPane) return m_itemPane->SelectedItems();
    StorageLocationRef location;
    if (!active) {
        location = m_itemPane->Location();
    } else if (active == m_locationPane) {
        location = m_locationPane->DropHighlightLocation();
        if (!location) location = SelectedLocation();
    }
    if (location) selected->Add(location);
    return selected;
}

void EvidenceExplorer::PrepareActionMenu(MenuSource source, QWidget* pane) {
    SetMousePointer(MousePointer::Hourglass);
    const auto restorePointer = qScopeGuard([] { SetMousePointer(MousePointer::Default); });
    const QPointer<EvidenceExplorer> self(this);
    if (ActiveChild() != pane) TrySetFocus(pane);
    if (!self) return;
    const std::vector<SelectedObject> selection = DescribeSelection(*GetSelectedObjects(), *m_cartstore);
    m_mnuItems->Apply(ApplyMenuRules(source, selection, ReadMenuRights(GetUser())));
}

void EvidenceExplorer::OfferMenu(MenuSource source, QWidget* pane, QMenu*& contextMenu, QAction*& defaultMenu) {
    const QPointer<EvidenceExplorer> self(this);
    PrepareActionMenu(source, pane);
    if (!self) return;
    contextMenu = m_mnuItems;
    defaultMenu = m_mnuItems->Entry(MenuEntry::Open);
}

// Null unless exactly one object is selected.
ObjectRef EvidenceExplorer::SingleSelectedObject() const {
    const std::shared_ptr<ObjectVector> selected = GetSelectedObjects();
    return selected->Count() == 1 ? selected->At(0) : nullptr;
}

// Printing stops at the first label that fails. Earlier labels have been printed.
void EvidenceExplorer::PrintSelected() {
    int32_t printed = 0;
    Guard(
        [&] {
            const std::shared_ptr<ObjectVector> selected = GetSelectedObjects();
            for (; printed < selected->Count(); ++printed) PrintBarcodeLabelOf(selected->At(printed));
        },
        [](const Error& error) { ShowMessage(error.Description(), MessageStyle::Critical, "Error"); });
    if (printed > 0) Guard([=] { ReportPrinted(printed); });
}

// Reads again what another workstation may have changed.
void EvidenceExplorer::ReadAgain() {
    Guard([this] {
        const QPointer<EvidenceExplorer> self(this);
        GetStorageLocationStatic().Refresh();
        m_locationPane->RefreshInPlace();
        // The pane shows no location after a failure, which has been reported.
        if (self && m_itemPane->Location()) RefreshContents(&LocationView::RefreshInPlace);
    });
}

void EvidenceExplorer::Layout() { LayoutView(); }

void EvidenceExplorer::LayoutView() {
    GuardSilently([this] {
        const float width = ClientWidth();
        const float height = ClientHeight();
        m_grpLoading->Move(0, 0, width, height);
        CenterInContainer(*m_grpMessage, *m_grpLoading, Center::Vertically | Center::Horizontally);

        const float infobarLeft = m_locationPane->Right() + panelMargin;
        m_picInfobar->Move(infobarLeft, 0, width - infobarLeft, headingHeight);
        for (Label* text : {m_lblTitle, m_lblSubtitle})
            text->SetWidth(std::min(ToTwips(text->sizeHint().width()), m_picInfobar->Width() - headingInset));
        m_lnSeparator->Move(0, headingHeight - TwipsPerPixel, m_picInfobar->Width() - headingInset, TwipsPerPixel);

        const float columnTop = m_picInfobar->Top() + headingInset;
        m_locationPane->Move(treeLeft, columnTop, treeWidth, height - columnTop);
        m_picLeftPanel->Move(0, 0, m_locationPane->Width() + panelMargin, m_locationPane->Bottom() + panelMargin);
        m_lnDivider->Move(m_locationPane->Right(), columnTop, TwipsPerPixel, height - columnTop);

        m_itemPane->Move(m_picInfobar->Left(), m_picInfobar->Bottom(), width - m_picInfobar->Left(),
                         height - m_picInfobar->Bottom());
    });
}

void EvidenceExplorer::ApplyColors() {
    m_locationPane->SetBackColor(Theme::Get(Theme::Color::Panel));
    m_picLeftPanel->SetBackColor(m_locationPane->BackColor());
}

void EvidenceExplorer::changeEvent(QEvent* event) {
    Guard([this, event] {
        View::changeEvent(event);
        if (event->type() == QEvent::PaletteChange && m_picLeftPanel) ApplyColors();
    });
}

}  // namespace quellbrook

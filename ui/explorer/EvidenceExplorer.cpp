#include "ui/explorer/EvidenceExplorer.h"

#include "access/User.h"
#include "base/FormatCount.h"
#include "base/Screen.h"
#include "core/Actions.h"
#include "core/Stores.h"
#include "data/StorageLocationStatic.h"
#include "ui/common/StatePanel.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Line.h"
#include "ui/explorer/ActionMenu.h"
#include "ui/explorer/CategorizedSearchResults.h"
#include "ui/explorer/ExplorerHeading.h"
#include "ui/explorer/LocationTree.h"
#include "ui/explorer/LocationView.h"
#include "ui/platform/Guard.h"
#include "ui/platform/MousePointer.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QAction>
#include <QEvent>
#include <QPointer>
#include <QShortcut>

namespace quellbrook {

namespace {

constexpr float treeLeft = 240, treeWidth = 4200, panelMargin = 240;
constexpr float headingHeight = 1080, headingInset = 120;

void ReportDisplayError(const Error& error, int step) {
    ShowMessage(
        "An unexpected error occurred attempting to display the items in this location. Some items may not be "
        "displayed. Please contact Tessarine Support for assistance.\r\n\r\n[DisplayCurrentLocation (line " +
            std::to_string(step) + ")] ~ " + error.Source() + " (" + std::to_string(error.Number()) + ") " +
            error.Description(),
        MessageStyle::Critical, "Unexpected Error");
}

}  // namespace

EvidenceExplorer::EvidenceExplorer(QWidget* parent) : View(parent) {
    setAccessibleName("Evidence Explorer");
    MakeLeftColumn();
    MakeHeading();
    m_itemPane = new LocationView(this);
    m_itemPane->setObjectName("ItemPane");
    m_searchResultPane = new CategorizedSearchResults(this);
    m_searchResultPane->setObjectName("SearchResultPane");
    m_searchResultPane->hide();
    MakeLoadingCover();
    m_mnuItems = new ActionMenu(this);
    ApplyColors();
    ConnectPanes();
    ConnectHeading();
    ConnectMenu();
    ConnectShortcuts();
    MakeBarcodeListener();
    if (IsInsideDesigner()) return;
    m_cartstore = GetStores().Cart;
    m_cartChanged = m_cartstore->OnChange.connect([this] { Guard([this] { m_cartStore_OnChange(); }); });
    SetMousePointer(MousePointer::Hourglass);
    m_grpLoading->show();
    m_grpLoading->repaint();
}

// A failed display or search leaves the hourglass for the next attempt, which will not come.
EvidenceExplorer::~EvidenceExplorer() {
    if (m_grpLoading->IsShown() || m_locationPane->IsCovered() || m_searchResultPane->IsCovered())
        SetMousePointer(MousePointer::Default);
}

void EvidenceExplorer::MakeLeftColumn() {
    m_picLeftPanel = new GroupBox(this);
    m_picLeftPanel->setObjectName("picLeftPanel");
    MakeSearchBox();
    m_locationPane = new LocationTree(this);
    m_locationPane->setObjectName("LocationPane");
    m_locationPane->SetAppearance(0);
    m_locationPane->SetBorderStyle(0);
    m_locationPane->Move(treeLeft, 0, treeWidth, 0);
    m_lnDivider = new Line(this);
    m_lnDivider->setObjectName("lnDivider");
}

void EvidenceExplorer::MakeHeading() {
    m_picInfobar = new ExplorerHeading(this);
    m_picInfobar->setObjectName("picInfobar");
    m_picInfobar->SetHeight(headingHeight);
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
    m_locationPane->LocationSelected.connect([this](const StorageLocationRef& location) {
        // A tree that is read again during a search has no selection to show.
        if (location || !m_searchResultPane->IsShown()) DisplayCurrentLocation();
    });
    m_locationPane->ClickedAgain.connect([this] { DisplayUnlessShown(SelectedLocation()); });
    m_locationPane->GetContextMenu.connect([this](QMenu*& contextMenu, QAction*& defaultMenu) {
        OfferMenu(MenuSource::LocationPane, m_locationPane, contextMenu, defaultMenu);
    });
    m_itemPane->LocationChanged.connect(
        [this](const StorageLocationRef& location) { m_locationPane->SetSelectedLocation(location); });
    m_itemPane->ItemContextMenu.connect([this](QMenu*& contextMenu, QAction*& defaultMenu) {
        OfferMenu(MenuSource::ItemPane, m_itemPane, contextMenu, defaultMenu);
    });
    m_itemPane->ItemOpenRequest.connect([this](const ObjectRef& item) { OpenItemRequest(item); });
    connect(m_searchResultPane, &CategorizedSearchResults::ItemContextMenu, this,
            [this](QMenu*& contextMenu, QAction*& defaultMenu) {
                Guard([&] { OfferMenu(MenuSource::SearchResultPane, m_searchResultPane, contextMenu, defaultMenu); });
            });
    connect(m_searchResultPane, &CategorizedSearchResults::ItemOpenRequest, this,
            [this](const StoredItemRef& item) { Guard([&] { OpenItemRequest(item); }); });
}

void EvidenceExplorer::ConnectHeading() {
    const auto bind = [this](void (ExplorerHeading::*request)(), auto command) {
        connect(m_picInfobar, request, this, [command] { Guard(command); });
    };
    bind(&ExplorerHeading::EditRequested, [this] { PromptEditLocation(SelectedLocation()); });
    bind(&ExplorerHeading::DeleteRequested, [this] { PromptDeleteLocation(SelectedLocation()); });
    bind(&ExplorerHeading::AddRequested, [this] { PromptAddLocation(SelectedLocation()); });
    bind(&ExplorerHeading::PrintRequested, [this] {
        ObjectVector location;
        location.Add(SelectedLocation());
        PrintLabelsOf(location);
    });
    bind(&ExplorerHeading::AddEvidenceRequested,
         [] { GetActions().NavigateTo(ViewNames::SubmitNewEvidence, nullptr); });
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
    bindTransfer(MenuEntry::Dispose, TransactionType::Dispose);
    Bind(MenuEntry::RemoveFromBatch, [this] { GetActions().BulkRemoveFromCart(GetSelectedObjects()); });
    Bind(MenuEntry::SelectAll, [this] { m_itemPane->SelectAll(); });
    Bind(MenuEntry::NewLocation, [this] { PromptAddLocation(GetContextLocation()); });
    Bind(MenuEntry::EditLocation, [this] { PromptEditLocation(GetContextLocation()); });
    Bind(MenuEntry::DeleteLocation, [this] { PromptDeleteLocation(GetContextLocation()); });
}

void EvidenceExplorer::ConnectShortcuts() {
    const auto bind = [this](const QKeySequence& key, auto command) {
        auto* shortcut = new QShortcut(key, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
        shortcut->setAutoRepeat(false);
        connect(shortcut, &QShortcut::activated, this, [command] { Guard(command); });
    };
    bind(Qt::Key_F5, [this] { ReadAgain(); });
    bind(QKeySequence::Find, [this] { GoToSearchBox(); });
}

void EvidenceExplorer::Bind(MenuEntry entry, std::function<void()> command) {
    connect(m_mnuItems->Entry(entry), &QAction::triggered, this, [command = std::move(command)] { Guard(command); });
}

const StorageLocationRef& EvidenceExplorer::SelectedLocation() const { return m_locationPane->SelectedLocation(); }

void EvidenceExplorer::SetSelectedLocation(const StorageLocationRef& location) {
    if (DisplayUnlessShown(location)) return;
    m_locationPane->SetSelectedLocation(location);
    if (!location) DisplayCurrentLocation();
}

bool EvidenceExplorer::DisplayUnlessShown(const StorageLocationRef& location) {
    const StorageLocationRef selected = SelectedLocation();
    if (!location || !selected || !selected->IsSame(location.get()) || m_itemPane->Location()) return false;
    DisplayCurrentLocation();
    return true;
}

void EvidenceExplorer::Shown() {
    try {
        m_picInfobar->EnableByRights(*m_cartstore);
    } catch (...) {
        // The rows may be out of date as well. One error is enough.
        GuardSilently([this] { Refresh(); });
        throw;
    }
    Refresh();
}

void EvidenceExplorer::m_cartStore_OnChange() { m_picInfobar->EnableByRights(*m_cartstore); }

void EvidenceExplorer::Refresh() {
    const QPointer<EvidenceExplorer> self(this);
    try {
        RefreshContents();
        if (self) LeaveDeletedLocation();
    } catch (...) {
        if (!self || !LeaveDeletedLocation()) throw;
    }
    if (self && m_searchResultPane->IsShown()) m_searchResultPane->Refresh();
}

bool EvidenceExplorer::LeaveDeletedLocation() {
    const StorageLocationRef location = SelectedLocation();
    if (!location || location->IsRoot() || GetStorageLocationStatic().FindByID(location->ID())) return false;
    m_locationPane->RefreshInPlace();
    return true;
}

void EvidenceExplorer::RefreshContents() {
    const StorageLocationRef location = SelectedLocation();
    const auto keepFocus = KeepFocus();
    try {
        // After a failure, the pane shows no location.
        if (m_itemPane->Location())
            m_itemPane->RefreshInPlace();
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
        if (DisplayUnlessShown(location)) return;
        const auto keepFocus = KeepFocus();
        try {
            m_itemPane->SetLocation(location);
        } catch (...) {
            if (self) ShowFailure(CurrentError());
            throw;
        }
    } else if (const auto storedItem = std::dynamic_pointer_cast<StoredItem>(item)) {
        GetActions().OpenStoredItem(storedItem);
    }
}

void EvidenceExplorer::DisplayCurrentLocation() {
    const QPointer<EvidenceExplorer> self(this);
    const auto keepFocus = KeepFocus();
    int step = 1;
    Guard(
        [&] {
            SetMousePointer(MousePointer::Hourglass);
            step = 2;
            m_searchResultPane->hide();
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
    m_picInfobar->SetTitle("Evidence Locations");
    m_picInfobar->SetSubtitle("Select a location on the left.");
    m_itemPane->SetLocation(nullptr);
    m_picInfobar->ShowLinks(nullptr);
}

void EvidenceExplorer::DisplayLocation(const StorageLocationRef& location, int& step) {
    step = 4;
    m_picInfobar->SetTitle(ToQString(location->Name()));
    m_picInfobar->SetPath(ToQString(location->FullPath(" > ")));
    m_picInfobar->ShowLinks(location.get());
    LayoutView();
    m_picInfobar->SetSubtitle("Loading...");
    m_picInfobar->repaint();
    ShowCounts(*location);
    m_picInfobar->repaint();
    m_itemPane->SetLocation(location);
}

void EvidenceExplorer::ShowCounts(StorageLocation& location) {
    const auto subLocations = static_cast<int64_t>(location.SubLocations().size());
    m_picInfobar->SetSubtitle(ToQString(FormatCount(subLocations, "%d storage unit", "%d storage units") + ", " +
                                        FormatCount(location.StoredItemsCount(), "%d item", "%d items")));
}

// Rows of another location must not remain below the heading.
void EvidenceExplorer::ShowFailure(const Error& error) {
    m_itemPane->Clear();
    m_picInfobar->SetSubtitle(ToQString(error.Description()).simplified());
    LayoutView();
}

QScopeGuard<std::function<void()>> EvidenceExplorer::KeepFocus() {
    const QWidget* active = ActiveChild();
    const bool isOnTheRight = active && active != m_locationPane && active != m_grpSearch;
    const QPointer<QWidget> focused(isOnTheRight ? window()->focusWidget() : nullptr);
    return qScopeGuard(std::function<void()>([self = QPointer<EvidenceExplorer>(this), isOnTheRight, focused] {
        // In an inactive window, a control that is hidden remains the focus widget.
        const bool isKept = focused && focused->isVisible() && focused->isEnabled();
        if (self && isOnTheRight && !(isKept && self->window()->focusWidget() == focused)) self->ReturnFocus();
    }));
}

void EvidenceExplorer::ReturnFocus() {
    QWidget* pane = m_itemPane;
    if (m_searchResultPane->IsShown()) pane = m_searchResultPane;
    if (ActiveChild() == pane && window()->focusWidget()->isVisible()) return;
    const bool isUsable = pane->isEnabled() && !(pane == m_searchResultPane && m_searchResultPane->IsCovered());
    TrySetFocus(isUsable ? pane : m_locationPane);
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
    ObjectRef object;
    if (!active) {
        object = m_itemPane->Location();
    } else if (active == m_searchResultPane) {
        object = m_searchResultPane->SelectedItem();
    } else if (active == m_locationPane) {
        object = m_locationPane->DropHighlightLocation();
        if (!object) object = SelectedLocation();
    }
    if (object) selected->Add(object);
    return selected;
}

void EvidenceExplorer::PrepareActionMenu(MenuSource source, QWidget* pane) {
    SetMousePointer(MousePointer::Hourglass);
    const auto restorePointer = qScopeGuard([] { SetMousePointer(MousePointer::Default); });
    const QPointer<EvidenceExplorer> self(this);
    if (ActiveChild() != pane) TrySetFocus(pane);
    if (!self) return;
    const std::vector<SelectedObject> selection = DescribeSelection(*GetSelectedObjects(), *m_cartstore);
    MenuRights rights = ReadMenuRights(GetUser());
    if (!GetContextLocation()) rights.addStorageLocations = false;  // a new location needs a container
    m_mnuItems->Apply(ApplyMenuRules(source, selection, rights));
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

// Reads again what another workstation may have changed.
void EvidenceExplorer::ReadAgain() {
    const QPointer<EvidenceExplorer> self(this);
    GetStorageLocationStatic().Refresh();
    m_locationPane->RefreshInPlace();
    if (!self) return;
    if (m_searchResultPane->IsShown()) return SearchAgain();
    // The pane shows no location after a failure, which has been reported.
    if (m_itemPane->Location()) RefreshContents();
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
        m_picInfobar->LayoutHeading();

        const float columnTop = m_picInfobar->Top() + headingInset;
        m_grpSearch->SetTop(columnTop);
        const float treeTop = m_grpSearch->Bottom();
        m_locationPane->Move(treeLeft, treeTop, m_grpSearch->Width(), height - treeTop);
        m_picLeftPanel->Move(0, 0, m_locationPane->Width() + panelMargin, m_locationPane->Bottom() + panelMargin);
        m_lnDivider->Move(m_locationPane->Right(), columnTop, TwipsPerPixel, height - columnTop);

        for (Control* pane : {static_cast<Control*>(m_itemPane), static_cast<Control*>(m_searchResultPane)})
            pane->Move(m_picInfobar->Left(), m_picInfobar->Bottom(), width - m_picInfobar->Left(),
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

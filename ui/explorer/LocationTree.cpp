#include "ui/explorer/LocationTree.h"

#include "base/Screen.h"
#include "core/Stores.h"
#include "ui/common/PrintReport.h"
#include "ui/common/StatePanel.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/explorer/LocationTreeWidget.h"
#include "ui/platform/Guard.h"
#include "ui/platform/MousePointer.h"
#include "ui/platform/Strings.h"

#include <QMenu>
#include <QPointer>
#include <QScopeGuard>
#include <QScrollBar>

namespace quellbrook {

namespace {

constexpr const char* pathSeparator = " > ";

QString KeyOf(const StorageLocation& location) {
    if (location.IsRoot()) return "R" + QString::number(static_cast<int32_t>(location.LocationType()));
    return "L" + QString::number(location.ID());
}

QString IconOf(const StorageLocation& location) {
    if (!location.IsRoot()) return "location";
    switch (location.LocationType()) {
    case StorageLocationTypes::Unassigned: return "uncategorized";
    case StorageLocationTypes::Internal: return "sign_in";
    case StorageLocationTypes::External: return "sign_out";
    case StorageLocationTypes::DisposalLocation: return "dispose";
    case StorageLocationTypes::Other: return "other";
    }
    return "location";
}

// The other roots are shown empty too.
bool IsLeftOutWhenEmpty(const StorageLocation& root) {
    const StorageLocationTypes type = root.LocationType();
    return type == StorageLocationTypes::Unassigned || type == StorageLocationTypes::Other;
}

// The accessible description of a node is its path.
constexpr int pathRole = Qt::AccessibleDescriptionRole;

}  // namespace

LocationTree::LocationTree(QWidget* parent)
    : View(parent),
      m_treeView(new LocationTreeWidget(this)),
      m_picLoading(new GroupBox(this)),
      m_focusLook(*this, [this] { m_treeView->SetHasFocusLook(m_focusLook.IsFocused()); }) {
    m_treeView->setObjectName("TreeView");
    m_treeView->setAccessibleName("Evidence Locations");
    setAccessibleName(m_treeView->accessibleName());
    setFocusProxy(m_treeView);
    MakeLoadingPanel();
    MakeMenu();
    ConnectTree();
    ApplyFrame();
    ApplyColors();
    if (IsInsideDesigner()) return;
    m_locationStore = GetStores().Locations;
    m_locationsChanged = m_locationStore->OnChange.connect([this] {
        Guard([this] {
            const QPointer<LocationTree> self(this);
            Refresh();
            if (self) SetSelectedLocation(m_locationStore->GetSelectedLocation());
        });
    });
}

void LocationTree::MakeLoadingPanel() {
    constexpr int messageWidth = 240;
    m_picLoading->setObjectName("picLoading");
    m_picLoading->hide();
    m_picLoadingMessage =
        new StatePanel("busy", "Loading Locations", "Please wait a moment...", m_picLoading, messageWidth);
    m_picLoadingMessage->setObjectName("picLoadingMessage");
    m_picLoadingMessage->Title()->setObjectName("lblLoadTitle");
    m_picLoadingMessage->Sentence()->setObjectName("lblLoadMessage");
}

void LocationTree::MakeMenu() {
    m_mnuLocation = new QMenu("&Location", this);
    m_mnuLocation->setObjectName("mnuLocation");
    m_mnuExpandCollapse = m_mnuLocation->addAction("Expand/Collapse");
    m_mnuExpandCollapse->setObjectName("mnuExpandCollapse");
    m_mnuLocation->addSeparator()->setObjectName("mnuSeparator");
    QAction* print = m_mnuLocation->addAction("Print Barcode Label");
    print->setObjectName("mnuPrint");
    m_mnuLocation->addAction("Edit This Location")->setObjectName("mnuEdit");
    connect(print, &QAction::triggered, this, [this] {
        bool hasPrinted = false;
        Guard([&] { hasPrinted = PrintLabel(); },
              [](const Error& error) { ShowMessage(error.Description(), MessageStyle::Critical, "Error"); });
        if (hasPrinted) Guard([] { ReportPrintedLabels(1); });
    });
    connect(m_mnuLocation, &QMenu::aboutToShow, this, [this] { Guard([this] { PrepareLocationMenu(); }); });
    connect(m_mnuExpandCollapse, &QAction::triggered, this, [this] {
        Guard([this] {
            if (QTreeWidgetItem* node = MenuNode()) node->setExpanded(!node->isExpanded());
        });
    });
}

void LocationTree::ConnectTree() {
    using Tree = LocationTreeWidget;
    connect(m_treeView, &Tree::LeftReleased, this,
            [this](QTreeWidgetItem* node) { Guard([&] { OnLeftReleased(node); }); });
    connect(m_treeView, &Tree::NodeChosen, this,
            [this](QTreeWidgetItem* node) { Guard([&] { SetSelectedLocation(LocationOf(node)); }); });
    connect(m_treeView, &Tree::RightPressed, this,
            [this](QTreeWidgetItem* node) { Guard([&] { OnRightPressed(node); }); });
    connect(m_treeView, &Tree::RightReleased, this,
            [this](QTreeWidgetItem* node) { Guard([&] { OnRightReleased(node); }); });
    connect(m_treeView, &Tree::NodeDoubleClicked, this, [this] { Guard([this] { DblClick(); }); });
    connect(m_treeView, &Tree::MenuKeyPressed, this, [this] {
        Guard([this] {
            const QTreeWidgetItem* node = m_treeView->currentItem();
            const QRect row = node ? m_treeView->visualItemRect(node) : QRect();
            if (m_selectedLocation) OfferContextMenu(MenuPositionBelow(row, *m_treeView->viewport()));
        });
    });
}

bool LocationTree::IsCovered() const { return m_picLoading->IsShown(); }

void LocationTree::Shown() {
    if (m_isLoaded) return;
    m_isLoaded = true;
    LoadLocations(nullptr, true);
}

void LocationTree::Layout() {
    m_treeView->setGeometry(rect());
    m_picLoading->Move(0, 0, Width(), Height());
    CenterInContainer(*m_picLoadingMessage, *m_picLoading, Center::Vertically | Center::Horizontally);
}

void LocationTree::LoadLocations(const StorageLocationRef& selected, bool raisesSelection) {
    try {
        const bool hadFocus = window()->focusWidget() == m_treeView;  // also if a dialog is active
        StartLoading();
        AddRoots();
        m_picLoading->hide();
        m_treeView->setEnabled(true);
        m_treeView->show();
        const QPointer<LocationTree> self(this);
        if (hadFocus) TrySetFocus(m_treeView);
        if (!self) return SetMousePointer(MousePointer::Default);
        const StorageLocationRef location = selected ? selected : m_locationStore->GetSelectedLocation();
        if (raisesSelection)
            SetSelectedLocation(location);
        else
            SelectNodeOf(*location);
        SetMousePointer(MousePointer::Default);
    } catch (...) {
        const Error error = CurrentError();
        if (!m_treeView->isVisibleTo(this)) ClearNodes();
        Raise(error.Number(), error.Source(),
              "LoadLocations: Error loading storage locations - " + error.Description());
    }
}

void LocationTree::StartLoading() {
    SetMousePointer(MousePointer::Hourglass);
    ClearNodes();
    m_treeView->setEnabled(false);
    m_treeView->hide();
    Layout();
    m_picLoading->show();
    m_picLoading->raise();
    m_picLoading->repaint();
}

void LocationTree::ClearNodes() {
    m_priorNode = nullptr;
    m_treeView->SetDropHighlight(nullptr);
    m_nodes.clear();
    m_treeView->clear();
}

void LocationTree::AddRoots() {
    for (const StorageLocationRef& root : m_locationStore->GetRootLocations()) {
        if (IsLeftOutWhenEmpty(*root) && root->SubLocations().empty()) continue;
        std::unique_ptr<QTreeWidgetItem> node = MakeNode(*root, nullptr);
        AddChildren(node.get(), *root);
        m_treeView->addTopLevelItem(node.get());
        node.release()->setExpanded(true);
    }
}

void LocationTree::AddChildren(QTreeWidgetItem* node, const StorageLocation& location) {
    for (const StorageLocationRef& sub : location.SubLocations()) {
        if (!sub->Enabled()) continue;
        QTreeWidgetItem* child = MakeNode(*sub, node).release();
        node->addChild(child);
        AddChildren(child, *sub);
    }
}

std::unique_ptr<QTreeWidgetItem> LocationTree::MakeNode(const StorageLocation& location,
                                                        const QTreeWidgetItem* parent) {
    const QString name = ToQString(location.Name());
    auto node = std::make_unique<QTreeWidgetItem>(QStringList(name));
    const QString key = KeyOf(location);
    node->setData(0, LocationTreeWidget::KeyRole, key);
    node->setData(0, LocationTreeWidget::IconRole, IconOf(location));
    node->setData(0, pathRole, parent ? parent->data(0, pathRole).toString() + pathSeparator + name : name);
    node->setFont(0, Theme::Font(parent ? Theme::Type::Body : Theme::Type::BodyBold));
    node->setBackground(0, BackColor());
    node->setForeground(0, parent ? ForeColor() : RootColor());
    m_nodes.insert(key, node.get());
    return node;
}

void LocationTree::Refresh() {
    if (IsInsideDesigner()) return;
    m_priorNode = nullptr;
    StorageLocationRef location = m_selectedLocation;
    if (location) {
        location->Refresh();
        if (location->IsDeleted()) location = location->Parent();
    }
    const QPointer<LocationTree> self(this);
    LoadLocations(location, false);
    if (!self) return;
    m_selectedLocation = location;
    if (!location) m_treeView->SelectQuietly(nullptr);
    LocationSelected(location);
}

void LocationTree::RefreshInPlace() {
    QHash<QString, bool> expanded;
    for (auto node = m_nodes.cbegin(); node != m_nodes.cend(); ++node)
        expanded.insert(node.key(), node.value()->isExpanded());
    const int down = m_treeView->verticalScrollBar()->value();
    const int across = m_treeView->horizontalScrollBar()->value();
    const QTreeWidgetItem* current = m_treeView->currentItem();
    const bool showsCurrent = current && m_treeView->viewport()->rect().intersects(m_treeView->visualItemRect(current));
    const QPointer<LocationTree> self(this);
    Refresh();
    if (!self) return;
    for (auto node = m_nodes.cbegin(); node != m_nodes.cend(); ++node)
        node.value()->setExpanded(expanded.value(node.key(), node.value()->isExpanded()));
    m_treeView->doItemsLayout();
    m_treeView->verticalScrollBar()->setValue(down);
    if (showsCurrent && m_selectedLocation) SelectNodeOf(*m_selectedLocation);
    m_treeView->horizontalScrollBar()->setValue(across);
}

void LocationTree::SetSelectedLocation(const StorageLocationRef& location) {
    if (!location) {
        m_selectedLocation = nullptr;
        m_treeView->SelectQuietly(nullptr);
        return;
    }
    SelectNodeOf(*location);
    if (m_selectedLocation && m_selectedLocation->IsSame(location.get())) return;
    m_selectedLocation = location;
    LocationSelected(location);
}

void LocationTree::SelectNodeOf(const StorageLocation& location) {
    if (QTreeWidgetItem* node = m_nodes.value(KeyOf(location))) m_treeView->SelectQuietly(node);
}

StorageLocationRef LocationTree::LocationOf(const QTreeWidgetItem* node) const {
    const QString key = node->data(0, LocationTreeWidget::KeyRole).toString();
    const int32_t number = key.mid(1).toInt();
    if (key.startsWith('R')) return m_locationStore->GetRootLocation(static_cast<StorageLocationTypes>(number));
    return m_locationStore->GetLocation(number);
}

StorageLocationRef LocationTree::DropHighlightLocation() const {
    const QTreeWidgetItem* node = m_treeView->DropHighlight();
    return node ? LocationOf(node) : nullptr;
}

void LocationTree::OnLeftReleased(QTreeWidgetItem* node) {
    if (m_treeView->DropHighlight()) return;
    if (node) return OnClicked(LocationOf(node));
    QTreeWidgetItem* selected = m_selectedLocation ? m_nodes.value(KeyOf(*m_selectedLocation)) : nullptr;
    if (m_treeView->currentItem() != selected) m_treeView->SelectQuietly(selected);
}

void LocationTree::OnClicked(const StorageLocationRef& location) {
    const bool again = location && m_selectedLocation && m_selectedLocation->IsSame(location.get());
    SetSelectedLocation(location);
    if (again) ClickedAgain();
}

void LocationTree::OnRightPressed(QTreeWidgetItem* node) {
    if (!node) return;
    m_treeView->SetDropHighlight(node);
    m_priorNode = m_treeView->currentItem();
}

void LocationTree::OnRightReleased(QTreeWidgetItem* node) {
    if (!m_treeView->DropHighlight()) return;
    const QPointer<LocationTree> self(this);
    const auto clearHighlight = qScopeGuard([this, self] {
        if (self) m_treeView->SetDropHighlight(nullptr);
    });
    if (m_treeView->currentItem() != m_priorNode) m_treeView->SelectQuietly(m_priorNode);
    if (node && LocationOf(node)) OfferContextMenu();
}

void LocationTree::OfferContextMenu(const std::optional<QPoint>& at) {
    QMenu* contextMenu = nullptr;
    QAction* defaultMenu = nullptr;
    GetContextMenu(contextMenu, defaultMenu);
    ShowContextMenu(this, contextMenu, defaultMenu, at);
}

QTreeWidgetItem* LocationTree::MenuNode() const {
    return m_treeView->DropHighlight() ? m_treeView->DropHighlight() : m_treeView->currentItem();
}

// Returns whether there was a location with a label.
bool LocationTree::PrintLabel() const {
    const QTreeWidgetItem* node = MenuNode();
    const StorageLocationRef location = node ? LocationOf(node) : nullptr;
    if (!location || location->IsRoot()) return false;
    location->PrintBarcodeLabel();
    return true;
}

void LocationTree::PrepareLocationMenu() {
    const QTreeWidgetItem* node = MenuNode();
    const bool hasChildren = node && node->childCount() > 0;
    m_mnuExpandCollapse->setEnabled(hasChildren);
    m_mnuExpandCollapse->setText(hasChildren && node->isExpanded() ? "Collapse" : "Expand");
}

}  // namespace quellbrook

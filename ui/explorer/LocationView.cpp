#include "ui/explorer/LocationView.h"

#include "base/Screen.h"
#include "core/Stores.h"
#include "data/StoredItemList.h"
#include "ui/common/PropertyBag.h"
#include "ui/common/StatePanel.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/Activation.h"
#include "ui/controls/ListView.h"
#include "ui/controls/MouseEvents.h"
#include "ui/controls/View.h"
#include "ui/explorer/ListPlaceholder.h"
#include "ui/platform/Guard.h"
#include "ui/platform/MousePointer.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"
#include "ui/style/Theme.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QLoggingCategory>
#include <QStyle>
#include <QTreeWidget>

namespace quellbrook {

namespace {

Q_LOGGING_CATEGORY(trace, "quellbrook.explorer")

constexpr int iconImageSize = 30;
constexpr double rowFactor = 1.2;
constexpr int iconColumn = 0;
constexpr int leastDescription = 200;  // pixels

const QString markedIcon = "marked";
const QString tagIcon = "tag";

QString KeyOf(const StorageLocation& location) { return "L" + QString::number(location.ID()); }

QString KeyOf(const StoredItem& item) {
    return (item.ItemType() == StoredItemTypes::Property ? "P" : "V") + QString::number(item.ID());
}

QString TypeText(const StoredItem& item) {
    if (item.ItemType() != StoredItemTypes::Property) return "Vehicle";
    const QString category = ToQString(item.CategoryName());
    return category.isEmpty() ? "Property" : category;
}

}  // namespace

LocationView::LocationView(QWidget* parent) : Control(parent) {
    MakeList();
    m_picNoItems =
        new StatePanel("location", "No items here.", "There are no items currently stored in this location.", this);
    m_picNoItems->setObjectName("picNoItems");
    m_picNoItems->hide();
    m_picPlaceholder = new ListPlaceholder(this);
    ApplyBackColor();
    ConnectList();
    if (IsInsideDesigner()) return;
    m_cartstore = GetStores().Cart;
    m_cartChanged = m_cartstore->OnChange.connect([this] { Guard([this] { UpdateCartMarks(); }); });
}

void LocationView::MakeList() {
    m_itemPane = new ListView(this);
    m_itemPane->setObjectName("ItemPane");
    m_itemPane->Tree()->setAccessibleName("Contents");
    setFocusProxy(m_itemPane->Tree());
    m_itemPane->SetIconSize(iconImageSize, rowFactor);

    const float cellWidth = m_itemPane->TextWidth(QString(12, 'W'));
    const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    m_itemPane->AddColumn("icon", "", ToTwips(iconImageSize * rowFactor + 5));
    m_itemPane->AddColumn("name", "Name", cellWidth);
    m_itemPane->AddColumn("type", "Type", cellWidth);
    m_itemPane->AddColumn("description", "Description", m_itemPane->TextWidth(QString(50, 'W')) - ToTwips(scrollBar));
}

void LocationView::ConnectList() {
    connect(m_itemPane, &ListView::MouseUp, this,
            [this](int button, const QPoint& at) { Guard([&] { OnMouseUp(button, at); }); });
    connect(m_itemPane, &ListView::DoubleClicked, this, [this] { Guard([this] { OnDoubleClick(); }); });
    connect(m_itemPane, &ListView::KeyDown, this,
            [this](int keyCode, bool ctrl) { Guard([&] { OnKeyDown(keyCode, ctrl); }); });
    connect(m_itemPane, &ListView::CurrentRowMovedByKeyboard, this, [this](int row) {
        Guard([&] {
            m_lastHitRow = row;
            m_lastButton = 0;
        });
    });
    m_itemPane->Tree()->installEventFilter(this);
    m_itemPane->Tree()->viewport()->installEventFilter(this);
}

void LocationView::SetLocation(const StorageLocationRef& location) {
    const bool isSame = m_location ? m_location->IsSame(location.get()) : !location;
    if (isSame) return;
    m_location = location;
    DisplayCurrentLocation();
    LocationChanged(location);
}

void LocationView::Refresh() { DisplayCurrentLocation(); }

void LocationView::Clear() {
    m_location = nullptr;
    DisplayCurrentLocation();
}

void LocationView::RefreshInPlace() {
    const ListView::Place place = m_itemPane->CurrentPlace();
    Refresh();
    m_itemPane->Restore(place);
    m_lastHitRow = m_itemPane->CurrentRow();
    m_lastButton = 0;
}

void LocationView::DisplayCurrentLocation() {
    int step = 1;
    try {
        m_rowObjects.Clear();
        m_lastHitRow = -1;
        step = 2;
        if (m_location) {
            AddRows(step);
        } else {
            m_itemPane->ClearRows();
            ShowState(true);
            setEnabled(true);
        }
        step = 8;
        UpdateCartMarks();
        m_itemPane->ClearSelection();
    } catch (...) {
        const Error error = CurrentError();
        qCDebug(trace).noquote() << "[DisplayCurrentLocation (line " + QString::number(step) + ")] ~ " +
                                        ToQString(error.Description());
        Raise(error.Number(), error.Source(), "Error displaying items in this location: " + error.Description());
    }
}

void LocationView::AddRows(int& step) {
    step = 3;
    m_itemPane->ClearSelection();
    m_itemPane->ClearRows();
    step = 4;
    const StorageLocationList subLocations = m_location->SubLocations();
    const std::shared_ptr<StoredItemList> items = m_location->StoredItems();
    step = 5;
    for (const StorageLocationRef& location : subLocations)
        if (location->Enabled()) AddLocationRow(location);
    step = 6;
    for (int32_t index = 0; index < items->Count(); ++index) AddItemRow(items->ItemAt(index));
    step = 7;
    const bool hasRows = m_itemPane->RowCount() >= 1;
    ShowState(hasRows);
    setEnabled(hasRows);
}

void LocationView::AddLocationRow(const StorageLocationRef& location) {
    const QString key = KeyOf(*location);
    m_itemPane->AddRow(key, "location",
                       {{ToQString(location->Name()), false, false}, {"Location", true, false}, {"", true, true}});
    m_rowObjects.Add(location, ToUtf8(key));
}

void LocationView::AddItemRow(const StoredItemRef& item) {
    const QString key = KeyOf(*item);
    const QString type = TypeText(*item);
    m_itemPane->AddRow(key, tagIcon,
                       {{ToQString(item->DisplayID()), false, false},
                        {type, true, false},
                        {ToQString(item->Description()), true, false}});
    const int typeColumn = m_itemPane->ColumnIndex("type");
    const bool isCut = m_itemPane->TextWidth(type) > m_itemPane->ColumnWidth(typeColumn);
    m_itemPane->SetCellTooltip(m_itemPane->RowCount() - 1, typeColumn, isCut ? type : QString());
    m_rowObjects.Add(item, ToUtf8(key));
}

void LocationView::ShowState(bool hasRows) {
    m_picNoItems->setVisible(!hasRows);
    m_itemPane->setVisible(hasRows);
}

void LocationView::UpdateCartMarks() {
    for (int row = 0; row < m_itemPane->RowCount(); ++row) {
        const auto item = std::dynamic_pointer_cast<StoredItem>(ObjectOf(row));
        if (item) MarkRow(row, m_cartstore->IsItemInCart(item));
    }
}

void LocationView::MarkRow(int row, bool isInCart) {
    const QString& icon = isInCart ? markedIcon : tagIcon;
    if (m_itemPane->RowIcon(row) == icon) return;
    const int nameColumn = m_itemPane->ColumnIndex("name");
    m_itemPane->SetRowIcon(row, icon);
    for (int column = iconColumn + 1; column < m_itemPane->ColumnCount(); ++column)
        m_itemPane->SetCellStyle(row, column, !isInCart && column != nameColumn, isInCart);
    m_itemPane->SetRowBand(row, isInCart);
}

ObjectRef LocationView::ObjectOf(int row) const { return m_rowObjects.Item(ToUtf8(m_itemPane->RowKey(row))); }

std::shared_ptr<ObjectVector> LocationView::SelectedItems() const {
    auto selected = std::make_shared<ObjectVector>();
    int row = 0;  // the objects are in the order of the rows
    for (const ObjectRef& object : m_rowObjects)
        if (m_itemPane->RowSelected(row++)) selected->Add(object);
    return selected;
}

void LocationView::SelectAll() {
    SetMousePointer(MousePointer::Hourglass);
    m_itemPane->SelectAll();
    SetMousePointer(MousePointer::Default);
}

void LocationView::OnMouseUp(int button, const QPoint& at) {
    m_lastButton = button;
    m_lastHitRow = m_itemPane->HitTest(at);
    if (!(button & MouseButton::Right)) return;
    if (m_lastHitRow < 0 || !m_itemPane->RowSelected(m_lastHitRow)) m_itemPane->ClearSelection();
    OfferContextMenu();
}

void LocationView::OfferContextMenu(const std::optional<QPoint>& at) {
    QMenu* contextMenu = nullptr;
    QAction* defaultMenu = nullptr;
    ItemContextMenu(contextMenu, defaultMenu);
    ShowContextMenu(this, contextMenu, defaultMenu, at);
}

void LocationView::OnDoubleClick() {
    Guard(
        [this] {
            if (m_lastButton == MouseButton::Right) return;
            const int current = m_itemPane->CurrentRow();
            if (current != m_lastHitRow) return;
            if (current >= 0) ItemOpenRequest(ObjectOf(current));
        },
        [](const Error& error) {
            ShowMessage("Unexpected error loading item: " + error.Description(), MessageStyle::Critical, "Error");
        });
}

void LocationView::OnKeyDown(int keyCode, bool ctrl) {
    if (ctrl && keyCode == KeyCode::A) m_itemPane->SelectAll();
    if (keyCode == KeyCode::Enter) OnDoubleClick();
}

bool LocationView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ContextMenu) return Control::eventFilter(watched, event);
    Guard([&] {
        if (static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard)
            OfferContextMenu(MenuPositionBelow(m_itemPane->MenuRow(), *m_itemPane));
    });
    return true;
}

void LocationView::Layout() {
    m_itemPane->Move(0, 0, Width(), Height());
    CenterInContainer(*m_picNoItems, *m_itemPane, Center::Vertically | Center::Horizontally);
    SizeLastColumn(*m_itemPane);
    const int description = m_itemPane->ColumnIndex("description");
    if (m_itemPane->ColumnWidth(description) < ToTwips(leastDescription))
        m_itemPane->SetColumnWidth(description, ToTwips(leastDescription));
}

QColor LocationView::BackColor() const { return m_backColor.value_or(palette().color(QPalette::Base)); }

void LocationView::SetBackColor(const QColor& color) {
    m_backColor = color;
    ApplyBackColor();
}

void LocationView::ResetBackColor() {
    m_backColor.reset();
    ApplyBackColor();
}

void LocationView::ReadProperties(const PropertyBag& bag) {
    m_backColor.reset();
    GuardSilently([&] {
        const TaggedValue color = bag.ReadProperty("BackColor");
        if (!color.HasNoValue()) m_backColor = Theme::FromBgr(ToInt32(color));
    });
    ApplyBackColor();
}

void LocationView::WriteProperties(PropertyBag& bag) const {
    bag.WriteProperty("BackColor", m_backColor ? TaggedValue(Theme::ToBgr(*m_backColor)) : TaggedValue());
}

void LocationView::ApplyBackColor() {
    const QColor color = BackColor();
    QPalette colors;
    colors.setColor(QPalette::Base, color);
    m_itemPane->Tree()->setPalette(colors);
    m_picNoItems->SetBackColor(color);
    m_picPlaceholder->SetBackColor(color);
}

void LocationView::changeEvent(QEvent* event) {
    Guard([this, event] {
        Control::changeEvent(event);
        if (event->type() == QEvent::PaletteChange) ApplyBackColor();
    });
}

}  // namespace quellbrook

#include "ui/controls/ListView.h"

#include "ui/controls/Activation.h"
#include "ui/controls/MouseEvents.h"
#include "ui/controls/ReportTree.h"
#include "ui/platform/Guard.h"
#include "ui/platform/KeyRepetition.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"
#include "ui/style/FieldFrame.h"
#include "ui/style/TextBlock.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPointer>
#include <QScrollBar>
#include <QStringList>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr int LargestPicture = 24;
constexpr int PictureInLargeIcon = 22;

// The accessible text of an icon.
QString IconMeaning(const QString& icon) {
    if (icon == QLatin1String("marked")) return QStringLiteral("marked");
    if (icon == QLatin1String("selected")) return QStringLiteral("checked");
    if (icon == QLatin1String("unselected")) return QStringLiteral("not checked");
    return QString();
}

}  // namespace

ListView::ListView(QWidget* parent) : Control(parent), m_tree(new ReportTree(this)) {
    setFocusProxy(m_tree);
    setFocusPolicy(Qt::StrongFocus);
    m_tree->installEventFilter(this);
    m_tree->OnMouseDown = [this](Qt::MouseButton button, const QPoint& at) {
        Guard([&] {
            const QPointer<ListView> alive(this);
            emit MouseDown(ButtonMask(button), at);
            if (alive) PressBox(button, at);
        });
    };
    m_tree->OnMouseMove = [this](const QPoint& at) { Guard([&] { emit MouseMove(at); }); };
    m_tree->OnMouseUp = [this](Qt::MouseButton button, const QPoint& at) {
        Guard([&] { emit MouseUp(ButtonMask(button), at); });
    };
    m_tree->OnDoubleClick = [this](const QPoint& at) { Guard([&] { emit DoubleClicked(at); }); };
    m_tree->OnKeyboardMove = [this](int row) { Guard([&] { emit CurrentRowMovedByKeyboard(row); }); };
}

QTreeWidget* ListView::Tree() const { return m_tree; }

void ListView::AddColumn(const QString& key, const QString& caption, float width) {
    const int column = ColumnCount();
    m_columnKeys.push_back(key);
    m_tree->setColumnCount(column + 1);
    m_tree->headerItem()->setText(column, caption);
    SetColumnWidth(column, width);
}

void ListView::ClearColumns() {
    ClearRows();
    m_columnKeys.clear();
    m_tree->setColumnCount(0);
}

int ListView::ColumnCount() const { return static_cast<int>(m_columnKeys.size()); }
float ListView::ColumnWidth(int column) const { return ToTwips(m_tree->columnWidth(column)); }

void ListView::SetColumnWidth(int column, float width) {
    const int pixels = std::max(ToPixels(width), 0);
    if (pixels == 0) m_tree->header()->setMinimumSectionSize(0);
    m_tree->setColumnWidth(column, std::max(pixels, m_tree->header()->minimumSectionSize()));
}

QString ListView::ColumnCaption(int column) const { return m_tree->headerItem()->text(column); }

int ListView::ColumnIndex(const QString& key) const {
    const auto found = std::find(m_columnKeys.begin(), m_columnKeys.end(), key);
    return found == m_columnKeys.end() ? -1 : static_cast<int>(found - m_columnKeys.begin());
}

void ListView::SetIconSize(int pixels, double rowFactor, int picture) {
    m_tree->iconSize = pixels;
    m_tree->rowFactor = rowFactor;
    m_tree->picture = picture > 0 ? picture : pixels <= LargestPicture ? pixels : PictureInLargeIcon;
    m_tree->doItemsLayout();
}

void ListView::SetIconColumn(int column) {
    m_iconColumn = column;
    SetSearchColumn(column == 0 ? 1 : 0);
}

void ListView::SetSearchColumn(int column) { m_tree->textColumn = column; }

void ListView::SetCheckBoxes(bool boxes) {
    m_checkBoxes = boxes;
    if (boxes) WatchKeyRepetition();
}

void ListView::SetHeaderVisible(bool visible) { m_tree->setHeaderHidden(!visible); }

void ListView::SetRowLines(bool lines) {
    m_tree->rowLines = lines;
    m_tree->viewport()->update();
}

void ListView::SetFramed(bool framed) {
    m_framed = framed;
    RunLayout();
    update();
}

void ListView::SetType(Theme::Type type) {
    m_tree->type = type;
    m_tree->viewport()->update();
}

void ListView::ClearRows() {
    m_tree->setCurrentItem(nullptr);
    m_tree->clear();
    m_rowKeys.clear();
}

void ListView::AddRow(const QString& key, const QString& icon, const std::vector<Cell>& cells) {
    if (m_rowKeys.contains(key)) Raise(ErrorNumber::KeyTaken, "ListView.AddRow");
    m_rowKeys.insert(key);
    auto* item = new QTreeWidgetItem;
    item->setData(0, ReportTree::KeyRole, key);
    item->setData(m_iconColumn, ReportTree::IconRole, icon);
    for (size_t i = 0; i < cells.size(); ++i) {
        const int column = static_cast<int>(i) + 1;
        item->setText(column, cells[i].text);
        item->setData(column, ReportTree::GrayRole, cells[i].gray);
        item->setData(column, ReportTree::BoldRole, cells[i].bold);
        if (cells[i].bold) item->setFont(column, m_tree->CellFont(true));
    }
    DescribeRow(item);
    m_tree->addTopLevelItem(item);
}

QTreeWidgetItem* ListView::Item(int row) const {
    QTreeWidgetItem* item = m_tree->topLevelItem(row);
    if (!item) Raise(ErrorNumber::SubscriptOutOfRange, "ListView.Item");
    return item;
}

void ListView::DescribeRow(QTreeWidgetItem* item) const {
    QStringList parts;
    for (int column = 0; column < item->columnCount(); ++column)
        if (!item->text(column).isEmpty()) parts << item->text(column);
    const QString meaning = IconMeaning(item->data(m_iconColumn, ReportTree::IconRole).toString());
    if (!meaning.isEmpty()) parts << meaning;
    item->setData(m_iconColumn, Qt::AccessibleTextRole, parts.join(QStringLiteral(", ")));
}

int ListView::RowCount() const { return m_tree->topLevelItemCount(); }
QString ListView::RowKey(int row) const { return Item(row)->data(0, ReportTree::KeyRole).toString(); }
QString ListView::RowIcon(int row) const { return Item(row)->data(m_iconColumn, ReportTree::IconRole).toString(); }

void ListView::SetRowIcon(int row, const QString& icon) {
    Item(row)->setData(m_iconColumn, ReportTree::IconRole, icon);
    DescribeRow(Item(row));
}

bool ListView::RowChecked(int row) const { return Item(row)->data(0, ReportTree::CheckedRole).toBool(); }

void ListView::SetRowChecked(int row, bool checked) {
    Item(row)->setData(0, ReportTree::CheckedRole, checked);
    SetRowIcon(row, checked ? QStringLiteral("selected") : QStringLiteral("unselected"));
}

void ListView::ToggleRow(int row) {
    const bool checked = !RowChecked(row);
    SetRowChecked(row, checked);
    emit RowToggled(row, checked);
}

void ListView::PressBox(Qt::MouseButton button, const QPoint& at) {
    const int row = HitTestIcon(at);
    if (m_checkBoxes && button == Qt::LeftButton && row >= 0) ToggleRow(row);
}

QString ListView::CellText(int row, int column) const { return Item(row)->text(column); }
bool ListView::CellBold(int row, int column) const { return Item(row)->data(column, ReportTree::BoldRole).toBool(); }
bool ListView::CellGray(int row, int column) const { return Item(row)->data(column, ReportTree::GrayRole).toBool(); }

void ListView::SetCellStyle(int row, int column, bool gray, bool bold) {
    QTreeWidgetItem* item = Item(row);
    if (CellGray(row, column) != gray) item->setData(column, ReportTree::GrayRole, gray);
    if (CellBold(row, column) == bold) return;
    item->setData(column, ReportTree::BoldRole, bold);
    item->setFont(column, m_tree->CellFont(bold));
}

QString ListView::CellTooltip(int row, int column) const {
    return Item(row)->data(column, ReportTree::TooltipRole).toString();
}

void ListView::SetCellTooltip(int row, int column, const QString& text) {
    Item(row)->setData(column, ReportTree::TooltipRole, text);
    Item(row)->setToolTip(column, PlainTooltip(text));
}

bool ListView::RowBand(int row) const { return Item(row)->data(0, ReportTree::BandRole).toBool(); }
void ListView::SetRowBand(int row, bool band) {
    Item(row)->setData(0, ReportTree::BandRole, band);
    m_tree->viewport()->update();
}

bool ListView::RowSelected(int row) const { return Item(row)->isSelected(); }
void ListView::SelectAll() { m_tree->selectAll(); }

void ListView::ClearSelection() {
    m_tree->setCurrentItem(nullptr);
    m_tree->clearSelection();
}

int ListView::CurrentRow() const {
    QTreeWidgetItem* item = m_tree->currentItem();
    return item ? m_tree->indexOfTopLevelItem(item) : -1;
}

void ListView::SetCurrentRow(int row) { m_tree->setCurrentItem(row < 0 ? nullptr : Item(row)); }

int ListView::HitTest(const QPoint& viewportPosition) const {
    const QModelIndex index = m_tree->indexAt(viewportPosition);
    return index.isValid() ? index.row() : -1;
}

int ListView::HitTestIcon(const QPoint& viewportPosition) const {
    const int left = m_tree->header()->sectionViewportPosition(m_iconColumn);
    const int right = left + m_tree->columnWidth(m_iconColumn);
    return viewportPosition.x() >= left && viewportPosition.x() <= right ? HitTest(viewportPosition) : -1;
}

ListView::Place ListView::CurrentPlace() const {
    Place place;
    for (int row = 0; row < RowCount(); ++row)
        if (RowSelected(row)) place.selectedKeys.insert(RowKey(row));
    if (CurrentRow() >= 0) place.currentKey = RowKey(CurrentRow());
    place.scroll = m_tree->verticalScrollBar()->value();
    return place;
}

void ListView::Restore(const Place& place) {
    for (int row = 0; row < RowCount(); ++row) {
        const QString key = RowKey(row);
        if (key == place.currentKey) m_tree->setCurrentItem(Item(row), 0, QItemSelectionModel::NoUpdate);
        Item(row)->setSelected(place.selectedKeys.contains(key));
    }
    m_tree->doItemsLayout();
    m_tree->verticalScrollBar()->setValue(place.scroll);
}

QRect ListView::MenuRow() const {
    const QList<QTreeWidgetItem*> selected = m_tree->selectedItems();
    if (selected.isEmpty()) return QRect();
    QTreeWidgetItem* row = m_tree->currentItem();
    if (!row || !row->isSelected())
        row = *std::min_element(selected.begin(), selected.end(), [this](auto* a, auto* b) {
            return m_tree->indexOfTopLevelItem(a) < m_tree->indexOfTopLevelItem(b);
        });
    const QRect inViewport = m_tree->visualItemRect(row);
    return QRect(m_tree->viewport()->mapTo(this, inViewport.topLeft()), inViewport.size());
}

int ListView::RowHeight() const { return m_tree->RowHeight(); }

float ListView::TextWidth(const QString& text, bool bold) const {
    return ToTwips(quellbrook::TextWidth(m_tree->CellFont(bold), text));
}

void ListView::Layout() {
    const int inset = m_framed ? 1 : 0;
    m_tree->setGeometry(rect().adjusted(inset, inset, -inset, -inset));
}

void ListView::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        if (m_framed) PaintField(*this, isEnabled());
    });
}

bool ListView::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_tree || event->type() != QEvent::KeyPress) return Control::eventFilter(watched, event);
    const auto& key = *static_cast<QKeyEvent*>(event);
    const int code = KeyCodeOf(key);
    if (code == 0) return false;
    const bool ctrl = key.modifiers() & Qt::ControlModifier;
    const bool toggles = m_checkBoxes && code == 32 && !ctrl;
    Guard([&] {
        const QPointer<ListView> alive(this);
        emit KeyDown(code, ctrl);
        if (alive && toggles && !IsRepetition(key) && CurrentRow() >= 0) ToggleRow(CurrentRow());
    });
    return code == 13 || toggles;
}

void ListView::changeEvent(QEvent* event) {
    Control::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange) m_tree->viewport()->update();
}

}  // namespace quellbrook

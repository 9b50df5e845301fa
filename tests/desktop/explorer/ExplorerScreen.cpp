#include "tests/desktop/explorer/ExplorerScreen.h"

#include "ui/style/Theme.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <QStyleOptionSlider>

#include <algorithm>

namespace quellbrook::testing {

using namespace tour;

namespace {

constexpr int leastVisible = 14;    // pixels of a row
const QPoint probe(-12, 7);         // inside a row, from its right top corner: free of text and of the focus ring
constexpr int insideBatchMark = 2;  // pixels from the left edge of a row, beside the ring of the focus
constexpr int nameColumn = 1;

QImage Screenshot() { return QApplication::primaryScreen()->grabWindow(0).toImage(); }

QAbstractItemView* Contents() { return FindView(QStringLiteral("explorer/ItemPane")); }
QWidget* Results() { return Find(QStringLiteral("explorer/SearchResultPane/searchResults")); }

QRect OnScreen(const QWidget& widget, const QRect& area) { return {widget.mapToGlobal(area.topLeft()), area.size()}; }

void AddVisible(std::vector<ScreenRow>& rows, const QString& name, const QRect& area) {
    if (area.height() >= leastVisible) rows.push_back({name, area});
}

std::vector<ScreenRow> RowsOfContents(const QAbstractItemView& view) {
    std::vector<ScreenRow> rows;
    const QRect viewport = view.viewport()->rect();
    for (int row = 0; row < view.model()->rowCount(); ++row) {
        const QModelIndex index = view.model()->index(row, nameColumn);
        QRect area = view.visualRect(index);
        area.setLeft(0);
        area.setRight(viewport.right());
        AddVisible(rows, index.data().toString(), OnScreen(*view.viewport(), area & viewport));
    }
    return rows;
}

std::vector<ScreenRow> RowsOfResults(const QWidget& list) {
    std::vector<ScreenRow> rows;
    const QRect clip = OnScreen(list, list.rect());
    for (const QWidget* row : list.findChildren<QWidget*>(QStringLiteral("searchResult")))
        if (row->isVisible())
            AddVisible(rows, TextOf(row->findChild<QWidget*>(QStringLiteral("lblID"))),
                       OnScreen(*row, row->rect()) & clip);
    std::sort(rows.begin(), rows.end(), [](const auto& a, const auto& b) { return a.area.top() < b.area.top(); });
    return rows;
}

QString ShownOnTheRight() {
    if (Find(QStringLiteral("explorer/SearchResultPane")))
        return Find(QStringLiteral("SearchResultPane/picNoResults")) ? QStringLiteral("no results")
                                                                     : QStringLiteral("results");
    return Find(QStringLiteral("explorer/ItemPane/picNoItems")) ? QStringLiteral("no items")
                                                                : QStringLiteral("contents");
}

// The explorer's child that has the focus; outside the explorer, the control itself.
QString FocusedPane() {
    const QWidget* focused = QApplication::focusWidget();
    for (const QWidget* widget = focused; widget && widget->parentWidget(); widget = widget->parentWidget())
        if (widget->parentWidget()->objectName() == QLatin1String("explorer")) return widget->objectName();
    return focused ? focused->objectName() : QStringLiteral("none");
}

struct Marks {
    QStringList selected, selectedInGray, inBatch;
};

Marks MarksOf(const std::vector<ScreenRow>& rows) {
    const QImage screen = Screenshot();
    Marks marks;
    for (const ScreenRow& row : rows) {
        const QColor ground = screen.pixelColor(row.area.topRight() + probe);
        if (ground == Theme::Get(Theme::Color::Highlight)) marks.selected << row.name;
        if (ground == Theme::Get(Theme::Color::SelectedInactive)) marks.selectedInGray << row.name;
        const QColor edge = screen.pixelColor(row.area.left() + insideBatchMark, row.area.center().y());
        if (edge == Theme::Get(Theme::Color::Accent)) marks.inBatch << row.name;
    }
    return marks;
}

QString Joined(const QStringList& texts) { return texts.join(QStringLiteral(", ")); }

void AddPart(QStringList& parts, const QString& caption, const QString& text) {
    if (!text.isEmpty()) parts << caption + text;
}

QRect ThumbOf(const QScrollBar& bar) {
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = bar.orientation();
    option.minimum = bar.minimum();
    option.maximum = bar.maximum();
    option.sliderPosition = bar.sliderPosition();
    option.sliderValue = bar.value();
    option.singleStep = bar.singleStep();
    option.pageStep = bar.pageStep();
    return bar.style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, &bar);
}

}  // namespace

std::vector<ScreenRow> VisibleRows() {
    if (const QWidget* list = Results()) return RowsOfResults(*list);
    const QAbstractItemView* view = Contents();
    return view ? RowsOfContents(*view) : std::vector<ScreenRow>();
}

QString FirstRow() {
    const auto rows = VisibleRows();
    return rows.empty() ? QString() : rows.front().name;
}

QString LastRow() {
    const auto rows = VisibleRows();
    return rows.empty() ? QString() : rows.back().name;
}

Spot SpotOfRow(const QString& name) {
    for (const ScreenRow& row : VisibleRows())
        if (row.name == name) return row.area.center();
    return std::nullopt;
}

QString Seen() {
    QStringList parts{TextOf(QStringLiteral("explorer/lblTitle")), TextOf(QStringLiteral("explorer/lblSubtitle")),
                      ShownOnTheRight()};
    const Marks marks = MarksOf(VisibleRows());
    AddPart(parts, "tree ", Joined(SelectedRows(FindView(QStringLiteral("explorer/LocationPane")))));
    AddPart(parts, "selected ", Joined(marks.selected));
    AddPart(parts, "selected in gray ", Joined(marks.selectedInGray));
    AddPart(parts, "in batch ", Joined(marks.inBatch));
    AddPart(parts, "focus ", FocusedPane());
    AddPart(parts, "", TextOf(QStringLiteral("infobar/lblSelected")));
    return parts.join(QStringLiteral("; "));
}

QString SeenMenu() {
    const QMenu* menu = OpenMenu();
    if (!menu) return {};
    QStringList entries;
    for (const QAction* action : menu->actions()) {
        if (!action->isVisible()) continue;
        const QString text = action->isSeparator() ? QStringLiteral("-") : action->text();
        entries << (action->isEnabled() || action->isSeparator() ? text : "[" + text + "]");
    }
    return Joined(entries);
}

QString SeenDialog() {
    if (!QApplication::activeModalWidget()) return {};
    return TextOf(QStringLiteral("grpTitlebar/lblTitle")) + ": " + TextOf(QStringLiteral("lblMessage"));
}

QScrollBar* ScrollBarOnTheRight() {
    const QWidget* pane = Results();
    if (!pane) pane = Contents();
    if (!pane) return nullptr;
    for (QScrollBar* bar : pane->findChildren<QScrollBar*>())
        if (bar->isVisible() && bar->orientation() == Qt::Vertical) return bar;
    return nullptr;
}

Spot SpotOfThumb() {
    const QScrollBar* bar = ScrollBarOnTheRight();
    if (!bar) return std::nullopt;
    return OnScreen(*bar, ThumbOf(*bar)).center();
}

}  // namespace quellbrook::testing

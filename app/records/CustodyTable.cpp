#include "app/records/CustodyTable.h"

#include "app/common/ThemedSheet.h"
#include "app/records/RecordTexts.h"

#include <QApplication>
#include <QHeaderView>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr int locationColumn = 4;
constexpr int isMissingRole = Qt::UserRole;
constexpr int rowHeight = 36, headerHeight = 32, columnGap = 6, widestColumn = 200, widestLocation = 1000;

const char* const sheet = R"css(
QTreeWidget { border: none; }
QTreeWidget::item { border-bottom: 1px solid palette(mid); padding: 0 6px; }
QTreeWidget::item:selected { background: palette(highlight); color: palette(highlighted-text); }
QHeaderView::section { background: palette(window); color: %1; font-size: 12px; font-weight: 600; border: none;
                       border-bottom: 1px solid palette(mid); padding: 0 6px; }
)css";

QTreeWidgetItem* MakeRow(const CustodyStep& step) {
    const QStringList texts{DateOf(step), ToShown(step.reason), ToShown(step.receivedFrom), ToShown(step.receivedBy),
                            ToShown(step.location)};
    auto* row = new QTreeWidgetItem;
    row->setSizeHint(locationColumn, QSize(0, rowHeight));
    for (int column = 0; column < texts.size(); ++column) {
        const QString& text = texts[column];
        row->setText(column, text.isEmpty() ? QObject::tr("Not specified") : text);
        row->setData(column, isMissingRole, text.isEmpty());
        if (!text.isEmpty()) row->setToolTip(column, "<span>" + text.toHtmlEscaped() + "</span>");
    }
    return row;
}

}  // namespace

CustodyTable::CustodyTable(const std::vector<CustodyStep>& steps, QWidget* parent) : QTreeWidget(parent) {
    setObjectName(QStringLiteral("custody"));
    setAccessibleName(tr("Chain of custody"));
    SetThemedSheet(this, QString::fromLatin1(sheet));
    setHeaderLabels({tr("Date"), tr("Reason"), tr("Received from"), tr("Received by"), tr("Location")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setTextElideMode(Qt::ElideMiddle);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    header()->setFixedHeight(headerHeight);
    header()->setSectionsMovable(false);
    header()->setStretchLastSection(false);
    QList<QTreeWidgetItem*> rows;
    for (const CustodyStep& step : steps) rows.push_back(MakeRow(step));
    addTopLevelItems(rows);
    ColorMissingTexts();
    for (int column = 0; column < locationColumn; ++column) {
        resizeColumnToContents(column);
        setColumnWidth(column, std::min(columnWidth(column) + columnGap, widestColumn));
    }
    const QFontMetrics metrics(font());
    for (const CustodyStep& step : steps)
        m_locationWidth = std::max(m_locationWidth, metrics.horizontalAdvance(ToShown(step.location)));
    m_locationWidth = std::min(m_locationWidth + 4 * columnGap, widestLocation);
    FitColumns();
}

void CustodyTable::FitColumns() {
    const int left = viewport()->width() - header()->sectionPosition(locationColumn);
    setColumnWidth(locationColumn, std::max(m_locationWidth, left));
}

void CustodyTable::ColorMissingTexts() {
    const QColor gray = QApplication::palette().color(QPalette::Disabled, QPalette::WindowText);
    for (int row = 0; row < topLevelItemCount(); ++row)
        for (int column = 0; column < columnCount(); ++column)
            if (topLevelItem(row)->data(column, isMissingRole).toBool()) topLevelItem(row)->setForeground(column, gray);
}

void CustodyTable::changeEvent(QEvent* event) {
    QTreeWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) ColorMissingTexts();
}

void CustodyTable::resizeEvent(QResizeEvent* event) {
    QTreeWidget::resizeEvent(event);
    FitColumns();
}

}  // namespace quellbrook

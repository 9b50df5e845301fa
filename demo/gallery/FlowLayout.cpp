#include "demo/gallery/FlowLayout.h"

#include <algorithm>

namespace quellbrook::gallery {

FlowLayout::FlowLayout(int gap, int lineGap) : m_gap(gap), m_lineGap(lineGap) { setContentsMargins(0, 0, 0, 0); }

FlowLayout::~FlowLayout() = default;

void FlowLayout::addItem(QLayoutItem* item) { m_items.emplace_back(item); }

int FlowLayout::count() const { return static_cast<int>(m_items.size()); }

QLayoutItem* FlowLayout::itemAt(int index) const {
    return index >= 0 && index < count() ? m_items[static_cast<size_t>(index)].get() : nullptr;
}

QLayoutItem* FlowLayout::takeAt(int index) {
    if (!itemAt(index)) return nullptr;
    const auto at = m_items.begin() + index;
    QLayoutItem* taken = at->release();
    m_items.erase(at);
    return taken;
}

template <typename Assign>
int FlowLayout::Flow(int width, Assign&& assign) const {
    QPoint at(0, 0);
    int lineHeight = 0;
    for (const auto& item : m_items) {
        const QSize size = item->sizeHint();
        if (at.x() > 0 && at.x() + size.width() > width) {
            at = QPoint(0, at.y() + lineHeight + m_lineGap);
            lineHeight = 0;
        }
        assign(*item, QRect(at, size));
        at.rx() += size.width() + m_gap;
        lineHeight = std::max(lineHeight, size.height());
    }
    return at.y() + lineHeight;
}

int FlowLayout::heightForWidth(int width) const {
    return Flow(width, [](QLayoutItem&, const QRect&) {});
}

QSize FlowLayout::minimumSize() const {
    QSize size(0, 0);
    for (const auto& item : m_items) size = size.expandedTo(item->sizeHint());
    return size;
}

void FlowLayout::setGeometry(const QRect& rect) {
    QLayout::setGeometry(rect);
    Flow(rect.width(), [&](QLayoutItem& item, const QRect& at) { item.setGeometry(at.translated(rect.topLeft())); });
}

}  // namespace quellbrook::gallery

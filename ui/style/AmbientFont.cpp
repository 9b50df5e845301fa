#include "ui/style/AmbientFont.h"

#include <QFontMetricsF>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace quellbrook {

namespace {

// A widget's resolve mask does not include inherited attributes.
uint ResolveMaskWithParents(const QWidget& widget) {
    uint mask = 0;
    for (const QWidget* current = &widget; current; current = current->isWindow() ? nullptr : current->parentWidget())
        if (current->testAttribute(Qt::WA_SetFont)) mask |= current->font().resolveMask();
    return mask;
}

}  // namespace

AmbientFont::AmbientFont(Theme::Type type) : font(Theme::Font(type)), lineHeight(Theme::LineHeight(type)) {}

AmbientFont::AmbientFont(Theme::Type type, const QWidget& widget) : AmbientFont(type) {
    const uint mask = ResolveMaskWithParents(widget);
    if (mask == 0) return;
    QFont set = widget.font();
    set.setResolveMask(mask);
    font = set.resolve(font);
    lineHeight = std::max(lineHeight, static_cast<int>(std::ceil(QFontMetricsF(font).height())));
}

}  // namespace quellbrook

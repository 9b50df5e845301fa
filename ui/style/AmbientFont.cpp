#include "ui/style/AmbientFont.h"

#include <QFontMetricsF>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace quellbrook {

namespace {

// The widget's own mask leaves out what it has inherited.
uint SetHereOrAround(const QWidget& widget) {
    uint mask = 0;
    for (const QWidget* around = &widget; around; around = around->isWindow() ? nullptr : around->parentWidget())
        if (around->testAttribute(Qt::WA_SetFont)) mask |= around->font().resolveMask();
    return mask;
}

}  // namespace

AmbientFont::AmbientFont(Theme::Type type) : font(Theme::Font(type)), lineHeight(Theme::LineHeight(type)) {}

AmbientFont::AmbientFont(Theme::Type type, const QWidget& widget) : AmbientFont(type) {
    const uint mask = SetHereOrAround(widget);
    if (mask == 0) return;
    QFont set = widget.font();
    set.setResolveMask(mask);
    font = set.resolve(font);
    lineHeight = std::max(lineHeight, static_cast<int>(std::ceil(QFontMetricsF(font).height())));
}

}  // namespace quellbrook

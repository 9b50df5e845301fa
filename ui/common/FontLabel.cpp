#include "ui/common/FontLabel.h"

#include "ui/platform/Guard.h"
#include "ui/style/TextBlock.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quellbrook {

QSize FontLabel::sizeHint() const {
    const QFontMetricsF metrics(font());
    const int height = static_cast<int>(std::ceil(metrics.height()));
    return QSize(static_cast<int>(std::ceil(metrics.horizontalAdvance(Caption()))),
                 std::max(height, Theme::LineHeight(Theme::Type::Subtitle)));
}

void FontLabel::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        QPainter painter(this);
        painter.setFont(font());
        painter.setPen(ForeColor());
        const QRect shown = ShownRect();
        painter.drawText(shown.adjusted(0, 0, 1, 0), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         ElidedTo(font(), Caption(), shown.width()));
    });
}

}  // namespace quellbrook

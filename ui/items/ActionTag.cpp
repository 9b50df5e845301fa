#include "ui/items/ActionTag.h"

#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"
#include "ui/style/Theme.h"

#include <QAccessible>
#include <QEvent>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr int Inset = 8, PaddingX = 6, PaddingY = 2, LineHeight = 16;

int WidestLine(const QStringList& lines) {
    const QFontMetrics metrics(Theme::Font(Theme::Type::TagText));
    int widest = 0;
    for (const QString& line : lines) widest = std::max(widest, metrics.horizontalAdvance(line));
    return widest;
}

}  // namespace

ActionTag::ActionTag(QWidget* parent) : Control(parent) {
    setFocusPolicy(Qt::NoFocus);
    SetAccessibleRole(QAccessible::StaticText);
}

void ActionTag::SetCaption(const QString& caption) {
    if (m_caption == caption) return;
    m_caption = caption;
    setAccessibleName(caption);
    FitToText();
    update();
}

void ActionTag::SetColor(int32_t color) {
    if (m_color == color) return;
    m_color = color;
    update();
}

QStringList ActionTag::Lines() const {
    const int available = ToPixels(Width()) - Inset - 2 * PaddingX;
    if (WidestLine({m_caption}) <= available) return {m_caption};
    return m_caption.split(' ', Qt::SkipEmptyParts);
}

void ActionTag::FitToText() {
    const auto lines = static_cast<int>(Lines().size());
    SetHeight(ToTwips(lines * LineHeight + 2 * PaddingY));
}

void ActionTag::Layout() { FitToText(); }

void ActionTag::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        if (m_caption.isEmpty()) return;
        const QStringList lines = Lines();
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRect block(Inset, 0, WidestLine(lines) + 2 * PaddingX, height());
        const QColor color = Theme::FromBgr(m_color);
        painter.setPen(Qt::NoPen);
        painter.setBrush(color);
        painter.drawRoundedRect(block, Theme::Radius, Theme::Radius);
        painter.setPen(Theme::TextOn(color));
        painter.setFont(Theme::Font(Theme::Type::TagText));
        for (int i = 0; i < lines.size(); ++i)
            painter.drawText(QRect(Inset + PaddingX, PaddingY + i * LineHeight, block.width(), LineHeight),
                             Qt::AlignLeft | Qt::AlignVCenter, lines[i]);
    });
}

void ActionTag::changeEvent(QEvent* event) {
    Control::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::PaletteChange) update();
}

}  // namespace quellbrook

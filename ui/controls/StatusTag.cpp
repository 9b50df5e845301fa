#include "ui/controls/StatusTag.h"

#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"
#include "ui/style/TextBlock.h"
#include "ui/style/Theme.h"

#include <QPainter>

namespace quellbrook {

namespace {

constexpr int TagHeight = 20;
constexpr int SideMargin = 8;

}  // namespace

StatusTag::StatusTag(QWidget* parent) : Control(parent) { FitToText(); }

void StatusTag::SetCaption(const QString& caption) {
    m_caption = caption;
    setAccessibleName(caption);
    FitToText();
}

void StatusTag::SetColor(int32_t color) {
    m_color = color;
    update();
}

float StatusTag::TextTop(float labelHeight) const { return Top() + (Height() - labelHeight) / 2; }

QSize StatusTag::sizeHint() const {
    return QSize(TextWidth(Theme::Font(Theme::Type::TagText), m_caption) + 2 * SideMargin, TagHeight);
}

void StatusTag::FitToText() {
    const QSize size = sizeHint();
    Control::Move(Left(), Top(), ToTwips(size.width()), ToTwips(size.height()));
    updateGeometry();
    update();
}

void StatusTag::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        if (m_caption.isEmpty()) return;
        const QColor background = Theme::FromBgr(m_color);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(background);
        painter.drawRoundedRect(rect(), Theme::Radius, Theme::Radius);
        painter.setPen(Theme::TextOn(background));
        TextBlock(m_caption, Theme::Type::TagText)
            .Draw(painter, rect().adjusted(SideMargin, 0, -SideMargin, 0), Qt::AlignLeft | Qt::AlignVCenter);
    });
}

void StatusTag::changeEvent(QEvent* event) {
    Control::changeEvent(event);
    update();
}

}  // namespace quellbrook

#include "ui/controls/Label.h"

#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"
#include "ui/style/TextBlock.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace quellbrook {

Label::Label(QWidget* parent) : Control(parent) { FitToText(); }

void Label::SetCaption(const QString& caption) {
    if (caption == m_caption) return;
    m_caption = caption;
    setAccessibleName(caption);
    FitToText();
}

void Label::SetType(Theme::Type type) {
    m_type = type;
    FitToText();
}

void Label::SetForeColor(Theme::Color color) {
    m_themeColor = color;
    m_fixedColor.reset();
    update();
}

void Label::SetForeColor(const QColor& color) {
    m_fixedColor = color;
    update();
}

QColor Label::ForeColor() const { return m_fixedColor ? *m_fixedColor : Theme::Get(m_themeColor); }

void Label::SetAutoSize(bool autoSize) {
    m_autoSize = autoSize;
    FitToText();
}

void Label::SetWordWrap(bool wrap) {
    m_wordWrap = wrap;
    FitToText();
}

void Label::SetOneLine(bool oneLine) {
    m_oneLine = oneLine;
    FitToText();
}

void Label::SetTextAlignment(Qt::Alignment alignment) {
    m_alignment = alignment;
    update();
}

TextBlock Label::Block(int wrapWidth) const {
    return TextBlock(m_oneLine ? OneLine(m_caption) : m_caption, AmbientFont(m_type, *this),
                     m_wordWrap ? wrapWidth : 0);
}

QSize Label::sizeHint() const {
    const TextBlock block = Block(0);
    return QSize(block.Width(), block.Height()).grownBy(contentsMargins());
}

int Label::heightForWidth(int width) const { return Block(width).Height(); }

void Label::FitToText() {
    if (m_autoSize && m_wordWrap) {
        SetHeight(ToTwips(heightForWidth(width())));
    } else if (m_autoSize) {
        const QSize size = sizeHint();
        Move(Left(), Top(), ToTwips(size.width()), ToTwips(size.height()));
    }
    updateGeometry();
    update();
}

void Label::Layout() {
    if (m_autoSize && m_wordWrap) SetHeight(ToTwips(heightForWidth(width())));
}

QRect Label::ShownRect() const {
    QRect shown = contentsRect();
    int left = 0;  // of the label in the parent
    for (const QWidget* widget = this; !widget->isWindow() && widget->parentWidget(); widget = widget->parentWidget()) {
        left += widget->x();
        shown.setLeft(std::max(shown.left(), -left));
        shown.setRight(std::min(shown.right(), widget->parentWidget()->width() - 1 - left));
    }
    return shown;
}

void Label::changeEvent(QEvent* event) {
    Control::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::ParentChange)
        Guard([this] { FitToText(); });
    else
        update();
}

bool Label::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip || !toolTip().isEmpty()) return Control::event(event);
    Guard([this, event] {
        if (Block(width()).FitsIn(ShownRect().size()))
            QToolTip::hideText();
        else
            QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), PlainTooltip(m_caption), this);
    });
    return true;
}

void Label::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        QPainter painter(this);
        painter.setPen(isEnabled() || !m_dimsWhenDisabled ? ForeColor() : Theme::Get(Theme::Color::DisabledText));
        Block(width()).Draw(painter, ShownRect(), m_alignment);
    });
}

}  // namespace quellbrook

#include "app/common/PlainLabels.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QTextLayout>

#include <cmath>

namespace quellbrook {

namespace {

constexpr int leastWidth = 40;
constexpr int usualWidth = 240;

void SetUp(QLabel& label, int pixels, QFont::Weight weight) {
    label.setTextFormat(Qt::PlainText);
    label.setFont(SizedFont(pixels, weight));
}

QString OneLine(QString text) {
    for (QChar& c : text) {
        const bool endsLine = c == QChar::LineSeparator || c == QChar::ParagraphSeparator;
        if (endsLine || c.category() == QChar::Other_Control) c = ' ';
    }
    return text;
}

// Lays out the label's text at this width; returns its height.
int LayOut(QTextLayout& layout, const QLabel& label, int width) {
    QTextOption option(Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QString text = label.text();
    layout.setText(text.replace('\n', QChar::LineSeparator));
    layout.setFont(label.font());
    layout.setTextOption(option);
    qreal height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition({0, height});
        height += line.height();
    }
    layout.endLayout();
    return static_cast<int>(std::ceil(height));
}

}  // namespace

QFont SizedFont(int pixels, QFont::Weight weight) {
    QFont font;
    font.setPixelSize(pixels);
    font.setWeight(weight);
    return font;
}

QLabel* MakeLabel(const QString& text, int pixels, QFont::Weight weight, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setWordWrap(true);
    SetUp(*label, pixels, weight);
    return label;
}

void MakeQuiet(QWidget* widget) { widget->setForegroundRole(QPalette::PlaceholderText); }

QColor FailureColor() {
    return QApplication::palette().color(QPalette::Window).lightness() < 128 ? QColor(0xFF8A80) : QColor(0xC00000);
}

void SetColor(QWidget* label, const QColor& color) {
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, color);
    label->setPalette(palette);
}

ElidedLabel::ElidedLabel(const QString& text, int pixels, QFont::Weight weight, QWidget* parent)
    : QLabel(text, parent) {
    SetUp(*this, pixels, weight);
}

QSize ElidedLabel::sizeHint() const {
    const QFontMetrics metrics(font());
    return {metrics.horizontalAdvance(OneLine(text())) + 1, metrics.height()};
}

QSize ElidedLabel::minimumSizeHint() const { return {0, QFontMetrics(font()).height()}; }

bool ElidedLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip)
        setToolTip(width() < sizeHint().width() ? "<span>" + text().toHtmlEscaped() + "</span>" : QString());
    return QLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.drawText(rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     QFontMetrics(font()).elidedText(OneLine(text()), Qt::ElideRight, width()));
}

WrappedLabel::WrappedLabel(const QString& text, int pixels, QFont::Weight weight, QWidget* parent)
    : QLabel(text, parent) {
    SetUp(*this, pixels, weight);
    setWordWrap(true);
}

QSize WrappedLabel::sizeHint() const { return {usualWidth, heightForWidth(usualWidth)}; }

QSize WrappedLabel::minimumSizeHint() const { return {leastWidth, QFontMetrics(font()).height()}; }

int WrappedLabel::heightForWidth(int width) const {
    QTextLayout layout;
    return LayOut(layout, *this, width);
}

void WrappedLabel::paintEvent(QPaintEvent*) {
    QTextLayout layout;
    LayOut(layout, *this, width());
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    layout.draw(&painter, QPointF(0, 0));
}

}  // namespace quellbrook

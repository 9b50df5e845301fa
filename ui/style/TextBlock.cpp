#include "ui/style/TextBlock.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QStringList>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace quellbrook {

namespace {

void Wrap(const QString& paragraph, const QFont& font, int width, std::vector<QString>& lines) {
    QTextLayout layout(paragraph, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines.push_back(paragraph.mid(line.textStart(), line.textLength()).trimmed());
    }
    layout.endLayout();
}

}  // namespace

int TextWidth(const QFont& font, const QString& line) {
    return static_cast<int>(std::ceil(QFontMetricsF(font).horizontalAdvance(line)));
}

QString OneLine(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String(" "));
    for (const char16_t lineBreak : {u'\n', u'\r', u'\v', u'\f', u'\u0085', u'\u2028', u'\u2029'})
        text.replace(QChar(lineBreak), QLatin1Char(' '));
    return text;
}

QString ElidedTo(const QFont& font, const QString& line, int width) {
    if (TextWidth(font, line) <= width) return line;
    return QFontMetricsF(font).elidedText(line, Qt::ElideRight, std::max(0, width));
}

TextBlock::TextBlock(const QString& text, Theme::Type type, int wrapWidth)
    : TextBlock(text, AmbientFont(type), wrapWidth) {}

TextBlock::TextBlock(const QString& text, const AmbientFont& face, int wrapWidth) : m_face(face) {
    const QFont& font = m_face.font;
    for (const QString& paragraph : text.split(QLatin1Char('\n'))) {
        if (wrapWidth > 0 && TextWidth(font, paragraph) > wrapWidth)
            Wrap(paragraph, font, wrapWidth, m_lines);
        else
            m_lines.push_back(paragraph);
    }
}

int TextBlock::Width() const {
    int width = 0;
    for (const QString& line : m_lines) width = std::max(width, TextWidth(m_face.font, line));
    return width;
}

int TextBlock::Height() const { return LineCount() * m_face.lineHeight; }

bool TextBlock::FitsIn(const QSize& size) const { return Width() <= size.width() && Height() <= size.height(); }

QString TextBlock::ShownLine(int line, int shownLines, int width) const {
    QString text = m_lines[static_cast<size_t>(line)];
    if (line == shownLines - 1 && shownLines < LineCount()) {
        if (!text.isEmpty()) text += QLatin1Char(' ');
        text += m_lines[static_cast<size_t>(line) + 1] + QChar(0x2026);
    }
    return ElidedTo(m_face.font, text, width);
}

void TextBlock::Draw(QPainter& painter, const QRect& bounds, Qt::Alignment alignment) const {
    const int lineHeight = m_face.lineHeight;
    const int shown = std::clamp(bounds.height() / lineHeight, 1, LineCount());
    int top = bounds.top();
    if (alignment & Qt::AlignVCenter) top += (bounds.height() - shown * lineHeight) / 2;
    if (alignment & Qt::AlignBottom) top += bounds.height() - shown * lineHeight;
    painter.setFont(m_face.font);
    const Qt::Alignment sideways = alignment & Qt::AlignHorizontal_Mask;
    for (int line = 0; line < shown; ++line, top += lineHeight)
        painter.drawText(QRect(bounds.left(), top, bounds.width(), lineHeight),
                         int(sideways) | Qt::AlignVCenter | Qt::TextSingleLine | Qt::TextDontClip,
                         ShownLine(line, shown, bounds.width()));
}

}  // namespace quellbrook

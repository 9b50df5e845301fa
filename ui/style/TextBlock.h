#pragma once

#include "ui/style/AmbientFont.h"
#include "ui/style/Theme.h"

#include <QString>

#include <vector>

class QPainter;

namespace quellbrook {

// Width of a line of text in pixels, rounded up.
int TextWidth(const QFont& font, const QString& line);
// The text with a blank for each line break.
QString OneLine(QString text);
// The line, shortened with an ellipsis if it is wider than that.
QString ElidedTo(const QFont& font, const QString& line, int width);

// Plain text, broken into lines of its type's height. Line ends in the text always start a new line.
class TextBlock {
public:
    // Without a width (0 or less), only line ends in the text start a new line.
    TextBlock(const QString& text, Theme::Type type, int wrapWidth = 0);
    TextBlock(const QString& text, const AmbientFont& face, int wrapWidth = 0);

    int LineCount() const { return static_cast<int>(m_lines.size()); }  // at least 1
    int Width() const;                                                  // of the widest line, in pixels
    int Height() const;                                                 // of all lines

    // Draws the lines that fit, at least one; the rest is replaced by an ellipsis.
    void Draw(QPainter& painter, const QRect& bounds, Qt::Alignment alignment) const;
    // Whether Draw shows all of the text there.
    bool FitsIn(const QSize& size) const;

private:
    QString ShownLine(int line, int shownLines, int width) const;

    AmbientFont m_face;
    std::vector<QString> m_lines;
};

}  // namespace quellbrook

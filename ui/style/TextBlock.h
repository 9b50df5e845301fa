#pragma once

#include "ui/style/AmbientFont.h"
#include "ui/style/Theme.h"

#include <QString>

#include <vector>

class QPainter;

namespace quellbrook {

// Pixels that a line of text takes, rounded up.
int TextWidth(const QFont& font, const QString& line);
// The line, ended by an ellipsis when it is wider than that.
QString ElidedTo(const QFont& font, const QString& line, int width);

// Plain text laid out in lines of its type's height. Line ends in the text always break.
class TextBlock {
public:
    // Without a width (0 or less) only the text's own line ends break it.
    TextBlock(const QString& text, Theme::Type type, int wrapWidth = 0);
    TextBlock(const QString& text, const AmbientFont& face, int wrapWidth = 0);

    int LineCount() const { return static_cast<int>(m_lines.size()); }  // at least 1
    int Width() const;                                                  // of the widest line, in pixels
    int Height() const;                                                 // of all lines

    // Draws as many lines as fit, at least one; what does not fit ends in an ellipsis.
    void Draw(QPainter& painter, const QRect& place, Qt::Alignment alignment) const;
    // Whether Draw shows all of the text there.
    bool FitsIn(const QSize& size) const;

private:
    QString ShownLine(int line, int shownLines, int width) const;

    AmbientFont m_face;
    std::vector<QString> m_lines;
};

}  // namespace quellbrook

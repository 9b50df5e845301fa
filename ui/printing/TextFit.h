#pragma once

#include <QFont>
#include <QSizeF>
#include <QString>
#include <QStringList>

namespace quellbrook {

// A text broken into lines that fit into their room. Lengths are in dots of the device that is painted on.
struct FittedText {
    QFont font;
    QStringList lines;
    qreal ascent = 0;  // of each line
    qreal lineHeight = 0;
};

// The text at the largest size from `largest` down to `smallest` dots at which it fits, broken between words; at the
// smallest, where need be within words too, and with an ellipsis for what is left over. One line at least, whatever the
// room's height. Line ends, tabs and
// other control characters count as blanks.
FittedText FitText(const QString& text, const QFont& font, int largest, int smallest, const QSizeF& room);

}  // namespace quellbrook

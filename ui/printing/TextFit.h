#pragma once

#include <QFont>
#include <QSizeF>
#include <QString>
#include <QStringList>

namespace quellbrook {

// A text broken into lines that fit a box. Lengths are in dots of the device.
struct FittedText {
    QFont font;
    QStringList lines;
    qreal ascent = 0;  // of each line
    qreal lineHeight = 0;
};

// The text at the largest size from `largest` down to `smallest` dots at which it fits, broken between words. At the
// smallest size it is also broken within words and shortened with an ellipsis. Has at least one line. Control
// characters count as blanks.
FittedText FitText(const QString& text, const QFont& font, int largest, int smallest, const QSizeF& bounds);

}  // namespace quellbrook

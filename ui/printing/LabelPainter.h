#pragma once

#include "labels/Label.h"

class QPainter;

namespace quellbrook {

// Paints the label with its top left corner at the painter's origin; the painter's units are dots of the device. Bars
// and spaces of a symbol are a whole number of dots wide, at least two dots and 0.19 mm, on a white background. A text
// that is too long for its box becomes smaller, down to 2.1 mm (6 point), and is then shortened with an ellipsis.
// Raises error 5 for an invalid drawing and for a symbol that is wider than its rectangle.
void PaintLabel(QPainter& painter, const FilledLabel& label, double dotsPerInch);

}  // namespace quellbrook

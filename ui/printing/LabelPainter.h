#pragma once

#include "labels/Label.h"

class QPainter;

namespace quellbrook {

// Paints the label with its top left corner at the painter's origin, the painter's units being dots of the device. Bars
// and spaces of a symbol are whole dots wide, at least two of them and at least 0.19 mm, in a field that is white but
// for the symbol. A text that is too long for its place becomes smaller, down to 2.1 mm (6 point), and is then
// shortened with an ellipsis. Error 5 with a sentence for a drawing that can't be read and a symbol that its rectangle
// is too narrow for.
void PaintLabel(QPainter& painter, const FilledLabel& label, double dotsPerInch);

}  // namespace quellbrook

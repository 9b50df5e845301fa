#pragma once

#include "labels/Label.h"

#include <QByteArray>
#include <QImage>

#include <vector>

namespace quellbrook {

// A PDF with one page per label, at the label's size, painted for a printer with that resolution. Throws as PaintLabel
// does.
QByteArray MakeLabelPdf(const std::vector<FilledLabel>& labels, int dotsPerInch);

// The label as a printer with that resolution prints it, black on white.
QImage MakeLabelImage(const FilledLabel& label, int dotsPerInch);

}  // namespace quellbrook

#pragma once

#include "labels/Label.h"

#include <QByteArray>
#include <QImage>

#include <vector>

namespace quellbrook {

// A PDF of the labels, one page each in its label's size, painted for a printer of so many dots to an inch. The Error
// of PaintLabel.
QByteArray MakeLabelPdf(const std::vector<FilledLabel>& labels, int dotsPerInch);

// The label as it comes from a printer of so many dots to an inch, black on white.
QImage MakeLabelImage(const FilledLabel& label, int dotsPerInch);

}  // namespace quellbrook

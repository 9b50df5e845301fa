#pragma once

#include "host/BarcodeLabel.h"
#include "labels/LabelPrinter.h"

#include <memory>
#include <string>
#include <vector>

class QImage;

namespace quellbrook {

// What a host needs to let its users print labels. Which printer is used is the host's to ask, to remember and to say:
// HostServices::Current().SetPrinter.

// The names of this system's printers; empty where there is no print system, or none that answers.
std::vector<std::string> SystemPrinters();

// Prints on one of them, for a head of so many dots to an inch (203, 300 and 600 are common).
std::shared_ptr<LabelPrinter> MakeSystemPrinter(const std::string& name, int dotsPerInch);

// Writes each label into a PDF file of the directory, named after its barcode.
std::shared_ptr<LabelPrinter> MakePdfPrinter(const std::string& directory, int dotsPerInch);

// What the barcode of the test label holds, STX and ETX included: property of key 0, which no item has.
std::string TestBarcodeText();

// A label from the host's evidence template to try printer and scanner with. Error 5 with a sentence for a template
// that can't be read.
BarcodeLabel MakeTestLabel();

// The label as a printer of so many dots to an inch would print it, black on white.
QImage PictureOfLabel(const FilledLabel& label, int dotsPerInch);

}  // namespace quellbrook

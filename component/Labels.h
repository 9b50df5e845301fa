#pragma once

#include "host/BarcodeLabel.h"
#include "labels/LabelPrinter.h"

#include <memory>
#include <string>
#include <vector>

class QImage;

namespace quellbrook {

// Printing labels from a host. The host chooses and stores the printer, and sets it with
// HostServices::Current().SetPrinter.

// The names of this system's printers; empty without a print system that responds.
std::vector<std::string> SystemPrinters();

// A printer of that name, for a print head with that resolution in dots per inch (203, 300 and 600 are common).
std::shared_ptr<LabelPrinter> MakeSystemPrinter(const std::string& name, int dotsPerInch);

// A printer that writes each label to a PDF file in the directory, named after its barcode.
std::shared_ptr<LabelPrinter> MakePdfPrinter(const std::string& directory, int dotsPerInch);

// The content of the test label's barcode, with STX and ETX: the property with key 0, which does not exist.
std::string TestBarcodeText();

// A label from the host's evidence template to test the printer and the scanner. Error 5 with a sentence if the
// template can't be read.
BarcodeLabel MakeTestLabel();

// The label as a printer of that resolution in dots per inch would print it, black on white.
QImage PictureOfLabel(const FilledLabel& label, int dotsPerInch);

}  // namespace quellbrook

#include "component/Labels.h"

#include "data/BarcodeText.h"
#include "host/HostServices.h"
#include "host/LabelEngine.h"
#include "ui/platform/Strings.h"
#include "ui/printing/LabelOutput.h"
#include "ui/printing/LabelPrinters.h"

namespace quellbrook {

std::vector<std::string> SystemPrinters() {
    std::vector<std::string> names;
    for (const QString& name : SystemPrinterNames()) names.push_back(ToUtf8(name));
    return names;
}

std::shared_ptr<LabelPrinter> MakeSystemPrinter(const std::string& name, int dotsPerInch) {
    return std::make_shared<SystemLabelPrinter>(ToQString(name), dotsPerInch);
}

std::shared_ptr<LabelPrinter> MakePdfPrinter(const std::string& directory, int dotsPerInch) {
    return std::make_shared<PdfLabelPrinter>(ToQString(directory), dotsPerInch);
}

std::string TestBarcodeText() { return MakeBarcodeText("P", 0); }

BarcodeLabel MakeTestLabel() {
    HostServices& host = HostServices::Current();
    BarcodeLabel label = GetLabelEngine().Parse(host.Files().ReadFile("Files\\Data\\evidence.labl"));
    label.SetField("barcode", TestBarcodeText());
    label.SetField("property_id", "TEST");
    label.SetField("category", "Test label");
    label.SetField("description", "For testing a printer and a scanner. No item has this number.");
    label.SetField("agency_name", host.Session().AgencyName());
    return label;
}

QImage PictureOfLabel(const FilledLabel& label, int dotsPerInch) { return MakeLabelImage(label, dotsPerInch); }

}  // namespace quellbrook

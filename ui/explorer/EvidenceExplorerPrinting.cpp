#include "base/Screen.h"
#include "ui/common/PrintReport.h"
#include "ui/explorer/EvidenceExplorer.h"
#include "ui/platform/Guard.h"

namespace quellbrook {

namespace {

void PrintBarcodeLabelOf(const ObjectRef& object) {
    if (const auto location = std::dynamic_pointer_cast<StorageLocation>(object)) location->PrintBarcodeLabel();
    if (const auto item = std::dynamic_pointer_cast<StoredItem>(object)) item->PrintBarcodeLabel();
}

}  // namespace

void EvidenceExplorer::PrintSelected() { PrintLabelsOf(*GetSelectedObjects()); }

// Printing stops at the first label that fails. Earlier labels have been printed.
void EvidenceExplorer::PrintLabelsOf(const ObjectList& objects) {
    int32_t printed = 0;
    Guard(
        [&] {
            for (int32_t i = 0; i < objects.Count(); ++i) {
                const ObjectRef object = objects.At(i);
                if (!object) continue;
                PrintBarcodeLabelOf(object);
                ++printed;
            }
        },
        [](const Error& error) { ShowMessage(error.Description(), MessageStyle::Critical, "Error"); });
    if (printed > 0) Guard([=] { ReportPrintedLabels(printed); });
}

}  // namespace quellbrook

#pragma once

#include "base/Error.h"
#include "host/HostServices.h"

#include <cmath>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quellbrook::testing {

// Files of the host with names and contents that a test sets.
class MemoryFiles : public HostFiles {
public:
    std::map<std::string, std::string> files;

    std::string ReadFile(const std::string& relativePath) override {
        const auto found = files.find(relativePath);
        if (found == files.end())
            Raise(ErrorNumber::General, "MemoryFiles.ReadFile", "The file '" + relativePath + "' can't be found.");
        return found->second;
    }
};

// A printer that records its labels, or refuses them all or after some.
class RecordingPrinter : public LabelPrinter {
public:
    std::vector<FilledLabel> labels;
    std::optional<std::string> refusal;
    std::optional<size_t> refuseAfter;

    void Print(const FilledLabel& label) override {
        if (refusal) Raise(ErrorNumber::General, "RecordingPrinter.Print", *refusal);
        if (refuseAfter == labels.size()) Raise(ErrorNumber::General, "RecordingPrinter.Print", "Out of labels.");
        labels.push_back(label);
    }
    std::string Destination() const override { return "to the printer 'Front Desk'"; }
};

// The value of the text or symbol at this distance, in millimeters, from the top of the label.
inline std::string ValueAt(const FilledLabel& label, double top) {
    for (const LabelText& text : label.texts)
        if (std::abs(text.area.box.top - top) < 0.01) return text.text;
    for (const LabelBarcode& barcode : label.barcodes)
        if (std::abs(barcode.area.box.top - top) < 0.01) return barcode.text;
    return "nothing";
}

// Installs files and a printer for labels for its own lifetime. Both templates have one field a row of 10 mm, in
// the order in which the fields are filled.
class LabelServices {
public:
    LabelServices() {
        files->files["Files\\Data\\location.labl"] = TemplateOf({"location", "agency_name"}, "location_barcode");
        files->files["Files\\Data\\evidence.labl"] =
            TemplateOf({"property_id", "category", "description", "agency_name"}, "barcode");
        HostServices::Current().SetFiles(files);
        HostServices::Current().SetPrinter(printer);
    }
    ~LabelServices() {
        HostServices::Current().SetPrinter(nullptr);
        HostServices::Current().SetFiles(nullptr);
    }
    LabelServices(const LabelServices&) = delete;
    LabelServices& operator=(const LabelServices&) = delete;

    // The symbol in the first row, a text in each of the others.
    static std::string TemplateOf(const std::vector<std::string>& texts, const std::string& barcode) {
        std::string svg =
            "<svg xmlns='http://www.w3.org/2000/svg' width='100mm' height='60mm' viewBox='0 0 100 60'>"
            "<rect id='" +
            barcode + "' x='0' y='0' width='100' height='10'/>";
        int top = 0;
        for (const std::string& name : texts) {
            top += 10;
            svg += "<text id='" + name + "' font-size='4'>sample</text><rect id='" + name + "_box' x='0' y='" +
                   std::to_string(top) + "' width='100' height='9'/>";
        }
        return svg + "</svg>";
    }

    std::shared_ptr<MemoryFiles> files = std::make_shared<MemoryFiles>();
    std::shared_ptr<RecordingPrinter> printer = std::make_shared<RecordingPrinter>();
};

}  // namespace quellbrook::testing

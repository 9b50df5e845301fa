#pragma once

#include "host/HostServices.h"
#include "tests/support/ScratchSystem.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook::testing {

// A workstation in a scratch folder: the user's folders, the host's files with a template for evidence labels, and a
// print system with configurable printers that records its jobs.
class ScratchWorkstation : public ScratchSystem {
public:
    ScratchWorkstation() {
        Set("HOME", In("home"));
        Set("XDG_CONFIG_HOME", In("config"));
        Set("PATH", In("bin") + ":/usr/bin:/bin");
        std::filesystem::create_directories(In("home"));
        std::filesystem::create_directories(In("config"));
        std::ofstream(In("config/user-dirs.dirs")) << "XDG_DOCUMENTS_DIR=\"$HOME/Papers\"\n";
        SetPrinters({});
        SetPrintCommand("echo \"$*\" >> " + In("jobs") + "\nwc -c >> " + In("jobs"));
        SetTemplate(R"(<svg xmlns="http://www.w3.org/2000/svg" width="100mm" height="50mm" viewBox="0 0 100 50">
<rect id="barcode" x="5" y="25" width="90" height="20"/>
<text id="property_id" x="5" y="10" font-size="6">ID</text>
<text id="description" x="5" y="18" font-size="3">Text</text>
</svg>)");
        HostServices::Current().SetFiles(std::make_shared<DirectoryFiles>(In("shared")));
    }

    ~ScratchWorkstation() {
        HostServices::Current().SetPrinter(nullptr);
        HostServices::Current().SetFiles(nullptr);
    }
    ScratchWorkstation(const ScratchWorkstation&) = delete;
    ScratchWorkstation& operator=(const ScratchWorkstation&) = delete;

    std::string ChoiceFile() const { return In("config/choice.ini"); }
    std::string LabelFolder() const { return In("home/Papers/Labels"); }

    // Sets the names that the print system returns. Each query is recorded.
    void SetPrinters(const std::vector<std::string>& names) const {
        std::string answer = "echo asked >> " + In("asked") + "\n";
        for (const std::string& name : names) answer += "echo '" + name + "'\n";
        Install("lpstat", answer);
    }
    // Sets the shell commands of a print job.
    void SetPrintCommand(const std::string& lines) const { Install("lp", lines); }
    // An empty text removes the template.
    void SetTemplate(const std::string& text) const {
        std::filesystem::create_directories(In("shared/Files/Data"));
        const std::string path = In("shared/Files/Data/evidence.labl");
        std::filesystem::remove(path);
        if (!text.empty()) std::ofstream(path) << text;
    }

    bool HasBeenAsked() const { return std::filesystem::exists(In("asked")); }
};

}  // namespace quellbrook::testing

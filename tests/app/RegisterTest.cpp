#include "app/records/SchemeRegistration.h"
#include "base/Error.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ScratchSystem.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

namespace fs = std::filesystem;

// A desktop in a scratch folder with its own user folders and programs.
class RegisterTest : public ::testing::Test, public ScratchSystem {
protected:
    RegisterTest() {
        Set("HOME", In("home"));
        Set("XDG_DATA_HOME", In("data"));
        Set("XDG_CONFIG_HOME", In("config"));
        Set("PATH", In("bin"));
    }

    // A program that appends its arguments to the file "calls".
    void InstallRecorder(const std::string& name, int exitCode = 0) const {
        Install(name, "echo \"" + name + " $*\" >> " + In("calls") + "\nexit " + std::to_string(exitCode));
    }
};

constexpr const char* entryFile = "data/applications/quellbrook-host.desktop";

}  // namespace

TEST_F(RegisterTest, TheEntryNamesTheProgramAndTheScheme) {
    RegisterRecordScheme("/opt/quellbrook/bin/quellbrook-host", {});
    EXPECT_EQ(Content(entryFile),
              "[Desktop Entry]\n"
              "Type=Application\n"
              "Name=Quellbrook\n"
              "Comment=Opens records of property and vehicles\n"
              "Exec=\"/opt/quellbrook/bin/quellbrook-host\" %u\n"
              "MimeType=x-scheme-handler/tessarine;\n"
              "Terminal=false\n"
              "NoDisplay=true\n");
}

TEST_F(RegisterTest, ArgumentsPrecedeTheAddress) {
    const std::string entry = DesktopEntry("/bin/host", {"--database=sqlite:/data/room.sqlite", "--size=5"});
    EXPECT_NE(entry.find("\nExec=\"/bin/host\" \"--database=sqlite:/data/room.sqlite\" \"--size=5\" %u\n"),
              std::string::npos)
        << entry;
}

TEST_F(RegisterTest, SpecialCharactersInACommandAreEscaped) {
    const std::string entry = DesktopEntry("/a b/100%/\"q\"/$x/`y`/c\\d", {});
    EXPECT_NE(entry.find(R"(Exec="/a b/100%%/\\"q\\"/\\$x/\\`y\\`/c\\\\d" %u)"), std::string::npos) << entry;
}

TEST_F(RegisterTest, AControlCharacterIsRefused) {
    for (const char* path : {"/a\nExec=evil", "/a\rb", "/a\tb", "/a\x7f"}) {
        EXPECT_EQ(RaisedBy([&] { RegisterRecordScheme(path, {}); }).Description(),
                  "The path of the program or of the database has a control character.");
    }
    EXPECT_FALSE(fs::exists(In("data")));
}

TEST_F(RegisterTest, TheDesktopsToolsAreRun) {
    InstallRecorder("xdg-mime");
    InstallRecorder("update-desktop-database");
    EXPECT_EQ(RegisterRecordScheme("/bin/host", {}),
              "Wrote '" + In(entryFile) + "' and made it the program that opens tessarine addresses.");
    EXPECT_EQ(Content("calls"), "update-desktop-database " + In("data/applications") +
                                    "\nxdg-mime default quellbrook-host.desktop x-scheme-handler/tessarine\n");
}

TEST_F(RegisterTest, MissingToolsAreReported) {
    EXPECT_EQ(RegisterRecordScheme("/bin/host", {}),
              "Wrote '" + In(entryFile) +
                  "'; xdg-mime is not installed, so log in again if the desktop does not know it yet.");
    InstallRecorder("update-desktop-database");
    EXPECT_EQ(RegisterRecordScheme("/bin/host", {}),
              "Wrote '" + In(entryFile) +
                  "' and updated the desktop's list; xdg-mime is not installed, so another program may come first.");
}

TEST_F(RegisterTest, AFailingToolIsNamed) {
    InstallRecorder("update-desktop-database");
    InstallRecorder("xdg-mime", 4);
    EXPECT_EQ(RaisedBy([] { RegisterRecordScheme("/bin/host", {}); }).Description(),
              "The desktop could not register the program: xdg-mime failed.");
}

TEST_F(RegisterTest, RegisteringAgainReplacesTheEntry) {
    RegisterRecordScheme("/old/host", {});
    RegisterRecordScheme("/new/host", {});
    EXPECT_EQ(Content(entryFile), DesktopEntry("/new/host", {}));
    EXPECT_EQ(std::distance(fs::directory_iterator(In("data/applications")), fs::directory_iterator()), 1);
}

TEST_F(RegisterTest, TheEntryDefaultsToTheHomeDirectory) {
    Set("XDG_DATA_HOME", "");
    RegisterRecordScheme("/bin/host", {});
    EXPECT_TRUE(fs::exists(In("home/.local/share/applications/quellbrook-host.desktop")));
}

TEST_F(RegisterTest, AnEntryThatCannotBeWrittenIsReported) {
    std::ofstream(In("data")) << "a file, not a directory";
    EXPECT_EQ(RaisedBy([] { RegisterRecordScheme("/bin/host", {}); }).Description(),
              "The file '" + In(entryFile) + "' can't be written.");
    EXPECT_FALSE(fs::exists(In("calls")));
}

TEST_F(RegisterTest, NothingElseIsWritten) {
    InstallRecorder("xdg-mime");
    RegisterRecordScheme("/bin/host", {});
    std::vector<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(Path()))
        if (entry.is_regular_file()) files.push_back(fs::relative(entry.path(), Path()).string());
    std::sort(files.begin(), files.end());
    EXPECT_EQ(files, (std::vector<std::string>{"bin/xdg-mime", "calls", "data/applications/quellbrook-host.desktop"}));
}

}  // namespace quellbrook::testing

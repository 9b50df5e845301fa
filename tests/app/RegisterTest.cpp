#include "app/records/SchemeRegistration.h"
#include "base/Error.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ScratchFolder.h"

#include <QByteArray>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

namespace fs = std::filesystem;

std::string Content(const std::string& path) {
    std::ifstream file(path);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

// A desktop in a scratch folder with its own user folders and programs.
class RegisterTest : public ::testing::Test {
protected:
    void SetUp() override {
        Set("HOME", In("home"));
        Set("XDG_DATA_HOME", In("data"));
        Set("XDG_CONFIG_HOME", In("config"));
        Set("PATH", In("bin"));
        fs::create_directories(In("bin"));
    }

    void TearDown() override {
        for (const auto& [name, value] : m_before) qputenv(name.c_str(), value);
    }

    void Set(const char* name, const std::string& value) {
        m_before.try_emplace(name, qgetenv(name));
        qputenv(name, QByteArray::fromStdString(value));
    }

    std::string In(const std::string& name) const { return m_directory.Path() + "/" + name; }
    std::string Entry() const { return In("data/applications/quellbrook-host.desktop"); }

    // Installs a program that appends its arguments to the file "calls".
    void Install(const std::string& name, int exitCode = 0) const {
        std::ofstream(In("bin/" + name)) << "#!/bin/sh\necho \"" << name << " $*\" >> " << In("calls") << "\nexit "
                                         << exitCode << "\n";
        fs::permissions(In("bin/" + name), fs::perms::owner_all);
    }

    ScratchFolder m_directory;
    std::map<std::string, QByteArray> m_before;
};

}  // namespace

TEST_F(RegisterTest, TheEntryNamesTheProgramAndTheScheme) {
    RegisterRecordScheme("/opt/quellbrook/bin/quellbrook-host", {});
    EXPECT_EQ(Content(Entry()),
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
    Install("xdg-mime");
    Install("update-desktop-database");
    EXPECT_EQ(RegisterRecordScheme("/bin/host", {}),
              "Wrote '" + Entry() + "' and made it the program that opens tessarine addresses.");
    EXPECT_EQ(Content(In("calls")), "update-desktop-database " + In("data/applications") +
                                        "\nxdg-mime default quellbrook-host.desktop x-scheme-handler/tessarine\n");
}

TEST_F(RegisterTest, MissingToolsAreReported) {
    EXPECT_EQ(
        RegisterRecordScheme("/bin/host", {}),
        "Wrote '" + Entry() + "'; xdg-mime is not installed, so log in again if the desktop does not know it yet.");
    Install("update-desktop-database");
    EXPECT_EQ(RegisterRecordScheme("/bin/host", {}),
              "Wrote '" + Entry() +
                  "' and updated the desktop's list; xdg-mime is not installed, so another program may come first.");
}

TEST_F(RegisterTest, AFailingToolIsNamed) {
    Install("update-desktop-database");
    Install("xdg-mime", 4);
    EXPECT_EQ(RaisedBy([] { RegisterRecordScheme("/bin/host", {}); }).Description(),
              "The desktop could not register the program: xdg-mime failed.");
}

TEST_F(RegisterTest, RegisteringAgainReplacesTheEntry) {
    RegisterRecordScheme("/old/host", {});
    RegisterRecordScheme("/new/host", {});
    EXPECT_EQ(Content(Entry()), DesktopEntry("/new/host", {}));
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
              "The file '" + Entry() + "' can't be written.");
    EXPECT_FALSE(fs::exists(In("calls")));
}

TEST_F(RegisterTest, NothingElseIsWritten) {
    Install("xdg-mime");
    RegisterRecordScheme("/bin/host", {});
    std::vector<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(m_directory.Path()))
        if (entry.is_regular_file()) files.push_back(fs::relative(entry.path(), m_directory.Path()).string());
    std::sort(files.begin(), files.end());
    EXPECT_EQ(files, (std::vector<std::string>{"bin/xdg-mime", "calls", "data/applications/quellbrook-host.desktop"}));
}

}  // namespace quellbrook::testing

#include "host/FileErrorLog.h"

#include "base/Error.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ScratchFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <unistd.h>

namespace quellbrook::testing {
namespace {

class FileErrorLogTest : public ::testing::Test {
protected:
    std::string File() const { return m_folder.In("errors.log"); }
    std::vector<std::string> Lines() const {
        std::ifstream file(File());
        std::vector<std::string> lines;
        for (std::string line; std::getline(file, line);) lines.push_back(line);
        return lines;
    }

    void ExpectPrivate() const {
        using std::filesystem::perms;
        for (const auto& file : std::filesystem::directory_iterator(m_folder.Path()))
            EXPECT_EQ(file.status().permissions(), perms::owner_read | perms::owner_write) << file.path();
    }

    ScratchFolder m_folder;
};

TEST_F(FileErrorLogTest, AnEntryIsOneLineWithItsTimeAndIsWrittenAtOnce) {
    const auto log = MakeFileErrorLog(File());
    log->Log("Quellbrook", "Actions.ProcessTransaction", "The disk {0} is full: 100%s");
    ASSERT_EQ(Lines().size(), 1u);
    const std::string time = "2026-11-21 10:20:30.456 ";
    const std::string line = Lines()[0];
    EXPECT_THAT(line.substr(0, time.size()),
                ::testing::MatchesRegex("[0-9]{4}-[0-9]{2}-[0-9]{2} [0-9]{2}:[0-9]{2}:[0-9]{2}\\.[0-9]{3} "));
    EXPECT_EQ(line.substr(time.size()), "Quellbrook: Actions.ProcessTransaction: The disk {0} is full: 100%s");
}

TEST_F(FileErrorLogTest, FurtherLinesOfAMessageAreIndented) {
    const auto log = MakeFileErrorLog(File());
    log->Log("Quellbrook", "A.B", "first\r\nsecond\rthird\n2026-01-01 00:00:00.000 forged");
    const std::vector<std::string> lines = Lines();
    ASSERT_EQ(lines.size(), 4u);
    EXPECT_EQ(lines[1], "    second");
    EXPECT_EQ(lines[2], "    third");
    EXPECT_EQ(lines[3], "    2026-01-01 00:00:00.000 forged");
}

TEST_F(FileErrorLogTest, KeepsAtMostFiveFilesOfAMebibyte) {
    const auto log = MakeFileErrorLog(File());
    const std::string message(8000, 'x');
    for (int i = 0; i < 1000; ++i) log->Log("Quellbrook", "A.B", message);
    int files = 0;
    for (const auto& file : std::filesystem::directory_iterator(m_folder.Path())) {
        ++files;
        EXPECT_LE(file.file_size(), 1024u * 1024u);
    }
    EXPECT_EQ(files, 5);
}

TEST_F(FileErrorLogTest, OnlyTheOwnerCanReadTheFiles) {
    std::ofstream(File()).put('x');
    std::ofstream(m_folder.In("errors.4.log")).put('x');
    const auto log = MakeFileErrorLog(File());
    ExpectPrivate();
    for (int i = 0; i < 300; ++i) log->Log("Quellbrook", "A.B", std::string(8000, 'x'));
    ExpectPrivate();
}

TEST_F(FileErrorLogTest, AppendsToTheFileOfTheLastRun) {
    MakeFileErrorLog(File())->Log("Quellbrook", "A.B", "one");
    MakeFileErrorLog(File())->Log("Quellbrook", "A.B", "two");
    EXPECT_EQ(Lines().size(), 2u);
}

TEST_F(FileErrorLogTest, AFileThatCannotBeWrittenIsAnError) {
    std::ofstream(m_folder.In("file")).put('x');
    EXPECT_EQ(RaisedBy([&] { MakeFileErrorLog(m_folder.In("file/errors.log")); }).Number(), ErrorNumber::General);
}

}  // namespace
}  // namespace quellbrook::testing

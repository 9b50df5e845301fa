#include "host/HostFiles.h"

#include "base/Error.h"
#include "host/HostServices.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ScratchFolder.h"

#include <fstream>

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

class DirectoryFilesTest : public ::testing::Test {
protected:
    DirectoryFilesTest() : m_files(m_folder.In("host")) {
        std::filesystem::create_directories(m_folder.In("host/Files/Data"));
        std::ofstream(m_folder.In("outside.txt")) << "not the host's";
    }

    void Write(const std::string& name, const std::string& bytes) {
        std::ofstream(m_folder.In("host/" + name), std::ios::binary) << bytes;
    }
    std::string RefusalOf(const std::string& name) {
        const Error error = RaisedBy([&] { m_files.ReadFile(name); });
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        return error.Description();
    }

    ScratchFolder m_folder;
    DirectoryFiles m_files;
};

TEST_F(DirectoryFilesTest, ABackslashDividesFolders) {
    const std::string bytes("a\r\n\0\xFF", 5);
    Write("Files/Data/location.labl", bytes);
    EXPECT_EQ(m_files.ReadFile("Files\\Data\\location.labl"), bytes);
    EXPECT_EQ(m_files.ReadFile("Files/Data/location.labl"), bytes);
}

TEST_F(DirectoryFilesTest, AnEmptyFileIsEmpty) {
    Write("Files/empty", "");
    EXPECT_EQ(m_files.ReadFile("Files\\empty"), "");
}

TEST_F(DirectoryFilesTest, AFileThatIsNotThereIsNamed) {
    EXPECT_EQ(RefusalOf("Files\\Data\\none.labl"), "The file 'Files\\Data\\none.labl' can't be found.");
    EXPECT_EQ(RefusalOf("Files\\Data"), "The file 'Files\\Data' can't be found.") << "a folder";
}

TEST_F(DirectoryFilesTest, ANameThatLeadsOutIsRefused) {
    const std::string outside = m_folder.In("outside.txt");
    for (const std::string& name : {std::string("..\\outside.txt"), std::string("Files\\..\\..\\outside.txt"), outside,
                                    std::string(), std::string("Files\0x", 7)})
        EXPECT_EQ(RefusalOf(name), "The file '" + name + "' is not one of the host's.");
}

TEST(HostServicesFiles, WithoutFilesTheErrorIsASentence) {
    EXPECT_EQ(RaisedBy([] { HostServices::Current().Files(); }).Description(), "The host has no folder for its files.");
    EXPECT_EQ(RaisedBy([] { HostServices::Current().Thumbnails(); }).Description(),
              "The host has no folder for attachments.");
    EXPECT_EQ(RaisedBy([] { HostServices::Current().Printer(); }).Description(), "No label printer has been chosen.");
}

}  // namespace
}  // namespace quellbrook::testing

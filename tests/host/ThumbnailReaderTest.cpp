#include "host/ThumbnailReader.h"

#include "base/Error.h"
#include "base/Picture.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ScratchFolder.h"

#include <fstream>

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

class PictureAttachmentsTest : public ::testing::Test {
protected:
    std::string Write(const std::string& name, const std::string& bytes) {
        std::ofstream(m_folder.In(name), std::ios::binary) << bytes;
        return m_folder.In(name);
    }
    std::string RefusalOf(const std::string& path) {
        const Error error = RaisedBy([&] { m_reader.Read(path); });
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        return error.Description();
    }

    ScratchFolder m_folder;
    PictureAttachments m_reader{m_folder.Path()};
};

TEST_F(PictureAttachmentsTest, APictureIsItsOwnThumbnail) {
    const std::string jpeg = Write("saw.jpg", "\xFF\xD8\xFF\xE0 and more");
    EXPECT_EQ(m_reader.Read(jpeg), jpeg);
    const std::string png = Write("no ending", "\x89PNG\r\n\x1a\n and more");
    EXPECT_EQ(m_reader.Read("no ending"), png) << "relative to the directory";
}

TEST_F(PictureAttachmentsTest, AFileThatIsNotAPictureIsAnError) {
    Write("report.pdf", "%PDF-1.4");
    Write("empty.png", "");
    EXPECT_EQ(RefusalOf("report.pdf"), "The attachment 'report.pdf' is not a picture.");
    EXPECT_EQ(RefusalOf("empty.png"), "The attachment 'empty.png' is not a picture.");
}

TEST_F(PictureAttachmentsTest, AMissingFileIsAnError) {
    EXPECT_EQ(RefusalOf("gone.png"), "The attachment 'gone.png' can't be found.");
    EXPECT_EQ(RefusalOf(""), "The attachment '' can't be found.");
    EXPECT_EQ(RefusalOf(m_folder.Path()), "The attachment '" + m_folder.Path() + "' can't be found.");
}

TEST(PictureLoader, WithoutALoaderNoPictureIsRead) {
    EXPECT_EQ(RaisedBy([] { LoadPicture("saw.jpg"); }).Number(), ErrorNumber::NullObject);
}

}  // namespace
}  // namespace quellbrook::testing

#include "tests/support/DatabaseTest.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/Items.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingThumbnails.h"

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class StoredItemThumbnailTest : public DatabaseTest {
protected:
    StoredItemThumbnailTest() {
        HostServices::Current().SetThumbnails(m_thumbnails);
        m_environment->loadPicture = [this](const std::string& fileName) {
            m_loaded.push_back(fileName);
            return Picture{1, 1, 1, {0xFF112233}};
        };
        m_property = m_database.AddProperty();
        m_vehicle = m_database.AddVehicle();
    }
    ~StoredItemThumbnailTest() override { HostServices::Current().SetThumbnails(nullptr); }

    std::shared_ptr<RecordingThumbnails> m_thumbnails = std::make_shared<RecordingThumbnails>();
    std::vector<std::string> m_loaded;
    int32_t m_property, m_vehicle;
};

TEST_F(StoredItemThumbnailTest, IsThePictureOfTheMainAttachment) {
    m_database.AddAttachment(StoredItemTypes::Property, m_property, "/files/property", "saw.jpg");
    m_database.AddAttachment(StoredItemTypes::vehicle, m_vehicle, "/files/vehicles/", "car.jpg");
    const auto picture = FindItem(StoredItemTypes::Property, m_property)->Thumbnail();
    ASSERT_TRUE(picture.has_value());
    EXPECT_EQ(picture->pixels, std::vector<uint32_t>{0xFF112233});
    FindItem(StoredItemTypes::vehicle, m_vehicle)->Thumbnail();
    EXPECT_THAT(m_thumbnails->asked, ElementsAre("/files/property/saw.jpg", "/files/vehicles/car.jpg"))
        << "one separator";
    EXPECT_THAT(m_loaded, ElementsAre("/files/property/saw.jpg.thumbnail", "/files/vehicles/car.jpg.thumbnail"));
}

TEST_F(StoredItemThumbnailTest, IsNothingWithoutAnAttachment) {
    EXPECT_EQ(FindItem(StoredItemTypes::Property, m_property)->Thumbnail(), std::nullopt);
    EXPECT_THAT(m_thumbnails->asked, IsEmpty());
}

TEST_F(StoredItemThumbnailTest, IsNothingWhereTheAttachmentIsNotWhollyFiled) {
    m_database.AddAttachment(StoredItemTypes::Property, m_property, "/files", "saw.jpg");
    const auto item = FindItem(StoredItemTypes::Property, m_property);
    m_database.Execute("UPDATE AttachmentIndex SET FileName = NULL");
    EXPECT_EQ(item->Thumbnail(), std::nullopt);
    m_database.Execute("UPDATE AttachmentIndex SET FileName = 'saw.jpg', FolderNo = NULL");
    EXPECT_EQ(item->Thumbnail(), std::nullopt);
    m_database.Execute("UPDATE Property SET CurrImageSeq = 99");
    EXPECT_EQ(item->Thumbnail(), std::nullopt);
}

TEST_F(StoredItemThumbnailTest, DoesNotTakeTheAttachmentOfTheOtherKindWithTheSameKey) {
    ASSERT_EQ(m_property, m_vehicle);
    m_database.AddAttachment(StoredItemTypes::vehicle, m_vehicle, "/files", "car.jpg");
    m_database.Execute("UPDATE Property SET CurrImageSeq = 1");
    EXPECT_EQ(FindItem(StoredItemTypes::Property, m_property)->Thumbnail(), std::nullopt);
}

TEST_F(StoredItemThumbnailTest, DoesNotTakeTheAttachmentOfAnotherItemOfItsKind) {
    const int32_t otherProperty = m_database.AddProperty();
    const int32_t otherVehicle = m_database.AddVehicle();
    m_database.AddAttachment(StoredItemTypes::Property, otherProperty, "/files", "theirs.jpg");
    m_database.AddAttachment(StoredItemTypes::vehicle, otherVehicle, "/files", "theirs.jpg");
    m_database.Execute("UPDATE Property SET CurrImageSeq = 1");
    m_database.Execute("UPDATE Vehicle SET CurrImageSeq = 1");
    EXPECT_EQ(FindItem(StoredItemTypes::Property, m_property)->Thumbnail(), std::nullopt);
    EXPECT_EQ(FindItem(StoredItemTypes::vehicle, m_vehicle)->Thumbnail(), std::nullopt);
    m_database.AddAttachment(StoredItemTypes::Property, m_property, "/files", "saw.jpg");
    m_database.AddAttachment(StoredItemTypes::vehicle, m_vehicle, "/files", "car.jpg");
    FindItem(StoredItemTypes::Property, m_property)->Thumbnail();
    FindItem(StoredItemTypes::vehicle, m_vehicle)->Thumbnail();
    EXPECT_THAT(m_thumbnails->asked, ElementsAre("/files/saw.jpg", "/files/car.jpg"));
}

TEST_F(StoredItemThumbnailTest, IsReadAgainAtEachCall) {
    m_database.AddAttachment(StoredItemTypes::Property, m_property, "/files", "saw.jpg");
    const auto item = FindItem(StoredItemTypes::Property, m_property);
    item->Thumbnail();
    m_database.Execute("UPDATE AttachmentIndex SET FileName = 'axe.jpg'");
    item->Thumbnail();
    EXPECT_THAT(m_thumbnails->asked, ElementsAre("/files/saw.jpg", "/files/axe.jpg"));
}

TEST_F(StoredItemThumbnailTest, FailuresPassOn) {
    m_database.AddAttachment(StoredItemTypes::Property, m_property, "/files", "saw.jpg");
    const auto item = FindItem(StoredItemTypes::Property, m_property);
    m_environment->loadPicture = [](const std::string&) -> Picture { Raise(7, "the loader", "No memory."); };
    EXPECT_EQ(RaisedBy([&] { item->Thumbnail(); }).Number(), 7);
    HostServices::Current().SetThumbnails(nullptr);
    EXPECT_EQ(RaisedBy([&] { item->Thumbnail(); }).Description(), "The host has no folder for attachments.");
    const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    engine->FailAtStatement(1, Error(ErrorNumber::General, "The engine", "The server is gone."));
    EXPECT_EQ(RaisedBy([&] { item->Thumbnail(); }).Description(), "The server is gone.");
}

}  // namespace
}  // namespace quellbrook::testing

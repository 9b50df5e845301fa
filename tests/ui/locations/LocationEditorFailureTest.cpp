#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/ui/WhileFormOpen.h"
#include "tests/ui/locations/LocationEditorTest.h"

#include <QAbstractItemView>

namespace quellbrook::testing {
namespace {

const std::string notLoaded = "cboLocation has not been loaded yet. Call LoadLocations first.";

class LocationEditorFailureTest : public LocationEditorTest {};

TEST_F(LocationEditorFailureTest, AFailureOfTheDatabaseIsReportedAndTheEntriesStay) {
    const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    Edit(m_tree.bin);
    SetName("Tub");
    engine->FailAtStatement(1, Error(ErrorNumber::General, "Test", "The disk is full."));
    Press("btnSave");
    ExpectError("Could not rename location 'Tub'. \r\n\r\nThe disk is full.");
    EXPECT_EQ(NameField()->Text(), "Tub");
    Press("btnSave");
    ExpectSaved();
    EXPECT_EQ(m_tree.Row(m_tree.bin), "Tub 2 /0/1/");
    m_database.Install(m_database.GetEngine());
}

TEST_F(LocationEditorFailureTest, ALocationThatWasDeletedElsewhereIsReported) {
    Edit(m_tree.bin);
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = 4");
    SetName("Tub");
    Press("btnSave");
    ExpectError("The current location has been deleted.");
}

TEST_F(LocationEditorFailureTest, TheFormOfAnUncategorizedLocationSaysThatItHasNoContainers) {
    const int32_t loose = m_database.AddLocation("Loose", Types::Unassigned);
    GetStorageLocationStatic().Refresh();
    Edit(loose);
    ExpectError(notLoaded);
    EXPECT_EQ(Title(), "Edit Storage Location");
    EXPECT_EQ(NameField()->Text(), "Loose");
    EXPECT_EQ(Category()->ListIndex(), -1);
    Press("btnSave");
    ExpectError(notLoaded);
    Choose(Types::Internal);
    Press("btnSave");
    ExpectSaved();
    EXPECT_EQ(m_tree.Row(loose), "Loose 2 /0/");
}

TEST_F(LocationEditorFailureTest, TheFormOfAnUncategorizedLocationOpensBeforeItsMessage) {
    const int32_t loose = m_database.AddLocation("Loose", Types::Unassigned);
    GetStorageLocationStatic().Refresh();
    bool visible = false;
    m_screen.WhileMessageOpen = [&](const RecordingScreen::Message&) {
        visible = QApplication::activeModalWidget() && QApplication::activeModalWidget()->isVisible();
    };
    WhileFormOpen<frmAddEditLocation>([](frmAddEditLocation&) { ServeEvents(); });
    EXPECT_FALSE(GetDialogs().EditLocation(m_tree.Find(loose)));
    EXPECT_EQ(m_screen.TakeMessages(), OneMessage(notLoaded, 16, "Error"));
    EXPECT_TRUE(visible);
}

TEST_F(LocationEditorFailureTest, AfterAFailureToLoadTheContainersNothingIsSaved) {
    std::vector<std::string> reported;
    m_environment->reportUnexpected = [&](const Error& error) { reported.push_back(error.Description()); };
    Edit(m_tree.bin);
    const auto chooseTheSameCategory = [this] {
        Category()->Box()->showPopup();
        testing::Press(Category()->List(), Qt::Key_Return);
    };
    const auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    HostLocationData::Discard();
    faults->FailAtStatement(1, Error(7, "Engine", "The link is down."));
    chooseTheSameCategory();
    ASSERT_TRUE(faults->HasStruck());
    EXPECT_THAT(reported, ::testing::ElementsAre(::testing::HasSubstr("The link is down.")));
    Press("btnSave");
    ExpectError(notLoaded);
    EXPECT_EQ(m_tree.Row(m_tree.bin), "Bin 2 /0/1/");
    chooseTheSameCategory();
    EXPECT_EQ(ContainerId(), m_tree.room);
    Press("btnSave");
    ExpectSaved();
}

}  // namespace
}  // namespace quellbrook::testing

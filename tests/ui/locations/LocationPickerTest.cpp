#include "ui/locations/LocationPicker.h"

#include "core/Stores.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/ui/QtTestMain.h"
#include "tests/support/ui/Widgets.h"
#include "ui/common/PropertyBag.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/View.h"

#include <QComboBox>

#include <gmock/gmock.h>

#include <memory>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;

class LocationPickerTest : public DatabaseTest {
protected:
    LocationPickerTest() {
        m_room = m_database.AddLocation("Property Room", StorageLocationTypes::Internal);
        m_aisle = m_database.AddLocation("Aisle 1", StorageLocationTypes::Internal, m_room);
        m_shelf = m_database.AddLocation("Shelf A", StorageLocationTypes::Internal, m_aisle);
        m_vault = m_database.AddLocation("Vault", StorageLocationTypes::Internal);
        m_court = m_database.AddLocation("Court", StorageLocationTypes::External);
    }
    ~LocationPickerTest() override { SetInsideDesigner(false); }

    void Make() {
        m_picker = std::make_unique<LocationPicker>();
        m_picker->setObjectName("locationField");
        m_dropdown = Find<FlatDropdown>(*m_picker, "cboLocations");
        QObject::connect(m_picker.get(), &LocationPicker::Change, m_picker.get(), [this] { ++m_changes; });
    }

    void Load(StorageLocationTypes type) {
        if (!m_picker) Make();
        m_picker->LoadLocations(type);
    }

    std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (int i = 0; i < m_dropdown->Count(); ++i) texts.push_back(m_dropdown->ItemText(i).toStdString());
        return texts;
    }

    int32_t m_room, m_aisle, m_shelf, m_vault, m_court;
    std::unique_ptr<LocationPicker> m_picker;
    FlatDropdown* m_dropdown = nullptr;
    int m_changes = 0;
};

TEST_F(LocationPickerTest, IsEmptyAndFailsUntilLoaded) {
    Make();
    EXPECT_TRUE(m_picker->IsEmpty());
    const auto expectFailure = [](auto operation) {
        try {
            operation();
            ADD_FAILURE() << "no error";
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::General);
            EXPECT_EQ(error.Description(), "locationField has not been loaded yet. Call LoadLocations first.");
        }
    };
    expectFailure([this] { m_picker->SelectedLocation(); });
    expectFailure([this] { m_picker->SetSelectedLocation(nullptr); });
}

TEST_F(LocationPickerTest, ACategoryWithoutLocationsListsOnlyNone) {
    Load(StorageLocationTypes::DisposalLocation);
    EXPECT_FALSE(m_picker->IsEmpty());
    EXPECT_THAT(Texts(), ElementsAre("(None)"));
    EXPECT_EQ(m_dropdown->ItemData(0), 0);
    EXPECT_EQ(m_dropdown->ListIndex(), 0);
    EXPECT_EQ(m_picker->SelectedLocation(), nullptr);
}

TEST_F(LocationPickerTest, ListsEveryLocationOfTheCategoryWithItsPathDepthFirst) {
    Load(StorageLocationTypes::Internal);
    EXPECT_THAT(Texts(), ElementsAre("(None)", "Property Room", "Property Room \u00BB Aisle 1",
                                     "Property Room \u00BB Aisle 1 \u00BB Shelf A", "Vault"));
    EXPECT_EQ(m_dropdown->ItemData(2), m_aisle);
}

TEST_F(LocationPickerTest, ADisabledLocationHidesAllBelowIt) {
    m_database.Execute("UPDATE StorageLocation SET ActiveFlag = 0 WHERE IdNo = ?", {m_aisle});
    Load(StorageLocationTypes::Internal);
    EXPECT_THAT(Texts(), ElementsAre("(None)", "Property Room", "Vault"));
}

TEST_F(LocationPickerTest, ALocationWithoutAnActiveFlagIsListed) {
    m_database.Execute("UPDATE StorageLocation SET ActiveFlag = NULL WHERE IdNo = ?", {m_vault});
    Load(StorageLocationTypes::Internal);
    EXPECT_EQ(Texts().back(), "Vault");
}

TEST_F(LocationPickerTest, ASetLocationReadsBack) {
    Load(StorageLocationTypes::Internal);
    m_picker->SetSelectedLocation(GetStorageLocationStatic().FindByID(m_shelf));
    EXPECT_EQ(m_dropdown->ListIndex(), 3);
    ASSERT_NE(m_picker->SelectedLocation(), nullptr);
    EXPECT_EQ(m_picker->SelectedLocation()->ID(), m_shelf);
    m_picker->SetSelectedLocation(nullptr);
    EXPECT_EQ(m_picker->SelectedLocation(), nullptr);
}

TEST_F(LocationPickerTest, ARootReadsBackAsNull) {
    Load(StorageLocationTypes::Internal);
    m_picker->SetSelectedLocation(GetStorageLocationStatic().FindByID(m_vault));
    m_picker->SetSelectedLocation(GetStorageLocationStatic().GetRoot(StorageLocationTypes::Internal));
    EXPECT_EQ(m_dropdown->ListIndex(), 0);
    EXPECT_EQ(m_picker->SelectedLocation(), nullptr);
}

TEST_F(LocationPickerTest, AnUnlistedLocationReadsBackAsNull) {
    m_database.Execute("UPDATE StorageLocation SET ActiveFlag = 0 WHERE IdNo = ?", {m_vault});
    Load(StorageLocationTypes::Internal);
    m_picker->SetSelectedLocation(GetStorageLocationStatic().FindByID(m_room));
    m_picker->SetSelectedLocation(GetStorageLocationStatic().FindByID(m_vault));
    EXPECT_EQ(m_picker->SelectedLocation(), nullptr);
    m_picker->SetSelectedLocation(GetStorageLocationStatic().FindByID(m_court));
    EXPECT_EQ(m_picker->SelectedLocation(), nullptr);
}

TEST_F(LocationPickerTest, ADeletedLocationReadsBackAsNull) {
    Load(StorageLocationTypes::Internal);
    m_picker->SetSelectedLocation(GetStorageLocationStatic().FindByID(m_vault));
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_vault});
    GetStorageLocationStatic().Refresh();
    EXPECT_EQ(m_picker->SelectedLocation(), nullptr);
    EXPECT_EQ(Texts().size(), 5u);
}

TEST_F(LocationPickerTest, LoadingAgainReadsTheTreeAndClearsTheSelection) {
    Load(StorageLocationTypes::Internal);
    m_picker->SetSelectedLocation(GetStorageLocationStatic().FindByID(m_vault));
    m_database.AddLocation("Annex", StorageLocationTypes::Internal);
    GetStorageLocationStatic().Refresh();
    EXPECT_EQ(Texts().size(), 5u);
    m_picker->LoadLocations(StorageLocationTypes::Internal);
    EXPECT_EQ(Texts().size(), 6u);
    EXPECT_EQ(m_picker->SelectedLocation(), nullptr);
    m_picker->LoadLocations(StorageLocationTypes::External);
    EXPECT_THAT(Texts(), ElementsAre("(None)", "Court"));
}

TEST_F(LocationPickerTest, OnlyTheUsersChoiceRaisesChange) {
    Load(StorageLocationTypes::Internal);
    m_picker->SetSelectedLocation(GetStorageLocationStatic().FindByID(m_vault));
    m_picker->LoadLocations(StorageLocationTypes::Internal);
    EXPECT_EQ(m_changes, 0);
    Press(m_dropdown->Box(), Qt::Key_Down);
    EXPECT_EQ(m_changes, 1);
    EXPECT_EQ(m_picker->SelectedLocation()->ID(), m_room);
}

TEST_F(LocationPickerTest, TheDropdownFollowsItsWidthAndSetsItsHeight) {
    Make();
    for (const int width : {200, 360}) {
        m_picker->resize(width, 90);
        m_picker->show();
        EXPECT_EQ(m_dropdown->geometry().topLeft(), QPoint(0, 0));
        EXPECT_EQ(m_dropdown->width(), width);
        EXPECT_EQ(m_picker->height(), m_dropdown->height());
    }
}

TEST_F(LocationPickerTest, TheDropdownHasTheControlsFont) {
    Make();
    QFont font = m_picker->font();
    font.setPixelSize(19);
    EXPECT_TRUE(m_picker->setProperty("Font", font));
    EXPECT_EQ(m_dropdown->Box()->font().pixelSize(), 19);
    EXPECT_EQ(m_picker->property("Font").value<QFont>().pixelSize(), 19);
}

TEST_F(LocationPickerTest, TheFontIsStoredInABag) {
    Make();
    PropertyBag bag;
    m_picker->WriteProperties(bag);
    EXPECT_FALSE(bag.Has("Font"));
    QFont font = m_picker->Font();
    font.setPixelSize(19);
    m_picker->SetFont(font);
    m_picker->WriteProperties(bag);
    LocationPicker other;
    other.ReadProperties(bag);
    EXPECT_EQ(other.Font().pixelSize(), 19);
    LocationPicker third;
    bag.WriteProperty("Font", TaggedValue(Null()));
    third.ReadProperties(bag);
    EXPECT_EQ(third.Font(), LocationPicker().Font());
}

TEST_F(LocationPickerTest, TheContainersFontReachesTheDropdown) {
    Make();
    QWidget container;
    m_picker->setParent(&container);
    QFont font = container.font();
    font.setPixelSize(21);
    container.setFont(font);
    EXPECT_EQ(m_dropdown->Box()->font().pixelSize(), 21);
    m_picker->setParent(nullptr);
}

TEST_F(LocationPickerTest, ItsCaptionIsTheDropdownsAccessibleName) {
    Make();
    m_picker->SetAccessibleCaption("Location");
    EXPECT_EQ(m_dropdown->Box()->accessibleName(), "Location");
}

TEST_F(LocationPickerTest, LoadsNothingInADesigner) {
    SetInsideDesigner(true);
    Load(StorageLocationTypes::Internal);
    EXPECT_TRUE(m_picker->IsEmpty());
}

}  // namespace
}  // namespace quellbrook::testing

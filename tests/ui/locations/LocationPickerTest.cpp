#include "ui/locations/LocationPicker.h"

#include "tests/support/DatabaseTest.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/TestLocations.h"
#include "tests/support/ui/QtTestMain.h"
#include "tests/support/ui/Widgets.h"
#include "ui/common/PropertyBag.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/View.h"
#include "ui/platform/Strings.h"
#include "ui/style/Theme.h"

#include <QAbstractItemView>
#include <QComboBox>

#include <gmock/gmock.h>

#include <memory>

namespace quellbrook::testing {
namespace {

using Types = StorageLocationTypes;
using ::testing::ElementsAre;

class LocationPickerTest : public DatabaseTest {
protected:
    LocationPickerTest() { Make(); }
    ~LocationPickerTest() override { SetInsideDesigner(false); }

    void Make() {
        m_picker = std::make_unique<LocationPicker>(&m_window);
        m_picker->setObjectName("locationField");
        m_dropdown = Find<FlatDropdown>(*m_picker, "cboLocations");
        QObject::connect(m_picker.get(), &LocationPicker::Change, m_picker.get(), [this] { ++m_changes; });
    }

    void Disable(int32_t id) {
        m_database.Execute("UPDATE StorageLocation SET ActiveFlag = 0 WHERE IdNo = ?", {id});
        GetStorageLocationStatic().Refresh();
    }

    // The list of internal locations, with the focus.
    void Enter() {
        m_picker->LoadLocations(Types::Internal);
        ShowActive(m_window);
        m_picker->setFocus();
    }

    std::vector<std::string> Texts() const {
        std::vector<std::string> texts;
        for (int i = 0; i < m_dropdown->Count(); ++i) texts.push_back(ToUtf8(m_dropdown->ItemText(i)));
        return texts;
    }
    std::vector<std::string> Matches() const {
        std::vector<std::string> texts;
        const QAbstractItemModel& model = *m_dropdown->List()->model();
        for (int i = 0; i < model.rowCount(); ++i) texts.push_back(ToUtf8(model.index(i, 0).data().toString()));
        return texts;
    }
    std::string ShownText() const { return ToUtf8(m_dropdown->Box()->currentText()); }
    int32_t SelectedId() const {
        const StorageLocationRef selected = m_picker->SelectedLocation();
        return selected ? selected->ID() : 0;
    }

    TestLocations m_tree{m_database};
    QWidget m_window;
    std::unique_ptr<LocationPicker> m_picker;
    FlatDropdown* m_dropdown = nullptr;
    int m_changes = 0;
};

TEST_F(LocationPickerTest, IsEmptyAndFailsUntilLoaded) {
    EXPECT_TRUE(m_picker->IsEmpty());
    for (const Error& error : {RaisedBy([this] { m_picker->SelectedLocation(); }),
                               RaisedBy([this] { m_picker->SetSelectedLocation(nullptr); })}) {
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Description(), "locationField has not been loaded yet. Call LoadLocations first.");
    }
}

TEST_F(LocationPickerTest, ACategoryWithoutLocationsListsOnlyNone) {
    m_picker->LoadLocations(Types::DisposalLocation);
    EXPECT_FALSE(m_picker->IsEmpty());
    EXPECT_THAT(Texts(), ElementsAre("(None)"));
    EXPECT_EQ(m_dropdown->ItemData(0), 0);
    EXPECT_EQ(m_dropdown->ListIndex(), 0);
    EXPECT_EQ(m_picker->SelectedLocation(), nullptr);
}

TEST_F(LocationPickerTest, ListsEveryLocationOfTheCategoryWithItsPathDepthFirst) {
    m_picker->LoadLocations(Types::Internal);
    EXPECT_THAT(Texts(), ElementsAre("(None)", "Annex", "Room", "Room \u00BB Bin", "Room \u00BB Shelf",
                                     "Room \u00BB Shelf \u00BB Box"));
    std::vector<int32_t> ids;
    for (int i = 0; i < m_dropdown->Count(); ++i) ids.push_back(m_dropdown->ItemData(i));
    EXPECT_THAT(ids, ElementsAre(0, m_tree.annex, m_tree.room, m_tree.bin, m_tree.shelf, m_tree.box));
}

TEST_F(LocationPickerTest, ListsSiblingsInNaturalOrder) {
    for (const char* name : {"bay 10", "Bay 9", "Bay 1"}) m_database.AddLocation(name, Types::External, m_tree.court);
    GetStorageLocationStatic().Refresh();
    m_picker->LoadLocations(Types::External);
    EXPECT_THAT(Texts(),
                ElementsAre("(None)", "Court", "Court \u00BB Bay 1", "Court \u00BB Bay 9", "Court \u00BB bay 10"));
}

TEST_F(LocationPickerTest, ADisabledLocationHidesAllBelowIt) {
    Disable(m_tree.shelf);
    m_picker->LoadLocations(Types::Internal);
    EXPECT_THAT(Texts(), ElementsAre("(None)", "Annex", "Room", "Room \u00BB Bin"));
}

TEST_F(LocationPickerTest, ALocationWithoutAnActiveFlagIsListed) {
    m_database.Execute("UPDATE StorageLocation SET ActiveFlag = NULL WHERE IdNo = ?", {m_tree.court});
    m_picker->LoadLocations(Types::External);
    EXPECT_EQ(Texts().back(), "Court");
}

TEST_F(LocationPickerTest, ASetLocationReadsBack) {
    m_picker->LoadLocations(Types::Internal);
    m_picker->SetSelectedLocation(m_tree.Find(m_tree.box));
    EXPECT_EQ(ShownText(), "Room \u00BB Shelf \u00BB Box");
    EXPECT_EQ(SelectedId(), m_tree.box);
    m_picker->SetSelectedLocation(nullptr);
    EXPECT_EQ(ShownText(), "(None)");
    EXPECT_EQ(m_picker->SelectedLocation(), nullptr);
}

TEST_F(LocationPickerTest, ARootReadsBackAsNull) {
    m_picker->LoadLocations(Types::Internal);
    m_picker->SetSelectedLocation(m_tree.Find(m_tree.annex));
    m_picker->SetSelectedLocation(m_tree.Root(Types::Internal));
    EXPECT_EQ(ShownText(), "(None)");
    EXPECT_EQ(m_picker->SelectedLocation(), nullptr);
}

TEST_F(LocationPickerTest, AnUnlistedLocationReadsBackAsNull) {
    Disable(m_tree.annex);
    m_picker->LoadLocations(Types::Internal);
    for (const int32_t unlisted : {m_tree.annex, m_tree.court}) {
        m_picker->SetSelectedLocation(m_tree.Find(m_tree.room));
        m_picker->SetSelectedLocation(m_tree.Find(unlisted));
        EXPECT_EQ(m_picker->SelectedLocation(), nullptr);
    }
}

TEST_F(LocationPickerTest, ADeletedLocationReadsBackAsNull) {
    m_picker->LoadLocations(Types::Internal);
    m_picker->SetSelectedLocation(m_tree.Find(m_tree.annex));
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_tree.annex});
    GetStorageLocationStatic().Refresh();
    EXPECT_EQ(m_picker->SelectedLocation(), nullptr);
    EXPECT_EQ(Texts().size(), 6u);
}

TEST_F(LocationPickerTest, LoadingAgainReadsTheTreeAndClearsTheSelection) {
    m_picker->LoadLocations(Types::Internal);
    m_picker->SetSelectedLocation(m_tree.Find(m_tree.annex));
    m_database.AddLocation("Vault", Types::Internal);
    GetStorageLocationStatic().Refresh();
    EXPECT_EQ(Texts().size(), 6u);
    m_picker->LoadLocations(Types::Internal);
    EXPECT_EQ(Texts().size(), 7u);
    EXPECT_EQ(m_picker->SelectedLocation(), nullptr);
    m_picker->LoadLocations(Types::External);
    EXPECT_THAT(Texts(), ElementsAre("(None)", "Court"));
    EXPECT_EQ(m_changes, 0);
}

TEST_F(LocationPickerTest, OnlyTheUsersChoiceRaisesChange) {
    Enter();
    m_picker->SetSelectedLocation(m_tree.Find(m_tree.annex));
    EXPECT_EQ(m_changes, 0);
    SendKey(m_window, Qt::Key_Down);
    EXPECT_EQ(m_changes, 1);
    EXPECT_EQ(SelectedId(), m_tree.room);
    m_dropdown->Box()->showPopup();
    const QAbstractItemView& list = *m_dropdown->List();
    Click(list.viewport(), list.visualRect(list.model()->index(1, 0)).center());
    EXPECT_EQ(m_changes, 2);
    EXPECT_EQ(SelectedId(), m_tree.annex);
}

TEST_F(LocationPickerTest, TypingFiltersByAnyPartOfThePath) {
    Enter();
    SendText(m_window, "SHELF");
    EXPECT_THAT(Matches(), ElementsAre("Room \u00BB Shelf", "Room \u00BB Shelf \u00BB Box"));
    EXPECT_EQ(m_picker->SelectedLocation(), nullptr);
    EXPECT_EQ(m_changes, 0);
    SendKey(m_window, Qt::Key_Down);
    SendKey(m_window, Qt::Key_Return);
    EXPECT_EQ(SelectedId(), m_tree.box);
    EXPECT_EQ(m_changes, 1);
}

TEST_F(LocationPickerTest, LeavingWithATextThatMatchesNothingShowsTheSelectionAgain) {
    Enter();
    m_picker->SetSelectedLocation(m_tree.Find(m_tree.bin));
    SendText(m_window, "garage");
    EXPECT_EQ(ShownText(), "garage");
    EXPECT_EQ(SelectedId(), m_tree.bin);
    m_window.setFocusPolicy(Qt::StrongFocus);
    m_window.setFocus();
    EXPECT_EQ(ShownText(), "Room \u00BB Bin");
    EXPECT_EQ(SelectedId(), m_tree.bin);
    EXPECT_EQ(m_changes, 0);
}

TEST_F(LocationPickerTest, LoadingAndSelectingEndTyping) {
    Enter();
    SendText(m_window, "shelf");
    m_picker->SetSelectedLocation(m_tree.Find(m_tree.bin));
    EXPECT_EQ(ShownText(), "Room \u00BB Bin");
    SendText(m_window, "shelf");
    m_picker->LoadLocations(Types::Internal);
    EXPECT_EQ(ShownText(), "(None)");
    EXPECT_FALSE(m_dropdown->List()->isVisible());
    EXPECT_EQ(m_changes, 0);
}

TEST_F(LocationPickerTest, TheDropdownFollowsItsWidthAndSetsItsHeight) {
    for (const int width : {200, 360}) {
        m_picker->resize(width, 90);
        m_window.show();
        EXPECT_EQ(m_dropdown->geometry().topLeft(), QPoint(0, 0));
        EXPECT_EQ(m_dropdown->width(), width);
        EXPECT_EQ(m_picker->height(), m_dropdown->height());
    }
}

TEST_F(LocationPickerTest, ItsContainerShowsAroundTheRoundedField) {
    QPalette red;
    red.setColor(QPalette::Window, Qt::red);
    m_window.setPalette(red);
    m_window.show();
    EXPECT_EQ(PixelAt(Grab(m_window), m_picker->pos()), QColor(Qt::red));
    EXPECT_EQ(PixelAt(Grab(m_window), m_picker->geometry().center()), Theme::Get(Theme::Color::Window));
}

TEST_F(LocationPickerTest, TheDropdownHasTheControlsFont) {
    QFont font = m_picker->font();
    font.setPixelSize(19);
    EXPECT_TRUE(m_picker->setProperty("Font", font));
    EXPECT_EQ(m_dropdown->Box()->font().pixelSize(), 19);
    EXPECT_EQ(m_picker->property("Font").value<QFont>().pixelSize(), 19);
}

TEST_F(LocationPickerTest, TheFontIsStoredInABag) {
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
    QFont font = m_window.font();
    font.setPixelSize(21);
    m_window.setFont(font);
    EXPECT_EQ(m_dropdown->Box()->font().pixelSize(), 21);
}

TEST_F(LocationPickerTest, ItsCaptionIsTheDropdownsAccessibleName) {
    m_picker->SetAccessibleCaption("Location");
    EXPECT_EQ(m_dropdown->Box()->accessibleName(), "Location");
}

TEST_F(LocationPickerTest, LoadsNothingInADesigner) {
    SetInsideDesigner(true);
    Make();
    m_picker->LoadLocations(Types::Internal);
    EXPECT_TRUE(m_picker->IsEmpty());
}

}  // namespace
}  // namespace quellbrook::testing

#include "base/Text.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/HostileTexts.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingEngine.h"
#include "tests/support/TestLocations.h"

namespace quellbrook {

namespace {

using testing::HostileText;
using testing::HostileTexts;
using Types = StorageLocationTypes;

class StorageLocationNames : public testing::DatabaseTest {
protected:
    StorageLocationRef Annex() const { return m_tree.Find(m_tree.annex); }

    // The database, the document and another object for the row all have the name, byte for byte.
    void ExpectStored(int32_t id, const std::string& name) {
        EXPECT_EQ(m_tree.Cell(id, "Name"), name);
        EXPECT_EQ(m_tree.Find(id)->Name(), name);
        EXPECT_EQ(m_tree.Find(id)->FullPath(), "Annex/" + std::string(Trim(name)));
    }

    testing::TestLocations m_tree{m_database};
};

}  // namespace

TEST_F(StorageLocationNames, AnyTextIsStoredAndReadAsItIs) {
    for (const HostileText& hostile : HostileTexts()) {
        SCOPED_TRACE(hostile.description);
        const auto created = Annex()->CreateSubLocation(hostile.text);
        EXPECT_EQ(created->Name(), hostile.text);
        ExpectStored(created->ID(), hostile.text);
    }
    EXPECT_EQ(Annex()->SubLocations().size(), HostileTexts().size());
    EXPECT_EQ(m_tree.Count(), static_cast<int32_t>(6 + HostileTexts().size()));
}

TEST_F(StorageLocationNames, AnyTextIsKnownAsTakenWhenItIsCreatedAgain) {
    for (const HostileText& hostile : HostileTexts()) {
        SCOPED_TRACE(hostile.description);
        Annex()->CreateSubLocation(hostile.text);
        const std::string before = m_database.Snapshot();
        const Error error = testing::RaisedBy([&] { Annex()->CreateSubLocation(hostile.text); });
        EXPECT_EQ(error.Description(), "A location with the name '" + hostile.text + "' already exists here.");
        EXPECT_EQ(m_database.Snapshot(), before);
    }
}

TEST_F(StorageLocationNames, AnyTextIsFoundInTheContainerThatALocationIsToMoveInto) {
    const auto recording = std::make_shared<testing::RecordingEngine>(m_database.GetEngine());
    m_database.Install(recording);
    for (const HostileText& hostile : HostileTexts()) {
        SCOPED_TRACE(hostile.description);
        const auto moved = m_tree.Find(m_tree.bin)->CreateSubLocation(hostile.text);
        Annex()->CreateSubLocation(hostile.text);
        recording->Clear();
        const Error error = testing::RaisedBy([&] { moved->Move(Annex()); });
        EXPECT_EQ(error.Description(),
                  "Could not move location '" + hostile.text + "' into 'Annex'. \r\n\r\n" +
                      "There is already a location with the name '" + hostile.text + "' in 'Annex'. \r\n\r\n" +
                      "Rename this location or the other location already in 'Annex' before moving this location.");
        EXPECT_EQ(recording->Log().size(), 1u) << "the question alone";
    }
}

TEST_F(StorageLocationNames, ATextIsNotTakenForAnotherOne) {
    Annex()->CreateSubLocation("Shelf 5");
    for (const char* pattern : {"Shelf *", "Shelf %", "Shelf _", "Shelf [5]", "Shelf", "Shelf 5 "}) {
        const auto moved = m_tree.Find(m_tree.bin)->CreateSubLocation(pattern);
        moved->Move(Annex());
        EXPECT_EQ(moved->Parent()->ID(), m_tree.annex) << pattern;
    }
}

TEST_F(StorageLocationNames, ALocationOfAnyNameMovesWithItsSublocations) {
    for (const HostileText& hostile : HostileTexts()) {
        SCOPED_TRACE(hostile.description);
        const auto moved = m_tree.Find(m_tree.bin)->CreateSubLocation(hostile.text);
        const int32_t inside = moved->CreateSubLocation(hostile.text)->ID();
        moved->Move(Annex());
        ExpectStored(moved->ID(), hostile.text);
        EXPECT_EQ(m_tree.Find(inside)->Parent()->ID(), moved->ID());
        moved->Delete();
        EXPECT_EQ(m_tree.Find(inside), nullptr);
        EXPECT_EQ(m_tree.Count(), 6);
    }
}

TEST_F(StorageLocationNames, RenamingGivesAnyTextExactly) {
    const auto crate = Annex()->CreateSubLocation("Crate");
    for (const HostileText& hostile : HostileTexts()) {
        SCOPED_TRACE(hostile.description);
        crate->Rename(hostile.text);
        EXPECT_EQ(crate->Name(), hostile.text);
        ExpectStored(crate->ID(), hostile.text);
    }
    EXPECT_EQ(m_tree.Count(), 7);
}

TEST_F(StorageLocationNames, RenamingToTheNameOfASiblingIsRefusedWhateverTheText) {
    const auto crate = Annex()->CreateSubLocation("Crate");
    for (const HostileText& hostile : HostileTexts()) {
        SCOPED_TRACE(hostile.description);
        Annex()->CreateSubLocation(hostile.text);
        const Error error = testing::RaisedBy([&] { crate->Rename(hostile.text); });
        EXPECT_EQ(error.Description(), "A location with the name '" + hostile.text + "' already exists here.");
        EXPECT_EQ(crate->Name(), "Crate");
    }
}

TEST_F(StorageLocationNames, ATextWithNulIsRejected) {
    const std::string name = testing::TextWithNul();
    const std::string before = m_database.Snapshot();
    Error error = testing::RaisedBy([&] { Annex()->CreateSubLocation(name); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "Could not create location '" + name + "'. \r\n\r\n" + testing::NulRefusal);
    error = testing::RaisedBy([&] { Annex()->Rename(name); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "Could not rename location '" + name + "'. \r\n\r\n" + testing::NulRefusal);
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(StorageLocationNames, NamesThatDifferInCaseAloneAreOneNameForPlainLetters) {
    Annex()->CreateSubLocation("Crate");
    EXPECT_EQ(testing::RaisedBy([&] { Annex()->CreateSubLocation("cRATE"); }).Number(), ErrorNumber::General);
    EXPECT_NE(Annex()->CreateSubLocation("\xC3\x9C"
                                         "bergabe"),
              nullptr);
    EXPECT_NE(Annex()->CreateSubLocation("\xC3\xBC"
                                         "bergabe"),
              nullptr);
}

}  // namespace quellbrook

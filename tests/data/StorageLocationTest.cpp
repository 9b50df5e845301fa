#include "data/StorageLocation.h"

#include "data/StorageLocationStatic.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingEngine.h"
#include "tests/support/StorageLocationInternals.h"
#include "tests/support/TestLocations.h"

namespace quellbrook {

namespace {

using Ids = std::vector<int32_t>;
using Internals = StorageLocationInternals;
constexpr auto Internal = StorageLocationTypes::Internal;
constexpr auto External = StorageLocationTypes::External;

class StorageLocationTest : public testing::DatabaseTest {
protected:
    static Ids IDsOf(const StorageLocationList& locations) {
        Ids ids;
        for (const StorageLocationRef& location : locations) ids.push_back(location->ID());
        return ids;
    }

    testing::TestLocations m_tree{m_database};
};

// A StorageLocation element with these children; a null text omits the child.
std::unique_ptr<pugi::xml_document> MakeNode(std::vector<std::pair<const char*, const char*>> changes = {}) {
    std::vector<std::pair<std::string, const char*>> cells = {
        {"IdNo", "7"}, {"Name", "Shelf"},       {"Path", "/0/5/"},
        {"Type", "2"}, {"ActiveFlag", "False"}, {"LastUpdated", "2026-01-02T03:04:05.000"}};
    for (const auto& [name, text] : changes)
        for (auto& cell : cells)
            if (cell.first == name) cell.second = text;
    auto document = std::make_unique<pugi::xml_document>();
    pugi::xml_node node = document->append_child("StorageLocation");
    for (const auto& [name, text] : cells)
        if (text) node.append_child(name.c_str()).text().set(text);
    return document;
}

Error LoadError(std::vector<std::pair<const char*, const char*>> changes) {
    const auto document = MakeNode(std::move(changes));
    StorageLocation location;
    return testing::RaisedBy([&] { Internals::Load(location, *document); });
}

}  // namespace

TEST_F(StorageLocationTest, AFreshObjectHasTheDefaults) {
    const auto location = std::make_shared<StorageLocation>();
    EXPECT_EQ(location->ID(), -1);
    EXPECT_EQ(location->Name(), "");
    EXPECT_TRUE(location->GetPath().Equals(LocationPath().Append(0)));
    EXPECT_EQ(location->LocationType(), StorageLocationTypes::Unassigned);
    EXPECT_TRUE(location->Enabled());
    EXPECT_FALSE(location->IsDeleted());
    EXPECT_FALSE(location->IsRoot());
}

TEST_F(StorageLocationTest, EachFindReturnsANewObjectAndIsSameComparesRows) {
    const auto first = m_tree.Find(m_tree.shelf), second = m_tree.Find(m_tree.shelf);
    EXPECT_NE(first, second);
    EXPECT_TRUE(first->IsSame(second.get()));
    EXPECT_FALSE(first->IsSame(m_tree.Find(m_tree.box).get()));
    EXPECT_FALSE(first->IsSame(nullptr));
}

TEST_F(StorageLocationTest, RootsOfDifferentTypesAreNotTheSameAlthoughBothHaveIdentifierZero) {
    EXPECT_EQ(m_tree.Root(Internal)->ID(), m_tree.Root(External)->ID());
    EXPECT_FALSE(m_tree.Root(Internal)->IsSame(m_tree.Root(External).get()));
    EXPECT_TRUE(m_tree.Root(Internal)->IsSame(m_tree.Root(Internal).get()));
}

TEST_F(StorageLocationTest, FindingZeroOrAnUnknownIdentifierReturnsNull) {
    EXPECT_EQ(m_tree.Find(0), nullptr);
    EXPECT_EQ(m_tree.Find(-1), nullptr);
    EXPECT_EQ(m_tree.Find(4711), nullptr);
}

TEST_F(StorageLocationTest, ParentsLeadUpToTheRootOfTheType) {
    EXPECT_EQ(m_tree.Find(m_tree.box)->Parent()->ID(), m_tree.shelf);
    EXPECT_EQ(m_tree.Find(m_tree.shelf)->Parent()->ID(), m_tree.room);
    EXPECT_EQ(m_tree.Find(m_tree.room)->Parent(), m_tree.Root(Internal));
    EXPECT_EQ(m_tree.Find(m_tree.court)->Parent(), m_tree.Root(External));
    EXPECT_EQ(m_tree.Root(Internal)->Parent(), nullptr);
}

TEST_F(StorageLocationTest, ADeletedContainerIsNotAParentAndEndsThePath) {
    const auto document = MakeNode({{"Path", "/0/4711/"}});
    const auto orphan = std::make_shared<StorageLocation>();
    Internals::Load(*orphan, *document);
    EXPECT_EQ(orphan->Parent(), nullptr);
    EXPECT_EQ(orphan->FullPath(), "Shelf");
}

TEST_F(StorageLocationTest, APathThatContainsItselfEnds) {
    m_database.Execute("PRAGMA foreign_keys = OFF");
    for (const char* guard : {"UpdateGuard", "MoveGuard", "TreeGuard"})
        m_database.Execute(std::string("DROP TRIGGER StorageLocation") + guard);
    const auto setPath = [&](int32_t id, const std::string& path) {
        m_database.Execute("UPDATE StorageLocation SET Path = ? WHERE IdNo = ?", {path, id});
    };
    const std::string room = std::to_string(m_tree.room), shelf = std::to_string(m_tree.shelf);
    setPath(m_tree.room, "/0/" + room + "/");
    GetStorageLocationStatic().Refresh();
    EXPECT_EQ(m_tree.Find(m_tree.room)->FullPath(), "Room");
    setPath(m_tree.room, "/0/" + shelf + "/");
    GetStorageLocationStatic().Refresh();
    EXPECT_EQ(m_tree.Find(m_tree.box)->FullPath(), "Room/Shelf/Box");
}

TEST_F(StorageLocationTest, FullPathHasTheNamesFromTheTopDown) {
    EXPECT_EQ(m_tree.Find(m_tree.box)->FullPath(), "Room/Shelf/Box");
    EXPECT_EQ(m_tree.Find(m_tree.box)->FullPath(" > "), "Room > Shelf > Box");
    EXPECT_EQ(m_tree.Find(m_tree.box)->FullPath("/", true), "Sign-In Locations/Room/Shelf/Box");
    EXPECT_EQ(m_tree.Find(m_tree.room)->FullPath(), "Room");
}

TEST_F(StorageLocationTest, FullPathOfARootIsEmptyUnlessRootsAreIncluded) {
    EXPECT_EQ(m_tree.Root(Internal)->FullPath(), "");
    EXPECT_EQ(m_tree.Root(Internal)->FullPath("/", true), "Sign-In Locations");
}

TEST_F(StorageLocationTest, FullPathTrimsPaddedNamesWhileNameShowsThemAsStored) {
    const int32_t padded = m_database.AddLocation("  Cage  ", Internal, m_tree.room);
    const auto location = m_tree.Find(padded);
    EXPECT_EQ(location->FullPath(), "Room/Cage");
    EXPECT_EQ(location->Name(), "  Cage  ");
}

TEST_F(StorageLocationTest, SubLocationsOfARootAreTheTopRowsOfItsCategoryOnly) {
    EXPECT_EQ(IDsOf(m_tree.Root(Internal)->SubLocations()), (Ids{m_tree.annex, m_tree.room}));
    EXPECT_EQ(IDsOf(m_tree.Root(External)->SubLocations()), Ids{m_tree.court});
    EXPECT_TRUE(m_tree.Root(StorageLocationTypes::Other)->SubLocations().empty());
}

TEST_F(StorageLocationTest, SubLocationsAreTheDirectChildrenInDocumentOrder) {
    EXPECT_EQ(IDsOf(m_tree.Find(m_tree.room)->SubLocations()), (Ids{m_tree.bin, m_tree.shelf}));
    EXPECT_TRUE(m_tree.Find(m_tree.box)->SubLocations().empty());
}

TEST_F(StorageLocationTest, ChildrenOfALongerIdentifierAreNotIncluded) {
    // The path of a child of 57 is /0/57/, of a child of 5 it is /0/5/.
    int fillers = 0;
    while (m_database.AddLocation("Filler " + std::to_string(++fillers), External) < 57) {
    }
    m_database.AddLocation("Inside 57", External, 57);
    EXPECT_TRUE(m_tree.Find(5)->SubLocations().empty());
    EXPECT_EQ(m_tree.Find(57)->SubLocations().size(), 1u);
}

TEST_F(StorageLocationTest, SelfAndDescendantsComeDepthFirstContainersFirst) {
    EXPECT_EQ(m_tree.Find(m_tree.room)->GetSelfAndDescendantIDs(),
              (Ids{m_tree.room, m_tree.bin, m_tree.shelf, m_tree.box}));
    EXPECT_EQ(m_tree.Root(Internal)->GetSelfAndDescendantIDs(),
              (Ids{0, m_tree.annex, m_tree.room, m_tree.bin, m_tree.shelf, m_tree.box}));
    EXPECT_EQ(m_tree.Find(m_tree.box)->GetSelfAndDescendantIDs(), Ids{m_tree.box});
}

TEST_F(StorageLocationTest, TheWholeTreeIsReadWithOneQuery) {
    const auto recording = std::make_shared<testing::RecordingEngine>(m_database.GetEngine());
    m_database.Install(recording);
    m_tree.Root(Internal)->GetSelfAndDescendantIDs();
    m_tree.Find(m_tree.box)->FullPath();
    EXPECT_EQ(recording->Log().size(), 1u);
}

TEST_F(StorageLocationTest, AnActiveFlagOfNullReadsAsEnabled) {
    EXPECT_TRUE(m_tree.Find(m_database.AddLocation("No flag", Internal, 0, std::nullopt))->Enabled());
}

TEST_F(StorageLocationTest, TheActiveFlagIsReadAsEnabled) {
    const int32_t off = m_database.AddLocation("Off", Internal, 0, false);
    EXPECT_FALSE(m_tree.Find(off)->Enabled());
    EXPECT_TRUE(m_tree.Find(m_tree.room)->Enabled());
}

TEST_F(StorageLocationTest, RefreshReadsTheRowAgain) {
    const auto location = m_tree.Find(m_tree.room), other = m_tree.Find(m_tree.room);
    m_database.Execute("UPDATE StorageLocation SET Name = 'Vault', ActiveFlag = 0 WHERE IdNo = ?", {m_tree.room});
    EXPECT_EQ(m_tree.Find(m_tree.room)->Name(), "Room") << "the document is unchanged until a reload";
    location->Refresh();
    EXPECT_EQ(location->Name(), "Vault");
    EXPECT_FALSE(location->Enabled());
    EXPECT_EQ(m_tree.Find(m_tree.room)->Name(), "Vault");
    EXPECT_EQ(other->Name(), "Room") << "other objects for the row are not told";
}

TEST_F(StorageLocationTest, RefreshOfADeletedRowMarksTheObjectDeletedAndKeepsItsSnapshot) {
    const auto location = m_tree.Find(m_tree.annex);
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_tree.annex});
    EXPECT_FALSE(location->IsDeleted());
    location->Refresh();
    EXPECT_TRUE(location->IsDeleted());
    EXPECT_EQ(location->Name(), "Annex");
    EXPECT_EQ(location->ID(), m_tree.annex);
    EXPECT_TRUE(location->Enabled());
    EXPECT_EQ(location->LocationType(), Internal);
    EXPECT_EQ(m_tree.Find(m_tree.annex), nullptr);
}

TEST_F(StorageLocationTest, ARestoredRowIsReadAgainButTheObjectStaysDeleted) {
    const auto location = m_tree.Find(m_tree.annex);
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_tree.annex});
    location->Refresh();
    m_database.Execute(
        "INSERT INTO StorageLocation (IdNo, Name, Type, Path, DateEntered, LastUpdated) "
        "VALUES (?, 'Annex again', 2, '/0/', '2026-01-02T00:00:00.000', '2026-01-02T00:00:00.000')",
        {m_tree.annex});
    location->Refresh();
    EXPECT_EQ(location->Name(), "Annex again");
    EXPECT_TRUE(location->IsDeleted());
}

TEST_F(StorageLocationTest, ADeletedObjectHasNoContents) {
    const auto location = m_tree.Find(m_tree.annex);
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_tree.annex});
    location->Refresh();
    const auto expectRefused = [](const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Description(), "The current location has been deleted.");
    };
    expectRefused(testing::RaisedBy([&] { location->SubLocations(); }));
    expectRefused(testing::RaisedBy([&] { location->GetSelfAndDescendantIDs(); }));
    expectRefused(testing::RaisedBy([&] { location->StoredItems(); }));
    expectRefused(testing::RaisedBy([&] { location->StoredItemsCount(); }));
}

TEST_F(StorageLocationTest, RefreshOfARootReadsNothing) {
    const auto recording = std::make_shared<testing::RecordingEngine>(m_database.GetEngine());
    m_database.Install(recording);
    m_tree.Root(Internal)->Refresh();
    EXPECT_TRUE(recording->Log().empty());
    EXPECT_FALSE(m_tree.Root(Internal)->IsDeleted());
}

TEST_F(StorageLocationTest, ANodeIsReadChildByChild) {
    const auto document = MakeNode();
    StorageLocation location;
    Internals::Load(location, *document);
    EXPECT_EQ(location.ID(), 7);
    EXPECT_EQ(location.Name(), "Shelf");
    EXPECT_EQ(location.GetPath().Ids(), (Ids{0, 5}));
    EXPECT_EQ(location.LocationType(), Internal);
    EXPECT_FALSE(location.Enabled());
}

TEST_F(StorageLocationTest, ANodeWithoutAnActiveFlagKeepsTheObjectsValue) {
    StorageLocation location;
    Internals::Load(location, *MakeNode());
    ASSERT_FALSE(location.Enabled());
    Internals::Load(location, *MakeNode({{"ActiveFlag", nullptr}}));
    EXPECT_FALSE(location.Enabled());
}

TEST_F(StorageLocationTest, AnIdentifierMayHaveBlanksAroundIt) {
    StorageLocation location;
    Internals::Load(location, *MakeNode({{"IdNo", " 12"}}));
    EXPECT_EQ(location.ID(), 12);
}

TEST_F(StorageLocationTest, EveryMissingChildExceptTheActiveFlagIsReported) {
    for (const char* child : {"IdNo", "Name", "Path", "Type", "LastUpdated"}) {
        const Error error = LoadError({{child, nullptr}});
        EXPECT_EQ(error.Number(), ErrorNumber::NullObject) << child;
        EXPECT_EQ(error.Description(), "Error loading StorageLocation from XML node: " + ErrorText(91)) << child;
    }
    EXPECT_EQ(LoadError({{"ActiveFlag", nullptr}}).Number(), 0);
}

TEST_F(StorageLocationTest, TextThatDoesNotConvertIsReportedWithItsNumberAndStep) {
    const Error error = LoadError({{"IdNo", "seven"}});
    EXPECT_EQ(error.Number(), ErrorNumber::TypeMismatch);
    EXPECT_EQ(error.Description(), "Error loading StorageLocation from XML node: The value is of the wrong type.");
    EXPECT_EQ(error.Source(), "StorageLocation.LoadFromXMLDOMNode (line 1)");
    EXPECT_EQ(LoadError({{"Type", "two"}}).Source(), "StorageLocation.LoadFromXMLDOMNode (line 4)");
    EXPECT_EQ(LoadError({{"ActiveFlag", "perhaps"}}).Number(), ErrorNumber::TypeMismatch);
    EXPECT_EQ(LoadError({{"LastUpdated", "yesterday"}}).Number(), ErrorNumber::TypeMismatch);
    EXPECT_EQ(LoadError({{"IdNo", "99999999999"}}).Number(), ErrorNumber::Overflow);
    EXPECT_EQ(LoadError({{"Path", "0,5"}}).Number(), ErrorNumber::General);
}

TEST_F(StorageLocationTest, InitializeAndMakeRootSetWhatARootNeeds) {
    StorageLocation location;
    Internals::InitializeAs(location, "Sign-In Locations", Internal);
    EXPECT_EQ(location.Name(), "Sign-In Locations");
    EXPECT_EQ(location.LocationType(), Internal);
    EXPECT_EQ(location.GetPath().Ids(), Ids{0});
    EXPECT_FALSE(location.IsRoot());
    Internals::MakeRoot(location);
    EXPECT_TRUE(location.IsRoot());
    EXPECT_TRUE(location.GetPath().Ids().empty());
}

}  // namespace quellbrook

#include "tests/support/DatabaseTest.h"
#include "tests/support/InterruptingEngine.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingEngine.h"
#include "tests/support/StorageLocationInternals.h"
#include "tests/support/TestLocations.h"

namespace quellbrook {

namespace {

using Texts = std::vector<std::string>;
using Types = StorageLocationTypes;
const char* const ContainerGone =
    "Its container has been moved or deleted in the meantime. Refresh the locations and try again.";

class StorageLocationMove : public testing::DatabaseTest {
protected:
    std::shared_ptr<testing::RecordingEngine> Record() {
        auto engine = std::make_shared<testing::RecordingEngine>(m_database.GetEngine());
        m_database.Install(engine);
        HostLocationData().GetDocument();
        engine->Clear();
        return engine;
    }
    std::shared_ptr<testing::InterruptingEngine> LetOthersIn() {
        auto engine = std::make_shared<testing::InterruptingEngine>(m_database.GetEngine());
        m_database.Install(engine);
        return engine;
    }

    void ExpectRefused(const StorageLocationRef& location, const StorageLocationRef& newParent,
                       const std::string& description) {
        const std::string before = m_database.Snapshot();
        const Error error = testing::RaisedBy([&] { location->Move(newParent); });
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Source(), "StorageLocation.Move");
        EXPECT_EQ(error.Description(), description);
        EXPECT_EQ(m_database.Snapshot(), before);
    }

    StorageLocationRef Find(int32_t id) const { return m_tree.Find(id); }
    StorageLocationRef Root(Types type) const { return m_tree.Root(type); }

    testing::TestLocations m_tree{m_database};
};

}  // namespace

TEST_F(StorageLocationMove, AMoveSendsTheDescendantsFirstInOneTransactionAndReadsTheTableOnce) {
    const auto recording = Record();
    Find(m_tree.shelf)->Move(Find(m_tree.annex));
    EXPECT_EQ(recording->Log(),
              (Texts{"SELECT COUNT(IdNo) AS TotalCount FROM StorageLocation WHERE Path='/0/5/' AND Name='Shelf' AND "
                     "Type=2 AND IdNo <> 0",
                     "BEGIN", "SELECT IdNo FROM StorageLocation WHERE IdNo = ?",
                     "UPDATE StorageLocation SET Type = 2, Path = REPLACE(Path, '/0/1/2/', '/0/5/2/') WHERE Path LIKE "
                     "'/0/1/2/%'",
                     "UPDATE StorageLocation SET Type = 2, Path = '/0/5/' WHERE IdNo = 2", "COMMIT",
                     "SELECT * FROM StorageLocation ORDER BY Name, IdNo"}));
}

TEST_F(StorageLocationMove, AMoveIncludesTheWholeSubtree) {
    Find(m_tree.shelf)->Move(Find(m_tree.annex));
    EXPECT_EQ(m_tree.Row(m_tree.shelf), "Shelf 2 /0/5/");
    EXPECT_EQ(m_tree.Row(m_tree.box), "Box 2 /0/5/2/");
    EXPECT_EQ(m_tree.Row(m_tree.bin), "Bin 2 /0/1/");
    EXPECT_EQ(m_tree.Row(m_tree.room), "Room 2 /0/");
}

TEST_F(StorageLocationMove, AfterAMoveTheObjectAndTheDocumentAreCurrent) {
    const auto shelf = Find(m_tree.shelf);
    shelf->Move(Root(Types::External));
    EXPECT_EQ(shelf->LocationType(), Types::External);
    EXPECT_TRUE(shelf->GetPath().Equals(LocationPath().Append(0)));
    EXPECT_EQ(Find(m_tree.box)->FullPath("/", true), "Sign-Out Locations/Shelf/Box");
    EXPECT_EQ(Find(m_tree.room)->SubLocations().size(), 1u);
}

TEST_F(StorageLocationMove, MovingToThePresentContainerSendsNothing) {
    const auto recording = Record();
    const std::string before = m_database.Snapshot();
    Find(m_tree.shelf)->Move(Find(m_tree.room));
    Find(m_tree.room)->Move(Root(Types::Internal));
    EXPECT_TRUE(recording->Log().empty());
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(StorageLocationMove, MovingToTheRootOfAnotherCategoryChangesTheTypeOfTheWholeSubtree) {
    const auto recording = Record();
    Find(m_tree.room)->Move(Root(Types::DisposalLocation));
    EXPECT_EQ(m_tree.Row(m_tree.room), "Room 8 /0/");
    EXPECT_EQ(m_tree.Row(m_tree.shelf), "Shelf 8 /0/1/");
    EXPECT_EQ(m_tree.Row(m_tree.box), "Box 8 /0/1/2/");
    EXPECT_EQ(m_tree.Row(m_tree.bin), "Bin 8 /0/1/");
    EXPECT_EQ(m_tree.Row(m_tree.annex), "Annex 2 /0/");
    EXPECT_EQ(recording->Log().at(3),
              "UPDATE StorageLocation SET Type = 8, Path = REPLACE(Path, '/0/1/', '/0/1/') WHERE Path LIKE '/0/1/%'");
}

TEST_F(StorageLocationMove, MovingIntoAContainerOfAnotherCategoryChangesTypesAndPaths) {
    Find(m_tree.shelf)->Move(Find(m_tree.court));
    EXPECT_EQ(m_tree.Row(m_tree.shelf), "Shelf 4 /0/6/");
    EXPECT_EQ(m_tree.Row(m_tree.box), "Box 4 /0/6/2/");
}

TEST_F(StorageLocationMove, MovingUpToTheRootOfThePresentCategoryIsAllowed) {
    const auto recording = Record();
    Find(m_tree.shelf)->Move(Root(Types::Internal));
    EXPECT_EQ(m_tree.Row(m_tree.shelf), "Shelf 2 /0/");
    EXPECT_EQ(m_tree.Row(m_tree.box), "Box 2 /0/2/");
    EXPECT_EQ(recording->Log().at(4), "UPDATE StorageLocation SET Type = 2, Path = '/0/' WHERE IdNo = 2");
}

TEST_F(StorageLocationMove, AMoveTouchesNeitherTheDatesNorTheFlag) {
    m_database.Execute("UPDATE StorageLocation SET ActiveFlag = 0 WHERE IdNo = ?", {m_tree.box});
    Find(m_tree.shelf)->Move(Find(m_tree.annex));
    for (const int32_t id : {m_tree.shelf, m_tree.box}) {
        EXPECT_EQ(m_tree.Cell(id, "LastUpdated"), "2026-01-01T08:00:00.000");
        EXPECT_EQ(m_tree.Cell(id, "DateEntered"), "2026-01-01T08:00:00.000");
    }
    EXPECT_EQ(m_tree.Cell(m_tree.shelf, "ActiveFlag"), "1");
    EXPECT_EQ(m_tree.Cell(m_tree.box, "ActiveFlag"), "0");
}

TEST_F(StorageLocationMove, LocationsBelowALongerIdentifierAreNotMoved) {
    // The path of locations in 20 is /0/20/, which does not begin with /0/2/, the path of locations in 2.
    int32_t last = 0;
    while (last < 20) last = m_database.AddLocation("Filler " + std::to_string(last), Types::Internal);
    const int32_t inTwenty = m_database.AddLocation("In twenty", Types::Internal, 20);
    GetStorageLocationStatic().Refresh();
    Find(m_tree.shelf)->Move(Root(Types::Internal));
    Find(m_tree.shelf)->Move(Find(m_tree.annex));
    Find(m_tree.room)->Move(Find(m_tree.annex));
    EXPECT_EQ(m_tree.Row(inTwenty), "In twenty 2 /0/20/");
    EXPECT_EQ(m_tree.Row(m_tree.box), "Box 2 /0/5/2/");
    EXPECT_EQ(m_tree.Row(m_tree.bin), "Bin 2 /0/5/1/");
}

TEST_F(StorageLocationMove, ALocationDeletedElsewhereCannotBeMoved) {
    const auto bin = Find(m_tree.bin), annex = Find(m_tree.annex);
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_tree.bin});
    ExpectRefused(bin, annex, "The current location has been deleted.");
    EXPECT_TRUE(bin->IsDeleted());
    EXPECT_EQ(Find(m_tree.bin), nullptr) << "the document is current";
}

TEST_F(StorageLocationMove, ALocationDeletedJustBeforeItsMoveLeavesWhatIsBelowItsPathUnchanged) {
    // A department without foreign keys may contain such a row.
    m_database.Execute("PRAGMA foreign_keys = OFF");
    m_database.Execute("DROP TRIGGER StorageLocationDeleteGuard");
    const auto shelf = Find(m_tree.shelf), annex = Find(m_tree.annex);
    const auto engine = LetOthersIn();
    engine->BeforeTransaction(
        [&] { m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_tree.shelf}); });
    EXPECT_EQ(testing::RaisedBy([&] { shelf->Move(annex); }).Description(), "The current location has been deleted.");
    EXPECT_EQ(m_tree.Row(m_tree.box), "Box 2 /0/1/2/");
    EXPECT_TRUE(shelf->IsDeleted());
}

TEST_F(StorageLocationMove, ALocationCannotBeMovedIntoItselfOrItsSublocations) {
    const auto recording = Record();
    const auto refusal = [](const char* target) {
        return "Could not move location 'Room' into '" + std::string(target) +
               "'. \r\n\r\nA location cannot be moved into itself or one of its own sublocations.";
    };
    const auto room = Find(m_tree.room);
    ExpectRefused(room, room, refusal("Room"));
    ExpectRefused(room, Find(m_tree.room), refusal("Room"));
    ExpectRefused(room, Find(m_tree.shelf), refusal("Shelf"));
    ExpectRefused(room, Find(m_tree.box), refusal("Box"));
    EXPECT_TRUE(recording->Log().empty());
}

TEST_F(StorageLocationMove, AContainerThatAlreadyHasTheNameIsRejectedBeforeAnyWrite) {
    m_database.AddLocation("SHELF", Types::Internal, m_tree.annex);
    const auto recording = Record();
    ExpectRefused(Find(m_tree.shelf), Find(m_tree.annex),
                  "Could not move location 'Shelf' into 'Annex'. \r\n\r\n"
                  "There is already a location with the name 'Shelf' in 'Annex'. \r\n\r\n"
                  "Rename this location or the other location already in 'Annex' before moving this location.");
    EXPECT_EQ(recording->Log().size(), 1u) << "the question alone";
}

TEST_F(StorageLocationMove, ARootThatAlreadyHasTheNameIsRejected) {
    m_database.AddLocation("Shelf", Types::Other);
    ExpectRefused(Find(m_tree.shelf), Root(Types::Other),
                  "Could not move location 'Shelf' into 'Other Locations'. \r\n\r\n"
                  "There is already a location with the name 'Shelf' in 'Other Locations'. \r\n\r\n"
                  "Rename this location or the other location already in 'Other Locations' before moving this "
                  "location.");
    Find(m_tree.shelf)->Move(Root(Types::Internal));
    EXPECT_EQ(m_tree.Row(m_tree.shelf), "Shelf 2 /0/") << "top-level locations of other categories do not count";
}

TEST_F(StorageLocationMove, ANameThatAnotherWorkstationHasTakenIsSeenAlthoughTheDocumentIsOlder) {
    HostLocationData().GetDocument();
    m_database.AddLocation("Shelf", Types::Internal, m_tree.annex);
    ExpectRefused(Find(m_tree.shelf), Find(m_tree.annex),
                  "Could not move location 'Shelf' into 'Annex'. \r\n\r\n"
                  "There is already a location with the name 'Shelf' in 'Annex'. \r\n\r\n"
                  "Rename this location or the other location already in 'Annex' before moving this location.");
}

TEST_F(StorageLocationMove, ANameTakenBetweenTheQuestionAndTheWriteIsRefusedByTheDatabase) {
    const auto engine = LetOthersIn();
    const auto shelf = Find(m_tree.shelf);
    std::string before;
    engine->BeforeTransaction([&] {
        m_database.AddLocation("Shelf", Types::Internal, m_tree.annex);
        before = m_database.Snapshot();
    });
    const Error error = testing::RaisedBy([&] { shelf->Move(Find(m_tree.annex)); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(),
              "Could not move location 'Shelf' into 'Annex'. \r\n\r\nA record with this name or number already exists. "
              "Refresh and try again. (UNIQUE constraint failed: StorageLocation.Path, StorageLocation.Type, "
              "StorageLocation.Name)");
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(StorageLocationMove, AContainerThatIsDeletedBetweenTheQuestionAndTheWriteIsRefusedByTheDatabase) {
    const auto engine = LetOthersIn();
    const auto shelf = Find(m_tree.shelf);
    engine->BeforeTransaction([&] { m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = 5"); });
    const Error error = testing::RaisedBy([&] { shelf->Move(Find(m_tree.annex)); });
    EXPECT_EQ(error.Description(),
              std::string("Could not move location 'Shelf' into 'Annex'. \r\n\r\n") + ContainerGone);
    EXPECT_EQ(m_tree.Row(m_tree.shelf), "Shelf 2 /0/1/");
    EXPECT_EQ(m_tree.Row(m_tree.box), "Box 2 /0/1/2/");
}

TEST_F(StorageLocationMove, ADeletedContainerIsRefusedByTheDatabase) {
    const auto annex = Find(m_tree.annex);
    annex->Delete();
    ExpectRefused(Find(m_tree.shelf), annex,
                  std::string("Could not move location 'Shelf' into 'Annex'. \r\n\r\n") + ContainerGone);
}

TEST_F(StorageLocationMove, ALocationThatAnotherWorkstationHasMovedLeavesNothingBehind) {
    const auto shelf = Find(m_tree.shelf);
    {
        const auto elsewhere = Find(m_tree.shelf);
        elsewhere->Move(Find(m_tree.annex));
    }
    ExpectRefused(
        shelf, Find(m_tree.court),
        "Could not move location 'Shelf' into 'Court'. \r\n\r\nThis location has been changed in the meantime, and "
        "sublocations would be left behind. Refresh the locations and try again.");
    shelf->Refresh();
    shelf->Move(Find(m_tree.court));
    EXPECT_EQ(m_tree.Row(m_tree.box), "Box 4 /0/6/2/");
}

TEST_F(StorageLocationMove, ARootCannotBeMoved) {
    ExpectRefused(Root(Types::Internal), Find(m_tree.court),
                  "Cannot move 'Sign-In Locations' - it is a type of location, not an actual location.");
    ExpectRefused(Root(Types::Internal), Root(Types::External),
                  "Cannot move 'Sign-In Locations' - it is a type of location, not an actual location.");
}

TEST_F(StorageLocationMove, ADeletedLocationCannotBeMoved) {
    const auto bin = Find(m_tree.bin);
    bin->Delete();
    ExpectRefused(bin, Find(m_tree.annex), "The current location has been deleted.");
    ExpectRefused(bin, bin, "The current location has been deleted.");
    StorageLocationInternals::MakeRoot(*bin);
    ExpectRefused(bin, Find(m_tree.annex), "Cannot move 'Bin' - it is a type of location, not an actual location.");
}

TEST_F(StorageLocationMove, WithoutATargetTheMoveFails) {
    const std::string before = m_database.Snapshot();
    EXPECT_EQ(testing::RaisedBy([&] { Find(m_tree.shelf)->Move(nullptr); }).Number(), ErrorNumber::NullObject);
    EXPECT_EQ(testing::RaisedBy([&] { Root(Types::Other)->Move(nullptr); }).Number(), ErrorNumber::General);
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(StorageLocationMove, ItemsMoveWithTheirLocation) {
    const int32_t item = m_database.AddProperty();
    m_database.AddCustodyRow(StoredItemTypes::Property, item, m_tree.box);
    Find(m_tree.room)->Move(Find(m_tree.court));
    EXPECT_EQ(Find(m_tree.box)->StoredItemsCount(), 1);
    EXPECT_EQ(Find(m_tree.box)->FullPath("/", true), "Sign-Out Locations/Court/Room/Shelf/Box");
}

}  // namespace quellbrook

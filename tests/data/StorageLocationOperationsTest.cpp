#include "tests/support/DatabaseTest.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingEngine.h"
#include "tests/support/StorageLocationInternals.h"
#include "tests/support/TestLocations.h"

namespace quellbrook {

namespace {

using Texts = std::vector<std::string>;
using Types = StorageLocationTypes;
using Parameters = std::vector<TaggedValue>;
const char* const ReloadText = "SELECT * FROM StorageLocation ORDER BY Name, IdNo";
const char* const DeletedText = "The current location has been deleted.";

// A clock that advances with each reading.
class AdvancingClock : public Clock {
public:
    DateTime Now() const override { return DateTime{++m_milliseconds}; }

private:
    mutable int64_t m_milliseconds = 1'790'000'000'000;
};

class StorageLocationOperations : public testing::DatabaseTest {
protected:
    std::shared_ptr<testing::RecordingEngine> Record() {
        auto engine = std::make_shared<testing::RecordingEngine>(m_database.GetEngine());
        m_database.Install(engine);
        HostLocationData().GetDocument();
        engine->Clear();
        return engine;
    }

    template <typename Operation>
    void ExpectRefused(const char* source, Operation operation, const std::string& description) {
        const std::string before = m_database.Snapshot();
        const Error error = testing::RaisedBy(operation);
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Source(), std::string("StorageLocation.") + source);
        EXPECT_EQ(error.Description(), description);
        EXPECT_EQ(m_database.Snapshot(), before);
    }

    // A location that is both deleted and a root, to show which check comes first.
    StorageLocationRef DeletedRoot() {
        auto location = Find(m_tree.bin);
        location->Delete();
        StorageLocationInternals::MakeRoot(*location);
        return location;
    }

    StorageLocationRef Find(int32_t id) const { return m_tree.Find(id); }
    StorageLocationRef Root(Types type) const { return m_tree.Root(type); }

    testing::TestLocations m_tree{m_database};
};

}  // namespace

TEST_F(StorageLocationOperations, CreatingSendsOneInsertAndReadsTheTable) {
    const auto recording = Record();
    Find(m_tree.room)->CreateSubLocation("Crate");
    EXPECT_EQ(recording->Log(),
              (Texts{"BEGIN",
                     "INSERT INTO StorageLocation (Name,Type,Path,ActiveFlag,DateEntered,LastUpdated) "
                     "VALUES (?,?,?,?,?,?)",
                     "COMMIT", ReloadText}));
    EXPECT_EQ(recording->Parameters(1), (Parameters{"Crate", 2, "/0/1/", true, m_clock.Now(), m_clock.Now()}));
}

TEST_F(StorageLocationOperations, CreatingReturnsTheNewLocationAndLeavesTheParentUnchanged) {
    const auto room = Find(m_tree.room);
    m_database.Execute("UPDATE StorageLocation SET Name = 'Hall' WHERE IdNo = ?", {m_tree.room});
    const auto crate = room->CreateSubLocation("Crate");
    EXPECT_EQ(crate->ID(), 7);
    EXPECT_EQ(crate->Name(), "Crate");
    EXPECT_TRUE(crate->Enabled());
    EXPECT_EQ(crate->LocationType(), Types::Internal);
    EXPECT_EQ(crate->Parent()->ID(), m_tree.room);
    EXPECT_EQ(room->Name(), "Room");
    EXPECT_EQ(Find(m_tree.room)->Name(), "Hall") << "the document is current";
}

TEST_F(StorageLocationOperations, CreatingInARootAddsATopLevelLocation) {
    const auto incinerator = Root(Types::DisposalLocation)->CreateSubLocation("Incinerator");
    EXPECT_EQ(m_tree.Row(incinerator->ID()), "Incinerator 8 /0/");
    EXPECT_EQ(incinerator->Parent(), Root(Types::DisposalLocation));
}

TEST_F(StorageLocationOperations, BothDatesOfANewLocationAreTheSameMoment) {
    const AdvancingClock clock;
    m_environment->clock = &clock;
    const int32_t id = Find(m_tree.room)->CreateSubLocation("Crate")->ID();
    m_environment->clock = &m_clock;
    EXPECT_EQ(m_tree.Cell(id, "DateEntered"), m_tree.Cell(id, "LastUpdated"));
    EXPECT_EQ(m_tree.Cell(id, "LastUpdated"), DateTime{1'790'000'000'001}.ToText());
}

TEST_F(StorageLocationOperations, TheNameOfANewLocationIsNeitherTrimmedNorChecked) {
    for (const char* name : {"  Crate ", "", "   "}) {
        const auto created = Find(m_tree.room)->CreateSubLocation(name);
        EXPECT_EQ(created->Name(), name);
        EXPECT_EQ(m_tree.Cell(created->ID(), "Name"), name);
    }
}

TEST_F(StorageLocationOperations, ANewLocationMayNotHaveTheNameOfItsSibling) {
    const auto refusal = [](const char* name) {
        return "A location with the name '" + std::string(name) + "' already exists here.";
    };
    ExpectRefused(
        "CreateSubLocation", [&] { Find(m_tree.room)->CreateSubLocation("Shelf"); }, refusal("Shelf"));
    ExpectRefused(
        "CreateSubLocation", [&] { Find(m_tree.room)->CreateSubLocation("shelf"); }, refusal("shelf"));
    ExpectRefused(
        "CreateSubLocation", [&] { Root(Types::External)->CreateSubLocation("Court"); }, refusal("Court"));
    EXPECT_NE(Root(Types::Internal)->CreateSubLocation("Court"), nullptr) << "another category";
    EXPECT_NE(Find(m_tree.bin)->CreateSubLocation("Shelf"), nullptr) << "another container";
}

TEST_F(StorageLocationOperations, AfterAFailedCreationTheDatabaseIsAskedForTheName) {
    const auto recording = Record();
    testing::RaisedBy([&] { Root(Types::External)->CreateSubLocation("Court"); });
    EXPECT_EQ(recording->Log().size(), 4u);
    EXPECT_EQ(recording->Log().back(),
              "SELECT COUNT(IdNo) AS TotalCount FROM StorageLocation WHERE Path='/0/' AND "
              "Name='Court' AND Type=4 AND IdNo <> 0");
}

TEST_F(StorageLocationOperations, CreatingInADeletedContainerFailsWithTheDatabasesMessage) {
    const auto annex = Find(m_tree.annex);
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_tree.annex});
    ExpectRefused(
        "CreateSubLocation", [&] { annex->CreateSubLocation("Crate"); },
        "Could not create location 'Crate'. \r\n\r\nIts container has been moved or deleted in the "
        "meantime. Refresh the locations and try again.");
}

TEST_F(StorageLocationOperations, IfTheNameCannotBeCheckedTheFirstFailureIsReported) {
    const auto room = Find(m_tree.room);
    m_database.Install(nullptr);
    ExpectRefused(
        "CreateSubLocation", [&] { room->CreateSubLocation("Crate"); },
        "Could not create location 'Crate'. \r\n\r\nNo database has been opened.");
}

TEST_F(StorageLocationOperations, ADeletedLocationCannotGetSublocations) {
    const auto location = DeletedRoot();
    const auto recording = Record();
    ExpectRefused(
        "CreateSubLocation", [&] { location->CreateSubLocation("Crate"); }, DeletedText);
    EXPECT_TRUE(recording->Log().empty());
}

TEST_F(StorageLocationOperations, SettingTheFlagSendsOneUpdateWithParametersAndReadsTheTable) {
    const auto recording = Record();
    Find(m_tree.room)->SetEnabled(false);
    EXPECT_EQ(recording->Log(),
              (Texts{"BEGIN", "UPDATE StorageLocation SET ActiveFlag = ? WHERE IdNo = ?", "COMMIT", ReloadText}));
    EXPECT_EQ(recording->Parameters(1), (Parameters{false, m_tree.room}));
    Find(m_tree.room)->SetEnabled(true);
    EXPECT_EQ(recording->Parameters(5), (Parameters{true, m_tree.room}));
}

TEST_F(StorageLocationOperations, TheFlagIsSetOnOneRowAloneAndTheObjectShowsIt) {
    const auto room = Find(m_tree.room);
    room->SetEnabled(false);
    EXPECT_FALSE(room->Enabled());
    EXPECT_FALSE(Find(m_tree.room)->Enabled());
    EXPECT_TRUE(Find(m_tree.shelf)->Enabled());
    EXPECT_EQ(m_tree.Cell(m_tree.room, "LastUpdated"), "2026-01-01T08:00:00.000");
    room->SetEnabled(true);
    EXPECT_TRUE(room->Enabled());
}

TEST_F(StorageLocationOperations, ARootCanBeNeitherEnabledNorDisabled) {
    const auto recording = Record();
    const char* const refusal = "A root location cannot be disabled.";
    ExpectRefused(
        "SetEnabled", [&] { Root(Types::Internal)->SetEnabled(false); }, refusal);
    ExpectRefused(
        "SetEnabled", [&] { Root(Types::Internal)->SetEnabled(true); }, refusal);
    EXPECT_TRUE(recording->Log().empty());
}

TEST_F(StorageLocationOperations, TheFlagOfADeletedLocationCannotBeSet) {
    const auto location = DeletedRoot();
    ExpectRefused(
        "SetEnabled", [&] { location->SetEnabled(true); }, DeletedText);
}

TEST_F(StorageLocationOperations, AFailureToSetTheFlagNamesTheChange) {
    const auto room = Find(m_tree.room);
    m_database.Install(nullptr);
    ExpectRefused(
        "SetEnabled", [&] { room->SetEnabled(true); },
        "Could not enable this location.\r\n\r\nNo database has been opened.");
    ExpectRefused(
        "SetEnabled", [&] { room->SetEnabled(false); },
        "Could not disable this location.\r\n\r\nNo database has been opened.");
    EXPECT_TRUE(room->Enabled());
}

TEST_F(StorageLocationOperations, RenamingSendsOneUpdateWithTheMomentAndReadsTheTable) {
    const auto recording = Record();
    Find(m_tree.room)->Rename("O'Neil's");
    EXPECT_EQ(recording->Log(), (Texts{"BEGIN",
                                       "UPDATE StorageLocation SET Name = 'O''Neil''s', LastUpdated = "
                                       "'2026-11-20T13:14:15.123' WHERE IdNo = 1",
                                       "COMMIT", ReloadText}));
}

TEST_F(StorageLocationOperations, ARenamedLocationShowsItsNewNameEverywhere) {
    const auto room = Find(m_tree.room);
    room->Rename("Vault");
    EXPECT_EQ(room->Name(), "Vault");
    EXPECT_EQ(Find(m_tree.box)->FullPath(), "Vault/Shelf/Box");
    EXPECT_EQ(m_tree.Cell(m_tree.room, "LastUpdated"), "2026-11-20T13:14:15.123");
    EXPECT_EQ(m_tree.Cell(m_tree.room, "DateEntered"), "2026-01-01T08:00:00.000");
    EXPECT_EQ(m_tree.Cell(m_tree.shelf, "LastUpdated"), "2026-01-01T08:00:00.000");
}

TEST_F(StorageLocationOperations, ANewNameIsStoredUntrimmed) {
    const auto room = Find(m_tree.room);
    room->Rename("  Vault ");
    EXPECT_EQ(room->Name(), "  Vault ");
    EXPECT_EQ(m_tree.Cell(m_tree.room, "Name"), "  Vault ");
}

TEST_F(StorageLocationOperations, ALocationCanBeRenamedToItsOwnName) {
    const auto room = Find(m_tree.room);
    room->Rename(room->Name());
    EXPECT_EQ(room->Name(), "Room");
    room->Rename("ROOM");
    EXPECT_EQ(room->Name(), "ROOM");
}

TEST_F(StorageLocationOperations, ABlankNameIsRejected) {
    const auto recording = Record();
    for (const char* name : {"", " ", "     "})
        ExpectRefused(
            "Rename", [&] { Find(m_tree.room)->Rename(name); }, "New name cannot be blank.");
    EXPECT_TRUE(recording->Log().empty());
}

TEST_F(StorageLocationOperations, TheNameOfASiblingIsRejectedByTheConstraint) {
    const auto recording = Record();
    const auto bin = Find(m_tree.bin);
    ExpectRefused(
        "Rename", [&] { bin->Rename("SHELF"); }, "A location with the name 'SHELF' already exists here.");
    EXPECT_EQ(recording->Log().size(), 3u) << "the name is not asked for";
    EXPECT_EQ(bin->Name(), "Bin");
}

TEST_F(StorageLocationOperations, RenamingChecksForARootThenForADeletedLocationThenForABlankName) {
    ExpectRefused(
        "Rename", [&] { Root(Types::Other)->Rename(" "); }, "Cannot rename this location.");
    const auto annex = Find(m_tree.annex);
    annex->Delete();
    ExpectRefused(
        "Rename", [&] { annex->Rename(" "); }, DeletedText);
    const auto location = DeletedRoot();
    ExpectRefused(
        "Rename", [&] { location->Rename("Vault"); }, "Cannot rename this location.");
}

TEST_F(StorageLocationOperations, ALocationDeletedElsewhereCanBeNeitherRenamedNorEnabledNorDisabled) {
    const auto renamed = Find(m_tree.annex), enabled = Find(m_tree.annex), disabled = Find(m_tree.annex);
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_tree.annex});
    ExpectRefused(
        "Rename", [&] { renamed->Rename("Vault"); }, DeletedText);
    ExpectRefused(
        "SetEnabled", [&] { enabled->SetEnabled(true); }, DeletedText);
    ExpectRefused(
        "SetEnabled", [&] { disabled->SetEnabled(false); }, DeletedText);
    for (const auto& location : {renamed, enabled, disabled}) {
        EXPECT_TRUE(location->IsDeleted());
        EXPECT_EQ(location->Name(), "Annex");
    }
    EXPECT_EQ(Find(m_tree.annex), nullptr) << "the document is current";
}

TEST_F(StorageLocationOperations, DeletingSendsTheDescendantsFirstInOneTransactionAndReadsTheTable) {
    const auto recording = Record();
    Find(m_tree.room)->Delete();
    EXPECT_EQ(recording->Log(), (Texts{"BEGIN", "DELETE FROM StorageLocation WHERE Path LIKE '/0/1/%'",
                                       "DELETE FROM StorageLocation WHERE IdNo = 1", "COMMIT", ReloadText}));
}

TEST_F(StorageLocationOperations, DeletingTakesTheWholeSubtreeAndNothingElse) {
    const auto room = Find(m_tree.room), shelf = Find(m_tree.shelf);
    room->Delete();
    EXPECT_TRUE(room->IsDeleted());
    EXPECT_EQ(room->Name(), "Room") << "the snapshot still answers";
    EXPECT_FALSE(shelf->IsDeleted()) << "other objects are not told";
    EXPECT_EQ(Find(m_tree.box), nullptr);
    EXPECT_EQ(m_tree.Row(m_tree.annex), "Annex 2 /0/");
    EXPECT_EQ(m_tree.Row(m_tree.court), "Court 4 /0/");
    EXPECT_EQ(m_tree.Count(), 2);
}

TEST_F(StorageLocationOperations, ASubtreeWithItemsInASublocationStaysInPlace) {
    const char* const inUse =
        "Could not delete this location because this location (or one of its sublocations) is currently in use.";
    const int32_t item = m_database.AddProperty();
    m_database.AddCustodyRow(StoredItemTypes::Property, item, m_tree.box);
    const auto room = Find(m_tree.room);
    ExpectRefused(
        "Delete", [&] { room->Delete(); }, inUse);
    EXPECT_FALSE(room->IsDeleted());
    EXPECT_EQ(room->SubLocations().size(), 2u);

    m_database.AddCustodyRow(StoredItemTypes::Property, item, m_tree.court);
    ExpectRefused(
        "Delete", [&] { room->Delete(); }, inUse);  // its chain of custody still names the box
    ExpectRefused(
        "Delete", [&] { Find(m_tree.box)->Delete(); }, inUse);
}

TEST_F(StorageLocationOperations, ALocationThatAnotherWorkstationHasMovedIsNotDeletedFromAboveItsSublocations) {
    const auto shelf = Find(m_tree.shelf);
    {
        const auto elsewhere = Find(m_tree.shelf);
        elsewhere->Move(Find(m_tree.annex));
    }
    ExpectRefused(
        "Delete", [&] { shelf->Delete(); },
        "Could not delete this location because this location (or one of its sublocations) is currently in "
        "use.");
}

TEST_F(StorageLocationOperations, ARootCannotBeDeleted) {
    const auto recording = Record();
    ExpectRefused(
        "Delete", [&] { Root(Types::Internal)->Delete(); }, "Cannot delete this location.");
    EXPECT_TRUE(recording->Log().empty());
    const auto location = DeletedRoot();
    ExpectRefused(
        "Delete", [&] { location->Delete(); }, "Cannot delete this location.");
}

TEST_F(StorageLocationOperations, DeletingALocationDeletedElsewhereSucceeds) {
    const auto annex = Find(m_tree.annex);
    Find(m_tree.annex)->Delete();
    annex->Delete();
    EXPECT_TRUE(annex->IsDeleted());
}

TEST_F(StorageLocationOperations, EveryLaterOperationOnADeletedLocationFails) {
    const auto annex = Find(m_tree.annex);
    annex->Delete();
    const auto recording = Record();
    ExpectRefused(
        "Delete", [&] { annex->Delete(); }, DeletedText);
    ExpectRefused(
        "Move", [&] { annex->Move(Root(Types::Other)); }, DeletedText);
    ExpectRefused(
        "SetEnabled", [&] { annex->SetEnabled(false); }, DeletedText);
    ExpectRefused(
        "Rename", [&] { annex->Rename("Vault"); }, DeletedText);
    ExpectRefused(
        "CreateSubLocation", [&] { annex->CreateSubLocation("Crate"); }, DeletedText);
    ExpectRefused(
        "SubLocations", [&] { annex->SubLocations(); }, DeletedText);
    ExpectRefused(
        "StoredItems", [&] { annex->StoredItems(); }, DeletedText);
    ExpectRefused(
        "StoredItemsCount", [&] { annex->StoredItemsCount(); }, DeletedText);
    EXPECT_TRUE(recording->Log().empty());
}

}  // namespace quellbrook

#include "base/Error.h"
#include "core/Actions.h"
#include "data/CustodyRecords.h"
#include "data/StorageLocationStatic.h"
#include "data/StoredItemSearch.h"
#include "data/TransferData.h"
#include "database/HostTables.h"
#include "database/SqliteEngine.h"
#include "database/schema/DatabaseVerification.h"
#include "host/CodeTableLookup.h"
#include "host/HostDatabase.h"
#include "tests/support/Items.h"
#include "tests/support/ModelTest.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingThumbnails.h"
#include "tests/support/ScratchFolder.h"

#include <gmock/gmock.h>

#include <SQLiteCpp/SQLiteCpp.h>

#include <fstream>
#include <iterator>
#include <set>

namespace quellbrook::testing {
namespace {

// The model on the schema that the example of a host creates, which has nothing but the tables that are needed.
class HostSchema : public ModelTest {
protected:
    HostSchema() {
        std::ifstream schema(QUELLBROOK_SOURCE_DIR "/examples/evidence-tab/schema.sql");
        const std::string statements((std::istreambuf_iterator<char>(schema)), std::istreambuf_iterator<char>());
        SQLite::Database database(m_path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        database.exec(statements);
        database.exec(R"sql(
            INSERT INTO StorageLocation (Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES
                ('Shelf', 2, '/0/', 1, '2026-01-01T08:00:00.000', '2026-01-01T08:00:00.000'),
                ('Box', 2, '/0/1/', 1, '2026-01-01T08:00:00.000', '2026-01-01T08:00:00.000'),
                ('Destroyed', 8, '/0/', NULL, '2026-01-01T08:00:00.000', '2026-01-01T08:00:00.000');
            INSERT INTO Property (PropertyID, Description, RecordTypeInd, CurrImageSeq) VALUES
                ('P-17', 'Blue lantern', 1, 1), ('P-18', 'Rope', 1, NULL);
            INSERT INTO Vehicle (VehicleNo, RegNumber, RegStateCode, VehYear, MakeCode) VALUES
                (101, 'LVN2077', 'OR', '2019', 'FORD');
            INSERT INTO Incident VALUES (1, '2026-0431', '26-117', 0);
            INSERT INTO IncdProperty VALUES (1, 1);
            INSERT INTO IncdVehicle VALUES (1, 101);
            INSERT INTO AttachmentFolder VALUES (1, 'pictures');
            INSERT INTO AttachmentIndex VALUES (1, 6, 1, 1, 'lantern.png');
            INSERT INTO CodeTable VALUES (38, 1, 'INIT', 'Initial storage', 1), (30, 2, 'Destroyed', NULL, 1);
            INSERT INTO Person VALUES (7, 'Technician', 'Priya', 'Raman', 1))sql");
        HostServices::Current().SetEngine(SqliteEngine::OpenHostSchema(m_path));
        HostServices::Current().SetThumbnails(m_thumbnails);
    }
    ~HostSchema() override {
        HostServices::Current().SetEngine(nullptr);
        HostServices::Current().SetThumbnails(nullptr);
    }

    static std::shared_ptr<StoredItemList> Untracked() {
        return StoredItemSearch().Untracked().WithNumber(NumberSearchTypes::IncidentId, "2026-0431").Execute();
    }
    static StorageLocationRef Location(int32_t id) { return GetStorageLocationStatic().FindByID(id); }

    void Transfer(const std::shared_ptr<StoredItemList>& items, int32_t type, int32_t location,
                  const std::shared_ptr<FinalDispositionData>& disposition = nullptr) {
        Begin(items, type);
        Finish(location, disposition);
    }
    static void Begin(const std::shared_ptr<StoredItemList>& items, int32_t type) {
        GetStores();
        const auto picked = std::make_shared<ObjectVector>();
        for (int32_t i = 0; i < items->Count(); ++i) picked->Add(items->ItemAt(i));
        GetActions().BeginTransaction(type, picked);
    }
    void Finish(int32_t location, const std::shared_ptr<FinalDispositionData>& disposition = nullptr) {
        const auto xfer = std::make_shared<TransferData>();
        xfer->Location = Location(location);
        xfer->ReceivedBy = xfer->ReceivedFrom = 7;
        xfer->DateReceived = m_clock.Now();
        xfer->Reason = 1;
        xfer->FinalDisposition = disposition;
        GetActions().ProcessTransaction(xfer);
    }
    // A line for each rule that is broken, with its faults.
    std::string BrokenRules() const {
        std::string text;
        for (const RuleCheck& check : VerifyHostSchema(m_path, 1000))
            for (const std::string& fault : check.examples) text += check.rule + ": " + fault + "\n";
        return text;
    }
    int64_t Number(const char* sql) { return SQLite::Database(m_path).execAndGet(sql).getInt64(); }

    const ScratchFolder m_folder;
    const std::string m_path = m_folder.In("records.db");
    const std::shared_ptr<RecordingThumbnails> m_thumbnails = std::make_shared<RecordingThumbnails>();
};

// Otherwise the tests below would not show that the list of tables is complete. The view needs more columns of
// vehicles.
TEST_F(HostSchema, HasNothingButTheTablesAndColumnsThatAreNeeded) {
    std::set<std::string> needed, present;
    for (const HostTable& table : HostTables())
        for (const char* column : table.columns) needed.insert(std::string(table.name) + "." + column);
    for (const char* shown : {"RegStateCode", "VehYear", "ColorCode", "MakeCode", "VehModel"})
        needed.insert(std::string("Vehicle.") + shown);
    SQLite::Database database(m_path);
    SQLite::Statement columns(database,
                              "SELECT s.name || '.' || c.name FROM sqlite_schema s, pragma_table_xinfo(s.name) c WHERE "
                              "s.type IN ('table', 'view') AND s.name NOT LIKE 'sqlite_%'");
    while (columns.executeStep()) present.insert(columns.getColumn(0).getString());
    EXPECT_EQ(present, needed);
}

TEST_F(HostSchema, NewEvidenceIsCheckedInAndDisposedOf) {
    ASSERT_EQ(Untracked()->Count(), 2);
    Transfer(Untracked(), TransactionType::SignIn, 2);
    EXPECT_EQ(Untracked()->Count(), 0);
    EXPECT_EQ(Location(2)->StoredItemsCount(), 2);
    EXPECT_EQ(
        Number("SELECT COUNT(*) FROM PropertyTracking WHERE PropertyNo = 1 AND SeqNo = 1 AND StorageLocNo = 2 AND "
               "ReceivedBy = 7 AND CustodyReasonNo = 1"),
        1);
    EXPECT_EQ(Number("SELECT CurrTrackSeq FROM Vehicle WHERE VehicleNo = 101"), 1);

    const auto disposition = std::make_shared<FinalDispositionData>();
    disposition->FinalDisposition = 2;
    disposition->Notes = "Court order 26-117.";
    Transfer(Location(2)->StoredItems(), TransactionType::Dispose, 3, disposition);
    EXPECT_EQ(Location(2)->StoredItemsCount(), 0);
    EXPECT_EQ(Number("SELECT COUNT(*) FROM Property WHERE CurrTrackSeq = 2 AND HasFinalDisposition = 1 AND "
                     "CurrStatusNo = 2 AND DisposalNote = 'Court order 26-117.'"),
              1);
}

TEST_F(HostSchema, AnItemShowsItsChainIncidentsAndPicture) {
    Transfer(Untracked(), TransactionType::SignIn, 2);
    const auto found = StoredItemSearch().WithDescription("*LANTERN*").Execute();
    ASSERT_EQ(found->Count(), 1);
    const StoredItemRef item = found->ItemAt(0);
    EXPECT_EQ(item->DisplayID(), "P-17");
    EXPECT_EQ(item->Location()->FullPath(), "Shelf/Box");
    ASSERT_EQ(item->TrackingRecords().size(), 1u);
    const auto record = item->TrackingRecords()[0];
    EXPECT_EQ(record->ReceivedBy(), "Raman, Priya");
    EXPECT_EQ(record->StorageReason(), "Initial storage");
    EXPECT_EQ(record->DateReceived(), TaggedValue(m_clock.Now()));
    EXPECT_EQ(item->RelatedIncidents().at(0)->DisplayID(), "2026-0431");
    EXPECT_EQ(item->RelatedCases().at(0)->CaseNumber(), "26-117");
    m_environment->loadPicture = [](const std::string&) { return Picture(); };
    EXPECT_TRUE(item->Thumbnail());
    EXPECT_EQ(m_thumbnails->asked, std::vector<std::string>{"pictures/lantern.png"});
}

TEST_F(HostSchema, TagNumbersAndIdentifiersAreFoundInAnyCase) {
    Transfer(Untracked(), TransactionType::SignIn, 2);
    EXPECT_EQ(StoredItemSearch().WithNumber(NumberSearchTypes::VehicleTag, "lvn2077").Execute()->Count(), 1);
    EXPECT_EQ(StoredItemSearch().WithNumber(NumberSearchTypes::PropertyID, "p-17").Execute()->Count(), 1);
    EXPECT_EQ(StoredItemSearch().WithNumber(NumberSearchTypes::CaseNumber, "26-*").Execute()->Count(), 2);
}

TEST_F(HostSchema, LocationsAreCreatedRenamedMovedAndDeleted) {
    Transfer(Untracked(), TransactionType::SignIn, 2);
    const StorageLocationRef drawer = Location(1)->CreateSubLocation("Drawer");
    drawer->Rename("Lower drawer");
    drawer->SetEnabled(false);
    drawer->Move(Location(2));
    EXPECT_EQ(Number("SELECT COUNT(*) FROM StorageLocation WHERE Name = 'Lower drawer' AND Path = '/0/1/2/' AND "
                     "ActiveFlag = 0"),
              1);
    drawer->Delete();
    EXPECT_EQ(Number("SELECT COUNT(*) FROM StorageLocation"), 3);
    EXPECT_THAT(RaisedBy([&] { Location(1)->Delete(); }).Description(), ::testing::HasSubstr("currently in use"));
    EXPECT_EQ(Number("SELECT COUNT(*) FROM StorageLocation"), 3);
}

TEST_F(HostSchema, CustodyDataIsVerified) {
    Transfer(Untracked(), TransactionType::SignIn, 2);
    EXPECT_EQ(BrokenRules(), "");
    SQLite::Database(m_path, SQLite::OPEN_READWRITE)
        .exec(
            "PRAGMA foreign_keys = OFF; DELETE FROM PropertyTracking;"
            "UPDATE StorageLocation SET Path = '/0/9/' WHERE IdNo = 3");
    EXPECT_EQ(
        BrokenRules(),
        "The current custody row of an item is its latest one.: Property 1 names custody row 1, and its latest is "
        "none\n"
        "Every location is in the tree, in the category of its container.: Location 3 (Destroyed) has the path "
        "/0/9/ and the category 8\n"
        "Every reference leads to a record.: Property 1 refers to a record of PropertyTracking that does not "
        "exist\n");
    EXPECT_THAT(RaisedBy([&] { VerifyHostSchema(m_folder.In("none.db"), 20); }).Description(),
                ::testing::HasSubstr("can't be verified"));
}

TEST_F(HostSchema, AnItemThatAnotherProgramHasMovedIsNotTransferred) {
    Transfer(Untracked(), TransactionType::SignIn, 2);
    Begin(Location(2)->StoredItems(), TransactionType::Move);
    SQLite::Database(m_path, SQLite::OPEN_READWRITE)
        .exec(
            "INSERT INTO PropertyTracking SELECT PropertyNo, 2, 7, 7, DateReceived, 1, 1, LastUpdated FROM "
            "PropertyTracking; UPDATE Property SET CurrTrackSeq = 2 WHERE PropertyNo = 1;"
            "INSERT INTO VehicleTracking SELECT VehicleNo, 2, 7, 7, DateReceived, 1, 1, LastUpdated FROM "
            "VehicleTracking; UPDATE Vehicle SET CurrTrackSeq = 2 WHERE VehicleNo = 101");
    m_log.Announce("Actions.ProcessTransaction");
    Finish(1);
    EXPECT_EQ(Number("SELECT (SELECT MAX(SeqNo) FROM PropertyTracking) + (SELECT MAX(SeqNo) FROM VehicleTracking)"), 4);
}

}  // namespace
}  // namespace quellbrook::testing

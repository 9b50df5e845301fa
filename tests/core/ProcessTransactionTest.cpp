#include "tests/core/ProcessTransactionTest.h"

#include "data/CustodyRecords.h"
#include "host/HostDatabase.h"

namespace quellbrook::testing {
namespace {

const Error DatabaseError(8152, "Engine", "The log of the database is full.");

class ProcessTransaction : public ProcessTransactionTest {};

TEST_F(ProcessTransaction, TwoItemsAreCheckedAndSentAsNineStatementsInOneTransaction) {
    while (m_database.AddProperty() < 7) {
    }
    while (m_database.AddVehicle() < 103) {
    }
    int32_t location = m_court;
    while (location < 12)
        location = m_database.AddLocation("Place " + std::to_string(location), StorageLocationTypes::External);
    GetStorageLocationStatic().Refresh();
    const auto recording = InstallRecordingEngine();
    Begin({FindItem(Property, 7), FindItem(Vehicle, 103)});
    const auto xfer = MakeTransfer(12);
    recording->Clear();

    GetActions().ProcessTransaction(xfer);

    EXPECT_EQ(recording->Log(),
              (std::vector<std::string>{
                  "BEGIN",
                  "SELECT Type, ActiveFlag FROM StorageLocation WHERE IdNo = ?",
                  "SELECT PropertyNo, CurrTrackSeq FROM Property WHERE PropertyNo IN (?)",
                  "SELECT VehicleNo, CurrTrackSeq FROM Vehicle WHERE VehicleNo IN (?)",
                  "CREATE TABLE #NextSeqNo (Value INT NOT NULL)",
                  "INSERT INTO #NextSeqNo (Value) VALUES (0)",
                  "DECLARE @NextSeqNo AS INT;SELECT @NextSeqNo = MAX(SeqNo)+1 FROM PropertyTracking WHERE PropertyNo=7 "
                  "GROUP BY PropertyNo;UPDATE #NextSeqNo SET VALUE = COALESCE(@NextSeqNo, 1)",
                  "INSERT INTO PropertyTracking (PropertyNo,SeqNo,ReceivedBy,ReceivedFrom,DateReceived,CustodyReasonNo,"
                  "StorageLocNo,LastUpdated) VALUES (7,(SELECT Value FROM #NextSeqNo),101,102,"
                  "'2026-11-19T08:30:00.000',5,12,'2026-11-20T13:14:15.123')",
                  "UPDATE Property SET CurrTrackSeq=(SELECT Value FROM #NextSeqNo) WHERE PropertyNo=7",
                  "DECLARE @NextSeqNo AS INT;SELECT @NextSeqNo = MAX(SeqNo)+1 FROM VehicleTracking WHERE VehicleNo=103 "
                  "GROUP BY VehicleNo;UPDATE #NextSeqNo SET VALUE = COALESCE(@NextSeqNo, 1)",
                  "INSERT INTO VehicleTracking (VehicleNo,SeqNo,ReceivedBy,ReceivedFrom,DateReceived,CustodyReasonNo,"
                  "StorageLocNo,LastUpdated) VALUES (103,(SELECT Value FROM #NextSeqNo),101,102,"
                  "'2026-11-19T08:30:00.000',5,12,'2026-11-20T13:14:15.123')",
                  "UPDATE Vehicle SET CurrTrackSeq=(SELECT Value FROM #NextSeqNo) WHERE VehicleNo=103",
                  "DROP TABLE #NextSeqNo",
                  "COMMIT",
              }));
    EXPECT_EQ(Chain(Property, 7), "1@12 ");
    EXPECT_EQ(Chain(Vehicle, 103), "1@12 ");
    ExpectCommittedReport("Successfully transferred 2 items");
}

TEST_F(ProcessTransaction, EveryColumnOfTheCustodyRowIsWritten) {
    const int32_t id = AddStored(Property);
    Begin({FindItem(Property, id)});
    const auto xfer = MakeTransfer();
    m_clock.Advance(90000);

    GetActions().ProcessTransaction(xfer);

    const Row row = m_database.QueryRows("SELECT * FROM PropertyTracking WHERE SeqNo = 2").at(0);
    EXPECT_EQ(ToInt32(row.Value("PropertyNo")), id);
    EXPECT_EQ(ToInt32(row.Value("ReceivedBy")), 101);
    EXPECT_EQ(ToInt32(row.Value("ReceivedFrom")), 102);
    EXPECT_EQ(ToText(row.Value("DateReceived")), "2026-11-19T08:30:00.000");
    EXPECT_EQ(ToInt32(row.Value("CustodyReasonNo")), 5);
    EXPECT_EQ(ToInt32(row.Value("StorageLocNo")), m_court);
    EXPECT_EQ(ToText(row.Value("LastUpdated")), "2026-11-20T13:14:15.123") << "the time when the details were created";
    EXPECT_EQ(ToInt32(ValueOf(Property, id, "CurrTrackSeq")), 2);
    EXPECT_EQ(ToInt32(ValueOf(Property, id, "HasFinalDisposition")), 0);
    ExpectCommittedReport("Successfully transferred 1 item");
}

TEST_F(ProcessTransaction, SuccessCarriesTheCommittedDetails) {
    Begin({FindItem(Property, AddStored(Property))});
    const auto xfer = MakeTransfer();
    GetActions().ProcessTransaction(xfer);
    EXPECT_EQ(ToObject<TransferData>(m_seen->actions.back().Payload), xfer);
}

TEST_F(ProcessTransaction, TheFirstCustodyRowGetsNumberOneAndLaterOnesTheGreatestPlusOne) {
    const int32_t id = m_database.AddProperty();
    const int32_t other = AddStored(Property);
    m_database.AddCustodyRow(Property, other, m_court);
    for (int i = 0; i < 3; ++i) {
        Begin({FindItem(Property, id)});
        GetActions().ProcessTransaction(MakeTransfer());
    }
    const std::string court = std::to_string(m_court);
    EXPECT_EQ(Chain(Property, id), "1@" + court + " 2@" + court + " 3@" + court + " ");
    EXPECT_EQ(ToInt32(ValueOf(Property, id, "CurrTrackSeq")), 3);
    EXPECT_EQ(Chain(Property, other), "1@" + std::to_string(m_counter) + " 2@" + court + " ");
}

TEST_F(ProcessTransaction, RowsDeletedByHandInBetweenDoNotMatter) {
    const int32_t id = AddStored(Property);
    for (int i = 0; i < 3; ++i) m_database.AddCustodyRow(Property, id, m_counter);
    m_database.Execute("DROP TRIGGER PropertyTrackingDeleteGuard");
    m_database.Execute("DELETE FROM PropertyTracking WHERE SeqNo IN (2, 3)");

    Begin({FindItem(Property, id)});
    GetActions().ProcessTransaction(MakeTransfer());
    const std::string counter = std::to_string(m_counter), court = std::to_string(m_court);
    EXPECT_EQ(Chain(Property, id), "1@" + counter + " 4@" + counter + " 5@" + court + " ");
}

TEST_F(ProcessTransaction, EachItemOfABatchGetsTheNumberOfItsOwnChain) {
    const int32_t first = AddStored(Property);
    m_database.AddCustodyRow(Property, first, m_counter);
    const int32_t fresh = m_database.AddProperty();
    const int32_t vehicle = AddStored(Vehicle);
    Begin({FindItem(Property, first), FindItem(Property, fresh), FindItem(Vehicle, vehicle)});
    GetActions().ProcessTransaction(MakeTransfer());
    EXPECT_EQ(ToInt32(ValueOf(Property, first, "CurrTrackSeq")), 3);
    EXPECT_EQ(ToInt32(ValueOf(Property, fresh, "CurrTrackSeq")), 1);
    EXPECT_EQ(ToInt32(ValueOf(Vehicle, vehicle, "CurrTrackSeq")), 2);
    ExpectCommittedReport("Successfully transferred 3 items");
}

TEST_F(ProcessTransaction, ADisposalMarksEveryItemOfTheBatch) {
    const int32_t location = m_database.AddLocation("Furnace", StorageLocationTypes::DisposalLocation);
    GetStorageLocationStatic().Refresh();
    const int32_t property = AddStored(Property), untouched = AddStored(Property);
    const int32_t vehicle = AddStored(Vehicle);
    Begin({FindItem(Vehicle, vehicle), FindItem(Property, property)}, TransactionType::Dispose);
    const auto xfer = MakeTransfer(location);
    xfer->FinalDisposition =
        std::make_shared<FinalDispositionData>(FinalDispositionData{4, "Burnt by order of Judge O'Neil"});

    GetActions().ProcessTransaction(xfer);

    for (const auto& [kind, id] : {std::pair(Property, property), std::pair(Vehicle, vehicle)}) {
        EXPECT_EQ(ToInt32(ValueOf(kind, id, "HasFinalDisposition")), 1);
        EXPECT_EQ(ToText(ValueOf(kind, id, "DisposalNote")), "Burnt by order of Judge O'Neil");
        EXPECT_EQ(ToInt32(ValueOf(kind, id, "CurrStatusNo")), 4);
    }
    EXPECT_EQ(ToInt32(ValueOf(Property, untouched, "HasFinalDisposition")), 0);
    EXPECT_TRUE(ValueOf(Property, untouched, "DisposalNote").IsNull());
}

TEST_F(ProcessTransaction, ADisposalAddsOneStatementForEachItem) {
    const int32_t id = AddStored(Property);
    const auto recording = InstallRecordingEngine();
    Begin({FindItem(Property, id)}, TransactionType::Dispose);
    const auto xfer = MakeTransfer();
    xfer->FinalDisposition = std::make_shared<FinalDispositionData>(FinalDispositionData{4, "It's gone"});
    recording->Clear();
    GetActions().ProcessTransaction(xfer);
    ASSERT_EQ(recording->Log().size(), 2u + 3u + 3u + 1u + 2u);
    EXPECT_EQ(recording->Log()[8],
              "UPDATE Property SET HasFinalDisposition=1,DisposalNote='It''s gone',CurrStatusNo=4 "
              "WHERE PropertyNo=" +
                  std::to_string(id));
}

TEST_F(ProcessTransaction, TheTemplateWordInANoteIsReplacedToo) {
    const int32_t id = AddStored(Vehicle);
    Begin({FindItem(Vehicle, id)}, TransactionType::Dispose);
    const auto xfer = MakeTransfer();
    xfer->FinalDisposition = std::make_shared<FinalDispositionData>(FinalDispositionData{4, "The {0} was crushed"});
    GetActions().ProcessTransaction(xfer);
    EXPECT_EQ(ToText(ValueOf(Vehicle, id, "DisposalNote")), "The Vehicle was crushed");
}

TEST_F(ProcessTransaction, AMissingPersonIsStoredAsNull) {
    const int32_t id = AddStored(Property);
    const auto recording = InstallRecordingEngine();
    Begin({FindItem(Property, id)});
    const auto xfer = MakeTransfer();
    xfer->ReceivedBy = Null();
    xfer->ReceivedFrom = Empty();
    recording->Clear();
    GetActions().ProcessTransaction(xfer);
    EXPECT_NE(recording->Log().at(6).find("(SELECT Value FROM #NextSeqNo),NULL,NULL,'"), std::string::npos)
        << recording->Log()[6];
    const Row row = m_database.QueryRows("SELECT * FROM PropertyTracking WHERE SeqNo = 2").at(0);
    EXPECT_TRUE(row.Value("ReceivedBy").IsNull());
    EXPECT_TRUE(row.Value("ReceivedFrom").IsNull());
}

TEST_F(ProcessTransaction, AnEmptyBatchRunsOnlyTheTableStatements) {
    const auto recording = InstallRecordingEngine();
    const std::string before = m_database.Snapshot();
    Begin({});
    const auto xfer = MakeTransfer();
    recording->Clear();
    GetActions().ProcessTransaction(xfer);
    EXPECT_EQ(recording->Log(),
              (Types{"BEGIN", "CREATE TABLE #NextSeqNo (Value INT NOT NULL)",
                     "INSERT INTO #NextSeqNo (Value) VALUES (0)", "DROP TABLE #NextSeqNo", "COMMIT"}));
    EXPECT_EQ(m_database.Snapshot(), before);
    ExpectCommittedReport("Successfully transferred 0 items");
}

TEST_F(ProcessTransaction, AnEmptyBatchNeedsNoDestination) {
    Begin({});
    GetActions().ProcessTransaction(std::make_shared<TransferData>());
    ExpectCommittedReport("Successfully transferred 0 items");
}

TEST_F(ProcessTransaction, ALargeCountIsGrouped) {
    auto items = std::make_shared<ObjectVector>();
    for (int i = 0; i < 1000; ++i) items->Add(MakeItem(m_database.AddProperty()));
    GetActions().BeginTransaction(TransactionType::SignIn, items);
    m_seen->actions.clear();
    GetActions().ProcessTransaction(MakeTransfer());
    ExpectCommittedReport("Successfully transferred 1,000 items");
    EXPECT_EQ(ToInt32(m_database.QueryValue("SELECT COUNT(*) FROM PropertyTracking")), 1000);
}

TEST_F(ProcessTransaction, AFailureAtAnyPlaceLeavesTheDatabaseAsItWas) {
    const int32_t property = AddStored(Property), vehicle = AddStored(Vehicle);
    const auto faulty = InstallFaultyEngine();
    const std::string before = m_database.Snapshot();
    const auto xfer = MakeTransfer();
    xfer->FinalDisposition = std::make_shared<FinalDispositionData>();
    const auto expectNothingTransferred = [&](const std::string& fault) {
        SCOPED_TRACE(fault);
        m_log.Announce(LogSource);
        GetActions().ProcessTransaction(xfer);
        EXPECT_TRUE(faulty->HasStruck());
        EXPECT_EQ(m_database.Snapshot(), before);
        ExpectFailureReport("The log of the database is full.");
        EXPECT_EQ(m_log.Entries().back().message, "The log of the database is full.");
        EXPECT_EQ(m_log.Entries().back().application, "Quellbrook");
    };

    constexpr int statements = 3 + 3 + 2 * 4;
    for (int n = 1; n <= statements; ++n) {
        Begin({FindItem(Property, property), FindItem(Vehicle, vehicle)});
        faulty->FailAtStatement(n, DatabaseError);
        expectNothingTransferred("statement " + std::to_string(n));
    }
    Begin({FindItem(Property, property), FindItem(Vehicle, vehicle)});
    faulty->FailAtBegin(DatabaseError);
    expectNothingTransferred("begin");
    Begin({FindItem(Property, property), FindItem(Vehicle, vehicle)});
    faulty->FailAtCommit(DatabaseError);
    expectNothingTransferred("commit");
    EXPECT_EQ(m_log.Entries().size(), statements + 2u);

    Begin({FindItem(Property, property), FindItem(Vehicle, vehicle)});
    GetActions().ProcessTransaction(xfer);
    ExpectCommittedReport("Successfully transferred 2 items");
}

TEST_F(ProcessTransaction, AViolatedConstraintOfTheLastItemLeavesTheFirstUnchanged) {
    const int32_t first = AddStored(Property), last = AddStored(Property);
    m_database.Execute("INSERT INTO PropertyTracking (PropertyNo, SeqNo, LastUpdated) VALUES (?, 2147483647, ?)",
                       {last, DateTime()});
    Begin({FindItem(Property, first), FindItem(Property, last)});
    const std::string before = m_database.Snapshot();
    m_log.Announce(LogSource);
    GetActions().ProcessTransaction(MakeTransfer());
    EXPECT_EQ(m_database.Snapshot(), before);
    EXPECT_EQ(m_seen->Types().back(), "CART_TRANSACTION_FAILED");
    ExpectIdle();
}

TEST_F(ProcessTransaction, ARootAsDestinationIsRefusedBeforeAnythingIsSent) {
    const int32_t id = AddStored(Property);
    const auto recording = InstallRecordingEngine();
    Begin({FindItem(Property, id)});
    const auto xfer = MakeTransfer();
    xfer->Location = GetStorageLocationStatic().GetRoot(StorageLocationTypes::External);
    recording->Clear();
    m_log.Announce(LogSource);
    GetActions().ProcessTransaction(xfer);
    EXPECT_TRUE(recording->Log().empty());
    const std::string description = "DbPrepStorageLocationField: Cannot use a root location in a SQL statement.";
    ExpectFailureReport(description);
    ExpectLogged(description);
}

TEST_F(ProcessTransaction, NoDestinationIsRefusedBeforeAnythingIsSent) {
    const int32_t id = AddStored(Property);
    const auto recording = InstallRecordingEngine();
    Begin({FindItem(Property, id)});
    const auto xfer = MakeTransfer();
    xfer->Location = nullptr;
    recording->Clear();
    m_log.Announce(LogSource);
    GetActions().ProcessTransaction(xfer);
    EXPECT_TRUE(recording->Log().empty());
    ExpectFailureReport("A record that is needed for this is missing. Refresh and try again.");
}

TEST_F(ProcessTransaction, NoDateOrNoDetailsAtAllAreRefusedBeforeAnythingIsSent) {
    const int32_t id = AddStored(Property);
    const auto recording = InstallRecordingEngine();
    Begin({FindItem(Property, id)});
    const auto xfer = MakeTransfer();
    xfer->DateReceived = Null();
    recording->Clear();
    m_log.Announce(LogSource);
    GetActions().ProcessTransaction(xfer);
    ExpectFailureReport("A value is missing.");

    Begin({MakeItem(id)});
    m_log.Announce(LogSource);
    GetActions().ProcessTransaction(nullptr);
    ExpectFailureReport("A record that is needed for this is missing. Refresh and try again.");
    EXPECT_TRUE(recording->Log().empty());
}

TEST_F(ProcessTransaction, AFailureToStartLoadingIsThrownAndNothingIsWritten) {
    const int32_t id = AddStored(Property);
    Begin({FindItem(Property, id)});
    const std::string before = m_database.Snapshot();
    FailAt("LOADING_STARTED");
    const Error error = RaisedBy([&] { GetActions().ProcessTransaction(MakeTransfer()); });
    EXPECT_EQ(error.Number(), 99);
    EXPECT_EQ(m_seen->Types(), (Types{"LOADING_STARTED", "LOADING_FINISHED"}));
    EXPECT_FALSE(m_stores.Loading->IsLoading());
    EXPECT_EQ(m_stores.Cart->GetItems()->Count(), 1);
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(ProcessTransaction, ItemsHeldElsewhereSeeTheChangeOnlyAfterRefresh) {
    const int32_t id = AddStored(Property);
    const auto held = FindItem(Property, id);
    Begin({FindItem(Property, id)});
    GetActions().ProcessTransaction(MakeTransfer());
    EXPECT_EQ(held->Location()->ID(), m_counter);
    held->Refresh();
    EXPECT_EQ(held->Location()->ID(), m_court);
    EXPECT_EQ(held->TrackingRecords().size(), 2u);
}

}  // namespace
}  // namespace quellbrook::testing

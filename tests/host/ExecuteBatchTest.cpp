#include "base/Environment.h"
#include "base/Error.h"
#include "base/Text.h"
#include "database/SqliteEngine.h"
#include "host/HostDatabase.h"
#include "host/HostServices.h"
#include "host/TransferOutcome.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/InterruptingEngine.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingEngine.h"
#include "tests/support/RecordingErrorLog.h"
#include "tests/support/TestDatabase.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <new>

using namespace quellbrook;
using namespace quellbrook::testing;

namespace {

using Kind = StoredItemTypes;
using Statements = std::vector<std::string>;

// The batch of a transfer, exactly as the model composes it.
Statements Transfer(const std::vector<std::pair<std::string, int>>& items, int location, const std::string& note = "") {
    Statements statements = {"CREATE TABLE #NextSeqNo (Value INT NOT NULL)",
                             "INSERT INTO #NextSeqNo (Value) VALUES (0)"};
    for (const auto& [table, id] : items) {
        const auto add = [&, kind = table](const std::string& text) {
            statements.push_back(Replace(text, "{0}", kind));
        };
        const std::string key = std::to_string(id);
        add("DECLARE @NextSeqNo AS INT;SELECT @NextSeqNo = MAX(SeqNo)+1 FROM {0}Tracking WHERE {0}No=" + key +
            " GROUP BY {0}No;UPDATE #NextSeqNo SET VALUE = COALESCE(@NextSeqNo, 1)");
        add("INSERT INTO {0}Tracking ({0}No,SeqNo,ReceivedBy,ReceivedFrom,DateReceived,CustodyReasonNo,StorageLocNo,"
            "LastUpdated) VALUES (" +
            key + ",(SELECT Value FROM #NextSeqNo),NULL,5,'2026-11-20T13:14:00.000',3," + std::to_string(location) +
            ",'2026-11-20T13:14:15.123')");
        add("UPDATE {0} SET CurrTrackSeq=(SELECT Value FROM #NextSeqNo) WHERE {0}No=" + key);
        if (!note.empty())
            add("UPDATE {0} SET HasFinalDisposition=1,DisposalNote=" + GetHostDatabase().PrepareText(note) +
                ",CurrStatusNo=4 WHERE {0}No=" + key);
    }
    statements.push_back("DROP TABLE #NextSeqNo");
    return statements;
}

class ExecuteBatchTest : public ::testing::Test {
protected:
    ExecuteBatchTest() {
        m_location = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
        m_property = m_database.AddProperty();
        m_vehicle = m_database.AddVehicle();
        m_database.AddCustodyRow(Kind::Property, m_property, m_location);
    }

    Statements TwoItems(const std::string& note = "") {
        return Transfer({{"Property", m_property}, {"Vehicle", m_vehicle}}, m_location, note);
    }
    TaggedValue Value(const std::string& sql) { return m_database.QueryValue(sql); }
    static void ExpectNoTemporaryTable() {
        const char* const query = "SELECT Value FROM #NextSeqNo";
        EXPECT_THAT(RaisedBy([&] { GetHostDatabase().QueryRows(query); }).Description(),
                    ::testing::AllOf(::testing::HasSubstr("#NextSeqNo"),
                                     ::testing::AnyOf(::testing::HasSubstr("no such table"),
                                                      ::testing::HasSubstr("does not exist"))));
    }
    void ExpectNothingRemains(const std::string& before) {
        EXPECT_EQ(m_database.Snapshot(), before);
        ExpectNoTemporaryTable();
        GetHostDatabase().ExecuteBatch(TwoItems());
        EXPECT_NE(m_database.Snapshot(), before);
    }

    TestDatabase m_database;
    int32_t m_location = 0;
    int32_t m_property = 0;
    int32_t m_vehicle = 0;
};

}  // namespace

TEST_F(ExecuteBatchTest, BothKindsOfItemsAreTransferredInOneTransaction) {
    const auto recorder = std::make_shared<RecordingEngine>(m_database.GetEngine());
    m_database.Install(recorder);
    const Statements statements = TwoItems();
    ASSERT_EQ(statements.size(), 9u);
    GetHostDatabase().ExecuteBatch(statements);

    Statements expected = {"BEGIN"};
    expected.insert(expected.end(), statements.begin(), statements.end());
    expected.push_back("COMMIT");
    EXPECT_EQ(recorder->Log(), expected);

    const auto row = GetHostDatabase().QueryRow("SELECT * FROM PropertyTracking WHERE SeqNo = 2");
    ASSERT_TRUE(row);
    EXPECT_EQ(row->Value("PropertyNo"), TaggedValue(m_property));
    EXPECT_TRUE(row->Value("ReceivedBy").IsNull());
    EXPECT_EQ(row->Value("ReceivedFrom"), TaggedValue(5));
    EXPECT_EQ(row->Value("DateReceived"), TaggedValue(DateTime::FromParts({2026, 11, 20, 13, 14, 0, 0})));
    EXPECT_EQ(row->Value("CustodyReasonNo"), TaggedValue(3));
    EXPECT_EQ(row->Value("StorageLocNo"), TaggedValue(m_location));
    EXPECT_EQ(row->Value("LastUpdated"), TaggedValue(DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123})));
    EXPECT_EQ(Value("SELECT CurrTrackSeq FROM Property"), TaggedValue(2));
    EXPECT_EQ(Value("SELECT SeqNo FROM VehicleTracking"), TaggedValue(1));
    EXPECT_EQ(Value("SELECT CurrTrackSeq FROM Vehicle"), TaggedValue(1));
    ExpectNoTemporaryTable();
}

TEST_F(ExecuteBatchTest, TheNextNumberFollowsTheGreatestEvenWhereRowsWereDeleted) {
    for (int i = 0; i < 3; ++i) m_database.AddCustodyRow(Kind::Property, m_property, m_location);
    m_database.Execute("DROP TRIGGER PropertyTrackingDeleteGuard");
    m_database.Execute("DELETE FROM PropertyTracking WHERE SeqNo IN (1, 3)");
    GetHostDatabase().ExecuteBatch(TwoItems());
    EXPECT_EQ(Value("SELECT MAX(SeqNo) FROM PropertyTracking"), TaggedValue(5));
    EXPECT_EQ(Value("SELECT CurrTrackSeq FROM Property"), TaggedValue(5));
}

TEST_F(ExecuteBatchTest, AHundredItemsGetTheirOwnRows) {
    std::vector<std::pair<std::string, int>> items;
    for (int i = 0; i < 100; ++i) {
        const int32_t id = m_database.AddProperty();
        for (int rows = 0; rows < i % 4; ++rows) m_database.AddCustodyRow(Kind::Property, id, m_location);
        items.emplace_back("Property", id);
    }
    GetHostDatabase().ExecuteBatch(Transfer(items, m_location));
    for (int i = 0; i < 100; ++i) {
        const std::string id = std::to_string(items[static_cast<size_t>(i)].second);
        EXPECT_EQ(Value("SELECT CurrTrackSeq FROM Property WHERE PropertyNo = " + id), TaggedValue(i % 4 + 1));
        EXPECT_EQ(Value("SELECT MAX(SeqNo) FROM PropertyTracking WHERE PropertyNo = " + id), TaggedValue(i % 4 + 1));
    }
}

TEST_F(ExecuteBatchTest, ANoteIsStoredAsTyped) {
    const std::string note = "Bob's \"{1}\" #NextSeqNo @NextSeqNo; DROP TABLE Property --\r\n[TOP] ? ?1 %";
    GetHostDatabase().ExecuteBatch(TwoItems(note));
    for (const char* table : {"Property", "Vehicle"}) {
        EXPECT_EQ(Value(std::string("SELECT DisposalNote FROM ") + table), TaggedValue(note));
        EXPECT_EQ(Value(std::string("SELECT HasFinalDisposition FROM ") + table), TaggedValue(1));
        EXPECT_EQ(Value(std::string("SELECT CurrStatusNo FROM ") + table), TaggedValue(4));
    }
}

TEST_F(ExecuteBatchTest, ABatchWithoutItemsRunsTheTableStatementsAlone) {
    const std::string before = m_database.Snapshot();
    GetHostDatabase().ExecuteBatch(Transfer({}, m_location));
    EXPECT_EQ(m_database.Snapshot(), before);
    GetHostDatabase().ExecuteBatch({});
}

TEST_F(ExecuteBatchTest, AFailureAtEveryPlaceLeavesNothingOfTheBatch) {
    const Statements statements = TwoItems("note");
    ASSERT_EQ(statements.size(), 11u);
    const std::string before = m_database.Snapshot();
    const auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    const auto expectFault = [&] {
        const Error error = RaisedBy([&] { GetHostDatabase().ExecuteBatch(statements); });
        EXPECT_EQ(error.Number(), 4711);
        EXPECT_EQ(error.Source(), "Fault");
        EXPECT_EQ(error.Description(), "The disk is on fire.");
        EXPECT_TRUE(faults->HasStruck());
        EXPECT_EQ(m_database.Snapshot(), before);
        ExpectNoTemporaryTable();
    };
    const Error fault(4711, "Fault", "The disk is on fire.");

    faults->FailAtOpen(fault);
    RaisedBy([&] { GetHostDatabase().ExecuteBatch(statements); });
    EXPECT_TRUE(faults->HasStruck());
    EXPECT_EQ(m_database.Snapshot(), before);

    faults->FailAtBegin(fault);
    expectFault();
    for (int n = 1; n <= 11; ++n) {
        faults->FailAtStatement(n, fault);
        expectFault();
    }
    faults->FailAtCommit(fault);
    expectFault();
    ExpectNothingRemains(before);
}

TEST_F(ExecuteBatchTest, ALostConnectionLeavesNothingAndTheNextCallHasAFreshOne) {
    const std::string before = m_database.Snapshot();
    const auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    faults->BreakConnectionWithFault(true);
    faults->FailAtStatement(5, Error(4711, "Fault", "The link is gone."));
    EXPECT_EQ(RaisedBy([&] { GetHostDatabase().ExecuteBatch(TwoItems()); }).Number(), 4711);
    ExpectNothingRemains(before);
}

TEST_F(ExecuteBatchTest, ALackOfMemoryAtAnyStatementLeavesNothingOfTheBatch) {
    const Statements statements = TwoItems();
    const std::string before = m_database.Snapshot();
    const auto interrupting = std::make_shared<InterruptingEngine>(m_database.GetEngine());
    const auto recorder = std::make_shared<RecordingEngine>(interrupting);
    m_database.Install(recorder);
    for (size_t n = 0; n < statements.size(); ++n) {
        recorder->Clear();
        size_t left = n;
        std::function<void()> countDown = [&] {
            if (left-- == 0) throw std::bad_alloc();
            interrupting->BeforeStatement(countDown);
        };
        interrupting->BeforeStatement(countDown);
        EXPECT_THROW(GetHostDatabase().ExecuteBatch(statements), std::bad_alloc);
        EXPECT_EQ(recorder->Log().back(), "ROLLBACK") << n;
        EXPECT_EQ(m_database.Snapshot(), before) << n;
    }
    m_database.Install(m_database.GetEngine());
    ExpectNothingRemains(before);
}

TEST_F(ExecuteBatchTest, ALackOfMemoryWhileFindingOutLeavesTheOutcomeUnknown) {
    struct OutOfMemory : FaultInjectingEngine {
        using FaultInjectingEngine::FaultInjectingEngine;
        bool WasCommitted(const std::string&) override { throw std::bad_alloc(); }
    };
    EnvironmentScope environment;
    RecordingErrorLog log;
    environment->errorLog = &log;
    log.Announce("HostDatabase.ExecuteBatch");
    const auto engine = std::make_shared<OutOfMemory>(m_database.GetEngine());
    m_database.Install(engine);
    engine->FailAfterCommit(Error(4711, "Fault", "The link is gone."));
    EXPECT_THROW(GetHostDatabase().ExecuteBatch(TwoItems()), UnknownOutcome);
    log.Verify();
}

TEST_F(ExecuteBatchTest, AStatementThatTheDatabaseRefusesLeavesNothingOfTheBatch) {
    const std::string before = m_database.Snapshot();
    Statements statements = Transfer({{"Property", m_property}, {"Vehicle", 999}}, m_location);
    EXPECT_EQ(RaisedBy([&] { GetHostDatabase().ExecuteBatch(statements); }).Number(), ErrorNumber::IntegrityViolation);
    ExpectNothingRemains(before);
}

TEST_F(ExecuteBatchTest, AFailingStatementInTheMiddleLeavesNothingOfTheBatch) {
    const std::string before = m_database.Snapshot();
    Statements statements = TwoItems();
    statements.insert(statements.begin() + 5, "UPDATE Nowhere SET A=1");
    const Error error = RaisedBy([&] { GetHostDatabase().ExecuteBatch(statements); });
    EXPECT_THAT(error.Description(), ::testing::HasSubstr("(no such table: Nowhere)"));
    ExpectNothingRemains(before);
}

TEST_F(ExecuteBatchTest, AFailureEndsInARollbackAndInNothingElse) {
    const auto recorder = std::make_shared<RecordingEngine>(m_database.GetEngine());
    m_database.Install(recorder);
    RaisedBy([] {
        GetHostDatabase().ExecuteBatch({"UPDATE Setting SET Value='x'", "UPDATE Nowhere SET A=1", "SELECT 1"});
    });
    EXPECT_EQ(recorder->Log(),
              (Statements{"BEGIN", "UPDATE Setting SET Value='x'", "UPDATE Nowhere SET A=1", "ROLLBACK"}));
}

TEST_F(ExecuteBatchTest, AFailingCommitEndsInARollback) {
    const auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    const auto recorder = std::make_shared<RecordingEngine>(faults);
    m_database.Install(recorder);
    faults->FailAtCommit(Error(4711, "Fault", "The disk is full."));
    EXPECT_EQ(RaisedBy([] { GetHostDatabase().ExecuteBatch({"UPDATE Setting SET Value='x'"}); }).Number(), 4711);
    EXPECT_EQ(recorder->Log(), (Statements{"BEGIN", "UPDATE Setting SET Value='x'", "COMMIT", "ROLLBACK"}));
}

TEST_F(ExecuteBatchTest, TwoWorkstationsThatWriteOneNumberFailOneBatchAsAWhole) {
    Statements statements = TwoItems();
    statements.insert(statements.begin() + 3, "INSERT INTO PropertyTracking (PropertyNo,SeqNo,LastUpdated) VALUES (" +
                                                  std::to_string(m_property) + ",2,'2026-11-20T00:00:00.000')");
    const std::string before = m_database.Snapshot();
    EXPECT_EQ(RaisedBy([&] { GetHostDatabase().ExecuteBatch(statements); }).Number(), ErrorNumber::IntegrityViolation);
    ExpectNothingRemains(before);
}

TEST_F(ExecuteBatchTest, ADatabaseThatStaysLockedFailsTheBatch) {
    m_database.Install(SqliteEngine::Open(m_database.Path(), 20));
    m_database.Execute("BEGIN IMMEDIATE");
    const Error error = RaisedBy([&] { GetHostDatabase().ExecuteBatch(TwoItems()); });
    m_database.Execute("COMMIT");
    EXPECT_EQ(error.Source(), "SqliteConnection.Begin");
    EXPECT_EQ(error.Description(),
              "Another program is writing to the database and did not finish in time. Try again. (database is locked)");
    ExpectNothingRemains(m_database.Snapshot());
}

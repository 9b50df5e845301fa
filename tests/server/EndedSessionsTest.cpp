// Sessions that the administrator ends while workstations write batches. QUELLBROOK_LONG multiplies the counts by ten.

#include "tests/server/ServerTest.h"
#include "tests/support/IgnoredErrorLog.h"
#include "tests/support/WorkstationPrograms.h"

#include <random>

namespace quellbrook::testing {
namespace {

class EndedSessions : public ServerTest {
protected:
    EndedSessions() { m_environment->errorLog = &m_ignored; }

    // Ends one session that works on a batch; returns whether there was one.
    bool EndAnySession() {
        return ToInt32(m_database.QueryValue(
                   "SELECT COUNT(pg_terminate_backend(pid)) FROM (SELECT pid FROM pg_stat_activity WHERE datname = "
                   "current_database() AND pid <> pg_backend_pid() AND backend_xid IS NOT NULL ORDER BY random() "
                   "LIMIT 1) AS AnySession")) > 0;
    }

    IgnoredErrorLog m_ignored;
};

TEST_F(EndedSessions, LeaveNoHalfBatchAtAnyMoment) {
    constexpr int workstations = 4;
    const int wanted = 30 * LongTestScale(), batches = 30 * LongTestScale();
    WorkstationRecords records(m_database);
    records.AddItems(200, m_database.AddLocation("Shelf", StorageLocationTypes::Internal));
    WorkstationPrograms programs(m_database);
    std::mt19937 random(1);
    for (int i = 0; i < workstations; ++i) programs.Start(TransferTask, batches);
    int ended = 0;
    while (const auto report = programs.Next()) {
        records.Record(*report);
        if (ended < wanted && random() % 4 == 0 && EndAnySession()) ++ended;
    }
    records.ExpectKept();
    EXPECT_EQ(ended, wanted);
    EXPECT_EQ(records.Written(), workstations * batches);
    EXPECT_GT(records.Refused(), 0);
    EXPECT_EQ(records.Unknown(), 0);
}

}  // namespace
}  // namespace quellbrook::testing

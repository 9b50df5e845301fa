// Eight processes that work on one department at the same time, and some that are killed meanwhile. QUELLBROOK_LONG
// multiplies the counts by ten.

#include "tests/support/WorkstationPrograms.h"

#include "tests/support/DatabaseTest.h"

#include <algorithm>
#include <random>

namespace quellbrook::testing {
namespace {

constexpr int workstations = 8;

bool Contains(const std::string& text, std::initializer_list<const char*> parts) {
    return std::any_of(parts.begin(), parts.end(),
                       [&](const char* part) { return text.find(part) != std::string::npos; });
}

class WorkstationProgramsTest : public DatabaseTest {
protected:
    static constexpr int itemCount = 500;

    WorkstationProgramsTest() {
        const int32_t room = m_database.AddLocation("Room", StorageLocationTypes::Internal);
        for (const char* name : {"Bin 1", "Bin 2", "Bin 3", "Bin 4", "Bin 5", "Bin 6"})
            m_database.AddLocation(name, StorageLocationTypes::Internal, room);
        m_records.AddItems(itemCount, room);
    }

    // An item or a destination that has changed since; nothing else refuses a batch.
    static bool IsStale(const std::string& description) {
        return Contains(description,
                        {"has changed since it was added", "have changed since they were added", "The destination '"});
    }

    void ExpectNoRow(const std::string& query) { EXPECT_TRUE(m_database.QueryRows(query).empty()) << query; }

    WorkstationRecords m_records{m_database};
    WorkstationPrograms m_programs{m_database};
};

TEST_F(WorkstationProgramsTest, BatchesOfTheSameItemsAreWrittenAsAWholeAndNoneFromAStaleState) {
    const int batches = 100 * LongTestScale();
    for (int i = 0; i < workstations; ++i) m_programs.Start(TransferTask, batches);
    while (const auto report = m_programs.Next()) {
        m_records.Record(*report);
        if (report->kind == WorkstationReport::Kind::Refused) {
            EXPECT_TRUE(IsStale(report->text.data()));
        }
    }
    m_records.ExpectKept();
    EXPECT_EQ(m_records.Written(), workstations * batches);
    EXPECT_GT(m_records.Refused(), 0);
    EXPECT_EQ(m_records.Unknown(), 0);
    EXPECT_EQ(m_records.KeptWithoutReport(), 0);
}

TEST_F(WorkstationProgramsTest, LocationsThatOthersMoveRenameAndDeleteMeanwhileRemainATree) {
    const int changes = 100 * LongTestScale();
    std::set<int> clerks;
    for (int i = 0; i < workstations; ++i) {
        if (i % 2 == 0)
            m_programs.Start(TransferTask, changes);
        else
            clerks.insert(m_programs.Start(LocationTask, changes));
    }
    int done = 0, refused = 0;
    while (const auto report = m_programs.Next()) {
        const std::string text = report->text.data();
        if (clerks.count(report->workstation) == 0) {
            m_records.Record(*report);
            if (report->kind == WorkstationReport::Kind::Refused) {
                EXPECT_TRUE(IsStale(text) || text.starts_with("deadlock detected")) << text;
            }
        } else if (report->kind == WorkstationReport::Kind::Written) {
            ++done;
        } else if (report->kind == WorkstationReport::Kind::Refused) {
            ++refused;
            EXPECT_FALSE(Contains(text, {"could not be found out"})) << text;
        }
    }
    m_records.ExpectKept();
    EXPECT_EQ(m_records.Written(), workstations / 2 * changes);
    EXPECT_GT(done, 0);
    EXPECT_GT(refused, 0);

    ExpectNoRow(
        "SELECT IdNo FROM StorageLocation l WHERE Path <> '/0/' AND NOT EXISTS (SELECT 1 FROM StorageLocation c WHERE "
        "c.Path || c.IdNo || '/' = l.Path AND c.Type = l.Type)");
    ExpectNoRow("SELECT LOWER(Name) FROM StorageLocation GROUP BY LOWER(Path), Type, LOWER(Name) HAVING COUNT(*) > 1");
    for (const std::string kind : {"Property", "Vehicle"})
        ExpectNoRow("SELECT i." + kind + "No FROM " + kind + " i INNER JOIN " + kind + "Tracking t ON t." + kind +
                    "No = i." + kind + "No AND t.SeqNo = i.CurrTrackSeq LEFT JOIN StorageLocation l ON l.IdNo = " +
                    "t.StorageLocNo WHERE l.IdNo IS NULL");
}

TEST_F(WorkstationProgramsTest, AProgramThatIsKilledLeavesNoHalfBatchAndTheNextOneGoesOn) {
    const int kills = 30 * LongTestScale();
    const int batches = 10 * LongTestScale();
    std::mt19937 random(20261120);
    std::set<int> inBatch, killed;
    for (int i = 0; i < workstations; ++i) m_programs.Start(TransferTask, batches);
    while (const auto report = m_programs.Next()) {
        m_records.Record(*report);
        if (report->kind == WorkstationReport::Kind::Refused) {
            EXPECT_TRUE(IsStale(report->text.data()));
        }
        if (report->kind == WorkstationReport::Kind::Begins && !killed.contains(report->workstation))
            inBatch.insert(report->workstation);
        else
            inBatch.erase(report->workstation);
        if (inBatch.empty() || m_programs.Started() == workstations + kills || random() % 8 > 0) continue;
        const int victim = *std::next(inBatch.begin(), static_cast<long>(random() % inBatch.size()));
        m_programs.Kill(victim);
        killed.insert(victim);
        inBatch.erase(victim);
        m_programs.Start(TransferTask, batches);
    }
    m_records.ExpectKept();
    EXPECT_EQ(m_programs.Started(), workstations + kills);
    EXPECT_GE(m_records.Written(), workstations * batches);
    RecordProperty("kept without a report", m_records.KeptWithoutReport());
}

}  // namespace
}  // namespace quellbrook::testing

// Many workstations at once, and sessions that end at any moment. QUELLBROOK_LONG multiplies the counts by ten.

#include "base/Error.h"
#include "base/ErrorLog.h"
#include "base/Text.h"
#include "host/HostDatabase.h"
#include "host/TransferOutcome.h"
#include "tests/server/ServerTest.h"

#include <atomic>
#include <random>
#include <set>
#include <thread>

namespace quellbrook::testing {
namespace {

using Statements = std::vector<std::string>;

int Scale() { return std::getenv("QUELLBROOK_LONG") ? 10 : 1; }

class IgnoredLog : public ErrorLog {
public:
    void Log(const std::string&, const std::string&, const std::string&) override {}
};

class Workstations : public ServerTest {
protected:
    static constexpr int itemCount = 500;

    Workstations() {
        m_environment->errorLog = &m_ignored;
        m_shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
        for (int i = 0; i < itemCount; ++i) m_database.AddProperty();
    }

    std::set<int> SomeItems(std::mt19937& random) const {
        std::set<int> items;
        for (unsigned i = 0, count = 1 + random() % 20; i < count; ++i)
            items.insert(1 + static_cast<int>(random() % itemCount));
        return items;
    }

    // The statements of a transfer.
    Statements Transfer(const std::set<int>& items) const {
        Statements statements = {"CREATE TABLE #NextSeqNo (Value INT NOT NULL)",
                                 "INSERT INTO #NextSeqNo (Value) VALUES (0)"};
        for (const int item : items) {
            const std::string key = std::to_string(item);
            statements.push_back(
                "DECLARE @NextSeqNo AS INT;SELECT @NextSeqNo = MAX(SeqNo)+1 FROM PropertyTracking WHERE "
                "PropertyNo=" +
                key +
                " GROUP BY PropertyNo;UPDATE #NextSeqNo SET VALUE = "
                "COALESCE(@NextSeqNo, 1)");
            statements.push_back("INSERT INTO PropertyTracking (PropertyNo,SeqNo,StorageLocNo,LastUpdated) VALUES (" +
                                 key + ",(SELECT Value FROM #NextSeqNo)," + std::to_string(m_shelf) +
                                 ",'2026-11-20T13:14:15.123')");
            statements.push_back("UPDATE Property SET CurrTrackSeq=(SELECT Value FROM #NextSeqNo) WHERE PropertyNo=" +
                                 key);
        }
        statements.push_back("DROP TABLE #NextSeqNo");
        return statements;
    }

    static std::string LockText(const std::set<int>& items) {
        Statements keys;
        for (const int item : items) keys.push_back(std::to_string(item));
        return "SELECT PropertyNo, CurrTrackSeq FROM Property WHERE PropertyNo IN (" + Join(keys, ",") + ")";
    }

    void ExpectWholeChains(int64_t rows) {
        EXPECT_EQ(ToInt32(m_database.QueryValue("SELECT COUNT(*) FROM PropertyTracking")), rows);
        EXPECT_EQ(ToInt32(m_database.QueryValue(
                      "SELECT COUNT(*) FROM (SELECT PropertyNo FROM PropertyTracking GROUP BY PropertyNo "
                      "HAVING MIN(SeqNo) <> 1 OR MAX(SeqNo) <> COUNT(*)) t")),
                  0);
        EXPECT_EQ(ToInt32(m_database.QueryValue(
                      "SELECT COUNT(*) FROM Property p WHERE p.CurrTrackSeq IS DISTINCT FROM "
                      "(SELECT MAX(SeqNo) FROM PropertyTracking t WHERE t.PropertyNo = p.PropertyNo)")),
                  0);
        EXPECT_EQ(ToInt32(m_database.QueryValue("SELECT COUNT(*) FROM CurrentPlace")),
                  ToInt32(m_database.QueryValue("SELECT COUNT(*) FROM Property WHERE CurrTrackSeq IS NOT NULL")));
    }

    IgnoredLog m_ignored;
    int32_t m_shelf = 0;
};

TEST_F(Workstations, EightOfThemKeepEveryChainWhole) {
    const int batches = 100 * Scale();
    std::atomic<int64_t> written = 0;
    std::atomic<int> failures = 0;
    std::vector<std::thread> workstations;
    for (unsigned number = 0; number < 8; ++number)
        workstations.emplace_back([&, number] {
            std::mt19937 random(number);
            const std::unique_ptr<Connection> connection = m_database.GetEngine()->Open();
            for (int i = 0; i < batches; ++i) {
                const std::set<int> items = SomeItems(random);
                try {
                    connection->Begin();
                    connection->Query(LockText(items), {}, [](const Row&) { return true; });
                    connection->ExecuteAll(Transfer(items));
                    connection->Commit();
                    written += static_cast<int64_t>(items.size());
                } catch (const Error&) {
                    connection->Rollback();
                    ++failures;
                }
            }
        });
    for (std::thread& workstation : workstations) workstation.join();
    EXPECT_EQ(failures, 0);
    ExpectWholeChains(written);
}

TEST_F(Workstations, ASessionThatEndsAtAnyMomentLeavesNoHalfBatch) {
    const int wanted = 30 * Scale();
    std::atomic<int> ended = 0;
    std::thread administrator([&] {
        OdbcConnection connection(TestServer(), {});
        const char* const end =
            "SELECT COUNT(pg_terminate_backend(pid)) AS N FROM pg_stat_activity WHERE datname = current_database() "
            "AND pid <> pg_backend_pid() AND query LIKE '%#NextSeqNo%' AND state <> 'idle'";
        while (ended < wanted) {
            connection.ExecuteNative("SELECT pg_sleep(0.2 * random())");
            connection.QueryNative(end, {}, [&](const Row& row) {
                ended += ToInt32(row.At(0));
                return true;
            });
        }
    });
    std::mt19937 random(1);
    int64_t written = 0;
    int done = 0, failed = 0, unknown = 0;
    while (ended < wanted) {
        const std::set<int> items = SomeItems(random);
        try {
            GetHostDatabase().ExecuteBatch(Transfer(items));
            written += static_cast<int64_t>(items.size());
            ++done;
        } catch (const UnknownOutcome&) {
            ++unknown;
        } catch (const Error&) {
            ++failed;
        }
    }
    administrator.join();
    EXPECT_EQ(unknown, 0);
    EXPECT_GT(failed, 0);
    EXPECT_GT(done, 0);
    ExpectWholeChains(written);
}

}  // namespace
}  // namespace quellbrook::testing

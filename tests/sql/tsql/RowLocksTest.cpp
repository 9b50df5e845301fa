#include "sql/tsql/RowLocks.h"

#include <gtest/gtest.h>

namespace quellbrook::sql {
namespace {

TEST(RowLocks, ASelectOfOneTableLocksItsRowsInTheirOrder) {
    const std::string query = "SELECT PropertyNo, CurrTrackSeq FROM Property WHERE PropertyNo IN (?,?)";
    EXPECT_EQ(LocksForPostgreSql(query), " ORDER BY 1 FOR UPDATE");
    EXPECT_EQ(WithLocksForSqlServer(query),
              "SELECT PropertyNo, CurrTrackSeq FROM Property WITH (UPDLOCK, HOLDLOCK) WHERE PropertyNo IN (?,?)");
}

TEST(RowLocks, AnOrderOfItsOwnIsKept) {
    EXPECT_EQ(LocksForPostgreSql("SELECT Name FROM StorageLocation ORDER BY Name"), " FOR UPDATE");
}

TEST(RowLocks, OtherQueriesLockNothing) {
    for (const char* query :
         {"SELECT MAX(SeqNo) FROM t", "SELECT DISTINCT a FROM t", "SELECT a FROM t UNION SELECT 1",
          "SELECT a FROM t INNER JOIN u ON t.a = u.a", "SELECT COUNT(a) FROM t", "SELECT a FROM t GROUP BY a",
          "SELECT a FROM (SELECT a FROM t) q", "SELECT a FROM t WHERE a IN (SELECT b FROM u)", "SELECT 1",
          "SELECT a FROM #t", "UPDATE t SET a = 1"}) {
        EXPECT_EQ(LocksForPostgreSql(query), "");
        EXPECT_EQ(WithLocksForSqlServer(query), query);
    }
}

}  // namespace
}  // namespace quellbrook::sql

#include "database/SqliteError.h"

#include "base/Error.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

#include <sqlite3.h>

#include <set>

using namespace quellbrook;
using namespace quellbrook::testing;

namespace {

Error RaisedFor(int code, const std::string& words) {
    return RaisedBy([&] { RaiseSqliteError(code, words, "Source"); });
}

}  // namespace

TEST(SqliteError, EveryFailureSaysWhatToDoAndQuotesTheDatabase) {
    std::set<std::string> sentences;
    const int codes[] = {SQLITE_BUSY,
                         SQLITE_FULL,
                         SQLITE_IOERR_FSYNC,
                         SQLITE_CORRUPT,
                         SQLITE_NOMEM,
                         SQLITE_READONLY_DBMOVED,
                         SQLITE_CANTOPEN,
                         SQLITE_TOOBIG,
                         SQLITE_PROTOCOL,
                         SQLITE_CONSTRAINT_FOREIGNKEY,
                         SQLITE_CONSTRAINT_UNIQUE,
                         SQLITE_CONSTRAINT_CHECK};
    for (const int code : codes) {
        const std::string description = RaisedFor(code, "the words").Description();
        EXPECT_TRUE(description.ends_with(". (the words)")) << description;
        EXPECT_TRUE(sentences.insert(description).second) << description;
    }
}

TEST(SqliteError, AMissingTableOrColumnIsToldFromOtherRefusals) {
    const auto isStructure = [](const char* words) {
        return RaisedFor(SQLITE_ERROR, words).Description().find("structure") != std::string::npos;
    };
    EXPECT_TRUE(isStructure("no such table: AccountRight"));
    EXPECT_TRUE(isStructure("table Setting has no column named X"));
    EXPECT_FALSE(isStructure("LIKE or GLOB pattern too complex"));
}

TEST(SqliteError, RelatedCodesHaveTheSameSentence) {
    for (const auto& [one, other] :
         {std::pair(SQLITE_BUSY, SQLITE_LOCKED), std::pair(SQLITE_BUSY, SQLITE_BUSY_SNAPSHOT),
          std::pair(SQLITE_CORRUPT, SQLITE_NOTADB), std::pair(SQLITE_READONLY, SQLITE_PERM),
          std::pair(SQLITE_CONSTRAINT_UNIQUE, SQLITE_CONSTRAINT_PRIMARYKEY),
          std::pair(SQLITE_CONSTRAINT_UNIQUE, SQLITE_CONSTRAINT_ROWID)})
        EXPECT_EQ(RaisedFor(one, "x").Description(), RaisedFor(other, "x").Description()) << other;
}

TEST(SqliteError, AMessageOfOurSchemaIsShownAsItIs) {
    const Error error = RaisedFor(SQLITE_CONSTRAINT_TRIGGER, "A custody row cannot be changed.");
    EXPECT_EQ(error.Description(), "A custody row cannot be changed.");
    EXPECT_EQ(error.Number(), SQLITE_CONSTRAINT_TRIGGER);
}

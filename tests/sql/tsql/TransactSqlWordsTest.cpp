#include "sql/tsql/TransactSqlWords.h"

#include "base/Text.h"
#include "tests/sql/tsql/TransactSqlTexts.h"

#include <sqlite3.h>

using namespace quellbrook;
using namespace quellbrook::sql;
using namespace quellbrook::testing;

namespace {

Token Word(std::string_view text) { return {TokenKind::Word, text}; }

// What SQLite, with nothing in its database, says against the statement.
std::string SqliteSays(const std::string& statement) {
    sqlite3* database = nullptr;
    sqlite3_stmt* prepared = nullptr;
    sqlite3_open(":memory:", &database);
    sqlite3_prepare_v2(database, statement.c_str(), -1, &prepared, nullptr);
    std::string words = sqlite3_errmsg(database);
    sqlite3_finalize(prepared);
    sqlite3_close(database);
    return words;
}

}  // namespace

TEST(TransactSqlWords, ReservedWordsAreKnownInAnyCase) {
    for (const char* word : {"SELECT", "select", "Top", "ADD", "WRITETEXT", "limit", "Nolock", "natural"})
        EXPECT_TRUE(IsReserved(Word(word))) << word;
    for (const char* word : {"Value", "Description", "Path", "Day", "SELECTED", "SELEC", "A", "a_very_long_name"})
        EXPECT_FALSE(IsReserved(Word(word))) << word;
    EXPECT_FALSE(IsReserved({TokenKind::QuotedName, "\"select\""}));
}

TEST(TransactSqlWords, EveryOtherKeywordOfSqliteCanBeAName) {
    int names = 0;
    for (int i = 0; i < sqlite3_keyword_count(); ++i) {
        const char* text = nullptr;
        int length = 0;
        sqlite3_keyword_name(i, &text, &length);
        const std::string word(text, static_cast<size_t>(length));
        if (IsReserved(Word(word))) continue;
        ++names;
        for (const char* form : {"SELECT {}, t.{} AS {} FROM {} {} LEFT JOIN u AS {} ON {}.{} = 1 GROUP BY {}",
                                 "UPDATE {} SET {} = {} + 1 WHERE {} IN ({}) AND {} LIKE 'x' AND {} BETWEEN -{} AND {}",
                                 "INSERT INTO {} ({}) SELECT {} UNION SELECT MAX({}) FROM (SELECT 1) {}",
                                 "DELETE FROM {} WHERE {} IS NULL OR {} || {} = 'x'"}) {
            const std::string statement = Replace(form, "{}", word);
            EXPECT_EQ(ToSqlite(statement), Texts{statement});
            EXPECT_EQ(SqliteSays(statement).find("syntax"), std::string::npos) << statement;
        }
    }
    EXPECT_GT(names, 30);
}

TEST(TransactSqlWords, KnowsItsFunctionsInAnyCase) {
    ASSERT_NE(FindFunction(Word("coalesce")), nullptr);
    EXPECT_FALSE(FindFunction(Word("coalesce"))->isAggregate);
    EXPECT_TRUE(FindFunction(Word("Max"))->isAggregate);
    EXPECT_EQ(FindFunction(Word("GETDATE")), nullptr);
    EXPECT_EQ(FindFunction({TokenKind::QuotedName, "\"MAX\""}), nullptr);
}

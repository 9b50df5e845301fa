#include "sql/query/SelectText.h"

#include <gtest/gtest.h>

namespace quellbrook::sql {

namespace {

using Entries = std::vector<std::pair<std::string, std::string>>;  // the text, and the column's name

Entries Parsed(std::string_view text) {
    Entries entries;
    for (const ResultColumn& column : ParseSelectText(text))
        entries.emplace_back(column.IsStar() ? "*" : std::get<RawText>(column.expression->content).text, column.name);
    return entries;
}

}  // namespace

TEST(SelectText, AnEntryHasTheNameBehindAs) {
    EXPECT_EQ(Parsed("1 AS ItemType"), (Entries{{"1", "ItemType"}}));
    EXPECT_EQ(Parsed("MAX(SeqNo)+1  as  Next_1"), (Entries{{"MAX(SeqNo)+1", "Next_1"}}));
}

TEST(SelectText, OneTextCanStandForSeveralColumns) {
    EXPECT_EQ(Parsed("1 AS Quantity, NULL AS Value"), (Entries{{"1", "Quantity"}, {"NULL", "Value"}}));
    EXPECT_EQ(Parsed("a,b"), (Entries{{"a", "a"}, {"b", "b"}}));
}

TEST(SelectText, TheStarIsOneEntry) {
    EXPECT_EQ(Parsed("*"), (Entries{{"*", ""}}));
    EXPECT_EQ(Parsed(" * , 1 AS a"), (Entries{{"*", ""}, {"1", "a"}}));
    EXPECT_EQ(Parsed("t.*"), (Entries{{"t.*", ""}})) << "the engine knows its columns";
}

TEST(SelectText, CommasInBracketsAndQuotesSeparateNothing) {
    EXPECT_EQ(Parsed("COALESCE(a, (b), ',') AS c, ', AS d' AS e"),
              (Entries{{"COALESCE(a, (b), ',')", "c"}, {"', AS d'", "e"}}));
    EXPECT_EQ(Parsed("\"a, b\" AS c"), (Entries{{"\"a, b\"", "c"}}));
    EXPECT_EQ(Parsed("'it''s, so' AS c"), (Entries{{"'it''s, so'", "c"}}));
}

TEST(SelectText, WithoutAPlainNameAnEntryIsKeptWhole) {
    for (const char* text : {"a + 1", "t.Name", "1 AS \"a b\"", "'x AS y'", "a b", "1 AS 2", "AS a", ""})
        EXPECT_EQ(Parsed(text), (Entries{{text, ""}})) << text;
}

}  // namespace quellbrook::sql

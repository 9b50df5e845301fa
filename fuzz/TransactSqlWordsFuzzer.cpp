// Joins words of the grammar and similar languages, which random bytes would rarely produce. Each byte selects a word;
// with its highest bit set, no blank follows.

#include "fuzz/TransactSqlChecks.h"

#include <cstdint>

namespace {

constexpr const char* words[] = {
    "SELECT",  "FROM",     "WHERE",      "AND",     "OR",     "NOT",      "IS",       "NULL",    "LIKE",
    "ESCAPE",  "IN",       "BETWEEN",    "EXISTS",  "UNION",  "ALL",      "DISTINCT", "GROUP",   "BY",
    "HAVING",  "ORDER",    "ASC",        "DESC",    "AS",     "INNER",    "LEFT",     "OUTER",   "CROSS",
    "JOIN",    "ON",       "INSERT",     "INTO",    "VALUES", "DEFAULT",  "UPDATE",   "SET",     "DELETE",
    "CREATE",  "TABLE",    "DROP",       "DECLARE", "INT",    "NVARCHAR", "@x",       "@y",      "#NextSeqNo",
    "#t",      "Property", "PropertyNo", "Value",   "p",      "i",        "\"p\"",    "\"a b\"", "Match",
    "Window",  "Filter",   "Glob",       "Rows",    "Top",    "Key",      "Query",    "Replace", "Text",
    "(",       ")",        "(",          ")",       ",",      ",",        ".",        ";",       "=",
    "<>",      "!=",       "<",          ">",       "<=",     "+",        "-",        "*",       "/",
    "%",       "||",       "1",          "0",       "2.5",    "1e3",      "'x'",      "''",      "'it''s'",
    "'%\\_'",  "N'x'",     "'!'",        "?",       "?1",     "?2",       "COUNT",    "MAX",     "COALESCE",
    "REPLACE", "NULLIF",   "ABS",        "[p]",     "--",     "/*",       "@@x",      "\xC3\xA4"};
static_assert(std::size(words) <= 128);

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    std::string text;
    for (size_t i = 0; i < size; ++i) {
        text += words[(data[i] & 0x7F) % std::size(words)];
        if ((data[i] & 0x80) == 0) text += ' ';
    }
    quellbrook::fuzz::CheckText(text);
    return 0;
}

#pragma once

#include "sql/tsql/TransactSqlRewriter.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quellbrook::testing {

using Texts = std::vector<std::string>;

inline Texts ToSqlite(const std::string& text) {
    return sql::TranslateTransactSql(text, sql::SqlTarget::Sqlite).statements;
}
inline Texts ToPostgreSql(const std::string& text) {
    return sql::TranslateTransactSql(text, sql::SqlTarget::PostgreSql).statements;
}

inline void ExpectUntouched(const std::string& text) {
    EXPECT_EQ(ToSqlite(text), Texts{text});
    EXPECT_EQ(ToPostgreSql(text), Texts{text});
}

// Both targets refuse the text with a sentence that quotes the part.
inline void ExpectRefused(const std::string& text, const std::string& part) {
    for (const sql::SqlTarget target : {sql::SqlTarget::Sqlite, sql::SqlTarget::PostgreSql}) {
        const Error error = RaisedBy([&] { sql::TranslateTransactSql(text, target); });
        EXPECT_EQ(error.Number(), 5) << text;
        EXPECT_EQ(error.Description(),
                  "The database in use can't carry out this statement: \"" + part + "\" is not part of its language.")
            << text;
    }
}

}  // namespace quellbrook::testing

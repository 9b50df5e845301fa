#pragma once

#include "base/Error.h"
#include "sql/tsql/TransactSqlRewriter.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace quellbrook::testing {

using Texts = std::vector<std::string>;

inline Texts Rewritten(const std::string& text) {
    Texts texts;
    for (const sql::RewrittenStatement& statement : sql::RewriteTransactSql(text)) texts.push_back(statement.text);
    return texts;
}

inline void ExpectUntouched(const std::string& text) { EXPECT_EQ(Rewritten(text), Texts{text}); }

inline void ExpectRefused(const std::string& text, const std::string& part) {
    const Error error = RaisedBy([&] { sql::RewriteTransactSql(text); });
    EXPECT_EQ(error.Number(), ErrorNumber::General) << text;
    EXPECT_EQ(error.Description(), "This database does not support \"" + part + "\" in a statement.") << text;
}

}  // namespace quellbrook::testing

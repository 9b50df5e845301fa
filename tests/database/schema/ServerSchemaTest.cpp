#include "database/schema/ServerSchema.h"

#include "base/Text.h"
#include "database/schema/SqliteSchema.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <set>

namespace quellbrook::testing {
namespace {

using Names = std::set<std::string>;

// The columns of each table that the statements create, by their first words on a line.
std::map<std::string, Names> TablesOf(const std::vector<std::string>& statements) {
    static const std::regex table(R"(CREATE TABLE (\w+) \(([^]*)\))");
    static const std::regex column(
        R"((?:^|[\n(,])\s*([A-Z]\w+) (?:INT|TEXT|BIT|SMALLINT|TIMESTAMP|DATETIME|N|DECIMAL|MONEY|BOOLEAN|AS))");
    std::map<std::string, Names> tables;
    for (const std::string& statement : statements) {
        std::smatch found;
        if (!std::regex_search(statement, found, table)) continue;
        const std::string body = found[2];
        Names& names = tables[found[1]];
        for (std::sregex_iterator at(body.begin(), body.end(), column), end; at != end; ++at) names.insert((*at)[1]);
    }
    return tables;
}

void ExpectTheTablesOfSqlite(const std::vector<std::string>& statements, const Names& otherwise) {
    const auto tables = TablesOf(statements);
    for (const auto& [name, columns] : TablesOf(SqliteSchemaStatements())) {
        if (otherwise.contains(name)) continue;
        ASSERT_TRUE(tables.contains(name)) << name;
        for (const std::string& column : columns) {
            if (column == "ContainerPath") continue;
            EXPECT_TRUE(tables.at(name).contains(column)) << name << "." << column;
        }
    }
}

TEST(ServerSchema, PostgreSqlHasTheTablesAndColumnsOfSqlite) {
    ExpectTheTablesOfSqlite(PostgreSqlSchemaStatements(), {"BatchMark", "SideTableProof"});
}

TEST(ServerSchema, SqlServerHasTheTablesAndColumnsOfSqlite) {
    ExpectTheTablesOfSqlite(SqlServerSchemaStatements(), {"BatchMark", "SideTableProof"});
}

TEST(ServerSchema, EachServerHasTheTriggersThatKeepCurrentPlaces) {
    for (const auto* statements : {&PostgreSqlSchemaStatements(), &SqlServerSchemaStatements()})
        for (const std::string& name : ServerPlaceTriggers())
            EXPECT_TRUE(std::any_of(statements->begin(), statements->end(), [&](const std::string& text) {
                return text.find("CREATE TRIGGER " + name + " ") != std::string::npos;
            })) << name;
}

}  // namespace
}  // namespace quellbrook::testing

#include "database/odbc/OdbcError.h"

#include <gtest/gtest.h>

namespace quellbrook {
namespace {

OdbcError Failure(const std::string& state, int32_t number, const std::string& words = "words") {
    return OdbcError("Source", state, number, words);
}

TEST(OdbcError, UniqueAndForeignKeysAreIntegrityViolations) {
    EXPECT_EQ(Failure("23505", 1).Number(), ErrorNumber::IntegrityViolation);
    EXPECT_EQ(Failure("23503", 1).Number(), ErrorNumber::IntegrityViolation);
    for (const int32_t number : {2627, 2601, 547})
        EXPECT_EQ(Failure("23000", number).Number(), ErrorNumber::IntegrityViolation);
}

TEST(OdbcError, OtherFailuresKeepTheServersNumber) {
    EXPECT_EQ(Failure("23502", 7).Number(), 7);
    EXPECT_EQ(Failure("23000", 515).Number(), 515);
    EXPECT_EQ(Failure("40001", 1205).Number(), 1205);
    EXPECT_EQ(Failure("HY000", 0).Number(), ErrorNumber::General);
}

TEST(OdbcError, TheDescriptionIsTheServersWords) {
    EXPECT_EQ(Failure("23000", 2627, "[FreeTDS][SQL Server]Violation of UNIQUE KEY constraint.").Description(),
              "Violation of UNIQUE KEY constraint.");
    EXPECT_EQ(
        Failure("P0001", 1, "ERROR: A custody row cannot be changed.;\nError while executing the query").Description(),
        "A custody row cannot be changed.");
    EXPECT_EQ(Failure("HY000", 1, "[unfinished").Description(), "[unfinished");
}

TEST(OdbcError, KnowsALostLinkAndAKeptRule) {
    for (const char* state : {"08S01", "08001", "57P01"}) EXPECT_TRUE(Failure(state, 1).IsLostLink());
    EXPECT_FALSE(Failure("57014", 1).IsLostLink());
    EXPECT_FALSE(Failure("23505", 1).IsLostLink());
    EXPECT_TRUE(Failure("23505", 1).IsRefusedChange());
    EXPECT_TRUE(Failure("P0001", 1).IsRefusedChange());
    EXPECT_TRUE(Failure("42000", 50001).IsRefusedChange());
    EXPECT_FALSE(Failure("42601", 1).IsRefusedChange());
}

}  // namespace
}  // namespace quellbrook

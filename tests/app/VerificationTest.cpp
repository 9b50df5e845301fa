#include "app/Verification.h"
#include "tests/app/SampleCopyTest.h"
#include "tests/support/TestEnvironment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class VerificationTest : public SampleCopyTest {
protected:
    struct Outcome {
        int status;
        std::string output, errors;
    };

    Outcome Run(bool repair) {
        Options options;
        options.databasePath = m_directory.In("copy.sqlite");
        options.verify = !repair;
        options.repair = repair;
        ::testing::internal::CaptureStdout();
        ::testing::internal::CaptureStderr();
        const int status = RunVerification(options);
        std::fflush(stdout);
        const std::string output = ::testing::internal::GetCapturedStdout();
        return {status, output, ::testing::internal::GetCapturedStderr()};
    }

    TestEnvironment m_environment;
};

}  // namespace

TEST_F(VerificationTest, NothingIsWrongWithTheSample) {
    const Outcome outcome = Run(false);
    EXPECT_EQ(outcome.status, 0) << outcome.output;
    EXPECT_THAT(outcome.output, HasSubstr("  ok    Every reference leads to a record.\n"));
    EXPECT_THAT(outcome.output, HasSubstr("\nNothing is wrong.\n"));
    EXPECT_THAT(outcome.output, Not(HasSubstr("WRONG")));
    EXPECT_EQ(outcome.errors, "");
    m_environment.log.Verify();
}

TEST_F(VerificationTest, WhatIsWrongIsNamedAndSideTablesAreRepaired) {
    m_database->exec(
        "DELETE FROM CurrentPlace WHERE ItemNo = (SELECT MAX(ItemNo) FROM CurrentPlace WHERE ItemType = 1)");
    const std::string note =
        "The side table CurrentPlace lacks 1 item. Searches are slower until it is rebuilt with --repair.";
    m_environment.log.Announce("OpenDepartment");
    const Outcome found = Run(false);
    EXPECT_EQ(found.status, 1);
    EXPECT_THAT(found.output, HasSubstr("  WRONG The side table CurrentPlace lists every item at its location.\n"
                                        "            Property "));
    EXPECT_THAT(found.output,
                HasSubstr("\n1 rule is broken. --repair restores side tables and triggers, nothing else.\n"));
    EXPECT_EQ(m_environment.log.Entries().back().message, note);
    m_environment.log.Announce("OpenDepartment");
    const Outcome repaired = Run(true);
    EXPECT_EQ(repaired.status, 0) << repaired.output;
    EXPECT_THAT(repaired.output, HasSubstr("The side tables and triggers were restored.\n"));
    EXPECT_THAT(repaired.output, HasSubstr("\nNothing is wrong.\n"));
    EXPECT_EQ(Run(false).status, 0);
    m_environment.log.Verify();
}

TEST_F(VerificationTest, OtherFaultsRemainAfterARepair) {
    m_database->exec("UPDATE Property SET CurrTrackSeq = NULL WHERE CurrTrackSeq = 2");
    const Outcome outcome = Run(true);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.output, HasSubstr("  WRONG The current custody row of an item is its latest one.\n"));
    EXPECT_THAT(outcome.output, HasSubstr(" names custody row none, and its latest is 2.\n"));
    EXPECT_THAT(outcome.output, HasSubstr(" more.\n"));
}

TEST_F(VerificationTest, ADatabaseThatCannotBeOpenedIsNamed) {
    Options options;
    options.verify = true;
    options.databasePath = m_directory.In("absent.sqlite");
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(RunVerification(options), 1);
    EXPECT_THAT(::testing::internal::GetCapturedStderr(), HasSubstr("There is no database '"));
}

}  // namespace quellbrook::testing

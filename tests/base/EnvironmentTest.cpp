#include "base/Environment.h"

#include "tests/support/FixedClock.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingErrorLog.h"
#include "tests/support/RecordingScreen.h"

#include <memory>
#include <stdexcept>

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

TEST(EnvironmentTest, ByDefaultWhatNeedsADesktopIsAnError) {
    EXPECT_EQ(RaisedBy([] { MakeTimer(); }).Number(), ErrorNumber::NullObject);
    EXPECT_EQ(RaisedBy([] { MakeMessageHook(); }).Number(), ErrorNumber::NullObject);
    EXPECT_EQ(RaisedBy([] { LoadPicture("photo.png"); }).Number(), ErrorNumber::NullObject);
    EXPECT_EQ(RaisedBy([] { GetScreen(); }).Number(), ErrorNumber::NullObject);
    const Error error = RaisedBy([] { RunCommand("open"); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "This workstation has no program that opens records.");
}

TEST(EnvironmentTest, ByDefaultNoKeyIsDownAndTheClockIsTheSystems) {
    EXPECT_FALSE(IsKeyDown(40));
    EXPECT_EQ(&GetClock(), &SystemClock());
    EXPECT_GT(GetClock().Now().ToParts().year, 2025);
}

TEST(EnvironmentTest, ByDefaultErrorsAreLoggedToStandardError) {
    ::testing::internal::CaptureStderr();
    GetErrorLog().Log("Quellbrook", "A.B", "first\r\nsecond");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Quellbrook: A.B: first\n    second\n");
}

TEST(EnvironmentTest, AScopeInstallsAnEnvironmentAndRestoresThePreviousOne) {
    const FixedClock outer, inner;
    {
        EnvironmentScope first;
        first->clock = &outer;
        {
            EnvironmentScope second;
            EXPECT_EQ(&GetClock(), &outer) << "a scope starts as a copy of the current environment";
            second->clock = &inner;
            EXPECT_EQ(&GetClock(), &inner);
        }
        EXPECT_EQ(&GetClock(), &outer);
        const EnvironmentScope plain{Environment()};
        EXPECT_EQ(&GetClock(), &SystemClock());
    }
    EXPECT_EQ(&GetClock(), &SystemClock());
}

TEST(EnvironmentTest, AScopeThatEndsBeforeAnInnerOneLeavesTheInnerOneInstalled) {
    const FixedClock outer, inner;
    auto first = std::make_unique<EnvironmentScope>();
    (*first)->clock = &outer;
    EnvironmentScope second;
    second->clock = &inner;
    first.reset();
    EXPECT_EQ(&GetClock(), &inner);
}

TEST(EnvironmentTest, ByDefaultAnUnexpectedErrorIsLoggedAndShown) {
    RecordingScreen screen;
    RecordingErrorLog log;
    EnvironmentScope environment;
    environment->screen = &screen;
    environment->errorLog = &log;
    log.Announce("A.B");
    GetEnvironment().reportUnexpected(Error(ErrorNumber::General, "A.B", "It broke."));
    EXPECT_EQ(log.Entries(), (std::vector<RecordingErrorLog::Entry>{{"Quellbrook", "A.B", "It broke."}}));
    EXPECT_EQ(screen.Messages(), (std::vector<RecordingScreen::Message>{{"It broke.", 16, "Unexpected Error"}}));
}

TEST(LogFailureTest, IgnoresALogThatFails) {
    struct FullLog : ErrorLog {
        void Log(const std::string&, const std::string&, const std::string&) override {
            throw std::runtime_error("The disk is full.");
        }
    } log;
    EnvironmentScope environment;
    environment->errorLog = &log;
    EXPECT_NO_THROW(LogFailure("A.B", "text"));
}

}  // namespace
}  // namespace quellbrook::testing

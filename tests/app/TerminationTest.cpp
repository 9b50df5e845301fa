#include "app/Termination.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>

#include <csignal>

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

class TerminationTest : public ::testing::TestWithParam<int> {};

TEST_P(TerminationTest, ASignalEndsTheEventLoopsOfTheProgram) {
    const Termination termination;
    EXPECT_FALSE(termination.IsRequested());
    QTimer::singleShot(0, qApp, [] {
        QTimer::singleShot(0, qApp, [] { std::raise(GetParam()); });
        QEventLoop dialog;
        EXPECT_EQ(dialog.exec(), Termination::ExitCode);
    });
    EXPECT_EQ(QApplication::exec(), 143);
    EXPECT_TRUE(termination.IsRequested());
}

INSTANTIATE_TEST_SUITE_P(Signals, TerminationTest, ::testing::Values(SIGTERM, SIGINT, SIGHUP));

TEST(Termination, ASignalBeforeTheEventLoopIsRemembered) {
    const Termination termination;
    std::raise(SIGTERM);
    EXPECT_TRUE(termination.IsRequested());
}

TEST(Termination, AnIgnoredSignalStaysIgnored) {
    std::signal(SIGHUP, SIG_IGN);
    {
        const Termination termination;
        std::raise(SIGHUP);
        EXPECT_FALSE(termination.IsRequested());
    }
    EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
}

TEST(Termination, AfterItsEndTheSignalsEndTheProcessAgain) {
    { const Termination termination; }
    for (const int each : {SIGTERM, SIGINT, SIGHUP}) EXPECT_EQ(std::signal(each, SIG_DFL), SIG_DFL);
}

}  // namespace
}  // namespace quellbrook::testing

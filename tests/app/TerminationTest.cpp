#include "app/Termination.h"

#include <QApplication>
#include <QEventLoop>
#include <QTimer>

#include <csignal>
#include <utility>

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

// The tests may be started with ignored signals, as by nohup.
class DefaultSignals {
public:
    DefaultSignals() = default;
    ~DefaultSignals() {
        for (const auto& [number, handler] : m_original) std::signal(number, handler);
    }
    DefaultSignals(const DefaultSignals&) = delete;
    DefaultSignals& operator=(const DefaultSignals&) = delete;

private:
    using Handler = void (*)(int);
    static Handler HandlerOf(int number) { return std::signal(number, SIG_DFL); }

    const std::pair<int, Handler> m_original[3] = {
        {SIGTERM, HandlerOf(SIGTERM)}, {SIGINT, HandlerOf(SIGINT)}, {SIGHUP, HandlerOf(SIGHUP)}};
};

class TerminationTest : public ::testing::TestWithParam<int> {
protected:
    DefaultSignals m_signals;
};

class TerminationSignals : public ::testing::Test {
protected:
    DefaultSignals m_signals;
};

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

TEST_F(TerminationSignals, ASignalBeforeTheEventLoopIsRemembered) {
    const Termination termination;
    std::raise(SIGTERM);
    EXPECT_TRUE(termination.IsRequested());
}

TEST_F(TerminationSignals, AnIgnoredSignalStaysIgnored) {
    std::signal(SIGHUP, SIG_IGN);
    {
        const Termination termination;
        std::raise(SIGHUP);
        EXPECT_FALSE(termination.IsRequested());
    }
    EXPECT_EQ(std::signal(SIGHUP, SIG_DFL), SIG_IGN);
}

TEST_F(TerminationSignals, AfterItsEndTheSignalsEndTheProcessAgain) {
    { const Termination termination; }
    for (const int each : {SIGTERM, SIGINT, SIGHUP}) EXPECT_EQ(std::signal(each, SIG_DFL), SIG_DFL);
}

}  // namespace
}  // namespace quellbrook::testing

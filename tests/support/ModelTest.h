#pragma once

#include "core/Stores.h"
#include "tests/support/FakeSession.h"
#include "tests/support/TestEnvironment.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {

// Every test begins and ends without a dispatcher, stores or a cached location document. It runs in a TestEnvironment
// with a logged-in session that has all rights.
class ModelTest : public ::testing::Test {
protected:
    ModelTest() { ForgetState(); }
    ~ModelTest() override {
        m_log.Verify();
        EXPECT_FALSE(m_screen.HasAnswersLeft()) << "A question that a test answers was not asked.";
        ForgetState();
    }

    static void ForgetState() {
        DiscardDispatcher();
        DiscardStores();
        HostLocationData::Discard();
    }

    TestEnvironment m_environment;
    RecordingScreen& m_screen = m_environment.screen;
    FixedClock& m_clock = m_environment.clock;
    RecordingErrorLog& m_log = m_environment.log;
    SessionScope m_session;
};

}  // namespace quellbrook::testing

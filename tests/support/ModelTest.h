#pragma once

#include "core/Stores.h"
#include "tests/support/FakeSession.h"
#include "tests/support/FixedClock.h"
#include "tests/support/RecordingErrorLog.h"
#include "tests/support/RecordingScreen.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {

// Every test begins and ends without a dispatcher, stores or a cached location document, with a logged-in session that
// holds all rights, on a recording screen, a standing clock and a log on which only announced entries may come.
class ModelTest : public ::testing::Test {
protected:
    ModelTest() {
        SetScreen(&m_screen);
        SetClock(&m_clock);
        SetErrorLog(&m_log);
        ForgetState();
    }
    ~ModelTest() override {
        m_log.Verify();
        ForgetState();
        SetErrorLog(nullptr);
        SetClock(nullptr);
        SetScreen(nullptr);
    }

    static void ForgetState() {
        DiscardDispatcher();
        DiscardStores();
        HostLocationData::Discard();
    }

    RecordingScreen m_screen;
    FixedClock m_clock;
    RecordingErrorLog m_log;
    SessionScope m_session;
};

}  // namespace quellbrook::testing

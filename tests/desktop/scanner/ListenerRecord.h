#pragma once

#include "base/Environment.h"
#include "ui/controls/BarcodeListenerControl.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quellbrook::testing {

// Writes down everything that comes to one listener, the messages of its hook and the firings of its timer, with what
// it could see at that moment and what it made of it. Stands between the listener and the hook, timer and clock in use;
// give it a listener that was never shown.
class ListenerRecord {
public:
    struct Entry {
        bool isFiring = false;
        KeyMessage message{};  // as it came
        bool isListening = false;
        bool isWindowActive = false;
        std::optional<DateTime> clock;  // where the listener read it
        bool passed = false;
        std::optional<std::pair<int32_t, std::string>> raised;
        std::string buffer;  // afterwards
        size_t waiting = 0;
    };

    explicit ListenerRecord(BarcodeListenerControl& listener);
    ~ListenerRecord();
    ListenerRecord(const ListenerRecord&) = delete;
    ListenerRecord& operator=(const ListenerRecord&) = delete;

    const std::vector<Entry>& Entries() const { return m_entries; }
    // Whether the timer runs: a firing is still to come.
    bool IsFiringDue() const { return m_timer && m_timer->IsRunning(); }

private:
    class RecordingClock;
    class RecordingHook;
    class RecordingTimer;

    void Record(Entry entry, const std::function<void(Entry&)>& happen);

    BarcodeListenerControl& m_listener;
    std::unique_ptr<RecordingClock> m_clock;
    EnvironmentScope m_environment;
    const Timer* m_timer = nullptr;
    Entry* m_current = nullptr;
    std::vector<Entry> m_entries;
};

}  // namespace quellbrook::testing

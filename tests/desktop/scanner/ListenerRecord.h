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

// Records every hook message and timer event that one listener receives, with the state visible to it and the result.
// Installs itself between the listener and the hook, timer and clock; use a listener that was never shown.
class ListenerRecord {
public:
    struct Entry {
        bool isFiring = false;
        KeyMessage message{};  // as received
        bool isListening = false;
        bool isWindowActive = false;
        std::optional<DateTime> clock;  // if the listener read it
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
    // Whether the timer is running.
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

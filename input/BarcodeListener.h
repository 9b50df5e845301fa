#pragma once

#include "base/Event.h"
#include "base/MessageHook.h"
#include "base/Timer.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook {

namespace BarcodeType {
inline constexpr int32_t Unknown = 0, Location = 1, Property = 2, Vehicle = 3;
}  // namespace BarcodeType

// Takes what a keyboard-wedge scanner types out of the messages of the user interface thread, before any field sees it,
// and raises BarcodeScanned. The scanner puts STX (2) before each barcode and ETX (3) behind it; between them stand a
// type letter, L, P or V in any case, and the data.
//
// It listens only while the view that holds it is on show and enabled. A STX within a scan begins it anew. The press of
// a key within 0.1 seconds of an ETX is dropped, whoever listens; the seconds are the wall clock's since midnight, and
// a new day does not know of a scan of the day before. Scans wait in a list until the timer takes the newest, one at a
// firing; the others wait for a later scan.
class BarcodeListener {
public:
    // What it asks of the control that stands for it. An answer that fails counts as no.
    struct Surroundings {
        std::function<bool()> isListening;     // it and its view are on show, and it is enabled
        std::function<bool()> isWindowActive;  // the window that holds it is the active one
    };

    explicit BarcodeListener(Surroundings surroundings);
    BarcodeListener(const BarcodeListener&) = delete;
    BarcodeListener& operator=(const BarcodeListener&) = delete;

    // The first call puts the hook in place, where it stays as long as the listener lives.
    void Shown();

    // The BarcodeType, and what stood behind the type letter. Raised from the timer about a millisecond after ETX, and
    // not at all where another window is active by then.
    Event<int32_t, const std::string&> BarcodeScanned;

    // The characters since the last STX, as UTF-8; ETX leaves them.
    const std::string& Buffer() const { return m_scanBuffer; }
    // How many scans wait for the timer.
    size_t Waiting() const { return m_scanQueue.size(); }

private:
    void MessageHook_OnMessage(KeyMessage& message);
    void OnKeyDown(KeyMessage& message) const;
    void OnKeyUp(KeyMessage& message) const;
    void OnCharacter(KeyMessage& message);
    void EndScan();
    void Timer_Elapsed();

    Surroundings m_surroundings;
    std::unique_ptr<Timer> m_timer;
    std::unique_ptr<MessageHook> m_messageHook;
    std::string m_scanBuffer;
    std::vector<std::string> m_scanQueue;  // the newest last
    double m_lastScanEnd = 0;              // seconds since midnight; 0: no scan has ended since the last STX
    bool m_isScanning = false;             // from STX until the timer has handed the scan over
};

}  // namespace quellbrook

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

// Takes the keys of a keyboard-wedge scanner out of the messages of the user interface thread, before any field sees
// them, and raises BarcodeScanned. The scanner sends STX (2) before each barcode and ETX (3) after it. Between them are
// a type letter (L, P or V in any case) and the data.
//
// It listens only while its view is visible and enabled. An STX within a scan restarts the scan. A key press within 0.1
// seconds of an ETX is dropped, even while it does not listen; the time is the wall clock's seconds since midnight, and
// the check does not span midnight. Scans wait in a list. Each time the timer fires it takes the newest; the others
// wait for a later scan.
class BarcodeListener {
public:
    // The state of the listener's control. A function that throws counts as false.
    struct Surroundings {
        std::function<bool()> isListening;     // it and its view are visible, and it is enabled
        std::function<bool()> isWindowActive;  // its window is the active one
    };

    explicit BarcodeListener(Surroundings surroundings);
    ~BarcodeListener();
    BarcodeListener(const BarcodeListener&) = delete;
    BarcodeListener& operator=(const BarcodeListener&) = delete;

    // The first call installs the hook, which stays for the listener's lifetime.
    void Shown();

    // The BarcodeType and the data after the type letter. Raised by the timer about a millisecond after ETX, unless
    // another window is active by then.
    Event<int32_t, const std::string&> BarcodeScanned;

    // At each STX that it takes.
    Event<> ScanStarted;

    // Whether the keys of a scan are arriving that any listener takes.
    static bool IsScanUnderWay();

    // Forgets an STX that no ETX has followed yet.
    void DropUnfinishedScan();
    // The characters since the last STX, as UTF-8. ETX does not clear them.
    const std::string& Buffer() const { return m_scanBuffer; }
    // The number of scans that wait for the timer.
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
    bool m_isScanning = false;             // from STX until the timer has taken the scan
    bool m_hasEnded = false;               // an ETX has followed the STX
};

}  // namespace quellbrook

#pragma once

#include "base/Clock.h"
#include "tests/desktop/scanner/KeyWatch.h"
#include "tests/desktop/scanner/Keyboard.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/ui/QtTestMain.h"
#include "ui/controls/BarcodeListenerControl.h"

#include <QElapsedTimer>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace quellbrook {
class EvidenceExplorer;
}

namespace quellbrook::testing {

// A clock that starts at 1 p.m. at construction, so that tests do not meet midnight or a clock change.
class RunningClock : public Clock {
public:
    RunningClock() { m_elapsed.start(); }
    DateTime Now() const override { return {m_start.milliseconds + m_elapsed.elapsed()}; }

private:
    const DateTime m_start = DateTime::FromParts({2026, 11, 20, 13, 0, 0, 0});
    QElapsedTimer m_elapsed;
};

// A window of the program on a real X server, with a menu bar and a text box beside the explorer, and a keyboard
// outside the process. The text box has the focus and its text is selected.
class ScannerTest : public DatabaseTest {
protected:
    using Scans = std::vector<std::pair<int32_t, std::string>>;

    ScannerTest();
    ~ScannerTest() override;

    // Shows the explorer. m_scans records the events of its listener.
    void ShowExplorer();
    void Listen(BarcodeListenerControl& listener);

    // Processes events until the condition is true; returns false after the time limit.
    static bool Until(const std::function<bool()>& condition);
    // Processes events for this time.
    static void Pause(int milliseconds);
    // Shows and activates the window.
    static void Activate(QWidget& window);
    // Waits until all pressed keys have arrived and all scans are delivered.
    void AwaitKeys();
    void ScanAndAwait(const QString& text);
    // Types by hand, after the rest period of a scan.
    void TypeByHand(const QString& text);

    // Checks that the text box and the clipboard are unchanged.
    void ExpectNothingTyped() const;

    static constexpr int gap = 150;  // milliseconds from one scan to the next

    RunningClock m_runningClock;
    Keyboard m_keyboard;
    QMainWindow m_window;
    QMenu* m_menu;
    QLineEdit* m_edit;
    EvidenceExplorer* m_explorer = nullptr;
    std::unique_ptr<KeyWatch> m_windowKeys;
    std::vector<const BarcodeListener*> m_listeners;
    Scans m_scans;
};

// The number of repetitions: the given one in a long run, otherwise a tenth.
int CountOf(int whole);

}  // namespace quellbrook::testing

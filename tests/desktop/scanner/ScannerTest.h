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

// The time of day that passes since its making at one in the afternoon: no test meets midnight or a clock being set.
class RunningClock : public Clock {
public:
    RunningClock() { m_elapsed.start(); }
    DateTime Now() const override { return {m_start.milliseconds + m_elapsed.elapsed()}; }

private:
    const DateTime m_start = DateTime::FromParts({2026, 11, 20, 13, 0, 0, 0});
    QElapsedTimer m_elapsed;
};

// A window of the program on a real X server, with a menu bar and a text box beside the explorer, and a keyboard
// outside the process. The text box has the focus, and all of its text is selected.
class ScannerTest : public DatabaseTest {
protected:
    using Scans = std::vector<std::pair<int32_t, std::string>>;

    ScannerTest();
    ~ScannerTest() override;

    // Brings the explorer on show; what its listener raises goes to m_scans from then on.
    void ShowExplorer();
    void Listen(BarcodeListenerControl& listener);

    // Serves events until it holds; whether it does in time.
    static bool Until(const std::function<bool()>& holds);
    // Serves events that long.
    static void Pause(int milliseconds);
    // Shows the window and makes it the one that the X server sends keys to.
    static void Activate(QWidget& window);
    // Until every key pressed so far has come and every scan is handed over.
    void AwaitKeys();
    void ScanAndAwait(const QString& text);
    // By hand, after the rest that a scan leaves behind.
    void TypeByHand(const QString& text);

    // The text box and the clipboard hold what they held at the beginning.
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

// So many times as a whole run asks for, a tenth of it in the usual one.
int CountOf(int whole);

}  // namespace quellbrook::testing

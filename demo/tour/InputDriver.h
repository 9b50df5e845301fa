#pragma once

#include <QPoint>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace quellbrook::tour {

// Moves the mouse and presses keys through the X server. Each command runs in the background; send the next one only
// when IsIdle.
class InputDriver {
public:
    enum class Button { Left = 1, Right = 3 };
    enum class Modifier { None, Shift, Control };

    void Click(const QPoint& spot, Button button = Button::Left, Modifier held = Modifier::None);
    void DoubleClick(const QPoint& spot);
    // Presses the left button and moves the pointer in several steps. The button stays down until Drop.
    void Drag(const QPoint& from, const QPoint& to);
    void Drop();
    // Turns the wheel over a spot by notches, toward the user if positive.
    void TurnWheel(const QPoint& over, int notches);
    void Type(const QString& text);
    void Press(const QString& key);  // an X key name, such as "Return" or "ctrl+a"
    // Types letters and digits like a keyboard-wedge scanner, between Ctrl+B and Ctrl+C and without pauses.
    void Scan(const QString& barcode);

    bool IsIdle() const { return m_process.state() == QProcess::NotRunning; }
    // The failure of a command since the last call; empty if there was none.
    QString TakeFailure();

private:
    void Run(const QStringList& arguments);

    QProcess m_process;
    bool m_started = false;
};

}  // namespace quellbrook::tour

#pragma once

#include <QProcess>
#include <QString>

namespace quellbrook::testing {

// Presses keys through the X server, one command after another and without pauses within a command. A command returns
// before its keys arrive. Failures fail the test.
class Keyboard {
public:
    Keyboard() = default;
    ~Keyboard();

    void Type(const QString& text);   // keyboard characters, capitals with Shift
    void Press(const QString& keys);  // X key names separated by blanks, such as "ctrl+a Return"
    void Hold(const QString& key);
    void Release(const QString& key);
    // Types a barcode like a keyboard-wedge scanner: Ctrl+B, the text, Ctrl+C.
    void Scan(const QString& text);
    // Waits until all commands are done. Processes no events.
    void Finish();

private:
    void Start();
    void Order(const QString& line);

    QProcess m_xdotool;
};

}  // namespace quellbrook::testing

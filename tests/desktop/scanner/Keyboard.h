#pragma once

#include <QProcess>
#include <QString>

namespace quellbrook::testing {

// Presses keys from outside this program, through the X server, one order after the other and none of them with a pause
// in it. An order returns before its keys have come. Whatever goes wrong with one fails the test.
class Keyboard {
public:
    Keyboard() = default;
    ~Keyboard();

    void Type(const QString& text);   // characters of the keyboard, capitals with Shift
    void Press(const QString& keys);  // X key names with blanks between them, such as "ctrl+a Return"
    void Hold(const QString& key);
    void Release(const QString& key);
    // A barcode as a wedge scanner types it: Ctrl+B, the text, Ctrl+C.
    void Scan(const QString& text);
    // Returns when all that was ordered is pressed. Serves no events meanwhile.
    void Finish();

private:
    void Start();
    void Order(const QString& line);

    QProcess m_xdotool;
};

}  // namespace quellbrook::testing

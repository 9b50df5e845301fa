#include "tests/support/ui/Scanner.h"

#include <QGuiApplication>
#include <QWindow>
#include <QtTest/QTest>

#include <gtest/gtest.h>

#include <cctype>
#include <string>

namespace quellbrook::testing {

namespace {

constexpr char stx = 2, etx = 3;

void SendKey(bool press, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    QWindow* window = QGuiApplication::focusWindow();
    if (!window) {
        ADD_FAILURE() << "No window is focused.";
        return;
    }
    QTest::simulateEvent(window, press, key, modifiers, text, false);
}

// The modifier is released before the letter, whose release then has the plain letter.
void TypeWith(int modifierKey, Qt::KeyboardModifiers modifiers, int key, const QString& text, const QString& released) {
    SendKey(true, modifierKey, Qt::NoModifier, QString());
    SendKey(true, key, modifiers, text);
    SendKey(false, modifierKey, modifiers, QString());
    SendKey(false, key, Qt::NoModifier, released);
}

void TypeKey(char character) {
    const QString text(QLatin1Char{character});
    if (character == stx || character == etx) {
        const int key = character == stx ? Qt::Key_B : Qt::Key_C;
        return TypeWith(Qt::Key_Control, Qt::ControlModifier, key, text, QString(QChar(key)).toLower());
    }
    const int key = std::toupper(static_cast<unsigned char>(character));
    if (text.toLower() != text) return TypeWith(Qt::Key_Shift, Qt::ShiftModifier, key, text, text.toLower());
    SendKey(true, key, Qt::NoModifier, text);
    SendKey(false, key, Qt::NoModifier, text);
}

}  // namespace

void TypeAsScanner(std::string_view characters) {
    for (const char character : characters) TypeKey(character);
}

void Scan(std::string_view text) { TypeAsScanner(stx + std::string(text) + etx); }

}  // namespace quellbrook::testing

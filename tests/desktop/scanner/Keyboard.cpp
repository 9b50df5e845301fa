#include "tests/desktop/scanner/Keyboard.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {

Keyboard::~Keyboard() { Finish(); }

void Keyboard::Finish() {
    if (m_xdotool.state() == QProcess::NotRunning) return;
    m_xdotool.closeWriteChannel();
    EXPECT_TRUE(m_xdotool.waitForFinished());
    EXPECT_EQ(m_xdotool.exitCode(), 0);
    EXPECT_EQ(m_xdotool.readAllStandardError().toStdString(), "");
}

void Keyboard::Type(const QString& text) { Order("type --delay 0 -- \"" + text + "\""); }
void Keyboard::Press(const QString& keys) { Order("key --delay 0 " + keys); }
void Keyboard::Hold(const QString& key) { Order("keydown --delay 0 " + key); }
void Keyboard::Release(const QString& key) { Order("keyup --delay 0 " + key); }

void Keyboard::Scan(const QString& text) {
    Press("ctrl+b");
    if (!text.isEmpty()) Type(text);
    Press("ctrl+c");
}

void Keyboard::Start() {
    m_xdotool.start("xdotool", {"-"});
    EXPECT_TRUE(m_xdotool.waitForStarted()) << m_xdotool.errorString().toStdString();
}

void Keyboard::Order(const QString& line) {
    if (m_xdotool.state() == QProcess::NotRunning) Start();
    m_xdotool.write(line.toUtf8() + '\n');
    EXPECT_TRUE(m_xdotool.waitForBytesWritten());
}

}  // namespace quellbrook::testing

#pragma once

#include <QPoint>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace quellbrook::tour {

// Moves the mouse and presses keys from outside, through the X server, as a person's hand would. Each order runs beside
// the program; give the next one only when IsIdle.
class Hand {
public:
    enum class Button { Left = 1, Right = 3 };

    void Click(const QPoint& spot, Button button = Button::Left, bool withControl = false);
    void DoubleClick(const QPoint& spot);
    void Type(const QString& text);
    void Press(const QString& key);  // an X key name, such as "Return" or "ctrl+a"
    // Letters and digits as a wedge scanner types them: between Ctrl+B and Ctrl+C, without a pause.
    void Scan(const QString& barcode);

    bool IsIdle() const { return m_process.state() == QProcess::NotRunning; }
    // What went wrong with an order since the last asking; empty when nothing did.
    QString TakeFailure();

private:
    void Run(const QStringList& arguments);

    QProcess m_process;
    bool m_started = false;
};

}  // namespace quellbrook::tour

#include "demo/tour/InputDriver.h"

#include <QGuiApplication>
#include <QScreen>

namespace quellbrook::tour {

namespace {

QStringList MoveTo(const QPoint& spot) {
    const QPointF pixel = QPointF(spot) * QGuiApplication::primaryScreen()->devicePixelRatio();
    return {QStringLiteral("mousemove"), QString::number(qRound(pixel.x())), QString::number(qRound(pixel.y()))};
}

QString KeyOf(InputDriver::Modifier modifier) {
    return modifier == InputDriver::Modifier::Shift ? QStringLiteral("shift") : QStringLiteral("ctrl");
}

}  // namespace

void InputDriver::Click(const QPoint& spot, Button button, Modifier held) {
    QStringList order = MoveTo(spot);
    if (held != Modifier::None) order << QStringLiteral("keydown") << KeyOf(held);
    order << QStringLiteral("click") << QString::number(static_cast<int>(button));
    if (held != Modifier::None) order << QStringLiteral("keyup") << KeyOf(held);
    Run(order);
}

void InputDriver::DoubleClick(const QPoint& spot) {
    QStringList order = MoveTo(spot);
    order << QStringLiteral("click") << QStringLiteral("--repeat") << QStringLiteral("2") << QStringLiteral("--delay")
          << QStringLiteral("60") << QStringLiteral("1");
    Run(order);
}

void InputDriver::Drag(const QPoint& from, const QPoint& to) {
    constexpr int steps = 8;
    QStringList order = MoveTo(from);
    order << QStringLiteral("mousedown") << QStringLiteral("1");
    for (int step = 1; step <= steps; ++step)
        order << MoveTo(from + (to - from) * step / steps) << QStringLiteral("sleep") << QStringLiteral("0.02");
    Run(order);
}

void InputDriver::Drop() { Run({QStringLiteral("mouseup"), QStringLiteral("1")}); }

void InputDriver::TurnWheel(const QPoint& over, int notches) {
    QStringList order = MoveTo(over);
    order << QStringLiteral("click") << QStringLiteral("--repeat") << QString::number(qAbs(notches))
          << QStringLiteral("--delay") << QStringLiteral("20") << (notches > 0 ? "5" : "4");
    Run(order);
}

void InputDriver::Type(const QString& text) {
    Run({QStringLiteral("type"), QStringLiteral("--delay"), QStringLiteral("10"), QStringLiteral("--"), text});
}

void InputDriver::Press(const QString& key) { Run({QStringLiteral("key"), QStringLiteral("--"), key}); }

void InputDriver::Scan(const QString& barcode) {
    QStringList order{QStringLiteral("key"), QStringLiteral("--delay"), QStringLiteral("0"), QStringLiteral("ctrl+b")};
    for (const QChar character : barcode) order << QString(character);
    Run(order << QStringLiteral("ctrl+c"));
}

QString InputDriver::TakeFailure() {
    if (!m_started || !IsIdle()) return {};
    m_started = false;
    if (m_process.error() == QProcess::FailedToStart) return QStringLiteral("xdotool could not be started.");
    if (m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0) return {};
    return QStringLiteral("xdotool failed: ") + QString::fromUtf8(m_process.readAllStandardError()).trimmed();
}

void InputDriver::Run(const QStringList& arguments) {
    m_started = true;
    m_process.start(QStringLiteral("xdotool"), arguments);
}

}  // namespace quellbrook::tour

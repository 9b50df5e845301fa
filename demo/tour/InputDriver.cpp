#include "demo/tour/InputDriver.h"

#include <QGuiApplication>
#include <QScreen>

namespace quellbrook::tour {

namespace {

QStringList MoveTo(const QPoint& spot) {
    const QPointF pixel = QPointF(spot) * QGuiApplication::primaryScreen()->devicePixelRatio();
    return {QStringLiteral("mousemove"), QStringLiteral("--sync"), QString::number(qRound(pixel.x())),
            QString::number(qRound(pixel.y()))};
}

}  // namespace

void InputDriver::Click(const QPoint& spot, Button button, bool withControl) {
    QStringList order = MoveTo(spot);
    if (withControl) order << QStringLiteral("keydown") << QStringLiteral("ctrl");
    order << QStringLiteral("click") << QString::number(static_cast<int>(button));
    if (withControl) order << QStringLiteral("keyup") << QStringLiteral("ctrl");
    Run(order);
}

void InputDriver::DoubleClick(const QPoint& spot) {
    QStringList order = MoveTo(spot);
    order << QStringLiteral("click") << QStringLiteral("--repeat") << QStringLiteral("2") << QStringLiteral("--delay")
          << QStringLiteral("60") << QStringLiteral("1");
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

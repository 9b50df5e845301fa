#include "app/WindowSize.h"

#include <QDir>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QWidget>

namespace quellbrook {

namespace {

constexpr QSize usualSize(1280, 800);
constexpr QSize frame(16, 48);  // the window manager's frame and title, at most
const QString geometryKey = QStringLiteral("window/geometry");

}  // namespace

QString WindowSizeFile() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation))
        .filePath(QStringLiteral("window.ini"));
}

void RestoreWindowSize(QWidget& window, const QString& file) {
    // The size to return to from the maximized state must fit, too.
    const QSize available = window.screen()->availableSize() - frame;
    window.resize(usualSize.boundedTo(available));
    if (window.restoreGeometry(QSettings(file, QSettings::IniFormat).value(geometryKey).toByteArray())) return;
    if (window.size() != usualSize) window.setWindowState(Qt::WindowMaximized);
}

void SaveWindowSize(const QWidget& window, const QString& file) {
    QSettings(file, QSettings::IniFormat).setValue(geometryKey, window.saveGeometry());
}

}  // namespace quellbrook

#pragma once

class QString;
class QWidget;

namespace quellbrook {

// The user's file that stores the window's size and position.
QString WindowSizeFile();

// Gives a window that was not shown yet the size and position in the file. Without a file, 1280 x 800 pixels, or
// maximized if the screen is too small for that.
void RestoreWindowSize(QWidget& window, const QString& file);
// Ignores failures.
void SaveWindowSize(const QWidget& window, const QString& file);

}  // namespace quellbrook

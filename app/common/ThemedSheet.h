#pragma once

class QString;
class QWidget;

namespace quellbrook {

// Gives the widget a style sheet whose palette colors follow a change of the palette, unlike those of setStyleSheet.
// "%1" in it stands for the color of gray text. Only the colors of the application's palette are used.
void SetThemedSheet(QWidget* widget, const QString& sheet);

}  // namespace quellbrook

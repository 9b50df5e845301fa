#pragma once

#include "ui/style/Theme.h"

#include <QFont>

class QWidget;

namespace quellbrook {

// A type of the theme as a widget shows it: with whatever its own setFont, or that of a widget around it, has set.
struct AmbientFont {
    explicit AmbientFont(Theme::Type type);
    AmbientFont(Theme::Type type, const QWidget& widget);

    QFont font;
    int lineHeight;  // pixels
};

}  // namespace quellbrook

#pragma once

#include "ui/style/Theme.h"

#include <QFont>

class QWidget;

namespace quellbrook {

// A font type of the theme, overridden by setFont on the widget or its parents.
struct AmbientFont {
    explicit AmbientFont(Theme::Type type);
    AmbientFont(Theme::Type type, const QWidget& widget);

    QFont font;
    int lineHeight;  // pixels
};

}  // namespace quellbrook

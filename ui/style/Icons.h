#pragma once

#include <QColor>
#include <QIcon>
#include <QPixmap>
#include <QString>
#include <QStringList>

namespace quellbrook {

// Our icons: strokes on a 24 px grid in a given color. Names: "location", "sign_in", "marked", ... An unknown name
// gives an empty picture.
namespace Icons {

bool Has(const QString& name);
QStringList Names();
// Size in device-independent pixels; crisp at the given device pixel ratio.
QPixmap Pixmap(const QString& name, int size, const QColor& color, qreal devicePixelRatio = 1.0);
QIcon Icon(const QString& name, const QColor& color);

}  // namespace Icons

}  // namespace quellbrook

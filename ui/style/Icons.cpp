#include "ui/style/Icons.h"

#include "ui/style/IconPaths.h"
#include "ui/style/Theme.h"

#include <QByteArray>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace quellbrook::Icons {

namespace {

constexpr double Grid = 24.0;
constexpr std::string_view Tick = "M7.2 12.4l3.3 3.3L16.8 9.2";

QByteArray Strokes(std::string_view path, const QByteArray& color, double width) {
    return "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 24 24'><path d='" +
           QByteArray(path.data(), static_cast<qsizetype>(path.size())) + "' fill='none' stroke='" + color +
           "' stroke-width='" + QByteArray::number(width) + "' stroke-linecap='round' stroke-linejoin='round'/></svg>";
}

void DrawStrokes(QPainter& painter, std::string_view path, const QColor& color, double width = 1.75) {
    QSvgRenderer(Strokes(path, color.name().toLatin1(), width)).render(&painter, QRectF(0, 0, Grid, Grid));
}

enum class Shape { None, Disc, FilledSquare, EmptySquare };

struct NamedShape {
    const char* name;
    Shape shape;
};

constexpr NamedShape Shapes[] = {
    {"marked", Shape::Disc}, {"selected", Shape::FilledSquare}, {"unselected", Shape::EmptySquare}};

Shape ShapeOf(const QString& name) {
    for (const NamedShape& named : Shapes)
        if (name == QLatin1String(named.name)) return named.shape;
    return Shape::None;
}

// The tick is cut out, so that it is visible on any background.
void DrawShape(QPainter& painter, Shape shape, const QColor& color) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    if (shape == Shape::EmptySquare) {
        painter.setPen(QPen(color, 1.75));
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(QRectF(4.375, 4.375, 15.25, 15.25), 1.6, 1.6);
        return;
    }
    if (shape == Shape::Disc)
        painter.drawEllipse(QPointF(12, 12), 9.4, 9.4);
    else
        painter.drawRoundedRect(QRectF(3.5, 3.5, 17, 17), 2, 2);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    DrawStrokes(painter, Tick, Qt::black, 2.2);
}

void Draw(QPainter& painter, const QString& name, const QColor& color) {
    const Shape shape = ShapeOf(name);
    if (shape != Shape::None)
        DrawShape(painter, shape, color);
    else
        DrawStrokes(painter, IconPath(name.toStdString()), color);
}

QPixmap Render(const QString& name, int size, const QColor& color, qreal devicePixelRatio) {
    const int side = qRound(size * devicePixelRatio);
    QPixmap picture(side, side);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / Grid, side / Grid);
    Draw(painter, name, color);
    painter.end();
    picture.setDevicePixelRatio(devicePixelRatio);
    return picture;
}

class Engine : public QIconEngine {
public:
    Engine(const QString& name, const QColor& color) : m_name(name), m_color(color) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const int size = qMin(rect.width(), rect.height());
        const qreal ratio = painter->device() ? painter->device()->devicePixelRatioF() : 1.0;
        painter->drawPixmap(rect.center() - QPoint(size / 2, size / 2), Pixmap(m_name, size, ColorFor(mode), ratio));
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1.0);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State, qreal scale) override {
        return Pixmap(m_name, qRound(qMin(size.width(), size.height()) / scale), ColorFor(mode), scale);
    }
    QIconEngine* clone() const override { return new Engine(*this); }

private:
    QColor ColorFor(QIcon::Mode mode) const {
        if (mode == QIcon::Disabled) return Theme::Get(Theme::Color::DisabledText);
        if (mode == QIcon::Selected) return Theme::Get(Theme::Color::HighlightText);
        return m_color;
    }

    QString m_name;
    QColor m_color;
};

}  // namespace

bool Has(const QString& name) { return ShapeOf(name) != Shape::None || !IconPath(name.toStdString()).empty(); }

QStringList Names() {
    QStringList names;
    for (const std::string_view name : IconPathNames())
        names << QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
    for (const NamedShape& named : Shapes) names << QLatin1String(named.name);
    return names;
}

QPixmap Pixmap(const QString& name, int size, const QColor& color, qreal devicePixelRatio) {
    if (!Has(name) || size < 1) return QPixmap();
    const QString key =
        QStringLiteral("quellbrook/%1/%2/%3/%4").arg(name).arg(size).arg(color.rgba(), 8, 16).arg(devicePixelRatio);
    QPixmap picture;
    if (QPixmapCache::find(key, &picture)) return picture;
    picture = Render(name, size, color, devicePixelRatio);
    QPixmapCache::insert(key, picture);
    return picture;
}

QIcon Icon(const QString& name, const QColor& color) { return Has(name) ? QIcon(new Engine(name, color)) : QIcon(); }

}  // namespace quellbrook::Icons

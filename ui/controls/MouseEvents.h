#pragma once

#include <QObject>
#include <QPoint>
#include <QPointF>
#include <QPointer>

class QMouseEvent;
class QWidget;

namespace quellbrook {

class FlatScrollBar;

// Bits of the button masks in mouse events.
namespace MouseButton {
inline constexpr int Left = 1, Right = 2, Middle = 4;
}
// The bit of a button; 0 for any other button.
int ButtonMask(Qt::MouseButton button);

// Releases and double clicks over a container and everything inside it, at pixels of the container. Buttons
// are masks of MouseButton.
class MouseEvents : public QObject {
    Q_OBJECT

public:
    explicit MouseEvents(QWidget* container);

signals:
    void Up(int button, const QPoint& at);
    void DoubleClick(const QPoint& at);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Identifies a mouse event. Qt passes an event that a child ignores to its parent as a new event, which must not be
    // counted again.
    struct Seen {
        int type = 0;
        quint64 timestamp = 0;
        QPointF at;
        Qt::MouseButton button = Qt::NoButton;

        bool operator==(const Seen&) const = default;
    };

    void Watch(QObject* widget);
    void Handle(QObject* watched, QEvent* event);
    bool IsEcho(const QMouseEvent& event);

    QWidget* m_container;
    Seen m_last;
};

// Scrolls a bar when the wheel turns over its container.
class ScrollWheelSupport : public QObject {
    Q_OBJECT

public:
    ScrollWheelSupport(QWidget* container, FlatScrollBar* bar);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<FlatScrollBar> m_bar;
};

}  // namespace quellbrook

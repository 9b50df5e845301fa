#pragma once

#include <QEvent>
#include <QWidget>

#include <functional>

namespace quellbrook::testing {

// Counts the paint events of each widget whose event filter it is.
class PaintCounter : public QObject {
public:
    PaintCounter() = default;
    explicit PaintCounter(QWidget& widget) { widget.installEventFilter(this); }

    int count = 0;
    std::function<bool()> counts = [] { return true; };  // whether this event counts

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint && counts()) ++count;
        return false;
    }
};

}  // namespace quellbrook::testing

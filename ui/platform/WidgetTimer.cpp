#include "ui/platform/WidgetTimer.h"

#include "ui/platform/Guard.h"

namespace quellbrook {

WidgetTimer::WidgetTimer() {
    m_timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_timer, &QTimer::timeout, [this] {
        const std::function<void()> elapsed = Elapsed;
        if (elapsed) Guard(elapsed);
    });
}

}  // namespace quellbrook

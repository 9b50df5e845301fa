#pragma once

#include "base/Timer.h"

#include <QTimer>

namespace quellbrook {

// A QTimer, precise to the millisecond. A tick runs inside Guard and may destroy its timer.
class WidgetTimer : public Timer {
public:
    WidgetTimer();

    void SetInterval(int milliseconds) override { m_timer.setInterval(milliseconds); }
    void SetSingleShot(bool singleShot) override { m_timer.setSingleShot(singleShot); }
    void Start() override { m_timer.start(); }
    void Stop() override { m_timer.stop(); }
    bool IsRunning() const override { return m_timer.isActive(); }

private:
    QTimer m_timer;
};

}  // namespace quellbrook

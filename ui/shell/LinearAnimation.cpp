#include "ui/shell/LinearAnimation.h"

#include "base/Error.h"

#include <QMetaObject>
#include <QVariant>

#include <cmath>

namespace quellbrook {

namespace {

constexpr int TickInterval = 10;

}  // namespace

LinearAnimation::LinearAnimation() : m_timer(MakeTimer()) {
    m_timer->SetInterval(TickInterval);
    m_timer->Elapsed = [this] { Timer_Elapsed(); };
}

void LinearAnimation::Start(const LinearAnimationOptions& options) {
    if (!options.Target)
        Raise(ErrorNumber::General, "LinearAnimation.Start",
              "Cannot animate with the given parameters -> Target is set to Nothing.");
    m_isIncreasing = options.StartValue < options.FinalValue;
    m_options = options;
    m_currentValue = options.StartValue;
    SetTargetProperty();
    m_inProgress = true;
    // A running timer is not restarted.
    if (!m_timer->IsRunning()) m_timer->Start();
}

void LinearAnimation::Timer_Elapsed() {
    if (!m_options.Target) return Stop();
    try {
        Step();
    } catch (...) {
        Stop();  // otherwise every tick would fail again
        throw;
    }
}

void LinearAnimation::Step() {
    const float step = std::fabs(m_options.Increment);
    m_currentValue += m_isIncreasing ? step : -step;
    const bool there = m_isIncreasing ? m_currentValue >= m_options.FinalValue : m_currentValue <= m_options.FinalValue;
    if (there) m_currentValue = m_options.FinalValue;
    SetTargetProperty();
    if (!there) return;
    Stop();
    Finished();
}

void LinearAnimation::SetTargetProperty() {
    const char* name = m_options.PropertyName.c_str();
    const bool known = m_options.Target->metaObject()->indexOfProperty(name) >= 0;
    if (!known || !m_options.Target->setProperty(name, m_currentValue))
        Raise(ErrorNumber::General, "LinearAnimation",
              "There is no property \"" + m_options.PropertyName + "\" to animate.");
}

void LinearAnimation::Stop() {
    m_timer->Stop();
    m_inProgress = false;
}

}  // namespace quellbrook

#pragma once

#include "base/Environment.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace quellbrook::testing {

class ManualTimers;

// A timer that ticks only when Tick is called.
class ManualTimer : public Timer {
public:
    explicit ManualTimer(std::shared_ptr<std::vector<ManualTimer*>> all) : m_all(std::move(all)) {
        m_all->push_back(this);
    }
    ~ManualTimer() override { std::erase(*m_all, this); }

    void SetInterval(int milliseconds) override { m_interval = milliseconds; }
    void SetSingleShot(bool singleShot) override { m_singleShot = singleShot; }
    void Start() override {
        m_running = true;
        ++m_starts;
    }
    void Stop() override { m_running = false; }
    bool IsRunning() const override { return m_running; }

    int Interval() const { return m_interval; }
    bool IsSingleShot() const { return m_singleShot; }
    int Starts() const { return m_starts; }

    // Simulates one elapsed interval; no effect on a stopped timer. The callback may destroy the timer.
    void Tick() {
        if (!m_running) return;
        if (m_singleShot) m_running = false;
        const auto elapsed = Elapsed;
        if (elapsed) elapsed();
    }

private:
    std::shared_ptr<std::vector<ManualTimer*>> m_all;
    int m_interval = 0;
    int m_starts = 0;
    bool m_singleShot = false;
    bool m_running = false;
};

// Makes every timer of an environment a manual one.
class ManualTimers {
public:
    explicit ManualTimers(EnvironmentScope& environment) {
        environment->makeTimer = [all = m_all] { return std::make_unique<ManualTimer>(all); };
    }
    ManualTimers(const ManualTimers&) = delete;
    ManualTimers& operator=(const ManualTimers&) = delete;

    // The existing timers, in order of creation.
    const std::vector<ManualTimer*>& All() const { return *m_all; }

    std::vector<ManualTimer*> Running() const {
        std::vector<ManualTimer*> running;
        std::copy_if(m_all->begin(), m_all->end(), std::back_inserter(running),
                     [](const ManualTimer* timer) { return timer->IsRunning(); });
        return running;
    }

    // Ticks every running timer once, in order of creation. Returns the number of ticks.
    int TickAll() {
        int ticks = 0;
        for (ManualTimer* timer : Running()) {
            if (std::find(m_all->begin(), m_all->end(), timer) == m_all->end()) continue;
            timer->Tick();
            ++ticks;
        }
        return ticks;
    }

    // Ticks those with this interval.
    int Tick(int interval) {
        int ticks = 0;
        for (ManualTimer* timer : Running()) {
            const bool lives = std::find(m_all->begin(), m_all->end(), timer) != m_all->end();
            if (!lives || timer->Interval() != interval) continue;
            timer->Tick();
            ++ticks;
        }
        return ticks;
    }

private:
    std::shared_ptr<std::vector<ManualTimer*>> m_all = std::make_shared<std::vector<ManualTimer*>>();
};

}  // namespace quellbrook::testing

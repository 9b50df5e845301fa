// For any sequence of key messages, timer events and delays, the listener behaves like its model: the messages let
// through, the buffer, the number of waiting scans, and the events.

#include "base/Environment.h"
#include "fuzz/Fail.h"
#include "input/BarcodeListener.h"
#include "tests/support/BarcodeListenerModel.h"

#include <cstdint>
#include <optional>

using namespace quellbrook;
using quellbrook::fuzz::Check;
using quellbrook::testing::BarcodeListenerModel;

namespace {

class StandingClock : public Clock {
public:
    DateTime Now() const override { return now; }
    DateTime now{};
};

class HandTimer : public Timer {
public:
    void SetInterval(int) override {}
    void SetSingleShot(bool) override {}
    void Start() override { running = true; }
    void Stop() override { running = false; }
    bool IsRunning() const override { return running; }
    bool running = false;
};

HandTimer* timer = nullptr;
MessageHook* hook = nullptr;

class Play {
public:
    Play(const uint8_t* data, size_t size) : m_data(data), m_size(size) {
        m_environment->clock = &m_clock;
        m_environment->makeTimer = [] {
            auto made = std::make_unique<HandTimer>();
            timer = made.get();
            return made;
        };
        m_environment->makeMessageHook = [] {
            auto made = std::make_unique<MessageHook>();
            hook = made.get();
            return made;
        };
        m_listener.BarcodeScanned.connect([this](int32_t type, const std::string& number) {
            Check(!m_raised, "One timer event raised two scans", number);
            m_raised = {type, number};
        });
        m_listener.Shown();
    }

    void Run() {
        while (m_at < m_size) {
            switch (Next() % 8) {
            case 0: Send(KeyMessageNumber::Char, 2); break;
            case 1: Send(KeyMessageNumber::Char, 3); break;
            case 2: Send(Next() % 2 == 0 ? KeyMessageNumber::Char : KeyMessageNumber::SysChar, Code()); break;
            case 3: Fire(); break;
            case 4: m_clock.now.milliseconds += Next() * 40; break;
            case 5: m_isListening = !m_isListening; break;
            case 6: m_isActive = !m_isActive; break;
            default: Send(KeyMessageNumber::KeyDown + Next() % 8, Next());
            }
        }
    }

private:
    uint32_t Next() { return m_at < m_size ? m_data[m_at++] : 0; }

    uint32_t Code() {
        const uint32_t high = Next();
        return high * 257u + Next();
    }

    void Send(uint32_t number, uint32_t wParam) {
        KeyMessage message{number, wParam};
        const float seconds = BarcodeListenerModel::SecondsOf(m_clock.now);
        const bool expected = m_model.OnMessage(message, m_isListening, seconds);
        hook->OnMessage(message);
        const bool passed = message.number != KeyMessageNumber::Cancelled;
        Check(passed == expected, "The wrong message passed", m_listener.Buffer());
        CompareBooks();
    }

    void Fire() {
        if (!timer->running) return;
        timer->running = false;
        m_raised.reset();
        const auto expected = m_model.OnFiring(m_isActive);
        timer->Elapsed();
        Check(m_raised == expected, "A timer event raised another scan", m_raised ? m_raised->second : "nothing");
        CompareBooks();
    }

    void CompareBooks() const {
        Check(m_listener.Buffer() == m_model.Buffer(), "The buffer differs", m_listener.Buffer());
        Check(m_listener.Waiting() == m_model.Waiting(), "The number of waiting scans differs", m_listener.Buffer());
    }

    const uint8_t* m_data;
    size_t m_size;
    size_t m_at = 0;
    EnvironmentScope m_environment;
    StandingClock m_clock;
    bool m_isListening = true, m_isActive = true;
    BarcodeListenerModel m_model;
    std::optional<BarcodeListenerModel::Scan> m_raised;
    BarcodeListener m_listener{{[this] { return m_isListening; }, [this] { return m_isActive; }}};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Play(data, size).Run();
    return 0;
}

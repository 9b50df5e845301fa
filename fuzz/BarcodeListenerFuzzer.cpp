// Any sequence of key messages, firings and passing of time keeps the listener's books: the waiting scans grow by one with
// each end of a scan and shrink by at most one with each firing, the buffer grows by one character with each character
// of a scan, and what is cancelled is what a scan consists of, or a press in the rest period.

#include "base/Clock.h"
#include "base/MessageHook.h"
#include "base/Timer.h"
#include "fuzz/Fail.h"
#include "input/BarcodeListener.h"

#include <cmath>
#include <cstdint>

using namespace quellbrook;
using quellbrook::fuzz::Check;

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

size_t CharactersIn(const std::string& text) {
    size_t count = 0;
    for (const char c : text) count += (c & 0xC0) != 0x80;
    return count;
}

class Play {
public:
    Play(const uint8_t* data, size_t size) : m_data(data), m_size(size) {
        SetClock(&m_clock);
        m_listener.BarcodeScanned.connect([this](int32_t, const std::string&) { ++m_raised; });
        m_listener.Shown();
    }
    ~Play() { SetClock(nullptr); }

    void Run() {
        while (m_at < m_size) {
            switch (Next() % 8) {
                case 0: Character(2); break;
                case 1: Character(3); break;
                case 2: Character(Next() * 257u + Next()); break;
                case 3: Fire(); break;
                case 4: m_clock.now.milliseconds += Next() * 40; break;
                case 5: m_isListening = !m_isListening; break;
                case 6: m_isActive = !m_isActive; break;
                default: Key(Next() % 2 == 0 ? KeyMessageNumber::KeyDown : KeyMessageNumber::SysKeyUp, Next());
            }
        }
    }

private:
    uint32_t Next() { return m_at < m_size ? m_data[m_at++] : 0; }

    bool Send(uint32_t number, uint32_t wParam) {
        KeyMessage message{number, wParam};
        hook->OnMessage(message);
        return message.number != KeyMessageNumber::Cancelled;
    }

    void Character(uint32_t code) {
        const size_t buffered = CharactersIn(m_listener.Buffer()), waiting = m_listener.Waiting();
        const bool passed = Send(KeyMessageNumber::Char, code);
        const bool taken = m_isListening && (m_isScanning || code == 2);
        Check(passed == !taken, "A character went the wrong way", m_listener.Buffer());
        if (code == 2 && taken) {
            m_isScanning = true;
            m_lastEnd = 0;
            Check(m_listener.Buffer().empty(), "A start did not empty the buffer", m_listener.Buffer());
        } else if (code == 3 && taken) {
            m_lastEnd = Seconds();
            Check(m_listener.Waiting() == waiting + 1, "An end did not queue one scan", m_listener.Buffer());
            return;
        } else {
            Check(CharactersIn(m_listener.Buffer()) == buffered + (taken ? 1 : 0), "The buffer did not grow by one",
                  m_listener.Buffer());
        }
        Check(m_listener.Waiting() == waiting, "A scan came from nowhere", m_listener.Buffer());
    }

    void Key(uint32_t number, uint32_t code) {
        const bool passed = Send(number, code);
        const bool isDown = number == KeyMessageNumber::KeyDown;
        const bool expected = isDown ? Seconds() - m_lastEnd >= 0.1 : !(m_isListening && m_isScanning && code != 18);
        Check(passed == expected, "A key went the wrong way", m_listener.Buffer());
    }

    void Fire() {
        if (!timer->running) return;
        timer->running = false;
        const size_t waiting = m_listener.Waiting(), raised = m_raised;
        timer->Elapsed();
        if (waiting > 0) m_isScanning = false;
        Check(m_listener.Waiting() == waiting - (waiting > 0 ? 1 : 0), "A firing took another number of scans",
              m_listener.Buffer());
        Check(m_raised == raised + (waiting > 0 && m_isActive ? 1 : 0), "A firing raised another number of scans",
              m_listener.Buffer());
    }

    float Seconds() const {
        constexpr int64_t day = 24 * 60 * 60 * 1000;
        return static_cast<float>(static_cast<double>(m_clock.now.milliseconds % day) / 1000.0);
    }

    const uint8_t* m_data;
    size_t m_size;
    size_t m_at = 0;
    StandingClock m_clock;
    bool m_isListening = true, m_isActive = true, m_isScanning = false;
    double m_lastEnd = 0;
    size_t m_raised = 0;
    BarcodeListener m_listener{{[this] { return m_isListening; }, [this] { return m_isActive; }}};
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    SetTimerFactory([] {
        auto made = std::make_unique<HandTimer>();
        timer = made.get();
        return made;
    });
    SetMessageHookFactory([] {
        auto made = std::make_unique<MessageHook>();
        hook = made.get();
        return made;
    });
    Play(data, size).Run();
    return 0;
}

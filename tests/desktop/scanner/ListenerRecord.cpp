#include "tests/desktop/scanner/ListenerRecord.h"

#include <QApplication>

namespace quellbrook::testing {

class ListenerRecord::RecordingClock : public Clock {
public:
    RecordingClock(const ListenerRecord& record, const Clock& clock) : m_record(record), m_clock(clock) {}

    DateTime Now() const override {
        const DateTime now = m_clock.Now();
        if (m_record.m_current) m_record.m_current->clock = now;
        return now;
    }

private:
    const ListenerRecord& m_record;
    const Clock& m_clock;
};

class ListenerRecord::RecordingHook : public MessageHook {
public:
    RecordingHook(ListenerRecord& record, std::unique_ptr<MessageHook> hook) : m_hook(std::move(hook)) {
        m_hook->OnMessage = [this, &record](KeyMessage& message) {
            Entry entry;
            entry.message = message;
            record.Record(entry, [&](Entry& written) {
                OnMessage(message);
                written.passed = message.number != KeyMessageNumber::Cancelled;
            });
        };
    }

private:
    const std::unique_ptr<MessageHook> m_hook;
};

class ListenerRecord::RecordingTimer : public Timer {
public:
    RecordingTimer(ListenerRecord& record, std::unique_ptr<Timer> timer) : m_timer(std::move(timer)) {
        m_timer->Elapsed = [this, &record] {
            Entry entry;
            entry.isFiring = true;
            record.Record(entry, [this](Entry&) { Elapsed(); });
        };
    }

    void SetInterval(int milliseconds) override { m_timer->SetInterval(milliseconds); }
    void SetSingleShot(bool singleShot) override { m_timer->SetSingleShot(singleShot); }
    void Start() override { m_timer->Start(); }
    void Stop() override { m_timer->Stop(); }
    bool IsRunning() const override { return m_timer->IsRunning(); }

private:
    const std::unique_ptr<Timer> m_timer;
};

ListenerRecord::ListenerRecord(BarcodeListenerControl& listener)
    : m_listener(listener), m_clock(std::make_unique<RecordingClock>(*this, GetClock())) {
    m_environment->clock = m_clock.get();
    const auto hook = std::make_shared<std::unique_ptr<MessageHook>>(MakeMessageHook());
    const auto timer = std::make_shared<std::unique_ptr<Timer>>(MakeTimer());
    m_environment->makeMessageHook = [this, hook] { return std::make_unique<RecordingHook>(*this, std::move(*hook)); };
    // The listener's timer is the first one; its limit has one too.
    m_environment->makeTimer = [this, timer, makeTimer = m_environment->makeTimer]() -> std::unique_ptr<Timer> {
        if (!*timer) return makeTimer();
        auto made = std::make_unique<RecordingTimer>(*this, std::move(*timer));
        m_timer = made.get();
        return made;
    };
    m_listener.BarcodeScanned().connect([this](int32_t type, const std::string& data) {
        if (m_current) m_current->raised = {type, data};
    });
}

ListenerRecord::~ListenerRecord() = default;

void ListenerRecord::Record(Entry entry, const std::function<void(Entry&)>& happen) {
    entry.isListening = m_listener.IsListening();
    entry.isWindowActive = QApplication::activeWindow() == m_listener.window();
    m_current = &entry;
    happen(entry);
    m_current = nullptr;
    entry.buffer = m_listener.Listener().Buffer();
    entry.waiting = m_listener.Listener().Waiting();
    m_entries.push_back(std::move(entry));
}

}  // namespace quellbrook::testing

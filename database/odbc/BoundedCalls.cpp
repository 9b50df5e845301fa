#include "database/odbc/BoundedCalls.h"

#include "base/Error.h"
#include "base/FormatCount.h"
#include "database/LockWait.h"

#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

namespace quellbrook {

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

// A shorter wait is not shown.
constexpr milliseconds noticeable(400);
constexpr milliseconds pause(50);

}  // namespace

struct BoundedCalls::Slot {
    std::mutex mutex;
    std::condition_variable changed;
    std::function<void()> call;  // null when it has ended
    std::exception_ptr failure;
    bool isLast = false;

    void Serve() {
        std::unique_lock lock(mutex);
        while (true) {
            changed.wait(lock, [this] { return call || isLast; });
            if (!call) return;
            lock.unlock();
            std::exception_ptr thrown;
            try {
                call();
            } catch (...) {
                thrown = std::current_exception();
            }
            lock.lock();
            failure = thrown;
            call = nullptr;
            changed.notify_all();
        }
    }
};

BoundedCalls::BoundedCalls() : m_slot(std::make_shared<Slot>()) {
    std::thread([slot = m_slot] { slot->Serve(); }).detach();
}

BoundedCalls::~BoundedCalls() {
    const std::lock_guard lock(m_slot->mutex);
    m_slot->isLast = true;
    m_slot->changed.notify_all();
}

void BoundedCalls::Run(std::function<void()> call, milliseconds limit) {
    const char* const source = "BoundedCalls.Run";
    if (m_isAbandoned) Raise(ErrorNumber::General, source, "The connection to the database server is no longer used.");
    const auto start = steady_clock::now();
    std::unique_lock lock(m_slot->mutex);
    m_slot->call = std::move(call);
    m_slot->changed.notify_all();
    const auto hasEnded = [this] { return !m_slot->call; };
    while (!m_slot->changed.wait_for(lock, noticeable, hasEnded)) {
        if (steady_clock::now() - start >= limit) {
            m_isAbandoned = true;
            Raise(ErrorNumber::General, source,
                  "The database server did not answer within " +
                      FormatCount((limit.count() + 999) / 1000, "%d second", "%d seconds") + ".");
        }
        lock.unlock();
        m_isAbandoned = true;  // in case the pause throws
        PauseForDatabase(pause);
        m_isAbandoned = false;
        lock.lock();
    }
    if (const std::exception_ptr failure = std::exchange(m_slot->failure, nullptr)) std::rethrow_exception(failure);
}

}  // namespace quellbrook

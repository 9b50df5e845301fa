#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace quellbrook {

// Runs calls of a driver on a thread of its own, so that the caller waits no longer than a limit even if the driver
// does not return. Waits pass in the pauses of LockWait.h, so that windows stay painted. The thread ends after this
// object, or when an abandoned call returns.
class BoundedCalls {
public:
    BoundedCalls();
    ~BoundedCalls();
    BoundedCalls(const BoundedCalls&) = delete;
    BoundedCalls& operator=(const BoundedCalls&) = delete;

    // Runs the call and passes its exception on. If it takes longer than the limit, abandons it and raises error 5; no
    // other call can be run then. An abandoned call may end at any time: it must own what it uses.
    void Run(std::function<void()> call, std::chrono::milliseconds limit);
    bool IsAbandoned() const { return m_isAbandoned; }

private:
    struct Slot;
    std::shared_ptr<Slot> m_slot;
    bool m_isAbandoned = false;
};

}  // namespace quellbrook

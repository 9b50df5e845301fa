#pragma once

#include "base/Event.h"
#include "base/Timer.h"

#include <memory>

namespace quellbrook {

class BarcodeListener;

// Drops a scan that has no end a second after its start, so that a scanner with wrong settings, or an accidental
// Ctrl+B, does not block the keyboard. The listener must outlive this object.
class ScanLimit {
public:
    explicit ScanLimit(BarcodeListener& listener);
    ScanLimit(const ScanLimit&) = delete;
    ScanLimit& operator=(const ScanLimit&) = delete;

private:
    std::unique_ptr<Timer> m_timer;
    Subscription m_subscription;
};

}  // namespace quellbrook

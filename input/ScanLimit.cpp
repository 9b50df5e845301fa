#include "input/ScanLimit.h"

#include "input/BarcodeListener.h"

namespace quellbrook {

ScanLimit::ScanLimit(BarcodeListener& listener) : m_timer(MakeTimer()) {
    constexpr int longestScan = 1000;  // milliseconds
    m_timer->SetInterval(longestScan);
    m_timer->SetSingleShot(true);
    m_timer->Elapsed = [&listener] { listener.DropUnfinishedScan(); };
    m_subscription = listener.ScanStarted.connect([this] { m_timer->Start(); });
}

}  // namespace quellbrook

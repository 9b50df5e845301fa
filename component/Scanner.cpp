#include "component/Scanner.h"

#include "base/Timer.h"
#include "input/BarcodeListener.h"

namespace quellbrook {

ScanDropper::ScanDropper(std::function<bool()> applies) : m_applies(std::move(applies)), m_limit(MakeTimer()) {
    constexpr int longestScan = 1000;  // milliseconds
    m_limit->SetInterval(longestScan);
    m_limit->SetSingleShot(true);
    m_limit->Elapsed = [this] {
        if (m_listener->IsScanning()) Listen();
    };
    Listen();
}

ScanDropper::~ScanDropper() = default;

void ScanDropper::Listen() {
    m_listener = std::make_unique<BarcodeListener>(BarcodeListener::Surroundings{m_applies, [] { return false; }});
    m_listener->ScanStarted.connect([this] { m_limit->Start(); });
    m_listener->Shown();
}

}  // namespace quellbrook

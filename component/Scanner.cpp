#include "component/Scanner.h"

#include "input/BarcodeListener.h"
#include "input/ScanLimit.h"

namespace quellbrook {

ScanDropper::ScanDropper(std::function<bool()> applies)
    : m_listener(
          std::make_unique<BarcodeListener>(BarcodeListener::Surroundings{std::move(applies), [] { return false; }})),
      m_limit(std::make_unique<ScanLimit>(*m_listener)) {
    m_listener->Shown();
}

ScanDropper::~ScanDropper() = default;

bool ScanDropper::IsScanUnderWay() { return BarcodeListener::IsScanUnderWay(); }

}  // namespace quellbrook

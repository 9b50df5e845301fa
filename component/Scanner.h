#pragma once

#include <functional>
#include <memory>

namespace quellbrook {

class BarcodeListener;
class ScanLimit;

// While the condition is true, drops everything a scanner types, so that no text field of the host gets it and no
// shortcut runs. The views of the component take their scans themselves. A scan that has no end a second after its
// start is dropped too, and keys pass again. Create it after Startup and
// destroy it before Shutdown.
class ScanDropper {
public:
    explicit ScanDropper(std::function<bool()> applies);
    ~ScanDropper();
    ScanDropper(const ScanDropper&) = delete;
    ScanDropper& operator=(const ScanDropper&) = delete;

    // Whether the keys of a scan are arriving, for the component or dropped. A shortcut of the host then does nothing.
    static bool IsScanUnderWay();

private:
    std::unique_ptr<BarcodeListener> m_listener;
    std::unique_ptr<ScanLimit> m_limit;
};

}  // namespace quellbrook

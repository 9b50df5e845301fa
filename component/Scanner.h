#pragma once

#include <functional>
#include <memory>

namespace quellbrook {

class BarcodeListener;
class Timer;

// Takes what a scanner types out of the keys of the application while the condition is true, and drops it, so that no
// text field of the host gets it and no shortcut runs. The views of the component take their scans themselves. A scan
// that has no end a second after its start is dropped too, and keys pass again. Create it after Startup.
class ScanDropper {
public:
    explicit ScanDropper(std::function<bool()> applies);
    ~ScanDropper();
    ScanDropper(const ScanDropper&) = delete;
    ScanDropper& operator=(const ScanDropper&) = delete;

private:
    void Listen();

    std::function<bool()> m_applies;
    std::unique_ptr<Timer> m_limit;
    std::unique_ptr<BarcodeListener> m_listener;
};

}  // namespace quellbrook

#pragma once

#include "input/BarcodeListener.h"
#include "input/ScanLimit.h"
#include "ui/controls/View.h"

#include <optional>

namespace quellbrook {

// Receives barcode scans for its parent view. It has no size and is invisible. It is active while it is shown and
// enabled and no other view covers its parent; a scan while another window is active is consumed and dropped. A scan
// first closes the menus that are open. A scan that has no end a second after its start is dropped. The key hook is
// installed when the control is first shown and removed at destruction. In a form designer, the control shows an icon
// and installs no hook.
class BarcodeListenerControl : public View {
    Q_OBJECT

public:
    explicit BarcodeListenerControl(QWidget* parent = nullptr);
    std::string TypeName() const override { return "BarcodeListener"; }

    // The BarcodeType and the text after the type letter.
    Event<int32_t, const std::string&>& BarcodeScanned() { return m_barcodeScanned; }
    const BarcodeListener& Listener() const { return m_listener; }

    bool IsListening() const;

protected:
    void Shown() override;
    void paintEvent(QPaintEvent* event) override;

private:
    Event<int32_t, const std::string&> m_barcodeScanned;
    BarcodeListener m_listener;
    std::optional<ScanLimit> m_limit;
};

}  // namespace quellbrook

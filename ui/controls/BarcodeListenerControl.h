#pragma once

#include "input/BarcodeListener.h"
#include "ui/controls/View.h"

namespace quellbrook {

// What a view holds to hear the scanner: an invisible control of no size. It reacts while it is on show and enabled and
// no other view lies over the one that holds it; what is scanned while another window is active is taken in and lost.
// Its hook on the keys is put in place when it is first shown and stays until its end.
// In a form designer it shows an icon, has the icon's size and hooks nothing.
// Who asks what:
// - EvidenceExplorer (itemBarcodeListener), SubmitEvidenceView (itemBarcodeLicenser): BarcodeScanned.
class BarcodeListenerControl : public View {
    Q_OBJECT

public:
    explicit BarcodeListenerControl(QWidget* parent = nullptr);
    std::string TypeName() const override { return "BarcodeListener"; }

    // The BarcodeType, and what stood behind the type letter.
    Event<int32_t, const std::string&>& BarcodeScanned() { return m_listener.BarcodeScanned; }
    const BarcodeListener& Listener() const { return m_listener; }

    bool IsListening() const;

protected:
    void Shown() override;
    void paintEvent(QPaintEvent* event) override;

private:
    BarcodeListener m_listener;
};

}  // namespace quellbrook

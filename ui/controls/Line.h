#pragma once

#include "ui/controls/Control.h"
#include "ui/style/Theme.h"

namespace quellbrook {

// A horizontal or vertical rule, as thick as its smaller side.
// Who asks what:
// - EvidenceExplorer: lnDivider upright, lnSeparator across.
// - SearchResultRow (lnBottom), TrackingResult (lnSeparator): one pixel at the lower edge.
// - StoredItemView, CartView, SubmitEvidenceView, frmModal: under a heading or over a strip, as wide as what it bounds.
// - InfoBar (topBorder): SetColor.
class Line : public Control {
    Q_OBJECT

public:
    explicit Line(QWidget* parent = nullptr);
    std::string TypeName() const override { return "Line"; }
    void SetColor(Theme::Color color);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Theme::Color m_color = Theme::Color::Hairline;
};

}  // namespace quellbrook

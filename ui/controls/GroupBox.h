#pragma once

#include "ui/controls/Control.h"
#include "ui/style/Theme.h"

#include <optional>

namespace quellbrook {

// A plain container with a ground and, if asked for, a hairline frame. No caption.
// Who asks what:
// - EvidenceExplorer, CategorizedSearchResults: strips, groups that come and go with their link, a cover that fills the
//   view.
// - EvidenceExplorer, LocationTree: SetBackColor to the colour of the tree.
// - SearchResultList, TrackingList: picContainer, higher than the list and moved to scroll; StatePanel and
//   ListPlaceholder derive from it.
// - StoredItemView, CartView, SubmitEvidenceView, PropertyDetails: parts of the page; formPanel framed.
// - StoredItemMenu (shpMessage): a ground as wide as the texts over it.
// - SetupLocationsWizard (picNoLocations, picMessage): a panel in the place of the list.
// - frmModal, frmAddEditLocation, frmFinalDisposition: shpBorder framed, grpTitlebar one pixel inside it.
class GroupBox : public Control {
    Q_OBJECT

public:
    explicit GroupBox(QWidget* parent = nullptr);
    std::string TypeName() const override { return "GroupBox"; }

    void SetBackColor(Theme::Color color);
    void SetBackColor(const QColor& color);
    void SetTransparent();  // no ground of its own; the state at first
    void SetFramed(bool framed);
    QColor BackColor() const;  // the ground as painted; the window's when transparent

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<Theme::Color> m_themeColor;
    std::optional<QColor> m_fixedColor;
    bool m_framed = false;
};

}  // namespace quellbrook

#pragma once

#include "base/Object.h"
#include "data/CustodyRecords.h"
#include "data/StoredItem.h"
#include "ui/common/FontLabel.h"
#include "ui/controls/FontIcon.h"

#include <memory>
#include <optional>
#include <vector>

namespace quellbrook {

class PropertyBag;

// The incident numbers of an item in one line. Secured numbers have a color and a lock. Sizes itself to its content.
// The background is transparent.
class RelatedIncidentStrip : public Control {
    Q_OBJECT
    Q_PROPERTY(QColor ForeColor READ ForeColor WRITE SetForeColor)
    Q_PROPERTY(QFont Font READ Font WRITE SetFont)

public:
    explicit RelatedIncidentStrip(QWidget* parent = nullptr);
    std::string TypeName() const override { return "RelatedIncidentStrip"; }

    // Error 380 for null.
    void SetIncidents(std::shared_ptr<const IncidentList> incidents);
    // By default the parent's text color and the theme's font.
    QColor ForeColor() const;
    void SetForeColor(const QColor& color);
    QFont Font() const;
    void SetFont(const QFont& font) { setFont(font); }
    // Whether the background has the highlight color. Secured numbers keep their color, on a chip of the window color.
    void SetOnHighlight(bool onHighlight);
    // Paints those chips. Called by the parent while it paints itself, since a chip is wider than its number.
    void PaintChips(QPainter& painter) const;

    // "ForeColor" and "Font". An unreadable value leaves the property unchanged.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

protected:
    void Layout() override;
    void changeEvent(QEvent* event) override;

private:
    void Rebuild();
    void UnloadMembers();
    void LoadMembers();
    void ShowNone();
    void ShowIncident(size_t index);
    void ApplyLook();
    QColor AmbientColor() const;
    bool IsSecured(size_t index) const;

    std::shared_ptr<const IncidentList> m_incidents;
    std::optional<QColor> m_foreColor;
    bool m_onHighlight = false;
    std::vector<FontLabel*> m_ids;
    std::vector<FontIcon*> m_secured;
    std::vector<FontLabel*> m_separators;
};

}  // namespace quellbrook

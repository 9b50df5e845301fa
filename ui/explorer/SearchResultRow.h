#pragma once

#include "base/Event.h"
#include "core/CartStore.h"
#include "data/StoredItem.h"
#include "ui/controls/Label.h"
#include "ui/controls/View.h"

#include <vector>

class QPainter;

namespace quellbrook {

class FontIcon;
class Line;
class RelatedIncidentStrip;
class StatusTag;

// One row of a result list: a stored item's description, location, incidents and cases, and whether it is in the batch.
// Can be reused for other items; does not handle input. Its height depends on its fields.
class SearchResultRow : public View {
    Q_OBJECT
    Q_PROPERTY(bool Focused READ Focused WRITE SetFocused)

public:
    explicit SearchResultRow(QWidget* parent = nullptr);
    std::string TypeName() const override { return "searchResult"; }

    // Error 91 for null. If a member of the item fails, the fields set so far and the previous item remain.
    void SetItem(const StoredItemRef& item);
    // Null before the first SetItem.
    const StoredItemRef& Item() const { return m_item; }
    // False after the row has refreshed its item, until SetItem fills the fields again.
    bool IsUpToDate() const { return m_upToDate; }

    // Whether the row is the selected one of its list. It is gray while it is neither Focused nor in the batch.
    void SetSelected(bool selected);
    // True for the selected row of a list that has the focus. Setting it repaints.
    bool Focused() const { return m_focused; }
    void SetFocused(bool focused);
    bool InCart() const { return m_inCart; }

    // Hides the row and stops watching the batch. Called before the row is destroyed.
    void Retire();

protected:
    void Shown() override;
    void Layout() override;
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct DesignColor {
        Label* label;
        Theme::Color color;
    };

    Label* AddLabel(const char* name, const char* caption, Theme::Type type, Theme::Color color);
    void BuildFields();
    void StoreColors();
    void LayoutFields();
    void UpdateCartState();
    void ApplyColors();
    QColor Background() const;
    void PaintDivider(QPainter& painter) const;
    void CartStore_OnChange();

    StoredItemRef m_item;
    bool m_selected = false;
    bool m_focused = false;
    bool m_inCart = false;
    bool m_upToDate = false;
    bool m_shown = false;
    std::vector<DesignColor> m_designColors;
    FontIcon* m_icon = nullptr;
    Label* m_id = nullptr;
    Label* m_description = nullptr;
    StatusTag* m_status = nullptr;
    Label* m_location = nullptr;
    Label* m_category = nullptr;
    RelatedIncidentStrip* m_relatedIncidents = nullptr;
    Label* m_relatedCases = nullptr;
    Line* m_bottomLine = nullptr;
    std::shared_ptr<CartStore> m_cartStore;
    Subscription m_cartSubscription;
};

}  // namespace quellbrook

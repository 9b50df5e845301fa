#pragma once

#include "base/Event.h"
#include "core/CartStore.h"
#include "data/StoredItem.h"
#include "ui/controls/Label.h"
#include "ui/controls/View.h"
#include "ui/platform/Guard.h"

#include <vector>

class QPainter;

namespace quellbrook {

class FontIcon;
class Line;
class RelatedIncidentStrip;
class StatusTag;

// One line of a result list: what a stored item is, where it lies, what it belongs to, and whether it stands in the
// batch. Takes one item after another; handles no input. Its height follows from its fields.
class SearchResultRow : public View {
    Q_OBJECT
    Q_PROPERTY(bool Focused READ Focused WRITE SetFocused)

public:
    explicit SearchResultRow(QWidget* parent = nullptr);
    std::string TypeName() const override { return "searchResult"; }

    // Error 91 for null. A failure of the item's members leaves the fields set so far, and the former item.
    void SetItem(const StoredItemRef& item);
    // Null before the first SetItem.
    const StoredItemRef& Item() const { return m_item; }
    // Whether the fields were filled since the row last read its item anew.
    bool IsUpToDate() const { return m_upToDate; }

    // The list's selected row while the list has the focus. Writing repaints.
    bool Focused() const { return m_focused; }
    void SetFocused(bool focused);
    bool InCart() const { return m_inCart; }

    // Who is told when the item could not be read anew after a change of the batch; ReportUnexpected at first.
    void SetRefreshReport(ErrorReport report) { m_refreshReport = std::move(report); }

    // Ends the row's interest in the batch and hides it, before it is destroyed.
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
    void PaintDivider(QPainter& painter) const;
    void CartStore_OnChange();

    StoredItemRef m_item;
    ErrorReport m_refreshReport = ReportUnexpected;
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

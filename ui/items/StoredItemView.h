#pragma once

#include "core/ViewStore.h"
#include "data/StoredItem.h"
#include "ui/controls/View.h"

namespace quellbrook {

class FlatTabs;
class GroupBox;
class Label;
class Line;
class Link;
class PropertyDetails;
class StatusTag;
class StoredItemMenu;
class TrackingList;

// The full page of one stored item: its commands, its heading, and tabs with its details and its chain of custody.
class StoredItemView : public View, public AppView {
    Q_OBJECT

public:
    explicit StoredItemView(QWidget* parent = nullptr);
    std::string TypeName() const override { return "StoredItemView"; }

    // Loads the StoredItem under the key "Item"; without that key nothing changes. Rethrows errors of the item's
    // members.
    void Show(const std::shared_ptr<Dictionary>& viewParameters) override;

protected:
    void Layout() override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void BuildHeading();
    void BuildTabs();
    void LoadItem(const StoredItemRef& item);
    void LayoutView();
    void OpenRecord();

    StoredItemRef m_item;
    StoredItemMenu* m_menu;
    GroupBox* m_titleArea = nullptr;
    Label* m_id = nullptr;
    Label* m_description = nullptr;
    StatusTag* m_status = nullptr;
    Label* m_location = nullptr;
    GroupBox* m_openGroup = nullptr;
    Link* m_openLink = nullptr;
    Link* m_close = nullptr;
    GroupBox* m_spacer = nullptr;
    Line* m_headingRule = nullptr;
    FlatTabs* m_tabs = nullptr;
    PropertyDetails* m_propertyDetails = nullptr;
    TrackingList* m_tracking = nullptr;
};

}  // namespace quellbrook

#pragma once

#include "core/CartStore.h"
#include "ui/controls/Control.h"

#include <vector>

namespace quellbrook {

class GroupBox;
class Label;
class Line;
class Link;

// The command bar of one item. Outside the batch it offers the tasks that are allowed for the item; in the batch it
// shows what is pending and a link that removes the item.
class StoredItemMenu : public Control {
    Q_OBJECT

public:
    explicit StoredItemMenu(QWidget* parent = nullptr);
    std::string TypeName() const override { return "StoredItemMenu"; }

    // From then on, follows changes of the batch. Error 91 for null.
    void SetItem(const StoredItemRef& item);

protected:
    void Layout() override;
    void paintEvent(QPaintEvent* event) override;

private:
    void BuildLinks();
    void BuildStatusStrip();
    void RefreshMenu();
    void ShowPending();
    void ShowLinks();
    void KeepFocus(const QWidget* focused);
    void LayoutMenu();
    void LayoutLinks();
    void LayoutStatusStrip();
    void lnkMenu_Click(int index);
    void lnkUndo_Click();

    StoredItemRef m_item;
    bool m_inCart = false;
    std::shared_ptr<CartStore> m_cartStore;
    std::vector<Link*> m_lnkMenu;  // printing, then one for each type of transaction
    GroupBox* m_shpMessage = nullptr;
    GroupBox* m_shpStatus = nullptr;
    Label* m_lblStatus = nullptr;
    Label* m_lblMessage = nullptr;
    Link* m_lnkUndo = nullptr;
    Line* m_bottomLine = nullptr;
    Subscription m_cartSubscription;
};

}  // namespace quellbrook

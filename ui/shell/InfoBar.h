#pragma once

#include "base/Event.h"
#include "core/Stores.h"
#include "ui/controls/View.h"

#include <memory>

namespace quellbrook {

class FlatButton;
class FontIcon;
class GroupBox;
class Label;
class Line;

// The strip at the bottom of the shell: the number of items in the open batch, its purpose, and buttons to finish or
// cancel it. Docks itself at the bottom of its parent.
class InfoBar : public View {
    Q_OBJECT

public:
    explicit InfoBar(QWidget* parent = nullptr);
    std::string TypeName() const override { return "infobar"; }

    // Subscribes to these stores instead of earlier ones. The constructor subscribes to the current stores if they can
    // be created. Does nothing if the bar is already subscribed to these.
    void Subscribe(const StoresRecord& stores);

signals:
    // The bar is about to disappear while one of its buttons has the focus.
    void LosesFocus();

protected:
    void Shown() override;
    void Layout() override;
    void paintEvent(QPaintEvent* event) override;

private:
    void BuildControls();
    bool ShouldShow() const;
    float DesiredHeight() const;
    void Update();
    QString StatusText() const;
    void Announce();

    bool m_wasShown = false;
    bool m_resizing = false;
    Line* m_topBorder = nullptr;
    FontIcon* m_icon = nullptr;
    Label* m_selected = nullptr;
    GroupBox* m_buttonGroup = nullptr;
    FlatButton* m_cancel = nullptr;
    FlatButton* m_complete = nullptr;
    std::shared_ptr<CartStore> m_cartstore;
    std::shared_ptr<LoadingStore> m_loadingStore;
    std::shared_ptr<ViewStore> m_viewStore;
    Subscription m_cartSubscription;
    Subscription m_loadingSubscription;
    Subscription m_viewSubscription;
};

}  // namespace quellbrook

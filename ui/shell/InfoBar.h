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

// The strip at the bottom of the shell that tells what the open batch holds and leads on to finishing or cancelling it.
// Docks itself at the bottom of its parent.
class InfoBar : public View {
    Q_OBJECT

public:
    explicit InfoBar(QWidget* parent = nullptr);
    std::string TypeName() const override { return "infobar"; }

    // Listens to these stores from now on; the bar does so by itself at its making. Nothing changes when they are the
    // ones it listens to.
    void Subscribe(const StoresRecord& stores);

protected:
    void Shown() override;
    void Layout() override;
    void paintEvent(QPaintEvent* event) override;

private:
    void BuildControls();
    void LayoutControls();
    bool ShouldShow() const;
    float DesiredHeight() const;
    void Update();
    QString StatusText() const;
    void Announce();
    void Stores_OnChange();
    void BtnCancel_Click();
    void BtnComplete_Click();

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

#pragma once

#include "base/Event.h"
#include "core/Stores.h"
#include "ui/controls/View.h"
#include "ui/shell/ShellViews.h"

#include <QPointer>

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook {

class FlatTabs;
class FlatTitleBar;
class GroupBox;
class InfoBar;
class PropertyBag;
class Toast;

// The control that the host embeds: the current view between a title bar and the info bar. Shows the view named by the
// view store, reports failed transfers and pops up notifications. Starts when it is shown, after the access gate.
class EvidenceUI : public View {
    Q_OBJECT
    Q_PROPERTY(int BorderStyle READ BorderStyle WRITE SetBorderStyle)

public:
    explicit EvidenceUI(QWidget* parent = nullptr);
    // Uses these views instead of the standard ones.
    EvidenceUI(const ShellViews& views, QWidget* parent);
    ~EvidenceUI() override;
    std::string TypeName() const override { return "EvidenceUI"; }

    // 0 for none; any other value draws a line around the control.
    int BorderStyle() const { return m_borderStyle; }
    void SetBorderStyle(int borderStyle);
    // "BorderStyle". Errors are ignored.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    // Handles an action from the dispatcher. Never throws.
    void Handle(const Action& action);

protected:
    void Shown() override;
    void Hidden() override;
    void Layout() override;
    void paintEvent(QPaintEvent* event) override;

private:
    class Callback;

    void BuildFrame();
    void BuildViews(const ShellViews& views);
    float ContentHeight() const;
    void FillContent(Control& view);
    Control* FindControl(const std::string& name) const;
    bool IsView(const Control* control) const;
    void Follow(const StoresRecord& stores);
    void LoadView(Control* view);
    void SwitchTo(Control* view);
    bool Present(Control* view);
    void ShowCurrentView();
    void TakeFocusFromInfoBar();
    void FollowFocus(QWidget* focused);
    QWidget* LastFocusIn(Control& view) const;
    void ViewStore_OnChange();
    void ChangeView();
    void LoadingStore_OnChange();
    void ReportFailedTransfer(const std::string& description);

    int m_borderStyle = 0;
    FlatTitleBar* m_titleBar = nullptr;
    GroupBox* m_content = nullptr;
    InfoBar* m_infobar = nullptr;
    Toast* m_toastMessage = nullptr;
    FlatTabs* m_viewHolder = nullptr;
    GroupBox* m_border = nullptr;
    std::vector<QPointer<Control>> m_views;
    std::vector<QPointer<Control>> m_controls;                // everything that FindControl can find
    QPointer<Control> m_currentView;                          // hidden while the shell is hidden
    std::map<const Control*, QPointer<QWidget>> m_lastFocus;  // in each view
    uint32_t m_changes = 0;                                   // number of view changes
    bool m_viewChangedWhileHidden = false;
    std::shared_ptr<Callback> m_callback;
    std::shared_ptr<LoadingStore> m_loadingStore;
    std::shared_ptr<ViewStore> m_viewStore;
    Subscription m_loadingSubscription;
    Subscription m_viewSubscription;
};

}  // namespace quellbrook

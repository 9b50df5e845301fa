#pragma once

#include "base/Error.h"
#include "core/Actions.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/Items.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ui/FocusCalls.h"
#include "tests/support/ui/PaintCounter.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/View.h"
#include "ui/platform/MousePointer.h"
#include "ui/shell/EvidenceUI.h"
#include "ui/shell/LoadingView.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook::testing {

// A view with scripted behavior that records its calls.
class FakeView : public View {
public:
    using View::View;
    std::string TypeName() const override { return "FakeView"; }
    void SetTabIndex(int index) override {
        if (onSetTabIndex) onSetTabIndex();
        View::SetTabIndex(index);
    }

    QWidget* FirstFocus() override { return firstFocus ? firstFocus : this; }

    QWidget* firstFocus = nullptr;
    std::function<void()> onShown;
    std::function<void()> onSetTabIndex;
    int shown = 0;
    int hidden = 0;

protected:
    void Shown() override {
        ++shown;
        if (onShown) onShown();
    }
    void Hidden() override { ++hidden; }
};

class FakeAppView : public FakeView, public AppView {
public:
    using FakeView::FakeView;
    void Show(const std::shared_ptr<Dictionary>& viewParameters) override {
        parameters.push_back(viewParameters);
        if (onShow) onShow();
    }

    std::function<void()> onShow;
    std::vector<std::shared_ptr<Dictionary>> parameters;
};

// A shell with fake views in a host window; hidden until Start.
class ShellTest : public DatabaseTest {
protected:
    ShellTest() {
        ResetFocusCalls(m_screen);
        m_host.resize(1280, 800);
        m_shell = std::make_unique<EvidenceUI>(Views(), &m_host);
        m_shell->resize(1280, 800);
        m_shell->hide();
        m_host.setObjectName("host");
        ShowActive(m_host);
    }
    ~ShellTest() override {
        m_shell.reset();
        SetMousePointer(MousePointer::Default);
    }

    ShellViews Views() {
        return {{"explorer", "Evidence Explorer", [this](QWidget* page) { return m_explorer = new FakeView(page); }},
                {"cart", "Cart", [this](QWidget* page) { return m_cart = new FakeView(page); }},
                {"itemView", "Item Viewer", [this](QWidget* page) { return m_itemView = new FakeAppView(page); }},
                {"loading", "Loading", [](QWidget* page) { return new LoadingView(page); }}};
    }

    void Start() { m_shell->show(); }

    Control* Named(const char* name) { return Find<Control>(*m_shell, name); }
    // The visible views, the topmost last.
    std::vector<std::string> OnShow() {
        std::vector<std::string> names;
        for (QObject* child : Named("content")->children()) {
            const auto* widget = qobject_cast<QWidget*>(child);
            if (widget && widget->isVisible() && !widget->objectName().isEmpty())
                names.push_back(widget->objectName().toStdString());
        }
        return names;
    }

    ManualTimers m_timers{m_environment};
    QWidget m_host;
    std::unique_ptr<EvidenceUI> m_shell;
    FakeView* m_explorer = nullptr;
    FakeView* m_cart = nullptr;
    FakeAppView* m_itemView = nullptr;
};

using Names = std::vector<std::string>;

}  // namespace quellbrook::testing

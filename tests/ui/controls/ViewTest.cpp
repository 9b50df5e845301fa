#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/View.h"

#include <QHideEvent>
#include <QShowEvent>

#include <memory>

namespace quellbrook::testing {
namespace {

using Names = std::vector<std::string>;

class RecordedView : public View {
public:
    RecordedView(const char* name, Names& record, QWidget* parent) : View(parent), m_record(record) {
        setObjectName(name);
    }
    ~RecordedView() override { LeaveShow(); }
    std::string TypeName() const override { return "RecordedView"; }

    std::function<void()> onShown;
    std::function<void()> onHidden;

protected:
    void Shown() override {
        m_record.push_back(Name());
        if (onShown) onShown();
    }
    void Hidden() override {
        m_record.push_back("-" + Name());
        if (onHidden) onHidden();
    }

private:
    Names& m_record;
};

class ViewTest : public ControlsTest {
protected:
    ~ViewTest() override { delete m_shell; }

    std::function<void()> Fault(const std::string& words) {
        return [words] { Raise(5, "View.Shown", words); };
    }

    // The events that every widget of a minimized or restored window receives.
    static void SendSpontaneously(QWidget& widget, bool shown) {
        std::unique_ptr<QEvent> event;
        if (shown)
            event = std::make_unique<QShowEvent>();
        else
            event = std::make_unique<QHideEvent>();
        QSpontaneKeyEvent::setSpontaneous(event.get());
        qApp->notify(&widget, event.get());
    }

    Names m_record;
    RecordedView* m_shell = new RecordedView("shell", m_record, &m_window);
    RecordedView* m_explorer = new RecordedView("explorer", m_record, m_shell);
    RecordedView* m_tree = new RecordedView("tree", m_record, m_explorer);
};

TEST_F(ViewTest, AContainerIsShownBeforeItsChildren) {
    ShowActive(m_window);
    EXPECT_EQ(m_record, (Names{"shell", "explorer", "tree"}));
}

TEST_F(ViewTest, WidgetsBetweenViewsDoNotMatter) {
    auto* between = new PlainControl(m_explorer);
    new RecordedView("inner", m_record, between);
    ShowActive(m_window);
    EXPECT_EQ(m_record, (Names{"shell", "explorer", "tree", "inner"}));
}

TEST_F(ViewTest, MinimizingAndRestoringRaisesNothing) {
    ShowActive(m_window);
    m_record.clear();
    for (View* view : {static_cast<View*>(m_shell), static_cast<View*>(m_explorer), static_cast<View*>(m_tree)})
        SendSpontaneously(*view, false);
    for (View* view : {static_cast<View*>(m_tree), static_cast<View*>(m_explorer), static_cast<View*>(m_shell)})
        SendSpontaneously(*view, true);
    EXPECT_EQ(m_record, Names());
    m_window.showMinimized();
    ServeEvents();
    m_window.showNormal();
    ServeEvents();
    EXPECT_EQ(m_record, Names());
}

TEST_F(ViewTest, EachShowAndHideIsRaisedOnce) {
    ShowActive(m_window);
    m_record.clear();
    m_explorer->show();
    EXPECT_EQ(m_record, Names());
    m_explorer->hide();
    EXPECT_EQ(m_record, (Names{"-explorer", "-tree"}));
    m_explorer->hide();
    m_record.clear();
    m_explorer->show();
    EXPECT_EQ(m_record, (Names{"explorer", "tree"}));
}

TEST_F(ViewTest, AHiddenViewIsNotShownWithItsContainer) {
    m_tree->hide();
    ShowActive(m_window);
    EXPECT_EQ(m_record, (Names{"shell", "explorer"}));
    m_tree->show();
    EXPECT_EQ(m_record, (Names{"shell", "explorer", "tree"}));
}

TEST_F(ViewTest, AViewShownInItsContainersShownIsShownAtOnce) {
    m_explorer->hide();
    m_shell->onShown = [this] {
        m_explorer->show();
        m_record.push_back("shell continues");
    };
    ShowActive(m_window);
    EXPECT_EQ(m_record, (Names{"shell", "explorer", "tree", "shell continues"}));
}

TEST_F(ViewTest, AViewHiddenInItsContainersShownIsNotShown) {
    m_shell->onShown = [this] { m_explorer->hide(); };
    ShowActive(m_window);
    EXPECT_EQ(m_record, (Names{"shell"}));
}

TEST_F(ViewTest, AChangeOfParentHides) {
    ShowActive(m_window);
    PlainControl content(m_shell);
    content.show();
    m_record.clear();
    m_explorer->setParent(&content);
    EXPECT_FALSE(m_explorer->IsShown());
    EXPECT_EQ(m_record, (Names{"-explorer", "-tree"}));
    m_record.clear();
    m_explorer->show();
    EXPECT_EQ(m_record, (Names{"explorer", "tree"}));
    m_explorer->setParent(m_shell);
}

TEST_F(ViewTest, DestructionHidesAVisibleView) {
    ShowActive(m_window);
    m_record.clear();
    delete m_tree;
    EXPECT_EQ(m_record, (Names{"-tree"}));
    m_explorer->hide();
    m_record.clear();
    delete m_explorer;
    EXPECT_EQ(m_record, Names());
}

TEST_F(ViewTest, AtDesignTimeNothingRuns) {
    SetInsideDesigner(true);
    ShowActive(m_window);
    m_window.hide();
    SetInsideDesigner(false);
    EXPECT_EQ(m_record, Names());
}

TEST_F(ViewTest, RaiseShowErrorRaisesTheErrorOnce) {
    m_explorer->hide();
    ShowActive(m_window);
    m_explorer->onShown = Fault("No database.");
    m_explorer->show();
    try {
        m_explorer->RaiseShowError();
        FAIL() << "No error was raised.";
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Description(), "No database.");
    }
    EXPECT_NO_THROW(m_explorer->RaiseShowError());
    ServeEvents();
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(ViewTest, RaiseShowErrorRaisesTheErrorOfAnInnerView) {
    m_explorer->hide();
    ShowActive(m_window);
    m_tree->onShown = Fault("LoadLocations: Error loading storage locations - no database");
    m_explorer->show();
    EXPECT_EQ(m_record.back(), "tree");
    try {
        m_explorer->RaiseShowError();
        FAIL() << "No error was raised.";
    } catch (const Error& error) {
        EXPECT_EQ(error.Description(), "LoadLocations: Error loading storage locations - no database");
    }
    ServeEvents();
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(ViewTest, AnUnfetchedShowErrorIsReportedInTheEventLoop) {
    TestErrorLog().Announce("View.Shown");
    m_explorer->onShown = Fault("No database.");
    m_window.show();
    EXPECT_TRUE(m_screen.Messages().empty());
    ServeEvents();
    ExpectUnexpected("No database.");
    EXPECT_NO_THROW(m_explorer->RaiseShowError());
}

TEST_F(ViewTest, AfterAShowErrorTheChildrenAreStillShownAndHidden) {
    m_explorer->hide();
    ShowActive(m_window);
    m_record.clear();
    m_explorer->onShown = Fault("No database.");
    m_explorer->show();
    EXPECT_THROW(m_explorer->RaiseShowError(), Error);
    m_explorer->hide();
    EXPECT_EQ(m_record, (Names{"explorer", "tree", "-explorer", "-tree"}));
}

TEST_F(ViewTest, AShowErrorOfADestroyedViewIsReported) {
    m_explorer->hide();
    ShowActive(m_window);
    TestErrorLog().Announce("View.Shown");
    m_explorer->onShown = Fault("No database.");
    m_explorer->show();
    delete m_explorer;
    ExpectUnexpected("No database.");
}

TEST_F(ViewTest, AnErrorInHiddenIsReported) {
    ShowActive(m_window);
    TestErrorLog().Announce("View.Hidden");
    m_tree->onHidden = [] { Raise(5, "View.Hidden", "Gone."); };
    m_tree->hide();
    ExpectUnexpected("Gone.");
}

TEST_F(ViewTest, AViewMayBeDestroyedInItsOwnShown) {
    m_explorer->hide();
    ShowActive(m_window);
    auto* doomed = new RecordedView("doomed", m_record, m_shell);
    doomed->onShown = [doomed] { doomed->deleteLater(); };
    doomed->show();
    EXPECT_EQ(m_record.back(), "doomed");
    ServeEvents();
    EXPECT_EQ(m_record.back(), "-doomed");
}

}  // namespace
}  // namespace quellbrook::testing

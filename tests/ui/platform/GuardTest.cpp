#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/FlatScrollBar.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/controls/Link.h"
#include "ui/controls/ListView.h"
#include "ui/controls/MouseEvents.h"
#include "ui/platform/Guard.h"
#include "ui/platform/WidgetTimer.h"

#include <QEventLoop>
#include <QTimer>
#include <QTreeWidget>

#include <stdexcept>
#include <utility>

namespace quellbrook::testing {
namespace {

class GuardTest : public ControlsTest {
protected:
    // A slot that throws; the log expects it.
    std::function<void()> Fault() {
        TestErrorLog().Announce("Test.Fault");
        return [this] {
            ++m_faults;
            Raise(ErrorNumber::General, "Test.Fault", "It broke.");
        };
    }

    void ExpectOneFault() {
        EXPECT_EQ(m_faults, 1);
        ExpectUnexpected("It broke.");
    }

    int m_faults = 0;
};

TEST_F(GuardTest, ReportsByTheDialogAndTheLog) {
    TestErrorLog().Announce("Test.Fault");
    Guard([] { Raise(ErrorNumber::General, "Test.Fault", "It broke."); });
    ExpectUnexpected("It broke.");
    const auto& entry = TestErrorLog().Entries().back();
    EXPECT_EQ(entry.application, "Quellbrook");
    EXPECT_EQ(entry.message, "It broke.");
}

TEST_F(GuardTest, CallsTheReportNamedInstead) {
    int32_t number = 0;
    Guard([] { Raise(ErrorNumber::NullObject, "Test.Fault"); }, [&](const Error& error) { number = error.Number(); });
    EXPECT_EQ(number, 91);
}

TEST_F(GuardTest, AHandlerReportsEqualErrorsOfItsGuardsOnceAtItsEnd) {
    std::vector<std::string> descriptions;
    m_environment->reportUnexpected = [&](const Error& error) { descriptions.push_back(error.Description()); };
    for (int handler = 1; handler <= 2; ++handler) {
        Guard([&] {
            for (const char* description : {"The link is down.", "It broke.", "Reading: The link is down."})
                Guard([&] { Raise(ErrorNumber::General, "Test.Fault", description); });
            EXPECT_TRUE(descriptions.empty());
            Raise(ErrorNumber::General, "Test.Fault", "The link is down.");
        });
        EXPECT_EQ(std::exchange(descriptions, {}), (std::vector<std::string>{"The link is down.", "It broke."}));
    }
}

TEST_F(GuardTest, AnErrorThatAnotherMessageOfTheHandlerHasShownIsNotReported) {
    std::vector<std::string> descriptions;
    m_environment->reportUnexpected = [&](const Error& error) { descriptions.push_back(error.Description()); };
    const auto fail = [](const char* description) { Raise(ErrorNumber::General, "Test.Fault", description); };
    Guard([&] {
        Guard([&] { fail("The link is down."); });
        Guard([&] { fail("It broke."); });
        Guard([&] { fail("Opening: The link is down."); }, [](const Error&) {});
    });
    EXPECT_EQ(descriptions, std::vector<std::string>{"It broke."});
}

TEST_F(GuardTest, AHandlerInANestedEventLoopReportsAtItsOwnEnd) {
    std::vector<std::string> descriptions;
    m_environment->reportUnexpected = [&](const Error& error) { descriptions.push_back(error.Description()); };
    const auto fail = [] { Guard([] { Raise(ErrorNumber::General, "Test.Fault", "It broke."); }); };
    Guard([&] {
        fail();
        QEventLoop dialog;
        QTimer::singleShot(0, &dialog, [&] {
            fail();
            EXPECT_EQ(descriptions.size(), 1u);
            dialog.quit();
        });
        dialog.exec();
        fail();
        EXPECT_EQ(descriptions.size(), 1u);
    });
    EXPECT_EQ(descriptions.size(), 2u);
}

TEST_F(GuardTest, AReportThatFailsIsReportedItself) {
    TestErrorLog().Announce("Test.Report");
    Guard([] { Raise(ErrorNumber::General, "Test.Fault", "first"); },
          [](const Error&) { Raise(ErrorNumber::General, "Test.Report", "second"); });
    ExpectUnexpected("second");
}

TEST_F(GuardTest, TurnsForeignExceptionsIntoErrors) {
    std::vector<std::string> descriptions;
    m_environment->reportUnexpected = [&](const Error& error) { descriptions.push_back(error.Description()); };
    Guard([] { throw std::runtime_error("from elsewhere"); });
    Guard([] { throw 42; });
    ASSERT_EQ(descriptions.size(), 2u);
    EXPECT_EQ(descriptions[0], "from elsewhere");
    EXPECT_FALSE(descriptions[1].empty());
}

TEST_F(GuardTest, AHostMayReplaceTheReportAndRestoreIt) {
    int reports = 0;
    {
        EnvironmentScope host;
        host->reportUnexpected = [&](const Error&) { ++reports; };
        Guard([] { Raise(ErrorNumber::General, "Test.Fault", "It broke."); });
        EXPECT_EQ(reports, 1);
    }
    TestErrorLog().Announce("Test.Fault");
    Guard([] { Raise(ErrorNumber::General, "Test.Fault", "It broke."); });
    EXPECT_EQ(reports, 1);
    ExpectUnexpected("It broke.");
}

TEST_F(GuardTest, AReportThatThrowsIsSwallowed) {
    m_environment->reportUnexpected = [](const Error&) { throw std::runtime_error("no screen"); };
    EXPECT_NO_THROW(ReportUnexpected(Error(ErrorNumber::General, "Test.Fault", "It broke.")));
    EXPECT_NO_THROW(ReportUnexpected(Error(ErrorNumber::General, "Test.Fault", "It broke.")));
}

TEST_F(GuardTest, WithoutAScreenTheErrorIsLogged) {
    m_environment->screen = nullptr;
    TestErrorLog().Announce("Test.Fault");
    EXPECT_NO_THROW(ReportUnexpected(Error(ErrorNumber::General, "Test.Fault", "It broke.")));
}

TEST_F(GuardTest, ErrorsWhileAReportIsOpenAreOnlyLogged) {
    TestErrorLog().Announce("Test.Fault");
    TestErrorLog().Announce("Test.Inner");
    m_screen.WhileMessageOpen = [](const RecordingScreen::Message&) {
        Guard([] { Raise(ErrorNumber::General, "Test.Inner", "again"); });
    };
    Guard([] { Raise(ErrorNumber::General, "Test.Fault", "It broke."); });
    ExpectUnexpected("It broke.");
    m_screen.WhileMessageOpen = nullptr;
}

TEST_F(GuardTest, SilentGuardsSwallowEverything) {
    EXPECT_NO_THROW(GuardSilently([] { Raise(ErrorNumber::General, "Test.Fault", "It broke."); }));
    EXPECT_NO_THROW(GuardSilently([] { throw 42; }));
}

TEST_F(GuardTest, AFaultBehindAButtonIsReported) {
    FlatButton button(&m_window);
    QObject::connect(&button, &FlatButton::Clicked, Fault());
    ShowActive(m_window);
    Click(&button);
    ExpectOneFault();
}

TEST_F(GuardTest, AFaultBehindALinkIsReported) {
    Link link(&m_window);
    link.SetCaption("UNDO");
    QObject::connect(&link, &Link::Clicked, Fault());
    ShowActive(m_window);
    Press(&link, Qt::Key_Return);
    ExpectOneFault();
}

TEST_F(GuardTest, AFaultBehindADropdownIsReported) {
    FlatDropdown dropdown(&m_window);
    dropdown.AddItem("a", 1);
    QObject::connect(&dropdown, &FlatDropdown::Clicked, Fault());
    dropdown.SetListIndex(0);
    ExpectOneFault();
}

TEST_F(GuardTest, AFaultBehindAScrollBarIsReported) {
    FlatScrollBar bar(&m_window);
    QObject::connect(&bar, &FlatScrollBar::Changed, Fault());
    bar.SetValue(1);
    ExpectOneFault();
}

TEST_F(GuardTest, AFaultBehindAFieldIsReported) {
    FlatTextbox field(&m_window);
    QObject::connect(&field, &FlatTextbox::KeyPressed, Fault());
    ShowActive(m_window);
    Press(field.focusProxy(), Qt::Key_Return);
    ExpectOneFault();
}

TEST_F(GuardTest, AFaultBehindAListIsReported) {
    ListView list(&m_window);
    list.AddColumn("icon", "", 600);
    list.AddRow("L1", "location", {});
    QObject::connect(&list, &ListView::KeyDown, Fault());
    ShowActive(m_window);
    Press(list.Tree(), Qt::Key_Return);
    ExpectOneFault();
}

TEST_F(GuardTest, AFaultInAFilterIsReported) {
    PlainControl container(&m_window);
    container.resize(100, 100);
    MouseEvents events(&container);
    QObject::connect(&events, &MouseEvents::Up, Fault());
    ShowActive(m_window);
    Click(&container);
    ExpectOneFault();
}

TEST_F(GuardTest, AFaultInATimerIsReported) {
    WidgetTimer timer;
    timer.Elapsed = Fault();
    timer.SetSingleShot(true);
    timer.SetInterval(0);
    timer.Start();
    ServeEvents();
    ExpectOneFault();
}

TEST_F(GuardTest, AFaultInPaintingIsReportedOnceAndNotWhilePainting) {
    struct FaultyPainting : PlainControl {
        using PlainControl::PlainControl;
        void paintEvent(QPaintEvent*) override {
            GuardPainting([] { Raise(ErrorNumber::General, "Test.Painting", "It can't be painted."); });
        }
    };
    TestErrorLog().Announce("Test.Painting");
    FaultyPainting control(&m_window);
    control.resize(50, 50);
    m_screen.WhileMessageOpen = [&](const RecordingScreen::Message&) {
        EXPECT_FALSE(control.testAttribute(Qt::WA_WState_InPaintEvent));
        Grab(control);
    };
    Grab(control);
    EXPECT_TRUE(m_screen.Messages().empty());
    ServeEvents();
    ExpectUnexpected("It can't be painted.");
    Grab(control);
    ServeEvents();
    m_screen.WhileMessageOpen = nullptr;
}

TEST_F(GuardTest, AFaultInALayoutIsIgnored) {
    PlainControl control(&m_window);
    control.layout = [] { Raise(ErrorNumber::General, "Test.Fault", "It broke."); };
    EXPECT_NO_THROW(control.SetWidth(300));
    ShowActive(m_window);
    control.resize(50, 50);
    EXPECT_GE(control.layouts, 2);
}

}  // namespace
}  // namespace quellbrook::testing

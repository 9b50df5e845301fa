#include "app/scanner/ScanField.h"
#include "app/scanner/ScannerPage.h"
#include "data/BarcodeText.h"
#include "tests/app/MainWindowTest.h"
#include "tests/app/ScratchWorkstation.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/ui/QtTestMain.h"
#include "tests/support/ui/Scanner.h"

#include <QLabel>
#include <QTabBar>

namespace quellbrook::testing {

namespace {

// The page in the host's window.
class ScannerTabTest : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        m_timers.emplace(m_environment);
        LogIn(SampleAccounts()[0]);
    }

    void TearDown() override {
        MainWindowTest::TearDown();
        m_timers.reset();
    }

    QTabBar& Tabs() const { return *Find<QTabBar>(*m_window, "hostTabs"); }
    std::vector<std::string> Captions() const {
        std::vector<std::string> captions;
        for (int i = 0; i < Tabs().count(); ++i) captions.push_back(Tabs().tabText(i).toStdString());
        return captions;
    }
    QWidget* Page() const { return m_window->findChild<ScannerPage*>(); }
    void OpenPage() { Click(Find(*m_window, "scannerPageButton")); }
    static void Forget() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    bool ShowsAnItem() { return Find(*m_window, "itemView")->isVisible(); }

    // A scan from the scanner, delivered through the message hook.
    void ScanItem(int32_t number) {
        TypeAsScanner(MakeBarcodeText("P", number));
        m_timers->Tick(1);
        m_timers->Tick(ScanField::BurstPause);
        ServeEvents();
    }

    std::optional<ManualTimers> m_timers;
    ScratchWorkstation m_workstation;
};

using Captured = std::vector<std::string>;

}  // namespace

TEST_F(ScannerTabTest, ThePageHasItsOwnTabAndFocusesItsField) {
    EXPECT_EQ(Page(), nullptr);
    OpenPage();
    EXPECT_EQ(Captions(), (Captured{"Evidence", "Labels and Scanner"}));
    EXPECT_TRUE(Page()->isVisible());
    EXPECT_FALSE(Evidence()->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), Find(*Page(), "scanField"));
}

TEST_F(ScannerTabTest, OpeningItTwiceKeepsOneTab) {
    OpenPage();
    QWidget* page = Page();
    Tabs().setCurrentIndex(0);
    EXPECT_TRUE(Evidence()->isVisible());
    OpenPage();
    OpenPage();
    EXPECT_EQ(Captions(), (Captured{"Evidence", "Labels and Scanner"}));
    EXPECT_EQ(Page(), page);
    EXPECT_TRUE(page->isVisible());
}

TEST_F(ScannerTabTest, ItExistsBesideRecordTabs) {
    OpenPage();
    m_window->OpenRecord({RecordKind::Property, 4711});
    EXPECT_EQ(Captions(), (Captured{"Evidence", "Labels and Scanner", "Property 4711"}));
    EXPECT_FALSE(Page()->isVisible());
    Click(Tabs().tabButton(1, QTabBar::RightSide));
    EXPECT_EQ(Captions(), (Captured{"Evidence", "Property 4711"}));
}

TEST_F(ScannerTabTest, TheCrossAndTheCloseKeyCloseIt) {
    OpenPage();
    EXPECT_EQ(Tabs().tabButton(1, QTabBar::RightSide)->accessibleName(), "Close Labels and Scanner");
    Click(Tabs().tabButton(1, QTabBar::RightSide));
    Forget();
    EXPECT_EQ(Page(), nullptr);
    OpenPage();
    Press(Find(*m_window, "printTestLabel"), Qt::Key_W, Qt::ControlModifier);
    Forget();
    EXPECT_EQ(Page(), nullptr);
    EXPECT_EQ(Captions(), Captured{"Evidence"});
    EXPECT_TRUE(Evidence()->isVisible());
}

TEST_F(ScannerTabTest, LoggingOutClosesIt) {
    OpenPage();
    Click(Find(*m_window, "logOut"));
    Forget();
    EXPECT_EQ(Page(), nullptr);
    LogIn(SampleAccounts()[1]);
    OpenPage();
    EXPECT_EQ(Captions(), (Captured{"Evidence", "Labels and Scanner"}));
}

TEST_F(ScannerTabTest, ReturningReloadsTheTemplateAndFocusesTheField) {
    m_workstation.SetTemplate("");
    OpenPage();
    EXPECT_FALSE(Find(*m_window, "printTestLabel")->isEnabled());
    Tabs().setCurrentIndex(0);
    m_workstation.SetTemplate(R"(<svg xmlns="http://www.w3.org/2000/svg" width="90mm" height="40mm" viewBox="0 0 90 40">
<rect id="barcode" x="0" y="0" width="90" height="40"/></svg>)");
    Tabs().setCurrentIndex(1);
    EXPECT_TRUE(Find(*m_window, "printTestLabel")->isEnabled());
    EXPECT_EQ(QApplication::focusWidget(), Find(*Page(), "scanField"));
}

TEST_F(ScannerTabTest, SwitchingTabsByKeyboardKeepsTheFocusOnTheTabs) {
    OpenPage();
    Tabs().setFocus();
    Press(&Tabs(), Qt::Key_Left);
    Press(&Tabs(), Qt::Key_Right);
    EXPECT_TRUE(Page()->isVisible());
    EXPECT_TRUE(Tabs().hasFocus());
}

TEST_F(ScannerTabTest, TheHiddenEvidenceReceivesNoScan) {
    OpenPage();
    ScanItem(1);
    EXPECT_EQ(Find<QLabel>(*Page(), "meaning")->text(), "Property, number 1");
    EXPECT_TRUE(m_screen.Messages().empty());
    Tabs().setCurrentIndex(0);
    ServeEvents();
    EXPECT_FALSE(ShowsAnItem());
    ScanItem(1);
    EXPECT_TRUE(ShowsAnItem()) << "it receives keys sent to it";
}

TEST_F(ScannerTabTest, AScanOnThePageDoesNotAffectTheNextScanOnTheEvidence) {
    OpenPage();
    ScanItem(1);
    Tabs().setCurrentIndex(0);
    ScanItem(2);
    EXPECT_TRUE(ShowsAnItem());
}

}  // namespace quellbrook::testing

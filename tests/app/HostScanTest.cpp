#include "app/scanner/PrinterChoice.h"
#include "tests/app/MainWindowTest.h"
#include "tests/app/ScratchWorkstation.h"
#include "tests/support/FixedClock.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/ui/Scanner.h"

namespace quellbrook::testing {

namespace {

// The fields of the host and a scanner.
class HostScanTest : public MainWindowTest {
protected:
    void OpenWindow() override {
        m_timers = std::make_unique<ManualTimers>(m_environment);
        m_environment->clock = &m_clock;
        MainWindowTest::OpenWindow();
    }
    void TearDown() override {
        MainWindowTest::TearDown();
        m_timers.reset();
    }

    void ScanAnItem() {
        Scan("P0000000001");
        m_timers->Tick(1);
        m_clock.Advance(1000);
    }
    QString TextAfterAScan(const char* field) {
        auto* edit = Find<QLineEdit>(*m_window, field);
        edit->setFocus();
        EXPECT_TRUE(edit->hasFocus());
        ScanAnItem();
        return edit->text();
    }

    FixedClock m_clock;
    std::unique_ptr<ManualTimers> m_timers;
};

}  // namespace

TEST_F(HostScanTest, TheFieldsOfTheLoginTakeNoScan) {
    EXPECT_EQ(TextAfterAScan("username"), "");
    EXPECT_EQ(TextAfterAScan("password"), "");
    Type(Find(*m_window, "username"), "clerk");
    EXPECT_EQ(Find<QLineEdit>(*m_window, "username")->text(), "clerk");
}

TEST_F(HostScanTest, AScanWithoutAnEndBlocksTheKeyboardForASecond) {
    auto* username = Find<QLineEdit>(*m_window, "username");
    username->setFocus();
    TypeAsScanner("\x02P1\rx");
    EXPECT_EQ(username->text(), "");
    m_timers->Tick(1000);
    TypeAsScanner("clerk");
    EXPECT_EQ(username->text(), "clerk");
}

TEST_F(HostScanTest, TheFolderOfTheLabelsTakesNoScan) {
    const ScratchWorkstation workstation;
    LogIn(SampleAccounts()[0]);
    Click(Find(*m_window, "scannerPageButton"));
    const QString folder = Find<QLineEdit>(*m_window, "folder")->text();
    EXPECT_EQ(TextAfterAScan("folder"), folder);
    Find(*m_window, "printers")->setFocus();
    EXPECT_EQ(Find<QLineEdit>(*m_window, "folder")->text(), folder);
    EXPECT_EQ(LoadPrinterChoice(PrinterChoiceFile()), std::nullopt);
}

TEST_F(HostScanTest, TheFieldForTestingAScannerTakesIt) {
    const ScratchWorkstation workstation;
    LogIn(SampleAccounts()[0]);
    Click(Find(*m_window, "scannerPageButton"));
    m_timers->TickAll();
    ScanAnItem();
    EXPECT_EQ(m_timers->Running().size(), 1u) << "the end of the reading is awaited";
}

}  // namespace quellbrook::testing

#include "app/guide/GuideWindow.h"
#include "core/Actions.h"
#include "core/Stores.h"
#include "tests/app/MainWindowTest.h"
#include "tests/app/ScratchWorkstation.h"
#include "tests/support/Items.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/ui/QtTestMain.h"
#include "tests/support/ui/Scanner.h"
#include "ui/common/ModalDialog.h"
#include "ui/controls/FlatTabs.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/explorer/EvidenceExplorer.h"
#include "ui/items/FinalDisposition.h"
#include "ui/locations/LocationEditor.h"
#include "ui/locations/SetupLocationsForm.h"

#include <QMessageBox>
#include <QTreeWidget>

#include <functional>

namespace quellbrook::testing {

namespace {

std::string DescribeDifference(const QImage& a, const QImage& b) {
    if (a.size() != b.size()) return "The sizes differ.";
    QRect different;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y)) different |= QRect(x, y, 1, 1);
    if (different.isEmpty()) return "";
    return QStringLiteral("%1 x %2 pixels at %3, %4")
        .arg(different.width())
        .arg(different.height())
        .arg(different.x())
        .arg(different.y())
        .toStdString();
}

// Changes the theme while something is open: afterwards it looks as if it had been opened in that theme.
class ThemeChange : public MainWindowTest, public ::testing::WithParamInterface<bool> {
protected:
    void SetUp() override {
        m_flashTime = QApplication::cursorFlashTime();
        QApplication::setCursorFlashTime(0);
        m_timers = std::make_unique<ManualTimers>(m_environment);
        MainWindowTest::SetUp();
    }
    void TearDown() override {
        m_form.reset();
        MainWindowTest::TearDown();
        m_timers.reset();
        QApplication::setCursorFlashTime(m_flashTime);
        InstallTheme(false);
    }
    void OpenWindow() override {
        m_window = std::make_unique<MainWindow>("Harlow Bay", std::nullopt, SampleAccounts());
        m_window->resize(1280, 800);
        ShowActive(*m_window);
    }

    void UseTheme(bool dark) {
        InstallTheme(dark);
        ServeEvents();
    }
    void Reopen(bool dark) {
        m_form.reset();
        m_window.reset();
        UseTheme(dark);
        OpenWindow();
    }
    QImage Picture() {
        ServeEvents();
        return Grab(m_form ? *m_form : *m_window).convertToFormat(QImage::Format_RGB32);
    }

    void ExpectTheSameLook(const std::function<void()>& open) {
        const bool dark = GetParam();
        Reopen(!dark);
        open();
        const QImage before = Picture();
        UseTheme(dark);
        const QImage changed = Picture();
        Reopen(dark);
        open();
        const QImage opened = Picture();
        EXPECT_NE(before, changed);
        EXPECT_EQ(DescribeDifference(changed, opened), "");
    }

    void LogIn() {
        MainWindowTest::LogIn(SampleAccounts()[0]);
        ServeEvents();
    }
    EvidenceExplorer& Explorer() { return *Find<EvidenceExplorer>(*Evidence(), "explorer"); }
    void BeginBatch() {
        LogIn();
        Explorer().SetSelectedLocation(FullLocation());
        GetActions().BeginTransaction(TransactionType::SignOut, ListOf({FullLocation()->StoredItems()->ItemAt(0)}));
    }
    template <typename Form>
    void OpenForm(std::unique_ptr<Form> form) {
        form->EnsureLoaded();
        ShowActive(*form);
        m_form = std::move(form);
    }

    int m_flashTime = 0;
    std::unique_ptr<ManualTimers> m_timers;
    std::unique_ptr<QWidget> m_form;  // shown instead of the window
};

TEST_P(ThemeChange, ChangesTheLoginForm) {
    ExpectTheSameLook([] {});
}

TEST_P(ThemeChange, ChangesARefusedLogin) {
    ExpectTheSameLook([this] {
        TestErrorLog().Announce("DatabaseSession.Login");
        MainWindowTest::LogIn("custodian", "wrong");
        EXPECT_TRUE(Find(*m_window, "loginError")->isVisible());
    });
}

TEST_P(ThemeChange, ChangesALocationInABatchAndTheToast) {
    ExpectTheSameLook([this] {
        BeginBatch();
        GetActions().NotifyUser("Successfully transferred 3 items");
        for (int tick = 0; tick < 200; ++tick) m_timers->Tick(10);
        EXPECT_TRUE(Find(*m_window, "toastMessage")->isVisible());
        EXPECT_TRUE(Find(*m_window, "infobar")->isVisible());
    });
}

TEST_P(ThemeChange, ChangesSearchResults) {
    ExpectTheSameLook([this] {
        LogIn();
        auto* box = Find<FlatTextbox>(Explorer(), "search");
        box->findChild<QLineEdit*>()->setFocus();
        box->SetText("*");
        Press(Qt::Key_Return);
        Press(Find(*m_window, "searchResults"), Qt::Key_Down);
        EXPECT_TRUE(Find(*m_window, "searchResults")->isVisible());
    });
}

TEST_P(ThemeChange, ChangesTheFormOfABatch) {
    ExpectTheSameLook([this] {
        BeginBatch();
        GetActions().NavigateTo("cart", nullptr);
        EXPECT_TRUE(Find(*m_window, "cart")->isVisible());
    });
}

TEST_P(ThemeChange, ChangesTheCheckIn) {
    ExpectTheSameLook([this] {
        LogIn();
        GetActions().NavigateTo(ViewNames::SubmitNewEvidence, nullptr);
        QWidget& view = *Find(*m_window, "submitNewEvidence");
        Find<FlatTextbox>(view, "search")->SetText("*");
        Click(Find(view, "btnSearch"));
        EXPECT_TRUE(Find(view, "grpResults")->isVisible());
    });
}

TEST_P(ThemeChange, ChangesEachTabOfAnItem) {
    for (const int tab : {0, 1}) {
        ExpectTheSameLook([this, tab] {
            BeginBatch();
            GetActions().OpenStoredItem(GetStores().Cart->GetItems()->ItemAt(0));
            Find<FlatTabs>(*Find(*m_window, "itemView"), "tabs")->SetSelectedIndex(tab);
            ServeEvents();
        });
    }
}

TEST_P(ThemeChange, ChangesRecordsAndTheirTabs) {
    ExpectTheSameLook([this] {
        LogIn();
        m_window->OpenRecord({RecordKind::Vehicle, 2'000'000'000});
        m_window->OpenRecord({RecordKind::Property, 1});
        EXPECT_TRUE(Find(*m_window, "custody")->isVisible());
    });
    ExpectTheSameLook([this] {
        HostServices::Current().SetThumbnails(std::make_shared<PictureAttachments>(TheSample().Folder()));
        LogIn();
        m_window->OpenRecord({RecordKind::Vehicle, FirstVehicleNo});
        EXPECT_TRUE(Find(*m_window, "picture")->isVisible());
        HostServices::Current().SetThumbnails(nullptr);
    });
    ExpectTheSameLook([this] {
        LogIn();
        m_window->OpenRecord({RecordKind::Vehicle, 2'000'000'000});
        EXPECT_TRUE(Find(*m_window, "refusal")->isVisible());
    });
}

TEST_P(ThemeChange, ChangesUnknownNamesInAChainOfCustody) {
    ExpectTheSameLook([this] {
        LogIn();
        const int number = m_database
                               ->execAndGet(
                                   "SELECT PropertyNo FROM PropertyTracking WHERE ReceivedFrom IS NULL ORDER BY 1 "
                                   "LIMIT 1")
                               .getInt();
        m_window->OpenRecord({RecordKind::Property, number});
        auto* table = Find<QTreeWidget>(*m_window, "custody");
        EXPECT_FALSE(table->findItems("Not specified", Qt::MatchExactly, 2).isEmpty());
    });
}

TEST_P(ThemeChange, ChangesLabelsAndScanner) {
    const ScratchWorkstation workstation;
    for (const char* keys : {"p", "bx00O4711\r", "\x02P0000004711\x03"}) {
        ExpectTheSameLook([this, keys] {
            LogIn();
            Click(Find(*m_window, "scannerPageButton"));
            Find(*m_window, "scanField")->setFocus();
            TypeAsScanner(keys);
            m_timers->Tick(100);
            EXPECT_TRUE(Find(*m_window, "verdict")->isVisible());
        });
    }
}

TEST_P(ThemeChange, ChangesDialogs) {
    ExpectTheSameLook([this] {
        auto form = std::make_unique<frmModal>();
        form->SetPrompt("Please specify where this evidence is going.");
        form->SetButtons(36);
        form->SetTitle("Missing destination");
        OpenForm(std::move(form));
    });
    ExpectTheSameLook([this] {
        LogIn();
        auto form = std::make_unique<frmAddEditLocation>();
        form->SetLocation(FullLocation());
        OpenForm(std::move(form));
    });
    ExpectTheSameLook([this] {
        LogIn();
        OpenForm(std::make_unique<frmFinalDisposition>());
    });
    ExpectTheSameLook([this] {
        m_form = std::make_unique<QMessageBox>(QMessageBox::Critical, "Quellbrook", "The record could not be read.");
        ShowActive(*m_form);
    });
}

TEST_P(ThemeChange, ChangesTheUserGuide) {
    ExpectTheSameLook([this] {
        m_form = std::make_unique<GuideWindow>();
        ShowActive(*m_form);
    });
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, ThemeChange, ::testing::Bool());

}  // namespace

}  // namespace quellbrook::testing

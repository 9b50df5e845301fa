#include "tests/support/ui/GeometryWalk.h"

#include "app/scanner/PrinterChoice.h"
#include "base/Screen.h"
#include "core/Actions.h"
#include "core/Stores.h"
#include "data/StorageLocationStatic.h"
#include "demo/tour/WindowInspector.h"
#include "tests/app/MainWindowTest.h"
#include "tests/app/ScratchWorkstation.h"
#include "tests/support/Items.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/ui/QtTestMain.h"
#include "tests/support/ui/ScaledProcess.h"
#include "tests/support/ui/Scanner.h"
#include "ui/common/Dialogs.h"
#include "ui/common/ModalDialog.h"
#include "ui/controls/FlatTabs.h"
#include "ui/controls/FlatTextbox.h"

#include <QAbstractItemView>
#include <QTreeView>

#include <functional>

namespace quellbrook::testing {
namespace {

// Checks the geometry of every view on the sample department, at four sizes down to the smallest and in both palettes.
std::vector<MeantFault> Meant() {
    using enum MeantFault::Kind;
    return {
        {Overlap, "QFocusFrame", "", "the mark of the focus lies around what has the focus"},
        {Overlap, "shpBorder", "", "the frame of a dialog lies behind all that it frames"},
        {Overlap, "grpTitlebar", "lnkClose", "the cross is on the title strip"},
        {Overlap, "grpTitlebar", "scrMessage", "the title strip is one pixel down, inside the frame"},
        {Overlap, "searchResult/Label2", "searchResult/Label3", "lines are closer than their boxes are high"},
        {Overlap, "lblRelatedIncidents", "lblRelatedCases", "lines are closer than their boxes are high"},
        {Overlap, "itemView/quellbrook::Line", "itemView/tabs", "the rule under the captions runs the whole width"},
        {Overlap, "menu/shpMessage", "", "the strip is the background of its texts"},
        {Overlap, "menu/shpStatus", "", "the block is the background of the status"},
        {Overlap, "explorer/picLeftPanel", "explorer/grpSearch", "the panel is the background of the left column"},
        {Overlap, "explorer/picLeftPanel", "explorer/LocationPane", "the panel is the background of the left column"},
        {Overlap, "hostTabs/ScrollLeftButton", "hostTabs/ScrollRightButton", "the arrows share one pixel"},
        {Overlap, "evidence/toastMessage", "", "the toast slides over the current view"},
        {Outside, "explorer/picLeftPanel", "", "the panel is the background of the left column and begins above it"},
        {Outside, "itemList/picContainer", "", "the rows of a list scroll"},
        {Outside, "searchResult/lblDescription", "", "a long text ends in an ellipsis at the edge of its row"},
        {Outside, "searchResult/lblCategory", "", "a long text ends in an ellipsis at the edge of its row"},
    };
}

class EveryView : public MainWindowTest, public ::testing::WithParamInterface<std::tuple<bool, QSize>> {
protected:
    void SetUp() override {
        InstallTheme(std::get<0>(GetParam()));
        MainWindowTest::SetUp();
    }
    void TearDown() override {
        MainWindowTest::TearDown();
        m_timers.reset();
        InstallTheme(false);
    }
    void OpenWindow() override {
        m_timers = std::make_unique<ManualTimers>(m_environment);
        m_window = std::make_unique<MainWindow>("Harlow Bay", std::nullopt, SampleAccounts());
        m_window->resize(std::get<1>(GetParam()));
        ShowActive(*m_window);
    }

    void LogIn() {
        MainWindowTest::LogIn(SampleAccounts()[0]);
        ServeEvents();
    }

    // The items of the location with this path.
    static std::shared_ptr<StoredItemList> ItemsAt(const std::string& path) {
        std::shared_ptr<StoredItemList> found;
        const std::function<void(const StorageLocationRef&)> look = [&](const StorageLocationRef& location) {
            if (location->FullPath() == path) found = location->StoredItems();
            for (const StorageLocationRef& below : location->SubLocations()) look(below);
        };
        for (const StorageLocationRef& root : GetStorageLocationStatic().Roots()) look(root);
        if (!found) ADD_FAILURE() << "No location " << path;
        return found;
    }

    void BeginBatch(int32_t type) {
        LogIn();
        auto batch = std::make_shared<ObjectVector>();
        const auto items = ItemsAt("Impound Lot/Row 2");
        for (int32_t i = 0; i < items->Count(); ++i) batch->Add(items->ItemAt(i));
        GetActions().BeginTransaction(type, batch);
        ServeEvents();
    }

    void OpenItem() {
        LogIn();
        GetActions().OpenStoredItem(ItemsAt("Impound Lot/Row 2")->ItemAt(0));
        ServeEvents();
    }

    void OpenLocation(const QString& name) {
        QAbstractItemView* tree = tour::FindView(QStringLiteral("explorer/LocationPane"));
        ASSERT_NE(tree, nullptr);
        const QModelIndex row = tour::FindRow(tree, name);
        ASSERT_TRUE(row.isValid());
        tree->scrollTo(row);
        Click(tree->viewport(), tree->visualRect(row).center());
        Press(tree, Qt::Key_Right);
        ServeEvents();
    }

    static void Walk(QWidget& window) {
        ServeEvents();
        const int before = TheWalk().Visited();
        for (const std::string& fault : TheWalk().FaultsOf(window)) ADD_FAILURE() << fault;
        EXPECT_GT(TheWalk().Visited(), before + 5);
    }
    void Walk() { Walk(*m_window); }

    // Shared by all tests, to find unused exceptions after the last one.
    static GeometryWalk& TheWalk() {
        static GeometryWalk walk(Meant());
        return walk;
    }
    static void TearDownTestSuite() {
        const ::testing::TestSuite& suite = *::testing::UnitTest::GetInstance()->current_test_suite();
        if (suite.test_to_run_count() < suite.total_test_count()) return;
        EXPECT_EQ(TheWalk().NeverMet(), std::vector<std::string>());
    }

    std::unique_ptr<ManualTimers> m_timers;
};

TEST_P(EveryView, TheLoginForm) { Walk(); }

TEST_P(EveryView, TheLoginFormWithAFailure) {
    TestErrorLog().Announce("DatabaseSession.Login");
    MainWindowTest::LogIn("custodian", "wrong");
    EXPECT_TRUE(Find(*m_window, "loginError")->isVisible());
    Walk();
}

TEST_P(EveryView, TheExplorer) {
    LogIn();
    Walk();
}

TEST_P(EveryView, ALocationWithItems) {
    LogIn();
    OpenLocation("Impound Lot");
    OpenLocation("Row 2");
    Walk();
}

TEST_P(EveryView, TheExplorerDuringABatch) {
    BeginBatch(TransactionType::SignOut);
    OpenLocation("Impound Lot");
    OpenLocation("Row 2");
    Walk();
}

TEST_P(EveryView, TheTransferForm) {
    for (const int32_t type :
         {TransactionType::SignOut, TransactionType::SignIn, TransactionType::Move, TransactionType::Dispose}) {
        BeginBatch(type);
        GetActions().NavigateTo("cart", nullptr);
        Walk();
        GetActions().CancelTransaction();
        Click(Find(*m_window, "logOut"));
        ServeEvents();
    }
}

TEST_P(EveryView, TheCheckIn) {
    LogIn();
    GetActions().NavigateTo("submitNewEvidence", nullptr);
    Walk();
    QWidget& view = *Find(*m_window, "submitNewEvidence");
    for (const auto& [number, shown] : {std::pair("no such number", "grpNoResults"), {"*", "grpResults"}}) {
        Find<FlatTextbox>(view, "search")->SetText(number);
        Click(Find(view, "btnSearch"));
        EXPECT_TRUE(Find(view, shown)->isVisible());
        Walk();
    }
    Click(Find(view, "imgSelectAll"));
    Walk();
}

TEST_P(EveryView, AnItem) {
    OpenItem();
    Walk();
}

TEST_P(EveryView, AnItemThatIsPending) {
    BeginBatch(TransactionType::Move);
    GetActions().OpenStoredItem(GetStores().Cart->GetItems()->ItemAt(0));
    ServeEvents();
    EXPECT_TRUE(Find(*m_window, "lnkUndo")->isVisible());
    Walk();
}

TEST_P(EveryView, AnItemsChainOfCustody) {
    OpenItem();
    auto* tabs = Find<FlatTabs>(*Find(*m_window, "itemView"), "tabs");
    for (int tab = 0; tab < tabs->Count(); ++tab) {
        tabs->SetSelectedIndex(tab);
        ServeEvents();
        Walk();
    }
}

TEST_P(EveryView, ARecordByItsAddress) {
    LogIn();
    m_window->OpenRecord({RecordKind::Property, 1});
    m_window->OpenRecord({RecordKind::Vehicle, 2'000'000'000});
    Walk();
    m_window->OpenRecord({RecordKind::Property, 1});
    EXPECT_TRUE(Find(*m_window, "noPicture")->isVisible());
    Walk();
    HostServices::Current().SetThumbnails(std::make_shared<PictureAttachments>(TheSample().Folder()));
    m_window->OpenRecord({RecordKind::Vehicle, 5'000'001});
    EXPECT_TRUE(Find(*m_window, "picture")->isVisible());
    Walk();
    HostServices::Current().SetThumbnails(nullptr);
}

TEST_P(EveryView, LabelsAndScanner) {
    const ScratchWorkstation workstation;
    LogIn();
    Click(Find(*m_window, "scannerPageButton"));
    Walk();
    for (const char* keys : {"p", "bx00O4711\r", "\x02\x02P0000004711\x03\x03"}) {
        Find(*m_window, "scanField")->setFocus();
        TypeAsScanner(keys);
        m_timers->Tick(100);
        EXPECT_TRUE(Find(*m_window, "verdict")->isVisible());
        Walk();
    }
    Click(Find(*m_window, "printTestLabel"));
    Walk();
}

TEST_P(EveryView, LabelsAndScannerWithoutPrinterAndTemplate) {
    const ScratchWorkstation workstation;
    SavePrinterChoice({"Laser in the back office", "/labels", 600}, PrinterChoiceFile());
    workstation.SetPrintCommand("echo 'The tape is out, the head is hot and the lid is open.' >&2\nexit 1");
    LogIn();
    Click(Find(*m_window, "scannerPageButton"));
    Click(Find(*m_window, "printTestLabel"));
    Walk();
    workstation.SetTemplate("");
    Click(Find(*m_window, "scannerPageButton"));
    Walk();
}

TEST_P(EveryView, TheLoadingView) {
    LogIn();
    GetActions().LoadingStarted();
    ServeEvents();
    Walk();
    GetActions().LoadingFinished();
}

TEST_P(EveryView, TheToast) {
    LogIn();
    GetActions().NotifyUser("Successfully transferred 3 items");
    for (int tick = 0; tick < 200; ++tick) m_timers->Tick(10);
    ServeEvents();
    EXPECT_TRUE(Find(*m_window, "toastMessage")->isVisible());
    Walk();
}

TEST_P(EveryView, EveryMessage) {
    const std::string sentence = "Please specify where this evidence is going.";
    std::string book;
    for (int i = 0; i < 400; ++i) book += sentence + (i % 5 == 4 ? "\r\n\r\n" : " ");
    for (const int32_t style : {2, 36}) {
        for (const std::string& prompt :
             {std::string("No."), sentence, sentence + " " + sentence + " " + sentence, book}) {
            for (const std::string& title : {std::string(), std::string("Missing destination"), sentence + sentence}) {
                frmModal form;
                form.SetPrompt(prompt);
                form.SetButtons(style);
                form.SetTitle(title);
                form.EnsureLoaded();
                ShowActive(form);
                Walk(form);
                form.hide();
            }
        }
    }
}

TEST(EveryViewAtScaleTwo, HasNoFaultsEither) {
    ExpectTheSameAtScaleTwo("*/EveryView.*", "LightAndDark/EveryView.TheExplorer/0");
}

INSTANTIATE_TEST_SUITE_P(LightAndDark, EveryView,
                         ::testing::Combine(::testing::Bool(), ::testing::Values(QSize(1280, 800), QSize(1920, 1080),
                                                                                 QSize(960, 516), QSize(800, 490))));

}  // namespace
}  // namespace quellbrook::testing

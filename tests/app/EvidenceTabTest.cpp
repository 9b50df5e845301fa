#include "core/Actions.h"
#include "core/Stores.h"
#include "data/StorageLocationStatic.h"
#include "data/StoredItemSearch.h"
#include "tests/app/MainWindowTest.h"
#include "tests/support/Items.h"
#include "ui/controls/ListView.h"
#include "ui/explorer/EvidenceExplorer.h"
#include "ui/explorer/LocationView.h"

#include <QTabBar>

namespace quellbrook::testing {

namespace {

constexpr RecordAddress record{RecordKind::Property, 1};

// Visits another tab of the host and comes back.
class EvidenceTabTest : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        LogIn(SampleAccounts()[0]);
    }

    void VisitAnotherTab() {
        m_window->OpenRecord(record);
        ASSERT_FALSE(Evidence()->isVisible());
        ComeBack();
    }
    void ComeBack() {
        Find<QTabBar>(*m_window, "hostTabs")->setCurrentIndex(0);
        ServeEvents();
    }

    std::vector<std::string> VisibleViews() {
        std::vector<std::string> names;
        for (const char* name : {"explorer", "cart", "itemView", "submitNewEvidence", "loading"})
            if (Find(*Evidence(), name)->isVisible()) names.emplace_back(name);
        return names;
    }

    EvidenceExplorer& Explorer() { return *Find<EvidenceExplorer>(*Evidence(), "explorer"); }
    std::vector<std::string> Rows() {
        std::vector<std::string> names;
        const ListView* list = Explorer().ItemPane()->List();
        for (int row = 0; row < list->RowCount(); ++row) names.push_back(list->RowKey(row).toStdString());
        return names;
    }

    StorageLocationRef AnExternalLocation() {
        return GetStorageLocationStatic().FindByID(
            m_database->execAndGet("SELECT MIN(IdNo) FROM StorageLocation WHERE Type = 4").getInt());
    }
};

using Names = std::vector<std::string>;

}  // namespace

TEST_F(EvidenceTabTest, TheTabKeyVisitsAllOfTheComponentBeforeTheHostsButtons) {
    Explorer().SetSelectedLocation(FullLocation());
    GetActions().BeginTransaction(TransactionType::SignOut, ListOf({FullLocation()->StoredItems()->ItemAt(0)}));
    Find(*m_window, "TreeView")->setFocus();
    Names visited;
    constexpr int mostStops = 20;
    do {
        visited.push_back(QApplication::focusWidget()->objectName().toStdString());
        Press(QApplication::focusWidget(), Qt::Key_Tab);
    } while (QApplication::focusWidget() != Find(*m_window, "TreeView") && visited.size() < mostStops);
    const auto outside = std::find(visited.begin(), visited.end(), "btnCancel");
    const Names fromTree(visited.begin(), outside - 1);  // and the contents, which have no name
    EXPECT_EQ(fromTree, (Names{"TreeView", "lnkEditLocation", "lnkDeleteLocation", "lnkPrintLocationBarcode"}));
    const Names fromInfoBar(outside, visited.end() - 1);  // and the search box, which has no name
    EXPECT_EQ(fromInfoBar, (Names{"btnCancel", "btnComplete", "hostTabs", "scannerPageButton", "help", "logOut"}));
}

TEST_F(EvidenceTabTest, OneViewIsVisibleAfterAVisitToAnotherTabInEachView) {
    const StorageLocationRef location = FullLocation();
    const StoredItemRef item = location->StoredItems()->ItemAt(0);
    VisitAnotherTab();
    EXPECT_EQ(VisibleViews(), Names{"explorer"});
    GetActions().OpenStoredItem(item);
    EXPECT_EQ(VisibleViews(), Names{"itemView"});
    VisitAnotherTab();
    EXPECT_EQ(VisibleViews(), Names{"itemView"});
    GetActions().GoBack();
    GetActions().BeginTransaction(TransactionType::SignOut, ListOf({item}));
    GetActions().NavigateTo("cart", nullptr);
    EXPECT_EQ(VisibleViews(), Names{"cart"});
    VisitAnotherTab();
    EXPECT_EQ(VisibleViews(), Names{"cart"});
    GetActions().GoBack();
    EXPECT_EQ(VisibleViews(), Names{"explorer"});
    GetActions().NavigateTo(ViewNames::SubmitNewEvidence, nullptr);
    EXPECT_EQ(VisibleViews(), Names{"submitNewEvidence"});
    VisitAnotherTab();
    EXPECT_EQ(VisibleViews(), Names{"submitNewEvidence"});
    GetActions().GoBack();
    EXPECT_EQ(VisibleViews(), Names{"explorer"});
}

TEST_F(EvidenceTabTest, TheListIsReadAgainAfterATransferThatFollowsAVisitToAnotherTab) {
    const StorageLocationRef location = FullLocation();
    Explorer().SetSelectedLocation(location);
    const StoredItemRef item = location->StoredItems()->ItemAt(0);
    const Names before = Rows();
    VisitAnotherTab();
    EXPECT_EQ(Rows(), before);
    GetActions().BeginTransaction(TransactionType::SignOut, ListOf({item}));
    GetActions().NavigateTo("cart", nullptr);
    auto details = std::make_shared<TransferData>();
    details->Location = AnExternalLocation();
    details->DateReceived = GetClock().Now();
    GetActions().ProcessTransaction(details);
    GetActions().GoBack();
    ASSERT_TRUE(m_screen.Messages().empty()) << m_screen.Messages()[0];
    EXPECT_EQ(VisibleViews(), Names{"explorer"});
    Names after = before;
    std::erase(after, "P" + std::to_string(item->ID()));
    EXPECT_EQ(after.size(), before.size() - 1);
    EXPECT_EQ(Rows(), after);
}

TEST_F(EvidenceTabTest, TheListIsReadAgainOnComingBack) {
    const StorageLocationRef location = FullLocation();
    Explorer().SetSelectedLocation(location);
    const size_t before = Rows().size();
    m_window->OpenRecord(record);
    const std::string item = std::to_string(location->StoredItems()->ItemAt(0)->ID());
    m_database->exec("UPDATE Property SET CurrTrackSeq = NULL WHERE PropertyNo = " + item);
    ComeBack();
    EXPECT_EQ(Rows().size(), before - 1);
}

TEST_F(EvidenceTabTest, TheFocusReturnsToWhereItWas) {
    Explorer().SetSelectedLocation(FullLocation());
    QWidget* list = Explorer().ItemPane()->List()->Tree();
    list->setFocus();
    VisitAnotherTab();
    EXPECT_EQ(QApplication::focusWidget(), list);
}

TEST_F(EvidenceTabTest, TheTabWithTheFocusHasARingInBothThemes) {
    auto* tabs = Find<QTabBar>(*m_window, "hostTabs");
    const QPoint edge(tabs->tabRect(0).left(), tabs->tabRect(0).center().y());
    for (const bool dark : {false, true}) {
        InstallTheme(dark);
        const QColor ring = m_window->palette().color(QPalette::Link);
        Find(*m_window, "TreeView")->setFocus();
        EXPECT_NE(PixelAt(Grab(*tabs), edge), ring) << dark;
        tabs->setFocus();
        EXPECT_EQ(PixelAt(Grab(*tabs), edge), ring) << dark;
    }
    InstallTheme(false);
}

TEST_F(EvidenceTabTest, ATabChosenByKeyboardKeepsTheFocus) {
    m_window->OpenRecord(record);
    auto* tabs = Find<QTabBar>(*m_window, "hostTabs");
    tabs->setFocus();
    Press(tabs, Qt::Key_Left);
    EXPECT_EQ(VisibleViews(), Names{"explorer"});
    EXPECT_TRUE(tabs->hasFocus());
}

}  // namespace quellbrook::testing

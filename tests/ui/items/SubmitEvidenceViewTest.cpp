#include "tests/ui/items/SubmitEvidenceViewTest.h"

#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/ui/Scanner.h"
#include "ui/items/CartView.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMouseEvent>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using Types = NumberSearchTypes;

TEST_F(SubmitEvidenceViewTest, StartsWithoutResults) {
    EXPECT_EQ(m_view->TypeName(), "SubmitEvidenceView");
    EXPECT_EQ(Text("lblTitle"), "Check in New Evidence");
    EXPECT_EQ(Text("Label1"), "Search for property to check in");
    EXPECT_EQ(Find<FlatButton>(*m_view, "btnSearch")->Caption(), "Search");
    EXPECT_EQ(Submit()->Caption(), "Submit into Evidence");
    EXPECT_FALSE(Submit()->isEnabled());
    EXPECT_EQ(Text("lblSelectedCount"), "0 items selected");
    EXPECT_EQ(SelectAll()->toolTip(), "Select All");
    EXPECT_FALSE(Named("grpResults")->IsShown());
    EXPECT_FALSE(Named("grpNoResults")->IsShown());
    EXPECT_EQ(TabOrder(*m_view), (std::vector<std::string>{"search", "cboFilter", "btnSearch", "lnkClose"}));
}

TEST_F(SubmitEvidenceViewTest, EveryKindOfNumberHasItsPlaceholder) {
    const std::tuple<const char*, Types, const char*> options[] = {
        {"Property ID", Types::PropertyID, "Type Property ID here"},
        {"Vehicle Tag", Types::VehicleTag, "Type vehicle tag here"},
        {"Incident ID", Types::IncidentId, "Type Incident ID here"},
        {"Case Number", Types::CaseNumber, "Type case number here"}};
    ASSERT_EQ(Filter()->Count(), 4);
    EXPECT_EQ(Filter()->focusProxy()->accessibleName(), "Search by");
    EXPECT_EQ(Filter()->ListIndex(), 0);
    EXPECT_EQ(SearchBox()->Placeholder(), "Type Property ID here");
    for (int i = 0; i < 4; ++i) {
        const auto& [text, type, placeholder] = options[i];
        EXPECT_EQ(Filter()->ItemText(i), text);
        EXPECT_EQ(Filter()->ItemData(i), static_cast<int32_t>(type));
        Filter()->SetListIndex(i);
        EXPECT_EQ(SearchBox()->Placeholder(), placeholder);
    }
}

TEST_F(SubmitEvidenceViewTest, KindsOfNumberFollowTheUsersRights) {
    m_session->Revoke(GetPermissions().VIEW_PROPERTY());
    m_view->Show(nullptr);
    EXPECT_EQ(Filter()->Count(), 3);
    EXPECT_EQ(Filter()->ItemText(0), "Vehicle Tag");
    EXPECT_EQ(SearchBox()->Placeholder(), "Type vehicle tag here");
    m_session->Revoke(GetPermissions().VIEW_VEHICLE());
    m_view->Show(nullptr);
    ASSERT_EQ(Filter()->Count(), 2);
    EXPECT_EQ(Filter()->ItemText(0), "Incident ID");
    EXPECT_EQ(Filter()->ItemText(1), "Case Number");
    EXPECT_EQ(Filter()->ListIndex(), 0);
    EXPECT_EQ(SearchBox()->Placeholder(), "Type Incident ID here");
    m_session->Grant(GetPermissions().VIEW_PROPERTY());
    m_view->Show(nullptr);
    EXPECT_EQ(Filter()->Count(), 3);
    EXPECT_EQ(Filter()->ItemText(0), "Property ID");
}

TEST_F(SubmitEvidenceViewTest, AScanIsNotTypedIntoTheNumberAndDoesNothing) {
    SearchIncident();
    SearchBox()->SetText("2026-0431");
    SearchBox()->findChild<QLineEdit*>()->setFocus();
    Scan("P0000000001");
    EXPECT_EQ(m_timers.Tick(1), 1);
    EXPECT_EQ(SearchBox()->Text(), "2026-0431");
    EXPECT_EQ(List()->RowCount(), 3);
    EXPECT_TRUE(Batch().empty());
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::SubmitNewEvidence);
    m_clock.Advance(150);
    TypeAsScanner("7");
    EXPECT_EQ(SearchBox()->Text(), "2026-04317") << "typing works again";
}

TEST_F(SubmitEvidenceViewTest, AnotherFilterClearsTheNumberButKeepsTheRows) {
    SearchIncident();
    Choose(Types::CaseNumber);
    EXPECT_EQ(SearchBox()->Text(), "");
    EXPECT_EQ(List()->RowCount(), 3);
    EXPECT_TRUE(Named("grpResults")->isVisible());
}

TEST_F(SubmitEvidenceViewTest, ChoosingTheSameFilterAgainKeepsTheNumber) {
    SearchBox()->SetText("2026");
    emit Filter()->Box()->activated(0);
    EXPECT_EQ(SearchBox()->Text(), "2026");
}

TEST_F(SubmitEvidenceViewTest, ANewViewHasItsCaptions) {
    SubmitEvidenceView view;
    EXPECT_EQ(view.findChild<FlatTextbox*>("search")->Placeholder(), "Type here to search...");
    EXPECT_EQ(view.findChild<Label*>("lblHeader")->Caption(), "Header");
    EXPECT_EQ(view.findChild<Label*>("lblSelectedCount")->Caption(), "0 items selected");
    EXPECT_FALSE(view.findChild<FlatButton*>("btnSubmit")->isEnabled());
}

TEST_F(SubmitEvidenceViewTest, FindsItemsThatAreNotInStorageByEachNumber) {
    const int32_t untagged = m_database.AddProperty({.PropertyID = "2026-0431-10", .RecordTypeInd = 0});
    m_database.LinkIncident(StoredItemTypes::Property, untagged, m_database.AddIncident("2026-0999", "C-26-9999"));
    const std::tuple<Types, const char*, std::vector<QString>> searches[] = {
        {Types::PropertyID, "2026-0431-02", {"2026-0431-02"}},
        {Types::PropertyID, "2026-0431-10", {}},
        {Types::IncidentId, "2026-0999", {}},
        {Types::PropertyID, "2026-0431-09", {}},
        {Types::PropertyID, " 2026-0431-02", {}},
        {Types::VehicleTag, "LVN2077*", {"LVN2077 (OR)"}},
        {Types::IncidentId, "2026-0388", {"LVN2077 (OR)"}},
        {Types::CaseNumber, "C-26-1182", {"2026-0431-01", "2026-0431-02", "LVN2077 (OR)"}},
        {Types::CaseNumber, "", {}}};
    for (const auto& [type, number, expected] : searches) {
        Search(type, number);
        std::vector<QString> found;
        for (int row = 0; row < List()->RowCount(); ++row) found.push_back(List()->CellText(row, DisplayId));
        EXPECT_THAT(found, ::testing::UnorderedElementsAreArray(expected)) << number;
        EXPECT_EQ(Named("grpResults")->isVisible(), !expected.empty()) << number;
        EXPECT_EQ(Named("grpNoResults")->isVisible(), expected.empty()) << number;
    }
}

TEST_F(SubmitEvidenceViewTest, ARowShowsTheItemAndItsIncidents) {
    SearchIncident();
    const int car = RowOf("LVN2077 (OR)");
    EXPECT_EQ(List()->RowKey(car), QString::number(car + 1));
    EXPECT_EQ(List()->CellText(car, Description).left(4), "2021");
    EXPECT_EQ(List()->CellText(car, IncidentIds), "2026-0431, 2026-0388");
    EXPECT_EQ(List()->CellText(RowOf("2026-0431-01"), IncidentIds), "2026-0431");
    EXPECT_EQ(List()->RowIcon(car), "unselected");
    EXPECT_FALSE(IsBold(car));
}

TEST_F(SubmitEvidenceViewTest, AnItemWithoutIncidentsHasAnEmptyCell) {
    AddUntracked("E-7", "Loose find");
    Search(Types::PropertyID, "E-7");
    ASSERT_EQ(List()->RowCount(), 1);
    EXPECT_EQ(List()->CellText(0, IncidentIds), "");
}

TEST_F(SubmitEvidenceViewTest, ASearchWithoutHitsShowsAMessageWithoutTheBottomBar) {
    SearchIncident();
    Search(Types::PropertyID, "nothing");
    EXPECT_EQ(Text("Label3"), "No items found.");
    EXPECT_EQ(Text("Label2"), "Check for typos in your search filter, or try a different search term.");
    EXPECT_TRUE(Named("Label3")->isVisible());
    EXPECT_FALSE(Submit()->isVisible());
    SearchIncident();
    EXPECT_FALSE(Named("grpNoResults")->isVisible());
    EXPECT_TRUE(Submit()->isVisible());
}

TEST_F(SubmitEvidenceViewTest, AClickOnACheckMarkTicksTheRow) {
    SearchIncident();
    Tick("2026-0431-02");
    const int row = RowOf("2026-0431-02");
    EXPECT_TRUE(List()->RowChecked(row));
    EXPECT_EQ(List()->RowIcon(row), "selected");
    EXPECT_TRUE(IsBold(row));
    EXPECT_FALSE(IsBold(RowOf("2026-0431-01")));
    EXPECT_EQ(Text("lblSelectedCount"), "1 item selected");
    EXPECT_EQ(SelectAll()->toolTip(), "Unselect All");
    EXPECT_EQ(SelectAll()->accessibleName(), "Unselect All");
    EXPECT_EQ(SelectAll()->IconName(), "selected");
    EXPECT_TRUE(Submit()->isEnabled());
    Tick("2026-0431-01");
    EXPECT_EQ(Text("lblSelectedCount"), "2 items selected");
    Tick("2026-0431-01");
    Tick("2026-0431-02");
    EXPECT_FALSE(IsBold(row));
    EXPECT_EQ(List()->RowIcon(row), "unselected");
    EXPECT_EQ(Text("lblSelectedCount"), "0 items selected");
    EXPECT_EQ(SelectAll()->toolTip(), "Select All");
    EXPECT_EQ(SelectAll()->IconName(), "unselected");
    EXPECT_FALSE(Submit()->isEnabled());
}

TEST_F(SubmitEvidenceViewTest, AClickBesideTheCheckMarkChangesNothing) {
    SearchIncident();
    const QImage before = Grab(*Tree()->viewport());
    for (const int column : {DisplayId, Description, IncidentIds}) {
        Click(Tree()->viewport(), CellOf(1, column).center());
        EXPECT_FALSE(List()->RowChecked(1));
        EXPECT_EQ(Tree()->viewport()->cursor().shape(), Qt::ArrowCursor);
    }
    EXPECT_EQ(Text("lblSelectedCount"), "0 items selected");
    EXPECT_EQ(Grab(*Tree()->viewport()), before);
}

TEST_F(SubmitEvidenceViewTest, TheHandCursorIsOverTheCheckMarksOnly) {
    SearchIncident();
    const auto moveTo = [this](const QPoint& at) {
        QMouseEvent move(QEvent::MouseMove, at, Tree()->viewport()->mapToGlobal(at), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QApplication::sendEvent(Tree()->viewport(), &move);
        return Tree()->viewport()->cursor().shape();
    };
    EXPECT_EQ(moveTo(CellOf(0, CheckMark).center()), Qt::PointingHandCursor);
    EXPECT_EQ(moveTo(CellOf(0, Description).center()), Qt::ArrowCursor);
    EXPECT_EQ(moveTo(CellOf(2, CheckMark).center()), Qt::PointingHandCursor);
    EXPECT_EQ(moveTo(CellOf(2, CheckMark).center() + QPoint(0, 60)), Qt::ArrowCursor) << "below the rows";
    for (const auto& button : {MousePress, MouseRelease}) {
        Tree()->viewport()->unsetCursor();
        button(Tree()->viewport(), CellOf(0, CheckMark).center(), Qt::LeftButton);
        EXPECT_EQ(Tree()->viewport()->cursor().shape(), Qt::PointingHandCursor);
    }
    EXPECT_EQ(SelectAll()->cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(SubmitEvidenceViewTest, SpaceTicksTheCurrentRow) {
    SearchIncident();
    Tree()->setFocus();
    ASSERT_EQ(List()->CurrentRow(), 0);
    Press(Qt::Key_Down);
    ASSERT_EQ(List()->CurrentRow(), 1);
    Press(Qt::Key_Space);
    EXPECT_TRUE(IsBold(1));
    EXPECT_EQ(Text("lblSelectedCount"), "1 item selected");
    Press(Qt::Key_Space);
    EXPECT_FALSE(IsBold(1));
    EXPECT_EQ(Text("lblSelectedCount"), "0 items selected");
}

TEST_F(SubmitEvidenceViewTest, TheMarkBelowTheListTicksAllRowsAndThenNone) {
    SearchIncident();
    Click(SelectAll());
    for (int row = 0; row < 3; ++row) EXPECT_TRUE(IsBold(row));
    EXPECT_EQ(Text("lblSelectedCount"), "3 items selected");
    SelectAll()->setFocus();
    Press(Qt::Key_Space);
    for (int row = 0; row < 3; ++row) EXPECT_FALSE(IsBold(row));
    EXPECT_EQ(Text("lblSelectedCount"), "0 items selected");
    EXPECT_FALSE(Submit()->isEnabled());
}

TEST_F(SubmitEvidenceViewTest, TheMarkBelowTheListRemembersOnlyItsOwnClicks) {
    SearchIncident();
    Tick("2026-0431-02");
    Click(SelectAll());
    EXPECT_EQ(Text("lblSelectedCount"), "3 items selected") << "the first click ticks all";
    SearchIncident();
    Tick("2026-0431-02");
    Click(SelectAll());
    EXPECT_EQ(Text("lblSelectedCount"), "0 items selected") << "it still stands at all";
    m_view->Show(nullptr);
    SearchIncident();
    Click(SelectAll());
    EXPECT_EQ(Text("lblSelectedCount"), "3 items selected");
    m_view->Show(nullptr);
    SearchIncident();
    Tick("2026-0431-02");
    Click(SelectAll());
    EXPECT_EQ(Text("lblSelectedCount"), "0 items selected") << "another visit does not reset it";
}

TEST_F(SubmitEvidenceViewTest, AfterAnotherSearchTheBottomBarStaysUntilARowIsTicked) {
    SearchIncident();
    Tick("2026-0431-01");
    Search(Types::PropertyID, "2026-0431-02");
    EXPECT_FALSE(List()->RowChecked(0));
    EXPECT_EQ(Text("lblSelectedCount"), "1 item selected");
    EXPECT_EQ(SelectAll()->toolTip(), "Unselect All");
    EXPECT_EQ(SelectAll()->IconName(), "selected");
    EXPECT_TRUE(Submit()->isEnabled());
    Click(Submit());
    EXPECT_EQ(Cart()->GetTransactionType(), TransactionType::SignIn);
    EXPECT_TRUE(Cart()->IsEmpty());
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::Cart);
}

TEST_F(SubmitEvidenceViewTest, SubmitBeginsASignInWithTheTickedItemsInTheOrderOfTheRows) {
    SearchIncident();
    const std::string first = List()->CellText(0, DisplayId).toStdString();
    const std::string last = List()->CellText(2, DisplayId).toStdString();
    Tick(QString::fromStdString(last));
    Tick(QString::fromStdString(first));
    Click(Submit());
    EXPECT_EQ(Cart()->GetTransactionType(), TransactionType::SignIn);
    EXPECT_THAT(Batch(), ElementsAre(first, last));
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::Cart);
    CartView cart;
    ShowActive(cart);
    EXPECT_EQ(Find<Label>(cart, "lblTitle")->Caption(), "Sign In Evidence");
    GetActions().GoBack();
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::Explorer);
}

TEST_F(SubmitEvidenceViewTest, ItemsThatWereSignedInAreNoLongerFound) {
    SearchIncident();
    Click(SelectAll());
    Click(Submit());
    auto details = std::make_shared<TransferData>();
    details->Location = GetStores().Locations->GetLocation(shelf);
    details->DateReceived = m_clock.Now();
    GetActions().ProcessTransaction(details);
    EXPECT_EQ(ToInt32(m_database.QueryValue("SELECT COUNT(*) FROM VehicleTracking")), 1);
    SearchIncident();
    EXPECT_EQ(List()->RowCount(), 0);
}

TEST_F(SubmitEvidenceViewTest, TheViewCanBeDestroyedWhileItSubmits) {
    SearchIncident();
    Click(SelectAll());
    const Subscription changed = GetStores().View->OnChange.connect([this] { delete std::exchange(m_view, nullptr); });
    Click(Submit());
    EXPECT_EQ(Cart()->GetItems()->Count(), 3);
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::Cart);
}

TEST_F(SubmitEvidenceViewTest, TheViewCanBeDestroyedWhenTheBatchBegins) {
    SearchIncident();
    Click(SelectAll());
    const Subscription changed = Cart()->OnChange.connect([this] { delete std::exchange(m_view, nullptr); });
    Click(Submit());
    EXPECT_EQ(m_view, nullptr);
    EXPECT_EQ(Cart()->GetItems()->Count(), 3);
}

TEST_F(SubmitEvidenceViewTest, CloseGoesBackWithoutATransaction) {
    SearchIncident();
    Tick("2026-0431-01");
    Click(Named("lnkClose"));
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::Explorer);
    EXPECT_EQ(Cart()->GetTransactionType(), TransactionType::None);
}

TEST_F(SubmitEvidenceViewTest, EscapeAndAltLeftGoBackFromEveryControl) {
    SearchIncident();
    Tick("2026-0431-01");
    const std::vector<QWidget*> controls = {SearchBox(), Filter(), Named("btnSearch"), Tree(),
                                            SelectAll(), Submit(), Named("lnkClose")};
    for (QWidget* control : controls) {
        for (const bool withEscape : {true, false}) {
            GetActions().NavigateTo(ViewNames::SubmitNewEvidence, nullptr);
            control->setFocus();
            const QWidget* focused = QApplication::focusWidget();
            ASSERT_TRUE(focused == control || control->isAncestorOf(focused)) << control->objectName().toStdString();
            Press(withEscape ? Qt::Key_Escape : Qt::Key_Left, withEscape ? Qt::NoModifier : Qt::AltModifier);
            EXPECT_EQ(GetStores().View->ViewName(), ViewNames::Explorer)
                << control->objectName().toStdString() << " " << withEscape;
        }
    }
    EXPECT_EQ(Cart()->GetTransactionType(), TransactionType::None);
}

TEST_F(SubmitEvidenceViewTest, EnterInTheNumberDoesNotSearch) {
    SearchBox()->SetText("2026-0431-01");
    SearchBox()->setFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(List()->RowCount(), 0);
    EXPECT_EQ(SearchBox()->Text(), "2026-0431-01");
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::SubmitNewEvidence);
}

TEST_F(SubmitEvidenceViewTest, ShowingTheViewAgainClearsTheResults) {
    SearchIncident();
    Tick("2026-0431-01");
    m_view->Show(nullptr);
    EXPECT_FALSE(Named("grpResults")->IsShown());
    EXPECT_EQ(List()->RowCount(), 0);
    EXPECT_EQ(List()->ColumnCount(), 7);
    EXPECT_EQ(Text("lblSelectedCount"), "0 items selected");
    EXPECT_FALSE(Submit()->isEnabled());
    EXPECT_EQ(SearchBox()->Text(), "");
    EXPECT_EQ(Filter()->ListIndex(), 0);
}

TEST_F(SubmitEvidenceViewTest, TheMessageOfASearchWithoutHitsStaysUntilTheNextSearch) {
    Search(Types::PropertyID, "nothing");
    m_view->Show(nullptr);
    EXPECT_TRUE(Named("grpNoResults")->IsShown());
    SearchIncident();
    EXPECT_FALSE(Named("grpNoResults")->IsShown());
}

TEST_F(SubmitEvidenceViewTest, AFailedSearchIsReportedAndKeepsTheRows) {
    SearchIncident();
    Tick("2026-0431-01");
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    const std::pair<int, std::string> failures[] = {
        {1, "The link is down."},  // the search
        {3, "Error retrieving related incident data for property 2026-0431-02 (PK = 2): The link is down."}};
    for (const auto& [statement, text] : failures) {
        faults->FailAtStatement(statement, Error(7, "Engine", "The link is down."));
        m_log.Announce("Engine");
        SearchIncident();
        ASSERT_TRUE(faults->HasStruck()) << statement;
        EXPECT_EQ(m_screen.TakeMessages(), OneMessage(text, 16, "Unexpected Error"));
        EXPECT_EQ(List()->RowCount(), 3);
        EXPECT_TRUE(List()->RowChecked(RowOf("2026-0431-01")));
    }
}

TEST_F(SubmitEvidenceViewTest, TheTabOrderFollowsTheScreen) {
    SearchIncident();
    Tick("2026-0431-01");
    EXPECT_EQ(TabOrder(*m_view), (std::vector<std::string>{"search", "cboFilter", "btnSearch", "searchResults",
                                                           "imgSelectAll", "btnSubmit", "lnkClose"}));
}

}  // namespace
}  // namespace quellbrook::testing

#include "tests/ui/locations/SetupLocationsWizardTest.h"

#include "tests/support/FaultInjectingEngine.h"
#include "ui/controls/FontIcon.h"
#include "ui/platform/Guard.h"
#include "ui/platform/MousePointer.h"

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

// Notes the mouse pointer at the time of its first query.
class PointerNotingEngine : public Engine {
public:
    explicit PointerNotingEngine(std::shared_ptr<Engine> inner) : m_inner(std::move(inner)) {}

    std::unique_ptr<Connection> Open() override {
        pointer = GetMousePointer();
        return m_inner->Open();
    }
    bool WasCommitted(const std::string& name) override { return m_inner->WasCommitted(name); }
    const Dialect& GetDialect() const override { return m_inner->GetDialect(); }

    int pointer = -1;

private:
    std::shared_ptr<Engine> m_inner;
};

TEST_F(SetupLocationsWizardTest, HasAPageForEachCategory) {
    m_database.Execute("DELETE FROM StorageLocation WHERE Name <> 'Locker'");
    Open();
    EXPECT_EQ(Text("lblTitle"), "Categorize Your Storage Locations");
    EXPECT_EQ(Text("lblSubtitle"),
              "Before you can use the evidence management system, you need to categorize your existing storage "
              "locations by identifiying what type of location each one is.");
    const std::vector<std::pair<std::string, std::string>> pages = {
        {"Which of These Locations are Disposal Locations?",
         "A disposal location refers to the final destination or location for an item that has been diposed of "
         "(destroyed, sold, etc.)"},
        {"Which of These Locations are Sign-Out Locations?",
         "A sign-out location is a location outside of your department's control, where evidence temporarily leaves "
         "your custody but will be returned to department custody.\n\nExamples are court, the crime lab, or placing "
         "an item in an officer's custody."},
        {"Which of These Locations Are \"Other\" Locations?",
         "Some locations may not clearly fit into categories such as \"sign-in location\" or \"sign-out location\", "
         "such as \"Other\". Select the items that can't be categorized as a sign-out, sign-in, or disposal "
         "locations below, or click Back to categorize some or all of these under another category."},
        {"Which of These Locations are Sign-In Locations?",
         "A sign-in location is a location under your department's control, such as an evidence room, locker, cage, "
         "or impound lot."}};
    for (size_t page = 0; page < pages.size(); ++page) {
        EXPECT_EQ(Text("lblPrompt"), pages[page].first);
        EXPECT_EQ(Text("lblHintText"), pages[page].second);
        EXPECT_EQ(IsShown("btnBack"), page > 0);
        EXPECT_EQ(Caption("btnNext"), page == 3 ? "FINISH" : "NEXT");
        EXPECT_EQ(Caption("btnBack"), "BACK");
        EXPECT_EQ(Caption("lnkSelectAll"), "Select All");
        EXPECT_THAT(Rows(), ElementsAre("Locker"));
        if (page < 3) Next();
    }
}

TEST_F(SetupLocationsWizardTest, ListsEveryUncategorizedLocationBelowItsContainer) {
    m_database.AddLocation("Vault", Types::Internal);
    Open();
    EXPECT_THAT(Rows(), ElementsAre("Auction", "Court", "Crime Lab", "Biology", "Evidence Room", "Aisle 1", "Shelf A",
                                    "Aisle 2", "Shelf B", "Locker"));
    EXPECT_TRUE(IsShown("lvwLocations"));
    EXPECT_FALSE(IsShown("picNoLocations"));
}

TEST_F(SetupLocationsWizardTest, ListsDisabledLocationsToo) {
    m_database.Execute("UPDATE StorageLocation SET ActiveFlag = 0 WHERE Name IN ('Court', 'Crime Lab')");
    Open();
    EXPECT_EQ(List()->RowCount(), 10);
}

TEST_F(SetupLocationsWizardTest, WithoutUncategorizedLocationsTheFirstPageFinishes) {
    m_database.Execute("DELETE FROM StorageLocation");
    Open();
    EXPECT_TRUE(IsShown("picNoLocations"));
    EXPECT_FALSE(IsShown("lvwLocations"));
    EXPECT_EQ(Find<FontIcon>(*m_wizard, "Label1")->IconName(), "check");
    EXPECT_EQ(Text("Label3"), "All Locations Assigned");
    EXPECT_EQ(Text("Label2"), "All of your storage locations have been assigned to a valid storage category.");
    EXPECT_EQ(Caption("btnNext"), "FINISH");
    EXPECT_FALSE(IsShown("btnBack"));
    EXPECT_TRUE(Named("btnNext")->hasFocus());
    Next();
    EXPECT_EQ(m_completions, 1);
}

TEST_F(SetupLocationsWizardTest, APageAfterAllAreTickedFinishesWithoutTheCheckOfTheLast) {
    Open();
    Click(SelectAll());
    Next();
    EXPECT_TRUE(IsShown("picNoLocations"));
    EXPECT_FALSE(IsShown("lvwLocations"));
    EXPECT_EQ(Caption("btnNext"), "FINISH");
    EXPECT_EQ(Text("lblCount"), "0 locations selected");
    Next();
    EXPECT_THAT(m_screen.Messages(), IsEmpty());
    EXPECT_EQ(m_completions, 1);
}

TEST_F(SetupLocationsWizardTest, ALocationTickedOnOnePageIsListedOnThatPageOnly) {
    Open();
    Tick(auction);
    Next();
    EXPECT_THAT(Rows(), ElementsAre("Court", "Crime Lab", "Biology", "Evidence Room", "Aisle 1", "Shelf A", "Aisle 2",
                                    "Shelf B", "Locker"));
    Tick(court);
    Next();
    EXPECT_THAT(Rows(), Not(::testing::Contains("Court")));
    Back();
    EXPECT_THAT(Ticked(), ElementsAre("Court"));
    EXPECT_THAT(Rows(), Not(::testing::Contains("Auction")));
    Back();
    EXPECT_THAT(Ticked(), ElementsAre("Auction"));
    EXPECT_TRUE(List()->CellBold(RowOf(auction), 1));
    EXPECT_THAT(Rows(), Not(::testing::Contains("Court")));
    EXPECT_EQ(Text("lblCount"), "1 location selected");
}

TEST_F(SetupLocationsWizardTest, ATickedContainerHidesItsSublocationsOnOtherPagesOnly) {
    Open();
    Tick(room);
    EXPECT_EQ(List()->RowCount(), 10);
    Tick(shelfA);
    EXPECT_THAT(Ticked(), ElementsAre("Evidence Room", "Shelf A"));
    Next();
    EXPECT_THAT(Rows(), ElementsAre("Auction", "Court", "Crime Lab", "Biology", "Locker"));
    Back();
    EXPECT_THAT(Ticked(), ElementsAre("Evidence Room", "Shelf A"));
    Tick(room);
    Next();
    EXPECT_THAT(Rows(), ElementsAre("Auction", "Court", "Crime Lab", "Biology", "Evidence Room", "Aisle 1", "Aisle 2",
                                    "Shelf B", "Locker"));
}

TEST_F(SetupLocationsWizardTest, TheCountIsOfTheTickedRowsOfThePage) {
    Open();
    EXPECT_EQ(Text("lblCount"), "0 locations selected");
    Tick(auction);
    EXPECT_EQ(Text("lblCount"), "1 location selected");
    Tick(court);
    EXPECT_EQ(Text("lblCount"), "2 locations selected");
    Next();
    EXPECT_EQ(Text("lblCount"), "0 locations selected");
    Back();
    EXPECT_EQ(Text("lblCount"), "2 locations selected");
    Tick(auction);
    EXPECT_EQ(Text("lblCount"), "1 location selected");
}

// A ticked sublocation of a container that is ticked on another page is on no page, but is still moved.
TEST_F(SetupLocationsWizardTest, ATickBelowAContainerOfAnotherPageIsNotCountedButKept) {
    Open();
    Tick(biology);
    Next();
    Tick(lab);
    Back();
    EXPECT_THAT(Rows(), Not(::testing::Contains("Biology")));
    EXPECT_EQ(Text("lblCount"), "0 locations selected");
    Next();
    Tick(lab);
    Back();
    EXPECT_THAT(Ticked(), ElementsAre("Biology"));
}

TEST_F(SetupLocationsWizardTest, ATickedNameIsBold) {
    Open();
    EXPECT_FALSE(List()->CellBold(RowOf(court), 1));
    Tick(court);
    EXPECT_TRUE(List()->CellBold(RowOf(court), 1));
    EXPECT_FALSE(List()->CellBold(RowOf(auction), 1));
    Tick(court);
    EXPECT_FALSE(List()->CellBold(RowOf(court), 1));
}

TEST_F(SetupLocationsWizardTest, TheLinkTicksAndUnticksEveryRowOfThePage) {
    Open();
    Tick(court);
    Click(SelectAll());
    EXPECT_EQ(Caption("lnkSelectAll"), "Unselect All");
    EXPECT_EQ(Text("lblCount"), "10 locations selected");
    EXPECT_TRUE(List()->CellBold(RowOf(locker), 1));
    Click(SelectAll());
    EXPECT_EQ(Caption("lnkSelectAll"), "Select All");
    EXPECT_THAT(Ticked(), IsEmpty());
    Next();
    EXPECT_EQ(List()->RowCount(), 10);
}

// Ticking rows does not change what the link does next.
TEST_F(SetupLocationsWizardTest, EachPageKeepsTheStateOfItsLink) {
    Open();
    Tick(auction);
    EXPECT_EQ(Caption("lnkSelectAll"), "Select All");
    Next();
    Click(SelectAll());
    Tick(court);
    Tick(locker);
    EXPECT_EQ(Caption("lnkSelectAll"), "Unselect All");
    Next();
    EXPECT_EQ(Caption("lnkSelectAll"), "Select All");
    EXPECT_THAT(Rows(), ElementsAre("Court", "Locker"));
    Back();
    EXPECT_EQ(Caption("lnkSelectAll"), "Unselect All");
    Click(SelectAll());
    EXPECT_THAT(Ticked(), IsEmpty());
    Back();
    EXPECT_THAT(Ticked(), ElementsAre("Auction"));
}

TEST_F(SetupLocationsWizardTest, TheLastPageRefusesToLeaveALocationOut) {
    Open();
    GoToPage(3);
    Click(SelectAll());
    Tick(biology);
    const Names before = Stored();
    Next();
    ExpectError(
        "You cannot leave any locations unassigned.\r\n\r\n"
        "Please select all the remaining locations, or click 'Back' and assign one or more of them to other "
        "categories.");
    EXPECT_EQ(Text("lblPrompt"), "Which of These Locations are Sign-In Locations?");
    EXPECT_EQ(Ticked().size(), 9u);
    EXPECT_EQ(Stored(), before);
    Tick(biology);
    Next();
    EXPECT_EQ(m_completions, 1);
}

TEST_F(SetupLocationsWizardTest, NothingIsWrittenBeforeTheEnd) {
    const Names before = Stored();
    Open();
    Click(SelectAll());
    Next();
    Back();
    EXPECT_EQ(Stored(), before);
}

TEST_F(SetupLocationsWizardTest, AFailureToLoadTheFirstPageIsReported) {
    std::vector<Error> reported;
    m_environment->reportUnexpected = [&](const Error& error) { reported.push_back(error); };
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    faults->FailAtStatement(1, Error(7, "Engine", "The link is down."));
    Open();
    ServeEvents();
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_EQ(reported[0].Number(), 7);
    EXPECT_EQ(reported[0].Source(), "Engine");
    EXPECT_EQ(reported[0].Description(), "Error loading locations: The link is down.");
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
    EXPECT_FALSE(IsShown("btnNext"));
}

TEST_F(SetupLocationsWizardTest, AFailureToLoadTheNextPageIsShownAndBackLoadsAgain) {
    Open();
    Tick(auction);
    auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    HostLocationData::Discard();
    faults->FailAtStatement(1, Error(7, "Engine", "The link is down."));
    Next();
    ASSERT_TRUE(faults->HasStruck());
    ExpectError("Error loading locations: The link is down.");
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
    EXPECT_EQ(Text("lblPrompt"), "Which of These Locations are Sign-Out Locations?");
    EXPECT_EQ(Text("lblCount"), "0 locations selected");
    EXPECT_FALSE(IsShown("btnNext"));
    Back();
    EXPECT_TRUE(IsShown("btnNext"));
    EXPECT_THAT(Ticked(), ElementsAre("Auction"));
    Next();
    EXPECT_EQ(List()->RowCount(), 9);
}

TEST_F(SetupLocationsWizardTest, AfterAFailureToGoBackNoListIsOfferedAndBackCanBePressedAgain) {
    std::vector<std::string> reported;
    m_environment->reportUnexpected = [&](const Error& error) { reported.push_back(error.Description()); };
    for (const bool allTicked : {true, false}) {
        SCOPED_TRACE(allTicked);
        Open();
        if (allTicked)
            Click(SelectAll());
        else
            Tick(auction);
        const Names ticked = Ticked();
        Next();
        ASSERT_EQ(IsShown("picNoLocations"), allTicked);
        auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
        m_database.Install(faults);
        HostLocationData::Discard();
        faults->FailAtStatement(1, Error(7, "Engine", "The link is down."));
        reported.clear();
        Back();
        EXPECT_THAT(reported, ElementsAre("Error loading locations: The link is down."));
        EXPECT_FALSE(IsShown("picNoLocations"));
        EXPECT_THAT(Rows(), IsEmpty());
        EXPECT_EQ(Text("lblCount"), "0 locations selected");
        EXPECT_EQ(Text("lblPrompt"), "Which of These Locations are Sign-Out Locations?");
        EXPECT_FALSE(IsShown("btnNext"));
        ASSERT_TRUE(Named("btnBack")->hasFocus());
        Press(Qt::Key_Return);
        EXPECT_EQ(Text("lblPrompt"), "Which of These Locations are Disposal Locations?");
        EXPECT_EQ(Ticked(), ticked);
        EXPECT_TRUE(IsShown("btnNext"));
        EXPECT_FALSE(IsShown("btnBack"));
    }
}

TEST_F(SetupLocationsWizardTest, ThePointerIsAnHourglassWhileLocationsAreLoadedAndMoved) {
    auto engine = std::make_shared<PointerNotingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    Open();
    EXPECT_EQ(engine->pointer, MousePointer::Hourglass);
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
    Click(SelectAll());
    Next();
    engine = std::make_shared<PointerNotingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    Next();
    EXPECT_EQ(engine->pointer, MousePointer::Hourglass);
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
}

TEST_F(SetupLocationsWizardTest, TheFocusIsInTheListOnEachPageWithItsFirstRowCurrent) {
    Open();
    for (int page = 0; page < 3; ++page) {
        EXPECT_TRUE(Tree()->hasFocus()) << page;
        EXPECT_EQ(List()->CurrentRow(), 0) << page;
        EXPECT_TRUE(Tree()->selectedItems().isEmpty()) << page;
        Next();
    }
    Back();
    EXPECT_TRUE(Tree()->hasFocus());
    EXPECT_EQ(List()->CurrentRow(), 0);
}

TEST_F(SetupLocationsWizardTest, SpaceTicksTheCurrentRow) {
    Open();
    Press(Qt::Key_Down);
    Press(Qt::Key_Space);
    EXPECT_THAT(Ticked(), ElementsAre("Court"));
    EXPECT_EQ(Text("lblCount"), "1 location selected");
    Press(Qt::Key_Space);
    EXPECT_THAT(Ticked(), IsEmpty());
}

TEST_F(SetupLocationsWizardTest, EnterInTheListIsNext) {
    Open();
    Press(Qt::Key_Return);
    EXPECT_EQ(Text("lblPrompt"), "Which of These Locations are Sign-Out Locations?");
    Press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(Text("lblPrompt"), "Which of These Locations Are \"Other\" Locations?");
}

TEST_F(SetupLocationsWizardTest, AHeldEnterGoesOnePageOnly) {
    Open();
    const QPointer<QWidget> tree = Tree();
    QTest::keyPress(tree, Qt::Key_Return);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QString(), true);
    QApplication::sendEvent(tree, &repeated);
    EXPECT_EQ(Text("lblPrompt"), "Which of These Locations are Sign-Out Locations?");
}

TEST_F(SetupLocationsWizardTest, EnterOnAButtonOrTheLinkPressesThat) {
    Open();
    Next();
    SelectAll()->setFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(Caption("lnkSelectAll"), "Unselect All");
    Named("btnBack")->setFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(Text("lblPrompt"), "Which of These Locations are Disposal Locations?");
}

TEST_F(SetupLocationsWizardTest, TabGoesFromTheListToTheLinkToTheButtons) {
    Open();
    Next();
    EXPECT_EQ(TabOrder(*m_wizard), (std::vector<std::string>{"lvwLocations", "lnkSelectAll", "btnBack", "btnNext"}));
}

TEST_F(SetupLocationsWizardTest, ARowDescribesItsPath) {
    const int32_t twin = Add(" Shelf A", aisle2);
    Open();
    const std::vector<std::pair<int32_t, QString>> paths = {
        {shelfA, "Evidence Room > Aisle 1 > Shelf A"}, {twin, "Evidence Room > Aisle 2 > Shelf A"}, {court, "Court"}};
    for (const auto& [location, path] : paths) {
        const QModelIndex name = Tree()->model()->index(RowOf(location), 1);
        EXPECT_EQ(List()->CellTooltip(RowOf(location), 1), path);
        EXPECT_EQ(name.data(Qt::AccessibleDescriptionRole).toString(), path);
    }
    EXPECT_EQ(ToUtf8(List()->CellText(RowOf(twin), 1)), " Shelf A");
}

TEST_F(SetupLocationsWizardTest, ALongNameAndMarkupAreShownAsText) {
    const std::string longName(10'000, 'x');
    const int32_t longOne = Add(longName);
    const int32_t bold = Add("<b>Box</b> & \u00C9t\u00E9 \u4FDD\u7BA1");
    Open();
    EXPECT_EQ(ToUtf8(List()->CellText(RowOf(longOne), 1)), longName);
    EXPECT_EQ(ToUtf8(List()->CellText(RowOf(bold), 1)), "<b>Box</b> & \u00C9t\u00E9 \u4FDD\u7BA1");
    const QString tooltip = Tree()->topLevelItem(RowOf(bold))->toolTip(1);
    EXPECT_TRUE(tooltip.contains("&lt;b&gt;Box")) << tooltip.toStdString();
    EXPECT_FALSE(Grab(*m_wizard).isNull());
}

}  // namespace
}  // namespace quellbrook::testing

#include "tests/support/FaultInjectingEngine.h"
#include "tests/ui/locations/SetupLocationsWizardTest.h"

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class WizardWritingTest : public SetupLocationsWizardTest {
protected:
    // Disposal: Auction. Sign-out: Court, Crime Lab. Other: Locker. Sign-in: Evidence Room, Aisle 1, Shelf A, Aisle 2,
    // Shelf B. Ends on the last page.
    void TickAll() {
        Tick(auction);
        Next();
        Tick(court);
        Tick(lab);
        Next();
        Tick(locker);
        Next();
        Click(SelectAll());
    }

    // What TickAll asks for.
    Names Categorized() const {
        return {"Auction 8 /0/",       "Court 4 /0/",   "Crime Lab 4 /0/", "Biology 4 /0/" + std::to_string(lab) + "/",
                "Evidence Room 2 /0/", "Aisle 1 2 /0/", "Shelf A 2 /0/",   "Aisle 2 2 /0/",
                "Shelf B 2 /0/",       "Locker 16 /0/"};
    }
};

TEST_F(WizardWritingTest, EachTickedLocationMovesToTheTopOfItsCategoryAndTheRestStaysInItsContainer) {
    Open();
    TickAll();
    EXPECT_EQ(Rows().size(), 5u);
    Next();
    EXPECT_EQ(Stored(), Categorized());
    EXPECT_THAT(m_screen.Messages(), IsEmpty());
    EXPECT_EQ(m_completions, 1);
    EXPECT_TRUE(GetStorageLocationStatic().GetRoot(Types::Unassigned)->SubLocations().empty());
}

TEST_F(WizardWritingTest, ASublocationTickedOnAnEarlierPageThanItsContainerLeavesIt) {
    Open();
    Next();
    Tick(aisle1);
    Next();
    Click(SelectAll());
    Next();
    EXPECT_EQ(Caption("btnNext"), "FINISH");
    Next();
    EXPECT_EQ(m_completions, 1);
    EXPECT_THAT(Stored(), ElementsAre("Auction 16 /0/", "Court 16 /0/", "Crime Lab 16 /0/", "Biology 16 /0/",
                                      "Evidence Room 16 /0/", "Aisle 1 4 /0/", "Shelf A 4 /0/6/", "Aisle 2 16 /0/",
                                      "Shelf B 16 /0/", "Locker 16 /0/"));
}

TEST_F(WizardWritingTest, CategoriesAreWrittenInAFixedOrderAndLocationsInTheOrderOfTheirTicks) {
    Open();
    Next();
    Tick(locker);
    Tick(court);
    Next();
    Tick(auction);
    Next();
    Click(SelectAll());
    m_database.Execute("CREATE TABLE Moves (Name TEXT)");
    m_database.Execute(
        "CREATE TRIGGER NoteMove AFTER UPDATE OF Path ON StorageLocation WHEN NEW.Path = '/0/' BEGIN INSERT INTO Moves "
        "VALUES (NEW.Name); END");
    Next();
    Names moved;
    for (const Row& row : m_database.QueryRows("SELECT Name FROM Moves ORDER BY rowid"))
        moved.push_back(ToTextOrEmpty(row.At(0)));
    EXPECT_THAT(moved, ElementsAre("Locker", "Court", "Crime Lab", "Biology", "Evidence Room", "Aisle 1", "Shelf A",
                                   "Aisle 2", "Shelf B", "Auction"));
}

// Whatever fails, what was moved stays, the wizard stays, and a second attempt ends as the first would have.
TEST_F(WizardWritingTest, AfterAFailureAtAnyStatementASecondAttemptCompletes) {
    int failures = 0;
    for (int statement = 1;; ++statement) {
        SCOPED_TRACE(statement);
        m_database.Install(m_database.GetEngine());
        m_database.Execute("DELETE FROM StorageLocation");
        AddDepartment();
        GetStorageLocationStatic().Refresh();
        Open();
        TickAll();
        m_completions = 0;
        auto faults = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
        m_database.Install(faults);
        faults->FailAtStatement(statement, Error(7, "Engine", "The link is down."));
        Next();
        if (!faults->HasStruck()) break;
        ++failures;
        const auto messages = m_screen.TakeMessages();
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_THAT(messages[0].prompt, StartsWith("Error assigning location categories: "));
        EXPECT_THAT(messages[0].prompt, ::testing::HasSubstr("The link is down."));
        EXPECT_EQ(messages[0].title, "Error");
        EXPECT_EQ(messages[0].buttons, 16);
        EXPECT_EQ(m_completions, 0);
        EXPECT_EQ(Caption("btnNext"), "FINISH");
        EXPECT_EQ(Ticked().size(), 5u);
        Next();
        EXPECT_EQ(m_completions, 1);
        EXPECT_THAT(m_screen.Messages(), IsEmpty());
        EXPECT_EQ(Stored(), Categorized());
    }
    EXPECT_GT(failures, 30);
    EXPECT_EQ(Stored(), Categorized());
}

TEST_F(WizardWritingTest, MovesBeforeAFailureStay) {
    m_database.AddLocation("Crime Lab", Types::External);
    Open();
    TickAll();
    Next();
    ExpectError(
        "Error assigning location categories: Could not move location 'Crime Lab' into 'Sign-Out Locations'. \r\n\r\n"
        "There is already a location with the name 'Crime Lab' in 'Sign-Out Locations'. \r\n\r\nRename this location "
        "or the other location already in 'Sign-Out Locations' before moving this location.");
    EXPECT_THAT(Stored(), ElementsAre("Auction 8 /0/", "Court 4 /0/", "Crime Lab 1 /0/", "Biology 1 /0/3/",
                                      "Evidence Room 1 /0/", "Aisle 1 1 /0/5/", "Shelf A 1 /0/5/6/", "Aisle 2 1 /0/5/",
                                      "Shelf B 1 /0/5/8/", "Locker 1 /0/", "Crime Lab 4 /0/"));
    Back();
    Back();
    EXPECT_THAT(Rows(), ElementsAre("Crime Lab", "Biology"));
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = 11");
    Next();
    Next();
    EXPECT_EQ(Ticked().size(), 5u);
    Next();
    EXPECT_EQ(m_completions, 1);
    EXPECT_EQ(Stored(), Categorized());
}

TEST_F(WizardWritingTest, ALocationDeletedElsewhereNeedsNoCategory) {
    Open();
    TickAll();
    m_database.Execute("DELETE FROM StorageLocation WHERE Name = 'Court'");
    Next();
    EXPECT_THAT(m_screen.Messages(), IsEmpty());
    EXPECT_EQ(m_completions, 1);
    EXPECT_TRUE(m_database.QueryRows("SELECT 1 FROM StorageLocation WHERE Type = 1").empty());
}

TEST_F(WizardWritingTest, TwoLocationsWithTheSameNameDoNotFitIntoOneCategory) {
    Add("Shelf A", aisle2);
    Open();
    Click(SelectAll());
    Next();
    Next();
    ExpectError(
        "Error assigning location categories: Could not move location 'Shelf A' into 'Final Disposition'. \r\n\r\n"
        "There is already a location with the name 'Shelf A' in 'Final Disposition'. \r\n\r\nRename this location or "
        "the other location already in 'Final Disposition' before moving this location.");
}

}  // namespace
}  // namespace quellbrook::testing

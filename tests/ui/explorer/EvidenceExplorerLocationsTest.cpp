#include "tests/support/FakeSession.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/ui/explorer/ExplorerWindowTest.h"
#include "ui/common/Dialogs.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/locations/LocationEditor.h"

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr int32_t yesNoQuestion = 36;

// The commands that add, edit and delete locations.
class EvidenceExplorerLocationsTest : public ExplorerWindowTest {
protected:
    void ShowShelf() {
        Show(m_shelf);
        GetDialogs().SetParent(std::make_shared<WindowReference>(m_window.get()));
    }
    ~EvidenceExplorerLocationsTest() override { GetDialogs().SetParent(nullptr); }

    // Types the name into the next dialog and saves it; without a name, cancels it.
    void AnswerDialog(const char* name) {
        QTimer::singleShot(0, qApp, [this, name] {
            auto* form = qobject_cast<frmAddEditLocation*>(QApplication::activeModalWidget());
            ASSERT_NE(form, nullptr);
            m_titles.push_back(form->windowTitle().toStdString());
            if (m_whileOpen) m_whileOpen();
            if (name) {
                Find<FlatTextbox>(*form, "txtName")->SetText(name);
                Find<FlatButton>(*form, "btnSave")->Click();
            }
            form->close();
        });
    }
    // Triggers the entry without opening the menu.
    void Run(MenuEntry entry) const { m_explorer->Menu()->Entry(entry)->trigger(); }

    std::vector<std::string> RowNames() const {
        std::vector<std::string> names;
        for (int row = 0; row < m_list->RowCount(); ++row) names.push_back(m_list->CellText(row, 1).toStdString());
        return names;
    }
    std::vector<std::string> NodeNames() const {
        std::vector<std::string> names;
        for (QTreeWidgetItemIterator node(m_widget); *node; ++node) names.push_back((*node)->text(0).toStdString());
        return names;
    }
    std::string NameOf(int32_t id) {
        return ToTextOrEmpty(
            m_database.QueryValue("SELECT Name FROM StorageLocation WHERE IdNo = " + std::to_string(id)));
    }

    // Another workstation adds a location and an item, which only a refresh shows.
    void ChangeElsewhere() {
        m_database.AddLocation("Annex", StorageLocationTypes::Internal);
        AddItem("E-9", m_shelf);
    }

    std::vector<std::string> m_titles;
    std::function<void()> m_whileOpen;
};

TEST_F(EvidenceExplorerLocationsTest, ALocationsMenuOffersEditAndDelete) {
    ShowShelf();
    EXPECT_THAT(RowMenu("Bin 1"), ElementsAre("Open", "-", "Print barcode label", "-", "Edit", "Delete"));
    EXPECT_THAT(NodeMenu("Bin 1"), ElementsAre("Open", "-", "Print barcode label", "-", "New", "Edit", "Delete"));
    EXPECT_THAT(NodeMenu("Sign-In Locations"), ElementsAre("Open", "-", "New"));
    EXPECT_THAT(BlankMenu(), ElementsAre("-", "Select All", "-", "New"));
}

TEST_F(EvidenceExplorerLocationsTest, TheMenuFollowsTheRights) {
    m_session->grantsAll = false;
    ShowShelf();
    EXPECT_THAT(NodeMenu("Bin 1"), ElementsAre("Open"));
}

TEST_F(EvidenceExplorerLocationsTest, ANewLocationIsShown) {
    ShowShelf();
    m_widget->setFocus();
    AnswerDialog("Crate");
    Run(MenuEntry::NewLocation);
    EXPECT_THAT(m_titles, ElementsAre("Add New Storage Location"));
    EXPECT_THAT(NodeNames(), Contains("Crate"));
    EXPECT_EQ(Title(), "Crate");
    EXPECT_EQ(m_explorer->SelectedLocation()->Parent()->ID(), m_shelf);
    EXPECT_EQ(m_view->Location()->Name(), "Crate");
}

TEST_F(EvidenceExplorerLocationsTest, WithNothingSelectedTheNewLocationIsInTheOneOnShow) {
    ShowShelf();
    m_list->Tree()->clearSelection();
    AnswerDialog("Crate");
    Run(MenuEntry::NewLocation);
    EXPECT_EQ(m_explorer->SelectedLocation()->Parent()->ID(), m_shelf);
}

TEST_F(EvidenceExplorerLocationsTest, AfterAFailedLoadTheNewLocationIsInTheOneOfTheHeading) {
    ShowShelf();
    const auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    engine->FailAtStatement(1, Error(4711, "Engine.Query", "The server is gone."));
    EXPECT_THROW(m_explorer->Refresh(), Error);
    ASSERT_EQ(m_view->Location(), nullptr);
    m_list->Tree()->setFocus();
    EXPECT_THAT(BlankMenu(), Contains("New"));
    AnswerDialog("Crate");
    Run(MenuEntry::NewLocation);
    EXPECT_THAT(m_titles, ElementsAre("Add New Storage Location"));
    EXPECT_EQ(m_explorer->SelectedLocation()->Parent()->ID(), m_shelf);
}

TEST_F(EvidenceExplorerLocationsTest, WithoutALocationTheMenuDoesNotOfferNew) {
    ShowShelf();
    m_explorer->SetSelectedLocation(nullptr);
    EXPECT_THAT(BlankMenu(), ElementsAre("-", "Select All"));
}

TEST_F(EvidenceExplorerLocationsTest, SeveralRowsAreNoContextForACommand) {
    const int32_t second = AddLocation("Bin 2", m_shelf);
    ShowShelf();
    ClickRow("Bin 1");
    ClickRow("Bin 2", Qt::ControlModifier);
    ASSERT_EQ(SelectedObjects().size(), 2u);
    Run(MenuEntry::NewLocation);
    EXPECT_THAT(TakeUnexpected(), ElementsAre("SetParent: sl cannot be Nothing"));
    Run(MenuEntry::EditLocation);
    EXPECT_THAT(TakeUnexpected(), ElementsAre("SetLocation: sl cannot be Nothing"));
    Run(MenuEntry::DeleteLocation);
    const std::vector<RecordingScreen::Message> expected = {
        {ErrorText(ErrorNumber::NullObject), MessageStyle::Critical, "Error"}};
    EXPECT_EQ(m_screen.TakeMessages(), expected);
    EXPECT_NE(LocationOf(m_bin), nullptr);
    EXPECT_NE(LocationOf(second), nullptr);
}

TEST_F(EvidenceExplorerLocationsTest, ANewLocationFromTheListGivesTheFocusToTheTree) {
    ShowShelf();
    FlatButton outside(m_window.get());
    outside.show();
    m_list->Tree()->clearSelection();
    m_list->Tree()->setFocus();
    AnswerDialog("Crate");
    Run(MenuEntry::NewLocation);
    EXPECT_EQ(Title(), "Crate");
    EXPECT_EQ(m_window->focusWidget(), m_widget);
}

TEST_F(EvidenceExplorerLocationsTest, ACanceledAdditionChangesNothing) {
    ShowShelf();
    m_widget->setFocus();
    const auto nodes = NodeNames(), rows = RowNames();
    m_whileOpen = [this] { ChangeElsewhere(); };
    AnswerDialog(nullptr);
    Run(MenuEntry::NewLocation);
    EXPECT_EQ(NodeNames(), nodes) << "neither pane is read again";
    EXPECT_EQ(RowNames(), rows);
    EXPECT_EQ(Title(), "Shelf A");
}

TEST_F(EvidenceExplorerLocationsTest, ACanceledEditReadsNothingAgain) {
    ShowShelf();
    ClickRow("Bin 1");
    const auto nodes = NodeNames(), rows = RowNames();
    m_whileOpen = [this] { ChangeElsewhere(); };
    AnswerDialog(nullptr);
    Run(MenuEntry::EditLocation);
    EXPECT_THAT(m_titles, ElementsAre("Edit Storage Location"));
    EXPECT_EQ(NodeNames(), nodes);
    EXPECT_EQ(RowNames(), rows);
}

TEST_F(EvidenceExplorerLocationsTest, AnEditIsShownInTheTreeAndTheList) {
    ShowShelf();
    ClickRow("Bin 1");
    AnswerDialog("Bin 7");
    Run(MenuEntry::EditLocation);
    EXPECT_THAT(m_titles, ElementsAre("Edit Storage Location"));
    EXPECT_THAT(RowNames(), ElementsAre("Bin 7", "E-1", "E-2"));
    EXPECT_THAT(NodeNames(), Contains("Bin 7"));
    EXPECT_EQ(Title(), "Shelf A");
}

TEST_F(EvidenceExplorerLocationsTest, AnEditOfTheSelectedLocationRenewsTheHeading) {
    ShowShelf();
    m_widget->setFocus();
    AnswerDialog("Rack");
    Run(MenuEntry::EditLocation);
    EXPECT_EQ(Title(), "Rack");
    EXPECT_EQ(NameOf(m_shelf), "Rack");
}

TEST_F(EvidenceExplorerLocationsTest, ALocationIsDeletedAfterAQuestion) {
    ShowShelf();
    ClickRow("Bin 1");
    m_screen.AnswerNext(MessageAnswer::Yes);
    Run(MenuEntry::DeleteLocation);
    const auto messages = m_screen.TakeMessages();
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0], (RecordingScreen::Message{"Are you sure you want to delete this location ('Bin 1')?",
                                                     yesNoQuestion, "Are you sure?"}));
    EXPECT_EQ(NameOf(m_bin), "");
    EXPECT_THAT(RowNames(), ElementsAre("E-1", "E-2"));
    EXPECT_THAT(NodeNames(), Not(Contains("Bin 1")));
}

TEST_F(EvidenceExplorerLocationsTest, WithItsLastRowTheListLosesTheFocusToTheTree) {
    const int32_t crate = AddLocation("Crate", m_empty);
    Show(m_empty);
    FlatButton outside(m_window.get());
    outside.show();
    ClickRow("Crate");
    m_screen.AnswerNext(MessageAnswer::Yes);
    Run(MenuEntry::DeleteLocation);
    m_screen.TakeMessages();
    EXPECT_EQ(NameOf(crate), "");
    EXPECT_EQ(m_list->RowCount(), 0);
    EXPECT_TRUE(m_widget->hasFocus());
}

TEST_F(EvidenceExplorerLocationsTest, ACommandInTheMenuOfANodeMeansThatNode) {
    ShowShelf();
    m_screen.AnswerNext(MessageAnswer::Yes);
    NodeMenu("Empty Shelf", Choose(MenuEntry::DeleteLocation));
    m_screen.TakeMessages();
    EXPECT_EQ(NameOf(m_empty), "");
    EXPECT_EQ(Title(), "Shelf A");
    NodeMenu("Bin 1", [this](QMenu&) {
        AnswerDialog("Bin 8");
        Run(MenuEntry::EditLocation);
    });
    EXPECT_EQ(NameOf(m_bin), "Bin 8");
}

TEST_F(EvidenceExplorerLocationsTest, AChangeLeavesTheBranchesOfTheTreeAsTheyAre) {
    const int32_t rack = AddLocation("Rack");
    AddLocation("Slot", rack);
    ShowShelf();
    const auto node = [this](const char* name) {
        return m_widget->findItems(name, Qt::MatchExactly | Qt::MatchRecursive).at(0);
    };
    node("Rack")->setExpanded(true);
    ClickNode("Empty Shelf");
    AnswerDialog("Blank Shelf");
    Run(MenuEntry::EditLocation);
    EXPECT_EQ(Title(), "Blank Shelf");
    EXPECT_TRUE(node("Rack")->isExpanded());
    node("Shelf A")->setExpanded(false);
    ClickNode("Blank Shelf");
    m_screen.AnswerNext(MessageAnswer::Yes);
    Run(MenuEntry::DeleteLocation);
    m_screen.TakeMessages();
    EXPECT_TRUE(node("Rack")->isExpanded());
    EXPECT_FALSE(node("Shelf A")->isExpanded());
}

TEST_F(EvidenceExplorerLocationsTest, NoKeepsTheLocation) {
    ShowShelf();
    ClickRow("Bin 1");
    const auto nodes = NodeNames(), rows = RowNames();
    m_screen.WhileMessageOpen = [this](const auto&) { ChangeElsewhere(); };
    m_screen.AnswerNext(MessageAnswer::No);
    Run(MenuEntry::DeleteLocation);
    m_screen.TakeMessages();
    EXPECT_EQ(NameOf(m_bin), "Bin 1");
    EXPECT_EQ(NodeNames(), nodes) << "neither pane is read again";
    EXPECT_EQ(RowNames(), rows);
}

TEST_F(EvidenceExplorerLocationsTest, AfterTheSelectedLocationItsContainerIsShown) {
    ShowShelf();
    ClickNode("Bin 1");
    m_widget->setFocus();
    m_screen.AnswerNext(MessageAnswer::Yes);
    Run(MenuEntry::DeleteLocation);
    m_screen.TakeMessages();
    EXPECT_EQ(Title(), "Shelf A");
    EXPECT_THAT(RowNames(), ElementsAre("E-1", "E-2"));
}

TEST_F(EvidenceExplorerLocationsTest, ALocationInUseIsNotDeleted) {
    ShowShelf();
    m_widget->setFocus();
    const auto nodes = NodeNames();
    m_screen.WhileMessageOpen = [this](const auto& message) {
        if (message.buttons == yesNoQuestion) ChangeElsewhere();
    };
    const auto rows = RowNames();
    m_screen.AnswerNext(MessageAnswer::Yes);
    Run(MenuEntry::DeleteLocation);
    const auto messages = m_screen.TakeMessages();
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[1],
              (RecordingScreen::Message{"Could not delete this location because this location (or one of its "
                                        "sublocations) is currently in use.",
                                        16, "Error"}));
    EXPECT_EQ(NodeNames(), nodes) << "neither pane is read again";
    EXPECT_EQ(RowNames(), rows);
    EXPECT_EQ(Title(), "Shelf A");
}

TEST_F(EvidenceExplorerLocationsTest, AnItemIsNoContextForACommand) {
    ShowShelf();
    ClickRow("E-1");
    Run(MenuEntry::EditLocation);
    EXPECT_THAT(TakeUnexpected(), ElementsAre("SetLocation: sl cannot be Nothing"));
    EXPECT_THAT(m_screen.TakeMessages(), IsEmpty());
    Run(MenuEntry::DeleteLocation);
    const std::vector<RecordingScreen::Message> expected = {
        {ErrorText(ErrorNumber::NullObject), MessageStyle::Critical, "Error"}};
    EXPECT_EQ(m_screen.TakeMessages(), expected);
}

TEST_F(EvidenceExplorerLocationsTest, TheExplorerMayGoWhileADialogIsOpen) {
    for (const MenuEntry entry : {MenuEntry::NewLocation, MenuEntry::EditLocation}) {
        ShowShelf();
        m_widget->setFocus();
        QTimer::singleShot(0, qApp, [this] {
            auto* form = qobject_cast<frmAddEditLocation*>(QApplication::activeModalWidget());
            ASSERT_NE(form, nullptr);
            delete m_explorer;
            Find<FlatTextbox>(*form, "txtName")->SetText("Crate");
            Find<FlatButton>(*form, "btnSave")->Click();
        });
        const QPointer<EvidenceExplorer> explorer(m_explorer);
        Run(entry);
        EXPECT_EQ(explorer, nullptr);
    }
    ShowShelf();
    m_widget->setFocus();
    m_screen.AnswerNext(MessageAnswer::Yes);
    m_screen.WhileMessageOpen = [this](const auto&) { delete m_explorer; };
    Run(MenuEntry::DeleteLocation);
    m_screen.TakeMessages();
    EXPECT_EQ(NameOf(m_shelf), "Crate");
}

}  // namespace
}  // namespace quellbrook::testing

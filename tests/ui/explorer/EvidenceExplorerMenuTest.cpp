#include "tests/support/FaultInjectingEngine.h"
#include "tests/ui/explorer/ExplorerWindowTest.h"

#include <QLineEdit>

#include <gmock/gmock.h>

#include <set>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EvidenceExplorerMenuTest : public ExplorerWindowTest {};

TEST_F(EvidenceExplorerMenuTest, TheSelectionIsThatOfThePaneWithTheFocus) {
    Show(m_shelf);
    ClickRow("Bin 1");
    ClickRow("E-2", Qt::ControlModifier);
    EXPECT_THAT(SelectedObjects(), ElementsAre("Bin 1", "E-2"));
    m_widget->setFocus();
    EXPECT_THAT(SelectedObjects(), ElementsAre("Shelf A"));
    m_explorer->SetSelectedLocation(nullptr);
    EXPECT_THAT(SelectedObjects(), IsEmpty());
}

TEST_F(EvidenceExplorerMenuTest, WithTheFocusInNoPaneTheLocationOnShowIsSelected) {
    Show(m_shelf);
    auto* other = new QLineEdit(m_window.get());
    other->show();
    other->setFocus();
    EXPECT_THAT(SelectedObjects(), ElementsAre("Shelf A"));
    m_explorer->SetSelectedLocation(nullptr);
    EXPECT_THAT(SelectedObjects(), IsEmpty());
}

TEST_F(EvidenceExplorerMenuTest, WithTheFocusInAnotherChildNothingIsSelected) {
    Show(m_shelf);
    auto* other = new QLineEdit(m_explorer);
    other->show();
    other->setFocus();
    EXPECT_THAT(SelectedObjects(), IsEmpty());
}

TEST_F(EvidenceExplorerMenuTest, TheSelectionIsValidInAnInactiveWindow) {
    Show(m_shelf);
    ClickRow("E-1");
    QWidget elsewhere;
    ShowActive(elsewhere);
    EXPECT_THAT(SelectedObjects(), ElementsAre("E-1"));
}

TEST_F(EvidenceExplorerMenuTest, AnItemsMenuOffersWhatCanBeDoneWithIt) {
    Show(m_shelf);
    const auto entries = RowMenu("E-1", [this](QMenu& menu) {
        EXPECT_EQ(&menu, m_explorer->Menu());
        EXPECT_EQ(menu.defaultAction(), m_explorer->Menu()->Entry(MenuEntry::Open));
        EXPECT_EQ(GetMousePointer(), MousePointer::Default);
    });
    EXPECT_THAT(entries, ElementsAre("Open", "Open in Tessarine...", "-", "Print barcode label", "-",
                                     "Sign out  this item", "Move  this item", "Dispose this item"));
}

TEST_F(EvidenceExplorerMenuTest, AMenuOfSeveralItemsCountsThemAndHasNoDefaultEntry) {
    Show(m_shelf);
    ClickRow("E-1");
    ClickRow("E-2", Qt::ControlModifier);
    const auto entries = RowMenu("E-1", [](QMenu& menu) {
        EXPECT_EQ(menu.defaultAction(), nullptr);
        EXPECT_FALSE(menu.actions().at(0)->isEnabled());
    });
    EXPECT_THAT(entries, ElementsAre("Open", "Open in Tessarine...", "-", "Print barcode labels (2 items)", "-",
                                     "Sign out  2 items", "Move  2 items", "Dispose 2 items"));
}

TEST_F(EvidenceExplorerMenuTest, ThePointerIsTheHourglassWhileTheRightsAreRead) {
    Show(m_shelf);
    std::set<int> pointers;
    m_session->atQuestion = [&] { pointers.insert(GetMousePointer()); };
    RowMenu("E-1", [this](QMenu&) { m_session->atQuestion = nullptr; });
    EXPECT_THAT(pointers, ElementsAre(MousePointer::Hourglass));
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
}

TEST_F(EvidenceExplorerMenuTest, AMemberOfTheBatchCanOnlyBeUnchecked) {
    Show(m_shelf);
    ClickRow("E-1");
    GetActions().BeginTransaction(TransactionType::SignOut, m_explorer->GetSelectedObjects());
    EXPECT_THAT(RowMenu("E-1"),
                ElementsAre("Open", "Open in Tessarine...", "-", "Print barcode label", "-", "Uncheck this item"));
    EXPECT_THAT(RowMenu("E-2"),
                ElementsAre("Open", "Open in Tessarine...", "-", "Print barcode label", "-", "Sign out  this item"));
}

TEST_F(EvidenceExplorerMenuTest, ABlankSpotOffersToSelectAll) {
    Show(m_shelf);
    ClickRow("E-1");
    EXPECT_THAT(BlankMenu(Choose(MenuEntry::SelectAll)), ElementsAre("-", "Select All", "-", "New"));
    EXPECT_THAT(SelectedObjects(), ElementsAre("Bin 1", "E-1", "E-2"));
}

TEST_F(EvidenceExplorerMenuTest, AUserWithoutRightsSeesNoActions) {
    m_session->GrantNothing();
    m_session->Grant(GetPermissions().VIEW_PROPERTY());
    Show(m_shelf);
    EXPECT_THAT(RowMenu("E-1"), ElementsAre("Open", "Open in Tessarine...", "-", "(No Available Actions)"));
}

TEST_F(EvidenceExplorerMenuTest, TheMenuOfANodeActsOnTheNodeAndFocusesTheTree) {
    Show(m_shelf);
    ClickRow("E-1");
    const auto entries = NodeMenu("Empty Shelf", [this](QMenu&) {
        EXPECT_THAT(SelectedObjects(), ElementsAre("Empty Shelf"));
        EXPECT_TRUE(m_widget->hasFocus() || m_window->focusWidget() == m_widget);
    });
    EXPECT_THAT(entries, ElementsAre("Open", "-", "Print barcode label", "-", "New", "Edit", "Delete"));
    EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_shelf);
    EXPECT_EQ(Title(), "Shelf A");
    EXPECT_THAT(SelectedObjects(), ElementsAre("Shelf A"));
}

TEST_F(EvidenceExplorerMenuTest, ARootsMenuOpensIt) {
    Show(m_shelf);
    EXPECT_THAT(NodeMenu("Sign-Out Locations", Choose(MenuEntry::Open)), ElementsAre("Open", "-", "New"));
    EXPECT_EQ(Title(), "Sign-Out Locations");
}

TEST_F(EvidenceExplorerMenuTest, OpenInANodesMenuEntersTheNode) {
    Show(m_shelf);
    NodeMenu("Bin 1", Choose(MenuEntry::Open));
    EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_bin);
    EXPECT_EQ(Title(), "Bin 1");
    EXPECT_EQ(m_widget->currentItem()->text(0), "Bin 1");
}

TEST_F(EvidenceExplorerMenuTest, OpenInARowsMenuOpensTheItem) {
    Show(m_shelf);
    RowMenu("E-1", Choose(MenuEntry::Open));
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::ItemView);
}

TEST_F(EvidenceExplorerMenuTest, TransferCommandsBeginABatchOfTheirType) {
    Show(m_shelf);
    ClickRow("E-1");
    ClickRow("E-2", Qt::ControlModifier);
    RowMenu("E-2", Choose(MenuEntry::CheckOut));
    EXPECT_EQ(GetStores().Cart->GetTransactionType(), 1);
    EXPECT_THAT(BatchIds(), ElementsAre("E-1", "E-2"));
    GetActions().CancelTransaction();

    RowMenu("E-1", Choose(MenuEntry::Move));
    EXPECT_EQ(GetStores().Cart->GetTransactionType(), 3);
    EXPECT_THAT(BatchIds(), ElementsAre("E-1", "E-2"));
    GetActions().CancelTransaction();

    RowMenu("E-2", Choose(MenuEntry::Dispose));
    EXPECT_EQ(GetStores().Cart->GetTransactionType(), 4);
    EXPECT_THAT(BatchIds(), ElementsAre("E-1", "E-2"));
}

TEST_F(EvidenceExplorerMenuTest, ASignedOutItemCanBeSignedIn) {
    const int32_t court = m_database.AddLocation("Court", StorageLocationTypes::External);
    AddItem("E-9", court);
    Show(court);
    EXPECT_THAT(RowMenu("E-9", Choose(MenuEntry::CheckIn)),
                ElementsAre("Open", "Open in Tessarine...", "-", "Print barcode label", "-", "Sign in  this item"));
    EXPECT_EQ(GetStores().Cart->GetTransactionType(), 2);
    EXPECT_THAT(BatchIds(), ElementsAre("E-9"));
}

TEST_F(EvidenceExplorerMenuTest, UncheckRemovesTheSelectedItemsAndLeavesTheBatchOpen) {
    Show(m_shelf);
    ClickRow("E-1");
    RowMenu("E-1", Choose(MenuEntry::CheckOut));
    RowMenu("E-1", Choose(MenuEntry::RemoveFromBatch));
    EXPECT_THAT(BatchIds(), IsEmpty());
    EXPECT_EQ(GetStores().Cart->GetTransactionType(), 1);
    EXPECT_EQ(m_list->RowIcon(1), "tag");
}

TEST_F(EvidenceExplorerMenuTest, OpenInTessarineHandsTheItemToTheHost) {
    std::vector<std::string> commands;
    m_environment->runCommand = [&](const std::string& command) { commands.push_back(command); };
    Show(m_shelf);
    RowMenu("E-2", Choose(MenuEntry::OpenInTessarine));
    EXPECT_THAT(commands, ElementsAre("cmd /c start tessarine://miproperty/open/" + std::to_string(m_second)));
}

TEST_F(EvidenceExplorerMenuTest, AFailingCommandIsReported) {
    Show(m_shelf);
    RowMenu("E-2", Choose(MenuEntry::OpenInTessarine));
    EXPECT_EQ(TakeUnexpected().size(), 1u);
}

TEST_F(EvidenceExplorerMenuTest, CommandsOnSeveralObjectsOpenNone) {
    Show(m_shelf);
    m_view->SelectAll();
    m_explorer->Menu()->Entry(MenuEntry::Open)->trigger();
    m_explorer->Menu()->Entry(MenuEntry::OpenInTessarine)->trigger();
    EXPECT_EQ(GetStores().View->ViewName(), "");
    EXPECT_EQ(m_explorer->SelectedLocation()->ID(), m_shelf);
}

TEST_F(EvidenceExplorerMenuTest, AMarkAppearsWhenTheMenuBeginsABatch) {
    Show(m_shelf);
    RowMenu("E-1", Choose(MenuEntry::CheckOut));
    EXPECT_EQ(m_list->RowIcon(1), "marked");
    EXPECT_EQ(m_list->RowIcon(2), "tag");
}

}  // namespace
}  // namespace quellbrook::testing

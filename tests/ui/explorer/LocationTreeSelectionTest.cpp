#include "tests/ui/explorer/LocationTreeTest.h"

#include "ui/style/Theme.h"

#include <QScrollBar>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(LocationTreeTest, AClickSelectsAndASecondOneRaisesNothing) {
    Show();
    TakeSelected();
    ClickNode("Shelf A");
    EXPECT_THAT(TakeSelected(), ElementsAre("Shelf A"));
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_shelf);
    ClickNode("Shelf A");
    EXPECT_THAT(TakeSelected(), IsEmpty());
    ClickNode("Final Disposition");
    EXPECT_THAT(TakeSelected(), ElementsAre("Final Disposition"));
    EXPECT_TRUE(m_tree->SelectedLocation()->IsRoot());
    EXPECT_EQ(m_tree->SelectedLocation()->LocationType(), StorageLocationTypes::DisposalLocation);
}

TEST_F(LocationTreeTest, ManyLevelsAreReachedByKeysAndScrollSideways) {
    int32_t container = m_vault;
    for (int level = 1; level <= 20; ++level) container = AddLocation("Level " + std::to_string(level), container);
    Show();
    const auto* bar = m_widget->horizontalScrollBar();
    EXPECT_FALSE(bar->isVisible());
    ClickNode("Vault");
    TakeSelected();
    for (int level = 1; level <= 20; ++level) {
        Press(m_widget, Qt::Key_Right);
        Press(m_widget, Qt::Key_Down);
        ASSERT_EQ(CurrentNode(), "Level " + std::to_string(level));
        const QRect node = m_widget->visualItemRect(m_widget->currentItem());
        EXPECT_GE(node.left(), 18) << "with its expander";
        EXPECT_LE(node.left() + 100, m_widget->viewport()->width()) << "with its name";
    }
    EXPECT_EQ(TakeSelected().size(), 20u);
    EXPECT_TRUE(bar->isVisible());
    EXPECT_GT(bar->value(), 0);
    Press(m_widget, Qt::Key_Home);
    EXPECT_EQ(bar->value(), 0);
    Node("Vault")->setExpanded(false);
    ServeEvents();
    EXPECT_FALSE(bar->isVisible());
}

TEST_F(LocationTreeTest, TheExpanderSelectsNothing) {
    Show();
    TakeSelected();
    const QRect node = m_widget->visualItemRect(Node("Property Room"));
    Click(m_widget->viewport(), QPoint(node.left() - 9, node.center().y()));
    EXPECT_TRUE(Node("Property Room")->isExpanded());
    EXPECT_THAT(TakeSelected(), IsEmpty());
    EXPECT_EQ(CurrentNode(), "Sign-In Locations");
}

TEST_F(LocationTreeTest, CollapsingAboveTheSelectedNodeKeepsItCollapsed) {
    Show();
    ClickNode("Shelf A");
    const QRect node = m_widget->visualItemRect(Node("Property Room"));
    Click(m_widget->viewport(), QPoint(node.left() - 9, node.center().y()));
    EXPECT_FALSE(Node("Property Room")->isExpanded());
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_shelf);
}

TEST_F(LocationTreeTest, AReleaseOutsideAllNodesKeepsTheSelection) {
    Show();
    ClickNode("Vault");
    TakeSelected();
    QWidget* viewport = m_widget->viewport();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, CenterOf("Final Disposition"));
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, QPoint(100, 590));
    EXPECT_EQ(CurrentNode(), "Vault");
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_vault);
    EXPECT_THAT(TakeSelected(), IsEmpty());
}

TEST_F(LocationTreeTest, AReleaseOnTheSelectedNodeMarksItAgain) {
    Show();
    ClickNode("Vault");
    TakeSelected();
    QWidget* viewport = m_widget->viewport();
    QTest::mousePress(viewport, Qt::LeftButton, Qt::NoModifier, CenterOf("Final Disposition"));
    QTest::mouseRelease(viewport, Qt::LeftButton, Qt::NoModifier, CenterOf("Vault"));
    EXPECT_EQ(CurrentNode(), "Vault");
    EXPECT_THAT(TakeSelected(), IsEmpty());
}

TEST_F(LocationTreeTest, SettingTheSelectionShowsItsNodeAndRaisesOnce) {
    Show();
    TakeSelected();
    m_tree->SetSelectedLocation(LocationOf(m_shelf));
    EXPECT_EQ(CurrentNode(), "Shelf A");
    EXPECT_TRUE(Node("Aisle 1")->isExpanded());
    EXPECT_THAT(TakeSelected(), ElementsAre("Shelf A"));
    m_tree->SetSelectedLocation(LocationOf(m_shelf));
    EXPECT_THAT(TakeSelected(), IsEmpty());
}

TEST_F(LocationTreeTest, SettingNothingClearsTheSelectionAndRaisesNothing) {
    Show();
    TakeSelected();
    m_tree->SetSelectedLocation(nullptr);
    EXPECT_EQ(m_tree->SelectedLocation(), nullptr);
    EXPECT_EQ(m_widget->currentItem(), nullptr);
    EXPECT_TRUE(m_widget->selectedItems().isEmpty());
    EXPECT_THAT(TakeSelected(), IsEmpty());
}

TEST_F(LocationTreeTest, ALocationWithoutANodeCanBeSelected) {
    const int32_t closed = AddLocation("Closed Wing", 0, false);
    Show();
    TakeSelected();
    m_tree->SetSelectedLocation(LocationOf(closed));
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), closed);
    EXPECT_THAT(TakeSelected(), ElementsAre("Closed Wing"));
    EXPECT_EQ(CurrentNode(), "Sign-In Locations");
}

TEST_F(LocationTreeTest, AClickOnADeletedLocationSelectsNothing) {
    Show();
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_vault});
    GetStorageLocationStatic().Refresh();
    TakeSelected();
    ClickNode("Vault");
    EXPECT_EQ(m_tree->SelectedLocation(), nullptr);
    EXPECT_THAT(TakeSelected(), IsEmpty());
    EXPECT_EQ(m_widget->currentItem(), nullptr);
}

TEST_F(LocationTreeTest, TheHighlightedNodeIsPaintedAsFocusedAndTheSelectedOneAsInactive) {
    Show();
    ClickNode("Vault");
    const QPoint vault = CenterOf("Vault"), court = CenterOf("Court");
    const QColor highlight = Theme::Get(Theme::Color::Highlight);
    const auto background = [this](const QPoint& row) { return PixelAt(Grab(*m_widget->viewport()), {270, row.y()}); };
    EXPECT_EQ(background(vault), highlight);
    QTest::mousePress(m_widget->viewport(), Qt::RightButton, Qt::NoModifier, court);
    EXPECT_EQ(background(court), highlight);
    EXPECT_EQ(background(vault), Theme::Get(Theme::Color::SelectedInactive));
    QTest::mouseRelease(m_widget->viewport(), Qt::RightButton, Qt::NoModifier, court);
    EXPECT_EQ(background(vault), highlight);
}

TEST_F(LocationTreeTest, TheSelectedRowStaysHighlightedWhileAMenuOrDialogHasTheKeys) {
    Show();
    ClickNode("Vault");
    const QPoint vault = CenterOf("Vault");
    const auto background = [&] { return PixelAt(Grab(*m_widget->viewport()), {270, vault.y()}); };
    QMenu menu;
    menu.addAction("Open");
    menu.popup(QPoint(0, 0));
    EXPECT_EQ(background(), Theme::Get(Theme::Color::Highlight));
    menu.close();

    QWidget dialog;
    ShowActive(dialog);
    EXPECT_EQ(background(), Theme::Get(Theme::Color::Highlight));
    dialog.close();
    ShowActive(*m_window);

    m_other->setFocus();
    EXPECT_EQ(background(), Theme::Get(Theme::Color::SelectedInactive));
    m_widget->setFocus();
    EXPECT_EQ(background(), Theme::Get(Theme::Color::Highlight));
}

TEST_F(LocationTreeTest, ArrowKeysSelectLikeAClick) {
    Show();
    ClickNode("Property Room");
    TakeSelected();
    Press(Qt::Key_Down);
    EXPECT_THAT(TakeSelected(), ElementsAre("Vault"));
    Press(Qt::Key_Up);
    EXPECT_THAT(TakeSelected(), ElementsAre("Property Room"));
    Press(Qt::Key_Right);
    EXPECT_TRUE(Node("Property Room")->isExpanded());
    EXPECT_THAT(TakeSelected(), IsEmpty());
    Press(Qt::Key_Right);
    EXPECT_THAT(TakeSelected(), ElementsAre("Aisle 1"));
}

TEST_F(LocationTreeTest, CtrlSpaceKeepsTheSelectedNode) {
    Show();
    ClickNode("Vault");
    TakeSelected();
    Press(m_widget, Qt::Key_Space, Qt::ControlModifier);
    ASSERT_EQ(m_widget->selectedItems().size(), 1);
    EXPECT_EQ(m_widget->selectedItems().front()->text(0), "Vault");
    EXPECT_THAT(TakeSelected(), IsEmpty());
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_vault);
}

TEST_F(LocationTreeTest, TypingANameSelectsIt) {
    Show();
    m_widget->setFocus();
    TakeSelected();
    Type(m_widget, "vau");
    EXPECT_EQ(CurrentNode(), "Vault");
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_vault);
    EXPECT_THAT(TakeSelected(), ElementsAre("Vault"));
}

TEST_F(LocationTreeTest, AnAssistiveToolSelectsLikeAClickOnceQtHasFinished) {
    Show();
    TakeSelected();
    m_widget->setCurrentItem(Node("Vault"));
    EXPECT_THAT(TakeSelected(), IsEmpty());
    ServeEvents();
    EXPECT_THAT(TakeSelected(), ElementsAre("Vault"));
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_vault);
}

TEST_F(LocationTreeTest, TheFocusAloneSelectsNothing) {
    Show();
    m_tree->SetSelectedLocation(nullptr);
    TakeSelected();
    m_other->setFocus();
    m_widget->setFocus(Qt::TabFocusReason);
    EXPECT_THAT(TakeSelected(), IsEmpty());
    EXPECT_EQ(m_tree->SelectedLocation(), nullptr);
    Press(Qt::Key_Down);
    EXPECT_THAT(TakeSelected(), ElementsAre("Sign-In Locations"));
}

TEST_F(LocationTreeTest, ADoubleClickIsRaised) {
    Show();
    int clicks = 0;
    m_tree->DblClick.connect([&] { ++clicks; });
    DoubleClick(m_widget->viewport(), CenterOf("Vault"));
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_vault);
}

}  // namespace
}  // namespace quellbrook::testing

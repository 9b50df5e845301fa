#include "data/BarcodeText.h"
#include "tests/support/Callbacks.h"
#include "tests/support/LabelServices.h"
#include "tests/ui/explorer/LocationTreeTest.h"

#include <QContextMenuEvent>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST_F(LocationTreeTest, ARightClickRequestsAMenuAndKeepsTheSelection) {
    Show();
    ClickNode("Vault");
    TakeSelected();
    RightClickNode("Court");
    EXPECT_THAT(m_menusFor, ElementsAre("Court"));
    EXPECT_THAT(TakeSelected(), IsEmpty());
    EXPECT_EQ(CurrentNode(), "Vault");
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_vault);
    EXPECT_EQ(m_tree->DropHighlightLocation(), nullptr);
}

TEST_F(LocationTreeTest, ARightClickOnARootRequestsItsMenu) {
    Show();
    RightClickNode("Sign-Out Locations");
    EXPECT_THAT(m_menusFor, ElementsAre("Sign-Out Locations"));
}

TEST_F(LocationTreeTest, ItsOwnMenuPrintsTheLabelOfTheNode) {
    LabelServices labels;
    const auto actions = std::make_shared<RecordingCallback>();
    Show();
    GetDispatcher()->Register(actions);
    ClickNode("Vault");
    auto* print = m_tree->LocationMenu()->findChild<QAction*>("mnuPrint");
    ASSERT_NE(print, nullptr);
    EXPECT_EQ(print->text(), "Print Barcode Label");
    m_menu = m_tree->LocationMenu();
    const auto printFor = [&](const QString& node) {
        QTimer::singleShot(0, m_tree, [&] {
            print->trigger();
            m_menu->close();
        });
        RightClickNode(node);
    };
    printFor("Court");
    ASSERT_EQ(labels.printer->labels.size(), 1u);
    EXPECT_EQ(labels.printer->labels[0].barcodes.at(0).text, MakeBarcodeText("L", m_court));
    printFor("Sign-Out Locations");
    EXPECT_EQ(labels.printer->labels.size(), 1u) << "a root has no label";
    labels.printer->refusal = "Out of paper.";
    printFor("Court");
    EXPECT_EQ(m_screen.TakeMessages(),
              OneMessage("Error printing barcode label for location 'Court': Out of paper.", 16, "Error"));
    EXPECT_THAT(actions->Notices(), ElementsAre("Sent 1 label to the printer 'Front Desk'."));
}

TEST_F(LocationTreeTest, ARightClickOnEmptySpaceRequestsNoMenu) {
    Show();
    RightClick(m_widget->viewport(), QPoint(100, 590));
    EXPECT_THAT(m_menusFor, IsEmpty());
}

TEST_F(LocationTreeTest, ARightClickOnADeletedLocationRequestsNoMenu) {
    Show();
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_vault});
    GetStorageLocationStatic().Refresh();
    RightClickNode("Vault");
    EXPECT_THAT(m_menusFor, IsEmpty());
    EXPECT_EQ(m_widget->DropHighlight(), nullptr);
}

TEST_F(LocationTreeTest, AReleaseOutsideTheNodeRequestsNoMenuAndEndsTheHighlight) {
    Show();
    QTest::mousePress(m_widget->viewport(), Qt::RightButton, Qt::NoModifier, CenterOf("Vault"));
    EXPECT_EQ(m_tree->DropHighlightLocation()->ID(), m_vault);
    QTest::mouseRelease(m_widget->viewport(), Qt::RightButton, Qt::NoModifier, QPoint(100, 590));
    EXPECT_THAT(m_menusFor, IsEmpty());
    EXPECT_EQ(m_tree->DropHighlightLocation(), nullptr);
}

TEST_F(LocationTreeTest, ALeftClickIsIgnoredWhileANodeIsHighlighted) {
    Show();
    TakeSelected();
    const QPoint vault = CenterOf("Vault");
    QTest::mousePress(m_widget->viewport(), Qt::RightButton, Qt::NoModifier, CenterOf("Court"));
    Click(m_widget->viewport(), vault);
    EXPECT_THAT(TakeSelected(), IsEmpty());
    QTest::mouseRelease(m_widget->viewport(), Qt::RightButton, Qt::NoModifier, CenterOf("Court"));
    EXPECT_EQ(CurrentNode(), "Sign-In Locations");
}

TEST_F(LocationTreeTest, TheOwnersMenuOpensWithItsDefaultEntry) {
    Show();
    QMenu menu;
    m_menu = &menu;
    m_defaultItem = menu.addAction("Open");
    menu.addAction("Other");
    ClickNode("Vault");
    TakeSelected();
    bool seen = false;
    WhileMenuOpen([&](QMenu& open) {
        seen = true;
        EXPECT_EQ(&open, &menu);
        EXPECT_EQ(open.defaultAction(), m_defaultItem);
        EXPECT_EQ(m_tree->DropHighlightLocation()->ID(), m_court);
        EXPECT_EQ(CurrentNode(), "Vault");
    });
    RightClickNode("Court");
    EXPECT_TRUE(seen);
    EXPECT_EQ(m_tree->DropHighlightLocation(), nullptr);
    EXPECT_THAT(TakeSelected(), IsEmpty());
}

TEST_F(LocationTreeTest, ARefreshFromTheMenuEndsTheHighlight) {
    Show();
    QMenu menu;
    menu.addAction("Open");
    m_menu = &menu;
    WhileMenuOpen([&](QMenu&) {
        m_tree->Refresh();
        EXPECT_EQ(m_tree->DropHighlightLocation(), nullptr);
    });
    RightClickNode("Court");
    EXPECT_EQ(m_widget->DropHighlight(), nullptr);
}

TEST_F(LocationTreeTest, ATreeCanBeDestroyedByItsMenu) {
    Show();
    QMenu menu;
    menu.addAction("Open");
    m_menu = &menu;
    const QPoint court = CenterOf("Court");
    QPointer<LocationTree> tree(m_tree);
    WhileMenuOpen([&](QMenu&) { delete m_tree; });
    QTest::mousePress(m_widget->viewport(), Qt::RightButton, Qt::NoModifier, court);
    QMouseEvent release(QEvent::MouseButtonRelease, court, m_widget->viewport()->mapToGlobal(court), Qt::RightButton,
                        Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(m_widget->viewport(), &release);
    EXPECT_TRUE(tree.isNull());
}

TEST_F(LocationTreeTest, TheMenuKeyRequestsTheMenuOfTheSelectedLocation) {
    Show();
    ClickNode("Vault");
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(10, 10), m_widget->mapToGlobal(QPoint(10, 10)));
    QCoreApplication::sendEvent(m_widget, &key);
    EXPECT_THAT(m_menusFor, ElementsAre("nothing"));
    EXPECT_EQ(m_tree->SelectedLocation()->ID(), m_vault);

    m_tree->SetSelectedLocation(nullptr);
    QCoreApplication::sendEvent(m_widget, &key);
    EXPECT_EQ(m_menusFor.size(), 1u);
}

TEST_F(LocationTreeTest, TheMenuKeysOpenTheMenuBelowTheSelectedNode) {
    Show();
    QMenu menu;
    menu.addAction("Open");
    m_menu = &menu;
    ClickNode("Vault");
    const QRect node = m_widget->visualItemRect(Node("Vault"));
    QCursor::setPos(m_window->mapToGlobal(QPoint(390, 590)));
    const auto expectBelowTheNode = [&](QMenu& open) {
        EXPECT_EQ(m_widget->viewport()->mapFromGlobal(open.pos()), QPoint(node.left() + 32, node.bottom() + 1));
    };
    QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(10, 10), m_widget->mapToGlobal(QPoint(10, 10)));
    WhileMenuOpen(expectBelowTheNode);
    QCoreApplication::sendEvent(m_widget, &key);
    WhileMenuOpen(expectBelowTheNode);
    Press(m_widget, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_EQ(m_menusFor.size(), 2u);
}

TEST_F(LocationTreeTest, ItsOwnMenuHasItsEntriesInOrder) {
    Make();
    std::vector<std::string> entries;
    for (const QAction* entry : m_tree->LocationMenu()->actions())
        entries.push_back(entry->objectName().toStdString() + ": " +
                          (entry->isSeparator() ? "-" : entry->text().toStdString()));
    EXPECT_THAT(entries, ElementsAre("mnuExpandCollapse: Expand/Collapse", "mnuSeparator: -",
                                     "mnuPrint: Print Barcode Label", "mnuEdit: Edit This Location"));
}

TEST_F(LocationTreeTest, ItsOwnMenuExpandsAndCollapses) {
    Show();
    m_menu = m_tree->LocationMenu();
    EXPECT_EQ(m_menu->title(), "&Location");
    const auto* toggle = m_tree->findChild<QAction*>("mnuExpandCollapse");
    ASSERT_NE(toggle, nullptr);
    EXPECT_EQ(toggle->text(), "Expand/Collapse");

    WhileMenuOpen([&](QMenu&) {
        EXPECT_EQ(toggle->text(), "Expand");
        EXPECT_TRUE(toggle->isEnabled());
        m_tree->findChild<QAction*>("mnuExpandCollapse")->trigger();
    });
    RightClickNode("Property Room");
    EXPECT_TRUE(Node("Property Room")->isExpanded());

    WhileMenuOpen([&](QMenu&) { EXPECT_EQ(toggle->text(), "Collapse"); });
    RightClickNode("Property Room");

    WhileMenuOpen([&](QMenu&) {
        EXPECT_EQ(toggle->text(), "Expand");
        EXPECT_FALSE(toggle->isEnabled());
    });
    RightClickNode("Vault");
}

}  // namespace
}  // namespace quellbrook::testing

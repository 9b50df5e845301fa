#include "demo/tour/Look.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/FlatTabs.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

// A window with a panel, in it a label, a field, a tree and a dropdown.
class LookTest : public ::testing::Test {
protected:
    void SetUp() override {
        m_panel->setObjectName("panel");
        m_label->setObjectName("lblTitle");
        m_field->setObjectName("field");
        m_tree->setObjectName("tree");
        m_tree->setColumnCount(2);
        m_tree->setSelectionMode(QAbstractItemView::ExtendedSelection);
        auto* root = new QTreeWidgetItem(m_tree, {"Crime Lab", "Location"});
        new QTreeWidgetItem(root, {"Biology", "Location"});
        new QTreeWidgetItem(m_tree, {"2026-0417-02", "Tools"});
        m_box->setObjectName("box");
        m_box->addItems({"(None)", "Circuit Court"});
        auto* column = new QVBoxLayout(m_panel);
        for (QWidget* widget : std::initializer_list<QWidget*>{m_label, m_field, m_tree, m_box})
            column->addWidget(widget);
        auto* outer = new QVBoxLayout(&m_window);
        outer->addWidget(m_panel);
        m_window.resize(400, 500);
        ShowActive(m_window);
    }

    QWidget m_window;
    QWidget* m_panel = new QWidget(&m_window);
    QLabel* m_label = new QLabel("Sign Out Evidence", m_panel);
    QLineEdit* m_field = new QLineEdit("typed", m_panel);
    QTreeWidget* m_tree = new QTreeWidget(m_panel);
    QComboBox* m_box = new QComboBox(m_panel);
};

}  // namespace

TEST_F(LookTest, FindsByNamesFromTheOutsideIn) {
    EXPECT_EQ(tour::Find("panel/lblTitle"), m_label);
    EXPECT_EQ(tour::Find("lblTitle"), m_label);
    EXPECT_EQ(tour::Find("field/lblTitle"), nullptr);
}

TEST_F(LookTest, WhatIsHiddenIsNotFound) {
    m_label->hide();
    EXPECT_EQ(tour::Find("panel/lblTitle"), nullptr);
    EXPECT_EQ(tour::TextOf("panel/lblTitle"), "");
}

TEST_F(LookTest, ReadsTexts) {
    EXPECT_EQ(tour::TextOf("panel/lblTitle"), "Sign Out Evidence");
    EXPECT_EQ(tour::TextOf("panel/field"), "typed");
    EXPECT_EQ(tour::ChosenIn("panel/box"), "(None)");
}

TEST_F(LookTest, FindsRowsAtAnyDepthAndReadsTheSelectedOnes) {
    QAbstractItemView* view = tour::FindView("panel/tree");
    ASSERT_EQ(view, m_tree);
    const QModelIndex biology = tour::FindRow(view, "Biology");
    EXPECT_EQ(biology.parent().data().toString(), "Crime Lab");
    EXPECT_FALSE(tour::FindRow(view, "Bio").isValid());
    EXPECT_FALSE(tour::IsExpanded(view, biology.parent()));
    m_tree->expandAll();
    EXPECT_TRUE(tour::IsExpanded(view, biology.parent()));
    m_tree->selectAll();
    EXPECT_EQ(tour::SelectedRows(view),
              QStringList({"Crime Lab | Location", "Biology | Location", "2026-0417-02 | Tools"}));
}

TEST_F(LookTest, ASpotIsInTheMiddleOfWhatCanBePressed) {
    EXPECT_EQ(tour::SpotOf(m_field), m_field->mapToGlobal(m_field->rect().center()));
    m_field->setEnabled(false);
    EXPECT_EQ(tour::SpotOf(m_field), std::nullopt);
}

TEST_F(LookTest, ATabIsFoundByItsCaption) {
    QWidget window;
    FlatTabs tabs(&window);
    tabs.AddTab("Details");
    tabs.AddTab("Chain of Custody");
    ShowActive(window);
    EXPECT_EQ(tour::SpotOfPart(&tabs, "Chain of Custody"), tabs.Bar()->mapToGlobal(tabs.Bar()->tabRect(1).center()));
}

TEST_F(LookTest, WhatIsCoveredHasNoSpot) {
    auto* cover = new QWidget(&m_window);
    cover->setGeometry(m_window.rect());
    cover->show();
    cover->raise();
    EXPECT_EQ(tour::SpotOf(m_field), std::nullopt);
    EXPECT_EQ(tour::SpotOf(m_tree, tour::FindRow(m_tree, "2026-0417-02")), std::nullopt);
}

TEST_F(LookTest, ARowOutsideTheViewHasNoSpot) {
    for (int k = 0; k < 200; ++k) new QTreeWidgetItem(m_tree, {"row " + QString::number(k)});
    EXPECT_NE(tour::SpotOf(m_tree, tour::FindRow(m_tree, "2026-0417-02")), std::nullopt);
    EXPECT_EQ(tour::SpotOf(m_tree, tour::FindRow(m_tree, "row 199")), std::nullopt);
}

TEST_F(LookTest, ReadsAnOpenMenu) {
    QMenu menu;
    menu.addAction("Open");
    menu.addSeparator();
    menu.addAction("Print && Close");
    menu.addAction("Hidden")->setVisible(false);
    EXPECT_EQ(tour::OpenMenu(), nullptr);
    menu.popup(m_window.mapToGlobal(QPoint(10, 10)));
    ASSERT_EQ(tour::OpenMenu(), &menu);
    EXPECT_EQ(tour::EntriesOf(&menu), QStringList({"Open", "Print & Close"}));
    EXPECT_NE(tour::SpotOf(&menu, "Open"), std::nullopt);
    EXPECT_EQ(tour::SpotOf(&menu, "Hidden"), std::nullopt);
}

}  // namespace quellbrook::testing

#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/FlatTabs.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/controls/FlatTitleBar.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/controls/Link.h"
#include "ui/controls/ListView.h"
#include "ui/controls/StatusTag.h"
#include "ui/controls/View.h"

#include <QAccessible>
#include <QComboBox>
#include <QTabBar>
#include <QTreeWidget>

namespace quellbrook::testing {
namespace {

class AccessibilityTest : public ControlsTest {
protected:
    static QAccessibleInterface* Of(QObject& control) { return QAccessible::queryAccessibleInterface(&control); }

    template <typename T>
    T* Captioned(const QString& caption) {
        auto* control = new T(&m_window);
        control->SetCaption(caption);
        return control;
    }
};

class SomeView : public View {
public:
    using View::View;
    std::string TypeName() const override { return "SomeView"; }
};

TEST_F(AccessibilityTest, ControlsHaveTheirRoles) {
    EXPECT_EQ(Of(*new FlatButton(&m_window))->role(), QAccessible::Button);
    EXPECT_EQ(Of(*new Link(&m_window))->role(), QAccessible::Link);
    EXPECT_EQ(Of(*new Label(&m_window))->role(), QAccessible::StaticText);
    EXPECT_EQ(Of(*new StatusTag(&m_window))->role(), QAccessible::StaticText);
    EXPECT_EQ(Of(*new FontIcon(&m_window))->role(), QAccessible::Graphic);
    EXPECT_EQ(Of(*new FlatTitleBar(&m_window))->role(), QAccessible::TitleBar);
    EXPECT_EQ(Of(*new Line(&m_window))->role(), QAccessible::Separator);
    EXPECT_EQ(Of(*new GroupBox(&m_window))->role(), QAccessible::Grouping);
    EXPECT_EQ(Of(*(new FlatTabs(&m_window))->Bar())->role(), QAccessible::PageTabList);
    EXPECT_EQ(Of(*new SomeView(&m_window))->role(), QAccessible::Pane);
    EXPECT_EQ(Of(*(new FlatDropdown(&m_window))->Box())->role(), QAccessible::ComboBox);
    EXPECT_EQ(Of(*(new FlatTextbox(&m_window))->focusProxy())->role(), QAccessible::EditableText);
}

TEST_F(AccessibilityTest, ADropdownIsNamedAfterItsFieldAndHasTheChoiceAsItsValue) {
    auto* dropdown = new FlatDropdown(&m_window);
    dropdown->SetAccessibleCaption("Reason");
    dropdown->AddItem("Sale", 1);
    dropdown->AddItem("Destruction", 2);
    QAccessibleInterface* box = Of(*dropdown->Box());
    EXPECT_EQ(box->text(QAccessible::Name), "Reason");
    EXPECT_EQ(box->text(QAccessible::Value), "");
    dropdown->SetListIndex(1);
    EXPECT_EQ(box->text(QAccessible::Name), "Reason");
    EXPECT_EQ(box->text(QAccessible::Value), "Destruction");
}

TEST_F(AccessibilityTest, ADropdownOpensAndClosesItsList) {
    auto* dropdown = new FlatDropdown(&m_window);
    dropdown->AddItem("Sale", 1);
    ShowActive(m_window);
    QAccessibleInterface* box = Of(*dropdown->Box());
    EXPECT_TRUE(box->state().collapsed);
    ASSERT_EQ(box->childCount(), 1);
    EXPECT_EQ(box->child(0)->object(), dropdown->Box()->view());
    EXPECT_EQ(box->indexOfChild(box->child(0)), 0);
    box->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(dropdown->Box()->view()->isVisible());
    EXPECT_TRUE(box->state().expanded);
    box->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(dropdown->Box()->view()->isVisible());
}

TEST_F(AccessibilityTest, ADropdownThatFiltersIsEditableAndHasTheListThatOpens) {
    FlatDropdown dropdown(&m_window, FlatDropdown::Typing::Filters);
    dropdown.SetAccessibleCaption("Container");
    dropdown.AddItem("Vault", 1);
    dropdown.SetListIndex(0);
    ShowActive(m_window);
    dropdown.setFocus();
    QAccessibleInterface* box = Of(*dropdown.Box());
    EXPECT_EQ(box->role(), QAccessible::ComboBox);
    EXPECT_TRUE(box->state().focused);
    EXPECT_TRUE(box->state().editable);
    EXPECT_FALSE(Of(*(new FlatDropdown(&m_window))->Box())->state().editable);
    SendText(m_window, "va");
    EXPECT_EQ(box->text(QAccessible::Name), "Container");
    EXPECT_EQ(box->text(QAccessible::Value), "va");
    EXPECT_TRUE(box->state().expanded);
    ASSERT_EQ(box->childCount(), 1);
    EXPECT_EQ(box->child(0)->object(), dropdown.List());
    EXPECT_TRUE(dropdown.List()->isVisible());
    box->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(box->state().collapsed);
    box->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(box->state().expanded);
    dropdown.Box()->hidePopup();
}

TEST_F(AccessibilityTest, ADisabledDropdownOffersNoAction) {
    auto* dropdown = new FlatDropdown(&m_window);
    ShowActive(m_window);
    dropdown->setEnabled(false);
    QAccessibleInterface* box = Of(*dropdown->Box());
    EXPECT_TRUE(box->actionInterface()->actionNames().isEmpty());
    box->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_FALSE(dropdown->Box()->view()->isVisible());
}

class SomeRow : public PlainControl {
    Q_OBJECT
    Q_PROPERTY(bool Focused MEMBER focused)

public:
    using PlainControl::PlainControl;
    bool focused = false;
};

TEST_F(AccessibilityTest, AControlCanSetItsRoleAndSelectedState) {
    auto* row = new SomeRow(&m_window);
    row->SetAccessibleRole(QAccessible::ListItem);
    EXPECT_EQ(Of(*row)->role(), QAccessible::ListItem);
    EXPECT_TRUE(Of(*row)->state().selectable);
    EXPECT_TRUE(Of(*row)->state().focusable);
    EXPECT_FALSE(Of(*row)->state().selected);
    row->focused = true;
    EXPECT_TRUE(Of(*row)->state().selected);
    EXPECT_FALSE(Of(*new PlainControl(&m_window))->state().selectable);
}

TEST_F(AccessibilityTest, IconsReadAsTheirNamesUnlessNamedOtherwise) {
    auto* icon = new FontIcon(&m_window);
    icon->SetIcon("empty_location", 20);
    EXPECT_EQ(Of(*icon)->text(QAccessible::Name), "empty location");
    icon->SetIcon("tag", 20);
    EXPECT_EQ(Of(*icon)->text(QAccessible::Name), "tag");
    icon->setAccessibleName("Secured");
    icon->SetIcon("secured", 20);
    EXPECT_EQ(Of(*icon)->text(QAccessible::Name), "Secured");
}

TEST_F(AccessibilityTest, CaptionsAreNames) {
    EXPECT_EQ(Of(*Captioned<FlatButton>("Sign In & Out"))->text(QAccessible::Name), "Sign In & Out");
    EXPECT_EQ(Of(*Captioned<Link>("UNDO"))->text(QAccessible::Name), "UNDO");
    EXPECT_EQ(Of(*Captioned<Label>("<b>Box</b>"))->text(QAccessible::Name), "<b>Box</b>");
    EXPECT_EQ(Of(*Captioned<StatusTag>("In Storage"))->text(QAccessible::Name), "In Storage");
    EXPECT_EQ(Of(*Captioned<FlatTitleBar>("Quellbrook"))->text(QAccessible::Name), "Quellbrook");
    auto* close = Captioned<Link>("\u2715");
    close->SetAccessibleCaption("Close");
    EXPECT_EQ(Of(*close)->text(QAccessible::Name), "Close");
}

TEST_F(AccessibilityTest, ButtonsAndLinksCanBePressed) {
    int presses = 0;
    auto* button = Captioned<FlatButton>("Finish");
    auto* link = Captioned<Link>("UNDO");
    QObject::connect(button, &FlatButton::Clicked, [&] { ++presses; });
    QObject::connect(link, &Link::Clicked, [&] { ++presses; });
    for (QObject* control : {static_cast<QObject*>(button), static_cast<QObject*>(link)}) {
        QAccessibleActionInterface* actions = Of(*control)->actionInterface();
        ASSERT_NE(actions, nullptr);
        EXPECT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
        const int before = presses;
        actions->doAction(QAccessibleActionInterface::pressAction());
        EXPECT_EQ(presses, before) << "the assistive tool is still waiting";
        ServeEvents();
    }
    EXPECT_EQ(presses, 2);
}

TEST_F(AccessibilityTest, StatesFollowTheControl) {
    auto* button = Captioned<FlatButton>("Finish");
    ShowActive(m_window);
    button->setFocus();
    EXPECT_TRUE(Of(*button)->state().focused);
    EXPECT_TRUE(Of(*button)->state().focusable);
    button->setEnabled(false);
    EXPECT_TRUE(Of(*button)->state().disabled);
    button->hide();
    EXPECT_TRUE(Of(*button)->state().invisible);
}

TEST_F(AccessibilityTest, TabsAreListedWithTheirStateAndCanBePressed) {
    auto* tabs = new FlatTabs(&m_window);
    tabs->AddTab("Details");
    tabs->AddTab("Chain of Custody");
    ShowActive(m_window);
    tabs->SetAccessibleCaption("Item");
    QAccessibleInterface* list = Of(*tabs->Bar());
    EXPECT_EQ(list->text(QAccessible::Name), "Item");
    ASSERT_EQ(list->childCount(), 2);
    QAccessibleInterface* custody = list->child(1);
    EXPECT_EQ(custody->role(), QAccessible::PageTab);
    EXPECT_EQ(custody->text(QAccessible::Name), "Chain of Custody");
    EXPECT_EQ(custody->parent(), list);
    EXPECT_EQ(list->indexOfChild(custody), 1);
    EXPECT_EQ(list->indexOfChild(list->child(0)), 0);
    EXPECT_EQ(custody->text(QAccessible::Description), "");
    EXPECT_TRUE(custody->isValid());
    EXPECT_TRUE(custody->state().selectable);
    EXPECT_TRUE(custody->state().focusable);
    EXPECT_TRUE(custody->rect().contains(tabs->mapToGlobal(tabs->TabRect(1).center())));
    EXPECT_EQ(list->child(1), custody);
    EXPECT_TRUE(list->child(0)->state().selected);
    EXPECT_FALSE(custody->state().selected);
    custody->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(tabs->SelectedIndex(), 1);
    EXPECT_TRUE(custody->state().selected);
    EXPECT_EQ(Of(*tabs->Page(1))->role(), QAccessible::PropertyPage);
    EXPECT_EQ(Of(*tabs->Page(1))->text(QAccessible::Name), "Chain of Custody");
    const QPoint at = tabs->mapToGlobal(tabs->TabRect(0).center());
    EXPECT_EQ(list->childAt(at.x(), at.y()), list->child(0));
    EXPECT_EQ(list->child(2), nullptr);
}

TEST_F(AccessibilityTest, RowsOfAPanelInAListAreReadFromTopToBottom) {
    auto* list = new GroupBox(&m_window);
    list->SetAccessibleRole(QAccessible::List);
    auto* panel = new GroupBox(list);
    std::vector<Label*> rows;
    for (const int top : {60, 20, 40, 0}) {
        rows.push_back(new Label(panel));
        rows.back()->SetCaption("at " + QString::number(top));
        rows.back()->move(0, top);
    }
    const QAccessibleInterface* rowsOf = Of(*panel);
    QStringList names;
    for (int i = 0; i < rowsOf->childCount(); ++i) names.push_back(rowsOf->child(i)->text(QAccessible::Name));
    EXPECT_EQ(names, QStringList({"at 0", "at 20", "at 40", "at 60"}));
    EXPECT_EQ(rowsOf->indexOfChild(Of(*rows[0])), 3);
    EXPECT_EQ(rowsOf->indexOfChild(Of(*rows[3])), 0);
    EXPECT_EQ(rowsOf->indexOfChild(Of(*list)), -1);
}

TEST_F(AccessibilityTest, RowsOfAListReadTheirCellsAndMarks) {
    auto* list = new ListView(&m_window);
    list->AddColumn("icon", "", 600);
    list->AddColumn("name", "Name", 1500);
    list->AddColumn("type", "Type", 1500);
    list->AddRow("P1", "tag", {{"2026-0417-01"}, {"Tools"}});
    list->AddRow("P2", "selected", {{"2026-0417-02"}, {""}});
    list->Tree()->setAccessibleName("Contents");
    ShowActive(m_window);
    QAccessibleInterface* tree = Of(*list->Tree());
    EXPECT_EQ(tree->role(), QAccessible::Tree);
    EXPECT_EQ(tree->text(QAccessible::Name), "Contents");
    ASSERT_NE(tree->tableInterface(), nullptr);
    const auto name = [&](int row, int column) {
        return tree->tableInterface()->cellAt(row, column)->text(QAccessible::Name);
    };
    EXPECT_EQ(name(0, 0), "2026-0417-01, Tools");
    EXPECT_EQ(name(0, 1), "2026-0417-01");
    EXPECT_EQ(name(1, 0), "2026-0417-02, checked");
    list->SetRowIcon(0, "marked");
    EXPECT_EQ(name(0, 0), "2026-0417-01, Tools, marked");
}

}  // namespace
}  // namespace quellbrook::testing

#include "AccessibilityTest.moc"

#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/FlatTextbox.h"

namespace quellbrook::testing {
namespace {

using Names = std::vector<std::string>;

class TabOrderTest : public ControlsTest {
protected:
    template <typename T = FlatButton>
    T* Add(const char* name, QWidget* parent = nullptr) {
        auto* control = new T(parent ? parent : &m_window);
        control->setObjectName(name);
        return control;
    }
};

TEST_F(TabOrderTest, IndexZeroComesFirstAmongItsSiblings) {
    Add("a");
    Add("b");
    auto* last = Add("c");
    ShowActive(m_window);
    EXPECT_EQ(TabOrder(m_window), (Names{"a", "b", "c"}));
    last->SetTabIndex(0);
    EXPECT_EQ(last->TabIndex(), 0);
    EXPECT_EQ(TabOrder(m_window), (Names{"c", "a", "b"}));
    EXPECT_TRUE(last->setProperty("TabIndex", 3));
    EXPECT_EQ(last->TabIndex(), 3);
}

TEST_F(TabOrderTest, AContainerMovesWithItsChildren) {
    auto* first = Add<PlainControl>("first");
    Add("a", first);
    Add("b", first);
    auto* second = Add<PlainControl>("second");
    Add("c", second);
    Add<FlatTextbox>("d", second);
    Add<FlatDropdown>("e", second);
    ShowActive(m_window);
    EXPECT_EQ(TabOrder(m_window), (Names{"a", "b", "c", "d", "e"}));
    second->SetTabIndex(0);
    EXPECT_EQ(TabOrder(m_window), (Names{"c", "d", "e", "a", "b"}));
    first->SetTabIndex(0);
    EXPECT_EQ(TabOrder(m_window), (Names{"a", "b", "c", "d", "e"}));
}

TEST_F(TabOrderTest, TheTabKeyFollowsIt) {
    auto* a = Add("a");
    auto* b = Add<FlatTextbox>("b");
    ShowActive(m_window);
    b->SetTabIndex(0);
    b->setFocus();
    Press(Qt::Key_Tab);
    EXPECT_TRUE(a->hasFocus());
    Press(Qt::Key_Backtab);
    EXPECT_TRUE(b->hasFocus());
}

TEST_F(TabOrderTest, OnlyTheOwnParentsOrderChanges) {
    Add("before");
    auto* group = Add<PlainControl>("group");
    Add("a", group);
    auto* b = Add("b", group);
    Add("after");
    ShowActive(m_window);
    b->SetTabIndex(0);
    EXPECT_EQ(TabOrder(m_window), (Names{"before", "b", "a", "after"}));
}

TEST_F(TabOrderTest, AContainerThatOnlyPassesItsFocusOnMovesToo) {
    Add("before");
    auto* group = Add<PlainControl>("group");
    Add("bar", group);
    auto* content = Add<PlainControl>("content", group);
    auto* pane = Add<PlainControl>("pane", content);
    pane->setFocusProxy(Add("inside", pane));
    Add("after");
    ShowActive(m_window);
    ASSERT_EQ(pane->focusPolicy(), Qt::NoFocus);
    content->SetTabIndex(0);
    EXPECT_EQ(TabOrder(m_window), (Names{"before", "inside", "bar", "after"}));
}

TEST_F(TabOrderTest, AControlWithoutAParentIsLeftAlone) {
    FlatButton button;
    EXPECT_NO_THROW(button.SetTabIndex(0));
}

}  // namespace
}  // namespace quellbrook::testing

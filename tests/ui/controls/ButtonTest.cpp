#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/Link.h"
#include "ui/platform/Twips.h"
#include "ui/style/TextBlock.h"

#include <QFocusFrame>
#include <QScrollArea>
#include <QScrollBar>

namespace quellbrook::testing {
namespace {

template <typename T>
class PressableTest : public ControlsTest {
protected:
    PressableTest() {
        m_control->SetCaption("Sign Out");
        m_control->Control::Move(300, 300);
        QObject::connect(m_control, &T::Clicked, [this] { ++m_clicks; });
        m_other->Move(300, 3000);
        ShowActive(m_window);
    }

    T* m_control = new T(&m_window);
    FlatButton* m_other = new FlatButton(&m_window);
    int m_clicks = 0;
};

using Pressables = ::testing::Types<FlatButton, Link>;
TYPED_TEST_SUITE(PressableTest, Pressables);

TYPED_TEST(PressableTest, ActsAtAClickOfTheLeftButton) {
    Click(this->m_control);
    EXPECT_EQ(this->m_clicks, 1);
    EXPECT_TRUE(this->m_control->hasFocus());
    RightClick(this->m_control);
    EXPECT_EQ(this->m_clicks, 1);
}

TYPED_TEST(PressableTest, AReleaseOutsideCancelsTheClick) {
    MousePress(this->m_control, QPoint(5, 5));
    MouseRelease(this->m_control, QPoint(-20, -20));
    EXPECT_EQ(this->m_clicks, 0);
}

TYPED_TEST(PressableTest, ActsAtSpaceAndBothEnterKeys) {
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) Press(this->m_control, key);
    EXPECT_EQ(this->m_clicks, 3);
    Press(this->m_control, Qt::Key_A);
    Press(this->m_control, Qt::Key_Return, Qt::AltModifier);
    EXPECT_EQ(this->m_clicks, 3);
}

TYPED_TEST(PressableTest, DoesNothingWhileDisabled) {
    this->m_control->setEnabled(false);
    Click(this->m_control);
    this->m_control->Click();
    EXPECT_EQ(this->m_clicks, 0);
}

TYPED_TEST(PressableTest, ItsCaptionIsItsAccessibleName) {
    EXPECT_EQ(this->m_control->accessibleName(), "Sign Out");
    EXPECT_EQ(this->m_control->Caption(), "Sign Out");
}

TYPED_TEST(PressableTest, TabMovesTheFocusOn) {
    this->m_control->setFocus();
    Press(Qt::Key_Tab);
    EXPECT_TRUE(this->m_other->hasFocus());
}

TYPED_TEST(PressableTest, TheRingIsTwoPixelsWideOnePixelOutside) {
    const QRect place = this->m_control->geometry();
    const QPoint above(place.center().x(), place.top() - 2);
    const QColor ring = Theme::Get(Theme::Color::Link);
    this->m_other->setFocus();
    EXPECT_NE(PixelAt(Grab(this->m_window), above), ring);
    this->m_control->setFocus();
    const QImage focused = Grab(this->m_window);
    EXPECT_EQ(PixelAt(focused, above), ring);
    EXPECT_EQ(PixelAt(focused, above - QPoint(0, 1)), ring);
    EXPECT_NE(PixelAt(focused, above + QPoint(0, 1)), ring);
    EXPECT_NE(PixelAt(focused, above - QPoint(0, 2)), ring);
    this->m_other->setFocus();
    EXPECT_NE(PixelAt(Grab(this->m_window), above), ring);
}

class FlatButtonTest : public ControlsTest {
protected:
    FlatButton m_button{&m_window};
};

TEST_F(FlatButtonTest, TheDefaultButtonHasTheStrongBackground) {
    m_button.SetCaption("Finish");
    EXPECT_EQ(PixelAt(Grab(m_button), QPoint(5, 5)), Theme::Get(Theme::Color::Strong));
    m_button.SetInverted(true);
    EXPECT_TRUE(m_button.Inverted());
    EXPECT_EQ(PixelAt(Grab(m_button), QPoint(5, 5)), Theme::Get(Theme::Color::Window));
    m_button.setEnabled(false);
    EXPECT_EQ(PixelAt(Grab(m_button), QPoint(5, 5)), Theme::Get(Theme::Color::DisabledGround));
}

TEST_F(FlatButtonTest, PaintsHoverAndPress) {
    m_button.SetCaption("Finish");
    ShowActive(m_window);
    MousePress(&m_button, QPoint(5, 5));
    EXPECT_EQ(PixelAt(Grab(m_button), QPoint(5, 5)), Theme::Get(Theme::Color::StrongPressed));
    MouseRelease(&m_button, QPoint(5, 5));
    EXPECT_EQ(PixelAt(Grab(m_button), QPoint(5, 5)), Theme::Get(Theme::Color::StrongHover));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&m_button, &leave);
    EXPECT_EQ(PixelAt(Grab(m_button), QPoint(5, 5)), Theme::Get(Theme::Color::Strong));
}

TEST_F(FlatButtonTest, SizeHintIncludesCaptionAndIcon) {
    m_button.SetCaption("Add Evidence");
    const QSize plain = m_button.sizeHint();
    EXPECT_EQ(plain.height(), 36);
    m_button.SetIcon("add");
    EXPECT_GT(m_button.sizeHint().width(), plain.width());
}

TEST_F(FlatButtonTest, ShowsAnAmpersandLiterally) {
    m_button.SetCaption("Sign In & Out");
    EXPECT_EQ(m_button.Caption(), "Sign In & Out");
    const QSize with = m_button.sizeHint();
    m_button.SetCaption("Sign In  Out");
    EXPECT_GT(with.width(), m_button.sizeHint().width());
}

class LinkTest : public ControlsTest {
protected:
    Link m_link{&m_window};
};

TEST_F(LinkTest, SizesItselfToCaptionAndIcon) {
    m_link.SetCaption("Edit");
    const int plain = m_link.width();
    m_link.SetIcon("edit");
    EXPECT_EQ(m_link.width(), plain + 18 + 4);
    m_link.SetIcon("edit", 24);
    EXPECT_EQ(m_link.height(), 24);
}

TEST_F(LinkTest, TheHandIsShownOnlyWhileItIsEnabled) {
    EXPECT_EQ(m_link.cursor().shape(), Qt::PointingHandCursor);
    m_link.setEnabled(false);
    EXPECT_EQ(m_link.cursor().shape(), Qt::ArrowCursor);
    m_link.setEnabled(true);
    EXPECT_EQ(m_link.cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(LinkTest, ItsTypeSetsTheWidthAndTheWeight) {
    m_link.SetCaption("DISPOSE THIS ITEM");
    m_link.SetType(Theme::Type::StripCaption);
    EXPECT_EQ(m_link.width(), TextWidth(Theme::Font(Theme::Type::StripCaption), m_link.Caption()));
    const QImage semiBold = Grab(m_link);
    const float width = m_link.Width();
    m_link.SetType(Theme::Type::LinkText);
    EXPECT_LT(m_link.Width(), width);
    m_link.SetWidth(width);
    EXPECT_NE(Grab(m_link), semiBold);
}

TEST_F(LinkTest, AnIconAloneHasItsSizeAndCanBeClicked) {
    m_link.SetIcon("unselected", 24);
    m_link.SetAccessibleCaption("Select All");
    EXPECT_EQ(m_link.size(), QSize(24, 24));
    EXPECT_EQ(m_link.accessibleName(), "Select All");
    int clicks = 0;
    QObject::connect(&m_link, &Link::Clicked, [&] { ++clicks; });
    ShowActive(m_window);
    const QImage unticked = Grab(m_link);
    m_link.SetIcon("selected", 24);
    EXPECT_NE(Grab(m_link), unticked);
    Click(&m_link);
    Press(&m_link, Qt::Key_Space);
    EXPECT_EQ(clicks, 2);
}

TEST_F(LinkTest, AnIconAloneIsInTheMiddle) {
    m_link.SetIcon("unselected", 24);
    const QImage narrow = Grab(m_link);
    m_link.SetWidth(ToTwips(44));
    EXPECT_EQ(Grab(m_link).copy(10, 0, 24, 24), narrow);
}

TEST_F(LinkTest, TheClosingCrossIsDrawnAndNamed) {
    m_link.SetCaption("\u2715");
    m_link.SetAccessibleCaption("Close");
    EXPECT_EQ(m_link.accessibleName(), "Close");
    EXPECT_EQ(m_link.Caption(), "\u2715");
    EXPECT_EQ(m_link.size(), QSize(24, 24));
    m_link.SetCaption("\u2715");
    EXPECT_EQ(m_link.accessibleName(), "Close");
    const QImage drawn = Grab(m_link);
    EXPECT_EQ(drawn, drawn.mirrored(true, false)) << "only the cross";
}

TEST_F(LinkTest, IsUnderlinedUnderThePointer) {
    m_link.SetCaption("IIII");
    m_link.Move(300, 300);
    ShowActive(m_window);
    const QImage plain = Grab(m_link);
    QEnterEvent enter(QPointF(2, 2), QPointF(2, 2), QPointF(2, 2));
    QCoreApplication::sendEvent(&m_link, &enter);
    EXPECT_NE(Grab(m_link), plain);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&m_link, &leave);
    EXPECT_EQ(Grab(m_link), plain);
}

class FocusRingTest : public ControlsTest {
protected:
    QFocusFrame* Ring() { return m_window.findChild<QFocusFrame*>(); }
};

TEST_F(FocusRingTest, FollowsItsControlAndItsContainers) {
    PlainControl container(&m_window);
    container.setGeometry(100, 100, 300, 300);
    FlatButton button(&container);
    button.Move(300, 300, 1500, 540);
    ShowActive(m_window);
    button.setFocus();
    ASSERT_NE(Ring(), nullptr);
    EXPECT_EQ(Ring()->geometry(), QRect(117, 117, 106, 42));
    button.Move(600, 600);
    EXPECT_EQ(Ring()->geometry(), QRect(137, 137, 106, 42));
    container.move(200, 200);
    EXPECT_EQ(Ring()->geometry(), QRect(237, 237, 106, 42));
    button.hide();
    EXPECT_TRUE(!Ring() || !Ring()->isVisible());
}

TEST_F(FocusRingTest, IsNotClippedByAParentWithoutSpaceForIt) {
    PlainControl tight(&m_window);
    tight.setGeometry(20, 20, 100, 36);
    FlatButton button(&tight);
    button.Move(0, 0, 1500, 540);
    ShowActive(m_window);
    button.setFocus();
    ASSERT_NE(Ring(), nullptr);
    EXPECT_EQ(PixelAt(Grab(m_window), QPoint(70, 18)), Theme::Get(Theme::Color::Link));
}

TEST_F(FocusRingTest, StaysInsideAScrollArea) {
    QScrollArea area(&m_window);
    area.setGeometry(0, 0, 200, 100);
    auto* content = new QWidget;
    content->resize(180, 400);
    FlatButton button(content);
    button.Move(300, 300, 1500, 540);
    area.setWidget(content);
    ShowActive(m_window);
    button.setFocus();
    ASSERT_NE(Ring(), nullptr);
    EXPECT_TRUE(area.viewport()->isAncestorOf(Ring()));
    area.verticalScrollBar()->setValue(10);
    EXPECT_EQ(Ring()->mapTo(&m_window, QPoint(3, 3)), button.mapTo(&m_window, QPoint(0, 0)));
}

TEST_F(FocusRingTest, DisappearsWithTheFocusAndWithItsControl) {
    auto* button = new FlatButton(&m_window);
    button->Move(300, 300);
    ShowActive(m_window);
    button->setFocus();
    EXPECT_NE(Ring(), nullptr);
    button->clearFocus();
    EXPECT_EQ(Ring(), nullptr);
    button->setFocus();
    EXPECT_NE(Ring(), nullptr);
    delete button;
    ServeEvents();
    EXPECT_EQ(Ring(), nullptr);
}

TEST_F(FocusRingTest, IgnoresClicksAndIsNotATabStop) {
    FlatButton button(&m_window);
    button.Move(300, 300);
    ShowActive(m_window);
    button.setFocus();
    ASSERT_NE(Ring(), nullptr);
    EXPECT_TRUE(Ring()->testAttribute(Qt::WA_TransparentForMouseEvents));
    EXPECT_EQ(Ring()->focusPolicy(), Qt::NoFocus);
    EXPECT_EQ(m_window.childAt(button.geometry().center()), &button);
}

}  // namespace
}  // namespace quellbrook::testing

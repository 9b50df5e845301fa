#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/controls/FlatTitleBar.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Line.h"
#include "ui/style/FlatStyle.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFocusFrame>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>

namespace quellbrook::testing {
namespace {

class StyleTest : public ControlsTest {
protected:
    QMenu m_menu;
};

TEST_F(StyleTest, MenuEntriesAndSeparatorsHaveTheirHeights) {
    QAction* open = m_menu.addAction("Open");
    QAction* separator = m_menu.addSeparator();
    QAction* print = m_menu.addAction("Print barcode label");
    m_menu.popup(QPoint(10, 10));
    EXPECT_EQ(m_menu.actionGeometry(open).height(), 30);
    EXPECT_EQ(m_menu.actionGeometry(separator).height(), 9);
    EXPECT_EQ(m_menu.actionGeometry(print).top(), m_menu.actionGeometry(open).bottom() + 10);
    m_menu.close();
}

TEST_F(StyleTest, TheSelectedEntryIsHighlighted) {
    QAction* open = m_menu.addAction("Open");
    QAction* disabled = m_menu.addAction("Disabled");
    disabled->setEnabled(false);
    m_menu.popup(QPoint(10, 10));
    m_menu.setActiveAction(open);
    QImage image = Grab(m_menu);
    EXPECT_EQ(PixelAt(image, m_menu.actionGeometry(open).topLeft() + QPoint(4, 4)),
              Theme::Get(Theme::Color::Highlight));
    EXPECT_EQ(PixelAt(image, m_menu.actionGeometry(disabled).topLeft() + QPoint(4, 4)),
              Theme::Get(Theme::Color::Window));
    m_menu.close();
}

TEST_F(StyleTest, ABoldEntryIsNotClipped) {
    QAction* plain = m_menu.addAction("Open this rather long entry");
    m_menu.popup(QPoint(10, 10));
    m_menu.close();
    m_menu.setDefaultAction(plain);
    m_menu.popup(QPoint(10, 10));
    QFont bold = Theme::Font(Theme::Type::Subtitle);
    bold.setWeight(QFont::Bold);
    EXPECT_GE(m_menu.actionGeometry(plain).width(), 36 + QFontMetrics(bold).horizontalAdvance(plain->text()) + 12);
    m_menu.close();
}

TEST_F(StyleTest, OnlyTheDefaultEntryIsBold) {
    QAction* entry = m_menu.addAction("Open this rather long entry");
    const auto inkWidth = [&] {
        m_menu.popup(QPoint(10, 10));
        const QImage image = Grab(m_menu);
        const QRect rect = m_menu.actionGeometry(entry);
        m_menu.close();
        int right = 0;
        for (int y = rect.top() + 4; y < rect.bottom() - 4; ++y)
            for (int x = rect.left() + 4; x < rect.right() - 4; ++x)
                if (PixelAt(image, QPoint(x, y)) != Theme::Get(Theme::Color::Window)) right = std::max(right, x);
        return right;
    };
    const int plain = inkWidth();
    m_menu.setDefaultAction(entry);
    EXPECT_GT(inkWidth(), plain + 3);
}

TEST_F(StyleTest, OnlyASubmenuHasAnArrow) {
    QAction* entry = m_menu.addAction("Open");
    const QAction* submenu = m_menu.addMenu("New")->menuAction();
    m_menu.addAction("A long entry that makes the menu wide");
    m_menu.popup(QPoint(10, 10));
    const QImage image = Grab(m_menu);
    const auto hasArrow = [&](const QAction* action) {
        const QRect rect = m_menu.actionGeometry(const_cast<QAction*>(action));
        return HasColor(image, QRect(rect.right() - 24, rect.top() + 4, 16, rect.height() - 8),
                        Theme::Get(Theme::Color::Text));
    };
    EXPECT_FALSE(hasArrow(entry));
    EXPECT_TRUE(hasArrow(submenu));
    m_menu.close();
}

TEST_F(StyleTest, OnlyButtonsAreRepaintedUnderThePointer) {
    QPushButton button(&m_window);
    QLineEdit edit(&m_window);
    ShowActive(m_window);
    EXPECT_TRUE(button.testAttribute(Qt::WA_Hover));
    EXPECT_FALSE(edit.testAttribute(Qt::WA_Hover));
}

TEST_F(StyleTest, ADoubledAmpersandIsDrawnAsOne) {
    QAction* single = m_menu.addAction("A && B");
    m_menu.popup(QPoint(10, 10));
    const int width = m_menu.actionGeometry(single).width();
    m_menu.close();
    single->setText("A && && B");
    m_menu.popup(QPoint(10, 10));
    EXPECT_GT(m_menu.actionGeometry(single).width(), width);
    m_menu.close();
}

TEST_F(StyleTest, ScrollBarsAreAThumbOnTheGround) {
    QScrollArea area(&m_window);
    auto* inside = new QWidget;
    inside->resize(100, 2000);
    area.setWidget(inside);
    area.setGeometry(0, 0, 200, 200);
    ShowActive(m_window);
    QScrollBar* bar = area.verticalScrollBar();
    EXPECT_EQ(bar->width(), 12);
    EXPECT_TRUE(HasColor(Grab(*bar), QRect(0, 0, 12, 32), Theme::Get(Theme::Color::Thumb)));
    EXPECT_FALSE(HasColor(Grab(*bar), QRect(0, 100, 12, 90), Theme::Get(Theme::Color::Thumb)));
    bar->setValue(bar->maximum());
    EXPECT_TRUE(HasColor(Grab(*bar), QRect(0, 100, 12, 90), Theme::Get(Theme::Color::Thumb)));
}

TEST_F(StyleTest, TheArrowsOfAScrollBarPointToItsEnds) {
    QScrollBar bar(Qt::Vertical, &m_window);
    bar.setProperty(FlatStyle::ArrowsProperty, 0);
    bar.setRange(0, 100);
    bar.resize(12, 200);
    const QImage image = Grab(bar);
    const auto firstInk = [&](int x, int top) {
        int y = top;
        while (y < top + 12 && PixelAt(image, QPoint(x, y)) == Theme::Get(Theme::Color::Panel)) ++y;
        EXPECT_LT(y, top + 12) << "no arrow at " << top;
        return y;
    };
    EXPECT_LT(firstInk(6, 0), firstInk(3, 0)) << "up";
    EXPECT_GT(firstInk(6, 188), firstInk(3, 188)) << "down";
}

TEST_F(StyleTest, GroupsPaintTheirBackgroundAndFrame) {
    GroupBox group(&m_window);
    group.resize(100, 100);
    EXPECT_EQ(group.BackColor(), Theme::Get(Theme::Color::Window));
    group.SetBackColor(Theme::Color::Panel);
    EXPECT_EQ(group.BackColor(), Theme::Get(Theme::Color::Panel));
    EXPECT_EQ(PixelAt(Grab(group), QPoint(50, 50)), Theme::Get(Theme::Color::Panel));
    EXPECT_EQ(PixelAt(Grab(group), QPoint(50, 0)), Theme::Get(Theme::Color::Panel));
    group.SetFramed(true);
    EXPECT_EQ(PixelAt(Grab(group), QPoint(50, 0)), Theme::Get(Theme::Color::Hairline));
    group.SetBackColor(QColor(1, 2, 3));
    EXPECT_EQ(PixelAt(Grab(group), QPoint(50, 50)), QColor(1, 2, 3));
}

TEST_F(StyleTest, LinesAreAsThickAsTheirShorterSide) {
    Line line(&m_window);
    line.Move(0, 0, 1500, 15);
    EXPECT_EQ(line.size(), QSize(100, 1));
    EXPECT_EQ(PixelAt(Grab(line), QPoint(99, 0)), Theme::Get(Theme::Color::Hairline));
    line.SetColor(Theme::Color::Accent);
    EXPECT_EQ(PixelAt(Grab(line), QPoint(0, 0)), Theme::Get(Theme::Color::Accent));
}

TEST_F(StyleTest, TheTitleBarShowsTheMarkAndARuleBelow) {
    FlatTitleBar bar(&m_window);
    bar.SetCaption("Quellbrook");
    bar.SetWidth(6000);
    EXPECT_EQ(bar.height(), 40);
    const QImage image = Grab(bar);
    EXPECT_TRUE(HasColor(image, QRect(17, 10, 20, 20), Theme::Get(Theme::Color::Accent)));
    EXPECT_EQ(PixelAt(image, QPoint(300, 39)), Theme::Get(Theme::Color::Hairline));
}

// A picture of the widget at a fixed size.
QImage Painted(QWidget& widget) {
    widget.resize(160, 36);
    return Grab(widget);
}

void ExpectHostWidgetsAsControls(QWidget& window) {
    const auto expectSame = [](QWidget& host, QWidget& control, const std::string& what) {
        EXPECT_EQ(Painted(host), Painted(control)) << what;
        for (QWidget* widget : {&host, &control}) widget->setEnabled(false);
        EXPECT_EQ(Painted(host), Painted(control)) << what << ", disabled";
    };
    QPushButton button(&window);
    FlatButton flat(&window);
    flat.SetInverted(true);
    expectSame(button, flat, "button");
    QPushButton mainButton(&window);
    mainButton.setDefault(true);
    FlatButton mainFlat(&window);
    expectSame(mainButton, mainFlat, "main button");
    QLineEdit edit(&window);
    FlatTextbox box(&window);
    expectSame(edit, box, "field");
}

TEST_F(StyleTest, ButtonsAndFieldsOfAHostLookAsTheControls) {
    ExpectHostWidgetsAsControls(m_window);
    const DarkTheme dark;
    ExpectHostWidgetsAsControls(m_window);
}

TEST_F(StyleTest, AButtonUnderThePointerChangesItsColorAndAgainWhenPressed) {
    QPushButton plain(&m_window), main(&m_window);
    main.setDefault(true);
    const auto colorOf = [](QPushButton& button) { return PixelAt(Painted(button), QPoint(80, 18)); };
    EXPECT_EQ(colorOf(plain), Theme::Get(Theme::Color::Window));
    EXPECT_EQ(colorOf(main), Theme::Get(Theme::Color::Strong));
    for (QPushButton* button : {&plain, &main}) button->setAttribute(Qt::WA_UnderMouse);
    EXPECT_EQ(colorOf(plain), Theme::Get(Theme::Color::Panel));
    EXPECT_EQ(colorOf(main), Theme::Get(Theme::Color::StrongHover));
    for (QPushButton* button : {&plain, &main}) button->setDown(true);
    EXPECT_EQ(colorOf(plain), Theme::Get(Theme::Color::Hairline));
    EXPECT_EQ(colorOf(main), Theme::Get(Theme::Color::StrongPressed));
}

TEST_F(StyleTest, ADisabledFieldHasTheColorOfThePanels) {
    QLineEdit edit(&m_window);
    EXPECT_EQ(PixelAt(Painted(edit), QPoint(80, 18)), Theme::Get(Theme::Color::Window));
    edit.setEnabled(false);
    EXPECT_EQ(PixelAt(Painted(edit), QPoint(80, 18)), Theme::Get(Theme::Color::Panel));
}

TEST_F(StyleTest, ControlsThatTheThemeHasNoLookForAreVisible) {
    QCheckBox box("Print a receipt", &m_window);
    const QImage with = Painted(box);
    box.setText("");
    EXPECT_NE(with, Painted(box)) << "its text";
    box.setChecked(true);
    const QImage checked = Painted(box);
    box.setChecked(false);
    EXPECT_NE(checked, Painted(box)) << "its mark";
}

TEST_F(StyleTest, ButtonsAndFieldsOfAHostAreAsLargeAsTheControls) {
    QPushButton button("Log In", &m_window);
    FlatButton flat(&m_window);
    flat.SetCaption("Log In");
    EXPECT_EQ(button.sizeHint(), flat.sizeHint());
    EXPECT_EQ(QLineEdit(&m_window).sizeHint().height(), Theme::FieldHeight);
}

void ExpectFocusRings(QWidget& window) {
    QPushButton button(&window);
    QLineEdit edit(&window);
    QComboBox dropdown(&window);
    ShowActive(window);
    for (QWidget* widget :
         {static_cast<QWidget*>(&button), static_cast<QWidget*>(&edit), static_cast<QWidget*>(&dropdown)}) {
        widget->setGeometry(100, 100, 160, 36);
        widget->show();
        widget->setFocus();
        const auto* ring = window.findChild<QFocusFrame*>();
        ASSERT_NE(ring, nullptr) << widget->metaObject()->className();
        EXPECT_EQ(ring->geometry(), QRect(97, 97, 166, 42));
        EXPECT_EQ(PixelAt(Grab(window), QPoint(180, 98)), Theme::Get(Theme::Color::Link));
        widget->hide();
    }
}

TEST_F(StyleTest, ButtonsFieldsAndDropdownsOfAHostHaveTheFocusRing) {
    ExpectFocusRings(m_window);
    const DarkTheme dark;
    ExpectFocusRings(m_window);
}

}  // namespace
}  // namespace quellbrook::testing

#include "tests/support/ui/Tooltip.h"
#include "tests/ui/controls/ControlsTest.h"
#include "ui/controls/Label.h"
#include "ui/controls/StatusTag.h"
#include "ui/platform/Strings.h"
#include "ui/style/TextBlock.h"

namespace quellbrook::testing {
namespace {

class LabelTest : public ControlsTest {
protected:
    Label m_label{&m_window};
};

TEST_F(LabelTest, OneLineFollowsItsTextsWidthAndHeight) {
    m_label.Move(300, 450);
    m_label.SetCaption("Shelf B");
    const int narrow = m_label.width();
    EXPECT_EQ(m_label.height(), 20);
    EXPECT_EQ(m_label.pos(), QPoint(20, 30));
    m_label.SetCaption("Shelf B, second from the left");
    EXPECT_GT(m_label.width(), narrow);
    m_label.SetType(Theme::Type::Title);
    EXPECT_EQ(m_label.height(), 28);
    m_label.SetCaption("");
    EXPECT_EQ(m_label.width(), 0);
}

TEST_F(LabelTest, ContentsMarginsIndentTheText) {
    m_label.SetCaption("Shelf B");
    const QImage plain = Grab(m_label);
    const int width = m_label.width();
    m_label.setContentsMargins(6, 0, 0, 0);
    m_label.SetCaption("");
    m_label.SetCaption("Shelf B");
    EXPECT_EQ(m_label.width(), width + 6);
    EXPECT_EQ(Grab(m_label).copy(6, 0, width, 20), plain);
}

TEST_F(LabelTest, AWrappingLabelKeepsItsWidthAndFollowsItsHeight) {
    m_label.SetWordWrap(true);
    m_label.SetWidth(3000);
    m_label.SetCaption("short");
    EXPECT_EQ(m_label.size(), QSize(200, 20));
    m_label.SetCaption("one\ntwo");
    EXPECT_EQ(m_label.size(), QSize(200, 40));
    m_label.SetCaption("1\n2\n3\n4\n5\n6\n7\n8\n9\n10");
    EXPECT_EQ(m_label.size(), QSize(200, 200));
}

TEST_F(LabelTest, AWrappingLabelGrowsTallerWhenItNarrows) {
    m_label.SetWordWrap(true);
    m_label.SetWidth(9000);
    m_label.SetCaption("Check for typos in your search filter, or try a different search term.");
    EXPECT_EQ(m_label.height(), 20);
    m_label.SetWidth(3000);
    EXPECT_GE(m_label.height(), 60);
    EXPECT_EQ(m_label.height(), m_label.heightForWidth(200));
}

TEST_F(LabelTest, WithoutAutoSizeTheGeometryStays) {
    m_label.SetAutoSize(false);
    m_label.Move(0, 0, 1500, 300);
    m_label.SetCaption("This text is much too long for its label");
    EXPECT_EQ(m_label.size(), QSize(100, 20));
}

TEST_F(LabelTest, TwoLineEndsGiveOneEmptyLine) {
    m_label.SetCaption("a\n\nb");
    EXPECT_EQ(m_label.height(), 60);
}

TEST_F(LabelTest, TextIsPlainNeverMarkup) {
    const QString text = "<b>x</b><img src=\"/etc/hostname\"> & &amp;";
    m_label.SetCaption(text);
    EXPECT_EQ(m_label.Caption(), text);
    EXPECT_EQ(m_label.accessibleName(), text);
    EXPECT_EQ(m_label.width(), TextWidth(Theme::Font(Theme::Type::Body), text));
}

TEST_F(LabelTest, IsDimmedInADisabledParentUnlessItMayNotBe) {
    m_label.SetCaption("Shelf A");
    const QImage enabled = Grab(m_label);
    m_window.setEnabled(false);
    EXPECT_NE(Grab(m_label), enabled);
    m_label.SetDimsWhenDisabled(false);
    EXPECT_EQ(Grab(m_label), enabled);
}

TEST_F(LabelTest, ColorsAreFromTheThemeOrFixed) {
    EXPECT_EQ(m_label.ForeColor(), Theme::Get(Theme::Color::Text));
    m_label.SetForeColor(QColor(255, 0, 0));
    EXPECT_EQ(m_label.ForeColor(), QColor(255, 0, 0));
    m_label.SetForeColor(Theme::Color::GrayText);
    EXPECT_EQ(m_label.ForeColor(), Theme::Get(Theme::Color::GrayText));
    const DarkTheme dark;
    EXPECT_EQ(m_label.ForeColor(), Theme::Get(Theme::Color::GrayText));
}

TEST_F(LabelTest, PaintsWithItsColor) {
    m_label.SetType(Theme::Type::Title);
    m_label.SetCaption("\u25A0\u25A0 IIIIII");
    m_label.SetForeColor(QColor(255, 0, 0));
    ShowActive(m_window);
    EXPECT_TRUE(HasColor(Grab(m_window), m_label.geometry(), QColor(255, 0, 0)));
}

TEST_F(LabelTest, TheFontOfAParentAppliesAndTheTypeRemains) {
    PlainControl parent(&m_window);
    Label label(&parent);
    label.SetType(Theme::Type::Section);
    label.SetCaption("Shelf B");
    const QSize before = label.size();
    QFont big;
    big.setPixelSize(40);
    parent.setFont(big);
    EXPECT_GT(label.width(), before.width() * 2);
    EXPECT_GE(label.height(), 40);
    QFont expected = Theme::Font(Theme::Type::Section);
    expected.setPixelSize(40);
    EXPECT_EQ(label.width(), TextWidth(expected, "Shelf B"));
    parent.setFont(QFont());
    EXPECT_EQ(label.size(), before);
}

TEST_F(LabelTest, TakesTheFontOfItsNewParent) {
    PlainControl parent(&m_window);
    QFont big;
    big.setPixelSize(40);
    parent.setFont(big);
    m_label.SetCaption("Shelf B");
    const int before = m_label.width();
    m_label.setParent(&parent);
    EXPECT_GT(m_label.width(), before);
    m_label.setParent(&m_window);
    EXPECT_EQ(m_label.width(), before);
}

TEST_F(LabelTest, ATextThatAParentCutsOffEndsInAnEllipsisAndIsATooltip) {
    PlainControl parent(&m_window);
    parent.setGeometry(100, 100, 200, 40);
    auto* label = new Label(&parent);
    label->SetCaption("A description that is a good deal longer than its parent is wide");
    label->Move(ToTwips(50), 0);
    const int textWidth = label->width();
    ASSERT_GT(textWidth, 200);
    ShowActive(m_window);
    auto* narrow = new Label(&m_window);
    narrow->SetAutoSize(false);
    narrow->SetCaption(label->Caption());
    narrow->setGeometry(0, 300, 150, label->height());
    narrow->show();
    EXPECT_EQ(Grab(*label).copy(0, 0, 150, label->height()), Grab(*narrow)) << "painted as in a label of that width";
    EXPECT_EQ(label->width(), textWidth);
    const auto tooltip = [&] { return TooltipAt(label, QPoint(10, 10)); };
    EXPECT_EQ(tooltip(), PlainTooltip(label->Caption()));
    parent.resize(textWidth + 50, 40);
    EXPECT_EQ(tooltip(), "");
    EXPECT_NE(Grab(*label).copy(0, 0, 150, label->height()), Grab(*narrow));
    parent.setGeometry(m_window.width() - 200, 100, textWidth + 50, 40);
    EXPECT_EQ(Grab(*label).copy(0, 0, 150, label->height()), Grab(*narrow)) << "cut off by the window";
}

TEST(TextBlockTest, ATextThatDoesNotFitEndsInAnEllipsis) {
    const QFont font = Theme::Font(Theme::Type::Body);
    const QString text = "a rather long text";
    EXPECT_EQ(ElidedTo(font, text, TextWidth(font, text)), text);
    const QString cut = ElidedTo(font, text, TextWidth(font, text) - 1);
    EXPECT_TRUE(cut.endsWith(QChar(0x2026)));
    EXPECT_LT(cut.size(), text.size());
    const TextBlock block("one\ntwo\nthree", Theme::Type::Body);
    EXPECT_EQ(block.LineCount(), 3);
    EXPECT_TRUE(block.FitsIn(QSize(200, 60)));
    EXPECT_FALSE(block.FitsIn(QSize(200, 59)));
    EXPECT_FALSE(block.FitsIn(QSize(10, 60)));
}

TEST(TextBlockTest, AWordWiderThanTheLineIsBroken) {
    const TextBlock block(QString(60, 'W'), Theme::Type::Body, 100);
    EXPECT_GT(block.LineCount(), 4);
    EXPECT_LE(block.Width(), 100);
}

class StatusTagTest : public ControlsTest {
protected:
    StatusTag m_tag{&m_window};
};

TEST_F(StatusTagTest, WidthFollowsTheCaption) {
    m_tag.SetCaption("In Storage");
    const float narrow = m_tag.Width();
    EXPECT_EQ(m_tag.height(), 20);
    m_tag.SetCaption("In Uncategorized Location");
    EXPECT_GT(m_tag.Width(), narrow);
    EXPECT_EQ(m_tag.accessibleName(), "In Uncategorized Location");
}

TEST_F(StatusTagTest, IsPaintedInItsColorWithContrastingText) {
    for (const int32_t color : {0x0000FF, 0x808080, 0x0080FF, 0x87AD24, 0x0000C0}) {
        m_tag.SetCaption("IIIIII In Storage");
        m_tag.SetColor(color);
        EXPECT_EQ(m_tag.Color(), color);
        const QImage image = Grab(m_tag);
        EXPECT_EQ(PixelAt(image, QPoint(4, 10)), Theme::FromBgr(color));
    }
}

TEST_F(StatusTagTest, ReportsTheTopOfALabelOnItsLine) {
    m_tag.SetCaption("In Storage");
    m_tag.Move(300, 600);
    EXPECT_FLOAT_EQ(m_tag.TextTop(300), 600.0f);
    m_tag.SetHeight(600);
    EXPECT_FLOAT_EQ(m_tag.TextTop(300), 750.0f);
    EXPECT_FLOAT_EQ(m_tag.TextTop(450), 675.0f);
}

}  // namespace
}  // namespace quellbrook::testing

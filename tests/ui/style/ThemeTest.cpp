#include "host/ColorTool.h"
#include "tests/ui/controls/ControlsTest.h"

#include <QApplication>
#include <QFontInfo>
#include <QToolTip>

#include <memory>

namespace quellbrook::testing {
namespace {

using Theme::Color;

struct Pair {
    const char* what;
    Color text;
    Color background;
    double least;
};

const std::vector<Pair>& Pairs() {
    static const std::vector<Pair> pairs = {
        {"text", Color::Text, Color::Window, 4.5},
        {"text on a panel", Color::Text, Color::Panel, 4.5},
        {"text on the tint", Color::Text, Color::Tint, 4.5},
        {"text on a selection without focus", Color::Text, Color::SelectedInactive, 4.5},
        {"gray text", Color::GrayText, Color::Window, 4.5},
        {"gray text on a panel", Color::GrayText, Color::Panel, 4.5},
        {"gray text on the tint", Color::GrayText, Color::Tint, 4.5},
        {"gray text on a selection without focus", Color::GrayText, Color::SelectedInactive, 4.5},
        {"main button", Color::StrongText, Color::Strong, 4.5},
        {"main button under the pointer", Color::StrongText, Color::StrongHover, 4.5},
        {"main button pressed", Color::StrongText, Color::StrongPressed, 4.5},
        {"other button under the pointer", Color::Text, Color::Panel, 4.5},
        {"other button pressed", Color::Text, Color::Hairline, 4.5},
        {"link", Color::Link, Color::Window, 4.5},
        {"link on a panel", Color::Link, Color::Panel, 4.5},
        {"link on the tint", Color::Link, Color::Tint, 4.5},
        {"selection", Color::HighlightText, Color::Highlight, 4.5},
        {"toast", Color::ToastText, Color::Toast, 4.5},
        {"secured number", Color::Secured, Color::Window, 3.75},
        {"disabled caption", Color::DisabledText, Color::DisabledGround, 3.8},
        {"disabled caption on the window", Color::DisabledText, Color::Window, 3.8},
        {"disabled caption on a panel", Color::DisabledText, Color::Panel, 3.8},
        {"border of a field", Color::FieldBorder, Color::Window, 3.0},
        {"focus ring", Color::Link, Color::Window, 3.0},
    };
    return pairs;
}

void ExpectContrasts() {
    for (const Pair& pair : Pairs())
        EXPECT_GE(Theme::Contrast(Theme::Get(pair.text), Theme::Get(pair.background)), pair.least) << pair.what;
    EXPECT_GE(Theme::Contrast(Theme::Get(Color::Text), Theme::BatchTint()), 4.5);
    EXPECT_GE(Theme::Contrast(Theme::Get(Color::GrayText), Theme::BatchTint()), 4.5);
}

class ThemeTest : public ControlsTest {};

TEST_F(ThemeTest, TheLightPaletteContrastsEnough) {
    EXPECT_FALSE(Theme::IsDark());
    ExpectContrasts();
}

TEST_F(ThemeTest, TheDarkPaletteContrastsEnough) {
    const DarkTheme dark;
    EXPECT_TRUE(Theme::IsDark());
    ExpectContrasts();
}

TEST_F(ThemeTest, SystemRolesComeFromThePalette) {
    const QPalette before = QApplication::palette();
    QPalette palette = before;
    palette.setColor(QPalette::Highlight, QColor(200, 0, 0));
    palette.setColor(QPalette::HighlightedText, QColor(255, 255, 0));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(90, 90, 90));
    QApplication::setPalette(palette);
    EXPECT_EQ(Theme::Get(Color::Highlight), QColor(200, 0, 0));
    EXPECT_EQ(Theme::Get(Color::HighlightText), QColor(255, 255, 0));
    EXPECT_EQ(Theme::Get(Color::GrayText), QColor(90, 90, 90));
    QApplication::setPalette(before);
}

TEST_F(ThemeTest, TheListRolesAreThePalettes) {
    for (const bool isDark : {false, true}) {
        std::unique_ptr<DarkTheme> dark = isDark ? std::make_unique<DarkTheme>() : nullptr;
        const QPalette palette = QApplication::palette();
        EXPECT_EQ(palette.color(QPalette::Base), Theme::Get(Color::Window));
        EXPECT_EQ(palette.color(QPalette::Text), Theme::Get(Color::Text));
        EXPECT_EQ(palette.color(QPalette::Highlight), Theme::Get(Color::Highlight));
        EXPECT_EQ(palette.color(QPalette::HighlightedText), Theme::Get(Color::HighlightText));
    }
}

TEST_F(ThemeTest, TheBatchTintIsTheAccentsShadeInALightPalette) {
    const int32_t shade = ColorTool::FromColor(0x87AD24).Shade(0.9f).ToColor();
    EXPECT_EQ(Theme::ToBgr(Theme::BatchTint()), shade);
    EXPECT_EQ(Theme::BatchTint(), QColor("#E9F7F3"));
}

TEST_F(ThemeTest, TheBatchTintMixesTowardsTheWindowByTheSameShareInADarkPalette) {
    const DarkTheme dark;
    const QColor window = Theme::Get(Color::Window);
    const QColor tint = Theme::BatchTint();
    EXPECT_NEAR(tint.red(), 0.1 * 0x24 + 0.9 * window.red(), 0.51);
    EXPECT_NEAR(tint.green(), 0.1 * 0xAD + 0.9 * window.green(), 0.51);
    EXPECT_NEAR(tint.blue(), 0.1 * 0x87 + 0.9 * window.blue(), 0.51);
}

TEST_F(ThemeTest, TagTextIsWhiteWhereThatContrastsAndInkElsewhere) {
    EXPECT_EQ(Theme::TextOn(QColor("#C00000")), QColor(Qt::white));
    EXPECT_EQ(Theme::TextOn(QColor("#1E71D6")), QColor(Qt::white));
    for (const char* background : {"#24AD87", "#FF8000", "#FF0000", "#808080"}) {
        EXPECT_EQ(Theme::TextOn(QColor(background)), QColor("#0B0F0E")) << background;
        EXPECT_GE(Theme::Contrast(Theme::TextOn(QColor(background)), QColor(background)), 4.5) << background;
    }
}

TEST_F(ThemeTest, ContrastIsSymmetricAndKnown) {
    EXPECT_NEAR(Theme::Contrast(Qt::white, Qt::black), 21.0, 0.001);
    EXPECT_NEAR(Theme::Contrast(Qt::black, Qt::white), 21.0, 0.001);
    EXPECT_NEAR(Theme::Contrast(Qt::red, Qt::red), 1.0, 0.001);
}

TEST_F(ThemeTest, FixedColorsHaveTheirLowByteRed) {
    EXPECT_EQ(Theme::FromBgr(0x0080FF), QColor(0xFF, 0x80, 0x00));
    EXPECT_EQ(Theme::ToBgr(QColor(0x24, 0xAD, 0x87)), 0x87AD24);
    EXPECT_EQ(Theme::ToBgr(Theme::FromBgr(0x123456)), 0x123456);
}

TEST_F(ThemeTest, TooltipsHaveThePaletteOfTheTheme) {
    for (const bool dark : {true, false}) {
        Theme::Install(dark);
        EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipBase),
                  QApplication::palette().color(QPalette::ToolTipBase))
            << dark;
    }
}

TEST_F(ThemeTest, TheFaceIsInter) {
    const QFont font = Theme::Font(Theme::Type::Body);
    EXPECT_EQ(font.families().front(), "Inter");
    EXPECT_GT(font.families().size(), 1);
    EXPECT_TRUE(QFontInfo(font).family().startsWith("Inter")) << QFontInfo(font).family().toStdString();
    EXPECT_EQ(QApplication::font().pixelSize(), 14);
}

TEST_F(ThemeTest, TypesHaveTheirSizesAndWeights) {
    EXPECT_EQ(Theme::Font(Theme::Type::Title).pixelSize(), 20);
    EXPECT_EQ(Theme::Font(Theme::Type::Title).weight(), QFont::DemiBold);
    EXPECT_EQ(Theme::LineHeight(Theme::Type::Title), 28);
    EXPECT_EQ(Theme::Font(Theme::Type::Section).pixelSize(), 16);
    EXPECT_EQ(Theme::Font(Theme::Type::BodyBold).weight(), QFont::Bold);
    EXPECT_EQ(Theme::Font(Theme::Type::Hint).pixelSize(), 12);
    EXPECT_EQ(Theme::LineHeight(Theme::Type::Body), 20);
}

}  // namespace
}  // namespace quellbrook::testing

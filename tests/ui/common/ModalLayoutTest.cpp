#include "ui/common/ModalLayout.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quellbrook {

namespace {

constexpr float LineHeight = 300;

// The initial parts of a form: a title strip of 48 px, a button strip of 60, an icon of 32, buttons of 96
// x 36.
ModalLayout Form(int buttons = 2, bool hasPicture = true) {
    ModalLayout layout;
    layout.width = 7500;
    layout.titlebar.height = 720;
    layout.title = {0, 180, 0, 360};
    layout.close = {0, 180, 360, 360};
    layout.icon = {0, 0, 480, 480};
    layout.message = {360, 720, 6780, 0};
    layout.buttonStrip.height = 900;
    layout.buttons.assign(static_cast<size_t>(buttons), {0, 180, 1440, 540});
    layout.hasPicture = hasPicture;
    return layout;
}

// A text of this width in one line, wrapped at a given width.
std::function<float(float)> TextOf(float textWidth) {
    return [textWidth](float width) { return LineHeight * std::ceil(textWidth / width); };
}

ModalLayout Settled(ModalLayout layout, float textWidth = 3000) {
    layout.messageHeight = TextOf(textWidth);
    layout.Settle();
    return layout;
}

float CenterOf(const Box& box) { return box.top + box.height / 2; }

}  // namespace

TEST(ModalLayout, TheFormIsAsHighAsItsStripsAndTheMessageWithItsMargin) {
    const ModalLayout layout = Settled(Form());
    EXPECT_FLOAT_EQ(layout.message.height, 300);
    EXPECT_FLOAT_EQ(layout.height, 900 + 720 + 300 + 720);
}

TEST(ModalLayout, AMessageOfOneWordLeavesRoomForTheIcon) {
    ModalLayout layout = Form();
    layout.messageHeight = [](float) { return 90.0f; };
    layout.Settle();
    EXPECT_FLOAT_EQ(layout.height, 900 + 720 + 480 + 360);
}

TEST(ModalLayout, MessageAndIconAreInTheMiddleOfTheBandRaisedByEightPixels) {
    const ModalLayout layout = Settled(Form());
    const float band = layout.buttonStrip.top - layout.titlebar.height;
    EXPECT_FLOAT_EQ(CenterOf(layout.message), 720 + band / 2 - 120);
    EXPECT_FLOAT_EQ(CenterOf(layout.icon), CenterOf(layout.message));
}

TEST(ModalLayout, WithoutAPictureTheMessageBeginsAtTheMargin) {
    const ModalLayout layout = Settled(Form(1, false));
    EXPECT_FLOAT_EQ(layout.message.left, 360);
    EXPECT_FLOAT_EQ(layout.title.left, 360);
    EXPECT_FLOAT_EQ(layout.message.width, 7500 - 360 - 360);
}

TEST(ModalLayout, APictureMovesMessageAndTitleToItsRight) {
    const ModalLayout layout = Settled(Form());
    EXPECT_FLOAT_EQ(layout.icon.left, 360);
    EXPECT_FLOAT_EQ(layout.message.left, 360 + 480 + 360);
    EXPECT_FLOAT_EQ(layout.title.left, layout.message.left);
    EXPECT_FLOAT_EQ(layout.message.width, 7500 - 1200 - 360);
    EXPECT_FLOAT_EQ(layout.title.width, layout.message.width);
}

TEST(ModalLayout, TheCloseControlKeepsTheMarginAtTheRight) {
    const ModalLayout layout = Settled(Form());
    EXPECT_FLOAT_EQ(layout.close.Right(), layout.width - 360);
}

TEST(ModalLayout, AShortTitleNeverNarrowsTheForm) {
    ModalLayout layout = Form();
    layout.titleTextWidth = 10;
    EXPECT_FLOAT_EQ(Settled(layout).width, 7500);
}

TEST(ModalLayout, ALongTitleWidensTheFormAndTheButtonsStayCentered) {
    ModalLayout layout = Form(3);
    layout.titleTextWidth = 9000;
    layout = Settled(layout);
    EXPECT_FLOAT_EQ(layout.width, 360 + 1200 + 9000 + 720 + 360);
    EXPECT_FLOAT_EQ(layout.buttons.front().left, layout.width - layout.buttons.back().Right());
    EXPECT_FLOAT_EQ(layout.close.Right(), layout.width - 360);
    EXPECT_LE(layout.title.left + layout.titleTextWidth, layout.close.left);
    EXPECT_FLOAT_EQ(layout.titlebar.width, layout.width - 30);
}

TEST(ModalLayout, TheButtonsAreInARowWithNinePixelsBetween) {
    const ModalLayout layout = Settled(Form(3));
    EXPECT_FLOAT_EQ(layout.buttons[1].left - layout.buttons[0].Right(), 135);
    EXPECT_FLOAT_EQ(layout.buttons[2].left - layout.buttons[1].Right(), 135);
    EXPECT_FLOAT_EQ(layout.buttons[0].left, (7500 - (3 * 1440 + 2 * 135)) / 2.0f);
}

TEST(ModalLayout, ALoneButtonIsInTheMiddle) {
    const ModalLayout layout = Settled(Form(1));
    EXPECT_FLOAT_EQ(layout.buttons[0].left + 720, 3750);
}

TEST(ModalLayout, TheStripsAndTheFrameFollowTheForm) {
    const ModalLayout layout = Settled(Form());
    EXPECT_EQ(layout.titlebar, (Box{15, 15, 7470, 720}));
    EXPECT_EQ(layout.buttonStrip, (Box{15, layout.height - 900 - 15, 7470, 900}));
    EXPECT_EQ(layout.border, (Box{0, 0, 7500, layout.height}));
}

TEST(ModalLayout, TheMessageIsMeasuredAtTheWidthThatItGets) {
    // 11,000 twips of text need two lines without an icon, three beside one.
    const ModalLayout layout = Settled(Form(), 11000);
    EXPECT_FLOAT_EQ(layout.message.height, 2 * LineHeight);
    EXPECT_FLOAT_EQ(layout.height, 900 + 720 + 2 * LineHeight + 720);
    const ModalLayout broken = Settled(Form(), 12600);
    EXPECT_FLOAT_EQ(broken.message.height, 3 * LineHeight);
    EXPECT_FLOAT_EQ(broken.height, 900 + 720 + 3 * LineHeight + 720);
}

TEST(ModalLayout, ATitleThatWidensTheFormLowersTheMessageAndWithItTheForm) {
    ModalLayout layout = Form();
    layout.titleTextWidth = 12000;
    layout = Settled(layout, 12600);
    EXPECT_FLOAT_EQ(layout.message.height, LineHeight);
    EXPECT_FLOAT_EQ(layout.height, 900 + 720 + LineHeight + 720);
}

TEST(ModalLayout, SettlingAgainChangesNothing) {
    ModalLayout layout = Form(3);
    layout.titleTextWidth = 9000;
    layout = Settled(layout, 50000);
    ModalLayout again = layout;
    again.Settle();
    EXPECT_FLOAT_EQ(again.width, layout.width);
    EXPECT_FLOAT_EQ(again.height, layout.height);
    EXPECT_EQ(again.message, layout.message);
    EXPECT_EQ(again.buttons, layout.buttons);
}

TEST(ModalLayout, AMessageHigherThanTheScreenDoesNotMakeTheFormSo) {
    ModalLayout layout = Form();
    layout.maxHeight = 10000;
    layout = Settled(layout, 400000);
    EXPECT_FLOAT_EQ(layout.height, 10000);
    EXPECT_TRUE(layout.MessageOverflows());
    EXPECT_FLOAT_EQ(layout.buttonStrip.Bottom(), 10000 - 15);
    EXPECT_FALSE(Settled(Form(), 12600).MessageOverflows());
}

TEST(ModalLayout, ATitleWiderThanTheScreenIsBroken) {
    ModalLayout layout = Form();
    layout.maxWidth = 12000;
    layout.titleTextWidth = 40000;
    layout.titleHeight = [](float width) { return 360 * std::ceil(40000 / width); };
    layout = Settled(layout);
    EXPECT_FLOAT_EQ(layout.width, 12000);
    EXPECT_GT(layout.title.height, 360);
    EXPECT_FLOAT_EQ(layout.titlebar.height, layout.title.height + 360);
    EXPECT_FLOAT_EQ(layout.height, 900 + layout.titlebar.height + 300 + 720);
    EXPECT_FLOAT_EQ(layout.close.Right(), layout.width - 360);
}

}  // namespace quellbrook

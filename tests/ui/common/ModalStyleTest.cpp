#include "ui/common/ModalStyle.h"

#include <gtest/gtest.h>

#include <string>

namespace quellbrook {

namespace {

// "Yes=6 No=7*": the star marks the button whose result the close control returns.
std::string ButtonsOf(int32_t style) {
    std::string text;
    for (const ModalButton& button : ModalButtons(style)) {
        if (!text.empty()) text += " ";
        text += std::string(button.caption) + "=" + std::to_string(button.result) + (button.isCancel ? "*" : "");
    }
    return text;
}

}  // namespace

TEST(ModalStyle, TheLowFourBitsChooseTheButtons) {
    EXPECT_EQ(ButtonsOf(0), "OK=1*");
    EXPECT_EQ(ButtonsOf(1), "OK=1 Cancel=2*");
    EXPECT_EQ(ButtonsOf(2), "Abort=3 Retry=4 Ignore=5*");
    EXPECT_EQ(ButtonsOf(3), "Yes=6 No=7 Cancel=2*");
    EXPECT_EQ(ButtonsOf(4), "Yes=6 No=7*");
    EXPECT_EQ(ButtonsOf(5), "Retry=4 Cancel=2*");
}

TEST(ModalStyle, AnyOtherChoiceOfButtonsIsOkAlone) {
    for (int32_t style = 6; style <= 15; ++style) EXPECT_EQ(ButtonsOf(style), "OK=1*") << style;
}

TEST(ModalStyle, TheIconBitsDoNotTouchTheButtons) {
    EXPECT_EQ(ButtonsOf(36), "Yes=6 No=7*");
    EXPECT_EQ(ButtonsOf(16), "OK=1*");
    EXPECT_EQ(ButtonsOf(256 + 5), "Retry=4 Cancel=2*");
}

TEST(ModalStyle, BitsFourToSevenChooseTheIcon) {
    EXPECT_STREQ(ModalIcon(16), "error");
    EXPECT_STREQ(ModalIcon(36), "question");
    EXPECT_STREQ(ModalIcon(48 + 5), "warning");
    for (const int32_t style : {0, 4, 64, 80, 112, 240, 256}) EXPECT_STREQ(ModalIcon(style), "") << style;
}

TEST(ModalStyle, EscClosesAllButAChoiceOfThreeDecisions) {
    for (int32_t style = 0; style <= 15; ++style) EXPECT_EQ(ModalCancelsOnEscape(style), style != 2) << style;
    EXPECT_FALSE(ModalCancelsOnEscape(16 + 2));
}

}  // namespace quellbrook

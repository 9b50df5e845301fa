#include "ui/common/ModalDialog.h"

#include "tests/support/ui/IconContrast.h"
#include "tests/ui/common/ScreenTest.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Link.h"
#include "ui/style/Theme.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

namespace quellbrook {

namespace {

using testing::Click;
using testing::Find;
using testing::FindAll;
using testing::Press;

class ModalDialog : public testing::ScreenTest {
protected:
    std::unique_ptr<frmModal> Loaded(const std::string& prompt, int32_t style, const std::string& title) {
        auto form = std::make_unique<frmModal>();
        form->SetPrompt(prompt);
        form->SetButtons(style);
        form->SetTitle(title);
        form->EnsureLoaded();
        return form;
    }

    int32_t Ask(int32_t style, std::function<void(frmModal&)> act) {
        WhenOpen<frmModal>(std::move(act));
        return ShowMessage("Go on?", style, "Question");
    }

    // "Yes|No"
    static std::string Captions(QWidget& form) {
        QStringList captions;
        for (const FlatButton* button : FindAll<FlatButton>(form, "button")) captions << button->Caption();
        return captions.join("|").toStdString();
    }

    static FlatButton* Button(QWidget& form, size_t index) { return FindAll<FlatButton>(form, "button").at(index); }
};

}  // namespace

TEST_F(ModalDialog, StyleThirtySixAsksYesOrNo) {
    const auto form = Loaded("Go on?", 36, "Question");
    EXPECT_EQ(Captions(*form), "Yes|No");
    EXPECT_EQ(Find<FontIcon>(*form, "imgIcon")->IconName(), "question");
    EXPECT_EQ(Button(*form, 0)->Tag(), "6");
    EXPECT_EQ(Button(*form, 1)->Tag(), "7");
    EXPECT_EQ(Button(*form, 1)->Index(), 1);
}

TEST_F(ModalDialog, StyleSixteenShowsTheErrorIconAndOkAlone) {
    const auto form = Loaded("It failed.", 16, "Error");
    EXPECT_EQ(Captions(*form), "OK");
    EXPECT_EQ(Find<FontIcon>(*form, "imgIcon")->IconName(), "error");
}

TEST_F(ModalDialog, StyleZeroHasNoIconAndItsMessageBeginsAtTheMargin) {
    const auto form = Loaded("Done.", 0, "Notice");
    EXPECT_EQ(Find<FontIcon>(*form, "imgIcon")->IconName(), "");
    EXPECT_FLOAT_EQ(Find<Label>(*form, "lblMessage")->Left(), 360);
}

TEST_F(ModalDialog, EachButtonReturnsItsNumber) {
    EXPECT_EQ(Ask(36, [](frmModal& form) { Click(Button(form, 0)); }), 6);
    EXPECT_EQ(Ask(36, [](frmModal& form) { Click(Button(form, 1)); }), 7);
    EXPECT_EQ(Ask(35, [](frmModal& form) { Click(Button(form, 2)); }), 2);
    EXPECT_EQ(Ask(18, [](frmModal& form) { Click(Button(form, 1)); }), 4);
}

TEST_F(ModalDialog, TheCloseControlReturnsTheCancelResult) {
    const auto close = [](frmModal& form) { Click(Find<Link>(form, "lnkClose")); };
    const std::vector<std::pair<int32_t, int32_t>> expected = {{0, 1}, {1, 2}, {2, 5}, {3, 2}, {36, 7}, {5, 2}};
    for (const auto& [style, result] : expected) EXPECT_EQ(Ask(style, close), result) << style;
}

TEST_F(ModalDialog, EscDoesWhatTheCloseControlDoes) {
    const auto escape = [](frmModal& form) { Press(&form, Qt::Key_Escape); };
    EXPECT_EQ(Ask(36, escape), 7);
    EXPECT_EQ(Ask(16, escape), 1);
    EXPECT_EQ(Ask(1, escape), 2);
}

TEST_F(ModalDialog, EscDoesNothingWhereEveryWayOnIsADecision) {
    const int32_t result = Ask(2, [](frmModal& form) {
        Press(&form, Qt::Key_Escape);
        EXPECT_TRUE(form.isVisible());
        Click(Button(form, 0));
    });
    EXPECT_EQ(result, 3);
}

TEST_F(ModalDialog, ClosingByTheWindowManagerDoesWhatTheCloseControlDoes) {
    EXPECT_EQ(Ask(36, [](frmModal& form) { form.close(); }), 7);
    EXPECT_EQ(Ask(2, [](frmModal& form) { form.close(); }), 5);
}

TEST_F(ModalDialog, TheResultIsOneUntilAControlHasClosedTheForm) {
    const auto form = Loaded("Go on?", 36, "Question");
    EXPECT_EQ(form->Result(), 1);
}

TEST_F(ModalDialog, TheFirstButtonHasTheFocusAndEnterPressesIt) {
    EXPECT_EQ(Ask(36,
                  [](frmModal& form) {
                      EXPECT_EQ(QApplication::focusWidget(), Button(form, 0));
                      Press(Qt::Key_Return);
                  }),
              6);
}

TEST_F(ModalDialog, EnterPressesTheButtonThatHasTheFocus) {
    EXPECT_EQ(Ask(36,
                  [](frmModal&) {
                      Press(Qt::Key_Tab);
                      Press(Qt::Key_Enter);
                  }),
              7);
    EXPECT_EQ(Ask(36,
                  [](frmModal&) {
                      Press(Qt::Key_Tab);
                      Press(Qt::Key_Space);
                  }),
              7);
}

TEST_F(ModalDialog, EnterThatNoButtonAcceptsAnswersNothing) {
    const auto ask = [this](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        return Ask(36, [=](frmModal& form) {
            Press(Qt::Key_Tab);
            ASSERT_EQ(QApplication::focusWidget(), Button(form, 1));
            Press(key, modifiers);
            EXPECT_TRUE(form.isVisible());
            Press(&form, Qt::Key_Return);
            EXPECT_TRUE(form.isVisible());
            Press(Qt::Key_Return);
        });
    };
    EXPECT_EQ(ask(Qt::Key_Return, Qt::ShiftModifier), 7);
    EXPECT_EQ(ask(Qt::Key_Enter, Qt::ControlModifier), 7);
}

TEST_F(ModalDialog, AHeldKeyAnswersNothing) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Y, Qt::Key_N})
        Ask(36, [key](frmModal& form) {
            QKeyEvent held(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(QApplication::focusWidget(), &held);
            EXPECT_TRUE(form.isVisible()) << key;
        });
}

// As on X11, where not every repetition of a held key is marked.
TEST_F(ModalDialog, AHeldKeyThatIsNotMarkedAsRepeatedAnswersNothing) {
    const auto send = [](QEvent::Type type, Qt::Key key, quint64 time) {
        QKeyEvent event(type, key, Qt::NoModifier);
        event.setTimestamp(time);
        QApplication::sendEvent(QApplication::focusWidget(), &event);
    };
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Y}) {
        const int32_t result = Ask(36, [&](frmModal& form) {
            send(QEvent::KeyRelease, key, 5000);
            send(QEvent::KeyPress, key, 5000);
            EXPECT_TRUE(form.isVisible()) << key;
            send(QEvent::KeyRelease, key, 5040);
            send(QEvent::KeyPress, key, 5200);
        });
        EXPECT_EQ(result, 6) << key << " is pressed again";
    }
}

TEST_F(ModalDialog, TheArrowKeysMoveBetweenTheButtons) {
    Ask(35, [](frmModal& form) {
        const auto after = [&form](Qt::Key key) {
            Press(key);
            for (size_t index = 0; index < 3; ++index)
                if (QApplication::focusWidget() == Button(form, index)) return static_cast<int>(index);
            return -1;
        };
        EXPECT_EQ(after(Qt::Key_Right), 1);
        EXPECT_EQ(after(Qt::Key_Down), 2);
        EXPECT_EQ(after(Qt::Key_Right), 0);
        EXPECT_EQ(after(Qt::Key_Left), 2);
        EXPECT_EQ(after(Qt::Key_Up), 1);
        Find<Link>(form, "lnkClose")->setFocus();
        EXPECT_EQ(after(Qt::Key_Right), -1);
    });
    EXPECT_EQ(Ask(36,
                  [](frmModal&) {
                      Press(Qt::Key_Right);
                      Press(Qt::Key_Space);
                  }),
              7);
}

TEST_F(ModalDialog, YAndNAnswerAQuestion) {
    EXPECT_EQ(Ask(36, [](frmModal&) { Press(Qt::Key_Y); }), 6);
    EXPECT_EQ(Ask(36, [](frmModal&) { Press(Qt::Key_N); }), 7);
    EXPECT_EQ(Ask(35, [](frmModal&) { Press(Qt::Key_N, Qt::ShiftModifier); }), 7);
    EXPECT_EQ(Ask(36,
                  [](frmModal& form) {
                      Find<Link>(form, "lnkClose")->setFocus();
                      Press(Qt::Key_Y);
                  }),
              6);
}

TEST_F(ModalDialog, YAndNDoNothingWithoutSuchAButtonOrWithControl) {
    Ask(1, [](frmModal& form) {
        Press(Qt::Key_Y);
        Press(Qt::Key_N);
        EXPECT_TRUE(form.isVisible());
    });
    Ask(36, [](frmModal& form) {
        Press(Qt::Key_Y, Qt::ControlModifier);
        EXPECT_TRUE(form.isVisible());
    });
}

TEST_F(ModalDialog, TheFocusMovesFromTheButtonsToTheCloseControl) {
    Ask(35, [](frmModal& form) {
        EXPECT_EQ(testing::TabOrder(form), (std::vector<std::string>{"button", "button", "button", "lnkClose"}));
    });
}

TEST_F(ModalDialog, AnEmptyTitleHidesTheTitleStrip) {
    const auto form = Loaded("Done.", 0, "");
    EXPECT_TRUE(Find<GroupBox>(*form, "grpTitlebar")->isHidden());
    EXPECT_FALSE(Find<Link>(*form, "lnkClose")->isHidden());
    EXPECT_FALSE(Find<GroupBox>(*Loaded("Done.", 0, "Notice"), "grpTitlebar")->isHidden());
}

TEST_F(ModalDialog, TheFormIsAsLargeAsItsContentBeforeItIsShown) {
    const auto form =
        Loaded("Are you sure you want to cancel this evidence transfer?", 36, "Cancel evidence transfer?");
    EXPECT_EQ(form->size(), QSize(500, 48 + 60 + 20 + 48));
    EXPECT_EQ(Find(*form, "grpTitlebar")->geometry(), QRect(1, 1, 498, 48));
    EXPECT_EQ(Find(*form, "grpButtons")->geometry(), QRect(1, 176 - 60 - 1, 498, 60));
    EXPECT_EQ(Find(*form, "shpBorder")->geometry(), form->rect());
}

TEST_F(ModalDialog, AVeryLongTitleWidensTheFormAndTheButtonsStayCentered) {
    const std::string title = "A title that is a good deal longer than the form is wide at first, and then some";
    const auto form = Loaded("Go on?", 36, title);
    const auto* label = Find<Label>(*form, "lblTitle");
    EXPECT_GT(form->width(), 500);
    EXPECT_LE(label->sizeHint().width(), label->width());
    EXPECT_LE(label->x() + label->sizeHint().width(), Find(*form, "lnkClose")->x());
    const int left = Button(*form, 0)->x();
    const int right = form->width() - Button(*form, 1)->geometry().right() - 1;
    EXPECT_NEAR(left, right, 1);
}

TEST_F(ModalDialog, ALongMessageIsBrokenAndTheFormGrowsWithIt) {
    std::string prompt;
    for (int i = 0; i < 60; ++i) prompt += "evidence ";
    const auto form = Loaded(prompt, 16, "Error");
    const auto* message = Find<Label>(*form, "lblMessage");
    EXPECT_EQ(form->width(), 500);
    EXPECT_EQ(message->height(), message->heightForWidth(message->width()));
    EXPECT_EQ(form->height(), 48 + 60 + 48 + message->height());
    EXPECT_GE(message->height(), 3 * 20);
}

TEST_F(ModalDialog, AMessageOfTenThousandCharactersScrollsOnTheScreen) {
    for (const std::string& prompt : {std::string(10000, 'x'), std::string(5000, '\n')}) {
        WhenOpen<frmModal>([](frmModal& form) {
            EXPECT_TRUE(form.screen()->availableGeometry().contains(form.frameGeometry()));
            const auto* scroll = Find<QScrollArea>(form, "scrMessage");
            const auto* message = Find<Label>(form, "lblMessage");
            EXPECT_EQ(message->height(), message->heightForWidth(message->width()));
            EXPECT_GT(message->height(), scroll->height());
            EXPECT_LE(message->width(), scroll->viewport()->width());
            EXPECT_TRUE(form.rect().contains(Find(form, "grpButtons")->geometry()));
            EXPECT_LE(scroll->geometry().bottom(), Find(form, "grpButtons")->y());
        });
        ShowMessage(prompt, 16, "Error");
    }
}

TEST_F(ModalDialog, AMessageThatScrollsDoesSoByKeyboard) {
    WhenOpen<frmModal>([](frmModal& form) {
        auto* scroll = Find<QScrollArea>(form, "scrMessage");
        EXPECT_EQ(testing::TabOrder(form), (std::vector<std::string>{"button", "scrMessage", "lnkClose"}));
        Press(Qt::Key_Tab);
        Press(Qt::Key_PageDown);
        EXPECT_GT(scroll->verticalScrollBar()->value(), 0);
    });
    ShowMessage(std::string(10000, 'x'), 16, "Error");
}

TEST_F(ModalDialog, ATitleWiderThanTheScreenIsBroken) {
    const auto form = Loaded("Go on?", 36, std::string(400, 'W'));
    EXPECT_LE(form->width(), form->screen()->availableSize().width());
    const auto* label = Find<Label>(*form, "lblTitle");
    EXPECT_EQ(label->heightForWidth(label->width()), label->height());
    EXPECT_LE(label->x() + label->width(), Find(*form, "lnkClose")->x());
}

TEST_F(ModalDialog, LineEndsOfTheMessageBreakItsLines) {
    const auto form = Loaded("One.\r\n\r\n[Two]", 16, "Error");
    EXPECT_EQ(Find<Label>(*form, "lblMessage")->Caption(), "One.\n\n[Two]");
    EXPECT_EQ(Find<Label>(*form, "lblMessage")->height(), 3 * 20);
}

TEST_F(ModalDialog, AMessageShowsItsTextItsTitleAndItsStyle) {
    WhenOpen<frmModal>([](frmModal& form) {
        EXPECT_EQ(Find<Label>(form, "lblMessage")->Caption(), "Go on?");
        EXPECT_EQ(Find<Label>(*Find(form, "grpTitlebar"), "lblTitle")->Caption(), "Question");
        EXPECT_EQ(Find<FontIcon>(form, "imgIcon")->IconName(), "question");
        EXPECT_EQ(Captions(form), "Yes|No");
        for (const char* part : {"lblMessage", "lblTitle", "imgIcon"}) EXPECT_TRUE(Find(form, part)->isVisible());
        Button(form, 0)->Click();
    });
    EXPECT_EQ(ShowMessage("Go on?", 36, "Question"), 6);
    WhenOpen<frmModal>([](frmModal& form) {
        EXPECT_EQ(Find<Label>(form, "lblMessage")->Caption(), "It failed.");
        EXPECT_EQ(Find<Label>(*Find(form, "grpTitlebar"), "lblTitle")->Caption(), "Error");
        EXPECT_EQ(Find<FontIcon>(form, "imgIcon")->IconName(), "error");
        EXPECT_EQ(Captions(form), "OK");
        Button(form, 0)->Click();
    });
    EXPECT_EQ(ShowMessage("It failed.", 16, "Error"), 1);
}

TEST_F(ModalDialog, AScreenReaderLearnsTitleAndMessage) {
    Ask(36, [](frmModal& form) {
        EXPECT_EQ(form.accessibleName(), "Question");
        EXPECT_EQ(form.accessibleDescription(), "Go on?");
        EXPECT_EQ(form.windowTitle(), "Question");
    });
    EXPECT_EQ(Find<Link>(*Loaded("Go on?", 36, "Question"), "lnkClose")->accessibleName(), "Close");
}

TEST_F(ModalDialog, ThePicturesStandOutAndDifferInBothPalettes) {
    for (const bool dark : {false, true}) {
        Theme::Install(dark);
        std::vector<QColor> colors;
        for (const int32_t style : {16, 32, 48}) {
            const auto form = Loaded("Go on?", style, "Question");
            const QRect icon = Find<FontIcon>(*form, "imgIcon")->geometry();
            const QImage picture = testing::Grab(*form);
            EXPECT_GE(testing::ContrastOfIcon(picture, icon), testing::GraphicContrast) << style << dark;
            colors.push_back(testing::ColorOfIcon(picture, icon));
        }
        EXPECT_NE(colors[0], colors[1]);
        EXPECT_NE(colors[1], colors[2]);
        EXPECT_NE(colors[0], colors[2]);
    }
    Theme::Install(false);
}

TEST_F(ModalDialog, TheFormHasNoSystemFrame) {
    const auto form = Loaded("Go on?", 36, "Question");
    EXPECT_TRUE(form->windowFlags() & Qt::FramelessWindowHint);
}

TEST_F(ModalDialog, TheFirstButtonIsTheMainOne) {
    const auto form = Loaded("Go on?", 35, "Question");
    EXPECT_FALSE(Button(*form, 0)->Inverted());
    EXPECT_TRUE(Button(*form, 1)->Inverted());
    EXPECT_TRUE(Button(*form, 2)->Inverted());
}

}  // namespace quellbrook

#include "ui/shell/InfoBar.h"

#include "core/Actions.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/Items.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"

namespace quellbrook {

namespace {

using testing::Find;
using testing::ListOf;
using testing::MakeItem;

class InfoBarTest : public testing::DatabaseTest {
protected:
    InfoBarTest() {
        m_parent.resize(1280, 800);
        m_bar = new InfoBar(&m_parent);
        testing::ShowActive(m_parent);
    }

    void Begin(int32_t type, int count) {
        auto items = std::make_shared<ObjectVector>();
        for (int id = 1; id <= count; ++id) items->Add(MakeItem(id));
        GetActions().BeginTransaction(type, items);
    }
    std::string Text() { return Find<Label>(*m_bar, "lblSelected")->Caption().toStdString(); }
    void ExpectHidden() {
        EXPECT_FALSE(m_bar->isVisible());
        EXPECT_FLOAT_EQ(m_bar->Height(), 2);
    }
    void ExpectOpen() {
        EXPECT_TRUE(m_bar->isVisible());
        EXPECT_FLOAT_EQ(m_bar->Height(), 630);
        EXPECT_EQ(m_bar->geometry(), QRect(0, 758, 1280, 42));
    }

    GroupBox m_parent;
    InfoBar* m_bar;
};

}  // namespace

TEST_F(InfoBarTest, AnEmptyBatchHidesItOnEveryView) {
    ExpectHidden();
    EXPECT_EQ(Text(), "No items currently selected");
    for (const char* view : {ViewNames::Explorer, ViewNames::ItemView, ViewNames::Cart}) {
        GetActions().NavigateTo(view, nullptr);
        ExpectHidden();
    }
}

TEST_F(InfoBarTest, OneItemToMove) {
    Begin(TransactionType::Move, 1);
    EXPECT_EQ(Text(), "1 item selected for moving within evidence storage");
    ExpectOpen();
}

TEST_F(InfoBarTest, TwelveItemsToSignIn) {
    Begin(TransactionType::SignIn, 12);
    EXPECT_EQ(Text(), "12 items selected for signing into storage");
}

TEST_F(InfoBarTest, EveryPurposeHasItsWords) {
    Begin(TransactionType::SignOut, 2);
    EXPECT_EQ(Text(), "2 items selected for signing out of storage");
    GetActions().BeginTransaction(TransactionType::Dispose, ListOf({}));
    EXPECT_EQ(Text(), "2 items selected for disposal");
    GetActions().BeginTransaction(9, ListOf({}));
    EXPECT_EQ(Text(), "2 items selected for ");
}

TEST_F(InfoBarTest, ANumberOfThousandsHasNoComma) {
    Begin(TransactionType::SignIn, 1234);
    EXPECT_EQ(Text(), "1234 items selected for signing into storage");
}

TEST_F(InfoBarTest, TheBatchViewHidesItAndGoingBackShowsItAgain) {
    GetActions().NavigateTo(ViewNames::Explorer, nullptr);
    Begin(TransactionType::SignOut, 2);
    GetActions().NavigateTo(ViewNames::Cart, nullptr);
    ExpectHidden();
    GetActions().GoBack();
    ExpectOpen();
}

TEST_F(InfoBarTest, ItIsHiddenWhileLoading) {
    Begin(TransactionType::SignOut, 2);
    GetActions().LoadingStarted();
    ExpectHidden();
    GetActions().LoadingFinished();
    ExpectOpen();
}

TEST_F(InfoBarTest, TheEndOfTheBatchHidesIt) {
    Begin(TransactionType::SignOut, 2);
    GetActions().CancelTransaction();
    ExpectHidden();
    EXPECT_EQ(Text(), "No items currently selected");
}

TEST_F(InfoBarTest, TheHostCannotChangeItsHeight) {
    Begin(TransactionType::SignOut, 2);
    m_bar->SetHeight(3000);
    EXPECT_FLOAT_EQ(m_bar->Height(), 630);
    m_bar->resize(1280, 10);
    EXPECT_FLOAT_EQ(m_bar->Height(), 630);
    m_parent.resize(1920, 1080);
    EXPECT_EQ(m_bar->geometry(), QRect(0, 1080 - 42, 1920, 42));
}

TEST_F(InfoBarTest, CancelAsksBeforeItEndsTheBatch) {
    Begin(TransactionType::SignOut, 2);
    m_screen.AnswerNext(MessageAnswer::No);
    testing::Click(Find(*m_bar, "btnCancel"));
    EXPECT_EQ(m_screen.TakeMessages(), testing::OneMessage("Are you sure you want to cancel this evidence transfer?",
                                                           36, "Cancel evidence transfer?"));
    EXPECT_FALSE(GetStores().Cart->IsEmpty());
    m_screen.AnswerNext(MessageAnswer::Yes);
    m_screen.WhileMessageOpen = [](const testing::RecordingScreen::Message&) {
        EXPECT_FALSE(GetDispatcher()->IsDispatching());
    };
    testing::Click(Find(*m_bar, "btnCancel"));
    EXPECT_TRUE(GetStores().Cart->IsEmpty());
    EXPECT_EQ(m_screen.Messages().size(), 1u);
}

TEST_F(InfoBarTest, FinishShowsTheBatchView) {
    Begin(TransactionType::SignOut, 2);
    EXPECT_EQ(Find<FlatButton>(*m_bar, "btnComplete")->Caption(), "Finish");
    EXPECT_EQ(Find<FlatButton>(*m_bar, "btnCancel")->Caption(), "Cancel");
    testing::Click(Find(*m_bar, "btnComplete"));
    EXPECT_EQ(GetStores().View->ViewName(), "cart");
}

TEST_F(InfoBarTest, ButtonsWorkByKeyboardInReadingOrder) {
    Begin(TransactionType::SignOut, 2);
    EXPECT_EQ(testing::TabOrder(m_parent), (std::vector<std::string>{"btnCancel", "btnComplete"}));
    Find(*m_bar, "btnComplete")->setFocus();
    testing::Press(Qt::Key_Return);
    EXPECT_EQ(GetStores().View->ViewName(), "cart");
}

TEST_F(InfoBarTest, ButtonsAreAtTheRightAndTheTextEndsBeforeThem) {
    Begin(TransactionType::SignOut, 2);
    for (const QSize& size : {QSize(1280, 800), QSize(420, 300)}) {
        m_parent.resize(size);
        const auto* group = Find<GroupBox>(*m_bar, "buttonGroup");
        EXPECT_FLOAT_EQ(group->Right(), m_bar->Width() - 240);
        EXPECT_LE(Find<Label>(*m_bar, "lblSelected")->Right(), group->Left());
        EXPECT_EQ(Find(*m_bar, "btnCancel")->height(), 28);
    }
}

TEST_F(InfoBarTest, NewStoresReplaceTheOldOnes) {
    Begin(TransactionType::SignOut, 2);
    const StoresRecord old = GetStores();
    DiscardDispatcher();
    DiscardStores();
    m_bar->Subscribe(GetStores());
    ExpectHidden();
    old.Cart->OnChange();
    ExpectHidden();
    Begin(TransactionType::Move, 1);
    ExpectOpen();
}

TEST_F(InfoBarTest, InADesignerItShowsItsDesign) {
    SetInsideDesigner(true);
    GroupBox parent;
    parent.resize(800, 600);
    auto* bar = new InfoBar(&parent);
    testing::ShowActive(parent);
    SetInsideDesigner(false);
    EXPECT_EQ(Find<Label>(*bar, "lblSelected")->Caption(), "NO ITEMS SELECTED");
    EXPECT_TRUE(bar->isVisible());
}

}  // namespace quellbrook

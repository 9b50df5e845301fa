#include "tests/support/Callbacks.h"
#include "tests/ui/shell/ShellTest.h"
#include "ui/common/PropertyBag.h"
#include "ui/controls/FlatTabs.h"
#include "ui/controls/FlatTitleBar.h"
#include "ui/shell/InfoBar.h"

namespace quellbrook {

namespace {

using testing::Names;

class ShellLifecycle : public testing::ShellTest {
protected:
    void AddToBatch() {
        GetActions().BeginTransaction(TransactionType::SignOut, testing::ListOf({testing::MakeItem(1)}));
    }
    bool ToastIsUp() { return Named("toastMessage")->isVisible(); }
};

}  // namespace

TEST_F(ShellLifecycle, EveryViewExistsFromTheStartAndNoneIsVisible) {
    for (const char* name : {"explorer", "cart", "itemView", "loading"}) EXPECT_FALSE(Named(name)->isVisible()) << name;
    EXPECT_EQ(m_explorer->shown, 0);
    const auto* holder = testing::Find<FlatTabs>(*m_shell, "viewHolder");
    EXPECT_EQ(holder->Count(), 4);
    EXPECT_EQ(holder->Caption(0), "Evidence Explorer");
    EXPECT_EQ(holder->Caption(2), "Item Viewer");
    EXPECT_EQ(m_itemView->parentWidget(), holder->Page(2));
    EXPECT_EQ(holder->Page(2)->objectName(), "viewHolder_Page");
}

TEST_F(ShellLifecycle, TheProductHasFiveViewsWithTheseCaptions) {
    std::vector<std::pair<std::string, std::string>> views;
    for (const ShellView& view : StandardShellViews()) views.emplace_back(view.name, view.caption);
    EXPECT_EQ(views, (std::vector<std::pair<std::string, std::string>>{{"explorer", "Evidence Explorer"},
                                                                       {"cart", "Cart"},
                                                                       {"itemView", "Item Viewer"},
                                                                       {"loading", "Loading"},
                                                                       {"submitNewEvidence", "Submit Evidence"}}));
    const EvidenceUI shell;
    const auto* holder = shell.findChild<FlatTabs*>("viewHolder");
    ASSERT_EQ(holder->Count(), 5);
    Names types;
    for (int page = 0; page < 5; ++page) {
        EXPECT_EQ(holder->Caption(page).toStdString(), views[page].second);
        const auto* view = holder->Page(page)->findChild<Control*>(QString::fromStdString(views[page].first));
        ASSERT_NE(view, nullptr) << views[page].first;
        EXPECT_EQ(view->accessibleName().isEmpty(), false);
        types.push_back(view->TypeName());
    }
    EXPECT_EQ(types, (Names{"EvidenceExplorer", "CartView", "StoredItemView", "LoadingView", "SubmitEvidenceView"}));
}

TEST_F(ShellLifecycle, CancelingInTheInfoBarReturnsTheFocusToTheView) {
    auto* outside = new QWidget(&m_host);
    outside->setFocusPolicy(Qt::StrongFocus);
    outside->setGeometry(0, 790, 10, 10);
    outside->show();
    auto* field = new QWidget(m_explorer);
    field->setFocusPolicy(Qt::StrongFocus);
    Start();
    AddToBatch();
    testing::Find(*m_shell, "btnCancel")->setFocus();
    m_screen.AnswerNext(MessageAnswer::Yes);
    testing::Press(Qt::Key_Return);
    EXPECT_FALSE(Named("infobar")->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), field);
}

TEST_F(ShellLifecycle, AfterTheInfoBarTheFocusIsWhereItWasInTheView) {
    auto* field = new QWidget(m_explorer);
    auto* list = new QWidget(m_explorer);
    for (QWidget* each : {field, list}) each->setFocusPolicy(Qt::StrongFocus);
    Start();
    AddToBatch();
    list->setFocus();
    testing::Find(*m_shell, "btnCancel")->setFocus();
    m_screen.AnswerNext(MessageAnswer::Yes);
    testing::Press(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), list);
}

TEST_F(ShellLifecycle, TheExplorerReturnsWithTheFocusWhereItWas) {
    auto* field = new QWidget(m_explorer);
    auto* list = new QWidget(m_explorer);
    for (QWidget* each : {field, list}) each->setFocusPolicy(Qt::StrongFocus);
    Start();
    EXPECT_EQ(QApplication::focusWidget(), field);
    list->setFocus();
    AddToBatch();
    testing::Find(*m_shell, "btnComplete")->setFocus();
    testing::Press(Qt::Key_Return);
    EXPECT_EQ(OnShow(), Names{"cart"});
    GetActions().GoBack();
    EXPECT_EQ(QApplication::focusWidget(), list);
    GetActions().NavigateTo("cart", nullptr);
    list->setEnabled(false);
    GetActions().GoBack();
    EXPECT_EQ(QApplication::focusWidget(), field);
}

TEST_F(ShellLifecycle, TheEndOfABatchLeavesTheFocusOutsideTheInfoBar) {
    auto* outside = new QWidget(&m_host);
    outside->setFocusPolicy(Qt::StrongFocus);
    outside->show();
    auto* field = new QWidget(m_explorer);
    field->setFocusPolicy(Qt::StrongFocus);
    Start();
    AddToBatch();
    outside->setFocus();
    GetActions().CancelTransaction();
    EXPECT_EQ(QApplication::focusWidget(), outside);
}

TEST_F(ShellLifecycle, TheTitleBarNamesTheModule) {
    EXPECT_EQ(testing::Find<FlatTitleBar>(*m_shell, "TitleBar")->Caption(), "Quellbrook");
}

TEST_F(ShellLifecycle, ComingOnShowNavigatesToTheExplorerWithinTheCall) {
    Start();
    EXPECT_EQ(GetStores().View->ViewName(), "explorer");
    EXPECT_EQ(OnShow(), Names{"explorer"});
    EXPECT_EQ(m_explorer->shown, 1);
    for (const char* name : {"cart", "itemView", "loading"}) EXPECT_FALSE(Named(name)->isVisible()) << name;
}

TEST_F(ShellLifecycle, TheViewIsShownWhileTheShellIsShown) {
    Names order;
    auto* tree = new testing::FakeView(m_explorer);
    tree->onShown = [&] { order.push_back("tree"); };
    m_explorer->onShown = [&] { order.push_back(GetDispatcher()->IsDispatching() ? "explorer" : "explorer too late"); };
    Start();
    EXPECT_EQ(order, (Names{"explorer", "tree"}));
}

TEST_F(ShellLifecycle, TheShellIsTheLastCallbackWheneverItIsShown) {
    Names served;
    const auto probe = [&served](const char* name) {
        GetDispatcher()->Register(std::make_shared<testing::FunctionCallback>(
            name, [&served, name](const Action&) { served.push_back(name); }));
    };
    m_screen.WhileMessageOpen = [&](const testing::RecordingScreen::Message&) { served.push_back("shell"); };
    probe("before");
    Start();
    served.clear();
    GetDispatcher()->Dispatch({"CART_TRANSACTION_FAILED", "x"});
    EXPECT_EQ(served, (Names{"before", "shell"}));
    m_shell->hide();
    probe("while hidden");
    m_shell->show();
    served.clear();
    GetDispatcher()->Dispatch({"CART_TRANSACTION_FAILED", "x"});
    EXPECT_EQ(served, (Names{"before", "while hidden", "shell"}));
}

TEST_F(ShellLifecycle, TheShellIsPaintedAtOnceWhenItIsShown) {
    Start();
    m_shell->hide();
    testing::PaintCounter paints(*m_shell);
    m_explorer->onShown = [&] { EXPECT_GE(paints.count, 1); };
    m_shell->show();
    EXPECT_EQ(m_explorer->shown, 2);
}

TEST_F(ShellLifecycle, AHiddenShellReceivesNoActions) {
    Start();
    m_shell->hide();
    GetActions().NotifyUser("Done");
    EXPECT_FALSE(Named("toastMessage")->IsShown());
}

TEST_F(ShellLifecycle, ADestroyedShellReceivesNoActions) {
    Start();
    const auto dispatcher = GetDispatcher();
    m_shell.reset();
    EXPECT_NO_THROW(GetActions().NotifyUser("Done"));
    EXPECT_NO_THROW(GetActions().NavigateTo("cart", nullptr));
    EXPECT_EQ(GetDispatcher(), dispatcher);
}

TEST_F(ShellLifecycle, ShownAgainItReceivesActionsAndStillShowsTheExplorer) {
    Start();
    m_shell->hide();
    m_shell->show();
    EXPECT_EQ(OnShow(), Names{"explorer"});
    GetActions().NotifyUser("Done");
    EXPECT_TRUE(ToastIsUp());
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(ShellLifecycle, HidingTheShellHidesItsViewAndShowingItShowsTheViewAgain) {
    Start();
    GetActions().NavigateTo("itemView", nullptr);
    m_shell->hide();
    EXPECT_EQ(m_itemView->hidden, 1);
    EXPECT_FALSE(m_itemView->IsShown());
    m_shell->show();
    EXPECT_EQ(OnShow(), Names{"itemView"});
    EXPECT_EQ(m_itemView->shown, 2);
    EXPECT_EQ(m_itemView->parameters.size(), 1u) << "shown in the state it had";
    EXPECT_EQ(m_explorer->shown, 1);
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(ShellLifecycle, OneViewIsVisibleAfterEachChangeThatFollowsHiding) {
    Start();
    m_shell->hide();
    m_shell->show();
    GetActions().NavigateTo("cart", nullptr);
    EXPECT_EQ(OnShow(), Names{"cart"});
    m_shell->hide();
    m_shell->show();
    GetActions().GoBack();
    EXPECT_EQ(OnShow(), Names{"explorer"});
    EXPECT_EQ(m_explorer->shown, 3);
}

TEST_F(ShellLifecycle, AChangeOfViewWhileHiddenIsShownWithTheShell) {
    Start();
    m_shell->hide();
    const auto parameters = std::make_shared<Dictionary>();
    GetActions().NavigateTo("itemView", parameters);
    EXPECT_TRUE(m_itemView->parameters.empty());
    m_shell->show();
    EXPECT_EQ(OnShow(), Names{"itemView"});
    EXPECT_EQ(m_itemView->parameters, std::vector{parameters});
    EXPECT_EQ(m_explorer->shown, 1);
    m_shell->hide();
    m_shell->show();
    EXPECT_EQ(m_itemView->parameters.size(), 1u);
}

TEST_F(ShellLifecycle, AChangeToTheSameViewWhileHiddenLoadsItsParameters) {
    Start();
    GetActions().NavigateTo("itemView", nullptr);
    m_shell->hide();
    const auto parameters = std::make_shared<Dictionary>();
    GetActions().GoBack();
    GetActions().NavigateTo("itemView", parameters);
    m_shell->show();
    EXPECT_EQ(OnShow(), Names{"itemView"});
    EXPECT_EQ(m_itemView->parameters.back(), parameters);
}

TEST_F(ShellLifecycle, AChangeWhileHiddenThatCannotBeShownLeavesTheFormerView) {
    Start();
    m_shell->hide();
    GetActions().NavigateTo("cellar", nullptr);
    EXPECT_TRUE(m_screen.Messages().empty());
    m_shell->show();
    EXPECT_EQ(m_screen.TakeMessages(), testing::OneMessage("Could not find view 'cellar'", 16, "View Not Found"));
    EXPECT_EQ(OnShow(), Names{"explorer"});
}

TEST_F(ShellLifecycle, LoadingThatEndsWhileHiddenRestoresThePointer) {
    Start();
    GetActions().LoadingStarted();
    m_shell->hide();
    GetActions().LoadingFinished();
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
    m_shell->show();
    EXPECT_EQ(OnShow(), Names{"loading"});
}

TEST_F(ShellLifecycle, LoadingWhileHiddenLeavesTheView) {
    Start();
    m_shell->hide();
    GetActions().LoadingStarted();
    EXPECT_EQ(GetMousePointer(), MousePointer::Hourglass);
    GetActions().LoadingFinished();
    m_shell->show();
    EXPECT_EQ(OnShow(), Names{"explorer"});
}

TEST_F(ShellLifecycle, AViewThatFailsWhenShownAgainIsReported) {
    Start();
    m_shell->hide();
    m_explorer->onShown = [] { Raise(1234, "View", "The shelf is empty."); };
    m_shell->show();
    EXPECT_TRUE(m_screen.Messages().empty()) << "the host may not have painted the shell yet";
    testing::ServeEvents();
    EXPECT_EQ(m_screen.TakeMessages(),
              testing::OneMessage("Could not switch to view 'explorer': Error loading view of type 'FakeView': The "
                                  "shelf is empty.",
                                  16, "View Show Error"));
    GetActions().NavigateTo("cart", nullptr);
    EXPECT_EQ(OnShow(), Names{"cart"});
}

TEST_F(ShellLifecycle, ShowingTheShellAgainLeavesTheFocusToTheHost) {
    QWidget elsewhere(&m_host);
    elsewhere.setFocusPolicy(Qt::StrongFocus);
    elsewhere.show();
    Start();
    m_shell->hide();
    elsewhere.setFocus();
    m_shell->show();
    EXPECT_EQ(QApplication::focusWidget(), &elsewhere);
}

TEST_F(ShellLifecycle, AViewShownAgainFillsTheContentOfANewSize) {
    Start();
    m_shell->hide();
    m_shell->resize(1000, 700);
    m_shell->show();
    EXPECT_EQ(m_explorer->geometry(), QRect(0, 0, 1000, 660));
}

TEST_F(ShellLifecycle, AChangeBeforeAnotherGateRunIsForgotten) {
    Start();
    m_shell->hide();
    GetActions().NavigateTo("itemView", nullptr);
    DiscardDispatcher();
    DiscardStores();
    m_shell->show();
    GetActions().NavigateTo("itemView", nullptr);
    m_shell->hide();
    m_shell->show();
    EXPECT_EQ(m_itemView->parameters.size(), 1u);
}

TEST_F(ShellLifecycle, StoresThatCannotBeBuiltAreReported) {
    HostServices::Current().SetEngine(nullptr);
    DiscardStores();
    DiscardDispatcher();
    testing::RecordingErrorLog log;
    m_environment->errorLog = &log;
    log.Announce(testing::RaisedBy([] { GetStores(); }).Source());
    Start();
    testing::ServeEvents();
    EXPECT_EQ(m_screen.TakeMessages(), testing::OneMessage("No database has been opened.", 16, "Unexpected Error"));
    GetActions().NotifyUser("Done");
    EXPECT_FALSE(Named("toastMessage")->IsShown()) << "registered before the stores";
    log.Verify();
    m_environment->errorLog = &m_log;
}

TEST_F(ShellLifecycle, DoesNotStartInADesigner) {
    SetInsideDesigner(true);
    Start();
    m_shell->hide();
    SetInsideDesigner(false);
    EXPECT_EQ(m_explorer->shown, 0);
    EXPECT_EQ(GetStores().View->ViewName(), "");
}

TEST_F(ShellLifecycle, TheContentLiesBetweenTitleBarAndInfoBarAtEverySize) {
    Start();
    for (const QSize& size : {QSize(1280, 800), QSize(1920, 1080)}) {
        m_shell->resize(size);
        EXPECT_EQ(Named("TitleBar")->geometry(), QRect(0, 0, size.width(), 40));
        EXPECT_EQ(Named("content")->geometry(), QRect(0, 40, size.width(), size.height() - 40));
        EXPECT_EQ(m_explorer->geometry(), QRect(QPoint(), Named("content")->size()));
    }
}

TEST_F(ShellLifecycle, TheInfoBarOfAnOpenBatchShrinksTheContent) {
    Start();
    AddToBatch();
    EXPECT_EQ(Named("infobar")->geometry(), QRect(0, 758, 1280, 42));
    EXPECT_EQ(Named("content")->geometry(), QRect(0, 40, 1280, 718));
    EXPECT_EQ(m_explorer->geometry(), QRect(0, 0, 1280, 718));
    GetActions().CancelTransaction();
    EXPECT_EQ(Named("content")->geometry(), QRect(0, 40, 1280, 760));
    EXPECT_EQ(m_explorer->geometry(), QRect(0, 0, 1280, 760));
}

TEST_F(ShellLifecycle, TheToastIsAboveTheInfoBarAndDoesNotShrinkTheContent) {
    Start();
    AddToBatch();
    GetActions().NotifyUser("Done");
    for (int tick = 0; tick < 100; ++tick) m_timers.Tick(10);
    EXPECT_EQ(Named("toastMessage")->geometry(), QRect(0, 710, 1280, 48));
    EXPECT_EQ(Named("infobar")->geometry(), QRect(0, 758, 1280, 42));
    EXPECT_EQ(Named("content")->geometry(), QRect(0, 40, 1280, 718));
}

TEST_F(ShellLifecycle, TheBorderStyleIsStoredInABag) {
    PropertyBag bag;
    m_shell->WriteProperties(bag);
    EXPECT_FALSE(bag.Has("BorderStyle"));
    m_shell->SetBorderStyle(1);
    m_shell->WriteProperties(bag);
    EXPECT_EQ(bag.ReadProperty("BorderStyle"), TaggedValue(1));
    m_shell->SetBorderStyle(0);
    m_shell->ReadProperties(bag);
    EXPECT_EQ(m_shell->BorderStyle(), 1);
    m_shell->ReadProperties(PropertyBag());
    EXPECT_EQ(m_shell->BorderStyle(), 0);
}

TEST_F(ShellLifecycle, ABorderStyleFramesTheShell) {
    Start();
    const auto* frame = m_shell->findChild<QWidget*>("shpBorder", Qt::FindDirectChildrenOnly);
    ASSERT_NE(frame, nullptr);
    EXPECT_TRUE(frame->isHidden());
    m_shell->SetBorderStyle(1);
    EXPECT_FALSE(frame->isHidden());
    m_shell->resize(700, 500);
    EXPECT_EQ(frame->geometry(), m_shell->rect());
}

TEST_F(ShellLifecycle, ABrokenBorderStyleIsIgnored) {
    PropertyBag bag;
    bag.WriteProperty("BorderStyle", "thick");
    EXPECT_NO_THROW(m_shell->ReadProperties(bag));
    EXPECT_EQ(m_shell->BorderStyle(), 0);
}

TEST_F(ShellLifecycle, ABorderIsALineAroundTheControl) {
    Start();
    const QColor plain = testing::PixelAt(testing::Grab(*m_shell), QPoint(0, 400));
    m_shell->setProperty("BorderStyle", 1);
    EXPECT_NE(testing::PixelAt(testing::Grab(*m_shell), QPoint(0, 400)), plain);
    EXPECT_NE(testing::PixelAt(testing::Grab(*m_shell), QPoint(1279, 400)), plain);
}

}  // namespace quellbrook

#include "tests/ui/shell/ShellTest.h"

namespace quellbrook {

namespace {

using testing::Names;

using Message = testing::RecordingScreen::Message;

class ShellViewChange : public testing::ShellTest {
protected:
    ShellViewChange() { Start(); }

    void GoTo(const char* view, std::shared_ptr<Dictionary> parameters = nullptr) {
        GetActions().NavigateTo(view, std::move(parameters));
    }
    void ExpectMessage(const std::string& prompt, const std::string& title) {
        EXPECT_EQ(m_screen.TakeMessages(), std::vector<Message>{(Message{prompt, 16, title})});
    }
};

[[noreturn]] void Fail() { Raise(1234, "View", "The shelf is empty."); }

}  // namespace

TEST_F(ShellViewChange, AViewWithoutParametersIsOnlyShown) {
    GoTo("cart");
    EXPECT_EQ(OnShow(), Names{"cart"});
    EXPECT_EQ(m_cart->shown, 1);
    EXPECT_EQ(m_explorer->hidden, 1);
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(ShellViewChange, AViewWithParametersLoadsThemWhileTheFormerOneIsStillOnShow) {
    auto parameters = std::make_shared<Dictionary>();
    m_itemView->onShow = [this] { EXPECT_EQ(OnShow(), Names{"explorer"}); };
    GoTo("itemView", parameters);
    EXPECT_EQ(m_itemView->parameters, std::vector{parameters});
    EXPECT_EQ(OnShow(), Names{"itemView"});
}

TEST_F(ShellViewChange, GoingBackLoadsTheParametersAgain) {
    auto parameters = std::make_shared<Dictionary>();
    GoTo("itemView", parameters);
    GoTo("cart");
    GetActions().GoBack();
    EXPECT_EQ(m_itemView->parameters, (std::vector{parameters, parameters}));
    EXPECT_EQ(OnShow(), Names{"itemView"});
    EXPECT_EQ(m_itemView->shown, 2);
}

TEST_F(ShellViewChange, AnUnknownNameIsReportedAndTheViewStays) {
    GoTo("cellar");
    ExpectMessage("Could not find view 'cellar'", "View Not Found");
    EXPECT_EQ(OnShow(), Names{"explorer"});
    EXPECT_EQ(GetStores().View->ViewName(), "cellar");
    GoTo("explorer");
    EXPECT_EQ(OnShow(), Names{"explorer"});
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(ShellViewChange, NamesAreComparedExactly) {
    GoTo("Cart");
    ExpectMessage("Could not find view 'Cart'", "View Not Found");
}

TEST_F(ShellViewChange, AViewInsideAViewIsNotFound) {
    (new testing::FakeView(m_explorer))->setObjectName("inner");
    GoTo("inner");
    ExpectMessage("Could not find view 'inner'", "View Not Found");
}

TEST_F(ShellViewChange, AViewThatRefusesItsTabIndexIsReported) {
    m_cart->onSetTabIndex = Fail;
    GoTo("cart");
    ExpectMessage("Could not set TabIndex to 0 for view 'cart'", "View TabIndex Error");
    EXPECT_EQ(OnShow(), Names{"explorer"});
}

TEST_F(ShellViewChange, AViewThatRefusesItsTabIndexLoadsNothing) {
    m_itemView->onSetTabIndex = Fail;
    GoTo("itemView");
    ExpectMessage("Could not set TabIndex to 0 for view 'itemView'", "View TabIndex Error");
    EXPECT_TRUE(m_itemView->parameters.empty());
}

TEST_F(ShellViewChange, AViewThatCannotLoadIsReportedAndThePreviousViewStays) {
    m_itemView->onShow = Fail;
    GoTo("itemView");
    ExpectMessage("Could not load data for view 'itemView': The shelf is empty.", "View Load Error");
    EXPECT_EQ(OnShow(), Names{"explorer"});
    EXPECT_EQ(GetStores().View->ViewName(), "itemView");
}

TEST_F(ShellViewChange, AViewThatCannotBeShownIsReportedWithItsType) {
    m_cart->onShown = Fail;
    GoTo("cart");
    ExpectMessage("Could not switch to view 'cart': Error loading view of type 'FakeView': The shelf is empty.",
                  "View Show Error");
}

TEST_F(ShellViewChange, AViewThatCannotBeShownHasTheFocusAndIsPaintedBeforeTheMessage) {
    m_cart->onShown = Fail;
    const testing::PaintCounter paints(*m_cart);
    m_screen.WhileMessageOpen = [&](const testing::RecordingScreen::Message&) {
        EXPECT_EQ(QApplication::focusWidget(), m_cart);
        EXPECT_GT(paints.count, 0);
    };
    GoTo("cart");
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u);
    EXPECT_EQ(QApplication::focusWidget(), m_cart);
}

TEST_F(ShellViewChange, AViewThatCannotLoadReplacesTheLoadingView) {
    GoTo("itemView");
    GoTo("cart");
    GetActions().LoadingStarted();
    m_itemView->onShow = Fail;
    GetActions().GoBack();
    ExpectMessage("Could not load data for view 'itemView': The shelf is empty.", "View Load Error");
    EXPECT_EQ(OnShow(), Names{"itemView"});
}

TEST_F(ShellViewChange, FromAViewThatCouldNotComeOnShowTheWayBackIsOpen) {
    m_cart->onShown = Fail;
    GoTo("cart");
    m_screen.TakeMessages();
    GetActions().GoBack();
    EXPECT_EQ(OnShow(), Names{"explorer"});
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(ShellViewChange, AnInnerViewThatCannotBeShownIsReportedToo) {
    auto* inner = new testing::FakeView(m_cart);
    inner->onShown = Fail;
    GoTo("cart");
    ExpectMessage("Could not switch to view 'cart': Error loading view of type 'FakeView': The shelf is empty.",
                  "View Show Error");
}

TEST_F(ShellViewChange, AControlThatIsNotAViewIsReportedAsAShowError) {
    GoTo("infobar");
    ExpectMessage("Could not switch to view 'infobar': Error loading view of type 'infobar': " + ErrorText(13),
                  "View Show Error");
    EXPECT_EQ(OnShow(), Names{"explorer"});
}

TEST_F(ShellViewChange, TheDispatcherContinuesAfterAFailedView) {
    m_itemView->onShow = Fail;
    GoTo("itemView");
    EXPECT_FALSE(GetDispatcher()->IsDispatching());
    GoTo("cart");
    EXPECT_EQ(OnShow(), Names{"cart"});
}

TEST_F(ShellViewChange, TheFocusIsInTheNewViewAtTheEnd) {
    auto* field = new QWidget(m_cart);
    field->setFocusPolicy(Qt::StrongFocus);
    GoTo("cart");
    EXPECT_EQ(QApplication::focusWidget(), field);
    GetActions().GoBack();
    EXPECT_EQ(QApplication::focusWidget(), m_explorer);
}

TEST_F(ShellViewChange, AViewChoosesWhatGetsTheFocus) {
    auto* first = new QWidget(m_cart);
    auto* second = new QWidget(m_cart);
    for (QWidget* field : {first, second}) field->setFocusPolicy(Qt::StrongFocus);
    m_cart->firstFocus = second;
    GoTo("cart");
    EXPECT_EQ(QApplication::focusWidget(), second);
}

TEST_F(ShellViewChange, TheViewComesBeforeTheInfoBarInTheTabOrder) {
    GetActions().BeginTransaction(TransactionType::Move, testing::ListOf({testing::MakeItem(1)}));
    auto* lateComer = new QWidget(m_itemView);
    lateComer->setObjectName("lateComer");
    lateComer->setFocusPolicy(Qt::StrongFocus);
    GoTo("itemView");
    EXPECT_EQ(m_itemView->TabIndex(), 0);
    EXPECT_EQ(testing::TabOrder(m_host), (Names{"lateComer", "btnCancel", "btnComplete"}));
}

TEST_F(ShellViewChange, LoadingShowsItsViewAndTheHourglass) {
    GetActions().LoadingStarted();
    EXPECT_EQ(OnShow(), Names{"loading"});
    EXPECT_EQ(GetMousePointer(), MousePointer::Hourglass);
    EXPECT_EQ(GetStores().View->ViewName(), "explorer");
}

TEST_F(ShellViewChange, AFailureToShowTheLoadingViewKeepsItsNumber) {
    std::vector<Error> reported;
    m_environment->reportUnexpected = [&](const Error& error) { reported.push_back(error); };
    auto* inner = new testing::FakeView(Named("loading"));
    inner->onShown = [] { Raise(1234, "Disk", "The disk is gone."); };
    GetActions().LoadingStarted();
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_EQ(reported[0].Number(), 1234);
    EXPECT_EQ(reported[0].Source(), "EvidenceUI.LoadView");
    EXPECT_EQ(reported[0].Description(), "Error loading view of type 'LoadingView': The disk is gone.");
}

TEST_F(ShellViewChange, TheEndOfLoadingLeavesItsViewWithTheArrowPointer) {
    GetActions().LoadingStarted();
    GetActions().LoadingFinished();
    EXPECT_EQ(OnShow(), Names{"loading"});
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
    GoTo("cart");
    EXPECT_EQ(OnShow(), Names{"cart"});
}

TEST_F(ShellViewChange, TheCurrentViewIsNeitherLoadedNorPaintedAgain) {
    auto* inner = new testing::FakeView(Named("loading"));
    GetActions().LoadingStarted();
    testing::PaintCounter paints(*m_shell);
    GetActions().LoadingStarted();
    EXPECT_EQ(OnShow(), Names{"loading"});
    EXPECT_EQ(inner->shown, 1);
    EXPECT_EQ(inner->hidden, 0);
    EXPECT_EQ(paints.count, 0);
}

TEST_F(ShellViewChange, TheShellIsPaintedAtOnceBeforeEachSlowStepAndAtTheEnd) {
    testing::PaintCounter paints(*m_shell);
    m_itemView->onShow = [&] { EXPECT_EQ(paints.count, 1) << "before the new view loads"; };
    m_itemView->onShown = [&] { EXPECT_EQ(paints.count, 2) << "without the previous view"; };
    GoTo("itemView");
    EXPECT_EQ(paints.count, 3);
    EXPECT_EQ(m_itemView->shown, 1);
}

TEST_F(ShellViewChange, TheShellMayGoWhileAViewLoads) {
    m_itemView->onShow = [this] { m_shell.reset(); };
    GoTo("itemView");
    EXPECT_FALSE(GetDispatcher()->IsDispatching());
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(ShellViewChange, AViewThatChangesTheViewWhileItLoadsIsNotShownOverIt) {
    m_itemView->onShow = [this] {
        testing::RaisedBy([this] { GoTo("cart"); });  // refused, since a dispatch is in progress
        GoTo("cart");
    };
    GoTo("itemView");
    EXPECT_EQ(GetStores().View->ViewName(), "cart");
    EXPECT_EQ(OnShow(), Names{"cart"});
    EXPECT_EQ(m_itemView->shown, 0);
}

TEST_F(ShellViewChange, AViewThatChangesTheViewWhileItIsShownIsNotShownBesideIt) {
    m_cart->onShown = [this] {
        testing::RaisedBy([this] { GoTo("itemView"); });  // refused, since a dispatch is in progress
        GoTo("itemView");
    };
    GoTo("cart");
    EXPECT_EQ(OnShow(), Names{"itemView"});
    EXPECT_EQ(m_cart->hidden, 1);
}

TEST_F(ShellViewChange, TheShellMayGoWhileAMessageAboutAViewIsOpen) {
    m_screen.WhileMessageOpen = [this](const Message&) { m_shell.reset(); };
    GoTo("cellar");
    ExpectMessage("Could not find view 'cellar'", "View Not Found");
}

}  // namespace quellbrook

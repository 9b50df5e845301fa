#include "tests/ui/items/CartViewTest.h"

#include "ui/common/ViewHelpers.h"
#include "ui/controls/GroupBox.h"

#include <QAbstractItemView>
#include <QTimer>

namespace quellbrook::testing {
namespace {

Messages QuestionAbout(const std::string& kind, const std::string& item) {
    return OneMessage("Do you want really want to remove the following " + kind +
                          " from the current evidence transfer?\r\n\r\n    \u2022 " + item,
                      36, "Confirm Remove");
}

TEST_F(CartViewTest, ADoubleClickOpensTheItem) {
    BeginSignOut();
    DoubleClick(Find<GroupBox>(*List(), "picContainer"), QPoint(300, 150));
    EXPECT_EQ(GetStores().View->ViewName(), ViewNames::ItemView);
    EXPECT_EQ(ToObject<StoredItem>(GetStores().View->ViewParameters()->Value("Item")), m_bar);
}

TEST_F(CartViewTest, EscapeAndAltLeftGoBackAndLeaveTheBatchOpen) {
    BeginSignOut();
    const std::vector<QWidget*> controls = {From()->findChild<QComboBox*>(), Destination()->findChild<QComboBox*>(),
                                            Cancel(), List(), Named("lnkClose")};
    for (QWidget* control : controls) {
        for (const bool withEscape : {true, false}) {
            GetActions().NavigateTo(ViewNames::Cart, nullptr);
            control->setFocus();
            ASSERT_TRUE(HasFocus(control)) << control->objectName().toStdString();
            Press(withEscape ? Qt::Key_Escape : Qt::Key_Left, withEscape ? Qt::NoModifier : Qt::AltModifier);
            EXPECT_FALSE(IsCurrent()) << control->objectName().toStdString() << " " << withEscape;
        }
    }
    EXPECT_EQ(Cart()->GetItems()->Count(), 2);
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(CartViewTest, EscapeInAnOpenDropdownClosesOnlyTheDropdown) {
    BeginSignOut();
    auto* box = From()->findChild<QComboBox*>();
    box->setFocus();
    for (const auto modifier : {Qt::NoModifier, Qt::AltModifier}) {
        box->showPopup();
        ASSERT_TRUE(box->view()->isVisible());
        Press(box->view(), modifier ? Qt::Key_Left : Qt::Key_Escape, modifier);
        if (modifier == Qt::NoModifier) {
            EXPECT_FALSE(box->view()->isVisible());
        }
        EXPECT_TRUE(IsCurrent());
    }
}

TEST_F(CartViewTest, AfterALookAtAnItemTheListHasTheFocusAndTheSameRow) {
    BeginSignOut();
    EXPECT_EQ(m_view->FirstFocus(), m_view);
    Click(Find<GroupBox>(*List(), "picContainer"), QPoint(300, 150));
    Press(List(), Qt::Key_Return);
    GetActions().GoBack();
    TrySetFocus(From());
    TrySetFocus(m_view->FirstFocus());
    EXPECT_TRUE(HasFocus(List()));
    EXPECT_TRUE(List()->Rows()[1]->Focused());
    EXPECT_EQ(m_view->FirstFocus(), m_view) << "the next visit starts with the form";
}

TEST_F(CartViewTest, ANewBatchStartsWithTheForm) {
    BeginSignOut();
    Press(List(), Qt::Key_Return);
    GetActions().CancelTransaction();
    BeginSignOut();
    EXPECT_EQ(m_view->FirstFocus(), m_view);
}

TEST_F(CartViewTest, TheSelectedRowStaysSelectedWhenTheBatchChanges) {
    BeginSignOut();
    Click(Find<GroupBox>(*List(), "picContainer"), QPoint(300, 150));
    const StoredItemRef phone = AddProperty("2026-0417-04", "Telephone", shelf);
    GetActions().AddToCart(ListOf({phone}));
    EXPECT_EQ(List()->SelectedItem(), m_bar);
    GetActions().RemoveFromCart(m_laptop);
    EXPECT_EQ(List()->SelectedItem(), m_bar);
    EXPECT_TRUE(List()->Rows()[0]->Focused());
    GetActions().RemoveFromCart(m_bar);
    EXPECT_EQ(List()->SelectedItem(), phone);
}

TEST_F(CartViewTest, AChangeOfTheBatchLeavesTheFocusInItsField) {
    BeginSignOut();
    const StoredItemRef phone = AddProperty("2026-0417-04", "Telephone", shelf);
    By()->findChild<QComboBox*>()->setFocus();
    GetActions().AddToCart(ListOf({phone}));
    EXPECT_TRUE(HasFocus(By()));
    EXPECT_FALSE(List()->Rows()[0]->Focused());
}

TEST_F(CartViewTest, TheMenuOffersOpenByDefaultWhichDoesNothing) {
    BeginSignOut();
    const auto* menu = Find<QMenu>(*m_view, "mnuItems");
    EXPECT_EQ(menu->title(), "Items");
    QStringList entries;
    for (const QAction* entry : menu->actions()) entries += entry->isSeparator() ? "-" : entry->text();
    EXPECT_EQ(entries, (QStringList{"Open", "-", "Remove from this batch"}));
    EXPECT_TRUE(Entry("mnuGroup")->isSeparator());

    bool opened = false;
    QObject::connect(menu, &QMenu::aboutToShow, m_view, [&] {
        QTimer::singleShot(0, m_view, [&] {
            auto* shown = Find<QMenu>(*m_view, "mnuItems");
            opened = shown->isVisible() && shown->defaultAction() == Entry("mnuOpen");
            QTest::keyClick(shown, Qt::Key_Down);
            QTest::keyClick(shown, Qt::Key_Return);
        });
    });
    RightClick(Find<GroupBox>(*List(), "picContainer"), QPoint(300, 150));
    EXPECT_TRUE(opened);
    EXPECT_EQ(List()->SelectedItem(), m_bar);
    EXPECT_TRUE(IsCurrent());
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(CartViewTest, RemovingAsksAndRemovesTheItem) {
    BeginSignOut();
    m_screen.AnswerNext(MessageAnswer::Yes);
    Entry("mnuRemove")->trigger();
    EXPECT_EQ(m_screen.TakeMessages(), QuestionAbout("property", "2026-0417-03 ('Laptop computer')"));
    EXPECT_FALSE(Cart()->IsItemInCart(m_laptop));
    EXPECT_TRUE(Cart()->IsItemInCart(m_bar));
    EXPECT_EQ(Text("lblItemCount"), " (1)");
    EXPECT_EQ(List()->SelectedItem(), m_bar);
    EXPECT_TRUE(IsCurrent());
}

TEST_F(CartViewTest, RemovingWithoutASelectedItemIsUnexpected) {
    std::vector<int32_t> reported;
    m_environment->reportUnexpected = [&](const Error& error) { reported.push_back(error.Number()); };
    Entry("mnuRemove")->trigger();
    EXPECT_EQ(reported, std::vector<int32_t>{ErrorNumber::NullObject});
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(CartViewTest, TheQuestionNamesAVehicle) {
    const StoredItemRef car = AddVehicle("KTR4821", shelf);
    Begin(TransactionType::SignOut, {car, m_bar});
    m_screen.AnswerNext(MessageAnswer::No);
    Entry("mnuRemove")->trigger();
    EXPECT_EQ(m_screen.TakeMessages(), QuestionAbout("vehicle", car->DisplayID() + " ('" + car->Description() + "')"));
    EXPECT_TRUE(Cart()->IsItemInCart(car));
}

TEST_F(CartViewTest, AnyAnswerButYesKeepsTheItem) {
    BeginSignOut();
    for (const int32_t answer : {MessageAnswer::No, MessageAnswer::Cancel}) {
        m_screen.AnswerNext(answer);
        Entry("mnuRemove")->trigger();
        EXPECT_EQ(Cart()->GetItems()->Count(), 2);
    }
}

TEST_F(CartViewTest, AViewThatIsDestroyedBehindItsQuestionRemovesNothing) {
    BeginSignOut();
    m_screen.WhileMessageOpen = [&](const RecordingScreen::Message&) { delete m_view; };
    m_screen.AnswerNext(MessageAnswer::Yes);
    Entry("mnuRemove")->trigger();
    EXPECT_EQ(Cart()->GetItems()->Count(), 2);
}

TEST_F(CartViewTest, RemovingTheLastItemEndsTheTransferAndGoesBack) {
    Begin(TransactionType::SignOut, {m_laptop});
    m_screen.AnswerNext(MessageAnswer::Yes);
    Entry("mnuRemove")->trigger();
    EXPECT_EQ(m_screen.TakeMessages(), QuestionAbout("property", "2026-0417-03 ('Laptop computer')"));
    EXPECT_EQ(Cart()->GetTransactionType(), TransactionType::None);
    EXPECT_FALSE(IsCurrent());
}

TEST_F(CartViewTest, AnItemCanBeRemovedThroughTheMenuItself) {
    BeginSignOut();
    const auto* menu = Find<QMenu>(*m_view, "mnuItems");
    QObject::connect(menu, &QMenu::aboutToShow, m_view, [&] {
        QTimer::singleShot(0, m_view, [&] {
            auto* shown = Find<QMenu>(*m_view, "mnuItems");
            shown->setActiveAction(Entry("mnuRemove"));
            QTest::keyClick(shown, Qt::Key_Return);
        });
    });
    m_screen.AnswerNext(MessageAnswer::Yes);
    RightClick(List()->Rows()[1]->findChild<Label*>("lblID"));
    ServeEvents();
    EXPECT_FALSE(Cart()->IsItemInCart(m_bar));
    EXPECT_EQ(List()->Rows().front()->Item(), m_laptop);
}

}  // namespace
}  // namespace quellbrook::testing

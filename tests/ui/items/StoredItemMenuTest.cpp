#include "ui/items/StoredItemMenu.h"

#include "core/Actions.h"
#include "data/BarcodeText.h"
#include "tests/support/Callbacks.h"
#include "tests/support/LabelServices.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ui/SmallDepartment.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Link.h"
#include "ui/platform/Twips.h"
#include "ui/style/TextBlock.h"

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class StoredItemMenuTest : public SmallDepartment {
protected:
    StoredItemMenuTest() {
        m_laptop = AddProperty("2026-0417-03", "Laptop computer", shelf);
        m_other = AddProperty("2026-0417-04", "Camera", shelf);
        m_window.resize(1280, 200);
        m_menu = new StoredItemMenu(&m_window);
        m_menu->SetWidth(ToTwips(1280));
        GetStores();
        GetDispatcher()->Register(m_actions);
        ShowActive(m_window);
        m_menu->SetItem(m_laptop);
    }

    Link* LinkNo(size_t index) { return FindAll<Link>(*m_menu, "lnkMenu").at(index); }
    Link* Undo() { return Find<Link>(*m_menu, "lnkUndo"); }
    Control* Named(const char* name) { return Find<Control>(*m_menu, name); }
    QString Text(const char* name) { return Find<Label>(*m_menu, name)->Caption(); }

    // The captions of the visible links from left to right.
    std::vector<std::string> Offered() {
        std::vector<std::string> captions;
        for (const size_t index : {1u, 2u, 3u, 4u, 0u}) {
            const Link* link = LinkNo(index);
            EXPECT_EQ(link->isVisible(), link->isEnabled());
            if (link->isVisible()) captions.push_back(link->Caption().toStdString());
        }
        return captions;
    }
    bool IsStripShown() {
        const bool isShown = Undo()->isVisible();
        for (const char* name : {"shpMessage", "shpStatus", "lblStatus", "lblMessage"})
            EXPECT_EQ(Named(name)->isVisible(), isShown) << name;
        return isShown;
    }

    void Begin(int32_t type, std::initializer_list<ObjectRef> items) {
        GetActions().BeginTransaction(type, ListOf(items));
    }

    QWidget m_window;
    StoredItemMenu* m_menu = nullptr;
    StoredItemRef m_laptop, m_other;
    std::shared_ptr<RecordingCallback> m_actions = std::make_shared<RecordingCallback>();
};

TEST_F(StoredItemMenuTest, OffersTheAllowedTasks) {
    EXPECT_THAT(Offered(), ElementsAre("SIGN THIS ITEM OUT", "MOVE THIS ITEM", "DISPOSE THIS ITEM", "PRINT BARCODE"));
    EXPECT_FALSE(IsStripShown());
    m_menu->SetItem(AddProperty("E-2", "Pry bar", crimeLab));
    EXPECT_THAT(Offered(), ElementsAre("SIGN THIS ITEM IN", "PRINT BARCODE"));
}

TEST_F(StoredItemMenuTest, AnItemWithoutALocationCanOnlyBeSignedInAndPrinted) {
    const StoredItemRef item = FindItem(StoredItemTypes::Property, m_database.AddProperty());
    m_session->GrantNothing();
    m_menu->SetItem(item);
    EXPECT_THAT(Offered(), ElementsAre("SIGN THIS ITEM IN", "PRINT BARCODE"));
}

TEST_F(StoredItemMenuTest, WithoutRightsTheBarIsEmptyButKeepsItsHeight) {
    m_session->GrantNothing();
    m_menu->SetItem(m_laptop);
    EXPECT_THAT(Offered(), IsEmpty());
    EXPECT_FALSE(IsStripShown());
    EXPECT_EQ(m_menu->Height(), ToTwips(44));
}

TEST_F(StoredItemMenuTest, AClickOnATaskBeginsATransactionWithTheItem) {
    const StoredItemRef away = AddProperty("E-2", "Pry bar", crimeLab);
    for (const int32_t type :
         {TransactionType::SignOut, TransactionType::SignIn, TransactionType::Move, TransactionType::Dispose}) {
        m_menu->SetItem(type == TransactionType::SignIn ? away : m_laptop);
        Click(LinkNo(static_cast<size_t>(type)));
        EXPECT_EQ(Cart()->GetTransactionType(), type);
        ASSERT_EQ(Cart()->GetItems()->Count(), 1);
        EXPECT_EQ(Cart()->GetItems()->ItemAt(0), type == TransactionType::SignIn ? away : m_laptop);
        EXPECT_EQ(GetStores().View->ViewName(), "") << "the batch is not opened";
        GetActions().CancelTransaction();
    }
}

TEST_F(StoredItemMenuTest, AnItemAloneInTheBatchIsPending) {
    const struct {
        int32_t type;
        const char* status;
        const char* message;
    } cases[] = {
        {TransactionType::SignOut, "SIGN OUT PENDING", "This item is in your current sign-out batch."},
        {TransactionType::SignIn, "SIGN IN PENDING", "This item is in your current sign-in batch."},
        {TransactionType::Move, "MOVE PENDING", "This item is being moved elsewhere in your on-site evidence storage."},
        {TransactionType::Dispose, "DISPOSAL PENDING", "This item has been marked for disposal."},
    };
    for (const auto& [type, status, message] : cases) {
        Begin(type, {m_laptop});
        EXPECT_TRUE(IsStripShown());
        EXPECT_EQ(Text("lblStatus"), status);
        EXPECT_EQ(Text("lblMessage"), message);
        EXPECT_THAT(Offered(), ElementsAre("PRINT BARCODE"));
        GetActions().CancelTransaction();
        EXPECT_FALSE(IsStripShown());
        EXPECT_EQ(Offered().size(), 4u);
    }
}

TEST_F(StoredItemMenuTest, TheSentenceCountsTheWholeBatch) {
    Begin(TransactionType::SignOut, {m_laptop, m_other});
    EXPECT_EQ(Text("lblMessage"), "This item is in your current sign-out batch, along with 2 other items.");
    GetActions().AddToCart(ListOf({AddProperty("E-2", "Pry bar", shelf)}));
    EXPECT_EQ(Text("lblMessage"), "This item is in your current sign-out batch, along with 3 other items.");
}

TEST_F(StoredItemMenuTest, WithAnOpenMoveBatchAnotherItemCanOnlyBeMoved) {
    Begin(TransactionType::Move, {m_other});
    EXPECT_FALSE(IsStripShown());
    EXPECT_THAT(Offered(), ElementsAre("MOVE THIS ITEM", "PRINT BARCODE"));
    Click(LinkNo(TransactionType::Move));
    EXPECT_EQ(Cart()->GetTransactionType(), TransactionType::Move);
    EXPECT_EQ(Cart()->GetItems()->Count(), 2);
    EXPECT_TRUE(IsStripShown());
}

TEST_F(StoredItemMenuTest, AnOutageIsReportedOnceAndTheBarFollowsTheBatch) {
    m_log.Announce("Engine");
    m_session->atQuestion = [] { Raise(ErrorNumber::General, "Engine", "The link is down."); };
    Click(LinkNo(TransactionType::Move));
    EXPECT_EQ(m_screen.TakeMessages(), OneMessage("The link is down.", 16, "Unexpected Error"));
    EXPECT_TRUE(IsStripShown());
    EXPECT_EQ(Text("lblStatus"), "MOVE PENDING");
    EXPECT_THAT(Offered(), ElementsAre("PRINT BARCODE"));
    EXPECT_EQ(QApplication::focusWidget(), Undo());
    EXPECT_GT(Undo()->Left(), Named("shpMessage")->Right());

    m_log.Announce("Engine");
    m_screen.AnswerNext(MessageAnswer::Yes);
    Click(Undo());
    EXPECT_EQ(m_screen.TakeMessages().size(), 2u) << "a question and an error";
    EXPECT_FALSE(IsStripShown());
    EXPECT_THAT(Offered(), ElementsAre("PRINT BARCODE"));

    m_session->atQuestion = nullptr;
    m_menu->SetItem(m_laptop);
    EXPECT_EQ(Offered().size(), 4u);
}

TEST_F(StoredItemMenuTest, UndoAsksAndRemovesTheItem) {
    Begin(TransactionType::SignOut, {m_laptop, m_other});
    m_screen.AnswerNext(MessageAnswer::No);
    Click(Undo());
    EXPECT_EQ(m_screen.TakeMessages(),
              (std::vector<RecordingScreen::Message>{
                  {"Are you sure you want to remove this item from the current evidence transfer batch?", 36,
                   "Remove this item from the current batch?"}}));
    EXPECT_EQ(Cart()->GetItems()->Count(), 2);
    EXPECT_TRUE(IsStripShown());
    m_screen.AnswerNext(MessageAnswer::Yes);
    Click(Undo());
    m_screen.TakeMessages();
    EXPECT_FALSE(Cart()->IsItemInCart(m_laptop));
    EXPECT_TRUE(Cart()->IsItemInCart(m_other));
    EXPECT_FALSE(IsStripShown());
    EXPECT_THAT(Offered(), ElementsAre("SIGN THIS ITEM OUT", "PRINT BARCODE"));
}

TEST_F(StoredItemMenuTest, UndoOfTheOnlyItemEndsTheTransaction) {
    Begin(TransactionType::SignOut, {m_laptop});
    m_screen.AnswerNext(MessageAnswer::Yes);
    Click(Undo());
    m_screen.TakeMessages();
    EXPECT_EQ(Cart()->GetTransactionType(), TransactionType::None);
    EXPECT_EQ(Offered().size(), 4u);
}

TEST_F(StoredItemMenuTest, UndoRemovesTheItemOfTheQuestion) {
    Begin(TransactionType::SignOut, {m_laptop, m_other});
    m_screen.AnswerNext(MessageAnswer::Yes);
    m_screen.WhileMessageOpen = [this](const auto&) { m_menu->SetItem(m_other); };
    Click(Undo());
    m_screen.TakeMessages();
    EXPECT_FALSE(Cart()->IsItemInCart(m_laptop));
    EXPECT_TRUE(Cart()->IsItemInCart(m_other));
}

TEST_F(StoredItemMenuTest, TheBarCanBeDestroyedWhileTheQuestionIsOpen) {
    Begin(TransactionType::SignOut, {m_laptop});
    m_screen.AnswerNext(MessageAnswer::Yes);
    Link* undo = Undo();
    m_screen.WhileMessageOpen = [this](const auto&) { delete std::exchange(m_menu, nullptr); };
    undo->Click();
    m_screen.TakeMessages();
    EXPECT_TRUE(Cart()->IsEmpty());
}

TEST_F(StoredItemMenuTest, PrintingShowsWhereTheLabelWent) {
    LabelServices labels;
    Click(LinkNo(0));
    ASSERT_EQ(labels.printer->labels.size(), 1u);
    EXPECT_EQ(labels.printer->labels[0].barcodes.at(0).text, MakeBarcodeText("P", m_laptop->ID()));
    EXPECT_THAT(m_actions->Notices(), ElementsAre("Sent 1 label to the printer 'Front Desk'."));
}

TEST_F(StoredItemMenuTest, TheBarCanBeDestroyedWhileItPrints) {
    class DestroyingPrinter : public LabelPrinter {
    public:
        explicit DestroyingPrinter(std::function<void()> destroy) : m_destroy(std::move(destroy)) {}
        void Print(const FilledLabel&) override {
            m_destroy();
            Raise(ErrorNumber::General, "DestroyingPrinter", "Out of labels.");
        }
        std::string Destination() const override { return "nowhere"; }

    private:
        std::function<void()> m_destroy;
    };
    LabelServices labels;
    HostServices::Current().SetPrinter(std::make_shared<DestroyingPrinter>([this] {
        delete std::exchange(m_menu, nullptr);
        m_laptop.reset();
    }));
    LinkNo(0)->Click();
    EXPECT_EQ(m_screen.TakeMessages(),
              OneMessage("Error printing barcode label for property '2026-0417-03': Out of labels.", 16, "Error"));
}

TEST_F(StoredItemMenuTest, AFailureToReportAPrintedLabelIsNoFailureToPrint) {
    LabelServices labels;
    GetDispatcher()->Register(std::make_shared<FunctionCallback>("Failing", [](const Action& action) {
        if (action.ActionType == ActionTypes::NOTIFY_USER) Raise(ErrorNumber::General, "Failing", "No toast today.");
    }));
    int reported = 0;
    m_environment->reportUnexpected = [&](const Error&) { ++reported; };
    Click(LinkNo(0));
    EXPECT_EQ(labels.printer->labels.size(), 1u);
    EXPECT_EQ(reported, 1);
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(StoredItemMenuTest, AFailureToPrintIsReported) {
    LabelServices labels;
    labels.printer->refusal = "Out of labels.";
    Click(LinkNo(0));
    EXPECT_EQ(m_screen.TakeMessages(),
              (std::vector<RecordingScreen::Message>{
                  {"Error printing barcode label for property '2026-0417-03': Out of labels.", 16, "Error"}}));
    EXPECT_THAT(m_actions->Notices(), IsEmpty());
    EXPECT_EQ(Offered().size(), 4u);
}

TEST_F(StoredItemMenuTest, AFailureToBeginATransactionIsReported) {
    GetDispatcher()->Register(std::make_shared<FunctionCallback>("Failing", [](const Action& action) {
        if (action.ActionType == ActionTypes::CART_SET_TRANSACTION_TYPE)
            Raise(ErrorNumber::General, "Failing", "No batch today.");
    }));
    Click(LinkNo(TransactionType::SignOut));
    EXPECT_EQ(m_screen.TakeMessages(), OneMessage("Error executing callback 'Failing': No batch today.", 16, "Error"));
    EXPECT_FALSE(IsStripShown());
}

TEST_F(StoredItemMenuTest, WithoutAnItemEachCommandIsAnError) {
    m_menu->hide();
    auto* bar = new StoredItemMenu(&m_window);
    bar->SetWidth(ToTwips(1280));
    bar->show();
    const RecordingScreen::Message message{ErrorText(ErrorNumber::NullObject), 16, "Error"};
    for (Link* link : FindAll<Link>(*bar, "lnkMenu")) {
        link->Click();
        EXPECT_THAT(m_screen.TakeMessages(), ElementsAre(message));
    }
    std::vector<int32_t> reported;
    m_environment->reportUnexpected = [&](const Error& error) { reported.push_back(error.Number()); };
    Find<Link>(*bar, "lnkUndo")->Click();
    EXPECT_THAT(reported, ElementsAre(ErrorNumber::NullObject));
    EXPECT_EQ(Cart()->GetTransactionType(), TransactionType::None);
}

TEST_F(StoredItemMenuTest, FollowsTheStoresOfTheLatestItem) {
    Begin(TransactionType::SignOut, {m_laptop});
    DiscardDispatcher();
    DiscardStores();
    GetStores();
    m_menu->SetItem(m_laptop);
    EXPECT_FALSE(IsStripShown());
    Begin(TransactionType::Move, {m_laptop});
    EXPECT_EQ(Text("lblStatus"), "MOVE PENDING");
}

TEST_F(StoredItemMenuTest, AFailureToRemoveIsUnexpected) {
    Begin(TransactionType::SignOut, {m_laptop, m_other});
    GetDispatcher()->Register(std::make_shared<FunctionCallback>("Failing", [](const Action& action) {
        if (action.ActionType == ActionTypes::CART_REMOVE_ITEMS) Raise(ErrorNumber::General, "Failing", "Not now.");
    }));
    std::vector<std::string> reported;
    m_environment->reportUnexpected = [&](const Error& error) { reported.push_back(error.Description()); };
    m_screen.AnswerNext(MessageAnswer::Yes);
    Click(Undo());
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_THAT(reported[0], ::testing::HasSubstr("Not now."));
    EXPECT_EQ(m_screen.TakeMessages().size(), 1u) << "the question alone";
}

TEST_F(StoredItemMenuTest, RefusesNoItem) {
    EXPECT_EQ(RaisedBy([&] { m_menu->SetItem(nullptr); }).Number(), ErrorNumber::NullObject);
}

TEST_F(StoredItemMenuTest, TheLinksCloseUpFromTheLeftAndPrintingIsAtTheRight) {
    const auto expectLayout = [this](const std::vector<size_t>& links) {
        float left = 300;
        for (const size_t index : links) {
            EXPECT_EQ(LinkNo(index)->Left(), left) << index;
            left = LinkNo(index)->Right() + 280;
        }
        EXPECT_EQ(LinkNo(0)->Right(), m_menu->Width() - 150);
        for (const size_t index : {0u, 1u, 2u, 3u, 4u})
            EXPECT_EQ(LinkNo(index)->Top(), (m_menu->Height() - LinkNo(index)->Height()) / 2);
    };
    expectLayout({1, 3, 4});
    m_menu->SetWidth(ToTwips(900));
    expectLayout({1, 3, 4});
    Begin(TransactionType::Dispose, {m_other});
    expectLayout({4});
}

TEST_F(StoredItemMenuTest, ItsCaptionsAreSemiBold) {
    const QFont font = Theme::Font(Theme::Type::StripCaption);
    EXPECT_EQ(font.weight(), QFont::DemiBold);
    for (const Link* link : FindAll<Link>(*m_menu, "lnkMenu"))
        EXPECT_EQ(link->width(), 22 + TextWidth(font, link->Caption())) << link->Caption().toStdString();
    EXPECT_EQ(Undo()->width(), TextWidth(font, "UNDO"));
    EXPECT_EQ(Find<Label>(*m_menu, "lblStatus")->Type(), Theme::Type::StripCaption);
}

TEST_F(StoredItemMenuTest, TheStatusStripBeginsWhereTheFirstLinkWould) {
    Begin(TransactionType::SignOut, {m_laptop});
    const Control& strip = *Named("shpMessage");
    const Control& status = *Named("lblStatus");
    const Control& message = *Named("lblMessage");
    const float margin = (strip.Height() - status.Height()) / 2;
    EXPECT_GT(margin, 0);
    EXPECT_EQ(strip.Left(), 300);
    EXPECT_EQ(strip.Top(), 0);
    EXPECT_EQ(strip.Height(), m_menu->Height() - TwipsPerPixel);
    EXPECT_EQ(status.Left(), 300);
    EXPECT_EQ(message.Left(), status.Right() + 60);
    EXPECT_EQ(strip.Right(), message.Right() + margin);
    EXPECT_EQ(Undo()->Left(), strip.Right() + 30);
    for (const Control* part : std::initializer_list<const Control*>{&status, &message, Undo()})
        EXPECT_EQ(part->Top(), margin);
    EXPECT_EQ(Named("shpStatus")->geometry(), QRect(status.x(), 0, status.width(), strip.height()));
}

TEST_F(StoredItemMenuTest, InANarrowBarTheSentenceIsCutBeforeUndoAndPrinting) {
    Begin(TransactionType::Move, {m_laptop, m_other});
    m_menu->SetWidth(ToTwips(700));
    const auto* message = Find<Label>(*m_menu, "lblMessage");
    EXPECT_LT(message->width(), message->sizeHint().width());
    EXPECT_GT(message->width(), 100);
    EXPECT_EQ(Undo()->Right() + 280, LinkNo(0)->Left());
    m_session->Revoke(GetPermissions().PRINT_BARCODE_LABELS());
    m_menu->SetItem(m_laptop);
    EXPECT_EQ(Undo()->Right() + 280, m_menu->Width() - 150);
}

TEST_F(StoredItemMenuTest, TheFocusFollowsFromTheTaskToUndoAndBack) {
    LinkNo(TransactionType::Move)->setFocus();
    Press(Qt::Key_Return);
    EXPECT_EQ(m_window.focusWidget(), Undo());
    m_screen.AnswerNext(MessageAnswer::Yes);
    Press(Qt::Key_Space);
    m_screen.TakeMessages();
    EXPECT_EQ(m_window.focusWidget(), LinkNo(TransactionType::Move));
}

TEST_F(StoredItemMenuTest, AChangeOfTheBatchTakesNoFocusFromElsewhere) {
    QWidget elsewhere(&m_window);
    elsewhere.setFocusPolicy(Qt::StrongFocus);
    elsewhere.show();
    elsewhere.setFocus();
    Begin(TransactionType::SignOut, {m_laptop});
    EXPECT_EQ(m_window.focusWidget(), &elsewhere);
}

TEST_F(StoredItemMenuTest, PrintingIsTheLastTabStop) {
    std::vector<Control*> order;
    for (QWidget* next = m_window.nextInFocusChain(); next != &m_window; next = next->nextInFocusChain())
        if (auto* link = qobject_cast<Link*>(next)) order.push_back(link);
    EXPECT_THAT(order, ElementsAre(Undo(), LinkNo(1), LinkNo(2), LinkNo(3), LinkNo(4), LinkNo(0)));
}

TEST_F(StoredItemMenuTest, ABarWithoutAnItemHasTheCaptionsOfItsDesign) {
    StoredItemMenu menu;
    EXPECT_EQ(Find<Label>(menu, "lblStatus")->Caption(), "Unknown");
    EXPECT_EQ(Find<Label>(menu, "lblMessage")->Caption(), "This item is part of an in-progress evidence transfer.");
    EXPECT_EQ(Find<Link>(menu, "lnkUndo")->Caption(), "UNDO");
}

}  // namespace
}  // namespace quellbrook::testing

#include "core/ActionTypes.h"
#include "core/Actions.h"
#include "core/Stores.h"
#include "data/BarcodeText.h"
#include "data/StorageLocationStatic.h"
#include "data/TransferStatements.h"
#include "host/HostDatabase.h"
#include "host/HostLocationData.h"
#include "tests/app/MainWindowTest.h"
#include "tests/support/Items.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/ui/Scanner.h"
#include "ui/common/Dialogs.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/ListView.h"
#include "ui/explorer/EvidenceExplorer.h"
#include "ui/explorer/LocationView.h"
#include "ui/locations/SetupLocationsForm.h"
#include "ui/platform/Guard.h"

#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QTreeWidget>

#include <functional>
#include <optional>

namespace quellbrook::testing {
namespace {

// The component's screen, but records plain messages instead of showing them.
class ScreenWithPlainMessages : public WizardScreen {
public:
    void ShowPlainMessage(const std::string& text, const std::string&) override { plainMessages.push_back(text); }

    std::vector<std::string> plainMessages;
};

class PlainForm : public ModuleForm {
public:
    PlainForm() : field(new QLineEdit(this)) {
        resize(300, 200);
        field->setAccessibleName("field");
    }

    QLineEdit* const field;
};

enum class Loop { MessageDialog, PromptOfAView, FailedTransfer, MissingView, Form, ContextMenu, GateWait, ChainBuild };
enum class Event { Scan, ToastTicks, ViewChange, LogOut, HostCloses };

// Runs an event during each kind of nested loop, and while a chain of custody is being built: nothing crashes, no event
// is lost, and the loop ends when the user ends it.
class NestedLoops : public MainWindowTest, public ::testing::WithParamInterface<std::tuple<Loop, Event>> {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        m_environment->screen = &m_widgetScreen;
        m_timers.emplace(m_environment);
        m_environment->reportUnexpected = [](const Error& error) {
            ADD_FAILURE() << error.Source() << ": " << error.Description();
        };
        if (TheLoop() == Loop::GateWait) return;
        LogIn(SampleAccounts()[0]);
        GetActions().BeginTransaction(TransactionType::SignOut, ListOf({Property(1), Property(2), Property(3)}));
    }

    void TearDown() override {
        MainWindowTest::TearDown();
        m_timers.reset();
    }

    static Loop TheLoop() { return std::get<0>(GetParam()); }
    static Event TheEvent() { return std::get<1>(GetParam()); }
    // The shell runs the loop while it handles an action, so every other action is refused.
    static bool IsInDispatch() { return TheLoop() == Loop::FailedTransfer || TheLoop() == Loop::MissingView; }

    static StoredItemRef Property(int32_t number) { return FindItem(StoredItemTypes::Property, number); }

    // Runs the loop. The event happens inside it, followed by the user's answer.
    void RunLoop() {
        const QPointer<QWidget> shell = Evidence();
        if (shell && TheEvent() == Event::ToastTicks) GetActions().NotifyUser("Successfully transferred 3 items");
        if (TheLoop() == Loop::ChainBuild) SelectLongChain();
        // A queued call, so that what it deletes later is deleted in the loop.
        QMetaObject::invokeMethod(
            qApp,
            [this] {
                Happen();
                m_happened = true;
                EndLoop();
            },
            Qt::QueuedConnection);
        switch (TheLoop()) {
        case Loop::MessageDialog:
            EXPECT_EQ(GetScreen().ShowMessage("Is this right?", MessageStyle::YesNoQuestion, "Question"),
                      MessageAnswer::Yes);
            break;
        case Loop::PromptOfAView: Click(Find<FlatButton>(*Find(*m_window, "infobar"), "btnCancel")); break;
        case Loop::FailedTransfer:
            GetDispatcher()->Dispatch({ActionTypes::CART_TRANSACTION_FAILED, "The database is locked."});
            break;
        case Loop::MissingView: GetActions().NavigateTo("cellar", nullptr); break;
        case Loop::Form: {
            PlainForm form;
            m_form = &form;
            ShowFormCentered(form);
            EXPECT_FALSE(form.isVisible());
            break;
        }
        case Loop::ContextMenu: {
            QMenu menu;
            menu.addAction("Open");
            m_menu = &menu;
            ShowContextMenu(Evidence(), &menu, nullptr);
            break;
        }
        case Loop::GateWait:
            m_database->exec(
                "UPDATE StorageLocation SET Type = 1 WHERE IdNo = (SELECT MAX(IdNo) FROM StorageLocation)");
            HostLocationData().Reload();
            LogIn(SampleAccounts()[0]);
            break;
        case Loop::ChainBuild:
            DoubleClick(m_row->treeWidget()->viewport(), m_row->treeWidget()->visualItemRect(m_row).center());
            ServeEvents();
            EXPECT_EQ(shell.isNull(), TheEvent() == Event::LogOut);
            break;
        }
        EXPECT_TRUE(m_happened);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
        ServeEvents();
        EXPECT_TRUE(m_window->findChildren<QWidget*>("windowShade").isEmpty());
    }

    // Selects an item with a chain of custody so long that the item view builds its rows in several turns.
    void SelectLongChain() {
        const StoredItemRef item = Property(4);
        const StorageLocationRef location = item->Location();
        CartItems batch;
        batch.TryAdd(item);
        TransferData details;
        details.Location = location;
        details.DateReceived = GetClock().Now();
        for (int row = 0; row < 10; ++row) GetHostDatabase().ExecuteBatch(MakeTransferStatements(batch, details));
        auto* explorer = Find<EvidenceExplorer>(*m_window, "explorer");
        explorer->SetSelectedLocation(location);
        ListView* list = explorer->ItemPane()->List();
        int row = 0;
        while (list->RowKey(row) != "P" + QString::number(item->ID())) ++row;
        m_row = list->Tree()->topLevelItem(row);
        list->Tree()->scrollToItem(m_row);
    }

    void EndLoop() {
        switch (TheLoop()) {
        case Loop::MessageDialog:
        case Loop::FailedTransfer:
        case Loop::MissingView: return ClickInDialog(0);
        case Loop::PromptOfAView: return ClickInDialog(1);
        case Loop::Form: m_form->close(); return;
        case Loop::ContextMenu:
            if (m_menu) m_menu->close();
            return;
        case Loop::GateWait: return CompleteWizard();
        case Loop::ChainBuild: return;
        }
    }

    static QWidget* Wizard() {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == "frmSetupLocationsWizard") return window;
        return nullptr;
    }

    // Ticks the one location on the first page. The second page has nothing left to tick.
    static void CompleteWizard() {
        const QPointer<QWidget> wizard = Wizard();
        ASSERT_NE(wizard, nullptr);
        Click(Find(*wizard, "lnkSelectAll"));
        Click(Find(*wizard, "btnNext"));
        Click(Find(*wizard, "btnNext"));
        EXPECT_FALSE(wizard && wizard->isVisible());
    }

    static void ClickInDialog(size_t button) {
        QWidget* dialog = QApplication::activeModalWidget();
        ASSERT_NE(dialog, nullptr);
        const auto buttons = FindAll<FlatButton>(*dialog, "button");
        ASSERT_GT(buttons.size(), button);
        Click(buttons[button]);
    }

    void Happen() {
        switch (TheEvent()) {
        case Event::Scan: return ScanItem(*Property(5));
        case Event::ToastTicks:
            for (int tick = 0; tick < 60; ++tick) m_timers->TickAll();
            return;
        case Event::ViewChange:
            if (IsInDispatch())
                EXPECT_THROW(GetActions().NavigateTo("cart", nullptr), Error);
            else
                GetActions().NavigateTo("cart", nullptr);
            return;
        case Event::LogOut: return LogOut();
        case Event::HostCloses:
            AnswerNextQuestion();
            m_window->close();
            return;
        }
    }

    void LogOut() {
        if (!IsOnShow("logOut")) return;
        AnswerNextQuestion();
        Click(Find(*m_window, "logOut"));
        ServeEvents();
    }

    // Clicks Yes as soon as a further dialog is open, if a batch is: the window asks before it drops the batch.
    void AnswerNextQuestion() {
        if (!Evidence() || ItemsInOpenBatch() == 0) return;
        QMetaObject::invokeMethod(
            qApp, [] { ClickInDialog(0); }, Qt::QueuedConnection);
    }

    // At the gate there is no listener yet, and the page of an item has none.
    void ScanItem(const StoredItem& item) {
        ServeEvents();
        ASSERT_EQ(QApplication::activeWindow(), ExpectedActiveWindow());
        if (m_form) m_form->field->setFocus();
        TypeAsScanner(MakeBarcodeText("P", item.ID()));
        const bool hasListener = TheLoop() != Loop::GateWait && TheLoop() != Loop::ChainBuild;
        EXPECT_EQ(m_timers->Tick(1), hasListener ? 1 : 0) << "scans delivered";
        if (!m_form) return;
        EXPECT_EQ(m_form->field->text(), "");
        EXPECT_TRUE(m_form->field->hasFocus());
    }

    QWidget* ExpectedActiveWindow() const {
        if (TheLoop() == Loop::GateWait) return Wizard();
        return HasDialog() ? QApplication::activeModalWidget() : m_window.get();
    }

    // A dialog is the active window.
    static bool HasDialog() {
        return TheLoop() == Loop::MessageDialog || TheLoop() == Loop::PromptOfAView ||
               TheLoop() == Loop::FailedTransfer || TheLoop() == Loop::MissingView || TheLoop() == Loop::Form;
    }

    bool IsOnShow(const char* name) {
        const auto* widget = m_window->findChild<QWidget*>(name);
        return widget && widget->isVisible();
    }

    ScreenWithPlainMessages m_widgetScreen;
    std::optional<ManualTimers> m_timers;
    QPointer<PlainForm> m_form;
    QPointer<QMenu> m_menu;
    QTreeWidgetItem* m_row = nullptr;  // the item with the long chain
    bool m_happened = false;
};

TEST_P(NestedLoops, EventsDuringANestedLoopAreNotLost) {
    RunLoop();
    const bool gate = TheLoop() == Loop::GateWait;
    const char* const shown = TheLoop() == Loop::ChainBuild ? "itemView" : "explorer";
    if (!gate && TheEvent() != Event::LogOut) {
        ASSERT_FALSE(GetStores().Cart->IsEmpty());
        EXPECT_EQ(GetStores().Cart->GetItems()->Count(), 3);
    }
    const bool refused = IsInDispatch() && TheEvent() == Event::ViewChange;
    EXPECT_EQ(m_widgetScreen.plainMessages.size(), refused ? 1u : 0u);
    switch (TheEvent()) {
    case Event::Scan:
        // A scan while a dialog is the active window is dropped.
        EXPECT_TRUE(IsOnShow(gate || HasDialog() ? "explorer" : "itemView"));
        EXPECT_EQ(IsOnShow("itemView"), !gate && !HasDialog());
        break;
    case Event::ToastTicks:
        EXPECT_TRUE(IsOnShow(shown));
        EXPECT_FALSE(IsOnShow("toastMessage"));
        EXPECT_TRUE(m_timers->Running().empty());
        break;
    case Event::ViewChange: EXPECT_TRUE(IsOnShow(gate || refused ? shown : "cart")); break;
    case Event::LogOut:
        // At the gate the user cannot log out yet.
        EXPECT_EQ(Evidence() != nullptr, gate);
        EXPECT_EQ(IsOnShow("loginForm"), !gate);
        EXPECT_EQ(HostServices::Current().Session().Username().empty(), !gate);
        break;
    case Event::HostCloses:
        EXPECT_FALSE(m_window->isVisible());
        ASSERT_NE(Evidence(), nullptr);
        ShowActive(*m_window);
        EXPECT_TRUE(IsOnShow(shown));
        break;
    }
    LogOut();
    EXPECT_EQ(Evidence(), nullptr);
    LogIn(SampleAccounts()[1]);
    EXPECT_TRUE(IsOnShow("explorer"));
    EXPECT_TRUE(GetStores().Cart->IsEmpty());
}

std::string NameOf(const ::testing::TestParamInfo<std::tuple<Loop, Event>>& info) {
    static const char* const loops[] = {"MessageDialog", "PromptOfAView", "FailedTransfer", "MissingView",
                                        "Form",          "ContextMenu",   "GateWait",       "ChainBuild"};
    static const char* const events[] = {"Scan", "ToastTicks", "ViewChange", "LogOut", "HostCloses"};
    return std::string(loops[static_cast<int>(std::get<0>(info.param))]) + "_" +
           events[static_cast<int>(std::get<1>(info.param))];
}

INSTANTIATE_TEST_SUITE_P(Matrix, NestedLoops,
                         ::testing::Combine(::testing::Values(Loop::MessageDialog, Loop::PromptOfAView,
                                                              Loop::FailedTransfer, Loop::MissingView, Loop::Form,
                                                              Loop::ContextMenu, Loop::GateWait, Loop::ChainBuild),
                                            ::testing::Values(Event::Scan, Event::ToastTicks, Event::ViewChange,
                                                              Event::LogOut, Event::HostCloses)),
                         NameOf);

}  // namespace
}  // namespace quellbrook::testing

#include "tests/app/MainWindowTest.h"

#include "app/Department.h"
#include "app/Termination.h"
#include "app/Tour.h"
#include "core/Actions.h"
#include "host/HostLocationData.h"
#include "tests/support/Items.h"
#include "tests/support/ui/QtTestMain.h"
#include "ui/common/Dialogs.h"

#include <QDir>
#include <QLabel>
#include <QPointer>

#include <csignal>

namespace quellbrook::testing {

namespace {

// Puts items into a new batch.
void OpenBatch(int items) {
    auto batch = std::make_shared<ObjectVector>();
    for (int key = 1; key <= items; ++key) batch->Add(FindItem(StoredItemTypes::Property, key));
    GetActions().BeginTransaction(TransactionType::Move, batch);
}

}  // namespace

TEST_F(MainWindowTest, ItsTitleNamesTheAgency) { EXPECT_EQ(m_window->windowTitle(), "Quellbrook - Harlow Bay"); }

TEST_F(MainWindowTest, AWrongPasswordStaysAtTheForm) {
    TestErrorLog().Announce("DatabaseSession.Login");
    LogIn("custodian", "wrong");
    EXPECT_EQ(Evidence(), nullptr);
    EXPECT_TRUE(Find(*m_window, "loginForm")->isVisible());
    EXPECT_EQ(Find<QLabel>(*m_window, "loginError")->text(), "Incorrect user name or password.");
}

TEST_F(MainWindowTest, LoggingInShowsTheEvidence) {
    LogIn(SampleAccounts()[0]);
    ASSERT_NE(Evidence(), nullptr);
    EXPECT_TRUE(Evidence()->isVisible());
    EXPECT_EQ(Evidence()->property("BorderStyle"), 0);
    EXPECT_EQ(Find<QLabel>(*m_window, "loggedInAs")->text(), "custodian");
    EXPECT_FALSE(Find(*m_window, "loginForm")->isVisible());
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(MainWindowTest, LoggingOutDestroysTheEvidenceAndTheNextLoginCreatesANewOne) {
    LogIn(SampleAccounts()[0]);
    const QPointer<QWidget> first = Evidence();
    Click(Find(*m_window, "logOut"));
    EXPECT_TRUE(Find(*m_window, "loginForm")->isVisible());
    EXPECT_EQ(HostServices::Current().Session().Username(), "");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(Find<QLineEdit>(*m_window, "password")->text(), "");
    LogIn(SampleAccounts()[2]);
    ASSERT_NE(Evidence(), nullptr);
    EXPECT_EQ(HostServices::Current().Session().Username(), "auditor");
}

TEST_F(MainWindowTest, LoggingOutWithAnOpenBatchAsksFirst) {
    LogIn(SampleAccounts()[0]);
    OpenBatch(2);
    m_screen.AnswerNext(MessageAnswer::No);
    Click(Find(*m_window, "logOut"));
    EXPECT_EQ(m_screen.TakeMessages(),
              std::vector{(RecordingScreen::Message{
                  "2 items are in an open batch that has not been transferred. If you log out, the batch is "
                  "lost.\r\n\r\nLog out anyway?",
                  36, "Open batch"})});
    ASSERT_NE(Evidence(), nullptr);
    EXPECT_EQ(ItemsInOpenBatch(), 2);
    m_screen.AnswerNext(MessageAnswer::Yes);
    Click(Find(*m_window, "logOut"));
    EXPECT_TRUE(Find(*m_window, "loginForm")->isVisible());
    LogIn(SampleAccounts()[0]);
    EXPECT_EQ(ItemsInOpenBatch(), 0);
}

TEST_F(MainWindowTest, ClosingWithAnOpenBatchAsksFirst) {
    LogIn(SampleAccounts()[0]);
    OpenBatch(1);
    m_screen.AnswerNext(MessageAnswer::No);
    EXPECT_FALSE(m_window->close());
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_EQ(m_screen.TakeMessages(),
              std::vector{(RecordingScreen::Message{
                  "1 item is in an open batch that has not been transferred. If you close the window, the batch is "
                  "lost.\r\n\r\nClose it anyway?",
                  36, "Open batch"})});
    m_screen.AnswerNext(MessageAnswer::Yes);
    EXPECT_TRUE(m_window->close());
    EXPECT_FALSE(m_window->isVisible());
}

TEST_F(MainWindowTest, WithoutAnOpenBatchNothingIsAsked) {
    LogIn(SampleAccounts()[0]);
    OpenBatch(1);
    GetActions().CancelTransaction();
    Click(Find(*m_window, "logOut"));
    EXPECT_TRUE(Find(*m_window, "loginForm")->isVisible());
    LogIn(SampleAccounts()[0]);
    EXPECT_TRUE(m_window->close());
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(MainWindowTest, AtTheLoginFormTheBatchOfTheLastUserIsNotAskedAbout) {
    LogIn(SampleAccounts()[0]);
    OpenBatch(1);
    m_screen.AnswerNext(MessageAnswer::Yes);
    Click(Find(*m_window, "logOut"));
    m_screen.TakeMessages();
    EXPECT_TRUE(m_window->close());
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(MainWindowTest, AUserRefusedByTheGateIsLoggedOut) {
    m_database->exec("DELETE FROM AccountRight WHERE Username = 'clerk'");
    LogIn(SampleAccounts()[1]);
    EXPECT_EQ(m_screen.TakeMessages(),
              testing::OneMessage("You do not have sufficient permissions to use Quellbrook. \r\n\r\nYou need to have "
                                  "permission to view property and/or vehicle records (at minimum) in order to access "
                                  "Quellbrook.",
                                  16, "Insufficient Permissions"));
    EXPECT_EQ(Evidence(), nullptr);
    EXPECT_TRUE(Find(*m_window, "loginForm")->isVisible());
    EXPECT_EQ(HostServices::Current().Session().Username(), "");
}

TEST_F(MainWindowTest, ATourDoesNotBeginAfterASignal) {
    const Termination termination;
    std::raise(SIGTERM);
    const QString pictures = QString::fromStdString(m_directory.In("tour"));
    EXPECT_EQ(PlayTour(*m_window, pictures, Department(), termination), Termination::ExitCode);
    EXPECT_FALSE(QDir(pictures).exists());
}

TEST_F(MainWindowTest, TheLoginFormIsDisabledWhileTheWizardIsOpen) {
    m_database->exec("UPDATE StorageLocation SET Type = 1 WHERE Name = 'Refrigerated Storage'");
    WizardScript script;
    script.completed = false;
    script.whileOpen = [&] {
        EXPECT_FALSE(Find(*m_window, "logIn")->isEnabled());
        EXPECT_TRUE(m_window->isEnabled());
        LogIn(SampleAccounts()[0]);
    };
    m_screen.AddWizard(script);
    LogIn(SampleAccounts()[0]);
    EXPECT_EQ(m_screen.WizardsShown(), 1);
    EXPECT_TRUE(Find(*m_window, "logIn")->isEnabled());
    EXPECT_TRUE(Find(*m_window, "password")->hasFocus() || Find(*m_window, "username")->hasFocus());
}

TEST_F(MainWindowTest, TheWindowIsTheDialogsParentAgainAfterTheWizard) {
    m_database->exec(
        "INSERT INTO StorageLocation (Name, Type, Path, DateEntered, LastUpdated) VALUES ('Unknown', 1, "
        "'/0/', '2026-11-20T09:00:00.000', '2026-11-20T09:00:00.000')");
    const auto wizardsForm = std::make_shared<WindowReference>(nullptr);
    WizardScript script;
    script.whileOpen = [&] {
        m_screen.SetDialogParent(wizardsForm);
        m_database->exec("UPDATE StorageLocation SET Type = 16 WHERE Type = 1");
        HostLocationData().Reload();
    };
    m_screen.AddWizard(script);
    LogIn(SampleAccounts()[0]);
    EXPECT_EQ(m_screen.WizardsShown(), 1);
    ASSERT_NE(Evidence(), nullptr);
    const auto parent = std::dynamic_pointer_cast<WindowReference>(m_screen.DialogParent());
    ASSERT_NE(parent, nullptr);
    EXPECT_EQ(parent->Window(), m_window.get());
}

}  // namespace quellbrook::testing

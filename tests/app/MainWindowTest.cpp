#include "tests/app/MainWindowTest.h"

#include "host/HostLocationData.h"
#include "ui/common/Dialogs.h"

#include <QLabel>
#include <QPointer>

namespace quellbrook::testing {

TEST_F(MainWindowTest, ItsTitleNamesTheAgency) { EXPECT_EQ(m_window->windowTitle(), "Quellbrook - Harlow Bay"); }

TEST_F(MainWindowTest, AWrongPasswordStaysAtTheForm) {
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

TEST_F(MainWindowTest, AUserRefusedByTheGateIsLoggedOut) {
    m_database->exec("DELETE FROM AccountRight WHERE Username = 'clerk'");
    LogIn(SampleAccounts()[1]);
    ASSERT_EQ(m_screen.Messages().size(), 1u);
    EXPECT_EQ(m_screen.Messages()[0].title, "Insufficient Permissions");
    EXPECT_EQ(Evidence(), nullptr);
    EXPECT_TRUE(Find(*m_window, "loginForm")->isVisible());
    EXPECT_EQ(HostServices::Current().Session().Username(), "");
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

#include "app/MainWindow.h"
#include "base/Screen.h"
#include "component/Quellbrook.h"
#include "host/HostLocationData.h"
#include "host/HostServices.h"
#include "host/engines/SqliteEngine.h"
#include "tests/app/SampleFile.h"
#include "tests/support/RecordingScreen.h"
#include "tests/support/ui/Widgets.h"
#include "ui/common/Dialogs.h"

#include <QLabel>
#include <QLineEdit>
#include <QPointer>

#include <filesystem>

#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

class MainWindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        const std::string path = m_directory.Path() + "/copy.sqlite";
        std::filesystem::copy_file(TheSample().Path(), path);
        m_database = std::make_unique<SQLite::Database>(path, SQLite::OPEN_READWRITE);
        HostServices::Current().SetEngine(SqliteEngine::Open(path));
        Startup();
        SetScreen(&m_screen);
        m_window = std::make_unique<MainWindow>("Harlow Bay", std::nullopt, std::vector<ShownAccount>());
        ShowActive(*m_window);
    }

    void TearDown() override {
        m_window.reset();
        HostServices::Current().SetSession(nullptr);
        HostServices::Current().SetEngine(nullptr);
        Shutdown();
    }

    void LogIn(const SampleAccount& account) { LogIn(account.username, account.password); }
    void LogIn(const std::string& username, const std::string& password) {
        Find<QLineEdit>(*m_window, "username")->setText(QString::fromStdString(username));
        Find<QLineEdit>(*m_window, "password")->setText(QString::fromStdString(password));
        Click(Find(*m_window, "logIn"));
    }
    QWidget* Evidence() const { return m_window->findChild<QWidget*>("evidence"); }

    ScratchDirectory m_directory;
    std::unique_ptr<SQLite::Database> m_database;
    RecordingScreen m_screen;
    std::unique_ptr<MainWindow> m_window;
};

}  // namespace

TEST_F(MainWindowTest, ItsTitleNamesTheAgency) { EXPECT_EQ(m_window->windowTitle(), "Quellbrook - Harlow Bay"); }

TEST_F(MainWindowTest, AWrongPasswordStaysAtTheForm) {
    LogIn("custodian", "wrong");
    EXPECT_EQ(Evidence(), nullptr);
    EXPECT_TRUE(Find(*m_window, "loginForm")->isVisible());
    EXPECT_EQ(Find<QLabel>(*m_window, "loginError")->text(), "The user name or the password is not right.");
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

TEST_F(MainWindowTest, LoggingOutDestroysTheEvidenceAndTheNextLoginMakesANewOne) {
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

TEST_F(MainWindowTest, AUserWhomTheGateTurnsAwayIsLoggedOutAgain) {
    m_database->exec("DELETE FROM AccountRight WHERE Username = 'clerk'");
    LogIn(SampleAccounts()[1]);
    ASSERT_EQ(m_screen.Messages().size(), 1u);
    EXPECT_EQ(m_screen.Messages()[0].title, "Insufficient Permissions");
    EXPECT_EQ(Evidence(), nullptr);
    EXPECT_TRUE(Find(*m_window, "loginForm")->isVisible());
    EXPECT_EQ(HostServices::Current().Session().Username(), "");
}

TEST_F(MainWindowTest, TheWindowIsTheDialogsParentAgainAfterTheWizard) {
    m_database->exec("INSERT INTO StorageLocation (Name, Type, Path, DateEntered, LastUpdated) VALUES ('Unknown', 1, "
                     "'/0/', '2026-11-20T09:00:00.000', '2026-11-20T09:00:00.000')");
    const auto wizardsForm = std::make_shared<WindowReference>(nullptr);
    WizardScript script;
    script.onShow = [&] { m_screen.SetDialogParent(wizardsForm); };
    script.onClose = [&] {
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

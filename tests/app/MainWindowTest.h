#pragma once

#include "app/MainWindow.h"
#include "base/Screen.h"
#include "component/Quellbrook.h"
#include "host/HostServices.h"
#include "host/engines/SqliteEngine.h"
#include "tests/app/SampleFile.h"
#include "tests/support/RecordingScreen.h"
#include "tests/support/ui/Widgets.h"

#include <QLineEdit>

#include <filesystem>

#include <gtest/gtest.h>

namespace quellbrook::testing {

// The host's window over a copy of the sample department, at the login form.
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

}  // namespace quellbrook::testing

#pragma once

#include "app/MainWindow.h"
#include "base/Environment.h"
#include "component/Quellbrook.h"
#include "data/StorageLocationStatic.h"
#include "host/HostServices.h"
#include "tests/app/SampleCopyTest.h"
#include "tests/support/RecordingScreen.h"
#include "tests/support/ui/FocusCalls.h"
#include "tests/support/ui/Widgets.h"

#include <QLineEdit>

#include <gtest/gtest.h>

namespace quellbrook::testing {

// The component between Startup and Shutdown.
struct RunningComponent {
    RunningComponent() { Startup(); }
    ~RunningComponent() { Shutdown(); }
    RunningComponent(const RunningComponent&) = delete;
    RunningComponent& operator=(const RunningComponent&) = delete;
};

// The host's window over a copy of the sample department, at the login form.
class MainWindowTest : public SampleCopyTest {
protected:
    void SetUp() override {
        SampleCopyTest::SetUp();
        m_environment->screen = &m_screen;
        ResetFocusCalls(m_screen);
        OpenWindow();
    }

    void TearDown() override {
        EXPECT_FALSE(m_screen.HasAnswersLeft()) << "A question that a test answers was not asked.";
        m_window.reset();
        SampleCopyTest::TearDown();
    }

    virtual void OpenWindow() {
        m_window = std::make_unique<MainWindow>("Harlow Bay", std::nullopt, std::vector<SampleAccount>());
        ShowActive(*m_window);
    }

    void LogIn(const SampleAccount& account) { LogIn(account.username, account.password); }
    void LogIn(const std::string& username, const std::string& password) {
        Find<QLineEdit>(*m_window, "username")->setText(QString::fromStdString(username));
        Find<QLineEdit>(*m_window, "password")->setText(QString::fromStdString(password));
        Click(Find(*m_window, "logIn"));
    }
    // A location with several pieces of property.
    StorageLocationRef FullLocation() {
        return GetStorageLocationStatic().FindByID(
            m_database
                ->execAndGet("SELECT t.StorageLocNo FROM Property p JOIN PropertyTracking t ON t.PropertyNo = "
                             "p.PropertyNo AND t.SeqNo = p.CurrTrackSeq JOIN StorageLocation s ON s.IdNo = "
                             "t.StorageLocNo WHERE s.Type = 2 GROUP BY 1 HAVING COUNT(*) > 2 "
                             "ORDER BY 1 LIMIT 1")
                .getInt());
    }
    QWidget* Evidence() const { return m_window->findChild<QWidget*>("evidence"); }

    RunningComponent m_component;
    EnvironmentScope m_environment;
    RecordingScreen m_screen;
    std::unique_ptr<MainWindow> m_window;
};

}  // namespace quellbrook::testing

#include "app/MainWindow.h"
#include "app/Run.h"
#include "app/Termination.h"
#include "tests/app/ScratchWorkstation.h"
#include "tests/demo/sample/SampleFile.h"
#include "tests/support/ui/Widgets.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

#include <csignal>
#include <filesystem>
#include <functional>
#include <set>
#include <string>

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

namespace fs = std::filesystem;

// The whole program on a scratch workstation.
class RunTest : public ::testing::Test {
protected:
    // The sample outlives the scratch workstation of a test.
    static void SetUpTestSuite() { TheSample(); }

    RunTest() {
        for (const auto& [variable, folder] :
             {std::pair("TMPDIR", "temporary"), {"XDG_DATA_HOME", "data"}, {"XDG_RUNTIME_DIR", "runtime"}}) {
            fs::create_directory(m_workstation.In(folder));
            fs::permissions(m_workstation.In(folder), fs::perms::owner_all);
            m_workstation.Set(variable, m_workstation.In(folder));
        }
    }

    // Calls the function once the program's window is shown. The program then gets SIGTERM.
    static int Run(const Options& options, const std::function<void(MainWindow&)>& whenShown) {
        QTimer eachEvent;
        QObject::connect(&eachEvent, &QTimer::timeout, [&] {
            for (QWidget* widget : QApplication::topLevelWidgets()) {
                auto* window = qobject_cast<MainWindow*>(widget);
                if (!window || !window->isVisible()) continue;
                eachEvent.stop();
                whenShown(*window);
                std::raise(SIGTERM);
            }
        });
        eachEvent.start(0);
        return RunHost(options, [] { return &DllGetClassObject; });
    }

    ScratchWorkstation m_workstation;
};

TEST_F(RunTest, ASignalEndsAFreshRunWhichRemovesItsScratchCopy) {
    Options options;
    options.fresh = true;
    const int code = Run(options, [&](MainWindow&) { EXPECT_FALSE(fs::is_empty(m_workstation.In("temporary"))); });
    EXPECT_EQ(code, Termination::ExitCode);
    EXPECT_TRUE(fs::is_empty(m_workstation.In("temporary")));
}

TEST_F(RunTest, TheWindowHasTheSizeThatItHadAtTheEndOfTheLastRun) {
    Options options;
    options.databasePath = m_workstation.In("room.sqlite");
    CopySample(*options.databasePath);
    const QSize chosen(800, 555);
    Run(options, [&](MainWindow& window) {
        EXPECT_NE(window.size(), chosen);
        window.showNormal();
        window.resize(chosen);
    });
    Run(options, [&](MainWindow& window) { EXPECT_EQ(window.size(), chosen); });
}

// Closes the first modal window and returns its text if it is a message in plain text.
class RefusalReader {
public:
    RefusalReader() {
        QTimer::singleShot(0, &m_context, [this] {
            QWidget* modal = QApplication::activeModalWidget();
            if (const auto* box = qobject_cast<QMessageBox*>(modal); box && box->textFormat() == Qt::PlainText)
                m_text = box->text();
            if (modal) modal->close();
        });
    }
    const QString& Text() const { return m_text; }

private:
    QObject m_context;
    QString m_text;
};

TEST_F(RunTest, TheUsersSettingsAreInTheFolderOfTheReferenceHostOnly) {
    Options options;
    options.databasePath = m_workstation.In("room.sqlite");
    CopySample(*options.databasePath);
    const auto files = [this] {
        std::set<std::string> found;
        for (const auto& entry : fs::recursive_directory_iterator(m_workstation.In("config")))
            if (entry.is_regular_file()) found.insert(fs::relative(entry.path(), m_workstation.In("config")).string());
        return found;
    };
    const std::set<std::string> before = files();
    Run(options, [&](MainWindow& window) {
        Find<QLineEdit>(window, "username")->setText(QString::fromStdString(SampleAccounts()[0].username));
        Find<QLineEdit>(window, "password")->setText(QString::fromStdString(SampleAccounts()[0].password));
        Click(Find(window, "logIn"));
        EXPECT_TRUE(Find(window, "explorer")->isVisible());
        EXPECT_EQ(files(), before);
        Click(Find(window, "scannerPageButton"));
        auto* resolution = Find<QComboBox>(window, "resolutions");
        resolution->setCurrentIndex(1);
        emit resolution->activated(1);
        Click(Find(window, "help"));
        Click(Find(window, "logOut"));
    });
    std::set<std::string> expected = before;
    expected.insert({"quellbrook-tests/window.ini", "quellbrook-tests/workstation.ini"});
    EXPECT_EQ(files(), expected);
    EXPECT_TRUE(fs::is_empty(m_workstation.In("home")));
}

TEST_F(RunTest, AnAddressThatIsRefusedIsShownAsPlainText) {
    Options options;
    options.refusedRecord = Error(ErrorNumber::General, "ParseRecordAddress", "There is no record <b>7</b>.");
    const RefusalReader shown;
    EXPECT_EQ(RunHost(options, [] { return &DllGetClassObject; }), 2);
    EXPECT_EQ(shown.Text(), "There is no record <b>7</b>.");
}

TEST_F(RunTest, AMissingComponentIsShownBeforeADepartmentIsOpened) {
    Options options;
    options.databasePath = m_workstation.In("missing.sqlite");
    const RefusalReader shown;
    const auto refuse = []() -> ClassObjectGetter { Raise(ErrorNumber::General, "Test", "No <b>component</b>."); };
    EXPECT_EQ(RunHost(options, refuse), 1);
    EXPECT_EQ(shown.Text(), "No <b>component</b>.");
}

}  // namespace
}  // namespace quellbrook::testing

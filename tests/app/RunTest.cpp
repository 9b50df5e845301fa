#include "app/MainWindow.h"
#include "app/Run.h"
#include "app/Termination.h"
#include "tests/app/ScratchWorkstation.h"
#include "tests/demo/sample/SampleFile.h"

#include <QApplication>
#include <QMessageBox>
#include <QTimer>

#include <csignal>
#include <filesystem>
#include <functional>

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

namespace fs = std::filesystem;

// The whole program on a scratch workstation.
class RunTest : public ::testing::Test {
protected:
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
        return RunHost(options);
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

TEST_F(RunTest, AnAddressThatIsRefusedIsShownAsPlainText) {
    Options options;
    options.refusedRecord = Error(ErrorNumber::General, "ParseRecordAddress", "There is no record <b>7</b>.");
    QString shown;
    QTimer::singleShot(0, qApp, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        if (const auto* box = qobject_cast<QMessageBox*>(modal); box && box->textFormat() == Qt::PlainText)
            shown = box->text();
        if (modal) modal->close();
    });
    EXPECT_EQ(RunHost(options), 2);
    EXPECT_EQ(shown, "There is no record <b>7</b>.");
}

}  // namespace
}  // namespace quellbrook::testing

#include "app/Tour.h"

#include "app/Department.h"
#include "app/MainWindow.h"
#include "app/Termination.h"
#include "component/Labels.h"
#include "demo/tour/CategorizationScenario.h"
#include "demo/tour/ExplorerScenario.h"
#include "demo/tour/IntakeScenario.h"
#include "demo/tour/ItemScenario.h"
#include "demo/tour/MenuScenario.h"
#include "demo/tour/TourPlayer.h"
#include "demo/tour/TransferScenario.h"
#include "host/HostServices.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

namespace quellbrook {

namespace {

// The tour must not use the workstation's printer.
void PrintIntoFiles(const QString& folder) {
    constexpr int dotsPerInch = 203;
    HostServices::Current().SetPrinter(MakePdfPrinter(folder.toStdString(), dotsPerInch));
}

}  // namespace

int PlayTour(MainWindow& window, const QString& directory, const Department& department, const Termination& termination,
             TourScenario scenario) {
    if (termination.IsRequested()) return Termination::ExitCode;
    constexpr int keyPause = 2000;  // milliseconds
    window.showMaximized();
    // On a busy machine, keys may arrive with pauses after which a list would start a new typed search.
    QApplication::setKeyboardInputInterval(keyPause);
    const QDir folder = QFileInfo(QString::fromStdString(department.path)).dir();
    TourPlayer player(window, directory, department.engine, folder.filePath(QStringLiteral("labels")));
    if (scenario == TourScenario::Categorization) {
        PlanCategorizationScenario(player);
    } else {
        PlanExplorerScenario(player);
        PlanTransferScenario(player);
        PlanIntakeScenario(player);
        PlanItemScenario(player);
        player.Do([&player] { PrintIntoFiles(player.LabelFolder()); });
        PlanMenuScenario(player);
    }
    player.Start();
    QApplication::exec();
    if (termination.IsRequested()) return Termination::ExitCode;
    return player.Passed() ? 0 : 1;
}

}  // namespace quellbrook

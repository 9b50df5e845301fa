#include "app/ComponentLifetime.h"
#include "app/Department.h"
#include "app/MainWindow.h"
#include "base/Error.h"
#include "demo/tour/TourPlayer.h"
#include "host/DatabaseSession.h"
#include "tests/desktop/workstations/WorkstationScenario.h"

#include <QApplication>

#include <cstdio>
#include <cstring>

namespace quellbrook::testing {
namespace {

int Work(char** arguments) {
    const std::string report = arguments[4];
    const ComponentLifetime component;
    Options options;
    options.databasePath = arguments[1];
    const Department department = OpenDepartment(options, "", [](int) {});
    UseDepartment(department);
    MainWindow window(QString::fromStdString(DatabaseSession().AgencyName()), std::nullopt, AccountsToShow());
    window.showMaximized();
    TourPlayer player(window, QString::fromStdString(report + ".tour"), department.engine, QString());
    WorkstationScenario scenario(player, static_cast<uint32_t>(std::atoi(arguments[2])), std::atoi(arguments[3]),
                                 report);
    scenario.Plan();
    player.Start();
    QApplication::exec();
    return player.Passed() ? 0 : 1;
}

}  // namespace
}  // namespace quellbrook::testing

// workstation --create DATABASE, or workstation DATABASE SEED ROUNDS REPORT.
int main(int argc, char** argv) {
    using namespace quellbrook;
    try {
        if (argc == 3 && std::strcmp(argv[1], "--create") == 0) {
            CreateSampleDepartment(argv[2], {}, {});
            return 0;
        }
        if (argc != 5) return 2;
        QApplication application(argc, argv);
        return testing::Work(argv);
    } catch (...) {
        std::fprintf(stderr, "%s\n", CurrentError().what());
        return 1;
    }
}

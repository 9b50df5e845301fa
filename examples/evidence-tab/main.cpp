// A host of the evidence component, with services and a schema of its own.
//   evidence-tab [FOLDER]           opens the department in the folder, and creates it first if it is missing
//   evidence-tab --check [FOLDER]   checks one item in without a user, prints "ok" and ends with 0; the folder must
//                                   have no department yet

#include "Database.h"
#include "HostWindow.h"
#include "SelfCheck.h"
#include "Services.h"

#include "base/Environment.h"
#include "component/Labels.h"
#include "component/Quellbrook.h"
#include "database/SqliteEngine.h"
#include "host/HostServices.h"

#include <QApplication>

#include <cstdio>
#include <exception>
#include <filesystem>

namespace {

// The services are set before the gate and dropped before the component ends.
class Component {
public:
    explicit Component(const std::filesystem::path& folder) {
        using namespace quellbrook;
        InstallTheme(false);
        Startup();
        HostServices& services = HostServices::Current();
        try {
            services.SetEngine(SqliteEngine::OpenHostSchema(folder / "records.sqlite"));
        } catch (...) {
            Shutdown();
            throw;
        }
        services.SetFiles(std::make_shared<Files>());
        services.SetThumbnails(std::make_shared<Thumbnails>(folder));
        services.SetPrinter(MakePdfPrinter(folder, 300));
        services.SetFormats({"$%d", "MM/dd/yyyy", "h:mm AP"});
    }
    ~Component() {
        quellbrook::HostServices::Current().Reset();
        quellbrook::Shutdown();
    }
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;
};

int Run(const std::filesystem::path& folder, bool isCheck) {
    CreateRecords(folder / "records.sqlite");
    const Component component(folder);
    HostWindow window;
    if (isCheck) {
        CheckOneItemIn(window, folder / "records.sqlite");
        std::puts("ok");
        return 0;
    }
    window.show();
    return QApplication::exec();
}

}  // namespace

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    QStringList arguments = QApplication::arguments().mid(1);
    const bool isCheck = arguments.removeAll("--check") > 0;
    StandardErrorLog log;
    quellbrook::EnvironmentScope environment;
    environment->errorLog = &log;
    try {
        return Run(arguments.isEmpty() ? "." : arguments.first().toStdString(), isCheck);
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "%s\n", failure.what());
        return 1;
    }
}

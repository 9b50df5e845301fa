#include "app/Run.h"

#include "app/ComponentLifetime.h"
#include "app/Department.h"
#include "app/LocaleFormats.h"
#include "app/LogFile.h"
#include "app/MainWindow.h"
#include "app/RunningProgram.h"
#include "app/SystemTheme.h"
#include "app/Termination.h"
#include "app/Tour.h"
#include "app/WindowSize.h"
#include "app/scanner/PrinterChoice.h"
#include "base/Error.h"
#include "host/DatabaseSession.h"
#include "host/HostServices.h"

#include <QApplication>
#include <QLocale>
#include <QMessageBox>
#include <QStandardPaths>

#include <cstdio>

namespace quellbrook {

namespace {

void Refuse(const Options& options, const Error& error) {
    std::fprintf(stderr, "%s\n", error.what());
    if (options.tourDirectory) return;  // they run unattended
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Quellbrook"), QString::fromStdString(error.Description()));
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

int ShowDepartment(const Options& options, const Department& department, ClassObjectGetter getClassObject,
                   const Termination& termination) {
    UseDepartment(department);
    HostServices::Current().SetFormats(FormatsOf(QLocale::system()));
    ApplyPrinterChoice(PrinterChoiceFile());
    std::optional<QString> user;
    if (options.user) user = QString::fromStdString(*options.user);
    MainWindow window(QString::fromStdString(DatabaseSession().AgencyName()), user, AccountsToShow(), getClassObject);
    if (options.tourDirectory)
        return PlayTour(window, QString::fromStdString(*options.tourDirectory), department, termination,
                        options.uncategorized ? TourScenario::Categorization : TourScenario::Department);
    const SystemTheme theme(QDBusConnection::sessionBus());
    if (options.record) window.OpenRecord(*options.record);
    const auto server = department.scratch ? nullptr : ListenForRecords(department.path, window);
    RestoreWindowSize(window, WindowSizeFile());
    window.show();
    const int code = termination.IsRequested() ? Termination::ExitCode : QApplication::exec();
    SaveWindowSize(window, WindowSizeFile());
    return code;
}

}  // namespace

int RunHost(const Options& options, const std::function<ClassObjectGetter()>& openComponent) {
    const QString dataDirectory = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    const LogFile log(dataDirectory);
    if (options.refusedRecord) {
        Refuse(options, *options.refusedRecord);
        return 2;
    }
    if (OpenInRunningProgram(options, dataDirectory.toStdString())) return 0;
    const ComponentLifetime component;
    const Termination termination;
    try {
        const ClassObjectGetter getClassObject = openComponent();
        return ShowDepartment(options, OpenDepartmentWithProgress(options, dataDirectory.toStdString(), termination),
                              getClassObject, termination);
    } catch (...) {
        if (termination.IsRequested()) return Termination::ExitCode;
        Refuse(options, CurrentError());
        return 1;
    }
}

}  // namespace quellbrook

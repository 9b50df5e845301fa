#include "app/Run.h"

#include "app/Department.h"
#include "app/LocaleFormats.h"
#include "app/MainWindow.h"
#include "app/records/SchemeRegistration.h"
#include "app/records/SingleInstance.h"
#include "app/scanner/PrinterChoice.h"
#include "base/Error.h"
#include "base/FormatCount.h"
#include "component/Quellbrook.h"
#include "demo/gallery/GalleryWindow.h"
#include "demo/sample/ProgressBar.h"
#include "demo/tour/TourPlayer.h"
#include "demo/tour/TransferRoad.h"
#include "host/DatabaseSession.h"
#include "host/ErrorLog.h"
#include "host/HostServices.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QProgressDialog>
#include <QStandardPaths>

#include <cstdio>

namespace quellbrook {

namespace {

constexpr int tourKeyPause = 2000;  // milliseconds

// The component's seams, installed as long as this lives.
class Component {
public:
    Component() {
        const QPalette system = QApplication::palette();
        InstallTheme(system.color(QPalette::Window).lightness() < system.color(QPalette::WindowText).lightness());
        Startup();
    }
    ~Component() {
        HostServices& host = HostServices::Current();
        host.SetSession(nullptr);
        host.SetPrinter(nullptr);
        host.SetThumbnails(nullptr);
        host.SetFiles(nullptr);
        host.SetEngine(nullptr);
        Shutdown();
    }
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;
};

// The log in the data directory; without one that can be written entries go to standard error.
class LogFile {
public:
    explicit LogFile(const QString& directory) {
        try {
            QDir().mkpath(directory);
            m_log = MakeFileErrorLog(QDir(directory).filePath(QStringLiteral("errors.log")).toStdString());
            SetErrorLog(m_log.get());
        } catch (const Error& error) {
            std::fprintf(stderr, "%s\n", error.what());
        }
    }
    ~LogFile() { SetErrorLog(nullptr); }
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

private:
    std::unique_ptr<ErrorLog> m_log;
};

Department OpenWithProgress(const Options& options, const QString& dataDirectory) {
    QProgressDialog window(QObject::tr("Making the sample department..."), QString(), 0, 100);
    window.setWindowTitle(QStringLiteral("Quellbrook"));
    window.setMinimumDuration(300);
    sample::ProgressBar bar(
        options.size ? FormatCount(*options.size, "Making a department of %d item", "Making a department of %d items")
                     : "Making the sample department");
    return OpenDepartment(options, dataDirectory.toStdString(), [&window, &bar](int percent) {
        window.setValue(percent);
        bar.Show(percent);
    });
}

void Refuse(const Options& options, const Error& error) {
    std::fprintf(stderr, "%s\n", error.what());
    if (options.tourDirectory || options.galleryDirectory) return;  // nobody is there to close a box
    QMessageBox box(QMessageBox::Critical, QStringLiteral("Quellbrook"), QString::fromStdString(error.Description()));
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

std::vector<ShownAccount> AccountsToShow() {
    std::vector<ShownAccount> shown;
    if (!IsSampleDepartment()) return shown;
    for (const SampleAccount& account : SampleAccounts()) {
        shown.push_back({QString::fromStdString(account.username), QString::fromStdString(account.password),
                         QString::fromStdString(account.role)});
    }
    return shown;
}

QString SocketOf(const std::string& databasePath) {
    return InstanceSocket(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation), databasePath);
}

// Whether a program that runs already shows the record.
bool IsShownElsewhere(const Options& options, const QString& dataDirectory) {
    if (!options.record) return false;
    const auto path = DepartmentPath(options, dataDirectory.toStdString());
    return path && HandOver(SocketOf(*path), *options.record);
}

// Null for a copy that no other start can open.
std::unique_ptr<InstanceServer> HearAddresses(const Department& department, MainWindow& window) {
    if (department.scratch) return nullptr;
    auto server = std::make_unique<InstanceServer>(SocketOf(department.path));
    QObject::connect(server.get(), &InstanceServer::Arrived, &window, [&window](const RecordAddress& address) {
        window.BringToFront();
        window.OpenRecord(address);
    });
    return server;
}

int Open(const Options& options, const Department& department) {
    UseDepartment(department);
    HostServices::Current().SetFormats(FormatsOf(QLocale::system()));
    ApplyPrinterChoice(PrinterChoiceFile());
    std::optional<QString> user;
    if (options.user) user = QString::fromStdString(*options.user);
    MainWindow window(QString::fromStdString(DatabaseSession().AgencyName()), user, AccountsToShow());
    if (!options.tourDirectory) {
        if (options.record) window.OpenRecord(*options.record);
        const auto server = HearAddresses(department, window);
        window.show();
        return QApplication::exec();
    }
    window.showMaximized();
    // On a busy machine keys come with pauses that a list would take for the end of a word.
    QApplication::setKeyboardInputInterval(tourKeyPause);
    TourPlayer player(window, QString::fromStdString(*options.tourDirectory), department.path);
    PlanTransferRoad(player);
    player.Start();
    QApplication::exec();
    return player.Held() ? 0 : 1;
}

int ShowGallery(const Options& options) {
    gallery::GalleryWindow window;
    if (options.galleryDirectory) {
        window.WritePictures(QString::fromStdString(*options.galleryDirectory));
        return 0;
    }
    window.show();
    return QApplication::exec();
}

}  // namespace

int RunRegistration(const Options& options) {
    std::vector<std::string> arguments;
    if (options.databasePath) {
        const QFileInfo file(QString::fromStdString(*options.databasePath));
        arguments.push_back("--database=sqlite:" + file.absoluteFilePath().toStdString());
    }
    if (options.size) arguments.push_back("--size=" + std::to_string(*options.size));
    try {
        std::puts(RegisterRecordScheme(QCoreApplication::applicationFilePath().toStdString(), arguments).c_str());
        return 0;
    } catch (...) {
        std::fprintf(stderr, "%s\n", CurrentError().what());
        return 1;
    }
}

int RunHost(const Options& options) {
    const QString dataDirectory = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    const LogFile log(dataDirectory);
    if (IsShownElsewhere(options, dataDirectory)) return 0;
    const Component component;
    try {
        if (options.gallery || options.galleryDirectory) return ShowGallery(options);
        const Department department = OpenWithProgress(options, dataDirectory);
        return Open(options, department);
    } catch (...) {
        Refuse(options, CurrentError());
        return 1;
    }
}

}  // namespace quellbrook

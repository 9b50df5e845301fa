#include "app/Department.h"

#include "app/Termination.h"
#include "base/Error.h"
#include "base/ErrorLog.h"
#include "base/FormatCount.h"
#include "database/SqliteEngine.h"
#include "database/odbc/OdbcEngine.h"
#include "database/odbc/ServerDatabase.h"
#include "demo/sample/Progress.h"
#include "demo/sample/ProgressBar.h"
#include "host/HostDatabase.h"
#include "host/HostServices.h"

#include <QDir>
#include <QProgressDialog>

#include <cstdio>
#include <filesystem>

namespace quellbrook {

namespace {

void MakeDirectory(const std::string& path) {
    std::error_code failure;
    std::filesystem::create_directories(path, failure);
    if (failure) {
        Raise(ErrorNumber::General, "OpenDepartment",
              "The directory '" + path + "' can't be created: " + failure.message() + ".");
    }
}

std::string FileName(const SampleOptions& options) {
    return options.items > 0 ? "department-" + std::to_string(options.items) + ".sqlite" : "sample.sqlite";
}

}  // namespace

std::optional<std::string> DepartmentPath(const Options& options, const std::string& dataDirectory) {
    if (options.databasePath) return options.databasePath;
    if (options.server) return options.server;
    if (options.fresh || options.tourDirectory) return std::nullopt;
    return (std::filesystem::path(dataDirectory) / FileName({options.size.value_or(0)})).string();
}

namespace {

// A folder for a database and the files beside it, deleted with the result. The path is what its own begins with.
std::unique_ptr<QTemporaryDir> MakeScratchFolder(const std::string& path) {
    auto folder = std::make_unique<QTemporaryDir>(QString::fromStdString(path));
    if (!folder->isValid())
        Raise(ErrorNumber::General, "OpenDepartment",
              "A folder for the scratch copy can't be created: " + folder->errorString().toStdString());
    return folder;
}

std::string InTemporaryFolder() { return QDir::temp().filePath(QStringLiteral("quellbrook")).toStdString(); }

std::string PathIn(const QTemporaryDir& folder, const std::string& name) {
    return folder.filePath(QString::fromStdString(name)).toStdString();
}

// Creates a sample as a file, with pictures and templates beside it, and copies its rows into the empty database.
void FillServer(const std::string& connectionString, const SampleOptions& options, const std::string& path,
                const SampleProgress& progress) {
    CreateSampleDepartment(path, options, sample::PartOf(progress, 0, 50));
    const std::unique_ptr<Connection> rows = SqliteEngine::Open(path)->Open();
    CreateServerDatabase(connectionString, WholeDatabaseLimits, {rows.get(), sample::PartOf(progress, 50, 100)});
}

// A sample in the empty database, with its files in a scratch folder.
Department CreateForTour(const Options& options, const SampleProgress& progress) {
    const SampleOptions sample{0, options.uncategorized};
    Department department;
    department.scratch = MakeScratchFolder(InTemporaryFolder());
    department.path = PathIn(*department.scratch, FileName(sample));
    FillServer(*options.server, sample, department.path, progress);
    department.engine = OdbcEngine::Open(*options.server);
    return department;
}

Department OpenServer(const std::string& connectionString, const std::string& dataDirectory) {
    Department department;
    department.path = (std::filesystem::path(dataDirectory) / "server").string();
    MakeDirectory(dataDirectory);
    AddMissingLabelTemplates(dataDirectory);
    department.engine = OdbcEngine::Open(connectionString);
    return department;
}

}  // namespace

void CreateOnServer(const Options& options, const std::string& dataDirectory, const SampleProgress& progress) {
    if (!options.sample && !options.size) return CreateServerDatabase(*options.server, WholeDatabaseLimits);
    MakeDirectory(dataDirectory);
    const auto scratch = MakeScratchFolder((std::filesystem::path(dataDirectory) / "create").string());
    FillServer(*options.server, {options.size.value_or(0)}, PathIn(*scratch, "department.sqlite"), progress);
    std::filesystem::copy(PathIn(*scratch, "Pictures"), std::filesystem::path(dataDirectory) / "Pictures",
                          std::filesystem::copy_options::recursive | std::filesystem::copy_options::skip_existing);
}

Department OpenDepartment(const Options& options, const std::string& dataDirectory, const SampleProgress& progress) {
    if (options.server && options.tourDirectory) return CreateForTour(options, progress);
    if (options.server) return OpenServer(*options.server, dataDirectory);
    const SampleOptions sample{options.size.value_or(0), options.uncategorized};
    Department department;
    if (const auto path = DepartmentPath(options, dataDirectory)) {
        department.path = *path;
    } else {
        department.scratch = MakeScratchFolder(InTemporaryFolder());
        department.path = PathIn(*department.scratch, FileName(sample));
    }
    if (!options.databasePath) {
        MakeDirectory(std::filesystem::path(department.path).parent_path().string());
        if (!std::filesystem::exists(department.path)) CreateSampleDepartment(department.path, sample, progress);
        AddMissingLabelTemplates(std::filesystem::path(department.path).parent_path().string());
    }
    const std::shared_ptr<SqliteEngine> engine = SqliteEngine::Open(department.path);
    for (const std::string& note : engine->Notes()) LogFailure("OpenDepartment", note);
    engine->CheckInBackground();
    department.engine = engine;
    department.notes = engine->Notes();
    return department;
}

Department OpenDepartmentWithProgress(const Options& options, const std::string& dataDirectory,
                                      const Termination& termination) {
    QProgressDialog window(QObject::tr("Creating the sample department..."), QString(), 0, 100);
    window.setWindowTitle(QStringLiteral("Quellbrook"));
    window.setMinimumDuration(300);
    sample::ProgressBar bar(options.size ? FormatCount(*options.size, "Creating a department of %d item",
                                                       "Creating a department of %d items")
                                         : "Creating the sample department");
    Department department = OpenDepartment(options, dataDirectory, [&window, &bar, &termination](int percent) {
        if (termination.IsRequested())
            Raise(ErrorNumber::General, "OpenDepartment", "The creation of the department was canceled.");
        window.setValue(percent);
        bar.Show(percent);
    });
    for (const std::string& note : department.notes) std::fprintf(stderr, "%s\n", note.c_str());
    return department;
}

void UseDepartment(const Department& department) {
    const std::filesystem::path directory = std::filesystem::absolute(department.path).parent_path();
    HostServices& host = HostServices::Current();
    host.SetEngine(department.engine);
    host.SetFiles(std::make_shared<DirectoryFiles>(directory));
    host.SetThumbnails(std::make_shared<PictureAttachments>(directory));
}

std::vector<SampleAccount> AccountsToShow() {
    HostDatabase& database = GetHostDatabase();
    const std::string condition = "Name = " + database.PrepareText(SampleNames::MarkerSetting);
    const bool isSample = ToTextOrEmpty(database.LookupValue("Setting", "Value", {condition})) == "1";
    return isSample ? SampleAccounts() : std::vector<SampleAccount>();
}

}  // namespace quellbrook

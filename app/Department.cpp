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

void CreateOnServer(const Options& options, const std::string& dataDirectory, const SampleProgress& progress) {
    constexpr int hour = 3600;
    const ServerLimits limits{ServerLimits().login, hour};
    if (!options.size) return CreateServerDatabase(*options.server, limits);
    MakeDirectory(dataDirectory);
    const QTemporaryDir scratch(QString::fromStdString((std::filesystem::path(dataDirectory) / "create").string()));
    if (!scratch.isValid())
        Raise(ErrorNumber::General, "CreateOnServer",
              "A scratch folder can't be created: " + scratch.errorString().toStdString());
    const std::string path = scratch.filePath(QStringLiteral("department.sqlite")).toStdString();
    CreateSampleDepartment(path, {*options.size}, sample::PartOf(progress, 0, 50));
    const std::unique_ptr<Connection> rows = SqliteEngine::Open(path)->Open();
    CreateServerDatabase(*options.server, limits, {rows.get(), sample::PartOf(progress, 50, 100)});
    const std::filesystem::path pictures = scratch.filePath(QStringLiteral("Pictures")).toStdString();
    std::filesystem::copy(pictures, std::filesystem::path(dataDirectory) / "Pictures",
                          std::filesystem::copy_options::recursive | std::filesystem::copy_options::skip_existing);
}

namespace {

Department OpenServer(const std::string& connectionString, const std::string& dataDirectory) {
    Department department;
    department.path = (std::filesystem::path(dataDirectory) / "server").string();
    MakeDirectory(dataDirectory);
    AddMissingLabelTemplates(dataDirectory);
    department.engine = OdbcEngine::Open(connectionString);
    return department;
}

}  // namespace

Department OpenDepartment(const Options& options, const std::string& dataDirectory, const SampleProgress& progress) {
    if (options.server) return OpenServer(*options.server, dataDirectory);
    const SampleOptions sample{options.size.value_or(0), options.uncategorized};
    Department department;
    if (const auto path = DepartmentPath(options, dataDirectory)) {
        department.path = *path;
    } else {
        department.scratch = std::make_unique<QTemporaryDir>();
        if (!department.scratch->isValid())
            Raise(ErrorNumber::General, "OpenDepartment",
                  "A folder for the scratch copy can't be created: " + department.scratch->errorString().toStdString());
        department.path = department.scratch->filePath(QString::fromStdString(FileName(sample))).toStdString();
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

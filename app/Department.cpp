#include "app/Department.h"

#include "base/Error.h"
#include "database/SqliteEngine.h"
#include "host/HostDatabase.h"
#include "host/HostServices.h"

#include <filesystem>
#include <vector>

#include <stdlib.h>

namespace quellbrook {

namespace {

void MakeDirectory(const std::string& path) {
    std::error_code failure;
    std::filesystem::create_directories(path, failure);
    if (failure) {
        Raise(ErrorNumber::General, "OpenDepartment",
              "The directory '" + path + "' can't be made: " + failure.message() + ".");
    }
}

std::string FileName(const SampleOptions& options) {
    return options.items > 0 ? "department-" + std::to_string(options.items) + ".sqlite" : "sample.sqlite";
}

}  // namespace

ScratchDirectory::ScratchDirectory() {
    std::string name = (std::filesystem::temp_directory_path() / "quellbrook-XXXXXX").string();
    std::vector<char> buffer(name.begin(), name.end());
    buffer.push_back('\0');
    if (!mkdtemp(buffer.data())) {
        Raise(ErrorNumber::General, "ScratchDirectory", "No scratch directory can be made for a copy of the sample.");
    }
    m_path = buffer.data();
}

ScratchDirectory::~ScratchDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::optional<std::string> DepartmentPath(const Options& options, const std::string& dataDirectory) {
    if (options.databasePath) return options.databasePath;
    if (options.fresh || options.tourDirectory) return std::nullopt;
    return (std::filesystem::path(dataDirectory) / FileName({options.size.value_or(0)})).string();
}

Department OpenDepartment(const Options& options, const std::string& dataDirectory, const SampleProgress& progress) {
    const SampleOptions sample{options.size.value_or(0)};
    Department department;
    if (const auto path = DepartmentPath(options, dataDirectory)) {
        department.path = *path;
    } else {
        department.scratch = std::make_unique<ScratchDirectory>();
        department.path = (std::filesystem::path(department.scratch->Path()) / FileName(sample)).string();
    }
    if (!options.databasePath) {
        MakeDirectory(std::filesystem::path(department.path).parent_path().string());
        if (!std::filesystem::exists(department.path)) CreateSampleDepartment(department.path, sample, progress);
        AddMissingLabelTemplates(std::filesystem::path(department.path).parent_path().string());
    }
    department.engine = SqliteEngine::Open(department.path);
    return department;
}

void UseDepartment(const Department& department) {
    const std::filesystem::path directory = std::filesystem::absolute(department.path).parent_path();
    HostServices& host = HostServices::Current();
    host.SetEngine(department.engine);
    host.SetFiles(std::make_shared<DirectoryFiles>(directory));
    host.SetThumbnails(std::make_shared<PictureAttachments>(directory));
}

bool IsSampleDepartment() {
    HostDatabase& database = GetHostDatabase();
    const std::string condition = "Name = " + database.PrepareText(SampleNames::MarkerSetting);
    return ToTextOrEmpty(database.LookupValue("Setting", "Value", {condition})) == "1";
}

}  // namespace quellbrook

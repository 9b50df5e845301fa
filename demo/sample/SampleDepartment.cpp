#include "demo/sample/SampleDepartment.h"

#include "base/Error.h"
#include "base/Text.h"
#include "database/schema/SqliteSchema.h"
#include "demo/sample/Attach.h"
#include "demo/sample/Departments.h"
#include "demo/sample/LabelTemplates.h"
#include "demo/sample/Pictures.h"
#include "demo/sample/Progress.h"
#include "host/CodeTableLookup.h"
#include "host/DatabaseSession.h"

#include <cerrno>
#include <filesystem>

#include <fcntl.h>
#include <signal.h>
#include <unistd.h>

namespace quellbrook {

namespace {

const char* const source = "CreateSampleDepartment";
const char* const unfinishedEnding = ".making";

struct Right {
    const char* module;
    int32_t value;
};

struct AccountPlan {
    SampleAccount account;
    int32_t person;
    std::vector<Right> rights;
};

const std::vector<AccountPlan>& Plans() {
    static const std::vector<AccountPlan> plans = {
        {{"custodian", "lantern", "everything"},
         sample::Officer::Raman,
         {{"MIProperty", 0},
          {"MIVehicle", 0},
          {"Storage", 0},
          {"Storage", 1},
          {"Storage", 2},
          {"Storage", 11},
          {"Storage", 12},
          {"Storage", 13},
          {"Storage", 15},
          {"EvidenceManagement", 11},
          {"Incident", 5},
          {"Incident", 6}}},
        {{"clerk", "pencil", "sign in, sign out, move"},
         107,
         {{"MIProperty", 0}, {"MIVehicle", 0}, {"Storage", 0}, {"Storage", 1}}},
        {{"auditor", "ledger", "view only"},
         112,
         {{"MIProperty", 0}, {"MIVehicle", 0}, {"Storage", 0}, {"Incident", 5}}},
    };
    return plans;
}

void WriteHostTables(sample::DepartmentWriter& writer) {
    writer.AddCodes(CodeTable::FinalDispositionStatus, sample::FinalDispositionStatuses());
    writer.AddCodes(CodeTable::PropertyCategory, sample::PropertyCategories());
    writer.AddCodes(CodeTable::CustodyReason, sample::CustodyReasons());
    writer.AddCodes(CodeTable::VehicleCategory, sample::VehicleCategories());
    for (const sample::Person& person : sample::Persons()) writer.AddPerson(person);
    for (const AccountPlan& plan : Plans()) {
        writer.AddAccount(plan.account.username, HashPassword(plan.account.password), plan.person);
        for (const Right& right : plan.rights) writer.AddRight(plan.account.username, right.module, right.value);
    }
    writer.AddFolder(sample::PropertyFolder, sample::PropertyPictures);
    writer.AddFolder(sample::VehicleFolder, sample::VehiclePictures);
    writer.AddSetting("AgencyName", SampleNames::AgencyName);
    writer.AddSetting(SampleNames::MarkerSetting, "1");
}

void RemoveDatabaseFiles(const std::string& path) {
    std::error_code ignored;
    for (const char* suffix : {"", "-wal", "-shm", "-journal"}) std::filesystem::remove(path + suffix, ignored);
}

void FlushToDisk(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const bool flushed = file >= 0 && fsync(file) == 0;
    if (file >= 0) close(file);
    if (!flushed) Raise(ErrorNumber::General, source, "The file '" + path + "' could not be written to the disk.");
}

void Fill(const std::string& path, const SampleOptions& options, const SampleProgress& progress) {
    sample::DepartmentWriter writer(path);
    WriteHostTables(writer);
    const SampleProgress rows = sample::PartOf(progress, 0, 55);
    if (options.uncategorized) {
        WriteUncategorizedDepartment(writer, rows);
    } else if (options.items > 0) {
        WriteLargeDepartment(writer, options.items, rows);
    } else {
        WriteSmallDepartment(writer, rows);
    }
    writer.Finish(sample::PartOf(progress, 55, 99));
}

// Whether the text is a process number, and no such process is running.
bool IsGoneProcess(const std::string& text) {
    int32_t number = 0;
    try {
        number = ParseInt32(text);
    } catch (const Error&) {
        return false;
    }
    return number > 0 && kill(number, 0) != 0 && errno == ESRCH;
}

// Removes the files of a creation that was killed.
void RemoveLeftovers(const std::filesystem::path& path) {
    std::vector<std::string> leftovers;
    std::error_code ignored;
    const std::filesystem::path directory = path.has_parent_path() ? path.parent_path() : ".";
    for (const auto& entry : std::filesystem::directory_iterator(directory, ignored)) {
        const std::filesystem::path name = entry.path().filename(), stem = name.stem();
        const std::string process = stem.extension().string();
        if (name.extension() != unfinishedEnding || stem.stem() != path.filename() || process.empty()) continue;
        if (IsGoneProcess(process.substr(1))) leftovers.push_back(entry.path().string());
    }
    for (const std::string& leftover : leftovers) RemoveDatabaseFiles(leftover);
}

void RefuseStandingFile(const std::string& path) {
    if (std::filesystem::exists(path)) {
        Raise(ErrorNumber::General, source, "The department can't be created: there already is a file '" + path + "'.");
    }
}

}  // namespace

const std::vector<SampleAccount>& SampleAccounts() {
    static const std::vector<SampleAccount> accounts = [] {
        std::vector<SampleAccount> list;
        for (const AccountPlan& plan : Plans()) list.push_back(plan.account);
        return list;
    }();
    return accounts;
}

void CreateSampleDepartment(const std::string& path, const SampleOptions& options, const SampleProgress& progress) {
    RefuseStandingFile(path);
    RemoveLeftovers(path);
    const std::string unfinished = path + "." + std::to_string(getpid()) + unfinishedEnding;
    RemoveDatabaseFiles(unfinished);
    sample::CompanionFiles companions(std::filesystem::path(path).parent_path());
    try {
        CreateDatabase(unfinished);
        Fill(unfinished, options, progress);
        companions.Write(sample::DrawPictures());
        companions.Write(sample::LabelTemplates());
        FlushToDisk(unfinished);
        if (progress) progress(100);
        RefuseStandingFile(path);
        std::filesystem::rename(unfinished, path);
        companions.Keep();
    } catch (...) {
        const Error failure = CurrentError();
        RemoveDatabaseFiles(unfinished);
        throw failure;
    }
}

void AddMissingLabelTemplates(const std::string& directory) {
    sample::CompanionFiles companions(directory);
    companions.Write(sample::LabelTemplates());
    companions.Keep();
}

}  // namespace quellbrook

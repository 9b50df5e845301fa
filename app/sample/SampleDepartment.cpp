#include "app/sample/SampleDepartment.h"

#include "app/sample/Departments.h"
#include "base/Error.h"
#include "host/CodeTableLookup.h"
#include "host/DatabaseSession.h"
#include "host/schema/SqliteSchema.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace quellbrook {

namespace {

const char* const source = "CreateSampleDepartment";

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
         {{"MIProperty", 0}, {"MIVehicle", 0}, {"Storage", 0}, {"Storage", 1}, {"Storage", 2}, {"Storage", 11},
          {"Storage", 12}, {"Storage", 13}, {"Storage", 15}, {"EvidenceManagement", 11}, {"Incident", 5}, {"Incident", 6}}},
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
    if (options.items > 0) {
        WriteLargeDepartment(writer, options.items, progress);
    } else {
        WriteSmallDepartment(writer, progress);
    }
    writer.Finish();
}

void RefuseStandingFile(const std::string& path) {
    if (std::filesystem::exists(path)) {
        Raise(ErrorNumber::General, source, "The department can't be made: there already is a file '" + path + "'.");
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
    const std::string unfinished = path + "." + std::to_string(getpid()) + ".making";
    RemoveDatabaseFiles(unfinished);
    try {
        CreateDatabase(unfinished);
        Fill(unfinished, options, progress);
        FlushToDisk(unfinished);
        RefuseStandingFile(path);
        std::filesystem::rename(unfinished, path);
    } catch (...) {
        const Error failure = CurrentError();
        RemoveDatabaseFiles(unfinished);
        throw failure;
    }
}

}  // namespace quellbrook

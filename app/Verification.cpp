#include "app/Verification.h"

#include "app/Department.h"
#include "base/Error.h"
#include "base/FormatCount.h"
#include "database/SqliteEngine.h"
#include "database/odbc/ServerVerification.h"
#include "database/schema/DatabaseVerification.h"
#include "database/schema/SideTables.h"

#include <QStandardPaths>

#include <cstdio>

namespace quellbrook {

namespace {

void Print(const RuleCheck& check) {
    std::printf("%s %s\n", check.faults == 0 ? "  ok   " : "  WRONG", check.rule.c_str());
    for (const std::string& example : check.examples) std::printf("            %s.\n", example.c_str());
    const auto rest = check.faults - static_cast<int64_t>(check.examples.size());
    if (rest > 0) std::printf("            And %s more.\n", FormatNumber(rest).c_str());
}

struct Findings {
    std::vector<RuleCheck> checks;
    const char* repair;  // what --repair does
};

Findings VerifyFile(const Options& options) {
    const QString dataDirectory = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    const Department department = OpenDepartment(options, dataDirectory.toStdString(), {});
    std::puts(department.path.c_str());
    if (options.repair) {
        RepairSideTables(department.path, SqliteEngine::BusyMilliseconds);
        std::puts("The side tables and triggers were restored.");
    }
    return {VerifyDatabase(department.path, SqliteEngine::BusyMilliseconds),
            "--repair restores side tables and triggers, nothing else."};
}

Findings VerifyServer(const Options& options) {
    if (options.repair) {
        RebuildServerPlaces(*options.server);
        std::puts("The side table CurrentPlace was filled again.");
    }
    return {VerifyServerDatabase(*options.server), "--repair fills the side table CurrentPlace again, nothing else."};
}

bool IsEveryRuleKept(const Findings& findings) {
    size_t broken = 0;
    for (const RuleCheck& check : findings.checks) {
        Print(check);
        if (check.faults > 0) ++broken;
    }
    if (broken == 0) {
        std::puts("Nothing is wrong.");
    } else {
        const std::string sentence =
            FormatCount(static_cast<int64_t>(broken), "%d rule is broken.", "%d rules are broken.");
        std::puts((sentence + " " + findings.repair).c_str());
    }
    return broken == 0;
}

}  // namespace

int RunVerification(const Options& options) {
    try {
        return IsEveryRuleKept(options.server ? VerifyServer(options) : VerifyFile(options)) ? 0 : 1;
    } catch (...) {
        std::fprintf(stderr, "%s\n", CurrentError().what());
        return 1;
    }
}

}  // namespace quellbrook

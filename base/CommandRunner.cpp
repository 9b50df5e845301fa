#include "base/CommandRunner.h"

#include "base/Error.h"

namespace quellbrook {

namespace {

CommandRunner& Installed() {
    static CommandRunner runner;
    return runner;
}

}  // namespace

void RunCommand(const std::string& commandLine) {
    if (!Installed()) Raise(ErrorNumber::General, "RunCommand", "This workstation has no program that opens records.");
    Installed()(commandLine);
}

void SetCommandRunner(CommandRunner runner) { Installed() = std::move(runner); }

}  // namespace quellbrook

#include "base/Environment.h"

#include <vector>

namespace quellbrook {

namespace {

std::vector<const Environment*>& Installed() {
    static auto& installed = *new std::vector<const Environment*>;  // outlives every static scope
    return installed;
}

void ReportByDefault(const Error& error) {
    LogFailure(error.Source(), error.Description());
    ShowMessage(error.Description(), MessageStyle::Critical, "Unexpected Error");
}

}  // namespace

Environment::Environment()
    : makeTimer([]() -> std::unique_ptr<Timer> { Raise(ErrorNumber::NullObject, "MakeTimer"); }),
      isKeyDown([](int) { return false; }),
      makeMessageHook([]() -> std::unique_ptr<MessageHook> { Raise(ErrorNumber::NullObject, "MakeMessageHook"); }),
      runCommand([](const std::string&) {
          Raise(ErrorNumber::General, "RunCommand", "This workstation has no program that opens records.");
      }),
      loadPicture([](const std::string&) -> Picture { Raise(ErrorNumber::NullObject, "LoadPicture"); }),
      reportUnexpected(ReportByDefault) {}

const Environment& GetEnvironment() {
    static const Environment safe;
    return Installed().empty() ? safe : *Installed().back();
}

EnvironmentScope::EnvironmentScope(Environment environment) : m_environment(std::move(environment)) {
    Installed().push_back(&m_environment);
}

EnvironmentScope::~EnvironmentScope() { std::erase(Installed(), &m_environment); }

const Clock& GetClock() { return *GetEnvironment().clock; }
std::unique_ptr<Timer> MakeTimer() { return GetEnvironment().makeTimer(); }
bool IsKeyDown(int keyCode) { return GetEnvironment().isKeyDown(keyCode); }
std::unique_ptr<MessageHook> MakeMessageHook() { return GetEnvironment().makeMessageHook(); }
void RunCommand(const std::string& commandLine) { GetEnvironment().runCommand(commandLine); }
Picture LoadPicture(const std::string& fileName) { return GetEnvironment().loadPicture(fileName); }

Screen& GetScreen() {
    if (!GetEnvironment().screen) Raise(ErrorNumber::NullObject, "GetScreen");
    return *GetEnvironment().screen;
}

int32_t ShowMessage(const std::string& prompt, int32_t buttons, const std::string& title) {
    return GetScreen().ShowMessage(prompt, buttons, title);
}

ErrorLog& GetErrorLog() { return *GetEnvironment().errorLog; }

void LogFailure(const std::string& source, const std::string& description) noexcept {
    try {
        GetErrorLog().Log("Quellbrook", source, description);
    } catch (...) {
        return;
    }
}

}  // namespace quellbrook

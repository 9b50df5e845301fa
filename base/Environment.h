#pragma once

#include "base/Clock.h"
#include "base/Error.h"
#include "base/ErrorLog.h"
#include "base/MessageHook.h"
#include "base/Picture.h"
#include "base/Screen.h"
#include "base/Timer.h"

#include <functional>
#include <memory>
#include <string>

namespace quellbrook {

const Clock& SystemClock();
ErrorLog& StandardErrorLog();

// Everything that the system needs from the machine, the desktop and the user. Each member has a safe default: the
// system's clock, a log on standard error, no key down, and an Error for functions that need a desktop. Never assign
// null, except to the screen. Pointers are not owned.
struct Environment {
    const Clock* clock = &SystemClock();
    std::function<std::unique_ptr<Timer>()> makeTimer;               // Error 91 by default
    std::function<bool(int keyCode)> isKeyDown;                      // 37 to 40 are Left, Up, Right and Down
    std::function<std::unique_ptr<MessageHook>()> makeMessageHook;   // active at once; Error 91 by default
    std::function<void(const std::string& commandLine)> runCommand;  // starts a command line of the host, or Error 5
    Screen* screen = nullptr;
    std::function<Picture(const std::string& fileName)> loadPicture;  // see LoadPicture; Error 91 by default
    ErrorLog* errorLog = &StandardErrorLog();
    // For an error that no handler caught. The default logs it and shows it with the title "Unexpected Error".
    std::function<void(const Error&)> reportUnexpected;

    Environment();
};

// The environment of the innermost active scope; the safe defaults without one.
const Environment& GetEnvironment();

// Installs an environment for its own lifetime and then restores the previous one. Scopes nest. The owner may change
// individual members of the installed environment through ->. User interface thread only.
class EnvironmentScope {
public:
    explicit EnvironmentScope(Environment environment = GetEnvironment());
    ~EnvironmentScope();
    EnvironmentScope(const EnvironmentScope&) = delete;
    EnvironmentScope& operator=(const EnvironmentScope&) = delete;

    Environment* operator->() { return &m_environment; }

private:
    Environment m_environment;
};

bool IsKeyDown(int keyCode);
void RunCommand(const std::string& commandLine);

}  // namespace quellbrook

#pragma once

#include <string>

namespace quellbrook {

// The log of failures.
class ErrorLog {
public:
    virtual ~ErrorLog() = default;
    virtual void Log(const std::string& application, const std::string& source, const std::string& message) = 0;
};

// The log of the environment.
ErrorLog& GetErrorLog();

// Logs an entry for this module. Ignores a failure of the log, which could not be reported anywhere.
void LogFailure(const std::string& source, const std::string& description) noexcept;

// The text of an entry as the logs write it. Continuation lines are indented, so every line that begins at the margin
// starts an entry.
std::string LogEntryText(const std::string& application, const std::string& source, const std::string& message);

}  // namespace quellbrook

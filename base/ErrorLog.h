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

// Logs an entry of this module. A failure of the log is ignored: there is nowhere left to report it.
void LogFailure(const std::string& source, const std::string& description) noexcept;

// The text of an entry as the logs write it. Lines after the first are indented, so that every line that begins at the
// margin is an entry.
std::string LogEntryText(const std::string& application, const std::string& source, const std::string& message);

}  // namespace quellbrook

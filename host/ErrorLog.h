#pragma once

#include <memory>
#include <string>

namespace quellbrook {

// The log of failures. Logging never fails its caller.
class ErrorLog {
public:
    virtual ~ErrorLog() = default;
    virtual void Log(const std::string& application, const std::string& source, const std::string& message) = 0;
};

// The log in use. Until SetErrorLog, or after null, entries go to standard error.
ErrorLog& GetErrorLog();
void SetErrorLog(ErrorLog* log);  // the caller keeps ownership

// An entry of this module's own. A log that fails is passed over: there is no other place left to tell of it.
void LogFailure(const std::string& source, const std::string& description) noexcept;

// A log in a rotating file: 5 files of 1 MiB. Error 5 where the file can't be written.
std::unique_ptr<ErrorLog> MakeFileErrorLog(const std::string& path);

}  // namespace quellbrook

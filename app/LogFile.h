#pragma once

#include "host/ErrorLog.h"

#include <QString>

#include <memory>

namespace quellbrook {

// Installs errors.log in the directory as the error log. If the file cannot be written, entries go to standard error.
class LogFile {
public:
    explicit LogFile(const QString& directory);
    ~LogFile();
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

private:
    std::unique_ptr<ErrorLog> m_log;
};

}  // namespace quellbrook

#pragma once

#include "base/Environment.h"

#include <QString>

#include <memory>

namespace quellbrook {

// Installs errors.log in the directory as the error log. If the file cannot be written, entries go to standard error.
class LogFile {
public:
    explicit LogFile(const QString& directory);

private:
    std::unique_ptr<ErrorLog> m_log;
    EnvironmentScope m_environment;
};

}  // namespace quellbrook

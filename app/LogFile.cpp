#include "app/LogFile.h"

#include "base/Error.h"

#include <QDir>

#include <cstdio>

namespace quellbrook {

LogFile::LogFile(const QString& directory) {
    try {
        QDir().mkpath(directory);
        m_log = MakeFileErrorLog(QDir(directory).filePath(QStringLiteral("errors.log")).toStdString());
        SetErrorLog(m_log.get());
    } catch (const Error& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
}

LogFile::~LogFile() { SetErrorLog(nullptr); }

}  // namespace quellbrook

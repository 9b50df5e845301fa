#include "app/LogFile.h"

#include "host/FileErrorLog.h"

#include <QDir>

#include <cstdio>

namespace quellbrook {

LogFile::LogFile(const QString& directory) {
    try {
        QDir().mkpath(directory);
        m_log = MakeFileErrorLog(QDir(directory).filePath(QStringLiteral("errors.log")).toStdString());
        m_environment->errorLog = m_log.get();
    } catch (const Error& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
}

}  // namespace quellbrook

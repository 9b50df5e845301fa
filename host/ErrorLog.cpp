#include "host/ErrorLog.h"

#include "base/Error.h"
#include "base/Text.h"

#include <cstdio>

#include <spdlog/logger.h>
#include <spdlog/sinks/rotating_file_sink.h>

namespace quellbrook {

namespace {

// Further lines are indented, so that every line that begins at the margin is an entry.
std::string EntryText(const std::string& application, const std::string& source, const std::string& message) {
    const std::string text = application + ": " + source + ": " + message;
    return Replace(Replace(Replace(text, "\r\n", "\n"), "\r", "\n"), "\n", "\n    ");
}

class StandardErrorLog : public ErrorLog {
public:
    void Log(const std::string& application, const std::string& source, const std::string& message) override {
        std::fprintf(stderr, "%s\n", EntryText(application, source, message).c_str());
    }
};

class FileErrorLog : public ErrorLog {
public:
    explicit FileErrorLog(const std::string& path)
        : m_logger("errors", std::make_shared<spdlog::sinks::rotating_file_sink_st>(path, fileSize, olderFiles)) {
        m_logger.set_pattern("%Y-%m-%d %H:%M:%S.%e %v");
        m_logger.flush_on(spdlog::level::info);
    }

    void Log(const std::string& application, const std::string& source, const std::string& message) override {
        m_logger.error(spdlog::string_view_t(EntryText(application, source, message)));
    }

private:
    static constexpr size_t fileSize = 1024 * 1024;
    static constexpr size_t olderFiles = 4;

    spdlog::logger m_logger;
};

StandardErrorLog standardErrorLog;
ErrorLog* current = &standardErrorLog;

}  // namespace

ErrorLog& GetErrorLog() { return *current; }
void SetErrorLog(ErrorLog* log) { current = log ? log : &standardErrorLog; }

void LogFailure(const std::string& source, const std::string& description) noexcept {
    try {
        GetErrorLog().Log("Quellbrook", source, description);
    } catch (...) {
        return;
    }
}

std::unique_ptr<ErrorLog> MakeFileErrorLog(const std::string& path) {
    try {
        return std::make_unique<FileErrorLog>(path);
    } catch (const std::exception& failure) {
        Raise(ErrorNumber::General, "MakeFileErrorLog", failure.what());
    }
}

}  // namespace quellbrook

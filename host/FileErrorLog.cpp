#include "host/FileErrorLog.h"

#include "base/Error.h"

#include <spdlog/logger.h>
#include <spdlog/sinks/rotating_file_sink.h>

#include <sys/stat.h>
#include <cstdio>

namespace quellbrook {

namespace {

constexpr size_t fileSize = 1024 * 1024;
constexpr size_t olderFiles = 4;

// Entries name users and items.
spdlog::file_event_handlers OwnersOnly() {
    spdlog::file_event_handlers handlers;
    handlers.after_open = [](const spdlog::filename_t&, std::FILE* file) { fchmod(fileno(file), S_IRUSR | S_IWUSR); };
    return handlers;
}

class FileErrorLog : public ErrorLog {
public:
    explicit FileErrorLog(const std::string& path)
        : m_logger("errors", std::make_shared<spdlog::sinks::rotating_file_sink_st>(path, fileSize, olderFiles, false,
                                                                                    OwnersOnly())) {
        m_logger.set_pattern("%Y-%m-%d %H:%M:%S.%e %v");
        m_logger.flush_on(spdlog::level::info);
    }

    void Log(const std::string& application, const std::string& source, const std::string& message) override {
        m_logger.error(spdlog::string_view_t(LogEntryText(application, source, message)));
    }

private:
    spdlog::logger m_logger;
};

// Earlier versions of this program let others read them.
void MakeOlderFilesPrivate(const std::string& path) {
    for (size_t i = 1; i <= olderFiles; ++i)
        chmod(spdlog::sinks::rotating_file_sink_st::calc_filename(path, i).c_str(), S_IRUSR | S_IWUSR);
}

}  // namespace

std::unique_ptr<ErrorLog> MakeFileErrorLog(const std::string& path) {
    try {
        MakeOlderFilesPrivate(path);
        return std::make_unique<FileErrorLog>(path);
    } catch (const std::exception& failure) {
        Raise(ErrorNumber::General, "MakeFileErrorLog", failure.what());
    }
}

}  // namespace quellbrook

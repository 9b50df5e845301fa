#include "base/ErrorLog.h"

#include "base/Environment.h"
#include "base/Text.h"

#include <cstdio>

namespace quellbrook {

namespace {

class StandardError : public ErrorLog {
public:
    void Log(const std::string& application, const std::string& source, const std::string& message) override {
        std::fprintf(stderr, "%s\n", LogEntryText(application, source, message).c_str());
    }
};

}  // namespace

std::string LogEntryText(const std::string& application, const std::string& source, const std::string& message) {
    const std::string text = application + ": " + source + ": " + message;
    return Replace(Replace(Replace(text, "\r\n", "\n"), "\r", "\n"), "\n", "\n    ");
}

ErrorLog& StandardErrorLog() {
    static StandardError log;
    return log;
}

}  // namespace quellbrook

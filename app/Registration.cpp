#include "app/Registration.h"

#include "app/records/SchemeRegistration.h"
#include "base/Error.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>

namespace quellbrook {

int RunRegistration(const Options& options) {
    std::vector<std::string> arguments;
    if (options.databasePath) {
        const QFileInfo file(QString::fromStdString(*options.databasePath));
        arguments.push_back("--database=sqlite:" + file.absoluteFilePath().toStdString());
    }
    if (options.size) arguments.push_back("--size=" + std::to_string(*options.size));
    try {
        std::puts(RegisterRecordScheme(QCoreApplication::applicationFilePath().toStdString(), arguments).c_str());
        return 0;
    } catch (...) {
        std::fprintf(stderr, "%s\n", CurrentError().what());
        return 1;
    }
}

}  // namespace quellbrook

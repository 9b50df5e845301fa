#include "app/ComponentLibrary.h"
#include "app/Creation.h"
#include "app/Options.h"
#include "app/Registration.h"
#include "app/Run.h"
#include "app/Verification.h"
#include "base/Error.h"

#include <QApplication>

#include <cstdio>

namespace {

quellbrook::Options OptionsOf(int argc, char** argv) {
    QStringList arguments;
    for (int i = 0; i < argc; ++i) arguments << QString::fromLocal8Bit(argv[i]);
    return quellbrook::ParseOptions(arguments);
}

}  // namespace

int main(int argc, char** argv) {
    using namespace quellbrook;
    Options options;
    try {
        options = OptionsOf(argc, argv);
    } catch (const Error& error) {
        std::fprintf(stderr, "%s\n", error.Description().c_str());
        return 2;
    }
    if (options.help || options.registerScheme) {
        const QCoreApplication application(argc, argv);
        return options.help ? std::fputs(HelpText().c_str(), stdout) < 0 : RunRegistration(options);
    }
    if (options.verify || options.repair || options.create) {
        const QCoreApplication application(argc, argv);
        QCoreApplication::setApplicationName(QStringLiteral("quellbrook"));
        return options.create ? RunCreation(options) : RunVerification(options);
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quellbrook"));
    return RunHost(options, [] {
        return OpenComponentLibrary(ClassRecordPaths(QCoreApplication::applicationDirPath().toStdString()));
    });
}

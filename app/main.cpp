#include "app/Options.h"
#include "app/Run.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char** argv) {
    using namespace quellbrook;
    const auto parsed = ParseOptions({argv + 1, argv + argc});
    if (const auto* error = std::get_if<OptionError>(&parsed)) {
        std::fprintf(stderr, "%s\n", error->sentence.c_str());
        return 2;
    }
    const Options& options = std::get<Options>(parsed);
    if (options.help) {
        std::fputs(HelpText().c_str(), stdout);
        return 0;
    }
    if (options.registerScheme) {
        const QCoreApplication application(argc, argv);
        return RunRegistration(options);
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quellbrook"));
    return RunHost(options);
}

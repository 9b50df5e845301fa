#include "app/Creation.h"

#include "app/Department.h"
#include "base/Error.h"
#include "base/FormatCount.h"
#include "demo/sample/ProgressBar.h"

#include <QStandardPaths>

#include <cstdio>

namespace quellbrook {

int RunCreation(const Options& options) {
    try {
        const std::string directory = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation).toStdString();
        sample::ProgressBar bar("Creating the department");
        CreateOnServer(options, directory, [&bar](int percent) { bar.Show(percent); });
        std::string rows = options.sample ? "with the rows of the sample" : "without rows";
        if (options.size) rows = FormatCount(*options.size, "with %d item", "with %d items");
        std::puts(("The department was created " + rows + ".").c_str());
        return 0;
    } catch (...) {
        std::fprintf(stderr, "%s\n", CurrentError().what());
        return 1;
    }
}

}  // namespace quellbrook

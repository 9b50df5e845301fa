#include "base/Error.h"
#include "component/Quellbrook.h"
#include "demo/gallery/GalleryWindow.h"

#include <QApplication>

#include <cstdio>

// quellbrook-gallery [DIR]: shows the gallery, or writes its pictures to a directory.
int main(int argc, char** argv) {
    using namespace quellbrook;
    const QApplication application(argc, argv);
    std::optional<std::string> pictureDirectory;
    if (argc > 1) pictureDirectory = argv[1];
    InstallTheme(false);
    Startup();
    int code = 1;
    try {
        code = gallery::RunGallery(pictureDirectory);
    } catch (...) {
        std::fprintf(stderr, "%s\n", CurrentError().what());
    }
    Shutdown();
    return code;
}

#include "host/Picture.h"

#include "base/Error.h"

namespace quellbrook {

namespace {

PictureLoader& Loader() {
    static PictureLoader loader;
    return loader;
}

}  // namespace

Picture LoadPicture(const std::string& fileName) {
    if (!Loader()) Raise(ErrorNumber::NullObject, "LoadPicture");
    return Loader()(fileName);
}

void SetPictureLoader(PictureLoader loader) { Loader() = std::move(loader); }

}  // namespace quellbrook

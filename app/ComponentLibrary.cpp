#include "app/ComponentLibrary.h"

#include "base/Error.h"
#include "base/Text.h"

#include <dlfcn.h>

#include <QStandardPaths>
#include <QStringList>

#include <filesystem>
#include <fstream>

namespace quellbrook {

namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(const std::string& description) {
    Raise(ErrorNumber::General, "OpenComponentLibrary", description);
}

// A relative path starts at the folder of the record.
fs::path LibraryIn(const std::string& recordPath) {
    constexpr std::string_view key = "Path=";
    std::ifstream file(recordPath);
    for (std::string line; std::getline(file, line);)
        if (line.starts_with(key) && line.size() > key.size())
            return (fs::path(recordPath).parent_path() / line.substr(key.size())).lexically_normal();
    Fail("The record of the component's classes '" + recordPath + "' does not name a library.");
}

}  // namespace

std::vector<std::string> ClassRecordPaths(const std::string& programDirectory) {
    const char* const name = "quellbrook/classes.ini";
    std::vector<std::string> paths{(fs::path(programDirectory) / "../share" / name).lexically_normal().string()};
    for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation))
        paths.push_back((fs::path(folder.toStdString()) / name).string());
    return paths;
}

ClassObjectGetter OpenComponentLibrary(const std::vector<std::string>& recordPaths) {
    for (const std::string& recordPath : recordPaths) {
        std::error_code ignored;
        if (!fs::exists(recordPath, ignored)) continue;
        const fs::path library = LibraryIn(recordPath);
        // Stays open: objects of the component exist until the program ends.
        void* const handle = dlopen(library.c_str(), RTLD_NOW);
        if (!handle) Fail("The component can't be loaded: " + std::string(dlerror()) + ".");
        const auto getter = reinterpret_cast<ClassObjectGetter>(dlsym(handle, "DllGetClassObject"));
        if (getter == &DllGetClassObject) return getter;
        dlclose(handle);
        Fail("The record '" + recordPath + "' names '" + library.string() +
             "', which is not the component that this program was installed with.");
    }
    Fail("The component is not registered. There is no record of its classes in: " + Join(recordPaths, ", ") + ".");
}

std::shared_ptr<void> CreateComponentObject(ClassObjectGetter getClassObject, const char* classId) {
    void* found = nullptr;
    std::shared_ptr<void> object;
    int32_t result = getClassObject(classId, InterfaceId::ClassFactory, &found);
    if (result == ComponentResult::Ok) {
        auto* const factory = static_cast<ClassFactory*>(found);
        result = factory->CreateInstance(nullptr, &object);
        factory->Release();
    }
    if (!object)
        Raise(ErrorNumber::General, "CreateComponentObject",
              "The component can't create an object of the class " + std::string(classId) + " (result " +
                  std::to_string(result) + ").");
    return object;
}

}  // namespace quellbrook

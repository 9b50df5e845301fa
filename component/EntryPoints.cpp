#include "base/Object.h"
#include "component/ClassFactory.h"
#include "component/ClassRecord.h"
#include "component/Factories.h"
#include "component/UseCount.h"
#include "data/StorageLocationStatic.h"

#include <dlfcn.h>
#include <unistd.h>

#include <filesystem>

using namespace quellbrook;

namespace {

std::string LibraryPath() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&DllRegisterServer), &info) == 0) return {};
    return std::filesystem::absolute(info.dli_fname).string();
}

// The module keeps its roots as long as it is loaded. Only those without another reference are its own.
int64_t ObjectsOfModule() {
    int64_t count = 1;
    for (const StorageLocationRef& root : GetStorageLocationStatic().Roots())
        if (root.use_count() == 1) ++count;
    return count;
}

template <typename Work>
int32_t Register(Work work) {
    try {
        work();
        return ComponentResult::Ok;
    } catch (...) {
        return ComponentResult::RegistrationFailed;
    }
}

}  // namespace

int32_t DllRegisterServer() noexcept {
    return Register([] { WriteClassRecord(ClassRecordPath(geteuid() == 0), LibraryPath()); });
}

int32_t DllUnregisterServer() noexcept {
    return Register([] { DeleteClassRecord(ClassRecordPath(geteuid() == 0)); });
}

int32_t DllGetClassObject(const char* classId, const char* interfaceId, void** object) noexcept {
    if (!object) return ComponentResult::NullPointer;
    *object = nullptr;
    if (!classId) return ComponentResult::NullPointer;
    ClassFactory* const factory = FindFactory(classId);
    return factory ? factory->QueryInterface(interfaceId, object) : ComponentResult::ClassNotAvailable;
}

int32_t DllCanUnloadNow() noexcept {
    try {
        const int64_t own = ObjectsOfModule();  // first, since it creates them
        const bool isIdle = UseCount::Current() == 0 && Object::LiveCount() == own;
        return isIdle ? ComponentResult::Ok : ComponentResult::False;
    } catch (...) {
        return ComponentResult::False;
    }
}

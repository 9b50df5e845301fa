#include "tests/support/ScratchSystem.h"

#include <dlfcn.h>
#include <unistd.h>

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

TEST(Registration, TheLibraryRecordsItsOwnPath) {
    ScratchSystem system;
    system.Set("XDG_DATA_HOME", system.In("user"));
    system.Set("XDG_DATA_DIRS", system.In("machine"));
    void* const library = dlopen(QUELLBROOK_LIBRARY, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(library, nullptr) << dlerror();
    const auto call = [&](const char* name) { return reinterpret_cast<int32_t (*)()>(dlsym(library, name))(); };
    const std::string record = std::string(geteuid() == 0 ? "machine" : "user") + "/quellbrook/classes.ini";
    EXPECT_EQ(call("DllRegisterServer"), 0);
    EXPECT_NE(system.Content(record).find("\nPath=" QUELLBROOK_LIBRARY "\n"), std::string::npos)
        << system.Content(record);
    EXPECT_EQ(call("DllUnregisterServer"), 0);
    EXPECT_EQ(system.Content(record), "");
    dlclose(library);
}

}  // namespace
}  // namespace quellbrook::testing

#include "tests/support/MemoryInUse.h"
#include "tests/support/ScratchFolder.h"

#include <dlfcn.h>

#include <QApplication>

#include <gtest/gtest.h>

#include <iostream>

namespace quellbrook::testing {
namespace {

// A library between dlopen and dlclose.
class Library {
public:
    explicit Library(const char* path) : m_handle(dlopen(path, RTLD_NOW | RTLD_LOCAL)) {
        if (!m_handle) ADD_FAILURE() << dlerror();
    }
    ~Library() {
        if (m_handle && dlclose(m_handle) != 0) ADD_FAILURE() << dlerror();
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    template <typename Function>
    Function* Find(const char* name) const {
        return m_handle ? reinterpret_cast<Function*>(dlsym(m_handle, name)) : nullptr;
    }

private:
    void* m_handle;
};

class Rounds : public ::testing::Test {
protected:
    void SetUp() override {
        const Library host(QUELLBROOK_ROUND);
        const auto makeDepartment = host.Find<void(const char*)>("MakeDepartment");
        ASSERT_NE(makeDepartment, nullptr);
        makeDepartment(m_database.c_str());
    }

    // Loads the component and a host's module, uses the component, and closes both.
    void Play() const {
        const Library component(QUELLBROOK_LIBRARY);
        const Library host(QUELLBROOK_ROUND);
        const auto round = host.Find<const char*(const char*)>("Round");
        ASSERT_NE(round, nullptr);
        ASSERT_STREQ(round(m_database.c_str()), "");
        const auto canUnloadNow = component.Find<int32_t()>("DllCanUnloadNow");
        ASSERT_NE(canUnloadNow, nullptr);
        ASSERT_EQ(canUnloadNow(), 0);
    }

    int m_argumentCount = 1;
    char m_name[6] = "round";
    char* m_arguments[2] = {m_name, nullptr};
    const QApplication m_application{m_argumentCount, m_arguments};
    const ScratchFolder m_folder;
    const std::string m_database = m_folder.In("department.sqlite");
};

TEST_F(Rounds, AHundredRoundsGiveTheSameAnswersAndKeepNoMemory) {
    for (int round = 0; round < 20; ++round) ASSERT_NO_FATAL_FAILURE(Play());
    const size_t before = MemoryInUse();
    for (int round = 20; round < 100; ++round) ASSERT_NO_FATAL_FAILURE(Play());
    const auto growth = static_cast<int64_t>(MemoryInUse()) - static_cast<int64_t>(before);
    RecordProperty("growth", std::to_string(growth));
    std::cout << "80 rounds have grown the heap by " << growth << " bytes.\n";
    EXPECT_LT(growth, 64 * 1024);
}

}  // namespace
}  // namespace quellbrook::testing

#include "app/ComponentLibrary.h"

#include "base/Error.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ScratchSystem.h"

#include <dlfcn.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class ComponentLibrary : public ::testing::Test {
protected:
    std::string Record(const std::string& text) {
        std::ofstream(m_system.In("classes.ini")) << text;
        return m_system.In("classes.ini");
    }
    static std::string Refusal(const std::vector<std::string>& records) {
        const Error error = RaisedBy([&] { OpenComponentLibrary(records); });
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        return error.Description();
    }

    ScratchSystem m_system;
};

TEST_F(ComponentLibrary, IsLookedForBesideTheProgramThenForTheUserThenForTheMachine) {
    m_system.Set("XDG_DATA_HOME", "/home/clerk/data");
    m_system.Set("XDG_DATA_DIRS", "/machine/a:/machine/b");
    EXPECT_THAT(ClassRecordPaths("/opt/quellbrook/bin"),
                ::testing::ElementsAre("/opt/quellbrook/share/quellbrook/classes.ini",
                                       "/home/clerk/data/quellbrook/classes.ini", "/machine/a/quellbrook/classes.ini",
                                       "/machine/b/quellbrook/classes.ini"));
}

TEST_F(ComponentLibrary, NotRegisteredIsReportedWithThePlaces) {
    EXPECT_EQ(Refusal({m_system.In("a"), m_system.In("b")}),
              "The component is not registered. There is no record of its classes in: " + m_system.In("a") + ", " +
                  m_system.In("b") + ".");
}

TEST_F(ComponentLibrary, ARecordWithoutALibraryIsReported) {
    for (const char* text : {"", "[Library]\n", "[Library]\nPath=\n"}) {
        const std::string record = Record(text);
        EXPECT_EQ(Refusal({record}), "The record of the component's classes '" + record + "' does not name a library.");
    }
}

TEST_F(ComponentLibrary, ALibraryThatCannotBeLoadedIsReported) {
    const std::string refusal = Refusal({m_system.In("none"), Record("[Library]\nPath=lib/missing.so\n")});
    EXPECT_THAT(refusal, StartsWith("The component can't be loaded: " + m_system.In("lib/missing.so") + ":"));
}

TEST_F(ComponentLibrary, AnotherLibraryIsRefused) {
    Dl_info library{};
    ASSERT_NE(dladdr(reinterpret_cast<void*>(&sqlite3_libversion), &library), 0);
    const std::string record = Record("[Library]\nPath=other.so\n");
    const std::string other = m_system.In("other.so");
    std::filesystem::copy_file(library.dli_fname, other);
    EXPECT_EQ(Refusal({record}), "The record '" + record + "' names '" + other +
                                     "', which is not the component that this program was installed with.");
}

int32_t NoClass(const char*, const char*, void** object) noexcept {
    *object = nullptr;
    return ComponentResult::ClassNotAvailable;
}

TEST_F(ComponentLibrary, AnObjectThatCannotBeCreatedIsReportedWithTheResult) {
    const Error error = RaisedBy([] { CreateComponentObject(NoClass, ClassId::CaseInfo); });
    EXPECT_EQ(error.Description(),
              "The component can't create an object of the class 47486c07-9328-4b97-94fb-32a5a1f9d008 (result "
              "-2147221231).");
}

TEST_F(ComponentLibrary, ObjectsLeaveNoReferenceToTheFactory) {
    EXPECT_NE(CreateComponentObject<void>(&DllGetClassObject, ClassId::CaseInfo), nullptr);
    EXPECT_EQ(DllCanUnloadNow(), ComponentResult::Ok);
}

}  // namespace
}  // namespace quellbrook::testing

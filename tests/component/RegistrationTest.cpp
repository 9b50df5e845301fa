#include "component/ClassFactory.h"
#include "component/ClassRecord.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ScratchSystem.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

using ::testing::HasSubstr;

// Data folders of the user and of the machine in a scratch folder.
class Registration : public ::testing::Test {
protected:
    Registration() {
        m_system.Set("HOME", m_system.In("home"));
        m_system.Set("XDG_DATA_HOME", m_system.In("user"));
        m_system.Set("XDG_DATA_DIRS", m_system.In("machine") + ":" + m_system.In("vendor"));
    }

    const std::string m_folder = geteuid() == 0 ? "machine" : "user";
    const std::string m_record = m_folder + "/quellbrook/classes.ini";
    ScratchSystem m_system;
};

TEST_F(Registration, RecordsTheLibraryAndItsClasses) {
    EXPECT_EQ(DllRegisterServer(), ComponentResult::Ok);
    const std::string record = m_system.Content(m_record);
    EXPECT_THAT(record, HasSubstr("\nPath=" + std::filesystem::read_symlink("/proc/self/exe").string() + "\n"));
    EXPECT_THAT(record, HasSubstr(std::string("\nSingletons=") + ClassId::Singletons + "\n"));
    EXPECT_THAT(record, HasSubstr(std::string("\nEvidenceUI=") + ClassId::EvidenceUI + "\n"));
    EXPECT_THAT(record, HasSubstr(std::string("\nStorageLocation=") + ClassId::StorageLocation + "\n"));
    EXPECT_THAT(record, HasSubstr(std::string("\nStorageLocationStatic=") + ClassId::StorageLocationStatic + "\n"));
    EXPECT_THAT(record, HasSubstr(std::string("\nStoredItem=") + ClassId::StoredItem + "\n"));
    EXPECT_THAT(record, HasSubstr(std::string("\nStoredItemSearch=") + ClassId::StoredItemSearch + "\n"));
    EXPECT_THAT(record, HasSubstr(std::string("\nIncidentInfo=") + ClassId::IncidentInfo + "\n"));
    EXPECT_THAT(record, HasSubstr(std::string("\nCaseInfo=") + ClassId::CaseInfo + "\n"));
    EXPECT_THAT(record, HasSubstr(std::string("\nTrackingRecord=") + ClassId::TrackingRecord + "\n"));
}

TEST_F(Registration, WritesNothingElse) {
    EXPECT_EQ(DllRegisterServer(), ComponentResult::Ok);
    EXPECT_EQ(DllRegisterServer(), ComponentResult::Ok);
    std::vector<std::string> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(m_system.Path()))
        if (entry.is_regular_file()) files.push_back(std::filesystem::relative(entry, m_system.Path()).string());
    EXPECT_THAT(files, ::testing::ElementsAre(m_record));
}

TEST_F(Registration, TakesAnotherRecordsPlace) {
    std::filesystem::create_directories(m_system.In(m_folder + "/quellbrook"));
    std::ofstream(m_system.In(m_record)) << "[Library]\nPath=/elsewhere/libquellbrook.so.0\n";
    EXPECT_EQ(DllRegisterServer(), ComponentResult::Ok);
    EXPECT_EQ(m_system.Content(m_record).find("elsewhere"), std::string::npos);
}

TEST_F(Registration, IsUndone) {
    EXPECT_EQ(DllUnregisterServer(), ComponentResult::Ok);
    EXPECT_EQ(DllRegisterServer(), ComponentResult::Ok);
    EXPECT_EQ(DllUnregisterServer(), ComponentResult::Ok);
    EXPECT_FALSE(std::filesystem::exists(m_system.In(m_record)));
}

TEST_F(Registration, AFolderThatIsAFileMakesItFail) {
    std::ofstream(m_system.In(m_folder)) << "a file";
    EXPECT_EQ(DllRegisterServer(), ComponentResult::RegistrationFailed);
    EXPECT_EQ(m_system.Content(m_folder), "a file");
}

TEST_F(Registration, ARecordThatCannotBeReplacedStaysAndNothingIsLeftBehind) {
    std::filesystem::create_directories(m_system.In(m_record + "/full"));
    EXPECT_EQ(DllRegisterServer(), ComponentResult::RegistrationFailed);
    EXPECT_EQ(DllUnregisterServer(), ComponentResult::RegistrationFailed);
    const auto folder = std::filesystem::directory_iterator(m_system.In(m_folder + "/quellbrook"));
    EXPECT_EQ(std::distance(begin(folder), end(folder)), 1);
}

TEST_F(Registration, TheUsersRecordIsInTheDataFolder) {
    EXPECT_EQ(ClassRecordPath(false), m_system.In("user/quellbrook/classes.ini"));
    for (const char* invalid : {"", "relative"}) {
        m_system.Set("XDG_DATA_HOME", invalid);
        EXPECT_EQ(ClassRecordPath(false), m_system.In("home/.local/share/quellbrook/classes.ini")) << invalid;
    }
    m_system.Set("HOME", "");
    EXPECT_EQ(ClassRecordPath(false), "");
}

TEST_F(Registration, TheMachinesRecordIsWhereNoPackageInstallsIt) {
    EXPECT_EQ(ClassRecordPath(true), m_system.In("machine/quellbrook/classes.ini"));
    for (const char* folders : {"", "relative", "/var/lib/exports:/usr/local/share/:/usr/share", "/usr/local/share"}) {
        m_system.Set("XDG_DATA_DIRS", folders);
        EXPECT_EQ(ClassRecordPath(true), "/usr/local/share/quellbrook/classes.ini") << folders;
    }
    m_system.Set("XDG_DATA_DIRS", "relative:/opt/share:/usr/share");
    EXPECT_EQ(ClassRecordPath(true), "/opt/share/quellbrook/classes.ini");
}

TEST_F(Registration, EveryoneMayReadTheRecord) {
    const mode_t before = umask(077);
    EXPECT_EQ(DllRegisterServer(), ComponentResult::Ok);
    umask(before);
    using std::filesystem::perms;
    const perms readable = perms::owner_read | perms::owner_write | perms::group_read | perms::others_read;
    EXPECT_EQ(std::filesystem::status(m_system.In(m_record)).permissions(), readable);
    const auto folder = std::filesystem::path(m_system.In(m_record)).parent_path();
    EXPECT_EQ(std::filesystem::status(folder).permissions() & perms::others_all,
              perms::others_read | perms::others_exec);
}

TEST_F(Registration, APathThatNoLibraryHasIsRefused) {
    EXPECT_THROW(WriteClassRecord(m_system.In(m_record), ""), std::exception);
    EXPECT_THROW(WriteClassRecord(m_system.In(m_record), "/a\nb.so"), std::exception);
    EXPECT_THROW(WriteClassRecord("", "/a.so"), std::exception);
    EXPECT_FALSE(std::filesystem::exists(m_system.In(m_record)));
}

}  // namespace
}  // namespace quellbrook::testing

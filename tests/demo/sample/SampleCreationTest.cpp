#include "base/Error.h"
#include "database/SqliteEngine.h"
#include "tests/demo/sample/SampleFile.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include <gtest/gtest.h>
#include <unistd.h>

namespace quellbrook::testing {

namespace {

std::string RefusalOf(const std::string& path) {
    try {
        SqliteEngine::Open(path);
    } catch (const Error& error) {
        return error.Description();
    }
    return "";
}

class SampleCreationTest : public ::testing::Test {
protected:
    // The only entry of the folder while a creation is running.
    std::string Unfinished() const {
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.Path())) {
            if (entry.path().extension() == ".making") return entry.path().string();
        }
        return "";
    }

    const ScratchFolder m_folder;
    const std::string m_path = m_folder.In("sample.sqlite");
};

}  // namespace

TEST_F(SampleCreationTest, AnExistingFileIsRefusedAndNotChanged) {
    std::ofstream(m_path) << "mine";
    try {
        CreateSampleDepartment(m_path, {});
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Description(), "The department can't be created: there already is a file '" + m_path + "'.");
    }
    std::ifstream file(m_path);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "mine");
    EXPECT_EQ(m_folder.CountOfEntries(), 1);
}

TEST_F(SampleCreationTest, CreatesTheDatabaseThePicturesAndTheLabelTemplates) {
    CreateSampleDepartment(m_path, {});
    EXPECT_EQ(m_folder.CountOfEntries(), 3);
    EXPECT_NO_THROW(SqliteEngine::Open(m_path));
    EXPECT_TRUE(std::filesystem::is_directory(m_folder.In("Pictures")));
}

TEST_F(SampleCreationTest, ProgressNeverDecreasesAndEndsAtAHundred) {
    int last = 0;
    bool stoodMeanwhile = false;
    CreateSampleDepartment(m_path, {}, [&](int percent) {
        EXPECT_GE(percent, last);
        last = percent;
        stoodMeanwhile = stoodMeanwhile || std::filesystem::exists(m_path);
    });
    EXPECT_EQ(last, 100);
    EXPECT_FALSE(stoodMeanwhile);
}

TEST_F(SampleCreationTest, CancelingAtAnyPercentageLeavesNothing) {
    for (const int end : {0, 54, 75, 99, 100}) {
        SCOPED_TRACE(end);
        EXPECT_THROW(CreateSampleDepartment(m_path, {},
                                            [end](int percent) {
                                                if (percent >= end) throw std::runtime_error("enough");
                                            }),
                     Error);
        EXPECT_EQ(m_folder.CountOfEntries(), 0);
    }
}

TEST_F(SampleCreationTest, ExistingPicturesSurviveAFailedCreation) {
    CreateSampleDepartment(m_folder.In("first.sqlite"), {});
    const auto stop = [](int percent) {
        if (percent == 100) throw std::runtime_error("enough");
    };
    EXPECT_THROW(CreateSampleDepartment(m_path, {}, stop), Error);
    EXPECT_TRUE(std::filesystem::exists(m_folder.In("Pictures/Property/Keys 1.png")));
    EXPECT_EQ(m_folder.CountOfEntries(), 3);
}

TEST_F(SampleCreationTest, TheUnfinishedFileIsNotOpenedAsADepartment) {
    int asked = 0;
    CreateSampleDepartment(m_path, SampleOptions{200}, [&](int percent) {
        if (percent < 10 || percent > 95) return;
        ++asked;
        const std::string unfinished = Unfinished();
        EXPECT_EQ(RefusalOf(unfinished), "The database '" + unfinished + "' belongs to another program.") << percent;
    });
    EXPECT_GT(asked, 5);
    EXPECT_EQ(RefusalOf(m_path), "");
}

TEST_F(SampleCreationTest, AKilledCreationLeavesNoDepartmentAndTheNextCleansUp) {
    const auto killed = [this] {
        CreateSampleDepartment(m_path, SampleOptions{200}, [](int percent) {
            if (percent >= 60) _exit(3);
        });
    };
    EXPECT_EXIT(killed(), ::testing::ExitedWithCode(3), "");
    EXPECT_FALSE(std::filesystem::exists(m_path));
    const std::string unfinished = Unfinished();
    ASSERT_NE(unfinished, "");
    EXPECT_NE(RefusalOf(unfinished), "");

    CreateSampleDepartment(m_path, SampleOptions{20});
    EXPECT_EQ(Unfinished(), "");
    EXPECT_EQ(RefusalOf(m_path), "");
}

TEST_F(SampleCreationTest, AnotherProcessMayCreateADepartmentAtTheSameTime) {
    const std::string others = m_path + "." + std::to_string(getppid()) + ".making";
    const std::string stranger = m_path + ".notes.making";
    for (const std::string& path : {others, stranger}) std::ofstream(path) << "theirs";
    CreateSampleDepartment(m_path, SampleOptions{20});
    EXPECT_TRUE(std::filesystem::exists(others));
    EXPECT_TRUE(std::filesystem::exists(stranger));
}

TEST_F(SampleCreationTest, AReadOnlyFolderIsReported) {
    const std::string path = m_folder.In("absent/sample.sqlite");
    try {
        CreateSampleDepartment(path, {});
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_NE(error.Description().find(path), std::string::npos) << error.Description();
    }
}

}  // namespace quellbrook::testing

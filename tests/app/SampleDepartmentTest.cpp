#include "base/Error.h"
#include "host/engines/SqliteEngine.h"
#include "host/schema/SqliteSchema.h"
#include "tests/app/CustodyChecks.h"
#include "tests/app/SampleFile.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include <gmock/gmock.h>

namespace quellbrook::testing {

using ::testing::ElementsAre;

TEST(SampleDepartment, HoldsSixtyLocationsOnFiveLevelsInEveryCategoryButTheUncategorised) {
    const SampleFile& sample = TheSample();
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM StorageLocation"), 60);
    EXPECT_THAT(sample.Rows("SELECT DISTINCT Type FROM StorageLocation ORDER BY Type"), ElementsAre("2", "4", "8", "16"));
    // A path has a slash more than it has identifiers, the sentinel among them.
    EXPECT_EQ(sample.Number("SELECT MAX(LENGTH(Path) - LENGTH(REPLACE(Path, '/', ''))) - 1 FROM StorageLocation"), 5);
    EXPECT_GE(sample.Number("SELECT COUNT(*) FROM StorageLocation WHERE ActiveFlag = 0"), 3);
}

TEST(SampleDepartment, EveryContainerStandsInTheSameCategory) {
    EXPECT_EQ(TheSample().Number("SELECT COUNT(*) FROM StorageLocation l WHERE l.Path <> '/0/' AND NOT EXISTS (SELECT 1 "
                                 "FROM StorageLocation c WHERE c.Path || c.IdNo || '/' = l.Path AND c.Type = l.Type)"), 0);
}

TEST(SampleDepartment, HoldsThreeHundredPiecesOfPropertyAndFortyVehiclesWithKeysOfTheirOwn) {
    const SampleFile& sample = TheSample();
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Property"), 300);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Vehicle"), 40);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Property WHERE PropertyNo IN (SELECT VehicleNo FROM Vehicle)"), 0);
    EXPECT_EQ(sample.Number("SELECT COUNT(DISTINCT PropertyID) FROM Property"), 300);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Property p LEFT JOIN CodeTable c ON c.TableNumber = 31 AND c.Code = "
                            "p.CategoryNo WHERE c.Code IS NULL"), 0);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Vehicle v LEFT JOIN CodeTable c ON c.TableNumber = 46 AND c.Code = "
                            "v.CategoryNo WHERE c.Code IS NULL"), 0);
}

TEST(SampleDepartment, ItsChainsAreSound) { ExpectSoundChains(TheSample()); }

TEST(SampleDepartment, SomeCustodyRowsLackAPersonAndSomeItemsALocation) {
    const SampleFile& sample = TheSample();
    EXPECT_GT(sample.Number("SELECT COUNT(*) FROM PropertyTracking WHERE ReceivedBy IS NULL"), 0);
    EXPECT_GT(sample.Number("SELECT COUNT(*) FROM PropertyTracking WHERE ReceivedFrom IS NULL"), 0);
    EXPECT_GT(sample.Number("SELECT COUNT(*) FROM Property p INNER JOIN PropertyTracking t ON t.PropertyNo = p.PropertyNo "
                            "AND t.SeqNo = p.CurrTrackSeq WHERE t.StorageLocNo IS NULL"), 0);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Property WHERE CurrTrackSeq IS NULL"), 7);
}

TEST(SampleDepartment, IncidentsAreSecuredInPartAndAnItemMayBelongToTwo) {
    const SampleFile& sample = TheSample();
    EXPECT_GT(sample.Number("SELECT COUNT(*) FROM Incident WHERE IsSecured = 1"), 0);
    EXPECT_GT(sample.Number("SELECT COUNT(*) FROM Incident WHERE CaseNbr IS NULL"), 0);
    EXPECT_THAT(sample.Rows("SELECT i.IncidentId FROM Incident i INNER JOIN IncdProperty l ON l.IncidentNo = i.IncidentNo "
                            "INNER JOIN Property p ON p.PropertyNo = l.PropertyNo WHERE p.PropertyID = '2026-0417-02' "
                            "ORDER BY 1"),
                ElementsAre("2026-0388", "2026-0417"));
}

TEST(SampleDepartment, ShelfBHoldsTwoBinsAndFourteenItems) {
    const SampleFile& sample = TheSample();
    const std::string shelf =
        "(SELECT s.IdNo FROM StorageLocation s INNER JOIN StorageLocation a ON a.Path || a.IdNo || '/' = s.Path INNER "
        "JOIN StorageLocation r ON r.Path || r.IdNo || '/' = a.Path WHERE s.Name = 'Shelf B' AND a.Name = 'Aisle 3' AND "
        "r.Name = 'Property Room')";
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM CurrentPlace WHERE StorageLocNo = " + shelf), 14);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM StorageLocation WHERE ContainerNo = " + shelf), 2);
}

TEST(SampleDepartment, OneRowOfTheLotHoldsPropertyAndVehicles) {
    const std::string row2 = " WHERE StorageLocNo = (SELECT IdNo FROM StorageLocation WHERE Name = 'Row 2') AND ItemType = ";
    EXPECT_GE(TheSample().Number("SELECT COUNT(*) FROM CurrentPlace" + row2 + "1"), 2);
    EXPECT_GE(TheSample().Number("SELECT COUNT(*) FROM CurrentPlace" + row2 + "2"), 1);
}

TEST(SampleDepartment, CodeTablesHoldActiveAndInactiveEntries) {
    EXPECT_THAT(TheSample().Rows("SELECT TableNumber, MIN(IsActive), MAX(IsActive) FROM CodeTable GROUP BY 1 ORDER BY 1"),
                ElementsAre("30|0|1", "31|0|1", "38|0|1", "46|0|1"));
    EXPECT_GE(TheSample().Number("SELECT COUNT(*) FROM Person WHERE IsActive = 1"), 5);
}

TEST(SampleDepartment, TwoRunsGiveTheSameRows) { EXPECT_EQ(SampleFile().Content(), TheSample().Content()); }

TEST(SampleDepartment, KeepsEveryIndexAndTriggerOfTheSchema) {
    const ScratchDirectory directory;
    const std::string path = directory.Path() + "/empty.sqlite";
    CreateDatabase(path);
    const std::string list = "SELECT type || ' ' || name || ' ' || COALESCE(sql, '') FROM sqlite_schema ORDER BY 1";
    SQLite::Database empty(path);
    SQLite::Statement statement(empty, list);
    std::vector<std::string> expected;
    while (statement.executeStep()) expected.push_back(statement.getColumn(0).getString());
    EXPECT_EQ(TheSample().Rows(list), expected);
}

TEST(SampleDepartment, DescriptionsAreInTheSearchIndex) {
    EXPECT_THAT(TheSample().Rows("SELECT p.PropertyID FROM PropertyDescription d INNER JOIN Property p ON p.PropertyNo = "
                                 "d.rowid WHERE d.Description LIKE '%yellow paint transfer%' AND p.PropertyID LIKE "
                                 "'2026-0417-%'"),
                ElementsAre("2026-0417-02"));
}

TEST(SampleDepartment, AStandingFileIsRefusedAndLeftAsItIs) {
    const ScratchDirectory directory;
    const std::string path = directory.Path() + "/sample.sqlite";
    std::ofstream(path) << "mine";
    try {
        CreateSampleDepartment(path, {});
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Description(), "The department can't be made: there already is a file '" + path + "'.");
    }
    std::ifstream file(path);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "mine");
}

TEST(SampleDepartment, AMakingThatEndsHalfwayLeavesNothingBehind) {
    const ScratchDirectory directory;
    const std::string path = directory.Path() + "/sample.sqlite";
    bool stoodMeanwhile = false;
    EXPECT_THROW(CreateSampleDepartment(path, {},
                                        [&](int percent) {
                                            stoodMeanwhile = stoodMeanwhile || std::filesystem::exists(path);
                                            if (percent >= 50) throw std::runtime_error("enough");
                                        }),
                 Error);
    EXPECT_FALSE(stoodMeanwhile);
    EXPECT_TRUE(std::filesystem::is_empty(directory.Path()));
}

TEST(SampleDepartment, AMakingThatSucceedsLeavesTheOneFile) {
    const ScratchDirectory directory;
    const std::string path = directory.Path() + "/sample.sqlite";
    CreateSampleDepartment(path, {});
    const auto files = std::filesystem::directory_iterator(directory.Path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 1);
    EXPECT_NO_THROW(SqliteEngine::Open(path));
}

TEST(SampleDepartment, ProgressNeverGoesBackAndEndsAtAHundred) {
    const ScratchDirectory directory;
    int last = 0;
    CreateSampleDepartment(directory.Path() + "/sample.sqlite", {}, [&](int percent) {
        EXPECT_GE(percent, last);
        last = percent;
    });
    EXPECT_EQ(last, 100);
}

}  // namespace quellbrook::testing

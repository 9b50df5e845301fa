#include "database/schema/SqliteSchema.h"
#include "tests/demo/sample/CustodyChecks.h"
#include "tests/demo/sample/SampleFile.h"

#include <future>

#include <gmock/gmock.h>

namespace quellbrook::testing {

using ::testing::ElementsAre;

TEST(SampleDepartment, HasSixtyLocationsOnFiveLevelsInEveryCategoryExceptUncategorized) {
    const SampleFile& sample = TheSample();
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM StorageLocation"), 60);
    EXPECT_THAT(sample.Rows("SELECT DISTINCT Type FROM StorageLocation ORDER BY Type"),
                ElementsAre("2", "4", "8", "16"));
    // A path has one more slash than identifiers, including the sentinel.
    EXPECT_EQ(sample.Number("SELECT MAX(LENGTH(Path) - LENGTH(REPLACE(Path, '/', ''))) - 1 FROM StorageLocation"), 5);
    EXPECT_GE(sample.Number("SELECT COUNT(*) FROM StorageLocation WHERE ActiveFlag = 0"), 3);
}

TEST(SampleDepartment, EveryContainerIsInTheSameCategory) {
    EXPECT_EQ(
        TheSample().Number("SELECT COUNT(*) FROM StorageLocation l WHERE l.Path <> '/0/' AND NOT EXISTS (SELECT 1 "
                           "FROM StorageLocation c WHERE c.Path || c.IdNo || '/' = l.Path AND c.Type = l.Type)"),
        0);
}

TEST(SampleDepartment, HasThreeHundredPiecesOfPropertyAndFortyVehiclesWithDistinctKeys) {
    const SampleFile& sample = TheSample();
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Property"), 300);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Vehicle"), 40);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Property WHERE PropertyNo IN (SELECT VehicleNo FROM Vehicle)"), 0);
    EXPECT_EQ(sample.Number("SELECT COUNT(DISTINCT PropertyID) FROM Property"),
              sample.Number("SELECT COUNT(PropertyID) FROM Property"));
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Property p LEFT JOIN CodeTable c ON c.TableNumber = 31 AND c.Code = "
                            "p.CategoryNo WHERE p.CategoryNo IS NOT NULL AND c.Code IS NULL"),
              0);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Vehicle v LEFT JOIN CodeTable c ON c.TableNumber = 46 AND c.Code = "
                            "v.CategoryNo WHERE v.CategoryNo IS NOT NULL AND c.Code IS NULL"),
              0);
}

TEST(SampleDepartment, ChainsAreConsistent) { ExpectSoundChains(TheSample()); }

TEST(SampleDepartment, SomeCustodyRowsLackAPersonAndSomeItemsALocation) {
    const SampleFile& sample = TheSample();
    EXPECT_GT(sample.Number("SELECT COUNT(*) FROM PropertyTracking WHERE ReceivedBy IS NULL"), 0);
    EXPECT_GT(sample.Number("SELECT COUNT(*) FROM PropertyTracking WHERE ReceivedFrom IS NULL"), 0);
    EXPECT_GT(
        sample.Number("SELECT COUNT(*) FROM Property p INNER JOIN PropertyTracking t ON t.PropertyNo = p.PropertyNo "
                      "AND t.SeqNo = p.CurrTrackSeq WHERE t.StorageLocNo IS NULL"),
        0);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Property WHERE CurrTrackSeq IS NULL"), 7);
}

TEST(SampleDepartment, SomeIncidentsAreSecuredAndSomeItemsHaveTwo) {
    const SampleFile& sample = TheSample();
    EXPECT_GT(sample.Number("SELECT COUNT(*) FROM Incident WHERE IsSecured = 1"), 0);
    EXPECT_GT(sample.Number("SELECT COUNT(*) FROM Incident WHERE CaseNbr IS NULL"), 0);
    EXPECT_THAT(
        sample.Rows("SELECT i.IncidentId FROM Incident i INNER JOIN IncdProperty l ON l.IncidentNo = i.IncidentNo "
                    "INNER JOIN Property p ON p.PropertyNo = l.PropertyNo WHERE p.PropertyID = '2026-0417-02' "
                    "ORDER BY 1"),
        ElementsAre("2026-0388", "2026-0417"));
}

TEST(SampleDepartment, ShelfBContainsTwoBinsAndFourteenItems) {
    const SampleFile& sample = TheSample();
    const std::string shelf =
        "(SELECT s.IdNo FROM StorageLocation s INNER JOIN StorageLocation a ON a.Path || a.IdNo || '/' = s.Path INNER "
        "JOIN StorageLocation r ON r.Path || r.IdNo || '/' = a.Path WHERE s.Name = 'Shelf B' AND a.Name = 'Aisle 3' "
        "AND "
        "r.Name = 'Property Room')";
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM CurrentPlace WHERE StorageLocNo = " + shelf), 14);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM StorageLocation WHERE ContainerNo = " + shelf), 2);
}

TEST(SampleDepartment, OneRowOfTheLotContainsPropertyAndVehicles) {
    const std::string row2 =
        " WHERE StorageLocNo = (SELECT IdNo FROM StorageLocation WHERE Name = 'Row 2') AND ItemType = ";
    EXPECT_GE(TheSample().Number("SELECT COUNT(*) FROM CurrentPlace" + row2 + "1"), 2);
    EXPECT_GE(TheSample().Number("SELECT COUNT(*) FROM CurrentPlace" + row2 + "2"), 1);
}

TEST(SampleDepartment, CodeTablesHaveActiveAndInactiveEntries) {
    EXPECT_THAT(
        TheSample().Rows("SELECT TableNumber, MIN(IsActive), MAX(IsActive) FROM CodeTable GROUP BY 1 ORDER BY 1"),
        ElementsAre("30|0|1", "31|0|1", "38|0|1", "46|0|1"));
    EXPECT_GE(TheSample().Number("SELECT COUNT(*) FROM Person WHERE IsActive = 1"), 5);
}

TEST(SampleDepartment, CreatingItTwiceGivesTheSameRows) {
    EXPECT_EQ(std::async(std::launch::async, [] { return SampleFile().Content(); }).get(), TheSample().Content());
}

TEST(SampleDepartment, HasEveryIndexAndTriggerOfTheSchema) {
    const ScratchFolder folder;
    const std::string path = folder.In("empty.sqlite");
    CreateDatabase(path);
    const std::string list = "SELECT type || ' ' || name || ' ' || COALESCE(sql, '') FROM sqlite_schema ORDER BY 1";
    SQLite::Database empty(path);
    SQLite::Statement statement(empty, list);
    std::vector<std::string> expected;
    while (statement.executeStep()) expected.push_back(statement.getColumn(0).getString());
    EXPECT_EQ(TheSample().Rows(list), expected);
}

TEST(SampleDepartment, DescriptionsAreInTheSearchIndex) {
    EXPECT_THAT(
        TheSample().Rows("SELECT p.PropertyID FROM PropertyDescription d INNER JOIN Property p ON p.PropertyNo = "
                         "d.rowid WHERE d.Description LIKE '%yellow paint transfer%' AND p.PropertyID LIKE "
                         "'2026-0417-%'"),
        ElementsAre("2026-0417-02"));
}

TEST(SampleDepartment, AFewItemsLackWhatMostHave) {
    const SampleFile& sample = TheSample();
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Property WHERE PropertyID IS NULL"), 1);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Property WHERE CategoryNo IS NULL"), 1);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Property WHERE Quantity IS NULL"), 1);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Property WHERE RecordTypeInd = 0"), 1);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Vehicle WHERE RegStateCode IS NULL"), 1);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Vehicle WHERE RegNumber IS NULL"), 1);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Vehicle WHERE CategoryNo IS NULL"), 1);
}

TEST(SampleDepartment, QuantitiesAreNoneOneManyAndParts) {
    EXPECT_THAT(
        TheSample().Rows("SELECT DISTINCT Quantity FROM Property WHERE Quantity NOT BETWEEN 1 AND 12 OR Quantity "
                         "<> CAST(Quantity AS INTEGER) ORDER BY Quantity"),
        ElementsAre("0", "2.5", "1500"));
}

TEST(SampleDepartment, AnItemOfEitherKindIsLinkedTwiceToOneIncident) {
    for (const char* kind : {"Property", "Vehicle"}) {
        EXPECT_EQ(TheSample().Number("SELECT COUNT(*) FROM (SELECT 1 FROM Incd" + std::string(kind) +
                                     " GROUP BY IncidentNo, " + kind + "No HAVING COUNT(*) = 2)"),
                  1)
            << kind;
    }
}

TEST(SampleDepartment, SomeItemsAreInALocationOutOfUseAndInsideOne) {
    EXPECT_THAT(
        TheSample().Rows("SELECT s.ActiveFlag, a.ActiveFlag FROM CurrentPlace c INNER JOIN StorageLocation s ON "
                         "s.IdNo = c.StorageLocNo INNER JOIN StorageLocation a ON a.IdNo = s.ContainerNo WHERE "
                         "a.Name = 'Records Annex' ORDER BY s.Name"),
        ElementsAre("0|0", "1|0"));
}

TEST(SampleDepartment, SomeNamesContainQuotesBlanksAndOtherScripts) {
    const SampleFile& sample = TheSample();
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM StorageLocation WHERE Name <> TRIM(Name)"), 1);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM StorageLocation WHERE Name LIKE '%\"%'"), 1);
    EXPECT_EQ(sample.Number("SELECT COUNT(*) FROM Property WHERE Description <> TRIM(Description)"), 1);
    EXPECT_GE(sample.Number("SELECT COUNT(*) FROM Property WHERE Description LIKE '%''%' AND Description LIKE '%\"%'"),
              1);
    EXPECT_GE(
        sample.Number("SELECT COUNT(*) FROM Property WHERE LENGTH(Description) < LENGTH(CAST(Description AS BLOB))"),
        4);
}

TEST(SampleDepartment, ItemsOnTheShelvesOpenedFirstAreComplete) {
    EXPECT_EQ(TheSample().Number(
                  "SELECT COUNT(*) FROM CurrentPlace c INNER JOIN StorageLocation s ON s.IdNo = "
                  "c.StorageLocNo LEFT JOIN Property p ON c.ItemType = 1 AND p.PropertyNo = c.ItemNo LEFT "
                  "JOIN Vehicle v ON c.ItemType = 2 AND v.VehicleNo = c.ItemNo WHERE s.Name IN ('Row 2', "
                  "'Latent Prints', 'Shelf B') AND (COALESCE(p.CategoryNo, v.CategoryNo) IS NULL OR "
                  "COALESCE(p.PropertyID, v.RegNumber || v.RegStateCode, '') = '' OR p.Description LIKE '%<%')"),
              0);
}

}  // namespace quellbrook::testing

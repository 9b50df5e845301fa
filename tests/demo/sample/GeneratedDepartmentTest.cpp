#include "tests/demo/sample/CustodyChecks.h"
#include "tests/demo/sample/SampleFile.h"

#include <future>

#include <gmock/gmock.h>

namespace quellbrook::testing {

using ::testing::ElementsAre;

namespace {

const SampleFile& ThreeThousand() {
    static const SampleFile file{SampleOptions{3000}};
    return file;
}

std::string LocationNamed(const char* name) {
    return "(SELECT IdNo FROM StorageLocation WHERE Name = '" + std::string(name) + "')";
}

}  // namespace

TEST(GeneratedDepartment, HasTheRequestedItemsOneInTenAVehicle) {
    EXPECT_EQ(ThreeThousand().Number("SELECT COUNT(*) FROM Property"), 2700);
    EXPECT_EQ(ThreeThousand().Number("SELECT COUNT(*) FROM Vehicle"), 300);
}

TEST(GeneratedDepartment, HasALocationForTwentyItemsOnFiveLevels) {
    EXPECT_EQ(ThreeThousand().Number("SELECT COUNT(*) FROM StorageLocation"), 150);
    EXPECT_THAT(ThreeThousand().Rows("SELECT DISTINCT LENGTH(Path) - LENGTH(REPLACE(Path, '/', '')) - 1 FROM "
                                     "StorageLocation ORDER BY 1"),
                ElementsAre("1", "2", "3", "4", "5"));
    EXPECT_EQ(ThreeThousand().Number("SELECT COUNT(*) FROM StorageLocation WHERE Type = 1"), 0);
}

TEST(GeneratedDepartment, HasAtLeastAHundredLocations) {
    EXPECT_EQ(SampleFile(SampleOptions{1}).Number("SELECT COUNT(*) FROM StorageLocation"), 100);
}

TEST(GeneratedDepartment, EveryTrackedItemHasPassedTheCounter) {
    const std::string counter = LocationNamed(SampleNames::SignInCounter);
    for (const char* kind : {"Property", "Vehicle"}) {
        const std::string key = std::string(kind) + "No";
        EXPECT_EQ(ThreeThousand().Number("SELECT COUNT(*) FROM " + std::string(kind) +
                                         " i WHERE i.CurrTrackSeq IS NOT "
                                         "NULL AND NOT EXISTS (SELECT 1 FROM " +
                                         kind + "Tracking t WHERE t." + key + " = i." + key +
                                         " AND t.StorageLocNo = " + counter + ")"),
                  0);
    }
}

TEST(GeneratedDepartment, OneShelfContainsAHundredAndNinetyItems) {
    EXPECT_EQ(ThreeThousand().Number("SELECT COUNT(*) FROM CurrentPlace WHERE StorageLocNo = " +
                                     LocationNamed(SampleNames::FullShelf)),
              190);
}

TEST(GeneratedDepartment, AnItemHasNearlyFourCustodyRows) {
    const int64_t rows = ThreeThousand().Number(
        "SELECT (SELECT COUNT(*) FROM PropertyTracking) + (SELECT COUNT(*) FROM "
        "VehicleTracking)");
    EXPECT_GE(rows, 3000 * 35 / 10);
    EXPECT_LE(rows, 3000 * 41 / 10);
}

TEST(GeneratedDepartment, ChainsAreConsistent) { ExpectSoundChains(ThreeThousand()); }

// The second one is created on another stack, to show that nothing depends on an address.
TEST(GeneratedDepartment, CreatingItTwiceGivesTheSameRows) {
    const auto content = [] { return SampleFile(SampleOptions{500}).Content(); };
    EXPECT_EQ(content(), std::async(std::launch::async, content).get());
}

TEST(GeneratedDepartment, ADepartmentMayHaveASingleItem) {
    const SampleFile one(SampleOptions{1});
    EXPECT_EQ(one.Number("SELECT (SELECT COUNT(*) FROM Property) + (SELECT COUNT(*) FROM Vehicle)"), 1);
    ExpectSoundChains(one);
}

}  // namespace quellbrook::testing

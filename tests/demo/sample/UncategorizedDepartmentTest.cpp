#include "tests/demo/sample/CustodyChecks.h"
#include "tests/demo/sample/SampleFile.h"

#include <future>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;

SampleOptions Uncategorized() {
    SampleOptions options;
    options.uncategorized = true;
    return options;
}

const SampleFile& TheDepartment() {
    static const SampleFile file{Uncategorized()};
    return file;
}

TEST(UncategorizedDepartment, HasTwentyOneLocationsOnThreeLevelsWithoutACategory) {
    EXPECT_THAT(TheDepartment().Rows("SELECT Type, COUNT(*) FROM StorageLocation GROUP BY Type"), ElementsAre("1|21"));
    EXPECT_EQ(TheDepartment().Number("SELECT COUNT(*) FROM StorageLocation WHERE Path = '/0/'"), 14);
    EXPECT_EQ(
        TheDepartment().Number("SELECT MAX(LENGTH(Path) - LENGTH(REPLACE(Path, '/', ''))) - 1 FROM StorageLocation"),
        3);
}

// Two locations with the same name could not both move to the top of one category.
TEST(UncategorizedDepartment, LocationsHaveUniqueNames) {
    EXPECT_EQ(TheDepartment().Number("SELECT COUNT(DISTINCT LOWER(Name)) FROM StorageLocation"), 21);
}

TEST(UncategorizedDepartment, ItsItemsHaveSoundChains) {
    EXPECT_EQ(TheDepartment().Number("SELECT COUNT(*) FROM Property"), 60);
    EXPECT_EQ(TheDepartment().Number("SELECT COUNT(*) FROM Vehicle"), 6);
    EXPECT_EQ(TheDepartment().Number("SELECT COUNT(*) FROM CurrentPlace WHERE StorageLocNo IS NOT NULL"), 66);
    ExpectSoundChains(TheDepartment());
}

TEST(UncategorizedDepartment, CreatingItTwiceGivesTheSameRows) {
    EXPECT_EQ(std::async(std::launch::async, [] { return SampleFile(Uncategorized()).Content(); }).get(),
              TheDepartment().Content());
}

}  // namespace
}  // namespace quellbrook::testing

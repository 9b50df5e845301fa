#include "data/StoredItemComposition.h"

#include "sql/query/QueryPlanner.h"
#include "sql/query/QueryWriter.h"
#include "tests/support/SqliteDialect.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

std::string Planned(const SearchShape& shape, const Dialect& dialect = Sqlite()) {
    return sql::WriteQuery(*sql::PlanQuery(ComposeQuery(shape).Node(), dialect), dialect).text;
}

}  // namespace

TEST(StoredItemComposition, ReadsTheItemBeforeItsCurrentCustodyRow) {
    const std::string text = Planned({.itemType = 1});
    EXPECT_THAT(text, HasSubstr("FROM Property CROSS JOIN PropertyTracking WHERE"));
    EXPECT_THAT(text, HasSubstr("PropertyTracking.PropertyNo = Property.PropertyNo AND Property.CurrTrackSeq = "
                                "PropertyTracking.SeqNo"));
    EXPECT_THAT(text, HasSubstr("PropertyTracking.StorageLocNo IS NOT NULL"));
}

TEST(StoredItemComposition, KeepsTheLeftJoinIfTheRowMayBeMissing) {
    EXPECT_THAT(Planned({.itemType = 1, .untracked = true}), HasSubstr("Property LEFT JOIN PropertyTracking ON"));
    EXPECT_THAT(Planned({.itemType = 1, .anywhere = true}), HasSubstr("Property LEFT JOIN PropertyTracking ON"));
}

TEST(StoredItemComposition, KeepsTheLeftJoinIfTheRowIsFoundByItsLocation) {
    EXPECT_THAT(Planned({.inLocation = true, .itemType = 1}), HasSubstr("Property LEFT JOIN PropertyTracking ON"));
}

TEST(StoredItemComposition, TestsAPatternForIncidentsOnlyForTheItemsAtTheLocation) {
    const SearchShape shape{.inLocation = true, .itemType = 1, .numberType = 1, .numberPattern = "*7*"};
    EXPECT_THAT(Planned(shape, WithSideTables()),
                HasSubstr("Property.PropertyNo IN (SELECT IncdProperty.PropertyNo FROM CurrentPlace CROSS JOIN "
                          "IncdProperty CROSS JOIN Incident WHERE CurrentPlace.StorageLocNo = ? AND "
                          "CurrentPlace.ItemType = 1 AND Incident.IncidentNo = IncdProperty.IncidentNo AND "
                          "Incident.IncidentId LIKE '%7%' AND IncdProperty.PropertyNo = CurrentPlace.ItemNo)"));
    EXPECT_THAT(Planned(shape), Not(HasSubstr("CurrentPlace")));
}

TEST(StoredItemComposition, TestsABroadPatternForIncidentsOnlyForUntrackedItems) {
    for (const char* pattern : {"*2026-000123", "20*"}) {
        EXPECT_THAT(Planned({.itemType = 2, .numberType = 2, .numberPattern = pattern, .untracked = true}),
                    HasSubstr("Vehicle.VehicleNo IN (SELECT IncdVehicle.VehicleNo FROM Vehicle CROSS JOIN "
                              "IncdVehicle CROSS JOIN Incident WHERE Vehicle.CurrTrackSeq IS NULL AND "));
    }
    EXPECT_THAT(Planned({.itemType = 2, .numberType = 2, .numberPattern = "202*", .untracked = true}),
                HasSubstr("Vehicle.VehicleNo IN (SELECT IncdVehicle.VehicleNo FROM Incident CROSS JOIN IncdVehicle"));
}

TEST(StoredItemComposition, KeepsTheListOfAPlainIncidentNumberBesideALocation) {
    EXPECT_THAT(Planned({.inLocation = true, .itemType = 1, .numberType = 1}, WithSideTables()),
                HasSubstr("Property.PropertyNo IN (SELECT IncdProperty.PropertyNo FROM Incident CROSS JOIN "));
}

TEST(StoredItemComposition, OmitsTheArmOfTheOtherKind) {
    EXPECT_THAT(Planned({.itemType = 1}), Not(HasSubstr("Vehicle")));
    EXPECT_THAT(Planned({.itemType = 2}), Not(HasSubstr("FROM Property")));
}

TEST(StoredItemComposition, KeepsOneEmptyArmIfAllContradict) {
    EXPECT_THAT(Planned({.itemType = 3}), HasSubstr("WHERE 1 = 0"));
    EXPECT_THAT(Planned({.itemType = 3}), Not(HasSubstr("UNION")));
    EXPECT_THAT(Planned({.itemType = 1, .numberType = 3, .seesProperty = false}), HasSubstr("WHERE 1 = 0"));
}

TEST(StoredItemComposition, OmitsIncidentsThatNoCriterionNeeds) {
    EXPECT_THAT(Planned({.inLocation = true}), Not(HasSubstr("Incident")));
}

TEST(StoredItemComposition, FindsLinkedItemsFromTheIncident) {
    const std::string text = Planned({.itemType = 1, .numberType = 1, .numberPattern = "I-1*"});
    EXPECT_THAT(text, HasSubstr("Property.PropertyNo IN (SELECT IncdProperty.PropertyNo FROM Incident CROSS JOIN "
                                "IncdProperty WHERE Incident.IncidentNo = IncdProperty.IncidentNo AND "
                                "Incident.IncidentId LIKE 'I-1%')"));
    EXPECT_THAT(text, Not(HasSubstr("LEFT JOIN (IncdProperty")));
}

TEST(StoredItemComposition, PassesKeysAndPlainNumbersAsParameters) {
    EXPECT_THAT(Planned({.itemType = 1, .numberType = 5}), HasSubstr("Property.PropertyNo = ?"));
    EXPECT_THAT(Planned({.itemType = 2, .numberType = 4}), HasSubstr("Vehicle.RegNumber = ?"));
    EXPECT_THAT(Planned({.inLocation = true, .itemType = 1}), HasSubstr("PropertyTracking.StorageLocNo = ?"));
}

TEST(StoredItemComposition, RemovesEqualRowsUnlessTheSchemaStatesThatItemsAreDistinct) {
    Dialect distinct = WithSideTables();
    distinct.itemsAreDistinct = true;
    for (const SearchShape& shape :
         {SearchShape{.inLocation = true}, SearchShape{.description = "*b*"}, SearchShape{.numberType = 1}}) {
        EXPECT_THAT(Planned(shape, distinct), HasSubstr(" UNION ALL "));
        EXPECT_THAT(Planned(shape), HasSubstr(" UNION SELECT "));
    }
    EXPECT_THAT(Planned({.itemType = 1}, distinct), Not(HasSubstr("DISTINCT")));
    EXPECT_THAT(Planned({.itemType = 1}), HasSubstr("DISTINCT"));
}

TEST(StoredItemComposition, UsesTheDescriptionIndexForRunsOfThreePlainCharacters) {
    const auto planned = [](const char* description) {
        return Planned({.itemType = 1, .description = description}, WithSideTables());
    };
    for (const char* description : {"*blu*", "b*100% wool*", "\xC3\xBC\xC3\xBC\xC3\xBC"})
        EXPECT_THAT(planned(description), HasSubstr("PropertyDescription")) << description;
    for (const char* description : {"*bl*ue*", "*\xC3\xBC\xC3\xBC*", "*a_b%c[d]e\\f*", "*"})
        EXPECT_THAT(planned(description), Not(HasSubstr("PropertyDescription"))) << description;
}

TEST(StoredItemComposition, SearchesTheDescriptionIndexForTheLongestPlainRun) {
    const std::string text = Planned({.itemType = 1, .description = "*abc*100% wool*"}, WithSideTables());
    EXPECT_THAT(text, HasSubstr("PropertyDescription.Description LIKE '% wool%')"));
    EXPECT_THAT(text, HasSubstr("Property.Description LIKE '%abc%100\\% wool%' ESCAPE '\\'"));
}

TEST(StoredItemComposition, DoesNotUseTheDescriptionIndexBesideANarrowerCriterion) {
    for (const SearchShape& shape : {SearchShape{.inLocation = true, .description = "*blue*"},
                                     SearchShape{.itemType = 1, .numberType = 5, .description = "*blue*"},
                                     SearchShape{.numberType = 1, .numberPattern = "I*", .description = "*blue*"},
                                     SearchShape{.itemType = 1, .numberType = 3, .description = "*blue*"}})
        EXPECT_THAT(Planned(shape, WithSideTables()), Not(HasSubstr("PropertyDescription")));
    EXPECT_THAT(
        Planned({.itemType = 1, .numberType = 3, .numberPattern = "*1*", .description = "*blue*"}, WithSideTables()),
        HasSubstr("PropertyDescription"));
}

}  // namespace quellbrook::testing

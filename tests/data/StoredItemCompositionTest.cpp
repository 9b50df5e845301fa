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

TEST(StoredItemComposition, KeepsTheLeftJoinOfTheCurrentCustodyRow) {
    EXPECT_THAT(Planned({.itemType = 1}), HasSubstr("Property LEFT JOIN PropertyTracking ON"));
    EXPECT_THAT(Planned({.itemType = 1}), HasSubstr("PropertyTracking.StorageLocNo IS NOT NULL"));
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

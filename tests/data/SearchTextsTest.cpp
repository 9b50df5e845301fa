#include "data/StorageLocationStatic.h"
#include "data/StoredItemSearch.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/HostileTexts.h"
#include "tests/support/RaisedBy.h"

#include <algorithm>

namespace quellbrook {

namespace {

using testing::HostileText;
using testing::HostileTexts;
using Ids = std::vector<int32_t>;

constexpr auto Property = StoredItemTypes::Property;
constexpr auto Vehicle = StoredItemTypes::vehicle;

// For each text, all in one location: a property with the text as its identifier and description, a vehicle with it as
// its registration, and a property linked to an incident with it as its number and case number.
class SearchTexts : public testing::DatabaseTest {
protected:
    struct Items {
        int32_t property, vehicle, linked;
    };

    SearchTexts() {
        m_database.Execute("BEGIN");
        m_shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
        for (const HostileText& hostile : HostileTexts()) m_items.push_back(AddItems(hostile.text));
        m_database.Execute("COMMIT");
    }

    Items AddItems(const std::string& text) {
        Items items{};
        items.property = m_database.AddProperty({.PropertyID = text, .Description = text});
        items.vehicle = m_database.AddVehicle({.RegNumber = text, .RegStateCode = "ME"});
        items.linked = m_database.AddProperty({.PropertyID = "linked", .Description = "linked"});
        m_database.LinkIncident(Property, items.linked, m_database.AddIncident(text, text));
        m_database.AddCustodyRow(Property, items.property, m_shelf);
        m_database.AddCustodyRow(Vehicle, items.vehicle, m_shelf);
        m_database.AddCustodyRow(Property, items.linked, m_shelf);
        return items;
    }

    static StoredItemSearch WithNumber(NumberSearchTypes type, const std::string& number) {
        return StoredItemSearch().WithNumber(type, number);
    }
    static StoredItemSearch WithDescription(const std::string& description) {
        return StoredItemSearch().WithDescription(description);
    }
    // The identifiers found. The count must agree.
    static Ids Run(StoredItemSearch search) {
        StoredItemSearch counted = search;
        Ids ids;
        const auto list = search.Execute();
        for (int32_t i = 0; i < list->Count(); ++i) ids.push_back(list->ItemAt(i)->ID());
        EXPECT_EQ(counted.Count(), static_cast<int32_t>(ids.size()));
        return ids;
    }

    int32_t m_shelf = 0;
    std::vector<Items> m_items;  // in the order of the texts
};

}  // namespace

TEST_F(SearchTexts, EachCriterionFindsTheItemWithExactlyThisText) {
    for (size_t i = 0; i < m_items.size(); ++i) {
        const auto& [description, text] = HostileTexts()[i];
        SCOPED_TRACE(description);
        EXPECT_EQ(Run(WithDescription(text)), Ids{m_items[i].property});
        EXPECT_EQ(Run(WithNumber(NumberSearchTypes::PropertyID, text)), Ids{m_items[i].property});
        EXPECT_EQ(Run(WithNumber(NumberSearchTypes::VehicleTag, text)), Ids{m_items[i].vehicle});
        EXPECT_EQ(Run(WithNumber(NumberSearchTypes::IncidentId, text)), Ids{m_items[i].linked});
        EXPECT_EQ(Run(WithNumber(NumberSearchTypes::CaseNumber, text)), Ids{m_items[i].linked});
    }
}

TEST_F(SearchTexts, TheItemFoundHasTheTextUnchanged) {
    for (const auto& [description, text] : HostileTexts()) {
        SCOPED_TRACE(description);
        const auto item = WithNumber(NumberSearchTypes::PropertyID, text).Execute()->ItemAt(0);
        EXPECT_EQ(item->Description(), text);
        EXPECT_EQ(item->DisplayID(), text);
        const auto vehicle = WithNumber(NumberSearchTypes::VehicleTag, text).Execute()->ItemAt(0);
        EXPECT_EQ(vehicle->DisplayID(), text + " (ME)");
    }
}

TEST_F(SearchTexts, ATextIsFoundInsideADescription) {
    for (size_t i = 0; i < m_items.size(); ++i) {
        const auto& [description, text] = HostileTexts()[i];
        SCOPED_TRACE(description);
        const Ids found = Run(WithDescription("*" + text + "*"));
        EXPECT_NE(std::find(found.begin(), found.end(), m_items[i].property), found.end());
    }
}

TEST_F(SearchTexts, NoTextChangesTheDatabase) {
    const std::string before = m_database.Snapshot();
    for (const auto& [description, text] : HostileTexts()) {
        Run(WithDescription("*" + text + "*"));
        for (const auto type : {NumberSearchTypes::IncidentId, NumberSearchTypes::CaseNumber,
                                NumberSearchTypes::PropertyID, NumberSearchTypes::VehicleTag})
            Run(WithNumber(type, text));
    }
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(SearchTexts, AKeyThatIsNotANumberIsRejected) {
    for (const auto& [description, text] : HostileTexts()) {
        SCOPED_TRACE(description);
        for (const auto type : {NumberSearchTypes::PropertyPK, NumberSearchTypes::VehiclePK})
            EXPECT_EQ(testing::RaisedBy([&] { WithNumber(type, text).Execute(); }).Number(), ErrorNumber::TypeMismatch);
    }
}

TEST_F(SearchTexts, ATextWithNulIsRejected) {
    const auto expectRefused = [](StoredItemSearch search) {
        const Error error = testing::RaisedBy([&] { search.Execute(); });
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Description(), testing::NulRefusal);
    };
    expectRefused(WithDescription(testing::TextWithNul()));
    for (const auto type : {NumberSearchTypes::IncidentId, NumberSearchTypes::CaseNumber, NumberSearchTypes::PropertyID,
                            NumberSearchTypes::VehicleTag})
        expectRefused(WithNumber(type, testing::TextWithNul()));
}

TEST_F(SearchTexts, APatternThatIsTooLongFailsWithTheDatabasesMessage) {
    const Error error = testing::RaisedBy([] { WithDescription(std::string(100'000, 'x')).Execute(); });
    EXPECT_EQ(error.Description(),
              "The database could not complete this. Change what you entered, or try again. (LIKE or GLOB pattern too "
              "complex)");
}

}  // namespace quellbrook

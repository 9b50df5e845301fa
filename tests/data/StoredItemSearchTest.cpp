#include "data/StoredItemSearch.h"

#include "access/Permissions.h"
#include "data/StorageLocationStatic.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingEngine.h"
#include "tests/support/WithDialect.h"

#include <algorithm>
#include <tuple>

namespace quellbrook {

namespace {

using Found = std::vector<std::string>;  // "P1" for property 1, "V3" for vehicle 3; sorted, since no order is set

constexpr auto Property = StoredItemTypes::Property;
constexpr auto Vehicle = StoredItemTypes::vehicle;

class StoredItemSearchTest : public testing::DatabaseTest {
protected:
    StoredItemSearchTest() {
        m_shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
        m_box = m_database.AddLocation("Box", StorageLocationTypes::Internal, m_shelf);
        m_bicycle =
            m_database.AddStored(testing::PropertyFields{.PropertyID = "E-1", .Description = "blue bicycle"}, m_shelf);
        m_knife = m_database.AddStored(
            testing::PropertyFields{.PropertyID = "E-2", .Description = "knife", .RecordTypeInd = 0}, m_box);
        m_untracked = m_database.AddProperty({.PropertyID = "E-3", .Description = "blue paint"});
        m_lost = m_database.AddStored(testing::PropertyFields{.PropertyID = "E-4", .Description = "lost"}, Null());
        m_car = m_database.AddStored(
            testing::VehicleFields{.RegNumber = "ABC 1", .RegStateCode = "ME", .ColorCode = "blue"}, m_shelf);
        m_parked = m_database.AddVehicle({.RegNumber = "ABC 2", .RegStateCode = "ME", .RecordTypeInd = 0});
    }

    static StorageLocationRef Location(int32_t id) { return GetStorageLocationStatic().FindByID(id); }
    static std::string P(int32_t id) { return "P" + std::to_string(id); }
    static std::string V(int32_t id) { return "V" + std::to_string(id); }

    // The items found. The three operations of the search must agree.
    static Found Run(const StoredItemSearch& search) {
        StoredItemSearch executed = search, raw = search, counted = search;
        Found found;
        const auto list = executed.Execute();
        for (int32_t i = 0; i < list->Count(); ++i)
            found.push_back(list->ItemAt(i)->ItemTypeCode() + std::to_string(list->ItemAt(i)->ID()));
        EXPECT_EQ(raw.ExecuteRaw().size(), found.size());
        EXPECT_EQ(counted.Count(), static_cast<int32_t>(found.size()));
        std::sort(found.begin(), found.end());
        return found;
    }

    int32_t m_shelf = 0, m_box = 0;
    int32_t m_bicycle = 0, m_knife = 0, m_untracked = 0, m_lost = 0;
    int32_t m_car = 0, m_parked = 0;
};

}  // namespace

TEST_F(StoredItemSearchTest, WithoutACriterionNothingIsFoundAndTheDatabaseIsNotQueried) {
    const auto recording = std::make_shared<testing::RecordingEngine>(m_database.GetEngine());
    m_database.Install(recording);
    EXPECT_EQ(Run(StoredItemSearch()), Found{});
    EXPECT_EQ(Run(StoredItemSearch().Tagged()), Found{});
    EXPECT_EQ(Run(StoredItemSearch().Untracked()), Found{});
    EXPECT_EQ(Run(StoredItemSearch().Untracked().Tagged()), Found{});
    EXPECT_EQ(Run(StoredItemSearch().WithNumber(NumberSearchTypes::PropertyID, "")), Found{});
    EXPECT_TRUE(recording->Log().empty());
}

TEST_F(StoredItemSearchTest, AKindAloneListsAllItsItemsWithALocation) {
    EXPECT_EQ(Run(StoredItemSearch().OfType(Property)), (Found{P(m_bicycle), P(m_knife)}));
    EXPECT_EQ(Run(StoredItemSearch().OfType(Vehicle)), Found{V(m_car)});
}

TEST_F(StoredItemSearchTest, ALocationHasItsOwnItemsButNotThoseOfItsSublocations) {
    EXPECT_EQ(Run(StoredItemSearch().InLocation(Location(m_shelf))), (Found{P(m_bicycle), V(m_car)}));
    EXPECT_EQ(Run(StoredItemSearch().InLocation(Location(m_box))), Found{P(m_knife)});
}

TEST_F(StoredItemSearchTest, OnlyTheCurrentCustodyRowCounts) {
    m_database.AddCustodyRow(Property, m_bicycle, m_box);
    EXPECT_EQ(Run(StoredItemSearch().InLocation(Location(m_shelf))), Found{V(m_car)});
    EXPECT_EQ(Run(StoredItemSearch().InLocation(Location(m_box))), (Found{P(m_bicycle), P(m_knife)}));
}

TEST_F(StoredItemSearchTest, ARootHasNoItems) {
    const auto root = GetStorageLocationStatic().GetRoot(StorageLocationTypes::Internal);
    EXPECT_EQ(Run(StoredItemSearch().InLocation(root)), Found{});
}

TEST_F(StoredItemSearchTest, ADescriptionIsAPatternOverBothKinds) {
    EXPECT_EQ(Run(StoredItemSearch().WithDescription("*blue*")), (Found{P(m_bicycle), V(m_car)}));
    EXPECT_EQ(Run(StoredItemSearch().WithDescription("blue")), Found{}) << "no wildcard is added";
    EXPECT_EQ(Run(StoredItemSearch().WithDescription("BLUE b*")), Found{P(m_bicycle)});
}

TEST_F(StoredItemSearchTest, WildcardsOfTheDatabaseMatchThemselves) {
    const int32_t odd = m_database.AddStored(testing::PropertyFields{.Description = "50% [new] a_b it's"}, m_box);
    EXPECT_EQ(Run(StoredItemSearch().WithDescription("*50%*")), Found{P(odd)});
    EXPECT_EQ(Run(StoredItemSearch().WithDescription("*a_b*")), Found{P(odd)});
    EXPECT_EQ(Run(StoredItemSearch().WithDescription("*[new]*")), Found{P(odd)});
    EXPECT_EQ(Run(StoredItemSearch().WithDescription("*it's*")), Found{P(odd)});
    EXPECT_EQ(Run(StoredItemSearch().WithDescription("k%e")), Found{});
    EXPECT_EQ(Run(StoredItemSearch().WithDescription("knif_")), Found{});
}

TEST_F(StoredItemSearchTest, EachNumberSearchesItsColumn) {
    const int32_t incident = m_database.AddIncident("2026-77", "CASE-5");
    m_database.LinkIncident(Property, m_bicycle, incident);
    m_database.LinkIncident(Vehicle, m_car, incident);
    m_database.LinkIncident(Property, m_untracked, incident);
    const auto search = [](NumberSearchTypes type, const std::string& number) {
        return Run(StoredItemSearch().WithNumber(type, number));
    };
    EXPECT_EQ(search(NumberSearchTypes::IncidentId, "2026-77"), (Found{P(m_bicycle), V(m_car)}));
    EXPECT_EQ(search(NumberSearchTypes::IncidentId, "2026*"), (Found{P(m_bicycle), V(m_car)}));
    EXPECT_EQ(search(NumberSearchTypes::IncidentId, "2026"), Found{});
    EXPECT_EQ(search(NumberSearchTypes::CaseNumber, "case-*"), (Found{P(m_bicycle), V(m_car)}));
    EXPECT_EQ(search(NumberSearchTypes::PropertyID, "E-2"), Found{P(m_knife)});
    EXPECT_EQ(search(NumberSearchTypes::PropertyID, "E*"), (Found{P(m_bicycle), P(m_knife)}));
    EXPECT_EQ(search(NumberSearchTypes::VehicleTag, "abc*"), Found{V(m_car)});
    EXPECT_EQ(search(NumberSearchTypes::PropertyPK, std::to_string(m_knife)), Found{P(m_knife)});
    EXPECT_EQ(search(NumberSearchTypes::VehiclePK, std::to_string(m_car)), Found{V(m_car)});
    EXPECT_EQ(search(NumberSearchTypes::VehiclePK, " " + std::to_string(m_car)), Found{V(m_car)});
}

TEST_F(StoredItemSearchTest, ANumberIsAPatternWhereEqualityWouldNotIgnoreCase) {
    const int32_t odd = m_database.AddStored(testing::PropertyFields{.PropertyID = "50%_X"}, m_shelf);
    const int32_t incident = m_database.AddIncident("2026-77", "CASE-5");
    m_database.LinkIncident(Property, odd, incident);
    const std::tuple<NumberSearchTypes, const char*, const char*, Found> numbers[] = {
        {NumberSearchTypes::IncidentId, "2026-77", "LIKE '2026-77'", {P(odd)}},
        {NumberSearchTypes::CaseNumber, "case-5", "LIKE 'case-5'", {P(odd)}},
        {NumberSearchTypes::PropertyID, "50%_x", "LIKE '50\\%\\_x' ESCAPE '\\'", {P(odd)}},
        {NumberSearchTypes::VehicleTag, "abc 1", "LIKE 'abc 1'", {V(m_car)}}};
    for (const bool equalsLikeLike : {true, false}) {
        Dialect dialect = m_database.GetEngine()->GetDialect();
        dialect.equalsLikeLike = equalsLikeLike;
        const auto recording = std::make_shared<testing::RecordingEngine>(
            std::make_shared<testing::WithDialect>(m_database.GetEngine(), dialect));
        m_database.Install(recording);
        for (const auto& [type, number, pattern, found] : numbers) {
            recording->Clear();
            EXPECT_EQ(Run(StoredItemSearch().WithNumber(type, number)), found) << number << equalsLikeLike;
            EXPECT_EQ(recording->Log().at(0).find(pattern) == std::string::npos, equalsLikeLike) << recording->Log()[0];
        }
    }
}

TEST_F(StoredItemSearchTest, AnIncidentNumberCanBeLimitedToOneKind) {
    const int32_t incident = m_database.AddIncident("2026-77");
    m_database.LinkIncident(Property, m_bicycle, incident);
    m_database.LinkIncident(Vehicle, m_car, incident);
    EXPECT_EQ(Run(StoredItemSearch().OfType(Vehicle).WithNumber(NumberSearchTypes::IncidentId, "2026-77")),
              Found{V(m_car)});
}

TEST_F(StoredItemSearchTest, AKeyThatIsNotANumberFails) {
    const auto search = [](const char* number) {
        return testing::RaisedBy(
            [&] { StoredItemSearch().WithNumber(NumberSearchTypes::PropertyPK, number).Execute(); });
    };
    EXPECT_EQ(search("E-1").Number(), ErrorNumber::TypeMismatch);
    EXPECT_EQ(search("1e3").Number(), ErrorNumber::TypeMismatch);
    EXPECT_EQ(search("99999999999").Number(), ErrorNumber::Overflow);
    const auto count = [] { StoredItemSearch().WithNumber(NumberSearchTypes::VehiclePK, "x").Count(); };
    EXPECT_EQ(testing::RaisedBy(count).Number(), ErrorNumber::TypeMismatch);
}

TEST_F(StoredItemSearchTest, TheNumberTypeOverridesTheItemType) {
    EXPECT_EQ(Run(StoredItemSearch().OfType(Property).WithNumber(NumberSearchTypes::VehiclePK, std::to_string(m_car))),
              Found{V(m_car)});

    StoredItemSearch reused;
    reused.WithNumber(NumberSearchTypes::VehiclePK, std::to_string(m_car)).Execute();
    reused.OfType(Property);
    EXPECT_EQ(reused.Execute()->Count(), 1) << "each search sets the item type again";
}

TEST_F(StoredItemSearchTest, SearchesFindItemsWithALocationUnlessUntrackedIsSet) {
    EXPECT_EQ(Run(StoredItemSearch().WithNumber(NumberSearchTypes::PropertyID, "E-3")), Found{});
    EXPECT_EQ(Run(StoredItemSearch().WithNumber(NumberSearchTypes::PropertyID, "E-3").Untracked()),
              Found{P(m_untracked)});
    EXPECT_EQ(Run(StoredItemSearch().OfType(Property).Untracked()), Found{P(m_untracked)})
        << "an item whose last custody row has no location is not untracked";
    EXPECT_EQ(Run(StoredItemSearch().OfType(Vehicle).Untracked()), Found{V(m_parked)});
    EXPECT_EQ(Run(StoredItemSearch().WithNumber(NumberSearchTypes::PropertyPK, std::to_string(m_lost))), Found{});
}

TEST_F(StoredItemSearchTest, TaggedFindsOnlyTaggedRecords) {
    EXPECT_EQ(Run(StoredItemSearch().OfType(Property).Tagged()), Found{P(m_bicycle)});
    EXPECT_EQ(Run(StoredItemSearch().OfType(Vehicle).Untracked().Tagged()), Found{});
}

TEST_F(StoredItemSearchTest, CriteriaAreCombinedWithAnd) {
    EXPECT_EQ(Run(StoredItemSearch().InLocation(Location(m_shelf)).WithDescription("*bicycle*").Tagged()),
              Found{P(m_bicycle)});
    EXPECT_EQ(Run(StoredItemSearch().InLocation(Location(m_box)).WithDescription("*bicycle*")), Found{});
    EXPECT_EQ(Run(StoredItemSearch().InLocation(Location(m_shelf)).OfType(Vehicle)), Found{V(m_car)});
    EXPECT_EQ(Run(StoredItemSearch().InLocation(Location(m_shelf)).Untracked()), Found{});
}

TEST_F(StoredItemSearchTest, TheUsersRightsDecideWhichKindsAppear) {
    m_session->GrantNothing();
    m_session->Grant(GetPermissions().VIEW_PROPERTY());
    EXPECT_EQ(Run(StoredItemSearch().InLocation(Location(m_shelf))), Found{P(m_bicycle)});
    m_session->GrantNothing();
    m_session->Grant(GetPermissions().VIEW_VEHICLE());
    EXPECT_EQ(Run(StoredItemSearch().InLocation(Location(m_shelf))), Found{V(m_car)});
    EXPECT_EQ(Run(StoredItemSearch().WithNumber(NumberSearchTypes::PropertyID, "E-1")), Found{})
        << "a number of property on a query of vehicles";
    m_session->GrantNothing();
    EXPECT_EQ(Run(StoredItemSearch().InLocation(Location(m_shelf))), Found{V(m_car)}) << "vehicles in all other cases";
}

TEST_F(StoredItemSearchTest, AnItemLinkedToTwoIncidentsIsListedAndCountedOnce) {
    for (const char* id : {"2026-77", "2026-78"}) {
        const int32_t incident = m_database.AddIncident(id, "CASE-5");
        m_database.LinkIncident(Property, m_bicycle, incident);
        m_database.LinkIncident(Vehicle, m_car, incident);
    }
    EXPECT_EQ(Run(StoredItemSearch().InLocation(Location(m_shelf))), (Found{P(m_bicycle), V(m_car)}));
    EXPECT_EQ(Run(StoredItemSearch().WithNumber(NumberSearchTypes::IncidentId, "2026*")),
              (Found{P(m_bicycle), V(m_car)}));
    m_session->GrantNothing();
    m_session->Grant(GetPermissions().VIEW_PROPERTY());
    EXPECT_EQ(Run(StoredItemSearch().InLocation(Location(m_shelf))), Found{P(m_bicycle)}) << "without a union too";
    EXPECT_EQ(Run(StoredItemSearch().WithNumber(NumberSearchTypes::CaseNumber, "CASE-5")), Found{P(m_bicycle)});
}

TEST_F(StoredItemSearchTest, RowsHaveTheThirteenColumnsInTheirOrder) {
    const RowList rows = StoredItemSearch().InLocation(Location(m_shelf)).ExecuteRaw();
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].Columns().Names(),
              (Found{"ItemType", "ID", "CategoryNo", "CurrTrackSeq", "StorageLocNo", "DisplayID", "Description",
                     "Quantity", "Value", "Make", "Model", "Serial", "RecordTypeInd"}));
    for (const Row& row : rows) EXPECT_EQ(ToInt32(row.Value("StorageLocNo")), m_shelf);
}

TEST_F(StoredItemSearchTest, TheDatabaseCounts) {
    const auto recording = std::make_shared<testing::RecordingEngine>(m_database.GetEngine());
    m_database.Install(recording);
    EXPECT_EQ(StoredItemSearch().OfType(Property).Count(), 2);
    ASSERT_EQ(recording->Log().size(), 1u);
    const std::string& sql = recording->Log()[0];
    EXPECT_EQ(sql.rfind("SELECT COUNT(ID) AS ResultCount FROM (", 0), 0u) << sql;
    EXPECT_EQ(sql.substr(sql.size() - 13), ") QueryResult") << sql;
}

TEST_F(StoredItemSearchTest, AResultReturnsTheSameObjectWhileTheCallerKeepsIt) {
    const auto list = StoredItemSearch().InLocation(Location(m_shelf)).Execute();
    const auto first = list->ItemAt(0);
    EXPECT_EQ(list->ItemAt(0), first);
    EXPECT_EQ(list->At(0), first);
    EXPECT_NE(list->ItemAt(1), first);
}

TEST_F(StoredItemSearchTest, AResultDoesNotKeepReleasedItems) {
    const auto list = StoredItemSearch().InLocation(Location(m_shelf)).Execute();
    const std::weak_ptr<StoredItem> dropped = list->ItemAt(0);
    EXPECT_TRUE(dropped.expired());
    EXPECT_NE(list->ItemAt(0), nullptr);
}

TEST_F(StoredItemSearchTest, AResultIsASnapshot) {
    const auto list = StoredItemSearch().WithNumber(NumberSearchTypes::PropertyID, "E-1").Execute();
    m_database.Execute("UPDATE Property SET Description = 'red bicycle'");
    EXPECT_EQ(list->ItemAt(0)->Description(), "blue bicycle");
}

TEST_F(StoredItemSearchTest, ARefreshedItemKeepsItsNewValuesInTheResult) {
    const auto found = StoredItemSearch().WithDescription("*blue*").Execute();
    const auto descriptionAt = [&](int32_t index) { return found->ItemAt(index)->Description(); };
    ASSERT_EQ(descriptionAt(0), "blue bicycle");
    const std::string other = descriptionAt(1);
    m_database.Execute("UPDATE Property SET Description = 'red bicycle' WHERE PropertyNo = ?", {m_bicycle});
    found->ItemAt(0)->Refresh();
    EXPECT_EQ(descriptionAt(0), "red bicycle");
    EXPECT_EQ(descriptionAt(1), other);

    const StoredItemRef kept = found->ItemAt(0);
    m_database.Execute("UPDATE Property SET Description = 'green bicycle' WHERE PropertyNo = ?", {m_bicycle});
    kept->Refresh();
    EXPECT_EQ(descriptionAt(0), "green bicycle");
}

TEST_F(StoredItemSearchTest, ItemsOutliveTheirResult) {
    auto list = StoredItemSearch().WithNumber(NumberSearchTypes::PropertyID, "E-1").Execute();
    const auto item = list->ItemAt(0);
    list.reset();
    EXPECT_EQ(item->Description(), "blue bicycle");
}

TEST_F(StoredItemSearchTest, APositionOutsideTheResultFails) {
    const auto list = StoredItemSearch().OfType(Property).Execute();
    EXPECT_EQ(testing::RaisedBy([&] { list->ItemAt(2); }).Number(), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(testing::RaisedBy([&] { list->ItemAt(-1); }).Number(), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(testing::RaisedBy([] { StoredItemSearch().Execute()->ItemAt(0); }).Number(),
              ErrorNumber::SubscriptOutOfRange);
}

TEST_F(StoredItemSearchTest, ALocationListsAndCountsItsItems) {
    const auto shelf = Location(m_shelf);
    const auto items = shelf->StoredItems();
    EXPECT_EQ(items->Count(), 2);
    EXPECT_EQ(shelf->StoredItemsCount(), 2);
    EXPECT_EQ(items->ItemAt(0)->Location()->ID(), m_shelf);
    EXPECT_EQ(GetStorageLocationStatic().GetRoot(StorageLocationTypes::Internal)->StoredItemsCount(), 0);
    EXPECT_EQ(GetStorageLocationStatic().GetRoot(StorageLocationTypes::Internal)->StoredItems()->Count(), 0);
}

}  // namespace quellbrook

// Compares the search, which plans its query, with the same search written literally as one statement.

#include "data/StoredItemSearch.h"

#include "access/Permissions.h"
#include "base/Error.h"
#include "data/StorageLocationStatic.h"
#include "tests/data/SearchLiteralText.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/SearchDepartment.h"
#include "tests/support/WithoutSideTables.h"

#include <algorithm>
#include <map>
#include <set>

namespace quellbrook::testing {

namespace {

using Texts = std::vector<std::string>;

const Texts columns = {"ItemType", "ID",    "CategoryNo", "CurrTrackSeq", "StorageLocNo", "DisplayID",    "Description",
                       "Quantity", "Value", "Make",       "Model",        "Serial",       "RecordTypeInd"};
const Texts descriptions = {"*blue*",
                            "blue*",
                            "*l*",
                            "*100%*",
                            "*_[x]_*",
                            "*",
                            "it's*",
                            "*b*e*",
                            "*BLUE BICYCLE",
                            "*\xC3\xBC*",
                            "1999*Ford*",
                            "*ue bi*yc*",
                            "*\\",
                            "**",
                            " ",
                            "*\r\n*",
                            "*\xF0\x9F\x9A\xB2 b*"};

std::string Shown(const TaggedValue& value, bool asNumber) {
    if (value.IsNull()) return "NULL";
    if (value.Holds<std::string>()) return "'" + ToText(value) + "'";
    if (asNumber) return std::to_string(ToDouble(value));
    return (value.Holds<int32_t>() ? "whole " : "other ") + ToText(value);
}

// A row as one text; the quantity counts as a number.
std::string Shown(const Row& row) {
    std::string text;
    for (size_t i = 0; i < columns.size(); ++i)
        text += Shown(row.At(static_cast<int>(i)), columns[i] == "Quantity") + "|";
    return text;
}

Texts Sorted(const RowList& rows) {
    Texts texts;
    for (const Row& row : rows) texts.push_back(Shown(row));
    std::sort(texts.begin(), texts.end());
    return texts;
}

std::string PickKey(Dice& dice, const std::vector<int32_t>& stored) {
    if (dice.OneIn(3)) return dice.AnyOf(Texts{"1", " 7", "+12", "16", "0", "-1", "4711"});
    return std::to_string(dice.AnyOf(stored));
}

std::string PickNumber(Dice& dice, int32_t numberType, const SearchDepartment& department) {
    switch (numberType) {
    case 1: return dice.AnyOf(Texts{"I-1", "I-1*", "*1*", "50%", "I_1", "*", "i-*2", "", "*-*"});
    case 2: return dice.AnyOf(Texts{"C1", "c1*", "*1*", "[C1]", "*", ""});
    case 3: return dice.AnyOf(Texts{"P-1", "p-1*", "*1*", "P_1", "*", "it's", "100%", "*\\*", "", " "});
    case 4: return dice.AnyOf(Texts{"ABC 1", "abc*", "*1*", "*", "A_C*", "50%", ""});
    case 5: return PickKey(dice, department.StoredKeys(StoredItemTypes::Property));
    case 6: return PickKey(dice, department.StoredKeys(StoredItemTypes::vehicle));
    default: return dice.AnyOf(Texts{"", "P-1"});
    }
}

// The kinds of criteria of a search: one combination for each number below Count.
struct Combination {
    static constexpr int Count = 3 * 2 * 3 * 7 * 2 * 2 * 4;

    explicit Combination(int number) {
        const auto take = [&](int choices) {
            const int choice = number % choices;
            number /= choices;
            return choice;
        };
        location = take(3);
        description = take(2) == 1;
        itemType = take(3);
        numberType = take(7);
        untracked = take(2) == 1;
        tagged = take(2) == 1;
        rights = take(4);
    }

    int location;  // 0 none, 1 a location, 2 a root
    bool description;
    int itemType, numberType;
    bool untracked, tagged;
    int rights;  // 1 property, 2 vehicles, 3 both
};

class SearchLiteral : public DatabaseTest, public ::testing::WithParamInterface<unsigned> {
protected:
    AskedSearch Ask(const Combination& combination, const SearchDepartment& department) {
        AskedSearch asked;
        if (combination.location > 0)
            asked.location = combination.location == 1 ? m_dice.AnyOf(department.Locations()) : 0;
        if (combination.description) asked.description = m_dice.AnyOf(descriptions);
        asked.itemType = combination.itemType;
        asked.numberType = combination.numberType;
        asked.number = PickNumber(m_dice, combination.numberType, department);
        asked.untracked = combination.untracked;
        asked.tagged = combination.tagged;
        asked.seesProperty = (combination.rights & 1) != 0;
        asked.seesVehicles = (combination.rights & 2) != 0;
        return asked;
    }

    StoredItemSearch Search(const AskedSearch& asked) {
        StoredItemSearch search;
        if (asked.location) search.InLocation(LocationOf(*asked.location));
        if (asked.itemType != 0) search.OfType(static_cast<StoredItemTypes>(asked.itemType));
        search.WithNumber(static_cast<NumberSearchTypes>(asked.numberType), asked.number);
        search.WithDescription(asked.description);
        if (asked.untracked) search.Untracked();
        if (asked.tagged) search.Tagged();
        m_session->GrantNothing();
        if (asked.seesProperty) m_session->Grant(GetPermissions().VIEW_PROPERTY());
        if (asked.seesVehicles) m_session->Grant(GetPermissions().VIEW_VEHICLE());
        return search;
    }

    static StorageLocationRef LocationOf(int32_t id) {
        return id == 0 ? GetStorageLocationStatic().GetRoot(StorageLocationTypes::Internal)
                       : GetStorageLocationStatic().FindByID(id);
    }

    // The distinct rows of the literal search.
    Texts Expected(const AskedSearch& asked) {
        if (!asked.location && asked.description.empty() && asked.number.empty() && asked.itemType == 0) return {};
        RowList found;
        m_plain->Query(LiteralSearchText(asked), {}, [&](const Row& row) {
            found.push_back(row);
            return true;
        });
        Texts rows = Sorted(found);
        rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
        return rows;
    }

    void Count(const AskedSearch& asked) {
        ++m_found["number type " + std::to_string(asked.numberType)];
        ++m_found["item type " + std::to_string(asked.itemType)];
        ++m_found[std::string(asked.seesProperty ? "property, " : "") + (asked.seesVehicles ? "vehicles" : "")];
        if (asked.location) ++m_found["location"];
        if (!asked.description.empty()) ++m_found["description"];
        if (asked.untracked) ++m_found["untracked"];
        if (asked.tagged) ++m_found["tagged"];
    }

    Dice m_dice{GetParam()};
    std::unique_ptr<Connection> m_plain = m_database.GetEngine()->Open();
    std::map<std::string, int> m_found;  // searches with hits, by criterion
};

}  // namespace

TEST_P(SearchLiteral, FindsTheRowsOfTheLiteralSearch) {
    SearchDepartment department(m_database, m_dice);
    if (GetParam() > 2) department.ReplaceTheView();
    std::shared_ptr<Engine> engine = m_database.OpenEngine();
    if (GetParam() % 2 == 0) engine = std::make_shared<WithoutSideTables>(std::move(engine));
    m_database.Install(std::move(engine));
    for (int number = 0; number < Combination::Count; ++number) {
        const AskedSearch asked = Ask(Combination(number), department);
        const Texts expected = Expected(asked);
        StoredItemSearch search = Search(asked);
        const RowList rows = search.ExecuteRaw();
        ASSERT_EQ(Sorted(rows), expected) << Describe(asked) << "\n" << LiteralSearchText(asked);
        ASSERT_EQ(Search(asked).Count(), static_cast<int32_t>(expected.size())) << Describe(asked);
        ASSERT_EQ(Search(asked).Execute()->Count(), static_cast<int32_t>(expected.size())) << Describe(asked);
        if (rows.empty()) continue;
        ASSERT_EQ(rows[0].Columns().Names().size(), columns.size()) << Describe(asked);
        for (size_t i = 0; i < columns.size(); ++i)
            ASSERT_EQ(rows[0].Columns().Find(columns[i]), static_cast<int>(i)) << Describe(asked);
        Count(asked);
    }
    EXPECT_EQ(m_found.size(), 7u + 3u + 4u + 4u);
    for (const auto& [kind, count] : m_found) EXPECT_GE(count, 3) << kind;
}

INSTANTIATE_TEST_SUITE_P(Departments, SearchLiteral, ::testing::Range(1u, 5u));

}  // namespace quellbrook::testing

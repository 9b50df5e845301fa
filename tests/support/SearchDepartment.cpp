#include "tests/support/SearchDepartment.h"

namespace quellbrook::testing {

namespace {

using Values = std::vector<TaggedValue>;

const Values identifiers = {Null(), "", " ", "P-1", "P-10", "p-1", "P_1", "P*1", "100%", "it's", "[P1]", "back\\slash"};
const Values descriptions = {Null(),
                             "",
                             "  ",
                             "blue bicycle",
                             "BLUE",
                             "100% wool",
                             "it's _[x]_ \\",
                             "b*e",
                             "bl\xC3\xBC"
                             "e",
                             "\xF0\x9F\x9A\xB2 blue",
                             "line\r\nblue",
                             "a \"quoted\" text"};
const Values quantities = {Null(), 0, 1, 2.5, -3, 1000000, "several", "2", "", "1e2"};
const Values money = {Null(), 0, 12, 12.5, -0.01, "unknown"};
const Values names = {Null(), "", "Acme", "acme ", " O'Hara"};
const Values categories = {Null(), 0, 3, 31, -1};
const Values recordKinds = {Null(), 0, 1, 1, 1, 2, -1, "1", "x"};
const Values tags = {Null(), "", " ", "ABC 1", "ABC 12", "abc 1", "A_C 1", "50%"};
const Values states = {Null(), Null(), "", "NY", "ny", " "};
const Values years = {Null(), "", "1999", 2004};
const Values colors = {Null(), "", "blue", "Blue"};
const Values makes = {Null(), "", "Ford", "b*e"};
const Values models = {Null(), "", "100%", "blue bicycle", "Focus"};
const Values incidentIds = {Null(), "", "I-1", "I-12", "i-12", "50%", "I_1", "I-1 "};
const Values caseNumbers = {Null(), Null(), "", "C1", "C12", "[C1]", "c1"};

constexpr int goneLocation = 4711;
constexpr int goneIncident = 4712;

const char* ItemTable(StoredItemTypes kind) { return kind == StoredItemTypes::Property ? "Property" : "Vehicle"; }

}  // namespace

SearchDepartment::SearchDepartment(TestDatabase& database, Dice& dice) : m_database(database), m_dice(dice) {
    m_database.CheckForeignKeys(false);
    m_database.Execute("BEGIN");
    AddLocations();
    AddIncidents();
    for (int i = 0; i < 24; ++i) AddProperty();
    for (int i = 0; i < 16; ++i) AddVehicle();
    AddFalseCandidates();
    m_database.Execute("COMMIT");
    m_database.CheckForeignKeys(true);
}

std::vector<int32_t> SearchDepartment::StoredKeys(StoredItemTypes kind) const {
    const std::string table = ItemTable(kind), key = table + "No";
    std::vector<int32_t> keys;
    for (const Row& row :
         m_database.QueryRows("SELECT i." + key + " FROM " + table + " i INNER JOIN " + table + "Tracking t ON t." +
                              key + " = i." + key + " AND t.SeqNo = i.CurrTrackSeq WHERE t.StorageLocNo IS NOT NULL"))
        keys.push_back(ToInt32(row.At(0)));
    return keys;
}

void SearchDepartment::ReplaceTheView() {
    const std::string rows =
        "SELECT VehicleNo, RegNumber, RegStateCode, VehYear, ColorCode, MakeCode, VehModel FROM Vehicle "
        "WHERE VehicleNo % ";
    m_database.Execute("DROP VIEW vwVehicleDisplayInfo");
    m_database.Execute("DELETE FROM SchemaFact");
    m_database.Execute("CREATE VIEW vwVehicleDisplayInfo AS " + rows + "5 <> 3 UNION ALL " + rows + "3 = 1");
}

// Candidates that contradict the custody rows are harmless.
void SearchDepartment::AddFalseCandidates() {
    for (int i = 0; i < 10; ++i)
        m_database.Execute("INSERT INTO CurrentPlace VALUES (?, ?, ?) ON CONFLICT DO NOTHING",
                           {m_dice.AnyOf(m_locations), 1 + m_dice.Below(2), 1 + m_dice.Below(24)});
}

void SearchDepartment::AddLocations() {
    const auto add = [&](const char* name, StorageLocationTypes type, int32_t parent, std::optional<bool> enabled) {
        m_locations.push_back(m_database.AddLocation(name, type, parent, enabled));
        return m_locations.back();
    };
    const int32_t room = add("Room", StorageLocationTypes::Internal, 0, true);
    const int32_t closed = add("Closed aisle", StorageLocationTypes::Internal, room, false);
    add("Shelf in the closed aisle", StorageLocationTypes::Internal, closed, true);
    add("Court", StorageLocationTypes::External, 0, std::nullopt);
    add("Incinerator", StorageLocationTypes::DisposalLocation, 0, true);
}

void SearchDepartment::AddIncidents() {
    for (int i = 0; i < 8; ++i)
        m_incidents.push_back(
            m_database.AddIncident(m_dice.AnyOf(incidentIds), m_dice.AnyOf(caseNumbers), m_dice.OneIn(3)));
}

// A server accepts no text in a column of numbers.
TaggedValue SearchDepartment::NumberOf(const std::vector<TaggedValue>& choices) {
    const TaggedValue& choice = m_dice.AnyOf(choices);
    const bool isServer = m_database.Path().empty();
    return isServer && choice.Holds<std::string>() ? TaggedValue(Null()) : choice;
}

void SearchDepartment::AddProperty() {
    const int32_t item = m_database.AddProperty({.PropertyID = m_dice.AnyOf(identifiers),
                                                 .Description = m_dice.AnyOf(descriptions),
                                                 .CategoryNo = NumberOf(categories),
                                                 .Quantity = NumberOf(quantities),
                                                 .PropertyValue = NumberOf(money),
                                                 .ManufacNbr = m_dice.AnyOf(names),
                                                 .ModelNbr = m_dice.AnyOf(names),
                                                 .SerialNbr = m_dice.AnyOf(names),
                                                 .RecordTypeInd = NumberOf(recordKinds)});
    AddCustody(StoredItemTypes::Property, item);
    AddLinks(StoredItemTypes::Property, item);
}

void SearchDepartment::AddVehicle() {
    const int32_t item = m_database.AddVehicle({.RegNumber = m_dice.AnyOf(tags),
                                                .RegStateCode = m_dice.AnyOf(states),
                                                .VehYear = m_dice.AnyOf(years),
                                                .ColorCode = m_dice.AnyOf(colors),
                                                .MakeCode = m_dice.AnyOf(makes),
                                                .VehModel = m_dice.AnyOf(models),
                                                .CategoryNo = NumberOf(categories),
                                                .RecordTypeInd = NumberOf(recordKinds)});
    AddCustody(StoredItemTypes::vehicle, item);
    AddLinks(StoredItemTypes::vehicle, item);
}

void SearchDepartment::AddCustody(StoredItemTypes kind, int32_t item) {
    for (int rows = m_dice.Below(4); rows > 0; --rows) {
        TaggedValue location = m_dice.AnyOf(m_locations);
        if (m_dice.OneIn(5)) location = Null();
        if (m_dice.OneIn(9)) location = goneLocation;
        m_database.AddCustodyRow(kind, item, location);
    }
    if (!m_dice.OneIn(5)) return;
    const std::string table = ItemTable(kind);
    const TaggedValue current = m_dice.AnyOf(Values{Null(), 1, 2, 9});
    m_database.Execute("UPDATE " + table + " SET CurrTrackSeq = ? WHERE " + table + "No = ?", {current, item});
}

void SearchDepartment::AddLinks(StoredItemTypes kind, int32_t item) {
    for (int links = m_dice.Below(4); links > 0; --links) {
        const int32_t incident = m_dice.OneIn(8) ? goneIncident : m_dice.AnyOf(m_incidents);
        m_database.LinkIncident(kind, item, incident);
        if (m_dice.OneIn(3)) m_database.LinkIncident(kind, item, incident);
    }
}

}  // namespace quellbrook::testing

#include "tests/database/schema/SchemaTest.h"

#include <SQLiteCpp/SQLiteCpp.h>

using namespace quellbrook;
using namespace quellbrook::testing;

namespace {

using Kind = StoredItemTypes;

constexpr const char* rowExists = "This custody row already exists. Custody rows cannot be replaced.";
constexpr const char* wrongValues = "A custody row takes whole numbers, and dates like 2026-11-20T13:14:15.123.";

const std::string& TableOf(Kind kind) {
    static const std::string tables[] = {"PropertyTracking", "VehicleTracking"};
    return tables[kind == Kind::Property ? 0 : 1];
}

class CustodyGuardsTest : public SchemaTest, public ::testing::WithParamInterface<Kind> {
protected:
    CustodyGuardsTest() {
        m_item = GetParam() == Kind::Property ? m_database.AddProperty() : m_database.AddVehicle();
        m_database.AddCustodyRow(GetParam(), m_item, Null());
        m_database.AddCustodyRow(GetParam(), m_item, Null());
        m_before = m_database.Snapshot();
    }
    ~CustodyGuardsTest() override { EXPECT_EQ(m_database.Snapshot(), m_before); }

    std::string Insert(const std::string& values) const {
        return "INSERT INTO " + m_table + " (" + m_kind + "No,SeqNo,ReceivedBy,ReceivedFrom,DateReceived," +
               "CustodyReasonNo,StorageLocNo,LastUpdated) VALUES (" + std::to_string(m_item) + "," + values + ")";
    }

    const std::string m_table = TableOf(GetParam());
    const std::string m_kind = m_table.substr(0, m_table.find("Tracking"));
    int32_t m_item = 0;
    std::string m_before;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(Kinds, CustodyGuardsTest, ::testing::Values(Kind::Property, Kind::vehicle),
                         [](const auto& kind) { return TableOf(kind.param); });

TEST_P(CustodyGuardsTest, ARowCannotBeChangedOrDeleted) {
    const Error change = Raised("UPDATE " + m_table + " SET ReceivedBy = 5");
    EXPECT_EQ(change.Description(), "A custody row cannot be changed.");
    EXPECT_NE(change.Number(), ErrorNumber::IntegrityViolation);
    const Error removal = Raised("DELETE FROM " + m_table);
    EXPECT_EQ(removal.Description(), "A custody row cannot be deleted.");
    EXPECT_NE(removal.Number(), ErrorNumber::IntegrityViolation);
}

TEST_P(CustodyGuardsTest, ARowCannotBeReplacedOnAnyConnection) {
    const std::string values = "1,9,9,NULL,NULL,NULL,'2026-01-01T00:00:00.000'";
    const std::pair<std::string, std::string> replaces[] = {
        {"INSERT OR REPLACE" + Insert(values).substr(6), rowExists},
        {"REPLACE" + Insert(values).substr(6), rowExists},
        {"UPDATE OR REPLACE " + m_table + " SET SeqNo = 1 WHERE SeqNo = 2", "A custody row cannot be changed."},
        {Insert(values) + " ON CONFLICT DO UPDATE SET ReceivedBy = 9", rowExists}};
    for (const char* settings : {"PRAGMA recursive_triggers = ON; PRAGMA foreign_keys = ON",
                                 "PRAGMA recursive_triggers = OFF; PRAGMA foreign_keys = OFF"}) {
        SQLite::Database connection(m_database.Path(), SQLite::OPEN_READWRITE);
        connection.exec(settings);
        for (const auto& [replace, refusal] : replaces) {
            try {
                connection.exec(replace);
                ADD_FAILURE() << replace;
            } catch (const SQLite::Exception& failure) {
                EXPECT_EQ(failure.what(), refusal) << replace;
            }
        }
    }
}

TEST_P(CustodyGuardsTest, ARowWithATakenNumberViolatesTheKey) {
    const Error error = Raised(Insert("2,NULL,NULL,NULL,NULL,NULL,'2026-01-01T00:00:00.000'"));
    EXPECT_EQ(error.Number(), ErrorNumber::IntegrityViolation);
    EXPECT_EQ(error.Description(), rowExists);
}

TEST_P(CustodyGuardsTest, ARowTakesWholeNumbersAndDates) {
    for (const char* values :
         {"3,'nobody',1,NULL,1,NULL,'2026-01-01T00:00:00.000'", "3,1,'x',NULL,1,NULL,'2026-01-01T00:00:00.000'",
          "3,1,1,NULL,1.5,NULL,'2026-01-01T00:00:00.000'", "3,1,1,NULL,1,x'31','2026-01-01T00:00:00.000'",
          "3,2147483648,1,NULL,1,NULL,'2026-01-01T00:00:00.000'",
          "3,1,-2147483649,NULL,1,NULL,'2026-01-01T00:00:00.000'", "3,1,1,'yesterday',1,NULL,'2026-01-01T00:00:00.000'",
          "3,1,1,'2026-01-01',1,NULL,'2026-01-01T00:00:00.000'",
          "3,1,1,'2026-02-30T00:00:00.000',1,NULL,'2026-01-01T00:00:00.000'",
          "3,1,1,NULL,1,NULL,'2026-01-01 00:00:00.000'", "3,1,1,NULL,1,NULL,''",
          "3,1,1,20260101,1,NULL,'2026-01-01T00:00:00.000'", "2.5,1,1,NULL,1,NULL,'2026-01-01T00:00:00.000'"})
        EXPECT_EQ(RaisedBy([&] { m_database.Execute(Insert(values)); }).Description(), wrongValues) << values;
}

TEST_P(CustodyGuardsTest, AnItemCannotNameACustodyRowThatDoesNotExist) {
    const std::string where = " WHERE " + m_kind + "No = " + std::to_string(m_item);
    for (const char* sequence : {"0", "3", "'x'", "1.5", "-1"}) {
        const std::string update = "UPDATE " + m_kind + " SET CurrTrackSeq = " + sequence + where;
        EXPECT_EQ(Raised(update).Number(), ErrorNumber::IntegrityViolation) << update;
        EXPECT_EQ(RaisedBy([&] { GetHostDatabase().ExecuteBatch({update}); }).Number(), ErrorNumber::IntegrityViolation)
            << update;
    }
    EXPECT_EQ(Raised("INSERT INTO " + m_kind + " (CurrTrackSeq) VALUES (1)").Number(), ErrorNumber::IntegrityViolation);
}

TEST_P(CustodyGuardsTest, TheCurrentCustodyRowCannotBeDeletedEvenWithoutItsTrigger) {
    m_database.Execute("DROP TRIGGER " + m_table + "DeleteGuard");
    EXPECT_EQ(Raised("DELETE FROM " + m_table + " WHERE SeqNo = 2").Number(), ErrorNumber::IntegrityViolation);
}

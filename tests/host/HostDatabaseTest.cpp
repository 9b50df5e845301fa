#include "host/HostDatabase.h"

#include "base/Error.h"
#include "host/HostServices.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingEngine.h"
#include "tests/support/TestDatabase.h"

#include <gtest/gtest.h>

#include <pugixml.hpp>

#include <algorithm>

using namespace quellbrook;
using namespace quellbrook::testing;

namespace {

using Type = StorageLocationTypes;

// Texts with every special character of LIKE and of literals.
const std::vector<std::string> oddTexts = {
    "50% off", "a_b", "[box]", "x]y", "C:\\shelf", "it's", "two * three", "plain", "50 off",
    "axb",     "b",   "%",     "_",   "\\",        "''",   "\\%_[]*'",    "ab\\",  "\xC3\xA4\xC3\xB6"};

class HostDatabaseTest : public ::testing::Test {
protected:
    HostDatabaseTest() : m_recorder(std::make_shared<RecordingEngine>(m_database.GetEngine())) {
        m_database.Install(m_recorder);
    }

    std::vector<std::string> NamesWhere(const std::string& condition) {
        std::vector<std::string> names;
        for (const Row& row : m_host.QueryRows("SELECT Name FROM Setting WHERE " + condition + " ORDER BY Name"))
            names.push_back(ToText(row.Value("Name")));
        return names;
    }

    int32_t Insert(const std::string& table, const std::string& key, const std::string& xml) {
        pugi::xml_document document;
        document.load_string(xml.c_str(), pugi::parse_default | pugi::parse_ws_pcdata);
        return m_host.InsertRow(table, key, document.document_element());
    }

    TestDatabase m_database;
    std::shared_ptr<RecordingEngine> m_recorder;
    HostDatabase m_host;
};

std::string LocationDocument(const std::string& name, const std::string& flag = "True") {
    return "<StorageLocation><Name isPersistable='1'>" + name +
           "</Name><Type isPersistable='1'>2</Type><Path isPersistable='1'>/0/</Path><ActiveFlag isPersistable='1'>" +
           flag +
           "</ActiveFlag><DateEntered isPersistable='1'>2026-11-20T13:14:15.123</DateEntered><LastUpdated "
           "isPersistable='1'>2026-11-20 13:14:15.123</LastUpdated></StorageLocation>";
}

}  // namespace

TEST_F(HostDatabaseTest, AStatementWithoutRowsReturnsAnEmptyListAndNoRow) {
    EXPECT_TRUE(m_host.QueryRows("SELECT * FROM Property").empty());
    EXPECT_FALSE(m_host.QueryRow("SELECT * FROM Property"));
}

TEST_F(HostDatabaseTest, RowsComeInTheDatabasesOrder) {
    for (const char* name : {"b", "c", "a"}) m_database.AddSetting(name, "x");
    const RowList rows = m_host.QueryRows("SELECT Name FROM Setting ORDER BY Name DESC");
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0].Value("name"), TaggedValue("c"));
    EXPECT_EQ(rows[2].Value("NAME"), TaggedValue("a"));
    EXPECT_EQ(m_host.QueryRow("SELECT Name FROM Setting ORDER BY Name")->At(0), TaggedValue("a"));
}

TEST_F(HostDatabaseTest, QueriesTakeParameters) {
    for (const char* name : {"a", "b", "c"}) m_database.AddSetting(name, "x");
    const std::string sql = "SELECT Name FROM Setting WHERE Name <> ? AND Value = ? ORDER BY Name";
    EXPECT_EQ(m_host.QueryRows(sql, {"a", "x"}).size(), 2u);
    EXPECT_EQ(m_host.QueryRow(sql, {"a", "x"})->At(0), TaggedValue("b"));
    std::string seen;
    m_host.ForEachRow(sql,
                      [&](const Row& row) {
                          seen += ToText(row.At(0));
                          return true;
                      },
                      {"", "x"});
    EXPECT_EQ(seen, "abc");
}

TEST_F(HostDatabaseTest, RowsArePassedOneByOneUntilTheReceiverStops) {
    for (const char* name : {"a", "b", "c"}) m_database.AddSetting(name, "x");
    std::string seen;
    m_host.ForEachRow("SELECT Name FROM Setting ORDER BY Name", [&](const Row& row) {
        seen += ToText(row.At(0));
        return seen.size() < 2;
    });
    EXPECT_EQ(seen, "ab");
}

TEST_F(HostDatabaseTest, TheDatabaseCanBeAskedAndChangedWhileAResultIsWalked) {
    for (const char* name : {"a", "b"}) m_database.AddSetting(name, "x");
    m_host.ForEachRow("SELECT Name FROM Setting", [&](const Row& row) {
        const std::string where = " WHERE Name = " + m_host.PrepareText(ToText(row.At(0)));
        EXPECT_EQ(m_host.QueryRows("SELECT * FROM Setting" + where).size(), 1u);
        m_host.Execute("UPDATE Setting SET Value = 'y'" + where);
        return true;
    });
    EXPECT_EQ(m_database.QueryValue("SELECT COUNT(*) FROM Setting WHERE Value = 'y'"), TaggedValue(2));
}

TEST_F(HostDatabaseTest, LookupJoinsItsConditionsByAnd) {
    m_database.AddSetting("a", "1");
    m_database.AddSetting("b", "1");
    EXPECT_EQ(m_host.LookupValue("Setting", "COUNT(Name) AS TotalCount", {"Value='1'", "Name='b'", "Name <> 'a'"}),
              TaggedValue(1));
    EXPECT_EQ(m_recorder->Log().back(),
              "SELECT COUNT(Name) AS TotalCount FROM Setting WHERE Value='1' AND Name='b' AND Name <> 'a'");
    EXPECT_EQ(m_host.LookupValue("Setting", "COUNT(Name) AS TotalCount", {}), TaggedValue(2));
}

TEST_F(HostDatabaseTest, LookupWithoutARowReturnsNull) {
    EXPECT_TRUE(m_host.LookupValue("Setting", "Value", {"Name='a'"}).IsNull());
}

TEST_F(HostDatabaseTest, ParametersGoInByTheirMarkers) {
    const int32_t id = m_database.AddLocation("Shelf", Type::Internal);
    m_host.ExecuteWithParameters("UPDATE StorageLocation SET ActiveFlag = ? WHERE IdNo = ?", {false, id});
    EXPECT_EQ(m_host.QueryRow("SELECT ActiveFlag FROM StorageLocation")->At(0), TaggedValue(false));
    EXPECT_EQ(m_database.QueryValue("SELECT typeof(ActiveFlag) || ActiveFlag FROM StorageLocation"),
              TaggedValue("integer0"));
}

TEST_F(HostDatabaseTest, EveryViolatedConstraintThatCallersTestForHasTheOneNumber) {
    const int32_t id = m_database.AddLocation("Shelf", Type::Internal);
    m_database.AddCustodyRow(StoredItemTypes::Property, m_database.AddProperty(), id);
    const int32_t integrity = static_cast<int32_t>(0x80040E2Fu);
    EXPECT_EQ(integrity, -2147217873);
    const std::string removal = "DELETE FROM StorageLocation WHERE IdNo = " + std::to_string(id);
    EXPECT_EQ(RaisedBy([&] { m_host.Execute(removal); }).Number(), integrity);
    EXPECT_EQ(RaisedBy([&] { m_host.ExecuteBatch({removal}); }).Number(), integrity);
    EXPECT_EQ(RaisedBy([&] { Insert("StorageLocation", "IdNo", LocationDocument("shelf")); }).Number(), integrity);
    EXPECT_EQ(RaisedBy([&] { m_host.ExecuteWithParameters("INSERT INTO IncdVehicle VALUES (?, 1)", {1}); }).Number(),
              integrity);
}

TEST_F(HostDatabaseTest, AnInsertedRowGetsItsValuesByTheColumnsKind) {
    const int32_t id = Insert("StorageLocation", "IdNo", LocationDocument("007"));
    const auto row = m_host.QueryRow("SELECT * FROM StorageLocation WHERE IdNo = " + std::to_string(id));
    ASSERT_TRUE(row);
    EXPECT_EQ(row->Value("Name"), TaggedValue("007"));
    EXPECT_EQ(row->Value("Type"), TaggedValue(2));
    EXPECT_EQ(row->Value("ActiveFlag"), TaggedValue(true));
    EXPECT_EQ(row->Value("DateEntered"), TaggedValue(DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123})));
    EXPECT_EQ(m_database.QueryValue("SELECT LastUpdated FROM StorageLocation"), TaggedValue("2026-11-20T13:14:15.123"));
    EXPECT_EQ(m_database.QueryValue("SELECT ActiveFlag FROM StorageLocation"), TaggedValue(1));
}

TEST_F(HostDatabaseTest, TextsOfARowDocumentAreStoredUnchanged) {
    for (const char* text :
         {"a &amp; b", "it's", "  blanks  ", "&lt;b&gt;x&lt;/b&gt;", "{0}; DROP TABLE Setting", "?"}) {
        const int32_t id = Insert("StorageLocation", "IdNo", LocationDocument(text));
        pugi::xml_document expected;
        expected.load_string((std::string("<a>") + text + "</a>").c_str(), pugi::parse_default | pugi::parse_ws_pcdata);
        EXPECT_EQ(m_host.LookupValue("StorageLocation", "Name", {"IdNo=" + std::to_string(id)}),
                  TaggedValue(expected.document_element().text().get()));
    }
}

TEST_F(HostDatabaseTest, TheIdentityOfAnInsertedRowIsReturned) {
    EXPECT_EQ(Insert("StorageLocation", "IdNo", LocationDocument("a")), 1);
    EXPECT_EQ(Insert("StorageLocation", "IdNo", LocationDocument("b", "False")), 2);
    m_database.Execute("INSERT INTO Property (PropertyNo) VALUES (6)");
    EXPECT_EQ(
        Insert("Property", "PropertyNo", "<Property><Description isPersistable='1'>a bicycle</Description></Property>"),
        7);
    EXPECT_EQ(Insert("Property", "PropertyNo", "<Property/>"), 8);
}

TEST_F(HostDatabaseTest, OnlyPersistableChildrenAreInsertedAndNeverTheKey) {
    const int32_t id = Insert("Property", "PropertyNo",
                              "<Property><PropertyNo isPersistable='1'>99</PropertyNo><PropertyID isPersistable='1'>E-1"
                              "</PropertyID><Description>not this</Description></Property>");
    EXPECT_EQ(id, 1);
    EXPECT_EQ(m_database.QueryValue("SELECT PropertyID FROM Property"), TaggedValue("E-1"));
    EXPECT_TRUE(m_database.QueryValue("SELECT Description FROM Property").IsNull());
}

TEST_F(HostDatabaseTest, AKeyThatIsNoColumnOfTheTableIsRefusedBeforeAnythingIsWritten) {
    const std::string before = m_database.Snapshot();
    const Error error = RaisedBy([&] { Insert("Property", "IdNo", "<Property/>"); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "The table has no column 'IdNo'.");
    EXPECT_EQ(m_database.Snapshot(), before);
    EXPECT_EQ(Insert("Property", "propertyno", "<Property/>"), 1);
}

TEST_F(HostDatabaseTest, AValueThatDoesNotFitItsColumnIsRefusedBeforeItIsWritten) {
    EXPECT_EQ(RaisedBy([&] { Insert("StorageLocation", "IdNo", LocationDocument("a", "perhaps")); }).Number(),
              ErrorNumber::TypeMismatch);
    EXPECT_EQ(RaisedBy([&] {
                  Insert("Property", "PropertyNo", "<Property><Quantity isPersistable='1'>some</Quantity></Property>");
              }).Number(),
              13);
    EXPECT_EQ(RaisedBy([&] {
                  Insert("Property", "PropertyNo",
                         "<Property><CategoryNo isPersistable='1'>9999999999</CategoryNo></Property>");
              }).Number(),
              6);
    EXPECT_EQ(m_database.QueryValue("SELECT COUNT(*) FROM StorageLocation"), TaggedValue(0));
    EXPECT_EQ(m_database.QueryValue("SELECT COUNT(*) FROM Property"), TaggedValue(0));
}

TEST_F(HostDatabaseTest, ATextLiteralReadsBackAsTheSameText) {
    for (const std::string& text : oddTexts)
        EXPECT_EQ(m_host.QueryRow("SELECT " + m_host.PrepareText(text) + " AS T")->At(0), TaggedValue(text));
    for (const char* text : {"", "a\r\nb", "\xF0\x9F\x9A\x97", "; SELECT 1 --", "N'x'"})
        EXPECT_EQ(m_host.QueryRow("SELECT " + m_host.PrepareText(text) + " AS T")->At(0), TaggedValue(text));
    EXPECT_EQ(m_host.PrepareText("O'Hara"), "'O''Hara'");
}

TEST_F(HostDatabaseTest, NulIsRefusedInEveryText) {
    const std::string text("a\0b", 3);
    EXPECT_EQ(RaisedBy([&] { m_host.PrepareText(text); }).Number(), ErrorNumber::General);
    EXPECT_EQ(RaisedBy([&] { m_host.PrepareLike(text); }).Number(), ErrorNumber::General);
    EXPECT_EQ(RaisedBy([&] { m_host.ExecuteWithParameters("INSERT INTO Setting (Name) VALUES (?)", {text}); }).Number(),
              5);
    EXPECT_EQ(RaisedBy([&] { m_host.Execute("INSERT INTO Setting (Name) VALUES ('" + text + "')"); }).Number(),
              ErrorNumber::General);
    EXPECT_EQ(m_database.QueryValue("SELECT COUNT(*) FROM Setting"), TaggedValue(0));
}

TEST_F(HostDatabaseTest, APatternFindsExactlyTheTextsThatItMeans) {
    for (const std::string& text : oddTexts) m_database.AddSetting("x" + text + "z", text);
    for (const std::string& text : oddTexts) {
        if (text.find('*') != std::string::npos) continue;
        EXPECT_EQ(NamesWhere("Value LIKE " + m_host.PrepareLike(text)), std::vector<std::string>{"x" + text + "z"})
            << text;
        std::vector<std::string> containing;
        for (const std::string& other : oddTexts)
            if (other.find(text) != std::string::npos) containing.push_back("x" + other + "z");
        std::vector<std::string> found = NamesWhere("Value LIKE " + m_host.PrepareLike("*" + text + "*"));
        std::sort(found.begin(), found.end());
        std::sort(containing.begin(), containing.end());
        EXPECT_EQ(found, containing) << text;
        EXPECT_EQ(NamesWhere("Name LIKE " + m_host.PrepareLike("x" + text + "z")).size(), 1u) << text;
    }
}

TEST_F(HostDatabaseTest, AnAsteriskMatchesAnyRunOfCharacters) {
    for (const char* text : {"", "a", "abc", "a*c"}) m_database.AddSetting(std::string("n") + text, text);
    m_database.Execute("INSERT INTO Setting (Name) VALUES ('null')");
    EXPECT_EQ(NamesWhere("Value LIKE " + m_host.PrepareLike("*")),
              (std::vector<std::string>{"n", "na", "na*c", "nabc"}));
    EXPECT_EQ(NamesWhere("Value LIKE " + m_host.PrepareLike("a*c")), (std::vector<std::string>{"na*c", "nabc"}));
    EXPECT_EQ(NamesWhere("Value LIKE " + m_host.PrepareLike("A*")).size(), 3u);
}

TEST_F(HostDatabaseTest, AnEscapeClauseIsAddedOnlyIfTheTextNeedsIt) {
    EXPECT_EQ(m_host.PrepareLike("/0/5/*"), "'/0/5/%'");
    EXPECT_EQ(m_host.PrepareLike("it's"), "'it''s'");
    EXPECT_EQ(m_host.PrepareLike("50%*"), "'50\\%%' ESCAPE '\\'");
    EXPECT_EQ(m_host.PrepareLike("_[]\\"), "'\\_\\[\\]\\\\' ESCAPE '\\'");
}

TEST_F(HostDatabaseTest, ADateLiteralIsTheTextOfTheMoment) {
    EXPECT_EQ(m_host.PrepareDate("2026-11-20T13:14:15.123"), "'2026-11-20T13:14:15.123'");
    EXPECT_EQ(m_host.PrepareDate("2026-11-20 13:14"), "'2026-11-20T13:14:00.000'");
    EXPECT_EQ(m_host.PrepareDate(" 2026-11-20 "), "'2026-11-20T00:00:00.000'");
    EXPECT_EQ(m_host.PrepareDate("2026-11-20T13:14:15.1239"), "'2026-11-20T13:14:15.123'");
    for (const char* text : {"", "tomorrow", "2026-02-30", "20.11.2026", "2026-11-20'; DROP TABLE Setting --"})
        EXPECT_EQ(RaisedBy([&] { m_host.PrepareDate(text); }).Number(), ErrorNumber::TypeMismatch) << text;
}

TEST_F(HostDatabaseTest, ADateThatWasWrittenReadsBackAsTheSameMoment) {
    m_database.AddLocation("Shelf", Type::Internal);
    const DateTime moment = DateTime::FromParts({2026, 2, 28, 23, 59, 59, 7});
    m_host.Execute("UPDATE StorageLocation SET LastUpdated = " + m_host.PrepareDate(moment.ToText()));
    EXPECT_EQ(m_host.LookupValue("StorageLocation", "LastUpdated", {}), TaggedValue(moment));
}

TEST_F(HostDatabaseTest, NothingOfOneCallIsLeftForTheNext) {
    m_host.Execute("CREATE TABLE #Left (A INT)");
    EXPECT_NE(RaisedBy([&] { m_host.QueryRows("SELECT * FROM #Left"); }).Number(), 0);
    m_host.Execute("CREATE TABLE #Left (A INT)");
}

TEST_F(HostDatabaseTest, TheSharedInstanceUsesTheSameDatabase) {
    m_database.AddSetting("a", "1");
    EXPECT_EQ(&GetHostDatabase(), &GetHostDatabase());
    EXPECT_EQ(GetHostDatabase().LookupValue("Setting", "Value", {"Name='a'"}), TaggedValue("1"));
}

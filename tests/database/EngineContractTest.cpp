// What every engine promises. On a server, the same tests run there (tests/server/suites.txt).

#include "base/Error.h"
#include "base/Text.h"
#include "database/Connection.h"
#include "host/HostDatabase.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/HostileTexts.h"
#include "tests/support/RaisedBy.h"

#include <limits>
#include <stdexcept>

namespace quellbrook::testing {
namespace {

using Values = std::vector<TaggedValue>;
using Statements = std::vector<std::string>;

class EngineContract : public DatabaseTest {
protected:
    RowList Rows(const std::string& sql, const Values& parameters = {}) { return Rows(*m_connection, sql, parameters); }
    static RowList Rows(Connection& connection, const std::string& sql, const Values& parameters = {}) {
        RowList rows;
        connection.Query(sql, parameters, [&](const Row& row) {
            rows.push_back(row);
            return true;
        });
        return rows;
    }
    TaggedValue Value(const std::string& sql, const Values& parameters = {}) {
        const RowList rows = Rows(sql, parameters);
        return rows.empty() ? TaggedValue() : rows[0].At(0);
    }
    Error Refusal(const std::string& sql, const Values& parameters = {}) {
        return RaisedBy([&] { m_connection->Execute(sql, parameters); });
    }
    int32_t Count(const std::string& condition, const Values& parameters = {}) {
        return ToInt32(Value("SELECT COUNT(PropertyNo) AS N FROM Property WHERE " + condition, parameters));
    }

    std::unique_ptr<Connection> m_connection = m_database.GetEngine()->Open();
};

// Values

TEST_F(EngineContract, EveryTextReadsBackAsItWasBound) {
    for (const HostileText& hostile : HostileTexts()) {
        const int32_t key =
            m_connection->Insert("INSERT INTO Property (DisposalNote) VALUES (?)", {hostile.text}, "PropertyNo");
        EXPECT_EQ(Value("SELECT DisposalNote FROM Property WHERE PropertyNo = ?", {key}), TaggedValue(hostile.text))
            << hostile.description;
    }
}

TEST_F(EngineContract, EveryTextReadsBackAsItWasWritten) {
    for (const HostileText& hostile : HostileTexts()) {
        const std::string literal = HostDatabase().PrepareText(hostile.text);
        m_connection->Execute("INSERT INTO Property (PropertyID) VALUES (" + literal + ")");
        EXPECT_EQ(Value("SELECT PropertyID FROM Property WHERE PropertyID = " + literal), TaggedValue(hostile.text))
            << hostile.description;
    }
}

TEST_F(EngineContract, ALongTextIsKeptWhole) {
    std::string text;
    for (int i = 0; i < 20'000; ++i) text += i % 7 == 0 ? "\xF0\x9F\x9A\xB2" : i % 5 == 0 ? "\xC3\xA9" : "ab";
    m_connection->Execute("INSERT INTO Property (DisposalNote) VALUES (?)", {text});
    EXPECT_EQ(Value("SELECT DisposalNote FROM Property"), TaggedValue(text));
    // Its last part fills the block of a driver exactly.
    for (const size_t length : {2046u, 2047u, 2048u, 4093u, 4094u, 4095u}) {
        m_connection->Execute("UPDATE Property SET DisposalNote = ?", {std::string(length, 'x')});
        EXPECT_EQ(ToText(Value("SELECT DisposalNote FROM Property")).size(), length);
    }
}

TEST_F(EngineContract, ATextWithNulIsRefused) {
    const Error error = Refusal("INSERT INTO Property (PropertyID) VALUES (?)", {TextWithNul()});
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), NulRefusal);
    EXPECT_EQ(Count("1 = 1"), 0);
}

TEST_F(EngineContract, WholeNumbersReadBack) {
    for (const int32_t number : {0, -1, std::numeric_limits<int32_t>::max(), std::numeric_limits<int32_t>::min()}) {
        m_connection->Execute("INSERT INTO Property (CategoryNo) VALUES (?)", {number});
        EXPECT_EQ(Value("SELECT CategoryNo FROM Property WHERE CategoryNo = ?", {number}), TaggedValue(number));
    }
}

TEST_F(EngineContract, NumbersReadBackByTheirValue) {
    const int32_t key = m_database.AddProperty();
    const auto reads = [&](const TaggedValue& written) {
        m_connection->Execute("UPDATE Property SET Quantity = ?, PropertyValue = ?", {written, written});
        const RowList rows = Rows("SELECT Quantity, PropertyValue FROM Property WHERE PropertyNo = ?", {key});
        EXPECT_EQ(ToDouble(rows[0].At(0)), ToDouble(rows[0].At(1)));
        return ToDouble(rows[0].At(1));
    };
    EXPECT_EQ(reads(12.5), 12.5);
    EXPECT_EQ(reads(-0.25), -0.25);
    EXPECT_EQ(reads(7), 7);
    EXPECT_EQ(reads(Decimal{1250, 2}), 12.5);
    m_connection->Execute("UPDATE Property SET Quantity = ?", {3.0});
    EXPECT_EQ(ToText(Value("SELECT Quantity FROM Property")), "3");
}

TEST_F(EngineContract, BooleansReadBackAsBooleans) {
    const int32_t key = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    for (const bool flag : {false, true}) {
        m_connection->Execute("UPDATE StorageLocation SET ActiveFlag = ? WHERE IdNo = ?", {flag, key});
        EXPECT_EQ(Value("SELECT ActiveFlag FROM StorageLocation"), TaggedValue(flag));
    }
}

TEST_F(EngineContract, DatesKeepTheirMilliseconds) {
    m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    const DateTime moment = DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123});
    m_connection->Execute("UPDATE StorageLocation SET LastUpdated = ?, DateEntered = '2026-02-28T23:59:59.999'",
                          {moment});
    const RowList rows = Rows("SELECT LastUpdated, DateEntered FROM StorageLocation");
    EXPECT_EQ(rows[0].At(0), TaggedValue(moment));
    EXPECT_EQ(rows[0].At(1), TaggedValue(DateTime::FromParts({2026, 2, 28, 23, 59, 59, 999})));
}

TEST_F(EngineContract, NullGoesIntoColumnsOfEveryType) {
    const int32_t key = m_database.AddProperty({.PropertyID = "P", .CategoryNo = 3, .PropertyValue = 4});
    m_connection->Execute("UPDATE Property SET PropertyID = ?, CategoryNo = ?, PropertyValue = ? WHERE PropertyNo = ?",
                          {Null(), Null(), TaggedValue(), key});
    const RowList rows = Rows("SELECT PropertyID, CategoryNo, PropertyValue FROM Property");
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(rows[0].At(i).IsNull()) << i;
    m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    m_connection->Execute("UPDATE StorageLocation SET ActiveFlag = ?", {Null()});
    EXPECT_TRUE(Value("SELECT ActiveFlag FROM StorageLocation").IsNull());
}

TEST_F(EngineContract, ATableIsDescribedByItsColumns) {
    const auto kindOf = [&](const std::string& name) {
        for (const ColumnDescription& column : m_connection->DescribeTable("StorageLocation"))
            if (EqualsNoCase(column.name, name)) return column.kind;
        throw std::runtime_error(name);
    };
    EXPECT_EQ(kindOf("IdNo"), ColumnKind::WholeNumber);
    EXPECT_EQ(kindOf("Name"), ColumnKind::Text);
    EXPECT_EQ(kindOf("ActiveFlag"), ColumnKind::Boolean);
    EXPECT_EQ(kindOf("LastUpdated"), ColumnKind::Date);
}

// Comparison

TEST_F(EngineContract, TextsCompareWithoutCase) {
    m_database.AddProperty({.PropertyID = "Ab-1"});
    EXPECT_EQ(Count("PropertyID = 'aB-1'"), 1);
    EXPECT_EQ(Count("PropertyID = ?", {"AB-1"}), 1);
    EXPECT_EQ(Count("PropertyID <> 'aB-1'"), 0);
    EXPECT_EQ(Count("PropertyID IN ('x', 'ab-1')"), 1);
    EXPECT_EQ(Count("PropertyID LIKE 'aB%'"), 1);
    EXPECT_EQ(Count("PropertyID LIKE ?", {"%B-1"}), 1);
    EXPECT_EQ(Count("PropertyID = 'Ab-2'"), 0);
    EXPECT_EQ(Count("PropertyID = ?", {"Ab"}), 0);
}

TEST_F(EngineContract, OnlyAsciiLettersAreFolded) {
    m_database.AddProperty({.PropertyID = "\xC3\xA9t\xC3\xA9"});
    EXPECT_EQ(Count("PropertyID = '\xC3\xA9T\xC3\xA9'"), 1);
    EXPECT_EQ(Count("PropertyID = '\xC3\x89t\xC3\x89'"), 0);
    EXPECT_EQ(Count("PropertyID = 'ete'"), 0);
    EXPECT_EQ(Count("PropertyID LIKE '\xC3\x89%'"), 0);
}

TEST_F(EngineContract, EachSpecialCharacterOfAPatternMatchesItself) {
    for (const char* text : {"50% off", "a_b", "[x]", "C:\\room", "it's", "100"})
        m_database.AddProperty({.Description = text});
    for (const char* pattern : {"*50%*", "a_b", "[x]", "*\\room", "it's", "1*0"})
        EXPECT_EQ(Count("Description LIKE " + HostDatabase().PrepareLike(pattern)), 1) << pattern;
    for (const char* pattern : {"*5%0*", "axb", "x", "_00", "*/room"})
        EXPECT_EQ(Count("Description LIKE " + HostDatabase().PrepareLike(pattern)), 0) << pattern;
}

TEST_F(EngineContract, ANameIsTakenWithoutRegardToCase) {
    m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    const Error error = RaisedBy([&] { m_database.AddLocation("SHELF", StorageLocationTypes::Internal); });
    EXPECT_NE(error.Number(), 0);
    m_database.AddLocation("SHELF", StorageLocationTypes::External);
}

// Errors

TEST_F(EngineContract, AViolatedUniqueConstraintHasTheNumberThatCallersTestFor) {
    const int32_t shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    m_database.AddLocation("Bin", StorageLocationTypes::Internal);
    const Error error = Refusal("UPDATE StorageLocation SET Name = 'BIN' WHERE IdNo = ?", {shelf});
    EXPECT_EQ(error.Number(), ErrorNumber::IntegrityViolation);
    EXPECT_FALSE(error.Description().empty());
    const Error second = Refusal("INSERT INTO Property (PropertyNo) VALUES (?)", {m_database.AddProperty()});
    EXPECT_EQ(second.Number(), ErrorNumber::IntegrityViolation);
}

TEST_F(EngineContract, AViolatedForeignKeyHasTheSameNumber) {
    const int32_t shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    m_database.AddStored(PropertyFields{}, shelf);
    EXPECT_EQ(Refusal("DELETE FROM StorageLocation WHERE IdNo = ?", {shelf}).Number(), ErrorNumber::IntegrityViolation);
    EXPECT_EQ(Refusal("INSERT INTO IncdProperty (IncidentNo, PropertyNo) VALUES (77, 1)").Number(),
              ErrorNumber::IntegrityViolation);
}

TEST_F(EngineContract, AForeignKeyThatIsCheckedAtTheCommitHasTheSameNumber) {
    const int32_t item = m_database.AddProperty();
    const Error error = RaisedBy([&] {
        m_connection->Begin();
        m_connection->Execute("UPDATE Property SET CurrTrackSeq = 9 WHERE PropertyNo = ?", {item});
        m_connection->Commit();
    });
    m_connection->Rollback();
    EXPECT_EQ(error.Number(), ErrorNumber::IntegrityViolation);
    EXPECT_EQ(m_connection->TransactionName(), "");
    EXPECT_TRUE(Value("SELECT CurrTrackSeq FROM Property").IsNull());
}

TEST_F(EngineContract, OtherConstraintsHaveOtherNumbers) {
    const Error missing = Refusal("INSERT INTO AttachmentFolder (Path) VALUES (?)", {Null()});
    EXPECT_NE(missing.Number(), 0);
    EXPECT_NE(missing.Number(), ErrorNumber::IntegrityViolation);
    const int32_t shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    const Error wrong = Refusal("UPDATE StorageLocation SET Type = 3 WHERE IdNo = ?", {shelf});
    EXPECT_NE(wrong.Number(), 0);
    EXPECT_NE(wrong.Number(), ErrorNumber::IntegrityViolation);
}

TEST_F(EngineContract, CustodyRowsCannotBeChangedOrDeleted) {
    const int32_t shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    m_database.AddStored(PropertyFields{}, shelf);
    EXPECT_EQ(Refusal("UPDATE PropertyTracking SET ReceivedBy = 4").Description(), "A custody row cannot be changed.");
    EXPECT_EQ(Refusal("DELETE FROM PropertyTracking").Description(), "A custody row cannot be deleted.");
    EXPECT_EQ(Value("SELECT COUNT(*) AS N FROM PropertyTracking"), TaggedValue(1));
}

TEST_F(EngineContract, ALocationWithoutItsContainerIsRefusedWithASentence) {
    const char* const sentence =
        "Its container has been moved or deleted in the meantime. Refresh the locations and try again.";
    const char* const insert =
        "INSERT INTO StorageLocation (Name, Type, Path, ActiveFlag, DateEntered, LastUpdated) VALUES (?, 2, ?, ?, "
        "'2026-01-01T00:00:00.000', '2026-01-01T00:00:00.000')";
    const Error error = Refusal(insert, {"Bin", "/0/99/", true});
    EXPECT_EQ(error.Description(), sentence);
    EXPECT_NE(error.Number(), ErrorNumber::IntegrityViolation);
    const int32_t court = m_database.AddLocation("Court", StorageLocationTypes::External);
    EXPECT_EQ(Refusal(insert, {"Bin", "/0/" + std::to_string(court) + "/", true}).Description(), sentence);
}

TEST_F(EngineContract, AConnectionStaysUsableAfterARefusedStatement) {
    m_database.AddProperty();
    EXPECT_NE(Refusal("INSERT INTO Property (PropertyNo) VALUES (1)").Number(), 0);
    EXPECT_TRUE(m_connection->IsHealthy());
    EXPECT_EQ(Count("1 = 1"), 1);
}

// Several statements and results

TEST_F(EngineContract, AnErrorOfALaterStatementInOneTextIsNoticed) {
    const Error error =
        Refusal("INSERT INTO Property (PropertyNo) VALUES (1);INSERT INTO Property (PropertyNo) VALUES (1)");
    EXPECT_EQ(error.Number(), ErrorNumber::IntegrityViolation);
}

TEST_F(EngineContract, AllTextsOfABatchRunInTheirOrder) {
    m_connection->Begin();
    m_connection->ExecuteAndCommit({"INSERT INTO Property (PropertyNo, PropertyID) VALUES (1, 'a')",
                                    "UPDATE Property SET PropertyID = 'b'",
                                    "INSERT INTO Property (PropertyNo, PropertyID) VALUES (2, 'c')"});
    EXPECT_EQ(Count("PropertyID = 'b'"), 1);
    EXPECT_EQ(Count("PropertyID = 'c'"), 1);
}

TEST_F(EngineContract, ATextOfABatchThatFailsLeavesOutTheCommit) {
    m_connection->Begin();
    const Error error = RaisedBy([&] {
        m_connection->ExecuteAndCommit({"INSERT INTO Property (PropertyNo) VALUES (1)",
                                        "INSERT INTO Property (PropertyNo) VALUES (1)",
                                        "INSERT INTO Property (PropertyNo) VALUES (2)"});
    });
    EXPECT_EQ(error.Number(), ErrorNumber::IntegrityViolation);
    EXPECT_EQ(m_connection->TransactionName(), "");
    m_connection->Rollback();
    EXPECT_EQ(Count("1 = 1"), 0);
    m_connection->Begin();
    m_connection->ExecuteAndCommit({});
    EXPECT_TRUE(m_database.GetEngine()->WasCommitted(m_connection->TransactionName()));
}

TEST_F(EngineContract, AReceiverCanStopEarlyAndTheConnectionGoesOn) {
    for (int i = 0; i < 1200; ++i) m_database.AddProperty();
    for (const int stop : {1, 500, 501, 1200}) {
        int seen = 0;
        m_connection->Query("SELECT PropertyNo FROM Property", {}, [&](const Row&) { return ++seen < stop; });
        EXPECT_EQ(seen, stop);
    }
    EXPECT_EQ(Rows("SELECT PropertyNo FROM Property").size(), 1200u);
}

TEST_F(EngineContract, AReceiverThatThrowsEndsTheQuery) {
    m_database.AddProperty();
    EXPECT_THROW(m_connection->Query("SELECT PropertyNo FROM Property", {},
                                     [](const Row&) -> bool { throw std::runtime_error("enough"); }),
                 std::runtime_error);
    EXPECT_EQ(Count("1 = 1"), 1);
}

TEST_F(EngineContract, TheKeyOfAnInsertedRowIsReturned) {
    const char* const insert = "INSERT INTO Property (PropertyID) VALUES (?)";
    const int32_t first = m_connection->Insert(insert, {"a"}, "PropertyNo");
    const int32_t second = m_connection->Insert(insert, {"b"}, "PropertyNo");
    EXPECT_GT(second, first);
    EXPECT_EQ(Value("SELECT PropertyNo FROM Property WHERE PropertyID = 'b'"), TaggedValue(second));
}

// Transactions

TEST_F(EngineContract, ARolledBackTransactionLeavesNothing) {
    m_connection->Begin();
    m_connection->Execute("INSERT INTO Property (PropertyID) VALUES ('a')");
    EXPECT_EQ(Count("1 = 1"), 1);
    m_connection->Rollback();
    EXPECT_EQ(Count("1 = 1"), 0);
}

TEST_F(EngineContract, ATransactionBeginsWithTheRowsOfSeveralQueries) {
    const int32_t first = m_database.AddProperty({.PropertyID = "A"});
    const int32_t second = m_database.AddProperty({.PropertyID = "B"});
    const std::string byKey = "SELECT PropertyID FROM Property WHERE PropertyNo = ?";
    const std::string byId = "SELECT PropertyNo FROM Property WHERE PropertyID = ?";
    for (int turn = 0; turn < 2; ++turn) {
        for (const TaggedValue& id : {TaggedValue("b"), TaggedValue("'?'")}) {
            const auto results = m_connection->BeginReading({{byKey, {second}}, {byKey, {0}}, {byId, {id}}});
            ASSERT_EQ(results.size(), 3u);
            EXPECT_EQ(results[0].at(0).At(0), TaggedValue("B"));
            EXPECT_TRUE(results[1].empty());
            EXPECT_EQ(results[2].size(), id == TaggedValue("b") ? 1u : 0u);
            m_connection->Rollback();
        }
        const auto results = m_connection->BeginReading(
            {{"SELECT PropertyNo, PropertyID FROM Property WHERE PropertyNo IN (?,?)", {second, first}},
             {"SELECT PropertyID FROM Property WHERE PropertyNo = ?", {first}}});
        ASSERT_EQ(results.size(), 2u);
        ASSERT_EQ(results[0].size(), 2u);
        EXPECT_EQ(results[0][1].At(0), TaggedValue(second));
        EXPECT_EQ(results[0][1].At(1), TaggedValue("B"));
        EXPECT_EQ(results[1].at(0).At(0), TaggedValue("A"));
        m_connection->Execute("UPDATE Property SET CategoryNo = 1");
        m_connection->Rollback();
        EXPECT_EQ(Count("CategoryNo = 1"), 0);
    }
}

TEST_F(EngineContract, OthersSeeATransactionOnlyAfterItsCommit) {
    const std::unique_ptr<Connection> other = m_database.GetEngine()->Open();
    m_connection->Begin();
    m_connection->Execute("INSERT INTO Property (PropertyID) VALUES ('a')");
    EXPECT_TRUE(Rows(*other, "SELECT PropertyNo FROM Property").empty());
    m_connection->Commit();
    EXPECT_EQ(Rows(*other, "SELECT PropertyNo FROM Property").size(), 1u);
}

TEST_F(EngineContract, TheEngineTellsWhetherATransactionWasCommitted) {
    m_connection->Begin();
    EXPECT_EQ(m_connection->TransactionName(), "");
    m_connection->Execute("INSERT INTO Property (PropertyID) VALUES ('a')");
    m_connection->Commit();
    const std::string name = m_connection->TransactionName();
    EXPECT_NE(name, "");
    EXPECT_TRUE(m_database.GetEngine()->WasCommitted(name));
    m_connection->Begin();
    EXPECT_EQ(m_connection->TransactionName(), "");
    m_connection->Rollback();
}

TEST_F(EngineContract, ATemporaryTableEndsWithItsTransaction) {
    const Statements create = {"CREATE TABLE #Next (Value INT NOT NULL)", "INSERT INTO #Next (Value) VALUES (4)"};
    for (int i = 0; i < 2; ++i) {
        m_connection->Begin();
        for (const std::string& text : create) m_connection->Execute(text);
        EXPECT_EQ(Value("SELECT Value FROM #Next"), TaggedValue(4));
        m_connection->Rollback();
    }
    m_connection->Begin();
    m_connection->ExecuteAndCommit({create[0], create[1], "DROP TABLE #Next"});
    m_connection->Begin();
    for (const std::string& text : create) m_connection->Execute(text);
    m_connection->Rollback();
}

TEST_F(EngineContract, ResettingDropsATemporaryTableThatIsLeft) {
    m_connection->Execute("CREATE TABLE #Left (Value INT NOT NULL)");
    m_connection->Reset();
    m_connection->Execute("CREATE TABLE #Left (Value INT NOT NULL)");
    EXPECT_TRUE(Rows("SELECT Value FROM #Left").empty());
}

TEST_F(EngineContract, ResettingRollsBack) {
    m_connection->Begin();
    m_connection->Execute("INSERT INTO Property (PropertyID) VALUES ('a')");
    m_connection->Reset();
    EXPECT_EQ(Count("1 = 1"), 0);
    EXPECT_TRUE(m_connection->IsHealthy());
}

TEST_F(EngineContract, ADiscardedConnectionLeavesNothing) {
    m_connection->Begin();
    m_connection->Execute("INSERT INTO Property (PropertyID) VALUES ('a')");
    m_connection = m_database.GetEngine()->Open();
    EXPECT_EQ(Count("1 = 1"), 0);
    m_connection->Execute("INSERT INTO Property (PropertyID) VALUES ('b')");
}

}  // namespace
}  // namespace quellbrook::testing

#include "host/QueryServices.h"
#include "sql/query/QueryFactory.h"

#include "base/Error.h"
#include "sql/Literals.h"
#include "sql/query/QueryWriter.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/TestDatabase.h"

#include "host/HostDatabase.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace quellbrook::testing {
namespace {

const Dialect transactSql{};  // "+" concatenates, no side tables

std::string Literally(const QuerySource& query) { return sql::WriteQuery(*query.Node(), transactSql).text; }

// The WHERE clause of SELECT a FROM T with this condition.
std::string Where(const QueryCondition& condition, const QuerySource& table) {
    QuerySource query = table.Select({table.Column("a")});
    query.Where(condition);
    const std::string start = "SELECT T.a FROM T WHERE ";
    const std::string text = Literally(query);
    EXPECT_EQ(text.substr(0, start.size()), start);
    return text.substr(start.size());
}

class QueryText : public ::testing::Test {
protected:
    QueryFactory& f = QueryServices::Factory();
    QuerySource t = f.Table("T");
    QueryExpression a = t.Column("a");
};

TEST_F(QueryText, ComparesWithLiteralsOfEveryKind) {
    EXPECT_EQ(Where(a.Equals(-5), t), "T.a = -5");
    EXPECT_EQ(Where(a.NotEquals(2.5), t), "T.a <> 2.5");
    EXPECT_EQ(Where(a.Equals("it's"), t), "T.a = 'it''s'");
    EXPECT_EQ(Where(a.Equals(true), t), "T.a = 1");
    EXPECT_EQ(Where(a.Equals(Decimal{1250, 2}), t), "T.a = 12.50");
    EXPECT_EQ(Where(a.Equals(DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123})), t),
              "T.a = '2026-11-20T13:14:15.123'");
    EXPECT_EQ(Where(a.Equals(t.Column("b")), t), "T.a = T.b");
    EXPECT_EQ(Where(a.NotEquals(t.Column("b")), t), "T.a <> T.b");
}

TEST_F(QueryText, NullIsTestedInsteadOfCompared) {
    EXPECT_EQ(Where(a.Equals(Null()), t), "T.a IS NULL");
    EXPECT_EQ(Where(a.NotEquals(Null()), t), "T.a IS NOT NULL");
    EXPECT_EQ(Where(a.Equals(TaggedValue()), t), "T.a IS NULL");
}

TEST_F(QueryText, OnlyTheStarIsAWildcardOfLike) {
    EXPECT_EQ(Where(a.Like("*blue*"), t), "T.a LIKE '%blue%'");
    EXPECT_EQ(Where(a.Like("it's*"), t), "T.a LIKE 'it''s%'");
    EXPECT_EQ(Where(a.Like("*"), t), "T.a LIKE '%'");
    EXPECT_EQ(Where(a.Like("50%_[x]\\*"), t), "T.a LIKE '50\\%\\_\\[x\\]\\\\%' ESCAPE '\\'");
}

TEST_F(QueryText, ConditionsAreJoinedByAnd) {
    QuerySource query = t.Select({a});
    query.Where(a.Equals(1)).Where(a.Equals(2).And(a.Equals(3)));
    EXPECT_EQ(Literally(query), "SELECT T.a FROM T WHERE T.a = 1 AND T.a = 2 AND T.a = 3");
}

TEST_F(QueryText, FunctionsAndConcatenationsTakeExpressionsAndValues) {
    const QueryExpression text = f.Concat(
        {f.Function("COALESCE", {a, TaggedValue("none")}, 0), TaggedValue(" ("), t.Column("b"), TaggedValue(")")}, 0);
    EXPECT_EQ(Literally(t.Select({text.As("Shown"), f.Function("MAX", {a, TaggedValue(3), TaggedValue(Null())}, 0)})),
              "SELECT (COALESCE(T.a, 'none') + ' (' + T.b + ')') AS Shown, MAX(T.a, 3, NULL) FROM T");
}

TEST_F(QueryText, RawTextIsUsedUnchanged) {
    EXPECT_EQ(Literally(t.Select({"*"})), "SELECT * FROM T");
    EXPECT_EQ(Literally(t.Select({"1 AS Quantity, NULL AS Value", a, "T.*", "MAX(a, b)"})),
              "SELECT 1 AS Quantity, NULL AS Value, T.a, T.*, MAX(a, b) FROM T");
    EXPECT_EQ(Literally(t.Select({"'a, (b' AS Odd"})), "SELECT 'a, (b' AS Odd FROM T");
}

TEST_F(QueryText, TwoSourcesWithOneNameStayDistinct) {
    const QuerySource other = f.Table("T");
    const QuerySource joined = t.Join(other, 0).On(a.Equals(other.Column("a")));
    EXPECT_EQ(Literally(joined.Select({a, other.Column("b")})),
              "SELECT T.a, T2.b FROM T INNER JOIN T AS T2 ON T.a = T2.a");
}

TEST_F(QueryText, AColumnOfAJoinIsLookedUpByTheEngine) {
    const QuerySource u = f.Table("U");
    const QuerySource joined = t.Join(u, 1).On(a.Equals(u.Column("a")));
    EXPECT_EQ(Literally(joined.Select({joined.Column("Path")})), "SELECT Path FROM T LEFT JOIN U ON T.a = U.a");
}

TEST_F(QueryText, AJoinOfAJoinIsInBrackets) {
    const QuerySource u = f.Table("U");
    const QuerySource w = f.Table("W");
    const QuerySource pair = u.Join(w, 0).On(u.Column("x").Equals(w.Column("x")));
    const QuerySource all = t.Join(pair, 1).On(u.Column("a").Equals(a));
    EXPECT_EQ(Literally(all.Select({a})), "SELECT T.a FROM T LEFT JOIN (U INNER JOIN W ON U.x = W.x) ON U.a = T.a");
}

TEST_F(QueryText, AQueryCanBeSelectedFromAndJoinedWithoutAnAlias) {
    const QuerySource inner = t.Select({a});
    EXPECT_EQ(Literally(inner.Select({inner.Column("a").As("b")})),
              "SELECT Query.a AS b FROM (SELECT T.a FROM T) AS Query");
    const QuerySource joined = t.Join(inner, 0).On(a.Equals(inner.Column("a")));
    EXPECT_EQ(Literally(joined.Select({a})),
              "SELECT T.a FROM T INNER JOIN (SELECT T.a FROM T) AS Query ON T.a = Query.a");
}

TEST_F(QueryText, ResultColumnsAreFoundByNameWithoutRegardToCase) {
    const QuerySource query = t.Select({"1 AS ItemType, NULL AS Value", a.As("ID")});
    QuerySource outer = query.As("R").Select({"*"});
    outer.Where(query.Column("itemtype").Equals(1)).Where(outer.Column("VALUE").Equals(Null()));
    EXPECT_EQ(Literally(outer),
              "SELECT * FROM (SELECT 1 AS ItemType, NULL AS Value, T.a AS ID FROM T) AS R "
              "WHERE R.itemtype = 1 AND R.Value IS NULL");
}

TEST_F(QueryText, AConditionOnAQuerysOwnColumnUsesItsExpression) {
    QuerySource query = t.Select({a.As("ID"), "1 AS Kind"});
    query.Where(query.Column("ID").Equals(5)).Where(query.Column("Kind").Equals(1));
    EXPECT_EQ(Literally(query), "SELECT T.a AS ID, 1 AS Kind FROM T WHERE T.a = 5 AND 1 = 1");
}

TEST_F(QueryText, AConditionAddedLaterTakesEffectInTheUnion) {
    QuerySource first = t.Select({a});
    QuerySource second = t.Select({t.Column("b")});
    const QuerySource both = first.Union(second);
    const QuerySource outer = both.As("R").Select({"*"});
    QuerySource copy = second;
    copy.Where(t.Column("b").Equals(2));
    EXPECT_EQ(Literally(outer), "SELECT * FROM (SELECT T.a FROM T UNION SELECT T.b FROM T WHERE T.b = 2) AS R");
}

TEST_F(QueryText, AUnionItselfCanTakeACondition) {
    QuerySource both = t.Select({a}).Union(t.Select({t.Column("b")}));
    const QuerySource outer = both.As("R").Select({"*"});
    both.Where(both.Column("a").Equals(2)).Where(both.Column("a").NotEquals(3));
    EXPECT_EQ(Literally(both),
              "SELECT * FROM (SELECT T.a FROM T UNION SELECT T.b FROM T) AS Query "
              "WHERE Query.a = 2 AND Query.a <> 3");
    EXPECT_EQ(Literally(outer), "SELECT * FROM (" + Literally(both) + ") AS R");
}

TEST_F(QueryText, WhatCannotBeComposedIsRefused) {
    const QuerySource query = t.Select({a});
    EXPECT_EQ(RaisedBy([&] { t.Join(t, 2); }).Number(), ErrorNumber::General);
    EXPECT_EQ(RaisedBy([&] { query.Column("b"); }).Description(), "The query has no result column b.");
    EXPECT_EQ(RaisedBy([&] { QuerySource(t).Where(a.Equals(1)); }).Description(), "Only a query can take a condition.");
    EXPECT_EQ(RaisedBy([&] { t.As("R"); }).Description(), "Only a query can be a derived table.");
    EXPECT_EQ(RaisedBy([&] { query.Union(t); }).Description(), "Only queries can be united.");
    EXPECT_EQ(RaisedBy([&] { Literally(t); }).Description(), "Only a query or a union can be turned into text.");
    EXPECT_EQ(RaisedBy([&] { Literally(f.Table("U").Select({a})); }).Description(),
              "The column a belongs to no source that the query selects from.");
}

TEST(QueryLiterals, RefuseATextWithNul) {
    const std::string text("a\0b", 3);
    EXPECT_EQ(RaisedBy([&] { sql::TextLiteral(text, transactSql); }).Number(), ErrorNumber::General);
    EXPECT_EQ(RaisedBy([&] { sql::LikeLiteral(text, transactSql); }).Number(), ErrorNumber::General);
    EXPECT_EQ(RaisedBy([&] { sql::ValueLiteral(text, transactSql); }).Number(), ErrorNumber::General);
}

TEST(QueryLiterals, HaveTheEnginesPrefix) {
    Dialect dialect;
    dialect.textPrefix = "N";
    EXPECT_EQ(sql::TextLiteral("a'b", dialect), "N'a''b'");
    EXPECT_EQ(sql::LikeLiteral("a*", dialect), "N'a%'");
    EXPECT_EQ(sql::ValueLiteral("x", dialect), "N'x'");
    EXPECT_EQ(sql::ValueLiteral(DateTime{0}, dialect), "'1970-01-01T00:00:00.000'");
}

TEST(QueryLiterals, RefuseWhatIsNotAnSqlValue) {
    EXPECT_EQ(RaisedBy([] { sql::ValueLiteral(std::numeric_limits<double>::infinity(), transactSql); }).Number(),
              ErrorNumber::Overflow);
    EXPECT_EQ(RaisedBy([] { sql::ValueLiteral(std::shared_ptr<Object>(), transactSql); }).Number(),
              ErrorNumber::TypeMismatch);
}

// Through the engine in use

class QueryFactoryOnEngine : public ::testing::Test {
protected:
    TestDatabase m_database;
    QueryFactory& f = QueryServices::Factory();

    RowList RowsOf(const QuerySource& query) { return HostDatabase().QueryRows(f.ToSql(query)); }
};

TEST_F(QueryFactoryOnEngine, AnInnerJoinKeepsItsDuplicatesAndItsOrder) {
    const int32_t item = m_database.AddProperty();
    for (const char* id : {"I-2", "I-1", "I-3"})
        m_database.LinkIncident(StoredItemTypes::Property, item, m_database.AddIncident(id));
    m_database.LinkIncident(StoredItemTypes::Property, item, 1);
    const QuerySource link = f.Table("IncdProperty");
    const QuerySource incident = f.Table("Incident");
    QuerySource query =
        link.Join(incident, 0)
            .On(link.Column("IncidentNo")
                    .Equals(incident.Column("IncidentNo"))
                    .And(link.Column("PropertyNo").Equals(item)))
            .Select({incident.Column("IncidentNo"), incident.Column("IncidentId"), incident.Column("IsSecured")});
    query.Where(incident.Column("IsSecured").Equals(0));
    EXPECT_EQ(f.ToSql(query),
              "SELECT Incident.IncidentNo, Incident.IncidentId, Incident.IsSecured FROM IncdProperty INNER JOIN "
              "Incident ON IncdProperty.IncidentNo = Incident.IncidentNo AND IncdProperty.PropertyNo = " +
                  std::to_string(item) + " WHERE Incident.IsSecured = 0");
    const RowList rows = RowsOf(query);
    ASSERT_EQ(rows.size(), 4u);
    EXPECT_EQ(ToText(rows[0].Value("IncidentId")), "I-2");
    EXPECT_EQ(ToText(rows[3].Value("IncidentId")), "I-2");
}

TEST_F(QueryFactoryOnEngine, AttachmentsAreFoundThroughTwoJoins) {
    const int32_t item = m_database.AddProperty();
    m_database.AddAttachment(StoredItemTypes::Property, item, "/pictures", "front.png");
    const QuerySource table = f.Table("Property");
    const QuerySource index = f.Table("AttachmentIndex");
    const QuerySource folder = f.Table("AttachmentFolder");
    const QueryExpression key = table.Column("PropertyNo");
    const QuerySource source = index.Join(table, 0)
                                   .On(index.Column("IdNo")
                                           .Equals(key)
                                           .And(index.Column("ObjTypeInd").Equals(6))
                                           .And(index.Column("SeqNo").Equals(table.Column("CurrImageSeq"))))
                                   .Join(folder, 0)
                                   .On(folder.Column("FolderNo").Equals(index.Column("FolderNo")));
    QuerySource query = source.Select({source.Column("Path"), source.Column("FileName")});
    query.Where(key.Equals(item));
    const RowList rows = RowsOf(query);
    ASSERT_EQ(rows.size(), 1u);
    EXPECT_EQ(ToText(rows[0].Value("Path")), "/pictures");
    EXPECT_EQ(ToText(rows[0].Value("FileName")), "front.png");
}

TEST_F(QueryFactoryOnEngine, ANullPartMakesAConcatenationNull) {
    m_database.AddIncident("I", "C");
    m_database.AddIncident("J");
    const QuerySource incident = f.Table("Incident");
    const RowList rows = RowsOf(incident.Select(
        {f.Concat({incident.Column("IncidentId"), TaggedValue("-"), incident.Column("CaseNbr")}, 0).As("Numbers")}));
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(ToText(rows[0].Value("Numbers")), "I-C");
    EXPECT_TRUE(rows[1].Value("Numbers").IsNull());
}

TEST_F(QueryFactoryOnEngine, EveryMarkerOfAParameterGetsItsValue) {
    const QuerySource p = f.Table("Property");
    const QuerySource pt = f.Table("PropertyTracking");
    const QuerySource source = p.Join(pt, 1).On(pt.Column("PropertyNo")
                                                    .Equals(p.Column("PropertyNo"))
                                                    .And(p.Column("CurrTrackSeq").Equals(pt.Column("SeqNo"))));
    QuerySource query = source.Select({p.Column("PropertyNo").As("ID")});
    query.Where(pt.Column("StorageLocNo").Equals(f.Parameter(1)));
    query.Where(p.Column("PropertyID").Equals(f.Parameter(0)));
    const ParameterizedQuery written = f.ToParameterizedSql(query);
    EXPECT_EQ(written.markers, (std::vector<size_t>{1, 1, 0})) << written.text;
    EXPECT_EQ(written.ValuesFor({"E-1", 7}), (std::vector<TaggedValue>{7, 7, "E-1"}));
    EXPECT_EQ(RaisedBy([&] { written.ValuesFor({"E-1"}); }).Number(), ErrorNumber::SubscriptOutOfRange);

    const int32_t shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    const int32_t item = m_database.AddProperty({.PropertyID = "E-1"});
    m_database.AddCustodyRow(StoredItemTypes::Property, item, shelf);
    const auto found = [&](const char* id, int32_t location) {
        return HostDatabase().QueryRows(written.text, written.ValuesFor({id, location})).size();
    };
    EXPECT_EQ(found("e-1", shelf), 1u);
    EXPECT_EQ(found("E-2", shelf), 0u);
    EXPECT_EQ(found("E-1", shelf + 1), 0u);
}

TEST_F(QueryFactoryOnEngine, CompleteTextHasNoParameters) {
    const QuerySource p = f.Table("Property");
    QuerySource query = p.Select({p.Column("PropertyNo")});
    query.Where(p.Column("PropertyNo").Equals(f.Parameter(0)));
    EXPECT_EQ(RaisedBy([&] { f.ToSql(query); }).Number(), ErrorNumber::General);
}

TEST(QueryFactory, NeedsAnEngine) {
    const QuerySource t = QueryServices::Factory().Table("T");
    EXPECT_EQ(RaisedBy([&] { QueryServices::Factory().ToSql(t.Select({"*"})); }).Description(),
              "No database has been opened.");
}

}  // namespace
}  // namespace quellbrook::testing

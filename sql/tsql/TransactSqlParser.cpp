#include "sql/tsql/TransactSqlParser.h"

#include "sql/tsql/TransactSqlWords.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quellbrook::sql {

namespace {

constexpr size_t deepestNesting = 30;

// The types that a temporary table may have, with which all engines mean the same.
constexpr std::string_view portableTypes[] = {"BIGINT",  "CHAR", "DECIMAL",  "INT",    "INTEGER",
                                              "NUMERIC", "REAL", "SMALLINT", "VARCHAR"};

}  // namespace

StatementParts ParseStatement(std::span<const Token> tokens) { return StatementParser(tokens).Parse(); }

StatementParts StatementParser::Parse() {
    if (TakeWord("DECLARE"))
        Declaration();
    else if (IsWord("SELECT") && Ahead(1) && Ahead(1)->Is(TokenKind::Variable))
        Assignment();
    else if (IsWord("SELECT"))
        SortedQuery();
    else if (TakeWord("INSERT"))
        Insertion();
    else if (TakeWord("UPDATE"))
        Update();
    else if (TakeWord("DELETE"))
        Deletion();
    else if (TakeWord("CREATE"))
        Creation();
    else if (TakeWord("DROP"))
        Removal();
    else
        Refuse();
    if (!AtEnd()) Refuse();
    return std::move(m_parts);
}

// Pieces

void StatementParser::Name() {
    const bool isName = Is(TokenKind::QuotedName) || (Is(TokenKind::Word) && !IsReserved(*Ahead()));
    Expect(isName);
    ++m_at;
}

void StatementParser::TableName() {
    if (Is(TokenKind::Temporary))
        ++m_at;
    else
        Name();
}

void StatementParser::Type(bool isPortable) {
    Expect(Is(TokenKind::Word) && !IsReserved(*Ahead()));
    if (isPortable)
        Expect(std::any_of(std::begin(portableTypes), std::end(portableTypes),
                           [this](std::string_view type) { return IsWord(type); }));
    const size_t opening = ++m_at;
    if (!TakeSign("(")) return;
    do {
        Expect(Is(TokenKind::Number) && Ahead()->text.find_first_not_of("0123456789") == std::string_view::npos);
        ++m_at;
    } while (m_at == opening + 2 && TakeSign(","));
    ExpectClosing(opening);
}

void StatementParser::ColumnNames() {
    const size_t opening = m_at;
    ExpectSign("(");
    do Name();
    while (TakeSign(","));
    ExpectClosing(opening);
}

void StatementParser::Values() {
    const size_t opening = m_at;
    ExpectSign("(");
    do Value();
    while (TakeSign(","));
    ExpectClosing(opening);
}

// Tokens

const Token* StatementParser::Ahead(size_t distance) const {
    return m_at + distance < m_tokens.size() ? &m_tokens[m_at + distance] : nullptr;
}

bool StatementParser::IsWord(std::string_view word, size_t distance) const {
    return Ahead(distance) && Ahead(distance)->IsWord(word);
}

bool StatementParser::IsSign(std::string_view sign, size_t distance) const {
    return Ahead(distance) && Ahead(distance)->Is(TokenKind::Sign) && Ahead(distance)->text == sign;
}

bool StatementParser::Is(TokenKind kind) const { return Ahead() && Ahead()->Is(kind); }

bool StatementParser::TakeWord(std::string_view word) {
    if (!IsWord(word)) return false;
    ++m_at;
    return true;
}

bool StatementParser::TakeSign(std::string_view sign) {
    if (!IsSign(sign)) return false;
    ++m_at;
    return true;
}

void StatementParser::Expect(bool isThere) {
    if (!isThere) Refuse();
}

void StatementParser::ExpectClosing(size_t opening) {
    if (AtEnd()) RefuseTransactSql(m_tokens[opening].text);
    ExpectSign(")");
}

void StatementParser::Refuse() const { RefuseTransactSql(AtEnd() ? m_tokens.back().text : Ahead()->text); }

StatementParser::Level::Level(StatementParser& parser) : m_parser(parser) {
    if (parser.m_depth >= deepestNesting) RefuseTransactSql(parser.m_tokens[parser.m_at - 1].text);
    ++parser.m_depth;
}

}  // namespace quellbrook::sql

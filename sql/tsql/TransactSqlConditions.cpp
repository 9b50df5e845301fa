#include "sql/tsql/TransactSqlParser.h"
#include "sql/tsql/TransactSqlWords.h"

#include <algorithm>

namespace quellbrook::sql {

namespace {

constexpr std::string_view comparisons[] = {"=", "<>", "!=", "<", "<=", ">", ">="};
constexpr std::string_view arithmetic[] = {"+", "-", "*", "/", "%"};

// Whether Transact-SQL reads a class of characters, [...], in the pattern.
bool HasCharacterClass(std::string_view pattern, std::string_view escape) {
    for (size_t at = 0; at < pattern.size(); ++at) {
        if (!escape.empty() && pattern.substr(at).starts_with(escape))
            at += escape.size();
        else if (pattern[at] == '[')
            return true;
    }
    return false;
}

bool IsOneCharacter(std::string_view text) {
    return std::count_if(text.begin(), text.end(), [](char c) { return (c & 0xC0) != 0x80; }) == 1 &&
           (text[0] & 0xC0) != 0x80;
}

}  // namespace

void StatementParser::Require(Kind found, Kind wanted, size_t begin) const {
    if (found != wanted) RefuseTransactSql(m_tokens[begin].text);
}

void StatementParser::Condition() {
    const size_t begin = m_at;
    Require(Disjunction(), Kind::Condition, begin);
}

void StatementParser::Value() {
    const size_t begin = m_at;
    Require(Sum(), Kind::Value, begin);
}

StatementParser::Kind StatementParser::Disjunction() {
    const size_t begin = m_at;
    const Kind first = Conjunction();
    if (!IsWord("OR")) return first;
    Require(first, Kind::Condition, begin);
    while (TakeWord("OR")) {
        const size_t next = m_at;
        Require(Conjunction(), Kind::Condition, next);
    }
    return Kind::Condition;
}

StatementParser::Kind StatementParser::Conjunction() {
    const size_t begin = m_at;
    const Kind first = Negation();
    if (!IsWord("AND")) return first;
    Require(first, Kind::Condition, begin);
    while (TakeWord("AND")) {
        const size_t next = m_at;
        Require(Negation(), Kind::Condition, next);
    }
    return Kind::Condition;
}

StatementParser::Kind StatementParser::Negation() {
    if (!TakeWord("NOT")) return Predicate();
    const Level level(*this);
    const size_t begin = m_at;
    Require(Negation(), Kind::Condition, begin);
    return Kind::Condition;
}

StatementParser::Kind StatementParser::Predicate() {
    if (TakeWord("EXISTS")) {
        SubQuery();
        return Kind::Condition;
    }
    if (Sum() == Kind::Condition) return Kind::Condition;
    if (TakeWord("IS")) {
        TakeWord("NOT");
        ExpectWord("NULL");
        return Kind::Condition;
    }
    const bool isNegated = TakeWord("NOT");
    if (TakeWord("LIKE"))
        Pattern();
    else if (TakeWord("IN"))
        Candidates();
    else if (TakeWord("BETWEEN"))
        Range();
    else if (isNegated)
        Refuse();
    else if (TakeAnyOf(comparisons))
        Value();
    else
        return Kind::Value;
    return Kind::Condition;
}

void StatementParser::Pattern() {
    if (TakeMarker()) {
        if (TakeWord("ESCAPE")) EscapeSign();
        return;
    }
    const size_t pattern = m_at;
    Expect(Is(TokenKind::Text));
    ++m_at;
    std::string escape;
    if (TakeWord("ESCAPE"))
        escape = EscapeSign();
    else
        m_parts.patterns.push_back(pattern);
    if (HasCharacterClass(TextOf(m_tokens[pattern]), escape)) RefuseTransactSql(m_tokens[pattern].text);
}

std::string StatementParser::EscapeSign() {
    Expect(Is(TokenKind::Text) && IsOneCharacter(TextOf(*Ahead())));
    return TextOf(m_tokens[m_at++]);
}

void StatementParser::Candidates() {
    if (IsSign("(") && Ahead(1) && Ahead(1)->IsWord("SELECT")) return SubQuery();
    Values();
}

void StatementParser::Range() {
    Value();
    ExpectWord("AND");
    Value();
}

void StatementParser::SubQuery() {
    const size_t opening = m_at;
    ExpectSign("(");
    const Level level(*this);
    Query();
    ExpectClosing(opening);
}

// Which sign binds closer is no question here, but for "||", about which the engines differ: it stands among its like.
StatementParser::Kind StatementParser::Sum() {
    const size_t begin = m_at;
    const Kind first = Factor();
    const bool joinsTexts = IsSign("||");
    if (!joinsTexts && !IsAnyOf(arithmetic)) return first;
    Require(first, Kind::Value, begin);
    while (joinsTexts ? TakeSign("||") : TakeArithmetic()) {
        const size_t next = m_at;
        Require(Factor(), Kind::Value, next);
    }
    return Kind::Value;
}

// "+" beside a text would join texts, and add numbers on an engine that speaks no Transact-SQL.
bool StatementParser::TakeArithmetic() {
    const bool isAfterText = m_at > 0 && m_tokens[m_at - 1].Is(TokenKind::Text);
    if (IsSign("+") && (isAfterText || (Ahead(1) && Ahead(1)->Is(TokenKind::Text)))) Refuse();
    return TakeAnyOf(arithmetic);
}

StatementParser::Kind StatementParser::Factor() {
    if (!IsSign("-") && !IsSign("+")) return Operand();
    TakeArithmetic();
    const size_t begin = m_at;
    Require(Operand(), Kind::Value, begin);
    return Kind::Value;
}

StatementParser::Kind StatementParser::Operand() {
    const bool isConstant = Is(TokenKind::Number) || Is(TokenKind::Text) || Is(TokenKind::Variable) || IsWord("NULL");
    if (isConstant) {
        ++m_at;
        return Kind::Value;
    }
    if (TakeMarker()) return Kind::Value;
    if (IsSign("(")) return Bracketed();
    if (Is(TokenKind::Word) && IsSign("(", 1))
        Call();
    else
        Column();
    return Kind::Value;
}

StatementParser::Kind StatementParser::Bracketed() {
    if (Ahead(1) && Ahead(1)->IsWord("SELECT")) {
        SubQuery();
        return Kind::Value;
    }
    const size_t opening = m_at++;
    const Level level(*this);
    const Kind kind = Disjunction();
    ExpectClosing(opening);
    return kind;
}

void StatementParser::Call() {
    const Token& name = *Ahead();
    const SqlFunction* function = FindFunction(name);
    if (!function) Refuse();
    const size_t opening = ++m_at;
    ++m_at;
    const Level level(*this);
    size_t count = 1;
    if (name.IsWord("COUNT") && TakeSign("*")) return ExpectClosing(opening);
    if (function->isAggregate) TakeWord("DISTINCT");
    Value();
    for (; TakeSign(","); ++count) Value();
    if (count < function->fewestArguments || count > function->mostArguments) RefuseTransactSql(name.text);
    ExpectClosing(opening);
}

void StatementParser::Column() {
    Name();
    if (TakeSign(".")) Name();
}

bool StatementParser::TakeMarker() {
    if (!Is(TokenKind::Marker)) return false;
    ++m_at;
    return true;
}

bool StatementParser::IsAnyOf(std::span<const std::string_view> signs) const {
    return std::any_of(signs.begin(), signs.end(), [this](std::string_view sign) { return IsSign(sign); });
}

bool StatementParser::TakeAnyOf(std::span<const std::string_view> signs) {
    if (!IsAnyOf(signs)) return false;
    ++m_at;
    return true;
}

}  // namespace quellbrook::sql

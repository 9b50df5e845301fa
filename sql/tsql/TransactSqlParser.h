#pragma once

#include "sql/tsql/TransactSqlGrammar.h"

#include <string>
#include <string_view>

namespace quellbrook::sql {

// Walks through the tokens of one statement, one operation for each rule of the grammar. An operation takes the tokens
// of its rule, or fails with Error 5 and the first token that does not fit.
class StatementParser {
public:
    explicit StatementParser(std::span<const Token> tokens) : m_tokens(tokens) {}

    StatementParts Parse();

private:
    enum class Kind { Value, Condition };
    class Level;

    // Statements
    void Declaration();
    void Assignment();
    void Creation();
    void Removal();
    void Insertion();
    void Update();
    void Deletion();
    void SortedQuery();

    // Queries
    void Query();
    void Select();
    void ResultColumn(bool& hasStar);
    void Source();
    bool TakeJoin();
    void Table();
    void Grouping();
    void Sorting();

    // Conditions and values
    void Condition();
    void Value();
    Kind Disjunction();
    Kind Conjunction();
    Kind Negation();
    Kind Predicate();
    void Pattern();
    std::string EscapeSign();
    void Candidates();
    void Range();
    void SubQuery();
    Kind Sum();
    Kind Factor();
    Kind Operand();
    Kind Bracketed();
    void Call();
    void Column();

    // Pieces
    void Name();
    void TableName();
    void Type(bool isPortable);
    void ColumnNames();
    void Values();

    // Tokens
    bool AtEnd() const { return m_at >= m_tokens.size(); }
    const Token* Ahead(size_t distance = 0) const;
    bool IsWord(std::string_view word, size_t distance = 0) const;
    bool IsSign(std::string_view sign, size_t distance = 0) const;
    bool Is(TokenKind kind) const;
    bool TakeWord(std::string_view word);
    bool TakeSign(std::string_view sign);
    bool TakeMarker();
    bool IsAnyOf(std::span<const std::string_view> signs) const;
    bool TakeAnyOf(std::span<const std::string_view> signs);
    bool TakeArithmetic();
    void Expect(bool isThere);
    void ExpectWord(std::string_view word) { Expect(TakeWord(word)); }
    void ExpectSign(std::string_view sign) { Expect(TakeSign(sign)); }
    void ExpectClosing(size_t opening);
    // The operand that begins there must be of this kind.
    void Require(Kind found, Kind wanted, size_t begin) const;
    [[noreturn]] void Refuse() const;

    std::span<const Token> m_tokens;
    size_t m_at = 0;
    size_t m_depth = 0;
    StatementParts m_parts{};
};

// One level of brackets or negations, of which there must not be too many.
class StatementParser::Level {
public:
    explicit Level(StatementParser& parser);
    ~Level() { --m_parser.m_depth; }
    Level(const Level&) = delete;
    Level& operator=(const Level&) = delete;

private:
    StatementParser& m_parser;
};

}  // namespace quellbrook::sql

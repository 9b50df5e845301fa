#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quellbrook::sql {

enum class TokenKind {
    Word,       // a keyword or a name
    Temporary,  // #name
    Variable,   // @name
    Number,     // digits, with a fraction or an exponent
    Text,       // '...' or N'...', with the quotes
    Marker,     // ? or ?12
    Sign        // punctuation or an operator
};

struct Token {
    TokenKind kind;
    std::string_view text;  // views the source

    bool Is(TokenKind wanted) const { return kind == wanted; }
    // Case-insensitive; the wanted word is in capitals.
    bool IsWord(std::string_view wanted) const;
    bool IsSign(std::string_view wanted) const { return kind == TokenKind::Sign && text == wanted; }
};

// Splits a statement text into tokens, which may be separated by blanks. Raises error 5 for anything else, such as
// comments, [brackets], "quotes", an unfinished literal or a NUL character.
class TransactSqlLexer {
public:
    explicit TransactSqlLexer(std::string_view source) : m_source(source) {}

    bool Next(Token& token);  // false at the end

private:
    bool Make(Token& token, TokenKind kind, size_t end);
    char At(size_t position) const { return position < m_source.size() ? m_source[position] : '\0'; }
    size_t NameEnd(size_t begin) const;
    size_t DigitsEnd(size_t begin) const;
    size_t WordEnd() const;
    size_t PrefixedNameEnd() const;
    size_t NumberEnd() const;
    size_t TextEnd(size_t quote) const;
    size_t SignEnd() const;
    [[noreturn]] void Refuse(size_t end) const;

    std::string_view m_source;
    size_t m_at = 0;
};

std::vector<Token> SplitTransactSql(std::string_view source);

// The text between the quotes of a Text token, with doubled quotes.
std::string_view InsideQuotes(const Token& token);

// Raises error 5: the database does not support this part of a statement.
[[noreturn]] void RefuseTransactSql(std::string_view part);

}  // namespace quellbrook::sql

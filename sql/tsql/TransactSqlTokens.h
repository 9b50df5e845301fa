#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quellbrook::sql {

enum class TokenKind {
    Word,        // a keyword or a plain name
    QuotedName,  // "name"
    Temporary,   // #name
    Variable,    // @name
    Number,      // digits, with a point or an exponent where there is one
    Text,        // '...', quotes included; N'...' has isNational set and a text that begins at the N
    Marker,      // ? or ?12
    Sign         // punctuation or an operator, of one character or two
};

struct Token {
    TokenKind kind;
    std::string_view text;  // views the source
    bool isNational = false;

    bool Is(TokenKind wanted) const { return kind == wanted; }
    // A word, without regard to case; the wanted one in capitals.
    bool IsWord(std::string_view wanted) const;
    bool IsSign(char wanted) const { return kind == TokenKind::Sign && text.size() == 1 && text[0] == wanted; }
};

// Splits a statement text. Blanks separate; comments do not exist. What can't be a token of the subset - an unfinished
// literal, [brackets], @@functions, ##global tables, comments, X'...' and the like, NUL - is refused with Error 5 and a
// sentence that quotes it.
class TransactSqlScanner {
public:
    explicit TransactSqlScanner(std::string_view source) : m_source(source) {}

    bool Next(Token& token);  // false at the end

private:
    [[noreturn]] void Refuse(size_t from, size_t to) const;
    char At(size_t position) const { return position < m_source.size() ? m_source[position] : '\0'; }
    Token Make(TokenKind kind, size_t end);
    Token Text(size_t quote);
    Token WordOrText();
    Token Prefixed(TokenKind kind);
    Token Number();

    std::string_view m_source;
    size_t m_at = 0;
};

std::vector<Token> ScanTransactSql(std::string_view source);

// The text that a Text token stands for.
std::string TextOf(const Token& token);

// Fails with Error 5: this part of the statement can't be carried out on the database in use.
[[noreturn]] void RefuseTransactSql(std::string_view part);

}  // namespace quellbrook::sql

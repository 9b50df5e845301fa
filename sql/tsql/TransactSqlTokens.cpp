#include "sql/tsql/TransactSqlTokens.h"

#include "base/Error.h"
#include "base/Text.h"
#include "sql/tsql/TransactSqlCharacters.h"

#include <algorithm>

namespace quellbrook::sql {

namespace {

constexpr size_t longestQuote = 60;

bool IsBlank(char c) { return ClassOf(c) == CharacterClass::Blank; }
bool IsDigit(char c) { return ClassOf(c) == CharacterClass::Digit; }
bool BeginsName(char c) { return ClassOf(c) == CharacterClass::Letter || ClassOf(c) == CharacterClass::Wide; }
bool IsNameCharacter(char c) { return BeginsName(c) || IsDigit(c); }
bool IsNameMark(char c) { return c == '#' || c == '@' || c == '$'; }
bool IsDoubleSign(char c, char next) {
    for (const char* sign : {"||", "!=", "<>", "<=", ">="})
        if (c == sign[0] && next == sign[1]) return true;
    return false;
}
// Literals of other kinds than plain and national text.
bool MakesAnotherLiteral(std::string_view word) {
    return word.size() == 1 && std::string_view("xXbBeEuU").find(word[0]) != std::string_view::npos;
}

}  // namespace

void RefuseTransactSql(std::string_view part) {
    size_t length = std::min(part.size(), longestQuote);
    while (length < part.size() && length > 0 && (static_cast<unsigned char>(part[length]) & 0xC0) == 0x80) --length;
    std::string shown(part.substr(0, length));
    std::replace(shown.begin(), shown.end(), '\0', ' ');
    Raise(ErrorNumber::General, "TransactSqlRewriter",
          "The database in use can't carry out this statement: \"" + shown + "\" is not part of its language.");
}

bool Token::IsWord(std::string_view wanted) const {
    if (kind != TokenKind::Word || text.size() != wanted.size()) return false;
    return std::equal(text.begin(), text.end(), wanted.begin(),
                      [](char c, char w) { return c == w || (c >= 'a' && c <= 'z' && c - 'a' + 'A' == w); });
}

void TransactSqlScanner::Refuse(size_t from, size_t to) const { RefuseTransactSql(m_source.substr(from, to - from)); }

Token TransactSqlScanner::Make(TokenKind kind, size_t end) {
    const Token token{kind, m_source.substr(m_at, end - m_at)};
    m_at = end;
    return token;
}

Token TransactSqlScanner::Text(size_t quote) {
    for (size_t at = quote + 1; at < m_source.size(); ++at) {
        const char c = m_source[at];
        if (c != '\'' && c != '\0') continue;
        if (c == '\0') Refuse(m_at, at + 1);
        if (At(at + 1) != '\'') return Make(TokenKind::Text, at + 1);
        ++at;
    }
    Refuse(m_at, m_source.size());
}

Token TransactSqlScanner::WordOrText() {
    size_t end = m_at;
    while (IsNameCharacter(At(end))) ++end;
    if (IsNameMark(At(end))) Refuse(m_at, end + 1);
    const std::string_view word = m_source.substr(m_at, end - m_at);
    if (At(end) == '\'' && (word == "N" || word == "n")) {
        Token token = Text(end);
        token.isNational = true;
        return token;
    }
    if ((At(end) == '\'' || At(end) == '&') && MakesAnotherLiteral(word)) Refuse(m_at, end + 1);
    return Make(TokenKind::Word, end);
}

Token TransactSqlScanner::Prefixed(TokenKind kind) {
    size_t end = m_at + 1;
    while (IsNameCharacter(At(end))) ++end;
    if (end == m_at + 1 || IsNameMark(At(end))) {
        while (IsNameCharacter(At(end)) || IsNameMark(At(end))) ++end;
        Refuse(m_at, end);
    }
    return Make(kind, end);
}

Token TransactSqlScanner::Number() {
    size_t end = m_at;
    while (IsDigit(At(end))) ++end;
    if (At(end) == '.') {
        ++end;
        while (IsDigit(At(end))) ++end;
    }
    if (At(end) == 'e' || At(end) == 'E') {
        size_t exponent = end + 1;
        if (At(exponent) == '+' || At(exponent) == '-') ++exponent;
        if (!IsDigit(At(exponent))) Refuse(m_at, exponent);
        while (IsDigit(At(exponent))) ++exponent;
        end = exponent;
    }
    if (IsNameCharacter(At(end)) || IsNameMark(At(end)) || At(end) == '.') Refuse(m_at, end + 1);
    return Make(TokenKind::Number, end);
}

bool TransactSqlScanner::Next(Token& token) {
    while (IsBlank(At(m_at))) ++m_at;
    if (m_at >= m_source.size()) return false;

    const char c = m_source[m_at];
    const char next = At(m_at + 1);
    if (BeginsName(c)) {
        token = WordOrText();
    } else if (IsDigit(c) || (c == '.' && IsDigit(next))) {
        token = Number();
    } else if (c == '\'') {
        token = Text(m_at);
    } else if (c == '"') {
        const size_t end = m_source.find_first_of(std::string_view("\"\0", 2), m_at + 1);
        if (end == std::string_view::npos || m_source[end] == '\0' || end == m_at + 1 || At(end + 1) == '"')
            Refuse(m_at, std::min(end, m_source.size()));
        token = Make(TokenKind::QuotedName, end + 1);
    } else if (c == '#') {
        token = Prefixed(TokenKind::Temporary);
    } else if (c == '@') {
        token = Prefixed(TokenKind::Variable);
    } else if (c == '?') {
        size_t end = m_at + 1;
        while (IsDigit(At(end))) ++end;
        token = Make(TokenKind::Marker, end);
    } else if ((c == '-' && next == '-') || (c == '/' && next == '*')) {
        Refuse(m_at, m_at + 2);
    } else if (IsDoubleSign(c, next)) {
        token = Make(TokenKind::Sign, m_at + 2);
    } else if (ClassOf(c) == CharacterClass::Sign) {
        token = Make(TokenKind::Sign, m_at + 1);
    } else {
        Refuse(m_at, c == '[' ? std::min(m_source.find(']', m_at), m_source.size() - 1) + 1 : m_at + 1);
    }
    return true;
}

std::vector<Token> ScanTransactSql(std::string_view source) {
    std::vector<Token> tokens;
    TransactSqlScanner scanner(source);
    Token token{};
    while (scanner.Next(token)) tokens.push_back(token);
    return tokens;
}

std::string TextOf(const Token& token) {
    std::string_view inside = token.text.substr(token.isNational ? 2 : 1);
    inside.remove_suffix(1);
    return Replace(inside, "''", "'");
}

}  // namespace quellbrook::sql

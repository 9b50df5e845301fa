#include "sql/tsql/TransactSqlLexer.h"

#include "base/Error.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace quellbrook::sql {

namespace {

constexpr size_t longestQuote = 60;

enum class Class : uint8_t { Other, Blank, Letter, Digit, Quote, Prefix, Question, Sign };

constexpr std::array<Class, 256> MakeClasses() {
    std::array<Class, 256> classes{};
    const auto set = [&](std::string_view characters, Class to) {
        for (const char c : characters) classes[static_cast<unsigned char>(c)] = to;
    };
    set(" \t\r\n", Class::Blank);
    set("_abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ", Class::Letter);
    set("0123456789", Class::Digit);
    set("'", Class::Quote);
    set("#@", Class::Prefix);
    set("?", Class::Question);
    set("()=<>+-*|,.;", Class::Sign);
    for (size_t c = 0x80; c < classes.size(); ++c) classes[c] = Class::Letter;
    return classes;
}

constexpr std::array<Class, 256> classes = MakeClasses();

Class ClassOf(char c) { return classes[static_cast<unsigned char>(c)]; }
// Characters that must not follow a word or a number, because an engine might read both as one token.
bool ContinuesName(char c) { return ClassOf(c) == Class::Prefix || c == '$'; }

}  // namespace

void RefuseTransactSql(std::string_view part) {
    size_t length = std::min(part.size(), longestQuote);
    while (length < part.size() && length > 0 && (static_cast<unsigned char>(part[length]) & 0xC0) == 0x80) --length;
    std::string shown(part.substr(0, length));
    std::replace(shown.begin(), shown.end(), '\0', ' ');
    Raise(ErrorNumber::General, "TransactSqlRewriter",
          "This database does not support \"" + shown + "\" in a statement.");
}

bool Token::IsWord(std::string_view wanted) const {
    if (kind != TokenKind::Word || text.size() != wanted.size()) return false;
    return std::equal(text.begin(), text.end(), wanted.begin(),
                      [](char c, char w) { return c == w || (c >= 'a' && c <= 'z' && c - 'a' + 'A' == w); });
}

void TransactSqlLexer::Refuse(size_t end) const {
    RefuseTransactSql(m_source.substr(m_at, std::min(end, m_source.size()) - m_at));
}

size_t TransactSqlLexer::NameEnd(size_t begin) const {
    size_t end = begin;
    while (ClassOf(At(end)) == Class::Letter || ClassOf(At(end)) == Class::Digit) ++end;
    return end;
}

size_t TransactSqlLexer::DigitsEnd(size_t begin) const {
    size_t end = begin;
    while (ClassOf(At(end)) == Class::Digit) ++end;
    return end;
}

size_t TransactSqlLexer::WordEnd() const {
    const size_t end = NameEnd(m_at);
    if (ContinuesName(At(end))) Refuse(end + 1);
    return end;
}

size_t TransactSqlLexer::PrefixedNameEnd() const {
    size_t end = NameEnd(m_at + 1);
    if (end > m_at + 1 && !ContinuesName(At(end))) return end;
    while (ContinuesName(At(end))) end = NameEnd(end + 1);
    Refuse(end);
}

size_t TransactSqlLexer::NumberEnd() const {
    size_t end = DigitsEnd(m_at);
    if (At(end) == '.' && ClassOf(At(end + 1)) == Class::Digit) end = DigitsEnd(end + 1);
    if (At(end) == 'e' || At(end) == 'E') {
        const size_t exponent = end + (At(end + 1) == '+' || At(end + 1) == '-' ? 2 : 1);
        end = DigitsEnd(exponent);
        if (end == exponent) Refuse(end);
    }
    if (ClassOf(At(end)) == Class::Letter || ContinuesName(At(end)) || At(end) == '.') Refuse(end + 1);
    return end;
}

size_t TransactSqlLexer::TextEnd(size_t quote) const {
    size_t end = quote + 1;
    for (;; end += 2) {
        end = m_source.find('\'', end);
        if (end == std::string_view::npos) Refuse(m_source.size());
        if (At(end + 1) != '\'') break;
    }
    if (m_source.substr(m_at, end - m_at).find('\0') != std::string_view::npos) Refuse(end + 1);
    return end + 1;
}

size_t TransactSqlLexer::SignEnd() const {
    const std::string_view two = m_source.substr(m_at, 2);
    if (two == "||" || two == "<>") return m_at + 2;
    if (two.front() == '|') Refuse(m_at + 1);
    return m_at + 1;
}

bool TransactSqlLexer::Make(Token& token, TokenKind kind, size_t end) {
    token = {kind, m_source.substr(m_at, end - m_at)};
    m_at = end;
    return true;
}

bool TransactSqlLexer::Next(Token& token) {
    while (ClassOf(At(m_at)) == Class::Blank) ++m_at;
    if (m_at >= m_source.size()) return false;

    const char c = m_source[m_at];
    if ((c == 'N' || c == 'n') && At(m_at + 1) == '\'') return Make(token, TokenKind::Text, TextEnd(m_at + 1));
    switch (ClassOf(c)) {
    case Class::Letter: return Make(token, TokenKind::Word, WordEnd());
    case Class::Digit: return Make(token, TokenKind::Number, NumberEnd());
    case Class::Quote: return Make(token, TokenKind::Text, TextEnd(m_at));
    case Class::Prefix: return Make(token, c == '#' ? TokenKind::Temporary : TokenKind::Variable, PrefixedNameEnd());
    case Class::Question: return Make(token, TokenKind::Marker, DigitsEnd(m_at + 1));
    case Class::Sign: return Make(token, TokenKind::Sign, SignEnd());
    case Class::Blank:
    case Class::Other: break;
    }
    const size_t bracket = c == '[' ? m_source.find(']', m_at) : m_at;
    Refuse(bracket == std::string_view::npos ? m_at + 1 : bracket + 1);
}

std::vector<Token> SplitTransactSql(std::string_view source) {
    std::vector<Token> tokens;
    TransactSqlLexer lexer(source);
    for (Token token{}; lexer.Next(token);) tokens.push_back(token);
    return tokens;
}

std::string_view InsideQuotes(const Token& token) {
    const size_t begin = token.text.front() == '\'' ? 1 : 2;
    return token.text.substr(begin, token.text.size() - begin - 1);
}

}  // namespace quellbrook::sql

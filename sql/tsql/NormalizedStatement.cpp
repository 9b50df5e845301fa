#include "sql/tsql/NormalizedStatement.h"

#include "base/Text.h"
#include "sql/tsql/TransactSqlLexer.h"

#include <charconv>

namespace quellbrook::sql {

namespace {

constexpr size_t digitsOfInt64 = 18;

bool IsAnyOf(const Token& token, std::initializer_list<std::string_view> words) {
    for (const std::string_view word : words)
        if (token.IsWord(word)) return true;
    return false;
}

bool KeepsLiteral(const Token& previous) {
    return previous.IsSign("+") || previous.IsSign("-") || IsAnyOf(previous, {"LIKE", "ESCAPE"});
}

bool IsWholeNumber(const Token& token) {
    return token.Is(TokenKind::Number) && token.text.size() <= digitsOfInt64 &&
           token.text.find_first_not_of("0123456789") == std::string_view::npos;
}

int64_t ToNumber(std::string_view digits) {
    int64_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

}  // namespace

bool NormalizeStatement(std::string_view source, NormalizedStatement& result) {
    result.text.clear();
    result.values.clear();
    result.unquoted.clear();
    TransactSqlLexer lexer(source);
    Token previous{};
    if (!lexer.Next(previous) || !IsAnyOf(previous, {"INSERT", "UPDATE", "DELETE", "DECLARE"})) return false;

    const char* copied = source.data();
    bool followsMarker = false;
    for (Token token{}; lexer.Next(token); previous = token) {
        if (token.Is(TokenKind::Marker) || IsAnyOf(token, {"CREATE", "DROP"})) return false;
        // Keep digits or letters that follow a marker separate from it.
        if (followsMarker && copied == token.text.data() && !token.Is(TokenKind::Sign)) result.text += ' ';
        followsMarker = !KeepsLiteral(previous) && (token.Is(TokenKind::Text) || IsWholeNumber(token));
        if (!followsMarker) continue;
        if (token.Is(TokenKind::Number)) {
            result.values.emplace_back(ToNumber(token.text));
        } else {
            const std::string_view inside = InsideQuotes(token);
            const bool hasQuotes = inside.find('\'') != std::string_view::npos;
            result.values.emplace_back(hasQuotes ? result.unquoted.emplace_back(Replace(inside, "''", "'")) : inside);
        }
        result.text.append(copied, token.text.data()).append("?").append(std::to_string(result.values.size()));
        copied = token.text.data() + token.text.size();
    }
    result.text.append(copied, source.data() + source.size());
    return true;
}

}  // namespace quellbrook::sql

#include "sql/query/QueryShape.h"

#include "sql/tsql/TransactSqlTokens.h"

#include <charconv>

namespace quellbrook::sql {

namespace {

constexpr size_t digitsOfInt64 = 18;

bool IsWhole(const Token& token) {
    return token.Is(TokenKind::Number) && token.text.size() <= digitsOfInt64 &&
           token.text.find_first_not_of("0123456789") == std::string_view::npos;
}

int64_t NumberOf(const Token& token) {
    int64_t number = 0;
    std::from_chars(token.text.data(), token.text.data() + token.text.size(), number);
    return number;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

QueryKey KeyOf(const Token& token) {
    if (token.Is(TokenKind::Text)) return TextOf(token);
    return NumberOf(token);
}

}  // namespace

QueryShape FindQueryShape(std::string_view text) {
    QueryShape shape;
    TransactSqlScanner scanner(text);
    Token token{}, previous{}, key{};
    const char* copied = text.data();
    bool isFirst = true, hasKey = false;
    const auto take = [&] {
        shape.keys.push_back(KeyOf(key));
        shape.text.append(copied, key.text.data()).append("?").append(std::to_string(shape.keys.size()));
        copied = key.text.data() + key.text.size();
        if (copied < text.data() + text.size() && IsDigit(*copied)) shape.text += ' ';
    };
    while (scanner.Next(token)) {
        if ((isFirst && !token.IsWord("SELECT")) || token.Is(TokenKind::Marker)) return {std::string(text), {}};
        if (hasKey && !token.IsSign('+')) take();
        hasKey = !isFirst && previous.IsSign('=') && (IsWhole(token) || token.Is(TokenKind::Text));
        if (hasKey) key = token;
        isFirst = false;
        previous = token;
    }
    if (hasKey) take();
    shape.text.append(copied, text.data() + text.size());
    return shape;
}

}  // namespace quellbrook::sql

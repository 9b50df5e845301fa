#include "host/sql/QueryShape.h"

#include "host/sql/TransactSqlTokens.h"

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

}  // namespace

QueryShape FindQueryShape(std::string_view text) {
    QueryShape shape;
    TransactSqlScanner scanner(text);
    Token token{}, previous{};
    const char* copied = text.data();
    bool isFirst = true;
    while (scanner.Next(token)) {
        if ((isFirst && !token.IsWord("SELECT")) || token.Is(TokenKind::Marker)) return {std::string(text), {}};
        if (!isFirst && previous.IsSign('=') && IsWhole(token)) {
            shape.keys.push_back(NumberOf(token));
            shape.text.append(copied, token.text.data()).append("?").append(std::to_string(shape.keys.size()));
            copied = token.text.data() + token.text.size();
        }
        isFirst = false;
        previous = token;
    }
    shape.text.append(copied, text.data() + text.size());
    return shape;
}

}  // namespace quellbrook::sql

#include "host/sql/TransactSqlShape.h"

#include "host/sql/TransactSqlTokens.h"

#include <charconv>

namespace quellbrook::sql {

namespace {

constexpr size_t digitsOfInt64 = 18;

bool IsWhole(const Token& token) {
    return token.Is(TokenKind::Number) && token.text.size() <= digitsOfInt64 &&
           token.text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool NeedsItsOwnText(const Token& token) {
    return token.Is(TokenKind::Marker) || token.IsWord("CREATE") || token.IsWord("DROP") || token.IsWord("ORDER") ||
           token.IsWord("LIMIT");
}

bool Changes(const Token& first) {
    return first.IsWord("INSERT") || first.IsWord("UPDATE") || first.IsWord("DELETE") || first.IsWord("DECLARE");
}

std::variant<int64_t, std::string> ValueOf(const Token& token) {
    if (token.Is(TokenKind::Text)) return TextOf(token);
    int64_t number = 0;
    std::from_chars(token.text.data(), token.text.data() + token.text.size(), number);
    return number;
}

}  // namespace

bool FindShape(std::string_view text, StatementShape& shape) {
    shape.text.clear();
    shape.values.clear();
    TransactSqlScanner scanner(text);
    Token token{}, previous{};
    const char* copied = text.data();
    bool isFirst = true, isDeclaration = false;
    bool isMarkerOpen = false;  // a digit behind it would become part of it
    while (scanner.Next(token)) {
        if ((isFirst && !Changes(token)) || NeedsItsOwnText(token)) return false;
        if (isFirst || previous.IsSign(';')) isDeclaration = token.IsWord("DECLARE");
        const bool isPattern = !isFirst && (previous.IsWord("LIKE") || previous.IsWord("ESCAPE"));
        if (!isDeclaration && !isPattern && (token.Is(TokenKind::Text) || IsWhole(token))) {
            shape.values.push_back(ValueOf(token));
            shape.text.append(copied, token.text.data()).append("?").append(std::to_string(shape.values.size()));
            copied = token.text.data() + token.text.size();
            isMarkerOpen = true;
        } else if (isMarkerOpen) {
            if (token.touchesPrevious && !token.Is(TokenKind::Sign)) shape.text += ' ';
            isMarkerOpen = false;
        }
        isFirst = false;
        previous = token;
    }
    shape.text.append(copied, text.data() + text.size());
    return !isFirst;
}

}  // namespace quellbrook::sql

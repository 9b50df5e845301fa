#pragma once

#include "fuzz/TransactSqlChecks.h"
#include "sql/query/QueryShape.h"
#include "sql/tsql/TransactSqlShape.h"

namespace quellbrook::fuzz {

// Leading zeros of a whole number are no difference.
inline std::string Plain(const std::string& text) {
    const bool isWhole =
        !text.empty() && text.size() <= 18 && text.find_first_not_of("0123456789") == std::string::npos;
    return isWhole ? std::to_string(std::stoll(text)) : text;
}

inline std::string Shown(const Token& token) {
    return Plain(token.Is(TokenKind::Text) ? TextOf(token) : std::string(token.text));
}

// The shape with its values written back in is the source again.
template <typename ShownValue>
void CheckFilledIn(std::string_view source, const std::string& shape, ShownValue shownValue) {
    std::vector<std::string> expected, found;
    for (const Token& token : ScanTransactSql(source)) expected.push_back(Shown(token));
    for (const Token& token : ScanTransactSql(shape))
        found.push_back(token.Is(TokenKind::Marker) ? shownValue(std::stoul(std::string(token.text.substr(1))) - 1)
                                                    : Shown(token));
    Check(expected == found, "The shape lost something", source);
}

inline void CheckStatementShape(std::string_view source) {
    StatementShape shape;
    if (!FindShape(source, shape)) return;
    Check(IsAccepted(source) == IsAccepted(shape.text), "The shape is not what the source is", source);
    if (!IsAccepted(source)) return;
    CheckFilledIn(source, shape.text, [&](size_t position) {
        const auto& value = shape.values.at(position);
        return value.index() == 0 ? std::to_string(std::get<0>(value)) : Plain(std::string(std::get<1>(value)));
    });
}

inline void CheckQueryShape(std::string_view source) {
    QueryShape shape;
    try {
        shape = FindQueryShape(source);
    } catch (const Error& error) {
        Check(error.Number() == ErrorNumber::General, "Refused with another number", source);
        Check(!IsAccepted(source), "No shape of a text that is translated", source);
        return;
    }
    Check(IsAccepted(source) == IsAccepted(shape.text), "The shape is not what the source is", source);
    if (!shape.keys.empty())
        CheckFilledIn(source, shape.text, [&](size_t position) {
            const QueryKey& key = shape.keys.at(position);
            return key.index() == 0 ? std::to_string(std::get<0>(key)) : Plain(std::get<1>(key));
        });
    else
        Check(shape.text == source, "A shape without keys changed", source);
}

// All that must hold of any text.
inline void CheckText(std::string_view source) {
    CheckTranslation(source);
    CheckStatementShape(source);
    CheckQueryShape(source);
}

}  // namespace quellbrook::fuzz

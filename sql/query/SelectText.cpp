#include "sql/query/SelectText.h"

#include "base/Text.h"

#include <algorithm>

namespace quellbrook::sql {

namespace {

bool IsNameChar(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

bool IsName(std::string_view text) {
    return !text.empty() && !(text[0] >= '0' && text[0] <= '9') && std::all_of(text.begin(), text.end(), IsNameChar);
}

// Splits the text at commas outside quotes and brackets.
std::vector<std::string_view> SplitEntries(std::string_view text) {
    std::vector<std::string_view> entries;
    size_t start = 0;
    int depth = 0;
    char quote = '\0';
    for (size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (quote != '\0') {
            if (c == quote) quote = '\0';
        } else if (c == '\'' || c == '"') {
            quote = c;
        } else if (c == '(') {
            ++depth;
        } else if (c == ')') {
            --depth;
        } else if (c == ',' && depth == 0) {
            entries.push_back(Trim(text.substr(start, at - start)));
            start = at + 1;
        }
    }
    entries.push_back(Trim(text.substr(start)));
    return entries;
}

ResultColumn ParseEntry(std::string_view entry) {
    if (entry == "*") return {};
    if (IsName(entry)) return {MakeExpression(RawText{std::string(entry)}), std::string(entry)};
    const size_t blank = entry.rfind(' ');
    if (blank != std::string_view::npos && IsName(entry.substr(blank + 1))) {
        const std::string_view before = Trim(entry.substr(0, blank));
        if (before.size() > 3 && EqualsNoCase(before.substr(before.size() - 3), " AS"))
            return {MakeExpression(RawText{std::string(Trim(before.substr(0, before.size() - 3)))}),
                    std::string(entry.substr(blank + 1))};
    }
    return {MakeExpression(RawText{std::string(entry)}), ""};
}

}  // namespace

std::vector<ResultColumn> ParseSelectText(std::string_view text) {
    std::vector<ResultColumn> columns;
    for (const std::string_view entry : SplitEntries(text)) columns.push_back(ParseEntry(entry));
    return columns;
}

}  // namespace quellbrook::sql

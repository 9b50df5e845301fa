// Feeds any text to the translation of the Transact-SQL subset. It never crashes; a text that it accepts comes out with
// its literals byte for byte the same, and the translation of a translation changes nothing.

#include "base/Error.h"
#include "host/sql/TransactSqlRewriter.h"
#include "host/sql/TransactSqlShape.h"
#include "host/sql/TransactSqlTokens.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

using namespace quellbrook;
using namespace quellbrook::sql;

namespace {

[[noreturn]] void Fail(const char* what, std::string_view text) {
    std::fprintf(stderr, "%s: %.*s\n", what, static_cast<int>(text.size()), text.data());
    std::abort();
}

struct Literals {
    std::vector<std::string> texts;
    bool hasVariables = false;
};

void Collect(std::string_view text, Literals& literals) {
    for (const Token& token : ScanTransactSql(text)) {
        if (token.Is(TokenKind::Variable)) literals.hasVariables = true;
        if (token.Is(TokenKind::Text)) literals.texts.emplace_back(token.text.substr(token.isNational ? 1 : 0));
    }
}

void CheckLiterals(std::string_view source, const std::vector<std::string>& statements) {
    Literals before, after;
    Collect(source, before);
    for (const std::string& statement : statements) Collect(statement, after);
    if (after.hasVariables) Fail("A variable is left", source);
    if (!before.hasVariables && before.texts != after.texts) Fail("Literals changed", source);
    for (const std::string& literal : after.texts)
        if (std::find(before.texts.begin(), before.texts.end(), literal) == before.texts.end())
            Fail("A literal was made up", source);
}

void CheckTwice(const std::string& statement, SqlTarget target) {
    const Token first = ScanTransactSql(statement).front();
    if (first.IsWord("CREATE") || first.IsWord("DROP")) return;
    const std::vector<std::string> again = TranslateTransactSql(statement, target).statements;
    if (again != std::vector<std::string>{statement}) Fail("A plain statement changed", statement);
}

void CheckTarget(std::string_view source, SqlTarget target) {
    TranslatedText translated;
    try {
        translated = TranslateTransactSql(source, target);
    } catch (const Error& error) {
        if (error.Number() != ErrorNumber::General) Fail("Refused with another number", source);
        return;
    }
    CheckLiterals(source, translated.statements);
    for (const std::string& statement : translated.statements) CheckTwice(statement, target);
}

// Leading zeros of a whole number are no difference.
std::string Plain(const std::string& text) {
    const bool isWhole = !text.empty() && text.size() <= 18 && text.find_first_not_of("0123456789") == std::string::npos;
    return isWhole ? std::to_string(std::stoll(text)) : text;
}

std::string Shown(const Token& token) {
    return Plain(token.Is(TokenKind::Text) ? TextOf(token) : std::string(token.text));
}

bool IsInSubset(std::string_view text) {
    try {
        TranslateTransactSql(text, SqlTarget::Sqlite);
        return true;
    } catch (const Error&) {
        return false;
    }
}

// The shape with its values written back in is the source again, and is of the subset where the source is.
void CheckShape(std::string_view source) {
    StatementShape shape;
    if (!FindShape(source, shape)) return;
    if (IsInSubset(source) != IsInSubset(shape.text)) Fail("The shape is not what the source is", source);
    if (!IsInSubset(source)) return;
    std::vector<std::string> expected, found;
    for (const Token& token : ScanTransactSql(source)) expected.push_back(Shown(token));
    for (const Token& token : ScanTransactSql(shape.text)) {
        if (!token.Is(TokenKind::Marker)) {
            found.push_back(Shown(token));
            continue;
        }
        const auto& value = shape.values.at(std::stoul(std::string(token.text.substr(1))) - 1);
        found.push_back(value.index() == 0 ? std::to_string(std::get<0>(value)) : Plain(std::string(std::get<1>(value))));
    }
    if (expected != found) Fail("The shape lost something", source);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string_view source(reinterpret_cast<const char*>(data), size);
    CheckTarget(source, SqlTarget::Sqlite);
    CheckTarget(source, SqlTarget::PostgreSql);
    CheckShape(source);
    return 0;
}

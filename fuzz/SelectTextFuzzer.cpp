// For any select list and any pattern, each entry is kept as written. The query is planned and written, with the same
// result each time, or refused with an Error.

#include "base/Error.h"
#include "base/Text.h"
#include "fuzz/Fail.h"
#include "sql/Literals.h"
#include "sql/query/QueryFactory.h"
#include "sql/query/QueryPlanner.h"
#include "sql/query/QueryWriter.h"
#include "sql/query/SelectText.h"

#include <cstdint>
#include <optional>
#include <string>

using namespace quellbrook;
using quellbrook::fuzz::Check;

namespace {

std::string Squeezed(std::string_view text) {
    std::string folded = FoldCase(text);
    std::erase(folded, ' ');
    return folded;
}

std::string RawText(const sql::ResultColumn& column) {
    return column.IsStar() ? "*" : std::get<sql::RawText>(column.expression->content).text;
}

// Removes the entry from the front of the rest, and the comma after it.
bool TakeEntry(std::string_view& rest, const std::string& entry) {
    if (!rest.starts_with(entry + ",")) return false;
    rest.remove_prefix(entry.size() + 1);
    return true;
}

// Writing the entries again restores the text, except for blanks and case.
void CheckEntries(const std::string& text) {
    const std::string squeezed = Squeezed(text) + ",";
    std::string_view rest = squeezed;
    for (const sql::ResultColumn& column : sql::ParseSelectText(text)) {
        const std::string plain = Squeezed(RawText(column));
        const bool isTaken = TakeEntry(rest, plain + "as" + Squeezed(column.name)) || TakeEntry(rest, plain);
        Check(isTaken, "An entry differs", text);
    }
    Check(rest.empty(), "A part of the text is missing", text);
}

QuerySource Compose(const std::string& text) {
    static const Dialect dialect;
    const QueryFactory factory([]() -> const Dialect& { return dialect; });
    const QuerySource p = factory.Table("Property"), ip = factory.Table("IncdProperty"), i = factory.Table("Incident");
    const QuerySource linked = ip.Join(i, 0).On(i.Column("IncidentNo").Equals(ip.Column("IncidentNo")));
    const QuerySource source = p.Join(linked, 1).On(ip.Column("PropertyNo").Equals(p.Column("PropertyNo")));
    QuerySource query = source.Select({text, p.Column("Description").As("Text")});
    query.Where(i.Column("CaseNbr").Like(text));
    QuerySource outer = query.As("Results").Select({"*"});
    return outer.Where(query.Column("Text").Like(text)).Where(query.Column("Text").NotEquals(text));
}

std::optional<std::string> Written(const QuerySource& query, const Dialect& dialect) {
    try {
        return sql::WriteQuery(*sql::PlanQuery(query.Node(), dialect), dialect).text;
    } catch (const Error&) {
        return std::nullopt;
    }
}

// Without planning, the text contains everything.
void CheckLiterally(const QuerySource& query, const std::string& text, const Dialect& dialect) {
    const std::string written = sql::WriteQuery(*query.Node(), dialect).text;
    for (const sql::ResultColumn& column : sql::ParseSelectText(text))
        Check(written.find(RawText(column)) != std::string::npos, "An entry is missing", written);
    for (const std::string& literal : {sql::LikeLiteral(text, dialect), sql::TextLiteral(text, dialect)})
        Check(written.find(literal) != std::string::npos, "A literal is missing", written);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    CheckEntries(text);
    Dialect dialect;
    dialect.hasCurrentPlace = true;
    dialect.hasDescriptionIndex = true;
    dialect.equalsLikeLike = size % 2 == 0;
    try {
        const QuerySource query = Compose(text);
        const std::optional<std::string> planned = Written(query, dialect);
        Check(planned.has_value() == (text.find('\0') == std::string::npos), "Refused, or not, without cause", text);
        Check(planned == Written(query, dialect), "Planned differently", text);
        if (planned) CheckLiterally(query, text, dialect);
    } catch (const Error& error) {
        Check(error.Number() == ErrorNumber::General, "Refused with another number", text);
    }
    return 0;
}

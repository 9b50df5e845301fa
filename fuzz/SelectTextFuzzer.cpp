#include "base/Error.h"
#include "host/QueryFactory.h"
#include "host/sql/QueryPlanner.h"
#include "host/sql/QueryWriter.h"

#include <cstdint>
#include <string>

// Raw text of a select list, and a pattern, whatever they hold: the query is planned and written, or refused with an Error.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    using namespace quellbrook;
    const std::string text(reinterpret_cast<const char*>(data), size);
    Dialect dialect;
    dialect.hasCurrentPlace = true;
    dialect.hasDescriptionIndex = true;
    try {
        const QueryFactory factory;
        const QuerySource p = factory.Table("Property");
        QuerySource query = p.Select({text, p.Column("Description").As("Text")});
        QuerySource outer = query.As("Results").Select({"*"});
        outer.Where(query.Column("Text").Like(text)).Where(p.Select({text}).Column("a").Equals(1));
        sql::WriteQuery(*sql::PlanQuery(outer.Node(), dialect), dialect);
    } catch (const Error&) {
    }
    return 0;
}

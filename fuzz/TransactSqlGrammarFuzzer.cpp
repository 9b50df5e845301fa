// Derives statements from the grammar in TransactSqlRewriter.h. Each of them must be accepted and pass the checks for
// any text.

#include "fuzz/TransactSqlChecks.h"

#include <cstdint>

using namespace quellbrook;
using namespace quellbrook::fuzz;

namespace {

// The bytes determine the choices. When they are used up, the first and shortest choice is taken.
class Derivation {
public:
    Derivation(const uint8_t* data, size_t size) : m_data(data), m_size(size) {}

    std::string Text() {
        do {
            Statement();
            m_text += ";";
        } while (Maybe());
        return m_text;
    }

private:
    size_t Choose(size_t choices) { return m_at < m_size ? m_data[m_at++] % choices : 0; }
    bool Maybe() { return Choose(2) == 1 && CanNest(); }
    // Limits the nesting to less than the grammar's limit.
    bool CanNest() const { return m_depth < 12; }
    void Put(const char* text) { (m_text += text) += Choose(8) == 7 ? "\r\n\t" : " "; }
    template <size_t N>
    void PutAnyOf(const char* const (&texts)[N]) {
        Put(texts[Choose(N)]);
    }
    template <typename Rule>
    void List(Rule rule) {
        rule();
        while (Maybe()) {
            Put(",");
            rule();
        }
    }

    void Statement() {
        switch (Choose(8)) {
        case 0: return Sorted();
        case 1: return Insertion();
        case 2: return Update();
        case 3:
            Put("DELETE FROM");
            Table();
            return MaybeWhere();
        case 4: return Put("CREATE TABLE #t ( a INT NOT NULL , b INT )");
        case 5: return Put("DROP TABLE #t");
        case 6: return Variable();
        default: return;
        }
    }

    void Sorted() {
        Query();
        if (!Maybe()) return;
        Put("ORDER BY");
        List([this] {
            Column();
            PutAnyOf({"", "ASC", "DESC"});
        });
    }

    void Insertion() {
        Put("INSERT INTO");
        Table();
        if (Choose(4) == 1) return Put("DEFAULT VALUES");
        if (Maybe()) {
            Put("(");
            List([this] { Name(); });
            Put(")");
        }
        Put("VALUES");
        Row();
    }

    void Update() {
        Put("UPDATE");
        Table();
        Put("SET");
        List([this] {
            Name();
            Put("=");
            Value();
        });
        MaybeWhere();
    }

    // Declared, set and used as in a transfer. Each name occurs once in a text.
    void Variable() {
        const std::string name = "@v" + std::to_string(++m_variables);
        Put("DECLARE");
        Put(name.c_str());
        PutAnyOf({"AS INT", "INT"});
        Put("; SELECT");
        Put(name.c_str());
        PutAnyOf({"= MAX ( SeqNo )", "= MAX ( SeqNo ) + 1", "= MAX ( SeqNo ) + ?1"});
        Put("FROM PropertyTracking WHERE PropertyNo =");
        PutAnyOf({"7", "-1", "'x'", "?2"});
        Put("GROUP BY PropertyNo ; UPDATE #NextSeqNo SET Value = COALESCE (");
        Put(name.c_str());
        Put(", 1 )");
    }

    void Query() {
        Select();
        while (Maybe()) {
            PutAnyOf({"UNION", "UNION ALL"});
            Select();
        }
    }

    void Select() {
        PutAnyOf({"SELECT", "SELECT DISTINCT", "select"});
        const bool hasSource = Choose(4) != 0;
        List([this, hasSource] { Result(hasSource); });
        if (hasSource) {
            Put("FROM");
            Source();
        }
        MaybeWhere();
        if (!Maybe()) return;
        Put("GROUP BY");
        List([this] { Column(); });
    }

    void Result(bool hasSource) {
        if (hasSource && Choose(4) == 1) return Put("*");
        Value();
        if (Maybe()) Put("AS Result");
    }

    void Source() {
        Member();
        while (Maybe()) Joined();
    }

    void Joined() {
        PutAnyOf({"INNER JOIN", "LEFT JOIN"});
        Member();
        Put("ON");
        Condition();
        if (Choose(4) != 1) return;
        Put("CROSS JOIN");
        Member();
    }

    void Member() {
        switch (CanNest() ? Choose(4) : 0) {
        case 2: Nested([this] { Query(); }); return PutAnyOf({"AS q", "q"});
        case 3: return Nested([this] { (Member(), Joined()); });
        default: Table(); return PutAnyOf({"", "AS p", "p"});
        }
    }

    void MaybeWhere() {
        if (!Maybe()) return;
        Put("WHERE");
        Condition();
    }

    template <typename Rule>
    void Nested(Rule rule) {
        ++m_depth;
        Put("(");
        rule();
        Put(")");
        --m_depth;
    }

    void Condition() {
        Term();
        while (Maybe()) {
            Put("AND");
            Term();
        }
    }

    void Term() {
        Value();
        switch (Choose(4)) {
        case 1: return PutAnyOf({"IS NULL", "IS NOT NULL"});
        case 2:
            Put("IN");
            if (CanNest() && Choose(2) == 1) return Nested([this] { Query(); });
            return Row();
        case 3:
            Put("LIKE");
            return PutAnyOf({"'x%'", "N'x_'", "'\\[x]' ESCAPE '\\'", "'a\\b'", "?", "'!!' ESCAPE '!'", "''"});
        default: PutAnyOf({"=", "<>"}); return Value();
        }
    }

    void Value() {
        if (Choose(8) == 1) {
            Put("+");
            return Column();
        }
        Operand();
        while (Maybe()) {
            Put("||");
            Operand();
        }
    }

    void Operand() {
        switch (CanNest() ? Choose(9) : Choose(5)) {
        case 1: return PutAnyOf({"1", "0", "2.5", "-3", "1e-3", "-1.5"});
        case 2: return PutAnyOf({"'x'", "N'it''s'", "'; -- [x] @y #z'", "''"});
        case 3: return PutAnyOf({"?", "?1", "?12"});
        case 4: return Put("NULL");
        case 5: return Nested([this] { Value(); });
        case 6: return Nested([this] { Query(); });
        case 7: return Call();
        default: return Column();
        }
    }

    void Call() {
        switch (Choose(4)) {
        case 0: PutAnyOf({"MAX", "COUNT"}); return Nested([this] { Value(); });
        case 1: Put("COALESCE"); return Nested([this] { (Value(), Put(","), Value()); });
        case 2: Put("REPLACE"); return Nested([this] { (Value(), Put(", 'x' ,"), Value()); });
        default: return Put("COUNT ( * )");
        }
    }

    void Row() {
        Nested([this] { List([this] { Value(); }); });
    }

    void Column() {
        Name();
        if (!Maybe()) return;
        Put(".");
        Name();
    }

    void Name() { PutAnyOf({"PropertyNo", "Value", "p", "Description", "\xC3\xA4_1", "Day", "Match"}); }
    void Table() { PutAnyOf({"Property", "#NextSeqNo", "PropertyTracking", "Incident", "Gone", "Setting"}); }

    const uint8_t* m_data;
    size_t m_size;
    size_t m_at = 0;
    size_t m_depth = 0;
    int m_variables = 0;
    std::string m_text;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text = Derivation(data, size).Text();
    const Outcome outcome = Rewrite(text);
    if (!outcome.statements) Fail(outcome.refusal.c_str(), text);
    CheckText(text);
    return 0;
}

// Derives statements from the grammar as the header of the rewriter writes it down: each of them must be accepted, and
// what holds of any text must hold of them.

#include "fuzz/ShapeChecks.h"

#include <cstdint>

using namespace quellbrook;
using namespace quellbrook::fuzz;

namespace {

// Takes its decisions from the bytes; when they are used up it takes the first and shortest way.
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
    bool Maybe() { return Choose(2) == 1 && HasRoom(); }
    // Each level may hold a NOT besides, and all that is opened here stays below the deepest nesting of the language.
    bool HasRoom() const { return m_depth < 12; }
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
        case 4: return Put("CREATE TABLE #t ( a INT NOT NULL , \"b\" VARCHAR ( 5 ) , c DECIMAL ( 5 , 2 ) NULL )");
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
            Choose(2) == 0 ? Column() : Put("1");
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
        if (Choose(2) == 1) return Query();
        Put("VALUES");
        List([this] { Row(); });
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

    // Declared, set and used as a transfer does it; each name once in a text.
    void Variable() {
        const std::string name = "@v" + std::to_string(++m_variables);
        Put("DECLARE");
        Put(name.c_str());
        PutAnyOf({"AS INT", "INT", "NVARCHAR ( 50 )", "AS DECIMAL ( 5 , 2 )"});
        Put("; SELECT");
        Put(name.c_str());
        Put("= MAX (");
        Put(Maybe() ? "DISTINCT SeqNo ) + 1" : "SeqNo )");
        Put("FROM PropertyTracking");
        if (Maybe()) Put("WHERE ReceivedBy > 1 AND PropertyNo = 7 GROUP BY PropertyNo");
        Put("; UPDATE #NextSeqNo SET Value = COALESCE (");
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
        if (!Maybe()) return;
        Put("HAVING");
        Condition();
    }

    void Result(bool hasSource) {
        if (hasSource && Choose(4) == 1) return Put("*");
        if (hasSource && Choose(6) == 1) {
            Name();
            return Put(". *");
        }
        Value();
        if (Maybe()) PutAnyOf({"AS Result", "AS \"a b\"", "AS 'odd'", "AS N'odd'"});
    }

    void Source() {
        Member();
        while (Maybe()) Joined();
    }

    void Joined() {
        PutAnyOf({"INNER JOIN", "JOIN", "LEFT JOIN", "LEFT OUTER JOIN"});
        Member();
        Put("ON");
        Condition();
        if (Choose(4) != 1) return;
        Put("CROSS JOIN");
        Member();
    }

    void Member() {
        switch (HasRoom() ? Choose(4) : 0) {
        case 2:
            Nested([this] { Query(); });
            PutAnyOf({"AS q", "q", "AS \"a b\""});
            return;
        case 3: return Nested([this] { (Member(), Joined()); });
        default: Table(); return PutAnyOf({"", "AS p", "p", "\"p\""});
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
            PutAnyOf({"AND", "OR"});
            Term();
        }
    }

    void Term() {
        if (HasRoom() && Choose(6) == 1) Put("NOT");
        switch (Choose(8)) {
        case 1: Value(); return PutAnyOf({"IS NULL", "IS NOT NULL"});
        case 2:
            Value();
            PutAnyOf({"BETWEEN", "NOT BETWEEN"});
            Value();
            Put("AND");
            return Value();
        case 3:
            Value();
            PutAnyOf({"IN", "NOT IN"});
            if (HasRoom() && Choose(2) == 1) return Nested([this] { Query(); });
            return Row();
        case 4:
            Value();
            PutAnyOf({"LIKE", "NOT LIKE"});
            return PutAnyOf({"'x%'", "N'x_'", "'\\[x]' ESCAPE '\\'", "'a\\b'", "?", "'!!' ESCAPE '!'", "''"});
        case 5:
            if (!HasRoom()) return Comparison();
            Put("EXISTS");
            return Nested([this] { Query(); });
        case 6: return HasRoom() ? Nested([this] { Condition(); }) : Comparison();
        default: return Comparison();
        }
    }

    void Comparison() {
        Value();
        PutAnyOf({"=", "<>", "!=", "<", "<=", ">", ">="});
        Value();
    }

    void Value() {
        Factor(true);
        if (!Maybe()) return;
        const bool joinsTexts = Choose(2) == 1;
        if (!joinsTexts) m_text += "- 1 ";  // a text that stands first is not beside a "+"
        do {
            joinsTexts ? Put("||") : PutAnyOf({"+", "-", "*", "/", "%"});
            Factor(joinsTexts);
        } while (Maybe());
    }

    void Factor(bool mayBeText) {
        if (Choose(8) == 1) {
            Put("-");
            mayBeText = false;
        }
        switch (HasRoom() ? Choose(10) : Choose(6)) {
        case 1: return PutAnyOf({"1", "0", "2.5", ".5", "1e-3", "7."});
        case 2: return mayBeText ? PutAnyOf({"'x'", "N'it''s'", "'; -- [x] @y #z'", "''"}) : Put("3");
        case 3: return PutAnyOf({"?", "?1", "?12"});
        case 4: return Put("NULL");
        case 6: return Nested([this] { Value(); });
        case 7: return Nested([this] { Query(); });
        case 8: return Call();
        default: return Column();
        }
    }

    void Call() {
        constexpr const char* ofOne[] = {"ABS", "LTRIM", "RTRIM", "MAX", "MIN", "SUM", "COUNT"};
        switch (Choose(4)) {
        case 0: PutAnyOf(ofOne); return Nested([this] { Value(); });
        case 1: Put("COALESCE"); break;
        case 2: Put("NULLIF"); break;
        default: return PutAnyOf({"COUNT ( * )", "COUNT ( DISTINCT PropertyNo )", "REPLACE ( Path , 'x' , '' )"});
        }
        Nested([this] { (Value(), Put(","), Value()); });
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

    void Name() { PutAnyOf({"PropertyNo", "Value", "p", "Description", "\"order\"", "\xC3\xA4_1", "Day", "Match"}); }
    void Table() { PutAnyOf({"Property", "#NextSeqNo", "PropertyTracking", "\"Incident\"", "Gone", "Setting"}); }

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
    const Outcome outcome = Translate(text, SqlTarget::Sqlite);
    if (!outcome.translated) Fail(outcome.refusal.c_str(), text);
    CheckText(text);
    return 0;
}

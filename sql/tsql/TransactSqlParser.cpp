#include "sql/tsql/TransactSqlParser.h"

#include "base/Text.h"

#include <algorithm>
#include <string>
#include <unordered_set>

namespace quellbrook::sql {

namespace {

constexpr size_t deepestNesting = 30;

// Words that SQLite or the grammar reserve, and those of Transact-SQL that an error message should quote. They are not
// accepted as names.
constexpr std::string_view reservedWords =
    " ADD ALL ALTER AND ANY APPLY AS ASC AUTOINCREMENT BEGIN BETWEEN BY CASE CAST CHECK COLLATE COMMIT CONSTRAINT "
    "CONVERT CREATE CROSS CURRENT_DATE CURRENT_TIME CURRENT_TIMESTAMP DECLARE DEFAULT DEFERRABLE DELETE DESC DISTINCT "
    "DROP ELSE END ESCAPE EXCEPT EXEC EXECUTE EXISTS FETCH FOR FOREIGN FROM FULL GROUP HAVING IDENTITY IF IN INDEX "
    "INDEXED INNER INSERT INTERSECT INTO IS ISNULL JOIN LEFT LIKE LIMIT MERGE NATURAL NOT NOTHING NOTNULL NULL OFFSET "
    "ON OPTION OR ORDER OUTER OVER PIVOT PRIMARY RAISE REFERENCES RETURNING RIGHT ROLLBACK SELECT SET TABLE THEN TO "
    "TOP TRANSACTION TRUNCATE UNION UNIQUE UNPIVOT UPDATE USING VALUES WHEN WHERE WITH ";

struct Function {
    std::string_view name;
    size_t fewestArguments;
    size_t mostArguments;
};
constexpr Function functions[] = {{"COALESCE", 2, 100}, {"COUNT", 1, 1}, {"MAX", 1, 1}, {"REPLACE", 3, 3}};

std::unordered_set<std::string_view> SplitReservedWords() {
    std::unordered_set<std::string_view> words;
    for (size_t start = 1, end; (end = reservedWords.find(' ', start)) != std::string_view::npos; start = end + 1)
        words.insert(reservedWords.substr(start, end - start));
    return words;
}

bool IsReserved(const Token& token) {
    static const std::unordered_set<std::string_view> words = SplitReservedWords();
    std::string word;
    for (const char c : token.text) word += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return words.contains(word);
}

// In a pattern, Transact-SQL reads [...] as a class of characters.
bool HasCharacterClass(std::string_view pattern, std::string_view escape) {
    for (size_t at = 0; at < pattern.size(); ++at) {
        if (pattern.substr(at, 1) == escape)
            ++at;
        else if (pattern[at] == '[')
            return true;
    }
    return false;
}

// One member function for each rule of the grammar. It consumes the tokens of its rule, or raises the error.
class Parser {
public:
    explicit Parser(std::span<const Token> tokens) : m_tokens(tokens) {}

    ParsedStatement Parse() {
        if (TakeWord("DECLARE"))
            Declaration();
        else if (IsWord("SELECT") && Is(TokenKind::Variable, 1))
            Assignment();
        else if (IsWord("SELECT"))
            SortedQuery();
        else if (TakeWord("INSERT"))
            Insertion();
        else if (TakeWord("UPDATE"))
            Update();
        else if (TakeWord("DELETE"))
            Deletion();
        else if (TakeWord("CREATE"))
            Creation();
        else if (TakeWord("DROP"))
            Removal();
        else
            Refuse();
        if (!AtEnd()) Refuse();
        return m_parsed;
    }

private:
    // Statements

    void Declaration() {
        Begin(StatementKind::Declaration, TokenKind::Variable);
        TakeWord("AS");
        ExpectWord("INT");
    }

    void Assignment() {
        ++m_at;
        Begin(StatementKind::Assignment, TokenKind::Variable);
        ExpectSign("=");
        ExpectWord("MAX");
        ExpectSign("(");
        Name();
        ExpectSign(")");
        if (TakeSign("+")) Expect(!Is(TokenKind::Text) && TakeConstant());
        ExpectWord("FROM");
        m_parsed.source = m_at;
        Table();
        ExpectWord("WHERE");
        const size_t column = m_at;
        Name();
        ExpectSign("=");
        Expect(TakeConstant());
        m_parsed.grouping = m_at;
        ExpectWord("GROUP");
        ExpectWord("BY");
        Expect(!AtEnd() && EqualsNoCase(m_tokens[m_at].text, m_tokens[column].text));
        ++m_at;
    }

    void Creation() {
        ExpectWord("TABLE");
        Begin(StatementKind::Creation, TokenKind::Temporary);
        Bracketed([this] {
            List([this] {
                Name();
                ExpectWord("INT");
                if (TakeWord("NOT")) ExpectWord("NULL");
            });
        });
    }

    void Removal() {
        ExpectWord("TABLE");
        Begin(StatementKind::Removal, TokenKind::Temporary);
    }

    void Insertion() {
        ExpectWord("INTO");
        BeginChange();
        if (TakeWord("DEFAULT")) return ExpectWord("VALUES");
        if (IsSign("(")) Bracketed([this] { List([this] { Name(); }); });
        ExpectWord("VALUES");
        Values();
    }

    void Update() {
        BeginChange();
        ExpectWord("SET");
        List([this] {
            Name();
            ExpectSign("=");
            Value();
        });
        Where();
    }

    void Deletion() {
        ExpectWord("FROM");
        BeginChange();
        Where();
    }

    void Begin(StatementKind kind, TokenKind subject) {
        m_parsed.kind = kind;
        m_parsed.subject = m_at;
        Expect(Is(subject));
        ++m_at;
    }

    void BeginChange() {
        m_parsed.kind = StatementKind::Change;
        m_parsed.subject = m_at;
        Table();
    }

    // Queries

    void SortedQuery() {
        Query();
        if (!TakeWord("ORDER")) return;
        ExpectWord("BY");
        List([this] {
            Column();
            if (!TakeWord("DESC")) TakeWord("ASC");
        });
    }

    void Query() {
        do {
            ExpectWord("SELECT");
            TakeWord("DISTINCT");
            List([this] { Result(); });
            if (TakeWord("FROM")) Source();
            Where();
            if (TakeWord("GROUP")) {
                ExpectWord("BY");
                List([this] { Column(); });
            }
        } while (TakeUnion());
    }

    bool TakeUnion() {
        if (!TakeWord("UNION")) return false;
        TakeWord("ALL");
        return true;
    }

    void Result() {
        if (TakeSign("*")) return Expect(IsWord("FROM") || IsSign(","));
        Value();
        if (TakeWord("AS")) Name();
    }

    void Source() {
        Member();
        while (IsJoin()) Join();
    }

    bool IsJoin() const { return IsWord("INNER") || IsWord("LEFT") || IsWord("CROSS"); }

    void Join() {
        Expect(IsJoin());
        const bool hasCondition = !IsWord("CROSS");
        ++m_at;
        ExpectWord("JOIN");
        Member();
        if (!hasCondition) return;
        ExpectWord("ON");
        Condition();
    }

    void Member() {
        if (!IsSign("(")) {
            Table();
            if (TakeWord("AS") || IsName()) Name();
        } else if (IsWord("SELECT", 1)) {
            SubQuery();
            TakeWord("AS");
            Name();
        } else {
            Bracketed([this] {
                Member();
                do Join();
                while (!IsSign(")"));
            });
        }
    }

    void Where() {
        if (TakeWord("WHERE")) Condition();
    }

    // Conditions and values

    void Condition() {
        do {
            ParsedComparison comparison;
            comparison.values.push_back(Noted([this] { Value(); }));
            if (TakeWord("IS")) {
                TakeWord("NOT");
                ExpectWord("NULL");
            } else if (TakeWord("LIKE")) {
                comparison.isPattern = true;
                Pattern(comparison);
            } else if (TakeWord("IN")) {
                IsWord("SELECT", 1) ? SubQuery() : Values(&comparison);
            } else {
                Expect(TakeSign("=") || TakeSign("<>"));
                comparison.values.push_back(Noted([this] { Value(); }));
            }
            if (comparison.values.size() > 1) m_parsed.comparisons.push_back(std::move(comparison));
        } while (TakeWord("AND"));
    }

    template <typename Rule>
    TokenRange Noted(Rule rule) {
        const size_t begin = m_at;
        rule();
        return {begin, m_at};
    }

    void Pattern(ParsedComparison& comparison) {
        const size_t pattern = m_at;
        Expect(Is(TokenKind::Text) || Is(TokenKind::Marker));
        ++m_at;
        comparison.values.push_back({pattern, m_at});
        std::string_view escape;
        if (TakeWord("ESCAPE")) {
            Expect(Is(TokenKind::Text) && InsideQuotes(m_tokens[m_at]).size() == 1);
            escape = InsideQuotes(m_tokens[m_at++]);
        }
        const Token& token = m_tokens[pattern];
        if (token.Is(TokenKind::Text) && HasCharacterClass(InsideQuotes(token), escape)) RefuseTransactSql(token.text);
    }

    void Value() {
        if (TakeSign("+")) return Column();
        do Operand();
        while (TakeSign("||"));
    }

    void Operand() {
        if (TakeConstant()) return;
        if (Is(TokenKind::Variable) || IsWord("NULL"))
            ++m_at;
        else if (IsSign("("))
            IsWord("SELECT", 1) ? SubQuery() : Bracketed([this] { Value(); });
        else if (IsSign("(", 1))
            Call();
        else
            Column();
    }

    void Call() {
        const Token& name = m_tokens[m_at];
        const auto* function = std::find_if(std::begin(functions), std::end(functions),
                                            [&](const Function& known) { return name.IsWord(known.name); });
        Expect(function != std::end(functions));
        ++m_at;
        size_t arguments = 0;
        Bracketed([&] {
            if (name.IsWord("COUNT") && TakeSign("*"))
                arguments = 1;
            else
                arguments = List([this] { Value(); });
        });
        if (arguments < function->fewestArguments || arguments > function->mostArguments) RefuseTransactSql(name.text);
    }

    void Values(ParsedComparison* comparison = nullptr) {
        Bracketed([this, comparison] {
            List([this, comparison] {
                const TokenRange value = Noted([this] { Value(); });
                if (comparison) comparison->values.push_back(value);
            });
        });
    }

    void SubQuery() {
        Bracketed([this] { Query(); });
    }

    void Column() {
        Name();
        if (TakeSign(".")) Name();
    }

    void Table() {
        if (Is(TokenKind::Temporary))
            ++m_at;
        else
            Name();
    }

    void Name() {
        Expect(IsName());
        ++m_at;
    }

    bool TakeConstant() {
        const size_t number = IsSign("-") ? 1 : 0;
        if (!Is(TokenKind::Number, number) && !Is(TokenKind::Text) && !Is(TokenKind::Marker, number)) return false;
        m_at += number + 1;
        return true;
    }

    // Tokens

    template <typename Rule>
    size_t List(Rule rule) {
        size_t count = 0;
        do {
            rule();
            ++count;
        } while (TakeSign(","));
        return count;
    }

    template <typename Rule>
    void Bracketed(Rule rule) {
        const size_t opening = m_at;
        ExpectSign("(");
        if (++m_depth > deepestNesting) RefuseTransactSql(m_tokens[opening].text);
        rule();
        if (AtEnd()) RefuseTransactSql(m_tokens[opening].text);
        ExpectSign(")");
        --m_depth;
    }

    bool AtEnd() const { return m_at >= m_tokens.size(); }
    bool Has(size_t distance) const { return m_at + distance < m_tokens.size(); }
    bool Is(TokenKind kind, size_t distance = 0) const { return Has(distance) && m_tokens[m_at + distance].Is(kind); }
    bool IsWord(std::string_view word, size_t distance = 0) const {
        return Has(distance) && m_tokens[m_at + distance].IsWord(word);
    }
    bool IsSign(std::string_view sign, size_t distance = 0) const {
        return Has(distance) && m_tokens[m_at + distance].IsSign(sign);
    }
    bool IsName() const { return Is(TokenKind::Word) && !IsReserved(m_tokens[m_at]); }
    bool TakeWord(std::string_view word) { return IsWord(word) && ++m_at > 0; }
    bool TakeSign(std::string_view sign) { return IsSign(sign) && ++m_at > 0; }
    void ExpectWord(std::string_view word) { Expect(TakeWord(word)); }
    void ExpectSign(std::string_view sign) { Expect(TakeSign(sign)); }
    void Expect(bool isThere) const {
        if (!isThere) Refuse();
    }
    [[noreturn]] void Refuse() const { RefuseTransactSql(AtEnd() ? m_tokens.back().text : m_tokens[m_at].text); }

    std::span<const Token> m_tokens;
    size_t m_at = 0;
    size_t m_depth = 0;
    ParsedStatement m_parsed;
};

}  // namespace

ParsedStatement ParseStatement(std::span<const Token> tokens) { return Parser(tokens).Parse(); }

}  // namespace quellbrook::sql

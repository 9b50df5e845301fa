#include "sql/tsql/TransactSqlShape.h"

#include "base/Text.h"
#include "sql/tsql/TransactSqlCharacters.h"

#include <charconv>
#include <cstring>

namespace quellbrook::sql {

namespace {

constexpr size_t digitsOfInt64 = 18;

using Class = CharacterClass;

class ShapeFinder {
public:
    ShapeFinder(std::string_view source, StatementShape& shape)
        : m_at(source.data()), m_end(source.data() + source.size()), m_copied(m_at), m_shape(shape) {}

    bool Find() {
        while (m_at < m_end)
            if (!Token()) return false;
        m_shape.text.append(m_copied, m_end);
        return !m_isFirst;
    }

private:
    bool Token() {
        switch (ClassOf(*m_at)) {
        case Class::Blank:
            ++m_at;
            m_touches = false;
            return true;
        case Class::Letter: return Word();
        case Class::Digit: return Number();
        case Class::Quote: return Text(m_at, m_at);
        case Class::Mark: return MarkedName();
        case Class::Sign: return Sign();
        case Class::Wide:
        case Class::Odd: break;
        }
        return false;
    }

    const char* NameEnd(const char* at) const {
        while (at < m_end && (ClassOf(*at) == Class::Letter || ClassOf(*at) == Class::Digit)) ++at;
        return at;
    }
    bool EndsName(const char* at) const {
        if (at == m_end) return true;
        const Class next = ClassOf(*at);
        return next != Class::Mark && next != Class::Odd && next != Class::Wide;
    }

    bool Word() {
        const char* const end = NameEnd(m_at);
        const std::string_view word(m_at, static_cast<size_t>(end - m_at));
        if (!EndsName(end)) return false;
        if (word.size() == 1 && end < m_end && *end == '\'') return (*m_at | 0x20) == 'n' && Text(m_at, end);
        KeepApart();
        m_keepsLiteral = m_followsLiteral = m_followsPlus = false;
        if (EqualsNoCase(word, "AS")) m_keepsLiteral = true;
        if (word.size() >= 4 && word.size() <= 7 && !Keyword(word)) return false;
        if (m_isFirst && !m_isChange) return false;
        m_beginsStatement = m_isFirst = false;
        m_at = end;
        m_touches = true;
        return true;
    }

    bool Keyword(std::string_view word) {
        if (EqualsNoCase(word, "LIKE") || EqualsNoCase(word, "ESCAPE")) m_keepsLiteral = true;
        if (EqualsNoCase(word, "CREATE") || EqualsNoCase(word, "DROP") || EqualsNoCase(word, "ORDER") ||
            EqualsNoCase(word, "LIMIT"))
            return false;
        if (!m_beginsStatement) return true;
        m_isDeclaration = EqualsNoCase(word, "DECLARE");
        m_isChange = m_isDeclaration || EqualsNoCase(word, "INSERT") || EqualsNoCase(word, "UPDATE") ||
                     EqualsNoCase(word, "DELETE");
        return true;
    }

    bool Number() {
        const char* end = m_at;
        while (end < m_end && ClassOf(*end) == Class::Digit) ++end;
        const bool goesOn = end < m_end && (*end == '.' || ClassOf(*end) == Class::Letter || !EndsName(end));
        if (goesOn || static_cast<size_t>(end - m_at) > digitsOfInt64 || m_isFirst) return false;
        int64_t number = 0;
        std::from_chars(m_at, end, number);
        m_followsLiteral = false;
        return Literal(m_at, end, number);
    }

    // From the N of a national text or its quote.
    bool Text(const char* from, const char* quote) {
        if (m_followsLiteral || m_followsPlus || m_isFirst) return false;
        bool hasQuotes = false;
        const char* end = quote + 1;
        for (;; end += 2) {
            end = static_cast<const char*>(std::memchr(end, '\'', static_cast<size_t>(m_end - end)));
            if (!end) return false;
            if (end + 1 == m_end || end[1] != '\'') break;
            hasQuotes = true;
        }
        std::string_view inside(quote + 1, static_cast<size_t>(end - quote - 1));
        if (std::memchr(inside.data(), '\0', inside.size())) return false;
        if (hasQuotes) inside = m_shape.unquoted.emplace_back(Replace(inside, "''", "'"));
        const bool taken = Literal(from, end + 1, inside);
        m_followsLiteral = true;
        return taken;
    }

    bool Literal(const char* from, const char* end, std::variant<int64_t, std::string_view> value) {
        if (m_keepsLiteral || m_isDeclaration) {
            KeepApart();
        } else {
            m_shape.values.push_back(value);
            m_shape.text.append(m_copied, from) += '?';
            m_shape.text += std::to_string(m_shape.values.size());
            m_copied = end;
            m_isMarkerOpen = true;
        }
        m_keepsLiteral = m_followsPlus = false;
        m_beginsStatement = m_isFirst = false;
        m_at = end;
        m_touches = true;
        return true;
    }

    bool MarkedName() {
        const char* const end = NameEnd(m_at + 1);
        if (end == m_at + 1 || !EndsName(end)) return false;
        KeepApart();
        return Pass(end);
    }

    bool Sign() {
        const char next = m_at + 1 < m_end ? m_at[1] : '\0';
        if ((*m_at == '-' && next == '-') || (*m_at == '/' && next == '*') ||
            (*m_at == '.' && ClassOf(next) == Class::Digit))
            return false;
        m_isMarkerOpen = false;
        const bool endsStatement = *m_at == ';';
        const bool isPlus = *m_at == '+';
        if ((isPlus && m_followsLiteral) || !Pass(m_at + 1)) return false;
        m_followsPlus = isPlus;
        if (endsStatement) {
            m_beginsStatement = true;
            m_isDeclaration = false;
        }
        return true;
    }

    bool Pass(const char* end) {
        if (m_isFirst) return false;
        m_beginsStatement = m_keepsLiteral = m_followsLiteral = m_followsPlus = false;
        m_at = end;
        m_touches = true;
        return true;
    }

    // What follows a marker without a blank must not become part of it.
    void KeepApart() {
        if (m_isMarkerOpen && m_touches) m_shape.text += ' ';
        m_isMarkerOpen = false;
    }

    const char* m_at;
    const char* const m_end;
    const char* m_copied;  // up to here the source stands in the shape
    StatementShape& m_shape;
    bool m_isFirst = true;
    bool m_beginsStatement = true;
    bool m_isDeclaration = false;
    bool m_isChange = false;
    bool m_keepsLiteral = false;
    bool m_followsLiteral = false;  // a text
    bool m_followsPlus = false;
    bool m_touches = false;
    bool m_isMarkerOpen = false;
};

}  // namespace

bool FindShape(std::string_view source, StatementShape& shape) {
    shape.text.clear();
    shape.values.clear();
    shape.unquoted.clear();
    return ShapeFinder(source, shape).Find();
}

}  // namespace quellbrook::sql

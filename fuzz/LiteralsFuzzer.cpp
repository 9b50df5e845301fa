// SQLite reads the bytes of any literal back unchanged. A pattern matches its text with any text instead of its
// asterisks. Without asterisks, it matches exactly the texts that are equal in the columns' collation. NUL is refused.

#include "base/Error.h"
#include "base/Text.h"
#include "fuzz/ReferenceDatabase.h"
#include "sql/Literals.h"

#include <algorithm>
#include <cstdint>
#include <string>

using namespace quellbrook;
using namespace quellbrook::fuzz;

namespace {

class Answer {
public:
    explicit Answer(const std::string& sql) {
        sqlite3* const database = ReferenceDatabase::Instance().Handle();
        sqlite3_prepare_v2(database, sql.data(), static_cast<int>(sql.size()), &m_statement, nullptr);
        if (!m_statement || sqlite3_step(m_statement) != SQLITE_ROW) Fail(sqlite3_errmsg(database), sql);
    }
    ~Answer() { sqlite3_finalize(m_statement); }
    Answer(const Answer&) = delete;
    Answer& operator=(const Answer&) = delete;

    std::string Text() const {
        const auto* bytes = static_cast<const char*>(sqlite3_column_blob(m_statement, 0));
        return {bytes ? bytes : "", static_cast<size_t>(sqlite3_column_bytes(m_statement, 0))};
    }
    bool Yes() const { return sqlite3_column_int(m_statement, 0) == 1; }

private:
    sqlite3_stmt* m_statement = nullptr;
};

template <typename Operation>
bool IsRefused(Operation operation) {
    try {
        operation();
    } catch (const Error& error) {
        Check(error.Number() == ErrorNumber::General, "Refused with another number", error.Description());
        return true;
    }
    return false;
}

// Maps each byte to a UTF-8 character of one, two or four bytes.
std::string AsCharacters(const uint8_t* data, size_t size) {
    std::string text;
    for (size_t i = 0; i < size; ++i) {
        const auto byte = data[i];
        if (byte < 0x80)
            text += static_cast<char>(byte);
        else if (byte < 0xF0)
            (text += static_cast<char>(0xC2 + byte % 16)) += static_cast<char>(0x80 + byte % 64);
        else
            (text += "\xF0\x9F\x9A") += static_cast<char>(0x80 + byte % 16);
    }
    return text;
}

bool Matches(const std::string& text, const std::string& pattern) {
    const Dialect dialect;
    return Answer("SELECT " + sql::TextLiteral(text, dialect) + " LIKE " + sql::LikeLiteral(pattern, dialect)).Yes();
}

void CheckPattern(const std::string& text) {
    const auto asterisks = std::count(text.begin(), text.end(), '*');
    if (asterisks > 20) return;
    for (const char* run : {"", "x", "any run, '%' and all"})
        Check(Matches(Replace(text, "*", run), text), "A text does not match itself", text);
    if (asterisks == 0)
        Check(!Matches(text + "x", text) && !Matches("x" + text, text), "A longer text is matched", text);
}

void CheckEquality(const std::string& left, const std::string& right) {
    const Dialect dialect;
    const std::string comparison =
        sql::TextLiteral(left, dialect) + " COLLATE NOCASE = " + sql::TextLiteral(right, dialect);
    Check(Answer("SELECT " + comparison).Yes() == Matches(left, right), "= and LIKE differ", left + " " + right);
}

std::string WithOtherCapitals(std::string text) {
    for (char& c : text)
        if ((c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z')) c ^= 0x20;
    return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const Dialect dialect;
    const bool hasNul = text.find('\0') != std::string::npos;
    Check(IsRefused([&] { sql::TextLiteral(text, dialect); }) == hasNul, "NUL is accepted, or another text refused",
          text);
    Check(IsRefused([&] { sql::LikeLiteral(text, dialect); }) == hasNul, "NUL is accepted, or another text refused",
          text);
    if (hasNul) return 0;
    Check(Answer("SELECT " + sql::TextLiteral(text, dialect)).Text() == text, "Another text is read back", text);
    const std::string characters = AsCharacters(data, size);
    CheckPattern(characters);
    if (characters.find('*') != std::string::npos) return 0;
    CheckEquality(WithOtherCapitals(characters), characters);
    CheckEquality(AsCharacters(data, size / 2), AsCharacters(data + size / 2, size - size / 2));
    return 0;
}

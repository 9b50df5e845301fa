#include "database/odbc/OdbcError.h"

#include "base/Text.h"
#include "database/odbc/OdbcHandle.h"
#include "database/odbc/OdbcText.h"

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <array>

namespace quellbrook {

namespace {

// Numbers of SQL Server.
constexpr int32_t uniqueConstraint = 2627, uniqueIndex = 2601, foreignKey = 547, notNull = 515;
constexpr int32_t firstUserNumber = 50000;

// Drivers report all constraints of SQL Server with one state.
bool IsIntegrityViolation(const std::string& state, int32_t number) {
    if (state == "23503" || state == "23505") return true;
    return number == uniqueConstraint || number == uniqueIndex || (number == foreignKey && state == "23000");
}

int32_t NumberOf(const std::string& state, int32_t number) {
    if (IsIntegrityViolation(state, number)) return ErrorNumber::IntegrityViolation;
    return number == 0 ? ErrorNumber::General : number;
}

// Without what the driver puts around them: names in brackets before, and a sentence of its own on the last line.
std::string ServerWords(std::string_view text) {
    while (text.starts_with('[')) {
        const size_t end = text.find(']');
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    if (const size_t line = text.rfind(";\nError while "); line != std::string_view::npos) text = text.substr(0, line);
    if (text.starts_with("ERROR: ")) text.remove_prefix(7);
    return std::string(Trim(text));
}

}  // namespace

OdbcError::OdbcError(std::string source, const std::string& state, int32_t nativeNumber, const std::string& words)
    : Error(NumberOf(state, nativeNumber), std::move(source), ServerWords(words)),
      m_state(state),
      m_nativeNumber(nativeNumber) {}

bool OdbcError::IsLostLink() const { return m_state.starts_with("08") || m_state.starts_with("57P0"); }

bool OdbcError::IsRefusedChange() const {
    return m_state.starts_with("23") || m_state == "P0001" || m_nativeNumber >= firstUserNumber ||
           m_nativeNumber == notNull;
}

void RaiseOdbcError(const OdbcHandle& handle, std::string_view source) {
    std::array<SQLWCHAR, 6> state{};
    SQLINTEGER number = 0;
    std::array<SQLWCHAR, 4096> text{};
    SQLSMALLINT length = 0;
    const SQLRETURN result = SQLGetDiagRecW(static_cast<SQLSMALLINT>(handle.GetKind()), handle.Get(), 1, state.data(),
                                            &number, text.data(), static_cast<SQLSMALLINT>(text.size()), &length);
    if (!SQL_SUCCEEDED(result)) Raise(ErrorNumber::General, source, "The database driver failed without a message.");
    throw OdbcError(std::string(source), ToUtf8(reinterpret_cast<const char16_t*>(state.data())), number,
                    ToUtf8(reinterpret_cast<const char16_t*>(text.data())));
}

}  // namespace quellbrook

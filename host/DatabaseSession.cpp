#include "host/DatabaseSession.h"

#include "base/Error.h"
#include "base/ErrorLog.h"
#include "host/HostDatabase.h"

#include <sodium.h>

namespace quellbrook {

namespace {

const char* const loginSource = "DatabaseSession.Login";

// The cost of a password's hash.
constexpr unsigned long long operations = crypto_pwhash_OPSLIMIT_INTERACTIVE;
constexpr size_t memory = crypto_pwhash_MEMLIMIT_INTERACTIVE;

void RequireSodium() {
    if (sodium_init() < 0)
        Raise(ErrorNumber::General, "DatabaseSession", "Passwords can't be checked on this workstation.");
}

bool IsPassword(const std::string& password, const std::string& hash) {
    RequireSodium();
    return crypto_pwhash_str_verify(hash.c_str(), password.c_str(), password.size()) == 0;
}

// Checked for an unknown name, so that it takes as long as a wrong password. The first call takes long.
const std::string& HashForUnknownUser() {
    static const std::string hash = HashPassword("");
    return hash;
}

}  // namespace

std::string HashPassword(const std::string& password) {
    RequireSodium();
    char hash[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str(hash, password.c_str(), password.size(), operations, memory) != 0)
        Raise(ErrorNumber::General, "HashPassword", "There is not enough memory to store a password safely.");
    return hash;
}

std::string DatabaseSession::AgencyName() const {
    return ToTextOrEmpty(HostDatabase().LookupValue("Setting", "Value", {"Name = 'AgencyName'"}));
}

void DatabaseSession::Login(const std::string& username, const std::string& password, const std::string&) {
    m_username.clear();
    m_limit->RequireTurn();
    const std::string& hashForUnknown = HashForUnknownUser();
    const auto account = HostDatabase().QueryRow(
        "SELECT Username, PasswordHash FROM Account WHERE Username = ? AND IsActive = 1", {username});
    const std::string hash = account ? ToText(account->Value("PasswordHash")) : hashForUnknown;
    if (!IsPassword(password, hash) || !account) {
        m_limit->Failed();
        // The text of an unknown name may be a password that was typed into the wrong field.
        LogFailure(loginSource, account ? "A login as '" + ToText(account->Value("Username")) + "' failed."
                                        : "A login with an unknown user name failed.");
        Raise(ErrorNumber::General, loginSource, "Incorrect user name or password.");
    }
    m_limit->Succeeded();
    m_username = ToText(account->Value("Username"));
    RenewHash(password, hash);
}

// A failure leaves the old hash, which is still valid.
void DatabaseSession::RenewHash(const std::string& password, const std::string& hash) {
    if (crypto_pwhash_str_needs_rehash(hash.c_str(), operations, memory) == 0) return;
    try {
        HostDatabase().ExecuteWithParameters("UPDATE Account SET PasswordHash = ? WHERE Username = ?",
                                             {HashPassword(password), m_username});
    } catch (...) {
        LogFailure(loginSource, CurrentError().Description());
    }
}

bool DatabaseSession::HasPermission(const std::string& moduleKey, int16_t value) {
    if (m_username.empty()) return false;
    return HostDatabase()
        .QueryRow(
            "SELECT r.Value FROM AccountRight r INNER JOIN Account a ON a.Username = r.Username "
            "WHERE a.Username = ? AND a.IsActive = 1 AND r.ModuleKey = ? AND r.Value = ?",
            {m_username, moduleKey, static_cast<int32_t>(value)})
        .has_value();
}

}  // namespace quellbrook

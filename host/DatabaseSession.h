#pragma once

#include "host/HostSession.h"

#include <string>

namespace quellbrook {

// A session based on the accounts in the host's tables (Account, AccountRight) and the setting AgencyName. No user is
// logged in before Login. Each call reads the rights from the database, so a revocation takes effect at once.
class DatabaseSession : public HostSession {
public:
    std::string Username() const override { return m_username; }  // as spelled in the account
    std::string AgencyName() const override;                      // empty if none is set
    // Logs out the previous user, even if the login fails. Error 5 with the same sentence for a wrong name and a wrong
    // password.
    void Login(const std::string& username, const std::string& password, const std::string& domain) override;
    // False while no user is logged in, and for an account that has been closed since.
    bool HasPermission(const std::string& moduleKey, int16_t value) override;

private:
    std::string m_username;
};

// The value of Account.PasswordHash for a password; a new salt at each call.
std::string HashPassword(const std::string& password);

}  // namespace quellbrook

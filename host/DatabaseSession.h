#pragma once

#include "host/HostSession.h"
#include "host/LoginLimit.h"

#include <memory>
#include <string>

namespace quellbrook {

// A session based on the accounts in the host's tables (Account, AccountRight) and the setting AgencyName. No user is
// logged in before Login. Each call reads the rights from the database, so a revocation takes effect at once.
class DatabaseSession : public HostSession {
public:
    // A program gives all its sessions the same limit. By default, a session has its own.
    explicit DatabaseSession(std::shared_ptr<LoginLimit> limit = std::make_shared<LoginLimit>())
        : m_limit(std::move(limit)) {}

    std::string Username() const override { return m_username; }  // as spelled in the account
    std::string AgencyName() const override;                      // empty if none is set
    // Logs out the previous user, even if the login fails. Error 5 with the same sentence for a wrong name and a wrong
    // password, and while the limit makes attempts wait. Failed attempts are logged. A password hash of another cost
    // than HashPassword's is renewed.
    void Login(const std::string& username, const std::string& password, const std::string& domain) override;
    // False while no user is logged in, and for an account that has been closed since.
    bool HasPermission(const std::string& moduleKey, int16_t value) override;

private:
    void RenewHash(const std::string& password, const std::string& hash);

    std::shared_ptr<LoginLimit> m_limit;
    std::string m_username;
};

// The value of Account.PasswordHash for a password; a new salt at each call.
std::string HashPassword(const std::string& password);

}  // namespace quellbrook

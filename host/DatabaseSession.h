#pragma once

#include "host/HostSession.h"

#include <string>

namespace quellbrook {

// A session over the accounts in the host's own tables: Account, AccountRight, and the setting AgencyName. Nobody is
// logged in until Login. Rights are asked of the database at each call, so that what is revoked there counts at once.
class DatabaseSession : public HostSession {
public:
    std::string Username() const override { return m_username; }  // as the account writes it
    std::string AgencyName() const override;                      // the empty text where none is set
    // Whoever was logged in is logged out, also when this fails. Error 5 with one sentence, whichever half was wrong.
    void Login(const std::string& username, const std::string& password, const std::string& domain) override;
    // False while nobody is logged in, and for an account that has been closed meanwhile.
    bool HasPermission(const std::string& moduleKey, int16_t value) override;

private:
    std::string m_username;
};

// What Account.PasswordHash holds for the password; a new salt at each call.
std::string HashPassword(const std::string& password);

}  // namespace quellbrook

#pragma once

#include "access/Permissions.h"

#include <string>

namespace quellbrook {

// Who is logged in, and what they may do. Nothing is kept: every question goes to the host's session.
class UserStatic {
public:
    std::string Username() const;
    bool IsAuthenticated() const;
    // With nobody logged in every right reads as granted; the access gate is what turns such a user away.
    bool Can(const PermissionDefinition& perm) const;
    void Authenticate(const std::string& userId, const std::string& password);
};

UserStatic& GetUser();

}  // namespace quellbrook

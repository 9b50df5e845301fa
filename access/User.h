#pragma once

#include "access/Permissions.h"

#include <string>

namespace quellbrook {

// The logged-in user and their rights. Nothing is cached; every call queries the host's session.
class UserStatic {
public:
    std::string Username() const;
    bool IsAuthenticated() const;
    // True for every right while no user is logged in; the access gate refuses such a user.
    bool Can(const PermissionDefinition& perm) const;
    void Authenticate(const std::string& userId, const std::string& password);
};

UserStatic& GetUser();

}  // namespace quellbrook

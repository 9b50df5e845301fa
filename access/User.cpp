#include "access/User.h"

#include "host/HostServices.h"

namespace quellbrook {

std::string UserStatic::Username() const { return HostServices::Current().Session().Username(); }

bool UserStatic::IsAuthenticated() const { return !Username().empty(); }

bool UserStatic::Can(const PermissionDefinition& perm) const {
    if (!IsAuthenticated()) return true;
    return HostServices::Current().Session().HasPermission(perm.ModuleKey, perm.Value);
}

void UserStatic::Authenticate(const std::string& userId, const std::string& password) {
    HostServices::Current().Session().Login(userId, password, "");
}

UserStatic& GetUser() {
    static UserStatic user;
    return user;
}

}  // namespace quellbrook

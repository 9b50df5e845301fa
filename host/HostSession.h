#pragma once

#include <cstdint>
#include <string>

namespace quellbrook {

// The host's logged-in session. While no user is logged in, the access gate refuses, but the classes of the model check
// no rights.
class HostSession {
public:
    virtual ~HostSession() = default;

    virtual std::string Username() const = 0;    // empty while no user is logged in
    virtual std::string AgencyName() const = 0;  // as printed on labels
    // For the host's own login form; the component does not call it. The third text is always empty. Error 5 with a
    // sentence if the host refuses.
    virtual void Login(const std::string& username, const std::string& password, const std::string& domain) = 0;
    // False for an unknown module. Asked at each use of a right, so it must be fast.
    virtual bool HasPermission(const std::string& moduleKey, int16_t value) = 0;
};

}  // namespace quellbrook

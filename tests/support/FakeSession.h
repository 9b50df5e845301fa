#pragma once

#include "access/Permissions.h"
#include "base/Error.h"
#include "host/HostServices.h"
#include "host/HostSession.h"

#include <functional>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quellbrook::testing {

// A session whose user, department and rights a test sets. Login accepts any user with the password "right".
class FakeSession : public HostSession {
public:
    std::string username = "jdoe";
    std::string agencyName = "Harbor Police";
    bool grantsAll = true;                              // until GrantNothing
    std::set<std::pair<std::string, int16_t>> rights;   // used while grantsAll is false
    std::set<std::pair<std::string, int16_t>> revoked;  // always used
    int questions = 0;                                  // calls of HasPermission
    std::function<void()> atQuestion;                   // runs in each of them
    std::vector<std::string> domains;                   // one for each Login

    std::string Username() const override { return username; }
    std::string AgencyName() const override { return agencyName; }

    void Login(const std::string& user, const std::string& password, const std::string& domain) override {
        domains.push_back(domain);
        if (password != "right") Raise(ErrorNumber::General, "FakeSession.Login", "Incorrect user name or password.");
        username = user;
    }

    bool HasPermission(const std::string& moduleKey, int16_t value) override {
        ++questions;
        if (atQuestion) atQuestion();
        const std::pair<std::string, int16_t> right(moduleKey, value);
        return revoked.count(right) == 0 && (grantsAll || rights.count(right) > 0);
    }

    void GrantNothing() {
        grantsAll = false;
        rights.clear();
    }
    void Grant(const PermissionDefinition& right) {
        revoked.erase({right.ModuleKey, right.Value});
        rights.insert({right.ModuleKey, right.Value});
    }
    void Grant(const std::string& moduleKey, int16_t value) { Grant(PermissionDefinition{moduleKey, value}); }
    void Revoke(const PermissionDefinition& right) {
        rights.erase({right.ModuleKey, right.Value});
        revoked.insert({right.ModuleKey, right.Value});
    }
};

// A FakeSession that is installed as the host's session for its own lifetime.
class SessionScope {
public:
    SessionScope() { HostServices::Current().SetSession(m_session); }
    ~SessionScope() { HostServices::Current().SetSession(nullptr); }
    SessionScope(const SessionScope&) = delete;
    SessionScope& operator=(const SessionScope&) = delete;

    FakeSession* operator->() const { return m_session.get(); }
    FakeSession& operator*() const { return *m_session; }

private:
    std::shared_ptr<FakeSession> m_session = std::make_shared<FakeSession>();
};

}  // namespace quellbrook::testing

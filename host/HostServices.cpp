#include "host/HostServices.h"

#include "base/Error.h"
#include "host/HostLocationData.h"

namespace quellbrook {

HostServices& HostServices::Current() {
    static HostServices services;
    return services;
}

void HostServices::SetEngine(std::shared_ptr<Engine> engine) {
    HostLocationData::Discard();
    m_pool = engine ? std::make_unique<ConnectionPool>(std::move(engine)) : nullptr;
}

ConnectionPool& HostServices::Pool() {
    if (!m_pool) Raise(ErrorNumber::General, "HostServices.Pool", "No database has been opened.");
    return *m_pool;
}

void HostServices::SetSession(std::shared_ptr<HostSession> session) { m_session = std::move(session); }

HostSession& HostServices::Session() { return *Require(m_session, "HostServices.Session"); }

}  // namespace quellbrook

#pragma once

#include "host/HostSession.h"
#include "host/engines/ConnectionPool.h"

#include <functional>
#include <memory>
#include <string>

namespace quellbrook {

// The host's regional formats. Dates and times are patterns of d, M, y, H, h, m, s and "AP" as Qt and ICU read them;
// the currency is a pattern with "%d" in place of the amount.
struct HostFormats {
    std::string currency = "$%d";
    std::string date = "MM/dd/yyyy";
    std::string time = "h:mm AP";
};

// What the host hands to the module before anything else: its database, its session, its formats. One for the process.
class HostServices {
public:
    static HostServices& Current();

    // Null ends the use of a database; every cached document goes with it.
    void SetEngine(std::shared_ptr<Engine> engine);
    bool HasEngine() const { return m_pool != nullptr; }
    // Error 5 with a sentence while no database is set.
    ConnectionPool& Pool();

    void SetSession(std::shared_ptr<HostSession> session);
    // Error 91 while no session is set.
    HostSession& Session();

    void SetFormats(HostFormats formats) { m_formats = std::move(formats); }
    const HostFormats& Formats() const { return m_formats; }

private:
    std::unique_ptr<ConnectionPool> m_pool;
    std::shared_ptr<HostSession> m_session;
    HostFormats m_formats;
};

}  // namespace quellbrook

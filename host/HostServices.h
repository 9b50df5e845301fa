#pragma once

#include "database/ConnectionPool.h"
#include "host/HostFiles.h"
#include "host/HostSession.h"
#include "host/ThumbnailReader.h"
#include "labels/LabelPrinter.h"

#include <functional>
#include <memory>
#include <string>

namespace quellbrook {

// The host's regional formats. Dates and times are patterns of d, M, y, H, h, m, s and "AP" as in Qt and ICU; the
// currency is a pattern with "%d" for the amount.
struct HostFormats {
    std::string currency = "$%d";
    std::string date = "MM/dd/yyyy";
    std::string time = "h:mm AP";
};

// The services that the host provides before it runs the access gate, on the thread of the component: its database and
// session, which are required, its formats and files, and this workstation's label printer. One per process. A service
// reports a failure as an Error; other exceptions are treated as Errors with their what().
class HostServices {
public:
    static HostServices& Current();

    // Drops everything that was set.
    void Reset();

    // Also drops every cached document. Null: no database.
    void SetEngine(std::shared_ptr<Engine> engine);
    bool HasEngine() const { return m_pool != nullptr; }
    // Error 5 with a sentence while no database is set.
    ConnectionPool& Pool();

    void SetSession(std::shared_ptr<HostSession> session);
    // Error 91 while no session is set.
    HostSession& Session();

    void SetFiles(std::shared_ptr<HostFiles> files);
    // These raise Error 5 with a sentence while the service is not set.
    HostFiles& Files();

    void SetThumbnails(std::shared_ptr<ThumbnailReader> thumbnails);
    ThumbnailReader& Thumbnails();

    void SetPrinter(std::shared_ptr<LabelPrinter> printer);
    LabelPrinter& Printer();

    void SetFormats(HostFormats formats) { m_formats = std::move(formats); }
    const HostFormats& Formats() const { return m_formats; }

private:
    std::unique_ptr<ConnectionPool> m_pool;
    std::shared_ptr<HostSession> m_session;
    std::shared_ptr<HostFiles> m_files;
    std::shared_ptr<ThumbnailReader> m_thumbnails;
    std::shared_ptr<LabelPrinter> m_printer;
    HostFormats m_formats;
};

}  // namespace quellbrook

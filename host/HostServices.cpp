#include "host/HostServices.h"

#include "base/Error.h"
#include "host/HostLocationData.h"

namespace quellbrook {

namespace {

template <typename Service>
Service& RequireSet(const std::shared_ptr<Service>& service, const char* source, const char* sentence) {
    if (!service) Raise(ErrorNumber::General, source, sentence);
    return *service;
}

}  // namespace

HostServices& HostServices::Current() {
    static HostServices services;
    return services;
}

void HostServices::Reset() {
    HostLocationData::Discard();
    *this = HostServices();
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

void HostServices::SetFiles(std::shared_ptr<HostFiles> files) { m_files = std::move(files); }

HostFiles& HostServices::Files() {
    return RequireSet(m_files, "HostServices.Files", "The host has no folder for its files.");
}

void HostServices::SetThumbnails(std::shared_ptr<ThumbnailReader> thumbnails) { m_thumbnails = std::move(thumbnails); }

ThumbnailReader& HostServices::Thumbnails() {
    return RequireSet(m_thumbnails, "HostServices.Thumbnails", "The host has no folder for attachments.");
}

void HostServices::SetPrinter(std::shared_ptr<LabelPrinter> printer) { m_printer = std::move(printer); }

LabelPrinter& HostServices::Printer() {
    return RequireSet(m_printer, "HostServices.Printer", "No label printer has been chosen.");
}

}  // namespace quellbrook

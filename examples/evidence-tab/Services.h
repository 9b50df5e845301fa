#pragma once

#include "base/ErrorLog.h"
#include "host/HostFiles.h"
#include "host/HostSession.h"
#include "host/ThumbnailReader.h"

#include <filesystem>
#include <set>
#include <string>
#include <utility>

// What this host provides to the component. Each class answers from what the host has: here, from constants and
// resources of the program.

// The users of this host and their rights. A host with accounts of its own asks them here.
class Session : public quellbrook::HostSession {
public:
    std::string Username() const override { return m_user; }
    std::string AgencyName() const override { return "Harlow Bay Police Department"; }
    void Login(const std::string& username, const std::string& password, const std::string& domain) override;
    bool HasPermission(const std::string& moduleKey, int16_t value) override;

    void LogOut() { *this = Session(); }

private:
    std::string m_user;
    std::set<std::pair<std::string, int16_t>> m_rights;
};

// The host's files. The component reads the label templates with it.
class Files : public quellbrook::HostFiles {
public:
    std::string ReadFile(const std::string& relativePath) override;
};

// Finds the picture of an attachment: here, a preview that another program of the host has written beside it.
class Thumbnails : public quellbrook::ThumbnailReader {
public:
    explicit Thumbnails(std::filesystem::path folder) : m_folder(std::move(folder)) {}
    std::string Read(const std::string& path) override;

private:
    std::filesystem::path m_folder;
};

// Where failures are written that no user has to act on, and the details of those that a user has seen.
class StandardErrorLog : public quellbrook::ErrorLog {
public:
    void Log(const std::string& application, const std::string& source, const std::string& message) override;
};

#include "Services.h"

#include "base/Error.h"

#include <QFile>
#include <QString>

#include <cstdio>

using quellbrook::ErrorNumber::General;

namespace {

// The rights that the component asks for, by module and number.
const std::set<std::pair<std::string, int16_t>> viewing = {
    {"MIProperty", 0},  // view property
    {"MIVehicle", 0},   // view vehicles
    {"Storage", 0},     // view the chain of custody
};
const std::set<std::pair<std::string, int16_t>> changing = {
    {"Storage", 1},              // transfer items
    {"Storage", 11},             // add locations
    {"Storage", 12},             // edit locations
    {"Storage", 13},             // delete locations
    {"Storage", 15},             // dispose of items
    {"EvidenceManagement", 11},  // print labels
};

struct User {
    const char* name;
    const char* password;
    bool mayChange;
};
constexpr User users[] = {{"custodian", "lantern", true}, {"auditor", "harbor", false}, {"visitor", "pier", false}};

}  // namespace

// The sentence of the error is shown to the user as it is.
void Session::Login(const std::string& username, const std::string& password, const std::string&) {
    LogOut();
    for (const User& user : users) {
        if (username != user.name || password != user.password) continue;
        m_user = username;
        if (username != "visitor") m_rights = viewing;
        if (user.mayChange) m_rights.insert(changing.begin(), changing.end());
        return;
    }
    quellbrook::Raise(General, "Session.Login", "Incorrect user name or password.");
}

bool Session::HasPermission(const std::string& moduleKey, int16_t value) {
    return m_rights.count({moduleKey, value}) > 0;
}

std::string Files::ReadFile(const std::string& relativePath) {
    QFile file(":/" + QString::fromStdString(relativePath).replace('\\', '/'));
    if (!file.open(QIODevice::ReadOnly))
        quellbrook::Raise(General, "Files.ReadFile", "The file '" + relativePath + "' can't be found.");
    return file.readAll().toStdString();
}

std::string Thumbnails::Read(const std::string& path) {
    const std::filesystem::path preview = m_folder / (path + ".png");
    if (!std::filesystem::exists(preview))
        quellbrook::Raise(General, "Thumbnails.Read", "The attachment '" + path + "' has no preview.");
    return preview.string();
}

void StandardErrorLog::Log(const std::string& application, const std::string& source, const std::string& message) {
    std::fprintf(stderr, "%s: %s: %s\n", application.c_str(), source.c_str(), message.c_str());
}

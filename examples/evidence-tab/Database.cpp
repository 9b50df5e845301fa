#include "Database.h"

#include <sqlite3.h>

#include <QByteArray>
#include <QFile>

#include <memory>
#include <stdexcept>

namespace {

struct Close {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Database = std::unique_ptr<sqlite3, Close>;
using Statement = std::unique_ptr<sqlite3_stmt, Close>;

Database Open(const std::string& path, int flags) {
    sqlite3* opened = nullptr;
    const int code = sqlite3_open_v2(path.c_str(), &opened, flags, nullptr);
    Database database(opened);
    if (code != SQLITE_OK) throw std::runtime_error("The file '" + path + "' can't be opened.");
    return database;
}

void Run(sqlite3* database, const QString& resource) {
    QFile file(resource);
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("A resource of the program is missing.");
    if (sqlite3_exec(database, file.readAll().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(database));
}

}  // namespace

void CreateRecords(const std::string& path) {
    if (QFile::exists(QString::fromStdString(path))) return;
    const Database database = Open(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    Run(database.get(), ":/schema.sql");
    Run(database.get(), ":/rows.sql");
}

int64_t ReadNumber(const std::string& path, const std::string& sql) {
    const Database database = Open(path, SQLITE_OPEN_READWRITE);
    sqlite3_stmt* prepared = nullptr;
    sqlite3_prepare_v2(database.get(), sql.c_str(), -1, &prepared, nullptr);
    const Statement statement(prepared);
    if (!statement || sqlite3_step(statement.get()) != SQLITE_ROW)
        throw std::runtime_error(sqlite3_errmsg(database.get()));
    return sqlite3_column_int64(statement.get(), 0);
}

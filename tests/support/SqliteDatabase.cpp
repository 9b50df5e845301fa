#include "tests/support/RawDatabase.h"

#include "base/Error.h"
#include "base/Text.h"
#include "database/SqliteEngine.h"
#include "database/schema/SqliteSchema.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <unistd.h>
#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace quellbrook::testing {

namespace {

std::string ScratchPath() {
    static std::atomic<int> count = 0;
    const std::string name = "quellbrook-" + std::to_string(getpid()) + "-" + std::to_string(++count) + ".db";
    return (std::filesystem::temp_directory_path() / name).string();
}

void RemoveDatabase(const std::string& path) {
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(path + suffix);
}

// The bytes of an empty department database, created once per process.
const std::string& EmptyDatabase() {
    static const std::string bytes = [] {
        const std::string path = ScratchPath();
        CreateDatabase(path);
        std::ifstream file(path, std::ios::binary);
        std::string content((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        file.close();
        RemoveDatabase(path);
        return content;
    }();
    return bytes;
}

void Bind(SQLite::Statement& statement, int position, const TaggedValue& value) {
    if (const auto* number = value.If<int32_t>())
        statement.bind(position, *number);
    else if (const auto* flag = value.If<bool>())
        statement.bind(position, *flag ? 1 : 0);
    else if (const auto* fraction = value.If<double>())
        statement.bind(position, *fraction);
    else if (const auto* exact = value.If<Decimal>())
        statement.bind(position, exact->ToDouble());
    else if (value.HasNoValue())
        statement.bind(position);
    else
        statement.bind(position, ToText(value));
}

TaggedValue ValueOf(const SQLite::Column& column) {
    if (column.isNull()) return Null();
    if (column.isInteger()) return TaggedValue::FromInteger(column.getInt64());
    if (column.isFloat()) return column.getDouble();
    return column.getString();
}

class SqliteDatabase : public RawDatabase {
public:
    SqliteDatabase() : m_path(ScratchPath()) {
        const std::string& bytes = EmptyDatabase();
        std::ofstream(m_path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        m_database = std::make_unique<SQLite::Database>(m_path, SQLite::OPEN_READWRITE, SqliteEngine::BusyMilliseconds);
        m_database->exec("PRAGMA foreign_keys = ON");
        m_database->exec("PRAGMA recursive_triggers = ON");
        m_database->exec("PRAGMA synchronous = OFF");
    }
    ~SqliteDatabase() override {
        m_database.reset();
        RemoveDatabase(m_path);
    }

    std::string Path() const override { return m_path; }
    std::shared_ptr<Engine> OpenEngine() override { return SqliteEngine::Open(m_path); }

    int32_t Insert(const std::string& table, const Cells& cells) override {
        Execute(InsertText(table, cells), ValuesOf(cells));
        return static_cast<int32_t>(m_database->getLastInsertRowid());
    }

    void Execute(const std::string& sql, const std::vector<TaggedValue>& parameters) override {
        try {
            SQLite::Statement statement(*m_database, sql);
            for (size_t i = 0; i < parameters.size(); ++i) Bind(statement, static_cast<int>(i) + 1, parameters[i]);
            while (statement.executeStep()) {
            }
        } catch (const SQLite::Exception& failure) {
            Raise(failure.getExtendedErrorCode(), "TestDatabase.Execute", failure.what());
        }
    }

    RowList QueryRows(const std::string& sql) override {
        try {
            SQLite::Statement statement(*m_database, sql);
            std::vector<std::string> names;
            for (int i = 0; i < statement.getColumnCount(); ++i) names.emplace_back(statement.getColumnName(i));
            const auto columns = std::make_shared<const ColumnSet>(std::move(names));
            RowList rows;
            while (statement.executeStep()) {
                std::vector<TaggedValue> values;
                for (int i = 0; i < statement.getColumnCount(); ++i) values.push_back(ValueOf(statement.getColumn(i)));
                rows.emplace_back(columns, std::move(values));
            }
            return rows;
        } catch (const SQLite::Exception& failure) {
            Raise(failure.getExtendedErrorCode(), "TestDatabase.QueryRows", failure.what());
        }
    }

    std::vector<std::string> TableNames() override {
        std::vector<std::string> names;
        for (const Row& table : QueryRows("SELECT name FROM sqlite_schema WHERE type = 'table' AND "
                                          "name NOT LIKE 'PropertyDescription%'"))
            names.push_back(ToText(table.At(0)));
        return names;
    }

    void NumberVehiclesFrom(int32_t first) override {
        Execute("INSERT INTO sqlite_sequence (name, seq) VALUES ('Vehicle', ?)", {first - 1});
    }

    void CheckForeignKeys(bool checks) override {
        m_database->exec(checks ? "PRAGMA foreign_keys = ON" : "PRAGMA foreign_keys = OFF");
    }

private:
    std::string m_path;
    std::unique_ptr<SQLite::Database> m_database;
};

}  // namespace

std::unique_ptr<RawDatabase> MakeSqliteDatabase() { return std::make_unique<SqliteDatabase>(); }

std::string InsertText(const std::string& table, const RawDatabase::Cells& cells) {
    std::vector<std::string> names;
    for (const auto& cell : cells) names.push_back(cell.first);
    return "INSERT INTO " + table + " (" + Join(names, ", ") + ") VALUES (" +
           Join(std::vector<std::string>(cells.size(), "?"), ", ") + ")";
}

std::vector<TaggedValue> ValuesOf(const RawDatabase::Cells& cells) {
    std::vector<TaggedValue> values;
    for (const auto& cell : cells) values.push_back(cell.second);
    return values;
}

}  // namespace quellbrook::testing

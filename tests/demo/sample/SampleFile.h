#pragma once

#include "demo/sample/SampleDepartment.h"
#include "tests/support/ScratchFolder.h"

#include <SQLiteCpp/SQLiteCpp.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook::testing {

// A department file in a scratch folder, read through a separate connection.
class SampleFile {
public:
    explicit SampleFile(const SampleOptions& options = {}) {
        CreateSampleDepartment(Path(), options);
        m_database = std::make_unique<SQLite::Database>(Path());
    }

    std::string Path() const { return m_folder.In("sample.sqlite"); }
    // The folder of the file.
    const std::string& Folder() const { return m_folder.Path(); }

    // Rows of a SELECT, the columns of each joined by "|".
    std::vector<std::string> Rows(const std::string& select) const {
        std::vector<std::string> rows;
        SQLite::Statement statement(*m_database, select);
        while (statement.executeStep()) {
            std::string row;
            for (int column = 0; column < statement.getColumnCount(); ++column) {
                if (column > 0) row += "|";
                row += statement.getColumn(column).isNull() ? "NULL" : statement.getColumn(column).getString();
            }
            rows.push_back(std::move(row));
        }
        return rows;
    }
    int64_t Number(const std::string& select) const { return std::stoll(Rows(select).at(0)); }

    // Every row of every table, without password hashes.
    std::string Content() const {
        std::string content;
        for (const std::string& table : Rows("SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE "
                                             "'sqlite%' AND name NOT LIKE 'PropertyDescription%' ORDER BY name")) {
            const std::string columns = table == "Account" ? "Username, PersonNo, IsActive" : "*";
            content += table + "\n";
            std::vector<std::string> rows = Rows("SELECT " + columns + " FROM " + table);
            std::sort(rows.begin(), rows.end());
            for (const std::string& row : rows) content += row + "\n";
        }
        return content;
    }

private:
    ScratchFolder m_folder;
    std::unique_ptr<SQLite::Database> m_database;
};

// The sample department, created once per process. Do not change it.
inline const SampleFile& TheSample() {
    static const SampleFile sample;
    return sample;
}

// Writes a copy of its file, for a test that changes it.
inline void CopySample(const std::string& path) { std::filesystem::copy_file(TheSample().Path(), path); }

}  // namespace quellbrook::testing

#include "database/odbc/DepartmentCopy.h"

#include "base/Text.h"
#include "database/odbc/OdbcConnection.h"
#include "sql/Literals.h"

#include <iterator>
#include <string>
#include <vector>

namespace quellbrook {

namespace {

// The most that SQL Server takes in one statement is 1000.
constexpr size_t rowsOfStatement = 500;

struct Table {
    const char* name;
    const char* columns;
    const char* identity = nullptr;
    const char* order = nullptr;
};

// In an order in which each row finds those that it refers to. A container comes before what it contains.
const Table tables[] = {
    {"StorageLocation", "IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated", "IdNo", "Path"},
    {"CodeTable", "TableNumber, Code, Name, Description, IsActive"},
    {"Person", "PersonNo, Title, FirstName, LastName, IsActive"},
    {"Account", "Username, PasswordHash, PersonNo, IsActive"},
    {"AccountRight", "Username, ModuleKey, Value"},
    {"Setting", "Name, Value"},
    {"Incident", "IncidentNo, IncidentId, CaseNbr, IsSecured", "IncidentNo"},
    {"AttachmentFolder", "FolderNo, Path", "FolderNo"},
    {"AttachmentIndex", "IdNo, ObjTypeInd, SeqNo, FolderNo, FileName"},
    {"Property",
     "PropertyNo, PropertyID, Description, CategoryNo, Quantity, PropertyValue, ManufacNbr, ModelNbr, SerialNbr, "
     "RecordTypeInd, CurrTrackSeq, CurrImageSeq, HasFinalDisposition, DisposalNote, CurrStatusNo",
     "PropertyNo"},
    {"Vehicle",
     "VehicleNo, RegNumber, RegStateCode, VehYear, ColorCode, MakeCode, VehModel, CategoryNo, RecordTypeInd, "
     "CurrTrackSeq, CurrImageSeq, HasFinalDisposition, DisposalNote, CurrStatusNo",
     "VehicleNo"},
    {"PropertyTracking",
     "PropertyNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo, StorageLocNo, LastUpdated"},
    {"VehicleTracking",
     "VehicleNo, SeqNo, ReceivedBy, ReceivedFrom, DateReceived, CustodyReasonNo, StorageLocNo, LastUpdated"},
    {"IncdProperty", "IncidentNo, PropertyNo"},
    {"IncdVehicle", "IncidentNo, VehicleNo"},
};

class TableCopy {
public:
    TableCopy(const Table& table, OdbcConnection& to) : m_table(table), m_to(to) {
        if (to.Server() == ServerKind::SqlServer) m_dialect.textPrefix = "N";
    }

    void Add(const Row& row) {
        std::vector<std::string> literals;
        for (size_t i = 0; i < row.Columns().Names().size(); ++i)
            literals.push_back(sql::ValueLiteral(row.At(static_cast<int>(i)), m_dialect));
        m_rows.push_back("(" + Join(literals, ",") + ")");
        if (m_rows.size() == rowsOfStatement) Send();
    }

    void Send() {
        if (m_rows.empty()) return;
        const bool setsIdentity = m_table.identity && m_to.Server() == ServerKind::SqlServer;
        const std::string name = m_table.name;
        std::string text = "INSERT INTO " + name + " (" + m_table.columns + ") VALUES\n" + Join(m_rows, ",\n");
        if (setsIdentity)
            text = "SET IDENTITY_INSERT " + name + " ON;\n" + text + ";\nSET IDENTITY_INSERT " + name + " OFF";
        m_to.ExecuteNative(text);
        m_rows.clear();
    }

private:
    const Table& m_table;
    OdbcConnection& m_to;
    Dialect m_dialect;
    std::vector<std::string> m_rows;
};

void Copy(const Table& table, Connection& from, OdbcConnection& to) {
    TableCopy copy(table, to);
    std::string query = "SELECT " + std::string(table.columns) + " FROM " + table.name;
    if (table.order) query += " ORDER BY " + std::string(table.order);
    from.Query(query, {}, [&](const Row& row) {
        copy.Add(row);
        return true;
    });
    copy.Send();
}

// SQL Server follows the keys by itself.
void ContinueKeys(const Table& table, OdbcConnection& to) {
    if (!table.identity || to.Server() != ServerKind::PostgreSql) return;
    const std::string name = FoldCase(table.name), column = FoldCase(table.identity);
    to.ExecuteNative("SELECT setval(pg_get_serial_sequence('" + name + "', '" + column + "'), MAX(" + column +
                     ")) FROM " + name);
}

// SQL Server checks the pointers to the custody rows at each statement.
void CheckPointers(OdbcConnection& to, bool checks) {
    if (to.Server() != ServerKind::SqlServer) return;
    for (const char* table : {"Property", "Vehicle"})
        to.ExecuteNative(std::string("ALTER TABLE ") + table + (checks ? " WITH CHECK CHECK" : " NOCHECK") +
                         " CONSTRAINT ALL");
}

}  // namespace

void CopyDepartment(Connection& from, OdbcConnection& to, const std::function<void(int percent)>& progress) {
    CheckPointers(to, false);
    int done = 0;
    for (const Table& table : tables) {
        Copy(table, from, to);
        ContinueKeys(table, to);
        if (progress) progress(++done * 100 / static_cast<int>(std::size(tables)));
    }
    CheckPointers(to, true);
}

}  // namespace quellbrook

#include "database/odbc/DepartmentCopy.h"

#include "database/SqliteEngine.h"
#include "demo/sample/SampleDepartment.h"
#include "tests/server/ServerTest.h"
#include "tests/support/ScratchFolder.h"

#include <algorithm>

namespace quellbrook::testing {
namespace {

using Texts = std::vector<std::string>;

class DepartmentCopy : public ServerTest {
protected:
    DepartmentCopy() {
        CreateSampleDepartment(m_folder.In("sample.sqlite"), {1000});
        m_from = SqliteEngine::Open(m_folder.In("sample.sqlite"))->Open();
    }

    // Numbers by their value, since engines return them in different types.
    static Texts Rows(Connection& connection, const std::string& query) {
        Texts rows;
        connection.Query(query, {}, [&](const Row& row) {
            std::string text;
            for (size_t i = 0; i < row.Columns().Names().size(); ++i) {
                const TaggedValue& value = row.At(static_cast<int>(i));
                const bool isNumber = value.Holds<double>() || value.Holds<Decimal>();
                text += value.IsNull() ? "NULL|" : (isNumber ? ToText(ToDouble(value)) : ToText(value)) + "|";
            }
            rows.push_back(text);
            return true;
        });
        std::sort(rows.begin(), rows.end());
        return rows;
    }

    ScratchFolder m_folder;
    std::unique_ptr<Connection> m_from;
    OdbcConnection m_to{TestServer(), ServerLimits()};
};

TEST_F(DepartmentCopy, HasEveryRowOfTheOriginal) {
    int last = 0;
    m_to.Begin();
    CopyDepartment(*m_from, m_to, [&](int percent) {
        EXPECT_GE(percent, last);
        last = percent;
    });
    m_to.Commit();
    EXPECT_EQ(last, 100);
    for (const char* query :
         {"SELECT IdNo, Name, Type, Path, ActiveFlag, DateEntered, LastUpdated FROM StorageLocation",
          "SELECT TableNumber, Code, Name, Description, IsActive FROM CodeTable",
          "SELECT PersonNo, DisplayName, IsActive FROM Person", "SELECT Username, PasswordHash, PersonNo FROM Account",
          "SELECT Username, ModuleKey, Value FROM AccountRight", "SELECT Name, Value FROM Setting",
          "SELECT IncidentNo, IncidentId, CaseNbr, IsSecured FROM Incident",
          "SELECT FolderNo, Path FROM AttachmentFolder",
          "SELECT IdNo, ObjTypeInd, SeqNo, FolderNo, FileName FROM AttachmentIndex",
          "SELECT PropertyNo, PropertyID, Description, CategoryNo, Quantity, PropertyValue, ManufacNbr, ModelNbr, "
          "SerialNbr, RecordTypeInd, CurrTrackSeq, CurrImageSeq, HasFinalDisposition, DisposalNote FROM Property",
          "SELECT VehicleNo, RegNumber, RegStateCode, VehYear, MakeCode, CategoryNo, CurrTrackSeq FROM Vehicle",
          "SELECT PropertyNo, SeqNo, ReceivedBy, DateReceived, StorageLocNo, LastUpdated FROM PropertyTracking",
          "SELECT VehicleNo, SeqNo, ReceivedBy, DateReceived, StorageLocNo, LastUpdated FROM VehicleTracking",
          "SELECT IncidentNo, PropertyNo FROM IncdProperty", "SELECT IncidentNo, VehicleNo FROM IncdVehicle",
          "SELECT StorageLocNo, ItemType, ItemNo FROM CurrentPlace"}) {
        const Texts expected = Rows(*m_from, query);
        EXPECT_FALSE(expected.empty()) << query;
        EXPECT_EQ(Rows(m_to, query), expected) << query;
    }
}

TEST_F(DepartmentCopy, NewRowsGetNewKeys) {
    m_to.Begin();
    CopyDepartment(*m_from, m_to, nullptr);
    m_to.Commit();
    int32_t greatest = 0;
    m_to.Query("SELECT MAX(PropertyNo) AS N FROM Property", {}, [&](const Row& row) {
        greatest = ToInt32(row.At(0));
        return true;
    });
    EXPECT_EQ(m_to.Insert("INSERT INTO Property (PropertyID) VALUES (?)", {"new"}, "PropertyNo"), greatest + 1);
}

}  // namespace
}  // namespace quellbrook::testing

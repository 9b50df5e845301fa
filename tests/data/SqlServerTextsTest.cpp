// What SQL Server is sent: its engine passes texts on unchanged. The rows come from SQLite.

#include "core/CartStore.h"
#include "data/StoredItemSearch.h"
#include "data/TransferStatements.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/Items.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingEngine.h"
#include "tests/support/TestLocations.h"
#include "tests/support/WithDialect.h"

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using Texts = std::vector<std::string>;

Dialect SqlServer() {
    Dialect dialect;
    dialect.concatenation = "+";
    dialect.textPrefix = "N";
    return dialect;
}

class SqlServerTexts : public DatabaseTest {
protected:
    SqlServerTexts() {
        m_database.Install(m_recording);
        HostLocationData().GetDocument();
        m_recording->Clear();
    }

    TestLocations m_tree{m_database};
    std::shared_ptr<RecordingEngine> m_recording =
        std::make_shared<RecordingEngine>(std::make_shared<WithDialect>(m_database.GetEngine(), SqlServer()));
};

TEST_F(SqlServerTexts, AMove) {
    const std::string shelf = std::to_string(m_tree.shelf), annex = std::to_string(m_tree.annex);
    m_tree.Find(m_tree.shelf)->Move(m_tree.Find(m_tree.annex));
    EXPECT_THAT(m_recording->Log(), ::testing::IsSupersetOf(Texts{"UPDATE StorageLocation SET Type = 2, Path = N'/0/" +
                                                                  annex + "/' WHERE IdNo = " + shelf}));
    EXPECT_THAT(m_recording->Log(),
                ::testing::Contains(::testing::AllOf(
                    ::testing::StartsWith("UPDATE StorageLocation SET Type = 2, Path = "
                                          "REPLACE(Path, N'/0/"),
                    ::testing::HasSubstr("/" + shelf + "/', N'/0/" + annex + "/" + shelf + "/') WHERE Path LIKE N'/0/"),
                    ::testing::EndsWith("/" + shelf + "/%'"))));
}

TEST_F(SqlServerTexts, ARename) {
    m_tree.Find(m_tree.shelf)->Rename("O'Neil's \xC3\xA9");
    EXPECT_THAT(m_recording->Log(),
                ::testing::Contains(::testing::AllOf(
                    ::testing::StartsWith("UPDATE StorageLocation SET Name = N'O''Neil''s \xC3\xA9', LastUpdated = '"),
                    ::testing::EndsWith(" WHERE IdNo = " + std::to_string(m_tree.shelf)))));
}

TEST_F(SqlServerTexts, ADeletion) {
    m_tree.Find(m_tree.shelf)->Delete();
    EXPECT_THAT(m_recording->Log(),
                ::testing::Contains("DELETE FROM StorageLocation WHERE IdNo = " + std::to_string(m_tree.shelf)));
}

TEST_F(SqlServerTexts, ATransfer) {
    TransferData xfer;
    xfer.DateReceived = DateTime::FromParts({2026, 11, 19, 8, 30, 0, 0});
    xfer.Location = m_tree.Find(m_tree.shelf);
    CartItems items;
    items.TryAdd(MakeItem(7));
    EXPECT_EQ(MakeTransferStatements(items, xfer),
              (Texts{"CREATE TABLE #NextSeqNo (Value INT NOT NULL)", "INSERT INTO #NextSeqNo (Value) VALUES (0)",
                     "DECLARE @NextSeqNo AS INT;SELECT @NextSeqNo = MAX(SeqNo)+1 FROM PropertyTracking WHERE "
                     "PropertyNo=7 GROUP BY PropertyNo;UPDATE #NextSeqNo SET VALUE = COALESCE(@NextSeqNo, 1)",
                     "INSERT INTO PropertyTracking (PropertyNo,SeqNo,ReceivedBy,ReceivedFrom,DateReceived,"
                     "CustodyReasonNo,StorageLocNo,LastUpdated) VALUES (7,(SELECT Value FROM #NextSeqNo),NULL,NULL,"
                     "'2026-11-19T08:30:00.000',NULL," +
                         std::to_string(m_tree.shelf) + ",'" + xfer.Timestamp().ToText() + "')",
                     "UPDATE Property SET CurrTrackSeq=(SELECT Value FROM #NextSeqNo) WHERE PropertyNo=7",
                     "DROP TABLE #NextSeqNo"}));
}

// SQLite refuses its operator, after the text has been recorded.
TEST_F(SqlServerTexts, ASearchJoinsTextsByItsOwnOperator) {
    StoredItemSearch search;
    search.WithDescription("*blue*");
    RaisedBy([&] { search.ExecuteRaw(); });
    ASSERT_EQ(m_recording->Log().size(), 1u);
    const std::string text = m_recording->Log()[0];
    EXPECT_THAT(text, ::testing::HasSubstr("COALESCE((vwVehicleDisplayInfo.VehYear + N' '), N'')"));
    EXPECT_THAT(text, ::testing::HasSubstr("LIKE N'%blue%'"));
    EXPECT_THAT(text, ::testing::Not(::testing::HasSubstr("||")));
    EXPECT_THAT(text, ::testing::Not(::testing::HasSubstr("CurrentPlace")));
}

}  // namespace
}  // namespace quellbrook::testing

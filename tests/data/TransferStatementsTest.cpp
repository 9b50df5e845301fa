#include "data/TransferStatements.h"

#include "core/CartStore.h"
#include "data/StorageLocationStatic.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/Items.h"
#include "tests/support/RaisedBy.h"

namespace quellbrook {

namespace {

using testing::MakeItem;
using Texts = std::vector<std::string>;

class TransferStatements : public testing::DatabaseTest {
protected:
    TransferStatements() {
        m_xfer.DateReceived = DateTime::FromParts({2026, 11, 19, 8, 30, 0, 0});
        const int32_t id = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
        m_xfer.Location = GetStorageLocationStatic().FindByID(id);
    }

    CartItems m_items;
    TransferData m_xfer;
};

}  // namespace

TEST_F(TransferStatements, AFieldWithoutAValueIsTheWordNull) {
    EXPECT_EQ(DbPrepField(Null()), "NULL");
    EXPECT_EQ(DbPrepField(Empty()), "NULL");
}

TEST_F(TransferStatements, AFieldWithAValueIsItsTextUnquoted) {
    EXPECT_EQ(DbPrepField(101), "101");
    EXPECT_EQ(DbPrepField(-1), "-1");
    EXPECT_EQ(DbPrepField("101"), "101");
}

TEST_F(TransferStatements, ALocationIsItsIdentifier) {
    EXPECT_EQ(DbPrepStorageLocationField(m_xfer.Location.get()), std::to_string(m_xfer.Location->ID()));
}

TEST_F(TransferStatements, ARootAndNothingAreRefused) {
    const auto root = GetStorageLocationStatic().GetRoot(StorageLocationTypes::Internal);
    const Error error = testing::RaisedBy([&] { DbPrepStorageLocationField(root.get()); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "DbPrepStorageLocationField: Cannot use a root location in a SQL statement.");
    EXPECT_EQ(testing::RaisedBy([] { DbPrepStorageLocationField(nullptr); }).Number(), ErrorNumber::NullObject);
}

TEST_F(TransferStatements, WithoutItemsOnlyTheTableIsMadeAndDropped) {
    EXPECT_EQ(MakeTransferStatements(m_items, m_xfer),
              (Texts{"CREATE TABLE #NextSeqNo (Value INT NOT NULL)", "INSERT INTO #NextSeqNo (Value) VALUES (0)",
                     "DROP TABLE #NextSeqNo"}));
}

TEST_F(TransferStatements, EachItemTakesThreeStatementsAndOneMoreForADisposal) {
    m_items.TryAdd(MakeItem(7));
    m_items.TryAdd(MakeItem(3, StoredItemTypes::vehicle));
    EXPECT_EQ(MakeTransferStatements(m_items, m_xfer).size(), 9u);
    m_xfer.FinalDisposition = std::make_shared<FinalDispositionData>(FinalDispositionData{4, "O'Neil: {0} and {0}No"});
    const Texts statements = MakeTransferStatements(m_items, m_xfer);
    ASSERT_EQ(statements.size(), 11u);
    EXPECT_EQ(statements[5],
              "UPDATE Property SET HasFinalDisposition=1,DisposalNote='O''Neil: Property and PropertyNo',"
              "CurrStatusNo=4 WHERE PropertyNo=7");
    EXPECT_EQ(statements[9],
              "UPDATE Vehicle SET HasFinalDisposition=1,DisposalNote='O''Neil: Vehicle and VehicleNo',"
              "CurrStatusNo=4 WHERE VehicleNo=3");
}

TEST_F(TransferStatements, AnyTypeButPropertyMeansVehicle) {
    for (const int32_t type : {9, 0, -1}) {
        CartItems items;
        items.TryAdd(MakeItem(7, static_cast<StoredItemTypes>(type)));
        EXPECT_EQ(MakeTransferStatements(items, m_xfer)[4],
                  "UPDATE Vehicle SET CurrTrackSeq=(SELECT Value FROM #NextSeqNo) WHERE VehicleNo=7")
            << type;
    }
}

TEST_F(TransferStatements, ANoteWithACharacterThatNoLiteralCanHoldIsRefused) {
    m_items.TryAdd(MakeItem(7));
    m_xfer.FinalDisposition = std::make_shared<FinalDispositionData>(FinalDispositionData{4, std::string("a\0b", 3)});
    EXPECT_EQ(testing::RaisedBy([&] { MakeTransferStatements(m_items, m_xfer); }).Number(), ErrorNumber::General);
}

TEST_F(TransferStatements, DetailsRememberTheMomentOfTheirConstruction) {
    const TransferData early;
    m_clock.Advance(1);
    const TransferData late;
    EXPECT_EQ(late.Timestamp().milliseconds - early.Timestamp().milliseconds, 1);
    EXPECT_TRUE(early.ReceivedFrom.IsEmpty());
    EXPECT_TRUE(early.DateReceived.IsEmpty());
    EXPECT_TRUE(early.Reason.IsEmpty());
}

}  // namespace quellbrook

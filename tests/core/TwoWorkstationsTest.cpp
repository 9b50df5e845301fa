#include "tests/core/ProcessTransactionTest.h"

#include "data/TransferStatements.h"
#include "database/SqliteEngine.h"

namespace quellbrook::testing {
namespace {

// A second workstation: another connection to the same database, with its own transactions.
class Workstation {
public:
    explicit Workstation(Engine& engine) : m_connection(engine.Open()) {}

    void Begin(const StoredItemRef& item, const TransferData& xfer) {
        CartItems items;
        items.TryAdd(item);
        m_connection->Begin();
        for (const std::string& statement : MakeTransferStatements(items, xfer)) m_connection->Execute(statement);
    }
    void Commit() { m_connection->Commit(); }
    void Rollback() { m_connection->Rollback(); }

private:
    std::unique_ptr<Connection> m_connection;
};

class TwoWorkstations : public ProcessTransactionTest {
protected:
    TwoWorkstations() {
        m_shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
        m_database.AddPerson(101, "Okafor");
        m_id = AddStored(Property);
        GetStorageLocationStatic().Refresh();
    }

    std::string ChainOf(std::initializer_list<int32_t> locations) {
        std::string text;
        int seqNo = 0;
        for (const int32_t location : locations) text += std::to_string(++seqNo) + "@" + std::to_string(location) + " ";
        return text;
    }

    int32_t m_shelf = 0, m_id = 0;
    Workstation m_other{*m_database.GetEngine()};
};

TEST_F(TwoWorkstations, AnItemSignedOutByOneCannotBeMovedByTheOthersOlderBatch) {
    Begin({FindItem(Property, m_id)}, TransactionType::Move);
    m_other.Begin(FindItem(Property, m_id), *MakeTransfer(m_court));
    m_other.Commit();

    m_log.Announce(LogSource);
    GetActions().ProcessTransaction(MakeTransfer(m_shelf));
    const std::string description =
        "This item has changed since it was added to the batch:\r\n\u2022 E is now in 'Court', "
        "received by Okafor on 11/19/2026 8:30 AM";
    ExpectFailureReport(description);
    ExpectLogged(description);
    EXPECT_EQ(Chain(Property, m_id), ChainOf({m_counter, m_court}));

    Begin({FindItem(Property, m_id)}, TransactionType::SignIn);
    GetActions().ProcessTransaction(MakeTransfer(m_shelf));
    ExpectCommittedReport("Successfully transferred 1 item");
    EXPECT_EQ(Chain(Property, m_id), ChainOf({m_counter, m_court, m_shelf}));
}

TEST_F(TwoWorkstations, AnItemThatTheOtherOneFailedToTransferCanBeTransferred) {
    Begin({FindItem(Property, m_id)}, TransactionType::Move);
    m_other.Begin(FindItem(Property, m_id), *MakeTransfer(m_court));
    m_other.Rollback();
    GetActions().ProcessTransaction(MakeTransfer(m_shelf));
    ExpectCommittedReport("Successfully transferred 1 item");
    EXPECT_EQ(Chain(Property, m_id), ChainOf({m_counter, m_shelf}));
}

TEST_F(TwoWorkstations, ABatchThatMeetsTheOthersTransactionWritesNothingAndIsStaleAfterwards) {
    m_database.Install(SqliteEngine::Open(m_database.Path(), 20));
    Begin({FindItem(Property, m_id)}, TransactionType::Move);
    const StoredItemRef readBefore = FindItem(Property, m_id);
    m_other.Begin(FindItem(Property, m_id), *MakeTransfer(m_court));
    m_log.Announce(LogSource);
    GetActions().ProcessTransaction(MakeTransfer(m_shelf));
    EXPECT_EQ(m_seen->Types().back(), "CART_TRANSACTION_FAILED");
    ExpectIdle();
    EXPECT_EQ(Chain(Property, m_id), ChainOf({m_counter}));
    m_other.Commit();

    Begin({readBefore}, TransactionType::Move);
    m_log.Announce(LogSource);
    GetActions().ProcessTransaction(MakeTransfer(m_shelf));
    EXPECT_EQ(m_seen->Types().back(), "CART_TRANSACTION_FAILED");
    EXPECT_EQ(Chain(Property, m_id), ChainOf({m_counter, m_court}));
}

TEST_F(TwoWorkstations, BothTransferDifferentItemsOneAfterTheOther) {
    const int32_t second = AddStored(Property);
    Begin({FindItem(Property, m_id)}, TransactionType::Move);
    m_other.Begin(FindItem(Property, second), *MakeTransfer(m_court));
    m_other.Commit();
    GetActions().ProcessTransaction(MakeTransfer(m_shelf));
    EXPECT_EQ(Chain(Property, m_id), ChainOf({m_counter, m_shelf}));
    EXPECT_EQ(Chain(Property, second), ChainOf({m_counter, m_court}));
}

}  // namespace
}  // namespace quellbrook::testing

#pragma once

#include "host/TransferOutcome.h"
#include "tests/core/ProcessTransactionTest.h"
#include "tests/server/ServerTest.h"
#include "tests/support/IgnoredErrorLog.h"
#include "tests/support/WorkstationPrograms.h"

#include <utility>
#include <vector>

namespace quellbrook::testing {

// What the user is told about a batch.
enum class Outcome { Written, NothingTransferred, Unknown };

// Batches of the same items while the server or the connection to it fails.
class TransferFaults : public ProcessTransactionTest {
protected:
    TransferFaults() {
        constexpr int itemCount = 20;
        m_environment->errorLog = &m_ignored;
        for (int i = 0; i < itemCount; ++i) {
            const StoredItemTypes kind = i % 4 == 3 ? Vehicle : Property;
            m_items.emplace_back(kind, AddStored(kind));
        }
    }

    // Puts all items into a batch.
    void BeginBatch() {
        const auto items = std::make_shared<ObjectVector>();
        for (const auto& [kind, id] : m_items) items->Add(FindItem(kind, id));
        GetActions().BeginTransaction(TransactionType::Move, items);
        ASSERT_EQ(GetStores().Cart->GetItems()->Count(), static_cast<int32_t>(m_items.size()));
        m_xfer = MakeTransfer(m_counter);
        m_rowsBefore = CountRows();
    }
    Outcome FinishBatch() {
        GetActions().ProcessTransaction(m_xfer);
        const Action& last = m_seen->actions.back();
        if (last.ActionType == ActionTypes::CART_TRANSACTION_SUCCESS) return Outcome::Written;
        EXPECT_EQ(last.ActionType, ActionTypes::CART_TRANSACTION_FAILED);
        return ToText(last.Payload).starts_with(UnknownOutcomeText) ? Outcome::Unknown : Outcome::NothingTransferred;
    }

    // Expects that the database has what the user was told of the batch, and that the next one is written.
    void ExpectTrueAndGoesOn(Outcome outcome) {
        const int rows = CountRows() - m_rowsBefore, all = static_cast<int>(m_items.size());
        if (outcome == Outcome::Unknown)
            EXPECT_TRUE(rows == 0 || rows == all) << rows;
        else
            EXPECT_EQ(rows, outcome == Outcome::Written ? all : 0);
        ExpectWholeChains(m_database);
        BeginBatch();
        EXPECT_EQ(FinishBatch(), Outcome::Written);
        EXPECT_EQ(CountRows() - m_rowsBefore, all);
    }

    int CountRows() {
        return ToInt32(m_database.QueryValue(
            "SELECT (SELECT COUNT(*) FROM PropertyTracking) + (SELECT COUNT(*) FROM VehicleTracking)"));
    }

private:
    IgnoredErrorLog m_ignored;
    std::vector<std::pair<StoredItemTypes, int32_t>> m_items;
    std::shared_ptr<TransferData> m_xfer;
    int m_rowsBefore = 0;
};

}  // namespace quellbrook::testing

#pragma once

#include "core/ActionTypes.h"
#include "core/Actions.h"
#include "core/Stores.h"
#include "tests/support/Callbacks.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/Items.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingEngine.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace quellbrook::testing {

using Types = std::vector<std::string>;

constexpr auto Property = StoredItemTypes::Property;
constexpr auto Vehicle = StoredItemTypes::vehicle;
inline constexpr const char* LogSource = "Actions.ProcessTransaction";

// A department with a counter, a court and items; a sign-out batch with items of both kinds.
class ProcessTransactionTest : public DatabaseTest {
protected:
    ProcessTransactionTest() {
        m_counter = m_database.AddLocation("Counter", StorageLocationTypes::Internal);
        m_court = m_database.AddLocation("Court", StorageLocationTypes::External);
        m_database.NumberVehiclesApart();
        GetDispatcher()->Register(m_seen);
        m_stores = GetStores();
    }

    int32_t AddStored(StoredItemTypes kind) {
        return kind == Property ? m_database.AddStored(PropertyFields{.PropertyID = "E"}, m_counter)
                                : m_database.AddStored(VehicleFields{}, m_counter);
    }

    void Begin(std::initializer_list<ObjectRef> items, int32_t type = TransactionType::SignOut) {
        GetActions().BeginTransaction(type, ListOf(items));
        m_seen->actions.clear();
    }

    std::shared_ptr<TransferData> MakeTransfer(int32_t location) {
        auto xfer = std::make_shared<TransferData>();
        xfer->Location = GetStorageLocationStatic().FindByID(location);
        xfer->ReceivedBy = 101;
        xfer->ReceivedFrom = 102;
        xfer->DateReceived = DateTime::FromParts({2026, 11, 19, 8, 30, 0, 0});
        xfer->Reason = 5;
        return xfer;
    }
    std::shared_ptr<TransferData> MakeTransfer() { return MakeTransfer(m_court); }

    // The tracking rows of one item: sequence number and location, oldest first.
    std::string Chain(StoredItemTypes kind, int32_t id) {
        const std::string table = kind == Property ? "Property" : "Vehicle";
        std::string text;
        const std::string sql = "SELECT SeqNo, StorageLocNo FROM " + table + "Tracking WHERE " + table +
                                "No = " + std::to_string(id) + " ORDER BY SeqNo";
        for (const Row& row : m_database.QueryRows(sql))
            text += ToText(row.Value("SeqNo")) + "@" + ToTextOrEmpty(row.Value("StorageLocNo")) + " ";
        return text;
    }
    TaggedValue ValueOf(StoredItemTypes kind, int32_t id, const std::string& column) {
        const std::string table = kind == Property ? "Property" : "Vehicle";
        return m_database.QueryValue("SELECT " + column + " FROM " + table + " WHERE " + table +
                                     "No = " + std::to_string(id));
    }

    std::shared_ptr<FaultInjectingEngine> InstallFaultyEngine() {
        auto engine = std::make_shared<FaultInjectingEngine>(m_database.GetEngine());
        m_database.Install(engine);
        return engine;
    }
    std::shared_ptr<RecordingEngine> InstallRecordingEngine() {
        auto engine = std::make_shared<RecordingEngine>(m_database.GetEngine());
        m_database.Install(engine);
        return engine;
    }

    // A callback after the stores that throws for one type of action.
    void FailAt(const std::string& actionType) {
        GetDispatcher()->Register(std::make_shared<FunctionCallback>("EvidenceUI", [actionType](const Action& action) {
            if (action.ActionType == actionType) Raise(99, "EvidenceUI.Handle", "The view is broken.");
        }));
    }

    void ExpectCommittedReport(const std::string& note) {
        EXPECT_EQ(m_seen->Types(),
                  (Types{"LOADING_STARTED", "LOADING_FINISHED", "NOTIFY_USER", "CART_TRANSACTION_SUCCESS"}));
        EXPECT_EQ(m_seen->actions.at(2).Payload, TaggedValue(note));
        ExpectIdle();
    }
    void ExpectFailureReport(const std::string& description) {
        EXPECT_EQ(m_seen->Types(),
                  (Types{"LOADING_STARTED", "LOADING_FINISHED", "CART_CANCEL_TRANSACTION", "CART_TRANSACTION_FAILED"}));
        EXPECT_EQ(m_seen->actions.back().Payload, TaggedValue(description));
        ExpectIdle();
    }
    void ExpectIdle() {
        EXPECT_FALSE(m_stores.Loading->IsLoading());
        EXPECT_TRUE(m_stores.Cart->IsEmpty());
        EXPECT_EQ(m_stores.Cart->GetTransactionType(), TransactionType::None);
    }
    void ExpectLogged(const std::string& description) {
        ASSERT_EQ(m_log.Entries().size(), 1u);
        EXPECT_EQ(m_log.Entries()[0], (RecordingErrorLog::Entry{"Quellbrook", LogSource, description}));
    }

    int32_t m_counter = 0;
    int32_t m_court = 0;
    StoresRecord m_stores;
    std::shared_ptr<RecordingCallback> m_seen = std::make_shared<RecordingCallback>();  // called before the stores
};

}  // namespace quellbrook::testing

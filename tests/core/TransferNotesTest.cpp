#include "base/Text.h"
#include "core/Actions.h"
#include "core/Stores.h"
#include "tests/support/Callbacks.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/HostileTexts.h"
#include "tests/support/Items.h"

namespace quellbrook {

namespace {

using testing::FindItem;
using testing::HostileText;
using testing::HostileTexts;

// A property and a vehicle at a counter, to be disposed of with a note.
class TransferNotes : public testing::DatabaseTest {
protected:
    TransferNotes() {
        m_incinerator = m_database.AddLocation("Incinerator", StorageLocationTypes::DisposalLocation);
        const int32_t counter = m_database.AddLocation("Counter", StorageLocationTypes::Internal);
        m_database.Execute("INSERT INTO sqlite_sequence (name, seq) VALUES ('Vehicle', 100)");
        m_property = m_database.AddProperty({.PropertyID = "E-1"});
        m_vehicle = m_database.AddVehicle({.RegNumber = "ABC 1"});
        m_database.AddCustodyRow(StoredItemTypes::Property, m_property, counter);
        m_database.AddCustodyRow(StoredItemTypes::vehicle, m_vehicle, counter);
        m_stores = GetStores();
        GetDispatcher()->Register(m_seen);
    }

    void DisposeWithNote(const std::string& note) {
        GetActions().BeginTransaction(TransactionType::Dispose,
                                      testing::ListOf({FindItem(StoredItemTypes::Property, m_property),
                                                       FindItem(StoredItemTypes::vehicle, m_vehicle)}));
        auto xfer = std::make_shared<TransferData>();
        xfer->Location = GetStorageLocationStatic().FindByID(m_incinerator);
        xfer->DateReceived = m_clock.Now();
        xfer->FinalDisposition = std::make_shared<FinalDispositionData>(FinalDispositionData{4, note});
        GetActions().ProcessTransaction(xfer);
    }

    int32_t m_incinerator = 0, m_property = 0, m_vehicle = 0;
    StoresRecord m_stores;
    std::shared_ptr<testing::RecordingCallback> m_seen = std::make_shared<testing::RecordingCallback>();
};

}  // namespace

TEST_F(TransferNotes, AnyTextIsStoredAsItIsButForTheTemplatesWord) {
    for (const HostileText& hostile : HostileTexts()) {
        SCOPED_TRACE(hostile.description);
        DisposeWithNote(hostile.text);
        EXPECT_EQ(m_seen->Types().back(), "CART_TRANSACTION_SUCCESS");
        EXPECT_EQ(m_database.QueryValue("SELECT DisposalNote FROM Property"),
                  TaggedValue(Replace(hostile.text, "{0}", "Property")));
        EXPECT_EQ(m_database.QueryValue("SELECT DisposalNote FROM Vehicle"),
                  TaggedValue(Replace(hostile.text, "{0}", "Vehicle")));
    }
    const auto transfers = static_cast<int32_t>(HostileTexts().size());
    EXPECT_EQ(m_database.QueryValue("SELECT COUNT(*) FROM PropertyTracking"), TaggedValue(1 + transfers));
    EXPECT_EQ(m_database.QueryValue("SELECT COUNT(*) FROM VehicleTracking"), TaggedValue(1 + transfers));
    EXPECT_EQ(m_database.QueryValue("SELECT COUNT(*) FROM StorageLocation"), TaggedValue(2));
}

TEST_F(TransferNotes, ATextWithNulIsRefusedAndNothingIsTransferred) {
    const std::string before = m_database.Snapshot();
    m_log.Announce("Actions.ProcessTransaction");
    DisposeWithNote(testing::TextWithNul());
    EXPECT_EQ(m_seen->Types().back(), "CART_TRANSACTION_FAILED");
    EXPECT_EQ(m_seen->actions.back().Payload, TaggedValue(testing::NulRefusal));
    EXPECT_EQ(m_database.Snapshot(), before);
    EXPECT_TRUE(m_stores.Cart->IsEmpty());
}

}  // namespace quellbrook

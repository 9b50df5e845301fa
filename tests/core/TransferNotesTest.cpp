#include "base/Text.h"
#include "tests/core/ProcessTransactionTest.h"
#include "tests/support/HostileTexts.h"

namespace quellbrook::testing {

namespace {

// A property and a vehicle at the counter, to be disposed of with a note.
class TransferNotes : public ProcessTransactionTest {
protected:
    TransferNotes() { GetStorageLocationStatic().Refresh(); }

    void DisposeWithNote(const std::string& note) {
        Begin({FindItem(Property, m_property), FindItem(Vehicle, m_vehicle)}, TransactionType::Dispose);
        const auto xfer = MakeTransfer(m_incinerator);
        xfer->FinalDisposition = std::make_shared<FinalDispositionData>(FinalDispositionData{4, note});
        GetActions().ProcessTransaction(xfer);
    }

    const int32_t m_incinerator = m_database.AddLocation("Incinerator", StorageLocationTypes::DisposalLocation);
    const int32_t m_property = AddStored(Property), m_vehicle = AddStored(Vehicle);
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
    EXPECT_EQ(m_database.QueryValue("SELECT COUNT(*) FROM StorageLocation"), TaggedValue(3));
}

TEST_F(TransferNotes, ATextWithNulIsRefusedAndNothingIsTransferred) {
    const std::string before = m_database.Snapshot();
    m_log.Announce("Actions.ProcessTransaction");
    DisposeWithNote(TextWithNul());
    EXPECT_EQ(m_seen->Types().back(), "CART_TRANSACTION_FAILED");
    EXPECT_EQ(m_seen->actions.back().Payload, TaggedValue(NulRefusal));
    EXPECT_EQ(m_database.Snapshot(), before);
    EXPECT_TRUE(m_stores.Cart->IsEmpty());
}

}  // namespace quellbrook::testing

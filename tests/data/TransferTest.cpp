#include "data/Transfer.h"

#include "core/CartStore.h"
#include "data/StorageLocationStatic.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/InterruptingEngine.h"
#include "tests/support/Items.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingEngine.h"

namespace quellbrook {

namespace {

using testing::FindItem;
using testing::RaisedBy;
using Types = StorageLocationTypes;

constexpr auto Property = StoredItemTypes::Property;
constexpr auto Vehicle = StoredItemTypes::vehicle;

// A batch that signs items out from a counter to a desk at the court, while other workstations write to the database.
class TransferTest : public testing::DatabaseTest {
protected:
    TransferTest() {
        m_counter = m_database.AddLocation("Counter", Types::Internal);
        const int32_t court = m_database.AddLocation("Court", Types::External);
        m_desk = m_database.AddLocation("Desk", Types::External, court);
        m_laboratory = m_database.AddLocation("Laboratory", Types::External);
        m_database.AddPerson(7, "Raman");
        m_xfer.Location = GetStorageLocationStatic().FindByID(m_desk);
        m_xfer.DateReceived = m_clock.Now();
    }

    int32_t AddProperty(const std::string& displayId = "E-1", const std::string& description = "") {
        return m_database.AddStored(testing::PropertyFields{.PropertyID = displayId, .Description = description},
                                    m_counter);
    }
    // An item that the batch takes.
    int32_t TakeProperty(const std::string& displayId = "E-1", const std::string& description = "") {
        const int32_t id = AddProperty(displayId, description);
        m_items.TryAdd(FindItem(Property, id));
        return id;
    }
    void SignOutElsewhere(StoredItemTypes kind, int32_t id) {
        m_database.AddCustodyRow(
            kind, id, m_laboratory,
            {.ReceivedBy = 7, .DateReceived = DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123})});
    }

    void ExpectRefused(const std::string& description) {
        const std::string before = m_database.Snapshot();
        const Error error = RaisedBy([&] { ExecuteTransfer(m_items, m_xfer); });
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Description(), description);
        EXPECT_EQ(m_database.Snapshot(), before);
    }
    void ExpectWritten() {
        ExecuteTransfer(m_items, m_xfer);
        EXPECT_EQ(m_database.QueryValue("SELECT COUNT(*) FROM PropertyTracking WHERE StorageLocNo = " +
                                        std::to_string(m_desk)),
                  TaggedValue(m_items.Count()));
    }

    CartItems m_items;
    TransferData m_xfer;
    int32_t m_counter = 0, m_desk = 0, m_laboratory = 0;
};

const std::string OneItem = "This item has changed since it was added to the batch:";
const std::string SeveralItems = "These items have changed since they were added to the batch:";
const std::string InLaboratory = " is now in 'Laboratory', received by Raman on 11/20/2026 1:14 PM";

std::string Line(const std::string& text) { return "\r\n\u2022 " + text; }

}  // namespace

TEST_F(TransferTest, ItemsThatNobodyElseTransferredAreWritten) {
    TakeProperty();
    TakeProperty();
    ExpectWritten();
}

TEST_F(TransferTest, AnItemTransferredElsewhereIsRefusedWithItsPlaceItsReceiverAndTheDate) {
    TakeProperty();
    const int32_t id = TakeProperty("E-2", "Red bicycle");
    SignOutElsewhere(Property, id);
    ExpectRefused(OneItem + Line("E-2 ('Red bicycle')" + InLaboratory));
}

TEST_F(TransferTest, TheDateHasTheHostsFormat) {
    SignOutElsewhere(Property, TakeProperty());
    HostFormats formats;
    formats.date = "dd.MM.yyyy";
    formats.time = "HH:mm";
    HostServices::Current().SetFormats(formats);
    ExpectRefused(OneItem + Line("E-1 is now in 'Laboratory', received by Raman on 20.11.2026 13:14"));
    HostServices::Current().SetFormats({});
}

TEST_F(TransferTest, PropertyAndVehiclesAreNamedInTheOrderOfTheBatch) {
    m_database.NumberVehiclesApart();
    const int32_t vehicle =
        m_database.AddStored(testing::VehicleFields{.RegNumber = "KTR4821", .RegStateCode = "OH"}, m_counter);
    m_items.TryAdd(FindItem(Vehicle, vehicle));
    const int32_t property = TakeProperty();
    SignOutElsewhere(Property, property);
    SignOutElsewhere(Vehicle, vehicle);
    ExpectRefused(SeveralItems + Line("KTR4821 (OH)" + InLaboratory) + Line("E-1" + InLaboratory));
}

TEST_F(TransferTest, FiveItemsAreNamedAndTheRestCounted) {
    std::string five = SeveralItems;
    for (int i = 1; i <= 7; ++i) {
        const std::string name = "E-" + std::to_string(i);
        SignOutElsewhere(Property, TakeProperty(name));
        if (i <= 5) five += Line(name + InLaboratory);
        if (i == 5) ExpectRefused(five);
        if (i == 6) ExpectRefused(five + Line("1 more item"));
    }
    ExpectRefused(five + Line("2 more items"));
}

TEST_F(TransferTest, WhatTheLatestCustodyRowDoesNotSayIsLeftOut) {
    const int32_t id = TakeProperty();
    m_database.AddCustodyRow(Property, id, Null(), {.DateReceived = Null()});
    ExpectRefused(OneItem + Line("E-1 is now in no location"));
    m_database.AddCustodyRow(Property, id, m_laboratory, {.ReceivedBy = 7, .DateReceived = Null()});
    ExpectRefused(OneItem + Line("E-1 is now in 'Laboratory', received by Raman"));
    m_database.AddCustodyRow(Property, id, m_desk, {.DateReceived = DateTime::FromParts({2026, 1, 2, 9, 30, 0, 0})});
    ExpectRefused(OneItem + Line("E-1 is now in 'Court > Desk', received on 01/02/2026 9:30 AM"));
}

TEST_F(TransferTest, AnItemInALocationThatIsGoneIsRefused) {
    SignOutElsewhere(Property, TakeProperty());
    m_database.Execute("PRAGMA foreign_keys = OFF");
    m_database.Execute("DROP TRIGGER StorageLocationDeleteGuard");
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_laboratory});
    ExpectRefused(OneItem + Line("E-1 is now in a deleted location, received by Raman on 11/20/2026 1:14 PM"));
}

TEST_F(TransferTest, AnItemWhoseRowIsGoneIsRefused) {
    const int32_t id = m_database.AddProperty({.PropertyID = "E-1"});
    m_items.TryAdd(FindItem(Property, id));
    m_database.Execute("DELETE FROM Property WHERE PropertyNo = ?", {id});
    ExpectRefused(OneItem + Line("E-1 has been deleted"));
}

TEST_F(TransferTest, AnItemThatHasLostItsCustodyRowIsRefused) {
    const int32_t id = TakeProperty();
    m_database.Execute("UPDATE Property SET CurrTrackSeq = NULL WHERE PropertyNo = ?", {id});
    ExpectRefused(OneItem + Line("E-1 has no current custody row"));
}

TEST_F(TransferTest, NewEvidenceThatSomebodyElseSignedInIsRefused) {
    const int32_t fresh = m_database.AddProperty({.PropertyID = "E-1"});
    m_items.TryAdd(FindItem(Property, fresh));
    SignOutElsewhere(Property, fresh);
    ExpectRefused(OneItem + Line("E-1" + InLaboratory));
}

TEST_F(TransferTest, NewEvidenceIsWritten) {
    m_items.TryAdd(FindItem(Property, m_database.AddProperty()));
    ExpectWritten();
}

TEST_F(TransferTest, RefreshingAnItemOfTheBatchDoesNotHideItsTransfer) {
    const int32_t id = TakeProperty();
    SignOutElsewhere(Property, id);
    m_items.ItemAt(0)->Refresh();
    EXPECT_EQ(m_items.ItemAt(0)->Location()->ID(), m_laboratory);
    ExpectRefused(OneItem + Line("E-1" + InLaboratory));
}

TEST_F(TransferTest, AnItemThatWasReadBeforeItsTransferIsRefusedEvenIfItIsAddedAfterwards) {
    const int32_t id = AddProperty();
    const StoredItemRef item = FindItem(Property, id);
    SignOutElsewhere(Property, id);
    m_items.TryAdd(item);
    ExpectRefused(OneItem + Line("E-1" + InLaboratory));
}

TEST_F(TransferTest, AnItemThatWasDisposedOfBeforeItWasAddedIsWritten) {
    const int32_t furnace = m_database.AddLocation("Furnace", Types::DisposalLocation);
    const int32_t id = AddProperty();
    m_database.AddCustodyRow(Property, id, furnace);
    m_items.TryAdd(FindItem(Property, id));
    ExpectWritten();
}

TEST_F(TransferTest, AVehicleIsNotTakenForThePropertyWithTheSameNumber) {
    const int32_t vehicle = m_database.AddVehicle();
    m_items.TryAdd(FindItem(Vehicle, vehicle));
    const int32_t property = AddProperty();
    ASSERT_EQ(vehicle, property);
    SignOutElsewhere(Property, property);
    ExecuteTransfer(m_items, m_xfer);
    EXPECT_EQ(m_database.QueryValue("SELECT CurrTrackSeq FROM Vehicle"), TaggedValue(1));
}

TEST_F(TransferTest, ALargeBatchIsCheckedInFewStatements) {
    for (int i = 0; i < 600; ++i) TakeProperty();
    const auto recorder = std::make_shared<testing::RecordingEngine>(m_database.GetEngine());
    m_database.Install(recorder);
    ExpectWritten();
    const auto& log = recorder->Log();
    ASSERT_GT(log.size(), 4u);
    EXPECT_EQ(log[1], "SELECT Type, ActiveFlag FROM StorageLocation WHERE IdNo = ?");
    const std::string select = "SELECT PropertyNo, CurrTrackSeq FROM Property WHERE PropertyNo IN (?,";
    EXPECT_TRUE(log[2].starts_with(select));
    EXPECT_TRUE(log[3].starts_with(select));
    EXPECT_EQ(recorder->Parameters(2).size() + recorder->Parameters(3).size(), 512u + 512u);
    EXPECT_EQ(recorder->Parameters(3).back(), recorder->Parameters(3)[600 - 512 - 1]) << "the last key fills the list";
    EXPECT_EQ(log[4], "CREATE TABLE #NextSeqNo (Value INT NOT NULL)");
}

TEST_F(TransferTest, EveryItemOfALargeBatchIsChecked) {
    std::vector<int32_t> ids;
    for (int i = 0; i < 600; ++i) ids.push_back(TakeProperty("E-" + std::to_string(i)));
    std::string lines;
    for (const size_t position : {0u, 63u, 511u, 512u, 599u}) {
        SignOutElsewhere(Property, ids[position]);
        lines += Line("E-" + std::to_string(position) + InLaboratory);
    }
    ExpectRefused(SeveralItems + lines);
}

TEST_F(TransferTest, ADeletedDestinationIsRefused) {
    TakeProperty();
    m_database.Execute("DELETE FROM StorageLocation WHERE IdNo = ?", {m_desk});
    ExpectRefused("The destination 'Court > Desk' has been deleted.");
}

TEST_F(TransferTest, ADisabledDestinationIsRefused) {
    TakeProperty();
    m_database.Execute("UPDATE StorageLocation SET ActiveFlag = 0 WHERE IdNo = ?", {m_desk});
    ExpectRefused("The destination 'Court > Desk' has been disabled.");
    m_database.Execute("UPDATE StorageLocation SET ActiveFlag = NULL WHERE IdNo = ?", {m_desk});
    ExpectWritten();
}

TEST_F(TransferTest, ADestinationOfAnotherCategoryIsRefused) {
    TakeProperty();
    m_xfer.Location = GetStorageLocationStatic().FindByID(m_laboratory);
    m_database.Execute("UPDATE StorageLocation SET Type = 8 WHERE IdNo = ?", {m_laboratory});
    ExpectRefused("The destination 'Laboratory' has been moved to 'Final Disposition'.");
}

TEST_F(TransferTest, TheCategoryUnderWhichTheDestinationWasChosenCounts) {
    TakeProperty();
    m_xfer.LocationType = Types::Internal;
    ExpectRefused("The destination 'Court > Desk' has been moved to 'Sign-Out Locations'.");
    m_xfer.LocationType = Types::External;
    ExpectWritten();
}

TEST_F(TransferTest, ARenamedOrMovedDestinationOfTheSameCategoryIsAccepted) {
    TakeProperty();
    m_database.Execute("UPDATE StorageLocation SET Name = 'Table', Path = '/0/' WHERE IdNo = ?", {m_desk});
    ExpectWritten();
}

TEST_F(TransferTest, TheDestinationAndTheItemsAreReportedTogether) {
    SignOutElsewhere(Property, TakeProperty());
    m_database.Execute("UPDATE StorageLocation SET ActiveFlag = 0 WHERE IdNo = ?", {m_desk});
    ExpectRefused("The destination 'Court > Desk' has been disabled.\r\n\r\n" + OneItem + Line("E-1" + InLaboratory));
}

TEST_F(TransferTest, AfterARefusalTheLocationsAreUpToDate) {
    SignOutElsewhere(Property, TakeProperty());
    m_database.Execute("UPDATE StorageLocation SET Name = 'Forensics' WHERE IdNo = ?", {m_laboratory});
    ExpectRefused(OneItem + Line("E-1 is now in 'Forensics', received by Raman on 11/20/2026 1:14 PM"));
    EXPECT_EQ(GetStorageLocationStatic().FindByID(m_laboratory)->Name(), "Forensics");
}

TEST_F(TransferTest, AChangeJustBeforeTheTransactionBeginsIsNoticed) {
    const int32_t id = TakeProperty();
    const auto engine = std::make_shared<testing::InterruptingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    engine->BeforeTransaction([&] { SignOutElsewhere(Property, id); });
    EXPECT_EQ(RaisedBy([&] { ExecuteTransfer(m_items, m_xfer); }).Description(), OneItem + Line("E-1" + InLaboratory));
    engine->BeforeTransaction(
        [&] { m_database.Execute("UPDATE StorageLocation SET ActiveFlag = 0 WHERE IdNo = ?", {m_desk}); });
    EXPECT_NE(RaisedBy([&] { ExecuteTransfer(m_items, m_xfer); }).Description().find("has been disabled."),
              std::string::npos);
}

TEST_F(TransferTest, AFailureAtAnyStepOfARefusalWritesNothing) {
    SignOutElsewhere(Property, TakeProperty());
    m_database.Execute("UPDATE StorageLocation SET ActiveFlag = 0 WHERE IdNo = ?", {m_desk});
    const auto faults = std::make_shared<testing::FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faults);
    const std::string before = m_database.Snapshot();
    constexpr int destinationItemsLocationsRowAndPerson = 5;
    for (int n = 1; n <= destinationItemsLocationsRowAndPerson; ++n) {
        SCOPED_TRACE(n);
        m_xfer.Location = GetStorageLocationStatic().FindByID(m_desk);
        faults->FailAtStatement(n, Error(1234, "Test", "The link is down."));
        EXPECT_EQ(RaisedBy([&] { ExecuteTransfer(m_items, m_xfer); }).Description(), "The link is down.");
        EXPECT_TRUE(faults->HasStruck());
        EXPECT_EQ(m_database.Snapshot(), before);
    }
    faults->FailAtStatement(destinationItemsLocationsRowAndPerson + 1, Error(1234, "Test", "The link is down."));
    EXPECT_EQ(RaisedBy([&] { ExecuteTransfer(m_items, m_xfer); }).Number(), ErrorNumber::General);
    EXPECT_FALSE(faults->HasStruck());
}

}  // namespace quellbrook

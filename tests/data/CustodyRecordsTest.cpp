#include "data/CustodyRecords.h"

#include "data/StorageLocationStatic.h"
#include "host/CodeTableLookup.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/RecordingEngine.h"

namespace quellbrook {

namespace {

class CustodyRecords : public testing::DatabaseTest {
protected:
    std::shared_ptr<TrackingRecord> Record(TaggedValue receivedBy, TaggedValue receivedFrom, TaggedValue reason,
                                           TaggedValue location) {
        auto record = std::make_shared<TrackingRecord>();
        record->SetRow(Row::Of({{"PropertyNo", 7},
                                {"SeqNo", 3},
                                {"ReceivedBy", receivedBy},
                                {"ReceivedFrom", receivedFrom},
                                {"DateReceived", m_clock.Now()},
                                {"CustodyReasonNo", reason},
                                {"StorageLocNo", location},
                                {"LastUpdated", m_clock.Now()}}));
        return record;
    }
};

}  // namespace

TEST_F(CustodyRecords, PlainColumnsAreRead) {
    const auto record = Record(Null(), Null(), Null(), Null());
    EXPECT_EQ(record->Sequence(), 3);
    EXPECT_EQ(record->DateReceived(), TaggedValue(m_clock.Now()));
    record->SetRow(Row::Of({{"SeqNo", 4}, {"DateReceived", Null()}}));
    EXPECT_TRUE(record->DateReceived().IsNull());
}

TEST_F(CustodyRecords, CodedColumnsAreTurnedIntoText) {
    m_database.AddCode(CodeTable::CustodyReason, 5, "Lab", "Laboratory analysis");
    m_database.AddPerson(101, "Officer Alice Stone");
    m_database.AddPerson(102, "Bob Field");
    const int32_t shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    const auto record = Record(101, 102, 5, shelf);
    EXPECT_EQ(record->StorageReason(), "Laboratory analysis");
    EXPECT_EQ(record->ReceivedBy(), "Officer Alice Stone");
    EXPECT_EQ(record->ReceivedFrom(), "Bob Field");
    EXPECT_EQ(record->Location()->Name(), "Shelf");
}

TEST_F(CustodyRecords, NullReturnsTheEmptyResultAndIsNotCached) {
    const auto record = Record(Null(), Null(), Null(), Null());
    EXPECT_EQ(record->StorageReason(), "");
    EXPECT_EQ(record->ReceivedBy(), "");
    EXPECT_EQ(record->ReceivedFrom(), "");
    EXPECT_EQ(record->Location(), nullptr);
    for (const char* key : {"StorageReason", "ReceivedBy", "ReceivedFrom", "Location"})
        EXPECT_FALSE(record->IsCached(key)) << key;

    m_database.AddCode(CodeTable::CustodyReason, 5, "Lab", "Laboratory analysis");
    record->SetRow(Row::Of({{"CustodyReasonNo", 5}}));
    EXPECT_EQ(record->StorageReason(), "Laboratory analysis") << "the row is read again";
}

TEST_F(CustodyRecords, ASecondCallDoesNotQueryAgain) {
    m_database.AddCode(CodeTable::CustodyReason, 5, "Lab", "Laboratory analysis");
    m_database.AddPerson(101, "Officer Alice Stone");
    const auto record = Record(101, 101, 5, Null());
    record->ReceivedBy();
    record->ReceivedFrom();
    record->StorageReason();
    const auto recording = std::make_shared<testing::RecordingEngine>(m_database.GetEngine());
    m_database.Install(recording);
    EXPECT_EQ(record->ReceivedBy(), "Officer Alice Stone");
    EXPECT_EQ(record->ReceivedFrom(), "Officer Alice Stone");
    EXPECT_EQ(record->StorageReason(), "Laboratory analysis");
    EXPECT_TRUE(recording->Log().empty());
}

TEST_F(CustodyRecords, AnUnknownReasonIsEmptyAndCached) {
    const auto record = Record(Null(), Null(), 99, Null());
    EXPECT_EQ(record->StorageReason(), "");
    EXPECT_TRUE(record->IsCached("StorageReason"));
}

TEST_F(CustodyRecords, ADeletedLocationIsNullAndCached) {
    const auto record = Record(Null(), Null(), Null(), 1);
    EXPECT_EQ(record->Location(), nullptr);
    EXPECT_TRUE(record->IsCached("Location"));
    m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    GetStorageLocationStatic().Refresh();
    ASSERT_NE(GetStorageLocationStatic().FindByID(1), nullptr);
    EXPECT_EQ(record->Location(), nullptr);
}

TEST_F(CustodyRecords, TheLocationObjectIsCached) {
    const auto record = Record(Null(), Null(), Null(), m_database.AddLocation("Shelf", StorageLocationTypes::Internal));
    const auto location = record->Location();
    EXPECT_EQ(record->Location(), location);
    EXPECT_EQ(ToObject<StorageLocation>(record->GetCached("Location")), location);
}

TEST_F(CustodyRecords, TheCacheComparesKeysExactlyAndReplacesValues) {
    TrackingRecord record;
    EXPECT_EQ(record.SetCached("Key", 1), TaggedValue(1));
    EXPECT_EQ(record.SetCached("Key", "two"), TaggedValue("two"));
    EXPECT_EQ(record.GetCached("Key"), TaggedValue("two"));
    EXPECT_TRUE(record.IsCached("Key"));
    EXPECT_FALSE(record.IsCached("key"));
    const Error error = testing::RaisedBy([&] { record.GetCached("key"); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "Item 'key' is not cached.");
}

TEST_F(CustodyRecords, PreviousIsTheRecordThatWasSetOrNull) {
    const auto newer = std::make_shared<TrackingRecord>(), older = std::make_shared<TrackingRecord>();
    newer->SetPrevious(older);
    EXPECT_EQ(newer->Previous(), older);
    EXPECT_EQ(older->Previous(), nullptr);
}

TEST_F(CustodyRecords, ARecordWithoutARowFails) {
    EXPECT_EQ(testing::RaisedBy([] { TrackingRecord().Sequence(); }).Number(), ErrorNumber::NullObject);
}

TEST_F(CustodyRecords, AnIncidentIsLoadedFromItsRow) {
    IncidentInfo incident;
    incident.LoadFromRow(Row::Of({{"IncidentNo", 12}, {"IncidentId", "2026-0012"}, {"IsSecured", 1}}));
    EXPECT_EQ(incident.ID(), 12);
    EXPECT_EQ(incident.DisplayID(), "2026-0012");
    EXPECT_TRUE(incident.IsSecured());
    incident.LoadFromRow(Row::Of({{"IncidentNo", 12}, {"IncidentId", "2026-0012"}, {"IsSecured", false}}));
    EXPECT_FALSE(incident.IsSecured());
}

TEST_F(CustodyRecords, ACaseOfAnIncidentWithoutACaseNumberHasTheEmptyText) {
    CaseInfo info;
    info.LoadFromRow(Row::Of({{"CaseNbr", "C-1"}}));
    EXPECT_EQ(info.CaseNumber(), "C-1");
    info.LoadFromRow(Row::Of({{"CaseNbr", Null()}}));
    EXPECT_EQ(info.CaseNumber(), "");
}

}  // namespace quellbrook

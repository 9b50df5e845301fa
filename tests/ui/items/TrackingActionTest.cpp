#include "ui/items/TrackingAction.h"

#include "tests/support/ui/SmallDepartment.h"

namespace quellbrook::testing {
namespace {

using Types = StorageLocationTypes;

class TrackingActionTest : public SmallDepartment {
protected:
    TrackingActionTest() { uncategorized = m_database.AddLocation("Old Cage", Types::Unassigned); }

    // The action of a record at one location after a record at another; no earlier record for a negative one.
    TrackingAction Action(int32_t location, int32_t before) {
        TrackingRecord record;
        record.SetRow(Row::Of({{"StorageLocNo", location > 0 ? TaggedValue(location) : TaggedValue(Null())}}));
        if (before >= 0) {
            auto previous = std::make_shared<TrackingRecord>();
            previous->SetRow(Row::Of({{"StorageLocNo", before > 0 ? TaggedValue(before) : TaggedValue(Null())}}));
            record.SetPrevious(previous);
        }
        return ActionOf(record);
    }

    int32_t uncategorized = 0;
    static constexpr int32_t nowhere = 0, noRecord = -1;
    static constexpr TrackingAction unknown{"Unknown Action", 0x0080FF}, moved{"Moved", 0xD6711E},
        signedIn{"Signed In", 0x87AD24}, signedOut{"Signed Out", 0x0000C0}, disposed{"Disposed", 0x808080},
        other{"Other", 0x0080FF};
};

TEST_F(TrackingActionTest, NoLocationIsUnknownWhateverCameBefore) {
    for (const int32_t before : {noRecord, nowhere, shelf, crimeLab}) EXPECT_EQ(Action(nowhere, before), unknown);
}

TEST_F(TrackingActionTest, ADeletedLocationIsUnknown) { EXPECT_EQ(Action(987654, shelf), unknown); }

TEST_F(TrackingActionTest, StorageAfterStorageIsAMove) {
    EXPECT_EQ(Action(shelf, aisle), moved);
    EXPECT_EQ(Action(shelf, shelf), moved);
}

TEST_F(TrackingActionTest, StorageAfterAnythingElseIsASignIn) {
    for (const int32_t before : {noRecord, nowhere, crimeLab, disposal, review, uncategorized})
        EXPECT_EQ(Action(shelf, before), signedIn) << before;
}

TEST_F(TrackingActionTest, OtherKindsGoByTheLocationAlone) {
    for (const int32_t before : {noRecord, nowhere, shelf, crimeLab, disposal, review, uncategorized}) {
        EXPECT_EQ(Action(uncategorized, before), unknown);
        EXPECT_EQ(Action(crimeLab, before), signedOut);
        EXPECT_EQ(Action(disposal, before), disposed);
        EXPECT_EQ(Action(review, before), other);
    }
}

}  // namespace
}  // namespace quellbrook::testing

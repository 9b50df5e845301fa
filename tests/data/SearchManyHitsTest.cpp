#include "data/StoredItemSearch.h"

#include "tests/support/DatabaseTest.h"
#include "tests/support/MemoryInUse.h"

#include <set>

namespace quellbrook {

namespace {

constexpr int32_t Many = 20000;

// A counter with a great number of items, each with realistic texts.
class SearchManyHits : public testing::DatabaseTest {
protected:
    SearchManyHits() {
        m_counter = m_database.AddLocation("Counter", StorageLocationTypes::Internal);
        const std::string counter = std::to_string(m_counter);
        m_database.Execute("BEGIN");
        m_database.Execute(
            "INSERT INTO Property (PropertyNo, PropertyID, Description, CategoryNo, Quantity, PropertyValue, "
            "ManufacNbr, ModelNbr, SerialNbr, RecordTypeInd, CurrTrackSeq) "
            "WITH RECURSIVE n (i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " +
            std::to_string(Many) +
            ") "
            "SELECT i, '2026-' || i, 'Blue bicycle with a broken lamp, number ' || i, 3, 1, 12.5, 'Harbor Works', "
            "'Model ' || i % 50, 'SN-' || i * 7, 1, 1 FROM n");
        m_database.Execute(
            "INSERT INTO PropertyTracking (PropertyNo, SeqNo, StorageLocNo, LastUpdated) "
            "SELECT PropertyNo, 1, " +
            counter + ", '2026-01-02T09:30:00.000' FROM Property");
        m_database.Execute("COMMIT");
    }

    static std::shared_ptr<StoredItemList> Everything() {
        return StoredItemSearch().OfType(StoredItemTypes::Property).Execute();
    }

    int32_t m_counter = 0;
};

}  // namespace

TEST_F(SearchManyHits, AHitTakesLittleMemory) {
    Everything();  // fills the database's caches
    const size_t idle = testing::MemoryInUse();
    const auto hits = Everything();
    ASSERT_EQ(hits->Count(), Many);
    EXPECT_LE((testing::MemoryInUse() - idle) / Many, 300u);
}

TEST_F(SearchManyHits, AReadHitTakesLittleMemoryAfterwards) {
    Everything();
    const size_t idle = testing::MemoryInUse();
    const auto hits = Everything();
    for (int32_t i = 0; i < Many; ++i) ASSERT_FALSE(hits->ItemAt(i)->Description().empty());
    EXPECT_LE((testing::MemoryInUse() - idle) / Many, 300u);
}

TEST_F(SearchManyHits, EachPositionReturnsItsOwnItem) {
    const auto hits = Everything();
    std::set<int32_t> keys;
    for (int32_t i = 0; i < hits->Count(); ++i) {
        const StoredItemRef item = hits->ItemAt(i);
        const std::string number = std::to_string(item->ID());
        ASSERT_EQ(item->DisplayID(), "2026-" + number);
        ASSERT_EQ(item->Description(), "Blue bicycle with a broken lamp, number " + number);
        ASSERT_TRUE(keys.insert(item->ID()).second) << "twice: " << number;
    }
    EXPECT_EQ(keys.size(), static_cast<size_t>(Many));
}

TEST_F(SearchManyHits, KeptItemsStayTheSameWhileOthersAreReleased) {
    const auto hits = Everything();
    std::vector<StoredItemRef> held;
    for (int32_t i = 0; i < Many; i += 1000) held.push_back(hits->ItemAt(i));
    for (int32_t i = 0; i < Many; ++i) hits->ItemAt(i);
    for (int32_t i = 0; i < Many; i += 1000) EXPECT_EQ(hits->ItemAt(i), held[static_cast<size_t>(i / 1000)]);
}

TEST_F(SearchManyHits, TheCountAgreesWithTheHits) {
    EXPECT_EQ(StoredItemSearch().OfType(StoredItemTypes::Property).Count(), Many);
    EXPECT_EQ(Everything()->Count(), Many);
}

}  // namespace quellbrook

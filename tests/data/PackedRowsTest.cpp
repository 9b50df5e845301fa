#include "data/PackedRows.h"

#include "tests/support/MemoryInUse.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

namespace quellbrook {

namespace {

std::vector<std::pair<std::string, TaggedValue>> CellsOfEveryKind(int32_t seed) {
    return {{"Empty", Empty()},
            {"Null", Null()},
            {"True", true},
            {"False", false},
            {"Integer", seed},
            {"Float", seed / 3.0},
            {"Decimal", Decimal{int64_t{seed} * 10000000001, 2}},
            {"Text", std::string(static_cast<size_t>(seed % 300), 'x') + "\xC3\xA9"},
            {"NUL", std::string("a\0b", 3)},
            {"Moment", DateTime{1700000000123 + seed}}};
}

}  // namespace

TEST(PackedRows, RowsAreUnpackedUnchanged) {
    PackedRows rows;
    for (int32_t i = 0; i < 1000; ++i) rows.Add(Row::Of(CellsOfEveryKind(i)));
    rows.ShrinkToFit();
    ASSERT_EQ(rows.Count(), 1000u);
    for (int32_t i = 0; i < 1000; ++i) {
        const Row row = rows.At(static_cast<size_t>(i));
        for (const auto& [name, value] : CellsOfEveryKind(i))
            ASSERT_EQ(row.Value(name), value) << name << " of row " << i;
    }
}

TEST(PackedRows, RowsAddedAfterShrinkingFollowTheOthers) {
    PackedRows rows;
    for (int32_t i = 0; i < 600; ++i) {
        rows.Add(Row::Of({{"Value", i}}));
        if (i % 100 == 0) rows.ShrinkToFit();
    }
    for (int32_t i = 0; i < 600; ++i) ASSERT_EQ(rows.At(static_cast<size_t>(i)).Value("Value"), TaggedValue(i));
}

TEST(PackedRows, IsEmptyAtFirst) { EXPECT_EQ(PackedRows().Count(), 0u); }

TEST(PackedRows, AnObjectIsRejectedAndLeavesTheRowsUnchanged) {
    const auto row = [](const TaggedValue& second) { return Row::Of({{"First", "some text"}, {"Second", second}}); };
    for (const size_t before : {0u, 1u, 255u, 256u}) {
        PackedRows rows;
        for (size_t i = 0; i < before; ++i) rows.Add(row(static_cast<int32_t>(i)));
        EXPECT_EQ(testing::RaisedBy([&] { rows.Add(row(ObjectRef())); }).Number(), ErrorNumber::TypeMismatch);
        EXPECT_EQ(rows.Count(), before);
        rows.Add(row(-1));
        EXPECT_EQ(rows.At(before).Value("Second"), TaggedValue(-1));
        for (size_t i = 0; i < before; ++i) ASSERT_EQ(rows.At(i).Value("Second"), TaggedValue(static_cast<int32_t>(i)));
    }
}

TEST(PackedRows, RowsTakeLittleMoreThanTheBytesOfTheirValues) {
    const size_t count = 20000;
    const std::string text(100, 'x');
    const Row row = Row::Of({{"Key", 1}, {"Text", text}, {"Nothing", Null()}});
    const size_t idle = testing::MemoryInUse();
    PackedRows rows;
    for (size_t i = 0; i < count; ++i) rows.Add(row);
    EXPECT_LT((testing::MemoryInUse() - idle) / count, 124u) << "nothing is taken far in advance";
    rows.ShrinkToFit();
    EXPECT_LT((testing::MemoryInUse() - idle) / count, 124u);
}

}  // namespace quellbrook

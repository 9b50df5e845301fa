#include "data/PackedRows.h"

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

TEST(PackedRows, RowsComeBackAsTheyWentIn) {
    PackedRows rows;
    for (int32_t i = 0; i < 1000; ++i) rows.Add(Row::Of(CellsOfEveryKind(i)));
    rows.ShrinkToFit();
    ASSERT_EQ(rows.Count(), 1000u);
    for (const int32_t i : {0, 1, 299, 300, 500, 999}) {
        const Row row = rows.At(static_cast<size_t>(i));
        for (const auto& [name, value] : CellsOfEveryKind(i))
            EXPECT_EQ(row.Value(name), value) << name << " of row " << i;
    }
}

TEST(PackedRows, ThereAreNoRowsAtFirst) { EXPECT_EQ(PackedRows().Count(), 0u); }

TEST(PackedRows, AnObjectIsRefusedAndLeavesTheRowsAsTheyWere) {
    PackedRows rows;
    rows.Add(Row::Of({{"Value", 1}}));
    EXPECT_EQ(testing::RaisedBy([&] { rows.Add(Row::Of({{"Value", ObjectRef()}})); }).Number(), 13);
    EXPECT_EQ(rows.Count(), 1u);
    rows.Add(Row::Of({{"Value", 2}}));
    EXPECT_EQ(rows.At(1).Value("Value"), TaggedValue(2));
}

}  // namespace quellbrook

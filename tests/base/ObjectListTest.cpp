#include "base/ObjectList.h"

#include "base/Error.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

#include <memory>

namespace quellbrook::testing {
namespace {

TEST(ObjectVector, IsReadByPositionFromZero) {
    const auto first = std::make_shared<ObjectVector>(), second = std::make_shared<ObjectVector>();
    ObjectVector list;
    EXPECT_TRUE(list.IsEmpty());
    list.Add(first);
    list.Add(second);
    EXPECT_EQ(list.At(0), first);
    EXPECT_EQ(list.At(1), second);
}

TEST(ObjectVector, APositionOutsideIsError9) {
    ObjectVector list;
    list.Add(nullptr);
    for (const int32_t index : {-1, 1}) {
        const Error error = RaisedBy([&] { list.At(index); });
        EXPECT_EQ(error.Number(), ErrorNumber::SubscriptOutOfRange);
        EXPECT_EQ(error.Source(), "ObjectVector.At");
    }
}

}  // namespace
}  // namespace quellbrook::testing

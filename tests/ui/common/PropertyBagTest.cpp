#include "ui/common/PropertyBag.h"

#include <gtest/gtest.h>

namespace quellbrook {

TEST(PropertyBag, AnAbsentKeyReadsAsItsDefault) {
    EXPECT_EQ(PropertyBag().ReadProperty("BorderStyle", 3), TaggedValue(3));
    EXPECT_TRUE(PropertyBag().ReadProperty("BorderStyle").IsEmpty());
}

TEST(PropertyBag, AWrittenValueIsRead) {
    PropertyBag bag;
    bag.WriteProperty("BorderStyle", 1, 0);
    EXPECT_EQ(bag.ReadProperty("BorderStyle", 0), TaggedValue(1));
}

TEST(PropertyBag, TheDefaultIsNotKept) {
    PropertyBag bag;
    bag.WriteProperty("BorderStyle", 1, 0);
    bag.WriteProperty("BorderStyle", 0, 0);
    EXPECT_FALSE(bag.Has("BorderStyle"));
    EXPECT_EQ(bag.ReadProperty("BorderStyle", 7), TaggedValue(7));
}

}  // namespace quellbrook

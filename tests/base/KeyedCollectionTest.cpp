#include "base/KeyedCollection.h"

#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace quellbrook {
namespace {

using testing::RaisedBy;

template <typename T>
std::vector<T> Values(const KeyedCollection<T>& collection) {
    std::vector<T> values;
    for (const T& value : collection) values.push_back(value);
    return values;
}

KeyedCollection<int> OneTwoThree() {
    KeyedCollection<int> collection;
    collection.Add(1, "K1");
    collection.Add(2, "K2");
    collection.Add(3, "K3");
    return collection;
}

TEST(KeyedCollection, KeepsInsertionOrder) {
    KeyedCollection<int> collection;
    collection.Add(3, "c");
    collection.Add(1, "a");
    collection.Add(2, "b");
    EXPECT_EQ(Values(collection), (std::vector<int>{3, 1, 2}));
}

TEST(KeyedCollection, ATakenKeyFailsWith457AndChangesNothing) {
    KeyedCollection<int> collection = OneTwoThree();
    const Error error = RaisedBy([&] { collection.Add(9, "K2"); });
    EXPECT_EQ(error.Number(), ErrorNumber::KeyTaken);
    EXPECT_EQ(error.Description(), "This key is already in the collection.");
    EXPECT_EQ(Values(collection), (std::vector<int>{1, 2, 3}));
}

TEST(KeyedCollection, TryAddPassesOverATakenKey) {
    KeyedCollection<int> collection = OneTwoThree();
    EXPECT_FALSE(collection.TryAdd(9, "K2"));
    EXPECT_TRUE(collection.TryAdd(4, "K4"));
    EXPECT_EQ(Values(collection), (std::vector<int>{1, 2, 3, 4}));
}

TEST(KeyedCollection, AnAbsentKeyFailsWith5) {
    KeyedCollection<int> collection = OneTwoThree();
    for (const Error& error : {RaisedBy([&] { collection.Item("K9"); }), RaisedBy([&] { collection.Remove("K9"); })}) {
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Description(), "There is no such key in the collection.");
    }
    EXPECT_EQ(collection.Count(), 3u);
}

TEST(KeyedCollection, KeysAreComparedExactly) {
    KeyedCollection<int> collection = OneTwoThree();
    EXPECT_FALSE(collection.Contains("k1"));
    EXPECT_TRUE(collection.TryAdd(4, "k1"));
    EXPECT_EQ(collection.Item("K1"), 1);
    EXPECT_EQ(collection.Item("k1"), 4);
}

TEST(KeyedCollection, ARemovedEntryLeavesTheOthersInOrder) {
    KeyedCollection<int> collection = OneTwoThree();
    collection.Remove("K2");
    EXPECT_EQ(Values(collection), (std::vector<int>{1, 3}));
    collection.Add(2, "K2");
    EXPECT_EQ(Values(collection), (std::vector<int>{1, 3, 2}));
}

TEST(KeyedCollection, ACopyIsIndependent) {
    KeyedCollection<int> original = OneTwoThree();
    KeyedCollection<int> copy = original;
    original.Remove("K1");
    copy.Remove("K3");
    EXPECT_EQ(Values(original), (std::vector<int>{2, 3}));
    EXPECT_EQ(Values(copy), (std::vector<int>{1, 2}));
    copy = original;
    original.Clear();
    EXPECT_EQ(copy.Item("K3"), 3);
    EXPECT_TRUE(original.IsEmpty());
}

TEST(KeyedCollection, AssigningItselfChangesNothing) {
    KeyedCollection<int> collection = OneTwoThree();
    const KeyedCollection<int>& itself = collection;
    collection = itself;
    EXPECT_EQ(Values(collection), (std::vector<int>{1, 2, 3}));
}

TEST(KeyedCollection, AMovedCollectionStillFindsItsEntries) {
    KeyedCollection<int> source = OneTwoThree();
    KeyedCollection<int> target = std::move(source);
    EXPECT_EQ(target.Item("K2"), 2);
    target.Remove("K2");
    EXPECT_EQ(Values(target), (std::vector<int>{1, 3}));
}

TEST(KeyedCollection, StoresValuesThatCannotBeCopied) {
    KeyedCollection<std::unique_ptr<int>> collection;
    collection.Add(std::make_unique<int>(7), "seven");
    EXPECT_EQ(*collection.Item("seven"), 7);
}

}  // namespace
}  // namespace quellbrook

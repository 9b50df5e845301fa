#include "data/RowDocuments.h"

#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

namespace quellbrook {

namespace {

using List = std::vector<TaggedValue>;
using testing::RaisedBy;

}  // namespace

TEST(RowDocuments, ARowHasOneChildForEachColumnInOrder) {
    const auto document =
        CreateRowXmlNode("StorageLocation", List{"Name", "Type", "ActiveFlag", "DateEntered"},
                         List{"A & <B>", 2, true, DateTime::FromParts({2026, 11, 20, 13, 14, 15, 123})});
    const pugi::xml_node row = document->document_element();
    EXPECT_STREQ(row.name(), "StorageLocation");
    const std::pair<const char*, const char*> expected[] = {
        {"Name", "A & <B>"}, {"Type", "2"}, {"ActiveFlag", "True"}, {"DateEntered", "2026-11-20T13:14:15.123"}};
    auto cell = row.begin();
    for (const auto& [name, text] : expected) {
        ASSERT_NE(cell, row.end());
        EXPECT_STREQ(cell->name(), name);
        EXPECT_STREQ(cell->text().get(), text);
        EXPECT_STREQ(cell->attribute("isPersistable").value(), "1");
        ++cell;
    }
    EXPECT_EQ(cell, row.end());
}

TEST(RowDocuments, ARowWithoutColumnsIsAnEmptyElement) {
    const auto document = CreateRowXmlNode("Property", List{}, List{});
    EXPECT_STREQ(document->document_element().name(), "Property");
    EXPECT_FALSE(document->document_element().first_child());
}

TEST(RowDocuments, ColumnsAndValuesMustBeLists) {
    Error error = RaisedBy([] { CreateRowXmlNode("Property", "Name", List{1}); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "CreateRowXmlNode: Columns must be an array");
    error = RaisedBy([] { CreateRowXmlNode("Property", List{"Name"}, TaggedValue(1)); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "CreateRowXmlNode: Values must be an array");
}

TEST(RowDocuments, ColumnsAndValuesMustHaveTheSameLength) {
    const Error error = RaisedBy([] { CreateRowXmlNode("Property", List{"Name", "Type"}, List{"Shelf"}); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "CreateRowXmlNode: Columns and Values arrays have different lengths.");
}

TEST(RowDocuments, AValueThatHasNoTextFails) {
    EXPECT_EQ(RaisedBy([] { CreateRowXmlNode("Property", List{"Name"}, List{Null()}); }).Number(),
              ErrorNumber::InvalidUseOfNull);
}

TEST(RowDocuments, ATextWithNulIsRejectedInsteadOfTruncated) {
    const Error error =
        RaisedBy([] { CreateRowXmlNode("Property", List{"Name"}, List{std::string("Shelf\0 12", 9)}); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "A text with a NUL character can't be stored.");
}

TEST(RowDocuments, AnInvalidRootNameFails) {
    EXPECT_EQ(RaisedBy([] { CreateRowXmlNode("", List{}, List{}); }).Number(), ErrorNumber::NullObject);
}

TEST(RowDocuments, ArraySizeCountsTheElementsOfAList) {
    EXPECT_EQ(ArraySize(List{}), 0);
    EXPECT_EQ(ArraySize(List{1, Null(), "three"}), 3);
    const Error error = RaisedBy([] { ArraySize(TaggedValue(3)); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "ArraySize: arr is not an array.");
}

}  // namespace quellbrook

#include "host/HostLocationData.h"

#include "base/Error.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/TestDatabase.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace quellbrook::testing {
namespace {

// The index

std::string AnyOf(std::mt19937& random, std::initializer_list<const char*> choices) {
    return choices.begin()[random() % choices.size()];
}

void MaybeAppend(std::mt19937& random, pugi::xml_node& row, const char* name, const std::string& text) {
    if (random() % 6 != 0) row.append_child(name).text().set(text.c_str());
}

std::unique_ptr<pugi::xml_document> RandomDocument(std::mt19937& random) {
    auto document = std::make_unique<pugi::xml_document>();
    pugi::xml_node root = document->append_child("StorageLocations");
    for (auto rows = random() % 40; rows > 0; --rows) {
        pugi::xml_node row = root.append_child(random() % 10 == 0 ? "Other" : "StorageLocation");
        MaybeAppend(random, row, "Name", "n");
        MaybeAppend(random, row, "IdNo", AnyOf(random, {"1", "2", "3", " 12", "12 ", "-4", "", "x", "2147483647"}));
        MaybeAppend(random, row, "Path", AnyOf(random, {"/0/", "/0/1/", "/0/12/", "", " "}));
        MaybeAppend(random, row, "Type", AnyOf(random, {"1", "2", " 2", "16", "two", ""}));
    }
    return document;
}

TEST(LocationDocument, AnswersWhatXPathAnswers) {
    std::mt19937 random(4);
    for (int round = 0; round < 300; ++round) {
        const LocationDocument document(RandomDocument(random));
        for (const int32_t id : {0, 1, 2, 3, 12, -4, 2147483647, 99})
            ASSERT_EQ(
                document.FindByID(id),
                document.Root().select_node(("StorageLocation[IdNo= " + std::to_string(id) + "]").c_str()).node());
        for (const char* path : {"/0/", "/0/1/", "/0/12/", "", " ", "/0/9/"}) {
            for (const int32_t type : {1, 2, 16, 4}) {
                std::vector<pugi::xml_node> expected;
                for (const auto& found : document.Root().select_nodes(
                         ("StorageLocation[Path='" + std::string(path) + "' and Type=" + std::to_string(type) + "]")
                             .c_str()))
                    expected.push_back(found.node());
                ASSERT_EQ(document.Children(path, type), expected) << path << " " << type;
            }
        }
    }
}

TEST(LocationDocument, RowsWithoutKeysAreSimplyNotFound) {
    auto xml = std::make_unique<pugi::xml_document>();
    ASSERT_TRUE(
        xml->load_string("<L><StorageLocation/><StorageLocation><IdNo>5</IdNo></StorageLocation>"
                         "<StorageLocation><Path>/0/</Path><Type>2</Type></StorageLocation></L>"));
    const LocationDocument document(std::move(xml));
    EXPECT_TRUE(document.FindByID(5));
    EXPECT_FALSE(document.FindByID(0));
    EXPECT_EQ(document.Children("/0/", 2).size(), 1u);
    EXPECT_TRUE(document.Children("", 2).empty());
}

TEST(LocationDocument, ADocumentWithoutRowsHasAnswersToo) {
    const LocationDocument document(std::make_unique<pugi::xml_document>());
    EXPECT_FALSE(document.FindByID(1));
    EXPECT_TRUE(document.Children("/0/", 2).empty());
}

// The cached document

class HostLocationDataTest : public ::testing::Test {
protected:
    std::string NameOf(int32_t id) { return m_data.GetDocument()->FindByID(id).child_value("Name"); }

    TestDatabase m_database;
    HostLocationData m_data;
};

TEST_F(HostLocationDataTest, HasARowForEachLocationByNameAndIdentifier) {
    m_database.AddLocation("shelf b", StorageLocationTypes::Internal);
    m_database.AddLocation("Shelf A", StorageLocationTypes::Internal);
    const int32_t first = m_database.AddLocation("Court", StorageLocationTypes::External);
    const int32_t second = m_database.AddLocation("Court", StorageLocationTypes::Other);
    std::vector<std::string> names;
    std::vector<int32_t> ids;
    for (const pugi::xml_node row : m_data.GetDocument()->Root().children("StorageLocation")) {
        names.push_back(row.child_value("Name"));
        ids.push_back(row.child("IdNo").text().as_int());
    }
    EXPECT_EQ(names, (std::vector<std::string>{"Court", "Court", "Shelf A", "shelf b"}));
    EXPECT_EQ(ids[0], first);
    EXPECT_EQ(ids[1], second);
}

TEST_F(HostLocationDataTest, RowsAreInTheNaturalOrderOfTheirNames) {
    const std::vector<std::string> sorted = {"annex",       "Building 2",   "building 3",
                                             "Building 10", "Building 010", "Yard"};
    for (const int i : {4, 1, 5, 3, 0, 2})
        m_database.AddLocation(sorted[static_cast<size_t>(i)], StorageLocationTypes::Internal);
    std::vector<std::string> names;
    for (const pugi::xml_node row : HostLocationData().GetDocument()->Children("/0/", 2))
        names.emplace_back(row.child_value("Name"));
    EXPECT_EQ(names,
              (std::vector<std::string>{"annex", "Building 2", "building 3", "Building 010", "Building 10", "Yard"}));
}

TEST_F(HostLocationDataTest, HasAnElementForEachColumnThatIsNotNull) {
    const int32_t id = m_database.AddLocation("A & <B>", StorageLocationTypes::Internal, 0, std::nullopt);
    const pugi::xml_node row = m_data.GetDocument()->FindByID(id);
    EXPECT_STREQ(row.child_value("Name"), "A & <B>");
    EXPECT_STREQ(row.child_value("Path"), "/0/");
    EXPECT_STREQ(row.child_value("Type"), "2");
    EXPECT_FALSE(row.child("ActiveFlag"));
    EXPECT_STREQ(row.child_value("LastUpdated"), "2026-01-01T08:00:00.000");
    EXPECT_TRUE(ToDateTime(row.child_value("DateEntered")) == DateTime::FromParts({2026, 1, 1, 8, 0, 0, 0}));
}

TEST_F(HostLocationDataTest, BooleansReadBackAsBooleans) {
    const int32_t open = m_database.AddLocation("Open", StorageLocationTypes::Internal, 0, true);
    const int32_t closed = m_database.AddLocation("Closed", StorageLocationTypes::Internal, 0, false);
    EXPECT_TRUE(ToBool(m_data.GetDocument()->FindByID(open).child_value("ActiveFlag")));
    EXPECT_FALSE(ToBool(m_data.GetDocument()->FindByID(closed).child_value("ActiveFlag")));
}

TEST_F(HostLocationDataTest, TextsKeepBlanksLineEndsAndOtherScripts) {
    const std::string name =
        "  \xC3\x9C"
        "ber\r\nlang \xF0\x9F\x94\x92 ";
    const int32_t blanks = m_database.AddLocation("   ", StorageLocationTypes::Internal);
    EXPECT_EQ(NameOf(blanks), "   ");
    const int32_t id = m_database.AddLocation(name, StorageLocationTypes::Internal);
    m_data.Reload();
    EXPECT_EQ(NameOf(id), name);
}

TEST_F(HostLocationDataTest, AllInstancesShareOneDocumentThatChangesOnReloadOnly) {
    const int32_t id = m_database.AddLocation("Before", StorageLocationTypes::Internal);
    const auto document = m_data.GetDocument();
    m_database.Execute("UPDATE StorageLocation SET Name = 'After'");
    EXPECT_EQ(HostLocationData().GetDocument(), document);
    EXPECT_EQ(NameOf(id), "Before");
    EXPECT_TRUE(HostLocationData().Reload().IsEmpty());
    EXPECT_EQ(NameOf(id), "After");
    EXPECT_STREQ(document->FindByID(id).child_value("Name"), "Before");
}

TEST_F(HostLocationDataTest, DiscardMakesTheNextReaderLoad) {
    const auto before = m_data.GetDocument();
    const int32_t id = m_database.AddLocation("New", StorageLocationTypes::Internal);
    HostLocationData::Discard();
    EXPECT_NE(m_data.GetDocument(), before);
    EXPECT_EQ(NameOf(id), "New");
}

TEST_F(HostLocationDataTest, AFailedReloadKeepsTheDocument) {
    const int32_t id = m_database.AddLocation("Kept", StorageLocationTypes::Internal);
    EXPECT_EQ(NameOf(id), "Kept");
    m_database.Execute("PRAGMA legacy_alter_table = ON");
    m_database.Execute("ALTER TABLE StorageLocation RENAME TO Elsewhere");
    EXPECT_NE(RaisedBy([&] { m_data.Reload(); }).Number(), 0);
    EXPECT_EQ(NameOf(id), "Kept");
}

TEST_F(HostLocationDataTest, FindsChildrenByPathAndTypeTogether) {
    const int32_t shelf = m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    m_database.AddLocation("Court", StorageLocationTypes::External);
    const int32_t bin = m_database.AddLocation("Bin", StorageLocationTypes::Internal, shelf);
    const auto document = m_data.GetDocument();
    ASSERT_EQ(document->Children("/0/", 2).size(), 1u);
    EXPECT_EQ(document->Children("/0/", 2)[0], document->FindByID(shelf));
    ASSERT_EQ(document->Children("/0/" + std::to_string(shelf) + "/", 2).size(), 1u);
    EXPECT_EQ(document->Children("/0/" + std::to_string(shelf) + "/", 2)[0], document->FindByID(bin));
    EXPECT_TRUE(document->Children("/0/" + std::to_string(shelf) + "/", 4).empty());
}

}  // namespace
}  // namespace quellbrook::testing

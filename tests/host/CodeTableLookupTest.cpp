#include "host/CodeTableLookup.h"

#include "host/PersonDirectory.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/TestDatabase.h"

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

class CodeTables : public ::testing::Test {
protected:
    void AddOfficer(int32_t no, const TaggedValue& first, const std::string& last, const TaggedValue& title,
                    bool active = true) {
        m_database.Execute("INSERT INTO Person (PersonNo, FirstName, LastName, Title, IsActive) VALUES (?, ?, ?, ?, ?)",
                           {no, first, last, title, active});
    }

    std::vector<std::string> Texts(int16_t table) {
        std::vector<std::string> texts;
        for (const CodeEntry& entry : m_lookup.Entries(table)) texts.push_back(entry.text);
        return texts;
    }

    TestDatabase m_database;
    CodeTableLookup m_lookup;
};

TEST_F(CodeTables, NameAndDescriptionAreColumnsOfTheirOwn) {
    m_database.AddCode(CodeTable::CustodyReason, 1, "INIT", "Initial storage");
    EXPECT_EQ(m_lookup.Name(38, 1), TaggedValue("INIT"));
    EXPECT_EQ(m_lookup.Description(38, 1), TaggedValue("Initial storage"));
    EXPECT_EQ(m_lookup.Description(38, "1"), TaggedValue("Initial storage"));
}

TEST_F(CodeTables, TheSameCodeMeansAnotherThingInAnotherTable) {
    m_database.AddCode(CodeTable::PropertyCategory, 1, "Jewelry");
    m_database.AddCode(CodeTable::VehicleCategory, 1, "Van");
    EXPECT_EQ(m_lookup.Name(31, 1), TaggedValue("Jewelry"));
    EXPECT_EQ(m_lookup.Name(46, 1), TaggedValue("Van"));
}

TEST_F(CodeTables, NullAndUnknownCodesGiveNull) {
    m_database.AddCode(CodeTable::PropertyCategory, 1, Null(), Null());
    for (const TaggedValue& code : {TaggedValue(Null()), TaggedValue(), TaggedValue(1), TaggedValue(99)}) {
        EXPECT_TRUE(m_lookup.Name(31, code).IsNull());
        EXPECT_TRUE(m_lookup.Description(31, code).IsNull());
    }
    EXPECT_TRUE(m_lookup.Name(CodeTable::Officers, 99).IsNull());
}

TEST_F(CodeTables, EntriesAreOrderedByText) {
    m_database.AddCode(CodeTable::CustodyReason, 1, "court");
    m_database.AddCode(CodeTable::CustodyReason, 2, "Analysis");
    m_database.AddCode(CodeTable::CustodyReason, 3, "Zone", "Beach");
    m_database.AddCode(CodeTable::CustodyReason, 4, "Nameless", Null());
    EXPECT_EQ(Texts(38), (std::vector<std::string>{"Analysis", "Beach", "court", "Nameless"}));
    EXPECT_EQ(m_lookup.Entries(38)[1].code, 3);
    EXPECT_TRUE(Texts(30).empty());
}

TEST_F(CodeTables, AnInactiveEntryCannotBeChosenButIsFound) {
    m_database.AddCode(CodeTable::CustodyReason, 1, "Old", "Old", false);
    EXPECT_TRUE(Texts(38).empty());
    EXPECT_EQ(m_lookup.Description(38, 1), TaggedValue("Old"));
}

TEST_F(CodeTables, OfficersAreThePersonsWithTheirTitles) {
    AddOfficer(7, "Priya", "Raman", "Evidence Technician");
    AddOfficer(8, Null(), "Front Desk", Null());
    AddOfficer(9, "Ana", "Brandt", Null());
    AddOfficer(10, "Gone", "Officer", Null(), false);
    EXPECT_EQ(Texts(CodeTable::Officers),
              (std::vector<std::string>{"Brandt, Ana", "Front Desk", "Raman, Priya (Evidence Technician)"}));
    EXPECT_EQ(m_lookup.Entries(CodeTable::Officers)[2].code, 7);
    EXPECT_EQ(m_lookup.Name(CodeTable::Officers, 7), TaggedValue("Raman, Priya"));
    EXPECT_EQ(m_lookup.Description(CodeTable::Officers, 10), TaggedValue("Officer, Gone"));
}

TEST_F(CodeTables, ThePersonDirectoryNamesPersonsWithoutTitle) {
    AddOfficer(7, "Priya", "Raman", "Evidence Technician");
    AddOfficer(10, "Gone", "Officer", Null(), false);
    EXPECT_EQ(PersonDirectory().NameForId(7), "Raman, Priya");
    EXPECT_EQ(PersonDirectory().NameForId("10"), "Officer, Gone");
    EXPECT_EQ(PersonDirectory().NameForId(99), "Unknown (99)");
    EXPECT_EQ(RaisedBy([] { PersonDirectory().NameForId(Null()); }).Number(), ErrorNumber::InvalidUseOfNull);
}

}  // namespace
}  // namespace quellbrook::testing

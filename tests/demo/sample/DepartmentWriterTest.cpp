#include "base/Error.h"
#include "database/SqliteEngine.h"
#include "database/schema/SqliteSchema.h"
#include "demo/sample/DepartmentWriter.h"
#include "demo/sample/Locations.h"
#include "tests/support/ScratchFolder.h"

#include <memory>

#include <gmock/gmock.h>

namespace quellbrook::sample {

namespace {

// A department with one location, one incident and one person, to which a test adds what does or does not fit.
class DepartmentWriterTest : public ::testing::Test {
protected:
    void SetUp() override {
        CreateDatabase(m_path);
        m_writer = std::make_unique<DepartmentWriter>(m_path);
        m_tree.Add(0, "Room", Internal);
        m_writer->AddLocation(m_tree.All().front());
        m_writer->AddIncident({1, "2026-0001", "", false});
    }

    static std::vector<Custody> ChainTo(std::optional<int32_t> location) {
        Custody custody;
        custody.received = custody.written = DateTime::FromParts({2026, 1, 2, 8, 0, 0, 0});
        custody.location = location;
        return {custody};
    }

    static Property Piece(int32_t no) {
        Property property;
        property.no = no;
        property.id = "P";
        property.description = "Gold ring";
        return property;
    }

    std::string RefusalOfFinish() {
        try {
            m_writer->Finish({});
        } catch (const Error& error) {
            EXPECT_EQ(error.Number(), ErrorNumber::General);
            return error.Description();
        }
        return "";
    }

    const testing::ScratchFolder m_folder;
    const std::string m_path = m_folder.In("department.sqlite");
    LocationTree m_tree;
    std::unique_ptr<DepartmentWriter> m_writer;
};

}  // namespace

TEST_F(DepartmentWriterTest, RowsThatFitTogetherMakeADepartment) {
    m_writer->AddProperty(Piece(1), ChainTo(1));
    m_writer->LinkProperty(1, 1);
    EXPECT_EQ(RefusalOfFinish(), "");
    m_writer.reset();
    EXPECT_NO_THROW(SqliteEngine::Open(m_path));
    SQLite::Database database(m_path);
    EXPECT_EQ(database.execAndGet("SELECT StorageLocNo FROM CurrentPlace WHERE ItemType = 1 AND ItemNo = 1").getInt(),
              1);
    EXPECT_EQ(
        database.execAndGet("SELECT COUNT(*) FROM PropertyDescription WHERE Description LIKE '%old ri%'").getInt(), 1);
}

TEST_F(DepartmentWriterTest, ALinkToAnItemThatIsNotThereIsRefused) {
    m_writer->LinkProperty(1, 7);
    EXPECT_EQ(RefusalOfFinish(),
              "The department can't be made: a row of IncdProperty refers to one of Property that is not "
              "there.");
}

TEST_F(DepartmentWriterTest, ACustodyRowAtALocationThatIsNotThereIsRefused) {
    m_writer->AddVehicle({FirstVehicleNo, "ABC", "", 0, "", "", "", {}, true, {}, {}}, ChainTo(9));
    EXPECT_EQ(RefusalOfFinish(),
              "The department can't be made: a row of VehicleTracking refers to one of StorageLocation "
              "that is not there.");
}

TEST_F(DepartmentWriterTest, ALocationWithoutItsContainerIsRefusedAtOnce) {
    LocationTree tree;
    tree.Add(0, "Elsewhere", External);
    tree.Add(1, "Below", External);
    EXPECT_THROW(m_writer->AddLocation(tree.All().back()), SQLite::Exception) << "the container is of another category";
}

TEST_F(DepartmentWriterTest, AnItemKeptTwiceIsRefusedAtOnce) {
    m_writer->AddProperty(Piece(1), {});
    EXPECT_THROW(m_writer->AddProperty(Piece(1), {}), SQLite::Exception);
}

TEST_F(DepartmentWriterTest, WhatIsNotFinishedIsNotOpened) {
    m_writer->AddProperty(Piece(1), ChainTo(1));
    m_writer.reset();
    EXPECT_THROW(SqliteEngine::Open(m_path), Error);
}

TEST_F(DepartmentWriterTest, AnEmptyIdentifierStaysApartFromNone) {
    Property empty = Piece(1), none = Piece(2);
    empty.id = "";
    none.id.reset();
    m_writer->AddProperty(empty, {});
    m_writer->AddProperty(none, {});
    EXPECT_EQ(RefusalOfFinish(), "");
    m_writer.reset();
    SQLite::Database database(m_path);
    EXPECT_EQ(database.execAndGet("SELECT PropertyNo FROM Property WHERE PropertyID = ''").getInt(), 1);
    EXPECT_EQ(database.execAndGet("SELECT PropertyNo FROM Property WHERE PropertyID IS NULL").getInt(), 2);
}

TEST_F(DepartmentWriterTest, FilesOfAnItemAreNumberedFromOne) {
    Property property = Piece(1);
    property.attachments = {{{1, "front.png"}, {std::nullopt, "back.png"}}, 2};
    m_writer->AddFolder(1, "Pictures");
    m_writer->AddProperty(property, {});
    EXPECT_EQ(RefusalOfFinish(), "");
    m_writer.reset();
    SQLite::Database database(m_path);
    EXPECT_EQ(database.execAndGet("SELECT CurrImageSeq FROM Property").getInt(), 2);
    EXPECT_EQ(
        database
            .execAndGet("SELECT FileName FROM AttachmentIndex WHERE IdNo = 1 AND ObjTypeInd = 6 AND SeqNo = 2 AND "
                        "FolderNo IS NULL")
            .getString(),
        "back.png");
}

}  // namespace quellbrook::sample

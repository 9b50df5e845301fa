#include "database/SqliteEngine.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/TestLocations.h"

#include <csignal>
#include <filesystem>
#include <functional>

#include <sqlite3.h>
#include <sys/resource.h>

namespace quellbrook {

namespace {

const std::string fullDisk =
    "The disk of the database is full. Free some space and try again. (database or disk is full)";

using Types = StorageLocationTypes;

// During its lifetime, new connections find the database full: it cannot grow by another page.
class NoMorePages {
public:
    NoMorePages() { sqlite3_auto_extension(Entry()); }
    ~NoMorePages() { sqlite3_cancel_auto_extension(Entry()); }
    NoMorePages(const NoMorePages&) = delete;
    NoMorePages& operator=(const NoMorePages&) = delete;

private:
    static int Limit(sqlite3* database, char**, const void*) {
        return sqlite3_exec(database, "PRAGMA max_page_count = 1", nullptr, nullptr, nullptr);
    }
    static void (*Entry())() { return reinterpret_cast<void (*)()>(&Limit); }
};

// During its lifetime, no file of this process grows beyond this size.
class NoLongerFiles {
public:
    explicit NoLongerFiles(uintmax_t bytes) {
        m_signal = std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~NoLongerFiles() {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }
    NoLongerFiles(const NoLongerFiles&) = delete;
    NoLongerFiles& operator=(const NoLongerFiles&) = delete;

private:
    rlimit m_before{};
    void (*m_signal)(int) = nullptr;
};

class StorageLocationOutage : public testing::DatabaseTest {
protected:
    StorageLocationOutage() {
        m_room = m_tree.Find(m_tree.room);
        m_shelf = m_tree.Find(m_tree.shelf);
        m_annex = m_tree.Find(m_tree.annex);
    }

    // Every writing operation, with the text before the database's message.
    std::vector<std::pair<std::function<void()>, std::string>> Operations() const {
        return {{[this] { m_room->CreateSubLocation("Crate"); }, "Could not create location 'Crate'. \r\n\r\n"},
                {[this] { m_room->SetEnabled(false); }, "Could not disable this location.\r\n\r\n"},
                {[this] { m_shelf->Rename("Rack"); }, "Could not rename location 'Rack'. \r\n\r\n"},
                {[this] { m_shelf->Move(m_annex); }, "Could not move location 'Shelf' into 'Annex'. \r\n\r\n"},
                {[this] { m_shelf->Delete(); }, "Could not delete this location. \r\n\r\n"}};
    }
    void ExpectEachReports(const std::string& description) const {
        for (const auto& [run, sentence] : Operations()) ExpectReport(run, sentence + description);
    }
    static void ExpectReport(const std::function<void()>& run, const std::string& description) {
        const Error error = testing::RaisedBy(run);
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Description(), description);
    }

    void UseEngineThatDoesNotWait() { m_database.Install(SqliteEngine::Open(m_database.Path(), 0)); }

    testing::TestLocations m_tree{m_database};
    StorageLocationRef m_room, m_shelf, m_annex;
};

}  // namespace

TEST_F(StorageLocationOutage, ADatabaseThatAnotherWorkstationIsWritingToIsReported) {
    UseEngineThatDoesNotWait();
    const std::string before = m_database.Snapshot();
    m_database.Execute("BEGIN IMMEDIATE");
    ExpectEachReports(
        "Another program is writing to the database and did not finish in time. Try again. (database is locked)");
    m_database.Execute("ROLLBACK");
    EXPECT_EQ(m_database.Snapshot(), before);

    m_shelf->Move(m_annex);
    EXPECT_EQ(m_tree.Row(m_tree.box), "Box 2 /0/5/2/");
}

TEST_F(StorageLocationOutage, ADatabaseLockedByAnotherProgramIsReported) {
    UseEngineThatDoesNotWait();
    const std::string before = m_database.Snapshot();
    m_database.QueryRows("PRAGMA locking_mode = EXCLUSIVE");
    m_database.Execute("BEGIN EXCLUSIVE");
    ExpectEachReports("The database '" + m_database.Path() +
                      "' is locked by another program. Close it there and try again.");
    m_database.Execute("ROLLBACK");
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(StorageLocationOutage, AFullDatabaseIsReported) {
    for (int i = 0; i < 400; ++i) m_database.AddLocation("Slot " + std::to_string(i), Types::Internal, m_tree.shelf);
    int32_t deep = m_tree.annex;
    for (int i = 0; i < 30; ++i) deep = m_database.AddLocation("Level " + std::to_string(i), Types::Internal, deep);
    const std::string longName(10000, 'x');
    const std::string before = m_database.Snapshot();

    const NoMorePages full;
    m_database.Install(m_database.GetEngine());
    ExpectReport([&] { m_room->CreateSubLocation(longName); },
                 "Could not create location '" + longName + "'. \r\n\r\n" + fullDisk);
    ExpectReport([&] { m_shelf->Rename(longName); },
                 "Could not rename location '" + longName + "'. \r\n\r\n" + fullDisk);
    ExpectReport([&] { m_shelf->Move(m_tree.Find(deep)); },
                 "Could not move location 'Shelf' into 'Level 29'. \r\n\r\n" + fullDisk);
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(StorageLocationOutage, AFullDatabaseStillAcceptsChangesThatNeedNoSpace) {
    const NoMorePages full;
    m_database.Install(m_database.GetEngine());
    m_room->SetEnabled(false);
    m_shelf->Delete();
    EXPECT_EQ(m_tree.Cell(m_tree.room, "ActiveFlag"), "0");
    EXPECT_EQ(m_tree.Count(), 4);
}

TEST_F(StorageLocationOutage, AFullDiskIsReported) {
    const std::string before = m_database.Snapshot();
    {
        const NoLongerFiles limit(std::filesystem::file_size(m_database.Path() + "-wal"));
        ExpectEachReports(
            "The disk of the database reports an error. Check your last change before you go on, and have the disk "
            "checked. (disk I/O error)");
    }
    EXPECT_EQ(m_database.Snapshot(), before);

    m_shelf->Delete();
    EXPECT_EQ(m_tree.Count(), 4);
}

TEST_F(StorageLocationOutage, AFileThatIsGoneIsReportedAlsoWhileAConnectionToItIsOpen) {
    for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(m_database.Path() + suffix);
    ExpectEachReports("There is no database '" + m_database.Path() + "'.");
    EXPECT_FALSE(m_shelf->IsDeleted());
    EXPECT_FALSE(std::filesystem::exists(m_database.Path())) << "no new file replaces it";
}

}  // namespace quellbrook

#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/InterruptingEngine.h"
#include "tests/support/ModelTest.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/TestLocations.h"

#include <functional>
#include <new>
#include <ostream>

namespace quellbrook {

namespace {

const Error LogFull(9002, "Engine", "The log of the database is full.");
const Error Violation(ErrorNumber::IntegrityViolation, "Engine", "The constraint is violated.");

// A new department for each fault, with the location under test and another one.
struct Department {
    explicit Department(int32_t id) {
        database.Execute("UPDATE StorageLocation SET ActiveFlag = 0 WHERE IdNo = ?", {tree.bin});
        database.AddCustodyRow(StoredItemTypes::Property, database.AddProperty({.PropertyID = "E-1"}), tree.room);
        before = database.Snapshot();
        database.Install(engine);
        location = tree.Find(id);
        annex = tree.Find(tree.annex);
    }

    testing::TestDatabase database;
    testing::TestLocations tree{database};
    std::shared_ptr<testing::FaultInjectingEngine> engine =
        std::make_shared<testing::FaultInjectingEngine>(database.GetEngine());
    std::string before;
    StorageLocationRef location, annex;
};

struct WritingOperation {
    const char* name;
    int32_t id;  // the location that it is called on
    std::function<void(Department&)> run;
    int statements;             // up to the last write
    std::string failure;        // the text before the database's message
    std::string violation;      // the message for a violated constraint
    std::string reloadFailure;  // the message for a failed reload after the write
};

std::ostream& operator<<(std::ostream& out, const WritingOperation& operation) { return out << operation.name; }

WritingOperation Plain(const char* name, int32_t id, std::function<void(Department&)> run, int statements,
                       const std::string& failure) {
    return {name,
            id,
            std::move(run),
            statements,
            failure,
            failure + Violation.Description(),
            failure + LogFull.Description()};
}

const WritingOperation Move = Plain(
    "Move", 2, [](Department& d) { d.location->Move(d.annex); }, 4,
    "Could not move location 'Shelf' into 'Annex'. \r\n\r\n");
// If the reload fails, the row and its name are already in the database.
const WritingOperation Create = {"CreateSubLocation",
                                 1,
                                 [](Department& d) { d.location->CreateSubLocation("Crate"); },
                                 1,
                                 "Could not create location 'Crate'. \r\n\r\n",
                                 "A location with the name 'Crate' already exists here.",
                                 "A location with the name 'Crate' already exists here."};
const WritingOperation Enable = Plain(
    "Enable", 4, [](Department& d) { d.location->SetEnabled(true); }, 1, "Could not enable this location.\r\n\r\n");
const WritingOperation Disable = Plain(
    "Disable", 2, [](Department& d) { d.location->SetEnabled(false); }, 1, "Could not disable this location.\r\n\r\n");
const WritingOperation Rename = {"Rename",
                                 2,
                                 [](Department& d) { d.location->Rename("Rack"); },
                                 1,
                                 "Could not rename location 'Rack'. \r\n\r\n",
                                 "A location with the name 'Rack' already exists here.",
                                 "Could not rename location 'Rack'. \r\n\r\n" + LogFull.Description()};
const WritingOperation Delete = {"Delete",
                                 2,
                                 [](Department& d) { d.location->Delete(); },
                                 2,
                                 "Could not delete this location. \r\n\r\n",
                                 "Could not delete this location because this location (or one of its sublocations) "
                                 "is currently in use.",
                                 "Could not delete this location. \r\n\r\n" + LogFull.Description()};

std::string FieldsOf(const StorageLocation& location) {
    return std::to_string(location.ID()) + " " + location.Name() + " " + location.GetPath().ToText() + " " +
           std::to_string(static_cast<int32_t>(location.LocationType())) + (location.Enabled() ? " on" : " off") +
           (location.IsDeleted() ? " deleted" : "");
}

// All locations in the document.
std::string TreeAsRead() {
    std::string text;
    for (const StorageLocationRef& root : GetStorageLocationStatic().Roots())
        for (const int32_t id : root->GetSelfAndDescendantIDs())
            if (id != 0) text += FieldsOf(*testing::TestLocations::Find(id)) + "\n";
    return text;
}

class StorageLocationFaults : public testing::ModelTest, public ::testing::WithParamInterface<WritingOperation> {
protected:
    using Arm = std::function<void(Department&)>;

    StorageLocationFaults() {
        Department department(GetParam().id);
        GetParam().run(department);
        m_after = department.database.Snapshot();
        m_treeAfter = TreeAsRead();
    }

    static std::string DescriptionAfter(const std::string& sentence) { return sentence + LogFull.Description(); }

    // Nothing is written, the object is unchanged, and a second try succeeds.
    void ExpectNothingWritten(const std::string& fault, const Arm& arm, const std::string& description) {
        for (const bool losesConnection : {false, true}) {
            SCOPED_TRACE(fault + (losesConnection ? ", connection lost" : ""));
            Department department(GetParam().id);
            const std::string fields = FieldsOf(*department.location);
            department.engine->BreakConnectionWithFault(losesConnection);
            arm(department);
            ExpectFailure(department, description);
            EXPECT_EQ(department.database.Snapshot(), department.before);
            EXPECT_EQ(FieldsOf(*department.location), fields);

            GetParam().run(department);
            EXPECT_EQ(department.database.Snapshot(), m_after);
            EXPECT_EQ(TreeAsRead(), m_treeAfter);
        }
    }

    // What was written is kept, and the next reload shows it.
    void ExpectWritten(const Arm& arm, const std::string& description) {
        Department department(GetParam().id);
        const std::string fields = FieldsOf(*department.location);
        arm(department);
        ExpectFailure(department, description);
        EXPECT_EQ(department.database.Snapshot(), m_after);
        EXPECT_EQ(FieldsOf(*department.location), fields);
        EXPECT_NE(TreeAsRead(), m_treeAfter);
        GetStorageLocationStatic().Refresh();
        EXPECT_EQ(TreeAsRead(), m_treeAfter);
    }

    static void ExpectFailure(Department& department, const std::string& description) {
        const Error error = testing::RaisedBy([&] { GetParam().run(department); });
        EXPECT_EQ(error.Number(), ErrorNumber::General);
        EXPECT_EQ(error.Description(), description);
        EXPECT_TRUE(department.engine->HasStruck());
    }

    std::string m_after;      // the database after the operation succeeded
    std::string m_treeAfter;  // and the locations after a reload
};

class StorageLocationBatchFaults : public StorageLocationFaults {};

std::string NameOf(const ::testing::TestParamInfo<WritingOperation>& info) { return info.param.name; }

INSTANTIATE_TEST_SUITE_P(Each, StorageLocationFaults, ::testing::Values(Move, Create, Enable, Disable, Rename, Delete),
                         NameOf);
INSTANTIATE_TEST_SUITE_P(Each, StorageLocationBatchFaults, ::testing::Values(Move, Delete), NameOf);

}  // namespace

TEST_P(StorageLocationFaults, AFailureAtAnyStatementLeavesTheDatabaseAsItWas) {
    for (int n = 1; n <= GetParam().statements; ++n)
        ExpectNothingWritten(
            "statement " + std::to_string(n), [n](Department& d) { d.engine->FailAtStatement(n, LogFull); },
            DescriptionAfter(GetParam().failure));
}

TEST_P(StorageLocationFaults, AViolatedConstraintLeavesTheDatabaseAsItWas) {
    ExpectNothingWritten(
        "violation", [](Department& d) { d.engine->FailAtStatement(GetParam().statements, Violation); },
        GetParam().violation);
}

TEST_P(StorageLocationFaults, ADatabaseThatCannotBeReachedIsReported) {
    ExpectNothingWritten(
        "open",
        [](Department& d) {
            d.database.Install(d.engine);
            d.engine->FailAtOpen(LogFull);
        },
        DescriptionAfter(GetParam().failure));
}

TEST_P(StorageLocationFaults, ALackOfMemoryIsReportedLikeAnyFailure) {
    Department department(GetParam().id);
    const auto interrupting = std::make_shared<testing::InterruptingEngine>(department.engine);
    department.database.Install(interrupting);
    interrupting->BeforeStatement([] { throw std::bad_alloc(); });
    const Error error = testing::RaisedBy([&] { GetParam().run(department); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(),
              GetParam().failure + "There is not enough memory. Close other programs and try again.");
    EXPECT_EQ(department.database.Snapshot(), department.before);
    GetParam().run(department);
    EXPECT_EQ(department.database.Snapshot(), m_after);
}

TEST_P(StorageLocationFaults, AFailedReadingAfterTheWriteIsReportedAlthoughTheWriteIsKept) {
    ExpectWritten([](Department& d) { d.engine->FailAtStatement(GetParam().statements + 1, LogFull); },
                  GetParam().reloadFailure);
}

TEST_P(StorageLocationBatchFaults, AFailureToBeginLeavesTheDatabaseAsItWas) {
    ExpectNothingWritten(
        "begin", [](Department& d) { d.engine->FailAtBegin(LogFull); }, DescriptionAfter(GetParam().failure));
}

TEST_P(StorageLocationBatchFaults, AFailureToCommitLeavesTheDatabaseAsItWas) {
    ExpectNothingWritten(
        "commit", [](Department& d) { d.engine->FailAtCommit(LogFull); }, DescriptionAfter(GetParam().failure));
}

TEST_P(StorageLocationBatchFaults, ACommitThatReportedAFailureButWasCompletedIsASuccess) {
    Department department(GetParam().id);
    department.engine->FailAfterCommit(LogFull);
    m_log.Announce(LogFull.Source());
    GetParam().run(department);
    EXPECT_TRUE(department.engine->HasStruck());
    EXPECT_EQ(department.database.Snapshot(), m_after);
    EXPECT_EQ(TreeAsRead(), m_treeAfter);
}

TEST_P(StorageLocationBatchFaults, ACommitOfUnknownOutcomeIsNotReportedAsAFailure) {
    m_log.Announce("HostDatabase.ExecuteBatch");
    ExpectWritten(
        [](Department& d) {
            d.engine->FailAfterCommit(LogFull);
            d.engine->LoseOutcome(true);
        },
        "It could not be found out whether this change was completed. Refresh the locations before you go "
        "on.\r\n\r\n" +
            LogFull.Description());
}

}  // namespace quellbrook

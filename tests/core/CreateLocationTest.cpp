#include "core/Actions.h"
#include "core/Stores.h"
#include "tests/support/Callbacks.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/HostileTexts.h"
#include "tests/support/TestLocations.h"

namespace quellbrook {

namespace {

using ActionNames = std::vector<std::string>;
using Types = StorageLocationTypes;

class CreateLocation : public testing::DatabaseTest {
protected:
    CreateLocation() {
        m_stores = GetStores();
        GetDispatcher()->Register(m_seen);
    }
    ~CreateLocation() override {
        EXPECT_TRUE(m_screen.Messages().empty());
        EXPECT_TRUE(m_screen.PlainMessages().empty());
    }

    // A callback that throws for one type of action.
    void FailAt(const std::string& actionType) {
        GetDispatcher()->Register(
            std::make_shared<testing::FunctionCallback>("EvidenceUI", [actionType](const Action& action) {
                if (action.ActionType == actionType) Raise(99, "EvidenceUI.Handle", "The view is broken.");
            }));
    }
    void ExpectFailed(const std::string& description) {
        ASSERT_EQ(m_seen->Types(), ActionNames{"LOCATION_CREATE_FAILED"});
        EXPECT_EQ(m_seen->actions[0].Payload, TaggedValue(description));
    }

    testing::TestLocations m_tree{m_database};
    StoresRecord m_stores;
    std::shared_ptr<testing::RecordingCallback> m_seen = std::make_shared<testing::RecordingCallback>();
};

}  // namespace

TEST_F(CreateLocation, InAContainerTheCategoryOfTheContainerCounts) {
    GetActions().CreateLocation("Crate", Types::External, m_tree.room);
    EXPECT_EQ(m_seen->Types(), ActionNames{"LOCATION_CREATE_SUCCESS"});
    EXPECT_EQ(m_tree.Row(7), "Crate 2 /0/1/");
}

TEST_F(CreateLocation, WithoutAContainerItIsAtTheTopOfTheCategory) {
    GetActions().CreateLocation("Incinerator", Types::DisposalLocation, 0);
    EXPECT_EQ(m_tree.Row(7), "Incinerator 8 /0/");
}

TEST_F(CreateLocation, TheNewLocationIsCarriedAndBecomesTheSelectedOne) {
    GetActions().CreateLocation("Crate", Types::Internal, m_tree.room);
    const auto created = ToObject<StorageLocation>(m_seen->actions.at(0).Payload);
    EXPECT_EQ(created->ID(), 7);
    EXPECT_EQ(created->Name(), "Crate");
    EXPECT_EQ(m_stores.Locations->GetSelectedLocation(), created);
}

TEST_F(CreateLocation, AnUnknownContainerEndsInTheFailure) {
    const std::string before = m_database.Snapshot();
    GetActions().CreateLocation("Crate", Types::Internal, 4711);
    ExpectFailed("A record that is needed for this is missing. Refresh and try again.");
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(CreateLocation, AnUnknownCategoryEndsInTheFailure) {
    GetActions().CreateLocation("Crate", static_cast<Types>(3), 0);
    ExpectFailed("Unknown root.");
}

TEST_F(CreateLocation, TheCategoryIsNotLookedAtWhereAContainerIsGiven) {
    GetActions().CreateLocation("Crate", static_cast<Types>(3), m_tree.room);
    EXPECT_EQ(m_tree.Row(7), "Crate 2 /0/1/");
}

TEST_F(CreateLocation, ATakenNameEndsInTheFailure) {
    const std::string before = m_database.Snapshot();
    const auto selected = m_stores.Locations->GetSelectedLocation();
    GetActions().CreateLocation("Shelf", Types::Internal, m_tree.room);
    ExpectFailed("A location with the name 'Shelf' already exists here.");
    EXPECT_EQ(m_database.Snapshot(), before);
    EXPECT_EQ(m_stores.Locations->GetSelectedLocation(), selected);
}

TEST_F(CreateLocation, ATextWithNulEndsInTheFailure) {
    GetActions().CreateLocation(testing::TextWithNul(), Types::Internal, 0);
    ExpectFailed("Could not create location '" + testing::TextWithNul() + "'. \r\n\r\n" + testing::NulRefusal);
}

TEST_F(CreateLocation, AFailureOfTheDatabaseEndsInTheFailure) {
    const auto engine = std::make_shared<testing::FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(engine);
    HostLocationData().GetDocument();
    const std::string before = m_database.Snapshot();
    engine->FailAtStatement(1, Error(9002, "Engine", "The log of the database is full."));
    GetActions().CreateLocation("Crate", Types::Internal, m_tree.room);
    ExpectFailed("Could not create location 'Crate'. \r\n\r\nThe log of the database is full.");
    EXPECT_EQ(m_database.Snapshot(), before);
}

TEST_F(CreateLocation, AFailedSuccessActionEndsInTheFailureTooAlthoughTheLocationExists) {
    FailAt("LOCATION_CREATE_SUCCESS");
    GetActions().CreateLocation("Crate", Types::Internal, m_tree.room);
    EXPECT_EQ(m_seen->Types(), (ActionNames{"LOCATION_CREATE_SUCCESS", "LOCATION_CREATE_FAILED"}));
    EXPECT_EQ(m_seen->actions[1].Payload, TaggedValue("Error executing callback 'EvidenceUI': The view is broken."));
    EXPECT_EQ(m_tree.Row(7), "Crate 2 /0/1/");
}

TEST_F(CreateLocation, AFailedFailureActionIsLoggedAndDoesNotLeaveTheOperation) {
    FailAt("LOCATION_CREATE_FAILED");
    m_log.Announce("Actions.CreateLocation");
    GetActions().CreateLocation("Crate", Types::Internal, 4711);
    ASSERT_EQ(m_log.Entries().size(), 1u);
    EXPECT_EQ(m_log.Entries()[0].application, "Quellbrook");
    EXPECT_EQ(m_log.Entries()[0].message, "Error executing callback 'EvidenceUI': The view is broken.");
}

}  // namespace quellbrook

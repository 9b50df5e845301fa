#include "core/Singletons.h"

#include "access/Permissions.h"
#include "core/ActionTypes.h"
#include "core/Dispatcher.h"
#include "core/Stores.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/RaisedBy.h"

namespace quellbrook {

namespace {

using Message = testing::RecordingScreen::Message;

const Message NotAuthenticated{"Cannot open Quellbrook because you are not logged in.", 16, "Not Authenticated"};
const Message InsufficientPermissions{
    "You do not have sufficient permissions to use Quellbrook. \r\n\r\nYou need to have permission to view property "
    "and/or vehicle records (at minimum) in order to access Quellbrook.",
    16, "Insufficient Permissions"};
const Message PermissionRequired{
    "Quellbrook requires you to re-configure your storage locations before continuing; however, your user account does "
    "not have the necessary permission to do this.\r\n\r\nPlease log in with an account that has the Storage | Edit "
    "Storage Locations permission, or have an administrator grant you this permission, and then try again.",
    16, "Permission Required"};

class AccessGate : public testing::DatabaseTest {
protected:
    void Categorize(const std::string& name) {
        m_database.Execute("UPDATE StorageLocation SET Type = 2 WHERE Name = ?", {name});
        GetStorageLocationStatic().Refresh();
    }
    std::vector<Message> RunAndExpect(bool result) {
        EXPECT_EQ(GetSingletons().InitializeQuellbrook(), result);
        EXPECT_FALSE(m_screen.HasWizardsLeft());
        return m_screen.TakeMessages();
    }
};

}  // namespace

TEST_F(AccessGate, LoggedOutItShowsOneMessageAndResetsNothing) {
    const auto dispatcher = GetDispatcher();
    const auto cart = GetStores().Cart;
    m_session->username = "";
    EXPECT_EQ(RunAndExpect(false), std::vector{NotAuthenticated});
    EXPECT_EQ(GetDispatcher(), dispatcher);
    EXPECT_EQ(GetStores().Cart, cart);
}

TEST_F(AccessGate, ACategorizedTreeAndAllRightsOpenTheModuleWithoutAMessage) {
    m_database.AddLocation("Shelf", StorageLocationTypes::Internal);
    EXPECT_TRUE(RunAndExpect(true).empty());
}

TEST_F(AccessGate, EitherOfTheTwoViewRightsIsEnough) {
    m_session->GrantNothing();
    m_session->Grant(GetPermissions().VIEW_PROPERTY());
    EXPECT_TRUE(RunAndExpect(true).empty());
    m_session->GrantNothing();
    m_session->Grant(GetPermissions().VIEW_VEHICLE());
    EXPECT_TRUE(RunAndExpect(true).empty());
}

TEST_F(AccessGate, WithNeitherViewRightTheUserIsRefused) {
    m_session->GrantNothing();
    EXPECT_EQ(RunAndExpect(false), std::vector{InsufficientPermissions});
}

TEST_F(AccessGate, UncategorizedLocationsWithoutTheEditRightRefuseTheUser) {
    m_database.AddLocation("Old shelf", StorageLocationTypes::Unassigned);
    m_session->GrantNothing();
    m_session->Grant(GetPermissions().VIEW_PROPERTY());
    EXPECT_EQ(RunAndExpect(false), std::vector{PermissionRequired});
    EXPECT_EQ(m_session->questions, 1) << "the item rights are not asked until the root is empty";
}

TEST_F(AccessGate, LocationsCategorizedElsewhereSinceTheLastLoginOpenTheModule) {
    m_database.AddLocation("Old shelf", StorageLocationTypes::Unassigned);
    m_session->GrantNothing();
    m_session->Grant(GetPermissions().VIEW_PROPERTY());
    EXPECT_EQ(RunAndExpect(false), std::vector{PermissionRequired});
    m_database.Execute("UPDATE StorageLocation SET Type = 2");
    EXPECT_TRUE(RunAndExpect(true).empty());
}

TEST_F(AccessGate, TheWizardIsWaitedForAndItsCompletionOpensTheModule) {
    m_database.AddLocation("Old shelf", StorageLocationTypes::Unassigned);
    m_screen.AddWizard({.whileOpen = [&] { Categorize("Old shelf"); }});
    EXPECT_TRUE(RunAndExpect(true).empty());
    EXPECT_EQ(m_screen.WizardsShown(), 1);
}

TEST_F(AccessGate, AfterTheWizardTheItemRightsAreStillAsked) {
    m_database.AddLocation("Old shelf", StorageLocationTypes::Unassigned);
    m_session->GrantNothing();
    m_session->Grant(GetPermissions().EDIT_STORAGE_LOCATIONS());
    m_screen.AddWizard({.whileOpen = [&] { Categorize("Old shelf"); }});
    EXPECT_EQ(RunAndExpect(false), std::vector{InsufficientPermissions});
}

TEST_F(AccessGate, AWizardThatLeftLocationsUncategorizedRunsAgain) {
    m_database.AddLocation("Old shelf", StorageLocationTypes::Unassigned);
    m_database.AddLocation("Old bin", StorageLocationTypes::Unassigned);
    m_screen.AddWizard({.whileOpen = [&] { Categorize("Old shelf"); }});
    m_screen.AddWizard({});
    m_screen.AddWizard({.whileOpen = [&] { Categorize("Old bin"); }});
    EXPECT_TRUE(RunAndExpect(true).empty());
    EXPECT_EQ(m_screen.WizardsShown(), 3);
}

TEST_F(AccessGate, LeavingTheWizardEndsWithoutAMessage) {
    m_database.AddLocation("Old shelf", StorageLocationTypes::Unassigned);
    m_screen.AddWizard({.completed = false});
    EXPECT_TRUE(RunAndExpect(false).empty());
}

TEST_F(AccessGate, AGateThatFailsLeavesNoStores) {
    const auto refused = [this] {
        const auto cart = GetStores().Cart;
        GetDispatcher()->Dispatch({ActionTypes::CART_SET_TRANSACTION_TYPE, TransactionType::Move});
        EXPECT_EQ(cart->GetTransactionType(), TransactionType::Move);
        const auto dispatcher = GetDispatcher();
        RunAndExpect(false);
        EXPECT_NE(GetDispatcher(), dispatcher);
        GetDispatcher()->Dispatch({ActionTypes::CART_SET_TRANSACTION_TYPE, TransactionType::Dispose});
        EXPECT_EQ(cart->GetTransactionType(), TransactionType::Move) << "the old store receives actions";
        EXPECT_NE(GetStores().Cart, cart);
        EXPECT_EQ(GetStores().Cart->GetTransactionType(), TransactionType::None);
    };
    m_database.AddLocation("Old shelf", StorageLocationTypes::Unassigned);
    m_screen.AddWizard({.completed = false});
    refused();
    m_session->Revoke(GetPermissions().EDIT_STORAGE_LOCATIONS());
    refused();
    Categorize("Old shelf");
    m_session->GrantNothing();
    refused();
}

TEST_F(AccessGate, TheClosedWizardLivesUntilTheGateReturns) {
    m_database.AddLocation("Old shelf", StorageLocationTypes::Unassigned);
    m_database.AddLocation("Old bin", StorageLocationTypes::Unassigned);
    m_session->GrantNothing();
    m_session->Grant(GetPermissions().EDIT_STORAGE_LOCATIONS());
    m_screen.AddWizard({.whileOpen = [&] { Categorize("Old shelf"); }});
    m_screen.AddWizard({.whileOpen = [&] {
        EXPECT_EQ(m_screen.LivingWizards(), 2) << "the next form replaces the closed one only after its run";
        Categorize("Old bin");
    }});
    m_screen.WhileMessageOpen = [&](const Message&) { EXPECT_EQ(m_screen.LivingWizards(), 1); };
    EXPECT_EQ(RunAndExpect(false), std::vector{InsufficientPermissions});
    EXPECT_EQ(m_screen.LivingWizards(), 0);
}

TEST_F(AccessGate, AWizardThatIsNotAvailableIsAnErrorForTheHost) {
    class ScreenWithoutWizard : public testing::RecordingScreen {
        std::unique_ptr<SetupWizard> RunSetupWizard() override {
            Raise(ErrorNumber::General, "Screen", "The wizard for storage locations is not available here.");
        }
    } screen;
    m_environment->screen = &screen;
    m_database.AddLocation("Old shelf", StorageLocationTypes::Unassigned);
    const Error error = testing::RaisedBy([] { GetSingletons().InitializeQuellbrook(); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "The wizard for storage locations is not available here.");
    EXPECT_TRUE(screen.Messages().empty());
}

TEST_F(AccessGate, TheEditRightIsTestedAgainInEveryRound) {
    m_database.AddLocation("Old shelf", StorageLocationTypes::Unassigned);
    m_screen.AddWizard({.whileOpen = [&] { m_session->Revoke(GetPermissions().EDIT_STORAGE_LOCATIONS()); }});
    EXPECT_EQ(RunAndExpect(false), std::vector{PermissionRequired});
}

TEST_F(AccessGate, TheHostMayCallTheModuleWhileTheWizardIsOpen) {
    m_database.AddLocation("Old shelf", StorageLocationTypes::Unassigned);
    const auto before = GetDispatcher();
    m_screen.AddWizard({.completed = false, .whileOpen = [&] {
                            EXPECT_NE(GetDispatcher(), before);
                            EXPECT_EQ(GetSingletons().StorageLocation().Roots().Count(), 5u);
                            EXPECT_TRUE(GetStores().Initialized);
                        }});
    RunAndExpect(false);
    EXPECT_EQ(m_screen.WizardsShown(), 1);
}

TEST_F(AccessGate, ASecondRunCreatesANewDispatcherAndNewStores) {
    EXPECT_TRUE(RunAndExpect(true).empty());
    const auto dispatcher = GetDispatcher();
    const auto cart = GetStores().Cart;
    dispatcher->Dispatch({"CART_SET_TRANSACTION_TYPE", 3});
    EXPECT_TRUE(RunAndExpect(true).empty());
    EXPECT_NE(GetDispatcher(), dispatcher);
    EXPECT_NE(GetStores().Cart, cart);
    EXPECT_EQ(GetStores().Cart->GetTransactionType(), 0);
}

TEST_F(AccessGate, AUserWhoIsRefusedForMissingRightsStillLosesTheOldStores) {
    const auto cart = GetStores().Cart;
    m_session->GrantNothing();
    RunAndExpect(false);
    EXPECT_NE(GetStores().Cart, cart);
}

TEST_F(AccessGate, AFailureOfTheDatabaseReachesTheHost) {
    const auto faulty = std::make_shared<testing::FaultInjectingEngine>(m_database.GetEngine());
    m_database.Install(faulty);
    faulty->FailAtStatement(1, Error(1234, "Test", "The server is gone."));
    EXPECT_EQ(testing::RaisedBy([] { GetSingletons().InitializeQuellbrook(); }).Number(), 1234);
    EXPECT_TRUE(m_screen.Messages().empty());
}

TEST_F(AccessGate, TheGlobalObjectPassesOnTheDialogParentAndTheLocationModel) {
    const ObjectRef window = std::make_shared<ObjectVector>();
    GetSingletons().SetDialogParent(window);
    EXPECT_EQ(m_screen.DialogParent(), window);
    EXPECT_EQ(&GetSingletons().StorageLocation(), &GetStorageLocationStatic());
}

}  // namespace quellbrook

#include "core/Dispatcher.h"

#include "tests/support/Callbacks.h"
#include "tests/support/ModelTest.h"
#include "tests/support/RaisedBy.h"

namespace quellbrook {

namespace {

using testing::FunctionCallback;
using testing::RaisedBy;
using testing::RecordingCallback;

class DispatcherTest : public testing::ModelTest {
protected:
    std::shared_ptr<FunctionCallback> Register(const std::string& typeName, std::function<void(const Action&)> handle) {
        auto callback = std::make_shared<FunctionCallback>(typeName, std::move(handle));
        m_dispatcher->Register(callback);
        return callback;
    }

    // A callback that records its name.
    std::shared_ptr<FunctionCallback> RegisterNoting(const std::string& name) {
        return Register(name, [this, name](const Action&) { m_served.push_back(name); });
    }

    std::shared_ptr<Dispatcher> m_dispatcher = GetDispatcher();
    std::vector<std::string> m_served;
};

const std::string ReentryText =
    "Cannot call Dispatcher.Dispatch while another call to Dispatch is in progress. [Forms.Count = 3]";

}  // namespace

TEST_F(DispatcherTest, WithoutCallbacksDispatchSetsAndClearsTheFlagAndReturns) {
    EXPECT_FALSE(m_dispatcher->IsDispatching());
    m_dispatcher->Dispatch({"ANY", {}});
    EXPECT_FALSE(m_dispatcher->IsDispatching());
}

TEST_F(DispatcherTest, TheFlagIsSetWhileCallbacksAreServed) {
    bool seen = false;
    Register("Store", [&](const Action&) { seen = m_dispatcher->IsDispatching(); });
    m_dispatcher->Dispatch({"ANY", {}});
    EXPECT_TRUE(seen);
    EXPECT_FALSE(m_dispatcher->IsDispatching());
}

TEST_F(DispatcherTest, CallbacksAreServedInTheOrderOfRegistrationAndSeeWhatEarlierOnesDid) {
    int value = 0, seenBySecond = 0;
    Register("First", [&](const Action& action) { value = ToInt32(action.Payload); });
    Register("Second", [&](const Action&) { seenBySecond = value; });
    m_dispatcher->Dispatch({"ANY", 42});
    EXPECT_EQ(seenBySecond, 42);
}

TEST_F(DispatcherTest, AnObjectPayloadReachesTheCallbackAsTheCallersObject) {
    auto recording = std::make_shared<RecordingCallback>();
    m_dispatcher->Register(recording);
    const ObjectRef object = std::make_shared<ObjectVector>();
    m_dispatcher->Dispatch({"ANY", object});
    ASSERT_EQ(recording->actions.size(), 1u);
    EXPECT_EQ(*recording->actions[0].Payload.If<ObjectRef>(), object);
}

TEST_F(DispatcherTest, RegisteringNothingIsRefused) {
    const Error error = RaisedBy([&] { m_dispatcher->Register(nullptr); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Source(), "Dispatcher.Register");
    EXPECT_EQ(error.Description(), "callback is Nothing");
}

TEST_F(DispatcherTest, RegisteringTheSameCallbackTwiceFailsWithTheCollectionsError) {
    const auto callback = RegisterNoting("Store");
    const Error error = RaisedBy([&] { m_dispatcher->Register(callback); });
    EXPECT_EQ(error.Number(), ErrorNumber::KeyTaken);
    EXPECT_EQ(error.Description(), "This key is already in the collection.");
    m_dispatcher->Dispatch({"ANY", {}});
    EXPECT_EQ(m_served.size(), 1u);
}

TEST_F(DispatcherTest, UnregisteringTwiceSucceedsBothTimes) {
    const auto callback = RegisterNoting("Store");
    m_dispatcher->Unregister(callback.get());
    m_dispatcher->Unregister(callback.get());
    m_dispatcher->Dispatch({"ANY", {}});
    EXPECT_TRUE(m_served.empty());
}

TEST_F(DispatcherTest, AFailingCallbackStopsDeliveryAndTheNextDispatchWorks) {
    bool fails = true;
    RegisterNoting("LocationStore");
    Register("CartStore", [&](const Action&) {
        m_served.push_back("CartStore");
        if (fails) Raise(1234, "CartStore.Handle", "Out of order.");
    });
    RegisterNoting("ViewStore");

    const Error error = RaisedBy([&] { m_dispatcher->Dispatch({"ANY", {}}); });
    EXPECT_EQ(error.Number(), 1234);
    EXPECT_EQ(error.Source(), "Dispatcher");
    EXPECT_EQ(error.Description(), "Error executing callback 'CartStore': Out of order.");
    EXPECT_EQ(m_served, (std::vector<std::string>{"LocationStore", "CartStore"}));
    EXPECT_FALSE(m_dispatcher->IsDispatching());

    fails = false;
    m_served.clear();
    m_dispatcher->Dispatch({"ANY", {}});
    EXPECT_EQ(m_served, (std::vector<std::string>{"LocationStore", "CartStore", "ViewStore"}));
}

TEST_F(DispatcherTest, AnExceptionThatIsNotAnErrorIsWrappedWithNumberFive) {
    Register("CartStore", [](const Action&) { throw std::runtime_error("disk full"); });
    const Error error = RaisedBy([&] { m_dispatcher->Dispatch({"ANY", {}}); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "Error executing callback 'CartStore': disk full");
}

TEST_F(DispatcherTest, ReentryShowsThePlainMessageBoxOnceAndFailsWithNothingAsTypeName) {
    m_screen.SetOpenFormCount(3);
    std::optional<Error> inner;
    bool flagAfterwards = true;
    Register("EvidenceUI", [&](const Action&) {
        if (inner) return;
        inner = RaisedBy([&] { m_dispatcher->Dispatch({"INNER", {}}); });
        flagAfterwards = m_dispatcher->IsDispatching();
    });
    RegisterNoting("Last");

    m_dispatcher->Dispatch({"OUTER", {}});

    ASSERT_EQ(m_screen.PlainMessages().size(), 1u);
    EXPECT_EQ(m_screen.PlainMessages()[0].text, ReentryText);
    EXPECT_EQ(m_screen.PlainMessages()[0].title, "Unexpected Error");
    EXPECT_TRUE(m_screen.Messages().empty());
    ASSERT_TRUE(inner);
    EXPECT_EQ(inner->Number(), ErrorNumber::General);
    EXPECT_EQ(inner->Source(), "Dispatcher");
    EXPECT_EQ(inner->Description(), "Error executing callback 'Nothing': " + ReentryText);
    EXPECT_FALSE(flagAfterwards);
    EXPECT_EQ(m_served, (std::vector<std::string>{"Last"}));
    EXPECT_FALSE(m_dispatcher->IsDispatching());
}

TEST_F(DispatcherTest, ReentryThatIsLetEscapeIsWrappedASecondTime) {
    m_screen.SetOpenFormCount(3);
    Register("EvidenceUI", [&](const Action&) { m_dispatcher->Dispatch({"INNER", {}}); });
    const Error error = RaisedBy([&] { m_dispatcher->Dispatch({"OUTER", {}}); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(),
              "Error executing callback 'EvidenceUI': Error executing callback 'Nothing': " + ReentryText);
    EXPECT_EQ(m_screen.PlainMessages().size(), 1u);
    EXPECT_FALSE(m_dispatcher->IsDispatching());
}

TEST_F(DispatcherTest, TheFlagStaysClearForTheRestOfTheOuterDelivery) {
    bool flagAtNext = true;
    Register("First", [&](const Action&) { RaisedBy([&] { m_dispatcher->Dispatch({"INNER", {}}); }); });
    Register("Next", [&](const Action&) { flagAtNext = m_dispatcher->IsDispatching(); });
    m_dispatcher->Dispatch({"OUTER", {}});
    EXPECT_FALSE(flagAtNext);
}

TEST_F(DispatcherTest, AnUnknownActionReachesAllCallbacks) {
    RegisterNoting("First");
    RegisterNoting("Second");
    m_dispatcher->Dispatch({"NO_SUCH_ACTION", "payload"});
    EXPECT_EQ(m_served, (std::vector<std::string>{"First", "Second"}));
}

TEST_F(DispatcherTest, ACallbackThatUnregistersItselfDoesNotDisturbTheDelivery) {
    RegisterNoting("First");
    std::shared_ptr<FunctionCallback> leaving;
    leaving = Register("Leaving", [&](const Action&) {
        m_served.push_back("Leaving");
        m_dispatcher->Unregister(leaving.get());
    });
    RegisterNoting("Last");

    m_dispatcher->Dispatch({"ANY", {}});
    m_dispatcher->Dispatch({"ANY", {}});
    EXPECT_EQ(m_served, (std::vector<std::string>{"First", "Leaving", "Last", "First", "Last"}));
}

TEST_F(DispatcherTest, ACallbackThatIsUnregisteredBeforeItsTurnIsSkipped) {
    std::weak_ptr<FunctionCallback> next;
    Register("First", [&](const Action&) { m_dispatcher->Unregister(next.lock().get()); });
    next = RegisterNoting("Next");
    RegisterNoting("Last");
    m_dispatcher->Dispatch({"ANY", {}});
    EXPECT_EQ(m_served, (std::vector<std::string>{"Last"}));
}

TEST_F(DispatcherTest, ACallbackRegisteredDuringADeliveryIsServedFromTheNextOneOn) {
    bool registered = false;
    Register("First", [&](const Action&) {
        if (!std::exchange(registered, true)) RegisterNoting("New");
    });
    m_dispatcher->Dispatch({"ANY", {}});
    EXPECT_TRUE(m_served.empty());
    m_dispatcher->Dispatch({"ANY", {}});
    EXPECT_EQ(m_served, (std::vector<std::string>{"New"}));
}

TEST_F(DispatcherTest, ADeliveryFinishesTheCurrentCallbackAfterADiscard) {
    const std::weak_ptr<Dispatcher> discarded = m_dispatcher;
    Register("First", [&](const Action&) {
        DiscardDispatcher();
        EXPECT_FALSE(discarded.expired()) << "its caller keeps it alive";
        m_served.push_back("First");
    });
    RegisterNoting("Last");
    m_dispatcher.reset();

    GetDispatcher()->Dispatch({"ANY", {}});
    EXPECT_TRUE(discarded.expired());
    EXPECT_EQ(m_served, (std::vector<std::string>{"First"}));

    GetDispatcher()->Dispatch({"ANY", {}});
    EXPECT_EQ(m_served, (std::vector<std::string>{"First"}));
}

TEST_F(DispatcherTest, DiscardingDropsEveryRegistrationAndTheNextAccessMakesAnotherDispatcher) {
    RegisterNoting("Store");
    DiscardDispatcher();
    EXPECT_NE(GetDispatcher(), m_dispatcher);
    GetDispatcher()->Dispatch({"ANY", {}});
    m_dispatcher->Dispatch({"ANY", {}});
    EXPECT_TRUE(m_served.empty());
}

TEST_F(DispatcherTest, RegisteredCallbacksAreKeptAlive) {
    std::weak_ptr<FunctionCallback> callback = RegisterNoting("Store");
    EXPECT_FALSE(callback.expired());
    m_dispatcher.reset();
    DiscardDispatcher();
    EXPECT_TRUE(callback.expired());
}

}  // namespace quellbrook

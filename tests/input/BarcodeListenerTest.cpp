#include "input/BarcodeListener.h"

#include "base/Clock.h"
#include "input/ScanLimit.h"
#include "tests/support/FixedClock.h"
#include "tests/support/ManualTimer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <tuple>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
namespace Number = KeyMessageNumber;

constexpr uint32_t stx = 2, etx = 3, alt = 18;

// A hook that receives its messages from the test.
class FakeHook : public MessageHook {
public:
    explicit FakeHook(int& living) : m_living(living) { ++m_living; }
    ~FakeHook() override { --m_living; }

private:
    int& m_living;
};

class BarcodeListenerTest : public ::testing::Test {
protected:
    BarcodeListenerTest() {
        m_environment->clock = &m_clock;
        m_environment->makeMessageHook = [this] {
            auto hook = std::make_unique<FakeHook>(m_livingHooks);
            m_hook = hook.get();
            ++m_madeHooks;
            return hook;
        };
        m_listener = MakeListener();
        m_listener->Shown();
    }

    std::unique_ptr<BarcodeListener> MakeListener() {
        auto listener = std::make_unique<BarcodeListener>(
            BarcodeListener::Surroundings{[this] { return m_isListening; }, [this] { return m_isWindowActive; }});
        listener->BarcodeScanned.connect(
            [this](int32_t type, const std::string& data) { m_scans.emplace_back(type, data); });
        return listener;
    }

    // Whether the message is let through.
    bool Passes(uint32_t number, uint32_t wParam) {
        KeyMessage message{number, wParam};
        m_hook->OnMessage(message);
        if (message.number == Number::Cancelled) return false;
        EXPECT_EQ(message.number, number);
        EXPECT_EQ(message.wParam, wParam);
        return true;
    }
    bool Down(uint32_t key = 'A') { return Passes(Number::KeyDown, key); }
    bool Up(uint32_t key = 'A') { return Passes(Number::KeyUp, key); }
    bool Type(uint32_t character) { return Passes(Number::Char, character); }
    void Type(const std::string& text) {
        for (const char c : text) Type(static_cast<uint32_t>(c));
    }
    // A whole scan, before the timer fires.
    void Scan(const std::string& text) {
        Type(stx);
        Type(text);
        Type(etx);
    }
    void SetTime(int hour, int minute, int second, int millisecond) {
        m_clock.Set(DateTime::FromParts({2026, 11, 20, hour, minute, second, millisecond}));
    }

    EnvironmentScope m_environment;
    FixedClock m_clock;
    ManualTimers m_timers{m_environment};
    FakeHook* m_hook = nullptr;
    int m_madeHooks = 0, m_livingHooks = 0;
    bool m_isListening = true, m_isWindowActive = true;
    std::vector<std::pair<int32_t, std::string>> m_scans;
    std::unique_ptr<BarcodeListener> m_listener;
};

// Events

TEST_F(BarcodeListenerTest, AScanIsRaisedByTheTimerAndNoCharacterGetsThrough) {
    EXPECT_FALSE(Type(stx));
    for (const char c : std::string("P123")) EXPECT_FALSE(Type(static_cast<uint32_t>(c))) << c;
    EXPECT_FALSE(Type(etx));
    EXPECT_THAT(m_scans, IsEmpty());
    ASSERT_EQ(m_timers.Running().size(), 1u);
    EXPECT_EQ(m_timers.Running()[0]->Interval(), 1);
    EXPECT_TRUE(m_timers.Running()[0]->IsSingleShot());
    m_timers.TickAll();
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Property, "123")));
    EXPECT_TRUE(m_timers.Running().empty());
}

TEST_F(BarcodeListenerTest, TheTypeLetterMayBeOfAnyCase) {
    for (const char* text : {"L1", "l1", "P1", "p1", "V1", "v1"}) {
        Scan(text);
        m_timers.TickAll();
    }
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Location, "1"), Pair(BarcodeType::Location, "1"),
                                     Pair(BarcodeType::Property, "1"), Pair(BarcodeType::Property, "1"),
                                     Pair(BarcodeType::Vehicle, "1"), Pair(BarcodeType::Vehicle, "1")));
}

TEST_F(BarcodeListenerTest, AnyOtherLetterAndNoneAtAllAreUnknown) {
    Scan("X9");
    m_timers.TickAll();
    Scan("");
    m_timers.TickAll();
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Unknown, "9"), Pair(BarcodeType::Unknown, "")));
}

TEST_F(BarcodeListenerTest, CharactersOfEveryScriptStayWhole) {
    Type(stx);
    for (const uint32_t character : {0xE9u, 0x31u, 0x20ACu, 0x1F4E6u}) EXPECT_FALSE(Type(character));
    Type(etx);
    m_timers.TickAll();
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Unknown, "1\xE2\x82\xAC\xF0\x9F\x93\xA6")));
}

TEST_F(BarcodeListenerTest, AStartWithinAScanRestartsIt) {
    Type(stx);
    Type("L1");
    Scan("P2");
    m_timers.TickAll();
    m_timers.TickAll();
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Property, "2")));
}

TEST_F(BarcodeListenerTest, SystemMessagesCountLikeTheOthers) {
    EXPECT_FALSE(Passes(Number::SysChar, stx));
    EXPECT_FALSE(Passes(Number::SysKeyUp, 'A'));
    EXPECT_FALSE(Passes(Number::SysChar, 'V'));
    EXPECT_FALSE(Passes(Number::SysChar, etx));
    EXPECT_FALSE(Passes(Number::SysKeyDown, 'A'));
    m_timers.TickAll();
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Vehicle, "")));
}

TEST_F(BarcodeListenerTest, MessagesOfOtherNumbersPassUntouched) {
    Type(stx);
    for (const uint32_t number : {0x0FFu, Number::DeadChar, 0x107u, 0x201u, 0xFFFFFFFFu})
        EXPECT_TRUE(Passes(number, stx));
    EXPECT_EQ(m_listener->Buffer(), "");
}

// Messages that are let through

TEST_F(BarcodeListenerTest, AnEndWithoutAStartIsAnOrdinaryCharacter) {
    EXPECT_TRUE(Type(etx));
    m_timers.TickAll();
    EXPECT_THAT(m_scans, IsEmpty());
    EXPECT_TRUE(Down());
}

TEST_F(BarcodeListenerTest, WhileDisabledEverythingPasses) {
    m_isListening = false;
    EXPECT_TRUE(Type(stx));
    EXPECT_TRUE(Type('P'));
    EXPECT_TRUE(Type(etx));
    EXPECT_TRUE(Up());
    m_isListening = true;
    Type(stx);
    Type('P');
    m_isListening = false;
    EXPECT_TRUE(Type('7'));
    EXPECT_TRUE(Up());
    m_isListening = true;
    Type('8');
    Type(etx);
    m_timers.TickAll();
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Property, "8")));
}

TEST_F(BarcodeListenerTest, AFailingAnswerCountsAsNo) {
    BarcodeListener listener({[]() -> bool { throw std::runtime_error("no container"); },
                              []() -> bool { throw std::runtime_error("no window"); }});
    listener.Shown();
    EXPECT_TRUE(Type(stx));
}

TEST_F(BarcodeListenerTest, PressesPassDuringAScanAndReleasesDoNot) {
    EXPECT_TRUE(Up());
    Type(stx);
    EXPECT_TRUE(Down());
    EXPECT_FALSE(Up());
    EXPECT_TRUE(Up(alt));
    Type(etx);
    EXPECT_FALSE(Up());
    m_timers.TickAll();
    EXPECT_TRUE(Up());
}

// The rest period

TEST_F(BarcodeListenerTest, APressWithinTheRestPeriodVanishesAndALaterOneArrives) {
    SetTime(1, 0, 0, 0);
    Scan("P1");
    m_timers.TickAll();
    m_clock.Advance(99);
    EXPECT_FALSE(Down());
    m_clock.Advance(2);
    EXPECT_TRUE(Down());
    EXPECT_TRUE(Type('A'));
}

TEST_F(BarcodeListenerTest, TheRestPeriodIsTheSameAcrossSecondsMinutesAndHours) {
    for (const auto& [hour, minute, second] :
         {std::tuple(1, 2, 3), {1, 2, 59}, {1, 59, 59}, {4, 0, 0}, {0, 0, 59}, {0, 59, 59}}) {
        SetTime(hour, minute, second, 950);
        Scan("P1");
        m_timers.TickAll();
        m_clock.Advance(90);
        EXPECT_FALSE(Down()) << hour << ":" << minute << ":" << second;
        m_clock.Advance(20);
        EXPECT_TRUE(Down()) << hour << ":" << minute << ":" << second;
    }
}

TEST_F(BarcodeListenerTest, TheRestPeriodBindsEvenWhileDisabled) {
    Scan("P1");
    m_isListening = false;
    EXPECT_FALSE(Down());
    m_clock.Advance(150);
    EXPECT_TRUE(Down());
}

TEST_F(BarcodeListenerTest, AReleaseInTheRestPeriodPassesAfterTheTimerTookTheScan) {
    Scan("P1");
    m_timers.TickAll();
    EXPECT_FALSE(Down());
    EXPECT_TRUE(Up());
}

TEST_F(BarcodeListenerTest, AStartEndsTheRestPeriodAtOnce) {
    Scan("P1");
    m_timers.TickAll();
    EXPECT_FALSE(Down());
    Type(stx);
    EXPECT_TRUE(Down());
}

TEST_F(BarcodeListenerTest, AfterMidnightPressesAreDroppedUntilAStartOrTheTimeOfTheLastScan) {
    SetTime(23, 59, 58, 0);
    Scan("P1");
    m_timers.TickAll();
    SetTime(0, 0, 5, 0);
    EXPECT_FALSE(Down());
    SetTime(12, 0, 0, 0);
    EXPECT_FALSE(Down());
    SetTime(23, 59, 58, 200);
    EXPECT_TRUE(Down());
    SetTime(0, 0, 5, 0);
    Type(stx);
    EXPECT_TRUE(Down());
}

TEST_F(BarcodeListenerTest, LateInTheDayTheClockIsCoarse) {
    SetTime(23, 0, 0, 0);
    Scan("P1");
    m_timers.TickAll();
    m_clock.Advance(97);
    EXPECT_FALSE(Down());
    m_clock.Advance(1);
    EXPECT_TRUE(Down()) << "98 milliseconds read as 101.6";
}

// While a scan waits for the timer

TEST_F(BarcodeListenerTest, OfTwoScansTheNewerIsRaisedFirstAndTheOlderWaitsForALaterOne) {
    Scan("P1");
    Scan("P2");
    EXPECT_EQ(m_listener->Waiting(), 2u);
    m_timers.TickAll();
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Property, "2")));
    m_timers.TickAll();
    EXPECT_EQ(m_scans.size(), 1u);
    Scan("P3");
    m_timers.TickAll();
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Property, "2"), Pair(BarcodeType::Property, "3")));
    EXPECT_EQ(m_listener->Waiting(), 1u);
}

TEST_F(BarcodeListenerTest, CharactersBehindTheEndVanishAndAnotherEndQueuesThemToo) {
    Scan("P1");
    EXPECT_FALSE(Type('9'));
    EXPECT_FALSE(Type(etx));
    EXPECT_EQ(m_listener->Waiting(), 2u);
    m_timers.TickAll();
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Property, "19")));
    EXPECT_TRUE(Type('9'));
}

TEST_F(BarcodeListenerTest, AFiringWithoutAScanChangesNothing) {
    Scan("P1");
    m_timers.TickAll();
    Type(stx);
    Type('L');
    for (ManualTimer* timer : m_timers.All()) {
        timer->Start();
        timer->Tick();
    }
    EXPECT_FALSE(Type('5'));
    Type(etx);
    m_timers.TickAll();
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Property, "1"), Pair(BarcodeType::Location, "5")));
}

TEST_F(BarcodeListenerTest, WhileAnotherWindowIsActiveAScanIsConsumedAndRaisesNothing) {
    m_isWindowActive = false;
    Scan("P1");
    m_timers.TickAll();
    EXPECT_THAT(m_scans, IsEmpty());
    EXPECT_EQ(m_listener->Waiting(), 0u);
    m_isWindowActive = true;
    EXPECT_TRUE(Type('1'));
    Scan("P2");
    m_timers.TickAll();
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Property, "2")));
}

TEST_F(BarcodeListenerTest, AReceiverThatFailsLeavesTheListenerReady) {
    m_listener->BarcodeScanned.connect([](int32_t, const std::string&) { throw std::runtime_error("the receiver"); });
    Scan("P1");
    EXPECT_THROW(m_timers.TickAll(), std::runtime_error);
    EXPECT_TRUE(Type('1'));
    EXPECT_EQ(m_listener->Waiting(), 0u);
}

TEST_F(BarcodeListenerTest, AReceiverMayEndTheListener) {
    m_listener->BarcodeScanned.connect([this](int32_t, const std::string&) { m_listener.reset(); });
    Scan("P1");
    m_timers.TickAll();
    EXPECT_EQ(m_listener, nullptr);
    EXPECT_EQ(m_livingHooks, 0);
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Property, "1")));
}

// The limit of a scan

TEST_F(BarcodeListenerTest, AScanWithoutAnEndIsDroppedASecondAfterItsStart) {
    const ScanLimit limit(*m_listener);
    EXPECT_TRUE(m_timers.Running().empty());
    Type(stx);
    ASSERT_EQ(m_timers.Running().size(), 1u);
    EXPECT_EQ(m_timers.Running()[0]->Interval(), 1000);
    EXPECT_TRUE(m_timers.Running()[0]->IsSingleShot());
    EXPECT_FALSE(Type('P'));
    m_timers.TickAll();
    EXPECT_TRUE(Type('P'));
    Scan("P2");
    m_timers.Tick(1);
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Property, "2")));
}

TEST_F(BarcodeListenerTest, AnUnfinishedScanAfterAnEarlierOneIsDroppedToo) {
    const ScanLimit limit(*m_listener);
    Scan("P1");
    m_timers.Tick(1);
    Type(stx);
    m_timers.Tick(1000);
    EXPECT_TRUE(Type('P'));
}

TEST_F(BarcodeListenerTest, TheLimitKeepsAScanThatHasEnded) {
    const ScanLimit limit(*m_listener);
    Scan("P1");
    m_timers.Tick(1000);
    EXPECT_FALSE(Type('x')) << "until it is delivered";
    m_timers.Tick(1);
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Property, "1")));
}

// The hook

TEST_F(BarcodeListenerTest, TheHookIsCreatedAtTheFirstShowAndKept) {
    EXPECT_EQ(m_madeHooks, 1);
    m_listener->Shown();
    EXPECT_EQ(m_madeHooks, 1);
    m_isListening = false;
    EXPECT_EQ(m_livingHooks, 1);
    m_listener.reset();
    EXPECT_EQ(m_livingHooks, 0);
}

TEST_F(BarcodeListenerTest, BeforeItsFirstShowNothingIsHooked) {
    const auto other = MakeListener();
    EXPECT_EQ(m_madeHooks, 1);
}

}  // namespace
}  // namespace quellbrook::testing

#include "ui/shell/LinearAnimation.h"

#include "base/Error.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/RaisedBy.h"

#include <gtest/gtest.h>

namespace quellbrook {

namespace {

// Records every value that is set.
class Lift : public QObject {
    Q_OBJECT
    Q_PROPERTY(float Level READ Level WRITE SetLevel)

public:
    float Level() const { return levels.empty() ? 0 : levels.back(); }
    void SetLevel(float level) {
        levels.push_back(level);
        if (fails) Raise(ErrorNumber::General, "Lift", "Stuck.");
    }

    std::vector<float> levels;
    bool fails = false;
};

class LinearAnimationTest : public ::testing::Test {
protected:
    LinearAnimationTest() {
        m_animation.Finished.connect([this] { ++m_finished; });
    }

    void Start(float from, float to, float step) {
        m_animation.Start(
            {.Target = &m_lift, .PropertyName = "Level", .StartValue = from, .FinalValue = to, .Increment = step});
    }
    testing::ManualTimer& Timer() { return *m_timers.All().front(); }
    void RunToTheEnd() {
        for (int tick = 0; tick < 1000 && m_timers.TickAll() > 0; ++tick) continue;
    }

    EnvironmentScope m_environment;
    testing::ManualTimers m_timers{m_environment};
    LinearAnimation m_animation;
    Lift m_lift;
    int m_finished = 0;
};

using Levels = std::vector<float>;

}  // namespace

TEST_F(LinearAnimationTest, TheFirstValueIsSetAtOnce) {
    Start(2, 100, 30);
    EXPECT_EQ(m_lift.levels, Levels{2});
    EXPECT_TRUE(m_animation.InProgress());
    EXPECT_EQ(Timer().Interval(), 10);
    EXPECT_FALSE(Timer().IsSingleShot());
}

TEST_F(LinearAnimationTest, ANegativeIncrementMovesUpAndTheLastStepDoesNotOvershoot) {
    Start(0, 100, -30);
    RunToTheEnd();
    EXPECT_EQ(m_lift.levels, (Levels{0, 30, 60, 90, 100}));
    EXPECT_EQ(m_finished, 1);
    EXPECT_FALSE(m_animation.InProgress());
    EXPECT_FALSE(Timer().IsRunning());
}

TEST_F(LinearAnimationTest, ASmallerFinalValueMovesDown) {
    Start(100, 15, 30);
    RunToTheEnd();
    EXPECT_EQ(m_lift.levels, (Levels{100, 70, 40, 15}));
    EXPECT_EQ(m_finished, 1);
}

TEST_F(LinearAnimationTest, EqualValuesEndAtTheFirstTick) {
    Start(50, 50, 30);
    EXPECT_EQ(m_finished, 0);
    m_timers.TickAll();
    EXPECT_EQ(m_lift.levels, (Levels{50, 50}));
    EXPECT_EQ(m_finished, 1);
    EXPECT_EQ(m_timers.TickAll(), 0);
}

TEST_F(LinearAnimationTest, AFinalValueThatIsReachedExactlyEndsIt) {
    Start(0, 60, 30);
    RunToTheEnd();
    EXPECT_EQ(m_lift.levels, (Levels{0, 30, 60}));
}

TEST_F(LinearAnimationTest, ASecondStartContinuesWithTheSameTimer) {
    Start(0, 100, 30);
    m_timers.TickAll();
    Start(200, 0, 90);
    EXPECT_EQ(Timer().Starts(), 1);
    RunToTheEnd();
    EXPECT_EQ(m_lift.levels, (Levels{0, 30, 200, 110, 20, 0}));
    EXPECT_EQ(m_finished, 1);
}

TEST_F(LinearAnimationTest, WithoutATargetItDoesNotStart) {
    const Error error = testing::RaisedBy([this] { m_animation.Start({.Target = nullptr, .PropertyName = "Level"}); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Source(), "LinearAnimation.Start");
    EXPECT_EQ(error.Description(), "Cannot animate with the given parameters -> Target is set to Nothing.");
    EXPECT_FALSE(m_animation.InProgress());
}

TEST_F(LinearAnimationTest, DestroyingTheTargetEndsIt) {
    auto target = std::make_unique<Lift>();
    m_animation.Start({.Target = target.get(), .PropertyName = "Level", .FinalValue = 100, .Increment = 30});
    target.reset();
    m_timers.TickAll();
    EXPECT_FALSE(m_animation.InProgress());
    EXPECT_EQ(m_timers.TickAll(), 0);
    EXPECT_EQ(m_finished, 0);
}

TEST_F(LinearAnimationTest, AMissingPropertyFails) {
    const Error error = testing::RaisedBy([this] {
        m_animation.Start({.Target = &m_lift, .PropertyName = "Depth", .FinalValue = 100, .Increment = 30});
    });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_NE(error.Description().find("\"Depth\""), std::string::npos);
}

TEST_F(LinearAnimationTest, AFailureAtATickIsThrownOnceThroughTheTimer) {
    Start(0, 100, 30);
    m_lift.fails = true;
    EXPECT_EQ(testing::RaisedBy([this] { m_timers.TickAll(); }).Description(), "Stuck.");
    EXPECT_EQ(m_timers.TickAll(), 0);
    EXPECT_FALSE(m_animation.InProgress());
}

}  // namespace quellbrook

#include "LinearAnimationTest.moc"

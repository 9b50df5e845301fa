#include "demo/tour/TourPlayer.h"

#include "database/SqliteEngine.h"
#include "tests/demo/sample/SampleFile.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/ui/Widgets.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace quellbrook::testing {

namespace {

// Plays moves that need neither the mouse nor the keyboard.
class TourPlayerTest : public ::testing::Test {
protected:
    void SetUp() override { ShowActive(m_window); }

    bool Play() {
        m_player.Start();
        const int code = QApplication::exec();
        EXPECT_EQ(code, m_player.Passed() ? 0 : 1);
        return m_player.Passed();
    }

    QJsonArray Steps() const {
        QFile file(Directory() + "/tour.json");
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QJsonDocument::fromJson(file.readAll()).object()["steps"].toArray();
    }
    QString Directory() const { return QString::fromStdString(m_directory.Path()) + "/out"; }

    ScratchFolder m_directory;
    QWidget m_window;
    TourPlayer m_player{m_window, Directory(), SqliteEngine::Open(TheSample().Path()), QString(),
                        TourSenses{[this] { return Grab(m_window); }, 60}};
};

}  // namespace

TEST_F(TourPlayerTest, ASuccessfulTourHasAPictureForEachStep) {
    QString seen = "first";
    m_player.Step("one");
    m_player.Expect(
        "The text", [&seen] { return seen; }, "first");
    m_player.Step("two");
    m_player.Do([&seen] { seen = "second"; });
    m_player.Expect(
        "The text", [&seen] { return seen; }, "second");
    EXPECT_TRUE(Play());
    ASSERT_EQ(Steps().size(), 2);
    const QJsonObject second = Steps()[1].toObject();
    EXPECT_EQ(second["name"].toString(), "two");
    EXPECT_EQ(second["picture"].toString(), "002-two.png");
    EXPECT_TRUE(second["held"].toBool());
    EXPECT_EQ(second["said"].toString(), "The text: \"second\".");
    EXPECT_FALSE(QImage(Directory() + "/001-one.png").isNull());
    EXPECT_FALSE(QImage(Directory() + "/002-two.png").isNull());
}

TEST_F(TourPlayerTest, WaitsForALateCondition) {
    int looks = 0;
    m_player.Step("patience");
    m_player.Wait("The third look", [&looks] { return ++looks == 3; });
    EXPECT_TRUE(Play());
    EXPECT_EQ(looks, 3);
}

TEST_F(TourPlayerTest, AMissingConditionEndsTheTourAndIsReported) {
    bool reached = false;
    m_player.Step("one");
    m_player.Step("two");
    m_player.Expect(
        "The text", [] { return QString("other"); }, "expected");
    m_player.Step("three");
    m_player.Do([&reached] { reached = true; });
    EXPECT_FALSE(Play());
    EXPECT_FALSE(reached);
    ASSERT_EQ(Steps().size(), 2);
    EXPECT_TRUE(Steps()[0].toObject()["held"].toBool());
    EXPECT_FALSE(Steps()[1].toObject()["held"].toBool(true));
    EXPECT_EQ(Steps()[1].toObject()["said"].toString(), "Did not appear: The text: \"expected\". Seen: \"other\".");
}

TEST_F(TourPlayerTest, AnUnreachableButtonEndsTheTour) {
    m_player.Step("one");
    m_player.Click("the button Finish", [] { return tour::Spot(); });
    EXPECT_FALSE(Play());
    EXPECT_EQ(Steps()[0].toObject()["said"].toString(), "Did not appear: the button Finish can be pressed");
}

TEST_F(TourPlayerTest, AnErrorInAConditionEndsTheTour) {
    m_player.Step("one");
    m_player.Wait("A look", []() -> bool { throw std::runtime_error("broken"); });
    EXPECT_FALSE(Play());
    EXPECT_EQ(Steps()[0].toObject()["said"].toString(), "broken");
}

}  // namespace quellbrook::testing

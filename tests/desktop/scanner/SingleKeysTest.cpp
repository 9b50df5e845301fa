#include "tests/desktop/scanner/ScannerTest.h"

#include <QWindow>

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;

class SingleKeysTest : public ScannerTest {
protected:
    SingleKeysTest() { ShowExplorer(); }
};

TEST_F(SingleKeysTest, TheReleaseOfAltDuringAScanReachesTheWindow) {
    KeyWatch keys(*m_window.windowHandle());
    m_keyboard.Press("ctrl+b x 1 Alt_L 2 ctrl+c");
    AwaitKeys();
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Unknown, "12")));
    EXPECT_EQ(keys.Presses(Qt::Key_Alt), 1);
    EXPECT_EQ(keys.Releases(Qt::Key_Alt), 1);
    for (const int key : {Qt::Key_X, Qt::Key_1, Qt::Key_2}) EXPECT_EQ(keys.Releases(key), 0) << key;
    ExpectNothingTyped();
}

// Qt reports a release and the next press of the same key within a millisecond as an auto-repeat.
TEST_F(SingleKeysTest, RepeatedDigitsAreNotLost) {
    const Scans expected(5, {BarcodeType::Unknown, "1111111111"});
    for (size_t scan = 0; scan < expected.size(); ++scan) {
        ScanAndAwait("x1111111111");
        Pause(gap);
    }
    EXPECT_EQ(m_scans, expected);
    ExpectNothingTyped();
}

TEST_F(SingleKeysTest, DigitsOfAHeldKeyInsideAScanAreNotLost) {
    m_keyboard.Press("ctrl+b x");
    m_keyboard.Hold("7");
    ASSERT_TRUE(Until([this] { return m_windowKeys->Repeats() >= 3; })) << "The server repeats no keys.";
    m_keyboard.Release("7");
    m_keyboard.Press("ctrl+c");
    AwaitKeys();
    const auto presses = static_cast<size_t>(m_windowKeys->Presses(Qt::Key_7));
    EXPECT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Unknown, std::string(presses, '7'))));
    ExpectNothingTyped();
}

}  // namespace
}  // namespace quellbrook::testing

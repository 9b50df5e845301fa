#include "tests/desktop/scanner/ScannerTest.h"
#include "ui/explorer/EvidenceExplorer.h"

#include <gmock/gmock.h>

namespace quellbrook::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

class HiddenViewTest : public ScannerTest {
protected:
    // The keys that the text box receives, including a scan, and its text afterwards. No key repeats, since Qt could
    // report an auto-repeat.
    std::vector<std::string> TypeEverything() {
        m_edit->clear();
        m_edit->setFocus();
        KeyWatch keys(*m_edit);
        m_keyboard.Press("ctrl+b");
        m_keyboard.Type("P01290,b C-c");
        m_keyboard.Press("ctrl+c Left shift+Home End Delete BackSpace ctrl+a F5 Escape Alt_L");
        m_keyboard.Hold("shift");
        m_keyboard.Release("shift");
        AwaitKeys();
        std::vector<std::string> lines = keys.Lines();
        lines.push_back("text " + m_edit->text().toStdString());
        m_edit->setFocus();
        return lines;
    }
};

TEST_F(HiddenViewTest, EveryKeyEventPassesAsWithoutAHook) {
    const std::vector<std::string> withoutHook = TypeEverything();
    ASSERT_GT(withoutHook.size(), 60u);
    ShowExplorer();
    m_explorer->hide();
    EXPECT_EQ(TypeEverything(), withoutHook);
    EXPECT_THAT(m_scans, IsEmpty());
}

TEST_F(HiddenViewTest, PressesWithinTheRestPeriodOfTheLastScanAreDropped) {
    m_clock.Set(DateTime::FromParts({2026, 11, 20, 1, 0, 0, 0}));
    m_environment->clock = &m_clock;
    ShowExplorer();
    ScanAndAwait("x1");
    ASSERT_THAT(m_scans, ElementsAre(Pair(BarcodeType::Unknown, "1")));
    m_explorer->hide();
    m_edit->setFocus();
    m_edit->selectAll();
    KeyWatch keys(*m_edit);
    m_clock.Advance(99);
    m_keyboard.Type("a");
    AwaitKeys();
    EXPECT_EQ(keys.Presses(Qt::Key_A), 0);
    EXPECT_EQ(keys.Releases(Qt::Key_A), 1) << "a release is not dropped";
    ExpectNothingTyped();
    m_clock.Advance(2);
    m_keyboard.Type("a");
    AwaitKeys();
    EXPECT_EQ(keys.Presses(Qt::Key_A), 1);
    EXPECT_EQ(m_edit->text(), "a");
}

}  // namespace
}  // namespace quellbrook::testing

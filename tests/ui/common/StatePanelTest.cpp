#include "ui/common/StatePanel.h"

#include "tests/support/ui/QtTestMain.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/Label.h"
#include "ui/platform/Twips.h"

namespace quellbrook::testing {
namespace {

TEST(StatePanel, ShowsAnIconATitleAndASentence) {
    const StatePanel panel("search", "No items found.", "Try again.", nullptr);
    EXPECT_EQ(panel.Icon()->IconName(), "search");
    EXPECT_EQ(panel.Title()->Caption(), "No items found.");
    EXPECT_EQ(panel.Sentence()->Caption(), "Try again.");
}

TEST(StatePanel, IsAsTallAsItsWrappedSentence) {
    const StatePanel one("search", "Title", "One line.", nullptr);
    const StatePanel two("search", "Title", "A sentence that needs more than one line in a panel of this width.",
                         nullptr);
    EXPECT_EQ(one.Height(), one.Sentence()->Bottom());
    EXPECT_EQ(two.Height(), one.Height() + one.Sentence()->Height());
    const StatePanel wide("search", "Title", two.Sentence()->Caption(), nullptr, 800);
    EXPECT_EQ(wide.Height(), one.Height());
}

TEST(StatePanel, IsNotDimmedOverADisabledList) {
    QWidget list;
    StatePanel panel("search", "No items found.", "Try again.", &list);
    ShowActive(list);
    const QImage enabled = panel.grab().toImage();
    list.setEnabled(false);
    EXPECT_EQ(panel.grab().toImage(), enabled);
}

}  // namespace
}  // namespace quellbrook::testing

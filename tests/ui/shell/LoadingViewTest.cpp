#include "ui/shell/LoadingView.h"

#include "tests/support/ui/Widgets.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"

namespace quellbrook {

TEST(LoadingView, ShowsItsMessage) {
    LoadingView view;
    EXPECT_EQ(testing::Find<Label>(view, "Label2")->Caption(), "Please wait...");
    EXPECT_EQ(testing::Find<Label>(view, "lblMessage")->Caption(),
              "Please wait while the current operation completes.");
    EXPECT_EQ(testing::Find<FontIcon>(view, "imgLoading")->IconName(), "busy");
}

TEST(LoadingView, TheGroupIsCenteredAtEverySize) {
    LoadingView view;
    testing::ShowActive(view);
    const auto* group = testing::Find<GroupBox>(view, "loadingGroup");
    for (const QSize& size : {QSize(1280, 760), QSize(1920, 1041)}) {
        view.resize(size);
        EXPECT_FLOAT_EQ(group->Left(), view.ClientWidth() / 2 - group->Width() / 2);
        EXPECT_FLOAT_EQ(group->Top(), view.ClientHeight() / 2 - group->Height() / 2);
    }
}

}  // namespace quellbrook

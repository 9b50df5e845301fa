#include "ui/common/WidgetScreen.h"

#include "base/Environment.h"
#include "base/Error.h"
#include "base/MessageHook.h"
#include "tests/support/RaisedBy.h"
#include "tests/ui/common/ScreenTest.h"

#include <QMessageBox>

namespace quellbrook {

namespace {

class WidgetScreenTest : public testing::ScreenTest {};

}  // namespace

TEST_F(WidgetScreenTest, ThePlainMessageIsQtsOwnBoxWithPlainText) {
    bool seen = false;
    QTimer::singleShot(0, &m_host, [&seen] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->text(), "A <b>failure</b>");
        EXPECT_EQ(box->textFormat(), Qt::PlainText);
        EXPECT_EQ(box->windowTitle(), "Unexpected Error");
        EXPECT_EQ(box->icon(), QMessageBox::Critical);
        EXPECT_EQ(GetScreen().OpenFormCount(), 0);
        seen = true;
        box->accept();
    });
    GetScreen().ShowPlainMessage("A <b>failure</b>", "Unexpected Error");
    EXPECT_TRUE(seen);
}

TEST_F(WidgetScreenTest, TheDialogParentReachesTheDialogs) {
    QWidget other;
    GetScreen().SetDialogParent(std::make_shared<WindowReference>(&other));
    EXPECT_EQ(GetDialogs().GetParent(), &other);
}

TEST_F(WidgetScreenTest, WithoutAWizardItsRunIsAnErrorWithASentence) {
    const Error error = testing::RaisedBy([] { GetScreen().RunSetupWizard(); });
    EXPECT_EQ(error.Number(), ErrorNumber::General);
    EXPECT_EQ(error.Description(), "The wizard for storage locations is not available here.");
}

TEST_F(WidgetScreenTest, TimersAndKeysAreThoseOfQt) {
    int ticks = 0;
    const auto timer = MakeTimer();
    timer->SetInterval(1);
    timer->Elapsed = [&ticks] { ++ticks; };
    timer->Start();
    for (int round = 0; round < 1000 && ticks == 0; ++round) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_GT(ticks, 0);
    QTest::keyPress(&m_host, Qt::Key_Down);
    EXPECT_TRUE(IsKeyDown(40));
    QTest::keyRelease(&m_host, Qt::Key_Down);
    EXPECT_FALSE(IsKeyDown(40));
    const auto hook = MakeMessageHook();
    int messages = 0;
    hook->OnMessage = [&messages](KeyMessage&) { ++messages; };
    QTest::simulateEvent(m_host.windowHandle(), true, Qt::Key_A, Qt::NoModifier, "a", false);
    EXPECT_EQ(messages, 2);
}

}  // namespace quellbrook

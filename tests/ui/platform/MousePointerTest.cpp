#include "tests/ui/controls/ControlsTest.h"
#include "ui/platform/MousePointer.h"

#include <QDialog>
#include <QTimer>

namespace quellbrook::testing {
namespace {

class MousePointerTest : public ControlsTest {
protected:
    ~MousePointerTest() override { SetMousePointer(MousePointer::Default); }
};

TEST_F(MousePointerTest, TwoHourglassesAndOneDefaultLeaveNone) {
    SetMousePointer(MousePointer::Hourglass);
    SetMousePointer(MousePointer::Hourglass);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    EXPECT_EQ(GetMousePointer(), MousePointer::Hourglass);
    SetMousePointer(MousePointer::Default);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(GetMousePointer(), MousePointer::Default);
}

TEST_F(MousePointerTest, AnExtraDefaultDoesNotAffectOtherOverrides) {
    QApplication::setOverrideCursor(Qt::CrossCursor);
    SetMousePointer(MousePointer::Default);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::CrossCursor);
    QApplication::restoreOverrideCursor();
}

TEST_F(MousePointerTest, AModalDialogShowsTheArrowAndTheFlagStays) {
    ShowActive(m_window);
    SetMousePointer(MousePointer::Hourglass);
    QDialog dialog(&m_window);
    bool looked = false;
    QTimer::singleShot(0, &dialog, [&] {
        looked = true;
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(GetMousePointer(), MousePointer::Hourglass);
        dialog.done(0);
    });
    dialog.exec();
    EXPECT_TRUE(looked);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

TEST_F(MousePointerTest, AnHourglassSetBehindADialogAppearsWhenItCloses) {
    ShowActive(m_window);
    QDialog dialog(&m_window);
    QTimer::singleShot(0, &dialog, [&] {
        SetMousePointer(MousePointer::Hourglass);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        dialog.done(0);
    });
    dialog.exec();
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
}

TEST_F(MousePointerTest, OneDialogOverAnotherKeepsTheArrow) {
    ShowActive(m_window);
    SetMousePointer(MousePointer::Hourglass);
    QDialog outer(&m_window);
    QTimer::singleShot(0, &outer, [&] {
        QDialog inner(&outer);
        QTimer::singleShot(0, &inner, [&] { inner.done(0); });
        inner.exec();
        EXPECT_EQ(QApplication::overrideCursor(), nullptr);
        outer.done(0);
    });
    outer.exec();
    EXPECT_NE(QApplication::overrideCursor(), nullptr);
}

}  // namespace
}  // namespace quellbrook::testing

#include "app/WindowSize.h"
#include "tests/support/ScratchFolder.h"

#include <QScreen>
#include <QWidget>

#include <fstream>

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

class WindowSizeTest : public ::testing::Test {
protected:
    QString File() const { return QString::fromStdString(m_folder.Path()) + "/window.ini"; }

    ScratchFolder m_folder;
    QWidget m_window;
};

// The test screen is 800 x 800 pixels.
TEST_F(WindowSizeTest, AWindowThatIsTooLargeForTheScreenIsMaximized) {
    ASSERT_EQ(m_window.screen()->availableSize(), QSize(800, 800));
    RestoreWindowSize(m_window, File());
    EXPECT_TRUE(m_window.isMaximized());
    EXPECT_LE(m_window.size().width(), 800);
    EXPECT_LE(m_window.size().height(), 800);
}

TEST_F(WindowSizeTest, ASizeIsRemembered) {
    m_window.resize(640, 500);
    SaveWindowSize(m_window, File());
    QWidget next;
    RestoreWindowSize(next, File());
    EXPECT_EQ(next.size(), QSize(640, 500));
    EXPECT_FALSE(next.isMaximized());
}

TEST_F(WindowSizeTest, AFileThatCannotBeReadCountsAsNone) {
    QWidget usual;
    RestoreWindowSize(usual, File());
    std::ofstream(File().toStdString()) << "[window]\ngeometry=none\n";
    for (const QString& file : {File(), QString::fromStdString(m_folder.Path())}) {
        QWidget window;
        RestoreWindowSize(window, file);
        EXPECT_EQ(window.size(), usual.size());
    }
}

}  // namespace
}  // namespace quellbrook::testing

#include "app/Options.h"
#include "tests/app/ScratchWorkstation.h"

#include <QProcess>

#include <gtest/gtest.h>

namespace quellbrook::testing {
namespace {

// The program as a process of its own, on a scratch workstation.
class ProgramTest : public ::testing::Test {
protected:
    ProgramTest() { m_workstation.Set("XDG_DATA_HOME", m_workstation.In("data")); }

    void Run(const QStringList& arguments) {
        m_process.start(QStringLiteral(QUELLBROOK_PROGRAM), arguments);
        ASSERT_TRUE(m_process.waitForFinished()) << m_process.errorString().toStdString();
        ASSERT_EQ(m_process.exitStatus(), QProcess::NormalExit);
    }
    std::string Output() { return m_process.readAllStandardOutput().toStdString(); }
    std::string Errors() { return m_process.readAllStandardError().toStdString(); }

    ScratchWorkstation m_workstation;
    QProcess m_process;
};

TEST_F(ProgramTest, HelpIsPrintedOnStandardOutput) {
    Run({"--help"});
    EXPECT_EQ(m_process.exitCode(), 0);
    // The first line names the program that is running.
    const auto body = [](const std::string& text) { return text.substr(text.find('\n') + 1); };
    EXPECT_EQ(body(Output()), body(HelpText()));
}

TEST_F(ProgramTest, AnOptionThatItDoesNotKnowIsNamedOnStandardError) {
    Run({"--tables"});
    EXPECT_EQ(m_process.exitCode(), 2);
    EXPECT_EQ(Output(), "");
    EXPECT_EQ(Errors(), "Unknown option '--tables'. See --help.\n");
}

}  // namespace
}  // namespace quellbrook::testing

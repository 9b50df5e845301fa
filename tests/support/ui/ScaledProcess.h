#pragma once

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>

#include <gtest/gtest.h>

#include <string>

namespace quellbrook::testing {

inline constexpr const char* ScaleFactorVariable = "QT_SCALE_FACTOR";

inline bool IsScaledProcess() { return qEnvironmentVariableIsSet(ScaleFactorVariable); }

// Runs the tests of this program that match the filter again, in a separate process at scale factor 2. Fails the test
// if one of them fails or the named one was not among them. The filter must exclude the calling test.
inline void ExpectTheSameAtScaleTwo(const QString& filter, const std::string& oneOfThem) {
    QProcess scaled;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(ScaleFactorVariable, "2");
    scaled.setProcessEnvironment(environment);
    scaled.setProcessChannelMode(QProcess::MergedChannels);
    scaled.start(QCoreApplication::applicationFilePath(), {"--gtest_filter=" + filter});
    ASSERT_TRUE(scaled.waitForFinished(600000));
    const std::string output = scaled.readAll().toStdString();
    EXPECT_EQ(scaled.exitCode(), 0) << output;
    EXPECT_NE(output.find("[       OK ] " + oneOfThem), std::string::npos) << output;
}

}  // namespace quellbrook::testing

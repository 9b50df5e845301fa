#include "tests/support/ui/QtTestMain.h"

#include "base/Environment.h"
#include "ui/accessibility/Accessibility.h"
#include "ui/style/FlatStyle.h"
#include "ui/style/Theme.h"

#include <QApplication>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <optional>
#include <utility>
#include <vector>

namespace quellbrook::testing {

namespace {

std::vector<QString>& AnnouncedWarnings() {
    static std::vector<QString> announced;
    return announced;
}

QStringList& DebugMessages() {
    static QStringList messages;
    return messages;
}

bool TakeAnnounced(const QString& message) {
    auto& announced = AnnouncedWarnings();
    for (auto part = announced.begin(); part != announced.end(); ++part) {
        if (!message.contains(*part)) continue;
        announced.erase(part);
        return true;
    }
    return false;
}

// Messages of the offscreen platform about its own limits.
bool IsOfPlatform(const QString& message) {
    return message.startsWith(QLatin1String("This plugin does not support")) ||
           message.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR"));
}

void OnQtMessage(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (IsOfPlatform(message)) return;
    std::fprintf(stderr, "%s\n", message.toUtf8().constData());
    if (type == QtDebugMsg) DebugMessages().push_back(message);
    if (type == QtDebugMsg || type == QtInfoMsg || TakeAnnounced(message)) return;
    ADD_FAILURE() << "Unexpected Qt warning: " << message.toStdString();
}

class WarningListener : public ::testing::EmptyTestEventListener {
    void OnTestStart(const ::testing::TestInfo&) override {
        DebugMessages().clear();
        m_environment.emplace();
        (*m_environment)->errorLog = &TestErrorLog();
    }
    void OnTestEnd(const ::testing::TestInfo&) override {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        for (const QString& part : AnnouncedWarnings())
            ADD_FAILURE() << "No Qt warning contained: " << part.toStdString();
        AnnouncedWarnings().clear();
        TestErrorLog().Verify();
        m_environment.reset();
    }

    std::optional<EnvironmentScope> m_environment;
};

}  // namespace

void AnnounceWarning(const QString& part) { AnnouncedWarnings().push_back(part); }

QStringList TakeDebugMessages() { return std::exchange(DebugMessages(), {}); }

RecordingErrorLog& TestErrorLog() {
    static RecordingErrorLog log;
    return log;
}

}  // namespace quellbrook::testing

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleMock(&argc, argv);
    QApplication application(argc, argv);
    application.setApplicationName("quellbrook-tests");
    quellbrook::InstallAccessibility();
    QApplication::setStyle(new quellbrook::FlatStyle);
    quellbrook::Theme::Install(false);
    qInstallMessageHandler(quellbrook::testing::OnQtMessage);
    ::testing::UnitTest::GetInstance()->listeners().Append(new quellbrook::testing::WarningListener);
    return RUN_ALL_TESTS();
}

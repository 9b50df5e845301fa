#include "app/SystemTheme.h"
#include "component/Quellbrook.h"
#include "tests/support/ScratchFolder.h"
#include "tests/support/ui/Widgets.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDBusVirtualObject>
#include <QProcess>

#include <gtest/gtest.h>

#include <optional>

namespace quellbrook::testing {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString group = QStringLiteral("org.freedesktop.appearance"), setting = QStringLiteral("color-scheme");

// The settings of a desktop's portal, as another program sends them. Counts how often it was asked.
class FakePortal : public QDBusVirtualObject {
public:
    uint scheme = 0;
    int questions = 0;

    void Appear(const QDBusConnection& bus) {
        m_bus = bus;
        EXPECT_TRUE(m_bus.registerVirtualObject(path, this));
        EXPECT_TRUE(m_bus.registerService(service));
    }
    void Change(const QString& changedGroup, const QString& key, uint value) {
        QDBusMessage signal = QDBusMessage::createSignal(path, interface, "SettingChanged");
        signal << changedGroup << key << QVariant::fromValue(QDBusVariant(value));
        EXPECT_TRUE(m_bus.send(signal));
    }
    void Change(uint value) {
        scheme = value;
        Change(group, setting, value);
    }

    QString introspect(const QString&) const override { return QString(); }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.interface() != interface) return false;
        if (message.member() == "Read") {
            ++questions;
            EXPECT_EQ(message.arguments(), (QVariantList{group, setting}));
            const QDBusVariant inner(scheme);
            return bus.send(message.createReply(QVariant::fromValue(QDBusVariant(QVariant::fromValue(inner)))));
        }
        return bus.send(message.createReply());
    }

private:
    QDBusConnection m_bus{QString()};
};

// A session bus of its own, with the program and a desktop's portal on it.
class SystemThemeTest : public ::testing::Test {
protected:
    void SetUp() override {
        InstallTheme(false);
        m_daemon.start("dbus-daemon", {"--session", "--nofork", "--print-address",
                                       "--address=unix:path=" + QString::fromStdString(m_folder.In("bus"))});
        ASSERT_TRUE(m_daemon.waitForReadyRead()) << m_daemon.errorString().toStdString();
        m_address = QString::fromUtf8(m_daemon.readLine()).trimmed();
        ASSERT_TRUE(ProgramsBus().isConnected()) << ProgramsBus().lastError().message().toStdString();
    }
    void TearDown() override {
        m_theme.reset();
        for (const char* name : {"portal", "program"}) QDBusConnection::disconnectFromBus(QString::fromLatin1(name));
        m_daemon.kill();
        m_daemon.waitForFinished();
        InstallTheme(false);
    }

    QDBusConnection ProgramsBus() { return QDBusConnection::connectToBus(m_address, "program"); }

    void StartPortal(uint scheme) {
        m_portal.scheme = scheme;
        m_portal.Appear(QDBusConnection::connectToBus(m_address, "portal"));
    }
    void StartProgram() {
        m_theme.emplace(ProgramsBus());
        Settle();
    }
    // Waits until the program has received all that the portal has sent.
    void Settle() {
        QDBusConnection bus = ProgramsBus();
        // Answered after all that was asked before.
        const QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, "Wait");
        bus.call(question, QDBus::BlockWithGui);
        ServeEvents();
    }

    ScratchFolder m_folder;
    QProcess m_daemon;
    QString m_address;
    FakePortal m_portal;
    std::optional<SystemTheme> m_theme;
};

TEST_F(SystemThemeTest, TheProgramStartsInTheThemeThatTheDesktopPrefers) {
    StartPortal(1);
    StartProgram();
    EXPECT_EQ(m_portal.questions, 1);
    EXPECT_TRUE(HasDarkPalette());
    m_theme.reset();
    m_portal.scheme = 2;
    StartProgram();
    EXPECT_FALSE(HasDarkPalette());
}

TEST_F(SystemThemeTest, ItFollowsTheDesktopBothWays) {
    StartPortal(0);
    StartProgram();
    EXPECT_FALSE(HasDarkPalette());
    for (const uint light : {0U, 2U}) {
        m_portal.Change(1);
        Settle();
        EXPECT_TRUE(HasDarkPalette()) << light;
        m_portal.Change(light);
        Settle();
        EXPECT_FALSE(HasDarkPalette()) << light;
    }
}

TEST_F(SystemThemeTest, ADesktopWithoutAPreferenceDoesNotChangeTheThemeAtTheStart) {
    InstallTheme(true);
    StartPortal(0);
    StartProgram();
    EXPECT_EQ(m_portal.questions, 1);
    EXPECT_TRUE(HasDarkPalette());
}

TEST_F(SystemThemeTest, OtherSettingsAreIgnored) {
    StartPortal(2);
    StartProgram();
    m_portal.Change(group, "contrast", 1);
    m_portal.Change("org.gnome.desktop.interface", setting, 1);
    Settle();
    EXPECT_FALSE(HasDarkPalette());
}

TEST_F(SystemThemeTest, WithoutAPortalTheThemeStaysUntilThereIsOne) {
    InstallTheme(true);
    StartProgram();
    EXPECT_TRUE(HasDarkPalette());
    StartPortal(1);
    m_portal.Change(2);
    Settle();
    EXPECT_FALSE(HasDarkPalette());
}

TEST_F(SystemThemeTest, WithoutABusTheThemeStays) {
    m_theme.emplace(QDBusConnection(QStringLiteral("no bus")));
    ServeEvents();
    EXPECT_FALSE(HasDarkPalette());
}

}  // namespace

}  // namespace quellbrook::testing

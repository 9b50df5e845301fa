#include "app/SystemTheme.h"

#include "app/common/HostGuard.h"
#include "component/Quellbrook.h"

#include <QApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QPalette>

namespace quellbrook {

namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString settingGroup = QStringLiteral("org.freedesktop.appearance"), setting = QStringLiteral("color-scheme");

// The setting's values.
constexpr uint noPreference = 0, preferDark = 1;

// The portal returns a variant in a variant.
uint ColorScheme(QVariant value) {
    while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    return value.toUInt();
}

void Apply(bool dark) {
    if (dark != HasDarkPalette()) InstallTheme(dark);
}

}  // namespace

bool HasDarkPalette() {
    const QPalette palette = QApplication::palette();
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

SystemTheme::SystemTheme(const QDBusConnection& sessionBus) {
    QDBusConnection bus(sessionBus);
    if (!bus.isConnected()) return;
    bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this, SLOT(OnSettingChanged(QDBusMessage)));
    QDBusMessage question = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    question << settingGroup << setting;
    const auto* answer = new QDBusPendingCallWatcher(bus.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [](QDBusPendingCallWatcher* call) {
        GuardHost(nullptr, [call] {
            call->deleteLater();
            const QDBusPendingReply<QVariant> reply = *call;
            const uint scheme = reply.isValid() ? ColorScheme(reply.value()) : noPreference;
            if (scheme != noPreference) Apply(scheme == preferDark);
        });
    });
}

// A desktop without a "light" preference reports the change from dark to light as "no preference".
void SystemTheme::OnSettingChanged(const QDBusMessage& signal) {
    const QVariantList arguments = signal.arguments();
    if (arguments.size() != 3 || arguments[0] != settingGroup || arguments[1] != setting) return;
    GuardHost(nullptr, [&arguments] { Apply(ColorScheme(arguments[2]) == preferDark); });
}

}  // namespace quellbrook

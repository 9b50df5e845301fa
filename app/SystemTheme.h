#pragma once

#include <QDBusConnection>
#include <QObject>

class QDBusMessage;

namespace quellbrook {

// Whether the application's palette has light text on a dark background.
bool HasDarkPalette();

// While it exists, the application has the light or dark theme that the desktop prefers, also after the preference has
// changed. The desktop's portal reports the preference on the session bus. Without a bus, a portal or a preference, the
// theme stays as it is.
class SystemTheme : public QObject {
    Q_OBJECT

public:
    explicit SystemTheme(const QDBusConnection& sessionBus);

private slots:
    void OnSettingChanged(const QDBusMessage& signal);
};

}  // namespace quellbrook

#include "designer/ControlPlugin.h"

#include "ui/style/Icons.h"
#include "ui/style/Theme.h"

#include <QIcon>

#include <utility>

namespace quellbrook {

namespace {

// Qt Designer numbers the controls of a form after this name.
QString ObjectName(QString className) {
    className[0] = className[0].toLower();
    return className;
}

}  // namespace

ControlPlugin::ControlPlugin(ControlDescription control, QObject* parent)
    : QObject(parent), m_control(std::move(control)) {}

QString ControlPlugin::name() const { return "quellbrook::" + m_control.name; }
QString ControlPlugin::group() const { return QStringLiteral("Quellbrook"); }
QString ControlPlugin::toolTip() const { return m_control.purpose; }
QString ControlPlugin::whatsThis() const { return m_control.purpose; }
QString ControlPlugin::includeFile() const { return m_control.header; }
// As a picture, since the widget box ignores an icon without fixed sizes.
QIcon ControlPlugin::icon() const { return QIcon(Icons::Pixmap(m_control.icon, 22, Theme::Get(Theme::Color::Link))); }
bool ControlPlugin::isContainer() const { return m_control.isContainer; }
QWidget* ControlPlugin::createWidget(QWidget* parent) { return m_control.make(parent); }

QString ControlPlugin::domXml() const {
    return QStringLiteral(R"(<ui language="c++" displayname="%1"><widget class="%2" name="%3">
<property name="geometry"><rect><x>0</x><y>0</y><width>%4</width><height>%5</height></rect></property>
%6</widget></ui>)")
        .arg(m_control.name, name(), ObjectName(m_control.name))
        .arg(m_control.size.width())
        .arg(m_control.size.height())
        .arg(m_control.properties);
}

}  // namespace quellbrook

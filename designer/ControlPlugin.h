#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetInterface>

#include <functional>

namespace quellbrook {

// What Qt Designer shows and writes about a control.
struct ControlDescription {
    QString name;    // of the class, without its namespace
    QString header;  // from the project's root
    QString purpose;
    QString icon;
    QSize size;  // of a new control, in pixels
    bool isContainer = false;
    QString properties = {};  // of a new control, as XML
    std::function<QWidget*(QWidget*)> make;
};

// Offers a control in Qt Designer's widget box, in the group "Quellbrook".
class ControlPlugin : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    ControlPlugin(ControlDescription control, QObject* parent);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QString domXml() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QWidget* createWidget(QWidget* parent) override;

private:
    ControlDescription m_control;
};

}  // namespace quellbrook

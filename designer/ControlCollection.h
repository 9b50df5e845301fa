#pragma once

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

namespace quellbrook {

// The plugin: the controls and the component's EvidenceUI. While it is loaded, they behave as at design time and need
// no database.
class ControlCollection : public QObject, public QDesignerCustomWidgetCollectionInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    explicit ControlCollection(QObject* parent = nullptr);

    QList<QDesignerCustomWidgetInterface*> customWidgets() const override { return m_controls; }

private:
    QList<QDesignerCustomWidgetInterface*> m_controls;
};

}  // namespace quellbrook

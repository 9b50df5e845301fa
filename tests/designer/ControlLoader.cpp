#include "tests/designer/ControlLoader.h"

#include "ui/common/RelatedIncidentStrip.h"
#include "ui/controls/BarcodeListenerControl.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/FlatScrollBar.h"
#include "ui/controls/FlatTabs.h"
#include "ui/controls/FlatTextArea.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/controls/FlatTitleBar.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/controls/Link.h"
#include "ui/controls/ListView.h"
#include "ui/controls/PictureBox.h"
#include "ui/controls/StatusTag.h"
#include "ui/controls/TessarineDropdown.h"
#include "ui/explorer/CategorizedSearchResults.h"
#include "ui/explorer/EvidenceExplorer.h"
#include "ui/explorer/LocationTree.h"
#include "ui/explorer/LocationView.h"
#include "ui/explorer/SearchResultList.h"
#include "ui/explorer/SearchResultRow.h"
#include "ui/items/ActionTag.h"
#include "ui/items/CartView.h"
#include "ui/items/PropertyDetails.h"
#include "ui/items/StoredItemMenu.h"
#include "ui/items/StoredItemView.h"
#include "ui/items/SubmitEvidenceView.h"
#include "ui/items/TrackingList.h"
#include "ui/items/TrackingResult.h"
#include "ui/locations/LocationPicker.h"
#include "ui/locations/SetupLocationsWizard.h"
#include "ui/shell/EvidenceUI.h"
#include "ui/shell/InfoBar.h"
#include "ui/shell/LoadingView.h"
#include "ui/shell/Toast.h"

#include <QBuffer>

namespace quellbrook::testing {

ControlLoader::ControlLoader() {
    Add<ActionTag>("ActionTag");
    Add<BarcodeListenerControl>("BarcodeListenerControl");
    Add<CartView>("CartView");
    Add<EvidenceExplorer>("EvidenceExplorer");
    Add<EvidenceUI>("EvidenceUI");
    Add<FlatButton>("FlatButton");
    Add<FlatDropdown>("FlatDropdown");
    Add<FlatScrollBar>("FlatScrollBar");
    Add<FlatTabPage>("FlatTabPage");
    Add<FlatTabs>("FlatTabs");
    Add<FlatTextArea>("FlatTextArea");
    Add<FlatTextbox>("FlatTextbox");
    Add<FlatTitleBar>("FlatTitleBar");
    Add<FontIcon>("FontIcon");
    Add<GroupBox>("GroupBox");
    Add<InfoBar>("InfoBar");
    Add<Label>("Label");
    Add<Line>("Line");
    Add<Link>("Link");
    Add<ListView>("ListView");
    Add<LoadingView>("LoadingView");
    Add<LocationPicker>("LocationPicker");
    Add<LocationTree>("LocationTree");
    Add<LocationView>("LocationView");
    Add<RelatedIncidentStrip>("RelatedIncidentStrip");
    Add<CategorizedSearchResults>("CategorizedSearchResults");
    Add<SearchResultList>("SearchResultList");
    Add<SearchResultRow>("SearchResultRow");
    Add<SetupLocationsWizard>("SetupLocationsWizard");
    Add<StatusTag>("StatusTag");
    Add<StoredItemView>("StoredItemView");
    Add<SubmitEvidenceView>("SubmitEvidenceView");
    Add<TessarineDropdown>("TessarineDropdown");
    Add<Toast>("Toast");
    Add<TrackingList>("TrackingList");
    Add<PropertyDetails>("PropertyDetails");
    Add<StoredItemMenu>("StoredItemMenu");
    Add<PictureBox>("PictureBox");
    Add<TrackingResult>("TrackingResult");
}

QWidget* ControlLoader::createWidget(const QString& className, QWidget* parent, const QString& name) {
    const auto maker = m_makers.find(className.section("::", -1));
    if (maker == m_makers.end()) return QUiLoader::createWidget(className, parent, name);
    QWidget* control = maker->second(parent);
    control->setObjectName(name);
    return control;
}

QStringList ControlLoader::Classes() const {
    QStringList classes;
    for (const auto& [name, maker] : m_makers) classes.push_back(name);
    return classes;
}

std::unique_ptr<QWidget> ControlLoader::LoadForm(const QString& className, const QString& properties) {
    QByteArray text = QStringLiteral(R"(<ui version="4.0"><class>Form</class>
<widget class="QWidget" name="Form"><property name="geometry">
<rect><x>0</x><y>0</y><width>800</width><height>600</height></rect></property>
<widget class="quellbrook::%1" name="control"><property name="geometry"><rect><x>40</x><y>30</y>
<width>320</width><height>200</height></rect></property>%2</widget></widget></ui>)")
                          .arg(className, properties)
                          .toUtf8();
    QBuffer form(&text);
    form.open(QIODevice::ReadOnly);
    return std::unique_ptr<QWidget>(load(&form));
}

}  // namespace quellbrook::testing

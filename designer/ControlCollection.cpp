#include "designer/ControlCollection.h"

#include "component/Quellbrook.h"
#include "designer/ControlPlugin.h"
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
#include "ui/shell/EvidenceUI.h"

namespace quellbrook {

namespace {

template <typename T>
QWidget* Make(QWidget* parent) {
    return new T(parent);
}

QString WithCaption(const char* caption) {
    return QStringLiteral("<property name=\"Caption\"><string>%1</string></property>").arg(QLatin1String(caption));
}

std::vector<ControlDescription> Controls() {
    constexpr int field = 36, wide = 200;
    return {
        {"BarcodeListenerControl",
         "ui/controls/BarcodeListenerControl.h",
         "Takes scans while its view is shown",
         "tag",
         QSize(32, 32),
         false,
         {},
         Make<BarcodeListenerControl>},
        {"EvidenceUI",
         "ui/shell/EvidenceUI.h",
         "The whole component",
         "box",
         QSize(960, 600),
         false,
         {},
         Make<EvidenceUI>},
        {"FlatButton", "ui/controls/FlatButton.h", "Push button", "check", QSize(120, field), false,
         WithCaption("Button"), Make<FlatButton>},
        {"FlatDropdown",
         "ui/controls/FlatDropdown.h",
         "Dropdown",
         "chevron",
         QSize(wide, field),
         false,
         {},
         Make<FlatDropdown>},
        {"FlatScrollBar",
         "ui/controls/FlatScrollBar.h",
         "Vertical scroll bar",
         "chevron",
         QSize(16, wide),
         false,
         {},
         Make<FlatScrollBar>},
        {"FlatTabPage",
         "ui/controls/FlatTabs.h",
         "Page of tabs",
         "basic",
         QSize(360, wide),
         true,
         {},
         Make<FlatTabPage>},
        {"FlatTabs", "ui/controls/FlatTabs.h", "Tabs", "basic", QSize(400, 240), false, {}, Make<FlatTabs>},
        {"FlatTextArea",
         "ui/controls/FlatTextArea.h",
         "Text field of several lines",
         "notes",
         QSize(wide, 120),
         false,
         {},
         Make<FlatTextArea>},
        {"FlatTextbox",
         "ui/controls/FlatTextbox.h",
         "Text field of one line",
         "edit",
         QSize(wide, field),
         false,
         {},
         Make<FlatTextbox>},
        {"FlatTitleBar", "ui/controls/FlatTitleBar.h", "Title strip of a view", "basic", QSize(400, 40), false,
         WithCaption("Title"), Make<FlatTitleBar>},
        {"FontIcon", "ui/controls/FontIcon.h", "Icon", "location", QSize(24, 24), false, {}, Make<FontIcon>},
        {"GroupBox",
         "ui/controls/GroupBox.h",
         "Background of other controls",
         "box",
         QSize(240, 160),
         true,
         {},
         Make<GroupBox>},
        {"Label", "ui/controls/Label.h", "Plain text", "notes", QSize(160, 20), false, WithCaption("Label"),
         Make<Label>},
        {"Line", "ui/controls/Line.h", "Rule", "other", QSize(wide, 1), false, {}, Make<Line>},
        {"Link", "ui/controls/Link.h", "Text that can be clicked", "open", QSize(120, 20), false, WithCaption("Link"),
         Make<Link>},
        {"ListView",
         "ui/controls/ListView.h",
         "List with columns",
         "identifiers",
         QSize(360, wide),
         false,
         {},
         Make<ListView>},
        {"PictureBox", "ui/controls/PictureBox.h", "Picture", "box", QSize(160, 120), false, {}, Make<PictureBox>},
        {"RelatedIncidentStrip",
         "ui/common/RelatedIncidentStrip.h",
         "The incidents of an item",
         "secured",
         QSize(360, 20),
         false,
         {},
         Make<RelatedIncidentStrip>},
        {"StatusTag", "ui/controls/StatusTag.h", "Colored tag with the status of an item", "tag", QSize(100, 20), false,
         WithCaption("In Storage"), Make<StatusTag>},
        {"TessarineDropdown",
         "ui/controls/TessarineDropdown.h",
         "Dropdown of a code table",
         "chevron",
         QSize(wide, field),
         false,
         {},
         Make<TessarineDropdown>},
    };
}

}  // namespace

ControlCollection::ControlCollection(QObject* parent) : QObject(parent) {
    SetInsideDesigner(true);
    Startup();
    for (const ControlDescription& control : Controls()) m_controls.append(new ControlPlugin(control, this));
}

}  // namespace quellbrook

#include "ui/items/StoredItemView.h"

#include "base/Screen.h"
#include "core/Actions.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/FlatTabs.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/controls/Link.h"
#include "ui/controls/StatusTag.h"
#include "ui/items/GoBack.h"
#include "ui/items/PropertyDetails.h"
#include "ui/items/StoredItemMenu.h"
#include "ui/items/TrackingList.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QKeyEvent>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr float OuterMargin = 240, FieldGap = 120;
// Pixels.
constexpr int TitleAreaHeight = 76, SpacerHeight = 8, HeadingLeft = 20, HeadingTop = 14, StatusTop = 48;
constexpr int OpenLinkTop = 18, CloseHeight = 48;
constexpr int TabsLeft = 12, FirstTabIndent = 4, TabsHeader = 40;

// As wide as its text, up to this right edge.
void FitInto(Label& label, float right) {
    label.SetWidth(std::min(ToTwips(label.sizeHint().width()), right - label.Left()));
}

}  // namespace

StoredItemView::StoredItemView(QWidget* parent) : View(parent), m_menu(new StoredItemMenu(this)) {
    m_menu->setObjectName("menu");
    BuildHeading();
    BuildTabs();
    m_tabs->SetTabIndex(0);
    for (Control* docked : std::initializer_list<Control*>{m_menu, m_titleArea, m_spacer})
        docked->SetAlign(Alignment::Top);
}

void StoredItemView::BuildHeading() {
    m_titleArea = new GroupBox(this);
    m_titleArea->setObjectName("picTitleArea");
    m_titleArea->SetHeight(ToTwips(TitleAreaHeight));
    const auto addLabel = [this](const char* name, const char* caption, Theme::Type type, Theme::Color color) {
        auto* label = new Label(m_titleArea);
        label->setObjectName(name);
        label->SetType(type);
        label->SetOneLine(true);
        label->SetForeColor(color);
        label->SetCaption(caption);
        return label;
    };
    m_id = addLabel("lblID", "Identifier", Theme::Type::ItemHeading, Theme::Color::Text);
    m_id->Move(ToTwips(HeadingLeft), ToTwips(HeadingTop));
    m_description = addLabel("lblDescription", "Description", Theme::Type::ItemHeadingRegular, Theme::Color::Text);
    m_description->SetTop(ToTwips(HeadingTop));
    m_status = new StatusTag(m_titleArea);
    m_status->setObjectName("tagStatus");
    m_status->SetCaption("Unknown");
    m_status->Move(ToTwips(HeadingLeft), ToTwips(StatusTop));
    m_location = addLabel("lblLocation", "Location", Theme::Type::Subtitle, Theme::Color::GrayText);
    m_openGroup = new GroupBox(m_titleArea);
    m_openGroup->setObjectName("grpOpenLink");
    m_openGroup->SetTop(ToTwips(OpenLinkTop));
    m_openLink = new Link(m_openGroup);
    m_openLink->setObjectName("lnkOpenInTessarine");
    m_openLink->SetIcon("open");
    m_openLink->SetCaption("Open in Tessarine...");
    connect(m_openLink, &Link::Clicked, this, [this] { OpenRecord(); });
    m_close = AddCloseLink(m_titleArea, CloseHeight);
    m_spacer = new GroupBox(this);
    m_spacer->setObjectName("spacer");
    m_spacer->SetHeight(ToTwips(SpacerHeight));
}

void StoredItemView::BuildTabs() {
    m_headingRule = new Line(this);
    m_tabs = new FlatTabs(this);
    m_tabs->SetIndent(ToTwips(FirstTabIndent));
    m_tabs->setObjectName("tabs");
    m_tabs->SetLeft(ToTwips(TabsLeft));
    int index = 0;
    for (const char* caption : {"Details", "Chain of Custody"}) {
        FlatTabPage* page = m_tabs->AddTab(caption);
        page->setObjectName("tabs_Page");
        page->SetIndex(index++);
    }
    m_tabs->SetAccessibleCaption(tr("Item"));
    m_propertyDetails = new PropertyDetails(m_tabs->Page(0));
    m_propertyDetails->setObjectName("propertyDetails");
    m_propertyDetails->hide();
    m_tracking = new TrackingList(m_tabs->Page(1));
    m_tracking->setObjectName("tracking");
    m_tracking->setAccessibleName(m_tabs->Caption(1));
}

void StoredItemView::Show(const std::shared_ptr<Dictionary>& viewParameters) {
    if (viewParameters && viewParameters->Has("Item")) LoadItem(ToObject<StoredItem>(viewParameters->Value("Item")));
}

void StoredItemView::LoadItem(const StoredItemRef& item) {
    m_tabs->SetSelectedIndex(0);
    SetStatusTag(*m_status, *item);
    m_id->SetCaption(ToQString(item->DisplayID()));
    m_description->SetCaption(ToQString(item->Description()));
    SetLocationLabel(*m_location, *item);
    m_tracking->SetItem(item);
    const bool isProperty = item->ItemType() == StoredItemTypes::Property;
    if (isProperty) m_propertyDetails->SetItem(item);
    m_propertyDetails->setVisible(isProperty);
    m_menu->SetItem(item);
    m_item = item;
    LayoutView();
}

void StoredItemView::OpenRecord() {
    Guard([this] { OpenInHost(m_item); },
          [](const Error& error) {
              ShowMessage("Error opening this record: " + error.Description(), MessageStyle::Critical,
                          "Error Opening Record");
          });
}

void StoredItemView::LayoutView() {
    GuardSilently([this] {
        m_close->Move(Width() - m_close->Width() - OuterMargin, 0);
        m_openGroup->SetWidth(m_openLink->Right());
        m_openGroup->SetHeight(m_openLink->Bottom());
        const float headingRight = m_close->Left() - 2 * FieldGap - m_openGroup->Width();
        FitInto(*m_id, headingRight);
        m_description->SetLeft(m_id->Right() + FieldGap);
        FitInto(*m_description, headingRight);
        m_location->Move(m_status->Right() + FieldGap, m_status->TextTop(m_location->Height()));
        m_openGroup->SetLeft(m_description->Right() + FieldGap);
        m_tabs->SetTop(m_spacer->Bottom());
        m_tabs->SetWidth(Width() - m_tabs->Left());
        m_tabs->SetHeight(Height() - m_tabs->Top());
        m_headingRule->Move(0, m_tabs->Top() + ToTwips(TabsHeader - 1), Width(), TwipsPerPixel);
        const FlatTabPage* page = m_tabs->Page(0);
        for (Control* content : std::initializer_list<Control*>{m_propertyDetails, m_tracking})
            content->Move(0, 0, page->ClientWidth(), page->ClientHeight());
    });
}

void StoredItemView::keyPressEvent(QKeyEvent* event) {
    if (!GoBackByKey(*event)) View::keyPressEvent(event);
}

void StoredItemView::Layout() { LayoutView(); }

}  // namespace quellbrook

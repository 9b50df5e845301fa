#include "ui/explorer/SearchResultRow.h"

#include "base/Text.h"
#include "core/Stores.h"
#include "data/CustodyRecords.h"
#include "ui/common/RelatedIncidentStrip.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/AccessibleEvents.h"
#include "ui/controls/FontIcon.h"
#include "ui/controls/Line.h"
#include "ui/controls/StatusTag.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"
#include "ui/style/AmbientFont.h"

#include <QAccessible>
#include <QEvent>
#include <QPainter>
#include <QScopeGuard>

namespace quellbrook {

namespace {

constexpr int IconSize = 24, BatchBarWidth = 3;
// Pixels from the row's left and top edge.
constexpr int IconLeft = 16, FieldsLeft = 56, ValuesLeft = 136;
constexpr int FirstLine = 8, SecondLine = 32, ThirdLine = 54, FourthLine = 72;
constexpr float FieldGap = 120, CategoryGap = 240;

std::string CaseNumbers(StoredItem& item) {
    std::vector<std::string> numbers;
    for (const auto& entry : item.RelatedCases()) numbers.push_back(entry->CaseNumber());
    return numbers.empty() ? "(None)" : Join(numbers, ", ");
}

QColor ColorOfTag(const Control& control) { return Theme::FromBgr(control.Tag().toInt()); }

}  // namespace

SearchResultRow::SearchResultRow(QWidget* parent) : View(parent) {
    setFocusPolicy(Qt::NoFocus);
    SetAccessibleRole(QAccessible::ListItem);
    setAttribute(Qt::WA_OpaquePaintEvent);
    BuildFields();
    StoreColors();
    LayoutFields();
    if (IsInsideDesigner()) return;
    m_cartStore = GetStores().Cart;
    m_cartSubscription = m_cartStore->OnChange.connect([this] { CartStore_OnChange(); });
}

Label* SearchResultRow::AddLabel(const char* name, const char* caption, Theme::Type type, Theme::Color color) {
    auto* label = new Label(this);
    label->setObjectName(name);
    label->SetType(type);
    label->SetOneLine(true);
    label->SetCaption(caption);
    m_designColors.push_back({label, color});
    return label;
}

void SearchResultRow::BuildFields() {
    using Theme::Color;
    using Theme::Type;
    m_icon = new FontIcon(this);
    m_icon->setObjectName("imgIcon");
    m_icon->SetIcon("tag", IconSize);
    m_icon->Move(ToTwips(IconLeft), ToTwips(FirstLine));
    m_id = AddLabel("lblID", "Identifier", Type::RowHeadingBold, Color::Text);
    m_id->Move(ToTwips(FieldsLeft), ToTwips(FirstLine));
    m_description = AddLabel("lblDescription", "Description", Type::RowHeading, Color::Text);
    m_description->SetTop(ToTwips(FirstLine));
    m_status = new StatusTag(this);
    m_status->setObjectName("tagStatus");
    m_status->SetCaption("Unknown");
    m_status->Move(ToTwips(FieldsLeft), ToTwips(SecondLine));
    m_location = AddLabel("lblLocation", "Location", Type::Subtitle, Color::Text);
    m_category = AddLabel("lblCategory", "Category", Type::Subtitle, Color::Text);
    AddLabel("Label2", "Incident(s):", Type::Subtitle, Color::GrayText)->Move(ToTwips(FieldsLeft), ToTwips(ThirdLine));
    m_relatedIncidents = new RelatedIncidentStrip(this);
    m_relatedIncidents->setObjectName("lblRelatedIncidents");
    m_relatedIncidents->Move(ToTwips(ValuesLeft), ToTwips(ThirdLine));
    AddLabel("Label3", "Case(s):", Type::Subtitle, Color::GrayText)->Move(ToTwips(FieldsLeft), ToTwips(FourthLine));
    m_relatedCases = AddLabel("lblRelatedCases", "Identifier", Type::Subtitle, Color::Text);
    m_relatedCases->Move(ToTwips(ValuesLeft), ToTwips(FourthLine));
    m_bottomLine = new Line(this);
    m_bottomLine->setObjectName("lnBottom");
}

void SearchResultRow::StoreColors() {
    for (const DesignColor& design : m_designColors) {
        design.label->SetForeColor(design.color);
        design.label->SetTag(QString::number(Theme::ToBgr(Theme::Get(design.color))));
    }
    m_relatedIncidents->SetTag(QString::number(Theme::ToBgr(Theme::Get(Theme::Color::Text))));
    m_status->SetTag(QString::number(m_status->Color()));
}

void SearchResultRow::SetItem(const StoredItemRef& item) {
    Require(item, "searchResult.SetItem");
    m_upToDate = false;
    m_description->SetCaption(ToQString(item->Description()));
    m_id->SetCaption(ToQString(item->DisplayID()));
    SetStatusTag(*m_status, *item);
    SetLocationLabel(*m_location, *item);
    m_category->SetCaption(ToQString(item->CategoryName()));
    // The item never replaces its list of incidents. The strip shares that list and keeps the item alive.
    m_relatedIncidents->SetIncidents(std::shared_ptr<const IncidentList>(item, &item->RelatedIncidents()));
    m_relatedCases->SetCaption(ToQString(CaseNumbers(*item)));
    m_item = item;
    m_upToDate = true;
    m_status->SetTag(QString::number(m_status->Color()));
    setAccessibleName(m_id->Caption() + " " + m_description->Caption());
    LayoutFields();
    UpdateCartState();
}

void SearchResultRow::SetSelected(bool selected) {
    if (m_selected == selected) return;
    m_selected = selected;
    update();
}

void SearchResultRow::SetFocused(bool focused) {
    m_focused = focused;
    ApplyColors();
    NotifySelection(*this, focused);
}

void SearchResultRow::Retire() {
    m_cartSubscription.disconnect();
    hide();
}

void SearchResultRow::Shown() {
    if (m_shown) return;
    m_shown = true;
    UpdateCartState();
}

void SearchResultRow::Layout() { LayoutFields(); }

void SearchResultRow::LayoutFields() {
    GuardSilently([this] {
        const float height = m_relatedCases->Bottom() + m_id->Top();
        if (Height() != height) SetHeight(height);
        m_bottomLine->Move(0, ClientHeight() - TwipsPerPixel, ClientWidth(), TwipsPerPixel);
        m_description->SetLeft(m_id->Right() + FieldGap);
        m_location->Move(m_status->Right() + FieldGap, m_status->TextTop(m_location->Height()));
        m_category->Move(m_location->Right() + CategoryGap, m_location->Top());
    });
}

void SearchResultRow::UpdateCartState() {
    m_inCart = m_cartStore && m_cartStore->IsItemInCart(m_item);
    ApplyColors();
}

void SearchResultRow::ApplyColors() {
    GuardSilently([this] {
        for (Control* child : findChildren<Control*>(QString(), Qt::FindDirectChildrenOnly)) {
            if (child == m_status || !HasMember(*child, "ForeColor")) continue;
            child->setProperty("ForeColor", m_focused ? Theme::Get(Theme::Color::HighlightText) : ColorOfTag(*child));
        }
        m_relatedIncidents->SetOnHighlight(m_focused);
        m_icon->SetIcon(m_inCart ? "marked" : "tag", IconSize);
        m_icon->SetForeColor(m_focused  ? Theme::Color::HighlightText
                             : m_inCart ? Theme::Color::Link
                                        : Theme::Color::GrayText);
    });
    update();
}

QColor SearchResultRow::Background() const {
    if (m_focused) return Theme::Get(Theme::Color::Highlight);
    if (m_inCart) return Theme::BatchTint();
    return Theme::Get(m_selected ? Theme::Color::SelectedInactive : Theme::Color::Window);
}

void SearchResultRow::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        QPainter painter(this);
        painter.fillRect(rect(), Background());
        if (m_inCart) painter.fillRect(0, 0, BatchBarWidth, height(), Theme::Get(Theme::Color::Accent));
        PaintDivider(painter);
        m_relatedIncidents->PaintChips(painter);
    });
}

void SearchResultRow::PaintDivider(QPainter& painter) const {
    const int left = ToPixels((m_location->Right() + m_category->Left()) / 2);
    const int start = ToPixels(m_location->Bottom()) - 4;
    const int end = start - AmbientFont(m_location->Type(), *m_location).lineHeight + 8;
    painter.fillRect(left, end, 1, start - end,
                     Theme::Get(m_focused ? Theme::Color::HighlightText : Theme::Color::GrayText));
}

bool SearchResultRow::event(QEvent* event) {
    const bool handled = View::event(event);
    const bool recolors = event->type() == QEvent::PaletteChange || event->type() == QEvent::Polish;
    if (!recolors || !m_bottomLine) return handled;
    Guard([this] {
        StoreColors();
        ApplyColors();
    });
    return handled;
}

void SearchResultRow::CartStore_OnChange() {
    Guard([this] {
        // The color follows the batch even if the item cannot be read.
        const auto update = qScopeGuard([this] { UpdateCartState(); });
        if (!m_item) return;
        m_upToDate = false;
        m_item->Refresh();
    });
}

}  // namespace quellbrook

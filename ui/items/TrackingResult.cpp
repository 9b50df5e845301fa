#include "ui/items/TrackingResult.h"

#include "host/HostServices.h"
#include "ui/controls/AccessibleEvents.h"
#include "ui/controls/Line.h"
#include "ui/items/ActionTag.h"
#include "ui/items/TrackingAction.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QAccessible>
#include <QDate>
#include <QLocale>
#include <QPainter>
#include <QTime>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr float FirstLine = 180, SecondLine = 540;
constexpr float DateLeft = 1380, FromLeft = 3645, ToLeft = 3825, NameLeft = 4260;
constexpr float RightMargin = 120;
constexpr int RingWidth = 2;
constexpr float FieldGap = 120;
const QColor Missing(255, 0, 0);

float TextWidthOf(const Label& label) { return ToTwips(label.sizeHint().width()); }

void FitInto(Label& label, float right) { label.SetWidth(std::min(TextWidthOf(label), right - label.Left())); }

}  // namespace

TrackingResult::TrackingResult(QWidget* parent) : Control(parent) {
    SetAccessibleRole(QAccessible::ListItem);
    SetTabStop(false);
    m_status = new ActionTag(this);
    m_status->setObjectName("tagStatus");
    m_status->Move(0, FirstLine);
    m_status->SetWidth(DateLeft);
    m_status->SetCaption("Unknown");
    m_date = AddLabel("lblDate", "Date", DateLeft, FirstLine, true);
    m_time = AddLabel("lblTime", "Time", DateLeft, SecondLine, false);
    AddLabel("Label1", "From", FromLeft, FirstLine, false);
    m_from = AddLabel("lblFrom", "From", NameLeft, FirstLine, true);
    AddLabel("Label2", "To", ToLeft, SecondLine, false);
    m_to = AddLabel("lblTo", "To", NameLeft, SecondLine, true);
    m_location = AddLabel("lblLocation", "Location", 0, FirstLine, true);
    m_reason = AddLabel("lblReason", "Reason", 0, SecondLine, false);
    for (Label* label : {m_location, m_reason}) label->SetTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_separator = new Line(this);
    m_separator->setObjectName("lnSeparator");
    SetHeight(RowHeight);
}

Label* TrackingResult::AddLabel(const char* name, const char* caption, float left, float top, bool bold) {
    auto* label = new Label(this);
    label->setObjectName(name);
    label->SetType(bold ? Theme::Type::BodySemiBold : Theme::Type::Body);
    label->SetOneLine(true);
    label->SetCaption(caption);
    label->Move(left, top);
    return label;
}

void TrackingResult::SetItem(const std::shared_ptr<TrackingRecord>& record) {
    Require(record, "TrackingResult.SetItem");
    m_record = record;
    ShowDate(record->DateReceived());
    const StorageLocationRef location = record->Location();
    m_location->SetCaption(location ? ToQString(location->FullPath(" > ", false)) : QString());
    ShowPerson(*m_to, record->ReceivedBy());
    ShowPerson(*m_from, record->ReceivedFrom());
    m_reason->SetCaption(ToQString(record->StorageReason()));
    const TrackingAction action = ActionOf(*record);
    m_status->SetCaption(action.text);
    m_status->SetColor(action.color);
    setAccessibleName(
        QStringList{m_status->Caption(), m_date->Caption(), m_time->Caption(), m_location->Caption()}.join(' '));
    PlaceTexts();
}

void TrackingResult::ShowDate(const TaggedValue& dateReceived) {
    if (dateReceived.HasNoValue()) {
        m_date->SetCaption("<Date missing>");
        m_time->SetCaption(QString());
        return;
    }
    const DateTime::Parts parts = ToDateTime(dateReceived).ToParts();
    const HostFormats& formats = HostServices::Current().Formats();
    const QLocale locale;
    m_date->SetCaption(locale.toString(QDate(parts.year, parts.month, parts.day), ToQString(formats.date)));
    m_time->SetCaption(
        locale.toString(QTime(parts.hour, parts.minute, parts.second, parts.millisecond), ToQString(formats.time)));
}

void TrackingResult::ShowPerson(Label& label, const std::string& name) {
    label.SetCaption(name.empty() ? QString("Not specified") : ToQString(name));
    if (name.empty())
        label.SetForeColor(Missing);
    else
        label.SetForeColor(Theme::Color::GrayText);
}

void TrackingResult::SetTabStop(bool tabStop) { setFocusPolicy(tabStop ? Qt::StrongFocus : Qt::ClickFocus); }

void TrackingResult::PlaceTexts() {
    FitInto(*m_date, FromLeft - FieldGap);
    FitInto(*m_time, ToLeft - FieldGap);
    PlaceInLine(*m_from, *m_location);
    PlaceInLine(*m_to, *m_reason);
}

// Each text gets half of the space, or what the other one leaves.
void TrackingResult::PlaceInLine(Label& person, Label& right) const {
    const float space = std::max(0.0f, Width() - RightMargin - FieldGap - NameLeft);
    person.SetWidth(std::min(TextWidthOf(person), std::max(space / 2, space - TextWidthOf(right))));
    right.SetWidth(std::min(TextWidthOf(right), space - person.Width()));
    right.SetLeft(Width() - right.Width() - RightMargin);
}

void TrackingResult::Layout() {
    m_separator->Move(0, Height() - TwipsPerPixel, Width(), TwipsPerPixel);
    PlaceTexts();
}

void TrackingResult::paintEvent(QPaintEvent*) {
    GuardPainting([this] {
        if (!hasFocus()) return;
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(Theme::Get(Theme::Color::Link), RingWidth));
        painter.drawRoundedRect(QRectF(0, 0, width(), height() - 1).adjusted(1, 1, -1, -1), Theme::Radius,
                                Theme::Radius);
    });
}

void TrackingResult::focusInEvent(QFocusEvent* event) {
    Control::focusInEvent(event);
    Guard([this] {
        update();
        NotifySelection(*this, true);
        emit GotFocus();
    });
}

void TrackingResult::focusOutEvent(QFocusEvent* event) {
    Control::focusOutEvent(event);
    Guard([this] {
        update();
        NotifySelection(*this, false);
    });
}

}  // namespace quellbrook

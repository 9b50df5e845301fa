#include "ui/common/RelatedIncidentStrip.h"

#include "base/Error.h"
#include "ui/common/PropertyBag.h"
#include "ui/controls/View.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Strings.h"
#include "ui/platform/Twips.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QStringList>

#include <algorithm>

namespace quellbrook {

namespace {

constexpr float Gap = 60;
constexpr int LockSize = 14;
constexpr int ChipMargin = 3;

std::shared_ptr<const IncidentList> SampleIncidents() {
    auto samples = std::make_shared<IncidentList>();
    for (const auto& [id, secured] : {std::pair("2016-0042", false), {"2015-0203", true}, {"2011-6831", false}}) {
        auto incident = std::make_shared<IncidentInfo>();
        incident->LoadFromRow(Row::Of({{"IncidentNo", 0}, {"IncidentId", id}, {"IsSecured", secured}}));
        samples->push_back(std::move(incident));
    }
    return samples;
}

template <typename T>
void UnloadAboveFirst(std::vector<T*>& members) {
    while (members.size() > 1) {
        delete members.back();
        members.pop_back();
    }
}

}  // namespace

RelatedIncidentStrip::RelatedIncidentStrip(QWidget* parent)
    : Control(parent), m_incidents(std::make_shared<IncidentList>()) {
    LoadMembers();
    m_ids.front()->setObjectName("lblIncidentId");
    m_ids.front()->SetCaption("Incident ID");
    m_secured.front()->setObjectName("imgSecured");
    m_separators.front()->setObjectName("lblSeparator");
    m_separators.front()->hide();
    Rebuild();
}

void RelatedIncidentStrip::SetIncidents(std::shared_ptr<const IncidentList> incidents) {
    if (!incidents) Raise(ErrorNumber::InvalidPropertyValue, "RelatedIncidentStrip.SetIncidents");
    m_incidents = std::move(incidents);
    Rebuild();
}

void RelatedIncidentStrip::LoadMembers() {
    LoadMember(m_ids, this)->SetOneLine(true);
    m_ids.back()->show();
    LoadMember(m_secured, this)->setAccessibleName(tr("Secured"));
    LoadMember(m_separators, this)->SetCaption(QString::fromUtf8("•"));
    m_separators.back()->show();
}

void RelatedIncidentStrip::UnloadMembers() {
    UnloadAboveFirst(m_ids);
    UnloadAboveFirst(m_secured);
    UnloadAboveFirst(m_separators);
}

void RelatedIncidentStrip::Rebuild() {
    if (IsInsideDesigner()) m_incidents = SampleIncidents();
    UnloadMembers();
    if (m_incidents->empty()) ShowNone();
    for (size_t i = 0; i < m_incidents->size(); ++i) ShowIncident(i);
    ApplyLook();
    Layout();
}

void RelatedIncidentStrip::ShowNone() {
    m_ids.front()->SetCaption(tr("(None)"));
    m_ids.front()->show();
    m_secured.front()->hide();
    setAccessibleName(m_ids.front()->Caption());
}

void RelatedIncidentStrip::ShowIncident(size_t index) {
    if (index > 0) LoadMembers();
    const IncidentInfo& incident = *m_incidents->at(index);
    const QString number = ToQString(incident.DisplayID());
    m_ids[index]->SetCaption(number);
    m_secured[index]->setVisible(incident.IsSecured());
    setAccessibleName(index == 0 ? number : accessibleName() + ", " + number);
}

bool RelatedIncidentStrip::IsSecured(size_t index) const {
    return index < m_incidents->size() && m_incidents->at(index)->IsSecured();
}

void RelatedIncidentStrip::ApplyLook() {
    const QColor color = m_incidents->empty() ? AmbientColor() : ForeColor();
    for (size_t i = 0; i < m_ids.size(); ++i) {
        // The color alone would be too faint on a tinted background.
        QFont font = Font();
        if (IsSecured(i)) font.setWeight(QFont::DemiBold);
        m_ids[i]->setFont(font);
        m_ids[i]->SetForeColor(IsSecured(i) ? Theme::Get(Theme::Color::Secured) : color);
        m_secured[i]->SetIcon("secured", LockSize);
        m_secured[i]->SetForeColor(Theme::Color::Secured);
        m_separators[i]->SetForeColor(color);
    }
    update();
}

void RelatedIncidentStrip::Layout() {
    const float height = m_ids.front()->Height();
    float right = -Gap;
    const auto place = [&](Control& element) {
        if (!element.IsShown()) return;
        element.Move(right + Gap, (height - element.Height()) / 2);
        right = element.Right();
    };
    for (size_t i = 0; i < m_ids.size(); ++i) {
        place(*m_separators[i]);
        place(*m_secured[i]);
        place(*m_ids[i]);
    }
    if (Width() != right || Height() != height) Move(Left(), Top(), right, height);
}

QColor RelatedIncidentStrip::AmbientColor() const {
    return m_onHighlight ? Theme::Get(Theme::Color::HighlightText) : palette().color(QPalette::WindowText);
}

QColor RelatedIncidentStrip::ForeColor() const { return m_foreColor.value_or(AmbientColor()); }

void RelatedIncidentStrip::SetForeColor(const QColor& color) {
    m_foreColor = color;
    ApplyLook();
    Layout();
}

QFont RelatedIncidentStrip::Font() const {
    return font() == QApplication::font() ? Theme::Font(Theme::Type::Subtitle) : font();
}

void RelatedIncidentStrip::SetOnHighlight(bool onHighlight) {
    if (m_onHighlight == onHighlight) return;
    m_onHighlight = onHighlight;
    ApplyLook();
}

void RelatedIncidentStrip::ReadProperties(const PropertyBag& bag) {
    GuardSilently([&] {
        const TaggedValue color = bag.ReadProperty("ForeColor");
        if (!color.IsEmpty()) m_foreColor = Theme::FromBgr(ToInt32(color));
    });
    GuardSilently([&] {
        QFont font;
        if (font.fromString(ToQString(ToText(bag.ReadProperty("Font", ""))))) setFont(font);
    });
    Rebuild();
}

void RelatedIncidentStrip::WriteProperties(PropertyBag& bag) const {
    GuardSilently([&] {
        bag.WriteProperty("ForeColor", m_foreColor ? TaggedValue(Theme::ToBgr(*m_foreColor)) : TaggedValue());
        bag.WriteProperty("Font", testAttribute(Qt::WA_SetFont) ? ToUtf8(font().toString()) : "", "");
    });
}

void RelatedIncidentStrip::PaintChips(QPainter& painter) const {
    if (!m_onHighlight) return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::Get(Theme::Color::Window));
    for (size_t i = 0; i < m_ids.size(); ++i) {
        if (!IsSecured(i)) continue;
        const QRect chip = m_secured[i]->geometry().united(m_ids[i]->geometry()).translated(pos());
        painter.drawRoundedRect(chip.adjusted(-ChipMargin, 1, ChipMargin, -1), Theme::Radius, Theme::Radius);
    }
    painter.restore();
}

void RelatedIncidentStrip::changeEvent(QEvent* event) {
    Control::changeEvent(event);
    const QEvent::Type type = event->type();
    if (type != QEvent::FontChange && type != QEvent::PaletteChange && type != QEvent::EnabledChange) return;
    GuardSilently([this] {
        ApplyLook();
        Layout();
    });
}

}  // namespace quellbrook

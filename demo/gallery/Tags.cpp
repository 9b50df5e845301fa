#include "demo/gallery/Section.h"
#include "demo/gallery/Sections.h"
#include "ui/common/RelatedIncidentStrip.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/StatusTag.h"
#include "ui/platform/Guard.h"
#include "ui/platform/Twips.h"

#include <QPainter>

namespace quellbrook::gallery {

namespace {

struct Mark {
    const char* caption;
    int32_t color;  // 0xBBGGRR
};

constexpr Mark ItemMarks[] = {{"Not in Storage", 0x0000FF},
                              {"In Storage", 0x87AD24},
                              {"Signed Out", 0x0000C0},
                              {"Disposed", 0x808080},
                              {"In Uncategorized Location", 0x0080FF},
                              {"Needs Review", 0x0080FF}};
constexpr Mark ActionMarks[] = {{"Moved", 0xD6711E},    {"Signed In", 0x87AD24}, {"Signed Out", 0x0000C0},
                                {"Disposed", 0x808080}, {"Other", 0x0080FF},     {"Unknown Action", 0x0080FF}};

// The color and the contrast of its text.
QString Describe(const Mark& mark) {
    const QColor background = Theme::FromBgr(mark.color);
    const double contrast = Theme::Contrast(background, Theme::TextOn(background));
    return QStringLiteral("%1, %2:1").arg(background.name().toUpper()).arg(contrast, 0, 'f', 1);
}

template <size_t Count>
std::vector<Specimen> TagSpecimens(const Mark (&marks)[Count]) {
    std::vector<Specimen> specimens;
    for (const Mark& mark : marks) {
        const auto make = [mark](QWidget* parent) {
            auto* tag = new StatusTag(parent);
            tag->SetCaption(QString::fromLatin1(mark.caption));
            tag->SetColor(mark.color);
            return tag;
        };
        specimens.push_back({QStringLiteral("StatusTag"), Describe(mark), make});
    }
    return specimens;
}

Specimen EmptyTag() {
    Specimen tag = TagSpecimens(ItemMarks).front();
    tag.states = {State::Disabled, State::Empty};
    tag.empty = [](Control& control) { static_cast<StatusTag&>(control).SetCaption(QString()); };
    return tag;
}

std::shared_ptr<const IncidentList> Incidents() {
    auto incidents = std::make_shared<IncidentList>();
    for (const auto& [id, secured] : {std::pair("2026-0042", false), {"2025-0203", true}, {"2021-6831", false}}) {
        auto incident = std::make_shared<IncidentInfo>();
        incident->LoadFromRow(Row::Of({{"IncidentNo", 0}, {"IncidentId", id}, {"IsSecured", secured}}));
        incidents->push_back(std::move(incident));
    }
    return incidents;
}

Specimen StripSpecimen() {
    const auto make = [](QWidget* parent) {
        auto* strip = new RelatedIncidentStrip(parent);
        strip->SetIncidents(Incidents());
        return strip;
    };
    const auto empty = [](Control& control) {
        static_cast<RelatedIncidentStrip&>(control).SetIncidents(std::make_shared<IncidentList>());
    };
    return {QStringLiteral("RelatedIncidentStrip"),
            QObject::tr("the second incident is secured"),
            make,
            {State::Normal, State::Disabled, State::Empty},
            empty};
}

class SelectedRow : public GroupBox {
public:
    explicit SelectedRow(QWidget* parent) : GroupBox(parent), m_strip(new RelatedIncidentStrip(this)) {
        SetBackColor(Theme::Color::Highlight);
        m_strip->SetIncidents(Incidents());
        m_strip->SetOnHighlight(true);
        m_strip->Control::Move(ToTwips(8), ToTwips(6));
        Move(0, 0, m_strip->Width() + ToTwips(16), m_strip->Height() + ToTwips(12));
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        GroupBox::paintEvent(event);
        GuardPainting([this] {
            QPainter painter(this);
            m_strip->PaintChips(painter);
        });
    }

private:
    RelatedIncidentStrip* m_strip;  // owned by this
};

Specimen StripOnHighlight() {
    const auto make = [](QWidget* parent) { return new SelectedRow(parent); };
    return {QStringLiteral("RelatedIncidentStrip"), QObject::tr("On a selected row"), make};
}

}  // namespace

Section* MakeTags(QWidget* parent) {
    auto* section =
        new Section(QObject::tr("Status tags and incidents"),
                    QObject::tr("Fixed colors, the same in light and dark, with the contrast of the text."), parent);
    section->AddVariants(QStringLiteral("StatusTag"), QObject::tr("where an item is"), TagSpecimens(ItemMarks));
    section->AddVariants(QStringLiteral("StatusTag"), QObject::tr("what was done with it"), TagSpecimens(ActionMarks));
    section->AddVariants(QStringLiteral("StatusTag"), QObject::tr("its other states"), {EmptyTag()});
    section->AddStates(StripSpecimen());
    section->AddVariants(QStringLiteral("RelatedIncidentStrip"), QString(), {StripOnHighlight()});
    return section;
}

}  // namespace quellbrook::gallery

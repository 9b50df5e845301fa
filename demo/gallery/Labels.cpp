#include "demo/gallery/Section.h"
#include "demo/gallery/Sections.h"
#include "ui/controls/Label.h"
#include "ui/platform/Twips.h"

#include <QColor>

namespace quellbrook::gallery {

namespace {

using Theme::Type;

constexpr int NarrowWidth = 156;
const QColor Missing(255, 0, 0);

struct NamedType {
    const char* name;
    Type type;
};

constexpr NamedType Types[] = {
    {"Title", Type::Title},       {"ItemHeading", Type::ItemHeading}, {"ItemHeadingRegular", Type::ItemHeadingRegular},
    {"Section", Type::Section},   {"RowHeading", Type::RowHeading},   {"RowHeadingBold", Type::RowHeadingBold},
    {"Body", Type::Body},         {"BodyBold", Type::BodyBold},       {"BodySemiBold", Type::BodySemiBold},
    {"Subtitle", Type::Subtitle}, {"LinkText", Type::LinkText},       {"StripCaption", Type::StripCaption},
    {"Hint", Type::Hint},         {"TagText", Type::TagText}};

Label* Make(QWidget* parent, Type type, const QString& caption) {
    auto* label = new Label(parent);
    label->SetType(type);
    label->SetCaption(caption);
    return label;
}

std::vector<Specimen> TypeSpecimens() {
    std::vector<Specimen> specimens;
    for (const auto& [name, type] : Types) {
        const QString caption = QStringLiteral("%1, %2/%3")
                                    .arg(QLatin1String(name))
                                    .arg(Theme::Font(type).pixelSize())
                                    .arg(Theme::LineHeight(type));
        const auto make = [type = type](QWidget* parent) { return Make(parent, type, QObject::tr("Evidence Room")); };
        specimens.push_back({QStringLiteral("Label"), caption, make});
    }
    return specimens;
}

Specimen StatesSpecimen() {
    const auto make = [](QWidget* parent) { return Make(parent, Type::Body, QObject::tr("Received by M. Oduya")); };
    Specimen label{QStringLiteral("Label"),
                   QObject::tr("one line, as wide as its text"),
                   make,
                   {State::Normal, State::Disabled, State::Error, State::Empty}};
    label.empty = [](Control& control) { static_cast<Label&>(control).SetCaption(QString()); };
    label.error = [](Control& control) {
        auto& missing = static_cast<Label&>(control);
        missing.SetCaption(QObject::tr("No name"));
        missing.SetForeColor(Missing);
    };
    return label;
}

Specimen Narrow(const QString& variant, bool wrap, int lines) {
    const auto make = [=](QWidget* parent) {
        auto* label =
            Make(parent, Type::Body, QObject::tr("Shelf 4 of the long gun rack behind the cage, upper compartment"));
        label->SetAutoSize(wrap && lines == 0);
        label->SetWordWrap(wrap);
        const int height = lines == 0 ? label->heightForWidth(NarrowWidth) : lines * Theme::LineHeight(Type::Body);
        label->Move(0, 0, ToTwips(NarrowWidth), ToTwips(height));
        return label;
    };
    return {QStringLiteral("Label"), variant, make};
}

}  // namespace

Section* MakeLabels(QWidget* parent) {
    auto* section =
        new Section(QObject::tr("Labels"),
                    QObject::tr("Plain text in the types of the theme: size and line height in pixels."), parent);
    section->AddVariants(QStringLiteral("Label"), QObject::tr("its types"), TypeSpecimens());
    section->AddStates(StatesSpecimen());
    section->AddVariants(QStringLiteral("Label"), QObject::tr("of a fixed width"),
                         {Narrow(QObject::tr("One line, ends in an ellipsis"), false, 1),
                          Narrow(QObject::tr("Wraps, as high as its text"), true, 0),
                          Narrow(QObject::tr("Wraps, ends in an ellipsis"), true, 2)});
    return section;
}

}  // namespace quellbrook::gallery

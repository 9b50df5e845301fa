#include "demo/gallery/Section.h"
#include "demo/gallery/Sections.h"
#include "ui/controls/FlatTextArea.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/platform/Twips.h"

namespace quellbrook::gallery {

namespace {

constexpr int FieldWidth = 156;
constexpr int AreaHeight = 76;

struct Box {
    QString variant;
    QString name;
    QString text;
    QString placeholder;
    QString icon;
    bool password = false;
};

Specimen BoxSpecimen(const Box& box) {
    const auto make = [box](QWidget* parent) {
        auto* field = new FlatTextbox(parent);
        field->SetAccessibleCaption(box.name);
        field->SetText(box.text);
        field->SetPlaceholder(box.placeholder);
        if (!box.icon.isEmpty()) field->SetIcon(box.icon);
        field->SetPassword(box.password);
        field->SetWidth(ToTwips(FieldWidth));
        return field;
    };
    const auto empty = [](Control& control) { static_cast<FlatTextbox&>(control).SetText(QString()); };
    return {QStringLiteral("FlatTextbox"), box.variant, make, FieldStates, empty};
}

Specimen AreaSpecimen() {
    const auto make = [](QWidget* parent) {
        auto* area = new FlatTextArea(parent);
        area->SetAccessibleCaption(QObject::tr("Notes"));
        area->SetText(QObject::tr("For the laboratory.\nBack by Friday."));
        area->Move(0, 0, ToTwips(FieldWidth), ToTwips(AreaHeight));
        return area;
    };
    const auto empty = [](Control& control) { static_cast<FlatTextArea&>(control).SetText(QString()); };
    return {QStringLiteral("FlatTextArea"), QString(), make, FieldStates, empty};
}

}  // namespace

Section* MakeFields(QWidget* parent) {
    auto* section =
        new Section(QObject::tr("Text fields"),
                    QObject::tr("A field does not show errors itself: a message of the form explains them."), parent);
    Box plain{QString(), QObject::tr("To"), QObject::tr("Crime laboratory"), QString(), QString()};
    Box search{QObject::tr("with placeholder and icon"), QObject::tr("Search"), QStringLiteral("2026-0042"),
               QObject::tr("Search..."), QStringLiteral("search")};
    Box password{QObject::tr("for a password"),
                 QObject::tr("Password"),
                 QStringLiteral("evidence"),
                 QObject::tr("Password"),
                 QString(),
                 true};
    for (const Box& box : {plain, search, password}) section->AddStates(BoxSpecimen(box));
    section->AddStates(AreaSpecimen());
    return section;
}

}  // namespace quellbrook::gallery

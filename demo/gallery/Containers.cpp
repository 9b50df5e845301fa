#include "demo/gallery/Section.h"
#include "demo/gallery/Sections.h"
#include "ui/controls/FlatTitleBar.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/Line.h"
#include "ui/platform/Twips.h"

#include <optional>

namespace quellbrook::gallery {

namespace {

constexpr int BarWidth = 508;
constexpr int BoxWidth = 160, BoxHeight = 64;

Specimen BarSpecimen(const QString& variant, const QString& caption) {
    const auto make = [=](QWidget* parent) {
        auto* bar = new FlatTitleBar(parent);
        bar->SetCaption(caption);
        bar->SetWidth(ToTwips(BarWidth));
        return bar;
    };
    Specimen bar{QStringLiteral("FlatTitleBar"), variant, make};
    bar.empty = [](Control& control) { static_cast<FlatTitleBar&>(control).SetCaption(QString()); };
    return bar;
}

Specimen BoxSpecimen(const QString& variant, std::optional<Theme::Color> background, bool framed) {
    const auto make = [=](QWidget* parent) {
        auto* box = new GroupBox(parent);
        if (background) box->SetBackColor(*background);
        box->SetFramed(framed);
        auto* label = new Label(box);
        label->SetCaption(QObject::tr("Its contents"));
        const int top = (BoxHeight - label->height()) / 2;
        label->Move(ToTwips(16), ToTwips(top));
        box->Control::Move(0, 0, ToTwips(BoxWidth), ToTwips(BoxHeight));
        return box;
    };
    return {QStringLiteral("GroupBox"), variant, make};
}

Specimen LineSpecimen(const QString& variant, int width, int height, Theme::Color color) {
    const auto make = [=](QWidget* parent) {
        auto* line = new Line(parent);
        line->SetColor(color);
        line->Move(0, 0, ToTwips(width), ToTwips(height));
        return line;
    };
    return {QStringLiteral("Line"), variant, make};
}

}  // namespace

Section* MakeContainers(QWidget* parent) {
    using Theme::Color;
    auto* section =
        new Section(QObject::tr("Title bars, groups and lines"), QObject::tr("They do not respond to input."), parent);
    Specimen bar = BarSpecimen(QObject::tr("Normal"), QObject::tr("Evidence Room"));
    bar.states = {State::Normal, State::Empty};
    section->AddVariants(QStringLiteral("FlatTitleBar"), QString(),
                         {bar, BarSpecimen(QObject::tr("Ends in an ellipsis"),
                                           QObject::tr("Evidence Room of the Harlow Bay Department of Public Safety, "
                                                       "Second Precinct, North Annex"))});
    section->AddVariants(
        QStringLiteral("GroupBox"), QString(),
        {BoxSpecimen(QObject::tr("Normal: no background"), std::nullopt, false),
         BoxSpecimen(QObject::tr("Framed"), std::nullopt, true), BoxSpecimen(QObject::tr("Panel"), Color::Panel, false),
         BoxSpecimen(QObject::tr("Panel, framed"), Color::Panel, true),
         BoxSpecimen(QObject::tr("Tint"), Color::Tint, false)});
    section->AddVariants(QStringLiteral("Line"), QString(),
                         {LineSpecimen(QObject::tr("Normal: hairline"), BoxWidth, 1, Color::Hairline),
                          LineSpecimen(QObject::tr("Accent, 3 px"), BoxWidth, 3, Color::Accent),
                          LineSpecimen(QObject::tr("Upright"), 1, 32, Color::FieldBorder)});
    return section;
}

}  // namespace quellbrook::gallery

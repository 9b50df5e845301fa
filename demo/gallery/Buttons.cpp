#include "demo/gallery/Section.h"
#include "demo/gallery/Sections.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/Link.h"
#include "ui/platform/Twips.h"

namespace quellbrook::gallery {

namespace {

const QString ClosingCross = QStringLiteral("\u2715");

Specimen ButtonSpecimen(const QString& variant, const QString& caption, const QString& icon, bool inverted) {
    const auto make = [=](QWidget* parent) {
        auto* button = new FlatButton(parent);
        button->SetCaption(caption);
        button->SetIcon(icon);
        button->SetInverted(inverted);
        button->SetWidth(ToTwips(button->sizeHint().width()));
        return button;
    };
    return {QStringLiteral("FlatButton"), variant, make, PressableStates};
}

Specimen LinkSpecimen(const QString& variant, const QString& caption, const QString& icon, bool quiet) {
    const auto make = [=](QWidget* parent) {
        auto* link = new Link(parent);
        link->SetCaption(caption);
        if (caption == ClosingCross) link->SetAccessibleCaption(QObject::tr("Close"));
        if (!icon.isEmpty()) link->SetIcon(icon);
        link->SetQuiet(quiet);
        return link;
    };
    return {QStringLiteral("Link"), variant, make, PressableStates};
}

}  // namespace

Section* MakeButtons(QWidget* parent) {
    auto* section =
        new Section(QObject::tr("Buttons and links"), QObject::tr("Activated by a click, Space or Enter."), parent);
    section->AddStates(ButtonSpecimen(QString(), QStringLiteral("Finish"), QString(), false));
    section->AddStates(
        ButtonSpecimen(QObject::tr("with an icon"), QStringLiteral("Add Evidence"), QStringLiteral("add"), false));
    section->AddStates(ButtonSpecimen(QObject::tr("inverted"), QStringLiteral("Cancel"), QString(), true));
    section->AddStates(
        ButtonSpecimen(QObject::tr("inverted, with an icon"), QStringLiteral("Print"), QStringLiteral("print"), true));
    section->AddStates(LinkSpecimen(QString(), QStringLiteral("More Results"), QString(), false));
    section->AddStates(
        LinkSpecimen(QObject::tr("with an icon"), QStringLiteral("Edit Location"), QStringLiteral("edit"), false));
    section->AddStates(LinkSpecimen(QObject::tr("quiet"), QStringLiteral("Undo"), QString(), true));
    section->AddStates(LinkSpecimen(QObject::tr("quiet, the closing cross"), ClosingCross, QString(), true));
    return section;
}

}  // namespace quellbrook::gallery

#include "demo/gallery/Section.h"
#include "demo/gallery/Sections.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/TessarineDropdown.h"
#include "ui/platform/Twips.h"

namespace quellbrook::gallery {

namespace {

constexpr int DropdownWidth = 156;

void Fill(FlatDropdown& dropdown, const QStringList& entries) {
    for (const QString& entry : entries) dropdown.AddItem(entry, dropdown.Count() + 1);
}

Specimen DropdownSpecimen() {
    const auto make = [](QWidget* parent) {
        auto* dropdown = new FlatDropdown(parent);
        dropdown->SetAccessibleCaption(QObject::tr("Order"));
        dropdown->SetPlaceholder(QObject::tr("Choose..."));
        Fill(*dropdown, {QObject::tr("Newest first"), QObject::tr("Oldest first"), QObject::tr("By location")});
        dropdown->SetListIndex(0);
        dropdown->SetWidth(ToTwips(DropdownWidth));
        return dropdown;
    };
    const auto empty = [](Control& control) { static_cast<FlatDropdown&>(control).SetListIndex(-1); };
    return {QStringLiteral("FlatDropdown"), QObject::tr("pressed: with its list"), make, FieldStates, empty};
}

// The entries are samples, since there is no code table.
Specimen CodeSpecimen() {
    const auto make = [](QWidget* parent) {
        auto* dropdown = new TessarineDropdown(parent);
        dropdown->SetAccessibleCaption(QObject::tr("Reason"));
        Fill(*dropdown, {QObject::tr("Court"), QObject::tr("Laboratory"), QObject::tr("Release")});
        dropdown->SetValue(int32_t{2});
        dropdown->SetWidth(ToTwips(DropdownWidth));
        return dropdown;
    };
    const auto empty = [](Control& control) { static_cast<TessarineDropdown&>(control).SetValue(Null()); };
    return {QStringLiteral("TessarineDropdown"), QObject::tr("entries of a code table; here samples"), make,
            FieldStates, empty};
}

}  // namespace

Section* MakeDropdowns(QWidget* parent) {
    auto* section = new Section(QObject::tr("Dropdowns"),
                                QObject::tr("The wheel scrolls the form and never changes a choice."), parent);
    section->AddStates(DropdownSpecimen());
    section->AddStates(CodeSpecimen());
    return section;
}

}  // namespace quellbrook::gallery

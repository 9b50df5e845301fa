#include "demo/sample/SmallEdgeCases.h"

#include "demo/sample/Attach.h"
#include "demo/sample/SampleDepartment.h"

#include <map>

namespace quellbrook::sample {

namespace {

// Descriptions that replace the generated ones.
const std::map<int32_t, const char*>& Descriptions() {
    static const std::map<int32_t, const char*> texts = {
        {59, "Memory card, label reads \"Übergabe 3/4\", in shielded bag"},
        {69, "Passport, entries in Ελληνικά and Русский"},
        {103, "Video disc, labeled \"O'Dowd's copy\""},
        {107, "  Umbrella, contents listed on seal "},
        {199, "Rental agreement, 100% paid, clause 4_[b] struck out"},
        {205, "Audio recording, sleeve marked <b>LIVE</b> & numbered"},
        {288, "Umbrella, locked, tag reads «Вокзал»"},
        {290, "Printed photographs, backs stamped ФОТОАТЕЛЬЕ"},
    };
    return texts;
}

}  // namespace

void AddSampleEdgeCases(Property& property) {
    const auto text = Descriptions().find(property.no);
    if (text != Descriptions().end()) property.description = text->second;
    switch (property.no) {
    case 274: property.tagged = false; break;
    case 276: property.quantity = 1500; break;
    case 278: property.quantity = 2.5; break;
    case 288: property.category.reset(); break;
    case 290: property.quantity.reset(); break;
    case 297: property.id.reset(); break;
    case 300: property.quantity = 0; break;
    default: break;
    }
}

void AddSampleEdgeCases(Vehicle& vehicle) {
    switch (vehicle.no - FirstVehicleNo + 1) {
    case 26:
        vehicle.year = 0;
        vehicle.category.reset();
        break;
    case 33: vehicle.state.clear(); break;
    case 36: vehicle.tag.clear(); break;
    default: break;
    }
}

const char* LocationOutOfUse(int32_t property) {
    if (property == 137) return "Records Annex > Cage 2 – Peña";
    return property == 161 ? "Records Annex > Cage 1" : nullptr;
}

bool IsLinkedTwiceInSample(int32_t item) { return item == 63 || item == FirstVehicleNo + 10; }

void AttachInSample(Property& property) {
    constexpr int32_t known = 36;
    if (property.no > known && property.no % 3 != 0) return;
    Filing filing = Filing::One;
    if (property.no % 45 == 0) filing = Filing::Several;
    if (property.no == 132) filing = Filing::NoMain;
    if (property.no == 186) filing = Filing::NoFolder;
    if (property.no == 246) filing = Filing::Gone;
    AttachPictures(property, filing, property.no / 3);
}

void AttachInSample(Vehicle& vehicle) {
    if (vehicle.no % 2 != 0) AttachPictures(vehicle, Filing::One);
}

}  // namespace quellbrook::sample

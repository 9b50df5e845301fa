#include "demo/sample/Attach.h"

#include "demo/sample/Codes.h"
#include "demo/sample/Pictures.h"

namespace quellbrook::sample {

namespace {

Attachments Filed(Filing filing, int32_t folder, const std::vector<std::string>& names) {
    Attachments attachments;
    const size_t count = filing == Filing::Several ? names.size() : 1;
    for (size_t k = 0; k < count; ++k) attachments.files.push_back({folder, names[k]});
    switch (filing) {
    case Filing::One: attachments.image = 1; break;
    case Filing::Several: attachments.image = 2; break;
    case Filing::NoMain: break;
    case Filing::NoFolder:
        attachments.files.front().folder.reset();
        attachments.image = 1;
        break;
    case Filing::Gone: attachments.image = 2; break;
    }
    return attachments;
}

}  // namespace

void AttachPictures(Property& property, Filing filing, int32_t view) {
    const int32_t category = property.category.value_or(Category::Property);
    std::vector<std::string> names;
    for (int32_t k = 0; k < 3; ++k) names.push_back(PropertyPictureName(category, view + k));
    property.attachments = Filed(filing, PropertyFolder, names);
}

void AttachPictures(Vehicle& vehicle, Filing filing) {
    const std::string name = VehiclePictureName(vehicle.category.value_or(1), vehicle.color);
    vehicle.attachments = Filed(filing, VehicleFolder, {name, name, name});
}

}  // namespace quellbrook::sample

#include "demo/gallery/Sections.h"

namespace quellbrook::gallery {

std::vector<Section*> MakeSections(QWidget* parent) {
    return {MakeButtons(parent), MakeFields(parent), MakeDropdowns(parent),  MakeTabs(parent), MakeLists(parent),
            MakeLabels(parent),  MakeTags(parent),   MakeContainers(parent), MakeIcons(parent)};
}

}  // namespace quellbrook::gallery

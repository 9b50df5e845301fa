#pragma once

#include <vector>

class QWidget;

namespace quellbrook::gallery {

class Section;

// Each family of controls has a source file of the same name.
Section* MakeButtons(QWidget* parent);
Section* MakeFields(QWidget* parent);
Section* MakeDropdowns(QWidget* parent);
Section* MakeTabs(QWidget* parent);
Section* MakeLists(QWidget* parent);
Section* MakeLabels(QWidget* parent);
Section* MakeTags(QWidget* parent);
Section* MakeContainers(QWidget* parent);
Section* MakeIcons(QWidget* parent);

// All sections from top to bottom.
std::vector<Section*> MakeSections(QWidget* parent);

}  // namespace quellbrook::gallery

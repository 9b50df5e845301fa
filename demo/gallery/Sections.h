#pragma once

#include <vector>

class QWidget;

namespace quellbrook::gallery {

class Section;

// One family of controls each, in a file of its name.
Section* MakeButtons(QWidget* parent);
Section* MakeFields(QWidget* parent);
Section* MakeDropdowns(QWidget* parent);
Section* MakeTabs(QWidget* parent);
Section* MakeLists(QWidget* parent);
Section* MakeLabels(QWidget* parent);
Section* MakeTags(QWidget* parent);
Section* MakeContainers(QWidget* parent);
Section* MakeIcons(QWidget* parent);

// All of them, from top to bottom.
std::vector<Section*> MakeSections(QWidget* parent);

}  // namespace quellbrook::gallery

#pragma once

#include "host/BarcodeLabel.h"

#include <string>

namespace quellbrook {

// Makes labels from the text of a template file (.labl), which is an SVG drawing.
class LabelEngine {
public:
    // UTF-8, unless the drawing declares another encoding. Error 5 with a sentence for a template that is not
    // well-formed or that describes no label.
    BarcodeLabel Parse(const std::string& templateText) { return BarcodeLabel(LabelTemplate(templateText)); }
};

// The one that all share.
LabelEngine& GetLabelEngine();

}  // namespace quellbrook

#pragma once

#include "host/BarcodeLabel.h"

#include <string>

namespace quellbrook {

// Creates labels from the text of a template file (.labl), an SVG drawing.
class LabelEngine {
public:
    // The text is UTF-8 unless the drawing declares another encoding. Error 5 with a sentence if the template is not
    // well-formed or does not describe a label.
    BarcodeLabel Parse(const std::string& templateText) { return BarcodeLabel(LabelTemplate(templateText)); }
};

// The shared instance.
LabelEngine& GetLabelEngine();

}  // namespace quellbrook

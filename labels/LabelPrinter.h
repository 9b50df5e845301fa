#pragma once

#include "labels/Label.h"

namespace quellbrook {

// Where this workstation's labels go.
class LabelPrinter {
public:
    virtual ~LabelPrinter() = default;

    // One label, in the label's own size. Error 5 with a sentence; where the printer refuses, in its own words.
    virtual void Print(const FilledLabel& label) = 0;
};

}  // namespace quellbrook

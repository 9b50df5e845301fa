#pragma once

#include "labels/Label.h"

namespace quellbrook {

// The label printer of this workstation.
class LabelPrinter {
public:
    virtual ~LabelPrinter() = default;

    // Prints one label at its own size. Raises error 5; a rejection by the printer has the printer's own message.
    virtual void Print(const FilledLabel& label) = 0;
};

}  // namespace quellbrook

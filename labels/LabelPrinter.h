#pragma once

#include "labels/Label.h"

#include <string>

namespace quellbrook {

// The label printer of this workstation.
class LabelPrinter {
public:
    virtual ~LabelPrinter() = default;

    // Prints one label at its own size. Raises error 5; a rejection by the printer has the printer's own message.
    virtual void Print(const FilledLabel& label) = 0;

    // Where the labels go, for a message to the user: "to the printer 'Front Desk'", "to the folder '/home/a/Labels'".
    virtual std::string Destination() const = 0;
};

}  // namespace quellbrook

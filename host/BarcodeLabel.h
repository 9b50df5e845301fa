#pragma once

#include "labels/LabelTemplate.h"

#include <string>

namespace quellbrook {

// One label in the making, from a template. A field that is set again takes the later value.
class BarcodeLabel {
public:
    explicit BarcodeLabel(LabelTemplate labelTemplate) : m_template(std::move(labelTemplate)) {}

    void SetField(const std::string& name, const std::string& value);

    // The label with its fields. Error 5 with a sentence where the template can't take them, see LabelTemplate::Fill.
    FilledLabel Filled() const { return m_template.Fill(m_fields); }
    // Prints it on the workstation's label printer. The printer's Error too.
    void Print() const;

private:
    LabelTemplate m_template;
    LabelTemplate::Fields m_fields;
};

}  // namespace quellbrook

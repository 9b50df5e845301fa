#pragma once

#include "labels/LabelTemplate.h"

#include <string>

namespace quellbrook {

// One label of a template. The last value set for a field wins.
class BarcodeLabel {
public:
    explicit BarcodeLabel(LabelTemplate labelTemplate) : m_template(std::move(labelTemplate)) {}

    void SetField(const std::string& name, const std::string& value);

    // The label with its fields. Error 5 with a sentence if the template can't take them; see LabelTemplate::Fill.
    FilledLabel Filled() const { return m_template.Fill(m_fields); }
    // Prints the label on the workstation's label printer. Also throws the printer's Error.
    void Print() const;

private:
    LabelTemplate m_template;
    LabelTemplate::Fields m_fields;
};

}  // namespace quellbrook

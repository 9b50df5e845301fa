#include "host/BarcodeLabel.h"

#include "host/HostServices.h"

#include <algorithm>

namespace quellbrook {

void BarcodeLabel::SetField(const std::string& name, const std::string& value) {
    const auto field = std::find_if(m_fields.begin(), m_fields.end(), [&](const auto& f) { return f.first == name; });
    if (field != m_fields.end())
        field->second = value;
    else
        m_fields.emplace_back(name, value);
}

void BarcodeLabel::Print() const { HostServices::Current().Printer().Print(Filled()); }

}  // namespace quellbrook

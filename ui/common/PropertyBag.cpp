#include "ui/common/PropertyBag.h"

namespace quellbrook {

TaggedValue PropertyBag::ReadProperty(const std::string& key, const TaggedValue& defaultValue) const {
    const auto found = m_values.find(key);
    return found == m_values.end() ? defaultValue : found->second;
}

void PropertyBag::WriteProperty(const std::string& key, const TaggedValue& value, const TaggedValue& defaultValue) {
    if (value == defaultValue)
        m_values.erase(key);
    else
        m_values[key] = value;
}

}  // namespace quellbrook

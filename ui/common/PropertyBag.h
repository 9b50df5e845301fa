#pragma once

#include "base/TaggedValue.h"

#include <map>
#include <string>

namespace quellbrook {

// What a form keeps of a control's properties between sessions of its designer. A value equal to its default is not
// kept.
class PropertyBag {
public:
    // The default when nothing is kept under the key.
    TaggedValue ReadProperty(const std::string& key, const TaggedValue& defaultValue = {}) const;
    void WriteProperty(const std::string& key, const TaggedValue& value, const TaggedValue& defaultValue = {});

    bool Has(const std::string& key) const { return m_values.count(key) > 0; }

private:
    std::map<std::string, TaggedValue> m_values;
};

}  // namespace quellbrook

#pragma once

#include "base/TaggedValue.h"

#include <map>
#include <string>

namespace quellbrook {

// A control's properties as a form designer saves them between sessions. Values equal to their default are not
// saved.
class PropertyBag {
public:
    // The default if the key is absent.
    TaggedValue ReadProperty(const std::string& key, const TaggedValue& defaultValue = {}) const;
    void WriteProperty(const std::string& key, const TaggedValue& value, const TaggedValue& defaultValue = {});

    bool Has(const std::string& key) const { return m_values.count(key) > 0; }

private:
    std::map<std::string, TaggedValue> m_values;
};

}  // namespace quellbrook

#pragma once

#include "base/TaggedValue.h"

#include <map>

namespace quellbrook {

// Named values, such as the parameters of a view. Names are case-sensitive.
class Dictionary : public Object {
public:
    std::string TypeName() const override { return "Dictionary"; }

    bool Has(const std::string& key) const { return m_values.count(key) > 0; }
    // Empty if the key is absent.
    TaggedValue Value(const std::string& key) const {
        const auto found = m_values.find(key);
        return found == m_values.end() ? TaggedValue() : found->second;
    }
    void Set(const std::string& key, TaggedValue value) { m_values[key] = std::move(value); }

private:
    std::map<std::string, TaggedValue> m_values;
};

}  // namespace quellbrook

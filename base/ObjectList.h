#pragma once

#include "base/Object.h"

#include <cstdint>
#include <vector>

namespace quellbrook {

// An ordered list of objects, read by position from 0: a selection, a batch or a search result.
class ObjectList : public Object {
public:
    virtual int32_t Count() const = 0;
    // Error 9 if the index is not in 0 to Count() - 1.
    virtual ObjectRef At(int32_t index) const = 0;

    bool IsEmpty() const { return Count() == 0; }
};

// A list that owns its objects, which may be of different classes.
class ObjectVector : public ObjectList {
public:
    std::string TypeName() const override { return "Collection"; }
    int32_t Count() const override { return static_cast<int32_t>(m_objects.size()); }
    ObjectRef At(int32_t index) const override;

    void Add(ObjectRef object) { m_objects.push_back(std::move(object)); }

private:
    std::vector<ObjectRef> m_objects;
};

}  // namespace quellbrook

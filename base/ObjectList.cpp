#include "base/ObjectList.h"

#include "base/Error.h"

namespace quellbrook {

ObjectRef ObjectVector::At(int32_t index) const {
    if (index < 0 || index >= Count()) Raise(ErrorNumber::SubscriptOutOfRange, "ObjectVector.At");
    return m_objects[static_cast<size_t>(index)];
}

}  // namespace quellbrook

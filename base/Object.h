#pragma once

#include <memory>
#include <string>

namespace quellbrook {

// Base class of everything passed by shared reference: payloads of actions, parameters of views, entries of mixed
// collections. TypeName() returns the class name for error texts.
class Object {
public:
    virtual ~Object() = default;
    virtual std::string TypeName() const = 0;

protected:
    Object() = default;
    Object(const Object&) = default;
    Object& operator=(const Object&) = default;
};

using ObjectRef = std::shared_ptr<Object>;

// The object's type name; "Nothing" for null.
inline std::string TypeNameOf(const Object* object) { return object ? object->TypeName() : "Nothing"; }

}  // namespace quellbrook

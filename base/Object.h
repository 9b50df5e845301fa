#pragma once

#include <memory>
#include <string>

namespace quellbrook {

// Root of everything that travels by shared reference: payloads of actions, parameters of views, entries of
// mixed collections. TypeName() is the class's name as failure texts print it.
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

// The type name of an object that may be absent: "Nothing" for null.
inline std::string TypeNameOf(const Object* object) { return object ? object->TypeName() : "Nothing"; }

}  // namespace quellbrook

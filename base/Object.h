#pragma once

#include <cstdint>
#include <memory>
#include <string>

namespace quellbrook {

// Base class of everything passed by shared reference: payloads of actions, parameters of views, entries of mixed
// collections. TypeName() returns the class name for error texts.
class Object {
public:
    virtual ~Object();
    virtual std::string TypeName() const = 0;

    // How many objects exist in the process, of any class.
    static int64_t LiveCount() noexcept;

protected:
    Object() noexcept;
    Object(const Object&) noexcept;
    Object& operator=(const Object&) = default;
};

using ObjectRef = std::shared_ptr<Object>;

// The object's type name; "Nothing" for null.
inline std::string TypeNameOf(const Object* object) { return object ? object->TypeName() : "Nothing"; }

}  // namespace quellbrook

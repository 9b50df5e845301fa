#pragma once

#include "base/DateTime.h"
#include "base/Object.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

namespace quellbrook {

// An exact decimal number: units / 10^scale, scale 0 to 18. Money, and whole numbers beyond 32 bits.
struct Decimal {
    int64_t units = 0;
    uint8_t scale = 0;

    bool operator==(const Decimal&) const = default;
    double ToDouble() const;
    std::string ToText() const;  // "-12.50"; invariant, no grouping
};

struct Empty {
    bool operator==(const Empty&) const = default;
};
struct Null {
    bool operator==(const Null&) const = default;
};

// A value with its type: the payload of an action, a column of a row, a field of a transfer. Empty means never set,
// Null is the database's NULL; both count as "no value" (HasNoValue).
class TaggedValue {
public:
    TaggedValue() = default;
    TaggedValue(Empty) {}
    TaggedValue(Null) : m_value(Null()) {}
    TaggedValue(bool value) : m_value(value) {}
    TaggedValue(int32_t value) : m_value(value) {}
    TaggedValue(double value) : m_value(value) {}
    TaggedValue(Decimal value) : m_value(value) {}
    TaggedValue(std::string value) : m_value(std::move(value)) {}
    TaggedValue(std::string_view value) : m_value(std::string(value)) {}
    TaggedValue(const char* value) : m_value(std::string(value)) {}
    TaggedValue(DateTime value) : m_value(value) {}
    // Rejects other pointers, which would convert to bool.
    TaggedValue(std::nullptr_t) = delete;
    template <typename T>
    requires(!std::is_convertible_v<T*, const char*>) TaggedValue(T*)
    = delete;
    template <typename T>
    requires std::is_convertible_v<std::shared_ptr<T>, ObjectRef> TaggedValue(std::shared_ptr<T> value)
        : m_value(ObjectRef(std::move(value))) {}

    // A 32-bit integer if the value fits, an exact decimal otherwise.
    static TaggedValue FromInteger(int64_t value);

    bool IsEmpty() const { return Holds<Empty>(); }
    bool IsNull() const { return Holds<Null>(); }
    bool HasNoValue() const { return IsEmpty() || IsNull(); }

    template <typename T>
    bool Holds() const {
        return std::holds_alternative<T>(m_value);
    }
    // The alternative, or null if the value has another type.
    template <typename T>
    const T* If() const {
        return std::get_if<T>(&m_value);
    }

    bool operator==(const TaggedValue&) const = default;

private:
    std::variant<Empty, Null, bool, int32_t, double, Decimal, std::string, DateTime, ObjectRef> m_value;
};

// Conversions. Error 94 for NULL, 13 for an object or a malformed text, 6 for an overflow. Empty converts to 0, false
// or the empty text.

// Text: trimmed blanks, one sign, digits. Fractions round half to even. Booleans are -1 and 0.
int32_t ToInt32(const TaggedValue& value);
int16_t ToInt16(const TaggedValue& value);
double ToDouble(const TaggedValue& value);
// Text: "True", "False" in any case, or a number; a number is true unless 0.
bool ToBool(const TaggedValue& value);
// Numbers invariant with ".", booleans "True" and "False", dates as DateTime::ToText.
std::string ToText(const TaggedValue& value);
// As ToText, with NULL as the empty text.
std::string ToTextOrEmpty(const TaggedValue& value);
DateTime ToDateTime(const TaggedValue& value);

// The object as a T. Error 91 for a null reference, 13 for another type or class.
template <typename T>
std::shared_ptr<T> ToObject(const TaggedValue& value);

[[noreturn]] void RaiseTypeMismatch();
[[noreturn]] void RaiseNullObject();

template <typename T>
std::shared_ptr<T> ToObject(const TaggedValue& value) {
    const ObjectRef* reference = value.If<ObjectRef>();
    if (!reference) RaiseTypeMismatch();
    if (!*reference) RaiseNullObject();
    auto object = std::dynamic_pointer_cast<T>(*reference);
    if (!object) RaiseTypeMismatch();
    return object;
}

}  // namespace quellbrook

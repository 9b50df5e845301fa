#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace quellbrook {

// The system's one kind of failure. Number says which failure it is, Source is "Class.Operation", Description is a
// sentence for the user.
class Error : public std::exception {
public:
    Error(int32_t number, std::string source, std::string description)
        : m_number(number), m_source(std::move(source)), m_description(std::move(description)) {}

    int32_t Number() const { return m_number; }
    const std::string& Source() const { return m_source; }
    const std::string& Description() const { return m_description; }
    const char* what() const noexcept override { return m_description.c_str(); }

private:
    int32_t m_number;
    std::string m_source;
    std::string m_description;
};

// Numbers with a meaning of their own. Engines map their native codes to IntegrityViolation for every violated unique
// or foreign key constraint; callers test for that one alone.
namespace ErrorNumber {
inline constexpr int32_t General = 5;  // raised by the system itself; also: an absent key
inline constexpr int32_t Overflow = 6;
inline constexpr int32_t SubscriptOutOfRange = 9;
inline constexpr int32_t TypeMismatch = 13;
inline constexpr int32_t NullObject = 91;
inline constexpr int32_t InvalidUseOfNull = 94;
inline constexpr int32_t InvalidPropertyValue = 380;
inline constexpr int32_t KeyTaken = 457;
inline constexpr int32_t IntegrityViolation = static_cast<int32_t>(0x80040E2Fu);
}  // namespace ErrorNumber

// The system's own short sentence for one of the numbers above; "An unexpected error occurred." for any other.
std::string ErrorText(int32_t number);

[[noreturn]] void Raise(int32_t number, std::string_view source, std::string_view description);

// Raises with ErrorText(number) as description.
[[noreturn]] void Raise(int32_t number, std::string_view source);

// Turns any exception into an Error: an Error as it is, every other with number 5 and its what() as description.
Error ToError(std::exception_ptr exception);

// The exception being handled, as an Error. Only inside a catch block.
Error CurrentError();

// Raises NullObject unless the reference holds an object; hands the reference through.
template <typename Reference>
Reference& Require(Reference& reference, std::string_view source) {
    if (!reference) Raise(ErrorNumber::NullObject, source);
    return reference;
}

}  // namespace quellbrook

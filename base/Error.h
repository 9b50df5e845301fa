#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace quellbrook {

// Every failure in the system. Number identifies it, Source is "Class.Operation", Description is a sentence for the
// user.
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

// Numbers with a fixed meaning. Engines map every violation of a unique or foreign key constraint to
// IntegrityViolation, the only number that callers test for.
namespace ErrorNumber {
inline constexpr int32_t General = 5;  // any failure without a specific number; an absent key
inline constexpr int32_t Overflow = 6;
inline constexpr int32_t SubscriptOutOfRange = 9;
inline constexpr int32_t TypeMismatch = 13;
inline constexpr int32_t NullObject = 91;
inline constexpr int32_t InvalidUseOfNull = 94;
inline constexpr int32_t InvalidPropertyValue = 380;
inline constexpr int32_t KeyTaken = 457;
inline constexpr int32_t IntegrityViolation = static_cast<int32_t>(0x80040E2Fu);
}  // namespace ErrorNumber

// A short sentence for one of the numbers above; "An unexpected error occurred." for any other.
std::string ErrorText(int32_t number);

[[noreturn]] void Raise(int32_t number, std::string_view source, std::string_view description);

// Raises with ErrorText(number) as description.
[[noreturn]] void Raise(int32_t number, std::string_view source);

// Any exception as an Error: an Error unchanged, any other with number 5 and its what() as the description.
Error ToError(std::exception_ptr exception);

// The exception being handled, as an Error. Only inside a catch block.
Error CurrentError();

// Returns the reference. Error 91 if it is null.
template <typename Reference>
Reference& Require(Reference& reference, std::string_view source) {
    if (!reference) Raise(ErrorNumber::NullObject, source);
    return reference;
}

}  // namespace quellbrook

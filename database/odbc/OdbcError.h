#pragma once

#include "base/Error.h"

#include <string>
#include <string_view>

namespace quellbrook {

class OdbcHandle;

// A failure that a driver reported. The description is the server's own words. The number is
// ErrorNumber::IntegrityViolation for a violated unique or foreign key constraint, otherwise the server's.
class OdbcError : public Error {
public:
    OdbcError(std::string source, const std::string& state, int32_t nativeNumber, const std::string& words);

    // The class of the failure by the standard, five characters.
    const std::string& State() const { return m_state; }
    int32_t NativeNumber() const { return m_nativeNumber; }
    // Whether it says that the connection is gone.
    bool IsLostLink() const;
    // Whether a constraint or a trigger refused the change.
    bool IsRefusedChange() const;

private:
    std::string m_state;
    int32_t m_nativeNumber;
};

// Raises the last failure of the handle.
[[noreturn]] void RaiseOdbcError(const OdbcHandle& handle, std::string_view source);

}  // namespace quellbrook

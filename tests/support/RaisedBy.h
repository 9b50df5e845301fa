#pragma once

#include "base/Error.h"

namespace quellbrook::testing {

// The error that the operation raises. An operation that succeeds gives an error of number 0.
template <typename Operation>
Error RaisedBy(Operation operation) {
    try {
        operation();
    } catch (const Error& error) {
        return error;
    }
    return Error(0, "", "Nothing was raised.");
}

}  // namespace quellbrook::testing

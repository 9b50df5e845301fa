#pragma once

#include "base/Error.h"

namespace quellbrook::testing {

// The error that the operation throws; one with number 0 if it throws none.
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

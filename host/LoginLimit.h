#pragma once

#include "base/DateTime.h"

namespace quellbrook {

// Slows down guessing of passwords. After three failures in a row each attempt has to wait: 2 seconds, then twice as
// long after each failure, up to a minute.
class LoginLimit {
public:
    // Error 5 with a sentence while an attempt has to wait.
    void RequireTurn() const;
    void Failed();
    void Succeeded() { m_failures = 0; }

private:
    int64_t WaitAfterLastFailure() const;  // milliseconds

    int m_failures = 0;
    DateTime m_lastFailure;
};

}  // namespace quellbrook

#pragma once

#include <cstdint>

namespace quellbrook {

// Counts what keeps the library loaded besides the objects of the model: started components, locks, references to
// factories, and what factories have created.
class UseCount {
public:
    UseCount() { ++s_count; }
    ~UseCount() { --s_count; }
    UseCount(const UseCount&) = delete;
    UseCount& operator=(const UseCount&) = delete;
    static int64_t Current() { return s_count; }

private:
    static int64_t s_count;
};

}  // namespace quellbrook

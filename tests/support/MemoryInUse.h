#pragma once

#include <cstddef>

#include <malloc.h>

#if defined(__SANITIZE_ADDRESS__)
extern "C" size_t __sanitizer_get_current_allocated_bytes();
#endif

namespace quellbrook::testing {

// The bytes that the process has allocated on the heap.
inline size_t MemoryInUse() {
#if defined(__SANITIZE_ADDRESS__)
    return __sanitizer_get_current_allocated_bytes();
#else
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
#endif
}

}  // namespace quellbrook::testing

#include "base/Object.h"

#include <atomic>

namespace quellbrook {

namespace {

std::atomic<int64_t> live = 0;

}  // namespace

Object::Object() noexcept { live.fetch_add(1, std::memory_order_relaxed); }

Object::Object(const Object&) noexcept : Object() {}

Object::~Object() { live.fetch_sub(1, std::memory_order_relaxed); }

int64_t Object::LiveCount() noexcept { return live.load(std::memory_order_relaxed); }

}  // namespace quellbrook

#pragma once

#include "tests/support/WithDialect.h"

namespace quellbrook::testing {

// Wraps an engine and reports a schema that belongs to the host, without our side tables and facts.
class WithoutSideTables : public WithDialect {
public:
    explicit WithoutSideTables(const std::shared_ptr<Engine>& inner)
        : WithDialect(inner, WithoutThem(inner->GetDialect())) {}

private:
    static Dialect WithoutThem(Dialect dialect) {
        dialect.hasCurrentPlace = dialect.hasDescriptionIndex = dialect.itemsAreDistinct = false;
        return dialect;
    }
};

}  // namespace quellbrook::testing

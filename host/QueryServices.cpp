#include "host/QueryServices.h"

#include "host/HostServices.h"

namespace quellbrook {

QueryFactory& QueryServices::Factory() {
    static QueryFactory factory([]() -> const Dialect& { return HostServices::Current().Pool().GetDialect(); });
    return factory;
}

}  // namespace quellbrook

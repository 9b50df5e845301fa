#pragma once

#include "host/HostServices.h"

class QLocale;

namespace quellbrook {

// The short date, short time and currency formats of a locale. The C locale gives the defaults of HostFormats.
HostFormats FormatsOf(const QLocale& locale);

}  // namespace quellbrook

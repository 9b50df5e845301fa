#pragma once

#include "host/HostServices.h"

class QLocale;

namespace quellbrook {

// The short date, the short time and the currency of a locale. The locale without a country gives HostFormats' own.
HostFormats FormatsOf(const QLocale& locale);

}  // namespace quellbrook

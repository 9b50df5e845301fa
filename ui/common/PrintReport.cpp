#include "ui/common/PrintReport.h"

#include "base/FormatCount.h"
#include "core/Actions.h"
#include "host/HostServices.h"

namespace quellbrook {

void ReportPrintedLabels(int32_t count) {
    GetActions().NotifyUser("Sent " + FormatCount(count, "%d label", "%d labels") + " " +
                            HostServices::Current().Printer().Destination() + ".");
}

}  // namespace quellbrook

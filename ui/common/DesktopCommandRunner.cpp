#include "ui/common/DesktopCommandRunner.h"

#include "base/Error.h"
#include "ui/platform/Strings.h"

#include <QDesktopServices>
#include <QUrl>

namespace quellbrook {

std::string AddressInCommand(const std::string& commandLine) {
    const size_t start = commandLine.find("tessarine://");
    return start == std::string::npos ? std::string() : commandLine.substr(start);
}

void RunInDesktop(const std::string& commandLine) {
    const std::string address = AddressInCommand(commandLine);
    if (address.empty())
        Raise(ErrorNumber::General, "DesktopCommandRunner.Run",
              "There is no address in the command \"" + commandLine + "\".");
    if (!QDesktopServices::openUrl(QUrl(ToQString(address))))
        Raise(ErrorNumber::General, "DesktopCommandRunner.Run", "This workstation has no program that opens records.");
}

}  // namespace quellbrook

#include "app/RunningProgram.h"

#include "app/Department.h"
#include "app/MainWindow.h"

#include <QStandardPaths>

namespace quellbrook {

namespace {

QString SocketOf(const std::string& databasePath) {
    return InstanceSocket(QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation), databasePath);
}

}  // namespace

bool OpenInRunningProgram(const Options& options, const std::string& dataDirectory) {
    if (!options.record) return false;
    const auto path = DepartmentPath(options, dataDirectory);
    return path && SendToInstance(SocketOf(*path), *options.record);
}

std::unique_ptr<InstanceServer> ListenForRecords(const std::string& databasePath, MainWindow& window) {
    auto server = std::make_unique<InstanceServer>(SocketOf(databasePath));
    QObject::connect(server.get(), &InstanceServer::Arrived, &window, [&window](const RecordAddress& address) {
        window.BringToFront();
        window.OpenRecord(address);
    });
    return server;
}

}  // namespace quellbrook

#include "app/common/HostGuard.h"

#include "base/ErrorLog.h"

#include <QMessageBox>

namespace quellbrook {

void ReportHostFailure(QWidget* parent, const Error& error) noexcept {
    try {
        GetErrorLog().Log("quellbrook-host", error.Source(), error.Description());
        QMessageBox box(QMessageBox::Critical, QStringLiteral("Quellbrook"),
                        QString::fromStdString(error.Description()), QMessageBox::Ok, parent);
        box.setTextFormat(Qt::PlainText);
        box.exec();
    } catch (...) {
    }
}

}  // namespace quellbrook

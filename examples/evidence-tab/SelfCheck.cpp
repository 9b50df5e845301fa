#include "SelfCheck.h"

#include "Database.h"
#include "HostWindow.h"

#include "component/Items.h"
#include "database/schema/DatabaseVerification.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QLineEdit>

#include <stdexcept>

namespace {

// The visible control with this name inside the named view.
QWidget* Find(const HostWindow& window, const char* view, const char* name) {
    for (QWidget* outer : window.Evidence()->findChildren<QWidget*>(view)) {
        if (!outer->isVisible()) continue;
        if (auto* found = outer->findChild<QWidget*>(name)) return found;
    }
    throw std::runtime_error(std::string("There is no control '") + name + "' in '" + view + "'.");
}

void Press(QWidget* control) {
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent space(type, Qt::Key_Space, Qt::NoModifier, " ");
        QApplication::sendEvent(control, &space);
    }
    QApplication::processEvents();
}

void Choose(QWidget* field, const QString& entry) {
    auto* box = field->findChild<QComboBox*>();
    const int index = box ? box->findText(entry) : -1;
    if (index < 0) throw std::runtime_error("There is no entry '" + entry.toStdString() + "'.");
    box->setCurrentIndex(index);
}

// The printer of this host writes files beside the database.
void PrintLabels(const std::string& databasePath) {
    using namespace quellbrook;
    LoadItem(StoredItemTypes::Property, 1)->PrintBarcodeLabel();
    GetSingletons().StorageLocation().FindByID(2)->PrintBarcodeLabel();
    const QDir folder = QFileInfo(QString::fromStdString(databasePath)).dir();
    if (folder.entryList({"*.pdf"}).size() != 2) throw std::runtime_error("Two labels were expected.");
}

// The next user gets a control of their own, with their own rights.
void LogInAgain(HostWindow& window) {
    window.LogOut();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    window.LogIn("auditor", "harbor");
    if (!window.Evidence()) throw std::runtime_error("The gate stayed closed at the second login.");
    QApplication::processEvents();
    const QWidget* addEvidence = Find(window, "explorer", "btnAddEvidence");
    if (addEvidence->isVisible() && addEvidence->isEnabled())
        throw std::runtime_error("A user who may only view is offered a check-in.");
    window.LogOut();
}

}  // namespace

void CheckOneItemIn(HostWindow& window, const std::string& databasePath) {
    if (ReadNumber(databasePath, "SELECT COUNT(*) FROM PropertyTracking") > 0)
        throw std::runtime_error("The item was checked in before. Use an empty folder.");
    window.show();
    window.LogIn("custodian", "lantern");
    if (!window.Evidence()) throw std::runtime_error("The gate stayed closed.");
    QApplication::processEvents();

    const auto inSearch = [&](const char* name) { return Find(window, "submitNewEvidence", name); };
    const auto inForm = [&](const char* name) { return Find(window, "cart", name); };
    Press(Find(window, "explorer", "btnAddEvidence"));
    Choose(inSearch("cboFilter"), "Property ID");
    inSearch("search")->findChild<QLineEdit*>()->setText("2026-0117-01");
    Press(inSearch("btnSearch"));
    Press(inSearch("imgSelectAll"));
    Press(inSearch("btnSubmit"));
    Choose(inForm("receivedFromField"), "Becker, Tom (Officer)");
    Choose(inForm("receivedByField"), "Raman, Priya (Evidence Technician)");
    Choose(inForm("locationField"), "Property Room » Shelf A");
    Choose(inForm("reasonField"), "Initial storage");
    Press(inForm("btnTransfer"));

    const int64_t rows =
        ReadNumber(databasePath,
                   "SELECT COUNT(*) FROM PropertyTracking t INNER JOIN Property p ON p.PropertyNo = "
                   "t.PropertyNo AND p.CurrTrackSeq = t.SeqNo WHERE p.PropertyID = '2026-0117-01' "
                   "AND t.SeqNo = 1 AND t.StorageLocNo = 2 AND t.ReceivedFrom = 2 AND t.ReceivedBy = 1 "
                   "AND t.CustodyReasonNo = 1");
    if (rows != 1) throw std::runtime_error("The custody row was not written.");
    PrintLabels(databasePath);
    for (const quellbrook::RuleCheck& check : quellbrook::VerifyHostSchema(databasePath, 1000))
        if (check.faults > 0) throw std::runtime_error(check.rule + " " + check.examples.front());
    LogInAgain(window);
}

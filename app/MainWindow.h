#pragma once

#include "app/ComponentLibrary.h"
#include "app/LoginForm.h"
#include "app/records/RecordAddress.h"
#include "component/Scanner.h"
#include "host/LoginLimit.h"

#include <QMainWindow>
#include <QPointer>

#include <memory>
#include <string>
#include <vector>

class QStackedWidget;
class QUrl;

namespace quellbrook {

class GuideWindow;
class HostTabs;
class Singletons;

// The window of the reference host: the login form, then the tabs. Each login runs the gate and, if it returns true,
// creates a new EvidenceUI. Logging out destroys it. With an open batch, the window asks before it logs out or closes.
// While the window exists, it shows the records that the program opens by address, instead of passing the addresses to
// the desktop. F1 and the tabs' Help open the user guide.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    // Creates the objects of the component by its class factories.
    MainWindow(const QString& agency, const std::optional<QString>& user, const std::vector<SampleAccount>& accounts,
               ClassObjectGetter getClassObject = &DllGetClassObject);
    ~MainWindow() override;

    // Shows the record in its own tab, as soon as a user is logged in and no dialog is open.
    void OpenRecord(const RecordAddress& address);
    void BringToFront();

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void LogIn(const QString& username, const QString& password);
    void EnterEvidence();
    void LogOut();
    bool MayDropBatch(const std::string& consequence) const;
    bool DropsScans() const;
    void OpenWaiting();
    void OpenGuide();
    Q_INVOKABLE void OpenAddress(const QUrl& address);

    ClassObjectGetter m_getClassObject;
    std::shared_ptr<Singletons> m_component;
    QStackedWidget* m_pages;
    LoginForm* m_login;
    HostTabs* m_tabs;
    QPointer<QWidget> m_evidence;
    std::shared_ptr<LoginLimit> m_loginLimit = std::make_shared<LoginLimit>();
    std::vector<RecordAddress> m_waiting;
    std::unique_ptr<GuideWindow> m_guide;  // null until it is first opened
    ScanDropper m_scanDropper;
};

}  // namespace quellbrook

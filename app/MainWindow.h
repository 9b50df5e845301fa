#pragma once

#include "app/LoginForm.h"
#include "app/records/RecordAddress.h"

#include <QMainWindow>
#include <QPointer>

#include <vector>

class QStackedWidget;
class QUrl;

namespace quellbrook {

class HostTabs;

// The window of the reference host: the login form, then its tabs, of which "Evidence" holds the component. Each login
// runs the gate, and where that answers true makes a new EvidenceUI; logging out destroys it.
// As long as the window stands, addresses of records that the program itself opens come here and not to the desktop.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow(const QString& agency, const std::optional<QString>& user, const std::vector<SampleAccount>& accounts);
    ~MainWindow() override;

    // Shows the record in a tab of its own; one that comes while nobody is logged in, or while a dialog is open, waits.
    void OpenRecord(const RecordAddress& address);
    void BringToFront();

protected:
    bool event(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void LogIn(const QString& username, const QString& password);
    void EnterEvidence();
    void LogOut();
    void OpenWaiting();
    Q_INVOKABLE void OpenAddress(const QUrl& address);

    QStackedWidget* m_pages;
    LoginForm* m_login;
    HostTabs* m_tabs;
    QPointer<QWidget> m_evidence;
    std::vector<RecordAddress> m_waiting;
};

}  // namespace quellbrook

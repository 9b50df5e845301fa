#pragma once

#include "Services.h"

#include <QMainWindow>

#include <memory>

class QLineEdit;
class QStackedWidget;
class QTabWidget;

// The host's window: a login form, then tabs, of which the component's is one.
class HostWindow : public QMainWindow {
public:
    HostWindow();

    // Shows the tabs if the user may enter. Failures are shown to the user.
    void LogIn(const QString& username, const QString& password);
    // Asks about an open batch first.
    void LogOut();

    // The component's control; null while no user is logged in.
    QWidget* Evidence() const { return m_evidence; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QWidget* MakeLoginPage();
    QWidget* MakeTabs();
    void Enter();
    void Leave();
    bool MayDropBatch();

    std::shared_ptr<Session> m_session = std::make_shared<Session>();
    QStackedWidget* m_pages;
    QTabWidget* m_tabs = nullptr;
    QLineEdit* m_username = nullptr;
    QLineEdit* m_password = nullptr;
    QWidget* m_evidence = nullptr;
};

#pragma once

#include "app/LoginForm.h"

#include <QMainWindow>
#include <QPointer>

class QLabel;
class QStackedWidget;
class QVBoxLayout;

namespace quellbrook {

// The window of the reference host: the login form, then its tabs, of which "Evidence" holds the component. Each login
// runs the gate, and where that answers true makes a new EvidenceUI; logging out destroys it.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    MainWindow(const QString& agency, const std::optional<QString>& user, const std::vector<ShownAccount>& accounts);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* MakeHostPage();
    QWidget* MakeTabStrip();
    void LogIn(const QString& username, const QString& password);
    void EnterEvidence();
    void LogOut();

    QStackedWidget* m_pages;
    LoginForm* m_login;
    QWidget* m_hostPage;
    QVBoxLayout* m_content = nullptr;  // below the tab strip
    QLabel* m_loggedInAs = nullptr;
    QPointer<QWidget> m_evidence;
};

}  // namespace quellbrook

#include "app/MainWindow.h"

#include "app/HostGuard.h"
#include "component/Quellbrook.h"
#include "host/DatabaseSession.h"
#include "host/HostServices.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShowEvent>
#include <QStackedWidget>
#include <QTabBar>
#include <QVBoxLayout>

namespace quellbrook {

namespace {

// Only the strip carries a style sheet; what stands below it keeps the application's style.
const char* const stripSheet = R"css(
#hostTabStrip { background: palette(button); border: none; border-bottom: 1px solid palette(mid); }
QTabBar::tab { background: transparent; color: palette(window-text); border: none; padding: 0 16px; min-height: 35px;
               border-bottom: 3px solid transparent; }
QTabBar::tab:selected { border-bottom: 3px solid palette(link); font-weight: 600; }
QPushButton { background: transparent; border: 1px solid palette(dark); border-radius: 2px; padding: 0 12px;
              min-height: 24px; }
QPushButton:hover { background: palette(mid); }
QPushButton:focus { border: 2px solid palette(link); padding: 0 11px; min-height: 22px; }
)css";

}  // namespace

MainWindow::MainWindow(const QString& agency, const std::optional<QString>& user,
                       const std::vector<ShownAccount>& accounts) {
    setObjectName(QStringLiteral("hostWindow"));
    setWindowTitle(tr("Quellbrook - %1").arg(agency));
    resize(1280, 800);
    m_pages = new QStackedWidget(this);
    m_login = new LoginForm(agency, user, accounts, m_pages);
    m_login->setObjectName(QStringLiteral("loginForm"));
    m_hostPage = MakeHostPage();
    m_pages->addWidget(m_login);
    m_pages->addWidget(m_hostPage);
    setCentralWidget(m_pages);
    connect(m_login, &LoginForm::Submitted, this, [this](const QString& username, const QString& password) {
        GuardHost(this, [&] { LogIn(username, password); });
    });
    HostServices::Current().SetSession(std::make_shared<DatabaseSession>());
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!event->spontaneous() && !m_evidence) m_login->Restart();
}

QWidget* MainWindow::MakeHostPage() {
    auto* page = new QWidget(m_pages);
    m_content = new QVBoxLayout(page);
    m_content->setContentsMargins(0, 0, 0, 0);
    m_content->setSpacing(0);
    m_content->addWidget(MakeTabStrip());
    return page;
}

QWidget* MainWindow::MakeTabStrip() {
    auto* strip = new QFrame;
    strip->setObjectName(QStringLiteral("hostTabStrip"));
    strip->setStyleSheet(QString::fromLatin1(stripSheet));
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(0, 0, 16, 0);
    row->setSpacing(12);
    auto* tabs = new QTabBar(strip);
    tabs->setObjectName(QStringLiteral("hostTabs"));
    tabs->setDrawBase(false);
    tabs->addTab(tr("Evidence"));
    row->addWidget(tabs);
    row->addStretch(1);
    m_loggedInAs = new QLabel(strip);
    m_loggedInAs->setObjectName(QStringLiteral("loggedInAs"));
    m_loggedInAs->setTextFormat(Qt::PlainText);
    row->addWidget(m_loggedInAs);
    auto* logOut = new QPushButton(tr("Log Out"), strip);
    logOut->setObjectName(QStringLiteral("logOut"));
    connect(logOut, &QPushButton::clicked, this, [this] { GuardHost(this, [this] { LogOut(); }); });
    row->addWidget(logOut);
    return strip;
}

void MainWindow::LogIn(const QString& username, const QString& password) {
    try {
        HostServices::Current().Session().Login(username.toStdString(), password.toStdString(), std::string());
    } catch (const Error& refusal) {
        m_login->ShowFailure(QString::fromStdString(refusal.Description()));
        return;
    }
    m_loggedInAs->setText(QString::fromStdString(HostServices::Current().Session().Username()));
    try {
        EnterEvidence();
    } catch (...) {
        LogOut();
        throw;
    }
    if (!m_evidence) LogOut();
}

void MainWindow::EnterEvidence() {
    SetDialogParent(this);
    const bool entered = InitializeQuellbrook();
    SetDialogParent(this);  // the wizard may have put its own form there
    if (!entered) return;
    m_pages->setCurrentWidget(m_hostPage);
    m_evidence = CreateEvidenceUI(m_hostPage);
    m_evidence->setObjectName(QStringLiteral("evidence"));
    m_content->addWidget(m_evidence, 1);
    m_evidence->show();
}

void MainWindow::LogOut() {
    m_pages->setCurrentWidget(m_login);
    if (m_evidence) {
        m_evidence->hide();
        m_evidence->deleteLater();
        m_evidence = nullptr;
    }
    HostServices::Current().SetSession(std::make_shared<DatabaseSession>());
    m_login->Restart();
}

}  // namespace quellbrook

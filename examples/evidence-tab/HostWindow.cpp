#include "HostWindow.h"

#include "base/Error.h"
#include "component/EvidenceUI.h"
#include "component/Quellbrook.h"
#include "host/HostServices.h"

#include <QCloseEvent>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabWidget>
#include <QToolBar>

#include <exception>

namespace {

// No exception may reach Qt, so every handler that calls the component runs in here.
template <typename Handler>
void Guard(QWidget* parent, Handler handler) {
    try {
        handler();
    } catch (const std::exception& failure) {
        QMessageBox::critical(parent, "Records", QString::fromUtf8(failure.what()));
    }
}

}  // namespace

HostWindow::HostWindow() : m_pages(new QStackedWidget(this)) {
    quellbrook::HostServices::Current().SetSession(m_session);
    m_pages->addWidget(MakeLoginPage());
    m_pages->addWidget(MakeTabs());
    setCentralWidget(m_pages);
    setWindowTitle("Records");
    resize(1100, 700);
}

QWidget* HostWindow::MakeLoginPage() {
    auto* page = new QWidget;
    m_username = new QLineEdit;
    m_password = new QLineEdit;
    m_password->setEchoMode(QLineEdit::Password);
    auto* logIn = new QPushButton("Log In");
    logIn->setDefault(true);
    auto* rows = new QFormLayout(page);
    rows->addRow("User name", m_username);
    rows->addRow("Password", m_password);
    rows->addRow(logIn);
    const auto submit = [this] { LogIn(m_username->text(), m_password->text()); };
    connect(logIn, &QPushButton::clicked, this, submit);
    connect(m_password, &QLineEdit::returnPressed, this, submit);
    return page;
}

QWidget* HostWindow::MakeTabs() {
    m_tabs = new QTabWidget;
    m_tabs->addTab(new QLabel("The host's own page"), "Dispatch");
    auto* logOut = new QPushButton("Log Out");
    connect(logOut, &QPushButton::clicked, this, [this] { LogOut(); });
    m_tabs->setCornerWidget(logOut);
    return m_tabs;
}

void HostWindow::LogIn(const QString& username, const QString& password) {
    Guard(this, [&] {
        m_session->Login(username.toStdString(), password.toStdString(), "");
        m_password->clear();
        Enter();
    });
    if (!m_evidence) Leave();
}

void HostWindow::Enter() {
    quellbrook::SetDialogParent(this);
    // The gate runs event loops of its own. Nobody may log in a second time meanwhile.
    m_pages->setEnabled(false);
    bool entered = false;
    Guard(this, [&] { entered = quellbrook::InitializeQuellbrook(); });
    m_pages->setEnabled(true);
    quellbrook::SetDialogParent(this);  // the wizard of the gate is a dialog parent as well
    if (!entered) return;               // the user knows why
    m_pages->setCurrentWidget(m_tabs);
    m_evidence = quellbrook::CreateEvidenceUI(m_tabs);
    m_tabs->insertTab(0, m_evidence, "Evidence");
    m_tabs->setCurrentWidget(m_evidence);
}

void HostWindow::LogOut() {
    if (MayDropBatch()) Leave();
}

void HostWindow::Leave() {
    // The button may be pressed while a view of the component runs an event loop, so it is deleted later.
    if (m_evidence) {
        m_tabs->removeTab(m_tabs->indexOf(m_evidence));
        m_evidence->hide();
        m_evidence->deleteLater();
        m_evidence = nullptr;
    }
    m_session->LogOut();
    m_pages->setCurrentIndex(0);
    m_username->setFocus();
}

bool HostWindow::MayDropBatch() {
    bool may = true;
    Guard(this, [&] {
        if (!m_evidence || quellbrook::ItemsInOpenBatch() == 0) return;
        may = QMessageBox::question(this, "Open batch", "The items of the open batch were not transferred. Leave?") ==
              QMessageBox::Yes;
    });
    return may;
}

void HostWindow::closeEvent(QCloseEvent* event) { event->setAccepted(MayDropBatch()); }

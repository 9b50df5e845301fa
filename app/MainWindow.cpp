#include "app/MainWindow.h"

#include "app/HostTabs.h"
#include "app/common/HostGuard.h"
#include "app/guide/GuideWindow.h"
#include "app/scanner/ScanField.h"
#include "base/FormatCount.h"
#include "base/Screen.h"
#include "component/PublicClasses.h"
#include "component/Quellbrook.h"
#include "host/DatabaseSession.h"
#include "host/HostServices.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDesktopServices>
#include <QScopeGuard>
#include <QShortcut>
#include <QShowEvent>
#include <QStackedWidget>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace quellbrook {

namespace {

// At this size, every view shows all its controls. Tabs scroll, and long texts in rows end in an ellipsis.
constexpr QSize smallestSize(800, 490);

QString Scheme() { return QString::fromLatin1(RecordScheme.data(), RecordScheme.size()); }

}  // namespace

MainWindow::MainWindow(const QString& agency, const std::optional<QString>& user,
                       const std::vector<SampleAccount>& accounts, ClassObjectGetter getClassObject)
    : m_getClassObject(getClassObject),
      m_component(CreateComponentObject<Singletons>(getClassObject, ClassId::Singletons)),
      m_scanDropper([this] { return DropsScans(); }) {
    setObjectName(QStringLiteral("hostWindow"));
    setWindowTitle(tr("Quellbrook - %1").arg(agency));
    setMinimumSize(smallestSize);
    m_pages = new QStackedWidget(this);
    m_login = new LoginForm(agency, user, accounts, m_pages);
    m_login->setObjectName(QStringLiteral("loginForm"));
    m_tabs = new HostTabs(m_pages);
    m_pages->addWidget(m_login);
    m_pages->addWidget(m_tabs);
    setCentralWidget(m_pages);
    connect(m_login, &LoginForm::Submitted, this, [this](const QString& username, const QString& password) {
        GuardHost(this, [&] { LogIn(username, password); });
    });
    connect(m_tabs, &HostTabs::LogOutRequested, this, [this] {
        GuardHost(this, [this] {
            if (MayDropBatch("If you log out, the batch is lost.\r\n\r\nLog out anyway?")) LogOut();
        });
    });
    connect(m_tabs, &HostTabs::HelpRequested, this, [this] { GuardHost(this, [this] { OpenGuide(); }); });
    auto* helpKey = new QShortcut(Qt::Key_F1, this);
    helpKey->setContext(Qt::ApplicationShortcut);  // also in the wizard
    connect(helpKey, &QShortcut::activated, this, [this] {
        GuardHost(this, [this] {
            if (!ScanDropper::IsScanUnderWay()) OpenGuide();
        });
    });
    HostServices::Current().SetSession(std::make_shared<DatabaseSession>(m_loginLimit));
    QDesktopServices::setUrlHandler(Scheme(), this, "OpenAddress");
}

MainWindow::~MainWindow() { QDesktopServices::unsetUrlHandler(Scheme()); }

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!event->spontaneous() && !m_evidence) m_login->Restart();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    bool mayClose = true;
    GuardHost(this,
              [&] { mayClose = MayDropBatch("If you close the window, the batch is lost.\r\n\r\nClose it anyway?"); });
    event->setAccepted(mayClose);
}

// Asks the user if there is an open batch.
bool MainWindow::MayDropBatch(const std::string& consequence) const {
    const int items = m_evidence ? ItemsInOpenBatch() : 0;
    if (items == 0) return true;
    const std::string question = FormatCount(items, "%d item is in an open batch that has not been transferred. ",
                                             "%d items are in an open batch that has not been transferred. ");
    return ShowMessage(question + consequence, MessageStyle::YesNoQuestion, "Open batch") == MessageAnswer::Yes;
}

// No text field of the host takes a scan. The component and the field for testing a scanner do.
bool MainWindow::DropsScans() const {
    const bool isInGuide = m_guide && m_guide->isActiveWindow();
    const bool isForComponent = m_evidence && m_evidence->isVisible() && !isInGuide;
    return !isForComponent && !qobject_cast<ScanField*>(QApplication::focusWidget());
}

void MainWindow::LogIn(const QString& username, const QString& password) {
    try {
        HostServices::Current().Session().Login(username.toStdString(), password.toStdString(), std::string());
    } catch (const Error& refusal) {
        m_login->ShowFailure(QString::fromStdString(refusal.Description()));
        return;
    }
    m_tabs->SetUser(QString::fromStdString(HostServices::Current().Session().Username()));
    try {
        EnterEvidence();
    } catch (...) {
        LogOut();
        throw;
    }
    if (!m_evidence) return LogOut();
    OpenWaiting();
}

void MainWindow::EnterEvidence() {
    SetDialogParent(this);
    // The wizard leaves this window usable, so disable a second login.
    m_login->setEnabled(false);
    const auto enableLogin = qScopeGuard([this] { m_login->setEnabled(true); });
    const bool entered = m_component->InitializeQuellbrook();
    SetDialogParent(this);  // the wizard may have set its own form
    if (!entered) return;
    m_pages->setCurrentWidget(m_tabs);
    const auto evidence = CreateComponentObject<QWidget>(m_getClassObject, ClassId::EvidenceUI);
    m_evidence = evidence.get();
    m_evidence->setParent(m_tabs);
    // Whatever deletes the control releases the reference.
    connect(m_evidence, &QObject::destroyed, this, [evidence] {});
    m_evidence->setObjectName(QStringLiteral("evidence"));
    m_tabs->SetEvidence(m_evidence);
}

void MainWindow::LogOut() {
    m_pages->setCurrentWidget(m_login);
    m_tabs->Clear();
    if (m_evidence) {
        m_evidence->hide();
        m_evidence->deleteLater();
        m_evidence = nullptr;
    }
    HostServices::Current().SetSession(std::make_shared<DatabaseSession>(m_loginLimit));
    m_login->Restart();
}

void MainWindow::OpenRecord(const RecordAddress& address) {
    if (std::find(m_waiting.begin(), m_waiting.end(), address) == m_waiting.end()) m_waiting.push_back(address);
    GuardHost(this, [this] { OpenWaiting(); });
}

void MainWindow::OpenWaiting() {
    // Do not change the window behind an open dialog of the component.
    if (!m_evidence || QApplication::activeModalWidget()) return;
    for (const RecordAddress& address : std::exchange(m_waiting, {})) m_tabs->OpenRecord(address);
}

void MainWindow::OpenGuide() {
    if (!m_guide) m_guide = std::make_unique<GuideWindow>();
    m_guide->Open();
}

void MainWindow::BringToFront() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

// Called while a view of the component handles a click, so its tab must stay until it returns.
void MainWindow::OpenAddress(const QUrl& address) {
    const std::string text = address.toString(QUrl::FullyEncoded).toStdString();
    GuardHost(this, [&] {
        const RecordAddress record = ParseRecordAddress(text);
        QMetaObject::invokeMethod(
            this, [this, record] { OpenRecord(record); }, Qt::QueuedConnection);
    });
}

bool MainWindow::event(QEvent* event) {
    if (event->type() == QEvent::WindowUnblocked)
        QMetaObject::invokeMethod(
            this, [this] { GuardHost(this, [this] { OpenWaiting(); }); }, Qt::QueuedConnection);
    return QMainWindow::event(event);
}

}  // namespace quellbrook

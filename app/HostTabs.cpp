#include "app/HostTabs.h"

#include "app/common/HostGuard.h"
#include "app/common/ThemedSheet.h"
#include "app/records/RecordPage.h"
#include "app/scanner/PrinterChoice.h"
#include "app/scanner/ScannerPage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace quellbrook {

namespace {

// Only the strip has a style sheet, so the pages below keep the application's style.
const char* const stripSheet = R"css(
#hostTabStrip { background: palette(button); border: none; border-bottom: 1px solid palette(mid); }
QTabBar::tab { background: transparent; color: %1; border: none; padding: 0 16px; min-height: 35px;
               border-bottom: 3px solid transparent; }
QTabBar::tab:selected { color: palette(window-text); border-bottom: 3px solid palette(link); }
QTabBar::tab:selected:focus { border: 2px solid palette(link); border-bottom: 3px solid palette(link);
                              border-radius: 2px; padding: 0 14px; min-height: 33px; }
QToolButton#closeTab { background: transparent; color: palette(window-text); border: none; border-radius: 2px;
                       min-width: 20px; min-height: 20px; }
QToolButton#closeTab:hover { background: palette(mid); }
)css";

constexpr int evidenceTab = 0;
constexpr int widestTitle = 220, narrowestTab = 120, stripButtonHeight = 28;  // pixels

// Tabs of records get narrower before the tabs scroll. "Evidence" keeps its width.
class HostTabBar : public QTabBar {
public:
    using QTabBar::QTabBar;

protected:
    QSize minimumTabSizeHint(int index) const override {
        const QSize full = tabSizeHint(index);
        return index == evidenceTab ? full : QSize(std::min(full.width(), narrowestTab), full.height());
    }
};

QString Tooltip(const QString& title) { return "<span>" + title.toHtmlEscaped() + "</span>"; }

QString TabText(const QTabBar& tabs, const QString& title) {
    return tabs.fontMetrics().elidedText(title, Qt::ElideRight, widestTitle).replace('&', QLatin1String("&&"));
}

}  // namespace

HostTabs::HostTabs(QWidget* parent) : QWidget(parent) {
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(0);
    m_pages = new QStackedWidget(this);
    rows->addWidget(MakeStrip());
    rows->addWidget(m_pages, 1);
    connect(m_tabs, &QTabBar::currentChanged, this, [this](int index) { GuardHost(this, [&] { ShowPage(index); }); });
    auto* closeKey = new QShortcut(QKeySequence::Close, this);
    connect(closeKey, &QShortcut::activated, this,
            [this] { GuardHost(this, [this] { Close(PageAt(m_tabs->currentIndex())); }); });
}

QWidget* HostTabs::MakeStrip() {
    auto* strip = new QFrame(this);
    strip->setObjectName(QStringLiteral("hostTabStrip"));
    SetThemedSheet(strip, QString::fromLatin1(stripSheet));
    auto* row = new QHBoxLayout(strip);
    row->setContentsMargins(0, 0, 16, 0);
    row->setSpacing(12);
    m_tabs = new HostTabBar(strip);
    m_tabs->setObjectName(QStringLiteral("hostTabs"));
    m_tabs->setDrawBase(false);
    m_tabs->setExpanding(false);
    m_tabs->setElideMode(Qt::ElideMiddle);  // numbers differ at their end
    m_tabs->setSelectionBehaviorOnRemove(QTabBar::SelectLeftTab);
    m_tabs->addTab(tr("Evidence"));
    row->addWidget(m_tabs, 1);
    m_loggedInAs = new QLabel(strip);
    m_loggedInAs->setObjectName(QStringLiteral("loggedInAs"));
    m_loggedInAs->setTextFormat(Qt::PlainText);
    row->addWidget(m_loggedInAs);
    auto* scanner = MakeStripButton(ScannerPage::Title(), "scannerPageButton", strip);
    connect(scanner, &QPushButton::clicked, this, [this] { GuardHost(this, [this] { OpenScannerPage(); }); });
    row->addWidget(scanner);
    auto* help = MakeStripButton(tr("Help"), "help", strip);
    help->setToolTip(tr("User guide (F1)"));
    connect(help, &QPushButton::clicked, this, &HostTabs::HelpRequested);
    row->addWidget(help);
    auto* logOut = MakeStripButton(tr("Log Out"), "logOut", strip);
    connect(logOut, &QPushButton::clicked, this, &HostTabs::LogOutRequested);
    row->addWidget(logOut);
    return strip;
}

QPushButton* HostTabs::MakeStripButton(const QString& caption, const char* name, QWidget* strip) {
    auto* button = new QPushButton(caption, strip);
    button->setObjectName(QString::fromLatin1(name));
    button->setFixedHeight(stripButtonHeight);
    return button;
}

void HostTabs::SetUser(const QString& username) { m_loggedInAs->setText(username); }

void HostTabs::SetEvidence(QWidget* evidence) {
    m_pages->insertWidget(evidenceTab, evidence);
    m_tabs->setTabData(evidenceTab, QVariant::fromValue(evidence));
    m_pages->setCurrentWidget(evidence);
    evidence->show();
}

void HostTabs::Clear() {
    while (m_tabs->count() > 1) Close(PageAt(m_tabs->count() - 1));
    m_tabs->setTabData(evidenceTab, QVariant());
}

void HostTabs::OpenRecord(const RecordAddress& address) {
    RecordPage* page = RecordOf(address);
    if (!page) {
        page = new RecordPage(address, m_pages);
        page->setObjectName(QStringLiteral("recordPage"));
        AddPage(page, page->Title());
    }
    ShowTab(IndexOf(page));
}

void HostTabs::OpenScannerPage() {
    if (!m_scannerPage) {
        m_scannerPage = new ScannerPage(PrinterChoiceFile(), m_pages);
        m_scannerPage->setObjectName(QStringLiteral("scannerPage"));
        AddPage(m_scannerPage, ScannerPage::Title());
    }
    ShowTab(IndexOf(m_scannerPage));
}

void HostTabs::ShowTab(int index) {
    if (index == m_tabs->currentIndex())
        ShowPage(index);
    else
        m_tabs->setCurrentIndex(index);
    PageAt(index)->setFocus();
}

void HostTabs::AddPage(QWidget* page, const QString& caption) {
    m_pages->addWidget(page);
    const int index = m_tabs->addTab(TabText(*m_tabs, caption));
    m_tabs->setTabToolTip(index, Tooltip(caption));
    m_tabs->setTabData(index, QVariant::fromValue(page));
    auto* cross = new QToolButton(m_tabs);
    cross->setObjectName(QStringLiteral("closeTab"));
    cross->setText(QStringLiteral("\u2715"));
    cross->setAccessibleName(tr("Close %1").arg(caption));
    cross->setFocusPolicy(Qt::NoFocus);
    connect(cross, &QToolButton::clicked, page, [this, page] { GuardHost(this, [&] { Close(page); }); });
    m_tabs->setTabButton(index, QTabBar::RightSide, cross);
}

RecordPage* HostTabs::RecordOf(const RecordAddress& address) const {
    for (int index = 0; index < m_tabs->count(); ++index) {
        auto* page = qobject_cast<RecordPage*>(PageAt(index));
        if (page && page->Address() == address) return page;
    }
    return nullptr;
}

int HostTabs::IndexOf(const QWidget* page) const {
    for (int index = 0; index < m_tabs->count(); ++index)
        if (PageAt(index) == page) return index;
    return -1;
}

QWidget* HostTabs::PageAt(int index) const { return m_tabs->tabData(index).value<QWidget*>(); }

void HostTabs::ShowPage(int index) {
    QWidget* page = PageAt(index);
    if (!page) return;
    if (auto* record = qobject_cast<RecordPage*>(page)) {
        record->Load();
        m_tabs->setTabText(index, TabText(*m_tabs, record->Title()));
        m_tabs->setTabToolTip(index, Tooltip(record->Title()));
        m_tabs->tabButton(index, QTabBar::RightSide)->setAccessibleName(tr("Close %1").arg(record->Title()));
    }
    if (page == m_scannerPage) m_scannerPage->Load();
    m_pages->setCurrentWidget(page);
    // Switching tabs by keyboard keeps the focus on the tabs.
    if (index != evidenceTab && !m_tabs->hasFocus()) page->setFocus();
}

void HostTabs::Close(QWidget* page) {
    const int index = IndexOf(page);
    if (index <= evidenceTab) return;
    if (page == m_scannerPage) m_scannerPage = nullptr;
    m_tabs->removeTab(index);
    m_pages->removeWidget(page);
    page->deleteLater();
}

}  // namespace quellbrook

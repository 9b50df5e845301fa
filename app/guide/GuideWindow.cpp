#include "app/guide/GuideWindow.h"

#include "app/common/HostGuard.h"
#include "app/guide/GuideBrowser.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QScreen>
#include <QShortcut>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace quellbrook {

namespace {

constexpr QSize usualSize(1120, 800), frame(16, 48);
constexpr int contentsWidth = 300, margin = 16;
constexpr int addressRole = Qt::UserRole;

}  // namespace

GuideWindow::GuideWindow() {
    setObjectName(QStringLiteral("guide"));
    setWindowTitle(tr("Quellbrook - User Guide"));
    setAttribute(Qt::WA_QuitOnClose, false);
    resize(usualSize.boundedTo(screen()->availableSize() - frame));
    m_text = new GuideBrowser(this);
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    columns->addWidget(MakeContents());
    columns->addWidget(m_text, 1);
    for (const char* file : {"user-guide.md", "labels.md", "scanners.md"}) AddText(QString::fromLatin1(file));
    m_contents->topLevelItem(0)->setExpanded(true);
    m_text->setSource(GuideBrowser::AddressOf(QStringLiteral("user-guide.md")));
    m_text->setFocus();
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    connect(new QShortcut(QKeySequence::Find, this), &QShortcut::activated, this, [this] {
        m_search->setFocus();
        m_search->selectAll();
    });
}

QWidget* GuideWindow::MakeContents() {
    auto* panel = new QWidget(this);
    panel->setFixedWidth(contentsWidth);
    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(margin, margin, 0, margin);
    column->setSpacing(margin);
    m_search = new QLineEdit(panel);
    m_search->setObjectName(QStringLiteral("guideSearch"));
    m_search->setAccessibleName(tr("Search the guide"));
    m_search->setPlaceholderText(tr("Search the guide"));
    connect(m_search, &QLineEdit::returnPressed, this, [this] { GuardHost(this, [this] { Search(); }); });
    column->addWidget(m_search);
    m_contents = new QTreeWidget(panel);
    m_contents->setObjectName(QStringLiteral("guideContents"));
    m_contents->setAccessibleName(tr("Contents"));
    m_contents->setFrameShape(QFrame::NoFrame);
    m_contents->setHeaderHidden(true);
    m_contents->setColumnCount(1);
    connect(m_contents, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        GuardHost(this, [&] {
            if (item) m_text->setSource(item->data(0, addressRole).toUrl());
        });
    });
    column->addWidget(m_contents, 1);
    return panel;
}

// The headings of a text, each below the one that contains it.
void GuideWindow::AddText(const QString& file) {
    std::vector<QTreeWidgetItem*> open;
    for (const GuideHeading& heading : GuideBrowser::HeadingsOf(file)) {
        open.resize(std::min(open.size(), static_cast<size_t>(heading.level - 1)));
        auto* item = open.empty() ? new QTreeWidgetItem(m_contents) : new QTreeWidgetItem(open.back());
        item->setText(0, heading.caption);
        item->setData(0, addressRole, heading.address);
        open.push_back(item);
    }
}

void GuideWindow::Search() {
    const bool found = m_text->FindNext(m_search->text());
    m_search->setAccessibleDescription(found ? QString() : tr("Nothing found."));
    if (!found) m_search->selectAll();
}

void GuideWindow::Open() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

}  // namespace quellbrook

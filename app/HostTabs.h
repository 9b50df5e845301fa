#pragma once

#include "app/records/RecordAddress.h"

#include <QWidget>

class QLabel;
class QPushButton;
class QStackedWidget;
class QTabBar;

namespace quellbrook {

class RecordPage;
class ScannerPage;

// The main page of a logged-in user: a strip of tabs above their pages. The first tab, "Evidence", contains the
// component. The others show a record or "Labels and Scanner" and can be closed with their cross or the system's close
// key.
class HostTabs : public QWidget {
    Q_OBJECT

public:
    explicit HostTabs(QWidget* parent = nullptr);

    void SetUser(const QString& username);
    // Shows the component in the first tab. The caller remains responsible for its lifetime.
    void SetEvidence(QWidget* evidence);
    // Closes all tabs except the first one, which becomes empty.
    void Clear();

    // Reads and shows the record in its tab or in a new one.
    void OpenRecord(const RecordAddress& address);
    // Shows "Labels and Scanner" in its tab or in a new one.
    void OpenScannerPage();

signals:
    void HelpRequested();
    void LogOutRequested();

private:
    QWidget* MakeStrip();
    QPushButton* MakeStripButton(const QString& caption, const char* name, QWidget* strip);
    void AddPage(QWidget* page, const QString& caption);
    void ShowTab(int index);
    RecordPage* RecordOf(const RecordAddress& address) const;  // null without a tab
    int IndexOf(const QWidget* page) const;                    // -1 without a tab
    QWidget* PageAt(int index) const;
    void ShowPage(int index);
    void Close(QWidget* page);

    QTabBar* m_tabs = nullptr;
    QStackedWidget* m_pages = nullptr;
    QLabel* m_loggedInAs = nullptr;
    ScannerPage* m_scannerPage = nullptr;  // null without a tab
};

}  // namespace quellbrook

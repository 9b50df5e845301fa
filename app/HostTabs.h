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

// What the host shows to a user who is logged in: a strip of tabs over their pages. The first tab, "Evidence", holds
// the component; each of the others holds a record, or "Labels and Scanner" where that has been asked for, and can be
// closed, by its cross or by the system's key for closing.
class HostTabs : public QWidget {
    Q_OBJECT

public:
    explicit HostTabs(QWidget* parent = nullptr);

    void SetUser(const QString& username);
    // Shows the component in the first tab. It stays the caller's.
    void SetEvidence(QWidget* evidence);
    // Closes every other tab; the first one stays, empty.
    void Clear();

    // Shows the record as it is now, in its tab or in a new one.
    void OpenRecord(const RecordAddress& address);
    // Shows "Labels and Scanner", in its tab or in a new one.
    void OpenScannerPage();

signals:
    void LogOutRequested();

private:
    QWidget* MakeStrip();
    QPushButton* MakeStripButton(const QString& caption, const char* name, QWidget* strip);
    void AddPage(QWidget* page, const QString& caption);
    void ShowTab(int index);
    RecordPage* RecordOf(const RecordAddress& address) const;  // null when it has no tab
    int IndexOf(const QWidget* page) const;                    // -1 when it has no tab
    QWidget* PageAt(int index) const;
    void ShowPage(int index);
    void Close(QWidget* page);

    QTabBar* m_tabs = nullptr;
    QStackedWidget* m_pages = nullptr;
    QLabel* m_loggedInAs = nullptr;
    ScannerPage* m_scannerPage = nullptr;  // while it has a tab
};

}  // namespace quellbrook

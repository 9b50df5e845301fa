#pragma once

#include "app/records/RecordAddress.h"

#include <QWidget>

class QLabel;
class QStackedWidget;
class QTabBar;

namespace quellbrook {

class RecordPage;

// What the host shows to a user who is logged in: a strip of tabs over their pages. The first tab, "Evidence", holds
// the component; each of the others holds a record and can be closed, by its cross or by the system's key for closing.
class HostTabs : public QWidget {
    Q_OBJECT

public:
    explicit HostTabs(QWidget* parent = nullptr);

    void SetUser(const QString& username);
    // Shows the component in the first tab. It stays the caller's.
    void SetEvidence(QWidget* evidence);
    // Closes every record; the first tab stays, empty.
    void Clear();

    // Shows the record as it is now, in its tab or in a new one.
    void OpenRecord(const RecordAddress& address);

signals:
    void LogOutRequested();

private:
    QWidget* MakeStrip();
    void AddRecord(RecordPage* page);
    int IndexOf(const RecordAddress& address) const;  // -1 when it has no tab
    QWidget* PageAt(int index) const;
    void ShowPage(int index);
    void Close(QWidget* page);

    QTabBar* m_tabs = nullptr;
    QStackedWidget* m_pages = nullptr;
    QLabel* m_loggedInAs = nullptr;
};

}  // namespace quellbrook

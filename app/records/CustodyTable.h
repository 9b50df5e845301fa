#pragma once

#include "app/records/Record.h"

#include <QTreeWidget>

namespace quellbrook {

// A chain of custody as a table with a row per step: date, reason, received from, received by, location. Location paths
// are complete; a narrow table scrolls to them.
class CustodyTable : public QTreeWidget {
    Q_OBJECT

public:
    explicit CustodyTable(const std::vector<CustodyStep>& steps, QWidget* parent = nullptr);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ColorMissingTexts();
    void FitColumns();

    int m_locationWidth = 0;  // width of the longest path
};

}  // namespace quellbrook

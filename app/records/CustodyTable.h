#pragma once

#include "app/records/Record.h"

#include <QTreeWidget>

namespace quellbrook {

// A chain of custody as a table, a row a step in the order given: date, reason, from whom, by whom, location. Paths of
// locations are shown whole; in a narrow table they are scrolled to.
class CustodyTable : public QTreeWidget {
    Q_OBJECT

public:
    explicit CustodyTable(const std::vector<CustodyStep>& steps, QWidget* parent = nullptr);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void FitColumns();

    int m_locationWidth = 0;  // that the longest path needs
};

}  // namespace quellbrook

#pragma once

#include <QHeaderView>

namespace quellbrook {

// The captions over the columns of a report: small, grey, with a hairline under the whole width.
class ReportHeader : public QHeaderView {
    Q_OBJECT

public:
    explicit ReportHeader(QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& place, int column) const override;
};

}  // namespace quellbrook

#pragma once

#include <QHeaderView>

namespace quellbrook {

// The column captions of a report: small and gray, with a hairline under the whole width.
class ReportHeader : public QHeaderView {
    Q_OBJECT

public:
    explicit ReportHeader(QWidget* parent);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void paintSection(QPainter* painter, const QRect& section, int column) const override;
};

}  // namespace quellbrook

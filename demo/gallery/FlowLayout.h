#pragma once

#include <QLayout>

#include <memory>
#include <vector>

namespace quellbrook::gallery {

// Lays out widgets from left to right at their own sizes, in several lines if necessary.
class FlowLayout : public QLayout {
    Q_OBJECT

public:
    FlowLayout(int gap, int lineGap);
    ~FlowLayout() override;

    void addItem(QLayoutItem* item) override;
    int count() const override;
    QLayoutItem* itemAt(int index) const override;
    QLayoutItem* takeAt(int index) override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override { return minimumSize(); }
    QSize minimumSize() const override;  // of the widest item
    void setGeometry(const QRect& rect) override;

private:
    // Calls assign(item, rectangle) for each item. Returns the total height.
    template <typename Assign>
    int Flow(int width, Assign&& assign) const;

    std::vector<std::unique_ptr<QLayoutItem>> m_items;
    int m_gap;
    int m_lineGap;
};

}  // namespace quellbrook::gallery

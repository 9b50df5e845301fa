#pragma once

#include "ui/controls/Control.h"

namespace quellbrook {

// The strip at the top of a page: the logo and a caption.
class FlatTitleBar : public Control {
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)

public:
    explicit FlatTitleBar(QWidget* parent = nullptr);
    std::string TypeName() const override { return "FlatTitleBar"; }

    const QString& Caption() const { return m_caption; }
    void SetCaption(const QString& caption);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_caption;
};

}  // namespace quellbrook

#pragma once

#include "ui/controls/Control.h"

namespace quellbrook {

// A solid block in a fixed color with a short caption in black or white, whichever has more contrast. Its width follows
// the caption.
class StatusTag : public Control {
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)

public:
    explicit StatusTag(QWidget* parent = nullptr);
    std::string TypeName() const override { return "Tag"; }

    const QString& Caption() const { return m_caption; }
    void SetCaption(const QString& caption);
    // 0xBBGGRR.
    int32_t Color() const { return m_color; }
    void SetColor(int32_t color);

    // The top, in twips of the parent, for a label of that height that aligns with the tag's text.
    float TextTop(float labelHeight) const;

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void FitToText();

    QString m_caption;
    int32_t m_color = 0x808080;
};

}  // namespace quellbrook

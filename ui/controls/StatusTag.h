#pragma once

#include "ui/controls/Control.h"

namespace quellbrook {

// A solid block in a fixed colour with a short caption in whichever of black and white stands out more. Its width
// follows the caption.
// Who asks what:
// - SearchResultRow, StoredItemView: Caption and Color, a width that follows the caption, TextTop for lblLocation
//   beside it.
// - SearchResultRow: no property "ForeColor", so that its text stays as it is on a highlighted row.
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

    // Top of a body-type label, in the parent's twips, whose text shares a line with the tag's.
    float TextTop() const;

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

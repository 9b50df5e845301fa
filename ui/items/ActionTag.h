#pragma once

#include "ui/controls/Control.h"

namespace quellbrook {

// A short bold caption on a solid block, set in from the control's left edge. A caption of two words that is too wide
// for the control is broken into two lines. The control keeps its width and follows the block's height.
class ActionTag : public Control {
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)

public:
    explicit ActionTag(QWidget* parent = nullptr);
    std::string TypeName() const override { return "Tag"; }

    const QString& Caption() const { return m_caption; }
    void SetCaption(const QString& caption);
    // 0xBBGGRR.
    int32_t Color() const { return m_color; }
    void SetColor(int32_t color);

    // The caption as it is painted, a line each.
    QStringList Lines() const;

protected:
    void Layout() override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void FitToText();

    QString m_caption;
    int32_t m_color = 0;
};

}  // namespace quellbrook

#pragma once

#include "ui/controls/Control.h"

namespace quellbrook {

// A short bold caption on a colored block, indented from the control's left edge. A caption that is too wide breaks
// into one line per word. The control keeps its width and gets the block's height.
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

    // The lines of the caption as painted.
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

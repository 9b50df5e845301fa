#pragma once

#include "ui/controls/Control.h"
#include "ui/style/Theme.h"

#include <optional>

namespace quellbrook {

class TextBlock;

// Plain text, never markup. A label with AutoSize has the width and height of its one-line text; with WordWrap as well,
// it keeps its width and has the height of the wrapped text. Text that does not fit, or that extends beyond the side of
// a parent, ends in an ellipsis, and a tooltip shows all of it. The font comes from the label's type unless setFont on
// the label or a parent overrides it. Contents margins, set before the caption, indent a one-line text.
class Label : public Control {
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
    Q_PROPERTY(QColor ForeColor READ ForeColor WRITE SetForeColor)

public:
    explicit Label(QWidget* parent = nullptr);
    std::string TypeName() const override { return "Label"; }

    const QString& Caption() const { return m_caption; }
    void SetCaption(const QString& caption);

    Theme::Type Type() const { return m_type; }
    void SetType(Theme::Type type);
    // A theme color or a fixed one; initially Text.
    void SetForeColor(Theme::Color color);
    void SetForeColor(const QColor& color);
    QColor ForeColor() const;

    // Whether the text is gray while the label or a parent is disabled; initially true.
    void SetDimsWhenDisabled(bool dims) { m_dimsWhenDisabled = dims; }
    void SetAutoSize(bool autoSize);
    void SetWordWrap(bool wrap);
    // Shows line breaks in the text as blanks.
    void SetOneLine(bool oneLine);
    void SetTextAlignment(Qt::Alignment alignment);

    QSize sizeHint() const override;
    int heightForWidth(int width) const override;
    bool hasHeightForWidth() const override { return m_wordWrap; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;
    void Layout() override;

    // The label without what its parents cut off at their sides.
    QRect ShownRect() const;

private:
    TextBlock Block(int wrapWidth) const;
    void FitToText();

    QString m_caption;
    Theme::Type m_type = Theme::Type::Body;
    Theme::Color m_themeColor = Theme::Color::Text;
    std::optional<QColor> m_fixedColor;
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignVCenter;
    bool m_autoSize = true;
    bool m_dimsWhenDisabled = true;
    bool m_wordWrap = false;
    bool m_oneLine = false;
};

}  // namespace quellbrook

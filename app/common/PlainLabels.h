#pragma once

#include <QColor>
#include <QFont>
#include <QLabel>

namespace quellbrook {

// Labels of the host's pages: plain text, never markup.

QFont SizedFont(int pixels, QFont::Weight weight);
// Wraps its text between words.
QLabel* MakeLabel(const QString& text, int pixels, QFont::Weight weight, QWidget* parent);
// Gray text, as in captions.
void MakeQuiet(QWidget* widget);
// The color of the text of a failure. It depends on the application's palette.
QColor FailureColor();
void SetColor(QWidget* label, const QColor& color);

// One line, elided at the end, with the whole text as a tooltip. Line ends and tabs are shown as blanks.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    ElidedLabel(const QString& text, int pixels, QFont::Weight weight, QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

// Wraps its text to the label's width, also within words.
class WrappedLabel : public QLabel {
    Q_OBJECT

public:
    WrappedLabel(const QString& text, int pixels, QFont::Weight weight, QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quellbrook

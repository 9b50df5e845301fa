#pragma once

#include <QFont>
#include <QLabel>

namespace quellbrook {

// The labels of the host's own pages: plain text, never markup, in the application's face.

QFont SizedFont(int pixels, QFont::Weight weight);
// Breaks its text at words.
QLabel* MakeLabel(const QString& text, int pixels, QFont::Weight weight, QWidget* parent);
// Grey, as captions are.
void MakeQuiet(QWidget* widget);

// One line that ends in an ellipsis where it is wider than its place. Line ends and tabs show as blanks.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    ElidedLabel(const QString& text, int pixels, QFont::Weight weight, QWidget* parent = nullptr);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

// As many lines as the text needs at the label's width, also of a word that is longer than a line.
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

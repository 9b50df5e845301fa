#pragma once

#include <QWidget>

#include <string>

namespace quellbrook {

// A barcode on the screen to hold a scanner to: black on a white ground in every palette, each bar a whole number of
// the screen's pixels wide, what it reads written under it.
class TestSymbol : public QWidget {
    Q_OBJECT

public:
    // A text that the symbology can't hold is Error 5.
    explicit TestSymbol(std::string text, QWidget* parent = nullptr);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string m_text;
    QString m_readable;
};

}  // namespace quellbrook

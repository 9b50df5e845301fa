#pragma once

#include <QWidget>

#include <string>

namespace quellbrook {

// A barcode to scan from the screen: black on white in every palette, with bars of whole device pixels and its text
// below.
class TestSymbol : public QWidget {
    Q_OBJECT

public:
    // Error 5 if the symbology cannot encode the text.
    explicit TestSymbol(std::string text, QWidget* parent = nullptr);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::string m_text;
    QString m_readable;
};

}  // namespace quellbrook

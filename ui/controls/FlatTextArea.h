#pragma once

#include "ui/controls/Control.h"

class QPlainTextEdit;

namespace quellbrook {

// A multi-line text field. Tab moves the focus; line ends are "\n".
class FlatTextArea : public Control {
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE SetText)

public:
    explicit FlatTextArea(QWidget* parent = nullptr);
    std::string TypeName() const override { return "FlatTextArea"; }

    QString Text() const;
    void SetText(const QString& text);
    void SetAccessibleCaption(const QString& name);
    QPlainTextEdit* Edit() const { return m_edit; }

signals:
    void Changed();

protected:
    void Layout() override;
    void paintEvent(QPaintEvent* event) override;

private:
    QPlainTextEdit* m_edit;
};

}  // namespace quellbrook

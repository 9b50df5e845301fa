#pragma once

#include "ui/controls/Control.h"

class QLineEdit;

namespace quellbrook {

// A one-line text field with a placeholder and an optional icon at its right end.
class FlatTextbox : public Control {
    Q_OBJECT
    Q_PROPERTY(QString Text READ Text WRITE SetText)
    Q_PROPERTY(QString Placeholder READ Placeholder WRITE SetPlaceholder)

public:
    explicit FlatTextbox(QWidget* parent = nullptr);
    std::string TypeName() const override { return "FlatTextbox"; }

    QString Text() const;
    void SetText(const QString& text);
    QString Placeholder() const;
    void SetPlaceholder(const QString& placeholder);
    void SetIcon(const QString& iconName);
    void SetPassword(bool password);  // shows dots
    void SelectAll();
    void SetAccessibleCaption(const QString& name);

signals:
    // 13 for both Enter keys, once while one is held.
    void KeyPressed(int keyCode);
    void Changed();

protected:
    void Layout() override;
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QLineEdit* m_edit;
    QString m_icon;
};

}  // namespace quellbrook

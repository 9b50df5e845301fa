#pragma once

#include "ui/controls/Control.h"

namespace quellbrook {

// Base class of buttons and links: a caption and an icon, activated by a left click, Space or either Enter key.
class Pressable : public Control {
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)

public:
    const QString& Caption() const { return m_caption; }
    // Also sets the accessible name, unless SetAccessibleCaption set another.
    void SetCaption(const QString& caption);
    void SetAccessibleCaption(const QString& name);
    const QString& IconName() const { return m_icon; }
    void SetIcon(const QString& iconName, int size = 18);  // size in pixels

    // Acts as a click; does nothing while disabled.
    void Click();

signals:
    void Clicked();

protected:
    explicit Pressable(QWidget* parent);

    // Called after the caption or the icon has changed.
    virtual void FitToText() {}

    bool IsHovered() const { return m_hovered; }
    bool IsPressed() const { return m_pressed && m_hovered; }
    int IconSize() const { return m_icon.isEmpty() ? 0 : m_iconSize; }

    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void SetState(bool hovered, bool pressed);

    QString m_caption;
    QString m_icon;
    int m_iconSize = 18;
    bool m_hasAccessibleCaption = false;
    bool m_hovered = false;
    bool m_pressed = false;
};

}  // namespace quellbrook

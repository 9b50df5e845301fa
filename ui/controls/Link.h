#pragma once

#include "ui/controls/Control.h"

namespace quellbrook {

// A caption, with an icon before it if one is set, that acts at a click, at Space and at Enter. Sizes itself.
// Underlined while the pointer is over it.
// Who asks what:
// - EvidenceExplorer: off without the right.
// - CategorizedSearchResults (lnkMoreResults): width by caption, its Left and Bottom as the place of a menu.
// - StoredItemView, CartView, SubmitEvidenceView, frmModal: lnkClose, quiet, named "Close".
// - StoredItemView (lnkOpenInTessarine): an icon before the caption.
// - StoredItemMenu: lnkMenu(0) to (4), width by caption; whether one is enabled decides if it takes room.
// - SubmitEvidenceView (imgSelectAll): an icon without a caption that changes, a tooltip, the hand pointer.
// - SetupLocationsWizard (lnkSelectAll): the width follows a changed caption.
class Link : public Control {
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)

public:
    explicit Link(QWidget* parent = nullptr);
    std::string TypeName() const override { return "Link"; }

    const QString& Caption() const { return m_caption; }
    void SetCaption(const QString& caption);  // also the accessible name, unless SetAccessibleCaption gave another
    void SetAccessibleCaption(const QString& name);
    void SetIcon(const QString& iconName, int size = 18);
    void SetQuiet(bool quiet);  // grey instead of the link colour: closing crosses

    QSize sizeHint() const override;
    void Click();

signals:
    void Clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void FitToText();

    QString m_caption;
    QString m_icon;
    int m_iconSize = 18;
    bool m_quiet = false;
    bool m_hovered = false;
    bool m_pressed = false;
    bool m_hasAccessibleCaption = false;
};

}  // namespace quellbrook

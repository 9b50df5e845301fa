#pragma once

#include "ui/controls/Control.h"

namespace quellbrook {

// A push button. Inverted: border and dark text instead of the strong ground. Acts at a click, Space and Enter.
// Who asks what:
// - EvidenceExplorer, SubmitEvidenceView: off without the right (btnAddEvidence) or with nothing ticked (btnSubmit).
// - CartView: btnCancel Inverted; btnTransfer keeps its size while its caption changes.
// - SetupLocationsWizard: btnBack and btnNext come and go, btnNext changes its caption.
// - frmAddEditLocation, frmFinalDisposition, InfoBar: Clicked.
// - frmModal: width by caption (sizeHint), the answer in Tag, members of an array.
class FlatButton : public Control {
    Q_OBJECT
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
    Q_PROPERTY(bool Inverted READ Inverted WRITE SetInverted)

public:
    explicit FlatButton(QWidget* parent = nullptr);
    std::string TypeName() const override { return "FlatButton"; }

    const QString& Caption() const { return m_caption; }
    void SetCaption(const QString& caption);
    bool Inverted() const { return m_inverted; }
    void SetInverted(bool inverted);
    void SetIcon(const QString& iconName);

    QSize sizeHint() const override;  // the caption with the button's margins
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
    QString m_caption;
    QString m_icon;
    bool m_inverted = false;
    bool m_hovered = false;
    bool m_pressed = false;
};

}  // namespace quellbrook

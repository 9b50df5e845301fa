#pragma once

#include "ui/common/Dialogs.h"
#include "ui/common/ModalLayout.h"
#include "ui/common/ModalStyle.h"

#include <string>
#include <vector>

class QScrollArea;

namespace quellbrook {

class FlatButton;
class FontIcon;
class GroupBox;
class Label;
class Line;
class Link;

// The styled message box, for a single use: set the texts and the style, show it with ShowFormCentered, read Result.
class frmModal : public ModuleForm {
    Q_OBJECT

public:
    explicit frmModal(QWidget* parent = nullptr);

    void SetPrompt(const std::string& prompt) { m_prompt = prompt; }
    void SetButtons(int32_t style) { m_style = style; }
    void SetTitle(const std::string& title) { m_title = title; }

    // The number of the button or close control that closed the form; 1 before that.
    int32_t Result() const { return m_result; }

protected:
    void OnLoad() override;
    void OnCancel() override;
    bool CancelsOnEscape() const override { return ModalCancelsOnEscape(m_style); }
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void BuildStrips();
    void BuildMessage();
    void AddButton(const ModalButton& button);
    void FinishWith(int32_t result);
    bool Answer(int32_t result);
    void MoveFocus(int step);
    void SetPicture();
    void Announce();
    void Measure(ModalLayout& layout) const;
    void Arrange();
    void Place(const ModalLayout& layout);
    void PlaceMessage(const ModalLayout& layout);
    void LetMessageScroll(const ModalLayout& layout);

    std::string m_prompt;
    std::string m_title;
    int32_t m_style = 0;
    int32_t m_result = 1;
    int32_t m_cancelResult = 1;
    bool m_arranging = false;

    GroupBox* m_border;
    GroupBox* m_titlebar;
    Label* m_titleLabel;
    Link* m_close;
    FontIcon* m_icon = nullptr;
    Label* m_message;
    QScrollArea* m_scroll = nullptr;  // only for a message that is higher than the screen
    GroupBox* m_buttonStrip;
    Line* m_stripLine;
    std::vector<FlatButton*> m_buttons;
};

}  // namespace quellbrook

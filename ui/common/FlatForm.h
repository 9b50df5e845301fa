#pragma once

#include "ui/common/Dialogs.h"

namespace quellbrook {

class Control;
class FlatButton;
class GroupBox;
class Label;
class Line;

// A dialog with its own border: a title bar at the top, fields below it, and a strip with the buttons Cancel and Save
// at the bottom. All sizes are in pixels.
class FlatForm : public ModuleForm {
    Q_OBJECT

protected:
    static constexpr int Inset = 24, CaptionToField = 22;

    FlatForm(const QSize& size, QWidget* parent);

    // Also the title of the window.
    void SetTitle(const QString& title);
    // Before the title.
    void SetTitleIcon(const char* iconName);
    // Puts the field below its caption, as wide as the form without its insets.
    template <typename Field>
    Field* AddField(Field* field, const char* name, const char* labelName, const char* caption, int top, int height) {
        field->setObjectName(name);
        field->SetAccessibleCaption(caption);
        PlaceField(*field, labelName, caption, top, height);
        return field;
    }
    // Call it after adding the fields, so that the buttons come after them in the tab order.
    void AddButtons();

    virtual void btnSave_Click() = 0;

    void resizeEvent(QResizeEvent* event) override;

private:
    void BuildTitlebar();
    void PlaceField(Control& field, const char* labelName, const char* caption, int top, int height);
    FlatButton* AddButton(const char* name, const char* caption);
    void LayoutFrame();

    GroupBox* m_border;
    GroupBox* m_titlebar = nullptr;
    Label* m_title = nullptr;
    GroupBox* m_buttons = nullptr;
    Line* m_buttonRule = nullptr;
    FlatButton* m_cancel = nullptr;
    FlatButton* m_save = nullptr;
};

}  // namespace quellbrook

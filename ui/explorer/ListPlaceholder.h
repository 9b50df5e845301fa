#pragma once

#include "ui/controls/GroupBox.h"

namespace quellbrook {

class Label;

// Covers a control in a form designer and shows the control's name. Hidden at run time.
class ListPlaceholder : public GroupBox {
    Q_OBJECT

public:
    explicit ListPlaceholder(Control* owner);

private:
    void ShowName();

    Control* m_owner;
    Label* m_name;
};

}  // namespace quellbrook

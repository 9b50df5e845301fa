#pragma once

#include "ui/controls/GroupBox.h"

namespace quellbrook {

class Label;

// Covers a control inside a form designer and shows the control's name there; never seen at run time.
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

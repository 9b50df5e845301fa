#include "ui/explorer/ListPlaceholder.h"

#include "ui/controls/Label.h"
#include "ui/controls/View.h"
#include "ui/platform/Guard.h"

namespace quellbrook {

ListPlaceholder::ListPlaceholder(Control* owner) : GroupBox(owner), m_owner(owner), m_name(new Label(this)) {
    setObjectName("picPlaceholder");
    m_name->setObjectName("lblPlaceholder");
    SetBackColor(Theme::Color::Window);
    setVisible(IsInsideDesigner());
    if (!IsInsideDesigner()) return;
    connect(owner, &QObject::objectNameChanged, this, [this] { Guard([this] { ShowName(); }); });
    ShowName();
}

void ListPlaceholder::ShowName() {
    m_name->SetCaption(m_owner->objectName());
    m_name->Move(0, 0);
    SetWidth(m_name->Width());
    SetHeight(m_name->Height());
}

}  // namespace quellbrook

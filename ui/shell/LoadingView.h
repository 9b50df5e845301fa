#pragma once

#include "ui/controls/View.h"

namespace quellbrook {

class FontIcon;
class GroupBox;
class Label;

// What stands in the shell while a long operation runs.
class LoadingView : public View {
    Q_OBJECT

public:
    explicit LoadingView(QWidget* parent = nullptr);
    std::string TypeName() const override { return "LoadingView"; }

protected:
    void Layout() override;

private:
    Label* AddLine(const char* name, const char* caption, float top);

    GroupBox* m_group;
    FontIcon* m_ring;
};

}  // namespace quellbrook

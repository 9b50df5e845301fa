#pragma once

#include "ui/controls/View.h"

namespace quellbrook {

class StatePanel;

// The view that the shell shows while a long operation runs.
class LoadingView : public View {
    Q_OBJECT

public:
    explicit LoadingView(QWidget* parent = nullptr);
    std::string TypeName() const override { return "LoadingView"; }

protected:
    void Layout() override;

private:
    StatePanel* m_group;
};

}  // namespace quellbrook

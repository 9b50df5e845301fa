#pragma once

#include "ui/controls/Pressable.h"
#include "ui/style/Theme.h"

namespace quellbrook {

// A caption with an optional icon before it, sized to both, or an icon alone, centered. Underlined while the pointer is
// over it. The caption U+2715 is drawn as a closing cross.
class Link : public Pressable {
    Q_OBJECT

public:
    explicit Link(QWidget* parent = nullptr);
    std::string TypeName() const override { return "Link"; }

    void SetQuiet(bool quiet);       // gray instead of the link color
    void SetType(Theme::Type type);  // initially LinkText

    QSize sizeHint() const override;

protected:
    void FitToText() override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    bool m_quiet = false;
    Theme::Type m_type = Theme::Type::LinkText;
};

}  // namespace quellbrook

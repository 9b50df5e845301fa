#pragma once

#include "ui/explorer/ActionMenuRules.h"

#include <QMenu>

#include <array>

namespace quellbrook {

// The context menu that the explorer's panes share.
class ActionMenu : public QMenu {
    Q_OBJECT

public:
    explicit ActionMenu(QWidget* parent = nullptr);

    QAction* Entry(MenuEntry entry) const { return m_entries[static_cast<size_t>(entry)]; }
    void Apply(const ActionMenuState& state);

private:
    std::array<QAction*, MenuEntryCount> m_entries{};
};

}  // namespace quellbrook

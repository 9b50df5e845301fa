#pragma once

#include "app/ComponentLifetime.h"
#include "app/Department.h"
#include "app/MainWindow.h"
#include "base/Environment.h"
#include "demo/tour/Scenario.h"
#include "tests/desktop/explorer/ExplorerScreen.h"

#include <gtest/gtest.h>

#include <memory>

namespace quellbrook::testing {

// The program on a copy of the sample department. It has two more locations in storage: "Long Shelf", with the items
// LONG-001 to LONG-400, and "Empty Shelf".
class RunningProgram {
protected:
    RunningProgram();
    ~RunningProgram();

    ComponentLifetime m_component;
    EnvironmentScope m_environment;
    Department m_department;
    std::unique_ptr<MainWindow> m_window;
    TourPlayer m_program;
};

// Plans moves in the explorer on a real X server after logging in as the first account of the sample. The moves are
// played at the end of the test, with events of the mouse and the keyboard.
class ExplorerTest : public ::testing::Test, RunningProgram, protected Scenario {
protected:
    ExplorerTest();
    void TearDown() override;

    using Button = tour::InputDriver::Button;
    using Modifier = tour::InputDriver::Modifier;

    const std::string& DatabasePath() const { return m_department.path; }

    // See Seen, SeenMenu and SeenDialog.
    void ExpectSeen(const QString& expected);
    void ExpectMenu(const QString& expected);
    void ExpectDialog(const QString& expected);

    void ClickRow(const QString& name, Modifier held = Modifier::None, Button button = Button::Left);
    void RightClickRow(const QString& name) { ClickRow(name, Modifier::None, Button::Right); }
    void DoubleClickRow(const QString& name);
    // The first node of the tree with this name. It must be visible.
    void ClickNode(const QString& name, Button button = Button::Left);
    void CloseMenu();
    void SearchFor(const QString& text);
    // Waits for the item's page, and returns by its cross.
    void ExpectItem(const QString& identifier);
    void CloseItem();
};

}  // namespace quellbrook::testing

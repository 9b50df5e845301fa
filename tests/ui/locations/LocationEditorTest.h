#pragma once

#include "data/StorageLocationStatic.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/TestLocations.h"
#include "tests/support/ui/QtTestMain.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/FlatButton.h"
#include "ui/controls/FlatDropdown.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/controls/Label.h"
#include "ui/locations/LocationEditor.h"
#include "ui/locations/LocationPicker.h"
#include "ui/platform/Strings.h"

#include <QComboBox>

#include <gmock/gmock.h>

#include <memory>

namespace quellbrook::testing {

class LocationEditorTest : public DatabaseTest {
protected:
    using Types = StorageLocationTypes;

    LocationEditorTest() {
        m_window.resize(800, 600);
        ShowActive(m_window);
        GetDialogs().SetParent(std::make_shared<WindowReference>(&m_window));
    }
    ~LocationEditorTest() override { GetDialogs().SetParent(nullptr); }

    void Edit(int32_t id) {
        m_form = std::make_unique<frmAddEditLocation>();
        m_form->SetLocation(m_tree.Find(id));
        Open();
    }
    void Add(const StorageLocationRef& parent) {
        m_form = std::make_unique<frmAddEditLocation>();
        m_form->SetParent(parent);
        Open();
    }
    void Open() {
        m_form->EnsureLoaded();
        ShowActive(*m_form);
    }

    FlatTextbox* NameField() const { return Find<FlatTextbox>(*m_form, "txtName"); }
    LocationPicker* Container() const { return Find<LocationPicker>(*m_form, "cboLocation"); }
    FlatDropdown* Category() const { return Find<FlatDropdown>(*m_form, "cboType"); }
    std::string Title() const { return ToUtf8(Find<Label>(*m_form, "lblTitle")->Caption()); }
    void SetName(const QString& name) const { NameField()->SetText(name); }
    std::string ContainerText() const { return ToUtf8(Container()->findChild<QComboBox*>()->currentText()); }
    void Key(Qt::Key key) const { SendKey(*m_form, key); }
    void Choose(Types type) const {
        for (int i = 0; i < Category()->Count(); ++i)
            if (Category()->ItemData(i) == static_cast<int32_t>(type)) Category()->SetListIndex(i);
    }
    void Press(const char* button) const { Find<FlatButton>(*m_form, button)->Click(); }
    std::vector<std::string> Categories() const {
        std::vector<std::string> texts;
        for (int i = 0; i < Category()->Count(); ++i) texts.push_back(ToUtf8(Category()->ItemText(i)));
        return texts;
    }
    int32_t ContainerId() const {
        const StorageLocationRef container = Container()->SelectedLocation();
        return container ? container->ID() : 0;
    }

    void ExpectSaved() const {
        EXPECT_THAT(m_screen.Messages(), ::testing::IsEmpty());
        EXPECT_FALSE(m_form->isVisible());
        EXPECT_FALSE(m_form->Canceled());
    }
    // The form stays open.
    void ExpectError(const std::string& text) {
        EXPECT_EQ(m_screen.TakeMessages(), OneMessage(text, 16, "Error"));
        EXPECT_TRUE(m_form->isVisible());
        EXPECT_TRUE(m_form->Canceled());
    }

    TestLocations m_tree{m_database};
    QWidget m_window;
    std::unique_ptr<frmAddEditLocation> m_form;
};

}  // namespace quellbrook::testing

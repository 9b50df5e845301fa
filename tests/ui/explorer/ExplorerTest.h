#pragma once

#include "base/MessageHook.h"
#include "core/Stores.h"
#include "data/StorageLocationStatic.h"
#include "tests/support/DatabaseTest.h"
#include "tests/support/ManualTimer.h"
#include "tests/support/ui/OpenMenu.h"
#include "tests/support/ui/QtTestMain.h"
#include "tests/support/ui/Widgets.h"
#include "ui/controls/View.h"
#include "ui/platform/Guard.h"
#include "ui/platform/MousePointer.h"
#include "ui/platform/WidgetMessageHook.h"

#include <QMenu>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace quellbrook::testing {

// A department to browse. Unexpected errors in handlers fail the test unless it fetches them.
class ExplorerTest : public DatabaseTest {
protected:
    ExplorerTest() {
        m_environment->makeMessageHook = MakeWidgetMessageHook;
        m_environment->reportUnexpected = [this](const Error& error) { m_unexpected.push_back(error.Description()); };
    }
    ~ExplorerTest() override {
        ServeEvents();
        SetInsideDesigner(false);
        SetMousePointer(MousePointer::Default);
        for (const std::string& description : m_unexpected) ADD_FAILURE() << "Unexpected error: " << description;
    }

    // The location document is read again at its next use.
    int32_t AddLocation(const std::string& name, int32_t parent = 0, bool enabled = true) {
        const int32_t id = m_database.AddLocation(name, StorageLocationTypes::Internal, parent, enabled);
        HostLocationData::Discard();
        return id;
    }

    int32_t AddItem(const std::string& displayId, int32_t location, const TaggedValue& category = Null()) {
        const int32_t item =
            m_database.AddProperty({.PropertyID = displayId, .Description = "a blue bicycle", .CategoryNo = category});
        m_database.AddCustodyRow(StoredItemTypes::Property, item, location);
        return item;
    }

    int32_t AddVehicle(const std::string& tag, int32_t location) {
        const int32_t vehicle = m_database.AddVehicle({.RegNumber = tag, .RegStateCode = "OR"});
        m_database.AddCustodyRow(StoredItemTypes::vehicle, vehicle, location);
        return vehicle;
    }

    static StorageLocationRef LocationOf(int32_t id) { return GetStorageLocationStatic().FindByID(id); }
    static StorageLocationRef Root(StorageLocationTypes type) { return GetStorageLocationStatic().GetRoot(type); }
    static StoredItemRef ItemOf(int32_t id, int32_t location) {
        const auto items = LocationOf(location)->StoredItems();
        for (int32_t index = 0; index < items->Count(); ++index)
            if (items->ItemAt(index)->ID() == id) return items->ItemAt(index);
        return nullptr;
    }

    std::vector<std::string> TakeUnexpected() { return std::exchange(m_unexpected, {}); }

    ManualTimers m_timers{m_environment};

private:
    std::vector<std::string> m_unexpected;
};

}  // namespace quellbrook::testing

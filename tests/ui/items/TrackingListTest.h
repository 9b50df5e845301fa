#pragma once

#include "ui/items/TrackingList.h"

#include "base/Environment.h"
#include "tests/support/FaultInjectingEngine.h"
#include "tests/support/RaisedBy.h"
#include "tests/support/ui/SmallDepartment.h"
#include "tests/support/ui/Widgets.h"
#include "ui/common/StatePanel.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/FlatScrollBar.h"
#include "ui/controls/FlatTextbox.h"
#include "ui/controls/GroupBox.h"
#include "ui/controls/Label.h"
#include "ui/controls/View.h"
#include "ui/items/ActionTag.h"
#include "ui/items/TrackingResult.h"
#include "ui/platform/Twips.h"
#include "ui/style/Theme.h"

#include <QMenu>
#include <QScrollBar>
#include <QTimer>

namespace quellbrook::testing {

inline constexpr int RowPixels = 76;

class TrackingListTest : public SmallDepartment {
protected:
    TrackingListTest() {
        m_window.resize(900, 700);
        m_list = new TrackingList(&m_window);
        m_list->setObjectName("tracking");
        m_other = new FlatTextbox(&m_window);
        m_other->setObjectName("other");
        m_other->Move(0, ToTwips(620), ToTwips(100), ToTwips(36));
        Resize(800, 400);
        ShowActive(m_window);
    }

    void Resize(int width, int height) { m_list->Move(0, 0, ToTwips(width), ToTwips(height)); }
    void Hold(int keyCode) {
        m_environment->isKeyDown = [keyCode](int key) { return key == keyCode; };
    }

    std::shared_ptr<const TrackingRecordList> Records(int count, const TaggedValue& location = Null()) {
        auto records = std::make_shared<TrackingRecordList>();
        for (int i = 0; i < count; ++i) {
            auto record = std::make_shared<TrackingRecord>();
            record->SetRow(Row::Of({{"SeqNo", count - i},
                                    {"ReceivedBy", Null()},
                                    {"ReceivedFrom", Null()},
                                    {"DateReceived", DateTime::FromParts({2026, 1, 2, 3, 4, 5, 0})},
                                    {"CustodyReasonNo", Null()},
                                    {"StorageLocNo", location}}));
            if (!records->empty()) records->back()->SetPrevious(record);
            records->push_back(record);
        }
        return records;
    }

    // Returns when every record has its row.
    void Show(const std::shared_ptr<const TrackingRecordList>& records) {
        m_list->SetRecords(records);
        while (m_list->Rows().size() < records->size()) ServeEvents();
    }

    FlatScrollBar* Bar() { return Find<FlatScrollBar>(*m_list, "vertScroll"); }
    GroupBox* Container() { return Find<GroupBox>(*m_list, "picContainer"); }
    StatePanel* Empty() { return Find<StatePanel>(*m_list, "picNoResults"); }
    StatePanel* Denied() { return Find<StatePanel>(*m_list, "picNoAccess"); }
    TrackingResult& Row(size_t i) { return *m_list->Rows().at(i); }
    int ShownRows() {
        int shown = 0;
        for (const TrackingResult* row : m_list->Rows()) shown += row->IsShown();
        return shown;
    }
    QPoint CenterOfRow(int i) { return QPoint(300, i * RowPixels + RowPixels / 2); }

    QWidget m_window;
    TrackingList* m_list = nullptr;
    FlatTextbox* m_other = nullptr;
};

}  // namespace quellbrook::testing

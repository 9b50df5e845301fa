#pragma once

#include "data/CustodyRecords.h"
#include "ui/controls/Control.h"
#include "ui/controls/Label.h"

#include <memory>

namespace quellbrook {

class ActionTag;
class Line;

// One step of a chain of custody: what was done and when, who transferred the item to whom, where it went and why.
// Accepts the focus; the focused row is the selected row of the list.
class TrackingResult : public Control {
    Q_OBJECT
    Q_PROPERTY(bool Focused READ hasFocus)

public:
    static constexpr float RowHeight = 1140;  // twips

    explicit TrackingResult(QWidget* parent = nullptr);
    std::string TypeName() const override { return "TrackingResult"; }

    // Error 91 for null. Loads the fields that the record has not loaded yet.
    void SetItem(const std::shared_ptr<TrackingRecord>& record);
    // Null before the first SetItem.
    const std::shared_ptr<TrackingRecord>& Item() const { return m_record; }

    // Whether the row is a tab stop. The mouse and the arrow keys of the list always reach it.
    void SetTabStop(bool tabStop);

signals:
    void GotFocus();

protected:
    void Layout() override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    Label* AddLabel(const char* name, const char* caption, float left, float top, bool bold);
    void ShowDate(const TaggedValue& dateReceived);
    static void ShowPerson(Label& label, const std::string& name);
    void PlaceTexts();
    void PlaceInLine(Label& person, Label& right) const;

    std::shared_ptr<TrackingRecord> m_record;
    ActionTag* m_status = nullptr;
    Label* m_date = nullptr;
    Label* m_time = nullptr;
    Label* m_from = nullptr;
    Label* m_to = nullptr;
    Label* m_location = nullptr;
    Label* m_reason = nullptr;
    Line* m_separator = nullptr;
};

}  // namespace quellbrook

#include "ui/items/FinalDisposition.h"

#include "base/Screen.h"
#include "host/CodeTableLookup.h"
#include "ui/common/ViewHelpers.h"
#include "ui/controls/FlatTextArea.h"
#include "ui/controls/TessarineDropdown.h"
#include "ui/platform/Strings.h"
#include "ui/style/Theme.h"

#include <QPointer>

namespace quellbrook {

namespace {

// Pixels.
constexpr int FormWidth = 480, FormHeight = 368;
constexpr int DispositionTop = 60, NotesTop = 138, NotesHeight = 112;

}  // namespace

frmFinalDisposition::frmFinalDisposition(QWidget* parent) : FlatForm(QSize(FormWidth, FormHeight), parent) {
    SetTitle("Final Disposition Information");
    m_disposition = AddField(new TessarineDropdown(this), "dispositionField", "Label5", "Final disposition",
                             DispositionTop, Theme::FieldHeight);
    m_disposition->SetTableNumber(CodeTable::FinalDispositionStatus);
    m_notes = AddField(new FlatTextArea(this), "notesField", "Label6", "Comments/Notes", NotesTop, NotesHeight);
    AddButtons();
}

void frmFinalDisposition::btnSave_Click() {
    const TaggedValue status = m_disposition->Value();
    if (status.HasNoValue()) {
        const QPointer<QWidget> field(m_disposition);
        ShowMessage("Please specify the final disposition status for this evidence.", MessageStyle::Critical,
                    "Missing field");
        if (field) TrySetFocus(field);
        return;
    }
    auto result = std::make_shared<FinalDispositionData>();
    result->FinalDisposition = ToInt32(status);
    result->Notes = ToUtf8(m_notes->Text().replace("\n", "\r\n"));
    m_result = result;
    hide();
}

std::shared_ptr<FinalDispositionData> Dialogs::GetFinalDisposition() {
    frmFinalDisposition form;
    ShowForm(form);
    return form.Result();
}

}  // namespace quellbrook

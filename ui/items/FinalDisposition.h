#pragma once

#include "data/TransferData.h"
#include "ui/common/FlatForm.h"

namespace quellbrook {

class FlatTextArea;
class TessarineDropdown;

// The dialog that asks for the final disposition of evidence: a status, which is required, and notes. For a single use:
// show it with Dialogs::ShowForm, then read Canceled and Result.
class frmFinalDisposition : public FlatForm {
    Q_OBJECT

public:
    explicit frmFinalDisposition(QWidget* parent = nullptr);

    bool Canceled() const { return !m_result; }
    // Null until the user has saved. Line ends of the notes are CRLF.
    const std::shared_ptr<FinalDispositionData>& Result() const { return m_result; }

protected:
    void btnSave_Click() override;

private:
    std::shared_ptr<FinalDispositionData> m_result;
    TessarineDropdown* m_disposition;
    FlatTextArea* m_notes;
};

}  // namespace quellbrook

#include "demo/tour/IntakeScenario.h"

#include "demo/tour/Scenario.h"

#include <QApplication>

namespace quellbrook {

namespace {

using namespace tour;

const QString incident = QStringLiteral("2026-0431");
const QString phone = QStringLiteral("2026-0431-03");
const QString car = QStringLiteral("LVN2077 (OR)");
const QString location = QStringLiteral("Impound Lot");
const QString note = QStringLiteral("Court order 26-117.");

// Counts the items whose current custody row is the first one, at that location.
constexpr const char* countCheckedIn =
    "SELECT COUNT(*) AS N FROM (SELECT t.StorageLocNo FROM Property i INNER JOIN PropertyTracking t ON t.PropertyNo = "
    "i.PropertyNo AND t.SeqNo = i.CurrTrackSeq WHERE i.PropertyID LIKE '2026-0431-%' AND t.SeqNo = 1 UNION ALL SELECT "
    "t.StorageLocNo FROM Vehicle i INNER JOIN VehicleTracking t ON t.VehicleNo = i.VehicleNo AND t.SeqNo = "
    "i.CurrTrackSeq WHERE i.RegNumber = 'LVN2077' AND t.SeqNo = 1) AS b INNER JOIN StorageLocation s ON s.IdNo = "
    "b.StorageLocNo WHERE s.Name = 'Impound Lot'";

constexpr const char* countDisposed =
    "SELECT COUNT(*) AS N FROM (SELECT DisposalNote FROM Property WHERE PropertyID = '2026-0431-03' AND "
    "HasFinalDisposition = 1 AND CurrStatusNo = 1 UNION ALL SELECT DisposalNote FROM Vehicle WHERE RegNumber = "
    "'LVN2077' AND HasFinalDisposition = 1 AND CurrStatusNo = 1) AS b WHERE b.DisposalNote = 'Court order 26-117.'";

class IntakeScenario : Scenario {
public:
    explicit IntakeScenario(TourPlayer& player) : Scenario(player) {}

    void Plan() {
        CheckIn();
        SignIn();
        Dispose();
    }

private:
    void CheckIn() {
        m_player.Step("item-closed");
        Click("the cross", "itemView/lnkClose");
        m_player.Step("check-in");
        Click("the button Add Evidence", "explorer/btnAddEvidence");
        ExpectText("The title", "submitNewEvidence/lblTitle", "Check in New Evidence");
        m_player.Step("check-in-found");
        PickByMouse("submitNewEvidence/cboFilter", "Incident ID");
        Click("the number", "submitNewEvidence/search");
        m_player.Type(incident);
        Click("the button Search", "submitNewEvidence/btnSearch");
        ExpectText("The number of items ticked", "submitNewEvidence/lblSelectedCount", "0 items selected");
        m_player.Step("check-in-ticked");
        Click("the mark below the list", "submitNewEvidence/imgSelectAll");
        ExpectText("The number of items ticked", "submitNewEvidence/lblSelectedCount", "8 items selected");
    }

    void SignIn() {
        m_player.Step("form-check-in");
        Click("the button Submit into Evidence", "submitNewEvidence/btnSubmit");
        ExpectText("The form's title", "cart/lblTitle", "Sign In Evidence");
        ExpectText("The number of items", "cart/lblItemCount", " (8)");
        FillForm(Analyst, Technician, location, "Initial storage");
        Transfer("checked-in", 8);
        ExpectStored("Items that the database has in their first location", countCheckedIn, "8");
        m_player.Step("new-evidence");
        OpenLocation({location});
    }

    void Dispose() {
        SelectRows("new-evidence-selected", {phone, car});
        ChooseFromMenu("menu-dispose", phone, "Dispose 2 items", "batch-dispose");
        ExpectText("The info bar", "infobar/lblSelected", "2 items selected for disposal");
        m_player.Step("form-dispose");
        Click("the button Finish", "infobar/btnComplete");
        ExpectText("The form's title", "cart/lblTitle", "Dispose Evidence");
        FillForm(Analyst, Technician, "Destroyed", "Court order");
        m_player.Step("final-disposition");
        Click("the button Dispose", "cart/btnTransfer");
        ExpectText("The dialog", "grpTitlebar/lblTitle", "Final Disposition Information");
        PickByMouse("dispositionField", "Destroyed");
        Click("the notes", "notesField");
        m_player.Type(note);
        m_player.Step("disposed");
        Click("the button Save", "btnSave");
        ExpectText("The toast", "toastMessage/lblMessage", "Successfully transferred 2 items");
        ExpectStored("Items with this status and note in the database", countDisposed, "2");
    }

    void Transfer(const QString& stepName, int items) {
        m_player.Step(stepName);
        Click("the button", "cart/btnTransfer");
        ExpectText("The toast", "toastMessage/lblMessage",
                   QStringLiteral("Successfully transferred %1 items").arg(items));
    }
};

}  // namespace

void PlanIntakeScenario(TourPlayer& player) { IntakeScenario(player).Plan(); }

}  // namespace quellbrook

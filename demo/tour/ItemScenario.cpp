#include "demo/tour/ItemScenario.h"

#include "base/Text.h"
#include "demo/tour/Scenario.h"

#include <QAbstractItemView>

namespace quellbrook {

namespace {

using namespace tour;

const QString cash = QStringLiteral("2026-0431-06");
const QString note = QStringLiteral("Returned by order 26-204.");

// One row of the chain as it is stored. Add the number of the row.
constexpr const char* stepOfCash =
    "SELECT f.LastName || ' to ' || b.LastName || ' at ' || s.Name || ' for ' || c.Description AS Step FROM "
    "PropertyTracking t INNER JOIN Property p ON p.PropertyNo = t.PropertyNo INNER JOIN Person f ON f.PersonNo = "
    "t.ReceivedFrom INNER JOIN Person b ON b.PersonNo = t.ReceivedBy INNER JOIN StorageLocation s ON s.IdNo = "
    "t.StorageLocNo INNER JOIN CodeTable c ON c.TableNumber = 38 AND c.Code = t.CustodyReasonNo WHERE p.PropertyID = "
    "'2026-0431-06' AND t.SeqNo = ";

constexpr const char* rowsOfCash =
    "SELECT COUNT(*) AS N FROM PropertyTracking t INNER JOIN Property p ON p.PropertyNo = t.PropertyNo WHERE "
    "p.PropertyID = '2026-0431-06' AND t.DateReceived IS NOT NULL";

constexpr const char* stateOfCash =
    "SELECT CurrTrackSeq || ', ' || HasFinalDisposition || ', ' || d.Description || ', ' || DisposalNote AS State FROM "
    "Property p INNER JOIN CodeTable d ON d.Code = p.CurrStatusNo AND d.Description = 'Returned to Owner' WHERE "
    "p.PropertyID = '2026-0431-06'";

class ItemScenario : Scenario {
public:
    explicit ItemScenario(TourPlayer& player) : Scenario(player) {}

    void Plan() {
        Open();
        Undo();
        SignOut();
        SignIn();
        MoveItem();
        Dispose();
        ReadChain();
    }

private:
    void Open() {
        m_player.Step("item-details");
        m_player.DoubleClick("the row " + cash, [] {
            QAbstractItemView* view = FindView(QStringLiteral("explorer/ItemPane"));
            return SpotOf(view, FindRow(view, cash));
        });
        ExpectText("The item opened", "itemView/lblID", cash);
        ExpectText("Its category", "propertyDetails/lblCategory", "Currency");
    }

    // Begins a batch with the item by a link of its page.
    void Begin(const QString& stepName, const QString& link, const QString& status) {
        m_player.Step(stepName);
        m_player.Click("the link " + link, [link] { return SpotOf(ItemLink(link)); });
        ExpectText("What is pending", "itemView/lblStatus", status);
    }

    void Undo() {
        Begin("item-pending", "SIGN THIS ITEM OUT", "SIGN OUT PENDING");
        ExpectText("The sentence", "itemView/lblMessage", "This item is in your current sign-out batch.");
        ExpectText("The info bar", "infobar/lblSelected", "1 item selected for signing out of storage");
        m_player.Step("item-undo");
        Click("the link UNDO", "itemView/lnkUndo");
        ExpectText("The question", "lblMessage",
                   "Are you sure you want to remove this item from the current evidence transfer batch?");
        m_player.Step("item-undone");
        m_player.Press("y");
        m_player.Wait("The links are back", [] { return ItemLink(QStringLiteral("SIGN THIS ITEM OUT")) != nullptr; });
    }

    void Complete(const QString& stepName, const QString& title, const Officer& from, const Officer& by,
                  const QString& destination, const QString& reason) {
        m_player.Step(stepName + "-form");
        Click("the button Finish", "infobar/btnComplete");
        ExpectText("The form's title", "cart/lblTitle", title);
        FillForm(from, by, destination, reason);
        m_player.Step(stepName);
        Click("the button", "cart/btnTransfer");
    }

    void ExpectPlace(const QString& status, const QString& location) {
        ExpectText("The toast", "toastMessage/lblMessage", "Successfully transferred 1 item");
        ExpectText("The status of the item", "itemView/picTitleArea/tagStatus", status);
        ExpectText("Where the item is", "itemView/lblLocation", location);
    }

    void SignOut() {
        Begin("item-sign-out", "SIGN THIS ITEM OUT", "SIGN OUT PENDING");
        Complete("item-signed-out", "Sign Out Evidence", Technician, Analyst,
                 PathInDropdown("Crime Lab", "Latent Prints"), "Laboratory analysis");
        ExpectPlace("Signed Out", "Crime Lab > Latent Prints");
    }

    void SignIn() {
        Begin("item-sign-in", "SIGN THIS ITEM IN", "SIGN IN PENDING");
        Complete("item-signed-in", "Sign In Evidence", Analyst, Technician, PathInDropdown("Impound Lot", "Row 2"),
                 "Returned from analysis");
        ExpectPlace("In Storage", "Impound Lot > Row 2");
    }

    void MoveItem() {
        Begin("item-move", "MOVE THIS ITEM", "MOVE PENDING");
        Complete("item-moved", "Move Evidence", Technician, Technician, "Refrigerated Storage", "Officer review");
        ExpectPlace("In Storage", "Refrigerated Storage");
    }

    void Dispose() {
        Begin("item-dispose", "DISPOSE THIS ITEM", "DISPOSAL PENDING");
        Complete("item-final-disposition", "Dispose Evidence", Technician, Analyst, "Returned to Owner", "Case closed");
        ExpectText("The dialog", "grpTitlebar/lblTitle", "Final Disposition Information");
        PickByMouse("dispositionField", "Returned to Owner");
        Click("the notes", "notesField");
        m_player.Type(note);
        m_player.Step("item-disposed");
        Click("the button Save", "btnSave");
        ExpectPlace("Disposed", "Returned to Owner");
    }

    void ReadChain() {
        m_player.Step("item-chain");
        m_player.Click("the tab Chain of Custody", [] {
            return SpotOfPart(Find(QStringLiteral("itemView/tabs")), QStringLiteral("Chain of Custody"));
        });
        ExpectText("The newest row's action", "tracking/searchResult/tagStatus", "Disposed");
        ExpectStored("Custody rows in the database", rowsOfCash, "5");
        int row = 0;
        for (const char* step : {"Brandt to Raman at Impound Lot for Initial storage",
                                 "Raman to Brandt at Latent Prints for Laboratory analysis",
                                 "Brandt to Raman at Row 2 for Returned from analysis",
                                 "Raman to Raman at Refrigerated Storage for Officer review",
                                 "Raman to Brandt at Returned to Owner for Case closed"}) {
            const std::string number = std::to_string(++row);
            ExpectStored(QStringLiteral("Row %1 in the database").arg(row), Join({stepOfCash, number}, ""), step);
        }
        ExpectStored("The item in the database", stateOfCash, "5, 1, Returned to Owner, " + note);
    }
};

}  // namespace

void PlanItemScenario(TourPlayer& player) { ItemScenario(player).Plan(); }

}  // namespace quellbrook

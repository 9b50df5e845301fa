#include "demo/tour/TransferScenario.h"

#include "base/Text.h"
#include "demo/tour/Scenario.h"

#include <QAbstractItemView>
#include <QApplication>

namespace quellbrook {

namespace {

using namespace tour;

const QString wheel = QStringLiteral("2026-0388-08");
const QString suitcase = QStringLiteral("2026-0388-09");
const QString car = QStringLiteral("KTR4821 (OR)");
const QStringList batch = {wheel, suitcase, car};
const QString contents = QStringLiteral("explorer/ItemPane");

// Location names are complete, as in the database.
constexpr const char* countOfBatchAt =
    "SELECT COUNT(*) AS N FROM (SELECT t.StorageLocNo FROM Property i INNER JOIN PropertyTracking t ON t.PropertyNo = "
    "i.PropertyNo AND t.SeqNo = i.CurrTrackSeq WHERE i.PropertyID IN ('2026-0388-08', '2026-0388-09') UNION ALL SELECT "
    "t.StorageLocNo FROM Vehicle i INNER JOIN VehicleTracking t ON t.VehicleNo = i.VehicleNo AND t.SeqNo = "
    "i.CurrTrackSeq WHERE i.RegNumber = 'KTR4821') AS b INNER JOIN StorageLocation s ON s.IdNo = b.StorageLocNo WHERE "
    "s.Name = ";

class TransferScenario : Scenario {
public:
    explicit TransferScenario(TourPlayer& player) : Scenario(player) {}

    void Plan() {
        m_player.Step("location");
        OpenLocation({"Impound Lot", "Row 2"});
        ScanItem();
        m_player.Step("scanned-closed");
        CloseItem("Row 2");
        SelectRows("location-selected", batch);
        SignOut();
        ReadChain("chain-signed-out", "Signed Out", "Crime Lab > Latent Prints", "Laboratory analysis");
        m_player.Step("signed-out-location");
        CloseItem("Latent Prints");
        SelectRows("signed-out-selected", batch);
        SignIn();
        ReadChain("chain-signed-in", "Signed In", "Impound Lot > Row 2", "Returned from analysis");
        VisitAnotherTab("chain-signed-in-again", "itemView");
    }

private:
    void ScanItem() {
        m_player.Step("scanned-item");
        ScanProperty(suitcase);
        ExpectText("The item opened by its barcode", "itemView/lblID", suitcase);
        ExpectText("Where it is", "itemView/lblLocation", "Impound Lot > Row 2");
    }

    void BeginBatch(const QString& menuStep, const QString& entry, const QString& batchStep, const QString& purpose) {
        ChooseFromMenu(menuStep, suitcase, entry, batchStep);
        ExpectText("The info bar", "infobar/lblSelected", "3 items selected for " + purpose);
    }

    void OpenForm(const QString& stepName, const QString& title) {
        m_player.Step(stepName);
        Click("the button Finish", "infobar/btnComplete");
        ExpectText("The form's title", "cart/lblTitle", title);
        ExpectText("The number of items", "cart/lblItemCount", " (3)");
    }

    void Transfer(const QString& stepName, const QString& button, const char* location, int32_t rows) {
        m_player.Step(stepName);
        Click("the button " + button, "cart/btnTransfer");
        ExpectText("The toast", "toastMessage/lblMessage", "Successfully transferred 3 items");
        m_player.Expect(
            "Custody rows written since the start",
            [&kept = m_player.Rows()] { return QString::number(kept.Written().size()); }, QString::number(rows));
        ExpectStored(QStringLiteral("Items of the batch that the database has at %1").arg(location),
                     Join({countOfBatchAt, "'", location, "'"}, ""), "3");
    }

    void SignOut() {
        BeginBatch("menu-sign-out", "Sign out  3 items", "batch-sign-out", "signing out of storage");
        OpenForm("form-empty", "Sign Out Evidence");
        m_player.Step("first-message");
        Click("the button Sign Out", "cart/btnTransfer");
        ExpectText("The message's title", "grpTitlebar/lblTitle", "Missing destination");
        ExpectText("The message", "lblMessage", "Please specify where this evidence is going.");
        m_player.Step("form-filled");
        Click("the button OK", "grpButtons/button");
        m_player.Wait("The message is closed", [] { return QApplication::activeModalWidget() == nullptr; });
        FillForm(Technician, Analyst, PathInDropdown("Crime Lab", "Latent Prints"), "Laboratory analysis");
        Transfer("signed-out", "Sign Out", "Latent Prints", 3);
        m_player.Step("at-the-lab");
        OpenLocation({"Crime Lab", "Latent Prints"});
    }

    void SignIn() {
        BeginBatch("menu-sign-in", "Sign in  3 items", "batch-sign-in", "signing into storage");
        OpenForm("form-sign-in", "Sign In Evidence");
        VisitAnotherTab("form-sign-in-again", "cart");
        m_player.Step("form-sign-in-filled");
        FillForm(Analyst, Technician, PathInDropdown("Impound Lot", "Row 2"), "Returned from analysis");
        Transfer("signed-in", "Sign In", "Row 2", 6);
        m_player.Step("back-in-storage");
        OpenLocation({"Row 2"});
    }

    void ReadChain(const QString& stepName, const QString& status, const QString& location, const QString& reason) {
        m_player.Step(stepName + "-item");
        m_player.DoubleClick("the row " + wheel, [] {
            QAbstractItemView* view = FindView(contents);
            return SpotOf(view, FindRow(view, wheel));
        });
        ExpectText("The item opened", "itemView/lblID", wheel);
        ExpectText("Where it is", "itemView/lblLocation", location);
        m_player.Step(stepName);
        m_player.Click("the tab Chain of Custody", [] {
            return SpotOfPart(Find(QStringLiteral("itemView/tabs")), QStringLiteral("Chain of Custody"));
        });
        ExpectText("The newest row's action", "tracking/searchResult/tagStatus", status);
        ExpectText("The newest row's location", "tracking/searchResult/lblLocation", location);
        ExpectText("The newest row's reason", "tracking/searchResult/lblReason", reason);
    }

    void CloseItem(const QString& location) {
        Click("the cross", "itemView/lnkClose");
        ExpectText("The displayed location", "explorer/lblTitle", location);
    }
};

}  // namespace

void PlanTransferScenario(TourPlayer& player) { TransferScenario(player).Plan(); }

}  // namespace quellbrook

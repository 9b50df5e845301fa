#include "demo/tour/MenuScenario.h"

#include "base/Text.h"
#include "demo/tour/Scenario.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDir>
#include <QMenu>

namespace quellbrook {

namespace {

using namespace tour;

const QString bay = QStringLiteral("Covered Bay");
const QStringList vehicles = {"DLA8983 (OR)", "RXA4987 (OR)", "RTF1653 (OR)",
                              "FLX9536 (OR)", "JRG7417 (WA)", "YFK0635 (WA)"};

// Counts those vehicles whose current location has this name. Add the name in quotes.
constexpr const char* countOfVehiclesAt =
    "SELECT COUNT(*) AS N FROM Vehicle v INNER JOIN VehicleTracking t ON t.VehicleNo = v.VehicleNo AND t.SeqNo = "
    "v.CurrTrackSeq INNER JOIN StorageLocation s ON s.IdNo = t.StorageLocNo WHERE v.RegNumber IN ('DLA8983', "
    "'RXA4987', 'RTF1653', 'FLX9536', 'JRG7417', 'YFK0635') AND s.Name = ";

// Empty if there is no such location below another one.
std::string ContainerOf(const std::string& location) {
    return "SELECT c.Name FROM StorageLocation s INNER JOIN StorageLocation c ON c.IdNo = s.ContainerNo WHERE s.Name = "
           "'" +
           location + "'";
}

class MenuScenario : Scenario {
public:
    explicit MenuScenario(TourPlayer& player) : Scenario(player) {}

    void Plan() {
        OpenItem();
        OpenInHost();
        SelectAll();
        Print();
        Move();
        SeeNoActions();
        OpenFromTree();
        CreateLocation();
        RenameLocation();
        PrintLocation();
        DeleteLocation();
    }

private:
    void OpenMenu(const QString& stepName, const QString& what, std::function<Spot()> spot, const QString& entry) {
        m_player.Step(stepName);
        m_player.Click(what, std::move(spot), InputDriver::Button::Right);
        ExpectEntry(entry);
    }
    void ChooseFromTree(const QString& menuStep, const QString& name, const QString& entry, const QString& nextStep) {
        OpenMenu(
            menuStep, "the location " + name, [name] { return NodeSpot(name); }, entry);
        m_player.Step(nextStep);
        ChooseEntry(entry);
    }
    void ScrollTree(int notches) {
        m_player.TurnWheel(
            "the tree",
            [] {
                const QAbstractItemView* tree = FindView(QStringLiteral("explorer/LocationPane"));
                return tree ? SpotOf(tree->viewport()) : std::nullopt;
            },
            notches);
    }
    // Printed labels are files; `all` counts those since the start.
    void ExpectPrinted(const QString& labels, int all) {
        const QString folder = m_player.LabelFolder();
        ExpectText("The toast", "toastMessage/lblMessage",
                   "Sent " + labels + " to the folder '" + QDir::toNativeSeparators(folder) + "'.");
        m_player.Expect(
            "Labels in the folder",
            [folder] { return QString::number(QDir(folder).entryList({QStringLiteral("*.pdf")}).size()); },
            QString::number(all));
    }

    void OpenItem() {
        m_player.Step("menu-location");
        Click("the cross", "itemView/lnkClose");
        OpenLocation({"Impound Lot", bay});
        ChooseFromMenu("menu-item", vehicles[0], "Open", "menu-item-opened");
        ExpectText("The item opened", "itemView/lblID", vehicles[0]);
        m_player.Step("menu-item-closed");
        Click("the cross", "itemView/lnkClose");
        ExpectText("The displayed location", "explorer/lblTitle", bay);
    }

    void OpenInHost() {
        ChooseFromMenu("menu-host", vehicles[1], "Open in Tessarine...", "menu-record");
        ExpectText("The record opened in its own tab", "recordPage/title", vehicles[1]);
        m_player.Step("menu-record-left");
        ClickEvidenceTab();
        ExpectText("The displayed location", "explorer/lblTitle", bay);
    }

    void SelectAll() {
        OpenMenu("menu-below", "the empty space below the rows", SpotBelowRows, "Select All");
        m_player.Step("menu-all-selected");
        ChooseEntry("Select All");
        ExpectSelectedRows(vehicles);
    }

    void Print() {
        ChooseFromMenu("menu-print", vehicles[2], "Print barcode labels (6 items)", "menu-printed");
        ExpectPrinted("6 labels", 6);
    }

    void Move() {
        ChooseFromMenu("menu-move", vehicles[2], "Move  6 items", "menu-batch");
        ExpectText("The info bar", "infobar/lblSelected", "6 items selected for moving within evidence storage");
        SelectRows("menu-batch-selected", {vehicles[0], vehicles[5]});
        ChooseFromMenu("menu-uncheck", vehicles[0], "Uncheck 2 items", "menu-unchecked");
        ExpectText("The info bar", "infobar/lblSelected", "4 items selected for moving within evidence storage");
        m_player.Step("menu-move-form");
        Click("the button Finish", "infobar/btnComplete");
        ExpectText("The form's title", "cart/lblTitle", "Move Evidence");
        ExpectText("The number of items", "cart/lblItemCount", " (4)");
        FillForm(Technician, Technician, PathInDropdown("Impound Lot", "Row 1"), "Officer review");
        m_player.Step("menu-moved");
        Click("the button Move", "cart/btnTransfer");
        ExpectText("The toast", "toastMessage/lblMessage", "Successfully transferred 4 items");
        ExpectText("What is left", "explorer/lblSubtitle", "0 storage units, 2 items");
        ExpectStored("Vehicles that the database has at Row 1", Join({countOfVehiclesAt, "'Row 1'"}, ""), "4");
        ExpectStored("Vehicles that it still has here", Join({countOfVehiclesAt, "'Covered Bay'"}, ""), "2");
    }

    void SeeNoActions() {
        m_player.Step("menu-disposed");
        ScrollTree(20);
        OpenLocation({"Returned to Owner"});
        OpenMenu(
            "menu-no-actions", "the cash that was disposed of", [] { return RowSpot(QStringLiteral("2026-0431-06")); },
            "(No Available Actions)");
        m_player.Wait("It is disabled",
                      [] { return !SpotOf(tour::OpenMenu(), QStringLiteral("(No Available Actions)")); });
        m_player.Press("Escape");
        m_player.Wait("The menu is closed", [] { return tour::OpenMenu() == nullptr; });
    }

    void OpenFromTree() {
        ScrollTree(-20);
        ChooseFromTree("menu-tree", "Row 3", "Open", "menu-tree-opened");
        ExpectText("The location", "explorer/lblTitle", "Row 3");
    }

    void Save() {
        Click("the button Save", "btnSave");
        m_player.Wait("The dialog is closed", [] { return QApplication::activeModalWidget() == nullptr; });
    }

    void CreateLocation() {
        ChooseFromTree("menu-new", "Impound Lot", "New", "menu-new-location");
        ExpectEntry("Location");
        m_player.Step("menu-new-dialog");
        ChooseEntry("Location");
        ExpectText("The dialog", "grpTitlebar/lblTitle", "Add New Storage Location");
        m_player.Type("Row 4");
        m_player.Step("menu-created");
        Save();
        ExpectText("The location", "explorer/lblTitle", "Row 4");
        m_player.Wait("It is shown as empty", [] { return Find(QStringLiteral("ItemPane/picNoItems")) != nullptr; });
        ExpectStored("Its container in the database", ContainerOf("Row 4"), "Impound Lot");
    }

    void RenameLocation() {
        ChooseFromTree("menu-edit", "Row 4", "Edit", "menu-edit-dialog");
        ExpectText("The dialog", "grpTitlebar/lblTitle", "Edit Storage Location");
        m_player.Press("ctrl+a");
        m_player.Type("Wash Bay");
        m_player.Step("menu-renamed");
        Save();
        ExpectText("The location", "explorer/lblTitle", "Wash Bay");
        ExpectStored("The container of the old name in the database", ContainerOf("Row 4"), "");
        ExpectStored("The container of the new name in the database", ContainerOf("Wash Bay"), "Impound Lot");
    }

    void PrintLocation() {
        ChooseFromTree("menu-print-location", "Wash Bay", "Print barcode label", "menu-location-printed");
        ExpectPrinted("1 label", 7);
        m_player.Step("location-label-printed");
        OpenLocation({"Row 3"});
        Click("the link Print Location Label", "lnkPrintLocationBarcode");
        ExpectPrinted("1 label", 8);
    }

    void DeleteLocation() {
        ChooseFromTree("menu-delete", "Wash Bay", "Delete", "menu-delete-question");
        ExpectText("The question", "lblMessage", "Are you sure you want to delete this location ('Wash Bay')?");
        m_player.Step("menu-deleted");
        m_player.Press("y");
        m_player.Wait("Its node is gone", [] {
            return !FindRow(FindView(QStringLiteral("explorer/LocationPane")), QStringLiteral("Wash Bay")).isValid();
        });
        ExpectText("The displayed location", "explorer/lblTitle", "Row 3");
        ExpectStored("Its container in the database", ContainerOf("Wash Bay"), "");
    }
};

}  // namespace

void PlanMenuScenario(TourPlayer& player) { MenuScenario(player).Plan(); }

}  // namespace quellbrook

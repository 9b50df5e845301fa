#include "demo/tour/ExplorerScenario.h"

#include "demo/tour/Scenario.h"

#include <QApplication>
#include <QMenu>

namespace quellbrook {

namespace {

using namespace tour;

std::string PathOf(const std::string& location) {
    return "SELECT Path FROM StorageLocation WHERE Name = '" + location + "'";
}

class ExplorerScenario : Scenario {
public:
    explicit ExplorerScenario(TourPlayer& player) : Scenario(player) {}

    void Plan() {
        LogIn();
        VisitAnotherTab("explorer-again", "explorer");
        Search();
        ScanLocation();
        CreateLocation();
        RenameLocation();
        MoveLocation();
        DeleteLocation();
    }

private:
    void Search() {
        m_player.Step("search");
        m_player.Press("ctrl+f");
        m_player.Type("2026-0388*");
        m_player.Press("Return");
        ExpectText("The title", "explorer/lblTitle", "Search Results");
        ExpectText("The subtitle", "explorer/lblSubtitle", "Showing stored items matching '2026-0388*'");
        ExpectText("The category", "SearchResultPane/lblHeader", "Property ID");
        m_player.Step("more-results");
        Click("the link More Results", "SearchResultPane/lnkMoreResults");
        m_player.Wait("The menu of the categories is open", [] { return EntriesOf(OpenMenu()).size() >= 2; });
        m_player.Step("search-incident");
        m_player.Press("Down");
        m_player.Press("Down");
        m_player.Press("Return");
        ExpectText("The category", "SearchResultPane/lblHeader", "Incident ID");
        m_player.Step("search-nothing-found");
        m_player.Press("ctrl+f");
        m_player.Type("no such thing");
        m_player.Press("Return");
        ExpectText("The subtitle", "explorer/lblSubtitle", "Showing stored items matching 'no such thing'");
        m_player.Wait("The list is empty",
                      [] { return Find(QStringLiteral("SearchResultPane/picNoResults")) != nullptr; });
    }

    void ScanLocation() {
        m_player.Step("scanned-location");
        m_player.Scan([&kept = m_player.Rows()] {
            const std::string key =
                ToTextOrEmpty(kept.Ask("SELECT IdNo FROM StorageLocation WHERE Name = 'Impound Lot'"));
            return QStringLiteral("L%1").arg(QString::fromStdString(key), 10, QLatin1Char('0'));
        });
        ExpectText("The location of the barcode", "explorer/lblTitle", "Impound Lot");
        m_player.Wait("The results are gone", [] { return Find(QStringLiteral("SearchResultPane")) == nullptr; });
    }

    void Save() {
        Click("the button Save", "btnSave");
        m_player.Wait("The dialog is closed", [] { return QApplication::activeModalWidget() == nullptr; });
    }

    void CreateLocation() {
        m_player.Step("root");
        OpenLocation({"Sign-In Locations"});
        m_player.Step("new-location");
        Click("the link Create Location", "lnkAddLocation");
        ExpectText("The dialog", "grpTitlebar/lblTitle", "Add New Storage Location");
        m_player.Type("Overflow Cage");
        ExpectText("The name typed", "txtName", "Overflow Cage");
        m_player.Step("location-created");
        Save();
        ExpectText("The location", "explorer/lblTitle", "Overflow Cage");
        ExpectStored("Its path in the database", PathOf("Overflow Cage"), "/0/");
    }

    void RenameLocation() {
        m_player.Step("edit-location");
        Click("the link Edit", "lnkEditLocation");
        ExpectText("The dialog", "grpTitlebar/lblTitle", "Edit Storage Location");
        m_player.Press("ctrl+a");
        m_player.Type("Annex Cage");
        ExpectText("The name typed", "txtName", "Annex Cage");
        m_player.Step("location-renamed");
        Save();
        ExpectText("The location", "explorer/lblTitle", "Annex Cage");
        ExpectStored("The path of the old name in the database", PathOf("Overflow Cage"), "");
        ExpectStored("The path of the new name in the database", PathOf("Annex Cage"), "/0/");
    }

    void MoveLocation() {
        m_player.Step("move-location");
        Click("the link Edit", "lnkEditLocation");
        PickByMouse("cboLocation", "Intake Lockers");
        m_player.Step("location-moved");
        Save();
        ExpectText("The location", "explorer/lblTitle", "Annex Cage");
        m_player.Expect(
            "Its container in the database",
            [&kept = m_player.Rows()] {
                const std::string container =
                    ToTextOrEmpty(kept.Ask("SELECT IdNo FROM StorageLocation WHERE Name = 'Intake Lockers'"));
                const std::string path = ToTextOrEmpty(kept.Ask(PathOf("Annex Cage")));
                return QString::fromStdString(path == "/0/" + container + "/" ? "Intake Lockers" : path);
            },
            "Intake Lockers");
    }

    void DeleteLocation() {
        m_player.Step("delete-location");
        Click("the link Delete", "lnkDeleteLocation");
        ExpectText("The question", "lblMessage", "Are you sure you want to delete this location ('Annex Cage')?");
        m_player.Step("location-deleted");
        m_player.Press("y");
        ExpectText("Its container is displayed", "explorer/lblTitle", "Intake Lockers");
        ExpectStored("Its path in the database", PathOf("Annex Cage"), "");
    }
};

}  // namespace

void PlanExplorerScenario(TourPlayer& player) { ExplorerScenario(player).Plan(); }

}  // namespace quellbrook

#include "demo/tour/CategorizationScenario.h"

#include "demo/tour/Scenario.h"

#include <QAbstractItemView>
#include <QApplication>

namespace quellbrook {

namespace {

using namespace tour;

const QString list = QStringLiteral("wizard/lvwLocations");
const QString prompt = QStringLiteral("wizard/lblPrompt");
const QString count = QStringLiteral("wizard/lblCount");

// Name, category, path and flag of every location afterwards, in the order of their keys.
constexpr const char* categorized[] = {
    "Auction|8|/0/|1",
    "Circuit Court|4|/0/|1",
    "Clerk Vault|4|/0/2/|1",
    "Crime Lab|4|/0/|1",
    "Digital Forensics|4|/0/|1",
    "Destroyed|8|/0/|1",
    "Detective Bureau|16|/0/|1",
    "Evidence Room|2|/0/|1",
    "Aisle 1|2|/0/|1",
    "Shelf 1A|2|/0/|1",
    "Shelf 1B|2|/0/|1",
    "Aisle 2|2|/0/|1",
    "Shelf 2A|2|/0/|1",
    "Impound Lot|2|/0/|1",
    "Intake Lockers|2|/0/|1",
    "Officer Custody|4|/0/|1",
    "Prosecutor's Office|4|/0/|1",
    "Records Annex|2|/0/|0",
    "Refrigerated Storage|2|/0/|1",
    "Returned to Owner|8|/0/|1",
    "Unknown (2014 import)|16|/0/|1",
};

QString CurrentName() {
    const QAbstractItemView* view = FindView(list);
    return view ? view->currentIndex().siblingAtColumn(1).data().toString() : QString();
}

class CategorizationScenario : Scenario {
public:
    explicit CategorizationScenario(TourPlayer& player) : Scenario(player) {}

    void Plan() {
        FillLoginForm();
        DisposalPage();
        SignOutPage();
        Leave();
        OtherPage();
        SignInPage();
        ReadBack();
    }

private:
    void ExpectPage(const QString& question, const QString& ticked) {
        ExpectText("The page", prompt, question);
        ExpectText("The number of locations ticked", count, ticked);
    }

    void TickByMouse(const QString& name) {
        m_player.Click("the box of " + name, [name] {
            QAbstractItemView* view = FindView(list);
            return SpotOf(view, FindRow(view, name).siblingAtColumn(0));
        });
    }

    void TickByKeys(const QStringList& keys, const QString& name) {
        for (const QString& key : keys) m_player.Press(key);
        m_player.Expect(
            "The current row", [] { return CurrentName(); }, name);
        m_player.Press("space");
    }

    void DisposalPage() {
        m_player.Step("wizard");
        Click("the button Log In", "loginForm/logIn");
        ExpectPage("Which of These Locations are Disposal Locations?", "0 locations selected");
        m_player.Wait("The wizard is active", [] {
            const QWidget* window = QApplication::activeWindow();
            return window && window->objectName() == "frmSetupLocationsWizard";
        });
        m_player.Step("wizard-disposal");
        for (const char* name : {"Auction", "Destroyed"}) TickByMouse(name);
        TickByKeys({"End", "Up"}, "Returned to Owner");
        ExpectText("The number of locations ticked", count, "3 locations selected");
    }

    void SignOutPage() {
        m_player.Step("wizard-sign-out");
        Click("the button NEXT", "wizard/btnNext");
        ExpectPage("Which of These Locations are Sign-Out Locations?", "0 locations selected");
        TickByKeys({}, "Circuit Court");
        TickByKeys({"Down", "Down"}, "Crime Lab");
        TickByMouse("Digital Forensics");
        TickByKeys({"End", "Up", "Up", "Up"}, "Prosecutor's Office");
        TickByKeys({"Up"}, "Officer Custody");
        ExpectText("The number of locations ticked", count, "5 locations selected");
    }

    void Leave() {
        m_player.Step("wizard-exit");
        m_player.Press("Escape");
        ExpectText("The dialog", "grpTitlebar/lblTitle", "Exit Now?");
        m_player.Step("wizard-stays");
        m_player.Press("n");
        m_player.Wait("The dialog is closed", [] { return QApplication::activeModalWidget() == nullptr; });
        ExpectText("The number of locations ticked", count, "5 locations selected");
    }

    void OtherPage() {
        m_player.Step("wizard-other");
        m_player.Press("Return");
        ExpectPage("Which of These Locations Are \"Other\" Locations?", "0 locations selected");
        TickByMouse("Detective Bureau");
        TickByKeys({"End"}, "Unknown (2014 import)");
        ExpectText("The number of locations ticked", count, "2 locations selected");
        m_player.Step("wizard-back");
        Click("the button BACK", "wizard/btnBack");
        ExpectPage("Which of These Locations are Sign-Out Locations?", "5 locations selected");
        m_player.Press("Return");
        ExpectPage("Which of These Locations Are \"Other\" Locations?", "2 locations selected");
    }

    void SignInPage() {
        m_player.Step("wizard-incomplete");
        m_player.Press("Return");
        ExpectPage("Which of These Locations are Sign-In Locations?", "0 locations selected");
        Click("the button FINISH", "wizard/btnNext");
        ExpectText("The dialog", "grpTitlebar/lblTitle", "Error");
        m_player.Step("wizard-sign-in");
        m_player.Press("Return");
        m_player.Wait("The dialog is closed", [] { return QApplication::activeModalWidget() == nullptr; });
        Click("the link Select All", "wizard/lnkSelectAll");
        ExpectText("The number of locations ticked", count, "10 locations selected");
        m_player.Step("categorized");
        Click("the button FINISH", "wizard/btnNext");
        ExpectText("The displayed location", "explorer/lblTitle", "Sign-In Locations");
    }

    void ReadBack() {
        for (int id = 1; id <= static_cast<int>(std::size(categorized)); ++id) {
            const std::string query =
                "SELECT Name || '|' || Type || '|' || Path || '|' || ActiveFlag FROM StorageLocation WHERE IdNo = " +
                std::to_string(id);
            ExpectStored("Location " + QString::number(id), query, categorized[id - 1]);
        }
        ExpectStored("Locations in the database", "SELECT COUNT(*) FROM StorageLocation", "21");
        m_player.Expect(
            "Custody rows written since the start",
            [&kept = m_player.Rows()] { return QString::number(kept.Written().size()); }, "0");
        m_player.Step("categorized-location");
        OpenLocation({"Circuit Court", "Clerk Vault"});
    }
};

}  // namespace

void PlanCategorizationScenario(TourPlayer& player) { CategorizationScenario(player).Plan(); }

}  // namespace quellbrook

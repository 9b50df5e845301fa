#include "demo/tour/TransferScenario.h"

#include "demo/sample/SampleDepartment.h"
#include "demo/tour/TourPlayer.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QMenu>

namespace quellbrook {

namespace {

using namespace tour;

const QString wheel = QStringLiteral("2026-0388-08");
const QString suitcase = QStringLiteral("2026-0388-09");
const QString car = QStringLiteral("KTR4821 (OR)");
const QStringList batch = {wheel, suitcase, car};
const QString contents = QStringLiteral("explorer/ItemPane");
const QString tree = QStringLiteral("explorer/LocationPane");

QString Joined(const QStringList& texts) { return texts.join(QStringLiteral(", ")); }

// Location names are complete, as in the database.
constexpr const char* countOfBatchAt =
    "SELECT COUNT(*) AS N FROM (SELECT t.StorageLocNo FROM Property i INNER JOIN PropertyTracking t ON t.PropertyNo = "
    "i.PropertyNo AND t.SeqNo = i.CurrTrackSeq WHERE i.PropertyID IN ('2026-0388-08', '2026-0388-09') UNION ALL SELECT "
    "t.StorageLocNo FROM Vehicle i INNER JOIN VehicleTracking t ON t.VehicleNo = i.VehicleNo AND t.SeqNo = "
    "i.CurrTrackSeq WHERE i.RegNumber = 'KTR4821') AS b INNER JOIN StorageLocation s ON s.IdNo = b.StorageLocNo WHERE "
    "s.Name = ";

class Scenario {
public:
    explicit Scenario(TourPlayer& player) : m_player(player) {}

    void Plan() {
        LogIn();
        VisitAnotherTab("explorer-again", "explorer");
        m_player.Step("location");
        OpenLocation({"Impound Lot", "Row 2"});
        ScanItem();
        m_player.Step("scanned-closed");
        CloseItem("Row 2");
        SelectBatch("location-selected");
        SignOut();
        ReadChain("chain-signed-out", "Signed Out", "Crime Lab > Latent Prints", "Laboratory analysis");
        m_player.Step("signed-out-location");
        CloseItem("Latent Prints");
        SelectBatch("signed-out-selected");
        SignIn();
        ReadChain("chain-signed-in", "Signed In", "Impound Lot > Row 2", "Returned from analysis");
        VisitAnotherTab("chain-signed-in-again", "itemView");
    }

private:
    void Click(const QString& what, const QString& path) {
        m_player.Click(what, [path] { return SpotOf(Find(path)); });
    }

    void ExpectText(const QString& what, const QString& path, const QString& expected) {
        m_player.Expect(
            what, [path] { return TextOf(path); }, expected);
    }

    void LogIn() {
        const SampleAccount& account = SampleAccounts().front();
        m_player.Step("login");
        m_player.Wait("The window is open and active",
                      [&window = m_player.Window()] { return window.isActiveWindow(); });
        m_player.Expect(
            "The window's title", [&window = m_player.Window()] { return window.windowTitle(); },
            QStringLiteral("Quellbrook - ") + SampleNames::AgencyName);
        ExpectText("The login form shows the account", "loginForm/account0", QString::fromStdString(account.username));
        Click("the field for the user name", "loginForm/username");
        m_player.Type(QString::fromStdString(account.username));
        m_player.Press("Tab");
        m_player.Type(QString::fromStdString(account.password));
        ExpectText("The user name typed", "loginForm/username", QString::fromStdString(account.username));
        m_player.Wait("The password is typed", [account] {
            return TextOf(QStringLiteral("loginForm/password")) == QString::fromStdString(account.password);
        });

        m_player.Step("explorer");
        Click("the button Log In", "loginForm/logIn");
        ExpectText("The user shown", "loggedInAs", QString::fromStdString(account.username));
        ExpectText("The displayed location", "explorer/lblTitle", "Sign-In Locations");
    }

    // Opens the locations from the outermost inward. The arrow key expands a container.
    void OpenLocation(const QStringList& names) {
        for (const QString& name : names) {
            m_player.Click("the location " + name, [name] {
                QAbstractItemView* view = FindView(tree);
                return SpotOf(view, FindRow(view, name));
            });
            ExpectText("The location opened", "explorer/lblTitle", name);
            if (name == names.back()) break;
            m_player.Press("Right");
            m_player.Wait(name + " is expanded", [name] {
                QAbstractItemView* view = FindView(tree);
                return IsExpanded(view, FindRow(view, name));
            });
        }
    }

    static QStringList VisibleViews() {
        QStringList names;
        for (const char* name : {"explorer", "cart", "itemView", "loading"}) {
            if (Find(QStringLiteral("content/") + name)) names.push_back(name);
        }
        return names;
    }

    // Shows another tab of the host and comes back to the view.
    void VisitAnotherTab(const QString& stepName, const QString& view) {
        m_player.Step(stepName);
        Click("the button Labels and Scanner", "hostTabStrip/scannerPageButton");
        m_player.Wait("The other tab is shown", [] { return Find(QStringLiteral("scannerPage")) != nullptr; });
        m_player.Click("the tab Evidence",
                       [] { return SpotOfPart(Find(QStringLiteral("hostTabs")), QStringLiteral("Evidence")); });
        m_player.Expect(
            "The visible views", [] { return Joined(VisibleViews()); }, view);
    }

    void ScanItem() {
        m_player.Step("scanned-item");
        m_player.Scan([&kept = m_player.Rows()] {
            const QString select = "SELECT PropertyNo FROM Property WHERE PropertyID = '" + suitcase + "'";
            const std::string key = ToTextOrEmpty(kept.Ask(select.toStdString()));
            return QStringLiteral("P%1").arg(QString::fromStdString(key), 10, QLatin1Char('0'));
        });
        ExpectText("The item opened by its barcode", "itemView/lblID", suitcase);
        ExpectText("Where it is", "itemView/lblLocation", "Impound Lot > Row 2");
    }

    void SelectBatch(const QString& stepName) {
        bool first = true;
        m_player.Step(stepName);
        for (const QString& item : batch) {
            m_player.Click(
                "the row " + item,
                [item] {
                    QAbstractItemView* view = FindView(contents);
                    return SpotOf(view, FindRow(view, item));
                },
                InputDriver::Button::Left, !first);
            first = false;
        }
        m_player.Expect(
            "The rows selected", [] { return Joined(SelectedNames()); }, Joined(batch));
    }

    static QStringList SelectedNames() {
        QStringList names;
        for (const QString& row : SelectedRows(FindView(contents))) names.push_back(row.section(" | ", 0, 0));
        return names;
    }

    void ChooseFromMenu(const QString& stepName, const QString& entry) {
        m_player.Step(stepName);
        m_player.Click(
            "the selected row " + suitcase,
            [] {
                QAbstractItemView* view = FindView(contents);
                return SpotOf(view, FindRow(view, suitcase));
            },
            InputDriver::Button::Right);
        m_player.Wait(
            "The menu offers \"" + entry + "\"", [entry] { return EntriesOf(OpenMenu()).contains(entry); },
            [] { return Joined(EntriesOf(OpenMenu())); });
        m_player.Do([&player = m_player, entry] { player.Say("The menu offers \"" + entry + "\"."); });
    }

    void BeginBatch(const QString& menuStep, const QString& entry, const QString& batchStep, const QString& purpose) {
        ChooseFromMenu(menuStep, entry);
        m_player.Step(batchStep);
        m_player.Click("the entry " + entry, [entry] { return SpotOf(OpenMenu(), entry); });
        ExpectText("The info bar", "infobar/lblSelected", "3 items selected for " + purpose);
    }

    void OpenForm(const QString& stepName, const QString& title) {
        m_player.Step(stepName);
        Click("the button Finish", "infobar/btnComplete");
        ExpectText("The form's title", "cart/lblTitle", title);
        ExpectText("The number of items", "cart/lblItemCount", " (3)");
    }

    // Opens the dropdown and clicks the entry.
    void PickByMouse(const QString& field, const QString& entry) {
        Click("the field " + field, "cart/" + field);
        m_player.Click("the entry " + entry, [entry] {
            QAbstractItemView* list = OpenDropdownList();
            return SpotOf(list, FindRow(list, entry));
        });
        ExpectChosen(field, entry);
    }

    // Opens the dropdown, types the start of the entry and presses Enter.
    void PickByKeys(const QString& field, const QString& beginning, const QString& entry) {
        Click("the field " + field, "cart/" + field);
        m_player.Wait("The list of " + field + " is open", [] { return OpenDropdownList() != nullptr; });
        m_player.Type(beginning);
        m_player.Press("Return");
        ExpectChosen(field, entry);
    }

    void ExpectChosen(const QString& field, const QString& entry) {
        m_player.Expect(
            "Chosen in " + field, [field] { return ChosenIn(QStringLiteral("cart/") + field); }, entry);
    }

    void Transfer(const QString& stepName, const QString& button, const char* location, int32_t rows) {
        m_player.Step(stepName);
        Click("the button " + button, "cart/btnTransfer");
        ExpectText("The toast", "toastMessage/lblMessage", "Successfully transferred 3 items");
        m_player.Expect(
            "Custody rows written since the start",
            [&kept = m_player.Rows()] { return QString::number(kept.Written().size()); }, QString::number(rows));
        const std::string select = std::string(countOfBatchAt) + "'" + location + "'";
        m_player.Expect(
            QStringLiteral("Items of the batch that the database has at %1").arg(location),
            [&kept = m_player.Rows(), select] { return QString::fromStdString(ToTextOrEmpty(kept.Ask(select))); }, "3");
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
        PickByMouse("locationField", QStringLiteral("Crime Lab ") + QChar(0xBB) + " Latent Prints");
        PickByKeys("receivedFromField", "Raman", "Raman, Priya (Evidence Technician)");
        PickByKeys("receivedByField", "Brandt", "Brandt, Tomas (Forensic Analyst)");
        PickByMouse("reasonField", "Laboratory analysis");
        Transfer("signed-out", "Sign Out", "Latent Prints", 3);
        m_player.Step("at-the-lab");
        OpenLocation({"Crime Lab", "Latent Prints"});
    }

    void SignIn() {
        BeginBatch("menu-sign-in", "Sign in  3 items", "batch-sign-in", "signing into storage");
        OpenForm("form-sign-in", "Sign In Evidence");
        VisitAnotherTab("form-sign-in-again", "cart");
        m_player.Step("form-sign-in-filled");
        PickByKeys("receivedFromField", "Brandt", "Brandt, Tomas (Forensic Analyst)");
        PickByKeys("receivedByField", "Raman", "Raman, Priya (Evidence Technician)");
        PickByMouse("locationField", QStringLiteral("Impound Lot ") + QChar(0xBB) + " Row 2");
        PickByMouse("reasonField", "Returned from analysis");
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

    TourPlayer& m_player;
};

}  // namespace

void PlanTransferScenario(TourPlayer& player) { Scenario(player).Plan(); }

}  // namespace quellbrook

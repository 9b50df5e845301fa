#include "demo/tour/Scenario.h"

#include "demo/sample/SampleDepartment.h"

#include <QAbstractItemView>
#include <QMenu>

namespace quellbrook {

using namespace tour;

namespace {

const QString tree = QStringLiteral("explorer/LocationPane");
const QString contents = QStringLiteral("explorer/ItemPane");

QString Joined(const QStringList& texts) { return texts.join(QStringLiteral(", ")); }

QStringList SelectedNames() {
    QStringList names;
    for (const QString& row : SelectedRows(FindView(contents))) names.push_back(row.section(" | ", 0, 0));
    return names;
}

QString VisibleViews() {
    QStringList names;
    for (const char* name : {"explorer", "cart", "itemView", "submitNewEvidence", "loading"})
        if (Find(QStringLiteral("content/") + name)) names.push_back(name);
    return Joined(names);
}

}  // namespace

void Scenario::Click(const QString& what, const QString& path) {
    m_player.Click(what, [path] { return SpotOf(Find(path)); });
}

void Scenario::ExpectText(const QString& what, const QString& path, const QString& expected) {
    m_player.Expect(
        what, [path] { return TextOf(path); }, expected);
}

Spot Scenario::NodeSpot(const QString& name) {
    QAbstractItemView* view = FindView(tree);
    return SpotOf(view, FindRow(view, name));
}

Spot Scenario::RowSpot(const QString& name) {
    QAbstractItemView* view = FindView(contents);
    return SpotOf(view, FindRow(view, name));
}

Spot Scenario::SpotBelowRows() {
    const QAbstractItemView* view = FindView(contents);
    if (!view || view->model()->rowCount() == 0) return std::nullopt;
    const QRect last = view->visualRect(view->model()->index(view->model()->rowCount() - 1, 1));
    const QPoint below = last.center() + QPoint(0, 2 * last.height());
    return view->viewport()->rect().contains(below) ? Spot(view->viewport()->mapToGlobal(below)) : std::nullopt;
}

QWidget* Scenario::ItemLink(const QString& caption) {
    QWidget* view = Find(QStringLiteral("itemView"));
    if (!view) return nullptr;
    for (QWidget* link : view->findChildren<QWidget*>(QStringLiteral("lnkMenu")))
        if (TextOf(link) == caption && link->isVisible()) return link;
    return nullptr;
}

void Scenario::ScanProperty(const QString& identifier) {
    m_player.Scan([&kept = m_player.Rows(), identifier] {
        const QString select = "SELECT PropertyNo FROM Property WHERE PropertyID = '" + identifier + "'";
        const std::string key = ToTextOrEmpty(kept.Ask(select.toStdString()));
        return QStringLiteral("P%1").arg(QString::fromStdString(key), 10, QLatin1Char('0'));
    });
}

void Scenario::FillLoginForm() {
    const SampleAccount& account = SampleAccounts().front();
    m_player.Step("login");
    m_player.Wait("The window is open and active", [&window = m_player.Window()] { return window.isActiveWindow(); });
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
}

void Scenario::LogIn() {
    FillLoginForm();
    m_player.Step("explorer");
    Click("the button Log In", "loginForm/logIn");
    ExpectText("The user shown", "loggedInAs", QString::fromStdString(SampleAccounts().front().username));
    ExpectText("The displayed location", "explorer/lblTitle", "Sign-In Locations");
}

void Scenario::OpenLocation(const QStringList& names) {
    for (const QString& name : names) {
        m_player.Click("the location " + name, [name] { return NodeSpot(name); });
        ExpectText("The location opened", "explorer/lblTitle", name);
        if (name == names.back()) break;
        m_player.Press("Right");
        m_player.Wait(name + " is expanded", [name] {
            QAbstractItemView* view = FindView(tree);
            return IsExpanded(view, FindRow(view, name));
        });
    }
}

void Scenario::VisitAnotherTab(const QString& stepName, const QString& view) {
    m_player.Step(stepName);
    Click("the button Labels and Scanner", "hostTabStrip/scannerPageButton");
    m_player.Wait("The other tab is shown", [] { return Find(QStringLiteral("scannerPage")) != nullptr; });
    ClickEvidenceTab();
    m_player.Expect(
        "The visible views", [] { return VisibleViews(); }, view);
}

void Scenario::ClickEvidenceTab() {
    m_player.Click("the tab Evidence",
                   [] { return SpotOfPart(Find(QStringLiteral("hostTabs")), QStringLiteral("Evidence")); });
}

void Scenario::SelectRows(const QString& stepName, const QStringList& names) {
    m_player.Step(stepName);
    for (const QString& name : names)
        m_player.Click(
            "the row " + name, [name] { return RowSpot(name); }, InputDriver::Button::Left,
            name == names.front() ? InputDriver::Modifier::None : InputDriver::Modifier::Control);
    ExpectSelectedRows(names);
}

void Scenario::ExpectSelectedRows(const QStringList& names) {
    m_player.Expect(
        "The rows selected", [] { return Joined(SelectedNames()); }, Joined(names));
}

void Scenario::ExpectEntry(const QString& entry) {
    m_player.Wait(
        "The menu offers \"" + entry + "\"", [entry] { return EntriesOf(OpenMenu()).contains(entry); },
        [] { return Joined(EntriesOf(OpenMenu())); });
    m_player.Do([&player = m_player, entry] { player.Say("The menu offers \"" + entry + "\"."); });
}

void Scenario::ChooseEntry(const QString& entry) {
    m_player.Click("the entry " + entry, [entry] { return SpotOf(OpenMenu(), entry); });
}

void Scenario::ChooseFromMenu(const QString& menuStep, const QString& row, const QString& entry,
                              const QString& nextStep) {
    m_player.Step(menuStep);
    m_player.Click(
        "the row " + row, [row] { return RowSpot(row); }, InputDriver::Button::Right);
    ExpectEntry(entry);
    m_player.Step(nextStep);
    ChooseEntry(entry);
}

void Scenario::PickByMouse(const QString& path, const QString& entry) {
    Click("the field " + path, path);
    m_player.Click("the entry " + entry, [entry] {
        QAbstractItemView* list = OpenDropdownList();
        return SpotOf(list, FindRow(list, entry));
    });
    ExpectChosen(path, entry);
}

void Scenario::PickByKeys(const QString& path, const QString& beginning, const QString& entry) {
    Click("the field " + path, path);
    m_player.Wait("The list of " + path + " is open", [] { return OpenDropdownList() != nullptr; });
    m_player.Type(beginning);
    m_player.Press("Return");
    ExpectChosen(path, entry);
}

void Scenario::FillForm(const Officer& from, const Officer& by, const QString& destination, const QString& reason) {
    PickByKeys("cart/receivedFromField", from.beginning, from.entry);
    PickByKeys("cart/receivedByField", by.beginning, by.entry);
    PickByKeys("cart/locationField", destination.section(PathInDropdown({}, {}), -1), destination);
    PickByMouse("cart/reasonField", reason);
}

void Scenario::ExpectChosen(const QString& path, const QString& entry) {
    m_player.Expect(
        "Chosen in " + path, [path] { return ChosenIn(path); }, entry);
}

void Scenario::ExpectStored(const QString& what, const std::string& query, const QString& expected) {
    m_player.Expect(
        what, [&kept = m_player.Rows(), query] { return QString::fromStdString(ToTextOrEmpty(kept.Ask(query))); },
        expected);
}

}  // namespace quellbrook

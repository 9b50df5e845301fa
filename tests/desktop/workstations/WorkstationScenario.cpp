#include "tests/desktop/workstations/WorkstationScenario.h"

#include "base/Error.h"

#include <QApplication>
#include <QDateTime>
#include <QKeyEvent>
#include <QWidget>

namespace quellbrook::testing {

namespace {

using namespace tour;

// The items in storage or signed out.
constexpr const char* itemsInUse =
    "SELECT p.PropertyID FROM Property p INNER JOIN PropertyTracking t ON t.PropertyNo = p.PropertyNo AND t.SeqNo = "
    "p.CurrTrackSeq INNER JOIN StorageLocation s ON s.IdNo = t.StorageLocNo WHERE s.Type IN (2, 4) AND p.PropertyID "
    "<> ''";
constexpr int numberOfItems = 6;

const std::vector<Officer> officers = {Technician, Analyst};
const std::vector<QString> reasons = {"Case closed", "Court order", "Laboratory analysis"};

struct Task {
    QString link, form;
    std::vector<QString> locations;
};
const std::vector<Task> tasks = {
    {"SIGN THIS ITEM OUT", "Sign Out Evidence", {"Municipal Court", "Officer Custody", "Prosecutor's Office"}},
    {"SIGN THIS ITEM IN", "Sign In Evidence", {"Refrigerated Storage", "Intake Lockers"}},
    {"MOVE THIS ITEM", "Move Evidence", {"Refrigerated Storage", "Intake Lockers"}},
};
const Task disposal = {"DISPOSE THIS ITEM", "Dispose Evidence", {"Auction", "Released to Agency", "Returned to Owner"}};
const std::vector<QString> statuses = {"Sold at Auction", "Released to Another Agency", "Retained for Training"};
const QString dispositionTitle = QStringLiteral("Final Disposition Information");

QString Now() { return QDateTime::currentDateTime().toString(Qt::ISODateWithMs); }

QString MessageTitle() {
    return QApplication::activeModalWidget() ? TextOf(QStringLiteral("grpTitlebar/lblTitle")) : QString();
}

}  // namespace

WorkstationScenario::WorkstationScenario(TourPlayer& player, uint32_t seed, int rounds, const std::string& reportPath)
    : Scenario(player), m_seed(seed), m_random(seed), m_left(rounds), m_report(reportPath) {
    QObject::connect(&m_focusLoops, &QTimer::timeout, [this] { AnswerFocusLoop(); });
    m_focusLoops.start(100);
}

void WorkstationScenario::Plan() {
    LogIn();
    m_player.Step("rounds");
    m_player.Do([this] { PlanRound(); });
}

void WorkstationScenario::PlanRound() {
    if (m_left-- == 0) return;
    m_round = {};
    m_round.item = AnyItem();
    m_round.from = AnyOf(officers);
    m_round.by = AnyOf(officers);
    m_round.reason = AnyOf(reasons);
    ScanProperty(m_round.item);
    m_player.Wait("The item " + m_round.item + " is open",
                  [this] { return TextOf(QStringLiteral("itemView/lblID")) == m_round.item; });
    m_player.Do([this] { BeginTask(); });
}

QString WorkstationScenario::AnyItem() {
    std::string item, select = itemsInUse;
    for (uint32_t left = 1 + m_random() % numberOfItems; left > 0; --left) {
        item = ToText(m_player.Rows().Ask(select + " ORDER BY p.PropertyID"));
        select += " AND p.PropertyID <> '" + item + "'";
    }
    return QString::fromStdString(item);
}

void WorkstationScenario::BeginTask() {
    std::vector<Task> offered;
    for (const Task& task : tasks)
        if (ItemLink(task.link)) offered.push_back(task);
    if (IsDisposalRound() && ItemLink(disposal.link)) offered = {disposal};
    if (offered.empty()) {
        if (TextOf(QStringLiteral("itemView/picTitleArea/tagStatus")) != QLatin1String("Disposed"))
            Raise(ErrorNumber::General, "WorkstationScenario", "Nothing is offered for " + m_round.item.toStdString());
        Report("gone");
        return LeaveItem();
    }
    const Task task = AnyOf(offered);
    m_round.caption = task.form;
    m_round.location = AnyOf(task.locations);
    m_player.Click("the link " + task.link, [link = task.link] { return SpotOf(ItemLink(link)); });
    m_player.Wait("The item is pending", [] { return Find(QStringLiteral("itemView/lnkUndo")) != nullptr; });
    Click("the button Finish", "infobar/btnComplete");
    m_player.Wait("The form " + task.form + " is open",
                  [this] { return TextOf(QStringLiteral("cart/lblTitle")) == m_round.caption; });
    FillAndTransfer();
}

void WorkstationScenario::FillAndTransfer() {
    PickByKeys("cart/receivedFromField", m_round.from.beginning, m_round.from.entry);
    PickByKeys("cart/receivedByField", m_round.by.beginning, m_round.by.entry);
    PickByKeys("cart/locationField", m_round.location, m_round.location);
    PickByKeys("cart/reasonField", m_round.reason, m_round.reason);
    m_player.Press("Tab");
    m_player.Press("Tab");
    m_player.Wait("The main button has the focus", [] {
        const QWidget* focused = QApplication::focusWidget();
        return focused && focused->objectName() == QLatin1String("btnTransfer");
    });
    m_player.Do([this] { m_round.begun = Now(); });
    m_player.Press("Return");
    if (m_round.caption == disposal.form) EnterDisposition();
    AwaitOutcome();
}

void WorkstationScenario::EnterDisposition() {
    m_round.status = AnyOf(statuses);
    m_round.note = QStringLiteral("Owner's receipt %1-%2").arg(m_seed).arg(m_left);
    m_player.Wait("The dialog is open", [] { return MessageTitle() == dispositionTitle; });
    PickByKeys("dispositionField", m_round.status, m_round.status);
    Click("the notes", "notesField");
    m_player.Type(m_round.note);
    Click("the button Save", "btnSave");
}

void WorkstationScenario::AwaitOutcome() {
    m_player.Wait(
        "The transfer has ended",
        [] {
            const QString title = MessageTitle();
            if (!title.isEmpty()) return title != QLatin1String("Focus Loop Detected!") && title != dispositionTitle;
            return Find(QStringLiteral("itemView")) && !Find(QStringLiteral("cart"));
        },
        [] { return MessageTitle(); });
    m_player.Do([this] { ReadOutcome(); });
}

void WorkstationScenario::ReadOutcome() {
    const QString title = MessageTitle();
    const bool refused = title == QLatin1String("Evidence transfer failed!");
    Report(refused ? "refused" : "done");
    if (refused) {
        m_player.Press("Return");
    } else if (!title.isEmpty()) {
        Raise(ErrorNumber::General, "WorkstationScenario", "An unexpected message: " + title.toStdString());
    }
    m_player.Wait("The page of the item is back", [] {
        return Find(QStringLiteral("itemView")) && !Find(QStringLiteral("cart")) && !QApplication::activeModalWidget();
    });
    LeaveItem();
}

void WorkstationScenario::Report(const QString& outcome) {
    const QStringList fields = {outcome,          m_round.item,   m_round.from.beginning, m_round.by.beginning,
                                m_round.location, m_round.reason, m_round.status,         m_round.note,
                                m_round.begun,    Now()};
    m_report << fields.join('|').toStdString() << std::endl;
}

void WorkstationScenario::LeaveItem() {
    m_player.Press("Escape");
    m_player.Wait("The explorer is back", [] { return Find(QStringLiteral("explorer")) != nullptr; });
    m_player.Do([this] { PlanRound(); });
}

void WorkstationScenario::AnswerFocusLoop() {
    if (MessageTitle() != QLatin1String("Focus Loop Detected!")) return;
    QWidget* button = QApplication::activeModalWidget()->focusWidget();
    if (!button) return;
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease})
        QApplication::postEvent(button, new QKeyEvent(type, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r")));
}

}  // namespace quellbrook::testing

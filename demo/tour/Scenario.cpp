#include "demo/tour/Scenario.h"

#include <QAbstractItemView>

namespace quellbrook {

using namespace tour;

namespace {

const QString tree = QStringLiteral("explorer/LocationPane");

QString VisibleViews() {
    QStringList names;
    for (const char* name : {"explorer", "cart", "itemView", "loading"})
        if (Find(QStringLiteral("content/") + name)) names.push_back(name);
    return names.join(QStringLiteral(", "));
}

}  // namespace

void Scenario::Click(const QString& what, const QString& path) {
    m_player.Click(what, [path] { return SpotOf(Find(path)); });
}

void Scenario::ExpectText(const QString& what, const QString& path, const QString& expected) {
    m_player.Expect(
        what, [path] { return TextOf(path); }, expected);
}

void Scenario::OpenLocation(const QStringList& names) {
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

void Scenario::VisitAnotherTab(const QString& stepName, const QString& view) {
    m_player.Step(stepName);
    Click("the button Labels and Scanner", "hostTabStrip/scannerPageButton");
    m_player.Wait("The other tab is shown", [] { return Find(QStringLiteral("scannerPage")) != nullptr; });
    m_player.Click("the tab Evidence",
                   [] { return SpotOfPart(Find(QStringLiteral("hostTabs")), QStringLiteral("Evidence")); });
    m_player.Expect(
        "The visible views", [] { return VisibleViews(); }, view);
}

void Scenario::PickByMouse(const QString& path, const QString& entry) {
    Click("the field " + path, path);
    m_player.Click("the entry " + entry, [entry] {
        QAbstractItemView* list = OpenDropdownList();
        return SpotOf(list, FindRow(list, entry));
    });
    ExpectChosen(path, entry);
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

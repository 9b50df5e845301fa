#pragma once

#include "demo/tour/TourPlayer.h"

namespace quellbrook {

// An entry of the dropdowns of officers, and what to type to reach it.
struct Officer {
    QString beginning, entry;
};
inline const Officer Technician{QStringLiteral("Raman"), QStringLiteral("Raman, Priya (Evidence Technician)")};
inline const Officer Analyst{QStringLiteral("Brandt"), QStringLiteral("Brandt, Tomas (Forensic Analyst)")};

// A location below another one, as dropdowns show it.
inline QString PathInDropdown(const QString& container, const QString& location) {
    return container + QStringLiteral(" \u00BB ") + location;
}

// Base class of the tour's scenarios: moves that several of them need. Paths are those of tour::Find.
class Scenario {
protected:
    explicit Scenario(TourPlayer& player) : m_player(player) {}
    ~Scenario() = default;

    void Click(const QString& what, const QString& path);
    void ExpectText(const QString& what, const QString& path, const QString& expected);
    // A node of the tree, a row of the displayed location, and an empty spot below its rows.
    static tour::Spot NodeSpot(const QString& name);
    static tour::Spot RowSpot(const QString& name);
    static tour::Spot SpotBelowRows();
    // The link of the item's page with this caption; null if it is not visible.
    static QWidget* ItemLink(const QString& caption);
    // Scans the barcode of the property with this identifier.
    void ScanProperty(const QString& identifier);
    // Types the name and the password of the first account of the sample, in a step of its own.
    void FillLoginForm();
    // Logs in as that account, in two steps.
    void LogIn();
    // Opens the locations from the outermost inward. The arrow key expands a container.
    void OpenLocation(const QStringList& names);
    // Shows another tab of the host and comes back to the view.
    void VisitAnotherTab(const QString& stepName, const QString& view);
    void ClickEvidenceTab();
    // Selects these rows of the displayed location; the text of a row is its name.
    void SelectRows(const QString& stepName, const QStringList& names);
    void ExpectSelectedRows(const QStringList& names);
    void ExpectEntry(const QString& entry);  // of the open menu
    void ChooseEntry(const QString& entry);
    // Opens the menu of a row in one step, and chooses the entry in the next.
    void ChooseFromMenu(const QString& menuStep, const QString& row, const QString& entry, const QString& nextStep);
    // Opens the dropdown and clicks the entry.
    void PickByMouse(const QString& path, const QString& entry);
    // Opens the dropdown, types the start of the entry and presses Enter.
    void PickByKeys(const QString& path, const QString& beginning, const QString& entry);
    // Fills the form of a batch. The first officer hands over, the second receives.
    void FillForm(const Officer& from, const Officer& by, const QString& destination, const QString& reason);
    void ExpectChosen(const QString& path, const QString& entry);
    // Waits for the first value that the query gives on a separate connection.
    void ExpectStored(const QString& what, const std::string& query, const QString& expected);

    TourPlayer& m_player;
};

}  // namespace quellbrook

#pragma once

#include <QString>
#include <QWidget>

#include <set>
#include <string>
#include <vector>

namespace quellbrook::testing {

// An intended fault of geometry or accessibility, and its reason. Widgets are named "parent/child" by object names, or
// by classes if there are none; a name alone means the widget under any parent.
struct MeantFault {
    enum class Kind { Overlap, Outside, Clipped, Unnamed };
    Kind kind;
    QString widget;
    QString other;  // the sibling it overlaps; empty for any
    QString reason;
};

// Visits every visible widget of a window and reports what a user would call broken: siblings that overlap,
// widgets that stick out of their parent, text that is cut off without an ellipsis, elements without an accessible
// name, tab stops that Tab does not reach and a focus that can't be seen.
class GeometryWalk {
public:
    explicit GeometryWalk(std::vector<MeantFault> meant) : m_meant(std::move(meant)) {}

    // One sentence for each unintended fault.
    std::vector<std::string> FaultsOf(QWidget& window);
    // The number of widgets visited.
    int Visited() const { return m_visited; }
    // The intended faults that were not found.
    std::vector<std::string> NeverMet() const;

private:
    void Visit(QWidget& parent);
    void CheckPlaces(QWidget& parent, const QList<QWidget*>& children);
    void CheckText(QWidget& widget);
    void CheckName(QWidget& widget);
    void CheckTabStops(QWidget& window);
    void Report(MeantFault::Kind kind, const QWidget& widget, const QWidget* other, const QString& sentence);

    std::vector<MeantFault> m_meant;
    std::set<size_t> m_met;
    std::vector<std::string> m_faults;
    int m_visited = 0;
};

}  // namespace quellbrook::testing

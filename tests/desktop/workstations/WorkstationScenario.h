#pragma once

#include "demo/tour/Scenario.h"

#include <QTimer>

#include <fstream>
#include <random>

namespace quellbrook::testing {

// Transfers single items of a department, one after the other, while other programs transfer the same ones. Each round
// scans an item, begins a task that its page offers, fills in the form by keys, and reads the outcome from the screen.
// Every fifth round disposes of its item if its page offers that. The items are the first ones that have not been
// disposed of, so that all programs use the same ones.
// The report has one line for each round, its fields separated by "|": "done", "refused", or "gone" for an item that
// was disposed of before its page opened; the item, both officers, the location, the reason; the status and the note of
// a disposal; and the times between which the transfer took place.
class WorkstationScenario : Scenario {
public:
    WorkstationScenario(TourPlayer& player, uint32_t seed, int rounds, const std::string& reportPath);

    void Plan();

private:
    struct Round {
        QString item;
        QString caption;  // of the form
        Officer from, by;
        QString location, reason;
        QString status, note;  // of a disposal
        QString begun;
    };

    void PlanRound();
    bool IsDisposalRound() const { return m_left % 5 == 0; }
    QString AnyItem();
    void BeginTask();
    void FillAndTransfer();
    void EnterDisposition();
    void AwaitOutcome();
    void ReadOutcome();
    void Report(const QString& outcome);
    void LeaveItem();
    void AnswerFocusLoop();
    template <typename Value>
    const Value& AnyOf(const std::vector<Value>& values) {
        return values.at(m_random() % values.size());
    }

    const uint32_t m_seed;
    std::mt19937 m_random;
    int m_left;
    std::ofstream m_report;
    Round m_round;
    QTimer m_focusLoops;
};

}  // namespace quellbrook::testing

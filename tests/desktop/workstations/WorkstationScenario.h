#pragma once

#include "demo/tour/Scenario.h"

#include <QTimer>

#include <fstream>
#include <random>

namespace quellbrook::testing {

// Transfers single items of a department, one after the other, while other programs transfer the same ones. Each round
// scans an item, begins a task that its page offers, fills in the form by keys, and reads the outcome from the screen.
// The report has one line for each round: "done" or "refused", the item, both officers, the location and the reason,
// separated by "|".
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
    };

    void PlanRound();
    void BeginTask();
    void FillAndTransfer();
    void ReadOutcome();
    void AnswerFocusLoop();
    template <typename Value>
    const Value& AnyOf(const std::vector<Value>& values) {
        return values.at(m_random() % values.size());
    }

    std::mt19937 m_random;
    int m_left;
    std::ofstream m_report;
    Round m_round;
    QTimer m_focusLoops;
};

}  // namespace quellbrook::testing

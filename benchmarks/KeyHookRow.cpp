#include "benchmarks/Rows.h"

#include "input/BarcodeListener.h"

#include <QCoreApplication>
#include <QEvent>

namespace quellbrook::bench {

namespace {

constexpr int events = 100'000, turns = 60;
constexpr double nanosecondsAbove = 10;  // a bare filter

class BareFilter : public QObject {
public:
    BareFilter() { QCoreApplication::instance()->installEventFilter(this); }
    bool eventFilter(QObject*, QEvent*) override { return false; }
};

void SendEvents() {
    QObject receiver;
    QEvent event(QEvent::User);
    for (int i = 0; i < events; ++i) QCoreApplication::sendEvent(&receiver, &event);
}

}  // namespace

void MeasureKeyHook(std::vector<Result>& results) {
    const auto hooked = [] {
        BarcodeListener listener({[] { return true; }, [] { return true; }});
        listener.Shown();
        SendEvents();
    };
    const auto bare = [] {
        const BareFilter filter;
        SendEvents();
    };
    const PairedTimes times = MeasurePair(hooked, bare, turns, 1);
    results.push_back({"key hook, an event that is not a key",
                       1,
                       "ns",
                       (times.ours - times.baseline) * 1000 / events,
                       {},
                       nanosecondsAbove});
}

}  // namespace quellbrook::bench

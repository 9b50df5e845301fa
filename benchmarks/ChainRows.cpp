#include "benchmarks/Rows.h"
#include "benchmarks/Yardstick.h"
#include "data/CustodyRecords.h"
#include "data/StoredItemSearch.h"
#include "ui/items/TrackingList.h"

#include <QCoreApplication>
#include <QWidget>

#include <algorithm>

namespace quellbrook::bench {

namespace {

constexpr size_t chainLength = 2000;
constexpr double millisecond = 1000;  // microseconds

// One chain from the records of many items, so that its people and locations are those of a department.
std::shared_ptr<const TrackingRecordList> LongChain() {
    const auto items = StoredItemSearch().WithDescription("*").Execute();
    auto chain = std::make_shared<TrackingRecordList>();
    for (int32_t i = 0; i < items->Count() && chain->size() < chainLength; ++i)
        for (const auto& record : items->ItemAt(i)->TrackingRecords())
            if (chain->size() < chainLength) chain->push_back(record);
    Require(chain->size() == chainLength, "The department has too few custody rows.");
    return chain;
}

}  // namespace

void MeasureChainOnScreen(std::vector<Result>& results) {
    const auto chain = LongChain();
    QWidget window;
    window.resize(1280, 660);
    TrackingList list(&window);
    list.setGeometry(window.rect());
    window.show();
    QCoreApplication::processEvents();
    const double before = MicrosecondsOf(PaintYardstick);
    double longest = MicrosecondsOf([&] { list.SetRecords(chain); });
    double all = longest;
    while (list.Rows().size() < chainLength) {
        const double turn = MicrosecondsOf([] { QCoreApplication::processEvents(); });
        longest = std::max(longest, turn);
        all += turn;
    }
    const TimeBesideYardstick turn{longest, (before + MicrosecondsOf(PaintYardstick)) / 2};
    const int rows = static_cast<int>(chainLength);
    results.push_back({"the longest turn while a chain of custody appears",
                       rows,
                       "ms",
                       turn.time / millisecond,
                       {},
                       turn.Bar(50 * millisecond) / millisecond});
    results.push_back({"all turns while a chain of custody appears", rows, "ms", all / millisecond, {}, {}});
}

}  // namespace quellbrook::bench

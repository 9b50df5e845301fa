#include "benchmarks/Rows.h"
#include "benchmarks/Yardstick.h"
#include "core/Actions.h"
#include "core/Stores.h"
#include "data/BarcodeText.h"
#include "data/StorageLocationStatic.h"
#include "data/StoredItemSearch.h"
#include "ui/controls/FlatScrollBar.h"
#include "ui/controls/ListView.h"
#include "ui/explorer/CategorizedSearchResults.h"
#include "ui/explorer/EvidenceExplorer.h"
#include "ui/explorer/LocationView.h"
#include "ui/explorer/SearchResultList.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QThread>
#include <QTreeWidget>
#include <QWindow>

#include <algorithm>

#include <benchmark/benchmark.h>

namespace quellbrook::bench {

namespace {

constexpr double millisecond = 1000;  // microseconds

// The first items of another list.
class FirstItems : public StoredItemList {
public:
    FirstItems(std::shared_ptr<StoredItemList> all, int32_t count)
        : m_all(std::move(all)), m_count(std::min(count, m_all->Count())) {}
    std::string TypeName() const override { return "Collection"; }
    int32_t Count() const override { return m_count; }
    StoredItemRef ItemAt(int32_t index) const override { return m_all->ItemAt(index); }

private:
    std::shared_ptr<StoredItemList> m_all;
    int32_t m_count;
};

void Settle() { QCoreApplication::processEvents(); }

void ReadContents(StorageLocation& location) {
    benchmark::DoNotOptimize(location.SubLocations().size());
    benchmark::DoNotOptimize(location.StoredItemsCount());
    const auto items = location.StoredItems();
    for (int32_t i = 0; i < items->Count(); ++i) benchmark::DoNotOptimize(items->ItemAt(i).get());
}

void MeasureOpening(EvidenceExplorer& explorer, Baseline& baseline, std::vector<Result>& results) {
    const StorageLocationRef location = GetStorageLocationStatic().FindByID(UsualLocation(baseline));
    const StorageLocationRef root = GetStorageLocationStatic().GetRoot(location->LocationType());
    const auto leave = [&] {
        explorer.SetSelectedLocation(root);
        Settle();
    };
    const TimeBesideYardstick whole = MeasureBesideYardstick(
        leave,
        [&] {
            explorer.SetSelectedLocation(location);
            Settle();
        },
        51);
    const int count = explorer.ItemPane()->List()->RowCount();
    const TimeBesideYardstick data = MeasureBesideYardstick([] {}, [&] { ReadContents(*location); }, 51);
    results.push_back({"opening a location, the explorer's share",
                       count,
                       "ms",
                       (whole.time - data.time) / millisecond,
                       {},
                       whole.Bar(16 * millisecond) / millisecond});
    results.push_back({"opening a location, the database's share", count, "ms", data.time / millisecond, {}, {}});
}

void MeasureScrolling(std::vector<Result>& results) {
    QWidget window;
    window.resize(960, 660);
    SearchResultList list(&window);
    list.setGeometry(window.rect());
    window.show();
    const auto items = std::make_shared<FirstItems>(StoredItemSearch().WithDescription("*").Execute(), 32'000);
    list.SetItems(items);
    auto* bar = list.findChild<FlatScrollBar*>(QStringLiteral("vertScroll"));
    bar->SetValue(bar->Max() / 2);
    const TimeBesideYardstick step = MeasureBesideYardstick([] { Settle(); },
                                                            [&] {
                                                                bar->SetValue(bar->Value() + 1);
                                                                Settle();
                                                            },
                                                            201);
    results.push_back({"a scroll step in a list of results",
                       items->Count(),
                       "ms",
                       step.time / millisecond,
                       {},
                       step.Bar(8 * millisecond) / millisecond});
}

// The baseline asks for the tasks that are allowed for each selected item four times.
void MeasureMenu(EvidenceExplorer& explorer, Baseline& baseline, std::vector<Result>& results) {
    const int32_t large =
        baseline
            .Integers(
                "SELECT StorageLocNo FROM CurrentPlace GROUP BY StorageLocNo ORDER BY COUNT(*) < 5000, "
                "ABS(COUNT(*) - 5000) LIMIT 1")
            .at(0);
    const StorageLocationRef location = GetStorageLocationStatic().FindByID(large);
    explorer.SetSelectedLocation(location);
    ListView* list = explorer.ItemPane()->List();
    const int last = list->RowCount() - 1;
    const int first = std::max(static_cast<int>(location->SubLocations().size()), last + 1 - 5000);
    QTreeWidget* tree = list->Tree();
    tree->setFocus();
    tree->selectionModel()->select(QItemSelection(tree->model()->index(first, 0), tree->model()->index(last, 0)),
                                   QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    const auto selected = explorer.GetSelectedObjects();
    const auto cart = GetStores().Cart;
    const PairedTimes times = MeasurePair(
        [&] {
            QMenu* menu = nullptr;
            QAction* entry = nullptr;
            explorer.ItemPane()->ItemContextMenu(menu, entry);
            Require(menu != nullptr, "The explorer offered no menu.");
        },
        [&] {
            for (int32_t i = 0; i < selected->Count(); ++i) {
                const auto item = std::dynamic_pointer_cast<StoredItem>(selected->At(i));
                for (int call = 0; call < 4; ++call) benchmark::DoNotOptimize(cart->GetAllowedTasks(item));
            }
        },
        11, 1);
    results.push_back({"the menu of selected items, over bare questions", selected->Count(), "ms",
                       times.ours / millisecond, times.baseline / millisecond, 1.5});
}

void MeasureFiveSearches(EvidenceExplorer& explorer, Baseline& baseline, std::vector<Result>& results) {
    const std::string identifier =
        baseline.Texts("SELECT PropertyID FROM Property WHERE PropertyID LIKE '____-%' ORDER BY PropertyNo LIMIT 1")
            .at(0);
    Statement numbers[] = {
        BestLookup(baseline, NumberSearchTypes::PropertyID), BestLookup(baseline, NumberSearchTypes::VehicleTag),
        BestLookup(baseline, NumberSearchTypes::IncidentId), BestLookup(baseline, NumberSearchTypes::CaseNumber)};
    Statement description = BestDescription(baseline);
    for (const std::string& text : {identifier, std::string("red handles")}) {
        size_t found = 0;
        const PairedTimes times = MeasurePair([&] { explorer.SearchResultPane()->ExecuteQuery(text); },
                                              [&] {
                                                  found = 0;
                                                  for (Statement& number : numbers)
                                                      found += Baseline::ReadItems(number.Bind(1, text)).size();
                                                  const std::string pattern = "%" + text + "%";
                                                  found += Baseline::ReadItems(description.Bind(1, pattern)).size();
                                              },
                                              11, 1);
        results.push_back({"the five searches of '" + text + "'", static_cast<int>(found), "ms",
                           times.ours / millisecond, times.baseline / millisecond, 1.5});
    }
}

void SendKey(QChar text, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWindow* window = QGuiApplication::focusWindow();
    Require(window != nullptr, "No window is active.");
    const int key = modifiers == Qt::ControlModifier ? text.unicode() + 'A' - 1 : text.toUpper().unicode();
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, modifiers, QString(text));
        QCoreApplication::sendEvent(window, &event);
    }
}

// From the last key of a scan until the item's view is painted.
void MeasureScan(Baseline& baseline, std::vector<Result>& results) {
    constexpr int turns = 21;
    const std::vector<int32_t> keys =
        Spread(baseline.Integers("SELECT ItemNo FROM CurrentPlace WHERE ItemType = 1 ORDER BY ItemNo"), turns);
    std::vector<double> times;
    for (const int32_t key : keys) {
        const std::string barcode = MakeBarcodeText("P", key);
        QThread::msleep(200);  // a key soon after a scan is dropped
        SendKey(QChar(2), Qt::ControlModifier);
        for (const char character : barcode.substr(1, barcode.size() - 2)) SendKey(QChar::fromLatin1(character));
        QElapsedTimer timer;
        timer.start();
        SendKey(QChar(3), Qt::ControlModifier);
        while (GetStores().View->ViewName() != ViewNames::ItemView && timer.elapsed() < 5000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        Settle();
        times.push_back(static_cast<double>(timer.nsecsElapsed()) / 1e6);
        Require(GetStores().View->ViewName() == ViewNames::ItemView, "The scan opened no item.");
        GetActions().GoBack();
        Settle();
    }
    std::nth_element(times.begin(), times.begin() + turns / 2, times.end());
    results.push_back({"from the last key of a scan to the opened item", 1, "ms", times[turns / 2], {}, {}});
}

}  // namespace

void MeasureExplorer(QWidget& shell, Baseline& baseline, std::vector<Result>& results) {
    GetActions().NavigateTo(ViewNames::Explorer, nullptr);
    Settle();
    auto* explorer = shell.findChild<EvidenceExplorer*>();
    Require(explorer && explorer->isVisible(), "The explorer is not visible.");
    MeasureOpening(*explorer, baseline, results);
    MeasureScrolling(results);
    MeasureMenu(*explorer, baseline, results);
    shell.window()->activateWindow();
    Settle();
    MeasureScan(baseline, results);
    explorer->DoSearchRequest("red handles");
    MeasureFiveSearches(*explorer, baseline, results);
}

}  // namespace quellbrook::bench

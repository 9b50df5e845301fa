#include "benchmarks/Rows.h"
#include "benchmarks/Yardstick.h"
#include "component/EvidenceUI.h"
#include "component/Quellbrook.h"
#include "core/Actions.h"
#include "core/Stores.h"
#include "data/StoredItemSearch.h"
#include "ui/common/WidgetScreen.h"
#include "ui/controls/FlatButton.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <array>
#include <optional>

#include <malloc.h>

namespace quellbrook::bench {

namespace {

constexpr int dialogs = 1000, switches = 10'000, share = 250;
constexpr int fewSwitches = 2000;  // in a quick run
constexpr double pace = 1.2, bytesLeft = 16;

// Answers messages of the shell immediately.
class AnsweringScreen : public WidgetScreen {
public:
    int32_t ShowMessage(const std::string& prompt, int32_t buttons, const std::string& title) override {
        if (title == "Focus Loop Detected!") return MessageAnswer::Ok;
        return WidgetScreen::ShowMessage(prompt, buttons, title);
    }
};

void PressOk() {
    QWidget* dialog = QApplication::activeModalWidget();
    Require(dialog != nullptr, "No dialog is open.");
    dialog->findChild<FlatButton*>(QStringLiteral("button"))->Click();
}

void OpenAndClose() {
    QTimer::singleShot(0, qApp, PressOk);
    const int32_t answer = GetScreen().ShowMessage("Please specify where this evidence is going.",
                                                   MessageStyle::Critical, "Missing destination");
    Require(answer == MessageAnswer::Ok, "The dialog was not closed by its button.");
}

void Settle() {
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

double Median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + share / 2, values.end());
    return values[share / 2];
}

struct Pace {
    double yardstick;  // microseconds
    double ratio;      // of an operation to the constant work just before and after it
};

Pace MeasureShare(const std::function<void()>& operation) {
    std::vector<double> yardsticks, ratios;
    double before = MicrosecondsOf(PaintYardstick);
    for (int i = 0; i < share; ++i) {
        const double time = MicrosecondsOf(operation);
        const double after = MicrosecondsOf(PaintYardstick);
        yardsticks.push_back(after);
        ratios.push_back(2 * time / (before + after));
        before = after;
    }
    return {Median(yardsticks), Median(ratios)};
}

// Compares the last operations, scaled to the machine's speed during the first ones, with these; and
// measures the memory that each operation of the second half leaves, when Qt's caches are full.
void MeasurePace(const char* name, int count, const std::function<void()>& operation, std::vector<Result>& results) {
    for (int i = 0; i < share; ++i) operation();
    const Pace first = MeasureShare(operation);
    for (int i = share; i < count / 2; ++i) operation();
    const size_t bytes = mallinfo2().uordblks;
    const qsizetype widgets = QApplication::allWidgets().size();
    for (int i = count / 2; i < count - share; ++i) operation();
    const Pace last = MeasureShare(operation);
    Require(QApplication::allWidgets().size() == widgets, std::string(name) + ": a widget was left behind.");
    const double left = static_cast<double>(mallinfo2().uordblks) - static_cast<double>(bytes);
    results.push_back({std::string(name) + ", last 250 over first", count, "us", last.ratio * first.yardstick,
                       first.ratio * first.yardstick, pace});
    results.push_back(
        {std::string(name) + ", bytes left by each", count, "B", std::max(0.0, left / (count / 2)), {}, bytesLeft});
}

std::shared_ptr<ObjectList> SomeItems() {
    const auto found = StoredItemSearch().WithDescription("*").Execute();
    auto items = std::make_shared<ObjectVector>();
    for (int32_t i = 0; i < 3; ++i) items->Add(found->ItemAt(i));
    return items;
}

}  // namespace

void MeasureShell(bool quick, Baseline& baseline, std::vector<Result>& results) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int argumentCount = 1;
    std::array<char*, 2> arguments{const_cast<char*>("quellbrook_bench"), nullptr};
    const QApplication application(argumentCount, arguments.data());
    InstallTheme(false);
    Startup();
    AnsweringScreen screen;
    std::optional<EnvironmentScope> environment;
    environment.emplace();
    (*environment)->screen = &screen;
    MeasureKeyHook(results);
    {
        QWidget window;
        window.resize(1280, 800);
        SetDialogParent(&window);
        QWidget* shell = CreateEvidenceUI(&window);
        shell->resize(window.size());
        window.show();
        shell->show();
        Settle();
        MeasurePace(
            "a message dialog", dialogs,
            [] {
                OpenAndClose();
                Settle();
            },
            results);
        GetActions().BeginTransaction(TransactionType::SignOut, SomeItems());
        bool toCart = false;
        MeasurePace(
            "a change of view", quick ? fewSwitches : switches,
            [&toCart] {
                toCart = !toCart;
                toCart ? GetActions().NavigateTo("cart", nullptr) : GetActions().GoBack();
                Settle();
            },
            results);
        GetActions().CancelTransaction();
        MeasureExplorer(*shell, baseline, results);
        MeasureChainOnScreen(results);
    }
    environment.reset();
    Shutdown();
}

}  // namespace quellbrook::bench

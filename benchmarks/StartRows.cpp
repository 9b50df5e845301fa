#include "benchmarks/StartRows.h"

#include "app/Run.h"
#include "component/ClassFactory.h"
#include "demo/sample/SampleDepartment.h"
#include "ui/style/Theme.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QProcess>
#include <QPushButton>
#include <QTemporaryDir>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <utility>

namespace quellbrook::bench {

namespace {

constexpr int runs = 21, fewRuns = 5, patience = 60'000;  // milliseconds
constexpr QSize windowSize(1280, 800);

double Now() {
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::micro>(time).count();
}

// Calls the function after the first painting of the widget with this name.
class PaintWatcher : public QObject {
public:
    PaintWatcher(const char* name, std::function<void()> then)
        : QObject(qApp), m_name(QString::fromLatin1(name)), m_then(std::move(then)) {
        qApp->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->objectName() == m_name) {
            qApp->removeEventFilter(this);
            QMetaObject::invokeMethod(qApp, m_then, Qt::QueuedConnection);
        }
        return false;
    }

private:
    QString m_name;
    std::function<void()> m_then;
};

[[noreturn]] void Finish(double first, double second) {
    std::printf("%.0f %.0f\n", first, second);
    std::fflush(stdout);
    std::_Exit(0);
}

template <typename T>
T* Find(const char* name) {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* found = window->findChild<T*>(QString::fromLatin1(name))) return found;
    std::fprintf(stderr, "There is no '%s'.\n", name);
    std::_Exit(1);
}

int ShowDepartment(const std::string& path, double start) {
    new PaintWatcher("loginForm", [start] {
        const SampleAccount account = SampleAccounts().front();
        Find<QLineEdit>("username")->setText(QString::fromStdString(account.username));
        Find<QLineEdit>("password")->setText(QString::fromStdString(account.password));
        const double login = Now();
        new PaintWatcher("explorer", [start, login] { Finish(login - start, Now() - login); });
        Find<QPushButton>("logIn")->click();
    });
    Options options;
    options.databasePath = path;
    return RunHost(options, [] { return &DllGetClassObject; });
}

std::unique_ptr<QWidget> OpenWindow(const char* name) {
    auto window = std::make_unique<QWidget>();
    window->setObjectName(QString::fromLatin1(name));
    window->resize(windowSize);
    new QLabel(QStringLiteral("Quellbrook"), window.get());
    window->show();
    return window;
}

int ShowEmptyWindows(double start) {
    QApplication::setFont(Theme::Font(Theme::Type::Body));
    std::unique_ptr<QWidget> second;
    new PaintWatcher("first", [start, &second] {
        const double opening = Now();
        new PaintWatcher("second", [start, opening] { Finish(opening - start, Now() - opening); });
        second = OpenWindow("second");
    });
    const std::unique_ptr<QWidget> first = OpenWindow("first");
    return QApplication::exec();
}

using Waits = std::pair<double, double>;  // microseconds

Waits Start(const std::string& department, const QString& home) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const char* folder : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        environment.insert(QString::fromLatin1(folder), home);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(QCoreApplication::applicationFilePath(),
                  {"--start", QString::fromStdString(department), QString::number(Now(), 'f', 0)});
    Require(process.waitForFinished(patience) && process.exitCode() == 0, "The program did not show its explorer.");
    const QByteArrayList waits = process.readAllStandardOutput().split(' ');
    Require(waits.size() == 2, "The program did not report its waits.");
    return {waits[0].toDouble(), waits[1].toDouble()};
}

double Median(std::vector<Waits> all, double Waits::*wait) {
    const auto middle = all.begin() + static_cast<std::ptrdiff_t>(all.size() / 2);
    std::nth_element(all.begin(), middle, all.end(),
                     [wait](const Waits& a, const Waits& b) { return a.*wait < b.*wait; });
    return *middle.*wait;
}

}  // namespace

int RunStart(const std::string& departmentPath, const std::string& startTime) {
    int argumentCount = 1;
    std::array<char*, 2> arguments{const_cast<char*>("quellbrook_bench"), nullptr};
    const QApplication application(argumentCount, arguments.data());
    const double start = std::strtod(startTime.c_str(), nullptr);
    return departmentPath.empty() ? ShowEmptyWindows(start) : ShowDepartment(departmentPath, start);
}

void MeasureStart(const std::string& departmentPath, bool quick, std::vector<Result>& results) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int argumentCount = 1;
    std::array<char*, 2> arguments{const_cast<char*>("quellbrook_bench"), nullptr};
    const QCoreApplication application(argumentCount, arguments.data());
    const QTemporaryDir home;
    Require(home.isValid(), "There is no folder for the settings.");
    std::vector<Waits> ours, empty;
    Start(departmentPath, home.path());
    Start("", home.path());
    for (int run = 0; run < (quick ? fewRuns : runs); ++run) {
        ours.push_back(Start(departmentPath, home.path()));
        empty.push_back(Start("", home.path()));
    }
    const auto add = [&](const char* name, double Waits::*wait) {
        results.push_back({name, 1, "us", Median(ours, wait), Median(empty, wait), {}});
    };
    add("start to login form, over an empty window", &Waits::first);
    add("login to explorer, over an empty window", &Waits::second);
}

}  // namespace quellbrook::bench

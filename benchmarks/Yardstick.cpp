#include "benchmarks/Yardstick.h"

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <vector>

#include <time.h>

namespace quellbrook::bench {

namespace {

// The time of the constant work on the machine on which the bars were set.
constexpr double usualYardstick = 1450;  // microseconds

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

}  // namespace

double MicrosecondsOf(const std::function<void()>& operation) {
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) * 1e6 + static_cast<double>(time.tv_nsec) / 1e3;
    };
    const double start = now();
    operation();
    return now() - start;
}

void PaintYardstick() {
    static QImage image(800, 600, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&image);
    for (int y = 0; y < 600; y += 4)
        painter.drawText(QRect(0, y, 800, 40), Qt::AlignCenter, QStringLiteral("Evidence"));
}

double TimeBesideYardstick::Bar(double microseconds) const { return microseconds * yardstick / usualYardstick; }

TimeBesideYardstick MeasureBesideYardstick(const std::function<void()>& prepare, const std::function<void()>& operation,
                                           int turns) {
    prepare();
    operation();
    std::vector<double> times, yardsticks;
    for (int turn = 0; turn < turns; ++turn) {
        prepare();
        yardsticks.push_back(MicrosecondsOf(PaintYardstick));
        times.push_back(MicrosecondsOf(operation));
        yardsticks.push_back(MicrosecondsOf(PaintYardstick));
    }
    return {Median(times), Median(yardsticks)};
}

}  // namespace quellbrook::bench

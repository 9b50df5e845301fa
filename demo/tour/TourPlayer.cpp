#include "demo/tour/TourPlayer.h"

#include "base/Error.h"
#include "demo/tour/TourReport.h"

#include <QApplication>
#include <QDir>
#include <QScreen>

#include <cstdio>

namespace quellbrook {

namespace {

constexpr int tickMilliseconds = 20, settleMilliseconds = 1'500, restingGrabs = 5;

}  // namespace

TourSenses ScreenSenses() {
    return {[] { return QApplication::primaryScreen()->grabWindow(0).toImage(); }};
}

TourPlayer::TourPlayer(QWidget& window, const QString& directory, std::shared_ptr<Engine> engine,
                       const QString& labelFolder, const TourSenses& senses)
    : m_window(window),
      m_directory(directory),
      m_labelFolder(labelFolder),
      m_rows(std::move(engine)),
      m_senses(senses) {
    m_timer.setInterval(tickMilliseconds);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &TourPlayer::Tick);
}

void TourPlayer::Start() {
    if (!QDir().mkpath(m_directory)) {
        Raise(ErrorNumber::General, "TourPlayer.Start",
              "The directory '" + m_directory.toStdString() + "' can't be created.");
    }
    AddPicture();
    m_waiting.start();
    m_timer.start();
}

void TourPlayer::Step(const QString& name) {
    if (!m_planned.isEmpty()) AddPicture();
    m_planned = name;
    Do([this, name] {
        const QString number = QStringLiteral("%1").arg(m_steps.size() + 1, 3, 10, QLatin1Char('0'));
        m_steps.push_back({name, number + QLatin1Char('-') + name + QStringLiteral(".png"), false, QString()});
    });
}

void TourPlayer::AddPress(const QString& what, std::function<tour::Spot()> spot,
                          std::function<void(const QPoint&)> press) {
    // Two successive positions must be equal, to avoid clicking a moving widget.
    auto last = std::make_shared<tour::Spot>();
    AddMove({what + QStringLiteral(" can be pressed"),
             [spot, last] {
                 const tour::Spot now = spot();
                 const bool steady = now && *last == now;
                 *last = now;
                 return steady;
             },
             [last, press] { press(**last); },
             {}});
}

void TourPlayer::Click(const QString& what, std::function<tour::Spot()> spot, tour::InputDriver::Button button,
                       tour::InputDriver::Modifier held) {
    AddPress(what, std::move(spot), [this, button, held](const QPoint& at) { m_input.Click(at, button, held); });
}

void TourPlayer::DoubleClick(const QString& what, std::function<tour::Spot()> spot) {
    AddPress(what, std::move(spot), [this](const QPoint& at) { m_input.DoubleClick(at); });
}

void TourPlayer::Drag(const QString& what, std::function<tour::Spot()> spot, const QPoint& distance) {
    AddPress(what, std::move(spot), [this, distance](const QPoint& at) { m_input.Drag(at, at + distance); });
}

void TourPlayer::Drop() {
    Do([this] { m_input.Drop(); });
}

void TourPlayer::TurnWheel(const QString& what, std::function<tour::Spot()> spot, int notches) {
    AddPress(what, std::move(spot), [this, notches](const QPoint& at) { m_input.TurnWheel(at, notches); });
}

void TourPlayer::Type(const QString& text) {
    Do([this, text] { m_input.Type(text); });
}

void TourPlayer::Press(const QString& key) {
    Do([this, key] { m_input.Press(key); });
}

void TourPlayer::Scan(std::function<QString()> barcode) {
    Do([this, barcode = std::move(barcode)] { m_input.Scan(barcode()); });
}

void TourPlayer::Wait(const QString& what, std::function<bool()> condition, std::function<QString()> see) {
    AddMove({what, std::move(condition), {}, std::move(see)});
}

void TourPlayer::Expect(const QString& what, std::function<QString()> text, const QString& expected) {
    const QString sentence = QStringLiteral("%1: \"%2\".").arg(what, expected);
    AddMove({sentence, [text, expected] { return text() == expected; }, [this, sentence] { Say(sentence); }, text});
}

void TourPlayer::Do(std::function<void()> action) {
    AddMove({QStringLiteral("the action"), [] { return true; }, std::move(action), {}});
}

void TourPlayer::AddPicture() {
    AddMove(
        {QStringLiteral("the screen is still"), [this] { return IsSettled(); }, [this] { TakePicture(); }, {}, true});
}

// True after several equal pictures, or if the screen does not settle.
bool TourPlayer::IsSettled() {
    QImage grab = m_senses.camera();
    m_equalGrabs = grab == m_lastGrab ? m_equalGrabs + 1 : 0;
    m_lastGrab = std::move(grab);
    return m_equalGrabs >= restingGrabs || m_waiting.elapsed() > settleMilliseconds;
}

void TourPlayer::Say(const QString& sentence) {
    QString& said = m_steps.back().said;
    if (!said.isEmpty()) said += QLatin1Char('\n');
    said += sentence;
}

void TourPlayer::Tick() {
    if (m_ended || m_ticking) return;
    m_ticking = true;
    try {
        Advance();
    } catch (...) {
        Fail(QString::fromStdString(CurrentError().Description()));
    }
    m_ticking = false;
}

void TourPlayer::Advance() {
    if (!m_input.IsIdle()) return;
    const QString failure = m_input.TakeFailure();
    if (!failure.isEmpty()) return Fail(failure);
    if (m_moves.empty()) return End();
    Move& move = m_moves.front();
    if (!move.ready()) {
        if (move.alwaysEnds || m_waiting.elapsed() < m_senses.limitMilliseconds) return;
        QString reason = QStringLiteral("Did not appear: ") + move.what;
        if (move.see) reason += QStringLiteral(" Seen: \"") + move.see() + QStringLiteral("\".");
        return Fail(reason);
    }
    const std::function<void()> act = std::move(move.act);
    m_moves.pop_front();
    m_waiting.restart();
    if (act) act();
}

void TourPlayer::TakePicture() {
    TourStep& step = m_steps.back();
    if (!m_lastGrab.save(QDir(m_directory).filePath(step.picture))) {
        Raise(ErrorNumber::General, "TourPlayer.TakePicture",
              "The picture " + step.picture.toStdString() + " can't be written.");
    }
    step.held = true;
    m_equalGrabs = 0;
    std::printf("%s\n", qPrintable(step.picture));
    std::fflush(stdout);
}

void TourPlayer::Fail(const QString& reason) {
    if (m_steps.empty())
        m_steps.push_back({QStringLiteral("start"), QStringLiteral("001-start.png"), false, QString()});
    Say(reason);
    std::fprintf(stderr, "%s: %s\n", qPrintable(m_steps.back().name), qPrintable(reason));
    m_senses.camera().save(QDir(m_directory).filePath(m_steps.back().picture));
    m_steps.back().held = false;
    End();
}

void TourPlayer::End() {
    m_ended = true;
    m_timer.stop();
    bool allPassed = m_moves.empty();
    for (const TourStep& step : m_steps) allPassed = allPassed && step.held;
    m_passed = WriteReport() && allPassed;
    QApplication::exit(m_passed ? 0 : 1);
}

bool TourPlayer::WriteReport() const {
    try {
        WriteTourReport(QDir(m_directory).filePath(QStringLiteral("tour.json")), m_steps, m_rows.Written());
        return true;
    } catch (...) {
        std::fprintf(stderr, "%s\n", CurrentError().what());
        return false;
    }
}

}  // namespace quellbrook

#pragma once

#include "demo/tour/CustodyRows.h"
#include "demo/tour/InputDriver.h"
#include "demo/tour/TourStep.h"
#include "demo/tour/WindowInspector.h"

#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <QWidget>

#include <deque>
#include <functional>
#include <vector>

namespace quellbrook {

// How a player sees the screen, and how long it waits for a condition.
struct TourSenses {
    std::function<QImage()> camera;  // takes a picture of the whole screen
    int limitMilliseconds = 15'000;
};
TourSenses ScreenSenses();

// Plays a scenario in the program: moves the mouse, presses keys and waits for the results on the screen. Runs from the
// event loop, also while dialogs and menus run their own loops. A condition that is not met within the time limit ends
// the tour. The tour ends with QApplication::exit.
class TourPlayer : public QObject {
    Q_OBJECT

public:
    // The engine opens the program's database, to read it back. The program must print labels into the folder.
    TourPlayer(QWidget& window, const QString& directory, std::shared_ptr<Engine> engine, const QString& labelFolder,
               const TourSenses& senses = ScreenSenses());

    void Start();
    // Whether every step passed. Call it after the end of the tour.
    bool Passed() const { return m_passed; }

    // Call these before Start to add the moves of the scenario. Spots and conditions are polled.

    void Step(const QString& name);  // ends with a picture of the screen
    void Click(const QString& what, std::function<tour::Spot()> spot,
               tour::InputDriver::Button button = tour::InputDriver::Button::Left,
               tour::InputDriver::Modifier held = tour::InputDriver::Modifier::None);
    void DoubleClick(const QString& what, std::function<tour::Spot()> spot);
    // Drags from a spot by this distance. The button stays down until Drop.
    void Drag(const QString& what, std::function<tour::Spot()> spot, const QPoint& distance);
    void Drop();
    void TurnWheel(const QString& what, std::function<tour::Spot()> spot, int notches);
    void Type(const QString& text);
    void Press(const QString& key);
    void Scan(std::function<QString()> barcode);  // called when the move is played
    // Waits for a condition; `see` describes the actual state for the report.
    void Wait(const QString& what, std::function<bool()> condition, std::function<QString()> see = {});
    // Waits for the text and adds it to the report.
    void Expect(const QString& what, std::function<QString()> text, const QString& expected);
    void Do(std::function<void()> action);
    // Adds a sentence to the report of the current step.
    void Say(const QString& sentence);

    const tour::CustodyRows& Rows() const { return m_rows; }
    QWidget& Window() const { return m_window; }
    // Where the program prints labels during the tour.
    const QString& LabelFolder() const { return m_labelFolder; }

private:
    struct Move {
        QString what;
        std::function<bool()> ready;
        std::function<void()> act;
        std::function<QString()> see;
        bool alwaysEnds = false;  // always becomes ready eventually
    };

    void AddMove(Move move) { m_moves.push_back(std::move(move)); }
    void AddPress(const QString& what, std::function<tour::Spot()> spot, std::function<void(const QPoint&)> press);
    void AddPicture();
    bool IsSettled();
    void Tick();
    void Advance();
    void TakePicture();
    void Fail(const QString& reason);
    void End();
    bool WriteReport() const;

    QWidget& m_window;
    const QString m_directory;
    const QString m_labelFolder;
    const tour::CustodyRows m_rows;
    const TourSenses m_senses;
    tour::InputDriver m_input;
    QTimer m_timer;
    QElapsedTimer m_waiting;
    std::deque<Move> m_moves;
    std::vector<TourStep> m_steps;
    QString m_planned;  // name of the step being added
    QImage m_lastGrab;
    int m_equalGrabs = 0;
    bool m_ticking = false;
    bool m_ended = false;
    bool m_passed = false;
};

}  // namespace quellbrook

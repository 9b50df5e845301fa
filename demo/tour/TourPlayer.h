#pragma once

#include "demo/tour/CustodyRows.h"
#include "demo/tour/Hand.h"
#include "demo/tour/Look.h"
#include "demo/tour/TourStep.h"

#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <QWidget>

#include <deque>
#include <functional>
#include <vector>

namespace quellbrook {

// What a player looks with, and how long it waits for a thing to come.
struct TourSenses {
    std::function<QImage()> camera;  // a picture of the whole screen
    int limitMilliseconds = 15'000;
};
TourSenses ScreenSenses();

// Plays a road through the program as a person would: looks at the screen, moves the mouse, presses keys, and waits for
// what should come of it. Runs from the event loop, also while dialogs and menus run loops of their own. A thing that
// does not come within the time limit ends the tour; the application is left with QApplication::quit either way.
class TourPlayer : public QObject {
    Q_OBJECT

public:
    TourPlayer(QWidget& window, const QString& directory, const std::string& databasePath,
               const TourSenses& senses = ScreenSenses());

    void Start();
    // Whether every step held; only once the tour has ended.
    bool Held() const { return m_held; }

    // The road, written move by move before Start. Spots and conditions are asked again and again until they answer.

    void Step(const QString& name);  // ends with a picture of the screen
    void Click(const QString& what, std::function<tour::Spot()> spot,
               tour::Hand::Button button = tour::Hand::Button::Left, bool withControl = false);
    void DoubleClick(const QString& what, std::function<tour::Spot()> spot);
    void Type(const QString& text);
    void Press(const QString& key);
    void Scan(std::function<QString()> barcode);  // asked when its turn has come
    // Waits until it holds; `see` tells what is there instead, for the report.
    void Wait(const QString& what, std::function<bool()> holds, std::function<QString()> see = {});
    // Waits until the text is there, and says so in the report.
    void Expect(const QString& what, std::function<QString()> text, const QString& expected);
    void Do(std::function<void()> action);
    // Adds a sentence to the report of the step that is being played.
    void Say(const QString& sentence);

    const tour::CustodyRows& Rows() const { return m_rows; }
    QWidget& Window() const { return m_window; }

private:
    struct Move {
        QString what;
        std::function<bool()> ready;
        std::function<void()> act;
        std::function<QString()> see;
        bool endsByItself = false;  // is ready at some time in any case
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
    const tour::CustodyRows m_rows;
    const TourSenses m_senses;
    tour::Hand m_hand;
    QTimer m_timer;
    QElapsedTimer m_waiting;
    std::deque<Move> m_moves;
    std::vector<TourStep> m_steps;
    QString m_planned;  // name of the step being written
    QImage m_lastGrab;
    int m_equalGrabs = 0;
    bool m_ticking = false;
    bool m_ended = false;
    bool m_held = false;
};

}  // namespace quellbrook

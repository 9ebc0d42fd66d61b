#pragma once

#include "tests/monkey/Chance.h"
#include "tests/monkey/Hands.h"
#include "tests/monkey/Order.h"
#include "tests/monkey/StoppedTimers.h"
#include "tests/program/LiveObjects.h"
#include "tests/program/Program.h"

#include <QObject>
#include <QPointer>

namespace numbrela::testing {

// Plays with one window of the program as a monkey would: presses, types, clicks, drags, answers and closes whatever is
// in front, opens the window again when it is gone, and sees to it that nothing of it is left behind. It goes on while
// a box is open, because it acts whenever the event loop, whichever, has nothing to do.
class Monkey : public QObject {
public:
    Monkey(const Order& order, Progress& progress);

    // Whether all events have happened; otherwise a run-time error has ended the program.
    bool Run();

    // Counts what reaches the program, and notes what is dragged.
    bool eventFilter(QObject* receiver, QEvent* event) override;

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    void step();
    void drawBreath();
    void windDown();
    void closeAll();
    void reopen();
    Census alive();
    void expectNothingLeft();
    void expectKeypadsAtRest() const;
    void expectKeypadsInPlace() const;
    void expectButtonsInSight(const QWidget& window, const QWidget& pad) const;
    void expectFelt() const;
    void noteEnd();
    QString nameOfFront();
    bool isWantedThere();

    const Order order_;
    Progress& progress_;
    Chance chance_;
    StoppedTimers timers_;
    LiveObjects objects_;
    Program program_;
    Hands hands_;
    int beat_; // the timer that is due when an event loop has nothing else to do
    Census atFirst_;
    QPointer<const QWidget> dragged_; // the keypad that was dragged last
    bool finished_ = false;
    int busyLevel_ = 0; // the innermost event loop in which an event is happening
};

} // namespace numbrela::testing

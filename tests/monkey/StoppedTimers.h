#pragma once

#include <QObject>

#include <limits>

namespace numbrela::testing {

// Makes a run independent of real time: a timer fires only when the monkey says so. Timers without an interval, which
// only defer something until the present event is over, fire as usual.
class StoppedTimers : public QObject {
public:
    StoppedTimers();

    // Lets every timer of the windows on the screen, of what is in them and of the application fire once; of those with
    // an interval up to `longest` milliseconds.
    void LetFire(int longest = std::numeric_limits<int>::max());

    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    int allowed_ = 0; // the one timer that may fire once; no timer has the number 0
};

} // namespace numbrela::testing

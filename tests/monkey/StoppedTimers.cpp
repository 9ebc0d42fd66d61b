#include "tests/monkey/StoppedTimers.h"

#include "tests/program/Program.h"
#include "tests/support/Driver.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QPointer>
#include <QTimerEvent>

#include <algorithm>
#include <utility>
#include <vector>

namespace numbrela::testing {

namespace {

std::vector<int> timersOf(QObject* owner, int longest = std::numeric_limits<int>::max())
{
    std::vector<int> timers;
    for (const auto& timer : QAbstractEventDispatcher::instance()->registeredTimers(owner)) {
        if (timer.interval > 0 && timer.interval <= longest) {
            timers.push_back(timer.timerId);
        }
    }
    return timers;
}

} // namespace

StoppedTimers::StoppedTimers()
{
    qApp->installEventFilter(this);
}

void StoppedTimers::LetFire(int longest)
{
    std::vector<QPointer<QObject>> owners;
    for (QWidget* window : WindowsOnScreen()) {
        owners.emplace_back(window);
        for (QObject* object : window->findChildren<QObject*>()) {
            owners.emplace_back(object);
        }
    }
    owners.emplace_back(qApp); // tool tips
    for (const QPointer<QObject>& owner : owners) {
        for (const int timer : owner != nullptr ? timersOf(owner, longest) : std::vector<int>()) {
            if (owner != nullptr) {
                allowed_ = timer;
                QTimerEvent event(timer);
                QCoreApplication::sendEvent(owner, &event);
            }
        }
    }
    Program::Settle();
}

bool StoppedTimers::eventFilter(QObject* receiver, QEvent* event)
{
    if (event->type() != QEvent::Timer) {
        return false;
    }
    const int fired = static_cast<QTimerEvent*>(event)->timerId();
    if (fired == std::exchange(allowed_, 0)) {
        return false;
    }
    const std::vector<int> stopped = timersOf(receiver);
    return std::find(stopped.begin(), stopped.end(), fired) != stopped.end();
}

} // namespace numbrela::testing

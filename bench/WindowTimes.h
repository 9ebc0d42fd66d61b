#pragma once

#include "bench/Bench.h"
#include "common/core/TimeOfDay.h"

#include <QApplication>
#include <QPointer>
#include <QSet>

#include <functional>

namespace numbrela::bench {

inline constexpr int openings = 60;

// Remembers which widgets have been painted since it was made. It hears of a paint event before the widget does;
// whoever waits for it lets the event loop finish its round, and by then the picture is on the screen.
class PaintWatch : public QObject {
public:
    PaintWatch() { qApp->installEventFilter(this); }

    void WaitFor(const QWidget* widget) const
    {
        while (!painted_.contains(widget)) {
            QApplication::processEvents();
        }
    }

    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            painted_.insert(receiver);
        }
        return false;
    }

private:
    QSet<const QObject*> painted_;
};

// Makes and shows a window, which destroys itself when it is closed.
using OpenWindow = std::function<QWidget*()>;

// The yardstick: a window as large as an activity's, shown as one is, with nothing in it.
inline QWidget* OpenEmptyWindow()
{
    auto* window = new QWidget;
    window->resize(325, 540); // pixels, about those of Form2
    window->setWindowModality(Qt::ApplicationModal);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->show();
    return window;
}

inline void CloseAndDestroy(QWidget* window)
{
    const QPointer<QWidget> alive = window;
    window->close();
    while (alive) {
        QApplication::processEvents();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // there is no event loop to return to
    }
}

// Milliseconds from the wish to see a window to its first paint; then it is closed.
inline double TimeOpening(const OpenWindow& open)
{
    const PaintWatch watch;
    const auto start = std::chrono::steady_clock::now();
    QWidget* window = open();
    watch.WaitFor(window);
    const double milliseconds = MillisecondsSince(start);
    CloseAndDestroy(window);
    return milliseconds;
}

// The same for each of many openings.
inline std::vector<double> TimeOpenings(const OpenWindow& open)
{
    std::vector<double> times;
    for (int opening = 0; opening < Rounds(openings); ++opening) {
        times.push_back(TimeOpening(open));
    }
    return times;
}

} // namespace numbrela::bench

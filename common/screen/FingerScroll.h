#pragma once

#include "common/screen/FirstFinger.h"

#include <QPoint>

#include <functional>

class QAbstractScrollArea;
class QEvent;
class QEventPoint;
class QTouchEvent;

namespace numbrela {

// Lets a finger scroll what a scroll area shows, which stays under the finger, and gives the area the focus. The finger
// that came down first counts, and no other as long as any is down. One that hardly moves taps; what a tap does is up
// to the area.
class FingerScroll {
public:
    // Each handler may be left out.
    struct Handlers {
        std::function<void()> DragBegins = {}; // before anything scrolls
        std::function<void()> DragEnds = {};
        std::function<void(QPoint place, quint64 time)> Tapped = {}; // in the viewport; milliseconds
    };

    FingerScroll(QAbstractScrollArea& area, Handlers handlers);

    // To be called with each event of the area's viewport. Returns whether it is one of a finger, and ends here.
    bool Takes(QEvent& event);

private:
    void touch(const QTouchEvent& event);
    void follow(const QEventPoint& finger, quint64 time);
    void endDragging();

    QAbstractScrollArea& area_;
    const Handlers handlers_;
    FirstFinger finger_;
    QPoint touched_; // where it came down
    int scrolledAtTouch_ = 0;
    bool dragging_ = false;
};

} // namespace numbrela

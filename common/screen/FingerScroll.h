#pragma once

#include <QPoint>

#include <functional>
#include <optional>

class QAbstractScrollArea;
class QEvent;
class QMouseEvent;
class QWidget;

namespace numbrela {

// Lets a finger or a pen scroll what a widget shows, which stays under it. One that hardly moves taps; what a tap does
// is up to the widget.
class FingerScroll {
public:
    // Each handler may be left out.
    struct Handlers {
        std::function<void()> DragBegins = {}; // before anything scrolls
        std::function<void()> DragEnds = {};
        std::function<void(QPoint place, quint64 time)> Tapped = {}; // in the widget; milliseconds
    };

    // How far the widget is scrolled, in pixels, and scrolling it there, as far as it goes.
    struct Scrolled {
        std::function<int()> Is;
        std::function<void(int pixels)> Set;
    };

    FingerScroll(QWidget& widget, Scrolled scrolled, Handlers handlers);

    // The widget is the area's viewport.
    FingerScroll(QAbstractScrollArea& area, Handlers handlers);

    // To be called with each event of the widget. Returns whether it is one of a finger or a pen, and ends
    // here.
    bool Takes(QEvent& event);

private:
    void follow(QPoint finger);
    void lift(const QMouseEvent& event);
    void endDrag();

    QWidget& widget_;
    const Scrolled scrolled_;
    const Handlers handlers_;
    std::optional<QPoint> touched_; // where it came down
    int scrolledAtTouch_ = 0;
    bool dragging_ = false;
};

} // namespace numbrela

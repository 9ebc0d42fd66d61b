#include "common/screen/FingerScroll.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QScrollBar>
#include <QTouchEvent>

#include <utility>

namespace numbrela {

FingerScroll::FingerScroll(QAbstractScrollArea& area, Handlers handlers)
    : area_(area)
    , handlers_(std::move(handlers))
{
    area.viewport()->setAttribute(Qt::WA_AcceptTouchEvents);
}

bool FingerScroll::Takes(QEvent& event)
{
    switch (event.type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        if (area_.isEnabled()) {
            touch(static_cast<QTouchEvent&>(event));
        }
        return true;
    case QEvent::TouchCancel:
        endDragging();
        finger_.Forget();
        return true;
    default:
        return false;
    }
}

void FingerScroll::touch(const QTouchEvent& event)
{
    const QEventPoint* finger = finger_.PointIn(event);
    if (event.type() == QEvent::TouchBegin) {
        touched_ = finger->position().toPoint();
        area_.setFocus(Qt::MouseFocusReason);
    }
    if (finger != nullptr) {
        follow(*finger, event.timestamp());
    }
}

void FingerScroll::follow(const QEventPoint& finger, quint64 time)
{
    QScrollBar& bar = *area_.verticalScrollBar();
    const QPoint place = finger.position().toPoint();
    const QPoint way = place - touched_;
    if (!dragging_ && way.manhattanLength() >= QApplication::startDragDistance()) {
        dragging_ = true;
        if (handlers_.DragBegins) {
            handlers_.DragBegins();
        }
        scrolledAtTouch_ = bar.value();
    }
    if (dragging_) {
        bar.setValue(scrolledAtTouch_ - way.y());
    }
    if (finger.state() == QEventPoint::Released) {
        if (dragging_) {
            endDragging();
        } else if (handlers_.Tapped) {
            handlers_.Tapped(place, time);
        }
    }
}

void FingerScroll::endDragging()
{
    if (std::exchange(dragging_, false) && handlers_.DragEnds) {
        handlers_.DragEnds();
    }
}

} // namespace numbrela

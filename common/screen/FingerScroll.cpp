#include "common/screen/FingerScroll.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QScrollBar>
#include <QTouchEvent>

#include <algorithm>
#include <cstdlib>
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
        touch(static_cast<QTouchEvent&>(event));
        return true;
    case QEvent::TouchCancel:
        endDragging();
        finger_.reset();
        return true;
    default:
        return false;
    }
}

void FingerScroll::touch(const QTouchEvent& event)
{
    const QList<QEventPoint>& points = event.points();
    if (event.type() == QEvent::TouchBegin) {
        finger_ = points.front().id();
        touched_ = points.front().position().toPoint();
        area_.setFocus(Qt::MouseFocusReason);
    }
    const auto followed = std::find_if(
        points.begin(), points.end(), [this](const QEventPoint& point) { return point.id() == finger_; });
    if (followed != points.end()) {
        follow(*followed, event.timestamp());
    }
}

void FingerScroll::follow(const QEventPoint& finger, quint64 time)
{
    QScrollBar& bar = *area_.verticalScrollBar();
    const QPoint place = finger.position().toPoint();
    const int way = place.y() - touched_.y();
    if (!dragging_ && std::abs(way) >= QApplication::startDragDistance()) {
        dragging_ = true;
        if (handlers_.DragBegins) {
            handlers_.DragBegins();
        }
        scrolledAtTouch_ = bar.value();
    }
    if (dragging_) {
        bar.setValue(scrolledAtTouch_ - way);
    }
    if (finger.state() == QEventPoint::Released) {
        finger_.reset();
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

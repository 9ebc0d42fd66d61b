#include "common/screen/FingerScroll.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QMouseEvent>
#include <QScrollBar>

#include <utility>

namespace numbrela {

FingerScroll::FingerScroll(QWidget& widget, Scrolled scrolled, Handlers handlers)
    : widget_(widget)
    , scrolled_(std::move(scrolled))
    , handlers_(std::move(handlers))
{
    widget.setAttribute(Qt::WA_AcceptTouchEvents);
}

FingerScroll::FingerScroll(QAbstractScrollArea& area, Handlers handlers)
    : FingerScroll(*area.viewport(),
        {
            .Is = [&area] { return area.verticalScrollBar()->value(); },
            .Set = [&area](int pixels) { area.verticalScrollBar()->setValue(pixels); },
        },
        std::move(handlers))
{
}

bool FingerScroll::Takes(QEvent& event)
{
    if (event.type() == QEvent::EnabledChange) { // of what happens from now on it does not hear
        touched_.reset();
        endDrag();
    }
    const auto* mouse = dynamic_cast<const QMouseEvent*>(&event);
    if (mouse == nullptr || mouse->source() == Qt::MouseEventNotSynthesized) {
        return false;
    }
    if (mouse->type() == QEvent::MouseButtonRelease) {
        lift(*mouse);
    } else if (mouse->type() != QEvent::MouseMove) {
        touched_ = mouse->button() == Qt::LeftButton ? std::optional(mouse->pos()) : std::nullopt;
    } else if (touched_) {
        follow(mouse->pos());
    }
    return true;
}

void FingerScroll::follow(QPoint finger)
{
    const QPoint way = finger - *touched_;
    if (!dragging_ && way.manhattanLength() >= QApplication::startDragDistance()) {
        dragging_ = true;
        if (handlers_.DragBegins) {
            handlers_.DragBegins();
        }
        scrolledAtTouch_ = scrolled_.Is();
    }
    if (dragging_) {
        scrolled_.Set(scrolledAtTouch_ - way.y());
    }
}

void FingerScroll::lift(const QMouseEvent& event)
{
    const bool isTap = std::exchange(touched_, std::nullopt) && !dragging_;
    endDrag();
    if (isTap && handlers_.Tapped && widget_.rect().contains(event.pos())) {
        handlers_.Tapped(event.pos(), event.timestamp());
    }
}

void FingerScroll::endDrag()
{
    if (std::exchange(dragging_, false) && handlers_.DragEnds) {
        handlers_.DragEnds();
    }
}

} // namespace numbrela

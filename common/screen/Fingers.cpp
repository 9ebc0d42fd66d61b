#include "common/screen/Fingers.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QStyleHints>
#include <QTouchEvent>
#include <QtMath>

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace numbrela {

namespace {

std::unique_ptr<QMouseEvent> mouseOf(QWidget& control, QEvent::Type type, QPointF place, const QTouchEvent& touch)
{
    const auto changed = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    const auto down = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
    auto mouse = std::make_unique<QMouseEvent>(type, place, control.mapTo(control.window(), place),
        control.mapToGlobal(place), changed, down, touch.modifiers(), Qt::MouseEventSynthesizedByApplication);
    mouse->setTimestamp(touch.timestamp());
    return mouse;
}

void sendMouse(QWidget& control, QEvent::Type type, QPointF place, const QTouchEvent& touch)
{
    QCoreApplication::sendEvent(&control, mouseOf(control, type, place, touch).get());
}

// A release may open a box. Qt would not let the next finger press anything there before it has told of this one's end.
void releaseAfterwards(QWidget& control, QPointF place, const QTouchEvent& touch)
{
    QCoreApplication::postEvent(&control, mouseOf(control, QEvent::MouseButtonRelease, place, touch).release());
}

class Fingers : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::Polish:
            if (qobject_cast<QAbstractButton*>(watched) != nullptr || qobject_cast<QLineEdit*>(watched) != nullptr) {
                static_cast<QWidget*>(watched)->setAttribute(Qt::WA_AcceptTouchEvents);
            }
            return false;
        case QEvent::WindowBlocked:
            boxHasOpened_ = true;
            return false;
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TouchCancel:
            return takes(*watched, static_cast<QTouchEvent&>(*event));
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            return replaces(*watched, static_cast<const QMouseEvent&>(*event));
        default:
            return false;
        }
    }

private:
    struct Finger {
        int Id;
        bool IsDragged = false;
    };

    // The system makes a mouse of what is on a touchpad.
    bool takes(QObject& watched, const QTouchEvent& event)
    {
        if (!watched.isWidgetType() || event.deviceType() == QInputDevice::DeviceType::TouchPad) {
            return false;
        }
        touch(static_cast<QWidget&>(watched), event);
        return true;
    }

    void touch(QWidget& control, const QTouchEvent& touch)
    {
        const QList<QEventPoint>& points = touch.points();
        if (const QEventPoint* finger = firstOn(control, touch)) {
            first_[&control] = { finger->id() };
            if (!isFree(control)) {
                first_.erase(&control);
                return;
            }
        }
        const auto first = first_.find(&control);
        if (first == first_.end() || !control.isEnabled()) {
            return;
        }
        const auto point = std::find_if(
            points.begin(), points.end(), [&](const QEventPoint& each) { return each.id() == first->second.Id; });
        // The panel takes it back, or Qt, which tells of all that are on the control, has lost it.
        if (touch.type() == QEvent::TouchCancel || point == points.end()) {
            first_.erase(first);
            sendMouse(control, QEvent::MouseButtonRelease, { -1, -1 }, touch); // outside, so that nothing is pressed
            return;
        }
        if (point->state() == QEventPoint::Pressed) {
            press(control, *point, touch);
        } else if (point->state() == QEventPoint::Released) {
            first_.erase(first);
            releaseAfterwards(control, point->position(), touch);
        } else if (isDragged(first->second, *point)) {
            sendMouse(control, QEvent::MouseMove, point->position(), touch);
        }
    }

    // The finger that comes down now as the first on the control, or null. Qt tells a control also of what rests beside
    // it, if that came down while the control was touched.
    static const QEventPoint* firstOn(const QWidget& control, const QTouchEvent& touch)
    {
        const QList<QEventPoint>& points = touch.points();
        if (touch.type() == QEvent::TouchBegin) {
            return &points.front();
        }
        const auto isOn = [&](const QEventPoint& each) { return control.rect().contains(each.position().toPoint()); };
        const auto finger = std::find_if(points.begin(), points.end(), isOn);
        const bool isAlone = std::count_if(points.begin(), points.end(), isOn) == 1;
        return isAlone && finger->state() == QEventPoint::Pressed ? &*finger : nullptr;
    }

    // Whether the finger that comes down on the control may press it when all fingers before have been released. If one
    // of them opens a box, Qt does not tell of this one's end.
    bool isFree(QWidget& control)
    {
        const QPointer<QWidget> there(&control);
        boxHasOpened_ = false;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::MouseButtonRelease);
        return !there.isNull() && !boxHasOpened_;
    }

    void press(QWidget& control, const QEventPoint& point, const QTouchEvent& touch)
    {
        const auto type = typeOfTap(control, point.globalPosition(), touch.timestamp());
        if (type) {
            sendMouse(control, *type, point.position(), touch);
        } else {
            first_.erase(&control);
        }
    }

    // Or does it only tremble?
    bool isDragged(Finger& finger, const QEventPoint& point)
    {
        const QPointF way = point.globalPosition() - point.globalPressPosition();
        if (way.manhattanLength() >= QApplication::startDragDistance()) {
            finger.IsDragged = true;
            times_.Forget(); // it is no tap
        }
        return finger.IsDragged;
    }

    // What Qt makes of a tap comes to a window first, then to the control there and, if that has no use for it, to
    // those around it. Returns whether the control has got the right event instead.
    bool replaces(QObject& watched, const QMouseEvent& tap)
    {
        if (watched.isWindowType()) {
            isNew_ = true;
            return false;
        }
        if (!std::exchange(isNew_, false) || tap.source() == Qt::MouseEventNotSynthesized
            || tap.button() != Qt::LeftButton) { // a pen's other one
            return false;
        }
        const auto type = typeOfTap(watched, tap.globalPosition(), tap.timestamp());
        if (!type || *type == tap.type()) {
            return !type;
        }
        QMouseEvent right(*type, tap.position(), tap.scenePosition(), tap.globalPosition(), tap.button(), tap.buttons(),
            tap.modifiers(), tap.source(), tap.pointingDevice());
        right.setTimestamp(tap.timestamp());
        QCoreApplication::sendEvent(&watched, &right);
        return true;
    }

    // Null for the second tap of a double tap on what the first has brought there: that is not what the hand meant.
    std::optional<QEvent::Type> typeOfTap(QObject& control, QPointF place, quint64 time)
    {
        const bool isOther = tapped_ != &control;
        const auto near = QGuiApplication::styleHints()->touchDoubleTapDistance();
        const bool isNear = tapped_ == &control && (place - tappedPlace_).manhattanLength() <= near;
        if (!isNear && !changing_.contains({ qFloor(place.x()), qFloor(place.y()) })) {
            times_.Forget();
        }
        tapped_ = &control;
        tappedPlace_ = place;
        changing_ = placeChangedBy(control, place.toPoint(), near);
        if (!times_.IsSecond(time)) {
            return QEvent::MouseButtonPress;
        }
        return isOther ? std::nullopt : std::optional(QEvent::MouseButtonDblClick);
    }

    // Where a tap may bring another control, on the screen: in the place of a button, or of a menu that it closes.
    static QRect placeChangedBy(const QObject& tapped, QPoint place, int near)
    {
        if (const auto* button = qobject_cast<const QAbstractButton*>(&tapped)) {
            return { button->mapToGlobal(QPoint()), button->size() };
        }
        const bool isMenu = qobject_cast<const QMenu*>(&tapped) != nullptr;
        return isMenu ? QRect(place, QSize(1, 1)).adjusted(-near, -near, near, near) : QRect();
    }

    std::map<const QObject*, Finger> first_; // of those that are down on each control, which is only compared
    bool boxHasOpened_ = false; // since a finger came down
    bool isNew_ = false; // no control has heard of Qt's tap yet
    QPointer<QObject> tapped_; // last
    QPointF tappedPlace_; // on the screen
    QRect changing_; // the place that the last tap has perhaps changed
    TapTimes times_;
};

} // namespace

void RecogniseFingers(QApplication& application)
{
    application.installEventFilter(new Fingers(&application));
}

bool TapTimes::IsSecond(quint64 time)
{
    const bool isSecond = last_ && time - *last_ < static_cast<quint64>(QApplication::doubleClickInterval());
    last_ = isSecond ? std::nullopt : std::optional(time);
    return isSecond;
}

} // namespace numbrela

#include "common/screen/DoubleTaps.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPointer>
#include <QStyleHints>

#include <utility>

namespace numbrela {

namespace {

class DoubleTaps : public QObject {
public:
    using QObject::QObject;

    // What Qt makes of a tap comes to a window first, then to the control there and, if that has no use for it, to
    // those around it.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::MouseButtonPress && event->type() != QEvent::MouseButtonDblClick) {
            return false;
        }
        if (watched->isWindowType()) {
            isNew_ = true;
            return false;
        }
        const auto& tap = static_cast<const QMouseEvent&>(*event);
        if (!std::exchange(isNew_, false) || tap.source() == Qt::MouseEventNotSynthesized) {
            return false;
        }
        const QEvent::Type type = typeOf(tap, *watched);
        if (type == event->type()) {
            return false;
        }
        QMouseEvent right(type, tap.position(), tap.scenePosition(), tap.globalPosition(), tap.button(), tap.buttons(),
            tap.modifiers(), tap.source(), tap.pointingDevice());
        right.setTimestamp(tap.timestamp());
        QCoreApplication::sendEvent(watched, &right);
        return true;
    }

private:
    QEvent::Type typeOf(const QMouseEvent& tap, QObject& control)
    {
        const QPoint place = tap.globalPosition().toPoint();
        const int way = (place - tappedPlace_).manhattanLength();
        if (tapped_ != &control || way > QGuiApplication::styleHints()->touchDoubleTapDistance()) {
            times_.Forget();
        }
        tapped_ = &control;
        tappedPlace_ = place;
        return times_.IsSecond(tap.timestamp()) ? QEvent::MouseButtonDblClick : QEvent::MouseButtonPress;
    }

    bool isNew_ = false; // no control has heard of the tap yet
    QPointer<QObject> tapped_; // last
    QPoint tappedPlace_; // on the screen
    TapTimes times_;
};

} // namespace

void RecogniseDoubleTaps(QApplication& application)
{
    application.installEventFilter(new DoubleTaps(&application));
}

bool TapTimes::IsSecond(quint64 time)
{
    const bool isSecond = last_ && time - *last_ < static_cast<quint64>(QApplication::doubleClickInterval());
    last_ = isSecond ? std::nullopt : std::optional(time);
    return isSecond;
}

} // namespace numbrela

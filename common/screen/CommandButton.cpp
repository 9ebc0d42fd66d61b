#include "common/screen/CommandButton.h"

#include <QKeyEvent>
#include <QTouchEvent>

namespace numbrela {

CommandButton::CommandButton(const QString& caption, QWidget* parent)
    : QPushButton(caption, parent)
{
    setAutoDefault(false);
    setAttribute(Qt::WA_AcceptTouchEvents); // a mouse is made of the first finger only, and one may still be on a key
}

void CommandButton::SetBackColour(const QColor& colour)
{
    QPalette coloured = palette();
    for (const auto group : { QPalette::Active, QPalette::Inactive }) {
        coloured.setColor(group, QPalette::Button, colour);
        coloured.setColor(group, QPalette::ButtonText, Qt::black);
    }
    setPalette(coloured);
}

QColor CommandButton::BackColour() const
{
    return palette().color(QPalette::Active, QPalette::Button);
}

bool CommandButton::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
        if (isEnabled()) {
            touch(static_cast<QTouchEvent&>(*event));
            return true;
        }
        break;
    case QEvent::TouchCancel:
        finger_.Forget();
        setDown(false);
        return true;
    default:
        break;
    }
    return QPushButton::event(event);
}

void CommandButton::touch(const QTouchEvent& event)
{
    if (event.type() == QEvent::TouchBegin) {
        setFocus(Qt::MouseFocusReason);
    }
    const QEventPoint* finger = finger_.PointIn(event);
    if (finger == nullptr) {
        return;
    }
    const bool isOnIt = hitButton(finger->position().toPoint());
    const bool isLifted = finger->state() == QEventPoint::Released;
    setDown(isOnIt && !isLifted);
    if (isOnIt && isLifted && !taps_.IsSecond(event.timestamp())) {
        click();
    }
}

void CommandButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
    } else {
        QPushButton::keyPressEvent(event);
    }
}

// The second press of a double click is ignored: the hand meant one click.
void CommandButton::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
}

} // namespace numbrela

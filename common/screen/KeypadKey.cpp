#include "common/screen/KeypadKey.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTimerEvent>

#include <algorithm>
#include <utility>

namespace numbrela {

namespace {

// Milliseconds. Slower than a keyboard, because a finger on a wall rests longer than one on a desk.
constexpr int untilItRepeats = 600;
constexpr int betweenRepeats = 100;

// Signs are drawn in a square of this many units, whose middle is the origin, to be scaled to the key.
constexpr double unitsOfASign = 24;

QPainterPath blankSign()
{
    QPainterPath path({ -8, 0 });
    path.lineTo(-8, 4);
    path.lineTo(8, 4);
    path.lineTo(8, 0);
    return path;
}

QPainterPath eraseSign()
{
    QPainterPath path({ -9, 0 });
    path.lineTo(-3, -6);
    path.lineTo(9, -6);
    path.lineTo(9, 6);
    path.lineTo(-3, 6);
    path.closeSubpath();
    path.moveTo(0, -2.5);
    path.lineTo(5, 2.5);
    path.moveTo(5, -2.5);
    path.lineTo(0, 2.5);
    return path;
}

// Points to the right, and is turned.
QPainterPath arrowSign()
{
    QPainterPath path({ -7, 0 });
    path.lineTo(7, 0);
    path.moveTo(1, -6);
    path.lineTo(7, 0);
    path.lineTo(1, 6);
    return path;
}

int quarterTurnsOf(KeySign sign)
{
    switch (sign) {
    case KeySign::Down:
        return 1;
    case KeySign::Left:
        return 2;
    case KeySign::Up:
        return 3;
    default:
        return 0;
    }
}

} // namespace

KeypadKey::KeypadKey(const QString& caption, KeySign sign, const QString& spokenName, QWidget* parent)
    : QPushButton(caption, parent)
    , sign_(sign)
{
    setAccessibleName(spokenName);
    setFocusPolicy(Qt::NoFocus);
    setAutoDefault(false);
    if (sign == KeySign::None) {
        QPalette paper = palette();
        paper.setColor(QPalette::Button, Qt::white);
        setPalette(paper);
    }
    connect(this, &QPushButton::pressed, this, [this] { hold(true); });
    connect(this, &QPushButton::released, this, &KeypadKey::LetGo);
}

// A button would go down again when the mouse comes back.
void KeypadKey::mouseMoveEvent(QMouseEvent* event)
{
    if (!hitButton(event->pos())) {
        LetGo();
    }
    event->accept();
}

void KeypadKey::hideEvent(QHideEvent* event)
{
    LetGo();
    QPushButton::hideEvent(event);
}

void KeypadKey::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != repeating_.timerId()) {
        QPushButton::timerEvent(event);
        return;
    }
    repeating_.start(betweenRepeats, this);
    OnDown(true);
}

bool KeypadKey::eventFilter(QObject* watched, QEvent* event)
{
    if (losesItsRelease(*watched, *event)) {
        LetGo();
    }
    return false;
}

// A button comes up, but is not released, when the panel takes the finger back. And not every release comes to the key
// that is held: Qt makes a mouse of a finger that taps elsewhere, and forgets the one that was down; and it keeps
// fingers from all but the menu that is open. None comes from another program, or from another tab of a browser. And
// when the focus goes to another window, or the program becomes active or inactive, whoever recognises held keys
// forgets those of the keypad; just before that, they can still be let go.
bool KeypadKey::losesItsRelease(const QObject& watched, const QEvent& event) const
{
    switch (event.type()) {
    case QEvent::MouseButtonRelease:
        return &watched == this
            || (watched.isWindowType()
                && static_cast<const QMouseEvent&>(event).source() != Qt::MouseEventNotSynthesized);
    case QEvent::Show:
        return watched.isWidgetType() && static_cast<const QWidget&>(watched).windowType() == Qt::Popup;
    case QEvent::FocusAboutToChange:
    case QEvent::FocusIn:
        return watched.isWindowType();
    case QEvent::ApplicationStateChange:
        return true;
    default:
        return false;
    }
}

void KeypadKey::hold(bool held)
{
    if (std::exchange(isHeld_, held) == held) {
        return;
    }
    if (held) {
        qApp->installEventFilter(this);
        repeating_.start(untilItRepeats, this);
        OnDown(false);
    } else {
        qApp->removeEventFilter(this);
        repeating_.stop();
        setDown(false);
        OnUp();
    }
}

void KeypadKey::paintEvent(QPaintEvent* /*event*/)
{
    constexpr int edgeShade = 160; // per cent
    constexpr int pressedShade = 125;
    constexpr double roundness = 0.16; // of the shorter side
    const QColor ground = palette().color(QPalette::Button);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(isDown() ? palette().color(QPalette::Highlight) : ground.darker(edgeShade), isDown() ? 3 : 1));
    painter.setBrush(isDown() ? ground.darker(pressedShade) : ground);
    const QRectF face = contentsRect();
    const double radius = std::min(face.width(), face.height()) * roundness;
    painter.drawRoundedRect(face.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius); // its edge is a part of the face
    painter.setPen(palette().color(QPalette::ButtonText));
    if (sign_ == KeySign::None) {
        paintCaption(painter);
    } else {
        paintSign(painter);
    }
}

// In the middle, whatever part of its line a character takes; a comma is small beside a digit, and twice as large here.
void KeypadKey::paintCaption(QPainter& painter) const
{
    QFont large = font();
    if (text() == u',') {
        large.setPixelSize(2 * large.pixelSize());
    }
    painter.setFont(large);
    const QRectF letters = QFontMetricsF(large).tightBoundingRect(text());
    painter.drawText(QRectF(contentsRect()).center() - letters.center(), text());
}

void KeypadKey::paintSign(QPainter& painter) const
{
    constexpr double lineWidth = 1.6; // units
    const QRectF face = contentsRect();
    const double scale = std::min(face.width(), face.height()) / (2 * unitsOfASign) * 1.2;
    painter.translate(face.center());
    painter.rotate(90.0 * quarterTurnsOf(sign_));
    painter.scale(scale, scale);
    painter.setPen(QPen(palette().color(QPalette::ButtonText), lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(sign_ == KeySign::Blank ? blankSign() : sign_ == KeySign::Erase ? eraseSign() : arrowSign());
}

} // namespace numbrela

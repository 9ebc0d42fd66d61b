#include "tests/monkey/Hands.h"

#include "tests/support/Driver.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QKeySequence>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace numbrela::testing {

namespace {

constexpr std::size_t mostHeldKeys = 3;

// A place of a widget, in its window. The window may have changed its size since the place was chosen.
QPoint placeIn(const QWindow& window, const QWidget& widget, QPoint place)
{
    const QPoint wanted = window.mapFromGlobal(widget.mapToGlobal(place));
    return { std::clamp(wanted.x(), 0, std::max(window.width() - 1, 0)),
        std::clamp(wanted.y(), 0, std::max(window.height() - 1, 0)) };
}

void mouse(QTest::MouseAction action, QWidget& widget, QPoint place, Qt::MouseButton button,
    Qt::KeyboardModifiers with = Qt::NoModifier)
{
    if (QWindow* window = widget.window()->windowHandle()) {
        QTest::mouseEvent(action, window, button, with, placeIn(*window, widget, place));
    }
}

// A text as it can be read in a log.
QString shown(const QString& text)
{
    constexpr int most = 60; // characters
    return text.size() > most ? QStringLiteral("«%1…» (%2)").arg(text.left(most)).arg(text.size())
                              : QStringLiteral("«%1»").arg(text);
}

QString shown(const Key& key, Qt::KeyboardModifiers with = Qt::NoModifier)
{
    return QKeySequence(QKeyCombination(with, static_cast<Qt::Key>(key.Code))).toString() + u' ' + shown(key.Text)
        + QLatin1String(key.Keypad ? " keypad" : "");
}

// Hears whether a control is pressed.
class Ear : public QObject {
public:
    explicit Ear(QObject* control)
    {
        if (control != nullptr) {
            control->installEventFilter(this);
        }
    }

    bool HasHeard() const { return hasHeard_; }

    bool eventFilter(QObject* /*control*/, QEvent* event) override
    {
        hasHeard_
            = hasHeard_ || event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
        return false;
    }

private:
    bool hasHeard_ = false;
};

// Releases the button that is down in a widget, which may be gone by now.
void release(
    const QPointer<QWidget>& widget, QPoint place, Qt::MouseButton button, Qt::KeyboardModifiers with = Qt::NoModifier)
{
    if (QWidget* under = widget != nullptr ? widget.data() : FrontWindow()) {
        mouse(QTest::MouseRelease, *under, place, button, with);
    }
}

} // namespace

QString NameOf(const QWidget& widget)
{
    const QString name
        = widget.objectName().isEmpty() ? QString::fromLatin1(widget.metaObject()->className()) : widget.objectName();
    return widget.isWindow() ? name : NameOf(*widget.window()) + u'/' + name;
}

Hands::Hands(bool log)
    : log_(log)
{
}

void Hands::Say(const QString& what) const
{
    if (log_) {
        std::printf("    %s\n", qUtf8Printable(what));
        std::fflush(stdout);
    }
}

void Hands::sayPlace(const char* what, const QWidget& widget, QPoint place) const
{
    Say(QStringLiteral("%1 %2 (%3, %4)").arg(QLatin1String(what), NameOf(widget)).arg(place.x()).arg(place.y()));
}

void Hands::send(bool down, const Key& key, Qt::KeyboardModifiers with, bool repeated) const
{
    constexpr int once = 1;
    if (QWindow* window = FocusWindow()) {
        const Qt::KeyboardModifiers all = key.Keypad ? with | Qt::KeypadModifier : with;
        const QString text = with.testFlag(Qt::ControlModifier) ? QString() : key.Text;
        QTest::simulateEvent(window, down, key.Code, all, text, repeated, once);
    }
}

void Hands::sendModifiers(bool down, Qt::KeyboardModifiers with) const
{
    constexpr std::array<std::pair<Qt::KeyboardModifier, int>, 3> modifiers { {
        { Qt::ShiftModifier, Qt::Key_Shift },
        { Qt::ControlModifier, Qt::Key_Control },
        { Qt::AltModifier, Qt::Key_Alt },
    } };
    for (const auto& [modifier, code] : modifiers) {
        if (with.testFlag(modifier)) {
            send(down, { code }, down ? Qt::KeyboardModifiers() : Qt::KeyboardModifiers(modifier));
        }
    }
}

void Hands::pressAndRelease(const Key& key, Qt::KeyboardModifiers with) const
{
    sendModifiers(true, with);
    send(true, key, with);
    send(false, key, with);
    sendModifiers(false, with);
}

void Hands::Press(const Key& key, Qt::KeyboardModifiers with)
{
    Say(shown(key, with));
    pressAndRelease(key, with);
}

void Hands::Hold(const Key& key)
{
    Say(shown(key));
    if (held_.size() == mostHeldKeys) {
        LetGo();
    }
    held_.push_back(key);
    send(true, key, Qt::NoModifier);
}

void Hands::RepeatHeld()
{
    if (!held_.empty()) {
        const Key key = held_.back();
        send(false, key, Qt::NoModifier, true);
        send(true, key, Qt::NoModifier, true);
    }
}

void Hands::LetGo()
{
    if (!held_.empty()) {
        const Key key = held_.front();
        held_.erase(held_.begin());
        send(false, key, Qt::NoModifier);
    }
}

void Hands::Type(const QString& text)
{
    Say(shown(text));
    for (const QChar character : text) {
        pressAndRelease(KeyFor(character), Qt::NoModifier);
    }
}

void Hands::Paste(const QString& text)
{
    Say(shown(text));
    QGuiApplication::clipboard()->setText(text);
    pressAndRelease(KeyFor(u'v'), Qt::ControlModifier);
}

void Hands::Click(QWidget& widget, QPoint place, Qt::MouseButton button, Qt::KeyboardModifiers with)
{
    if (!outlivesMouse(widget)) {
        return;
    }
    sayPlace(button == Qt::LeftButton ? "left" : button == Qt::RightButton ? "right" : "middle", widget, place);
    const QPointer<QWidget> alive = &widget;
    mouse(QTest::MousePress, widget, place, button, with);
    release(alive, place, button, with);
}

void Hands::DoubleClick(QWidget& widget, QPoint place)
{
    if (!outlivesMouse(widget)) {
        return;
    }
    sayPlace("at", widget, place);
    mouse(QTest::MouseDClick, widget, place, Qt::LeftButton);
}

void Hands::Drag(QWidget& widget, QPoint from, QPoint to)
{
    constexpr int steps = 4;
    if (!outlivesMouse(widget)) {
        return;
    }
    sayPlace("from", widget, from);
    sayPlace("to", widget, to);
    const QPointer<QWidget> alive = &widget;
    mouse(QTest::MousePress, widget, from, Qt::LeftButton);
    for (int step = 1; step <= steps && alive != nullptr; ++step) {
        mouse(QTest::MouseMove, *alive, from + (to - from) * step / steps, Qt::NoButton);
    }
    release(alive, to, Qt::LeftButton);
}

void Hands::MoveTo(QWidget& widget, QPoint place)
{
    sayPlace("over", widget, place);
    mouse(QTest::MouseMove, widget, place, Qt::NoButton);
}

void Hands::Tap(QWidget& widget, QPoint place)
{
    sayPlace("on", widget, place);
    const QPointer<QWidget> window = widget.window();
    if (window->windowHandle() == nullptr) {
        return;
    }
    const QPoint inWindow = placeIn(*window->windowHandle(), widget, place);
    // What the first tap of a double tap has brought there hears of the second one as little as it should.
    constexpr int most = 2;
    bool isHeard = false;
    for (int times = 0; times < most && !isHeard && window != nullptr; ++times) {
        isHeard = isTapHeard(*window, inWindow);
    }
    if (!isHeard && window != nullptr) {
        std::fprintf(stderr, "a button of %s hears no tap\n", qUtf8Printable(NameOf(*window)));
        std::abort();
    }
}

// The button that has to hear of a tap there, or null. One on which a finger rests already has not.
QAbstractButton* Hands::buttonForTap(const QWidget& window, QPoint place) const
{
    auto* button = qobject_cast<QAbstractButton*>(window.childAt(place));
    if (button == nullptr || !button->isEnabled()) {
        return nullptr;
    }
    const bool isTouched = std::any_of(resting_.begin(), resting_.end(), [&](const Touch& touch) {
        return touch.Window == &window && button->rect().contains(button->mapFrom(&window, touch.Place));
    });
    return isTouched ? nullptr : button;
}

bool Hands::isTapHeard(const QWidget& window, QPoint place) const
{
    QAbstractButton* button = buttonForTap(window, place);
    const Ear ear(button);
    testing::Tap(window, place);
    return button == nullptr || ear.HasHeard();
}

void Hands::DragByFinger(QWidget& widget, QPoint from, QPoint to)
{
    sayPlace("from", widget, from);
    sayPlace("to", widget, to);
    if (const QWindow* window = widget.window()->windowHandle()) {
        testing::DragByFinger(*widget.window(), placeIn(*window, widget, from), placeIn(*window, widget, to));
    }
}

void Hands::HoldByMouse(QWidget& widget, QPoint place)
{
    if (!outlivesMouse(widget)) {
        return;
    }
    sayPlace("down on", widget, place);
    underMouse_ = &widget;
    mouse(QTest::MousePress, widget, place, Qt::LeftButton);
}

void Hands::HoldByFinger(QWidget& widget, QPoint place)
{
    sayPlace("down on", widget, place);
    if (const QWindow* window = widget.window()->windowHandle()) {
        int finger = 1; // 0 is the one that taps and drags meanwhile
        while (rests(finger)) {
            ++finger;
        }
        resting_.push_back({ finger, widget.window(), placeIn(*window, widget, place) });
        FingerDown(*widget.window(), resting_.back().Place, finger);
    }
    while (resting_.size() > 1) {
        liftFinger();
    }
}

bool Hands::rests(int finger) const
{
    return std::any_of(
        resting_.begin(), resting_.end(), [finger](const Touch& touch) { return touch.Finger == finger; });
}

void Hands::LetGoOfScreen()
{
    letGoOfMouse();
    while (!resting_.empty()) {
        liftFinger();
    }
}

// What is let go may be the button that closes the window.
bool Hands::outlivesMouse(QWidget& widget)
{
    const QPointer<QWidget> alive = &widget;
    letGoOfMouse();
    return alive != nullptr;
}

void Hands::letGoOfMouse()
{
    if (underMouse_) {
        const QPointer<QWidget> under = *std::exchange(underMouse_, std::nullopt);
        release(under, under != nullptr ? under->rect().center() : QPoint(), Qt::LeftButton);
    }
}

// The one that has rested longest.
void Hands::liftFinger()
{
    const int finger = resting_.front().Finger;
    resting_.erase(resting_.begin());
    LiftFinger(finger);
}

void Hands::Wheel(QWidget& widget, QPoint place, QPoint turn)
{
    sayPlace("over", widget, place);
    if (QWindow* window = widget.window()->windowHandle()) {
        const QPoint local = placeIn(*window, widget, place);
        QWheelEvent event(
            local, window->mapToGlobal(local), {}, turn, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(window, &event);
    }
}

} // namespace numbrela::testing

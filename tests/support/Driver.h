#pragma once

#include <gtest/gtest.h>

#include <QAnyStringView>
#include <QApplication>
#include <QEventPoint>
#include <QString>
#include <QWidget>

#include <functional>
#include <string>
#include <vector>

// What a person does with a window: shows it, clicks, presses keys on whatever has the focus, chooses menu items.
// Controls are found by their names.
namespace numbrela::testing {

// Does this as soon as an event loop runs, and wakes that loop afterwards: what is pressed meanwhile lets events pass,
// also the one that tells the loop to end, and without it Qt's loop on Windows goes to sleep.
void DoSoon(QObject& context, const std::function<void()>& act);

// Shows the window and waits until it has the focus.
void ShowAndActivate(QWidget& window);

// The windows on the screen in the order in which they were made.
std::vector<QWidget*> WindowsOnScreen();

// The window whose turn it is: an open menu, a modal box or window, or else the one that is in front; null when there
// is none.
QWidget* FrontWindow();

// The window that keys go to; null when there is none. Without a display nobody gets the focus when a box closes; a
// window manager gives it to the window in front, and so does this.
QWindow* FocusWindow();

// The control or menu item with this name. Fails the test and throws when the window has none.
QObject& Find(const QWidget& window, QAnyStringView name, const QMetaObject& type);

template <typename Control>
Control& Find(const QWidget& window, QAnyStringView name)
{
    return static_cast<Control&>(Find(window, name, Control::staticMetaObject));
}

// The text that a control shows, a box, a text area, a button or a label; empty for any other.
QString TextOf(const QWidget& control);

// Clicks, or double-clicks, the middle of a control with the left button.
void Click(const QWidget& window, QAnyStringView controlName);
void DoubleClick(const QWidget& window, QAnyStringView controlName);

// Drags the mouse over a control, from one place of it to another.
void DragByMouse(const QWidget& control, QPoint from, QPoint to);

// Clicks at the place on the screen where the control is, so that anything in front of it gets the click instead.
void ClickOnScreen(const QWidget& control);

// How fast fingers tap, as long as this lives: each tap is one by itself, or two are a double tap however slow the
// machine is.
class Pace {
public:
    ~Pace();

    void TapSlowly() const;
    void TapQuickly() const;

private:
    static void tapNowhere();

    const int before_ = QApplication::doubleClickInterval(); // milliseconds
};

// Taps a control, or a place of it, with a finger on a touch panel; `FingerDown` leaves it there. A finger stays with
// the window in which it came down. `LiftFinger` takes it from wherever it is, even if that window is gone.
void Tap(const QWidget& control);
void Tap(const QWidget& control, QPoint place);
void FingerDown(const QWidget& control, int finger = 0);
void FingerDown(const QWidget& control, QPoint place, int finger = 0);
void MoveFinger(const QWidget& control, QPoint to, int finger = 0);
void FingerUp(const QWidget& control, int finger = 0);
void LiftFinger(int finger = 0);

// Moves a finger over a control, from one place of it to another.
void DragByFinger(const QWidget& control, QPoint from, QPoint to);

// Tells a control that a finger comes down on it or is lifted, wherever it may be on the screen, and does nothing else
// before the next one.
void SendTouch(QWidget& control, QEventPoint::State state, QPointF onScreen = {}, quint64 milliseconds = 0);

// The panel takes the finger on a control for the palm of a hand after all.
void TakeFingerBack(QWidget& control);

// What Qt makes of a pen: the events of a mouse. The button is the one that is down, which of a pen's tip is the left.
void SendPen(QEvent::Type type, const QWidget& control, QPoint place, Qt::MouseButton button = Qt::LeftButton,
    quint64 milliseconds = 0);
void TapByPen(const QWidget& control, QPoint place, Qt::MouseButton button = Qt::LeftButton);

// Chooses a menu item, which must be enabled and visible.
void Choose(const QWidget& window, QAnyStringView itemName);

// Presses and releases a key, or does one of the two, in whatever has the focus.
void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void HoldDown(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void LetGo(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

// What systems send while a key is held: some send presses like the first one, others releases and presses marked as
// repeated.
void Repeat(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void RepeatMarked(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

// Presses the access key of a button, and waits: the button visibly goes down, and the click happens when it comes up
// again.
void PressAccessKey(const QWidget& window, Qt::Key key, QAnyStringView buttonName);

// Types a text character by character.
void Type(QAnyStringView text);

// Types an answer as a pupil does: from its last digit to its first.
void TypeResult(QAnyStringView answer);

// Presses Tab until this control has the focus; fails the test when it never has.
void TabTo(const std::string& controlName);

// The name of the control that has the focus; empty when there is none.
std::string FocusName();

} // namespace numbrela::testing

#pragma once

#include "tests/monkey/Texts.h"

#include <QPoint>
#include <QPointer>
#include <QString>

#include <optional>
#include <vector>

class QAbstractButton;
class QWidget;

namespace numbrela::testing {

// A widget by its name and its window's: "Form2/Text3".
QString NameOf(const QWidget& widget);

// A keyboard, a mouse and some fingers, whose events go the way of real ones: to the window that has the focus, to the
// window under the pointer, wherever Qt sends them from there. Keys may stay down while others are pressed, and one
// finger while the other taps. What they do is said in the log.
class Hands {
public:
    explicit Hands(bool log);

    void Say(const QString& what) const;

    void Press(const Key& key, Qt::KeyboardModifiers with = Qt::NoModifier);
    void Hold(const Key& key); // presses it and lets it down
    void RepeatHeld(); // what the keyboard sends for the key held last
    void LetGo(); // releases the key held first
    void Type(const QString& text);
    void Paste(const QString& text);

    void Click(QWidget& widget, QPoint place, Qt::MouseButton button = Qt::LeftButton,
        Qt::KeyboardModifiers with = Qt::NoModifier);
    void DoubleClick(QWidget& widget, QPoint place);
    void Drag(QWidget& widget, QPoint from, QPoint to);
    void MoveTo(QWidget& widget, QPoint place);
    void Tap(QWidget& widget, QPoint place); // with a finger; a button there must hear of it
    void DragByFinger(QWidget& widget, QPoint from, QPoint to);

    // Presses there and stays down, whatever happens meanwhile. A held mouse is let go before it is pressed again, a
    // finger is lifted when the next one has come down.
    void HoldByMouse(QWidget& widget, QPoint place);
    void HoldByFinger(QWidget& widget, QPoint place);
    void LetGoOfScreen();
    bool HoldsScreen() const { return underMouse_ || !resting_.empty(); }

    void Wheel(QWidget& widget, QPoint place, QPoint turn); // turn: eighths of a degree

private:
    struct Touch {
        int Finger;
        QPointer<const QWidget> Window;
        QPoint Place; // there
    };

    void send(bool down, const Key& key, Qt::KeyboardModifiers with, bool repeated = false) const;
    void sendModifiers(bool down, Qt::KeyboardModifiers with) const;
    void pressAndRelease(const Key& key, Qt::KeyboardModifiers with) const;
    bool outlivesMouse(QWidget& widget);
    void letGoOfMouse();
    void liftFinger();
    bool rests(int finger) const;
    QAbstractButton* buttonForTap(const QWidget& window, QPoint place) const;
    bool isTapHeard(const QWidget& window, QPoint place) const;
    void sayPlace(const char* what, const QWidget& widget, QPoint place) const;

    const bool log_;
    std::vector<Key> held_;
    std::optional<QPointer<QWidget>> underMouse_; // what it is held down on, which may be gone by now
    std::vector<Touch> resting_;
};

} // namespace numbrela::testing

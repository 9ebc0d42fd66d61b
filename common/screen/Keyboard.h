#pragma once

#include <QChar>

#include <functional>
#include <optional>

class QApplication;
class QKeyEvent;
class QWidget;

namespace numbrela {

// A key pressed in a control.
struct Key {
    int Code = 0; // see KeyCodeOf
    bool Repeated = false; // the key is being held down
};

// A form's answer to a key, or to the character that the key types.
class KeyAnswer {
public:
    static KeyAnswer GoesOn() { return { false, std::nullopt }; }
    static KeyAnswer Consumed() { return { true, std::nullopt }; }

    // The key types this character instead.
    static KeyAnswer Replaced(QChar character) { return { false, character }; }

    bool IsConsumed() const { return consumed_; }
    QChar Or(QChar typed) const { return replacement_.value_or(typed); }

private:
    KeyAnswer(bool consumed, std::optional<QChar> replacement)
        : consumed_(consumed)
        , replacement_(replacement)
    {
    }

    bool consumed_;
    std::optional<QChar> replacement_;
};

// What a form does with the keys pressed in one of its controls. Each handler may be left out.
struct KeyHandlers {
    // Called when a key goes down, before the control sees it.
    std::function<KeyAnswer(const Key&)> KeyDown = {};

    // Called if KeyDown did not consume the key and the key types a character. Enter, Backspace and Escape count as
    // characters.
    std::function<KeyAnswer(QChar)> KeyPress = {};

    // Called once when a key is released, however long it was held.
    std::function<void(int keyCode)> KeyUp = {};
};

// Has these handlers called as long as the control lives. The control never sees what a handler consumes.
void HandleKeys(QWidget& control, KeyHandlers handlers);

// The character that a key event types; null if it types none, as with Ctrl or Alt held. Enter, Backspace and Escape
// count as characters.
QChar TypedCharacter(const QKeyEvent& event);

// Sends a text to a control as if it were typed on a keyboard, key by key. If a key moves the focus on, the next ones
// follow it.
void TypeInto(QWidget& control, const QString& text);

// Recognises held keys for the whole program, however the system reports them, so that every control can rely on
// QKeyEvent::isAutoRepeat. While a key is held, its repeats fire no shortcut and choose nothing in a menu, they type
// only into the control in which the key was pressed, and Enter counts once.
void RecogniseHeldKeys(QApplication& application);

} // namespace numbrela

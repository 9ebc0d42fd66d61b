#pragma once

#include <QChar>

#include <functional>
#include <optional>

class QApplication;
class QKeyEvent;
class QWidget;

namespace numbrela {

// A key that goes down in a control.
struct Key {
    int Code = 0; // as KeyCodeOf has it
    bool Repeated = false; // it has been down already: it is held
};

// What a form makes of a key, or of the character that it types.
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

// What a form has to say to the keys of one of its controls; each of them may be left out.
struct KeyHandlers {
    // A key goes down, before the control hears of it.
    std::function<KeyAnswer(const Key&)> KeyDown = {};

    // The key, if the first handler let it go on, is about to type this character, Enter, Backspace and Escape among
    // them.
    std::function<KeyAnswer(QChar)> KeyPress = {};

    // A key has been let go; once, however long it was held.
    std::function<void(int keyCode)> KeyUp = {};
};

// Has these handlers called, for as long as the control lives. What a handler consumes, the control never sees.
void HandleKeys(QWidget& control, KeyHandlers handlers);

// The character that a key event types, Enter, Backspace and Escape among them; null when it types none, as the keys
// of commands do.
QChar TypedCharacter(const QKeyEvent& event);

// Lets a control have a text as if it were typed on a keyboard, key by key.
void TypeInto(QWidget& control, const QString& text);

// Recognises held keys for the whole program, whatever the system says of them, so that every control can rely on
// QKeyEvent::isAutoRepeat. A held key fires no shortcut and chooses nothing in a menu after the first time, it writes
// only where it went down, and a held Enter is one Enter.
void RecogniseHeldKeys(QApplication& application);

} // namespace numbrela

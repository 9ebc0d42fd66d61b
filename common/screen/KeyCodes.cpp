#include "common/screen/KeyCodes.h"

#include "common/screen/NativeKeys.h"

#include <QKeyEvent>

#include <array>
#include <utility>

namespace numbrela {

namespace {

using Pair = std::pair<int, int>; // Qt's key, our code

constexpr std::array<Pair, 6> keypadKeys { {
    { Qt::Key_Asterisk, 106 },
    { Qt::Key_Plus, 107 },
    { Qt::Key_Minus, 109 },
    { Qt::Key_Comma, KeyCode::KeypadDecimal },
    { Qt::Key_Period, KeyCode::KeypadDecimal },
    { Qt::Key_Slash, 111 },
} };

// A punctuation key has the code that it has on a Spanish keyboard, where several marks may share a key. A mark that
// has its own key only on other keyboards (semicolon, slash) has the code of that key.
constexpr std::array<Pair, 60> otherKeys { {
    { Qt::Key_Backspace, KeyCode::Backspace },
    { Qt::Key_Tab, KeyCode::Tab },
    { Qt::Key_Backtab, KeyCode::Tab },
    { Qt::Key_Return, KeyCode::Enter },
    { Qt::Key_Enter, KeyCode::Enter },
    { Qt::Key_Shift, 16 },
    { Qt::Key_Control, 17 },
    { Qt::Key_Alt, 18 },
    { Qt::Key_Pause, 19 },
    { Qt::Key_CapsLock, 20 },
    { Qt::Key_Escape, KeyCode::Escape },
    { Qt::Key_Space, KeyCode::Space },
    { Qt::Key_PageUp, KeyCode::PageUp },
    { Qt::Key_PageDown, KeyCode::PageDown },
    { Qt::Key_End, KeyCode::End },
    { Qt::Key_Home, KeyCode::Home },
    { Qt::Key_Left, KeyCode::Left },
    { Qt::Key_Up, KeyCode::Up },
    { Qt::Key_Right, KeyCode::Right },
    { Qt::Key_Down, KeyCode::Down },
    { Qt::Key_Print, 44 },
    { Qt::Key_Insert, 45 },
    { Qt::Key_Delete, KeyCode::Delete },
    { Qt::Key_Meta, 91 },
    { Qt::Key_Super_L, 91 },
    { Qt::Key_Super_R, 92 },
    { Qt::Key_Menu, 93 },
    { Qt::Key_NumLock, 144 },
    { Qt::Key_ScrollLock, 145 },
    { Qt::Key_Semicolon, 186 },
    { Qt::Key_QuoteLeft, 186 },
    { Qt::Key_Dead_Grave, 186 },
    { Qt::Key_AsciiCircum, 186 },
    { Qt::Key_Dead_Circumflex, 186 },
    { Qt::Key_BracketLeft, 186 },
    { Qt::Key_Plus, 187 },
    { Qt::Key_Equal, 187 },
    { Qt::Key_Asterisk, 187 },
    { Qt::Key_BracketRight, 187 },
    { Qt::Key_Comma, KeyCode::Comma },
    { Qt::Key_Minus, 189 },
    { Qt::Key_Underscore, 189 },
    { Qt::Key_Period, KeyCode::Point },
    { Qt::Key_Colon, KeyCode::Point },
    { Qt::Key_Slash, 191 },
    { Qt::Key_Ccedilla, 191 },
    { Qt::Key_BraceRight, 191 },
    { Qt::Key_Ntilde, 192 },
    { Qt::Key_Apostrophe, 219 },
    { Qt::Key_Question, 219 },
    { Qt::Key_masculine, 220 },
    { Qt::Key_ordfeminine, 220 },
    { Qt::Key_Backslash, 220 },
    { Qt::Key_exclamdown, 221 },
    { Qt::Key_questiondown, 221 },
    { Qt::Key_Dead_Acute, 222 },
    { Qt::Key_Dead_Diaeresis, 222 },
    { Qt::Key_BraceLeft, 222 },
    { Qt::Key_Less, 226 },
    { Qt::Key_Greater, 226 },
} };

template <std::size_t Count>
int find(const std::array<Pair, Count>& pairs, int key)
{
    for (const auto& [qtKey, keyCode] : pairs) {
        if (qtKey == key) {
            return keyCode;
        }
    }
    return 0;
}

} // namespace

int KeyCodeOf(const QKeyEvent& event)
{
    if (const int native = NativeKeyCode(event); native != 0) {
        return native;
    }
    const int key = event.key();
    const bool onKeypad = event.modifiers().testFlag(Qt::KeypadModifier);
    if (key >= Qt::Key_0 && key <= Qt::Key_9) {
        return key - Qt::Key_0 + (onKeypad ? KeyCode::KeypadDigit0 : KeyCode::Digit0);
    }
    if (key >= Qt::Key_A && key <= Qt::Key_Z) {
        return key; // the code of a letter key is its capital letter in both vocabularies
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) {
        return key - Qt::Key_F1 + KeyCode::F1;
    }
    if (const int keypadCode = onKeypad ? find(keypadKeys, key) : 0; keypadCode != 0) {
        return keypadCode;
    }
    return find(otherKeys, key);
}

bool WritesWhatCommaDoesWithShift(const QKeyEvent& event)
{
    return event.modifiers().testFlag(Qt::ShiftModifier)
        && (event.key() == Qt::Key_Semicolon || event.key() == Qt::Key_Less);
}

bool WritesDigitOrComma(int keyCode)
{
    constexpr int digits = 10;
    return (keyCode >= KeyCode::Digit0 && keyCode < KeyCode::Digit0 + digits)
        || (keyCode >= KeyCode::KeypadDigit0 && keyCode < KeyCode::KeypadDigit0 + digits) || keyCode == KeyCode::Comma;
}

} // namespace numbrela

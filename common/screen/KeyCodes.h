#pragma once

class QKeyEvent;

namespace numbrela {

// The codes of the keys: those of a PC keyboard's virtual keys.
namespace KeyCode {
inline constexpr int Backspace = 8;
inline constexpr int Tab = 9;
inline constexpr int Enter = 13;
inline constexpr int Escape = 27;
inline constexpr int Space = 32;
inline constexpr int PageUp = 33;
inline constexpr int PageDown = 34;
inline constexpr int End = 35;
inline constexpr int Home = 36;
inline constexpr int Left = 37;
inline constexpr int Up = 38;
inline constexpr int Right = 39;
inline constexpr int Down = 40;
inline constexpr int Delete = 46;
inline constexpr int Digit0 = 48; // to 57
inline constexpr int KeypadDigit0 = 96; // to 105
inline constexpr int KeypadDecimal = 110;
inline constexpr int F1 = 112; // to 123 (F12)
inline constexpr int Comma = 188;
inline constexpr int Point = 190;
} // namespace KeyCode

// The code of the key in a key event; 0 for a key that has none here. The digits of the keypad and of the main keyboard
// have different codes, and so do their decimal keys. The code belongs to the key and not to what it writes: Shift with
// 7 is still 55. Only where the system does not know the key itself is the code taken from the character.
int KeyCodeOf(const QKeyEvent& event);

// Whether an event is of a key that writes with Shift what the comma's key does in Spain and elsewhere.
bool WritesWhatCommaDoesWithShift(const QKeyEvent& event);

// Whether the key writes a part of a decimal number: a digit of the main keyboard or the keypad, or the comma of the
// main keyboard.
bool WritesDigitOrComma(int keyCode);

} // namespace numbrela

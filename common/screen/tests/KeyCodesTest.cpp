#include "common/screen/KeyCodes.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

#include <utility>

namespace numbrela {

namespace {

int codeOf(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    return KeyCodeOf(QKeyEvent(QEvent::KeyPress, key, modifiers));
}

// Qt's keys of the main keyboard, and our codes.
constexpr std::pair<int, int> mainKeys[] = { { Qt::Key_Backspace, 8 }, { Qt::Key_Tab, 9 }, { Qt::Key_Backtab, 9 },
    { Qt::Key_Return, 13 }, { Qt::Key_Shift, 16 }, { Qt::Key_Control, 17 }, { Qt::Key_Alt, 18 }, { Qt::Key_Pause, 19 },
    { Qt::Key_CapsLock, 20 }, { Qt::Key_Escape, 27 }, { Qt::Key_Space, 32 }, { Qt::Key_PageUp, 33 },
    { Qt::Key_PageDown, 34 }, { Qt::Key_End, 35 }, { Qt::Key_Home, 36 }, { Qt::Key_Left, 37 }, { Qt::Key_Up, 38 },
    { Qt::Key_Right, 39 }, { Qt::Key_Down, 40 }, { Qt::Key_Print, 44 }, { Qt::Key_Insert, 45 }, { Qt::Key_Delete, 46 },
    { Qt::Key_Super_L, 91 }, { Qt::Key_Meta, 91 }, { Qt::Key_Super_R, 92 }, { Qt::Key_Menu, 93 },
    { Qt::Key_NumLock, 144 }, { Qt::Key_ScrollLock, 145 }, { Qt::Key_Semicolon, 186 }, { Qt::Key_QuoteLeft, 186 },
    { Qt::Key_Dead_Grave, 186 }, { Qt::Key_AsciiCircum, 186 }, { Qt::Key_Dead_Circumflex, 186 },
    { Qt::Key_BracketLeft, 186 }, { Qt::Key_Plus, 187 }, { Qt::Key_Equal, 187 }, { Qt::Key_Asterisk, 187 },
    { Qt::Key_BracketRight, 187 }, { Qt::Key_Comma, 188 }, { Qt::Key_Minus, 189 }, { Qt::Key_Underscore, 189 },
    { Qt::Key_Period, 190 }, { Qt::Key_Colon, 190 }, { Qt::Key_Slash, 191 }, { Qt::Key_Ccedilla, 191 },
    { Qt::Key_BraceRight, 191 }, { Qt::Key_Ntilde, 192 }, { Qt::Key_Apostrophe, 219 }, { Qt::Key_Question, 219 },
    { Qt::Key_masculine, 220 }, { Qt::Key_ordfeminine, 220 }, { Qt::Key_Backslash, 220 }, { Qt::Key_exclamdown, 221 },
    { Qt::Key_questiondown, 221 }, { Qt::Key_Dead_Acute, 222 }, { Qt::Key_Dead_Diaeresis, 222 },
    { Qt::Key_BraceLeft, 222 }, { Qt::Key_Less, 226 }, { Qt::Key_Greater, 226 } };

// Arrows and the like are on the keypad, too, with Num Lock off.
constexpr std::pair<int, int> keypadKeys[] = { { Qt::Key_Asterisk, 106 }, { Qt::Key_Plus, 107 }, { Qt::Key_Minus, 109 },
    { Qt::Key_Period, 110 }, { Qt::Key_Comma, 110 }, { Qt::Key_Slash, 111 }, { Qt::Key_Enter, 13 },
    { Qt::Key_Home, 36 }, { Qt::Key_Left, 37 }, { Qt::Key_Delete, 46 } };

TEST(KeyCodesTest, GivesTheKeysOfTheMainKeyboardAndOfTheKeypadCodesOfTheirOwn)
{
    for (const auto& [key, code] : mainKeys) {
        EXPECT_EQ(codeOf(key), code) << key;
    }
    for (const auto& [key, code] : keypadKeys) {
        EXPECT_EQ(codeOf(key, Qt::KeypadModifier), code) << key;
        EXPECT_EQ(KeyCodeOf(QKeyEvent(QEvent::KeyRelease, key, Qt::KeypadModifier)), code) << key;
    }
    for (int digit = 0; digit <= 9; ++digit) {
        EXPECT_EQ(codeOf(Qt::Key_0 + digit), 48 + digit);
        EXPECT_EQ(codeOf(Qt::Key_0 + digit, Qt::KeypadModifier), 96 + digit);
    }
    for (int letter = 0; letter < 26; ++letter) {
        EXPECT_EQ(codeOf(Qt::Key_A + letter), 65 + letter);
    }
    for (int number = 0; number < 24; ++number) {
        EXPECT_EQ(codeOf(Qt::Key_F1 + number), 112 + number);
    }
}

TEST(KeyCodesTest, NamesTheCodesThatTheProgramAsksFor)
{
    const std::pair<int, int> named[] = { { Qt::Key_Backspace, KeyCode::Backspace }, { Qt::Key_Tab, KeyCode::Tab },
        { Qt::Key_Return, KeyCode::Enter }, { Qt::Key_Escape, KeyCode::Escape }, { Qt::Key_Space, KeyCode::Space },
        { Qt::Key_PageUp, KeyCode::PageUp }, { Qt::Key_PageDown, KeyCode::PageDown }, { Qt::Key_End, KeyCode::End },
        { Qt::Key_Home, KeyCode::Home }, { Qt::Key_Left, KeyCode::Left }, { Qt::Key_Up, KeyCode::Up },
        { Qt::Key_Right, KeyCode::Right }, { Qt::Key_Down, KeyCode::Down }, { Qt::Key_Delete, KeyCode::Delete },
        { Qt::Key_0, KeyCode::Digit0 }, { Qt::Key_F1, KeyCode::F1 }, { Qt::Key_Comma, KeyCode::Comma },
        { Qt::Key_Period, KeyCode::Point } };
    for (const auto& [key, code] : named) {
        EXPECT_EQ(codeOf(key), code);
    }
    EXPECT_EQ(codeOf(Qt::Key_0, Qt::KeypadModifier), KeyCode::KeypadDigit0);
    EXPECT_EQ(codeOf(Qt::Key_Period, Qt::KeypadModifier), KeyCode::KeypadDecimal);
}

TEST(KeyCodesTest, GivesAKeyTheSameCodeWithShiftControlAndAltWhateverItWrites)
{
    for (const auto modifier : { Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier }) {
        EXPECT_EQ(codeOf(Qt::Key_5, modifier), 53) << modifier;
        EXPECT_EQ(codeOf(Qt::Key_5, modifier | Qt::KeypadModifier), 101) << modifier;
        EXPECT_EQ(codeOf(Qt::Key_A, modifier), 65) << modifier;
        EXPECT_EQ(KeyCodeOf(QKeyEvent(QEvent::KeyPress, Qt::Key_3, modifier, QStringLiteral("#"))), 51);
    }
}

// An X server reports where a key is: the row from 1 to 0 begins with 10, the key right of M is 59. Windows reports the
// code itself.
TEST(KeyCodesTest, KnowsTheKeysOfNumbersByTheirPlaceWhateverTheyWrite)
{
    const auto expectCode = [](int code, quint32 scanCode, int key, const QString& text) {
        const QKeyEvent event(QEvent::KeyPress, key, Qt::ShiftModifier, scanCode, static_cast<quint32>(code), 0, text);
        EXPECT_EQ(KeyCodeOf(event), code) << key;
    };
    const QString writtenWithShift = QStringLiteral("!\"·$%&/()=");
    for (int place = 0; place < 10; ++place) {
        const QChar character = writtenWithShift[place];
        expectCode(48 + (place + 1) % 10, 10 + static_cast<quint32>(place), character.unicode(), character);
    }
    expectCode(188, 59, Qt::Key_Semicolon, QStringLiteral(";"));
    expectCode(27, 9, Qt::Key_Escape, {}); // its neighbours are known by what they are
    expectCode(219, 20, Qt::Key_Apostrophe, QStringLiteral("'"));
    expectCode(77, 58, Qt::Key_M, QStringLiteral("M"));
    expectCode(190, 60, Qt::Key_Colon, QStringLiteral(":"));
}

// Windows has codes for keys that say no more than that there is a character: those of a touch keyboard and of input
// methods.
TEST(KeyCodesTest, KnowsAKeyThatOnlyBringsACharacterByThatCharacter)
{
    for (const quint32 bringing : { 0xE5U, 0xE7U }) {
        EXPECT_EQ(KeyCodeOf(QKeyEvent(QEvent::KeyPress, Qt::Key_7, {}, 0, bringing, 0, QStringLiteral("7"))), 55);
    }
}

TEST(KeyCodesTest, GivesOtherKeysNoCode)
{
    for (const int key : { 0, int { Qt::Key_unknown }, int { Qt::Key_VolumeUp }, int { Qt::Key_Percent } }) {
        EXPECT_EQ(codeOf(key), 0) << key;
        EXPECT_EQ(codeOf(key, Qt::KeypadModifier), 0) << key;
    }
}

TEST(KeyCodesTest, CountsDigitsOfBothBlocksAndTheMainCommaAsWritingANumber)
{
    for (int code = -1; code <= 256; ++code) {
        const bool writes = (code >= 48 && code <= 57) || (code >= 96 && code <= 105) || code == 188;
        EXPECT_EQ(WritesDigitOrComma(code), writes) << code;
    }
}

} // namespace

} // namespace numbrela

#include "common/screen/KeyCodes.h"

#include <gtest/gtest.h>

#include <QKeyEvent>

#include <utility>

namespace numbrela {

namespace {

struct KeyRow {
    const char* Name;
    int Key; // Qt's
    int Code; // ours, on the main keyboard
};

int codeOf(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    return KeyCodeOf(QKeyEvent(QEvent::KeyPress, key, modifiers));
}

constexpr KeyRow mainKeys[] = {
    { "Backspace", Qt::Key_Backspace, 8 },
    { "Tab", Qt::Key_Tab, 9 },
    { "Tab backwards", Qt::Key_Backtab, 9 },
    { "Enter", Qt::Key_Return, 13 },
    { "Shift", Qt::Key_Shift, 16 },
    { "Control", Qt::Key_Control, 17 },
    { "Alt", Qt::Key_Alt, 18 },
    { "Pause", Qt::Key_Pause, 19 },
    { "Caps Lock", Qt::Key_CapsLock, 20 },
    { "Escape", Qt::Key_Escape, 27 },
    { "Space", Qt::Key_Space, 32 },
    { "Page Up", Qt::Key_PageUp, 33 },
    { "Page Down", Qt::Key_PageDown, 34 },
    { "End", Qt::Key_End, 35 },
    { "Home", Qt::Key_Home, 36 },
    { "Left", Qt::Key_Left, 37 },
    { "Up", Qt::Key_Up, 38 },
    { "Right", Qt::Key_Right, 39 },
    { "Down", Qt::Key_Down, 40 },
    { "Print", Qt::Key_Print, 44 },
    { "Insert", Qt::Key_Insert, 45 },
    { "Delete", Qt::Key_Delete, 46 },
    { "A", Qt::Key_A, 65 },
    { "M", Qt::Key_M, 77 },
    { "Z", Qt::Key_Z, 90 },
    { "F1", Qt::Key_F1, 112 },
    { "F5", Qt::Key_F5, 116 },
    { "F12", Qt::Key_F12, 123 },
    { "F24", Qt::Key_F24, 135 },
    { "Windows, left", Qt::Key_Super_L, 91 },
    { "Windows, right", Qt::Key_Super_R, 92 },
    { "Windows, either", Qt::Key_Meta, 91 },
    { "Menu", Qt::Key_Menu, 93 },
    { "Num Lock", Qt::Key_NumLock, 144 },
    { "Scroll Lock", Qt::Key_ScrollLock, 145 },
    { "semicolon", Qt::Key_Semicolon, 186 },
    { "grave accent", Qt::Key_QuoteLeft, 186 },
    { "grave accent that waits for its letter", Qt::Key_Dead_Grave, 186 },
    { "circumflex", Qt::Key_AsciiCircum, 186 },
    { "circumflex that waits for its letter", Qt::Key_Dead_Circumflex, 186 },
    { "left bracket", Qt::Key_BracketLeft, 186 },
    { "plus", Qt::Key_Plus, 187 },
    { "equals", Qt::Key_Equal, 187 },
    { "asterisk", Qt::Key_Asterisk, 187 },
    { "right bracket", Qt::Key_BracketRight, 187 },
    { "comma", Qt::Key_Comma, 188 },
    { "minus", Qt::Key_Minus, 189 },
    { "underscore", Qt::Key_Underscore, 189 },
    { "point", Qt::Key_Period, 190 },
    { "colon", Qt::Key_Colon, 190 },
    { "slash", Qt::Key_Slash, 191 },
    { "c with cedilla", Qt::Key_Ccedilla, 191 },
    { "right brace", Qt::Key_BraceRight, 191 },
    { "n with tilde", Qt::Key_Ntilde, 192 },
    { "apostrophe", Qt::Key_Apostrophe, 219 },
    { "question mark", Qt::Key_Question, 219 },
    { "masculine ordinal", Qt::Key_masculine, 220 },
    { "feminine ordinal", Qt::Key_ordfeminine, 220 },
    { "backslash", Qt::Key_Backslash, 220 },
    { "inverted exclamation mark", Qt::Key_exclamdown, 221 },
    { "inverted question mark", Qt::Key_questiondown, 221 },
    { "acute accent that waits for its letter", Qt::Key_Dead_Acute, 222 },
    { "diaeresis that waits for its letter", Qt::Key_Dead_Diaeresis, 222 },
    { "left brace", Qt::Key_BraceLeft, 222 },
    { "less than", Qt::Key_Less, 226 },
    { "greater than", Qt::Key_Greater, 226 },
};

constexpr KeyRow keypadKeys[] = {
    { "asterisk", Qt::Key_Asterisk, 106 },
    { "plus", Qt::Key_Plus, 107 },
    { "minus", Qt::Key_Minus, 109 },
    { "decimal point", Qt::Key_Period, 110 },
    { "decimal comma", Qt::Key_Comma, 110 },
    { "slash", Qt::Key_Slash, 111 },
    { "Enter", Qt::Key_Enter, 13 },
    { "Home, with Num Lock off", Qt::Key_Home, 36 },
    { "Left, with Num Lock off", Qt::Key_Left, 37 },
    { "Delete, with Num Lock off", Qt::Key_Delete, 46 },
};

TEST(KeyCodesTest, GivesTheKeysOfTheMainKeyboardAndOfTheKeypadCodesOfTheirOwn)
{
    for (const KeyRow& row : mainKeys) {
        EXPECT_EQ(codeOf(row.Key), row.Code) << row.Name;
    }
    for (const KeyRow& row : keypadKeys) {
        EXPECT_EQ(codeOf(row.Key, Qt::KeypadModifier), row.Code) << row.Name;
        EXPECT_EQ(KeyCodeOf(QKeyEvent(QEvent::KeyRelease, row.Key, Qt::KeypadModifier)), row.Code) << row.Name;
    }
    for (int digit = 0; digit <= 9; ++digit) {
        EXPECT_EQ(codeOf(Qt::Key_0 + digit), 48 + digit);
        EXPECT_EQ(codeOf(Qt::Key_0 + digit, Qt::KeypadModifier), 96 + digit);
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

TEST(KeyCodesTest, GivesAKeyTheSameCodeWithShiftControlAndAlt)
{
    for (const auto modifier : { Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier }) {
        EXPECT_EQ(codeOf(Qt::Key_5, modifier), 53) << modifier;
        EXPECT_EQ(codeOf(Qt::Key_5, modifier | Qt::KeypadModifier), 101) << modifier;
        EXPECT_EQ(codeOf(Qt::Key_A, modifier), 65) << modifier;
    }
}

TEST(KeyCodesTest, AsksTheKeyAndNotTheCharacterThatItWrites)
{
    EXPECT_EQ(KeyCodeOf(QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"))), 65);
    EXPECT_EQ(KeyCodeOf(QKeyEvent(QEvent::KeyPress, Qt::Key_3, Qt::NoModifier, QStringLiteral("#"))), 51);
}

// As an X server reports the row from 1 to 0 and the key right of M, whatever they write.
TEST(KeyCodesTest, KnowsTheKeysOfNumbersByTheirPlaceWhateverTheyWrite)
{
    const auto codeAt = [](quint32 scanCode, int key, const QString& text) {
        return KeyCodeOf(QKeyEvent(QEvent::KeyPress, key, Qt::ShiftModifier, scanCode, 0, 0, text));
    };
    const QString writtenWithShift = QStringLiteral("!\"·$%&/()=");
    for (int place = 0; place < 10; ++place) {
        const QChar character = writtenWithShift[place];
        EXPECT_EQ(codeAt(10 + static_cast<quint32>(place), character.unicode(), character), 48 + (place + 1) % 10);
    }
    EXPECT_EQ(codeAt(59, Qt::Key_Semicolon, QStringLiteral(";")), 188);
    EXPECT_EQ(codeAt(9, Qt::Key_Escape, {}), 27) << "its neighbours are known by what they are";
    EXPECT_EQ(codeAt(20, Qt::Key_Apostrophe, QStringLiteral("'")), 219);
    EXPECT_EQ(codeAt(58, Qt::Key_M, QStringLiteral("M")), 77);
    EXPECT_EQ(codeAt(60, Qt::Key_Colon, QStringLiteral(":")), 190);
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

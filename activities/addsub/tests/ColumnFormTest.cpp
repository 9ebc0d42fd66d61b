#include "activities/addsub/screen/ColumnForm.h"

#include "common/core/NumberText.h"
#include "common/screen/CommandButton.h"
#include "common/screen/OptionMenu.h"
#include "common/screen/TextBox.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/RunTimeErrorsOf.h"
#include "tests/support/Shown.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFontMetrics>
#include <QInputMethodEvent>
#include <QPointer>

#include <algorithm>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

const QString prompt = QStringLiteral("Introduzca el nuevo valor:");
const QString hecho = QStringLiteral("Command1");
const QString continuar = QStringLiteral("Command2(0)");
const QString borrar = QStringLiteral("Command2(1)");
const QString verSolución = QStringLiteral("Command2(2)");

// One of the two windows, and what its tests need to know of it.
struct Screen {
    const char* Name;
    ColumnForm* (*Make)(const Clock& clock);
    Operation Kind;
    const char* TooLarge;
};

std::ostream& operator<<(std::ostream& out, const Screen& screen)
{
    return out << screen.Name;
}

const Screen screens[] = {
    { "Sumas", [](const Clock& clock) -> ColumnForm* { return new Form2(clock); }, Operation::Addition,
        "La suma de los datos introducidos  produce un resultado demasiado grande" },
    { "Restas", [](const Clock& clock) -> ColumnForm* { return new Form3(clock); }, Operation::Subtraction,
        "La diferencia de los datos introducidos  produce un resultado demasiado grande" },
};

// All that the boxes of a window say.
struct Contents {
    std::string Heading;
    std::string Upper;
    std::string Lower;
    std::string Answer;
    std::string Verdict;
    std::string Score;

    bool operator==(const Contents&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Contents& shown)
{
    return out << shown.Heading << " | " << shown.Upper << " | " << shown.Lower << " | " << shown.Answer << " | "
               << shown.Verdict << " | " << shown.Score;
}

// What the two operand boxes say.
struct Operands {
    std::string Upper;
    std::string Lower;

    bool operator==(const Operands&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Operands& shown)
{
    return out << '"' << shown.Upper << "\" over \"" << shown.Lower << '"';
}

// Drives one window as a person does.
class ColumnFormTest : public ::testing::TestWithParam<Screen> {
protected:
    void SetUp() override { Open(); }

    void Open()
    {
        form_.reset(GetParam().Make(clock_));
        ShowAndActivate(*form_);
    }

    ColumnForm& Form() { return *form_; }
    bool IsAddition() const { return GetParam().Kind == Operation::Addition; }
    QString InputTitle() const { return QString::fromUtf8(GetParam().Name); }

    Contents Shown() const
    {
        return { form_->Text1->Text(), form_->Text2[0]->Text(), form_->Text2[1]->Text(), form_->Text3->Text(),
            form_->Text4->Text(), form_->tbResultados->Text() };
    }

    Operands ShownOperands() const { return { Shown().Upper, Shown().Lower }; }
    std::string Answer() const { return Shown().Answer; }
    std::string Verdict() const { return Shown().Verdict; }
    std::string Score() const { return Shown().Score; }
    int Caret() const { return form_->Text3->CaretPosition(); }

    void ExpectAnswer(const std::string& answer, int caret)
    {
        EXPECT_EQ(Answer(), answer);
        EXPECT_EQ(Caret(), caret);
    }

    void ExpectHighlightedOperands()
    {
        EXPECT_TRUE(IsWhollySelected(*form_->Text2[0]));
        EXPECT_TRUE(IsWhollySelected(*form_->Text2[1]));
        EXPECT_EQ(form_->Text2[0]->CaretPosition(), 0);
        EXPECT_EQ(form_->Text2[1]->CaretPosition(), 0);
    }

    // Checks that the verdict is shown and highlighted, and that the focus has moved to where the verdict sends it.
    void ExpectVerdict(bool right, const std::string& score)
    {
        EXPECT_EQ(Verdict(), right ? "resultado correcto" : "resultado incorrecto");
        EXPECT_TRUE(IsWhollySelected(*form_->Text4));
        EXPECT_EQ(form_->Text4->CaretPosition(), 0);
        EXPECT_EQ(FocusName(), right ? "Command2(0)" : "Text3");
        EXPECT_EQ(Score(), score);
    }

    // The right answer to the texts that are shown, which are correct up to six integer digits.
    std::string RightAnswer() const
    {
        const double upper = ParseDisplayNumber(Shown().Upper);
        const double lower = ParseDisplayNumber(Shown().Lower);
        return PlainDecimalText(IsAddition() ? upper + lower : upper - lower);
    }

    // Writes into the answer box from the last character to the first, whatever the caret does meanwhile.
    void WriteAnswer(const std::string& answer)
    {
        Click(*form_, borrar);
        ASSERT_EQ(FocusName(), "Text3");
        for (auto character = answer.rbegin(); character != answer.rend(); ++character) {
            Type(QString(QLatin1Char(*character)));
            Press(Qt::Key_Home);
        }
        ASSERT_EQ(Answer(), answer);
    }

    // Answers and presses Enter.
    void AnswerWith(const std::string& answer)
    {
        WriteAnswer(answer);
        Press(Qt::Key_Return);
    }

    void AnswerRight() { AnswerWith(RightAnswer()); }
    void AnswerWrong() { AnswerWith("1" + RightAnswer()); }

    // Types an operand into the box that F2 or F3 opens.
    void EnterOperand(int key, const QString& text)
    {
        ExpectInput(InputTitle(), prompt, text);
        Press(key);
        ComeBackFromBox();
    }

    void EnterOperands(const char* upper, const char* lower)
    {
        EnterOperand(Qt::Key_F2, QString::fromUtf8(upper));
        EnterOperand(Qt::Key_F3, QString::fromUtf8(lower));
    }

    // Gives the focus back to the window after a box has closed, as a window manager does.
    void ComeBackFromBox() { ShowAndActivate(*form_); }

    FixedClock clock_;

private:
    std::unique_ptr<ColumnForm> form_;
};

INSTANTIATE_TEST_SUITE_P(
    Of, ColumnFormTest, ::testing::ValuesIn(screens), [](const auto& instance) { return instance.param.Name; });

// Digits before and behind the comma of a display number.
std::pair<std::string, std::string> digitsOf(std::string text)
{
    text.erase(std::remove(text.begin(), text.end(), '.'), text.end());
    const std::size_t comma = std::min(text.find(','), text.size());
    return { text.substr(0, comma), comma < text.size() ? text.substr(comma + 1) : std::string() };
}

void expectDrawnNumber(const std::string& text, std::size_t digits, std::size_t decimals)
{
    SCOPED_TRACE(text);
    const auto [integer, fraction] = digitsOf(text);
    EXPECT_EQ(integer.size(), digits);
    EXPECT_EQ(fraction.size(), decimals);
    EXPECT_EQ((integer + fraction).find_first_not_of("0123456789"), std::string::npos);
    EXPECT_NE(integer.front(), '0');
    EXPECT_TRUE(decimals == 0 || fraction.back() != '0');
    EXPECT_EQ(text.find(',') != std::string::npos, decimals > 0);
}

void expectDrawn(const Operands& shown, std::size_t digits, std::size_t decimals)
{
    expectDrawnNumber(shown.Upper, digits, decimals);
    expectDrawnNumber(shown.Lower, digits, decimals);
}

Operands drawnBy(const ColumnExercise& exercise)
{
    return { exercise.DrawnTexts().Upper, exercise.DrawnTexts().Lower };
}

// --- Opening and closing ---------------------------------------------------------------------------------------------

TEST_P(ColumnFormTest, OpensWithAnExerciseOfThreeDigitsAndTwoDecimalsReadyForTheAnswer)
{
    expectDrawn(ShownOperands(), 3, 2);
    ExpectHighlightedOperands();
    EXPECT_EQ(Answer(), "");
    EXPECT_EQ(Verdict(), "");
    EXPECT_EQ(Score(), "Ejercicios:  0; Errores:  0");
    EXPECT_EQ(FocusName(), "Text3");
}

TEST_P(ColumnFormTest, OpenedAgainStartsAfresh)
{
    AnswerWrong();
    Choose(Form(), QStringLiteral("MnuOpcCifLis(5)"));
    Choose(Form(), QStringLiteral("MnuOpcDecLis(0)"));
    ASSERT_EQ(Score(), "Ejercicios:  1; Errores:  1");
    Choose(Form(), QStringLiteral("MnuOpcSal"));

    Open();
    EXPECT_EQ(Score(), "Ejercicios:  0; Errores:  0");
    EXPECT_EQ(Answer(), "");
    EXPECT_EQ(Verdict(), "");
    EXPECT_EQ(CheckedItems(*Form().MnuOpcCif), std::vector<int> { 2 });
    EXPECT_EQ(CheckedItems(*Form().MnuOpcDec), std::vector<int> { 2 });
    expectDrawn(ShownOperands(), 3, 2);
}

TEST_P(ColumnFormTest, DrawsFromTheTimeAtWhichItWasOpened)
{
    const TimeOfDay times[] = { { 0, 0, 0, 0 }, { 23, 59, 59, 86399 }, { 9, 5, 41, 32741 } };
    const int seeds[] = { 1, 86400, 10 * 6 * 42 };
    for (std::size_t i = 0; i < std::size(times); ++i) {
        clock_.Time = times[i];
        Open();
        SeededRandom random(seeds[i]);
        ColumnExercise exercise(GetParam().Kind, random);
        exercise.Generate();
        EXPECT_EQ(ShownOperands(), drawnBy(exercise));

        // The clock is asked only once: the next exercise is the next draw, whatever the time is by then.
        clock_.Time = { 12, 34, 56, 45296 };
        Click(Form(), continuar);
        exercise.Generate();
        EXPECT_EQ(ShownOperands(), drawnBy(exercise));
    }
}

// The Tab key skips the operands, so a screen reader must speak them together with the answer.
TEST_P(ColumnFormTest, SpeaksTheExerciseWhereItsAnswerIsWritten)
{
    const auto spoken = [this] { return Form().Text3->accessibleDescription().toStdString(); };
    const auto shown
        = [this] { return ShownOperands().Upper + (IsAddition() ? " + " : " - ") + ShownOperands().Lower; };
    EXPECT_EQ(spoken(), shown());
    Click(Form(), continuar);
    EXPECT_EQ(spoken(), shown());
    Choose(Form(), QStringLiteral("MnuOpcCifLis(4)"));
    EXPECT_EQ(spoken(), shown());
    EnterOperands("1234,5", "905,16");
    EXPECT_EQ(spoken(), IsAddition() ? "1.234,5 + 905,16" : "1.234,5 - 905,16") << "without the blanks around them";
}

TEST_P(ColumnFormTest, IsDestroyedWhenItIsClosedByThePupil)
{
    const QPointer<ColumnForm> byMenu = GetParam().Make(clock_);
    byMenu->Show(true);
    Choose(*byMenu, QStringLiteral("MnuOpcSal"));
    EXPECT_FALSE(byMenu->isVisible());
    const QPointer<ColumnForm> byCloseBox = GetParam().Make(clock_);
    byCloseBox->Show(true);
    byCloseBox->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(byMenu.isNull());
    EXPECT_TRUE(byCloseBox.isNull());
}

TEST_P(ColumnFormTest, EscapeClosesNothingAndChangesNothing)
{
    AnswerWrong();
    const Contents before = Shown();
    for (int control = 0; control < 7; ++control) {
        SCOPED_TRACE(FocusName());
        ExpectHighlightedOperands();
        EXPECT_TRUE(IsWhollySelected(*Form().Text4));
        Press(Qt::Key_Escape);
        EXPECT_TRUE(Form().isVisible());
        EXPECT_EQ(Shown(), before);
        Press(Qt::Key_Tab);
    }
    EXPECT_EQ(FocusName(), "Text1") << "which hands Escape, as any key, to the answer box";
}

// --- Writing the answer ----------------------------------------------------------------------------------------------

struct Written {
    const char* Keys;
    Qt::KeyboardModifiers With;
    const char* Answer;
    int Caret;
};

// On a Spanish keyboard the decimal key of the keypad writes a comma, on others a point.
TEST_P(ColumnFormTest, DigitsAndTheCommaKeyStepLeftAndNoOtherKeyDoes)
{
    const Written cases[] = {
        { "57,1", Qt::NoModifier, "1,75", 0 },
        { "0123456789", Qt::NoModifier, "9876543210", 0 },
        { "0123456789", Qt::KeypadModifier, "9876543210", 0 },
        { ".7", Qt::NoModifier, ".7", 1 },
        { ",.", Qt::KeypadModifier, ",.", 2 },
        { "aZ -+;/", Qt::NoModifier, "aZ -+;/", 7 },
    };
    for (const auto& [keys, with, answer, caret] : cases) {
        SCOPED_TRACE(keys);
        Click(Form(), borrar);
        for (const char* key = keys; *key != '\0'; ++key) {
            if (with == Qt::NoModifier) {
                Type(QString(QLatin1Char(*key)));
            } else {
                Press(*key, with);
            }
        }
        ExpectAnswer(answer, caret);
    }
}

TEST_P(ColumnFormTest, KeysThatMoveTheCaretOrEraseDoJustThat)
{
    Type(QStringLiteral("321"));
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    Type(QStringLiteral("9"));
    ExpectAnswer("1293", 2);
    Press(Qt::Key_End);
    ExpectAnswer("1293", 4);
    Press(Qt::Key_Left);
    ExpectAnswer("1293", 3);
    Press(Qt::Key_Backspace);
    ExpectAnswer("123", 2);
    Press(Qt::Key_Delete);
    ExpectAnswer("12", 2);
    Press(Qt::Key_Home);
    ExpectAnswer("12", 0);
}

// The caret steps when a key is let go, so keys that overlap step together at the end, and a held one steps once.
TEST_P(ColumnFormTest, OverlappingAndHeldKeysStepWhenTheyAreLetGo)
{
    HoldDown(Qt::Key_5);
    HoldDown(Qt::Key_7);
    ExpectAnswer("57", 2);
    LetGo(Qt::Key_5);
    ExpectAnswer("57", 1);
    HoldDown(Qt::Key_Comma);
    ExpectAnswer("5,7", 2);
    LetGo(Qt::Key_Comma);
    LetGo(Qt::Key_7);
    ExpectAnswer("5,7", 0);

    Click(Form(), borrar);
    HoldDown(Qt::Key_5);
    Repeat(Qt::Key_5);
    Repeat(Qt::Key_5);
    ExpectAnswer("555", 3);
    LetGo(Qt::Key_5);
    ExpectAnswer("555", 2);
}

TEST_P(ColumnFormTest, TheAnswerKeepsItsCaretWhileTheFocusIsElsewhere)
{
    Type(QStringLiteral("321"));
    Press(Qt::Key_Tab);
    ASSERT_EQ(FocusName(), "Command1");
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_EQ(FocusName(), "Text3");
    EXPECT_FALSE(Form().Text3->hasSelectedText());
    EXPECT_EQ(Caret(), 0);
    Type(QStringLiteral("4"));
    EXPECT_EQ(Answer(), "4123");
}

// The caret of a highlighted text is at its beginning, where it cannot step left.
TEST_P(ColumnFormTest, ADigitReplacesAHighlightedAnswerAndOneLetGoOverItLeavesIt)
{
    Type(QStringLiteral("321"));
    Press(Qt::Key_A, Qt::ControlModifier);
    LetGo(Qt::Key_4);
    EXPECT_EQ(Answer(), "123");
    EXPECT_TRUE(IsWhollySelected(*Form().Text3));
    Type(QStringLiteral("4"));
    ExpectAnswer("4", 0);
}

// --- Keys in boxes that are not for typing ---------------------------------------------------------------------------

TEST_P(ColumnFormTest, AKeyInHeadingOrOperandGoesToTheAnswerBoxAndIsWrittenNowhere)
{
    const Contents before = Shown();
    for (const char* box : { "Text1", "Text2(0)", "Text2(1)" }) {
        for (const int key : { Qt::Key_7, Qt::Key_A, Qt::Key_Comma, Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter,
                 Qt::Key_Backspace, Qt::Key_Escape }) {
            SCOPED_TRACE(box + std::to_string(key));
            Click(Form(), QString::fromLatin1(box));
            ASSERT_EQ(FocusName(), box);
            Press(key);
            EXPECT_EQ(FocusName(), "Text3");
            EXPECT_EQ(Shown(), before);
        }
    }
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_EQ(FocusName(), "Text1") << "which the Tab key reaches";
    Type(QStringLiteral("78"));
    EXPECT_EQ(Answer(), "8");
}

// The release of a key goes to the control that has the focus by then, whose caret steps even if the key was pressed
// elsewhere.
TEST_P(ColumnFormTest, ADigitPressedOutsideTheAnswerStepsLeftInItWhenItIsLetGo)
{
    for (const char* box : { "Text1", "Text2(0)", "Text2(1)" }) {
        SCOPED_TRACE(box);
        WriteAnswer("57");
        Form().Text3->SetCaretPosition(2);
        Click(Form(), QString::fromLatin1(box));
        const Contents before = Shown();
        HoldDown(Qt::Key_9);
        EXPECT_EQ(FocusName(), "Text3");
        EXPECT_EQ(Shown(), before);
        EXPECT_EQ(Caret(), 2);
        LetGo(Qt::Key_9);
        EXPECT_EQ(Shown(), before);
        EXPECT_EQ(Caret(), 1);
    }
}

// What an input method sends when it has composed a character from several keys.
void compose(QWidget& receiver, const QString& text)
{
    QInputMethodEvent event;
    event.setCommitString(text);
    QCoreApplication::sendEvent(&receiver, &event);
}

// What can be done to a text without a key that types: by commands, by the context menu, by an input method.
struct Deed {
    const char* Name;
    void (*Do)(TextBox& box);
};

const Deed deeds[] = {
    { "Delete", [](TextBox&) { Press(Qt::Key_Delete); } },
    { "Cut", [](TextBox&) { Press(Qt::Key_X, Qt::ControlModifier); } },
    { "Paste", [](TextBox&) { Press(Qt::Key_V, Qt::ControlModifier); } },
    { "Undo",
        [](TextBox&) {
            Press(Qt::Key_Delete);
            Press(Qt::Key_Z, Qt::ControlModifier);
        } },
    { "PasteByMenu", [](TextBox& box) { box.paste(); } },
    { "Compose", [](TextBox& box) { compose(box, QStringLiteral("á")); } },
};

TEST_P(ColumnFormTest, TheHeadingStaysWhateverIsDoneToItsText)
{
    const Contents before = Shown();
    for (const auto& [name, doTo] : deeds) {
        for (const auto& [start, length] : { std::pair { 0, 0 }, std::pair { 3, 5 }, std::pair { 0, 25 } }) {
            SCOPED_TRACE(name + std::to_string(length));
            QApplication::clipboard()->setText(QStringLiteral("123"));
            Click(Form(), QStringLiteral("Text1"));
            Form().Text1->setSelection(start, length);
            doTo(*Form().Text1);
            EXPECT_EQ(Shown(), before);
        }
    }
}

TEST_P(ColumnFormTest, WhatAnInputMethodWritesIsTyped)
{
    Click(Form(), QStringLiteral("Text1"));
    compose(*Form().Text1, QStringLiteral("57"));
    EXPECT_EQ(FocusName(), "Text3");
    EXPECT_EQ(Answer(), "7") << "the first key leads to the answer, the next ones are written there";
    compose(*Form().Text3, QStringLiteral(",1"));
    EXPECT_EQ(Answer(), "1,7");
    EXPECT_TRUE(Form().Text3->testAttribute(Qt::WA_InputMethodEnabled));
}

TEST_P(ColumnFormTest, TheVerdictAndTheScoreCannotBeTypedInto)
{
    AnswerWrong();
    const Contents before = Shown();
    for (const char* box : { "Text4", "tbResultados" }) {
        Click(Form(), QString::fromLatin1(box));
        ASSERT_EQ(FocusName(), box);
        Type(QStringLiteral("7"));
        Press(Qt::Key_Backspace);
        Press(Qt::Key_Return);
        EXPECT_EQ(Shown(), before);
    }
}

// --- Checking --------------------------------------------------------------------------------------------------------

// The ways to have an answer checked; each of them checks once.
struct WayToCheck {
    const char* Name;
    void (*Check)(const ColumnForm& form);
};

const WayToCheck waysToCheck[] = {
    { "Enter", [](const ColumnForm&) { Press(Qt::Key_Return); } },
    { "Enter of the keypad", [](const ColumnForm&) { Press(Qt::Key_Enter, Qt::KeypadModifier); } },
    { "mouse", [](const ColumnForm& form) { Click(form, hecho); } },
    { "access key", [](const ColumnForm& form) { PressAccessKey(form, Qt::Key_H, hecho); } },
    { "Space on the button",
        [](const ColumnForm&) {
            TabTo("Command1");
            Press(Qt::Key_Space);
        } },
    { "Enter on the button",
        [](const ColumnForm&) {
            TabTo("Command1");
            Press(Qt::Key_Return);
        } },
    { "Enter of the keypad on the button",
        [](const ColumnForm&) {
            TabTo("Command1");
            Press(Qt::Key_Enter, Qt::KeypadModifier);
        } },
};

TEST_P(ColumnFormTest, EveryWayToCheckJudgesOnceAndChangesNothingElse)
{
    for (const auto& [name, check] : waysToCheck) {
        SCOPED_TRACE(name);
        Open();
        const Operands operands = ShownOperands();
        WriteAnswer("1,5");
        check(Form());
        ExpectVerdict(false, "Ejercicios:  1; Errores:  1");
        EXPECT_EQ(Answer(), "1,5");
        const std::string answer = RightAnswer();
        WriteAnswer(answer);
        check(Form());
        ExpectVerdict(true, "Ejercicios:  2; Errores:  1");
        EXPECT_EQ(Answer(), answer);
        EXPECT_EQ(ShownOperands(), operands);
        ExpectHighlightedOperands();
    }
}

TEST_P(ColumnFormTest, AHeldEnterChecksOnceAndDoesNotPressContinuarAsWell)
{
    for (const int key : { Qt::Key_Return, Qt::Key_Enter }) {
        const auto hold = [key] {
            HoldDown(key);
            Repeat(key);
            Repeat(key);
            LetGo(key);
        };
        Open();
        hold();
        ExpectVerdict(false, "Ejercicios:  1; Errores:  1");
        WriteAnswer(RightAnswer());
        const Contents written = Shown();
        hold();
        ExpectVerdict(true, "Ejercicios:  2; Errores:  1");
        EXPECT_EQ(Answer(), written.Answer);
        EXPECT_EQ(ShownOperands(), (Operands { written.Upper, written.Lower }));

        // A new press draws the next exercise, and the focus moves to the empty answer while the key is still down.
        hold();
        EXPECT_NE(ShownOperands(), (Operands { written.Upper, written.Lower }));
        EXPECT_EQ(Answer(), "");
        EXPECT_EQ(Verdict(), "");
        EXPECT_EQ(FocusName(), "Text3");
        EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  1");
    }
}

TEST_P(ColumnFormTest, EveryWrongCheckCountsAndARightOneOnce)
{
    AnswerWrong();
    Press(Qt::Key_Return);
    ExpectVerdict(false, "Ejercicios:  2; Errores:  2");
    AnswerRight();
    ExpectVerdict(true, "Ejercicios:  3; Errores:  2");
    Form().tbResultados->SetText("");
    Click(Form(), hecho);
    ExpectVerdict(true, "Ejercicios:  3; Errores:  2");
    Form().tbResultados->SetText("");
    AnswerWrong();
    ExpectVerdict(false, "Ejercicios:  3; Errores:  2");
}

// At 999 a count fills its three places. One more cannot be shown, and the program ends.
TEST_P(ColumnFormTest, TheThousandthExerciseEndsInARunTimeError)
{
    const std::vector<RunTimeError> errors = RunTimeErrorsOf([this] {
        Open();
        for (int count = 1; count <= 999; ++count) {
            Press(Qt::Key_Return);
        }
        EXPECT_EQ(Score(), "Ejercicios:999; Errores:999");
        EXPECT_TRUE(TakeRunTimeErrors().empty());
        AnswerRight();
    });
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(errors.front().ErrorKind(), RunTimeError::Kind::InvalidArgument);
    EXPECT_EQ(Form().Text4->Text(), "resultado correcto");
    EXPECT_EQ(Score(), "Ejercicios:999; Errores:999");
}

struct WrittenAnswer {
    const char* Text;
    bool Right;
};

// The sum 1000 + 234,5 and the difference 1235 - 0,5.
TEST_P(ColumnFormTest, ReadsTheAnswerAsANumber)
{
    EnterOperands(IsAddition() ? "1000" : "1235", IsAddition() ? "234,5" : "0,5");
    const WrittenAnswer answers[] = { { "1.234,5", true }, { " 01234,50", true }, { "1234,5a", true },
        { "1234.5", false }, { "-1234,5", false }, { "a1234,5", false }, { "", false } };
    for (const auto& [text, right] : answers) {
        SCOPED_TRACE(text);
        AnswerWith(text);
        EXPECT_EQ(Verdict(), right ? "resultado correcto" : "resultado incorrecto");
        EXPECT_EQ(Answer(), text);
    }
}

// --- Buttons ---------------------------------------------------------------------------------------------------------

TEST_P(ColumnFormTest, ContinuarDrawsAnExerciseThatCounts)
{
    AnswerRight();
    for (const bool byMouse : { true, false }) {
        const Operands operands = ShownOperands();
        if (byMouse) {
            Click(Form(), continuar);
        } else {
            Type(QStringLiteral("12"));
            PressAccessKey(Form(), Qt::Key_C, continuar);
        }
        EXPECT_NE(ShownOperands(), operands);
        expectDrawn(ShownOperands(), 3, 2);
        ExpectHighlightedOperands();
        EXPECT_EQ(Answer(), "");
        EXPECT_EQ(Verdict(), "");
        EXPECT_EQ(FocusName(), "Text3");
        EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
    }
    AnswerWrong();
    EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  1");
}

TEST_P(ColumnFormTest, BorrarClearsTheAnswerAndNothingElse)
{
    AnswerWrong();
    Contents expected = Shown();
    expected.Answer = "";
    for (const bool byMouse : { true, false }) {
        Type(QStringLiteral("12"));
        if (byMouse) {
            Click(Form(), borrar);
        } else {
            PressAccessKey(Form(), Qt::Key_B, borrar);
        }
        EXPECT_EQ(Shown(), expected);
        EXPECT_EQ(FocusName(), "Text3");
        EXPECT_TRUE(IsWhollySelected(*Form().Text4));
        ExpectHighlightedOperands();
    }
    AnswerRight();
    EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  1");
    Click(Form(), borrar);
    Press(Qt::Key_Return);
    ExpectVerdict(false, "Ejercicios:  2; Errores:  1");
}

TEST_P(ColumnFormTest, VerSoluciónWritesTheSolutionHighlightedAndNothingCountsAfterIt)
{
    AnswerWrong();
    Contents expected = Shown();
    expected.Answer = FormatDisplayNumber(ParseDisplayNumber(RightAnswer()));
    for (const bool byMouse : { true, false }) {
        Click(Form(), borrar);
        if (byMouse) {
            Click(Form(), verSolución);
        } else {
            PressAccessKey(Form(), Qt::Key_V, verSolución);
        }
        EXPECT_EQ(Shown(), expected);
        EXPECT_TRUE(IsWhollySelected(*Form().Text3));
        EXPECT_EQ(Caret(), 0);
        EXPECT_EQ(FocusName(), "Command2(0)");
    }
    Click(Form(), hecho);
    ExpectVerdict(true, "Ejercicios:  1; Errores:  1");
    AnswerWrong();
    ExpectVerdict(false, "Ejercicios:  1; Errores:  1");
    Click(Form(), continuar);
    AnswerRight();
    ExpectVerdict(true, "Ejercicios:  2; Errores:  1");
}

TEST_P(ColumnFormTest, ADigitTypedOverTheHighlightedSolutionReplacesIt)
{
    Click(Form(), verSolución);
    TabTo("Text3");
    EXPECT_TRUE(IsWhollySelected(*Form().Text3));
    Type(QStringLiteral("5"));
    EXPECT_EQ(Answer(), "5");
}

// From seven digits on the groups repeat a digit and drop another, and the solution reads back as another number. What
// counts is the true number, whatever the box shows of it.
TEST_P(ColumnFormTest, ASolutionOfSevenDigitsIsJudgedAsItIsWritten)
{
    EnterOperands("1234567", "0");
    Click(Form(), verSolución);
    EXPECT_EQ(Answer(), "1.123.567");
    Click(Form(), hecho);
    ExpectVerdict(false, "Ejercicios:  0; Errores:  0");
    AnswerWith("1234567");
    ExpectVerdict(true, "Ejercicios:  0; Errores:  0");
}

// --- Options ---------------------------------------------------------------------------------------------------------

TEST_P(ColumnFormTest, OptionsDrawOperandsOfAsManyDigitsAndDecimals)
{
    for (int digits = 0; digits <= 6; ++digits) {
        for (int decimals = 0; decimals <= 6; ++decimals) {
            Operands before = ShownOperands();
            Choose(Form(), QStringLiteral("MnuOpcCifLis(%1)").arg(digits));
            EXPECT_NE(ShownOperands(), before) << "an option that is checked already draws anew, too";
            before = ShownOperands();
            Choose(Form(), QStringLiteral("MnuOpcDecLis(%1)").arg(decimals));
            EXPECT_NE(ShownOperands(), before);
            EXPECT_EQ(CheckedItems(*Form().MnuOpcCif), std::vector<int> { digits });
            EXPECT_EQ(CheckedItems(*Form().MnuOpcDec), std::vector<int> { decimals });
            for (int exercise = 0; exercise < 2; ++exercise) {
                expectDrawn(ShownOperands(), static_cast<std::size_t>(digits) + 1, static_cast<std::size_t>(decimals));
                Click(Form(), continuar);
            }
        }
    }
}

TEST_P(ColumnFormTest, AnOptionClearsAnswerAndVerdictAndLeavesScoreAndFocus)
{
    for (const QString& item : { QStringLiteral("MnuOpcCifLis(3)"), QStringLiteral("MnuOpcDecLis(1)") }) {
        Open();
        AnswerWrong();
        Choose(Form(), item);
        AnswerRight();
        EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  1") << "drawn before a right answer, it counts";
        Choose(Form(), item);
        EXPECT_EQ(Answer(), "");
        EXPECT_EQ(Verdict(), "");
        EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  1");
        EXPECT_EQ(FocusName(), "Command2(0)");
        ExpectHighlightedOperands();
        AnswerWrong();
        ExpectVerdict(false, "Ejercicios:  2; Errores:  1");
        Click(Form(), continuar);
        Click(Form(), verSolución);
        Choose(Form(), item);
        AnswerRight();
        ExpectVerdict(true, "Ejercicios:  2; Errores:  1");
        Click(Form(), continuar);
        AnswerRight();
        EXPECT_EQ(Score(), "Ejercicios:  3; Errores:  1");
    }
}

// --- Operands typed by the pupil -----------------------------------------------------------------------------------

TEST_P(ColumnFormTest, F2AndF3AndTheirMenuItemsReplaceAnOperand)
{
    const Operands drawn = ShownOperands();
    EnterOperand(Qt::Key_F2, QStringLiteral("482,37"));
    EXPECT_EQ(ShownOperands(), (Operands { "482,37", drawn.Lower }));
    EnterOperand(Qt::Key_F3, QStringLiteral("905,16"));
    EXPECT_EQ(ShownOperands(), (Operands { "482,37", "905,16" }));
    ExpectInput(InputTitle(), prompt, QStringLiteral("7"));
    Choose(Form(), QStringLiteral("MnuOpcIn1"));
    EXPECT_EQ(ShownOperands(), (Operands { "  7   ", "905,16" }));
    ExpectInput(InputTitle(), prompt, QStringLiteral("-123"));
    Choose(Form(), QStringLiteral("MnuOpcIn2"));
    EXPECT_EQ(ShownOperands(), (Operands { "    7", "-.123" }));
}

TEST_P(ColumnFormTest, TheCommasOfTypedOperandsStandUnderEachOther)
{
    struct Pair {
        const char* Upper;
        const char* Lower;
        Operands Shown;
    };
    const Pair pairs[] = {
        { "1234,5", "905,16", { "1.234,5 ", "  905,16" } },
        { "905,16", "1234,5", { "  905,16", "1.234,5 " } },
        { "12", "3,45", { "12   ", " 3,45" } },
        { "3,45", "12", { " 3,45", "12   " } },
        { "5", "1234", { "    5", "1.234" } },
        { "1.5", "25E-2", { "15   ", " 0,25" } },
        { "0,123456789", " 12345678 ", { "         0,123456789", "12.234.678          " } },
    };
    for (const Pair& pair : pairs) {
        SCOPED_TRACE(std::string(pair.Upper) + " and " + pair.Lower);
        EnterOperands(pair.Upper, pair.Lower);
        EXPECT_EQ(ShownOperands(), pair.Shown);
        ExpectHighlightedOperands();
        EXPECT_EQ(Form().Text2[0]->font(), Form().Text2[1]->font());
    }
}

TEST_P(ColumnFormTest, EntryClearsAnswerAndVerdictAndKeepsEverythingElse)
{
    for (const int key : { Qt::Key_F2, Qt::Key_F3 }) {
        Open();
        AnswerWrong();
        EnterOperand(key, QStringLiteral("4,5"));
        EXPECT_EQ(Answer(), "");
        EXPECT_EQ(Verdict(), "");
        EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  1");
        EXPECT_EQ(CheckedItems(*Form().MnuOpcCif), std::vector<int> { 2 });
        EXPECT_EQ(CheckedItems(*Form().MnuOpcDec), std::vector<int> { 2 });
        for (const char* focused : { "Text3", "Command2(0)", "Text2(1)" }) {
            Click(Form(), QString::fromLatin1(focused));
            Find<QWidget>(Form(), QString::fromLatin1(focused)).setFocus();
            EnterOperand(key, QStringLiteral("8,5"));
            EXPECT_EQ(FocusName(), focused);
        }
        Click(Form(), continuar);
        expectDrawn(ShownOperands(), 3, 2);
    }
}

TEST_P(ColumnFormTest, ATypedExerciseIsScoredAsTheOneItReplaces)
{
    EnterOperands("9", "4");
    AnswerRight();
    ExpectVerdict(true, "Ejercicios:  1; Errores:  0");
    EnterOperand(Qt::Key_F2, QStringLiteral("8"));
    AnswerWrong();
    ExpectVerdict(false, "Ejercicios:  1; Errores:  0");
    Click(Form(), continuar);
    EnterOperand(Qt::Key_F3, QStringLiteral("4"));
    AnswerWrong();
    ExpectVerdict(false, "Ejercicios:  2; Errores:  1");
}

TEST_P(ColumnFormTest, EntryThatIsCancelledOrNoNumberChangesNothingAndIsPassedOverInSilence)
{
    AnswerWrong();
    const Contents before = Shown();
    for (const int key : { Qt::Key_F2, Qt::Key_F3 }) {
        for (const QString& typed : { QString(), QStringLiteral("12") }) {
            ExpectInputCancelled(InputTitle(), prompt, typed);
            Press(key);
            EXPECT_EQ(Shown(), before);
            ComeBackFromBox();
            EXPECT_EQ(FocusName(), "Text3");
        }
        for (const char* text : { "", " ", "abc", "12a", "12,5 €" }) {
            SCOPED_TRACE(text);
            EnterOperand(key, QString::fromUtf8(text));
            EXPECT_EQ(Shown(), before);
        }
    }
    EXPECT_TRUE(IsWhollySelected(*Form().Text4));
    ExpectHighlightedOperands();
}

TEST_P(ColumnFormTest, ANumberBeyondAllNumbersIsRefusedWithAMessage)
{
    AnswerWrong();
    const Contents before = Shown();
    const std::string right = RightAnswer();
    for (const QString& text : { QStringLiteral("1e999"), QStringLiteral("-1e400"), QString(310, u'9') }) {
        for (const int key : { Qt::Key_F2, Qt::Key_F3 }) {
            ExpectInput(InputTitle(), prompt, text);
            ExpectMessage(QStringLiteral("Numbrela"), QStringLiteral("El dato introducido no es válido"));
            Press(key);
            EXPECT_EQ(PendingBoxes(), 0);
            EXPECT_EQ(Shown(), before);
            ComeBackFromBox();
            EXPECT_EQ(FocusName(), "Text3");
        }
    }
    AnswerWith(right);
    EXPECT_EQ(Verdict(), "resultado correcto");
}

// The operand is kept, although it is not shown before the next one is.
TEST_P(ColumnFormTest, AResultTooLargeIsToldAndCheckingOrShowingItIsARunTimeError)
{
    const QString lower = IsAddition() ? QStringLiteral("1e308") : QStringLiteral("-1e308");
    const auto expectTooLarge = [this](int key, const QString& operand) {
        const Contents before = Shown();
        ExpectInput(InputTitle(), prompt, operand);
        ExpectMessage(QStringLiteral("Error"), QString::fromUtf8(GetParam().TooLarge));
        Press(key);
        EXPECT_EQ(PendingBoxes(), 0);
        EXPECT_EQ(Shown(), before);
        ComeBackFromBox();
        EXPECT_EQ(FocusName(), "Text3");
    };
    EnterOperand(Qt::Key_F3, lower);
    expectTooLarge(Qt::Key_F2, QStringLiteral("1e308"));
    Open();
    EnterOperands("1e308", "5");
    AnswerWith("7");
    expectTooLarge(Qt::Key_F3, lower);
    EXPECT_EQ(Trimmed(Shown().Lower), "5");
    EnterOperand(Qt::Key_F2, QStringLiteral("2"));
    EXPECT_EQ(Trimmed(Shown().Upper), "2");
    EXPECT_GE(digitsOf(std::string(Trimmed(Shown().Lower))).first.size(), 309U);

    for (const QString& button : { hecho, verSolución }) {
        const std::vector<RunTimeError> errors = RunTimeErrorsOf([&] {
            Open();
            EnterOperand(Qt::Key_F2, QStringLiteral("1e308"));
            expectTooLarge(Qt::Key_F3, lower);
            Click(Form(), button);
        });
        ASSERT_EQ(errors.size(), 1U);
        EXPECT_EQ(errors.front().ErrorKind(), RunTimeError::Kind::Overflow);
        EXPECT_EQ(Score(), "Ejercicios:  0; Errores:  0");
    }
}

// Typed operands may be equal, or the lower one the greater.
TEST_P(ColumnFormTest, AResultMayBeZeroOrNegative)
{
    EnterOperands(IsAddition() ? "-482,37" : "482,37", "482,37");
    Press(Qt::Key_Return);
    ExpectVerdict(true, "Ejercicios:  1; Errores:  0");
    Click(Form(), verSolución);
    EXPECT_EQ(Answer(), "0");
    EnterOperands(IsAddition() ? "-1235" : "1", IsAddition() ? "1" : "1235");
    AnswerWith("1234");
    EXPECT_EQ(Verdict(), "resultado incorrecto");
    AnswerWith("-1234");
    EXPECT_EQ(Verdict(), "resultado correcto");
    Click(Form(), verSolución);
    EXPECT_EQ(Answer(), "-1.234");
}

// --- Long texts ------------------------------------------------------------------------------------------------------

void expectSeenWhole(const TextBox& box)
{
    constexpr int frame = 2;
    EXPECT_LE(QFontMetrics(box.font()).horizontalAdvance(box.text()), box.width() - 2 * frame)
        << box.objectName().toStdString() << ": " << box.Text();
}

TEST_P(ColumnFormTest, LongOperandsAndSolutionsAreSeenWholeAndShortOnesLargeAgain)
{
    const QFont design = Form().Text2[0]->font();
    Choose(Form(), QStringLiteral("MnuOpcCifLis(6)"));
    Choose(Form(), QStringLiteral("MnuOpcDecLis(6)"));
    for (const bool typed : { false, true }) {
        if (typed) { // too many even for the narrower digits of the answer at the smallest size of the others
            EnterOperands("12345678901234567890", "1");
        }
        Click(Form(), verSolución);
        for (const TextBox* box : { Form().Text2[0], Form().Text2[1], Form().Text3 }) {
            expectSeenWhole(*box);
        }
        EXPECT_LT(Form().Text2[0]->font().pixelSize(), design.pixelSize());
        EXPECT_EQ(Form().Text2[0]->font(), Form().Text2[1]->font());
    }
    Choose(Form(), QStringLiteral("MnuOpcCifLis(2)"));
    Choose(Form(), QStringLiteral("MnuOpcDecLis(2)"));
    EXPECT_EQ(Form().Text2[0]->font(), design);
    EXPECT_EQ(Form().Text2[1]->font(), design);
}

} // namespace

} // namespace numbrela

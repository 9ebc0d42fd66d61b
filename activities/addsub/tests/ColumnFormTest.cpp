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

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFontMetrics>
#include <QImage>
#include <QInputMethodEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPointer>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

const QString prompt = QStringLiteral("Introduzca el nuevo valor:");

// One of the two windows, and what its tests need to know of it.
struct Screen {
    const char* Name;
    ColumnForm* (*Make)(const Clock& clock);
    Operation Kind;
    const char* InputTitle;
};

std::ostream& operator<<(std::ostream& out, const Screen& screen)
{
    return out << screen.Name;
}

const Screen sums { "Sumas", [](const Clock& clock) -> ColumnForm* { return new Form2(clock); }, Operation::Addition,
    "Sumas" };
const Screen differences { "Restas", [](const Clock& clock) -> ColumnForm* { return new Form3(clock); },
    Operation::Subtraction, "Restas" };

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
class ColumnFormDriver {
protected:
    void Open(const Screen& screen)
    {
        screen_ = &screen;
        form_.reset(screen.Make(clock_));
        ShowAndActivate(*form_);
    }

    ColumnForm& Form() { return *form_; }

    Contents Shown() const
    {
        return { form_->Text1->Text(), form_->Text2[0]->Text(), form_->Text2[1]->Text(), form_->Text3->Text(),
            form_->Text4->Text(), form_->tbResultados->Text() };
    }

    Operands ShownOperands() const { return { Shown().Upper, Shown().Lower }; }
    std::string Answer() const { return Shown().Answer; }
    std::string Verdict() const { return Shown().Verdict; }
    std::string Score() const { return Shown().Score; }

    // The right answer to what is shown, as long as that is shown truly: up to six integer digits.
    std::string RightAnswer() const
    {
        const double upper = ParseDisplayNumber(Shown().Upper);
        const double lower = ParseDisplayNumber(Shown().Lower);
        return PlainDecimalText(screen_->Kind == Operation::Addition ? upper + lower : upper - lower);
    }

    // Writes into the answer box from the last character to the first, whatever the caret does meanwhile.
    void WriteAnswer(const std::string& answer)
    {
        Click(*form_, QStringLiteral("Command2(1)"));
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
    void EnterOperand(int key, const char* text)
    {
        ExpectInput(QString::fromUtf8(screen_->InputTitle), prompt, QString::fromUtf8(text));
        Press(key);
        ComeBackFromBox();
    }

    void EnterOperands(const char* upper, const char* lower)
    {
        EnterOperand(Qt::Key_F2, upper);
        EnterOperand(Qt::Key_F3, lower);
    }

    // Gives the window back the focus that a box has had: what a window manager does of itself.
    void ComeBackFromBox() { ShowAndActivate(*form_); }

    FixedClock clock_;

private:
    const Screen* screen_ = nullptr;
    std::unique_ptr<ColumnForm> form_;
};

// What is the same in both windows.
class ColumnFormTest : public ::testing::TestWithParam<Screen>, protected ColumnFormDriver {
protected:
    void SetUp() override { Open(GetParam()); }

    bool IsAddition() const { return GetParam().Kind == Operation::Addition; }
};

INSTANTIATE_TEST_SUITE_P(
    Of, ColumnFormTest, ::testing::Values(sums, differences), [](const auto& instance) { return instance.param.Name; });

class AdditionFormTest : public ::testing::Test, protected ColumnFormDriver {
protected:
    void SetUp() override { Open(sums); }
};

class SubtractionFormTest : public ::testing::Test, protected ColumnFormDriver {
protected:
    void SetUp() override { Open(differences); }
};

// --- Opening ---------------------------------------------------------------------------------------------------------

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

Operands drawnBy(const ColumnExercise& exercise)
{
    return { exercise.DrawnTexts().Upper, exercise.DrawnTexts().Lower };
}

TEST_P(ColumnFormTest, OpensWithAnExerciseOfThreeDigitsAndTwoDecimals)
{
    expectDrawnNumber(ShownOperands().Upper, 3, 2);
    expectDrawnNumber(ShownOperands().Lower, 3, 2);
    EXPECT_EQ(Answer(), "");
    EXPECT_EQ(Verdict(), "");
    EXPECT_EQ(Score(), "Ejercicios:  0; Errores:  0");
}

TEST_P(ColumnFormTest, OpensReadyForTheAnswer)
{
    EXPECT_EQ(FocusName(), "Text3");
}

TEST_P(ColumnFormTest, OpenedAgainStartsAfresh)
{
    AnswerWrong();
    Choose(Form(), QStringLiteral("MnuOpcCifLis(5)"));
    Choose(Form(), QStringLiteral("MnuOpcDecLis(0)"));
    ASSERT_EQ(Score(), "Ejercicios:  1; Errores:  1");
    Choose(Form(), QStringLiteral("MnuOpcSal"));

    Open(GetParam());
    EXPECT_EQ(Score(), "Ejercicios:  0; Errores:  0");
    EXPECT_EQ(Answer(), "");
    EXPECT_EQ(Verdict(), "");
    EXPECT_EQ(CheckedItems(*Form().MnuOpcCif), std::vector<int> { 2 });
    EXPECT_EQ(CheckedItems(*Form().MnuOpcDec), std::vector<int> { 2 });
    expectDrawnNumber(ShownOperands().Upper, 3, 2);
}

TEST_P(ColumnFormTest, AWrongAnswerToTheFirstExerciseCounts)
{
    AnswerWrong();
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  1");
}

TEST_P(ColumnFormTest, DrawsFromTheTimeAtWhichItWasOpened)
{
    const TimeOfDay times[] = { { 0, 0, 0, 0 }, { 23, 59, 59, 86399 }, { 9, 5, 41, 32741 } };
    const int seeds[] = { 1, 86400, 10 * 6 * 42 };
    for (std::size_t i = 0; i < std::size(times); ++i) {
        clock_.Time = times[i];
        Open(GetParam());
        SeededRandom random(seeds[i]);
        ColumnExercise exercise(GetParam().Kind, random);
        exercise.Generate();
        EXPECT_EQ(ShownOperands(), drawnBy(exercise));

        // The clock is asked once: what comes next is the next draw, however late it has become.
        clock_.Time = { 12, 34, 56, 45296 };
        Click(Form(), QStringLiteral("Command2(0)"));
        exercise.Generate();
        EXPECT_EQ(ShownOperands(), drawnBy(exercise));
    }
}

TEST_P(ColumnFormTest, DrawsTheSameExerciseAtTheSameTimeAndAnotherOneLater)
{
    const Operands first = ShownOperands();
    Open(GetParam());
    EXPECT_EQ(ShownOperands(), first);
    clock_.Time.Second += 1;
    Open(GetParam());
    EXPECT_NE(ShownOperands(), first);
}

// 2 × 3 × 4 and 1 × 1 × 24 are one seed.
TEST_P(ColumnFormTest, TimesWithTheSameProductDrawTheSameExercise)
{
    clock_.Time = { 1, 2, 3, 3723 };
    Open(GetParam());
    const Operands first = ShownOperands();
    clock_.Time = { 0, 0, 23, 23 };
    Open(GetParam());
    EXPECT_EQ(ShownOperands(), first);
}

// Who hears the window instead of seeing it passes the operands by with the Tab key.
TEST_P(ColumnFormTest, SpeaksTheExerciseWhereItsAnswerIsWritten)
{
    const auto spoken = [this] { return Form().Text3->accessibleDescription().toStdString(); };
    const auto shown
        = [this] { return ShownOperands().Upper + (IsAddition() ? " + " : " - ") + ShownOperands().Lower; };
    EXPECT_EQ(spoken(), shown());
    Click(Form(), QStringLiteral("Command2(0)"));
    EXPECT_EQ(spoken(), shown());
    Choose(Form(), QStringLiteral("MnuOpcCifLis(4)"));
    EXPECT_EQ(spoken(), shown());
    EnterOperands("1234,5", "905,16");
    EXPECT_EQ(spoken(), IsAddition() ? "1.234,5 + 905,16" : "1.234,5 - 905,16") << "without the blanks around them";
}

// --- Closing ---------------------------------------------------------------------------------------------------------

TEST_P(ColumnFormTest, ClosesByItsMenu)
{
    Choose(Form(), QStringLiteral("MnuOpcSal"));
    EXPECT_FALSE(Form().isVisible());
}

TEST_P(ColumnFormTest, IsDestroyedWhenItIsClosedByThePupil)
{
    const QPointer<ColumnForm> byMenu = GetParam().Make(clock_);
    byMenu->ShowModally();
    Choose(*byMenu, QStringLiteral("MnuOpcSal"));
    const QPointer<ColumnForm> byCloseBox = GetParam().Make(clock_);
    byCloseBox->ShowModally();
    byCloseBox->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(byMenu.isNull());
    EXPECT_TRUE(byCloseBox.isNull());
}

TEST_P(ColumnFormTest, EscapeClosesNothingAndChangesNothing)
{
    AnswerWrong();
    const Contents before = Shown();
    const QWidget* const controls[] = { Form().Text1, Form().Text3, Form().Buttons.Command1, Form().Text4,
        Form().Buttons.Command2[0], Form().Buttons.Command2[1], Form().Buttons.Command2[2], Form().tbResultados };
    for (std::size_t i = 0; i < 2 * std::size(controls); ++i) {
        SCOPED_TRACE(FocusName());
        Press(Qt::Key_Escape);
        EXPECT_TRUE(Form().isVisible());
        EXPECT_EQ(Shown(), before);
        Press(Qt::Key_Tab);
    }
}

// --- Writing the answer ----------------------------------------------------------------------------------------------

TEST_P(ColumnFormTest, WritesTheAnswerFromItsLastDigitToItsFirst)
{
    Type(QStringLiteral("57,1"));
    EXPECT_EQ(Answer(), "1,75");
    EXPECT_EQ(Form().Text3->CaretPosition(), 0);
}

TEST_P(ColumnFormTest, EveryDigitKeyStepsLeft)
{
    Type(QStringLiteral("0123456789"));
    EXPECT_EQ(Answer(), "9876543210");
    EXPECT_EQ(Form().Text3->CaretPosition(), 0);
}

TEST_P(ColumnFormTest, EveryDigitKeyOfTheKeypadStepsLeft)
{
    for (int digit = 0; digit <= 9; ++digit) {
        Press(Qt::Key_0 + digit, Qt::KeypadModifier);
    }
    EXPECT_EQ(Answer(), "9876543210");
    EXPECT_EQ(Form().Text3->CaretPosition(), 0);
}

TEST_P(ColumnFormTest, TheCommaKeyStepsLeft)
{
    Press(Qt::Key_Comma);
    EXPECT_EQ(Answer(), ",");
    EXPECT_EQ(Form().Text3->CaretPosition(), 0);
}

TEST_P(ColumnFormTest, ThePointKeyLeavesTheCaretBehindThePoint)
{
    Press(Qt::Key_Period);
    EXPECT_EQ(Answer(), ".");
    EXPECT_EQ(Form().Text3->CaretPosition(), 1);
    Type(QStringLiteral("7"));
    EXPECT_EQ(Answer(), ".7");
    EXPECT_EQ(Form().Text3->CaretPosition(), 1);
}

// On a Spanish keyboard the decimal key of the keypad writes a comma, on others a point.
TEST_P(ColumnFormTest, TheDecimalKeyOfTheKeypadLeavesTheCaret)
{
    Press(Qt::Key_Comma, Qt::KeypadModifier);
    EXPECT_EQ(Answer(), ",");
    EXPECT_EQ(Form().Text3->CaretPosition(), 1);
    Press(Qt::Key_Period, Qt::KeypadModifier);
    EXPECT_EQ(Answer(), ",.");
    EXPECT_EQ(Form().Text3->CaretPosition(), 2);
}

TEST_P(ColumnFormTest, NoCharacterIsFilteredAndOtherKeysLeaveTheCaret)
{
    Type(QStringLiteral("aZ -+;/"));
    EXPECT_EQ(Answer(), "aZ -+;/");
    EXPECT_EQ(Form().Text3->CaretPosition(), 7);
}

TEST_P(ColumnFormTest, KeysThatMoveTheCaretOrEraseDoJustThat)
{
    Type(QStringLiteral("321"));
    Press(Qt::Key_End);
    EXPECT_EQ(Form().Text3->CaretPosition(), 3);
    Press(Qt::Key_Left);
    EXPECT_EQ(Form().Text3->CaretPosition(), 2);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(Answer(), "13");
    EXPECT_EQ(Form().Text3->CaretPosition(), 1);
    Press(Qt::Key_Delete);
    EXPECT_EQ(Answer(), "1");
    EXPECT_EQ(Form().Text3->CaretPosition(), 1);
    Press(Qt::Key_Home);
    EXPECT_EQ(Form().Text3->CaretPosition(), 0);
    EXPECT_EQ(Answer(), "1");
}

TEST_P(ColumnFormTest, ADigitInTheMiddleOfTheAnswerStepsLeftToo)
{
    Type(QStringLiteral("321"));
    Press(Qt::Key_Right);
    Press(Qt::Key_Right);
    Type(QStringLiteral("9"));
    EXPECT_EQ(Answer(), "1293");
    EXPECT_EQ(Form().Text3->CaretPosition(), 2);
}

// The caret steps when a key is let go, so keys that overlap step together at the end.
TEST_P(ColumnFormTest, OverlappingKeysOfAQuickTypistStepWhenTheyAreLetGo)
{
    HoldDown(Qt::Key_5);
    HoldDown(Qt::Key_7);
    EXPECT_EQ(Answer(), "57");
    EXPECT_EQ(Form().Text3->CaretPosition(), 2);
    LetGo(Qt::Key_5);
    EXPECT_EQ(Form().Text3->CaretPosition(), 1);
    LetGo(Qt::Key_7);
    EXPECT_EQ(Form().Text3->CaretPosition(), 0);
    Type(QStringLiteral("1"));
    EXPECT_EQ(Answer(), "157");
    EXPECT_EQ(Form().Text3->CaretPosition(), 0);
}

TEST_P(ColumnFormTest, OverlappingKeysLetGoInReverseGiveTheSame)
{
    HoldDown(Qt::Key_5);
    HoldDown(Qt::Key_7);
    LetGo(Qt::Key_7);
    EXPECT_EQ(Form().Text3->CaretPosition(), 1);
    LetGo(Qt::Key_5);
    EXPECT_EQ(Answer(), "57");
    EXPECT_EQ(Form().Text3->CaretPosition(), 0);
}

// Press 5, press 7, let go 5, press the comma, let go 7, let go the comma.
TEST_P(ColumnFormTest, AChainOfOverlappingKeysWritesWhereTheCaretIsAtEachPress)
{
    HoldDown(Qt::Key_5);
    HoldDown(Qt::Key_7);
    LetGo(Qt::Key_5);
    HoldDown(Qt::Key_Comma);
    EXPECT_EQ(Answer(), "5,7");
    EXPECT_EQ(Form().Text3->CaretPosition(), 2);
    LetGo(Qt::Key_7);
    LetGo(Qt::Key_Comma);
    EXPECT_EQ(Answer(), "5,7");
    EXPECT_EQ(Form().Text3->CaretPosition(), 0);
}

TEST_P(ColumnFormTest, AHeldDigitStepsOnceWhenItIsLetGo)
{
    HoldDown(Qt::Key_5);
    Repeat(Qt::Key_5);
    Repeat(Qt::Key_5);
    EXPECT_EQ(Answer(), "555");
    EXPECT_EQ(Form().Text3->CaretPosition(), 3);
    LetGo(Qt::Key_5);
    EXPECT_EQ(Answer(), "555");
    EXPECT_EQ(Form().Text3->CaretPosition(), 2);
}

TEST_P(ColumnFormTest, TheAnswerKeepsItsCaretWhileTheFocusIsElsewhere)
{
    Type(QStringLiteral("321"));
    Press(Qt::Key_Tab);
    ASSERT_EQ(FocusName(), "Command1");
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_EQ(FocusName(), "Text3");
    EXPECT_FALSE(Form().Text3->hasSelectedText());
    EXPECT_EQ(Form().Text3->CaretPosition(), 0);
    Type(QStringLiteral("4"));
    EXPECT_EQ(Answer(), "4123");
}

TEST_P(ColumnFormTest, ADigitReplacesAHighlightedAnswer)
{
    Type(QStringLiteral("321"));
    Press(Qt::Key_A, Qt::ControlModifier);
    ASSERT_EQ(Form().Text3->selectedText(), QStringLiteral("123"));
    Type(QStringLiteral("4"));
    EXPECT_EQ(Answer(), "4");
    EXPECT_EQ(Form().Text3->CaretPosition(), 0);
}

// The caret of a highlighted text is its beginning, and there a step left has nowhere to go.
TEST_P(ColumnFormTest, ADigitLetGoOverAHighlightedAnswerLeavesTheHighlight)
{
    Type(QStringLiteral("321"));
    Press(Qt::Key_A, Qt::ControlModifier);
    LetGo(Qt::Key_4);
    EXPECT_EQ(Answer(), "123");
    EXPECT_EQ(Form().Text3->selectedText(), QStringLiteral("123"));
}

// --- Keys in boxes that are not for typing ---------------------------------------------------------------------------

struct KeyInBox {
    const char* Name;
    int Key;
};

class KeyOutsideTheAnswerTest : public ::testing::TestWithParam<std::tuple<Screen, const char*, KeyInBox>>,
                                protected ColumnFormDriver {
protected:
    void SetUp() override { Open(std::get<0>(GetParam())); }
};

INSTANTIATE_TEST_SUITE_P(Of, KeyOutsideTheAnswerTest,
    ::testing::Combine(::testing::Values(sums, differences), ::testing::Values("Text1", "Text2(0)", "Text2(1)"),
        ::testing::Values(KeyInBox { "Digit", Qt::Key_7 }, KeyInBox { "Letter", Qt::Key_A },
            KeyInBox { "Comma", Qt::Key_Comma }, KeyInBox { "Space", Qt::Key_Space },
            KeyInBox { "Enter", Qt::Key_Return }, KeyInBox { "KeypadEnter", Qt::Key_Enter },
            KeyInBox { "Backspace", Qt::Key_Backspace }, KeyInBox { "Escape", Qt::Key_Escape })),
    [](const auto& instance) {
        std::string name = std::string(std::get<0>(instance.param).Name) + std::get<1>(instance.param)
            + std::get<2>(instance.param).Name;
        name.erase(std::remove_if(name.begin(), name.end(), [](char c) { return c == '(' || c == ')'; }), name.end());
        return name;
    });

TEST_P(KeyOutsideTheAnswerTest, GoesToTheAnswerBoxAndIsWrittenNowhere)
{
    const Contents before = Shown();
    Click(Form(), QString::fromLatin1(std::get<1>(GetParam())));
    ASSERT_EQ(FocusName(), std::get<1>(GetParam()));
    Press(std::get<2>(GetParam()).Key);
    EXPECT_EQ(FocusName(), "Text3");
    EXPECT_EQ(Shown(), before);
}

TEST_P(ColumnFormTest, TheHeadingIsReachedByTheTabKeyAndItsKeysGoToTheAnswerBox)
{
    const Contents before = Shown();
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_EQ(FocusName(), "Text1");
    Type(QStringLiteral("7"));
    EXPECT_EQ(FocusName(), "Text3");
    EXPECT_EQ(Shown(), before);
    Type(QStringLiteral("8"));
    EXPECT_EQ(Answer(), "8");
}

// The release of a key goes to what has the focus by then, and a step is taken wherever the key was pressed.
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
        EXPECT_EQ(Form().Text3->CaretPosition(), 2);
        LetGo(Qt::Key_9);
        EXPECT_EQ(Shown(), before);
        EXPECT_EQ(Form().Text3->CaretPosition(), 1);
    }
}

// What an input method sends that has composed a character of several keys.
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

class DeedInHeadingTest : public ::testing::TestWithParam<std::tuple<Screen, Deed>>, protected ColumnFormDriver {
protected:
    void SetUp() override { Open(std::get<0>(GetParam())); }
};

INSTANTIATE_TEST_SUITE_P(Of, DeedInHeadingTest,
    ::testing::Combine(::testing::Values(sums, differences), ::testing::ValuesIn(deeds)), [](const auto& instance) {
        return std::string(std::get<0>(instance.param).Name) + std::get<1>(instance.param).Name;
    });

TEST_P(DeedInHeadingTest, LeavesItsText)
{
    const Contents before = Shown();
    TextBox& heading = *Form().Text1;
    for (const auto& [start, length] : { std::pair { 0, 0 }, std::pair { 3, 5 }, std::pair { 0, 25 } }) {
        SCOPED_TRACE(length);
        QApplication::clipboard()->setText(QStringLiteral("123"));
        Click(Form(), QStringLiteral("Text1"));
        heading.setSelection(start, length);
        std::get<1>(GetParam()).Do(heading);
        EXPECT_EQ(Shown(), before);
    }
}

TEST_P(ColumnFormTest, WhatAnInputMethodWritesIntoTheAnswerStepsTheCaret)
{
    compose(*Form().Text3, QStringLiteral("57,1"));
    EXPECT_EQ(Form().Text3->Text(), "1,75");
}

TEST_P(ColumnFormTest, WhatAnInputMethodWritesIntoTheHeadingLeadsToTheAnswer)
{
    Click(Form(), QStringLiteral("Text1"));
    compose(*Form().Text1, QStringLiteral("5"));
    EXPECT_EQ(FocusName(), "Text3");
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

TEST_P(ColumnFormTest, WorksAnExerciseByKeysAlone)
{
    EnterOperands("1,5", "0,25");
    EXPECT_EQ(ShownOperands().Upper, "1,5 ");
    EXPECT_EQ(ShownOperands().Lower, "0,25");
    Type(IsAddition() ? QStringLiteral("57,1") : QStringLiteral("52,1"));
    EXPECT_EQ(Answer(), IsAddition() ? "1,75" : "1,25");
    Press(Qt::Key_Return);
    EXPECT_EQ(Verdict(), "resultado correcto");
    EXPECT_EQ(Form().Text4->selectedText(), QStringLiteral("resultado correcto"));
    EXPECT_EQ(FocusName(), "Command2(0)");
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
}

TEST_P(ColumnFormTest, ARightAnswerIsSaidHighlightedAndLeadsToContinuar)
{
    const Operands operands = ShownOperands();
    const std::string answer = RightAnswer();
    AnswerWith(answer);
    EXPECT_EQ(Verdict(), "resultado correcto");
    EXPECT_EQ(Form().Text4->selectedText(), QStringLiteral("resultado correcto"));
    EXPECT_EQ(Form().Text4->CaretPosition(), 0);
    EXPECT_EQ(FocusName(), "Command2(0)");
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
    EXPECT_EQ(ShownOperands(), operands);
    EXPECT_EQ(Answer(), answer);
}

TEST_P(ColumnFormTest, AWrongAnswerIsSaidHighlightedAndLeadsBackToTheAnswer)
{
    const Operands operands = ShownOperands();
    WriteAnswer("1,5");
    Click(Form(), QStringLiteral("Command1"));
    EXPECT_EQ(Verdict(), "resultado incorrecto");
    EXPECT_EQ(Form().Text4->selectedText(), QStringLiteral("resultado incorrecto"));
    EXPECT_EQ(Form().Text4->CaretPosition(), 0);
    EXPECT_EQ(FocusName(), "Text3");
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  1");
    EXPECT_EQ(ShownOperands(), operands);
    EXPECT_EQ(Answer(), "1,5");
}

// The ways to have an answer checked; each of them checks once.
struct WayToCheck {
    const char* Name;
    void (*Check)(const ColumnForm& form);
};

void tabToHecho()
{
    Press(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "Command1");
}

class WayToCheckTest : public ::testing::TestWithParam<std::tuple<Screen, WayToCheck>>, protected ColumnFormDriver {
protected:
    void SetUp() override { Open(std::get<0>(GetParam())); }

    void Check() { std::get<1>(GetParam()).Check(Form()); }
};

const WayToCheck waysToCheck[] = {
    { "EnterInTheAnswer", [](const ColumnForm&) { Press(Qt::Key_Return); } },
    { "KeypadEnterInTheAnswer", [](const ColumnForm&) { Press(Qt::Key_Enter, Qt::KeypadModifier); } },
    { "MouseOnHecho", [](const ColumnForm& form) { Click(form, QStringLiteral("Command1")); } },
    { "AccessKeyOfHecho", [](const ColumnForm& form) { PressAccessKey(form, Qt::Key_H, QStringLiteral("Command1")); } },
    { "SpaceOnHecho",
        [](const ColumnForm&) {
            tabToHecho();
            Press(Qt::Key_Space);
        } },
    { "EnterOnHecho",
        [](const ColumnForm&) {
            tabToHecho();
            Press(Qt::Key_Return);
        } },
    { "KeypadEnterOnHecho",
        [](const ColumnForm&) {
            tabToHecho();
            Press(Qt::Key_Enter, Qt::KeypadModifier);
        } },
};

INSTANTIATE_TEST_SUITE_P(Of, WayToCheckTest,
    ::testing::Combine(::testing::Values(sums, differences), ::testing::ValuesIn(waysToCheck)),
    [](const auto& instance) {
        return std::string(std::get<0>(instance.param).Name) + std::get<1>(instance.param).Name;
    });

TEST_P(WayToCheckTest, ChecksARightAnswerOnce)
{
    WriteAnswer(RightAnswer());
    Check();
    EXPECT_EQ(Verdict(), "resultado correcto");
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
    EXPECT_EQ(FocusName(), "Command2(0)");
}

TEST_P(WayToCheckTest, ChecksAWrongAnswerOnce)
{
    WriteAnswer("1");
    Check();
    EXPECT_EQ(Verdict(), "resultado incorrecto");
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  1");
    EXPECT_EQ(FocusName(), "Text3");
}

TEST_P(ColumnFormTest, TheEnterThatChecksDoesNotPressContinuarAsWell)
{
    WriteAnswer(RightAnswer());
    const std::string answer = Answer();
    const Operands operands = ShownOperands();
    for (const int key : { Qt::Key_Return, Qt::Key_Enter }) {
        Click(Form(), QStringLiteral("Text3"));
        HoldDown(key);
        ASSERT_EQ(FocusName(), "Command2(0)");
        Repeat(key);
        Repeat(key);
        LetGo(key);
        EXPECT_EQ(FocusName(), "Command2(0)");
        EXPECT_EQ(ShownOperands(), operands);
        EXPECT_EQ(Answer(), answer);
        EXPECT_EQ(Verdict(), "resultado correcto");
        EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
    }
}

TEST_P(ColumnFormTest, EnterPressedAnewOnContinuarDrawsTheNextExerciseAndChecksNothing)
{
    for (const int key : { Qt::Key_Return, Qt::Key_Enter }) {
        AnswerRight();
        const Operands operands = ShownOperands();
        const std::string score = Score();
        Press(key);
        EXPECT_NE(ShownOperands(), operands);
        EXPECT_EQ(Answer(), "");
        EXPECT_EQ(Verdict(), "");
        EXPECT_EQ(FocusName(), "Text3");
        EXPECT_EQ(Score(), score);
    }
}

TEST_P(ColumnFormTest, EnterHeldOnAWrongAnswerChecksItOnce)
{
    for (const int key : { Qt::Key_Return, Qt::Key_Enter }) {
        Open(GetParam());
        HoldDown(key);
        Repeat(key);
        Repeat(key);
        LetGo(key);
        EXPECT_EQ(Verdict(), "resultado incorrecto");
        EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  1");
    }
}

// The focus goes to the answer box while the key is still down.
TEST_P(ColumnFormTest, EnterHeldOnContinuarDoesNotCheckTheEmptyAnswer)
{
    AnswerRight();
    ASSERT_EQ(FocusName(), "Command2(0)");
    HoldDown(Qt::Key_Return);
    ASSERT_EQ(FocusName(), "Text3");
    Repeat(Qt::Key_Return);
    LetGo(Qt::Key_Return);
    EXPECT_EQ(Verdict(), "");
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
}

TEST_P(ColumnFormTest, ARightAnswerCountsOnce)
{
    AnswerRight();
    Click(Form(), QStringLiteral("Command1"));
    EXPECT_EQ(Verdict(), "resultado correcto");
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
}

TEST_P(ColumnFormTest, AWrongAnswerAfterTheRightOneDoesNotCount)
{
    AnswerRight();
    AnswerWrong();
    EXPECT_EQ(Verdict(), "resultado incorrecto");
    EXPECT_EQ(FocusName(), "Text3");
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
}

TEST_P(ColumnFormTest, TwoWrongChecksAndARightOneCountThreeExercisesAndTwoErrors)
{
    AnswerWrong();
    Press(Qt::Key_Return);
    EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  2");
    AnswerRight();
    EXPECT_EQ(Score(), "Ejercicios:  3; Errores:  2");
}

TEST_P(ColumnFormTest, TheScoreLineIsRewrittenEvenWhenNothingCounts)
{
    AnswerRight();
    Form().tbResultados->SetText("");
    Click(Form(), QStringLiteral("Command1"));
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
    Form().tbResultados->SetText("");
    AnswerWrong();
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
}

TEST_P(ColumnFormTest, TheCountsAreRightAlignedInThreeCharacters)
{
    for (int wrong = 1; wrong <= 9; ++wrong) {
        Press(Qt::Key_Return);
    }
    AnswerRight();
    EXPECT_EQ(Score(), "Ejercicios: 10; Errores:  9");
    Press(Qt::Key_Return);
    for (int wrong = 1; wrong <= 3; ++wrong) {
        Press(Qt::Key_Return);
    }
    EXPECT_EQ(Score(), "Ejercicios: 13; Errores: 12");
}

// The counts are as wide as their place at 999. There is no line for one more, and no way to go on without one.
TEST_P(ColumnFormTest, TheThousandthExerciseEndsInARunTimeError)
{
    const std::vector<RunTimeError> errors = RunTimeErrorsOf([this] {
        Open(GetParam());
        for (int count = 1; count <= 99; ++count) {
            Press(Qt::Key_Return);
        }
        EXPECT_EQ(Score(), "Ejercicios: 99; Errores: 99");
        Press(Qt::Key_Return);
        EXPECT_EQ(Score(), "Ejercicios:100; Errores:100");
        for (int count = 101; count <= 999; ++count) {
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

TEST_P(ColumnFormTest, AnEmptyOrNonNumericAnswerIsZeroAndWrong)
{
    Press(Qt::Key_Return);
    EXPECT_EQ(Verdict(), "resultado incorrecto");
    AnswerWith("abc");
    EXPECT_EQ(Verdict(), "resultado incorrecto");
    EXPECT_EQ(Answer(), "abc");
    EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  2");
}

struct WrittenAnswer {
    const char* Text;
    bool Right;
};

// The sum 1000 + 234,5 and the difference 1235 − 0,5.
TEST_P(ColumnFormTest, ReadsTheAnswerAsANumber)
{
    EnterOperands(IsAddition() ? "1000" : "1235", IsAddition() ? "234,5" : "0,5");
    const WrittenAnswer answers[] = {
        { "1.234,5", true },
        { "1234,5", true },
        { "1234,50", true },
        { "01234,5", true },
        { " 1234,5", true },
        { "1234,5a", true },
        { "1234,5,6", true },
        { "1234.5", false },
        { "12345", false },
        { "1234", false },
        { "-1234,5", false },
        { "a1234,5", false },
    };
    for (const auto& [text, right] : answers) {
        SCOPED_TRACE(text);
        AnswerWith(text);
        EXPECT_EQ(Verdict(), right ? "resultado correcto" : "resultado incorrecto");
    }
}

TEST_P(ColumnFormTest, APointInTheAnswerSeparatesThousands)
{
    EnterOperands(IsAddition() ? "12000" : "12346", IsAddition() ? "345" : "1");
    AnswerWith("1234.5");
    EXPECT_EQ(Verdict(), "resultado correcto");
}

// --- Buttons ---------------------------------------------------------------------------------------------------------

TEST_P(ColumnFormTest, ContinuarDrawsAnExerciseThatCounts)
{
    AnswerRight();
    const Operands operands = ShownOperands();
    Click(Form(), QStringLiteral("Command2(0)"));
    EXPECT_NE(ShownOperands(), operands);
    expectDrawnNumber(ShownOperands().Upper, 3, 2);
    expectDrawnNumber(ShownOperands().Lower, 3, 2);
    EXPECT_EQ(Answer(), "");
    EXPECT_EQ(Verdict(), "");
    EXPECT_EQ(FocusName(), "Text3");
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
    AnswerWrong();
    EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  1");
}

TEST_P(ColumnFormTest, ContinuarWorksBeforeAnAnswerAndByItsAccessKey)
{
    const Operands operands = ShownOperands();
    Type(QStringLiteral("12"));
    PressAccessKey(Form(), Qt::Key_C, QStringLiteral("Command2(0)"));
    EXPECT_NE(ShownOperands(), operands);
    EXPECT_EQ(Answer(), "");
    EXPECT_EQ(FocusName(), "Text3");
    EXPECT_EQ(Score(), "Ejercicios:  0; Errores:  0");
}

TEST_P(ColumnFormTest, BorrarClearsTheAnswerAndNothingElse)
{
    AnswerWrong();
    Contents expected = Shown();
    expected.Answer = "";
    for (int way = 1; way <= 2; ++way) {
        Type(QStringLiteral("12"));
        if (way == 1) {
            Click(Form(), QStringLiteral("Command2(1)"));
        } else {
            PressAccessKey(Form(), Qt::Key_B, QStringLiteral("Command2(1)"));
        }
        EXPECT_EQ(Shown(), expected);
        EXPECT_EQ(FocusName(), "Text3");
        EXPECT_EQ(Form().Text4->selectedText(), QStringLiteral("resultado incorrecto"));
        EXPECT_EQ(Form().Text2[0]->selectedText().toStdString(), expected.Upper);
        EXPECT_EQ(Form().Text2[1]->selectedText().toStdString(), expected.Lower);
    }
}

TEST_P(ColumnFormTest, BorrarLeavesAnExerciseScoredOrUnscored)
{
    Click(Form(), QStringLiteral("Command2(1)"));
    AnswerRight();
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
    Click(Form(), QStringLiteral("Command2(1)"));
    Press(Qt::Key_Return);
    EXPECT_EQ(Verdict(), "resultado incorrecto");
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
}

TEST_P(ColumnFormTest, VerSoluciónWritesTheSolutionHighlightedAndLeadsToContinuar)
{
    AnswerWrong();
    Contents expected = Shown();
    expected.Answer = FormatDisplayNumber(ParseDisplayNumber(RightAnswer()));
    Click(Form(), QStringLiteral("Command2(2)"));
    EXPECT_EQ(Shown(), expected);
    EXPECT_EQ(Form().Text3->selectedText().toStdString(), expected.Answer);
    EXPECT_EQ(Form().Text3->CaretPosition(), 0);
    EXPECT_EQ(FocusName(), "Command2(0)");
}

TEST_P(ColumnFormTest, VerSoluciónWorksByItsAccessKey)
{
    const std::string solution = FormatDisplayNumber(ParseDisplayNumber(RightAnswer()));
    PressAccessKey(Form(), Qt::Key_V, QStringLiteral("Command2(2)"));
    EXPECT_EQ(Answer(), solution);
    EXPECT_EQ(Verdict(), "");
    EXPECT_EQ(FocusName(), "Command2(0)");
}

TEST_P(ColumnFormTest, AShownSolutionIsRightButDoesNotCount)
{
    Click(Form(), QStringLiteral("Command2(2)"));
    Click(Form(), QStringLiteral("Command1"));
    EXPECT_EQ(Verdict(), "resultado correcto");
    EXPECT_EQ(FocusName(), "Command2(0)");
    EXPECT_EQ(Score(), "Ejercicios:  0; Errores:  0");
}

TEST_P(ColumnFormTest, AWrongAnswerAfterTheSolutionDoesNotCountEither)
{
    Click(Form(), QStringLiteral("Command2(2)"));
    AnswerWrong();
    EXPECT_EQ(Verdict(), "resultado incorrecto");
    EXPECT_EQ(Score(), "Ejercicios:  0; Errores:  0");
    Click(Form(), QStringLiteral("Command2(0)"));
    AnswerRight();
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
}

TEST_P(ColumnFormTest, ADigitTypedOverTheHighlightedSolutionReplacesIt)
{
    Click(Form(), QStringLiteral("Command2(2)"));
    for (const char* name : { "Text4", "Command1", "Text3" }) {
        Press(Qt::Key_Backtab, Qt::ShiftModifier);
        ASSERT_EQ(FocusName(), name);
    }
    Type(QStringLiteral("5"));
    EXPECT_EQ(Answer(), "5");
}

struct SevenDigits {
    const char* Operand; // the solution: what is added to or taken away from it is 0
    const char* Solution;
    const char* Verdict;
};

class SevenDigitSolutionTest : public ::testing::TestWithParam<std::tuple<Screen, SevenDigits>>,
                               protected ColumnFormDriver {
protected:
    void SetUp() override { Open(std::get<0>(GetParam())); }
};

INSTANTIATE_TEST_SUITE_P(Of, SevenDigitSolutionTest,
    ::testing::Combine(::testing::Values(sums, differences),
        ::testing::Values(SevenDigits { "999999,5", "999.999,5", "resultado correcto" },
            SevenDigits { "1234567", "1.123.567", "resultado incorrecto" },
            SevenDigits { "1000000", "1.100.000", "resultado incorrecto" },
            SevenDigits { "1111567", "1.111.567", "resultado correcto" },
            SevenDigits { "12345678", "12.234.678", "resultado incorrecto" },
            SevenDigits { "1234567890", "1.123.456.890", "resultado incorrecto" })),
    [](const auto& instance) {
        std::string name = std::get<1>(instance.param).Operand;
        std::replace(name.begin(), name.end(), ',', '_');
        return std::get<0>(instance.param).Name + name;
    });

// From seven digits on the groups repeat a digit and drop another, and the solution reads back as another number.
TEST_P(SevenDigitSolutionTest, IsJudgedAsItIsWritten)
{
    const auto& [operand, solution, verdict] = std::get<1>(GetParam());
    EnterOperands(operand, "0");
    Click(Form(), QStringLiteral("Command2(2)"));
    EXPECT_EQ(Answer(), solution);
    Click(Form(), QStringLiteral("Command1"));
    EXPECT_EQ(Verdict(), verdict);
    EXPECT_EQ(Score(), "Ejercicios:  0; Errores:  0");
}

// What counts is the true number, whatever the box shows of it.
TEST_P(SevenDigitSolutionTest, TheTrueNumberIsRight)
{
    const auto& [operand, solution, verdict] = std::get<1>(GetParam());
    EnterOperands(operand, "0");
    AnswerWith(operand);
    EXPECT_EQ(Verdict(), "resultado correcto");
}

// --- Options ---------------------------------------------------------------------------------------------------------

TEST_P(ColumnFormTest, TheDigitsOptionsDrawOperandsOfAsManyDigits)
{
    for (int index = 0; index <= 6; ++index) {
        SCOPED_TRACE(index);
        const Operands before = ShownOperands();
        Choose(Form(), QStringLiteral("MnuOpcCifLis(%1)").arg(index));
        EXPECT_EQ(CheckedItems(*Form().MnuOpcCif), std::vector<int> { index });
        EXPECT_EQ(CheckedItems(*Form().MnuOpcDec), std::vector<int> { 2 });
        EXPECT_NE(ShownOperands(), before);
        const auto digits = static_cast<std::size_t>(index + 1);
        expectDrawnNumber(ShownOperands().Upper, digits, 2);
        expectDrawnNumber(ShownOperands().Lower, digits, 2);
    }
}

TEST_P(ColumnFormTest, TheDecimalsOptionsDrawOperandsOfAsManyDecimals)
{
    for (int index = 0; index <= 6; ++index) {
        SCOPED_TRACE(index);
        const Operands before = ShownOperands();
        Choose(Form(), QStringLiteral("MnuOpcDecLis(%1)").arg(index));
        EXPECT_EQ(CheckedItems(*Form().MnuOpcDec), std::vector<int> { index });
        EXPECT_EQ(CheckedItems(*Form().MnuOpcCif), std::vector<int> { 2 });
        EXPECT_NE(ShownOperands(), before);
        const auto decimals = static_cast<std::size_t>(index);
        expectDrawnNumber(ShownOperands().Upper, 3, decimals);
        expectDrawnNumber(ShownOperands().Lower, 3, decimals);
    }
}

TEST_P(ColumnFormTest, BothOptionsHoldForEveryExerciseAfterThem)
{
    Choose(Form(), QStringLiteral("MnuOpcCifLis(4)"));
    Choose(Form(), QStringLiteral("MnuOpcDecLis(0)"));
    for (int exercise = 0; exercise < 20; ++exercise) {
        expectDrawnNumber(ShownOperands().Upper, 5, 0);
        expectDrawnNumber(ShownOperands().Lower, 5, 0);
        EXPECT_EQ(ShownOperands().Upper[2], '.');
        Click(Form(), QStringLiteral("Command2(0)"));
    }
}

TEST_P(ColumnFormTest, TheOptionThatIsCheckedAlreadyStaysCheckedAndDrawsAnew)
{
    const Operands before = ShownOperands();
    Choose(Form(), QStringLiteral("MnuOpcCifLis(2)"));
    EXPECT_EQ(CheckedItems(*Form().MnuOpcCif), std::vector<int> { 2 });
    EXPECT_NE(ShownOperands(), before);
    const Operands between = ShownOperands();
    Choose(Form(), QStringLiteral("MnuOpcDecLis(2)"));
    EXPECT_EQ(CheckedItems(*Form().MnuOpcDec), std::vector<int> { 2 });
    EXPECT_NE(ShownOperands(), between);
}

TEST_P(ColumnFormTest, AnOptionClearsAnswerAndVerdictAndKeepsScoreAndFocus)
{
    for (const char* item : { "MnuOpcCifLis(3)", "MnuOpcDecLis(1)" }) {
        Open(GetParam());
        AnswerWrong();
        AnswerRight();
        ASSERT_EQ(FocusName(), "Command2(0)");
        Choose(Form(), QString::fromLatin1(item));
        EXPECT_EQ(Answer(), "");
        EXPECT_EQ(Verdict(), "");
        EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  1");
        EXPECT_EQ(FocusName(), "Command2(0)");
        EXPECT_EQ(Form().Text2[0]->selectedText().toStdString(), ShownOperands().Upper);
        EXPECT_EQ(Form().Text2[1]->selectedText().toStdString(), ShownOperands().Lower);
    }
}

TEST_P(ColumnFormTest, AnExerciseDrawnByAnOptionAfterARightAnswerDoesNotCount)
{
    for (const char* item : { "MnuOpcCifLis(3)", "MnuOpcDecLis(1)" }) {
        Open(GetParam());
        AnswerRight();
        Choose(Form(), QString::fromLatin1(item));
        AnswerWrong();
        EXPECT_EQ(Verdict(), "resultado incorrecto");
        EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
        AnswerRight();
        EXPECT_EQ(Verdict(), "resultado correcto");
        EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
        Press(Qt::Key_Return); // on Continuar
        AnswerRight();
        EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  0");
    }
}

TEST_P(ColumnFormTest, AnExerciseDrawnByAnOptionAfterTheSolutionDoesNotCount)
{
    Click(Form(), QStringLiteral("Command2(2)"));
    Choose(Form(), QStringLiteral("MnuOpcDecLis(1)"));
    AnswerRight();
    EXPECT_EQ(Score(), "Ejercicios:  0; Errores:  0");
}

TEST_P(ColumnFormTest, AnExerciseDrawnByAnOptionBeforeARightAnswerCounts)
{
    AnswerWrong();
    Choose(Form(), QStringLiteral("MnuOpcCifLis(0)"));
    AnswerRight();
    EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  1");
}

// --- Operands typed by the pupil -----------------------------------------------------------------------------------

struct TypedOperand {
    const char* Name;
    const char* Text;
    const char* Shown; // under or over a 1, without the blanks around it
};

const TypedOperand typedOperands[] = {
    { "AWholeNumber", "7", "7" },
    { "Decimals", "1,5", "1,5" },
    { "APointBetweenGroups", "1.5", "15" },
    { "GroupsAndDecimals", "1.234,5", "1.234,5" },
    { "NoGroups", "1234,5", "1.234,5" },
    { "BlanksAroundIt", " 7 ", "7" },
    { "ASign", "+7", "7" },
    { "ANegativeNumber", "-12", "-12" },
    { "ANegativeNumberWithItsSignInAGroup", "-123", "-.123" },
    { "Zero", "0", "0" },
    { "AnExponent", "1e3", "1.000" },
    { "ANegativeExponent", "25E-2", "0,25" },
    { "MoreDigitsThanTheMenuHas", "12345678", "12.234.678" },
    { "MoreDecimalsThanTheMenuHas", "0,123456789", "0,123456789" },
    { "AsManyDigitsAsADoubleHas", "123456789012345", "123.345.678.901.345" },
};

class OperandEntryFormTest : public ::testing::TestWithParam<std::tuple<Screen, TypedOperand>>,
                             protected ColumnFormDriver {
protected:
    void SetUp() override { Open(std::get<0>(GetParam())); }
};

INSTANTIATE_TEST_SUITE_P(Of, OperandEntryFormTest,
    ::testing::Combine(::testing::Values(sums, differences), ::testing::ValuesIn(typedOperands)),
    [](const auto& instance) {
        return std::string(std::get<0>(instance.param).Name) + std::get<1>(instance.param).Name;
    });

std::string withoutBlanks(const std::string& text)
{
    return std::string(Trimmed(text));
}

TEST_P(OperandEntryFormTest, TakesTheUpperOperandAsTyped)
{
    EnterOperands(std::get<1>(GetParam()).Text, "1");
    EXPECT_EQ(withoutBlanks(ShownOperands().Upper), std::get<1>(GetParam()).Shown);
    EXPECT_EQ(withoutBlanks(ShownOperands().Lower), "1");
    EXPECT_EQ(ShownOperands().Upper.size(), ShownOperands().Lower.size());
}

TEST_P(OperandEntryFormTest, TakesTheLowerOperandAsTyped)
{
    EnterOperands("1", std::get<1>(GetParam()).Text);
    EXPECT_EQ(withoutBlanks(ShownOperands().Upper), "1");
    EXPECT_EQ(withoutBlanks(ShownOperands().Lower), std::get<1>(GetParam()).Shown);
    EXPECT_EQ(ShownOperands().Upper.size(), ShownOperands().Lower.size());
}

TEST_P(ColumnFormTest, F2ReplacesTheUpperOperandAndF3TheLowerOne)
{
    const Operands drawn = ShownOperands();
    EnterOperand(Qt::Key_F2, "482,37");
    EXPECT_EQ(ShownOperands(), (Operands { "482,37", drawn.Lower }));
    EnterOperand(Qt::Key_F3, "905,16");
    EXPECT_EQ(ShownOperands(), (Operands { "482,37", "905,16" }));
}

TEST_P(ColumnFormTest, TheMenuItemsAskForTheOperandsToo)
{
    const QString title = QString::fromUtf8(GetParam().InputTitle);
    ExpectInput(title, prompt, QStringLiteral("482,37"));
    Choose(Form(), QStringLiteral("MnuOpcIn1"));
    ExpectInput(title, prompt, QStringLiteral("905,16"));
    Choose(Form(), QStringLiteral("MnuOpcIn2"));
    EXPECT_EQ(ShownOperands(), (Operands { "482,37", "905,16" }));
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
        { "0,5", "0,0625", { "0,5   ", "0,0625" } },
        { "7", "8", { "7", "8" } },
        { "-3", "0,5", { "-3  ", " 0,5" } },
    };
    for (const Pair& pair : pairs) {
        SCOPED_TRACE(std::string(pair.Upper) + " and " + pair.Lower);
        EnterOperands(pair.Upper, pair.Lower);
        EXPECT_EQ(ShownOperands(), pair.Shown);
        EXPECT_EQ(Form().Text2[0]->selectedText().toStdString(), pair.Shown.Upper);
        EXPECT_EQ(Form().Text2[1]->selectedText().toStdString(), pair.Shown.Lower);
        EXPECT_EQ(Form().Text2[0]->CaretPosition(), 0);
        EXPECT_EQ(Form().Text2[1]->CaretPosition(), 0);
    }
}

TEST_P(ColumnFormTest, ATypedOperandIsAlignedWithTheDrawnOne)
{
    EnterOperand(Qt::Key_F2, "7");
    EXPECT_EQ(ShownOperands().Upper, "  7   ");
    EXPECT_EQ(ShownOperands().Lower.size(), 6U);
}

TEST_P(ColumnFormTest, EntryClearsAnswerAndVerdictAndKeepsEverythingElse)
{
    for (const int key : { Qt::Key_F2, Qt::Key_F3 }) {
        Open(GetParam());
        AnswerWrong();
        EnterOperand(key, "4,5");
        EXPECT_EQ(Answer(), "");
        EXPECT_EQ(Verdict(), "");
        EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  1");
        EXPECT_EQ(CheckedItems(*Form().MnuOpcCif), std::vector<int> { 2 });
        EXPECT_EQ(CheckedItems(*Form().MnuOpcDec), std::vector<int> { 2 });
    }
}

TEST_P(ColumnFormTest, EntryDoesNotMoveTheFocus)
{
    EnterOperand(Qt::Key_F2, "8,5");
    ComeBackFromBox();
    EXPECT_EQ(FocusName(), "Text3");
    AnswerRight();
    ASSERT_EQ(FocusName(), "Command2(0)");
    EnterOperand(Qt::Key_F2, "9,5");
    ComeBackFromBox();
    EXPECT_EQ(FocusName(), "Command2(0)");
    EnterOperand(Qt::Key_F3, "4,5");
    ComeBackFromBox();
    EXPECT_EQ(FocusName(), "Command2(0)");
    Click(Form(), QStringLiteral("Text2(1)"));
    EnterOperand(Qt::Key_F3, "3,5");
    ComeBackFromBox();
    EXPECT_EQ(FocusName(), "Text2(1)");
}

TEST_P(ColumnFormTest, ATypedExerciseIsScoredAsTheOneItReplaces)
{
    EnterOperands("9", "4");
    AnswerRight();
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
    EnterOperand(Qt::Key_F2, "8");
    AnswerWrong();
    EXPECT_EQ(Verdict(), "resultado incorrecto");
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
    Click(Form(), QStringLiteral("Command2(0)"));
    EnterOperand(Qt::Key_F3, "4");
    AnswerWrong();
    EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  1");
}

TEST_P(ColumnFormTest, ContinuarAfterTypedOperandsDrawsByTheOptionsWithoutBlanks)
{
    EnterOperands("1234567,5", "0,123456");
    Click(Form(), QStringLiteral("Command2(0)"));
    expectDrawnNumber(ShownOperands().Upper, 3, 2);
    expectDrawnNumber(ShownOperands().Lower, 3, 2);
}

TEST_P(ColumnFormTest, CancelledEntryChangesNothing)
{
    AnswerWrong();
    const Contents before = Shown();
    for (const int key : { Qt::Key_F2, Qt::Key_F3 }) {
        ExpectInputCancelled(QString::fromUtf8(GetParam().InputTitle), prompt);
        Press(key);
        EXPECT_EQ(Shown(), before);
        ExpectInputCancelled(QString::fromUtf8(GetParam().InputTitle), prompt, QStringLiteral("12"));
        Press(key);
        EXPECT_EQ(Shown(), before);
        ComeBackFromBox();
        EXPECT_EQ(FocusName(), "Text3");
    }
    EXPECT_EQ(Form().Text4->selectedText(), QStringLiteral("resultado incorrecto"));
}

TEST_P(ColumnFormTest, ATextThatIsNoNumberChangesNothingAndIsPassedOverInSilence)
{
    AnswerWrong();
    const Contents before = Shown();
    for (const char* text : { "", " ", "abc", "12a", "1,2,3", "-", ",", "1 2", "e5", "1e", "0x10", "12,5 €" }) {
        SCOPED_TRACE(text);
        EnterOperand(Qt::Key_F2, text);
        EXPECT_EQ(Shown(), before);
        EnterOperand(Qt::Key_F3, text);
        EXPECT_EQ(Shown(), before);
    }
}

TEST_P(ColumnFormTest, ANumberBeyondAllNumbersIsRefusedWithAMessage)
{
    AnswerWrong();
    const Contents before = Shown();
    const std::string right = RightAnswer();
    const QString threeHundredAndTenDigits(310, u'9');
    for (const QString& text : { QStringLiteral("1e999"), QStringLiteral("-1e400"), threeHundredAndTenDigits }) {
        for (const int key : { Qt::Key_F2, Qt::Key_F3 }) {
            ExpectInput(QString::fromUtf8(GetParam().InputTitle), prompt, text);
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

class ResultTooLargeTest : public ::testing::TestWithParam<Screen>, protected ColumnFormDriver {
protected:
    void SetUp() override { Open(GetParam()); }

    // The lower operand that, with 1e308 above it, gives a result beyond the largest double.
    const char* LowerOperand() const { return GetParam().Kind == Operation::Addition ? "1e308" : "-1e308"; }

    void ExpectTooLarge()
    {
        ExpectMessage(QStringLiteral("Error"),
            GetParam().Kind == Operation::Addition
                ? QStringLiteral("La suma de los datos introducidos  produce un resultado demasiado grande")
                : QStringLiteral("La diferencia de los datos introducidos  produce un resultado demasiado grande"));
    }

    void MakeResultTooLarge()
    {
        EnterOperands("1e308", "5");
        ExpectInput(QString::fromUtf8(GetParam().InputTitle), prompt, QString::fromLatin1(LowerOperand()));
        ExpectTooLarge();
        Press(Qt::Key_F3);
    }
};

INSTANTIATE_TEST_SUITE_P(Of, ResultTooLargeTest, ::testing::Values(sums, differences),
    [](const auto& instance) { return instance.param.Name; });

TEST_P(ResultTooLargeTest, IsToldAndTheWindowStaysAsItWas)
{
    EnterOperands("1e308", "5");
    AnswerWith("7");
    const Contents before = Shown();
    ExpectInput(QString::fromUtf8(GetParam().InputTitle), prompt, QString::fromLatin1(LowerOperand()));
    ExpectTooLarge();
    Press(Qt::Key_F3);
    EXPECT_EQ(PendingBoxes(), 0);
    EXPECT_EQ(Shown(), before);
    ComeBackFromBox();
    EXPECT_EQ(FocusName(), "Text3");
}

TEST_P(ResultTooLargeTest, IsToldForTheUpperOperandToo)
{
    EnterOperand(Qt::Key_F3, LowerOperand());
    const Contents before = Shown();
    ExpectInput(QString::fromUtf8(GetParam().InputTitle), prompt, QStringLiteral("1e308"));
    ExpectTooLarge();
    Press(Qt::Key_F2);
    EXPECT_EQ(PendingBoxes(), 0);
    EXPECT_EQ(Shown(), before);
}

TEST_P(ResultTooLargeTest, TheOperandIsKeptAndShownWithTheNextOne)
{
    MakeResultTooLarge();
    EXPECT_EQ(withoutBlanks(ShownOperands().Lower), "5");
    EnterOperand(Qt::Key_F2, "2");
    EXPECT_EQ(withoutBlanks(ShownOperands().Upper), "2");
    const auto [integer, fraction] = digitsOf(withoutBlanks(ShownOperands().Lower));
    EXPECT_GE(integer.size(), 309U);
    EXPECT_EQ(fraction, "");
}

TEST_P(ResultTooLargeTest, CheckingOrShowingItIsARunTimeError)
{
    for (const char* button : { "Command1", "Command2(2)" }) {
        SCOPED_TRACE(button);
        const std::vector<RunTimeError> errors = RunTimeErrorsOf([this, button] {
            Open(GetParam());
            MakeResultTooLarge();
            Click(Form(), QString::fromLatin1(button));
        });
        ASSERT_EQ(errors.size(), 1U);
        EXPECT_EQ(errors.front().ErrorKind(), RunTimeError::Kind::Overflow);
        EXPECT_EQ(Score(), "Ejercicios:  0; Errores:  0");
    }
}

// --- Only one of the two windows -------------------------------------------------------------------------------------

TEST_F(AdditionFormTest, AddsNegativeNumbersAndZero)
{
    EnterOperands("-5", "3");
    AnswerWith("-2");
    EXPECT_EQ(Verdict(), "resultado correcto");
    Click(Form(), QStringLiteral("Command2(2)"));
    EXPECT_EQ(Answer(), "-2");
    EnterOperands("0", "0");
    Click(Form(), QStringLiteral("Command2(1)"));
    Press(Qt::Key_Return);
    EXPECT_EQ(Verdict(), "resultado correcto");
}

// With six digits the sum may have seven, and then its written form is another number.
TEST_F(AdditionFormTest, ADrawnSumOfSevenDigitsIsShownMisgroupedAndJudgedWrong)
{
    Choose(Form(), QStringLiteral("MnuOpcCifLis(5)"));
    Choose(Form(), QStringLiteral("MnuOpcDecLis(0)"));
    double sum = 0;
    const auto showsTruly = [](double number) { return ParseDisplayNumber(FormatDisplayNumber(number)) == number; };
    for (int exercise = 0; exercise < 200 && showsTruly(sum); ++exercise) {
        Click(Form(), QStringLiteral("Command2(0)"));
        sum = ParseDisplayNumber(ShownOperands().Upper) + ParseDisplayNumber(ShownOperands().Lower);
    }
    ASSERT_GE(sum, 1e6);
    Click(Form(), QStringLiteral("Command2(2)"));
    EXPECT_EQ(digitsOf(Answer()).first.size(), 7U);
    EXPECT_NE(ParseDisplayNumber(Answer()), sum);
    Click(Form(), QStringLiteral("Command1"));
    EXPECT_EQ(Verdict(), "resultado incorrecto");
    AnswerWith(PlainDecimalText(sum));
    EXPECT_EQ(Verdict(), "resultado correcto");
}

TEST_F(AdditionFormTest, TheGreaterAddendMayStandBelow)
{
    bool greaterBelow = false;
    for (int exercise = 0; exercise < 50 && !greaterBelow; ++exercise) {
        greaterBelow = ParseDisplayNumber(ShownOperands().Lower) > ParseDisplayNumber(ShownOperands().Upper);
        Click(Form(), QStringLiteral("Command2(0)"));
    }
    EXPECT_TRUE(greaterBelow);
}

TEST_F(SubtractionFormTest, NeverDrawsASubtrahendAboveItsMinuend)
{
    for (const char* digits : { "MnuOpcCifLis(0)", "MnuOpcCifLis(2)", "MnuOpcCifLis(5)" }) {
        Choose(Form(), QString::fromLatin1(digits));
        for (int exercise = 0; exercise < 50; ++exercise) {
            EXPECT_GE(ParseDisplayNumber(ShownOperands().Upper), ParseDisplayNumber(ShownOperands().Lower));
            Click(Form(), QStringLiteral("Command2(0)"));
        }
    }
}

TEST_F(SubtractionFormTest, ATypedSubtrahendMayBeTheGreaterOne)
{
    EnterOperands("5", "8");
    EXPECT_EQ(ShownOperands(), (Operands { "5", "8" }));
    AnswerWith("3");
    EXPECT_EQ(Verdict(), "resultado incorrecto");
    AnswerWith("-3");
    EXPECT_EQ(Verdict(), "resultado correcto");
    EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  1");
}

TEST_F(SubtractionFormTest, ShowsANegativeSolutionWithItsSign)
{
    struct Difference {
        const char* Minuend;
        const char* Subtrahend;
        const char* Solution;
    };
    const Difference negative[]
        = { { "5", "8", "-3" }, { "1,5", "2,25", "-0,75" }, { "1", "1235", "-1.234" }, { "1", "124", "-.123" } };
    for (const auto& [minuend, subtrahend, solution] : negative) {
        SCOPED_TRACE(solution);
        EnterOperands(minuend, subtrahend);
        Click(Form(), QStringLiteral("Command2(2)"));
        EXPECT_EQ(Answer(), solution);
        Click(Form(), QStringLiteral("Command1"));
        EXPECT_EQ(Verdict(), "resultado correcto");
    }
}

TEST_F(SubtractionFormTest, ADifferenceOfZeroIsShownAsZeroAndAnEmptyAnswerIsRight)
{
    EnterOperands("482,37", "482,37");
    Press(Qt::Key_Return);
    EXPECT_EQ(Answer(), "");
    EXPECT_EQ(Verdict(), "resultado correcto");
    EXPECT_EQ(Score(), "Ejercicios:  1; Errores:  0");
    Click(Form(), QStringLiteral("Command2(2)"));
    EXPECT_EQ(Answer(), "0");
}

// --- Highlights, as they are painted ---------------------------------------------------------------------------------

// The columns of pixels inside a box that show the colour of the highlight.
std::set<int> highlightedColumns(TextBox& box)
{
    constexpr int frame = 4; // its colour, when the box has the focus, is none of our business
    const QRgb highlight = box.palette().color(QPalette::Highlight).rgb();
    const QImage picture = box.grab().toImage();
    std::set<int> columns;
    for (int x = frame; x < picture.width() - frame; ++x) {
        for (int y = frame; y < picture.height() - frame; ++y) {
            if (picture.pixel(x, y) == highlight) {
                columns.insert(x);
                break;
            }
        }
    }
    return columns;
}

void expectPaintedHighlight(TextBox& box)
{
    SCOPED_TRACE(box.objectName().toStdString());
    ASSERT_FALSE(box.text().isEmpty());
    EXPECT_EQ(box.selectedText().toStdString(), box.Text());
    const std::set<int> columns = highlightedColumns(box);
    ASSERT_FALSE(columns.empty());
    constexpr int rounding = 1;
    EXPECT_NEAR(
        *columns.rbegin() + 1 - *columns.begin(), QFontMetrics(box.font()).horizontalAdvance(box.text()), rounding);
}

TEST_P(ColumnFormTest, OperandsAndVerdictStayHighlightedWhateverHasTheFocus)
{
    AnswerWrong();
    for (int control = 0; control < 8; ++control) {
        SCOPED_TRACE(FocusName());
        expectPaintedHighlight(*Form().Text2[0]);
        expectPaintedHighlight(*Form().Text2[1]);
        expectPaintedHighlight(*Form().Text4);
        Press(Qt::Key_Tab);
    }
    EXPECT_EQ(FocusName(), "Text3");
}

TEST_P(ColumnFormTest, TheVerdictOfARightAnswerIsHighlightedToo)
{
    AnswerRight();
    expectPaintedHighlight(*Form().Text4);
}

TEST_P(ColumnFormTest, TheSolutionStaysHighlightedWhileContinuarHasTheFocus)
{
    Click(Form(), QStringLiteral("Command2(2)"));
    ASSERT_EQ(FocusName(), "Command2(0)");
    expectPaintedHighlight(*Form().Text3);
    Press(Qt::Key_Tab);
    expectPaintedHighlight(*Form().Text3);
}

TEST_P(ColumnFormTest, HighlightsSurviveABoxInFrontOfTheWindow)
{
    AnswerWrong();
    ExpectInputCancelled(QString::fromUtf8(GetParam().InputTitle), prompt);
    Press(Qt::Key_F2);
    ComeBackFromBox();
    ASSERT_EQ(FocusName(), "Text3");
    expectPaintedHighlight(*Form().Text2[0]);
    expectPaintedHighlight(*Form().Text2[1]);
    expectPaintedHighlight(*Form().Text4);
}

TEST_P(ColumnFormTest, EveryNewExerciseIsHighlighted)
{
    expectPaintedHighlight(*Form().Text2[0]);
    expectPaintedHighlight(*Form().Text2[1]);
    for (int index = 0; index <= 6; ++index) {
        Choose(Form(), QStringLiteral("MnuOpcCifLis(%1)").arg(index));
        expectPaintedHighlight(*Form().Text2[0]);
        expectPaintedHighlight(*Form().Text2[1]);
    }
}

// The x at which a box divides what belongs to the character before from what belongs to this one.
int edgeOf(TextBox& box, int character)
{
    int x = 0;
    while (x < box.width() && box.cursorPositionAt(QPoint(x, box.height() / 2)) < character) {
        ++x;
    }
    return x;
}

// The column of pixels in which the lowest ink of a highlighted text stands: the tail of its comma.
int columnOfCommaTail(TextBox& box)
{
    const std::set<int> highlighted = highlightedColumns(box);
    const QImage picture = box.grab().toImage();
    constexpr int frame = 4;
    constexpr int bright = 160; // the ink of a highlighted text is white, its ground a dark blue
    for (int y = picture.height() - 1 - frame; y > picture.height() / 2; --y) {
        bool ground = false;
        int ink = -1;
        for (const int x : highlighted) {
            const int grey = qGray(picture.pixel(x, y));
            ground = ground || grey < bright;
            ink = grey >= bright ? x : ink;
        }
        if (ground && ink >= 0) {
            return ink;
        }
    }
    return -1;
}

TEST_P(ColumnFormTest, TheCommasOfTypedOperandsArePaintedInOneColumn)
{
    const std::pair<const char*, const char*> pairs[]
        = { { "1234,5", "905,16" }, { "3,4567", "12,5" }, { "0,5", "123456,25" }, { "1234567,123456", "7,5" } };
    for (const auto& [upper, lower] : pairs) {
        SCOPED_TRACE(std::string(upper) + " and " + lower);
        EnterOperands(upper, lower);
        TextBox& upperBox = *Form().Text2[0];
        TextBox& lowerBox = *Form().Text2[1];
        const int comma = static_cast<int>(upperBox.text().indexOf(u','));
        ASSERT_EQ(lowerBox.text().indexOf(u','), comma);
        EXPECT_EQ(edgeOf(upperBox, comma), edgeOf(lowerBox, comma));
        EXPECT_EQ(edgeOf(upperBox, comma + 1), edgeOf(lowerBox, comma + 1));
        EXPECT_GE(columnOfCommaTail(upperBox), 0);
        EXPECT_EQ(columnOfCommaTail(upperBox), columnOfCommaTail(lowerBox));
        EXPECT_EQ(highlightedColumns(upperBox), highlightedColumns(lowerBox));
    }
}

// --- Size ------------------------------------------------------------------------------------------------------------

void expectSeenWhole(const TextBox& box)
{
    constexpr int frame = 2;
    EXPECT_LE(QFontMetrics(box.font()).horizontalAdvance(box.text()), box.width() - 2 * frame)
        << box.objectName().toStdString() << ": " << box.Text();
}

TEST_P(ColumnFormTest, SevenDigitsAndSixDecimalsAreSeenWhole)
{
    Choose(Form(), QStringLiteral("MnuOpcCifLis(6)"));
    Choose(Form(), QStringLiteral("MnuOpcDecLis(6)"));
    expectDrawnNumber(ShownOperands().Upper, 7, 6);
    expectDrawnNumber(ShownOperands().Lower, 7, 6);
    Click(Form(), QStringLiteral("Command2(2)"));
    for (TextBox* box : { Form().Text2[0], Form().Text2[1], Form().Text3 }) {
        expectSeenWhole(*box);
        expectPaintedHighlight(*box);
    }
    EXPECT_EQ(Form().Text2[0]->font(), Form().Text2[1]->font());
}

// So many that the narrower digits of the answer, too, have no room in the smallest size of other boxes.
TEST_P(ColumnFormTest, TypedOperandsOfManyDigitsAreSeenWholeTooHoweverSmall)
{
    EnterOperands("12345678901234567890", "1");
    Click(Form(), QStringLiteral("Command2(2)"));
    for (const TextBox* box : { Form().Text2[0], Form().Text2[1], Form().Text3 }) {
        EXPECT_GT(box->text().size(), 20);
        expectSeenWhole(*box);
    }
}

TEST_P(ColumnFormTest, TheFontOfAnOperandComesBackWhenItsTextIsShortAgain)
{
    const QFont design = Form().Text2[0]->font();
    Choose(Form(), QStringLiteral("MnuOpcCifLis(6)"));
    Choose(Form(), QStringLiteral("MnuOpcDecLis(6)"));
    EXPECT_LT(Form().Text2[0]->font().pixelSize(), design.pixelSize());
    Choose(Form(), QStringLiteral("MnuOpcCifLis(2)"));
    Choose(Form(), QStringLiteral("MnuOpcDecLis(2)"));
    EXPECT_EQ(Form().Text2[0]->font(), design);
    EXPECT_EQ(Form().Text2[1]->font(), design);
}

TEST_P(ColumnFormTest, AllVerdictsAndScoresAreSeenWhole)
{
    expectSeenWhole(*Form().Text1);
    expectSeenWhole(*Form().tbResultados);
    AnswerWrong();
    expectSeenWhole(*Form().Text4);
    AnswerRight();
    expectSeenWhole(*Form().Text4);
    expectSeenWhole(*Form().tbResultados);
}

QPoint areaOrigin(const ColumnForm& form)
{
    return { 0, form.findChild<QMenuBar*>()->height() };
}

QSize areaSize(const ColumnForm& form)
{
    return form.size() - QSize(0, areaOrigin(form).y());
}

struct Dress {
    std::string Name;
    QRect Place;
    int FontPixels;
};

std::vector<Dress> dressOf(const ColumnForm& form)
{
    std::vector<Dress> dress;
    const QPoint origin = areaOrigin(form);
    for (const QWidget* control : std::initializer_list<const QWidget*> { form.Text1, form.Text2[0], form.Text2[1],
             form.Label1, form.Text3, form.Text4, form.tbResultados, form.Buttons.Command1, form.Buttons.Command2[0],
             form.Buttons.Command2[1], form.Buttons.Command2[2] }) {
        dress.push_back({ control->objectName().toStdString(), control->geometry().translated(-origin),
            control->font().pixelSize() });
    }
    return dress;
}

void expectGrown(const std::vector<Dress>& design, const std::vector<Dress>& grown, double factor, QPointF offset = {})
{
    constexpr double rounding = 1.5; // of both edges at both sizes, in pixels
    ASSERT_EQ(design.size(), grown.size());
    for (std::size_t i = 0; i < design.size(); ++i) {
        SCOPED_TRACE(design[i].Name);
        EXPECT_NEAR(grown[i].Place.x(), design[i].Place.x() * factor + offset.x(), rounding);
        EXPECT_NEAR(grown[i].Place.y(), design[i].Place.y() * factor + offset.y(), rounding);
        EXPECT_NEAR(grown[i].Place.width(), design[i].Place.width() * factor, 2 * rounding);
        EXPECT_NEAR(grown[i].Place.height(), design[i].Place.height() * factor, 2 * rounding);
        EXPECT_NEAR(grown[i].FontPixels, design[i].FontPixels * factor, 1);
    }
}

// Gives the area below the menu bar this size. The menu bar grows with it, so that its height is known only afterwards.
void resizeArea(ColumnForm& form, QSize area)
{
    for (int tries = 0; tries < 3 && areaSize(form) != area; ++tries) {
        form.resize(area + QSize(0, areaOrigin(form).y()));
        QCoreApplication::sendPostedEvents();
    }
    ASSERT_EQ(areaSize(form), area);
}

TEST_P(ColumnFormTest, AllBoxesAndFontsGrowAndShrinkWithTheWindow)
{
    const std::vector<Dress> design = dressOf(Form());
    const QSize area = areaSize(Form());
    for (const double factor : { 2.0, 1.5, 0.75, 1.0 }) {
        SCOPED_TRACE(factor);
        resizeArea(Form(), area * factor);
        expectGrown(design, dressOf(Form()), factor);
    }
}

TEST_P(ColumnFormTest, AWindowThatIsOnlyWiderKeepsItsProportionsAndItsMiddle)
{
    const std::vector<Dress> design = dressOf(Form());
    const QSize area = areaSize(Form());
    resizeArea(Form(), QSize(2 * area.width(), area.height()));
    expectGrown(design, dressOf(Form()), 1, QPointF(area.width() / 2.0, 0));
}

TEST_P(ColumnFormTest, MaximisedEverythingGrowsTogether)
{
    const std::vector<Dress> design = dressOf(Form());
    const QSize area = areaSize(Form());
    Form().showMaximized();
    QCoreApplication::processEvents();
    const QSize maximised = areaSize(Form());
    const double factor = std::min(
        static_cast<double>(maximised.width()) / area.width(), static_cast<double>(maximised.height()) / area.height());
    ASSERT_GT(factor, 1.2);
    const QSizeF room = maximised - QSizeF(area) * factor;
    expectGrown(design, dressOf(Form()), factor, QPointF(room.width() / 2, room.height() / 2));
    AnswerWrong();
    expectPaintedHighlight(*Form().Text2[0]);
    expectPaintedHighlight(*Form().Text4);
}

TEST_P(ColumnFormTest, LongTextsAreSeenWholeAtEverySize)
{
    Choose(Form(), QStringLiteral("MnuOpcCifLis(6)"));
    Choose(Form(), QStringLiteral("MnuOpcDecLis(6)"));
    const QSize area = areaSize(Form());
    for (const double factor : { 2.0, 0.75, 1.0 }) {
        resizeArea(Form(), area * factor);
        expectSeenWhole(*Form().Text2[0]);
        expectSeenWhole(*Form().Text2[1]);
    }
}

// A text that is written smaller, to be seen whole, must not decide how large the next one is.
TEST_P(ColumnFormTest, AfterALongTextAtAnotherSizeTheFontIsThatOfTheNewSize)
{
    const std::vector<Dress> design = dressOf(Form());
    const QSize area = areaSize(Form());
    for (int percent = 50; percent <= 150; percent += 5) {
        SCOPED_TRACE(percent);
        resizeArea(Form(), area);
        Choose(Form(), QStringLiteral("MnuOpcCifLis(6)"));
        Choose(Form(), QStringLiteral("MnuOpcDecLis(6)"));
        resizeArea(Form(), area * (percent / 100.0));
        Choose(Form(), QStringLiteral("MnuOpcCifLis(0)"));
        Choose(Form(), QStringLiteral("MnuOpcDecLis(0)"));
        expectGrown(design, dressOf(Form()), percent / 100.0);
    }
}

} // namespace

} // namespace numbrela

#include "activities/addsub/screen/ColumnForm.h"

#include "common/core/NumberText.h"
#include "common/screen/OptionMenu.h"
#include "common/screen/TextBox.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/RunTimeErrorsOf.h"
#include "tests/support/Schoolbook.h"
#include "tests/support/Shown.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFontMetrics>
#include <QInputMethodEvent>
#include <QPointer>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

constexpr const char* prompt = "Introduzca el nuevo valor:";
constexpr const char* hecho = "Command1";
constexpr const char* continuar = "Command2(0)";
constexpr const char* borrar = "Command2(1)";
constexpr const char* verSolución = "Command2(2)";

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

// The texts of the upper and the lower operand.
using Operands = std::pair<std::string, std::string>;

// All that the boxes of a window say.
struct Contents {
    std::string Heading;
    std::pair<std::string, std::string> Operands;
    std::string Answer;
    std::string Verdict;
    std::string Score;

    bool operator==(const Contents&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Contents& shown)
{
    return out << shown.Heading << " | " << shown.Operands.first << " | " << shown.Operands.second << " | "
               << shown.Answer << " | " << shown.Verdict << " | " << shown.Score;
}

// Drives one window as a person does.
class ColumnFormTest : public ::testing::TestWithParam<Screen> {
protected:
    void SetUp() override { Open(); }

    void Open()
    {
        form_.reset(GetParam().Make(clock_));
        ComeBackFromBox();
    }

    // Gives the focus back to the window after a box has closed, as a window manager does.
    void ComeBackFromBox() { ShowAndActivate(*form_); }

    ColumnForm& Form() { return *form_; }
    bool IsAddition() const { return GetParam().Kind == Operation::Addition; }
    void ClickOn(QAnyStringView control) { Click(*form_, control); }
    void ChooseItem(QAnyStringView item) { Choose(*form_, item); }

    // Presses a button by the mouse or by its access key.
    void PressButton(bool byMouse, const char* name, Qt::Key accessKey)
    {
        if (byMouse) {
            ClickOn(name);
        } else {
            PressAccessKey(*form_, accessKey, name);
        }
    }

    Contents Shown() const { return { form_->Text1->Text(), ShownOperands(), Answer(), Verdict(), Score() }; }

    Operands ShownOperands() const { return { form_->Text2[0]->Text(), form_->Text2[1]->Text() }; }
    std::string Answer() const { return form_->Text3->Text(); }
    std::string Verdict() const { return form_->Text4->Text(); }
    std::string Score() const { return form_->tbResultados->Text(); }

    void ExpectAnswer(const std::string& answer, int caret)
    {
        EXPECT_EQ(Answer(), answer);
        EXPECT_EQ(form_->Text3->CaretPosition(), caret);
    }

    static void ExpectHighlighted(const TextBox& box)
    {
        EXPECT_TRUE(IsWhollySelected(box)) << box.Text();
        EXPECT_EQ(box.CaretPosition(), 0);
    }

    void ExpectHighlightedOperands()
    {
        ExpectHighlighted(*form_->Text2[0]);
        ExpectHighlighted(*form_->Text2[1]);
    }

    // Checks that the verdict is shown and highlighted, and that the focus has moved to where the verdict sends it.
    void ExpectVerdict(bool right, const std::string& score)
    {
        EXPECT_EQ(Verdict(), right ? "resultado correcto" : "resultado incorrecto");
        ExpectHighlighted(*form_->Text4);
        EXPECT_EQ(FocusName(), right ? continuar : "Text3");
        EXPECT_EQ(Score(), score);
    }

    // Checks that nothing has been answered, with the score as it is and the operands highlighted.
    void ExpectUnanswered(const std::string& score)
    {
        EXPECT_EQ(Answer(), "");
        EXPECT_EQ(Verdict(), "");
        EXPECT_EQ(Score(), score);
        ExpectHighlightedOperands();
    }

    void ExpectOptions(int digitItem, int decimalItem)
    {
        EXPECT_EQ(CheckedItems(*form_->MnuOpcCif), std::vector<int> { digitItem });
        EXPECT_EQ(CheckedItems(*form_->MnuOpcDec), std::vector<int> { decimalItem });
    }

    // The right answer to the texts that are shown, which are correct up to six integer digits.
    std::string RightAnswer() const
    {
        const double upper = ParseDisplayNumber(ShownOperands().first);
        const double lower = ParseDisplayNumber(ShownOperands().second);
        return PlainDecimalText(IsAddition() ? upper + lower : upper - lower);
    }

    // Writes into the answer box from the last character to the first, whatever the caret does meanwhile.
    void WriteAnswer(const std::string& answer)
    {
        ClickOn(borrar);
        ASSERT_EQ(FocusName(), "Text3");
        for (auto character = answer.rbegin(); character != answer.rend(); ++character) {
            Type(std::string(1, *character));
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
    void EnterOperand(int key, QAnyStringView text)
    {
        ExpectInput(GetParam().Name, prompt, text);
        Press(key);
        ComeBackFromBox();
    }

    void EnterOperands(const char* upper, const char* lower)
    {
        EnterOperand(Qt::Key_F2, upper);
        EnterOperand(Qt::Key_F3, lower);
    }

    // Types an operand that is refused with a message.
    void EnterRefused(int key, QAnyStringView text, const char* title, const char* message)
    {
        const Contents before = Shown();
        ExpectInput(GetParam().Name, prompt, text);
        ExpectMessage(title, message);
        Press(key);
        EXPECT_EQ(PendingBoxes(), 0);
        EXPECT_EQ(Shown(), before);
        ComeBackFromBox();
        EXPECT_EQ(FocusName(), "Text3");
    }

    FixedClock clock_;

private:
    std::unique_ptr<ColumnForm> form_;
};

INSTANTIATE_TEST_SUITE_P(
    Of, ColumnFormTest, ::testing::ValuesIn(screens), [](const auto& instance) { return instance.param.Name; });

void expectDrawn(const Operands& shown, std::size_t digits, std::size_t decimals)
{
    for (const std::string& text : { shown.first, shown.second }) {
        SCOPED_TRACE(text);
        const std::string plain = Without(text, ".");
        EXPECT_EQ(plain.find_first_not_of("0123456789,"), std::string::npos);
        EXPECT_EQ(std::min(plain.find(','), plain.size()), digits);
        EXPECT_EQ(plain.size(), decimals == 0 ? digits : digits + 1 + decimals);
        EXPECT_NE(plain.front(), '0');
        EXPECT_TRUE(decimals == 0 || plain.back() != '0');
    }
}

// --- Opening and closing ---------------------------------------------------------------------------------------------

TEST_P(ColumnFormTest, OpensAfreshEachTimeWithThreeDigitsAndTwoDecimalsReadyForTheAnswer)
{
    for (const bool again : { false, true }) {
        SCOPED_TRACE(again);
        expectDrawn(ShownOperands(), 3, 2);
        ExpectUnanswered("Ejercicios:  0; Errores:  0");
        ExpectOptions(2, 2);
        EXPECT_EQ(FocusName(), "Text3");
        AnswerWrong();
        ChooseItem("MnuOpcCifLis(5)");
        ChooseItem("MnuOpcDecLis(0)");
        ASSERT_EQ(Score(), "Ejercicios:  1; Errores:  1");
        ChooseItem("MnuOpcSal");
        Open();
    }
}

TEST_P(ColumnFormTest, DrawsFromTheTimeAtWhichItWasOpened)
{
    const std::pair<TimeOfDay, int> seeds[]
        = { { { 0, 0, 0, 0 }, 1 }, { { 23, 59, 59, 86399 }, 86400 }, { { 9, 5, 41, 32741 }, 10 * 6 * 42 } };
    for (const auto& [time, seed] : seeds) {
        clock_.Time = time;
        Open();
        SeededRandom random(seed);
        ColumnExercise exercise(GetParam().Kind, random);
        for (int next = 0; next < 2; ++next) {
            exercise.Generate();
            EXPECT_EQ(ShownOperands(), Operands(exercise.DrawnTexts().Upper, exercise.DrawnTexts().Lower));
            clock_.Time = { 12, 34, 56, 45296 }; // the clock is asked only once
            ClickOn(continuar);
        }
    }
}

// The Tab key skips the operands, so a screen reader must speak them together with the answer.
TEST_P(ColumnFormTest, SpeaksTheExerciseWhereItsAnswerIsWritten)
{
    const std::string sign = IsAddition() ? " + " : " - ";
    const auto expectSpoken = [this](const std::string& exercise) {
        EXPECT_EQ(Form().Text3->accessibleDescription().toStdString(), exercise);
    };
    expectSpoken(ShownOperands().first + sign + ShownOperands().second);
    ClickOn(continuar);
    expectSpoken(ShownOperands().first + sign + ShownOperands().second);
    ChooseItem("MnuOpcCifLis(4)");
    expectSpoken(ShownOperands().first + sign + ShownOperands().second);
    EnterOperands("1234,5", "905,16");
    expectSpoken("1.234,5" + sign + "905,16"); // without the blanks around them
}

TEST_P(ColumnFormTest, IsDestroyedWhenItIsClosedByThePupil)
{
    const QPointer<ColumnForm> byMenu = GetParam().Make(clock_);
    byMenu->ShowModally();
    Choose(*byMenu, "MnuOpcSal");
    EXPECT_FALSE(byMenu->isVisible());
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
    for (int control = 0; control < 7; ++control) {
        SCOPED_TRACE(FocusName());
        ExpectHighlightedOperands();
        ExpectHighlighted(*Form().Text4);
        Press(Qt::Key_Escape);
        EXPECT_TRUE(Form().isVisible());
        EXPECT_EQ(Shown(), before);
        Press(Qt::Key_Tab);
    }
    EXPECT_EQ(FocusName(), "Text1") << "which hands Escape, as any key, to the answer box";
}

// --- Writing the answer ----------------------------------------------------------------------------------------------

// On a Spanish keyboard the decimal key of the keypad writes a comma, on others a point.
TEST_P(ColumnFormTest, DigitsAndTheCommaKeyStepLeftAndNoOtherKeyDoes)
{
    const struct {
        const char* Keys;
        Qt::KeyboardModifiers With;
        const char* Answer;
        int Caret;
    } cases[] = {
        { "57,1", Qt::NoModifier, "1,75", 0 },
        { "0123456789", Qt::NoModifier, "9876543210", 0 },
        { "0123456789", Qt::KeypadModifier, "9876543210", 0 },
        { ".7", Qt::NoModifier, ".7", 1 },
        { ",.", Qt::KeypadModifier, ",.", 2 },
        { "aZ -+;/", Qt::NoModifier, "aZ -+;/", 7 },
    };
    for (const auto& [keys, with, answer, caret] : cases) {
        SCOPED_TRACE(keys);
        ClickOn(borrar);
        for (const char key : std::string(keys)) {
            if (with == Qt::NoModifier) {
                Type(std::string(1, key));
            } else {
                Press(key, with);
            }
        }
        ExpectAnswer(answer, caret);
    }
}

TEST_P(ColumnFormTest, KeysThatMoveTheCaretOrEraseDoJustThat)
{
    Type("321");
    const struct {
        Qt::Key Key;
        const char* Answer;
        int Caret;
    } steps[] = { { Qt::Key_Right, "123", 1 }, { Qt::Key_Right, "123", 2 }, { Qt::Key_9, "1293", 2 },
        { Qt::Key_End, "1293", 4 }, { Qt::Key_Left, "1293", 3 }, { Qt::Key_Backspace, "123", 2 },
        { Qt::Key_Delete, "12", 2 }, { Qt::Key_Home, "12", 0 } };
    for (const auto& [key, answer, caret] : steps) {
        SCOPED_TRACE(key);
        Press(key);
        ExpectAnswer(answer, caret);
    }
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

    ClickOn(borrar);
    HoldDown(Qt::Key_5);
    Repeat(Qt::Key_5);
    Repeat(Qt::Key_5);
    ExpectAnswer("555", 3);
    LetGo(Qt::Key_5);
    ExpectAnswer("555", 2);
}

// The caret of a highlighted text is at its beginning, where it cannot step left.
TEST_P(ColumnFormTest, TheAnswerKeepsItsCaretWhileTheFocusIsElsewhereAndADigitReplacesItHighlighted)
{
    Type("321");
    Press(Qt::Key_Tab);
    ASSERT_EQ(FocusName(), hecho);
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_EQ(FocusName(), "Text3");
    EXPECT_FALSE(Form().Text3->hasSelectedText());
    Type("4");
    ExpectAnswer("4123", 0);
    Press(Qt::Key_A, Qt::ControlModifier);
    LetGo(Qt::Key_4);
    EXPECT_EQ(Answer(), "4123");
    ExpectHighlighted(*Form().Text3);
    Type("4");
    ExpectAnswer("4", 0);
}

// --- Keys in boxes that are not for typing ---------------------------------------------------------------------------

// The release of a key goes to the control that has the focus by then, whose caret steps even if the key was pressed
// elsewhere.
TEST_P(ColumnFormTest, AKeyInHeadingOrOperandGoesToTheAnswerBoxAndIsWrittenNowhere)
{
    WriteAnswer("57");
    const Contents before = Shown();
    for (const char* box : { "Text1", "Text2(0)", "Text2(1)" }) {
        for (const int key : { Qt::Key_7, Qt::Key_A, Qt::Key_Comma, Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter,
                 Qt::Key_Backspace, Qt::Key_Escape }) {
            SCOPED_TRACE(box + std::to_string(key));
            Form().Text3->SetCaretPosition(2);
            ClickOn(box);
            ASSERT_EQ(FocusName(), box);
            HoldDown(key);
            EXPECT_EQ(FocusName(), "Text3");
            EXPECT_EQ(Form().Text3->CaretPosition(), 2);
            LetGo(key);
            EXPECT_EQ(Form().Text3->CaretPosition(), key == Qt::Key_7 || key == Qt::Key_Comma ? 1 : 2);
            EXPECT_EQ(Shown(), before);
        }
    }
    ClickOn(borrar);
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    ASSERT_EQ(FocusName(), "Text1") << "which the Tab key reaches";
    Type("78");
    EXPECT_EQ(Answer(), "8");
}

// What an input method sends when it has composed a character from several keys.
void compose(QWidget& receiver, const char* text)
{
    QInputMethodEvent event;
    event.setCommitString(QString::fromUtf8(text));
    QCoreApplication::sendEvent(&receiver, &event);
}

TEST_P(ColumnFormTest, TheHeadingStaysWhateverIsDoneToItsText)
{
    void (*const deeds[])(TextBox & heading) = {
        [](TextBox&) { Press(Qt::Key_Delete); },
        [](TextBox&) { Press(Qt::Key_X, Qt::ControlModifier); },
        [](TextBox&) { Press(Qt::Key_V, Qt::ControlModifier); },
        [](TextBox&) { Press(Qt::Key_Z, Qt::ControlModifier); },
        [](TextBox& heading) { heading.paste(); }, // by the context menu
        [](TextBox& heading) { compose(heading, "á"); },
    };
    const Contents before = Shown();
    for (const auto& doTo : deeds) {
        for (const auto& [start, length] : { std::pair { 0, 0 }, std::pair { 3, 5 }, std::pair { 0, 25 } }) {
            SCOPED_TRACE(std::to_string(&doTo - deeds) + " to " + std::to_string(length));
            QApplication::clipboard()->setText(QStringLiteral("123"));
            ClickOn("Text1");
            Form().Text1->setSelection(start, length);
            doTo(*Form().Text1);
            EXPECT_EQ(Shown(), before);
        }
    }
}

TEST_P(ColumnFormTest, WhatAnInputMethodWritesIsTyped)
{
    ClickOn("Text1");
    compose(*Form().Text1, "57");
    EXPECT_EQ(FocusName(), "Text3");
    EXPECT_EQ(Answer(), "7") << "the first key leads to the answer, the next ones are written there";
    compose(*Form().Text3, ",1");
    EXPECT_EQ(Answer(), "1,7");
    EXPECT_TRUE(Form().Text3->testAttribute(Qt::WA_InputMethodEnabled));
}

TEST_P(ColumnFormTest, TheVerdictAndTheScoreCannotBeTypedInto)
{
    AnswerWrong();
    const Contents before = Shown();
    for (const char* box : { "Text4", "tbResultados" }) {
        ClickOn(box);
        ASSERT_EQ(FocusName(), box);
        Type("7");
        Press(Qt::Key_Backspace);
        Press(Qt::Key_Return);
        EXPECT_EQ(Shown(), before);
    }
}

// --- Checking --------------------------------------------------------------------------------------------------------

TEST_P(ColumnFormTest, EveryWayToCheckJudgesOnceAndChangesNothingElse)
{
    const auto pressOnButton = [](Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
        TabTo(hecho);
        Press(key, with);
    };
    const std::pair<const char*, std::function<void()>> ways[] = {
        { "Enter", [] { Press(Qt::Key_Return); } },
        { "Enter of the keypad", [] { Press(Qt::Key_Enter, Qt::KeypadModifier); } },
        { "mouse", [&] { ClickOn(hecho); } },
        { "access key", [&] { PressAccessKey(Form(), Qt::Key_H, hecho); } },
        { "Space on the button", [&] { pressOnButton(Qt::Key_Space); } },
        { "Enter on the button", [&] { pressOnButton(Qt::Key_Return); } },
        { "Enter of the keypad on the button", [&] { pressOnButton(Qt::Key_Enter, Qt::KeypadModifier); } },
    };
    for (const auto& [name, check] : ways) {
        SCOPED_TRACE(name);
        Open();
        const Operands operands = ShownOperands();
        WriteAnswer("1,5");
        check();
        ExpectVerdict(false, "Ejercicios:  1; Errores:  1");
        EXPECT_EQ(Answer(), "1,5");
        const std::string answer = RightAnswer();
        WriteAnswer(answer);
        check();
        ExpectVerdict(true, "Ejercicios:  2; Errores:  1");
        EXPECT_EQ(Answer(), answer);
        EXPECT_EQ(ShownOperands(), operands);
        ExpectHighlightedOperands();
    }
    Form().tbResultados->SetText("");
    AnswerWrong();
    ExpectVerdict(false, "Ejercicios:  2; Errores:  1"); // written anew, although it no longer counts
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
        EXPECT_EQ(ShownOperands(), written.Operands);

        // A new press draws the next exercise, and the focus moves to the empty answer while the key is still down.
        hold();
        EXPECT_NE(ShownOperands(), written.Operands);
        ExpectUnanswered("Ejercicios:  2; Errores:  1");
        EXPECT_EQ(FocusName(), "Text3");
    }
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
    EXPECT_EQ(Verdict(), "resultado correcto");
    EXPECT_EQ(Score(), "Ejercicios:999; Errores:999");
}

// --- Buttons ---------------------------------------------------------------------------------------------------------

TEST_P(ColumnFormTest, ContinuarDrawsAnExerciseThatCounts)
{
    AnswerRight();
    for (const bool byMouse : { true, false }) {
        const Operands operands = ShownOperands();
        PressButton(byMouse, continuar, Qt::Key_C);
        EXPECT_NE(ShownOperands(), operands);
        expectDrawn(ShownOperands(), 3, 2);
        ExpectUnanswered("Ejercicios:  1; Errores:  0");
        EXPECT_EQ(FocusName(), "Text3");
        Type("12");
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
        Type("12");
        PressButton(byMouse, borrar, Qt::Key_B);
        EXPECT_EQ(Shown(), expected);
        EXPECT_EQ(FocusName(), "Text3");
        ExpectHighlighted(*Form().Text4);
        ExpectHighlightedOperands();
    }
    AnswerRight();
    EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  1") << "it counts still";
    AnswerWith("");
    ExpectVerdict(false, "Ejercicios:  2; Errores:  1");
}

TEST_P(ColumnFormTest, VerSoluciónWritesTheSolutionHighlightedAndNothingCountsAfterIt)
{
    AnswerWrong();
    Contents expected = Shown();
    expected.Answer = FormatDisplayNumber(ParseDisplayNumber(RightAnswer()));
    for (const bool byMouse : { true, false }) {
        ClickOn(borrar);
        PressButton(byMouse, verSolución, Qt::Key_V);
        EXPECT_EQ(Shown(), expected);
        ExpectHighlighted(*Form().Text3);
        EXPECT_EQ(FocusName(), continuar);
    }
    ClickOn(hecho);
    ExpectVerdict(true, "Ejercicios:  1; Errores:  1");
    TabTo("Text3");
    ExpectHighlighted(*Form().Text3);
    Type("5");
    EXPECT_EQ(Answer(), "5") << "typed over the solution";
    AnswerWrong();
    ExpectVerdict(false, "Ejercicios:  1; Errores:  1");
    ClickOn(continuar);
    AnswerRight();
    ExpectVerdict(true, "Ejercicios:  2; Errores:  1");
}

// --- Options ---------------------------------------------------------------------------------------------------------

TEST_P(ColumnFormTest, OptionsDrawOperandsOfAsManyDigitsAndDecimals)
{
    for (int digits = 0; digits <= 6; ++digits) {
        for (int decimals = 0; decimals <= 6; ++decimals) {
            for (const QString& item :
                { QStringLiteral("MnuOpcCifLis(%1)").arg(digits), QStringLiteral("MnuOpcDecLis(%1)").arg(decimals) }) {
                const Operands before = ShownOperands();
                ChooseItem(item);
                EXPECT_NE(ShownOperands(), before) << "an option that is checked already draws anew, too";
            }
            ExpectOptions(digits, decimals);
            for (int exercise = 0; exercise < 2; ++exercise) {
                expectDrawn(ShownOperands(), static_cast<std::size_t>(digits) + 1, static_cast<std::size_t>(decimals));
                ClickOn(continuar);
            }
        }
    }
}

TEST_P(ColumnFormTest, AnOptionClearsAnswerAndVerdictAndLeavesScoreAndFocus)
{
    for (const char* item : { "MnuOpcCifLis(3)", "MnuOpcDecLis(1)" }) {
        Open();
        AnswerWrong();
        ChooseItem(item);
        AnswerRight();
        EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  1") << "drawn before a right answer, it counts";
        ChooseItem(item);
        ExpectUnanswered("Ejercicios:  2; Errores:  1");
        EXPECT_EQ(FocusName(), continuar);
        AnswerWrong();
        ExpectVerdict(false, "Ejercicios:  2; Errores:  1");
        ClickOn(verSolución);
        ClickOn(continuar);
        ChooseItem(item);
        AnswerRight();
        ExpectVerdict(true, "Ejercicios:  3; Errores:  1");
    }
}

// --- Operands typed by the pupil -----------------------------------------------------------------------------------

TEST_P(ColumnFormTest, F2AndF3AndTheirMenuItemsReplaceAnOperandAndPutTheCommasUnderEachOther)
{
    const auto expectOperands = [this](const Operands& operands) {
        EXPECT_EQ(ShownOperands(), operands);
        ExpectHighlightedOperands();
        EXPECT_EQ(Form().Text2[0]->font(), Form().Text2[1]->font());
    };
    const std::string drawn = ShownOperands().second;
    EnterOperand(Qt::Key_F2, "482,37");
    expectOperands({ "482,37", drawn });
    EnterOperand(Qt::Key_F3, "905,16");
    expectOperands({ "482,37", "905,16" });
    ExpectInput(GetParam().Name, prompt, "7");
    ChooseItem("MnuOpcIn1");
    expectOperands({ "  7   ", "905,16" });
    ExpectInput(GetParam().Name, prompt, "-123");
    ChooseItem("MnuOpcIn2");
    expectOperands({ "    7", "-.123" });
    EnterOperands("0,123456789", " 12345678 ");
    expectOperands({ "         0,123456789", "12.234.678          " });
}

TEST_P(ColumnFormTest, EntryClearsAnswerAndVerdictAndKeepsEverythingElse)
{
    for (const int key : { Qt::Key_F2, Qt::Key_F3 }) {
        Open();
        AnswerWrong();
        EnterOperand(key, "4,5");
        ExpectUnanswered("Ejercicios:  1; Errores:  1");
        ExpectOptions(2, 2);
        for (const char* focused : { "Text3", continuar, "Text2(1)" }) {
            ClickOn(focused);
            Find<QWidget>(Form(), focused).setFocus();
            EnterOperand(key, "8,5");
            EXPECT_EQ(FocusName(), focused);
        }
        ClickOn(continuar);
        expectDrawn(ShownOperands(), 3, 2);
    }
}

TEST_P(ColumnFormTest, EntryThatIsCancelledOrNoNumberChangesNothingAndIsPassedOverInSilence)
{
    AnswerWrong();
    const Contents before = Shown();
    for (const int key : { Qt::Key_F2, Qt::Key_F3 }) {
        for (const char* typed : { "", "12" }) {
            ExpectInputCancelled(GetParam().Name, prompt, typed);
            Press(key);
            EXPECT_EQ(Shown(), before);
            ComeBackFromBox();
            EXPECT_EQ(FocusName(), "Text3");
        }
        for (const char* text : { "", " ", "abc", "12a", "12,5 €" }) {
            EnterOperand(key, text);
            EXPECT_EQ(Shown(), before) << text;
        }
    }
    ExpectHighlighted(*Form().Text4);
    ExpectHighlightedOperands();
}

TEST_P(ColumnFormTest, ANumberBeyondAllNumbersIsRefusedWithAMessage)
{
    AnswerWrong();
    const std::string right = RightAnswer();
    for (const std::string& text : { std::string("1e999"), std::string("-1e400"), std::string(310, '9') }) {
        EnterRefused(Qt::Key_F2, text, "Numbrela", "El dato introducido no es válido");
        EnterRefused(Qt::Key_F3, text, "Numbrela", "El dato introducido no es válido");
    }
    AnswerWith(right);
    EXPECT_EQ(Verdict(), "resultado correcto");
}

// The operand is kept, although it is not shown before the next one is.
TEST_P(ColumnFormTest, AResultTooLargeIsToldAndCheckingOrShowingItIsARunTimeError)
{
    const char* lower = IsAddition() ? "1e308" : "-1e308";
    EnterOperand(Qt::Key_F3, lower);
    EnterRefused(Qt::Key_F2, "1e308", "Error", GetParam().TooLarge);
    EnterOperand(Qt::Key_F3, "5");
    EXPECT_GE(Trimmed(ShownOperands().first).size(), 309U);

    for (const char* button : { hecho, verSolución }) {
        const std::vector<RunTimeError> errors = RunTimeErrorsOf([&] {
            Open();
            EnterOperand(Qt::Key_F2, "1e308");
            EnterRefused(Qt::Key_F3, lower, "Error", GetParam().TooLarge);
            ClickOn(button);
        });
        ASSERT_EQ(errors.size(), 1U);
        EXPECT_EQ(errors.front().ErrorKind(), RunTimeError::Kind::Overflow);
        EXPECT_EQ(Score(), "Ejercicios:  0; Errores:  0");
    }
}

// --- Long texts ------------------------------------------------------------------------------------------------------

TEST_P(ColumnFormTest, LongOperandsAndSolutionsAreSeenWholeAndShortOnesLargeAgain)
{
    const QFont design = Form().Text2[0]->font();
    ChooseItem("MnuOpcCifLis(6)");
    ChooseItem("MnuOpcDecLis(6)");
    for (const bool typed : { false, true }) {
        if (typed) { // too many even for the narrower digits of the answer at the smallest size of the others
            EnterOperands("12345678901234567890", "1");
        }
        ClickOn(verSolución);
        for (const TextBox* box : { Form().Text2[0], Form().Text2[1], Form().Text3 }) {
            constexpr int frame = 2;
            EXPECT_LE(QFontMetrics(box->font()).horizontalAdvance(box->text()), box->width() - 2 * frame)
                << box->Text();
        }
        EXPECT_LT(Form().Text2[0]->font().pixelSize(), design.pixelSize());
        EXPECT_EQ(Form().Text2[0]->font(), Form().Text2[1]->font());
    }
    ChooseItem("MnuOpcCifLis(2)");
    ChooseItem("MnuOpcDecLis(2)");
    EXPECT_EQ(Form().Text2[0]->font(), design);
    EXPECT_EQ(Form().Text2[1]->font(), design);
}

} // namespace

} // namespace numbrela

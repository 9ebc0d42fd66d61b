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

    // All that the boxes of the window say, and the same with another answer.
    std::string Shown() const { return ShownWith(Answer()); }
    std::string ShownWith(const std::string& answer) const
    {
        return form_->Text1->Text() + " | " + ShownOperands().first + " | " + ShownOperands().second + " | " + answer
            + " | " + Verdict() + " | " + Score();
    }

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

    void WriteAnswer(const std::string& answer)
    {
        ClickOn(borrar);
        ASSERT_EQ(FocusName(), "Text3");
        TypeResult(answer);
        ASSERT_EQ(Answer(), answer);
    }

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
        const std::string before = Shown();
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

TEST_P(ColumnFormTest, OpensWithThreeDigitsAndTwoDecimalsReadyForTheAnswer)
{
    expectDrawn(ShownOperands(), 3, 2);
    ExpectUnanswered("Ejercicios:  0; Errores:  0");
    ExpectOptions(2, 2);
    EXPECT_EQ(FocusName(), "Text3");
    ChooseItem("MnuOpcSal");
    EXPECT_FALSE(Form().isVisible());
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
    const std::string sign = IsAddition() ? " más " : " menos ";
    const auto expectSpoken
        = [this](const std::string& exercise) { EXPECT_EQ(Form().Text3->Description().toStdString(), exercise); };
    expectSpoken(ShownOperands().first + sign + ShownOperands().second);
    ClickOn(continuar);
    expectSpoken(ShownOperands().first + sign + ShownOperands().second);
    ChooseItem("MnuOpcCifLis(4)");
    expectSpoken(ShownOperands().first + sign + ShownOperands().second);
    EnterOperands("1234,5", "905,16");
    expectSpoken("1.234,5" + sign + "905,16"); // without the blanks around them
}

// --- Writing the answer ----------------------------------------------------------------------------------------------

TEST_P(ColumnFormTest, DigitsAndTheCommaKeyStepLeftAndNoOtherKeyDoes)
{
    const struct {
        const char* Keys;
        const char* Answer;
        int Caret;
    } cases[]
        = { { "57,1", "1,75", 0 }, { "0123456789", "9876543210", 0 }, { ".7", ".7", 1 }, { "aZ -+;/", "aZ -+;/", 7 } };
    for (const auto& [keys, answer, caret] : cases) {
        ClickOn(borrar);
        Type(keys);
        ExpectAnswer(answer, caret);
    }
    ClickOn(borrar);
    const struct {
        int Key;
        Qt::KeyboardModifiers With;
        const char* Answer;
        int Caret;
    } steps[] = { { Qt::Key_3, Qt::KeypadModifier, "3", 0 }, { Qt::Key_2, Qt::KeypadModifier, "23", 0 },
        { Qt::Key_Right, {}, "23", 1 }, { Qt::Key_9, {}, "293", 1 }, { Qt::Key_End, {}, "293", 3 },
        { Qt::Key_Comma, Qt::KeypadModifier, "293,", 4 }, // which writes a point on other than Spanish keyboards
        { Qt::Key_Backspace, {}, "293", 3 }, { Qt::Key_Left, {}, "293", 2 }, { Qt::Key_Delete, {}, "29", 2 },
        { Qt::Key_Home, {}, "29", 0 } };
    for (const auto& [key, with, answer, caret] : steps) {
        SCOPED_TRACE(key);
        Press(key, with);
        ExpectAnswer(answer, caret);
    }
    Press(Qt::Key_A, Qt::ControlModifier);
    LetGo(Qt::Key_4);
    ExpectHighlighted(*Form().Text3); // its caret is at its beginning, where it cannot step left
    Type("4");
    ExpectAnswer("4", 0);
}

// --- Keys in boxes that are not for typing ---------------------------------------------------------------------------

// The release of a key goes to the control that has the focus by then, whose caret steps even if the key was pressed
// elsewhere.
TEST_P(ColumnFormTest, AKeyInHeadingOrOperandGoesToTheAnswerBoxAndIsWrittenNowhere)
{
    WriteAnswer("57");
    const std::string before = Shown();
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
    const std::string before = Shown();
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

// --- Checking --------------------------------------------------------------------------------------------------------

TEST_P(ColumnFormTest, EveryWayToCheckJudgesOnceAndChangesNothingElse)
{
    void (*const ways[])(const ColumnForm& form) = {
        [](const ColumnForm&) { Press(Qt::Key_Return); },
        [](const ColumnForm&) { Press(Qt::Key_Enter, Qt::KeypadModifier); },
        [](const ColumnForm& form) { Click(form, hecho); },
    };
    for (const auto& check : ways) {
        SCOPED_TRACE(&check - ways);
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
    Form().tbResultados->SetText("");
    AnswerWrong();
    ExpectVerdict(false, "Ejercicios:  2; Errores:  1"); // written anew, although it no longer counts
}

// --- Buttons ---------------------------------------------------------------------------------------------------------

TEST_P(ColumnFormTest, ContinuarDrawsAnExerciseThatCounts)
{
    AnswerRight();
    const Operands operands = ShownOperands();
    Form().Text3->SetText("12");
    ClickOn(continuar);
    EXPECT_NE(ShownOperands(), operands);
    expectDrawn(ShownOperands(), 3, 2);
    ExpectUnanswered("Ejercicios:  1; Errores:  0");
    EXPECT_EQ(FocusName(), "Text3");
    AnswerWrong();
    EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  1");
}

TEST_P(ColumnFormTest, BorrarClearsTheAnswerAndNothingElse)
{
    AnswerWrong();
    const std::string expected = ShownWith("");
    Type("12");
    ClickOn(borrar);
    EXPECT_EQ(Shown(), expected);
    EXPECT_EQ(FocusName(), "Text3");
    ExpectHighlighted(*Form().Text4);
    ExpectHighlightedOperands();
    AnswerRight();
    EXPECT_EQ(Score(), "Ejercicios:  2; Errores:  1") << "it counts still";
    AnswerWith("");
    ExpectVerdict(false, "Ejercicios:  2; Errores:  1");
}

TEST_P(ColumnFormTest, VerSoluciónWritesTheSolutionHighlightedAndNothingCountsAfterIt)
{
    AnswerWrong();
    const std::string expected = ShownWith(FormatDisplayNumber(ParseDisplayNumber(RightAnswer())));
    ClickOn(verSolución);
    EXPECT_EQ(Shown(), expected);
    ExpectHighlighted(*Form().Text3);
    EXPECT_EQ(FocusName(), continuar);
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
    const std::string before = Shown();
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

#include "activities/powers10/screen/FrmUnidad.h"

#include "common/screen/CommandButton.h"
#include "common/screen/TextBox.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/RunTimeErrorsOf.h"
#include "tests/support/Shown.h"

#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

const QString prompt1 = QStringLiteral("Introduzca el primer factor de la multiplicación:");
const QString prompt2 = QStringLiteral("Introduzca el segundo factor de la multiplicación:");
const QString title1 = QStringLiteral("Insertar factor 1");
const QString title2 = QStringLiteral("Insertar factor 2");

std::string lineOf(const FrmUnidad& form)
{
    std::string line;
    for (const TextBox* box : form.TBDatos) {
        line += box->Text();
    }
    return line;
}

std::string lineOf(const PowersOfTen& exercise)
{
    return exercise.Factor1Text() + exercise.Sign + exercise.Factor2Text() + "=";
}

class FrmUnidadTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ShowAndActivate(form_);
        expected_.NewPowerOfTenExercise();
    }

    std::string line() const { return lineOf(form_); }
    std::string answer() const { return form_.TBRespuesta->Text(); }
    std::string verdict() const { return form_.TBResultado->Text(); }

    // The line that the exercise of a core with the same seed is written in.
    std::string expectedLine() const { return lineOf(expected_); }

    void continueOnce()
    {
        Click(form_, QStringLiteral("Command2(0)"));
        expected_.NewPowerOfTenExercise();
    }

    void continueUntil(const std::string& sign)
    {
        while (expected_.Sign != sign) {
            continueOnce();
        }
        ASSERT_EQ(form_.TBDatos[1]->Text(), sign);
    }

    static void enterFactor1(const char* typed)
    {
        ExpectInput(title1, prompt1, QString::fromLatin1(typed));
        Press(Qt::Key_F2);
    }

    static void enterFactor2(const char* typed)
    {
        ExpectInput(title2, prompt2, QString::fromLatin1(typed));
        Press(Qt::Key_F3);
    }

    void typeRightAnswer() { Type(QString::fromStdString(expected_.Solution())); }

    FixedClock clock_;
    FrmUnidad form_ { clock_ };
    SeededRandom random_ { 37230 };
    PowersOfTen expected_ { random_ };
};

TEST_F(FrmUnidadTest, OpensWithAnExerciseAndTheFocusInTheAnswer)
{
    EXPECT_EQ(line(), expectedLine());
    EXPECT_EQ(answer(), "");
    EXPECT_EQ(verdict(), "");
    EXPECT_EQ(FocusName(), "TBRespuesta");
    for (const TextBox* box : form_.TBDatos) {
        EXPECT_TRUE(IsWhollySelected(*box)) << box->Text();
    }
}

TEST_F(FrmUnidadTest, EnterChecksARightAnswer)
{
    typeRightAnswer();
    EXPECT_EQ(answer(), expected_.Solution()) << "written from left to right";
    Press(Qt::Key_Return);
    EXPECT_EQ(answer(), expected_.Solution()) << "Enter itself is not written";
    EXPECT_EQ(verdict(), "Resultado correcto ");
    EXPECT_TRUE(IsWhollySelected(*form_.TBResultado));
    EXPECT_EQ(FocusName(), "Command2(0)");
}

TEST_F(FrmUnidadTest, EnterChecksAWrongAnswer)
{
    Type(QStringLiteral("123456"));
    Press(Qt::Key_Enter);
    EXPECT_EQ(answer(), "123456");
    EXPECT_EQ(verdict(), "Resultado incorrecto ");
    EXPECT_TRUE(IsWhollySelected(*form_.TBResultado));
    EXPECT_EQ(FocusName(), "TBRespuesta");
}

TEST_F(FrmUnidadTest, TheBoxItselfNeverGetsTheEnterThatChecks)
{
    int enters = 0;
    QObject::connect(form_.TBRespuesta, &QLineEdit::returnPressed, &form_, [&enters] { ++enters; });
    for (const int key : { int(Qt::Key_Return), int(Qt::Key_Enter) }) {
        Click(form_, QStringLiteral("Command2(0)"));
        Press(key);
        EXPECT_EQ(verdict(), "Resultado incorrecto ");
    }
    EXPECT_EQ(enters, 0);
}

TEST_F(FrmUnidadTest, TheButtonChecksAsEnterDoes)
{
    Click(form_, QStringLiteral("Command1"));
    EXPECT_EQ(verdict(), "Resultado incorrecto ") << "an empty answer is 0";
    EXPECT_EQ(FocusName(), "TBRespuesta");
    typeRightAnswer();
    PressAccessKey(form_, Qt::Key_H, QStringLiteral("Command1"));
    EXPECT_EQ(verdict(), "Resultado correcto ");
    EXPECT_EQ(FocusName(), "Command2(0)");
}

TEST_F(FrmUnidadTest, EveryKeyThatWritesClearsTheVerdictFirst)
{
    for (const int key : { int(Qt::Key_7), int(Qt::Key_Comma), int(Qt::Key_Space), int(Qt::Key_A),
             int(Qt::Key_Backspace), int(Qt::Key_Escape) }) {
        Press(Qt::Key_Return);
        ASSERT_EQ(verdict(), "Resultado incorrecto ") << key;
        Press(key);
        EXPECT_EQ(verdict(), "") << key;
    }
    EXPECT_TRUE(form_.isVisible());
}

TEST_F(FrmUnidadTest, PastingCuttingAndDeletingClearTheVerdictToo)
{
    QGuiApplication::clipboard()->setText(QStringLiteral("12"));
    const struct {
        int Key;
        Qt::KeyboardModifiers Held;
        const char* Answer;
    } strokes[] = {
        { Qt::Key_V, Qt::ControlModifier, "712" },
        { Qt::Key_X, Qt::ControlModifier, "" },
        { Qt::Key_Delete, Qt::NoModifier, "" },
    };
    for (const auto& [key, held, after] : strokes) {
        SCOPED_TRACE(key);
        form_.TBRespuesta->SetText("7");
        Press(Qt::Key_Return);
        ASSERT_EQ(verdict(), "Resultado incorrecto ");
        if (key != Qt::Key_V) {
            form_.TBRespuesta->SelectWholeText();
        }
        Press(key, held);
        EXPECT_EQ(answer(), after);
        EXPECT_EQ(verdict(), "");
    }
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("7"));
}

TEST_F(FrmUnidadTest, KeysThatWriteNothingLeaveTheVerdict)
{
    Type(QStringLiteral("12"));
    Press(Qt::Key_Return);
    for (const int key : { int(Qt::Key_Left), int(Qt::Key_Right), int(Qt::Key_Home) }) {
        Press(key);
        EXPECT_EQ(verdict(), "Resultado incorrecto ");
    }
    EXPECT_EQ(answer(), "12");
}

TEST_F(FrmUnidadTest, ContinuingDrawsTheNextExercise)
{
    Type(QStringLiteral("5"));
    Press(Qt::Key_Return);
    continueOnce();
    EXPECT_EQ(line(), expectedLine());
    EXPECT_EQ(answer(), "");
    EXPECT_EQ(verdict(), "");
    EXPECT_EQ(FocusName(), "TBRespuesta");
    for (const TextBox* box : form_.TBDatos) {
        EXPECT_TRUE(IsWhollySelected(*box)) << box->Text();
    }
    typeRightAnswer();
    Press(Qt::Key_Return);
    EXPECT_EQ(verdict(), "Resultado correcto ");
}

TEST_F(FrmUnidadTest, ClearingClearsTheAnswerAlone)
{
    Type(QStringLiteral("5"));
    Press(Qt::Key_Return);
    Click(form_, QStringLiteral("Command2(1)"));
    EXPECT_EQ(answer(), "");
    EXPECT_EQ(verdict(), "Resultado incorrecto ");
    EXPECT_EQ(line(), expectedLine());
    EXPECT_EQ(FocusName(), "TBRespuesta");
}

TEST_F(FrmUnidadTest, TheSolutionIsWrittenHighlightedAndIsRight)
{
    Type(QStringLiteral("5"));
    Press(Qt::Key_Return);
    Click(form_, QStringLiteral("Command2(2)"));
    EXPECT_EQ(answer(), expected_.Solution());
    EXPECT_TRUE(IsWhollySelected(*form_.TBRespuesta));
    EXPECT_EQ(verdict(), "Resultado incorrecto ") << "the verdict stays";
    EXPECT_EQ(FocusName(), "Command2(0)");
    Click(form_, QStringLiteral("Command1"));
    EXPECT_EQ(verdict(), "Resultado correcto ");
}

TEST_F(FrmUnidadTest, AHeldEnterChecksOnceAndDoesNotContinue)
{
    typeRightAnswer();
    HoldDown(Qt::Key_Return);
    for (int i = 0; i < 10; ++i) {
        Repeat(Qt::Key_Return);
    }
    LetGo(Qt::Key_Return);
    EXPECT_EQ(verdict(), "Resultado correcto ");
    EXPECT_EQ(line(), expectedLine());
}

TEST_F(FrmUnidadTest, ASecondEnterContinuesAfterARightAnswer)
{
    for (int exercise = 0; exercise < 3; ++exercise) {
        typeRightAnswer();
        Press(Qt::Key_Return);
        EXPECT_EQ(verdict(), "Resultado correcto ");
        Press(Qt::Key_Return);
        expected_.NewPowerOfTenExercise();
        EXPECT_EQ(line(), expectedLine());
        EXPECT_EQ(answer(), "");
        EXPECT_EQ(verdict(), "");
        EXPECT_EQ(FocusName(), "TBRespuesta");
    }
}

TEST_F(FrmUnidadTest, TheTabKeyGoesThroughTheWindowAsTheEyeDoes)
{
    std::vector<std::string> sequence;
    for (int i = 0; i < 11; ++i) {
        sequence.push_back(FocusName());
        Press(Qt::Key_Tab);
    }
    EXPECT_EQ(sequence,
        (std::vector<std::string> { "TBRespuesta", "Command1", "TBResultado", "Command2(0)", "Command2(1)",
            "Command2(2)", "TbInstruc", "TBDatos(0)", "TBDatos(1)", "TBDatos(2)", "TBDatos(3)" }));
    EXPECT_EQ(FocusName(), "TBRespuesta");
}

TEST_F(FrmUnidadTest, OnlyTheAnswerCanBeTypedInto)
{
    const std::string before = line();
    for (const char* name : { "TbInstruc", "TBDatos(0)", "TBDatos(1)", "TBDatos(2)", "TBDatos(3)", "TBResultado" }) {
        Click(form_, QString::fromLatin1(name));
        Type(QStringLiteral("7"));
        Press(Qt::Key_Backspace);
    }
    EXPECT_EQ(form_.TbInstruc->Text(), "Resuelve la operación");
    EXPECT_EQ(line(), before);
    EXPECT_EQ(verdict(), "");
    EXPECT_EQ(answer(), "");
}

// ------------------------------------------------------------------------------------------------------------ options

TEST_F(FrmUnidadTest, ChoosingDigitsDrawsSuchNumbersAndMovesNoMark)
{
    for (const int index : { 3, 0, 2, 1, 0 }) {
        Type(QStringLiteral("5"));
        Press(Qt::Key_Return);
        Choose(form_, QStringLiteral("MnuOpcCi1Lis(%1)").arg(index));
        expected_.Digits1 = index + 1;
        expected_.NewPowerOfTenExercise();
        EXPECT_EQ(line(), expectedLine());
        EXPECT_EQ(answer(), "");
        EXPECT_EQ(verdict(), "");
        EXPECT_EQ(CheckedItems(*form_.MnuOpcCi1), std::vector { 1 });
        EXPECT_EQ(CheckedItems(*form_.MnuOpcCi2), std::vector { 2 });
        for (int i = 0; i < 20; ++i) {
            continueOnce();
            ASSERT_EQ(line(), expectedLine());
        }
    }
}

TEST_F(FrmUnidadTest, ChoosingDigitsLeavesTheFocusWhereItIs)
{
    for (const char* name : { "TBRespuesta", "Command1", "Command2(0)" }) {
        while (FocusName() != name) {
            Press(Qt::Key_Tab);
        }
        Choose(form_, QStringLiteral("MnuOpcCi1Lis(2)"));
        EXPECT_EQ(FocusName(), name);
    }
}

TEST_F(FrmUnidadTest, ChoosingDigitsOfThePowerDoesNothing)
{
    Type(QStringLiteral("5"));
    Press(Qt::Key_Return);
    for (int index = 0; index < 4; ++index) {
        Choose(form_, QStringLiteral("MnuOpcCi2Lis(%1)").arg(index));
        EXPECT_EQ(line(), expectedLine());
        EXPECT_EQ(answer(), "5");
        EXPECT_EQ(verdict(), "Resultado incorrecto ");
        EXPECT_EQ(CheckedItems(*form_.MnuOpcCi1), std::vector { 1 });
        EXPECT_EQ(CheckedItems(*form_.MnuOpcCi2), std::vector { 2 });
    }
    std::set<std::string> powers;
    for (int i = 0; i < 60; ++i) {
        Click(form_, QStringLiteral("Command2(0)"));
        powers.insert(form_.TBDatos[2]->Text());
    }
    EXPECT_EQ(powers, (std::set<std::string> { "10", "100", "1000" }));
}

TEST_F(FrmUnidadTest, TheExitClosesTheWindow)
{
    Choose(form_, QStringLiteral("MnuOpcSal"));
    EXPECT_FALSE(form_.isVisible());
}

// ------------------------------------------------------------------------------------------------------ typed factors

TEST_F(FrmUnidadTest, TypedFactorsDoNotShowButCount)
{
    for (const auto& [sign, solution] : { std::pair { " × ", "10" }, { " ÷ ", "0,625" }, { " × ", "10" } }) {
        SCOPED_TRACE(sign);
        continueUntil(sign);
        Type(QStringLiteral("5"));
        Press(Qt::Key_Return);
        enterFactor1("2,5");
        enterFactor2("4");
        EXPECT_EQ(line(), expectedLine());
        EXPECT_EQ(answer(), "5");
        EXPECT_EQ(verdict(), "Resultado incorrecto ");

        Click(form_, QStringLiteral("Command2(1)"));
        Type(QString::fromLatin1(solution));
        Press(Qt::Key_Return);
        EXPECT_EQ(verdict(), "Resultado correcto ");
        Click(form_, QStringLiteral("Command2(1)"));
        Click(form_, QStringLiteral("Command2(2)"));
        EXPECT_EQ(answer(), solution);
    }
}

TEST_F(FrmUnidadTest, ATypedFactorMovesNeitherFocusNorHighlight)
{
    Type(QStringLiteral("5"));
    Press(Qt::Key_Return);
    for (const auto enterFactor : { &FrmUnidadTest::enterFactor1, &FrmUnidadTest::enterFactor2 }) {
        enterFactor("4");
        ShowAndActivate(form_);
        for (const TextBox* box : form_.TBDatos) {
            EXPECT_TRUE(IsWhollySelected(*box)) << box->Text();
        }
        EXPECT_TRUE(IsWhollySelected(*form_.TBResultado));
        EXPECT_EQ(FocusName(), "TBRespuesta");
        EXPECT_EQ(form_.TBRespuesta->CaretPosition(), 1);
    }
    PressAccessKey(form_, Qt::Key_V, QStringLiteral("Command2(2)"));
    enterFactor1("4");
    ShowAndActivate(form_);
    EXPECT_TRUE(IsWhollySelected(*form_.TBRespuesta));
    EXPECT_EQ(FocusName(), "Command2(0)");
}

TEST_F(FrmUnidadTest, TheMenuAsksForTheFactorsToo)
{
    for (const auto& [sign, solution] : { std::pair { " × ", "128" }, { " ÷ ", "0,5" } }) {
        continueUntil(sign);
        ExpectInput(title1, prompt1, QStringLiteral("8"));
        Choose(form_, QStringLiteral("MnuOpcIn1"));
        ExpectInput(title2, prompt2, QStringLiteral("16"));
        Choose(form_, QStringLiteral("MnuOpcIn2"));
        Click(form_, QStringLiteral("Command2(2)"));
        EXPECT_EQ(answer(), solution);
    }
}

// A number is written with 15 digits, while the check compares all that it has.
TEST_F(FrmUnidadTest, ASolutionOfMoreThan15DigitsIsWrittenRoundedAndThenJudgedWrong)
{
    continueUntil(" × ");
    enterFactor2("1000");
    const struct {
        const char* Factor1;
        const char* Solution;
        const char* Verdict;
    } cases[] = {
        { "123456789012,345", "123456789012345", "Resultado correcto " },
        { "1234567890123,4567", "1234567890123460", "Resultado incorrecto " },
        { "123,4567890123456", "123456,789012346", "Resultado correcto " }, // rounded by less than 10^-8
    };
    for (const auto& [factor1, solution, expectedVerdict] : cases) {
        SCOPED_TRACE(factor1);
        enterFactor1(factor1);
        Click(form_, QStringLiteral("Command2(2)"));
        EXPECT_EQ(answer(), solution);
        EXPECT_TRUE(IsWhollySelected(*form_.TBRespuesta));
        Click(form_, QStringLiteral("Command1"));
        EXPECT_EQ(verdict(), expectedVerdict);
    }
}

TEST_F(FrmUnidadTest, TheNextExerciseForgetsTypedFactors)
{
    enterFactor1("8");
    continueOnce();
    Click(form_, QStringLiteral("Command2(2)"));
    EXPECT_EQ(line(), expectedLine());
    EXPECT_EQ(answer(), expected_.Solution());
}

// What reaches the application when a person types this as a factor of 3,8 ÷ 10, or leaves the input box by "Cancelar".
template <typename Expect>
std::vector<RunTimeError> errorsOfEntering(int factor, Expect expectInput)
{
    return RunTimeErrorsOf([factor, expectInput] {
        const FixedClock clock;
        FrmUnidad form(clock);
        ShowAndActivate(form);
        EXPECT_EQ(lineOf(form), "3,8 ÷ 10=");
        factor == 1 ? expectInput(title1, prompt1) : expectInput(title2, prompt2);
        Press(factor == 1 ? Qt::Key_F2 : Qt::Key_F3);
    });
}

std::vector<RunTimeError> errorsOfTyping(int factor, const char* typed)
{
    return errorsOfEntering(factor, [typed](const QString& title, const QString& prompt) {
        ExpectInput(title, prompt, QString::fromLatin1(typed));
    });
}

void expectOne(RunTimeError::Kind kind, const std::vector<RunTimeError>& errors)
{
    ASSERT_EQ(errors.size(), 1U);
    EXPECT_EQ(errors[0].ErrorKind(), kind);
}

TEST(FrmUnidadFactorEntry, WhatIsNoNumberEndsTheProgram)
{
    for (const char* typed : { "", "  ", "hola", "1,2,3" }) {
        SCOPED_TRACE(typed);
        expectOne(RunTimeError::Kind::TypeMismatch, errorsOfTyping(1, typed));
        expectOne(RunTimeError::Kind::TypeMismatch, errorsOfTyping(2, typed));
    }
}

TEST(FrmUnidadFactorEntry, CancellingEndsTheProgram)
{
    for (const int factor : { 1, 2 }) {
        expectOne(
            RunTimeError::Kind::TypeMismatch, errorsOfEntering(factor, [](const QString& title, const QString& prompt) {
                ExpectInputCancelled(title, prompt, QStringLiteral("12"));
            }));
    }
}

TEST(FrmUnidadFactorEntry, ADivisionByZeroEndsTheProgram)
{
    expectOne(RunTimeError::Kind::InvalidArgument, errorsOfTyping(2, "0"));
}

TEST(FrmUnidadFactorEntry, AResultThatIsTooLargeEndsTheProgram)
{
    expectOne(RunTimeError::Kind::Overflow, errorsOfTyping(1, "1e400"));
    expectOne(RunTimeError::Kind::Overflow, errorsOfTyping(2, "1e-308"));
}

// ---------------------------------------------------------------------------------------------------------- lifecycle

TEST_F(FrmUnidadTest, TheNextOpeningHasTwoDigitNumbersAgain)
{
    Choose(form_, QStringLiteral("MnuOpcCi1Lis(3)"));
    form_.close();
    FrmUnidad again(clock_);
    ShowAndActivate(again);
    EXPECT_EQ(lineOf(again), expectedLine());
}

TEST_F(FrmUnidadTest, TheFractionOfTheSecondIsPartOfTheSeed)
{
    std::set<std::string> lines;
    for (const double fraction : { 0.0, 0.25, 0.5, 0.75 }) {
        const FixedClock clock({ 10, 20, 30, 37230 + fraction });
        const FrmUnidad form(clock);
        SeededRandom random(37230 + fraction);
        PowersOfTen expected(random);
        expected.NewPowerOfTenExercise();
        EXPECT_EQ(lineOf(form), lineOf(expected));
        lines.insert(lineOf(form));
    }
    EXPECT_GT(lines.size(), 1U);
}

} // namespace

} // namespace numbrela

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
#include <tuple>
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
    return exercise.Factor1Text() + exercise.Sign() + exercise.Factor2Text() + "=";
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

    void expectFreshExercise() const
    {
        EXPECT_EQ(line(), expectedLine());
        EXPECT_EQ(answer(), "");
        EXPECT_EQ(verdict(), "");
        EXPECT_EQ(FocusName(), "TBRespuesta");
        for (const TextBox* box : form_.TBDatos) {
            EXPECT_TRUE(IsWhollySelected(*box)) << box->Text();
        }
    }

    void continueOnce()
    {
        Click(form_, QStringLiteral("Command2(0)"));
        expected_.NewPowerOfTenExercise();
    }

    void continueUntil(const std::string& sign)
    {
        while (expected_.Sign() != sign) {
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

TEST_F(FrmUnidadTest, OpensWithAnExerciseOfWhichEnterChecksARightAnswerAndASecondOneContinues)
{
    expectFreshExercise();
    for (int exercise = 0; exercise < 3; ++exercise) {
        typeRightAnswer();
        EXPECT_EQ(answer(), expected_.Solution()) << "written from left to right";
        HoldDown(Qt::Key_Return);
        for (int i = 0; i < 10; ++i) {
            Repeat(Qt::Key_Return);
        }
        LetGo(Qt::Key_Return);
        EXPECT_EQ(answer(), expected_.Solution()) << "Enter itself is not written, and held it is one Enter";
        EXPECT_EQ(verdict(), "Resultado correcto ");
        EXPECT_TRUE(IsWhollySelected(*form_.TBResultado));
        EXPECT_EQ(FocusName(), "Command2(0)");
        EXPECT_EQ(line(), expectedLine());

        Press(Qt::Key_Return);
        expected_.NewPowerOfTenExercise();
        expectFreshExercise();
    }
}

TEST_F(FrmUnidadTest, EnterChecksAWrongAnswer)
{
    int enters = 0;
    QObject::connect(form_.TBRespuesta, &QLineEdit::returnPressed, &form_, [&enters] { ++enters; });
    for (const int key : { Qt::Key_Return, Qt::Key_Enter }) {
        Type(QStringLiteral("123456"));
        Press(key);
        EXPECT_EQ(answer(), "123456");
        EXPECT_EQ(verdict(), "Resultado incorrecto ");
        EXPECT_TRUE(IsWhollySelected(*form_.TBResultado));
        EXPECT_EQ(FocusName(), "TBRespuesta");
        continueOnce();
        expectFreshExercise();
    }
    EXPECT_EQ(enters, 0) << "the box itself never gets the Enter that checks";
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

TEST_F(FrmUnidadTest, WhatWritesClearsTheVerdictAndNothingElseDoes)
{
    QGuiApplication::clipboard()->setText(QStringLiteral("12"));
    const std::tuple<int, Qt::KeyboardModifiers, const char*, bool> strokes[] = {
        // on a highlighted 7
        { Qt::Key_8, {}, "8", true },
        { Qt::Key_Comma, {}, ",", true },
        { Qt::Key_Space, {}, " ", true },
        { Qt::Key_A, {}, "a", true },
        { Qt::Key_Backspace, {}, "", true },
        { Qt::Key_Escape, {}, "7", true },
        { Qt::Key_V, Qt::ControlModifier, "12", true },
        { Qt::Key_X, Qt::ControlModifier, "", true },
        { Qt::Key_Delete, {}, "", true },
        { Qt::Key_Left, {}, "7", false },
        { Qt::Key_Right, {}, "7", false },
        { Qt::Key_Home, {}, "7", false },
    };
    for (const auto& [key, held, after, clears] : strokes) {
        SCOPED_TRACE(key);
        form_.TBRespuesta->SetText("7");
        Press(Qt::Key_Return);
        ASSERT_EQ(verdict(), "Resultado incorrecto ");
        form_.TBRespuesta->SelectWholeText();
        Press(key, held);
        EXPECT_EQ(answer(), after);
        EXPECT_EQ(verdict(), clears ? "" : "Resultado incorrecto ");
    }
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("7"));
    EXPECT_TRUE(form_.isVisible());
}

TEST_F(FrmUnidadTest, ClearingAndTheSolutionLeaveTheVerdict)
{
    Type(QStringLiteral("5"));
    Press(Qt::Key_Return);
    Click(form_, QStringLiteral("Command2(1)"));
    EXPECT_EQ(answer(), "");
    EXPECT_EQ(verdict(), "Resultado incorrecto ");
    EXPECT_EQ(line(), expectedLine());
    EXPECT_EQ(FocusName(), "TBRespuesta");

    Click(form_, QStringLiteral("Command2(2)"));
    EXPECT_EQ(answer(), expected_.Solution());
    EXPECT_TRUE(IsWhollySelected(*form_.TBRespuesta));
    EXPECT_EQ(verdict(), "Resultado incorrecto ");
    EXPECT_EQ(FocusName(), "Command2(0)");
    Click(form_, QStringLiteral("Command1"));
    EXPECT_EQ(verdict(), "Resultado correcto ");
}

TEST_F(FrmUnidadTest, ChoosingDigitsDrawsSuchNumbersAndMovesNeitherMarkNorFocus)
{
    const std::pair<int, const char*> choices[]
        = { { 3, "TBRespuesta" }, { 0, "Command1" }, { 2, "Command2(0)" }, { 1, "TBDatos(2)" }, { 0, "TBRespuesta" } };
    for (const auto& [index, focused] : choices) {
        form_.TBRespuesta->SetText("5");
        Click(form_, QStringLiteral("Command1"));
        TabTo(focused);
        Choose(form_, QStringLiteral("MnuOpcCi1Lis(%1)").arg(index));
        expected_.Digits1 = index + 1;
        expected_.NewPowerOfTenExercise();
        EXPECT_EQ(FocusName(), focused);
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
    for (int i = 0; i < 20; ++i) {
        continueOnce();
        ASSERT_EQ(line(), expectedLine()) << "powers up to 1000";
    }
}

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

        continueOnce();
        Click(form_, QStringLiteral("Command2(2)"));
        EXPECT_EQ(answer(), expected_.Solution()) << "the next exercise forgets them";
        Click(form_, QStringLiteral("Command2(1)"));
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

// What reaches the application when a person types this as a factor of 3,8 ÷ 10, or leaves the input box by "Cancelar".
TEST(FrmUnidadFactorEntry, AFactorThatCannotBeTakenEndsTheProgram)
{
    constexpr const char* cancelled = nullptr;
    using Kind = RunTimeError::Kind;
    const std::tuple<int, const char*, Kind> cases[] = { { 1, "", Kind::TypeMismatch },
        { 2, "hola", Kind::TypeMismatch }, { 1, cancelled, Kind::TypeMismatch }, { 2, cancelled, Kind::TypeMismatch },
        { 2, "0", Kind::InvalidArgument }, { 1, "1e400", Kind::Overflow }, { 2, "1e-308", Kind::Overflow } };
    for (const auto& [factor, typed, error] : cases) {
        SCOPED_TRACE(typed == cancelled ? "cancelled" : typed);
        const std::vector<RunTimeError> errors = RunTimeErrorsOf([factor = factor, typed = typed] {
            const FixedClock clock;
            FrmUnidad form(clock);
            ShowAndActivate(form);
            EXPECT_EQ(lineOf(form), "3,8 ÷ 10=");
            const QString& title = factor == 1 ? title1 : title2;
            const QString& prompt = factor == 1 ? prompt1 : prompt2;
            if (typed == cancelled) {
                ExpectInputCancelled(title, prompt, QStringLiteral("12"));
            } else {
                ExpectInput(title, prompt, QString::fromLatin1(typed));
            }
            Press(factor == 1 ? Qt::Key_F2 : Qt::Key_F3);
        });
        ASSERT_EQ(errors.size(), 1U);
        EXPECT_EQ(errors[0].ErrorKind(), error);
    }
}

TEST_F(FrmUnidadTest, TheNextOpeningHasTwoDigitNumbersAgainOfItsFractionOfASecond)
{
    Choose(form_, QStringLiteral("MnuOpcCi1Lis(3)"));
    Choose(form_, QStringLiteral("MnuOpcSal"));
    EXPECT_FALSE(form_.isVisible());
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

#include "activities/multiply/screen/Form4.h"

#include "activities/multiply/screen/Dialog.h"
#include "common/core/NumberText.h"
#include "common/screen/CommandButton.h"
#include "common/screen/OptionMenu.h"
#include "common/screen/TextBox.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/Shown.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <QScreen>

#include <algorithm>
#include <array>

namespace numbrela {

namespace {

using namespace testing;

const QString application = QStringLiteral("Numbrela");
const QString prompt = QStringLiteral("Escriba el nuevo valor:");
const QString firstTitle = QStringLiteral("Introducir primer factor");
const QString secondTitle = QStringLiteral("Introducir segundo factor");

class Form4Test : public ::testing::Test {
protected:
    Form4Test() { ShowAndActivate(form_); }

    static void typeFactor1(const char* text)
    {
        ExpectInput(firstTitle, prompt, QString::fromLatin1(text));
        Press(Qt::Key_F2);
    }
    static void typeFactor2(const char* text)
    {
        ExpectInput(secondTitle, prompt, QString::fromLatin1(text));
        Press(Qt::Key_F3);
    }
    static void typeFactors(const char* factor1, const char* factor2)
    {
        typeFactor1(factor1);
        typeFactor2(factor2);
    }
    void choose(const char* item) { Choose(form_, QString::fromLatin1(item)); }
    void click(const char* control) { Click(form_, QString::fromLatin1(control)); }
    void answer(const char* result)
    {
        form_.TbResultado->SetText(result);
        click("Command1");
    }
    // The control of the window that has the focus as soon as the window has it: the platform without a display does
    // not give it back by itself when a box closes.
    std::string focusName() const { return form_.focusWidget()->objectName().toStdString(); }
    std::string score() const { return form_.tbResultados->Text(); }
    int rowCount() const { return static_cast<int>(form_.TbParcial.size()); }
    std::vector<std::string> rows() const
    {
        std::vector<std::string> texts;
        for (const TextBox* row : form_.TbParcial) {
            texts.push_back(row->Text());
        }
        return texts;
    }
    double product() const
    {
        return *ParseTypedNumber(form_.TbFactor[0]->Text()) * *ParseTypedNumber(form_.TbFactor[1]->Text());
    }

    FixedClock clock_;
    std::unique_ptr<Dialog> tables_;
    Form4 form_ { clock_, tables_ };
};

// ----------------------------------------------------------------------------------------------------------- opening

TEST_F(Form4Test, OpensWithTwoFactorsOfOneDigitAndOneDecimalAndTwoRows)
{
    for (const TextBox* factor : form_.TbFactor) {
        const std::string text = factor->Text();
        ASSERT_EQ(text.size(), 3U);
        EXPECT_NE(text[0], '0');
        EXPECT_EQ(text[1], ',');
        EXPECT_NE(text[2], '0');
        EXPECT_EQ(factor->selectedText().toStdString(), text);
    }
    EXPECT_EQ(rowCount(), 2);
    EXPECT_EQ(focusName(), "TbParcial(0)");
}

TEST_F(Form4Test, TheTimeOfDayDecidesTheFirstExercise)
{
    const FixedClock sameProduct({ 10, 30, 20, 0 });
    const Form4 same(sameProduct, tables_);
    EXPECT_EQ(same.TbFactor[0]->Text(), form_.TbFactor[0]->Text());
    EXPECT_EQ(same.TbFactor[1]->Text(), form_.TbFactor[1]->Text());
    int different = 0;
    for (int second = 0; second < 20; ++second) {
        const FixedClock otherClock({ 10, 20, second, 0 });
        const Form4 other(otherClock, tables_);
        different += other.TbFactor[0]->Text() != form_.TbFactor[0]->Text() ? 1 : 0;
    }
    EXPECT_GT(different, 15);
}

TEST_F(Form4Test, StartsAfreshEachTime)
{
    answer("");
    choose("MnuOpcCi2Lis(4)");
    choose("MnuOpcOcu");
    choose("MnuOpcSal");
    EXPECT_FALSE(form_.isVisible());
    Form4 again(clock_, tables_);
    ShowAndActivate(again);
    EXPECT_EQ(again.tbResultados->Text(), "Ejercicios:  0; Errores:  0");
    EXPECT_EQ(CheckedItems(*again.MnuOpcCi2), std::vector<int> { 0 });
    EXPECT_EQ(again.TbParcial.size(), 2U);
    EXPECT_EQ(again.MnuOpcOcu->text(), QStringLiteral("&Ocultar ceros intermedios (No)"));
}

TEST_F(Form4Test, WorksAnExerciseByKeysAlone)
{
    typeFactors("73,4", "4,6");
    Type(QStringLiteral("4044"));
    Press(Qt::Key_Tab);
    Type(QStringLiteral(" 6392"));
    Press(Qt::Key_Tab);
    Type(QStringLiteral("46,733"));
    EXPECT_EQ(rows(), (std::vector<std::string> { "4404", "2936 " }));
    EXPECT_EQ(form_.TbResultado->Text(), "337,64");
    Press(Qt::Key_Return);
    EXPECT_EQ(form_.Text1->Text(), "Resultado correcto ");
    EXPECT_EQ(focusName(), "Command2(0)");
    EXPECT_EQ(score(), "Ejercicios:  1; Errores:  0");
    Press(Qt::Key_Return);
    EXPECT_EQ(form_.Text1->Text(), "");
    EXPECT_EQ(focusName(), "TbParcial(0)");
}

// ------------------------------------------------------------------------------------------------------------ typing

struct KeyCase {
    int Key;
    Qt::KeyboardModifiers Modifiers;
    bool StepsInRow;
    bool StepsInResult;
};

TEST_F(Form4Test, TheCaretStepsLeftWhenAKeyThatWritesIsLetGo)
{
    const KeyCase cases[] = {
        { Qt::Key_0, {}, true, true },
        { Qt::Key_9, {}, true, true },
        { Qt::Key_0, Qt::KeypadModifier, true, true },
        { Qt::Key_9, Qt::KeypadModifier, true, true },
        { Qt::Key_Comma, {}, true, true },
        { Qt::Key_Space, {}, true, false },
        { Qt::Key_Comma, Qt::KeypadModifier, true, false },
        { Qt::Key_Plus, Qt::KeypadModifier, true, false },
        { Qt::Key_Period, {}, true, false },
        { Qt::Key_Less, {}, true, false },
        { Qt::Key_masculine, {}, true, false },
        { Qt::Key_Asterisk, Qt::ShiftModifier, true, false },
        { Qt::Key_A, {}, true, false },
        { Qt::Key_NumLock, {}, true, false },
        { Qt::Key_Shift, {}, false, false },
        { Qt::Key_Delete, {}, false, false },
        { Qt::Key_Escape, {}, false, false },
        { Qt::Key_Up, {}, false, false },
    };
    for (const auto& [key, modifiers, stepsInRow, stepsInResult] : cases) {
        SCOPED_TRACE(key);
        for (TextBox* box : { form_.TbParcial[0], form_.TbParcial[1], form_.TbResultado }) {
            const bool steps = box == form_.TbResultado ? stepsInResult : stepsInRow;
            for (const int caret : { 3, 0 }) {
                box->setFocus();
                HoldDown(key, modifiers);
                box->SetText("1234");
                box->SetCaretPosition(caret);
                LetGo(key, modifiers);
                EXPECT_EQ(box->CaretPosition(), steps && caret > 0 ? caret - 1 : caret)
                    << box->objectName().toStdString();
            }
        }
    }
}

TEST_F(Form4Test, TheOnlyRowOfAOneDigitFactorIsTheResultAndNoOtherRowIs)
{
    typeFactors("12,5", "8");
    EXPECT_EQ(rowCount(), 1);
    form_.TbParcial[0]->setFocus();
    Type(QStringLiteral("0,001"));
    EXPECT_EQ(form_.TbParcial[0]->Text(), "100,0");
    EXPECT_EQ(form_.TbResultado->Text(), "100,0");
    Press(Qt::Key_Delete);
    EXPECT_EQ(form_.TbResultado->Text(), "00,0");
    Press(Qt::Key_Return);
    EXPECT_EQ(form_.Text1->Text(), "") << "Enter checks nothing in a row";
    click("Command1");
    EXPECT_EQ(form_.Text1->Text(), "resultado incorrecto");

    typeFactors("12,5", "18");
    form_.TbParcial[0]->setFocus();
    Type(QStringLiteral("5"));
    Press(Qt::Key_Tab);
    Type(QStringLiteral("6"));
    EXPECT_EQ(form_.TbResultado->Text(), "");

    choose("MnuOpcOcu");
    typeFactors("7", "30");
    typeFactor1("7");
    ASSERT_EQ(rowCount(), 1) << "the zero of 30 has none";
    form_.TbParcial[0]->setFocus();
    Type(QStringLiteral("12"));
    EXPECT_EQ(form_.TbParcial[0]->Text(), "21");
    EXPECT_EQ(form_.TbResultado->Text(), "");
}

TEST_F(Form4Test, AKeyInAFactorGoesToTheRows)
{
    for (const char* name : { "TbFactor(0)", "TbFactor(1)" }) {
        const std::string before = Find<TextBox>(form_, QString::fromLatin1(name)).Text();
        for (const int key : { Qt::Key_5, Qt::Key_A, Qt::Key_Return, Qt::Key_Backspace }) {
            click(name);
            EXPECT_EQ(focusName(), name);
            Press(key);
            EXPECT_EQ(focusName(), "TbParcial(0)");
            EXPECT_EQ(Find<TextBox>(form_, QString::fromLatin1(name)).Text(), before);
        }
    }
}

// ----------------------------------------------------------------------------------------------------------- options

TEST_F(Form4Test, EachOptionSetsItsOwnDigitsOrDecimalsAndChecksItsItem)
{
    const auto partsOf = [](const TextBox* factor) {
        const std::string text = factor->Text();
        const std::size_t comma = std::min(text.find(','), text.size());
        return std::pair(static_cast<int>(comma), static_cast<int>(text.size() - std::min(comma + 1, text.size())));
    };
    for (int index = 9; index >= 0; --index) {
        Choose(form_, QStringLiteral("MnuOpcCi1Lis(%1)").arg(index));
        Choose(form_, QStringLiteral("MnuOpcCi2Lis(%1)").arg(9 - index));
        Choose(form_, QStringLiteral("MnuOpcDe1Lis(%1)").arg(index % 6));
        Choose(form_, QStringLiteral("MnuOpcDe2Lis(%1)").arg(5 - index % 6));
        EXPECT_EQ(partsOf(form_.TbFactor[0]), std::pair(index + 1, index % 6));
        EXPECT_EQ(partsOf(form_.TbFactor[1]), std::pair(10 - index, 5 - index % 6));
        EXPECT_EQ(CheckedItems(*form_.MnuOpcCi1), std::vector<int> { index });
        EXPECT_EQ(CheckedItems(*form_.MnuOpcCi2), std::vector<int> { 9 - index });
        EXPECT_EQ(CheckedItems(*form_.MnuOpcDe1), std::vector<int> { index % 6 });
        EXPECT_EQ(CheckedItems(*form_.MnuOpcDe2), std::vector<int> { 5 - index % 6 });
        EXPECT_EQ(rowCount(), 10 - index + 5 - index % 6);
    }
}

TEST_F(Form4Test, AnOptionDrawsAnewAndLeavesTheScoreAlone)
{
    typeFactors("7", "8");
    answer("56");
    EXPECT_EQ(score(), "Ejercicios:  1; Errores:  0");
    form_.TbParcial[0]->SetText("5");
    choose("MnuOpcCi1Lis(2)");
    EXPECT_EQ(form_.Text1->Text(), "");
    EXPECT_EQ(form_.TbResultado->Text(), "");
    EXPECT_EQ(form_.TbParcial[0]->Text(), "");
    EXPECT_EQ(form_.TbFactor[0]->selectedText().toStdString(), form_.TbFactor[0]->Text());
    answer("");
    EXPECT_EQ(score(), "Ejercicios:  1; Errores:  0") << "not scored before the next \"Continuar\"";
    click("Command2(0)");
    answer("");
    EXPECT_EQ(score(), "Ejercicios:  2; Errores:  1");
}

constexpr std::array<const char*, 6> options { "MnuOpcCi1Lis(2)", "MnuOpcDe1Lis(2)", "MnuOpcCi2Lis(1)",
    "MnuOpcDe2Lis(1)", "MnuOpcSelLis(0)", "MnuOpcOcu" };

TEST_F(Form4Test, EveryOptionDrawsAnewAtOnceAndNeitherItNorATypedFactorMakesAnExerciseScoredAgain)
{
    for (const char* option : options) {
        SCOPED_TRACE(option);
        click("Command2(0)");
        click("Command2(2)");
        const std::string scoreBefore = score();
        const std::string before = form_.TbFactor[0]->Text() + " x " + form_.TbFactor[1]->Text();
        answer("");
        form_.TbParcial[0]->SetText("5");
        choose(option);
        EXPECT_EQ(form_.Text1->Text(), "");
        EXPECT_EQ(form_.TbParcial[0]->Text(), "");
        EXPECT_NE(form_.TbFactor[0]->Text() + " x " + form_.TbFactor[1]->Text(), before);
        answer("");
        EXPECT_EQ(score(), scoreBefore);
    }
    EXPECT_EQ(form_.MnuOpcOcu->text(), QStringLiteral("&Ocultar ceros intermedios (Si)"));
    choose("MnuOpcOcu");
    EXPECT_EQ(form_.MnuOpcOcu->text(), QStringLiteral("&Ocultar ceros intermedios (no)"));

    typeFactors("7", "8");
    answer("55");
    answer("56");
    EXPECT_EQ(score(), "Ejercicios:  0; Errores:  0");
    click("Command2(0)");
    typeFactors("7", "8");
    answer("55");
    EXPECT_EQ(score(), "Ejercicios:  1; Errores:  1");
}

TEST_F(Form4Test, ARowThatGoesPassesTheFocusOn)
{
    choose("MnuOpcCi2Lis(4)");
    form_.TbParcial[5]->setFocus();
    choose("MnuOpcCi2Lis(0)");
    EXPECT_EQ(focusName(), "TbParcial(0)");

    form_.TbResultado->setFocus();
    choose("MnuOpcDe2Lis(0)");
    EXPECT_EQ(focusName(), "TbResultado") << "the row that goes never had it";
}

// ------------------------------------------------------------------------------------------------------ hidden zeros

TEST_F(Form4Test, TheRowsAreCountedInTheFactorShownBefore)
{
    typeFactor2("1002");
    EXPECT_EQ(rowCount(), 4);
    choose("MnuOpcOcu");
    EXPECT_EQ(rowCount(), 2) << "of four digits, less the two zeros of 1002";
    EXPECT_EQ(form_.TbFactor[1]->Text().size(), 4U);

    typeFactor2("12345");
    const auto zerosBefore = [this] {
        const std::string text = form_.TbFactor[1]->Text();
        return static_cast<int>(std::count(text.begin(), text.end(), '0'));
    };
    typeFactor2("20305");
    EXPECT_EQ(rowCount(), 5) << "12345 has no zeros";
    typeFactor1("6");
    EXPECT_EQ(rowCount(), 3) << "now 20305 is on the screen";
    click("Command2(0)");
    EXPECT_EQ(rowCount(), 3);
    for (int i = 0; i < 10; ++i) {
        const int zeros = zerosBefore();
        click("Command2(0)");
        EXPECT_EQ(rowCount(), 5 - zeros);
    }
    choose("MnuOpcOcu");
    EXPECT_EQ(rowCount(), 5);
}

TEST_F(Form4Test, ACountBelowOneLeavesTheFirstRowAndSaysSo)
{
    typeFactors("6", "7");
    choose("MnuOpcOcu");
    typeFactor2("1000");
    EXPECT_EQ(rowCount(), 4);
    form_.TbParcial[0]->SetText("55");
    form_.TbResultado->SetText("66");
    ExpectMessage(application, QStringLiteral("desajuste"));
    choose("MnuOpcCi2Lis(0)");
    EXPECT_EQ(PendingBoxes(), 0);
    EXPECT_EQ(rowCount(), 1);
    EXPECT_EQ(form_.TbParcial[0]->Text(), "55") << "the layout goes through no row, so none is cleared";
    EXPECT_EQ(form_.TbResultado->Text(), "");
    EXPECT_EQ(form_.Area().RectOf(form_.TbResultado).Top, 2100);
    EXPECT_EQ(form_.TbFactor[1]->Text().size(), 1U);

    click("Command2(0)");
    EXPECT_EQ(rowCount(), 1);
    EXPECT_EQ(form_.TbParcial[0]->Text(), "");

    typeFactor2("100");
    ExpectMessage(application, QStringLiteral("desajuste"));
    choose("MnuOpcCi2Lis(1)"); // two digits, less the two zeros of 100
    EXPECT_EQ(PendingBoxes(), 0);
    EXPECT_EQ(rowCount(), 1);
}

// ---------------------------------------------------------------------------------------------------------- checking

TEST_F(Form4Test, SaysAndCountsWhetherAResultIsRightAndARightOneOnce)
{
    const struct {
        const char* Result;
        const char* Verdict;
        const char* Score;
    } answers[] = {
        { "0,26", "resultado incorrecto", "Ejercicios:  1; Errores:  1" },
        { "0,26", " resultado incorrecto", "Ejercicios:  2; Errores:  2" },
        { "", "resultado incorrecto", "Ejercicios:  3; Errores:  3" },
        { "0,250", "Resultado correcto ", "Ejercicios:  4; Errores:  3" },
        { "0,25", " Resultado correcto ", "Ejercicios:  4; Errores:  3" },
        { "0,25", "Resultado correcto ", "Ejercicios:  4; Errores:  3" },
        { "0,26", "resultado incorrecto", "Ejercicios:  4; Errores:  3" },
    };
    typeFactors("0,5", "0,5");
    for (const auto& [result, verdict, scored] : answers) {
        answer(result);
        EXPECT_EQ(form_.Text1->Text(), verdict);
        EXPECT_EQ(score(), scored);
        EXPECT_EQ(
            focusName(), std::string(verdict).find("incorrecto") == std::string::npos ? "Command2(0)" : "TbParcial(0)");
        EXPECT_EQ(form_.TbResultado->Text(), result) << "what was written stays";
    }
}

// The text is at the left of its box, in the usual size, clear of the frame.
TEST_F(Form4Test, ARepeatedVerdictIsSeenToMoveByItsBlank)
{
    typeFactors("0,5", "0,5");
    for (const char* result : { "0,26", "0,25" }) {
        answer(result);
        const QFont font = form_.Text1->font();
        answer(result);
        EXPECT_EQ(form_.Text1->Text().front(), ' ');
        EXPECT_EQ(form_.Text1->font(), font);
        EXPECT_TRUE(form_.Text1->alignment().testFlag(Qt::AlignLeft));
        EXPECT_GE(form_.Text1->textMargins().left(), 8) << "pixels";
    }
}

TEST_F(Form4Test, AResultTooLargeToReadIsRefusedAndCountsNothing)
{
    answer("");
    ExpectMessage(application, QStringLiteral("el dato introducido  no es válido"));
    answer("1e400");
    EXPECT_EQ(PendingBoxes(), 0);
    EXPECT_EQ(score(), "Ejercicios:  1; Errores:  1");
    EXPECT_EQ(form_.Text1->Text(), "resultado incorrecto");
    EXPECT_EQ(focusName(), "TbResultado");
    EXPECT_EQ(form_.TbResultado->Text(), "1e400");
}

TEST_F(Form4Test, TheThousandthExerciseHasNoRoomInTheScoreLine)
{
    for (int i = 0; i < 999; ++i) {
        form_.Command1_Click();
    }
    EXPECT_EQ(score(), "Ejercicios:999; Errores:999");
    for (int i = 0; i < 2; ++i) {
        ExpectMessage(application, QStringLiteral("el dato introducido  no es válido"));
        click("Command1");
        EXPECT_EQ(score(), "Ejercicios:999; Errores:999");
        EXPECT_EQ(focusName(), "TbResultado");
    }
}

// ----------------------------------------------------------------------------------------------------------- buttons

TEST_F(Form4Test, ContinuingDrawsTheNextExercise)
{
    typeFactors("7", "8");
    answer("56");
    form_.TbParcial[0]->SetText("56");
    click("Command2(0)");
    EXPECT_EQ(form_.Text1->Text(), "");
    EXPECT_EQ(rows(), std::vector<std::string> { "" });
    EXPECT_EQ(form_.TbResultado->Text(), "");
    EXPECT_EQ(focusName(), "TbParcial(0)");
    form_.TbResultado->SetText(PlainDecimalText(product()));
    click("Command1");
    EXPECT_EQ(score(), "Ejercicios:  2; Errores:  0");
}

TEST_F(Form4Test, ClearingEmptiesRowsAndResultAlone)
{
    typeFactors("7", "123");
    answer("5");
    for (TextBox* row : form_.TbParcial) {
        row->SetText("12");
    }
    click("Command2(1)");
    EXPECT_EQ(rows(), (std::vector<std::string> { "", "", "" }));
    EXPECT_EQ(form_.TbResultado->Text(), "");
    EXPECT_EQ(focusName(), "TbParcial(0)");
    EXPECT_EQ(form_.Text1->Text(), "resultado incorrecto");
    EXPECT_EQ(form_.TbFactor[1]->Text(), "123");
    answer("861");
    EXPECT_EQ(score(), "Ejercicios:  2; Errores:  1") << "still scored";
    click("Command2(1)");
    EXPECT_EQ(form_.Text1->Text(), "Resultado correcto ");
    answer("");
    EXPECT_EQ(score(), "Ejercicios:  2; Errores:  1") << "not scored again";
}

TEST_F(Form4Test, TheSolutionFillsRowsAndResultAndEndsTheScoring)
{
    typeFactors("7", "123");
    answer("5");
    click("Command2(2)");
    EXPECT_EQ(rows(), (std::vector<std::string> { "21", "14 ", "7  " }));
    EXPECT_EQ(form_.TbResultado->Text(), "861");
    EXPECT_TRUE(IsWhollySelected(*form_.TbResultado));
    EXPECT_EQ(focusName(), "Command2(0)");
    EXPECT_EQ(form_.Text1->Text(), "resultado incorrecto");
    answer("862");
    answer("861");
    EXPECT_EQ(score(), "Ejercicios:  1; Errores:  1");

    typeFactors("1234,5", "8");
    click("Command2(2)");
    EXPECT_EQ(rows(), std::vector<std::string> { "98760" });
    EXPECT_EQ(form_.TbResultado->Text(), "9.876,0") << "a single row leaves the result its own form";
    EXPECT_TRUE(IsWhollySelected(*form_.TbResultado));
}

TEST_F(Form4Test, TheSolutionFillsTheRowsThatThereAre)
{
    typeFactors("7", "1002");
    choose("MnuOpcOcu");
    typeFactors("7", "1002");
    typeFactor2("2345");
    ASSERT_EQ(rowCount(), 2) << "1002 has two zeros";
    click("Command2(2)");
    EXPECT_EQ(rows(), (std::vector<std::string> { "35", "28 " })) << "two rows more are left out";
    EXPECT_EQ(form_.TbResultado->Text(), "16.415");

    typeFactor2("12,05");
    ASSERT_EQ(rowCount(), 4);
    form_.TbParcial[3]->SetText("9");
    click("Command2(2)");
    EXPECT_EQ(rows(), (std::vector<std::string> { "35", "7   ", "", "9" })) << "rows without a digit stay as they are";
    EXPECT_EQ(form_.TbResultado->Text(), "84,35");
}

// ------------------------------------------------------------------------------------------------------ factor entry

TEST_F(Form4Test, TakesFactorsThatThePupilTypes)
{
    answer("");
    form_.TbParcial[0]->SetText("5");
    form_.TbResultado->setFocus();
    typeFactor1("12,05");
    EXPECT_EQ(focusName(), "TbResultado");
    EXPECT_EQ(form_.TbFactor[0]->Text(), "12,05");
    EXPECT_EQ(form_.TbFactor[0]->selectedText(), QStringLiteral("12,05"));
    EXPECT_EQ(form_.TbFactor[1]->selectedText().toStdString(), form_.TbFactor[1]->Text());
    EXPECT_EQ(form_.TbParcial[0]->Text(), "");
    EXPECT_EQ(CheckedItems(*form_.MnuOpcCi1), std::vector<int> { 1 });
    EXPECT_EQ(CheckedItems(*form_.MnuOpcDe1), std::vector<int> { 2 });
    EXPECT_EQ(CheckedItems(*form_.MnuOpcCi2), std::vector<int> { 0 });
    EXPECT_EQ(CheckedItems(*form_.MnuOpcDe2), std::vector<int> { 1 });
    EXPECT_EQ(form_.Text1->Text(), "resultado incorrecto") << "no new exercise is drawn";
    EXPECT_EQ(score(), "Ejercicios:  1; Errores:  1");

    typeFactor2("100,5");
    EXPECT_EQ(CheckedItems(*form_.MnuOpcCi2), std::vector<int> { 2 });
    EXPECT_EQ(CheckedItems(*form_.MnuOpcDe2), std::vector<int> { 1 });
    EXPECT_EQ(rowCount(), 4);
    answer("1211,025");
    EXPECT_EQ(form_.Text1->Text(), "Resultado correcto ");
}

TEST_F(Form4Test, RefusesAFactorThatIsNoNumberOrTooLarge)
{
    typeFactors("2,5", "12");
    form_.TbParcial[0]->SetText("5");
    for (const char* typed : { "", "hola", "1,2,3", "1e400" }) {
        ExpectInput(firstTitle, prompt, QString::fromLatin1(typed));
        ExpectMessage(application, QStringLiteral("El dato introducido no es válido"));
        Press(Qt::Key_F2);
    }
    ExpectInputCancelled(secondTitle, prompt, QStringLiteral("77"));
    ExpectMessage(application, QStringLiteral("El dato introducido no es válido"));
    Press(Qt::Key_F3);
    ExpectInput(secondTitle, prompt, QStringLiteral("1e308"));
    ExpectMessage(application, QStringLiteral("el producto de los dos factores produce un resultado demasiado grande"));
    Press(Qt::Key_F3);
    EXPECT_EQ(form_.TbFactor[0]->Text(), "2,5");
    EXPECT_EQ(form_.TbFactor[1]->Text(), "12");
    EXPECT_EQ(form_.TbParcial[0]->Text(), "5");
    EXPECT_EQ(CheckedItems(*form_.MnuOpcCi2), std::vector<int> { 1 });
}

struct OddFactor {
    const char* Typed;
    const char* Shown;
    int Rows;
    std::vector<int> CheckedDigits;
    std::vector<int> CheckedDecimals;
};

TEST_F(Form4Test, AFactorBeyondTheMenusLeavesTheirListsUnchecked)
{
    const OddFactor cases[] = {
        { "12345678901234567890", "12345678901234600000", 20, {}, { 0 } },
        { "12345678901", "12345678901", 11, {}, { 0 } },
        { "0,123456789", "0,123456789", 10, { 0 }, {} },
        { "-12", "-12", 3, { 2 }, { 0 } },
        { "-1234567890", "-1234567890", 11, {}, { 0 } },
        { "-0,5", "-0,5", 3, { 1 }, { 1 } },
        { "007,50", "7,5", 2, { 0 }, { 1 } },
        { "1e30", "1000000000000000000000000000000", 31, {}, { 0 } },
        { "1e60", "1000000000000000000000000000000000000000000000000000000000000", 61, {}, { 0 } },
    };
    for (const auto& [typed, shown, rowsWanted, digits, decimals] : cases) {
        SCOPED_TRACE(typed);
        typeFactor1(typed);
        EXPECT_EQ(form_.TbFactor[0]->Text(), shown);
        EXPECT_EQ(CheckedItems(*form_.MnuOpcCi1), digits);
        EXPECT_EQ(CheckedItems(*form_.MnuOpcDe1), decimals);
        typeFactors("3", typed);
        EXPECT_EQ(form_.TbFactor[1]->Text(), shown);
        EXPECT_EQ(CheckedItems(*form_.MnuOpcCi2), digits);
        EXPECT_EQ(CheckedItems(*form_.MnuOpcDe2), decimals);
        EXPECT_EQ(rowCount(), rowsWanted);
        click("Command2(2)");
        EXPECT_NE(form_.TbParcial.back()->Text(), "");
        QCoreApplication::processEvents();
        EXPECT_TRUE(form_.rect().contains(form_.TbResultado->geometry()));
        EXPECT_LE(form_.height(), form_.screen()->availableSize().height());
        click("Command2(0)");
        EXPECT_EQ(CheckedItems(*form_.MnuOpcCi2).size(), 1U) << "what is drawn is what the menus offer";
        EXPECT_EQ(CheckedItems(*form_.MnuOpcDe2).size(), 1U);
        EXPECT_EQ(PendingBoxes(), 0);
    }
}

// ----------------------------------------------------------------------------------------------------------- columns

TEST_F(Form4Test, AllDigitsAboveTheResultHaveOneSizeAndAreSeenWhole)
{
    typeFactors("9999999999,99999", "9999999999,99999");
    for (const QSize size : { form_.size(), QSize(1280, 800) }) {
        form_.resize(size);
        QCoreApplication::processEvents();
        for (const char* button : { "Command2(1)", "Command2(2)" }) { // without the solution and with it
            click(button);
            const int pixels = form_.TbParcial[0]->font().pixelSize();
            std::vector<TextBox*> boxes = form_.TbParcial;
            boxes.insert(boxes.end(), { form_.TbFactor[0], form_.TbFactor[1], form_.TbResultado });
            for (const TextBox* box : boxes) {
                if (box != form_.TbResultado) {
                    EXPECT_EQ(box->font().pixelSize(), pixels) << box->objectName().toStdString();
                }
                EXPECT_LT(QFontMetrics(box->font()).horizontalAdvance(box->text()), box->width());
                EXPECT_EQ(box->geometry().right(), form_.TbResultado->geometry().right());
            }
            EXPECT_GE(form_.TbResultado->font().pixelSize(), 9);
        }
    }
}

TEST_F(Form4Test, AResultThatIsLongerThanItsRowsIsWrittenSmallerAlone)
{
    typeFactors("9999999999,99999", "9999999999,99999");
    click("Command2(2)");
    const int pixels = form_.TbParcial[0]->font().pixelSize();
    EXPECT_LT(form_.TbResultado->font().pixelSize(), pixels) << "it has points between its thousands";
    form_.TbResultado->SetText("");
    EXPECT_EQ(form_.TbResultado->font().pixelSize(), pixels);
    EXPECT_EQ(form_.TbParcial[0]->font().pixelSize(), pixels) << "as large as the rows allow, with it and without it";
    for (TextBox* row : form_.TbParcial) {
        row->SetText("");
    }
    EXPECT_GT(form_.TbFactor[0]->font().pixelSize(), pixels);
}

TEST_F(Form4Test, ALongRowThatGoesNoLongerMakesTheOthersSmall)
{
    choose("MnuOpcOcu");
    typeFactors("7", "2003");
    ASSERT_EQ(rowCount(), 4);
    form_.TbParcial[3]->SetText(std::string(30, '9'));
    EXPECT_LT(form_.TbFactor[0]->font().pixelSize(), 20);
    typeFactor2("2003");
    ASSERT_EQ(rowCount(), 2);
    for (const TextBox* box : { form_.TbFactor[0], form_.TbFactor[1], form_.TbParcial[1], form_.TbResultado }) {
        EXPECT_EQ(box->font().pixelSize(), 20) << "as large as it is designed";
    }
}

// ------------------------------------------------------------------------------------------------------- screen size

TEST_F(Form4Test, AWindowThatGrowsStaysOnItsScreenAndComesBackToItsSize)
{
    const QRect screen = form_.screen()->availableGeometry();
    const QSize before = form_.size();
    form_.move(screen.left() + 20, screen.bottom() - 100);
    typeFactor2("12345678901234567890");
    QCoreApplication::processEvents();
    EXPECT_LE(form_.frameGeometry().bottom(), screen.bottom());
    EXPECT_GE(form_.frameGeometry().top(), screen.top());
    EXPECT_TRUE(form_.rect().contains(form_.TbResultado->geometry()));
    typeFactor2("12");
    QCoreApplication::processEvents();
    EXPECT_EQ(form_.size(), before);
}

} // namespace

} // namespace numbrela

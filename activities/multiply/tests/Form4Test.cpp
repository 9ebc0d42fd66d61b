#include "activities/multiply/screen/Form4.h"

#include "activities/multiply/screen/Dialog.h"
#include "common/core/NumberText.h"
#include "common/screen/OptionMenu.h"
#include "common/screen/TextBox.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/Shown.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QRegularExpression>
#include <QScreen>

#include <algorithm>
#include <array>

namespace numbrela {

namespace {

using namespace testing;

using Rows = std::vector<std::string>;

constexpr const char* prompt = "Escriba el nuevo valor:";
constexpr const char* firstTitle = "Introducir primer factor";
constexpr const char* secondTitle = "Introducir segundo factor";
constexpr const char* right = "Resultado correcto ";
constexpr const char* wrong = "resultado incorrecto";

class Form4Test : public ::testing::Test {
protected:
    Form4Test() { ShowAndActivate(form_); }

    static void typeFactor1(const char* text)
    {
        ExpectInput(firstTitle, prompt, text);
        Press(Qt::Key_F2);
    }
    static void typeFactor2(const char* text)
    {
        ExpectInput(secondTitle, prompt, text);
        Press(Qt::Key_F3);
    }
    static void typeFactors(const char* factor1, const char* factor2)
    {
        typeFactor1(factor1);
        typeFactor2(factor2);
    }
    void choose(QAnyStringView item) { Choose(form_, item); }
    void click(const char* control) { Click(form_, control); }
    void answer(const char* result)
    {
        form_.TbResultado->SetText(result);
        click("Command1");
    }
    // The control of the window that has the focus as soon as the window has it: the platform without a display does
    // not give it back by itself when a box closes.
    std::string focusName() const { return form_.focusWidget()->objectName().toStdString(); }
    std::string score() const { return form_.tbResultados->Text(); }
    std::string verdict() const { return form_.Text1->Text(); }
    std::string result() const { return form_.TbResultado->Text(); }
    std::string factor1() const { return form_.TbFactor[0]->Text(); }
    std::string statement() const { return factor1() + " x " + factor2(); }
    std::string factor2() const { return form_.TbFactor[1]->Text(); }
    int rowCount() const { return static_cast<int>(form_.TbParcial.size()); }
    Rows rows() const
    {
        Rows texts;
        for (const TextBox* row : form_.TbParcial) {
            texts.push_back(row->Text());
        }
        return texts;
    }
    void fillRows(const char* text)
    {
        for (TextBox* row : form_.TbParcial) {
            row->SetText(text);
        }
    }

    // Which items of digits and decimals are checked; none of a list is an empty vector.
    using Items = std::vector<int>;
    void expectOptions(const Items& digits1, const Items& decimals1, const Items& digits2, const Items& decimals2) const
    {
        EXPECT_EQ(CheckedItems(*form_.MnuOpcCi1), digits1);
        EXPECT_EQ(CheckedItems(*form_.MnuOpcDe1), decimals1);
        EXPECT_EQ(CheckedItems(*form_.MnuOpcCi2), digits2);
        EXPECT_EQ(CheckedItems(*form_.MnuOpcDe2), decimals2);
    }

    FixedClock clock_;
    std::unique_ptr<Dialog> tables_;
    Form4 form_ { clock_, tables_ };
};

// ----------------------------------------------------------------------------------------------------------- opening

TEST_F(Form4Test, OpensWithTwoFactorsOfOneDigitAndOneDecimalAndTwoRowsAsTheTimeOfDayDecides)
{
    for (const TextBox* factor : form_.TbFactor) {
        EXPECT_TRUE(QRegularExpression(QStringLiteral("^[1-9],[1-9]$")).match(factor->text()).hasMatch());
        EXPECT_TRUE(IsWhollySelected(*factor));
    }
    EXPECT_EQ(rowCount(), 2);
    EXPECT_EQ(focusName(), "TbParcial(0)");

    const FixedClock sameProduct({ 10, 30, 20, 0 });
    const Form4 same(sameProduct, tables_);
    EXPECT_EQ(same.TbFactor[0]->Text() + " x " + same.TbFactor[1]->Text(), statement());
    int different = 0;
    for (int second = 0; second < 20; ++second) {
        const FixedClock otherClock({ 10, 20, second, 0 });
        different += Form4(otherClock, tables_).TbFactor[0]->Text() != factor1() ? 1 : 0;
    }
    EXPECT_GT(different, 15);
}

TEST_F(Form4Test, WorksAnExerciseByKeysAlone)
{
    typeFactors("73,4", "4,6");
    Type("4044");
    Press(Qt::Key_Tab);
    Type(" 6392");
    Press(Qt::Key_Tab);
    Type("46,733");
    EXPECT_EQ(rows(), (Rows { "4404", "2936 " }));
    EXPECT_EQ(result(), "337,64");
    Press(Qt::Key_Return);
    EXPECT_EQ(verdict(), right);
    EXPECT_EQ(focusName(), "Command2(0)");
    EXPECT_EQ(score(), "Ejercicios:  1; Errores:  0");
    Press(Qt::Key_Return);
    EXPECT_EQ(verdict(), "");
    EXPECT_EQ(focusName(), "TbParcial(0)");
    choose("MnuOpcSal");
    EXPECT_FALSE(form_.isVisible());
}

// ------------------------------------------------------------------------------------------------------------ typing

TEST_F(Form4Test, TheCaretStepsLeftWhenAKeyThatWritesIsLetGo)
{
    enum Steps { Everywhere, InRowsAlone, Nowhere };
    const struct {
        int Key;
        Qt::KeyboardModifiers Modifiers;
        Steps Where;
    } cases[] = { { Qt::Key_0, {}, Everywhere }, { Qt::Key_9, Qt::KeypadModifier, Everywhere },
        { Qt::Key_Comma, {}, Everywhere }, { Qt::Key_Space, {}, InRowsAlone },
        { Qt::Key_Comma, Qt::KeypadModifier, InRowsAlone }, { Qt::Key_Plus, Qt::KeypadModifier, InRowsAlone },
        { Qt::Key_Period, {}, InRowsAlone }, { Qt::Key_Less, {}, InRowsAlone }, { Qt::Key_masculine, {}, InRowsAlone },
        { Qt::Key_Asterisk, Qt::ShiftModifier, InRowsAlone }, { Qt::Key_A, {}, InRowsAlone },
        { Qt::Key_NumLock, {}, InRowsAlone }, { Qt::Key_Shift, {}, Nowhere }, { Qt::Key_Delete, {}, Nowhere },
        { Qt::Key_Escape, {}, Nowhere }, { Qt::Key_Up, {}, Nowhere } };
    for (const auto& [key, modifiers, where] : cases) {
        for (TextBox* box : { form_.TbParcial[0], form_.TbParcial[1], form_.TbResultado }) {
            const bool steps = where == Everywhere || (where == InRowsAlone && box != form_.TbResultado);
            for (const int caret : { 3, 0 }) {
                box->setFocus();
                HoldDown(key, modifiers);
                box->SetText("1234");
                box->SetCaretPosition(caret);
                LetGo(key, modifiers);
                EXPECT_EQ(box->CaretPosition(), steps && caret > 0 ? caret - 1 : caret)
                    << key << " in " << box->objectName().toStdString();
            }
        }
    }
}

TEST_F(Form4Test, ARowTellsWhichPlaceIsWrittenNext)
{
    TextBox& row = *form_.TbParcial[0];
    row.setFocus();
    EXPECT_EQ(row.Description(), QStringLiteral("unidades"));
    TypeResult(QStringLiteral("123"));
    EXPECT_EQ(row.Description(), QStringLiteral("unidades de millar"));
    Press(Qt::Key_Right);
    EXPECT_EQ(row.Description(), QStringLiteral("centenas"));
    click("Command2(1)");
    EXPECT_EQ(row.Description(), QStringLiteral("unidades")) << "of an empty row";
}

TEST_F(Form4Test, TheOnlyRowOfAOneDigitFactorIsTheResultAndNoOtherRowIs)
{
    typeFactors("12,5", "8");
    EXPECT_EQ(rowCount(), 1);
    form_.TbParcial[0]->setFocus();
    Type("0,001");
    EXPECT_EQ(rows(), Rows { "100,0" });
    EXPECT_EQ(result(), "100,0");
    Press(Qt::Key_Delete);
    EXPECT_EQ(result(), "00,0");
    Press(Qt::Key_Return);
    EXPECT_EQ(verdict(), "") << "Enter checks nothing in a row";

    typeFactors("12,5", "18");
    form_.TbParcial[0]->setFocus();
    Type("5");
    Press(Qt::Key_Tab);
    Type("6");
    EXPECT_EQ(result(), "");

    choose("MnuOpcOcu");
    typeFactors("7", "30");
    typeFactor1("7");
    ASSERT_EQ(rowCount(), 1) << "the zero of 30 has none";
    form_.TbParcial[0]->setFocus();
    Type("12");
    EXPECT_EQ(rows(), Rows { "21" });
    EXPECT_EQ(result(), "");
}

TEST_F(Form4Test, AKeyInAFactorGoesToTheRows)
{
    const std::string before = statement();
    for (const char* name : { "TbFactor(0)", "TbFactor(1)" }) {
        for (const int key : { Qt::Key_5, Qt::Key_A, Qt::Key_Return, Qt::Key_Backspace }) {
            click(name);
            EXPECT_EQ(focusName(), name);
            Press(key);
            EXPECT_EQ(focusName(), "TbParcial(0)");
            EXPECT_EQ(statement(), before);
        }
    }
}

// ----------------------------------------------------------------------------------------------------------- options

TEST_F(Form4Test, EachOptionSetsItsOwnDigitsOrDecimalsAndChecksItsItem)
{
    const auto partsOf = [](const std::string& text) {
        const std::size_t comma = std::min(text.find(','), text.size());
        return std::pair(static_cast<int>(comma), static_cast<int>(text.size() - std::min(comma + 1, text.size())));
    };
    for (int index = 9; index >= 0; --index) {
        choose(QStringLiteral("MnuOpcCi1Lis(%1)").arg(index));
        choose(QStringLiteral("MnuOpcCi2Lis(%1)").arg(9 - index));
        choose(QStringLiteral("MnuOpcDe1Lis(%1)").arg(index % 6));
        choose(QStringLiteral("MnuOpcDe2Lis(%1)").arg(5 - index % 6));
        EXPECT_EQ(partsOf(factor1()), std::pair(index + 1, index % 6));
        EXPECT_EQ(partsOf(factor2()), std::pair(10 - index, 5 - index % 6));
        expectOptions({ index }, { index % 6 }, { 9 - index }, { 5 - index % 6 });
        EXPECT_EQ(rowCount(), 10 - index + 5 - index % 6);
    }
}

TEST_F(Form4Test, EveryOptionDrawsAnewAtOnceAndNeitherItNorATypedFactorMakesAnExerciseScoredAgain)
{
    answer("");
    for (const char* option : { "MnuOpcCi1Lis(2)", "MnuOpcDe1Lis(2)", "MnuOpcCi2Lis(1)", "MnuOpcDe2Lis(1)",
             "MnuOpcSelLis(0)", "MnuOpcOcu" }) {
        SCOPED_TRACE(option);
        click("Command2(0)");
        click("Command2(2)");
        const std::string before = statement();
        answer("");
        fillRows("5");
        choose(option);
        EXPECT_EQ(verdict(), "");
        EXPECT_EQ(result(), "");
        EXPECT_EQ(form_.TbParcial[0]->Text(), "");
        EXPECT_NE(statement(), before);
        EXPECT_TRUE(IsWhollySelected(*form_.TbFactor[0]));
        answer("");
        EXPECT_EQ(score(), "Ejercicios:  1; Errores:  1");
    }
    EXPECT_EQ(form_.MnuOpcOcu->text(), QStringLiteral("&Ocultar ceros intermedios (Si)"));
    choose("MnuOpcOcu");
    EXPECT_EQ(form_.MnuOpcOcu->text(), QStringLiteral("&Ocultar ceros intermedios (no)"));

    typeFactors("7", "8");
    answer("55");
    answer("56");
    EXPECT_EQ(score(), "Ejercicios:  1; Errores:  1");
    click("Command2(0)");
    typeFactors("7", "8");
    answer("55");
    EXPECT_EQ(score(), "Ejercicios:  2; Errores:  2");
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
    EXPECT_EQ(factor2().size(), 4U);

    typeFactor2("12345");
    typeFactor2("20305");
    EXPECT_EQ(rowCount(), 5) << "12345 has no zeros";
    typeFactor1("6");
    EXPECT_EQ(rowCount(), 3) << "now 20305 is on the screen";
    for (int i = 0; i < 10; ++i) {
        const std::string before = factor2();
        click("Command2(0)");
        EXPECT_EQ(rowCount(), 5 - std::count(before.begin(), before.end(), '0'));
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
    ExpectMessage("Numbrela", "desajuste");
    choose("MnuOpcCi2Lis(0)");
    EXPECT_EQ(PendingBoxes(), 0);
    EXPECT_EQ(rows(), Rows { "55" }) << "the layout goes through no row, so none is cleared";
    EXPECT_EQ(result(), "");
    EXPECT_EQ(form_.Area().RectOf(form_.TbResultado).Top, 2100);
    EXPECT_EQ(factor2().size(), 1U);
    click("Command2(0)");
    EXPECT_EQ(rows(), Rows { "" });

    typeFactor2("100");
    ExpectMessage("Numbrela", "desajuste");
    choose("MnuOpcCi2Lis(1)"); // two digits, less the two zeros of 100
    EXPECT_EQ(PendingBoxes(), 0);
    EXPECT_EQ(rowCount(), 1);
}

// ---------------------------------------------------------------------------------------------------------- checking

// The text is at the left of its box, in the usual size, clear of the frame, so that its blank is seen to move it.
TEST_F(Form4Test, SaysAndCountsWhetherAResultIsRightAndARightOneOnce)
{
    const struct {
        const char* Result;
        const char* Verdict;
        const char* Score;
        const char* Focus;
    } answers[] = {
        { "0,26", "resultado incorrecto", "Ejercicios:  1; Errores:  1", "TbParcial(0)" },
        { "0,26", " resultado incorrecto", "Ejercicios:  2; Errores:  2", "TbParcial(0)" },
        { "", "resultado incorrecto", "Ejercicios:  3; Errores:  3", "TbParcial(0)" },
        { "0,250", "Resultado correcto ", "Ejercicios:  4; Errores:  3", "Command2(0)" },
        { "0,25", " Resultado correcto ", "Ejercicios:  4; Errores:  3", "Command2(0)" },
        { "0,25", "Resultado correcto ", "Ejercicios:  4; Errores:  3", "Command2(0)" },
        { "0,26", "resultado incorrecto", "Ejercicios:  4; Errores:  3", "TbParcial(0)" },
    };
    typeFactors("0,5", "0,5");
    const QFont font = form_.Text1->font();
    for (const auto& [written, verdictWanted, scoreWanted, focus] : answers) {
        answer(written);
        EXPECT_EQ(verdict(), verdictWanted);
        EXPECT_EQ(score(), scoreWanted);
        EXPECT_EQ(focusName(), focus);
        EXPECT_EQ(result(), written) << "what was written stays";
        EXPECT_EQ(form_.Text1->font(), font);
        EXPECT_TRUE(form_.Text1->alignment().testFlag(Qt::AlignLeft));
        EXPECT_GE(form_.Text1->textMargins().left(), 8) << "pixels";
    }
}

TEST_F(Form4Test, RefusesAResultTooLargeToReadAndTheThousandthExerciseWhichHasNoRoomInTheScoreLine)
{
    const auto expectRefused = [this](const char* written, const char* scoreWanted) {
        ExpectMessage("Numbrela", "el dato introducido  no es válido");
        answer(written);
        EXPECT_EQ(PendingBoxes(), 0);
        EXPECT_EQ(score(), scoreWanted);
        EXPECT_EQ(focusName(), "TbResultado");
        EXPECT_EQ(result(), written);
    };
    answer("");
    expectRefused("1e400", "Ejercicios:  1; Errores:  1");
    EXPECT_EQ(verdict(), wrong) << "that of the answer before";
    form_.TbResultado->SetText("");
    for (int i = 2; i <= 999; ++i) {
        form_.Command1_Click();
    }
    expectRefused("", "Ejercicios:999; Errores:999");
    expectRefused("", "Ejercicios:999; Errores:999");
}

// ----------------------------------------------------------------------------------------------------------- buttons

TEST_F(Form4Test, ClearingEmptiesRowsAndResultAloneAndContinuingDrawsTheNextExercise)
{
    typeFactors("7", "123");
    answer("5");
    fillRows("12");
    click("Command2(1)");
    EXPECT_EQ(rows(), (Rows { "", "", "" }));
    EXPECT_EQ(result(), "");
    EXPECT_EQ(focusName(), "TbParcial(0)");
    EXPECT_EQ(verdict(), wrong);
    EXPECT_EQ(factor2(), "123");
    answer("861");
    EXPECT_EQ(score(), "Ejercicios:  2; Errores:  1") << "still scored";
    click("Command2(1)");
    EXPECT_EQ(verdict(), right);
    answer("");
    EXPECT_EQ(score(), "Ejercicios:  2; Errores:  1") << "not scored again";

    fillRows("12");
    click("Command2(0)");
    EXPECT_EQ(verdict(), "");
    EXPECT_EQ(rows(), (Rows { "", "", "" }));
    EXPECT_EQ(result(), "");
    EXPECT_EQ(focusName(), "TbParcial(0)");
    answer(PlainDecimalText(*ParseTypedNumber(factor1()) * *ParseTypedNumber(factor2())).c_str());
    EXPECT_EQ(score(), "Ejercicios:  3; Errores:  1");
}

TEST_F(Form4Test, TheSolutionFillsRowsAndResultAndEndsTheScoring)
{
    typeFactors("7", "123");
    answer("5");
    click("Command2(2)");
    EXPECT_EQ(rows(), (Rows { "21", "14 ", "7  " }));
    EXPECT_EQ(result(), "861");
    EXPECT_TRUE(IsWhollySelected(*form_.TbResultado));
    EXPECT_EQ(focusName(), "Command2(0)");
    EXPECT_EQ(verdict(), wrong);
    answer("862");
    answer("861");
    EXPECT_EQ(score(), "Ejercicios:  1; Errores:  1");

    typeFactors("1234,5", "8");
    click("Command2(2)");
    EXPECT_EQ(rows(), Rows { "98760" });
    EXPECT_EQ(result(), "9.876,0") << "a single row leaves the result its own form";
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
    EXPECT_EQ(rows(), (Rows { "35", "28 " })) << "two rows more are left out";
    EXPECT_EQ(result(), "16.415");

    typeFactor2("12,05");
    ASSERT_EQ(rowCount(), 4);
    form_.TbParcial[3]->SetText("9");
    click("Command2(2)");
    EXPECT_EQ(rows(), (Rows { "35", "7   ", "", "9" })) << "rows without a digit stay as they are";
    EXPECT_EQ(result(), "84,35");
}

// ------------------------------------------------------------------------------------------------------ factor entry

TEST_F(Form4Test, TakesFactorsThatThePupilTypes)
{
    answer("");
    fillRows("5");
    form_.TbResultado->setFocus();
    typeFactor1("12,05");
    EXPECT_EQ(focusName(), "TbResultado");
    EXPECT_EQ(factor1(), "12,05");
    EXPECT_TRUE(IsWhollySelected(*form_.TbFactor[0]));
    EXPECT_TRUE(IsWhollySelected(*form_.TbFactor[1]));
    EXPECT_EQ(rows(), (Rows { "", "" }));
    expectOptions({ 1 }, { 2 }, { 0 }, { 1 });
    EXPECT_EQ(verdict(), wrong) << "no new exercise is drawn";
    EXPECT_EQ(score(), "Ejercicios:  1; Errores:  1");

    typeFactor2("100,5");
    expectOptions({ 1 }, { 2 }, { 2 }, { 1 });
    EXPECT_EQ(rowCount(), 4);
    answer("1211,025");
    EXPECT_EQ(verdict(), right);
}

TEST_F(Form4Test, RefusesAFactorThatIsNoNumberOrTooLarge)
{
    typeFactors("2,5", "12");
    fillRows("5");
    for (const char* typed : { "", "hola", "1,2,3", "1e400" }) {
        ExpectInput(firstTitle, prompt, typed);
        ExpectMessage("Numbrela", "El dato introducido no es válido");
        Press(Qt::Key_F2);
    }
    ExpectInputCancelled(secondTitle, prompt, "77");
    ExpectMessage("Numbrela", "El dato introducido no es válido");
    Press(Qt::Key_F3);
    ExpectInput(secondTitle, prompt, "1e308");
    ExpectMessage("Numbrela", "el producto de los dos factores produce un resultado demasiado grande");
    Press(Qt::Key_F3);
    EXPECT_EQ(statement(), "2,5 x 12");
    EXPECT_EQ(rows(), (Rows { "5", "5" }));
    expectOptions({ 0 }, { 1 }, { 1 }, { 0 });
}

TEST_F(Form4Test, AFactorBeyondTheMenusLeavesTheirListsUnchecked)
{
    const struct {
        const char* Typed;
        std::string Shown;
        int Rows;
        Items Digits;
        Items Decimals;
    } cases[] = {
        { "12345678901234567890", "12345678901234600000", 20, {}, { 0 } },
        { "0,123456789", "0,123456789", 10, { 0 }, {} },
        { "-1234567890", "-1234567890", 11, {}, { 0 } },
        { "-0,5", "-0,5", 3, { 1 }, { 1 } },
        { "1e60", "1" + std::string(60, '0'), 61, {}, { 0 } },
    };
    for (const auto& [typed, shown, rowsWanted, digits, decimals] : cases) {
        SCOPED_TRACE(typed);
        typeFactors(typed, typed);
        EXPECT_EQ(factor1(), shown);
        EXPECT_EQ(factor2(), shown);
        expectOptions(digits, decimals, digits, decimals);
        EXPECT_EQ(rowCount(), rowsWanted);
        click("Command2(2)");
        EXPECT_NE(form_.TbParcial.back()->Text(), "");
        QCoreApplication::processEvents();
        EXPECT_TRUE(form_.rect().contains(form_.TbResultado->geometry()));
        EXPECT_LE(form_.height(), form_.screen()->availableSize().height());
        click("Command2(0)");
        EXPECT_EQ(CheckedItems(*form_.MnuOpcCi2).size(), 1U) << "what is drawn is what the menus offer";
        EXPECT_EQ(CheckedItems(*form_.MnuOpcDe2).size(), 1U);
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
                EXPECT_TRUE(box == form_.TbResultado || box->font().pixelSize() == pixels)
                    << box->objectName().toStdString();
                EXPECT_LT(QFontMetrics(box->font()).horizontalAdvance(box->text()), box->width());
                EXPECT_EQ(box->geometry().right(), form_.TbResultado->geometry().right());
            }
            EXPECT_GE(form_.TbResultado->font().pixelSize(), 9);
        }
    }
    const int pixels = form_.TbParcial[0]->font().pixelSize();
    EXPECT_LT(form_.TbResultado->font().pixelSize(), pixels) << "longer than its rows, it is written smaller alone";
    form_.TbResultado->SetText("");
    EXPECT_EQ(form_.TbResultado->font().pixelSize(), pixels);
    EXPECT_EQ(form_.TbParcial[0]->font().pixelSize(), pixels) << "as large as the rows allow, with it and without it";
    fillRows("");
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

} // namespace

} // namespace numbrela

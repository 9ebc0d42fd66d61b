#include "activities/divide/screen/Form5.h"

#include "activities/divide/screen/StatementBox.h"
#include "activities/divide/screen/WorkingGridBox.h"
#include "activities/divide/tests/DivisionSupport.h"
#include "common/screen/KeyCodes.h"
#include "common/screen/OptionMenu.h"
#include "common/screen/TextBox.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/Shown.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QScreen>
#include <QTest>

namespace numbrela {

namespace {

using namespace testing;

using Rows = std::vector<std::string>;

// The window as it opens at 10:20:30, with 86,18 ÷ 2 in it.
class Form5Test : public ::testing::Test {
protected:
    Form5Test() { ShowAndActivate(Form); }

    std::string shown(const TextBox* box) const { return box->Text(); }
    std::string statement() const { return Form.Text4->Text(); }
    Rows rows() const { return rowsOf(Form.Text1->Grid()); }

    // Enters a dividend or a divisor in place of the present one.
    void enterDividend(const QString& typed, const QString& present)
    {
        ExpectInput(QStringLiteral("Introducir dividendo"), QString(), typed, present);
        Press(Qt::Key_F2);
    }

    void enterDivisor(const QString& typed, const QString& present)
    {
        ExpectInput(QStringLiteral("Introducir divisor"), QString(), typed, present);
        Press(Qt::Key_F3);
    }

    // A whole division, with the focus in the grid.
    void show(const QString& dividend, const QString& divisor)
    {
        Choose(Form, QStringLiteral("MnuOpcDeDLis(0)"));
        enterDividend(dividend, QString::fromStdString(statement()).section(QLatin1Char(' '), 0, 0));
        enterDivisor(divisor, QString::fromStdString(shown(Form.Text2)));
        Form.Text1->setFocus();
    }

    // Types into a row of the grid, which must have the focus and show its first rows.
    void typeIntoRow(int row, const QString& text)
    {
        Press(Qt::Key_PageUp);
        Press(Qt::Key_Home);
        for (int step = 0; step < row; ++step) {
            Press(Qt::Key_Down);
        }
        Type(text);
    }

    void expectPosition(const char* position)
    {
        Press(Qt::Key_F5);
        EXPECT_EQ(statement(), position);
    }

private:
    FixedClock clock_;
    bool commaShift_ = false;

public:
    Form5 Form { clock_, commaShift_ };
};

TEST_F(Form5Test, OpensWithADivisionAndTheFocusInItsGrid)
{
    EXPECT_EQ(statement(), "86,18 ÷ 2");
    EXPECT_EQ(rows(), Rows { " 86,18" });
    EXPECT_EQ(shown(Form.Text2), "2");
    EXPECT_EQ(shown(Form.Text3), "");
    EXPECT_EQ(shown(Form.tbResultados), "Ejercicios:  0; Errores:  0");
    EXPECT_EQ(FocusName(), "Text1");
}

TEST_F(Form5Test, DrawsWhatTheTimeOfDaySays)
{
    bool commaShift = false;
    const FixedClock later({ 10, 20, 31, 37231 });
    const Form5 other(later, commaShift);
    EXPECT_NE(other.Text4->Text(), statement());
    const FixedClock sameProduct({ 20, 10, 30, 73830 });
    const Form5 same(sameProduct, commaShift);
    EXPECT_EQ(same.Text4->Text(), statement());
}

TEST_F(Form5Test, WorksADivisionByKeysAlone)
{
    show(QStringLiteral("97"), QStringLiteral("6"));
    Type(QStringLiteral("37"));
    Press(Qt::Key_Down);
    Press(Qt::Key_Left);
    Type(QStringLiteral("1"));
    EXPECT_EQ(rows(), (Rows { " 97", " 37", "  1" }));
    Press(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "Text2");
    Press(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "Text3");
    Type(QStringLiteral("16"));
    EXPECT_EQ(shown(Form.Text3), "16") << "from left to right";
    Press(Qt::Key_Tab);
    Press(Qt::Key_Return);
    EXPECT_EQ(statement(), "resultado correcto");
    EXPECT_FALSE(Form.Text4->textCursor().hasSelection());
    EXPECT_EQ(shown(Form.tbResultados), "Ejercicios:  1; Errores:  0");
    EXPECT_EQ(FocusName(), "Command2(0)");
    Press(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "Text1");
    EXPECT_EQ(rows().size(), 1U);
    EXPECT_EQ(shown(Form.Text3), "");
}

// ------------------------------------------------------------------------------------------------------------ the grid

TEST_F(Form5Test, ArrowsSkipTheCommaInEveryRowAndLeftStopsAtTheFirstCell)
{
    const std::pair<Qt::Key, const char*> steps[] = { { Qt::Key_Up, "1 / 8" }, { Qt::Key_Home, "0 / 8" },
        { Qt::Key_Right, "1 / 8" }, { Qt::Key_Right, "2 / 8" }, { Qt::Key_Right, "4 / 8" }, { Qt::Key_Down, "12 / 8" },
        { Qt::Key_Left, "10 / 8" }, { Qt::Key_Up, "2 / 8" }, { Qt::Key_Left, "1 / 8" }, { Qt::Key_Left, "0 / 8" },
        { Qt::Key_Left, "0 / 8" } };
    for (const auto& [key, position] : steps) {
        Press(key);
        expectPosition(position);
        EXPECT_EQ(FocusName(), "Text1");
        EXPECT_EQ(Form.Text1->FirstShownRow(), 0);
    }
    EXPECT_FALSE(Form.Text1_KeyDown(KeyCode::Left).IsConsumed());
    Press(Qt::Key_Right);
    EXPECT_TRUE(Form.Text1_KeyDown(KeyCode::Left).IsConsumed());
}

TEST_F(Form5Test, WhatIsTypedFirstIsWrittenBelowTheFirstDigit)
{
    Type(QStringLiteral("06"));
    EXPECT_EQ(rows(), (Rows { " 86,18", " 06" }));
    typeIntoRow(30, QStringLiteral("9"));
    Click(Form, QStringLiteral("Command2(1)"));
    EXPECT_EQ(Form.Text1->FirstShownRow(), 0) << "the dividend is seen";
    Type(QStringLiteral("1"));
    EXPECT_EQ(rows(), (Rows { " 86,18", " 1" }));

    Click(Form, QStringLiteral("Command2(0)"));
    Type(QStringLiteral("2"));
    ASSERT_EQ(rows().size(), 2U);
    EXPECT_EQ(rows()[1], " 2");

    enterDividend(QStringLiteral("97"), QString::fromStdString(statement()).section(QLatin1Char(' '), 0, 0));
    Type(QStringLiteral("3"));
    EXPECT_EQ(rows(), (Rows { " 97", " 3" }));
}

TEST_F(Form5Test, BackspaceDeleteAndPointWriteOneBlankEach)
{
    for (const int key : { int(Qt::Key_Backspace), int(Qt::Key_Delete), int(Qt::Key_Period), int(Qt::Key_Space) }) {
        typeIntoRow(1, QStringLiteral("12"));
        Press(Qt::Key_Home);
        Press(key);
        EXPECT_EQ(rows(), (Rows { " 86,18", " 2" })) << key;
        expectPosition("9 / 8");
    }
}

TEST_F(Form5Test, TheDividendsRowTakesNoTyping)
{
    Press(Qt::Key_Up);
    Type(QStringLiteral("123"));
    Press(Qt::Key_Backspace);
    Press(Qt::Key_Delete);
    EXPECT_EQ(rows(), Rows { " 86,18" });
    expectPosition("1 / 8");
}

TEST_F(Form5Test, AClickInTheGridPutsTheCaretThereAndF5ShowsWhereWhateverHasTheFocus)
{
    Form.Text3->setFocus();
    QTest::mouseClick(Form.Text1, Qt::LeftButton, {}, Form.Text1->CellRect(18).center());
    EXPECT_EQ(FocusName(), "Text1");
    for (const char* name : { "Text1", "Text2", "Text3", "Text4", "tbResultados", "Command1" }) {
        Find<QWidget>(Form, QString::fromLatin1(name)).setFocus();
        Form.Text4->SetText("");
        expectPosition("18 / 8");
    }
}

TEST_F(Form5Test, FocusHintsSayWhatABoxIs)
{
    Click(Form, QStringLiteral("Text2"));
    EXPECT_EQ(statement(), "Divisor");
    Type(QStringLiteral("5"));
    EXPECT_EQ(shown(Form.Text2), "2") << "it takes no typing";
    Click(Form, QStringLiteral("Text3"));
    EXPECT_EQ(statement(), "Cociente");
    Type(QStringLiteral("43"));
    Press(Qt::Key_Return);
    EXPECT_EQ(shown(Form.tbResultados), "Ejercicios:  0; Errores:  0") << "Enter checks nothing here";
    Click(Form, QStringLiteral("Text1"));
    EXPECT_EQ(statement(), "Cociente") << "the grid has no hint";
}

TEST_F(Form5Test, AFocusThatComesBackFromABoxOrAMenuGivesNoHint)
{
    Click(Form, QStringLiteral("Text3"));
    enterDivisor(QStringLiteral("7"), QStringLiteral("2"));
    Form.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Form));
    EXPECT_EQ(FocusName(), "Text3");
    EXPECT_EQ(statement(), "86,18 ÷ 7");

    for (const auto reason : { Qt::ActiveWindowFocusReason, Qt::PopupFocusReason, Qt::MenuBarFocusReason }) {
        QFocusEvent comesBack(QEvent::FocusIn, reason);
        QCoreApplication::sendEvent(Form.Text3, &comesBack);
        EXPECT_EQ(statement(), "86,18 ÷ 7") << reason;
    }
}

// ------------------------------------------------------------------------------------------------------------ checking

TEST_F(Form5Test, AWrongAnswerCountsAgainEachTimeAndLeavesTheFocus)
{
    show(QStringLiteral("84"), QStringLiteral("4"));
    typeIntoRow(1, QStringLiteral(" 0"));
    Form.Text3->setFocus();
    Type(QStringLiteral("20"));
    Form.Command1_Click();
    EXPECT_EQ(statement(), "Resultado incorrecto");
    EXPECT_FALSE(Form.Text4->textCursor().hasSelection());
    EXPECT_EQ(FocusName(), "Text3");
    EXPECT_EQ(shown(Form.tbResultados), "Ejercicios:  1; Errores:  1");
    Click(Form, QStringLiteral("Command1"));
    EXPECT_EQ(FocusName(), "Command1");
    EXPECT_EQ(shown(Form.tbResultados), "Ejercicios:  2; Errores:  2");
    Click(Form, QStringLiteral("Text3"));
    Press(Qt::Key_Backspace);
    Type(QStringLiteral("1"));
    Click(Form, QStringLiteral("Command1"));
    EXPECT_EQ(statement(), "resultado correcto");
    EXPECT_EQ(shown(Form.tbResultados), "Ejercicios:  3; Errores:  2");
    Click(Form, QStringLiteral("Command1"));
    EXPECT_EQ(shown(Form.tbResultados), "Ejercicios:  3; Errores:  2");
}

TEST_F(Form5Test, AQuotientWithDecimalsIsNotChecked)
{
    Choose(Form, QStringLiteral("MnuOpcDeCLis(1)"));
    const std::string before = statement();
    ExpectMessage(QStringLiteral("Numbrela"),
        QStringLiteral(
            "El número de decimales no es cero, por favor utilice la opción \"Ver solución\" para comprobar su "
            "resultado."));
    Click(Form, QStringLiteral("Command1"));
    EXPECT_EQ(statement(), before);
    EXPECT_EQ(shown(Form.tbResultados), "Ejercicios:  0; Errores:  0");
}

TEST_F(Form5Test, AScoreOfFourDigitsIsSaidAndTheActivityGoesOn)
{
    Form.Text3->SetText("1");
    for (int times = 0; times < 999; ++times) {
        Form.Command1_Click();
    }
    EXPECT_EQ(shown(Form.tbResultados), "Ejercicios:999; Errores:999");
    const std::string solution = "43,09"; // leaves nothing
    typeIntoRow(1, QStringLiteral("0"));
    for (const std::string& quotient : { std::string("1"), solution, solution, std::string("1") }) {
        Form.Text3->SetText(quotient);
        ExpectMessage(QStringLiteral("Numbrela"), QStringLiteral("El número 1000 no cabe en 3 caracteres."));
        Click(Form, QStringLiteral("Command1"));
        EXPECT_EQ(PendingBoxes(), 0) << "it is said each time";
        EXPECT_EQ(statement(), quotient == solution ? "resultado correcto" : "Resultado incorrecto");
        EXPECT_EQ(shown(Form.tbResultados), "Ejercicios:999; Errores:999");
    }
    Click(Form, QStringLiteral("Command2(2)"));
    Click(Form, QStringLiteral("Command1"));
    EXPECT_EQ(statement(), "resultado correcto") << "what is not scored is judged as ever";
    EXPECT_EQ(shown(Form.tbResultados), "Ejercicios:999; Errores:999");
    Click(Form, QStringLiteral("Command2(0)"));
    EXPECT_EQ(shown(Form.Text3), "");
}

// ----------------------------------------------------------------------------------------- continue, clear, solution

TEST_F(Form5Test, ContinueDrawsTheNextDivisionAndClearKeepsIt)
{
    for (const bool clear : { true, false }) {
        typeIntoRow(1, QStringLiteral("123"));
        typeIntoRow(30, QStringLiteral("9"));
        Form.Text3->setFocus();
        Type(QStringLiteral("9"));
        Form.Text4->SetText("");
        Click(Form, clear ? QStringLiteral("Command2(1)") : QStringLiteral("Command2(0)"));
        EXPECT_EQ(shown(Form.Text3), "");
        EXPECT_EQ(shown(Form.tbResultados), "Ejercicios:  0; Errores:  0");
        EXPECT_EQ(FocusName(), "Text1");
        EXPECT_EQ(Form.Text1->FirstShownRow(), 0) << "the dividend is seen";
        ASSERT_EQ(rows().size(), 1U);
        if (clear) {
            EXPECT_EQ(rows(), Rows { " 86,18" });
            EXPECT_EQ(shown(Form.Text2), "2");
            EXPECT_EQ(statement(), "") << "nothing else changes";
        } else {
            EXPECT_NE(rows(), Rows { " 86,18" });
            EXPECT_EQ(rows()[0] + " ÷ " + shown(Form.Text2), " " + statement());
        }
        expectPosition("9 / 8");
    }
}

TEST_F(Form5Test, TheSolutionIsShownAndEndsTheExercise)
{
    Click(Form, QStringLiteral("Command2(2)"));
    EXPECT_EQ(shown(Form.Text3), "43,09");
    EXPECT_EQ(rows(), (Rows { " 86,18", " 06", "  0 18", "     0" }));
    EXPECT_EQ(statement(), "");
    EXPECT_EQ(FocusName(), "Command2(0)");
    Click(Form, QStringLiteral("Command1"));
    EXPECT_EQ(statement(), "resultado correcto");
    EXPECT_EQ(shown(Form.tbResultados), "Ejercicios:  0; Errores:  0");
}

TEST_F(Form5Test, ALongSolutionIsShownFromItsTop)
{
    Choose(Form, QStringLiteral("MnuOpcDivLis(8)"));
    Choose(Form, QStringLiteral("MnuOpcDeDLis(5)"));
    Choose(Form, QStringLiteral("MnuOpcRes"));
    Form.Text1->setFocus();
    typeIntoRow(40, QStringLiteral("1"));
    EXPECT_GT(Form.Text1->FirstShownRow(), 0);
    Click(Form, QStringLiteral("Command2(2)"));
    EXPECT_GT(rows().size(), 20U);
    EXPECT_EQ(Form.Text1->FirstShownRow(), 0);
}

TEST_F(Form5Test, EveryNewDivisionIsScoredWhoeverDrewIt)
{
    for (const char* item :
        { "MnuOpcDivLis(1)", "MnuOpcDeDLis(2)", "MnuOpcDisLis(0)", "MnuOpcDeCLis(0)", "MnuOpcRes" }) {
        Click(Form, QStringLiteral("Command2(2)"));
        Choose(Form, QString::fromLatin1(item));
        const std::string before = shown(Form.tbResultados);
        Click(Form, QStringLiteral("Command1"));
        EXPECT_EQ(statement(), "Resultado incorrecto") << item;
        EXPECT_NE(shown(Form.tbResultados), before) << item;
    }
}

// One flag for all windows: each finds it as the previous one left it.
TEST_F(Form5Test, TheShiftBehindTheCommaOutlastsTheWindow)
{
    Form.close();
    const FixedClock clock;
    for (const bool shifted : { true, false }) {
        bool commaShift = shifted;
        for (int window = 0; window < 2; ++window) {
            SCOPED_TRACE(window);
            Form5 form(clock, commaShift);
            ShowAndActivate(form);
            Choose(form, QStringLiteral("MnuOpcDeDLis(0)"));
            ExpectInput(QStringLiteral("Introducir dividendo"), QString(), QStringLiteral("84"),
                QString::fromStdString(form.Text4->Text()).section(QLatin1Char(' '), 0, 0));
            Press(Qt::Key_F2);
            ExpectInput(QStringLiteral("Introducir divisor"), QString(), QStringLiteral("4"),
                QString::fromStdString(form.Text2->Text()));
            Press(Qt::Key_F3);
            Click(form, QStringLiteral("Command2(2)"));
            EXPECT_EQ(
                rowsOf(form.Text1->Grid()), (shifted ? Rows { " 84", "  04", "  0" } : Rows { " 84", " 04", " 0" }));
            EXPECT_EQ(commaShift, shifted) << "no row stands left of a comma";
        }
    }
}

TEST_F(Form5Test, ASolutionThatDoesNotFitIsSaidAndNothingIsLost)
{
    show(QStringLiteral("84"), QStringLiteral("3000000000"));
    typeIntoRow(1, QStringLiteral(" 7"));
    Form.Text3->setFocus();
    Type(QStringLiteral("5"));
    ExpectMessage(QStringLiteral("Numbrela"),
        QStringLiteral("Los números de esta división son demasiado grandes para resolverla paso a paso."));
    Click(Form, QStringLiteral("Command2(2)"));
    EXPECT_EQ(shown(Form.Text3), "5");
    EXPECT_EQ(rows(), (Rows { " 84", " 7" }));
    EXPECT_EQ(statement(), "Cociente");
    Click(Form, QStringLiteral("Command1"));
    EXPECT_EQ(shown(Form.tbResultados), "Ejercicios:  1; Errores:  1") << "it is scored still";
}

// ------------------------------------------------------------------------------------------------------------- options

struct ListCase {
    OptionMenu* Form5::*Menu;
    const char* Name;
    int Default;
};

TEST_F(Form5Test, AListItemIsCheckedAloneAndDrawsANewDivision)
{
    const ListCase lists[] = {
        { &Form5::MnuOpcDiv, "MnuOpcDivLis(%1)", 1 },
        { &Form5::MnuOpcDeD, "MnuOpcDeDLis(%1)", 2 },
        { &Form5::MnuOpcDis, "MnuOpcDisLis(%1)", 0 },
        { &Form5::MnuOpcDeC, "MnuOpcDeCLis(%1)", 0 },
    };
    for (const ListCase& list : lists) {
        OptionMenu* menu = Form.*list.Menu;
        EXPECT_EQ(CheckedItems(*menu), std::vector<int> { list.Default }) << list.Name;
        std::vector<int> choices { list.Default }; // it draws although it is checked already
        for (int index = static_cast<int>(menu->Items().size()) - 1; index >= 0; --index) {
            choices.push_back(index);
        }
        choices.push_back(list.Default);
        for (const int index : choices) {
            const std::string before = statement();
            Form.Text3->SetText("9");
            Choose(Form, QString::fromLatin1(list.Name).arg(index));
            EXPECT_EQ(CheckedItems(*menu), std::vector<int> { index });
            EXPECT_EQ(shown(Form.Text3), "");
            EXPECT_NE(statement(), before) << list.Name;
        }
    }
}

TEST_F(Form5Test, ListsSetTheDigitsAndDecimals)
{
    Choose(Form, QStringLiteral("MnuOpcDivLis(4)"));
    Choose(Form, QStringLiteral("MnuOpcDeDLis(3)"));
    Choose(Form, QStringLiteral("MnuOpcDisLis(2)"));
    EXPECT_EQ(statement().find(','), 5U);
    EXPECT_EQ(statement().find(" ÷ "), 9U);
    EXPECT_EQ(shown(Form.Text2).size(), 3U);
    expectPosition("13 / 12");
    Choose(Form, QStringLiteral("MnuOpcDeCLis(5)"));
    expectPosition("18 / 17");
}

TEST_F(Form5Test, TheItemOfTheSubtractionsLosesItsAccessKey)
{
    EXPECT_EQ(Form.MnuOpcRes->text(), QStringLiteral("&Restas intermedias (No)"));
    std::string last = statement();
    for (const QString& caption : { QStringLiteral("Restas intermedias (Si)"),
             QStringLiteral("Restas intermedias (No)"), QStringLiteral("Restas intermedias (Si)") }) {
        Choose(Form, QStringLiteral("MnuOpcRes"));
        EXPECT_EQ(Form.MnuOpcRes->text(), caption);
        EXPECT_NE(statement(), last) << "a new division";
        last = statement();
    }
    Choose(Form, QStringLiteral("MnuOpcDeDLis(0)"));
    Click(Form, QStringLiteral("Command2(2)"));
    EXPECT_NE(rows()[1].find('-'), std::string::npos);
}

// ------------------------------------------------------------------------------------------------------- own numbers

TEST_F(Form5Test, AnEnteredDividendIsLaidOut)
{
    typeIntoRow(30, QStringLiteral("9"));
    Form.Text3->SetText("9");
    enterDividend(QStringLiteral(" 1234,5"), QStringLiteral("86,18"));
    EXPECT_EQ(Form.Text1->FirstShownRow(), 0) << "the dividend is seen";
    EXPECT_EQ(statement(), "1234 ÷ 2");
    EXPECT_EQ(rows(), Rows { " 1234" });
    EXPECT_EQ(shown(Form.Text3), "9");
    EXPECT_EQ(CheckedItems(*Form.MnuOpcDiv), std::vector<int> { 5 }) << "six characters were typed";
    EXPECT_EQ(CheckedItems(*Form.MnuOpcDeD), std::vector<int> { 2 });
    EXPECT_EQ(Form.Area().RectOf(Form.Text1), (TwipsRect { 2600 - 165 * 10 - 5, 500, 165 * 10, 7000 }));
    expectPosition("11 / 10");
}

TEST_F(Form5Test, AnEnteredDivisorIsShown)
{
    typeIntoRow(1, QStringLiteral("7"));
    Form.Text3->SetText("9");
    enterDivisor(QStringLiteral("-12,9"), QStringLiteral("2"));
    EXPECT_EQ(statement(), "86,18 ÷ -12");
    EXPECT_EQ(shown(Form.Text2), "-12");
    EXPECT_EQ(shown(Form.Text3), "9");
    EXPECT_EQ(rows(), (Rows { " 86,18", "7" }));
    EXPECT_EQ(CheckedItems(*Form.MnuOpcDis), std::vector<int> { 4 });
}

TEST_F(Form5Test, NothingHappensWithoutANumberOtherThanZero)
{
    for (const char* typed : { "", "   ", "0", "0,5", "abc", "-" }) {
        enterDividend(QString::fromLatin1(typed), QStringLiteral("86,18"));
        enterDivisor(QString::fromLatin1(typed), QStringLiteral("2"));
        EXPECT_EQ(statement(), "86,18 ÷ 2") << typed;
    }
    ExpectInputCancelled(QStringLiteral("Introducir dividendo"), QString(), QStringLiteral("97"));
    Press(Qt::Key_F2);
    ExpectInputCancelled(QStringLiteral("Introducir divisor"), QString(), QStringLiteral("7"));
    Press(Qt::Key_F3);
    EXPECT_EQ(statement(), "86,18 ÷ 2");
    EXPECT_EQ(CheckedItems(*Form.MnuOpcDiv), std::vector<int> { 1 });
}

TEST_F(Form5Test, TenDigitsAndMoreCheckNoItem)
{
    enterDividend(QStringLiteral("1234567890"), QStringLiteral("86,18"));
    enterDivisor(QStringLiteral("12345678901"), QStringLiteral("2"));
    EXPECT_EQ(statement(), "1234567890 ÷ 12345678901");
    EXPECT_EQ(CheckedItems(*Form.MnuOpcDiv), std::vector<int> {});
    EXPECT_EQ(CheckedItems(*Form.MnuOpcDis), std::vector<int> {});
    Choose(Form, QStringLiteral("MnuOpcDivLis(3)"));
    EXPECT_EQ(CheckedItems(*Form.MnuOpcDiv), std::vector<int> { 3 });
    EXPECT_EQ(shown(Form.Text2).size(), 11U) << "the next divisors are as long as the one that was entered";
}

TEST_F(Form5Test, ANumberThatDoesNotFitIsSaidAndTheDivisionStays)
{
    ExpectInput(QStringLiteral("Introducir dividendo"), QString(), QStringLiteral("1e400"), QStringLiteral("86,18"));
    ExpectMessage(QStringLiteral("Numbrela"), QStringLiteral("El número escrito es demasiado grande."));
    Press(Qt::Key_F2);
    ExpectInput(QStringLiteral("Introducir divisor"), QString(), QStringLiteral("1e400"), QStringLiteral("2"));
    ExpectMessage(QStringLiteral("Numbrela"), QStringLiteral("El número escrito es demasiado grande."));
    Press(Qt::Key_F3);
    const QString wide = QString(200, QLatin1Char('1'));
    ExpectInput(QStringLiteral("Introducir dividendo"), QString(), wide, QStringLiteral("86,18"));
    ExpectMessage(QStringLiteral("Numbrela"), QStringLiteral("El número tiene demasiadas cifras."));
    Press(Qt::Key_F2);
    EXPECT_EQ(statement(), "86,18 ÷ 2");
    EXPECT_EQ(rows(), Rows { " 86,18" });
}

TEST_F(Form5Test, ADrawThatDoesNotFitIsSaidAndTheDivisionStays)
{
    enterDivisor(QString(320, QLatin1Char('0')) + QStringLiteral("5"), QStringLiteral("2"));
    EXPECT_EQ(statement(), "86,18 ÷ 5");
    ExpectMessage(QStringLiteral("Numbrela"),
        QStringLiteral("El número tiene demasiadas cifras. Elija menos en el menú Opciones."));
    Click(Form, QStringLiteral("Command2(0)"));
    EXPECT_EQ(statement(), "86,18 ÷ 5");
    Choose(Form, QStringLiteral("MnuOpcDisLis(0)"));
    EXPECT_EQ(shown(Form.Text2).size(), 1U);
}

// ------------------------------------------------------------------------------------------------------- the layout

TEST_F(Form5Test, TheGridEndsAtTheBarAndTheWindowGrowsAroundItAndComesBack)
{
    QCoreApplication::processEvents();
    const QSize before = Form.size();
    const auto choose = [this](int digits, int decimals, int quotientDecimals) {
        Choose(Form, QStringLiteral("MnuOpcDivLis(%1)").arg(digits - 1));
        Choose(Form, QStringLiteral("MnuOpcDeDLis(%1)").arg(decimals));
        Choose(Form, QStringLiteral("MnuOpcDeCLis(%1)").arg(quotientDecimals));
        const int columns = digits + 4 + decimals + quotientDecimals;
        EXPECT_EQ(Form.Text1->Grid().LineWidth, columns);
        EXPECT_EQ(Form.Area().RectOf(Form.Text1), (TwipsRect { 2600 - 165 * columns - 5, 500, 165 * columns, 7000 }));
        QCoreApplication::processEvents();
    };
    choose(5, 0, 5);
    choose(9, 5, 5);
    EXPECT_EQ(Form.width(), before.width() + 100) << "23 columns reach 1200 twips beyond the edge, and 300 are free";
    EXPECT_EQ(Form.height(), before.height());
    EXPECT_EQ(Form.Text1->x(), 20);
    EXPECT_EQ(Form.Text1->width(), 253) << "at the scale that it had";
    EXPECT_TRUE(Form.rect().contains(Form.tbResultados->geometry()));
    choose(1, 0, 0);
    EXPECT_EQ(Form.size(), before);
    Choose(Form, QStringLiteral("MnuOpcSal"));
    EXPECT_FALSE(Form.isVisible());
}

TEST_F(Form5Test, TheWindowNeverOutgrowsTheScreen)
{
    enterDivisor(QString(300, QLatin1Char('7')), QStringLiteral("2"));
    for (const int digits : { 10, 40, 60, 100, 150, 193, 194 }) { // 194 are the most that a grid holds
        SCOPED_TRACE(digits);
        enterDividend(QString(digits, QLatin1Char('1')), QString::fromStdString(rows()[0]).trimmed());
        QCoreApplication::processEvents();
        EXPECT_TRUE(Form.screen()->availableGeometry().contains(Form.frameGeometry()));
        for (const QWidget* control : Form.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            EXPECT_TRUE(Form.rect().contains(control->geometry())) << control->objectName().toStdString();
        }
        EXPECT_GT(Form.Text1->CellRect(0).width(), 2) << "a character has more than a line";
        EXPECT_EQ(rowsOf(Form.Text1->Grid()), Rows { " " + PlainDecimalText(Form.Text1->Grid().RowValue(0)) });
    }
}

// Counts how often the window is asked to lay itself out.
class LayoutCounter : public QObject {
public:
    int Requests = 0;

    bool eventFilter(QObject* /*receiver*/, QEvent* event) override
    {
        Requests += event->type() == QEvent::LayoutRequest ? 1 : 0;
        return false;
    }
};

TEST_F(Form5Test, ADivisorWrittenSmallerLetsTheWindowComeToRest)
{
    enterDivisor(QStringLiteral("12345678901234567890"), QStringLiteral("2"));
    for (int times = 0; times < 20; ++times) {
        QCoreApplication::processEvents();
    }
    EXPECT_LT(Form.Text2->font().pixelSize(), 19);
    for (TextBox* box : { Form.Text2, Form.Text3 }) {
        box->SetText(std::string(25, '8'));
        EXPECT_LT(QFontMetrics(box->font()).horizontalAdvance(box->text()), box->width()) << "seen whole";
    }
    QCoreApplication::processEvents();
    LayoutCounter counter;
    Form.installEventFilter(&counter);
    for (int times = 0; times < 20; ++times) {
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(counter.Requests, 0);
}

TEST_F(Form5Test, RowsStandLevelWithTheDivisorAtEverySize)
{
    for (const QSize size : { QSize(400, 590), QSize(800, 1180), QSize(1280, 800), QSize(1920, 1080) }) {
        Form.resize(size);
        QCoreApplication::processEvents();
        const QPoint row = Form.Text1->mapTo(&Form, Form.Text1->CellRect(0).center());
        EXPECT_NEAR(row.y(), Form.Text2->geometry().center().y(), 1);
        EXPECT_NEAR(Form.Text1->geometry().right() + 1, Form.Text2->x(), 1);
        EXPECT_EQ(Form.Text1->ShownRows(), 20);
        EXPECT_TRUE(Form.rect().contains(Form.Text1->geometry()));
    }
}

} // namespace

} // namespace numbrela

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

    std::string statement() const { return Form.Text4->Text(); }
    Rows rows() const { return rowsOf(Form.Text1->Grid()); }

    std::string divisor() const { return Form.Text2->Text(); }
    std::string quotient() const { return Form.Text3->Text(); }
    std::string score() const { return Form.tbResultados->Text(); }
    void choose(QAnyStringView item) const { Choose(Form, item); }
    void click(QAnyStringView control) const { Click(Form, control); }

    // Enters a dividend or a divisor in place of the one that is shown.
    void enterDividend(QAnyStringView typed) const
    {
        ExpectInput("Introducir dividendo", "", typed, rows()[0].substr(1));
        Press(Qt::Key_F2);
    }

    void enterDivisor(QAnyStringView typed) const
    {
        ExpectInput("Introducir divisor", "", typed, divisor());
        Press(Qt::Key_F3);
    }

    // A whole division, with the focus in the grid.
    void show(const char* dividend, const char* by) const
    {
        choose("MnuOpcDeDLis(0)");
        enterDividend(dividend);
        enterDivisor(by);
        Form.Text1->setFocus();
    }

    // Types into a row of the grid, which must have the focus and show its first rows.
    static void typeIntoRow(int row, const char* text)
    {
        Press(Qt::Key_PageUp);
        Press(Qt::Key_Home);
        for (int step = 0; step < row; ++step) {
            Press(Qt::Key_Down);
        }
        Type(text);
    }

    // Presses a key that opens a box, whose answer is refused with a message.
    static void expectRefused(Qt::Key key, QAnyStringView typed, QAnyStringView present, const char* message)
    {
        ExpectInput(key == Qt::Key_F2 ? "Introducir dividendo" : "Introducir divisor", "", typed, present);
        ExpectMessage("Numbrela", message);
        Press(key);
        EXPECT_EQ(PendingBoxes(), 0);
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

TEST_F(Form5Test, OpensWithADivisionThatTheTimeOfDayDecidesAndTheFocusInItsGrid)
{
    EXPECT_EQ(statement(), "86,18 ÷ 2");
    EXPECT_EQ(rows(), Rows { " 86,18" });
    EXPECT_EQ(divisor(), "2");
    EXPECT_EQ(quotient(), "");
    EXPECT_EQ(score(), "Ejercicios:  0; Errores:  0");
    EXPECT_EQ(FocusName(), "Text1");

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
    show("97", "6");
    Type("37");
    Press(Qt::Key_Down);
    Press(Qt::Key_Left);
    Type("1");
    EXPECT_EQ(rows(), (Rows { " 97", " 37", "  1" }));
    Press(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "Text2");
    Press(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "Text3");
    Type("16");
    EXPECT_EQ(quotient(), "16") << "from left to right";
    Press(Qt::Key_Tab);
    Press(Qt::Key_Return);
    EXPECT_EQ(statement(), "resultado correcto");
    EXPECT_FALSE(Form.Text4->textCursor().hasSelection());
    EXPECT_EQ(score(), "Ejercicios:  1; Errores:  0");
    EXPECT_EQ(FocusName(), "Command2(0)");
    Press(Qt::Key_Return);
    EXPECT_EQ(FocusName(), "Text1");
    EXPECT_EQ(rows().size(), 1U);
    EXPECT_EQ(quotient(), "");
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
    Type("06");
    EXPECT_EQ(rows(), (Rows { " 86,18", " 06" }));
    for (const char* button : { "Command2(1)", "Command2(0)" }) { // clear and continue
        typeIntoRow(30, "9");
        click(button);
        EXPECT_EQ(Form.Text1->FirstShownRow(), 0) << "the dividend is seen";
        Type("1");
        ASSERT_EQ(rows().size(), 2U);
        EXPECT_EQ(rows()[1], " 1");
    }
    enterDividend("97");
    Type("3");
    EXPECT_EQ(rows(), (Rows { " 97", " 3" }));
}

TEST_F(Form5Test, BackspaceDeletePointAndSpaceWriteOneBlankEachAndNothingInTheDividendsRow)
{
    for (const int key : { int(Qt::Key_Backspace), int(Qt::Key_Delete), int(Qt::Key_Period), int(Qt::Key_Space) }) {
        typeIntoRow(1, "12");
        Press(Qt::Key_Home);
        Press(key);
        EXPECT_EQ(rows(), (Rows { " 86,18", " 2" })) << key;
        expectPosition("9 / 8");
        Press(Qt::Key_Up);
        Press(key);
        Type("123");
        EXPECT_EQ(rows(), (Rows { " 86,18", " 2" })) << key;
        expectPosition("1 / 8");
    }
}

TEST_F(Form5Test, AClickInTheGridPutsTheCaretThereAndF5ShowsWhereWhateverHasTheFocus)
{
    Form.Text3->setFocus();
    QTest::mouseClick(Form.Text1, Qt::LeftButton, {}, Form.Text1->CellRect(18).center());
    EXPECT_EQ(FocusName(), "Text1");
    for (const char* name : { "Text1", "Text2", "Text3", "Text4", "tbResultados", "Command1" }) {
        Find<QWidget>(Form, name).setFocus();
        Form.Text4->SetText("");
        expectPosition("18 / 8");
    }
}

TEST_F(Form5Test, FocusHintsSayWhatABoxIsUnlessTheFocusComesBackFromABoxOrAMenu)
{
    click("Text2");
    EXPECT_EQ(statement(), "Divisor");
    Type("5");
    EXPECT_EQ(divisor(), "2") << "it takes no typing";
    click("Text3");
    EXPECT_EQ(statement(), "Cociente");
    Type("43");
    Press(Qt::Key_Return);
    EXPECT_EQ(score(), "Ejercicios:  0; Errores:  0") << "Enter checks nothing here";
    click("Text1");
    EXPECT_EQ(statement(), "Cociente") << "the grid has no hint";

    click("Text3");
    enterDivisor("7");
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
    show("84", "4");
    typeIntoRow(1, " 0");
    Form.Text3->setFocus();
    Type("20");
    Form.Command1_Click();
    EXPECT_EQ(statement(), "Resultado incorrecto");
    EXPECT_FALSE(Form.Text4->textCursor().hasSelection());
    EXPECT_EQ(FocusName(), "Text3");
    EXPECT_EQ(score(), "Ejercicios:  1; Errores:  1");
    click("Command1");
    EXPECT_EQ(FocusName(), "Command1");
    EXPECT_EQ(score(), "Ejercicios:  2; Errores:  2");
    Form.Text3->SetText("21");
    for (int times = 0; times < 2; ++times) { // a right answer counts once
        click("Command1");
        EXPECT_EQ(statement(), "resultado correcto");
        EXPECT_EQ(score(), "Ejercicios:  3; Errores:  2");
    }
}

TEST_F(Form5Test, AQuotientWithDecimalsIsNotChecked)
{
    choose("MnuOpcDeCLis(1)");
    const std::string before = statement();
    ExpectMessage("Numbrela",
        "El número de decimales no es cero, por favor utilice la opción \"Ver solución\" para comprobar su resultado.");
    click("Command1");
    EXPECT_EQ(PendingBoxes(), 0);
    EXPECT_EQ(statement(), before);
    EXPECT_EQ(score(), "Ejercicios:  0; Errores:  0");
}

TEST_F(Form5Test, AScoreOfFourDigitsIsSaidAndTheActivityGoesOn)
{
    Form.Text3->SetText("1");
    for (int times = 0; times < 999; ++times) {
        Form.Command1_Click();
    }
    typeIntoRow(1, "0");
    for (const bool right : { false, true, true, false }) {
        Form.Text3->SetText(right ? "43,09" : "1"); // 43,09 leaves nothing
        ExpectMessage("Numbrela", "El número 1000 no cabe en 3 caracteres.");
        click("Command1");
        EXPECT_EQ(PendingBoxes(), 0) << "it is said each time";
        EXPECT_EQ(statement(), right ? "resultado correcto" : "Resultado incorrecto");
        EXPECT_EQ(score(), "Ejercicios:999; Errores:999");
    }
    click("Command2(2)");
    click("Command1");
    EXPECT_EQ(statement(), "resultado correcto") << "what is not scored is judged as ever";
    EXPECT_EQ(score(), "Ejercicios:999; Errores:999");
    click("Command2(0)");
    EXPECT_EQ(quotient(), "");
}

// ----------------------------------------------------------------------------------------- continue, clear, solution

TEST_F(Form5Test, ContinueDrawsTheNextDivisionAndClearKeepsIt)
{
    for (const bool clear : { true, false }) {
        typeIntoRow(1, "123");
        typeIntoRow(30, "9");
        Form.Text3->SetText("9");
        Form.Text4->SetText("");
        click(clear ? "Command2(1)" : "Command2(0)");
        EXPECT_EQ(quotient(), "");
        EXPECT_EQ(score(), "Ejercicios:  0; Errores:  0");
        EXPECT_EQ(FocusName(), "Text1");
        EXPECT_EQ(Form.Text1->FirstShownRow(), 0) << "the dividend is seen";
        ASSERT_EQ(rows().size(), 1U);
        EXPECT_EQ(rows() == Rows { " 86,18" }, clear);
        EXPECT_EQ(statement(), clear ? std::string() : rows()[0].substr(1) + " ÷ " + divisor());
        expectPosition("9 / 8");
    }
}

TEST_F(Form5Test, TheSolutionIsShownFromItsTopAndEndsTheExercise)
{
    click("Command2(2)");
    EXPECT_EQ(quotient(), "43,09");
    EXPECT_EQ(rows(), (Rows { " 86,18", " 06", "  0 18", "     0" }));
    EXPECT_EQ(statement(), "");
    EXPECT_EQ(FocusName(), "Command2(0)");
    click("Command1");
    EXPECT_EQ(statement(), "resultado correcto");
    EXPECT_EQ(score(), "Ejercicios:  0; Errores:  0");

    choose("MnuOpcDivLis(8)");
    choose("MnuOpcDeDLis(5)");
    choose("MnuOpcRes");
    Form.Text1->setFocus();
    typeIntoRow(40, "1");
    EXPECT_GT(Form.Text1->FirstShownRow(), 0);
    click("Command2(2)");
    EXPECT_GT(rows().size(), 20U);
    EXPECT_EQ(Form.Text1->FirstShownRow(), 0);
}

TEST_F(Form5Test, ASolutionThatDoesNotFitIsSaidAndNothingIsLost)
{
    show("84", "3000000000");
    typeIntoRow(1, " 7");
    Form.Text3->setFocus();
    Type("5");
    ExpectMessage("Numbrela", "Los números de esta división son demasiado grandes para resolverla paso a paso.");
    click("Command2(2)");
    EXPECT_EQ(quotient(), "5");
    EXPECT_EQ(rows(), (Rows { " 84", " 7" }));
    EXPECT_EQ(statement(), "Cociente");
    click("Command1");
    EXPECT_EQ(score(), "Ejercicios:  1; Errores:  1") << "it is scored still";
}

// ------------------------------------------------------------------------------------------------------------- options

TEST_F(Form5Test, AListItemIsCheckedAloneAndDrawsANewDivisionThatIsScored)
{
    const struct {
        OptionMenu* Menu;
        const char* Name;
        int Default;
    } lists[] = {
        { Form.MnuOpcDiv, "MnuOpcDivLis(%1)", 1 },
        { Form.MnuOpcDeD, "MnuOpcDeDLis(%1)", 2 },
        { Form.MnuOpcDis, "MnuOpcDisLis(%1)", 0 },
        { Form.MnuOpcDeC, "MnuOpcDeCLis(%1)", 0 },
    };
    for (const auto& [menu, name, checkedFirst] : lists) {
        EXPECT_EQ(CheckedItems(*menu), std::vector<int> { checkedFirst }) << name;
        std::vector<int> choices { checkedFirst }; // it draws although it is checked already
        for (int index = static_cast<int>(menu->Items().size()) - 1; index >= 0; --index) {
            choices.push_back(index);
        }
        choices.push_back(checkedFirst);
        for (const int index : choices) {
            click("Command2(2)");
            const std::string before = rows()[0].substr(1) + " ÷ " + divisor();
            choose(QString::fromLatin1(name).arg(index));
            EXPECT_EQ(CheckedItems(*menu), std::vector<int> { index });
            EXPECT_EQ(quotient(), "");
            EXPECT_NE(statement(), before) << name;
        }
        const std::string before = score();
        click("Command1");
        EXPECT_EQ(statement(), "Resultado incorrecto") << name;
        EXPECT_NE(score(), before) << name;
    }
}

TEST_F(Form5Test, ListsSetTheDigitsAndDecimals)
{
    choose("MnuOpcDivLis(4)");
    choose("MnuOpcDeDLis(3)");
    choose("MnuOpcDisLis(2)");
    EXPECT_EQ(statement().find(','), 5U);
    EXPECT_EQ(statement().find(" ÷ "), 9U);
    EXPECT_EQ(divisor().size(), 3U);
}

TEST_F(Form5Test, TheItemOfTheSubtractionsLosesItsAccessKeyAndDrawsANewDivisionThatIsScored)
{
    EXPECT_EQ(Form.MnuOpcRes->text().toStdString(), "&Restas intermedias (No)");
    click("Command2(2)");
    std::string last = "86,18 ÷ 2";
    for (const char* caption : { "Restas intermedias (Si)", "Restas intermedias (No)", "Restas intermedias (Si)" }) {
        choose("MnuOpcRes");
        EXPECT_EQ(Form.MnuOpcRes->text().toStdString(), caption);
        EXPECT_NE(statement(), last) << "a new division";
        last = statement();
    }
    click("Command1");
    EXPECT_EQ(score(), "Ejercicios:  1; Errores:  1");
    choose("MnuOpcDeDLis(0)");
    click("Command2(2)");
    EXPECT_NE(rows()[1].find('-'), std::string::npos);
}

// ------------------------------------------------------------------------------------------------------- own numbers

TEST_F(Form5Test, EnteredNumbersAreLaidOut)
{
    typeIntoRow(1, "7");
    Form.Text3->SetText("9");
    enterDivisor("-12,9");
    EXPECT_EQ(statement(), "86,18 ÷ -12");
    EXPECT_EQ(divisor(), "-12");
    EXPECT_EQ(quotient(), "9");
    EXPECT_EQ(rows(), (Rows { " 86,18", "7" }));
    EXPECT_EQ(CheckedItems(*Form.MnuOpcDis), std::vector<int> { 4 }) << "five characters were typed";

    typeIntoRow(30, "9");
    enterDividend(" 1234,5");
    EXPECT_EQ(Form.Text1->FirstShownRow(), 0) << "the dividend is seen";
    EXPECT_EQ(statement(), "1234 ÷ -12");
    EXPECT_EQ(rows(), Rows { " 1234" });
    EXPECT_EQ(quotient(), "9");
    EXPECT_EQ(CheckedItems(*Form.MnuOpcDiv), std::vector<int> { 5 }) << "six characters were typed";
    EXPECT_EQ(CheckedItems(*Form.MnuOpcDeD), std::vector<int> { 2 });
    EXPECT_EQ(Form.Area().RectOf(Form.Text1), (TwipsRect { 2600 - 165 * 10 - 5, 500, 165 * 10, 7000 }));
    expectPosition("11 / 10");
}

TEST_F(Form5Test, NothingHappensWithoutANumberOtherThanZero)
{
    for (const char* typed : { "", "   ", "0", "0,5", "abc", "-" }) {
        enterDividend(typed);
        enterDivisor(typed);
        EXPECT_EQ(statement(), "86,18 ÷ 2") << typed;
    }
    ExpectInputCancelled("Introducir dividendo", "", "97");
    Press(Qt::Key_F2);
    ExpectInputCancelled("Introducir divisor", "", "7");
    Press(Qt::Key_F3);
    EXPECT_EQ(statement(), "86,18 ÷ 2");
    EXPECT_EQ(CheckedItems(*Form.MnuOpcDiv), std::vector<int> { 1 });
}

TEST_F(Form5Test, TenDigitsAndMoreCheckNoItem)
{
    enterDividend("1234567890");
    enterDivisor("12345678901");
    EXPECT_EQ(statement(), "1234567890 ÷ 12345678901");
    EXPECT_EQ(CheckedItems(*Form.MnuOpcDiv), std::vector<int> {});
    EXPECT_EQ(CheckedItems(*Form.MnuOpcDis), std::vector<int> {});
    choose("MnuOpcDivLis(3)");
    EXPECT_EQ(CheckedItems(*Form.MnuOpcDiv), std::vector<int> { 3 });
    EXPECT_EQ(divisor().size(), 11U) << "the next divisors are as long as the one that was entered";
}

TEST_F(Form5Test, WhatDoesNotFitIsSaidAndTheDivisionStays)
{
    expectRefused(Qt::Key_F2, "1e400", "86,18", "El número escrito es demasiado grande.");
    expectRefused(Qt::Key_F3, "1e400", "2", "El número escrito es demasiado grande.");
    expectRefused(Qt::Key_F2, std::string(200, '1'), "86,18", "El número tiene demasiadas cifras.");
    EXPECT_EQ(statement(), "86,18 ÷ 2");
    EXPECT_EQ(rows(), Rows { " 86,18" });

    enterDivisor(std::string(320, '0') + "5");
    EXPECT_EQ(statement(), "86,18 ÷ 5");
    ExpectMessage("Numbrela", "El número tiene demasiadas cifras. Elija menos en el menú Opciones.");
    click("Command2(0)");
    EXPECT_EQ(statement(), "86,18 ÷ 5");
    choose("MnuOpcDisLis(0)");
    EXPECT_EQ(divisor().size(), 1U);
}

// ------------------------------------------------------------------------------------------------------- the layout

TEST_F(Form5Test, TheGridEndsAtTheBarAndTheWindowGrowsAroundItAndComesBack)
{
    QCoreApplication::processEvents();
    const QSize before = Form.size();
    const auto chooseOptions = [this](int digits, int decimals, int quotientDecimals) {
        choose(QStringLiteral("MnuOpcDivLis(%1)").arg(digits - 1));
        choose(QStringLiteral("MnuOpcDeDLis(%1)").arg(decimals));
        choose(QStringLiteral("MnuOpcDeCLis(%1)").arg(quotientDecimals));
        const int columns = digits + 4 + decimals + quotientDecimals;
        EXPECT_EQ(Form.Text1->Grid().LineWidth, columns);
        EXPECT_EQ(Form.Area().RectOf(Form.Text1), (TwipsRect { 2600 - 165 * columns - 5, 500, 165 * columns, 7000 }));
        QCoreApplication::processEvents();
    };
    chooseOptions(5, 0, 5);
    chooseOptions(9, 5, 5);
    EXPECT_EQ(Form.width(), before.width() + 100) << "23 columns reach 1200 twips beyond the edge, and 300 are free";
    EXPECT_EQ(Form.height(), before.height());
    EXPECT_EQ(Form.Text1->x(), 20);
    EXPECT_EQ(Form.Text1->width(), 253) << "at the scale that it had";
    EXPECT_TRUE(Form.rect().contains(Form.tbResultados->geometry()));
    chooseOptions(1, 0, 0);
    EXPECT_EQ(Form.size(), before);
    choose("MnuOpcSal");
    EXPECT_FALSE(Form.isVisible());
}

TEST_F(Form5Test, TheWindowNeverOutgrowsTheScreen)
{
    enterDivisor(std::string(300, '7'));
    for (const std::size_t digits : { 10U, 60U, 193U, 194U }) { // 194 are the most that a grid holds
        SCOPED_TRACE(digits);
        enterDividend(std::string(digits, '1'));
        QCoreApplication::processEvents();
        EXPECT_TRUE(Form.screen()->availableGeometry().contains(Form.frameGeometry()));
        for (const QWidget* control : Form.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            EXPECT_TRUE(Form.rect().contains(control->geometry())) << control->objectName().toStdString();
        }
        EXPECT_GT(Form.Text1->CellRect(0).width(), 2) << "a character has more than a line";
        EXPECT_EQ(rows(), Rows { " " + PlainDecimalText(Form.Text1->Grid().RowValue(0)) });
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
    const auto settle = [] {
        for (int times = 0; times < 20; ++times) {
            QCoreApplication::processEvents();
        }
    };
    enterDivisor("12345678901234567890");
    settle();
    EXPECT_LT(Form.Text2->font().pixelSize(), 19);
    for (TextBox* box : { Form.Text2, Form.Text3 }) {
        box->SetText(std::string(25, '8'));
        EXPECT_LT(QFontMetrics(box->font()).horizontalAdvance(box->text()), box->width()) << "seen whole";
    }
    QCoreApplication::processEvents();
    LayoutCounter counter;
    Form.installEventFilter(&counter);
    settle();
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

#include "activities/placeadd/screen/FormColoSuma.h"

#include "common/core/NumberText.h"
#include "common/screen/CommandButton.h"
#include "common/screen/TextBox.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/Shown.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFontInfo>
#include <QLabel>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

const std::string eightBlanks(8, ' ');
const std::string sevenBlanks(7, ' ');

class FormColoSumaTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ShowAndActivate(form_);
        expected_.NewPlaceAndAdd();
    }

    TextBox& addend(std::size_t index) { return *form_.TbSumando.at(index); }
    std::string sum() const { return form_.TbResultado->Text(); }
    std::string verdict() const { return form_.Text1->Text(); }
    std::string line() const { return form_.TBDatos->Text(); }

    std::vector<std::string> addends() const
    {
        std::vector<std::string> texts;
        for (const TextBox* box : form_.TbSumando) {
            texts.push_back(box->Text());
        }
        return texts;
    }

    void chooseAddends(int count)
    {
        Choose(form_, QStringLiteral("MnuOpcSumLis(%1)").arg(count - 2));
        expected_.AddendCount = count;
        expected_.NewPlaceAndAdd();
    }

    void chooseDigits(int digits)
    {
        Choose(form_, QStringLiteral("MnuOpcCifLis(%1)").arg(digits - 2));
        expected_.MaxDigits = digits;
        expected_.NewPlaceAndAdd();
    }

    void next()
    {
        Click(form_, QStringLiteral("Command2(0)"));
        expected_.NewPlaceAndAdd();
    }

    // Draws until a pupil can be right.
    void nextWithWholeSum()
    {
        do {
            next();
        } while (expected_.AddendSum != std::floor(expected_.AddendSum));
    }

    void nextWithDecimalSum()
    {
        do {
            next();
        } while (expected_.AddendSum == std::floor(expected_.AddendSum));
    }

    void nextThatIsTooLong()
    {
        chooseDigits(5);
        while (expected_.AddendSum < 10000) {
            next();
        }
    }

    void typeSum(const std::string& text)
    {
        form_.TbResultado->setFocus();
        Press(Qt::Key_Home);
        Type(QString::fromStdString(text));
    }

    FixedClock clock_;
    FormColoSuma form_ { clock_ };
    SeededRandom random_ { 37230 };
    PlaceAndAdd expected_ { random_ };
};

// A fresh window, for each box that is typed into: the addends and the sum follow the same rules.
struct ColumnBox {
    const char* Name;
    int Length;
};

class FormColoSumaBoxTest : public FormColoSumaTest, public ::testing::WithParamInterface<ColumnBox> {
protected:
    void SetUp() override
    {
        FormColoSumaTest::SetUp();
        box().setFocus();
    }

    TextBox& box() { return Find<TextBox>(form_, QString::fromLatin1(GetParam().Name)); }

    // What is typed, followed by the blanks that are left of the box.
    std::string filled(const std::string& text) const
    {
        return text + std::string(static_cast<std::size_t>(GetParam().Length) - text.size(), ' ');
    }
};

INSTANTIATE_TEST_SUITE_P(FormColoSuma, FormColoSumaBoxTest,
    ::testing::Values(ColumnBox { "TbSumando(0)", 8 }, ColumnBox { "TbSumando(3)", 8 }, ColumnBox { "TbResultado", 7 }),
    [](const auto& instance) {
        std::string name = instance.param.Name;
        std::erase_if(name, [](char c) { return c == '(' || c == ')'; });
        return name;
    });

// ------------------------------------------------------------------------------------------------------------ at load

TEST_F(FormColoSumaTest, OpensWithFourAddendsAndTheFocusInTheFirstBox)
{
    EXPECT_EQ(line(), expected_.DataLine());
    EXPECT_EQ(addends(), std::vector(4, eightBlanks));
    EXPECT_EQ(sum(), sevenBlanks);
    EXPECT_EQ(verdict(), "");
    EXPECT_EQ(FocusName(), "TbSumando(0)");
    EXPECT_EQ(addend(0).CaretPosition(), 0);
}

TEST_F(FormColoSumaTest, TheTabKeyGoesDownTheColumnAndThenThroughTheFrame)
{
    std::vector<std::string> sequence;
    for (int i = 0; i < 12; ++i) {
        sequence.push_back(FocusName());
        Press(Qt::Key_Tab);
    }
    EXPECT_EQ(sequence,
        (std::vector<std::string> { "TbSumando(0)", "TbSumando(1)", "TbSumando(2)", "TbSumando(3)", "TbResultado",
            "Command1", "Text1", "Command2(0)", "Command2(1)", "Command2(2)", "TBInstruc", "TBDatos" }));
    EXPECT_EQ(FocusName(), "TbSumando(0)");
}

TEST_F(FormColoSumaTest, BoxesMadeLaterComeBeforeTheSum)
{
    chooseAddends(6);
    addend(3).setFocus();
    std::vector<std::string> sequence;
    for (int i = 0; i < 4; ++i) {
        sequence.push_back(FocusName());
        Press(Qt::Key_Tab);
    }
    EXPECT_EQ(sequence, (std::vector<std::string> { "TbSumando(3)", "TbSumando(4)", "TbSumando(5)", "TbResultado" }));
    chooseAddends(2);
    addend(1).setFocus();
    Press(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "TbResultado") << "hidden boxes are left out";
}

// ------------------------------------------------------------------------------------------------------------- typing

TEST_P(FormColoSumaBoxTest, TypingReplacesTheBlanks)
{
    Type(QStringLiteral("  12,5"));
    EXPECT_EQ(box().Text(), filled("  12,5"));
    EXPECT_EQ(box().CaretPosition(), 6);
}

TEST_P(FormColoSumaBoxTest, EveryDigitAndTheCommaAndTheBlankAreWritten)
{
    for (const char character : std::string("0123456789, ")) {
        Press(Qt::Key_Home);
        Type(QStringLiteral("7"));
        Press(Qt::Key_Home);
        Type(QString(QLatin1Char(character)));
        EXPECT_EQ(box().Text(), filled(std::string(1, character)));
        EXPECT_EQ(box().CaretPosition(), 1);
    }
}

TEST_P(FormColoSumaBoxTest, TypingReplacesWhatWasTypedBefore)
{
    Type(QStringLiteral("1234"));
    Press(Qt::Key_Home);
    Press(Qt::Key_Right);
    Type(QStringLiteral("9,"));
    EXPECT_EQ(box().Text(), filled("19,4"));
    EXPECT_EQ(box().CaretPosition(), 3);
}

TEST_P(FormColoSumaBoxTest, NothingIsWrittenBehindTheLastColumn)
{
    Type(QStringLiteral("123456789012"));
    EXPECT_EQ(box().Text(), std::string("12345678").substr(0, std::size_t(GetParam().Length)));
    EXPECT_EQ(box().CaretPosition(), GetParam().Length);
}

TEST_P(FormColoSumaBoxTest, BackspaceWritesABlank)
{
    Type(QStringLiteral("1234"));
    Press(Qt::Key_Home);
    Press(Qt::Key_Right);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(box().Text(), filled("1 34"));
    EXPECT_EQ(box().CaretPosition(), 2);
    Press(Qt::Key_End);
    Press(Qt::Key_Backspace);
    EXPECT_EQ(box().Text(), filled("1 34"));
}

TEST_P(FormColoSumaBoxTest, DeleteWritesABlankAndKeepsTheCaret)
{
    Type(QStringLiteral("1234"));
    Press(Qt::Key_Home);
    Press(Qt::Key_Right);
    Press(Qt::Key_Delete);
    EXPECT_EQ(box().Text(), filled("1 34"));
    EXPECT_EQ(box().CaretPosition(), 1);
    Press(Qt::Key_Delete);
    EXPECT_EQ(box().Text(), filled("1 34"));
    Press(Qt::Key_End);
    Press(Qt::Key_Delete);
    EXPECT_EQ(box().Text(), filled("1 34"));
    EXPECT_EQ(box().CaretPosition(), GetParam().Length);
}

TEST_P(FormColoSumaBoxTest, OtherKeysWriteNothingIntoAFullBox)
{
    Type(QStringLiteral("12"));
    Press(Qt::Key_Home);
    for (const int key : { int(Qt::Key_A), int(Qt::Key_Period), int(Qt::Key_Minus), int(Qt::Key_Plus),
             int(Qt::Key_Return), int(Qt::Key_Enter), int(Qt::Key_Escape) }) {
        Press(key);
        EXPECT_EQ(box().Text(), filled("12")) << key;
        EXPECT_EQ(box().CaretPosition(), 0) << key;
    }
    EXPECT_EQ(verdict(), "");
    EXPECT_TRUE(form_.isVisible());
}

TEST_P(FormColoSumaBoxTest, TypingOverAHighlightKeepsEveryColumn)
{
    for (const int key : { int(Qt::Key_7), int(Qt::Key_A), int(Qt::Key_Backspace), int(Qt::Key_Delete) }) {
        Press(Qt::Key_Home);
        Type(QStringLiteral("1234"));
        box().SelectWholeText();
        Press(key);
        EXPECT_EQ(box().Text(), filled(key == Qt::Key_7 ? "7234" : key == Qt::Key_A ? "1234" : " 234")) << key;
    }
}

TEST_F(FormColoSumaTest, AShortTextIsInsertedIntoAsWellAsTypedOver)
{
    Click(form_, QStringLiteral("Command2(2)"));
    addend(0).SetText("   7");
    addend(0).setFocus();
    addend(0).SetCaretPosition(0);
    Type(QStringLiteral("1"));
    EXPECT_EQ(addend(0).Text(), "11  7") << "only a full box refuses the insertion";
}

TEST_F(FormColoSumaTest, TheDataCannotBeTypedOver)
{
    const std::string before = line();
    for (const char* name : { "TBInstruc", "TBDatos", "Text1" }) {
        Click(form_, QString::fromLatin1(name));
        Type(QStringLiteral("7"));
        Press(Qt::Key_Backspace);
    }
    EXPECT_EQ(line(), before);
    EXPECT_EQ(form_.TBInstruc->Text(), "Coloca los números en vertical y súmalos");
    EXPECT_EQ(verdict(), "");
}

// ----------------------------------------------------------------------------------------------------------- checking

TEST_F(FormColoSumaTest, AWholeSumIsJudgedRight)
{
    nextWithWholeSum();
    typeSum("  " + PlainDecimalText(expected_.AddendSum));
    Click(form_, QStringLiteral("Command1"));
    EXPECT_EQ(verdict(), "Resultado correcto ");
    EXPECT_TRUE(IsWhollySelected(*form_.Text1));
    EXPECT_EQ(FocusName(), "Command1") << "where the click has put it";
}

TEST_F(FormColoSumaTest, ASumWithDecimalsIsJudgedWrong)
{
    nextWithDecimalSum();
    typeSum(PlainDecimalText(expected_.AddendSum));
    Click(form_, QStringLiteral("Command1"));
    EXPECT_EQ(verdict(), "Resultado incorrecto");
    EXPECT_TRUE(IsWhollySelected(*form_.Text1));
}

TEST_F(FormColoSumaTest, EveryClickChangesTheVerdict)
{
    nextWithWholeSum();
    for (const char* expected : { "Resultado incorrecto", "Resultado incorrecto ", "Resultado incorrecto" }) {
        Click(form_, QStringLiteral("Command1"));
        EXPECT_EQ(verdict(), expected);
        EXPECT_TRUE(IsWhollySelected(*form_.Text1));
    }
    typeSum(PlainDecimalText(expected_.AddendSum));
    for (const char* expected : { "Resultado correcto ", "Resultado correcto  ", "Resultado correcto " }) {
        Click(form_, QStringLiteral("Command1"));
        EXPECT_EQ(verdict(), expected);
        EXPECT_TRUE(IsWhollySelected(*form_.Text1));
    }
}

TEST_F(FormColoSumaTest, CheckingMovesNoFocusAndNoText)
{
    Type(QStringLiteral("12"));
    const auto before = addends();
    form_.Command1_Click();
    EXPECT_EQ(FocusName(), "TbSumando(0)");
    EXPECT_EQ(addends(), before);
    EXPECT_EQ(sum(), sevenBlanks);
}

TEST_F(FormColoSumaTest, ThePlacementIsNotJudged)
{
    nextWithWholeSum();
    Type(QStringLiteral("99999999"));
    typeSum(PlainDecimalText(expected_.AddendSum));
    Click(form_, QStringLiteral("Command1"));
    EXPECT_EQ(verdict(), "Resultado correcto ");
}

// ------------------------------------------------------------------------------------------------- the other buttons

TEST_F(FormColoSumaTest, ContinuingDrawsAndKeepsTheVerdict)
{
    Type(QStringLiteral("12"));
    typeSum("34");
    Click(form_, QStringLiteral("Command1"));
    next();
    EXPECT_EQ(line(), expected_.DataLine());
    EXPECT_EQ(addends(), std::vector(4, eightBlanks));
    EXPECT_EQ(sum(), sevenBlanks);
    EXPECT_EQ(verdict(), "Resultado incorrecto");
    EXPECT_EQ(FocusName(), "TbSumando(0)");
    EXPECT_EQ(addend(0).CaretPosition(), 0);
}

TEST_F(FormColoSumaTest, ClearingGivesTheSumOneBlankMoreThanANewExercise)
{
    Type(QStringLiteral("12"));
    typeSum("34");
    Click(form_, QStringLiteral("Command1"));
    Click(form_, QStringLiteral("Command2(1)"));
    EXPECT_EQ(line(), expected_.DataLine());
    EXPECT_EQ(addends(), std::vector(4, eightBlanks));
    EXPECT_EQ(sum(), eightBlanks);
    EXPECT_EQ(verdict(), "Resultado incorrecto");
    EXPECT_EQ(FocusName(), "TbSumando(0)");
    EXPECT_EQ(addend(0).CaretPosition(), 0);

    typeSum("123456789");
    EXPECT_EQ(sum(), "12345678");
    next();
    EXPECT_EQ(sum(), sevenBlanks);
    typeSum("123456789");
    EXPECT_EQ(sum(), "1234567");
}

TEST_F(FormColoSumaTest, ClearingReachesHiddenBoxes)
{
    chooseAddends(6);
    addend(5).setFocus();
    Type(QStringLiteral("123"));
    chooseAddends(2);
    EXPECT_EQ(addend(5).Text(), "123     ");
    Click(form_, QStringLiteral("Command2(1)"));
    EXPECT_EQ(addends(), std::vector(6, eightBlanks));
}

TEST_F(FormColoSumaTest, TheSolutionStandsInTheBoxesUnitsUnderUnits)
{
    Click(form_, QStringLiteral("Command1"));
    Click(form_, QStringLiteral("Command2(2)"));
    const PlaceAndAdd::Placement solution = expected_.Solution();
    EXPECT_EQ(addends(), solution.Addends);
    EXPECT_EQ(sum(), solution.Sum);
    EXPECT_EQ(verdict(), "");
    EXPECT_EQ(FocusName(), "TbResultado");
    for (const std::string& text : addends()) {
        EXPECT_TRUE(text.size() == 4 || text[4] == ',') << text;
    }
}

TEST_F(FormColoSumaTest, TheSolutionOfAWholeSumIsRight)
{
    nextWithWholeSum();
    Click(form_, QStringLiteral("Command2(2)"));
    Click(form_, QStringLiteral("Command1"));
    EXPECT_EQ(verdict(), "Resultado correcto ");
}

TEST_F(FormColoSumaTest, ASolutionTooLongForItsColumnsIsToldAndTheExerciseGoesOn)
{
    nextThatIsTooLong();
    Type(QStringLiteral("  12"));
    typeSum("34");
    Click(form_, QStringLiteral("Command1"));
    const auto before = addends();
    ExpectMessage(QStringLiteral("Numbrela"),
        QStringLiteral("La suma es %1.\n\nTiene más de cuatro cifras enteras: la solución no cabe en las columnas.")
            .arg(QString::fromStdString(PlainDecimalText(expected_.AddendSum))));
    Click(form_, QStringLiteral("Command2(2)"));
    EXPECT_EQ(addends(), before);
    EXPECT_EQ(sum(), "34     ");
    EXPECT_EQ(verdict(), "Resultado incorrecto");
    EXPECT_EQ(line(), expected_.DataLine());

    typeSum("98765");
    EXPECT_EQ(sum(), "98765  ");
    next();
    EXPECT_EQ(line(), expected_.DataLine());
}

TEST_F(FormColoSumaTest, EveryBoxShowsItsTextWithTheSameColumns)
{
    chooseAddends(6);
    Click(form_, QStringLiteral("Command2(2)"));
    for (const QSize size : { form_.size(), QSize(1280, 800), QSize(640, 480) }) {
        form_.resize(size);
        QCoreApplication::processEvents();
        for (const TextBox* box : form_.TbSumando) {
            EXPECT_EQ(box->x(), form_.TbResultado->x());
            EXPECT_EQ(box->width(), form_.TbResultado->width());
            EXPECT_EQ(box->font(), form_.TbResultado->font());
            EXPECT_EQ(box->alignment(), form_.TbResultado->alignment());
            EXPECT_TRUE(QFontInfo(box->font()).fixedPitch());
        }
    }
}

// ------------------------------------------------------------------------------------------------------------ options

TEST_F(FormColoSumaTest, ChoosingTheNumberOfAddendsDrawsAndMovesTheMark)
{
    for (const int count : { 6, 2, 5, 3, 4 }) {
        Click(form_, QStringLiteral("Command1"));
        const std::string shown = verdict();
        chooseAddends(count);
        EXPECT_EQ(line(), expected_.DataLine());
        EXPECT_EQ(CheckedItems(*form_.MnuOpcSum), std::vector { count - 2 });
        EXPECT_EQ(CheckedItems(*form_.MnuOpcCif), std::vector { 1 });
        EXPECT_EQ(form_.TbSumando.size(), 6U) << "boxes once made are kept";
        for (std::size_t i = 0; i < form_.TbSumando.size(); ++i) {
            EXPECT_EQ(addend(i).isVisible(), static_cast<int>(i) < count);
            EXPECT_EQ(addend(i).isEnabled(), static_cast<int>(i) < count);
        }
        EXPECT_EQ(verdict(), shown);
        Click(form_, QStringLiteral("Command2(2)"));
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
            EXPECT_EQ(addend(i).Text(), expected_.Solution().Addends[i]);
        }
    }
}

TEST_F(FormColoSumaTest, ChoosingDigitsDrawsAndMovesTheMark)
{
    for (const int digits : { 5, 2, 4, 3 }) {
        Type(QStringLiteral("12"));
        chooseDigits(digits);
        EXPECT_EQ(line(), expected_.DataLine());
        EXPECT_EQ(addends(), std::vector(4, eightBlanks));
        EXPECT_EQ(CheckedItems(*form_.MnuOpcCif), std::vector { digits - 2 });
        EXPECT_EQ(CheckedItems(*form_.MnuOpcSum), std::vector { 2 });
    }
}

TEST_F(FormColoSumaTest, FewerAddendsLeaveTheSignsOfTheOthersBehind)
{
    chooseAddends(6);
    std::vector<TwipsRect> places;
    std::vector<QString> captions;
    for (const QLabel* label : form_.LBSigno) {
        places.push_back(form_.Area().RectOf(label));
        captions.push_back(label->text());
    }
    EXPECT_EQ(captions.back(), QStringLiteral("="));
    for (const int count : { 4, 2, 3 }) {
        chooseAddends(count);
        for (std::size_t i = static_cast<std::size_t>(std::max(count, 4)); i < 6; ++i) {
            EXPECT_EQ(form_.Area().RectOf(form_.LBSigno[i]), places[i]);
            EXPECT_EQ(form_.LBSigno[i]->text(), captions[i]);
            EXPECT_TRUE(form_.LBSigno[i]->isVisible() && form_.LBSigno[i]->isEnabled());
        }
    }
    // The fourth sign was the sum's when there were four addends, and has stayed it.
    EXPECT_EQ(form_.LBSigno[3]->text(), QStringLiteral("="));
    EXPECT_TRUE(form_.LBSigno[3]->isVisible());
    EXPECT_EQ(form_.Area().RectOf(form_.LBSigno[3]), (TwipsRect { 900, 6800, 600, 600 }));

    chooseAddends(6);
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(form_.Area().RectOf(form_.LBSigno[i]), places[i]);
        EXPECT_EQ(form_.LBSigno[i]->text(), captions[i]);
    }
}

TEST_F(FormColoSumaTest, HiddenBoxesKeepTheirText)
{
    chooseAddends(6);
    Click(form_, QStringLiteral("Command2(2)"));
    const auto before = addends();
    chooseAddends(2);
    for (std::size_t i = 2; i < 6; ++i) {
        EXPECT_EQ(addend(i).Text(), before[i]);
    }
    EXPECT_EQ(addend(0).Text(), eightBlanks);
    chooseAddends(6);
    EXPECT_EQ(addends(), std::vector(6, eightBlanks));
}

TEST_F(FormColoSumaTest, TheExitClosesTheWindow)
{
    Choose(form_, QStringLiteral("MnuOpcSal"));
    EXPECT_FALSE(form_.isVisible());
}

// ---------------------------------------------------------------------------------------------------------- lifecycle

TEST_F(FormColoSumaTest, TheNextOpeningHasFourAddendsOfThreeDigitsAgain)
{
    const std::string firstLine = line();
    chooseAddends(6);
    chooseDigits(5);
    form_.close();
    FormColoSuma again(clock_);
    ShowAndActivate(again);
    EXPECT_EQ(again.TBDatos->Text(), firstLine);
    EXPECT_EQ(again.TbSumando.size(), 4U);
}

TEST_F(FormColoSumaTest, TheFractionOfTheSecondIsPartOfTheSeed)
{
    std::set<std::string> lines;
    for (const double fraction : { 0.0, 0.25, 0.5, 0.75 }) {
        const FixedClock clock({ 10, 20, 30, 37230 + fraction });
        const FormColoSuma form(clock);
        lines.insert(form.TBDatos->Text());
    }
    EXPECT_EQ(lines.size(), 4U);
}

} // namespace

} // namespace numbrela

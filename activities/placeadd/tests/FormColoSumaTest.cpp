#include "activities/placeadd/screen/FormColoSuma.h"

#include "common/core/NumberText.h"
#include "common/screen/CommandButton.h"
#include "common/screen/TextBox.h"
#include "tests/support/Boxes.h"
#include "tests/support/Driver.h"
#include "tests/support/FixedClock.h"
#include "tests/support/Shown.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QFontInfo>
#include <QLabel>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <utility>
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

    // Draws until the exercise is such a one.
    template <typename Condition>
    void nextUntil(Condition isWanted)
    {
        do {
            next();
        } while (!isWanted());
    }

    // A pupil can be right only where the sum is a whole number.
    bool hasWholeSum() const { return expected_.AddendSum == std::floor(expected_.AddendSum); }

    void expectEmptyBoxes(const std::string& emptySum)
    {
        EXPECT_EQ(line(), expected_.DataLine());
        EXPECT_EQ(addends(), std::vector(4, eightBlanks));
        EXPECT_EQ(sum(), emptySum);
        EXPECT_EQ(FocusName(), "TbSumando(0)");
        EXPECT_EQ(addend(0).CaretPosition(), 0);
        EXPECT_EQ(form_.TbResultado->CaretPosition(), 0);
    }

    // Writes something into boxes and verdict.
    void answerWrong()
    {
        form_.Text1->SetText("");
        addend(0).setFocus();
        Press(Qt::Key_Home);
        Type(QStringLiteral("12"));
        typeSum("34");
        Click(form_, QStringLiteral("Command1"));
        EXPECT_EQ(verdict(), "Resultado incorrecto");
    }

    // Draws until the sum and an addend, whose index it returns, fit their columns but have more characters than can be
    // typed.
    std::size_t nextThatIsLongerThanItsBoxes()
    {
        chooseDigits(5);
        std::size_t longest = 0;
        nextUntil([&] {
            if (expected_.AddendSum >= 10000) {
                return false;
            }
            const PlaceAndAdd::Placement solution = expected_.Solution();
            const auto longAddend = std::find_if(solution.Addends.begin(), solution.Addends.end(),
                [](const std::string& text) { return text.size() > eightBlanks.size(); });
            longest = static_cast<std::size_t>(longAddend - solution.Addends.begin());
            return longest < solution.Addends.size() && solution.Sum.size() > sevenBlanks.size();
        });
        return longest;
    }

    // Where a sign stands and what it says. All of them are always seen.
    using SignState = std::pair<TwipsRect, QString>;

    std::vector<SignState> signs() const
    {
        std::vector<SignState> states;
        for (const QLabel* label : form_.LBSigno) {
            EXPECT_TRUE(label->isVisible() && label->isEnabled());
            states.emplace_back(form_.Area().RectOf(label), label->text());
        }
        return states;
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

    // Writes digits into the first columns and highlights the first two of them.
    void highlightTwoOf(const std::string& digits)
    {
        box().SetText(filled(digits));
        Press(Qt::Key_Home);
        Press(Qt::Key_Right, Qt::ShiftModifier);
        Press(Qt::Key_Right, Qt::ShiftModifier);
    }
};

INSTANTIATE_TEST_SUITE_P(FormColoSuma, FormColoSumaBoxTest,
    ::testing::Values(ColumnBox { "TbSumando(0)", 8 }, ColumnBox { "TbSumando(3)", 8 }, ColumnBox { "TbResultado", 7 }),
    [](const auto& instance) {
        std::string name = instance.param.Name;
        std::erase_if(name, [](char c) { return c == '(' || c == ')'; });
        return name;
    });

TEST_F(FormColoSumaTest, OpensWithFourAddendsAndTheFocusInTheFirstBox)
{
    expectEmptyBoxes(sevenBlanks);
    EXPECT_EQ(verdict(), "");
}

TEST_F(FormColoSumaTest, BoxesMadeLaterComeBeforeTheSum)
{
    chooseAddends(6);
    addend(3).setFocus();
    for (const char* next : { "TbSumando(4)", "TbSumando(5)", "TbResultado" }) {
        Press(Qt::Key_Tab);
        EXPECT_EQ(FocusName(), next);
    }
    chooseAddends(2);
    addend(1).setFocus();
    Press(Qt::Key_Tab);
    EXPECT_EQ(FocusName(), "TbResultado") << "hidden boxes are left out";
}

TEST_P(FormColoSumaBoxTest, TypingReplacesTheBlanksAsFarAsThereAreColumns)
{
    Type(QStringLiteral("  12,5"));
    EXPECT_EQ(box().Text(), filled("  12,5"));
    EXPECT_EQ(box().CaretPosition(), 6);
    Type(QStringLiteral("789012"));
    EXPECT_EQ(box().Text(), std::string("  12,578").substr(0, std::size_t(GetParam().Length)));
    EXPECT_EQ(box().CaretPosition(), GetParam().Length);
}

// A key that is pressed behind the first digit of 1234.
struct Stroke {
    int Key;
    Qt::KeyboardModifiers Held;
    const char* Text;
    int Caret;
};

TEST_P(FormColoSumaBoxTest, AKeyWritesOverItsColumnOrWritesNothing)
{
    std::vector<Stroke> strokes {
        { Qt::Key_9, {}, "1934", 2 },
        { Qt::Key_0, {}, "1034", 2 },
        { Qt::Key_Comma, {}, "1,34", 2 },
        { Qt::Key_Space, {}, "1 34", 2 },
        // On a Spanish keyboard the decimal key of the keypad writes a comma, on others a point.
        { Qt::Key_Comma, Qt::KeypadModifier, "1,34", 2 },
        { Qt::Key_Period, Qt::KeypadModifier, "1234", 1 },
        { Qt::Key_Backspace, {}, "1 34", 2 },
        { Qt::Key_Backspace, Qt::ShiftModifier, "1 34", 2 },
        { Qt::Key_Backspace, Qt::ControlModifier, "1 34", 2 },
        { Qt::Key_Delete, {}, "1 34", 1 },
        { Qt::Key_Delete, Qt::ShiftModifier, "1 34", 1 },
        { Qt::Key_Delete, Qt::ControlModifier, "1 34", 1 },
        { Qt::Key_Delete, Qt::KeypadModifier, "1 34", 1 },
    };
    for (const int key :
        { Qt::Key_A, Qt::Key_Period, Qt::Key_Minus, Qt::Key_Plus, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape }) {
        strokes.push_back({ key, {}, "1234", 1 });
    }
    for (const auto& [key, held, text, caret] : strokes) {
        SCOPED_TRACE(key);
        box().SetText(filled("1234"));
        box().SetCaretPosition(1);
        Press(key, held);
        EXPECT_EQ(box().Text(), filled(text)) << held;
        EXPECT_EQ(box().CaretPosition(), caret) << held;

        box().SetText(filled("1234"));
        box().SetCaretPosition(GetParam().Length);
        Press(key, held);
        EXPECT_EQ(box().Text(), filled("1234")) << "behind the last column";
        EXPECT_EQ(box().CaretPosition(), GetParam().Length);
    }
    for (int digit = 0; digit <= 9; ++digit) {
        Press(Qt::Key_Home);
        Press(Qt::Key_0 + digit, Qt::KeypadModifier);
        EXPECT_EQ(box().Text(), filled(std::to_string(digit) + "234"));
    }
    EXPECT_EQ(verdict(), "");
    EXPECT_TRUE(form_.isVisible());
}

TEST_P(FormColoSumaBoxTest, AHighlightIsTypedOverColumnByColumn)
{
    for (const auto& [key, text] : { std::pair(Qt::Key_7, "7234"), { Qt::Key_A, "1234" }, { Qt::Key_Backspace, " 234" },
             { Qt::Key_Delete, " 234" } }) {
        box().SetText(filled("1234"));
        box().SelectWholeText();
        Press(key);
        EXPECT_EQ(box().Text(), filled(text)) << key;
    }
    highlightTwoOf("1234");
    for (const int key : { Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape }) {
        Press(key);
        EXPECT_EQ(box().selectedText(), QStringLiteral("12")) << key << " writes nothing";
    }
}

TEST_P(FormColoSumaBoxTest, CuttingLeavesAShortBoxAndPastingFillsNoMoreThanTheHighlight)
{
    highlightTwoOf("1234");
    Press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("12"));
    EXPECT_EQ(box().Text(), filled("1234").substr(2));
    EXPECT_EQ(box().CaretPosition(), 0);
    Type(QStringLiteral("5"));
    EXPECT_EQ(box().Text(), "55" + filled("1234").substr(3));

    QApplication::clipboard()->setText(QStringLiteral("9876"));
    highlightTwoOf("1234");
    for (int times = 0; times < 2; ++times) {
        Press(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(box().Text(), filled("9834")) << "a full box without a highlight has no room";
    }
}

// Typing into a text that does not fill its box, such as one written by the solution.
TEST_P(FormColoSumaBoxTest, AShortTextIsInsertedIntoAsWellAsTypedOver)
{
    constexpr int highlighted = -1;
    const std::string oneShortOfFull(static_cast<std::size_t>(GetParam().Length) - 1, '7');
    const struct {
        std::string Text;
        int Caret;
        int Key;
        std::string After;
        int CaretAfter;
    } cases[] = {
        { "   7", 0, Qt::Key_1, "11  7", 2 }, // only a full box refuses the insertion
        { "   7", 4, Qt::Key_5, "   75", 5 }, { "   75", 5, Qt::Key_Backspace, "   75 ", 6 },
        { "   7", 1, Qt::Key_A, " A  7", 2 }, { "   7", 1, Qt::Key_Period, " .  7", 2 },
        { "   7", highlighted, Qt::Key_A, "A", 1 }, { oneShortOfFull, highlighted, Qt::Key_Period, ".", 1 },
        { "   7", highlighted, Qt::Key_1, "11  7", 2 }, // a digit replaces one column only
    };
    for (const auto& [text, caret, key, after, caretAfter] : cases) {
        SCOPED_TRACE(text);
        box().SetText(text);
        caret == highlighted ? box().SelectWholeText() : box().SetCaretPosition(caret);
        Type(key == Qt::Key_Backspace ? QString() : QString(QChar(key)));
        if (key == Qt::Key_Backspace) {
            Press(key);
        }
        EXPECT_EQ(box().Text(), after);
        EXPECT_EQ(box().CaretPosition(), caretAfter);
    }
}

TEST_F(FormColoSumaTest, EveryClickJudgesTheSumAloneAndChangesTheVerdict)
{
    const auto expectVerdicts = [this](std::initializer_list<const char*> verdicts) {
        for (const char* expected : verdicts) {
            Click(form_, QStringLiteral("Command1"));
            EXPECT_EQ(verdict(), expected);
            EXPECT_TRUE(IsWhollySelected(*form_.Text1));
            EXPECT_EQ(FocusName(), "Command1") << "where the click has put it";
        }
    };
    nextUntil([this] { return hasWholeSum(); });
    Type(QStringLiteral("99999999")); // where the addends are placed is not judged
    expectVerdicts({ "Resultado incorrecto", "Resultado incorrecto ", "Resultado incorrecto" });
    typeSum("  " + PlainDecimalText(expected_.AddendSum));
    expectVerdicts({ "Resultado correcto ", "Resultado correcto  ", "Resultado correcto " });
    nextUntil([this] { return !hasWholeSum(); });
    typeSum(PlainDecimalText(expected_.AddendSum));
    expectVerdicts({ "Resultado incorrecto" });
}

TEST_F(FormColoSumaTest, ContinuingDrawsAndClearingDoesNotAndBothKeepTheVerdict)
{
    answerWrong();
    next();
    expectEmptyBoxes(sevenBlanks);
    EXPECT_EQ(verdict(), "Resultado incorrecto");
    Click(form_, QStringLiteral("Command1"));
    EXPECT_EQ(verdict(), "Resultado incorrecto ") << "what is said again changes, also in the next exercise";

    answerWrong();
    Click(form_, QStringLiteral("Command2(1)"));
    expectEmptyBoxes(eightBlanks); // a blank more than in a new exercise
    EXPECT_EQ(verdict(), "Resultado incorrecto");
    typeSum("123456789");
    EXPECT_EQ(sum(), "12345678");
    next();
    typeSum("123456789");
    EXPECT_EQ(sum(), "1234567");
}

TEST_F(FormColoSumaTest, EveryButtonHasItsAccessKey)
{
    addend(0).SetText("12      ");
    PressAccessKey(form_, Qt::Key_H, QStringLiteral("Command1"));
    EXPECT_EQ(verdict(), "Resultado incorrecto");
    EXPECT_EQ(FocusName(), "TbSumando(0)") << "checking moves no focus,";
    EXPECT_EQ(addends()[0], "12      ") << "and no text";
    PressAccessKey(form_, Qt::Key_B, QStringLiteral("Command2(1)"));
    EXPECT_EQ(addends(), std::vector(4, eightBlanks));
    PressAccessKey(form_, Qt::Key_V, QStringLiteral("Command2(2)"));
    EXPECT_EQ(addends(), expected_.Solution().Addends);
    PressAccessKey(form_, Qt::Key_C, QStringLiteral("Command2(0)"));
    expected_.NewPlaceAndAdd();
    EXPECT_EQ(line(), expected_.DataLine());
}

TEST_F(FormColoSumaTest, TheSolutionStandsInTheBoxesUnitsUnderUnits)
{
    nextUntil([this] { return hasWholeSum(); });
    Click(form_, QStringLiteral("Command1"));
    Click(form_, QStringLiteral("Command2(2)"));
    const PlaceAndAdd::Placement solution = expected_.Solution();
    EXPECT_EQ(addends(), solution.Addends);
    EXPECT_EQ(sum(), solution.Sum);
    EXPECT_EQ(verdict(), "");
    EXPECT_EQ(FocusName(), "TbResultado");
    EXPECT_EQ(form_.TbResultado->CaretPosition(), 0);
    for (const std::string& text : addends()) {
        EXPECT_TRUE(text.size() == 4 || text[4] == ',') << text;
    }
    Click(form_, QStringLiteral("Command1"));
    EXPECT_EQ(verdict(), "Resultado correcto ");

    Click(form_, QStringLiteral("Command2(1)"));
    ASSERT_EQ(sum(), eightBlanks);
    EXPECT_EQ(form_.TbResultado->CaretPosition(), 0);
    Click(form_, QStringLiteral("Command1"));
    Click(form_, QStringLiteral("Command2(2)"));
    ASSERT_LT(sum().size(), sevenBlanks.size());
    Press(Qt::Key_End);
    Type(QStringLiteral("99999999"));
    EXPECT_EQ(sum().size(), sevenBlanks.size()) << "the limit that clearing had widened is back";
    Click(form_, QStringLiteral("Command1"));
    EXPECT_EQ(verdict(), "Resultado incorrecto") << "what the solution took away is not said again";
}

TEST_F(FormColoSumaTest, ASolutionLongerThanCanBeTypedIsShownWholeAndTypedOver)
{
    const std::size_t longest = nextThatIsLongerThanItsBoxes();
    Click(form_, QStringLiteral("Command2(2)"));
    const PlaceAndAdd::Placement solution = expected_.Solution();
    EXPECT_EQ(addends(), solution.Addends);
    EXPECT_EQ(sum(), solution.Sum);

    const std::pair<TextBox*, std::string> boxes[]
        = { { &addend(longest), solution.Addends[longest] }, { form_.TbResultado, solution.Sum } };
    for (const auto& [box, shown] : boxes) {
        box->setFocus();
        Press(Qt::Key_Home);
        Type(QStringLiteral("56"));
        EXPECT_EQ(box->Text(), "56" + shown.substr(2));
        Press(Qt::Key_End);
        Type(QStringLiteral("7"));
        box->SelectWholeText();
        Type(QStringLiteral("a"));
        EXPECT_EQ(box->Text(), "56" + shown.substr(2)) << "the box is more than full";
    }
}

TEST_F(FormColoSumaTest, ASolutionTooLongForItsColumnsIsToldAndTheExerciseGoesOn)
{
    chooseDigits(5);
    nextUntil([this] { return expected_.AddendSum >= 10000; });
    answerWrong();
    const auto before = addends();
    addend(1).setFocus();
    const auto expectMessage = [this] {
        ExpectMessage(QStringLiteral("Numbrela"),
            QStringLiteral("La suma es %1.\n\nTiene más de cuatro cifras enteras: la solución no cabe en las columnas.")
                .arg(QString::fromStdString(PlainDecimalText(expected_.AddendSum))));
    };
    expectMessage();
    PressAccessKey(form_, Qt::Key_V, QStringLiteral("Command2(2)"));
    ShowAndActivate(form_);
    EXPECT_EQ(FocusName(), "TbSumando(1)");
    expectMessage();
    Click(form_, QStringLiteral("Command2(2)"));
    ShowAndActivate(form_);
    EXPECT_EQ(FocusName(), "Command2(2)") << "where the click has put it";
    EXPECT_EQ(addends(), before);
    EXPECT_EQ(sum(), "34     ");
    EXPECT_EQ(verdict(), "Resultado incorrecto");
    EXPECT_EQ(line(), expected_.DataLine());
    typeSum("98765");
    EXPECT_EQ(sum(), "98765  ");
}

// Where the caret stands, in pixels of its box, when it is behind the units of a solution.
QRect placeOfComma(TextBox& box)
{
    box.SetCaretPosition(4);
    return box.inputMethodQuery(Qt::ImCursorRectangle).toRect();
}

TEST_F(FormColoSumaTest, EveryBoxShowsItsTextWithTheSameColumns)
{
    const QSize designSize = form_.size();
    form_.resize(1280, 800);
    chooseAddends(6);
    Click(form_, QStringLiteral("Command2(2)"));
    for (const QSize size : { QSize(1280, 800), designSize, QSize(640, 480) }) {
        form_.resize(size);
        QCoreApplication::processEvents();
        const QRect commaOfSum = placeOfComma(*form_.TbResultado);
        for (TextBox* box : form_.TbSumando) {
            EXPECT_EQ(box->x(), form_.TbResultado->x());
            EXPECT_EQ(placeOfComma(*box), commaOfSum) << box->Text();
            EXPECT_TRUE(QFontInfo(box->font()).fixedPitch());
            EXPECT_EQ(box->font().pixelSize(), form_.TbResultado->font().pixelSize());
        }
    }
}

TEST_F(FormColoSumaTest, ChoosingTheNumberOfAddendsDrawsAndMovesTheMark)
{
    for (const int count : { 6, 2, 5, 3, 4, 4 }) {
        Click(form_, QStringLiteral("Command1"));
        const std::string shown = verdict();
        chooseAddends(count);
        EXPECT_EQ(line(), expected_.DataLine());
        EXPECT_EQ(CheckedItems(*form_.MnuOpcSum), std::vector { count - 2 });
        EXPECT_EQ(CheckedItems(*form_.MnuOpcCif), std::vector { 1 });
        EXPECT_EQ(form_.TbSumando.size(), 6U) << "boxes once made are kept";
        EXPECT_EQ(verdict(), shown);
        Click(form_, QStringLiteral("Command2(2)"));
        for (std::size_t i = 0; i < form_.TbSumando.size(); ++i) {
            const bool isOffered = i < static_cast<std::size_t>(count);
            EXPECT_EQ(addend(i).isVisible(), isOffered);
            EXPECT_EQ(addend(i).isEnabled(), isOffered);
            EXPECT_TRUE(!isOffered || addend(i).Text() == expected_.Solution().Addends[i]);
        }
    }
}

TEST_F(FormColoSumaTest, ChoosingDigitsDrawsAndMovesTheMark)
{
    for (const int digits : { 3, 5, 2, 4, 3 }) { // the first of them is checked already
        answerWrong();
        const std::string before = line();
        chooseDigits(digits);
        EXPECT_EQ(verdict(), "Resultado incorrecto");
        EXPECT_EQ(line(), expected_.DataLine());
        EXPECT_NE(line(), before);
        EXPECT_EQ(addends(), std::vector(4, eightBlanks));
        EXPECT_EQ(CheckedItems(*form_.MnuOpcCif), std::vector { digits - 2 });
        EXPECT_EQ(CheckedItems(*form_.MnuOpcSum), std::vector { 2 });
    }
}

TEST_F(FormColoSumaTest, OptionsMoveNoFocusUnlessItsBoxVanishesThenTheSumGetsIt)
{
    for (const char* name : { "TbSumando(1)", "TbResultado", "Text1", "Command2(1)", "TBDatos" }) {
        Find<QWidget>(form_, QString::fromLatin1(name)).setFocus();
        for (const int count : { 6, 2, 4 }) {
            chooseAddends(count);
            EXPECT_EQ(FocusName(), name) << count;
        }
        chooseDigits(4);
        EXPECT_EQ(FocusName(), name);
    }
    for (std::size_t index = 2; index < 6; ++index) {
        chooseAddends(6);
        addend(index).setFocus();
        chooseAddends(2);
        EXPECT_EQ(FocusName(), "TbResultado") << index;
        Type(QStringLiteral("7"));
        EXPECT_EQ(sum(), "7      ") << index;
    }
}

TEST_F(FormColoSumaTest, FewerAddendsLeaveTheSignsOfTheOthersBehindAndTheTextsUntilTheyAreClearedOrShownAgain)
{
    chooseAddends(6);
    const std::vector<SignState> ofSix = signs();
    for (const std::size_t count : { 2U, 4U, 3U, 2U, 6U }) {
        const std::vector<SignState> before = signs();
        chooseAddends(static_cast<int>(count));
        for (std::size_t i = count; i < 6; ++i) {
            EXPECT_EQ(signs()[i], before[i]) << i << " of " << count;
        }
    }
    EXPECT_EQ(signs(), ofSix);

    Click(form_, QStringLiteral("Command2(2)"));
    auto texts = addends();
    chooseAddends(2);
    texts[0] = texts[1] = eightBlanks;
    EXPECT_EQ(addends(), texts);
    Click(form_, QStringLiteral("Command2(1)"));
    EXPECT_EQ(addends(), std::vector(6, eightBlanks));
    addend(5).SetText("123");
    chooseAddends(6);
    EXPECT_EQ(addends(), std::vector(6, eightBlanks));
}

TEST_F(FormColoSumaTest, ANewWindowHasFourAddendsOfThreeDigitsAndAnExerciseOfItsFractionOfASecond)
{
    const std::string firstLine = line();
    chooseAddends(6);
    chooseDigits(5);
    Choose(form_, QStringLiteral("MnuOpcSal"));
    EXPECT_FALSE(form_.isVisible());
    FormColoSuma again(clock_);
    EXPECT_EQ(again.TBDatos->Text(), firstLine);
    EXPECT_EQ(again.TbSumando.size(), 4U);
    EXPECT_EQ(CheckedItems(*again.MnuOpcSum), std::vector { 2 });
    EXPECT_EQ(CheckedItems(*again.MnuOpcCif), std::vector { 1 });

    std::set<std::string> lines;
    for (const double fraction : { 0.0, 0.25, 0.5, 0.75 }) {
        const FixedClock clock({ 10, 20, 30, 37230 + fraction });
        lines.insert(FormColoSuma(clock).TBDatos->Text());
    }
    EXPECT_EQ(lines.size(), 4U);
}

} // namespace

} // namespace numbrela

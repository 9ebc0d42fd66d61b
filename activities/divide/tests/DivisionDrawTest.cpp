#include "activities/divide/tests/DivisionSupport.h"

#include "common/core/RunTimeError.h"
#include "tests/support/KindThrownBy.h"
#include "tests/support/OptionCaptions.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace numbrela {

namespace {

using namespace testing;

constexpr double greatestDraw = 1 - 0x1p-53;

// The draw that adds so much, 1 to 8, to a dividend that ends in 0.
double addingDraw(int amount)
{
    return (amount - 0.5) / 8;
}

TEST(DivisionDraw, StartsWithTwoDigitsTwoDecimalsByOneDigitOfUpToNineAndFive)
{
    ScriptedRandom random {};
    bool commaShift = false;
    const DivisionExercise exercise(random, commaShift);
    EXPECT_EQ(exercise.DividendDigits, 2);
    EXPECT_EQ(exercise.DividendDecimals, 2);
    EXPECT_EQ(exercise.DivisorDigits, 1);
    EXPECT_EQ(exercise.QuotientDecimals, 0);
    EXPECT_FALSE(exercise.ShowSubtractions);
    EXPECT_TRUE(exercise.Score.Scorable);
    EXPECT_EQ(exercise.Score.Line(), "Ejercicios:  0; Errores:  0");
    EXPECT_EQ(OptionCaptions(DivisionExercise::DividendDigitChoices), "&1&2&3&4&5&6&7&8&9");
    EXPECT_EQ(OptionCaptions(DivisionExercise::DivisorDigitChoices), "&1&2&3&4&5&6&7&8&9");
    EXPECT_EQ(OptionCaptions(DivisionExercise::DividendDecimalChoices), "&0&1&2&3&4&5");
    EXPECT_EQ(OptionCaptions(DivisionExercise::QuotientDecimalChoices), "&0&1&2&3&4&5");
}

// The draws of so many digits.
const auto one = [](double number) { return DrawOfDigits(number, 1); };
const auto two = [](double number) { return DrawOfDigits(number, 2); };
const auto three = [](double number) { return DrawOfDigits(number, 3); };
const auto four = [](double number) { return DrawOfDigits(number, 4); };
const auto nine = [](double number) { return DrawOfDigits(number, 9); };
const auto fourteen = [](double number) { return DrawOfDigits(number, 14); };

struct DrawCase {
    const char* What;
    DivisionOptions Options;
    ScriptedRandom Random;
    const char* Statement;
};

void expectDraws(std::vector<DrawCase> cases)
{
    for (DrawCase& drawn : cases) {
        SCOPED_TRACE(drawn.What);
        bool commaShift = false;
        DivisionExercise exercise(drawn.Random, commaShift);
        setOptions(exercise, drawn.Options);
        exercise.GenerateDivision();
        EXPECT_EQ(exercise.Statement(), drawn.Statement);
        EXPECT_TRUE(drawn.Random.AllDrawn());
    }
}

TEST(DivisionDraw, DrawsTheDividendAndThenTheDivisor)
{
    expectDraws({
        { "as at load", { 2, 2, 1, 0 }, { four(9725), one(4) }, "97,25 ÷ 4" },
        { "whole", { 3, 0, 2, 0 }, { three(156), two(12) }, "156 ÷ 12" },
        { "the quotient's decimals draw nothing", { 3, 0, 2, 5 }, { three(156), two(12) }, "156 ÷ 12" },
        { "one digit each", { 1, 0, 1, 0 }, { one(7), one(9) }, "7 ÷ 9" },
        { "nine digits by nine", { 9, 0, 9, 0 }, { nine(987654321), nine(123456789) }, "987654321 ÷ 123456789" },
        { "a whole dividend may end in zero", { 2, 0, 1, 0 }, { two(90), one(8) }, "90 ÷ 8" },
    });
}

TEST(DivisionDraw, HoldsFourteenDigitsExactly)
{
    expectDraws({
        { "any", { 9, 5, 1, 0 }, { fourteen(12345678912345), one(4) }, "123456789,12345 ÷ 4" },
        { "the greatest", { 9, 5, 1, 0 }, { fourteen(99999999999999), one(4) }, "999999999,99999 ÷ 4" },
        { "the least", { 9, 5, 1, 0 }, { fourteen(10000000000001), one(4) }, "100000000,00001 ÷ 4" },
        { "one that ends in zero", { 9, 5, 1, 0 }, { fourteen(12345678912340), addingDraw(8), one(4) },
            "123456789,12348 ÷ 4" },
        { "the greatest draw of all", { 9, 5, 1, 0 }, { greatestDraw, addingDraw(1), one(4) }, "1000000000,00001 ÷ 4" },
    });
}

TEST(DivisionDraw, DrawsAgainUntilThereAreEnoughDigits)
{
    expectDraws({
        { "the least draw of all", { 2, 2, 1, 0 }, { 0, four(9725), 0, one(4) }, "97,25 ÷ 4" },
        { "a power of ten is too little", { 2, 0, 2, 0 }, { two(9), two(10), two(11), two(9), two(10), two(11) },
            "11 ÷ 11" },
        { "one is never drawn", { 1, 0, 1, 0 }, { one(1), one(2), one(1), one(2) }, "2 ÷ 2" },
    });
}

TEST(DivisionDraw, ALastDecimalThatIsZeroGetsOneToEight)
{
    expectDraws({
        { "one", { 2, 2, 1, 0 }, { four(9720), 0, one(4) }, "97,21 ÷ 4" },
        { "eight", { 2, 2, 1, 0 }, { four(9720), greatestDraw, one(4) }, "97,28 ÷ 4" },
        { "five", { 2, 2, 1, 0 }, { four(9720), addingDraw(5), one(4) }, "97,25 ÷ 4" },
        { "two zeros", { 2, 2, 1, 0 }, { four(9700), addingDraw(5), one(4) }, "97,05 ÷ 4" },
        { "one decimal", { 1, 1, 1, 0 }, { two(90), addingDraw(3), one(4) }, "9,3 ÷ 4" },
        { "every amount as often", { 1, 1, 1, 0 }, { two(90), 0.124, one(4) }, "9,1 ÷ 4" },
        { "every amount as often, the next one", { 1, 1, 1, 0 }, { two(90), 0.125, one(4) }, "9,2 ÷ 4" },
    });
}

TEST(DivisionDraw, APowerOfTenLosesOneUnlessItHasDecimals)
{
    expectDraws({
        { "of two digits", { 2, 0, 1, 0 }, { two(100), one(4) }, "99 ÷ 4" },
        { "of one digit", { 1, 0, 1, 0 }, { one(10), one(4) }, "9 ÷ 4" },
        { "of nine digits", { 9, 0, 1, 0 }, { greatestDraw, one(4) }, "999999999 ÷ 4" },
        { "whatever the quotient's decimals", { 2, 0, 1, 3 }, { two(100), one(4) }, "99 ÷ 4" },
        { "with decimals it keeps its digit more", { 2, 2, 1, 0 }, { four(10000), addingDraw(3), one(4) },
            "100,03 ÷ 4" },
        { "the divisor", { 2, 0, 1, 0 }, { two(84), one(10) }, "84 ÷ 9" },
        { "a divisor of nine digits", { 2, 0, 9, 0 }, { two(84), greatestDraw }, "84 ÷ 999999999" },
    });
}

// Of the ten draws as likely as each other, the first is drawn again.
TEST(DivisionDraw, OfOneDigitNineIsTwiceAsLikely)
{
    for (int number = 2; number <= 10; ++number) {
        const DrawnDivision drawn({ 1, 0, 1, 0 }, number, number);
        EXPECT_EQ(drawn.Exercise.Dividend, std::min(number, 9));
        EXPECT_EQ(drawn.Exercise.Divisor, std::min(number, 9));
    }
}

// ------------------------------------------------------------------------------------------------------------ layout

TEST(DivisionDraw, LaysTheGridOutForItsDigits)
{
    const struct {
        DivisionOptions Options;
        double DividendDigits;
        const char* Row;
        int LineWidth;
        int CommaColumn;
    } cases[] = {
        { { 2, 2, 1, 0 }, 9725, " 97,25", 8, 3 },
        { { 2, 2, 1, 3 }, 9725, " 97,25", 11, 3 },
        { { 3, 0, 1, 0 }, 156, " 156", 7, -1 },
        { { 3, 0, 1, 5 }, 156, " 156", 12, -1 },
        { { 1, 0, 1, 0 }, 7, " 7", 5, -1 },
        { { 1, 1, 1, 0 }, 75, " 7,5", 6, 2 },
        { { 9, 5, 1, 5 }, 12345678912345, " 123456789,12345", 23, 10 },
        { { 2, 2, 1, 0 }, 10003, " 100,03", 8, 4 },
    };
    for (const auto& [options, digits, row, lineWidth, commaColumn] : cases) {
        SCOPED_TRACE(row);
        const DrawnDivision drawn(options, digits, 4);
        EXPECT_EQ(rowsOf(drawn.Exercise.Grid), std::vector<std::string> { row });
        EXPECT_EQ(drawn.Exercise.Grid.LineWidth, lineWidth);
        EXPECT_EQ(drawn.Exercise.Grid.CommaColumn, commaColumn);
        EXPECT_EQ(drawn.Exercise.Grid.Caret, lineWidth + 1) << "below the first digit";
    }
}

TEST(DivisionDraw, EveryNewDivisionIsCleanAndScored)
{
    ScriptedRandom random { DrawOfDigits(84, 2), DrawOfDigits(4, 1), DrawOfDigits(97, 2), DrawOfDigits(6, 1) };
    bool commaShift = false;
    DivisionExercise exercise(random, commaShift);
    setOptions(exercise, { 2, 0, 1, 0 });
    exercise.GenerateDivision();
    exercise.Score.Count(false);
    exercise.ShowDivisionSolution();
    EXPECT_FALSE(exercise.Score.Scorable);
    exercise.GenerateDivision();
    EXPECT_TRUE(exercise.Score.Scorable);
    EXPECT_EQ(exercise.Score.Line(), "Ejercicios:  1; Errores:  1");
    EXPECT_EQ(rowsOf(exercise.Grid), std::vector<std::string> { " 97" });
}

TEST(DivisionDraw, ClearingTheWorkingKeepsTheDivision)
{
    DrawnDivision drawn({ 2, 2, 1, 0 }, 9725, 4);
    typeRow(drawn.Exercise.Grid, 1, " 17");
    drawn.Exercise.Score.Scorable = false;
    drawn.Exercise.ClearWorking();
    EXPECT_EQ(rowsOf(drawn.Exercise.Grid), std::vector<std::string> { " 97,25" });
    EXPECT_EQ(drawn.Exercise.Grid.Caret, 9) << "below the first digit";
    EXPECT_EQ(drawn.Exercise.Statement(), "97,25 ÷ 4");
    EXPECT_FALSE(drawn.Exercise.Score.Scorable);
    EXPECT_EQ(drawn.Exercise.Grid.CommaColumn, 3);
}

TEST(DivisionDraw, DrawsAsManyDigitsAsItHasRoomForAndRefusesMoreAndKeepsTheDivision)
{
    const std::pair<int, int> digitCases[] = { { 195, 1 }, { 32763, 1 }, { 2, 309 }, { 2, 32767 } };
    for (const auto& [dividendDigits, divisorDigits] : digitCases) {
        SeededRandom random(1);
        bool commaShift = false;
        DivisionExercise exercise(random, commaShift);
        setOptions(exercise, { 194, 0, 308, 0 });
        exercise.GenerateDivision();
        const std::string statement = exercise.Statement();
        EXPECT_EQ(statement.size(), 194 + std::string(" ÷ ").size() + 308);
        exercise.Score.Scorable = false;
        setOptions(exercise, { dividendDigits, 0, divisorDigits, 0 });
        EXPECT_EQ(KindThrownBy([&] { exercise.GenerateDivision(); }), RunTimeError::Kind::Overflow);
        EXPECT_EQ(exercise.Statement(), statement);
        EXPECT_EQ(exercise.Grid.LineWidth, 198);
        EXPECT_FALSE(exercise.Score.Scorable);
    }
}

} // namespace

} // namespace numbrela

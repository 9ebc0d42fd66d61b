#include "activities/multiply/core/Multiplication.h"

#include "tests/support/OptionCaptions.h"
#include "tests/support/ScriptedRandom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace numbrela {

namespace {

using numbrela::testing::DrawOfDigits;
using numbrela::testing::OptionCaptions;
using numbrela::testing::ScriptedRandom;

constexpr double least = 0;
constexpr double greatest = 1 - 0x1p-24; // of the single-precision draws below 1

// The draw that takes this character from a pool.
double pick(char character, const std::string& pool)
{
    return (static_cast<double>(pool.find(character)) + 0.5) / static_cast<double>(pool.size());
}

void setOptions(Multiplication& exercise, int digits1, int decimals1, int digits2, int decimals2)
{
    exercise.Digits1 = digits1;
    exercise.Decimals1 = decimals1;
    exercise.Digits2 = digits2;
    exercise.Decimals2 = decimals2;
}

struct DrawCase {
    const char* What;
    int Digits;
    int Decimals;
    ScriptedRandom Random;
    double Factor1;
    double Factor2;
};

TEST(FactorDraw, StartsWithOneDigitAndOneDecimalOfAnyDigits)
{
    ScriptedRandom random { DrawOfDigits(73, 2), DrawOfDigits(46, 2) };
    Multiplication exercise(random);
    EXPECT_TRUE(exercise.AnyDigits);
    EXPECT_EQ(exercise.SelectedTables, "");
    EXPECT_FALSE(exercise.HideZeros);
    EXPECT_TRUE(exercise.Score.Scorable);
    EXPECT_EQ(exercise.Score.Line(), "Ejercicios:  0; Errores:  0");
    exercise.NewMultiplication();
    EXPECT_EQ(exercise.Factor1Text(), "7,3");
    EXPECT_EQ(exercise.Factor2Text(), "4,6");
    EXPECT_EQ(exercise.Product, 4.6 * 7.3);
    EXPECT_TRUE(random.AllDrawn());
}

TEST(FactorDraw, OffersOneToTenDigitsAndNoneToFiveDecimals)
{
    EXPECT_EQ(Multiplication::DigitChoices.ValueAt(0), 1);
    EXPECT_EQ(Multiplication::DigitChoices.Count, 10);
    EXPECT_EQ(Multiplication::DecimalChoices.ValueAt(0), 0);
    EXPECT_EQ(Multiplication::DecimalChoices.Count, 6);
}

TEST(FactorDraw, DrawsAgainUntilFirstAndLastDigitAreNotZero)
{
    DrawCase cases[] = {
        { "the least draw of all", 1, 1, { least, DrawOfDigits(73, 2), DrawOfDigits(46, 2) }, 7.3, 4.6 },
        { "one digit too few", 1, 1, { DrawOfDigits(9, 2), DrawOfDigits(73, 2), DrawOfDigits(46, 2) }, 7.3, 4.6 },
        { "one digit too many", 1, 1, { greatest, DrawOfDigits(73, 2), DrawOfDigits(46, 2) }, 7.3, 4.6 },
        { "just the least number of so many digits", 1, 1,
            { DrawOfDigits(10, 2), DrawOfDigits(11, 2), DrawOfDigits(99, 2) }, 1.1, 9.9 },
        { "a zero at the end", 1, 1,
            { DrawOfDigits(70, 2), DrawOfDigits(73, 2), DrawOfDigits(40, 2), DrawOfDigits(46, 2) }, 7.3, 4.6 },
        { "several times", 1, 1,
            { least, DrawOfDigits(20, 2), greatest, DrawOfDigits(73, 2), DrawOfDigits(90, 2), 0, DrawOfDigits(46, 2) },
            7.3, 4.6 },
        { "whole numbers too", 3, 0,
            { DrawOfDigits(120, 3), DrawOfDigits(125, 3), DrawOfDigits(100, 3), DrawOfDigits(101, 3) }, 125, 101 },
        { "never 1", 1, 0,
            { DrawOfDigits(1, 1), DrawOfDigits(2, 1), DrawOfDigits(10, 1), DrawOfDigits(1, 1), DrawOfDigits(9, 1) }, 2,
            9 },
        { "zeros inside", 3, 2, { DrawOfDigits(10005, 5), DrawOfDigits(90001, 5) }, 100.05, 900.01 },
        { "decimals alone behind one digit", 1, 5, { DrawOfDigits(300007, 6), DrawOfDigits(100001, 6) }, 3.00007,
            1.00001 },
    };
    for (auto& drawCase : cases) {
        SCOPED_TRACE(drawCase.What);
        Multiplication exercise(drawCase.Random);
        setOptions(exercise, drawCase.Digits, drawCase.Decimals, drawCase.Digits, drawCase.Decimals);
        exercise.NewMultiplication();
        EXPECT_EQ(exercise.Factor1, drawCase.Factor1);
        EXPECT_EQ(exercise.Factor2, drawCase.Factor2);
        EXPECT_EQ(exercise.Product, drawCase.Factor2 * drawCase.Factor1);
        EXPECT_TRUE(drawCase.Random.AllDrawn());
    }
}

TEST(FactorDraw, EachFactorHasItsOwnDigitsAndDecimalsAndOnlyContinuingMakesTheExerciseScoredAgain)
{
    for (const bool scorable : { true, false }) {
        ScriptedRandom random { DrawOfDigits(12345, 5), DrawOfDigits(67, 2), DrawOfDigits(54321, 5),
            DrawOfDigits(89, 2) };
        Multiplication exercise(random);
        setOptions(exercise, 2, 3, 2, 0);
        exercise.Score.ExerciseCount = 8;
        exercise.Score.ErrorCount = 5;
        exercise.Score.Scorable = scorable;
        exercise.NewMultiplication();
        EXPECT_EQ(exercise.Factor1Text(), "12,345");
        EXPECT_EQ(exercise.Factor2Text(), "67");
        EXPECT_EQ(exercise.Score.Scorable, scorable);
        exercise.Continue();
        EXPECT_EQ(exercise.Factor2Text(), "89");
        EXPECT_TRUE(exercise.Score.Scorable);
        EXPECT_EQ(exercise.Score.Line(), "Ejercicios:  8; Errores:  5");
    }
}

// Every tenth of the draw once.
TEST(FactorDraw, WholeFactorsOfOneDigitAreTwoToNine)
{
    for (int tenth = 0; tenth < 10; ++tenth) {
        const bool refused = tenth == 0 || tenth == 9;
        ScriptedRandom random = refused ? ScriptedRandom { tenth / 10.0 + 0.05, 0.55, 0.25 }
                                        : ScriptedRandom { tenth / 10.0 + 0.05, 0.25 };
        Multiplication exercise(random);
        setOptions(exercise, 1, 0, 1, 0);
        exercise.NewMultiplication();
        EXPECT_EQ(exercise.Factor1, refused ? 6 : tenth + 1);
        EXPECT_EQ(exercise.Factor2, 3);
        EXPECT_TRUE(random.AllDrawn());
    }
}

TEST(FactorDraw, EveryDefaultFactorIsEquallyLikely)
{
    std::array<int, 100> seen {};
    SeededRandom random(2024);
    Multiplication exercise(random);
    constexpr int perFactor = 200;
    for (int i = 0; i < 80 * perFactor / 2; ++i) {
        exercise.NewMultiplication();
        for (const double factor : { exercise.Factor1, exercise.Factor2 }) {
            ++seen.at(static_cast<std::size_t>(std::lround(factor * 10)));
        }
    }
    for (std::size_t tenths = 0; tenths < seen.size(); ++tenths) {
        const bool possible = tenths > 10 && tenths % 10 != 0;
        // 81 numbers from 11 to 99 do not end in 0.
        EXPECT_NEAR(seen.at(tenths), possible ? 80.0 * perFactor / 81 : 0, possible ? 90 : 0) << tenths;
    }
}

// The digits of a factor's text without its comma.
std::string digitsOf(std::string text)
{
    std::erase(text, ',');
    return text;
}

void expectFactor(const std::string& text, int digits, int decimals)
{
    const std::size_t comma = std::min(text.find(','), text.size());
    ASSERT_EQ(static_cast<int>(comma), digits) << text;
    ASSERT_EQ(static_cast<int>(digitsOf(text).size()), digits + decimals) << text;
    ASSERT_NE(text.front(), '0') << text;
    ASSERT_NE(text.back(), '0') << text;
}

TEST(FactorDraw, HasTheChosenDigitsUnderAllOptionsUpToFifteen)
{
    SeededRandom random(7);
    Multiplication exercise(random);
    for (int digits = 1; digits <= 10; ++digits) {
        for (int decimals = 0; decimals <= 5; ++decimals) {
            setOptions(exercise, digits, decimals, 11 - digits, 5 - decimals);
            for (int i = 0; i < 100; ++i) {
                exercise.NewMultiplication();
                expectFactor(exercise.Factor1Text(), digits, decimals);
                expectFactor(exercise.Factor2Text(), 11 - digits, 5 - decimals);
                ASSERT_EQ(exercise.Product, exercise.Factor2 * exercise.Factor1);
                ASSERT_EQ(exercise.RowCount(), 16 - digits - decimals);
            }
        }
    }
}

TEST(FactorDraw, AllFifteenDigitsVary)
{
    std::array<std::array<int, 10>, 15> counts {};
    SeededRandom random(86400);
    Multiplication exercise(random);
    setOptions(exercise, 10, 5, 10, 5);
    for (int i = 0; i < 4500; ++i) {
        exercise.NewMultiplication();
        for (const std::string& text : { exercise.Factor1Text(), exercise.Factor2Text() }) {
            const std::string digits = digitsOf(text);
            for (std::size_t place = 0; place < counts.size(); ++place) {
                ++counts.at(place).at(static_cast<std::size_t>(digits.at(place) - '0'));
            }
        }
    }
    for (std::size_t place = 0; place < counts.size(); ++place) {
        const bool neverZero = place == 0 || place + 1 == counts.size();
        for (std::size_t digit = 0; digit < 10; ++digit) {
            const int expected = !neverZero ? 900 : digit == 0 ? 0 : 1000;
            EXPECT_NEAR(counts.at(place).at(digit), expected, expected == 0 ? 0 : 190)
                << "digit " << digit << " at place " << place;
        }
    }
}

TEST(FactorDraw, TheEdgesOfTheLongestDrawDoNotOverflow)
{
    ScriptedRandom random { least, greatest, 0.5, 0.1, 0.25, 0.75 };
    Multiplication exercise(random);
    setOptions(exercise, 10, 5, 10, 5);
    exercise.NewMultiplication();
    EXPECT_EQ(exercise.Factor1Text(), "9999999403,95356"); // the greatest draw is 1 - 2^-24
    EXPECT_EQ(exercise.Factor2Text(), "5000000000,00001");
}

// ------------------------------------------------------------------------------------------------------ from tables

struct TableCase {
    const char* What;
    const char* Tables;
    int Digits;
    int Decimals;
    const char* Picks; // the characters drawn one after the other, the first one from the tables alone
    const char* Factor2;
};

TEST(FactorDraw, DrawsTheSecondFactorFromTheChosenTables)
{
    const TableCase cases[] = {
        { "one digit", "237", 1, 0, "3", "3" },
        { "one table", "5", 1, 0, "5", "5" },
        { "zeros inside", "237", 4, 0, "2007", "2007" },
        { "a zero at the end of a whole number", "5", 3, 0, "550", "550" },
        { "all zeros behind the first digit", "5", 3, 0, "500", "500" },
        { "a decimal", "237", 1, 1, "27", "2,7" },
        { "a last decimal of zero is drawn again", "237", 1, 1, "203", "2,3" },
        { "and again", "237", 1, 1, "20003", "2,3" },
        { "only the last one", "237", 2, 2, "200002", "20,02" },
        { "all nine tables", "123456789", 5, 5, "1234567890009", "12345,67899" },
        { "the longest", "9", 10, 5, "999999999999999", "9999999999,99999" },
    };
    for (const auto& [what, tables, digits, decimals, picks, factor2] : cases) {
        SCOPED_TRACE(what);
        std::vector<double> draws { 0.55, pick(picks[0], tables) };
        for (const char digit : std::string(picks).substr(1)) {
            draws.push_back(pick(digit, std::string("0") + tables));
        }
        ScriptedRandom random(draws);
        Multiplication exercise(random);
        setOptions(exercise, 1, 0, digits, decimals);
        exercise.ChooseTables(tables);
        exercise.NewMultiplication();
        EXPECT_EQ(exercise.Factor1, 6);
        EXPECT_EQ(exercise.Factor2Text(), factor2);
        EXPECT_EQ(exercise.Product, exercise.Factor2 * exercise.Factor1);
        EXPECT_TRUE(random.AllDrawn());
    }
}

// Three times the greatest draw below 1 is 3 in single precision: one more than the tables have.
TEST(FactorDraw, TheEdgesOfTheDrawTakeTheFirstAndTheLastOfTablesHoweverMany)
{
    const struct {
        const char* Tables;
        double FromLeast;
        double FromGreatest;
    } cases[] = { { "2", 2202, 2202 }, { "23", 2303, 3303 }, { "237", 2707, 7707 }, { "23789", 2909, 9909 },
        { "123456789", 1909, 9909 } };
    for (const auto& [tables, fromLeast, fromGreatest] : cases) {
        ScriptedRandom random { 0.55, least, greatest, least, greatest, 0.55, greatest, greatest, least, greatest };
        Multiplication exercise(random);
        setOptions(exercise, 1, 0, 4, 0);
        exercise.ChooseTables(tables);
        exercise.NewMultiplication();
        EXPECT_EQ(exercise.Factor2, fromLeast) << tables;
        exercise.NewMultiplication();
        EXPECT_EQ(exercise.Factor2, fromGreatest) << tables;
    }
}

// The draws have the 24 bits of single precision.
TEST(FactorDraw, DrawsInSinglePrecisionAlone)
{
    class Singles : public RandomSource {
    public:
        double Next() override
        {
            ADD_FAILURE() << "a draw in double precision";
            return 0.5;
        }
        float NextSingle() override { return 0.55F; }
    } random;
    Multiplication exercise(random);
    setOptions(exercise, 3, 1, 3, 1);
    exercise.NewMultiplication();
    exercise.ChooseTables("237");
    exercise.NewMultiplication();
    EXPECT_EQ(exercise.Factor2, 333.3);
}

TEST(FactorDraw, EveryDigitOfTheTablesIsEquallyLikely)
{
    for (const int decimals : { 0, 1 }) {
        std::array<std::array<int, 10>, 3> counts {};
        SeededRandom random(99);
        Multiplication exercise(random);
        setOptions(exercise, 1, 0, 3 - decimals, decimals);
        exercise.ChooseTables("237");
        for (int i = 0; i < 6000; ++i) {
            exercise.NewMultiplication();
            const std::string digits = digitsOf(exercise.Factor2Text());
            for (std::size_t place = 0; place < 3; ++place) {
                ++counts.at(place).at(static_cast<std::size_t>(digits.at(place) - '0'));
            }
        }
        for (std::size_t place = 0; place < 3; ++place) {
            const bool neverZero = place == 0 || (place == 2 && decimals == 1);
            for (std::size_t digit = 0; digit < 10; ++digit) {
                const bool chosen = digit == 2 || digit == 3 || digit == 7;
                const int expected = chosen ? (neverZero ? 2000 : 1500) : digit == 0 && !neverZero ? 1500 : 0;
                EXPECT_NEAR(counts.at(place).at(digit), expected, expected == 0 ? 0 : 220)
                    << "digit " << digit << " at place " << place << " with " << decimals << " decimals";
            }
        }
    }
}

TEST(FactorDraw, ChoosingTablesAndNoneSwitchesBetweenTheTwoWays)
{
    ScriptedRandom random { DrawOfDigits(6, 1), DrawOfDigits(8, 1), DrawOfDigits(6, 1), DrawOfDigits(9, 1) };
    Multiplication exercise(random);
    exercise.ChooseTables("5");
    EXPECT_FALSE(exercise.AnyDigits);
    EXPECT_EQ(exercise.SelectedTables, "5");
    exercise.ChooseTables("");
    EXPECT_TRUE(exercise.AnyDigits);
    EXPECT_EQ(exercise.SelectedTables, "");

    setOptions(exercise, 1, 0, 1, 0);
    exercise.ChooseTables("5");
    exercise.AllowAnyDigits();
    exercise.NewMultiplication();
    EXPECT_EQ(exercise.Factor2, 8) << "tables kept while any digit goes are not drawn from";

    exercise.AnyDigits = false;
    exercise.SelectedTables = "";
    exercise.NewMultiplication();
    EXPECT_EQ(exercise.Factor2, 9) << "without tables there is nothing to draw from but any digit";
    EXPECT_TRUE(random.AllDrawn());
}

} // namespace

} // namespace numbrela

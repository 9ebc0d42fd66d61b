#include "activities/multiply/core/Multiplication.h"

#include "tests/support/OptionCaptions.h"
#include "tests/support/ScriptedRandom.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numeric>
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

TEST(FactorDraw, StartsWithOneDigitAndOneDecimalOfAnyDigitsAndOffersUpToTenAndFive)
{
    EXPECT_EQ(OptionCaptions(Multiplication::DigitChoices), "&1&2&3&4&5&6&7&8&9&10");
    EXPECT_EQ(OptionCaptions(Multiplication::DecimalChoices), "&0&1&2&3&4&5");
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

TEST(FactorDraw, DrawsAgainUntilFirstAndLastDigitAreNotZero)
{
    const auto two = [](double number) { return DrawOfDigits(number, 2); };
    const auto three = [](double number) { return DrawOfDigits(number, 3); };
    struct {
        const char* What;
        int Digits;
        int Decimals;
        ScriptedRandom Random;
        double Factor1;
        double Factor2;
    } cases[] = {
        { "the least draw of all", 1, 1, { least, two(73), two(46) }, 7.3, 4.6 },
        { "one digit too few", 1, 1, { two(9), two(73), two(46) }, 7.3, 4.6 },
        { "one digit too many", 1, 1, { greatest, two(73), two(46) }, 7.3, 4.6 },
        { "just the least number of so many digits", 1, 1, { two(10), two(11), two(99) }, 1.1, 9.9 },
        { "a zero at the end", 1, 1, { two(70), two(73), two(40), two(46) }, 7.3, 4.6 },
        { "several times", 1, 1, { least, two(20), greatest, two(73), two(90), 0, two(46) }, 7.3, 4.6 },
        { "whole numbers too", 3, 0, { three(120), three(125), three(100), three(101) }, 125, 101 },
        { "zeros inside", 3, 2, { DrawOfDigits(10005, 5), DrawOfDigits(90001, 5) }, 100.05, 900.01 },
    };
    for (auto& [what, digits, decimals, random, factor1, factor2] : cases) {
        SCOPED_TRACE(what);
        Multiplication exercise(random);
        setOptions(exercise, digits, decimals, digits, decimals);
        exercise.NewMultiplication();
        EXPECT_EQ(exercise.Factor1, factor1);
        EXPECT_EQ(exercise.Factor2, factor2);
        EXPECT_EQ(exercise.Product, factor2 * factor1);
        EXPECT_TRUE(random.AllDrawn());
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

// Draws so many exercises and counts how often each digit stands at each place of a factor.
class DigitCount {
public:
    DigitCount(Multiplication& exercise, std::string (Multiplication::*factor)() const, int times)
    {
        for (int i = 0; i < times; ++i) {
            exercise.NewMultiplication();
            std::string digits = (exercise.*factor)();
            std::erase(digits, ',');
            counts_.resize(digits.size());
            for (std::size_t place = 0; place < digits.size(); ++place) {
                ++counts_[place].at(static_cast<std::size_t>(digits[place] - '0'));
            }
        }
    }

    // Compares what stands at a place with digits that are as likely as each other, and no others.
    void ExpectAtPlace(std::size_t place, const std::string& digits) const
    {
        for (char digit = '0'; digit <= '9'; ++digit) {
            const int count = counts_.at(place).at(static_cast<std::size_t>(digit - '0'));
            const bool possible = digits.find(digit) != std::string::npos;
            const int total = std::accumulate(counts_[place].begin(), counts_[place].end(), 0);
            const double expected = possible ? total / static_cast<double>(digits.size()) : 0;
            EXPECT_NEAR(count, expected, 6 * std::sqrt(expected)) << digit << " at place " << place;
        }
    }

private:
    std::vector<std::array<int, 10>> counts_;
};

TEST(FactorDraw, AllFifteenDigitsVary)
{
    SeededRandom random(86400);
    Multiplication exercise(random);
    setOptions(exercise, 10, 5, 10, 5);
    for (const auto factor : { &Multiplication::Factor1Text, &Multiplication::Factor2Text }) {
        const DigitCount count(exercise, factor, 4500);
        for (std::size_t place = 0; place < 15; ++place) {
            count.ExpectAtPlace(place, place == 0 || place == 14 ? "123456789" : "0123456789");
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

TEST(FactorDraw, DrawsTheSecondFactorFromTheChosenTables)
{
    const struct {
        const char* What;
        const char* Tables;
        int Digits;
        int Decimals;
        const char* Picks; // the characters drawn one after the other, the first one from the tables alone
        const char* Factor2;
    } cases[] = {
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
        SeededRandom random(99);
        Multiplication exercise(random);
        setOptions(exercise, 1, 0, 3 - decimals, decimals);
        exercise.ChooseTables("237");
        const DigitCount count(exercise, &Multiplication::Factor2Text, 6000);
        count.ExpectAtPlace(0, "237");
        count.ExpectAtPlace(1, "0237");
        count.ExpectAtPlace(2, decimals == 0 ? "0237" : "237");
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

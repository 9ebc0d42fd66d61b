#include "activities/powers10/core/PowersOfTen.h"

#include "tests/support/ExpectError.h"
#include "tests/support/ForeignLocale.h"
#include "tests/support/KindThrownBy.h"
#include "tests/support/OptionCaptions.h"
#include "tests/support/Schoolbook.h"
#include "tests/support/ScriptedRandom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <tuple>
#include <utility>

namespace numbrela {

namespace {

using namespace testing;

constexpr double multiply = 0.25;
constexpr double divide = 0.75;
constexpr double greatestDraw = 1 - 0x1p-53;

// The draws of an exercise with the default options: a number of two digits, its decimals, an exponent, the sign.
ScriptedRandom drawsOf(int number, int decimals, int exponent, double sign)
{
    return { DrawOf(number, 100), DrawOf(decimals, 2), DrawOf(exponent, 3), sign };
}

PowersOfTen drawn(ScriptedRandom& random, int digits1 = 2, int digits2 = 3)
{
    PowersOfTen exercise(random);
    exercise.Digits1 = digits1;
    exercise.Digits2 = digits2;
    exercise.NewPowerOfTenExercise();
    EXPECT_TRUE(random.AllDrawn());
    return exercise;
}

// So many units of a decimal place, counted from the comma; of tens, hundreds, …, where it is below zero.
std::string unitsAt(int decimals, int units)
{
    return WithoutLastZeros(CommaText(units * PowerOfTenOnPaper(std::max(-decimals, 0)), std::max(decimals, 0)));
}

TEST(PowersOfTen, StartsWithTwoDigitsAndPowersUpTo1000AndOffersOneToFourAndTwoToFiveDigits)
{
    ScriptedRandom random {};
    const PowersOfTen exercise(random);
    EXPECT_EQ(exercise.Digits1, 2);
    EXPECT_EQ(exercise.Digits2, 3);
    EXPECT_EQ(exercise.Digits2Shown(), 4);
    EXPECT_EQ(OptionCaptions(PowersOfTen::Digits1Choices), "&1&2&3&4");
    EXPECT_EQ(OptionCaptions(PowersOfTen::Digits2Choices), "&2&3&4&5");
}

TEST(PowersOfTen, DrawsNumberDecimalsPowerAndSignInThisOrder)
{
    std::tuple<const char*, int, int, ScriptedRandom, const char*, const char*> cases[] = {
        { "the least draws of all", 2, 3, { 0, 0, 0, 0 }, "0,1 × 10", "1" },
        { "a sign draw of exactly a half", 2, 3, { 0, 0, 0, 0.5 }, "0,1 ÷ 10", "0,01" },
        { "a sign draw just below a half", 2, 3, { 0, 0, 0, std::nextafter(0.5, 0) }, "0,1 × 10", "1" },
        { "the greatest draws of all", 2, 3, { greatestDraw, greatestDraw, greatestDraw, greatestDraw }, "0,92 ÷ 1000",
            "0,00092" },
        { "the edge between two numbers", 2, 3, { 0.5, 0.5, 1.0 / 3, 0 }, "0,51 × 100", "51" },
        { "four digits", 4, 3, { DrawOf(1234, 10000), DrawOf(4, 4), DrawOf(3, 3), divide }, "0,1234 ÷ 1000",
            "0,0001234" },
        { "four digits, one decimal", 4, 3, { DrawOf(9999, 10000), DrawOf(1, 4), DrawOf(3, 3), multiply },
            "999,9 × 1000", "999900" },
        { "the least number of four decimals", 4, 3, { 0, greatestDraw, greatestDraw, divide }, "0,0001 ÷ 1000",
            "0,0000001" },
        { "a power up to 10000", 2, 4, { DrawOf(57, 100), DrawOf(1, 2), DrawOf(4, 4), multiply }, "5,7 × 10000",
            "57000" },
        { "a power of 10 alone", 2, 1, { DrawOf(57, 100), DrawOf(1, 2), greatestDraw, multiply }, "5,7 × 10", "57" },
    };
    for (auto& [what, digits1, digits2, random, line, solution] : cases) {
        SCOPED_TRACE(what);
        const PowersOfTen exercise = drawn(random, digits1, digits2);
        EXPECT_EQ(exercise.Factor1Text() + exercise.Sign() + exercise.Factor2Text(), line);
        EXPECT_EQ(exercise.Solution(), solution);
    }
}

TEST(PowersOfTen, ANumberOneDigitTooLongIsMovedDownBy8)
{
    for (const auto& [digits, number] : { std::pair(1, "0,2"), { 2, "0,92" }, { 3, "0,992" }, { 4, "0,9992" } }) {
        const double count = std::pow(10, digits);
        ScriptedRandom tooLong { DrawOf(count, count), greatestDraw, 0, multiply };
        EXPECT_EQ(drawn(tooLong, digits).Factor1Text(), number);
        ScriptedRandom longest { DrawOf(count - 1, count), greatestDraw, 0, multiply };
        EXPECT_EQ(drawn(longest, digits).Factor1Text(), "0," + std::string(static_cast<std::size_t>(digits), '9'));
    }
}

// Every exercise of up to three digits: its number written out, its comma moved by hand.
TEST(PowersOfTen, EverySolutionIsTheNumberWithItsCommaMoved)
{
    for (int digits = 1; digits <= 3; ++digits) {
        const int count = static_cast<int>(std::pow(10, digits));
        for (int number = 1; number < count; ++number) {
            for (int decimals = 1; decimals <= digits; ++decimals) {
                for (int exponent = 1; exponent <= 3; ++exponent) {
                    for (const double sign : { multiply, divide }) {
                        ScriptedRandom random { DrawOf(number, count), DrawOf(decimals, digits), DrawOf(exponent, 3),
                            sign };
                        const PowersOfTen exercise = drawn(random, digits);
                        const int moved = decimals + (sign == multiply ? -exponent : exponent);
                        const std::string factor = unitsAt(decimals, number);
                        const std::string solution = unitsAt(moved, number);
                        ASSERT_EQ(exercise.Factor1Text(), factor);
                        ASSERT_EQ(exercise.Solution(), solution) << factor << exercise.Sign() << exercise.Factor2Text();
                        ASSERT_TRUE(exercise.Judge(solution).Right);
                        ASSERT_FALSE(exercise.Judge(unitsAt(moved - 1, number)).Right);
                        ASSERT_FALSE(exercise.Judge(unitsAt(moved + 1, number)).Right);
                    }
                }
            }
        }
    }
}

TEST(PowersOfTen, EveryDecimalPlacePowerAndSignIsEquallyLikely)
{
    constexpr int draws = 12000;
    SeededRandom random(37230.25);
    PowersOfTen exercise(random);
    std::map<std::string, int> powers;
    std::map<std::string, int> signs;
    int belowOne = 0;
    for (int i = 0; i < draws; ++i) {
        exercise.NewPowerOfTenExercise();
        ++powers[exercise.Factor2Text()];
        ++signs[exercise.Sign()];
        belowOne += exercise.Factor1 < 1 ? 1 : 0;
        ASSERT_GT(exercise.Factor1, 0);
        ASSERT_LT(exercise.Factor1, 10);
        ASSERT_EQ(exercise.Product,
            exercise.Sign() == " × " ? exercise.Factor2 * exercise.Factor1 : exercise.Factor1 / exercise.Factor2);
    }
    ASSERT_EQ(powers.size(), 3U);
    for (const char* power : { "10", "100", "1000" }) {
        EXPECT_NEAR(powers[power], draws / 3, 310) << power; // six standard deviations
    }
    ASSERT_EQ(signs.size(), 2U);
    EXPECT_NEAR(signs[" × "], draws / 2, 330);
    // All numbers of two decimals, and of those with one the nine below 10 in a hundred.
    EXPECT_NEAR(belowOne, draws * (0.5 + 0.5 * 0.09), 330);
}

TEST(PowersOfTen, NumbersHaveADecimalCommaInEveryCountry)
{
    const ForeignLocale foreign("de_DE.UTF-8", std::locale(std::locale(), new StrangePunctuation));
    ScriptedRandom random = drawsOf(57, 2, 3, divide);
    const PowersOfTen exercise = drawn(random);
    EXPECT_EQ(exercise.Factor1Text(), "0,57");
    EXPECT_EQ(exercise.Factor2Text(), "1000");
    EXPECT_EQ(exercise.Solution(), "0,00057");
    EXPECT_TRUE(exercise.Judge("0,00057").Right);
}

// Factors that were typed reach every product; the sign is a multiplication's.
PowersOfTen withProduct(RandomSource& random, const char* product)
{
    PowersOfTen exercise(random);
    exercise.Factor2 = 1;
    exercise.EnterFactor1(product);
    return exercise;
}

TEST(PowersOfTen, JudgesAnswersAsNumbers)
{
    const std::tuple<const char*, const char*, bool> cases[]
        = { // What follows a number is not read, and the point is a decimal one here.
              { "5,7", "5,7", true }, { "5,7", "5,70", true }, { "5,7", "05,7", true }, { "5,7", "+5,7", true },
              { "5,7", "5.7", true }, { "5,7", " 5,7 ", true }, { "5,7", "5 , 7", true }, { "5,7", "57e-1", true },
              { "5,7", "5,7 metros", true }, { "5,7", "5,7,1", true }, { "5,7", "x5,7", false },
              { "5,7", "5,6", false }, { "5,7", "-5,7", false }, { "5,7", "57", false }, { "5,7", "", false },
              { "5,7", ",", false }, { "5,7", "1e999", false }, { "5700", "5700", true }, { "5700", "5.700", false },
              { "5700", "5 700", true }, { "0,00057", "0,00057", true }, { "0,00057", ",00057", true },
              { "0,00057", "0,0005", false }, { "0,00057", "0,00057001", false }, { "0,00057", "0,00057000999", true },
              // Nothing counts as 0, and 10^-8 itself is off.
              { "0", "", true }, { "0", "0", true }, { "0", "hola", true }, { "0", "   ", true },
              { "0", "0,000000009", true }, { "0", "0,00000001", false }, { "0", "-0,00000001", false },
              { "0", "-0,000000009999999", true }, { "570", "570,000000005", true }, { "570", "570,00000002", false },
              { "570", "569,99999998", false }, { "570", "569,999999995", true }
          };
    ScriptedRandom random {};
    for (const auto& [product, answer, right] : cases) {
        SCOPED_TRACE(std::string(product) + ", answered " + answer);
        const Verdict verdict = withProduct(random, product).Judge(answer);
        EXPECT_EQ(verdict.Right, right);
        EXPECT_EQ(verdict.Text, right ? "Resultado correcto " : "Resultado incorrecto ");
    }
}

void expectUnchanged(const PowersOfTen& exercise, double sign)
{
    EXPECT_EQ(exercise.Factor1, 5.7);
    EXPECT_EQ(exercise.Factor2, 100);
    EXPECT_EQ(exercise.Solution(), sign == multiply ? "570" : "0,057");
}

void enter(PowersOfTen& exercise, int factor, const char* typed)
{
    factor == 1 ? exercise.EnterFactor1(typed) : exercise.EnterFactor2(typed);
}

TEST(PowersOfTen, ATypedFactorMakesANewProduct)
{
    const std::tuple<double, int, const char*, const char*> cases[] = {
        // of 5,7 and 100
        { multiply, 1, "3,2", "320" },
        { multiply, 2, "10", "57" },
        { multiply, 2, "7", "39,9" }, // no power of ten
        { multiply, 2, "0", "0" },
        { multiply, 2, "-10", "-57" },
        { divide, 1, "3,2", "0,032" },
        { divide, 2, "1000", "0,0057" },
        { divide, 2, "4", "1,425" },
        { divide, 1, "0", "0" },
        { multiply, 1, " 12 ", "1200" },
        { multiply, 1, "1.234,5", "123450" }, // "." between thousands
        { multiply, 1, "1.5", "1500" },
        { multiply, 1, "1e2", "10000" },
        { multiply, 1, ",5", "50" },
    };
    for (const auto& [sign, factor, typed, solution] : cases) {
        SCOPED_TRACE(std::string(typed) + " as factor " + std::to_string(factor));
        ScriptedRandom random = drawsOf(57, 1, 2, sign);
        PowersOfTen exercise = drawn(random);
        const std::string signBefore = exercise.Sign();
        enter(exercise, factor, typed);
        EXPECT_EQ(exercise.Solution(), solution);
        EXPECT_TRUE(exercise.Judge(solution).Right);
        EXPECT_FALSE(exercise.Judge(sign == multiply ? "570" : "0,057").Right);
        EXPECT_EQ(exercise.Sign(), signBefore);
        EXPECT_EQ(exercise.Digits1, 2);
        EXPECT_EQ(exercise.Digits2, 3);
    }
}

TEST(PowersOfTen, BothFactorsCanBeTypedAndAreForgottenByTheNextExercise)
{
    ScriptedRandom random { 0, 0, 0, divide, DrawOf(57, 100), 0, DrawOf(2, 3), divide };
    PowersOfTen exercise(random);
    exercise.NewPowerOfTenExercise();
    exercise.EnterFactor1("8");
    exercise.EnterFactor2("32");
    EXPECT_EQ(exercise.Solution(), "0,25");
    exercise.NewPowerOfTenExercise();
    EXPECT_EQ(exercise.Factor1Text() + exercise.Sign() + exercise.Factor2Text(), "5,7 ÷ 100");
    EXPECT_EQ(exercise.Solution(), "0,057");
}

TEST(PowersOfTen, WhatIsNoNumberIsATypeMismatchThatQuotesItUnlessThereIsNothingToQuote)
{
    for (const std::string typed :
        { "", "   ", "hola", "12a", "1,2,3", "--1", "-", ",", "e3", " 1 2", "inf", "nan", "0x10" }) {
        for (const int factor : { 1, 2 }) {
            SCOPED_TRACE(typed + " as factor " + std::to_string(factor));
            ScriptedRandom random = drawsOf(57, 1, 2, multiply);
            PowersOfTen exercise = drawn(random);
            const bool isEmpty = typed.find_first_not_of(' ') == std::string::npos;
            ExpectError(RunTimeError::Kind::TypeMismatch,
                isEmpty ? "No se ha escrito ningún número." : "«" + typed + "» no es un número que sirva de factor.",
                [&] { enter(exercise, factor, typed.c_str()); });
            EXPECT_EQ(exercise.Solution(), "570");
        }
    }
}

TEST(PowersOfTen, NoNumberHoldsAProductTooLargeAndNothingCanBeDividedByZero)
{
    using Kind = RunTimeError::Kind;
    const std::tuple<double, int, const char*, Kind> cases[] = {
        // of 5,7 and 100
        { multiply, 1, "1e400", Kind::Overflow },
        { multiply, 1, "1e308", Kind::Overflow },
        { multiply, 1, "-1e308", Kind::Overflow },
        { multiply, 2, "1e400", Kind::Overflow },
        { multiply, 2, "1e308", Kind::Overflow },
        { multiply, 2, "-1e308", Kind::Overflow },
        { divide, 1, "1e400", Kind::Overflow },
        { divide, 2, "1e-308", Kind::Overflow },
        { divide, 2, "-1e-308", Kind::Overflow },
        { divide, 2, "0", Kind::InvalidArgument },
    };
    for (const auto& [sign, factor, typed, error] : cases) {
        SCOPED_TRACE(std::string(typed) + " as factor " + std::to_string(factor));
        ScriptedRandom random = drawsOf(57, 1, 2, sign);
        PowersOfTen exercise = drawn(random);
        EXPECT_EQ(KindThrownBy([&, factor = factor, typed = typed] { enter(exercise, factor, typed); }), error);
        expectUnchanged(exercise, sign);
    }
}

// A number is written with 15 digits, while the check compares all that it has.
TEST(PowersOfTen, ProductsOfMoreThan15DigitsAreWrittenRoundedAndThenJudgedWrong)
{
    const std::tuple<const char*, std::string, bool> cases[] = {
        { "123456789012,345", "123456789012345", true },
        { "1234567890123,4567", "1234567890123460", false },
        { "123,4567890123456", "123456,789012346", true }, // rounded by less than 10^-8
        { "1e305", "1" + std::string(308, '0'), true },
        { "-1e305", "-1" + std::string(308, '0'), true },
    };
    for (const auto& [factor, solution, right] : cases) {
        ScriptedRandom random = drawsOf(57, 1, 3, multiply);
        PowersOfTen exercise = drawn(random);
        exercise.EnterFactor1(factor);
        EXPECT_EQ(exercise.Solution(), solution);
        EXPECT_EQ(exercise.Judge(solution).Right, right) << factor;
    }
}

} // namespace

} // namespace numbrela

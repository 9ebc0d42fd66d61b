#include "activities/addsub/core/ColumnExercise.h"

#include "activities/addsub/tests/Answering.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"
#include "tests/support/ScriptedRandom.h"

#include "tests/support/KindThrownBy.h"
#include "tests/support/OptionCaptions.h"
#include "tests/support/Schoolbook.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

// Drawn exercises are compared with sums on paper, a thousand of each operation in every run of the tests, by
// tests/sums.
namespace numbrela {

namespace {

using namespace testing;

constexpr Operation addition = Operation::Addition;
constexpr Operation subtraction = Operation::Subtraction;

// The draw that adds so much, 1 to 9, to an operand that ends in 0.
double fillOf(int amount)
{
    return DrawOf(amount, 9);
}

void setOptions(ColumnExercise& exercise, int digits, int decimals)
{
    exercise.Digits = digits;
    exercise.Decimals = decimals;
}

TEST(ColumnExercise, StartsWithThreeDigitsAndTwoDecimalsOfOneToSevenAndNoneToSixAndAnEmptyScore)
{
    ScriptedRandom random {};
    const ColumnExercise exercise(addition, random);
    EXPECT_EQ(exercise.Digits, 3);
    EXPECT_EQ(exercise.Decimals, 2);
    EXPECT_TRUE(exercise.Score.Scorable);
    EXPECT_EQ(exercise.Score.Line(), "Ejercicios:  0; Errores:  0");
    EXPECT_EQ(OptionCaptions(ColumnExercise::DigitChoices), "&1&2&3&4&5&6&7");
    EXPECT_EQ(OptionCaptions(ColumnExercise::DecimalChoices), "&0&1&2&3&4&5&6");
}

// --- Drawing ---------------------------------------------------------------------------------------------------------

struct DrawCase {
    const char* What;
    int Digits;
    int Decimals;
    ScriptedRandom Random;
    double Operand1;
    double Operand2;
};

constexpr double greatest = 1 - 0x1p-53; // of all draws

// A draw of a number of five digits, as the defaults ask for, and of others.
double five(double number)
{
    return DrawOfDigits(number, 5);
}

double three(double number)
{
    return DrawOfDigits(number, 3);
}

double thirteen(double number)
{
    return DrawOfDigits(number, 13);
}

void expectDraws(Operation operation, std::vector<DrawCase> cases)
{
    for (auto& [what, digits, decimals, random, operand1, operand2] : cases) {
        SCOPED_TRACE(what);
        ColumnExercise exercise(operation, random);
        setOptions(exercise, digits, decimals);
        exercise.Score = { .ExerciseCount = 8, .ErrorCount = 5, .Scorable = false };
        exercise.Generate();
        EXPECT_EQ(exercise.Operand1, operand1);
        EXPECT_EQ(exercise.Operand2, operand2);
        EXPECT_TRUE(random.AllDrawn());
        EXPECT_EQ(exercise.Score.Line(), "Ejercicios:  8; Errores:  5");
        EXPECT_FALSE(exercise.Score.Scorable);
        EXPECT_EQ(exercise.Digits, digits);
        EXPECT_EQ(exercise.Decimals, decimals);
    }
}

TEST(ColumnExercise, DrawsBothOperandsUntilTheyHaveTheirDigitsAndFillsALastDecimalThatIsZero)
{
    expectDraws(addition,
        {
            { "one after the other", 3, 2, { five(48237), five(90516) }, 482.37, 905.16 },
            { "the greater one first", 3, 2, { five(90516), five(48237) }, 905.16, 482.37 },
            { "whole numbers that end in 0", 3, 0, { three(120), three(990) }, 120, 990 },
            { "zeros within", 3, 2, { five(40007), five(90001) }, 400.07, 900.01 },
            { "a digit too few", 3, 2, { 0, five(48237), five(9999), five(90516) }, 482.37, 905.16 },
            { "just enough digits", 3, 0, { three(99), three(100), three(99), three(101) }, 100, 101 },
            { "at the edge", 3, 0, { 0.099, 0.0989, three(500) }, 100, 500 },
            { "a digit too many", 3, 2, { greatest, five(48237), greatest, five(90516) }, 482.37, 905.16 },
            { "just few enough digits", 3, 0, { three(1000), three(999), three(1000), three(998) }, 999, 998 },
            { "thirteen digits at the edge", 7, 6, { greatest, thirteen(9999999999999), thirteen(9999999999998) },
                9999999.999999, 9999999.999998 },
            { "both sorts of refusal", 3, 0, { 0, greatest, three(123), greatest, 0, three(456) }, 123, 456 },
            { "a zero in the first", 3, 2, { five(48230), five(90516), fillOf(7) }, 482.37, 905.16 },
            { "a zero in the second", 3, 2, { five(48237), five(90510), fillOf(6) }, 482.37, 905.16 },
            { "filled with 9 and 1", 3, 2, { five(99990), five(10000), greatest, 0 }, 999.99, 100.01 },
            { "thirteen digits filled", 7, 6,
                { thirteen(1234567890120), thirteen(9876543210980), fillOf(3), fillOf(7) }, 1234567.890123,
                9876543.210987 },
        });
}

TEST(ColumnExercise, ExchangesTheOperandsOfASubtractionWhenTheSecondIsTheGreaterOnceTheyAreFilled)
{
    expectDraws(subtraction,
        {
            { "exchanged", 3, 2, { five(48237), five(90516) }, 905.16, 482.37 },
            { "not exchanged", 3, 2, { five(90516), five(48237) }, 905.16, 482.37 },
            { "for the last decimal", 7, 6, { thirteen(1234567890122), thirteen(1234567890123) }, 1234567.890123,
                1234567.890122 },
            { "filled before they are compared", 3, 2, { five(48230), five(48230), fillOf(1), fillOf(9) }, 482.39,
                482.31 },
            { "filled before they are exchanged", 3, 2, { five(48230), five(90510), fillOf(7), fillOf(6) }, 905.16,
                482.37 },
            { "equal ones", 3, 2, { five(48230), five(48237), fillOf(7) }, 482.37, 482.37 },
            { "a digit too few and too many", 3, 0, { 0, three(123), greatest, three(456) }, 456, 123 },
        });
}

// Every hundredth of the draw, and every ninth of the draw that fills a zero, once each.
TEST(ColumnExercise, EveryOperandOfOneDigitAndOneDecimalIsEquallyLikely)
{
    std::array<int, 100> weights {};
    for (int number = 1; number <= 100; ++number) {
        const double draw = DrawOfDigits(number, 2);
        const double other = DrawOfDigits(11, 2);
        const bool refused = number < 10 || number == 100;
        for (int ninth = 1; ninth <= 9; ++ninth) {
            ScriptedRandom random = refused ? ScriptedRandom { draw, other, other }
                : number % 10 == 0          ? ScriptedRandom { draw, other, fillOf(ninth) }
                                            : ScriptedRandom { draw, other };
            ColumnExercise exercise(addition, random);
            setOptions(exercise, 1, 1);
            exercise.Generate();
            ASSERT_TRUE(random.AllDrawn()) << number;
            weights.at(static_cast<std::size_t>(std::lround(exercise.Operand1 * 10))) += refused ? 0 : 1;
        }
    }
    for (std::size_t tenths = 0; tenths < weights.size(); ++tenths) {
        EXPECT_EQ(weights.at(tenths), tenths > 10 && tenths % 10 != 0 ? 10 : 0) << tenths;
    }
}

TEST(ColumnExercise, ContinuingDrawsByTheOptionsAndScoresAgain)
{
    ScriptedRandom random { DrawOfDigits(12, 2), DrawOfDigits(34, 2) };
    ColumnExercise exercise(addition, random);
    setOptions(exercise, 2, 0);
    exercise.EnterOperand1("123456789,123456789");
    exercise.Score.Scorable = false;
    exercise.Continue();
    EXPECT_EQ(exercise.Operand1, 12);
    EXPECT_EQ(exercise.Operand2, 34);
    EXPECT_TRUE(exercise.Score.Scorable);
}

// --- Checking --------------------------------------------------------------------------------------------------------

// An exercise whose operands a test has chosen itself.
class ChosenExercise {
public:
    ChosenExercise(Operation operation, double operand1, double operand2)
        : Exercise(operation, random_)
    {
        Exercise.Operand1 = operand1;
        Exercise.Operand2 = operand2;
    }

private:
    ScriptedRandom random_ {};

public:
    ColumnExercise Exercise;
};

TEST(ColumnExercise, JudgesTheNumberThatIsWritten)
{
    // Near 10^7 doubles lie farther apart than the tolerance: whether the answer on paper is taken as right depends on
    // how the two operands and their sum happened to be rounded.
    const double rounded1 = 9786998.338756;
    const double rounded2 = 7921362.491333;
    ASSERT_GT(std::fabs(rounded1 + rounded2 - 17708360.830089), 1e-10);
    ASSERT_EQ(9308397.299875 + 7677177.748507, 16985575.048382);
    ASSERT_NE(0.1 + 0.2, 0.3);
    ASSERT_NE(905.16 - 904.15, 1.01);
    const struct {
        Operation Sort;
        double Operand1;
        double Operand2;
        std::string_view Answer;
        bool Right;
    } cases[] = {
        { addition, 1000, 234.5, "1.234,5", true },
        { addition, 1000, 234.5, " 1 234,5 euros", true },
        { addition, 1000, 234.5, "1234.5", false }, // read as 12345
        { addition, 12000, 345, "1234.5", true },
        { addition, 1000, 234.5, "-1234,5", false },
        { addition, 1000, 234.5, "1e400", false },
        { addition, 0, 0, "", true },
        { subtraction, 3, 5, "-2", true },
        { subtraction, 3, 5, "2", false },
        { subtraction, 100, 223, "-.123", true },
        // The solution 0 leaves the distance unrounded.
        { subtraction, 5, 5, "0,0000000001", false }, // exactly as far away as the tolerance
        { subtraction, 5, 5, "-0,0000000001", false },
        { subtraction, 5, 5, "0,00000000009999999", true },
        { subtraction, 5, 5, "-0,00000000009999999", true },
        { subtraction, 2, 1, "1,00000000011", false },
        { subtraction, 2, 1, "0,99999999989", false },
        { addition, 5000000, 4999999, "9999999", true },
        { addition, 5000000, 4999999, "9999999,000000002", false },
        // The tolerance absorbs the inexactness of doubles.
        { addition, 0.1, 0.2, "0,3", true },
        { subtraction, 905.16, 904.15, "1,01", true },
        { addition, 9308397.299875, 7677177.748507, "16985575,048382", true },
        { addition, rounded1, rounded2, "17708360,830089", false },
        { addition, rounded1, rounded2, "17708360,8300890037", true },
        // With seven digits the true operands count, not the texts that are shown.
        { addition, 1234567, 2000000, "3123567", false },
        { addition, 1234567, 2000000, "3.234.567", true },
    };
    for (const auto& [operation, operand1, operand2, answer, right] : cases) {
        ChosenExercise chosen(operation, operand1, operand2);
        EXPECT_EQ(Check(chosen.Exercise, answer).Text, right ? "resultado correcto" : "resultado incorrecto")
            << operand1 << ", " << operand2 << ": " << answer;
    }
}

TEST(ColumnExercise, AnAnswerOfMoreThan32767CharactersOverflows)
{
    ChosenExercise chosen(addition, 3, 4);
    const std::string longest = std::string(32766, '0') + "7";
    EXPECT_EQ(KindThrownBy([&] { Check(chosen.Exercise, "0" + longest); }), RunTimeError::Kind::Overflow);
    EXPECT_EQ(chosen.Exercise.Score.Line(), "Ejercicios:  0; Errores:  0");
    EXPECT_TRUE(Check(chosen.Exercise, longest).Right);
}

TEST(ColumnExercise, ShowsTheSolutionAsADisplayNumberWhichReadsBackAsAnotherOneFromSevenDigitsOn)
{
    const struct {
        Operation Sort;
        double Operand1;
        double Operand2;
        const char* Solution;
        bool ReadsBack;
    } cases[] = {
        { addition, 482.37, 905.16, "1.387,53", true },
        { addition, 0.1, 0.2, "0,3", true },
        { addition, 500000, 499999, "999.999", true },
        { addition, 600000, 634567, "1.123.567", false },
        { addition, 5000000, 7345678, "12.234.678", false },
        { addition, 1000000.25, 234567.5, "1.123.567,75", false },
        { addition, 555555, 555655, "1.111.210", true }, // its first four digits are equal
        { subtraction, 905.16, 482.37, "422,79", true },
        { subtraction, 482.37, 905.16, "-.422,79", true },
        { subtraction, 5, 5, "0", true },
        { subtraction, 9345678, 2111111, "7.723.567", false },
        { subtraction, 1, 123457, "-.-12.456", false }, // a sign and six digits are seven characters
        { subtraction, 1, 12346, "-12.345", true },
    };
    for (const auto& [operation, operand1, operand2, solution, readsBack] : cases) {
        ChosenExercise chosen(operation, operand1, operand2);
        const std::string shown = chosen.Exercise.ShowSolution();
        EXPECT_EQ(shown, solution);
        EXPECT_EQ(Check(chosen.Exercise, shown).Right, readsBack) << shown;
        EXPECT_EQ(chosen.Exercise.Score.Line(), "Ejercicios:  0; Errores:  0");
    }
}

// --- Scoring ---------------------------------------------------------------------------------------------------------

enum class Counts { Nothing, AnExercise, AnExerciseAndAnError };
enum class Scoring { GoesOn, BeginsAgain, Ends };

// What a pupil can do, and an independent statement of what it means for the score.
const struct Act {
    const char* Name;
    Counts Counting;
    Scoring Afterwards;
    void (*Do)(ColumnExercise& exercise);
} acts[] = {
    { "right", Counts::AnExercise, Scoring::Ends,
        [](ColumnExercise& e) { EXPECT_TRUE(Check(e, PlainDecimalText(e.Solution())).Right); } },
    { "wrong", Counts::AnExerciseAndAnError, Scoring::GoesOn,
        [](ColumnExercise& e) { EXPECT_FALSE(Check(e, PlainDecimalText(e.Solution() + 1)).Right); } },
    { "continue", Counts::Nothing, Scoring::BeginsAgain, [](ColumnExercise& e) { e.Continue(); } },
    { "solution", Counts::Nothing, Scoring::Ends, [](ColumnExercise& e) { e.ShowSolution(); } },
    { "draw", Counts::Nothing, Scoring::GoesOn, [](ColumnExercise& e) { e.Generate(); } },
    { "type", Counts::Nothing, Scoring::GoesOn,
        [](ColumnExercise& e) { EXPECT_TRUE(e.EnterOperand1("77,5").Accepted); } },
    { "cancel", Counts::Nothing, Scoring::GoesOn,
        [](ColumnExercise& e) { EXPECT_FALSE(e.EnterOperand2("").Accepted); } },
};

void expectScoreAfterEveryContinuation(const ColumnExercise& exercise, const Score& expected, int actsLeft)
{
    ASSERT_EQ(exercise.Score.Scorable, expected.Scorable);
    ASSERT_EQ(exercise.Score.ExerciseCount, expected.ExerciseCount);
    ASSERT_EQ(exercise.Score.ErrorCount, expected.ErrorCount);
    for (const Act& act : acts) {
        if (actsLeft > 0) {
            ColumnExercise next = exercise;
            act.Do(next);
            Score expectedNext = expected;
            if (expected.Scorable && act.Counting != Counts::Nothing) {
                expectedNext.ExerciseCount = expected.ExerciseCount + 1;
                expectedNext.ErrorCount = expected.ErrorCount + (act.Counting == Counts::AnExerciseAndAnError ? 1 : 0);
            }
            expectedNext.Scorable
                = act.Afterwards == Scoring::BeginsAgain || (expected.Scorable && act.Afterwards == Scoring::GoesOn);
            expectScoreAfterEveryContinuation(next, expectedNext, actsLeft - 1);
            ASSERT_FALSE(::testing::Test::HasFailure()) << act.Name << ", and " << actsLeft - 1 << " acts more";
        }
    }
}

TEST(ColumnExercise, CountsRightAfterEveryOrderOfFiveActs)
{
    for (const Operation operation : { addition, subtraction }) {
        SeededRandom random(1);
        ColumnExercise exercise(operation, random);
        exercise.Generate();
        expectScoreAfterEveryContinuation(exercise, {}, operation == addition ? 5 : 4);
    }
}

TEST(ColumnExercise, AThousandthExerciseIsARunTimeErrorAndIsNotCounted)
{
    ChosenExercise chosen(addition, 3, 4);
    chosen.Exercise.Score = { .ExerciseCount = 998, .ErrorCount = 998, .Scorable = true };
    Check(chosen.Exercise, "8");
    EXPECT_EQ(chosen.Exercise.Score.Line(), "Ejercicios:999; Errores:999");
    for (const char* answer : { "7", "8" }) {
        EXPECT_EQ(KindThrownBy([&] { Check(chosen.Exercise, answer); }), RunTimeError::Kind::InvalidArgument);
        EXPECT_EQ(chosen.Exercise.Score.Line(), "Ejercicios:999; Errores:999");
        EXPECT_TRUE(chosen.Exercise.Score.Scorable);
    }
}

} // namespace

} // namespace numbrela

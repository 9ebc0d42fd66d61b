#include "activities/addsub/core/ColumnExercise.h"

#include "activities/addsub/tests/Answering.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"
#include "tests/support/ScriptedRandom.h"

#include "tests/support/ForeignLocale.h"
#include "tests/support/KindThrownBy.h"
#include "tests/support/OptionCaptions.h"
#include "tests/support/Schoolbook.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace numbrela {

namespace {

using numbrela::testing::DisplayedByTheRule;
using numbrela::testing::DrawOfDigits;
using numbrela::testing::ForeignLocale;
using numbrela::testing::KindThrownBy;
using numbrela::testing::OptionCaptions;
using numbrela::testing::ScriptedRandom;
using numbrela::testing::StrangePunctuation;

constexpr Operation bothOperations[] = { Operation::Addition, Operation::Subtraction };

// The draw that adds so much, 1 to 9, to an operand that ends in 0.
double fillOf(int amount)
{
    return (amount - 0.5) / 9;
}

// The double nearest to a text such as "482.37".
double nearestTo(std::string_view text)
{
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

// The number with exactly so many decimals and a point before them.
std::string fixedText(double value, int decimals)
{
    std::array<char, 400> buffer {};
    const auto written
        = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals);
    return { buffer.data(), written.ptr };
}

void setOptions(ColumnExercise& exercise, int digits, int decimals)
{
    exercise.Digits = digits;
    exercise.Decimals = decimals;
}

// --------------------------------------------------------------------------------------------------------- at load

TEST(ColumnExercise, StartsWithThreeDigitsTwoDecimalsAndAnEmptyScore)
{
    for (const Operation operation : bothOperations) {
        ScriptedRandom random {};
        const ColumnExercise exercise(operation, random);
        EXPECT_EQ(exercise.Digits, 3);
        EXPECT_EQ(exercise.Decimals, 2);
        EXPECT_TRUE(exercise.Score.Scorable);
        EXPECT_EQ(exercise.Score.Line(), "Ejercicios:  0; Errores:  0");
    }
}

TEST(ColumnExercise, OffersOneToSevenDigitsAndNoneToSixDecimals)
{
    EXPECT_EQ(OptionCaptions(ColumnExercise::DigitChoices), "&1&2&3&4&5&6&7");
    EXPECT_EQ(OptionCaptions(ColumnExercise::DecimalChoices), "&0&1&2&3&4&5&6");
}

TEST(ColumnExercise, TheDefaultsAreTheThirdItemOfEachList)
{
    ScriptedRandom random {};
    const ColumnExercise exercise(Operation::Addition, random);
    EXPECT_EQ(ColumnExercise::DigitChoices.IndexOf(exercise.Digits), 2);
    EXPECT_EQ(ColumnExercise::DecimalChoices.IndexOf(exercise.Decimals), 2);
}

// --------------------------------------------------------------------------------------------------------- drawing

struct DrawCase {
    const char* What;
    Operation Sort;
    int Digits;
    int Decimals;
    ScriptedRandom Random;
    double Operand1;
    double Operand2;
};

void expectDraws(std::vector<DrawCase> cases)
{
    for (auto& drawCase : cases) {
        SCOPED_TRACE(drawCase.What);
        ColumnExercise exercise(drawCase.Sort, drawCase.Random);
        setOptions(exercise, drawCase.Digits, drawCase.Decimals);
        exercise.Generate();
        EXPECT_EQ(exercise.Operand1, drawCase.Operand1);
        EXPECT_EQ(exercise.Operand2, drawCase.Operand2);
        EXPECT_TRUE(drawCase.Random.AllDrawn());
    }
}

TEST(ColumnExercise, DrawsTheOperandsOneAfterTheOther)
{
    expectDraws({
        { "defaults", Operation::Addition, 3, 2, { DrawOfDigits(48237, 5), DrawOfDigits(90516, 5) }, 482.37, 905.16 },
        { "the greater one first", Operation::Addition, 3, 2, { DrawOfDigits(90516, 5), DrawOfDigits(48237, 5) },
            905.16, 482.37 },
        { "one digit", Operation::Addition, 1, 0, { DrawOfDigits(7, 1), DrawOfDigits(4, 1) }, 7, 4 },
        { "one digit, one decimal", Operation::Addition, 1, 1, { DrawOfDigits(74, 2), DrawOfDigits(45, 2) }, 7.4, 4.5 },
        { "seven digits", Operation::Addition, 7, 0, { DrawOfDigits(1234567, 7), DrawOfDigits(7654321, 7) }, 1234567,
            7654321 },
        { "all thirteen digits", Operation::Addition, 7, 6,
            { DrawOfDigits(1234567890123, 13), DrawOfDigits(9876543210987, 13) }, 1234567.890123, 9876543.210987 },
        { "one digit, six decimals", Operation::Addition, 1, 6, { DrawOfDigits(1000001, 7), DrawOfDigits(9999999, 7) },
            1.000001, 9.999999 },
        { "equal ones", Operation::Addition, 3, 2, { DrawOfDigits(50005, 5), DrawOfDigits(50005, 5) }, 500.05, 500.05 },
    });
}

TEST(ColumnExercise, DrawsAgainUntilTheFirstDigitIsNotZero)
{
    expectDraws({
        { "the least draw of all", Operation::Addition, 3, 2, { 0, DrawOfDigits(48237, 5), DrawOfDigits(90516, 5) },
            482.37, 905.16 },
        { "the greatest number with one digit too few", Operation::Addition, 3, 2,
            { DrawOfDigits(9999, 5), DrawOfDigits(48237, 5), DrawOfDigits(90516, 5) }, 482.37, 905.16 },
        { "the second operand", Operation::Addition, 3, 2,
            { DrawOfDigits(48237, 5), DrawOfDigits(9999, 5), DrawOfDigits(90516, 5) }, 482.37, 905.16 },
        { "several times", Operation::Addition, 3, 2,
            { 0, DrawOfDigits(1, 5), DrawOfDigits(999, 5), DrawOfDigits(48237, 5), 0.05, 0.09, DrawOfDigits(90516, 5) },
            482.37, 905.16 },
        { "just enough digits", Operation::Addition, 3, 0,
            { DrawOfDigits(99, 3), DrawOfDigits(100, 3), DrawOfDigits(99, 3), DrawOfDigits(101, 3) }, 100, 101 },
        { "the draw at the edge", Operation::Addition, 3, 0, { 0.099, 0.0989, DrawOfDigits(500, 3) }, 100, 500 },
    });
}

TEST(ColumnExercise, DrawsAgainWhenTheNumberHasOneDigitTooMany)
{
    const double greatest = 1 - 0x1p-53;
    expectDraws({
        { "the greatest draw of all", Operation::Addition, 3, 2,
            { greatest, DrawOfDigits(48237, 5), DrawOfDigits(90516, 5) }, 482.37, 905.16 },
        { "the second operand", Operation::Addition, 3, 2, { DrawOfDigits(48237, 5), greatest, DrawOfDigits(90516, 5) },
            482.37, 905.16 },
        { "one digit", Operation::Addition, 1, 0, { 0.9, 0.95, DrawOfDigits(9, 1), greatest, DrawOfDigits(1, 1) }, 9,
            1 },
        { "just few enough digits", Operation::Addition, 3, 0,
            { DrawOfDigits(1000, 3), DrawOfDigits(999, 3), DrawOfDigits(1000, 3), DrawOfDigits(998, 3) }, 999, 998 },
        { "thirteen digits", Operation::Addition, 7, 6,
            { greatest, DrawOfDigits(9999999999999, 13), greatest, DrawOfDigits(9999999999998, 13) }, 9999999.999999,
            9999999.999998 },
        { "both sorts of refusal", Operation::Addition, 3, 0,
            { 0, greatest, DrawOfDigits(123, 3), greatest, 0, DrawOfDigits(456, 3) }, 123, 456 },
    });
}

TEST(ColumnExercise, FillsALastDecimalThatIsZero)
{
    const double greatest = 1 - 0x1p-53;
    expectDraws({
        { "the first operand", Operation::Addition, 3, 2, { DrawOfDigits(48230, 5), DrawOfDigits(90516, 5), fillOf(7) },
            482.37, 905.16 },
        { "the second operand", Operation::Addition, 3, 2,
            { DrawOfDigits(48237, 5), DrawOfDigits(90510, 5), fillOf(6) }, 482.37, 905.16 },
        { "both, the first one first", Operation::Addition, 3, 2,
            { DrawOfDigits(48230, 5), DrawOfDigits(90510, 5), fillOf(7), fillOf(6) }, 482.37, 905.16 },
        { "with 1 at least", Operation::Addition, 3, 2, { DrawOfDigits(48230, 5), DrawOfDigits(90516, 5), 0 }, 482.31,
            905.16 },
        { "with 9 at most", Operation::Addition, 3, 2, { DrawOfDigits(48230, 5), DrawOfDigits(90516, 5), greatest },
            482.39, 905.16 },
        { "without adding a digit", Operation::Addition, 3, 2,
            { DrawOfDigits(99990, 5), DrawOfDigits(10000, 5), greatest, 0 }, 999.99, 100.01 },
        { "of thirteen digits", Operation::Addition, 7, 6,
            { DrawOfDigits(1234567890120, 13), DrawOfDigits(9876543210980, 13), fillOf(3), fillOf(7) }, 1234567.890123,
            9876543.210987 },
        { "but no other zero", Operation::Addition, 3, 2, { DrawOfDigits(40007, 5), DrawOfDigits(90001, 5) }, 400.07,
            900.01 },
    });
}

TEST(ColumnExercise, FillsWithEveryDigitFrom1To9)
{
    for (int amount = 1; amount <= 9; ++amount) {
        ScriptedRandom random { DrawOfDigits(10, 2), DrawOfDigits(90, 2), fillOf(amount), fillOf(10 - amount) };
        ColumnExercise exercise(Operation::Addition, random);
        setOptions(exercise, 1, 1);
        exercise.Generate();
        EXPECT_EQ(exercise.Operand1, (10 + amount) / 10.0);
        EXPECT_EQ(exercise.Operand2, (100 - amount) / 10.0);
        EXPECT_TRUE(random.AllDrawn());
    }
}

TEST(ColumnExercise, LeavesWholeNumbersThatEndInZeroAlone)
{
    expectDraws({
        { "one zero", Operation::Addition, 3, 0, { DrawOfDigits(120, 3), DrawOfDigits(990, 3) }, 120, 990 },
        { "all zeros", Operation::Addition, 7, 0, { DrawOfDigits(1000000, 7), DrawOfDigits(9000000, 7) }, 1000000,
            9000000 },
        { "subtraction", Operation::Subtraction, 2, 0, { DrawOfDigits(90, 2), DrawOfDigits(10, 2) }, 90, 10 },
    });
}

TEST(ColumnExercise, PutsTheGreaterOperandOfASubtractionOnTop)
{
    expectDraws({
        { "exchanged", Operation::Subtraction, 3, 2, { DrawOfDigits(48237, 5), DrawOfDigits(90516, 5) }, 905.16,
            482.37 },
        { "as drawn", Operation::Subtraction, 3, 2, { DrawOfDigits(90516, 5), DrawOfDigits(48237, 5) }, 905.16,
            482.37 },
        { "exchanged for the last decimal", Operation::Subtraction, 7, 6,
            { DrawOfDigits(1234567890122, 13), DrawOfDigits(1234567890123, 13) }, 1234567.890123, 1234567.890122 },
        { "compared after the zeros are filled", Operation::Subtraction, 3, 2,
            { DrawOfDigits(48230, 5), DrawOfDigits(48230, 5), fillOf(1), fillOf(9) }, 482.39, 482.31 },
        { "filled before they are exchanged", Operation::Subtraction, 3, 2,
            { DrawOfDigits(48230, 5), DrawOfDigits(90510, 5), fillOf(7), fillOf(6) }, 905.16, 482.37 },
        { "with a refused draw", Operation::Subtraction, 2, 0, { 0, DrawOfDigits(12, 2), 0.999, DrawOfDigits(34, 2) },
            34, 12 },
    });
}

TEST(ColumnExercise, KeepsEqualOperandsOfASubtraction)
{
    expectDraws({
        { "drawn equal", Operation::Subtraction, 3, 2, { DrawOfDigits(48237, 5), DrawOfDigits(48237, 5) }, 482.37,
            482.37 },
        { "filled to be equal", Operation::Subtraction, 3, 2,
            { DrawOfDigits(48230, 5), DrawOfDigits(48237, 5), fillOf(7) }, 482.37, 482.37 },
        { "whole", Operation::Subtraction, 1, 0, { DrawOfDigits(5, 1), DrawOfDigits(5, 1) }, 5, 5 },
    });
}

TEST(ColumnExercise, DrawingTouchesNeitherTheScoreNorTheOptions)
{
    for (const Operation operation : bothOperations) {
        for (const bool scorable : { true, false }) {
            SeededRandom random(3);
            ColumnExercise exercise(operation, random);
            setOptions(exercise, 4, 1);
            exercise.Score.ExerciseCount = 8;
            exercise.Score.ErrorCount = 5;
            exercise.Score.Scorable = scorable;
            exercise.Generate();
            EXPECT_EQ(exercise.Score.Scorable, scorable);
            EXPECT_EQ(exercise.Score.Line(), "Ejercicios:  8; Errores:  5");
            EXPECT_EQ(exercise.Digits, 4);
            EXPECT_EQ(exercise.Decimals, 1);
        }
    }
}

TEST(ColumnExercise, ContinuingDrawsAndScoresAgain)
{
    ScriptedRandom random { DrawOfDigits(12, 2), DrawOfDigits(34, 2), DrawOfDigits(56, 2), DrawOfDigits(78, 2) };
    ColumnExercise exercise(Operation::Addition, random);
    setOptions(exercise, 2, 0);
    exercise.Continue();
    EXPECT_EQ(exercise.Operand1, 12);
    EXPECT_EQ(exercise.Operand2, 34);
    EXPECT_TRUE(exercise.Score.Scorable);

    exercise.Score.Scorable = false;
    exercise.Continue();
    EXPECT_EQ(exercise.Operand1, 56);
    EXPECT_EQ(exercise.Operand2, 78);
    EXPECT_TRUE(exercise.Score.Scorable);
}

TEST(ColumnExercise, OneDigitOperandsComeFromEveryTenthOfTheDrawButTheLast)
{
    for (int first = 0; first < 9; ++first) {
        for (int second = 0; second < 9; ++second) {
            ScriptedRandom random { first / 10.0 + 0.05, 0.95, second / 10.0 + 0.05 };
            ColumnExercise exercise(Operation::Addition, random);
            setOptions(exercise, 1, 0);
            exercise.Generate();
            EXPECT_EQ(exercise.Operand1, first + 1);
            EXPECT_EQ(exercise.Operand2, second + 1);
            EXPECT_TRUE(random.AllDrawn());
        }
    }
}

TEST(ColumnExercise, EveryOneDigitExerciseIsEquallyLikely)
{
    constexpr int perExercise = 100;
    SeededRandom random(7161);
    ColumnExercise exercise(Operation::Addition, random);
    setOptions(exercise, 1, 0);
    std::array<std::array<int, 10>, 10> seen {};
    for (int i = 0; i < 81 * perExercise; ++i) {
        exercise.Generate();
        ++seen.at(static_cast<std::size_t>(exercise.Operand1)).at(static_cast<std::size_t>(exercise.Operand2));
    }
    for (std::size_t first = 0; first < 10; ++first) {
        for (std::size_t second = 0; second < 10; ++second) {
            if (first == 0 || second == 0) {
                EXPECT_EQ(seen.at(first).at(second), 0);
            } else {
                EXPECT_NEAR(seen.at(first).at(second), perExercise, 60); // six standard deviations
            }
        }
    }
}

// Every hundredth of the draw, and every ninth of the draw that fills a zero, once each.
TEST(ColumnExercise, EveryOperandOfOneDigitAndOneDecimalIsEquallyLikely)
{
    std::array<int, 100> weights {};
    for (int hundredth = 0; hundredth < 100; ++hundredth) {
        const double draw = (hundredth + 0.5) / 100;
        const int number = hundredth + 1;
        const bool refused = number < 10 || number == 100;
        const bool filled = !refused && number % 10 == 0;
        for (int ninth = 1; ninth <= 9; ++ninth) {
            const double second = DrawOfDigits(11, 2);
            ScriptedRandom random = refused ? ScriptedRandom { draw, DrawOfDigits(11, 2), second }
                : filled                    ? ScriptedRandom { draw, second, fillOf(ninth) }
                                            : ScriptedRandom { draw, second };
            ColumnExercise exercise(Operation::Addition, random);
            setOptions(exercise, 1, 1);
            exercise.Generate();
            ASSERT_TRUE(random.AllDrawn()) << number;
            if (refused) {
                ASSERT_EQ(exercise.Operand1, 1.1) << number;
            } else {
                ++weights.at(static_cast<std::size_t>(std::lround(exercise.Operand1 * 10)));
            }
        }
    }
    for (std::size_t tenths = 0; tenths < weights.size(); ++tenths) {
        EXPECT_EQ(weights.at(tenths), tenths > 10 && tenths % 10 != 0 ? 10 : 0) << tenths;
    }
}

// Calls back with an exercise of either operation drawn for each of the 49 combinations of options, so many times.
template <typename Examine>
void forAllOptions(int timesEach, Examine examine)
{
    for (const Operation operation : bothOperations) {
        for (int digits = 1; digits <= 7; ++digits) {
            for (int decimals = 0; decimals <= 6; ++decimals) {
                SeededRandom random(digits * 10 + decimals);
                ColumnExercise exercise(operation, random);
                setOptions(exercise, digits, decimals);
                for (int i = 0; i < timesEach; ++i) {
                    exercise.Continue();
                    examine(operation, exercise);
                    if (::testing::Test::HasFatalFailure()) {
                        return;
                    }
                }
            }
        }
    }
}

TEST(ColumnExercise, OperandsHaveTheChosenDigitsAndDecimalsUnderAllOptions)
{
    forAllOptions(150, [](Operation, const ColumnExercise& exercise) {
        for (const double operand : { exercise.Operand1, exercise.Operand2 }) {
            const std::string text = fixedText(operand, exercise.Decimals);
            const std::size_t point = std::min(text.find('.'), text.size());
            ASSERT_EQ(static_cast<int>(point), exercise.Digits) << text;
            ASSERT_NE(text.front(), '0') << text;
            if (exercise.Decimals > 0) {
                ASSERT_EQ(static_cast<int>(text.size() - point - 1), exercise.Decimals) << text;
                ASSERT_NE(text.back(), '0') << text;
            }
            // Nothing lies between the drawn double and the decimal number that the pupil sees.
            ASSERT_EQ(operand, nearestTo(text)) << text;
            const std::string plain = PlainDecimalText(operand);
            ASSERT_EQ(plain, text.substr(0, point) + (point < text.size() ? "," + text.substr(point + 1) : ""));
        }
    });
}

TEST(ColumnExercise, NeverDrawsASubtrahendAboveItsMinuend)
{
    forAllOptions(150, [](Operation operation, const ColumnExercise& exercise) {
        if (operation == Operation::Subtraction) {
            ASSERT_GE(exercise.Operand1, exercise.Operand2);
            ASSERT_GE(exercise.Solution(), 0);
        }
    });
}

TEST(ColumnExercise, EitherAddendMayBeTheGreaterOne)
{
    int firstGreater = 0;
    int secondGreater = 0;
    SeededRandom random(1);
    ColumnExercise exercise(Operation::Addition, random);
    for (int i = 0; i < 1000; ++i) {
        exercise.Generate();
        firstGreater += exercise.Operand1 > exercise.Operand2 ? 1 : 0;
        secondGreater += exercise.Operand2 > exercise.Operand1 ? 1 : 0;
    }
    EXPECT_NEAR(firstGreater, 500, 100);
    EXPECT_NEAR(secondGreater, 500, 100);
}

// How often each digit stood at each place of both operands.
std::vector<std::array<int, 10>> countDigits(int digits, int decimals, int exercises)
{
    SeededRandom random(86400);
    ColumnExercise exercise(Operation::Addition, random);
    setOptions(exercise, digits, decimals);
    std::vector<std::array<int, 10>> counts(static_cast<std::size_t>(digits + decimals));
    for (int i = 0; i < exercises; ++i) {
        exercise.Generate();
        for (const double operand : { exercise.Operand1, exercise.Operand2 }) {
            std::string text = fixedText(operand, decimals);
            std::erase(text, '.');
            for (std::size_t place = 0; place < counts.size(); ++place) {
                ++counts[place].at(static_cast<std::size_t>(text.at(place) - '0'));
            }
        }
    }
    return counts;
}

TEST(ColumnExercise, AllThirteenDigitsVary)
{
    const auto counts = countDigits(7, 6, 4500);
    for (std::size_t place = 0; place < counts.size(); ++place) {
        const bool neverZero = place == 0 || place + 1 == counts.size();
        for (std::size_t digit = 0; digit < 10; ++digit) {
            const int expected = !neverZero ? 900 : digit == 0 ? 0 : 1000;
            EXPECT_NEAR(counts[place].at(digit), expected, expected == 0 ? 0 : 180) // six standard deviations
                << "digit " << digit << " at place " << place;
        }
    }
}

TEST(ColumnExercise, TheLastDigitOfWholeNumbersMayBeAnyDigit)
{
    const auto counts = countDigits(3, 0, 4500);
    for (std::size_t digit = 0; digit < 10; ++digit) {
        EXPECT_NEAR(counts.back().at(digit), 900, 180) << digit;
        EXPECT_NEAR(counts.front().at(digit), digit == 0 ? 0 : 1000, digit == 0 ? 0 : 180) << digit;
    }
}

// ---------------------------------------------------------------------------------------------------------- showing

struct TextCase {
    double Operand1;
    double Operand2;
    const char* Upper;
    const char* Lower;
};

TEST(ColumnExercise, ShowsDrawnOperandsAsDisplayNumbersWithoutBlanks)
{
    const TextCase cases[] = {
        { 482.37, 905.16, "482,37", "905,16" },
        { 5, 7, "5", "7" },
        { 1234.5, 9876.1, "1.234,5", "9.876,1" },
        { 123456.789012, 100000.000001, "123.456,789012", "100.000,000001" },
        { 1234567, 7654321, "1.123.567", "7.765.321" }, // seven digits: one repeated, one dropped
        { 1111222.5, 1234567.25, "1.111.222,5", "1.123.567,25" },
        { 120, 990, "120", "990" },
    };
    for (const auto& [operand1, operand2, upper, lower] : cases) {
        ScriptedRandom random {};
        ColumnExercise exercise(Operation::Addition, random);
        exercise.Operand1 = operand1;
        exercise.Operand2 = operand2;
        EXPECT_EQ(exercise.DrawnTexts().Upper, upper);
        EXPECT_EQ(exercise.DrawnTexts().Lower, lower);
    }
}

TEST(ColumnExercise, DrawnOperandsStandInColumnsWithoutBlanks)
{
    forAllOptions(20, [](Operation, const ColumnExercise& exercise) {
        const OperandTexts drawn = exercise.DrawnTexts();
        ASSERT_EQ(drawn.Upper.size(), drawn.Lower.size());
        ASSERT_EQ(drawn.Upper.find(','), drawn.Lower.find(','));
        ASSERT_EQ(drawn.Upper.find(' '), std::string::npos);
        ASSERT_EQ(drawn.Lower.find(' '), std::string::npos);
        ASSERT_EQ(exercise.AlignedTexts().Upper, drawn.Upper);
        ASSERT_EQ(exercise.AlignedTexts().Lower, drawn.Lower);
    });
}

// --------------------------------------------------------------------------------------------------------- checking

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

TEST(ColumnExercise, TheSolutionIsTheSumOrTheDifference)
{
    EXPECT_EQ(ChosenExercise(Operation::Addition, 482.37, 905.16).Exercise.Solution(), 482.37 + 905.16);
    EXPECT_EQ(ChosenExercise(Operation::Addition, -3, 5).Exercise.Solution(), 2);
    EXPECT_EQ(ChosenExercise(Operation::Subtraction, 905.16, 482.37).Exercise.Solution(), 905.16 - 482.37);
    EXPECT_EQ(ChosenExercise(Operation::Subtraction, 3, 5).Exercise.Solution(), -2);
}

TEST(ColumnExercise, SaysThatAnAnswerIsRight)
{
    ChosenExercise chosen(Operation::Addition, 482.37, 905.16);
    const Verdict verdict = Check(chosen.Exercise, "1.387,53");
    EXPECT_TRUE(verdict.Right);
    EXPECT_EQ(verdict.Text, "resultado correcto");
}

TEST(ColumnExercise, SaysThatAnAnswerIsWrong)
{
    ChosenExercise chosen(Operation::Addition, 482.37, 905.16);
    const Verdict verdict = Check(chosen.Exercise, "1.387,54");
    EXPECT_FALSE(verdict.Right);
    EXPECT_EQ(verdict.Text, "resultado incorrecto");
}

struct AnswerCase {
    double Operand1;
    double Operand2;
    std::string_view Answer;
    bool Right;
};

void expectVerdicts(Operation operation, const std::vector<AnswerCase>& cases)
{
    for (const auto& [operand1, operand2, answer, right] : cases) {
        ChosenExercise chosen(operation, operand1, operand2);
        EXPECT_EQ(Check(chosen.Exercise, answer).Right, right) << operand1 << ", " << operand2 << ": " << answer;
    }
}

TEST(ColumnExercise, ReadsTheAnswerAsANumberAndNotAsText)
{
    expectVerdicts(Operation::Addition,
        {
            { 1000, 234.5, "1.234,5", true },
            { 1000, 234.5, "1234,5", true },
            { 1000, 234.5, "1234,50", true },
            { 1000, 234.5, "01234,5", true },
            { 1000, 234.5, "+1234,5", true },
            { 1000, 234.5, " 1 234,5 ", true },
            { 1000, 234.5, "1.2.3.4,5", true },
            { 1000, 234.5, "1,2345e3", true },
            { 1000, 234.5, "1234,5 euros", true },
            { 1000, 234.5, "1234,5,7", true },
            { 1000, 234.5, "1234.5", false }, // read as 12345
            { 12000, 345, "1234.5", true },
            { 1000, 234.5, "-1234,5", false },
            { 1000, 234.5, "1234", false },
            { 1000, 234.5, "euros 1234,5", false },
            { 1000, 234.5, "1e400", false },
        });
}

TEST(ColumnExercise, AnEmptyOrNonNumericAnswerIsZero)
{
    for (const char* answer : { "", "   ", "hola", "-", ",", "€" }) {
        expectVerdicts(Operation::Addition, { { 482.37, 905.16, answer, false }, { 0, 0, answer, true } });
        expectVerdicts(Operation::Subtraction,
            { { 905.16, 482.37, answer, false }, { 482.37, 482.37, answer, true }, { 5, 5, answer, true } });
    }
}

TEST(ColumnExercise, ADifferenceOfZeroIsShownAsZeroAndAnEmptyAnswerIsRight)
{
    ScriptedRandom random { DrawOfDigits(48237, 5), DrawOfDigits(48237, 5) };
    ColumnExercise exercise(Operation::Subtraction, random);
    exercise.Generate();
    EXPECT_TRUE(Check(exercise, "").Right);
    EXPECT_EQ(exercise.Score.Line(), "Ejercicios:  1; Errores:  0");
    EXPECT_EQ(exercise.ShowSolution(), "0");
    EXPECT_TRUE(Check(exercise, "0").Right);
}

TEST(ColumnExercise, RightIsOnlyWhatLiesCloserThanTheTolerance)
{
    // The solution 0 leaves the distance unrounded.
    expectVerdicts(Operation::Subtraction,
        {
            { 5, 5, "0,0000000001", false }, // exactly as far away as the tolerance
            { 5, 5, "-0,0000000001", false },
            { 5, 5, "0,00000000009999999", true },
            { 5, 5, "-0,00000000009999999", true },
            { 5, 5, "0,0000000001000001", false },
            { 5, 5, "1e-10", false },
            { 5, 5, "9,99e-11", true },
            { 5, 5, "1e-300", true },
            { 2, 1, "1,00000000009", true },
            { 2, 1, "0,99999999991", true },
            { 2, 1, "1,00000000011", false },
            { 2, 1, "0,99999999989", false },
            { 2, 1, "1,000001", false },
        });
}

TEST(ColumnExercise, TheToleranceDoesNotGrowWithTheNumbers)
{
    expectVerdicts(Operation::Addition,
        {
            { 5000000, 4999999, "9999999", true },
            { 5000000, 4999999, "9999999,000001", false },
            { 5000000, 4999999, "9999999,000000002", false },
        });
}

TEST(ColumnExercise, ForgivesTheRoundingOfDecimalNumbers)
{
    ASSERT_NE(0.1 + 0.2, 0.3);
    ASSERT_NE(482.37 + 905.16, 1387.53 + 1e-9);
    expectVerdicts(Operation::Addition, { { 0.1, 0.2, "0,3", true }, { 482.37, 905.16, "1387,53", true } });
    ASSERT_NE(905.16 - 904.15, 1.01);
    expectVerdicts(Operation::Subtraction, { { 905.16, 904.15, "1,01", true } });
}

TEST(ColumnExercise, WithThirteenDigitsOnlyTheDoubleOfTheSumItselfIsRight)
{
    // Near 10^7 doubles lie farther apart than the tolerance: whether the answer on paper is taken as right depends on
    // how the two operands and their sum happened to be rounded.
    const double rounded1 = 9786998.338756;
    const double rounded2 = 7921362.491333;
    ASSERT_GT(std::fabs(rounded1 + rounded2 - 17708360.830089), 1e-10);
    ASSERT_EQ(9308397.299875 + 7677177.748507, 16985575.048382);
    expectVerdicts(Operation::Addition,
        {
            { 9308397.299875, 7677177.748507, "16985575,048382", true },
            { rounded1, rounded2, "17708360,830089", false },
            { rounded1, rounded2, "17708360,8300890037", true },
        });
    EXPECT_EQ(nearestTo("17708360.8300890037"), rounded1 + rounded2);
}

TEST(ColumnExercise, ANegativeSolutionNeedsANegativeAnswer)
{
    expectVerdicts(Operation::Subtraction,
        {
            { 3, 5, "-2", true },
            { 3, 5, "2", false },
            { 3, 5, "", false },
            { 100, 1334.5, "-1.234,5", true },
            { 100, 223, "-.123", true },
        });
}

TEST(ColumnExercise, AnAnswerOfMoreThan32767CharactersOverflows)
{
    ChosenExercise chosen(Operation::Addition, 3, 4);
    EXPECT_TRUE(Check(chosen.Exercise, std::string(32766, '0') + "7").Right);
    chosen.Exercise.Score = Score();
    const std::string tooLong = std::string(32767, '0') + "7";
    EXPECT_EQ(KindThrownBy([&] { Check(chosen.Exercise, tooLong); }), RunTimeError::Kind::Overflow);
    EXPECT_EQ(chosen.Exercise.Score.Line(), "Ejercicios:  0; Errores:  0");
    EXPECT_TRUE(chosen.Exercise.Score.Scorable);
}

// ------------------------------------------------------------------------------------------------------ the solution

TEST(ColumnExercise, ShowsTheSolutionAsADisplayNumber)
{
    EXPECT_EQ(ChosenExercise(Operation::Addition, 482.37, 905.16).Exercise.ShowSolution(), "1.387,53");
    EXPECT_EQ(ChosenExercise(Operation::Addition, 0.1, 0.2).Exercise.ShowSolution(), "0,3");
    EXPECT_EQ(ChosenExercise(Operation::Addition, 500000, 499999).Exercise.ShowSolution(), "999.999");
    EXPECT_EQ(ChosenExercise(Operation::Subtraction, 905.16, 482.37).Exercise.ShowSolution(), "422,79");
    EXPECT_EQ(ChosenExercise(Operation::Subtraction, 482.37, 905.16).Exercise.ShowSolution(), "-.422,79");
    EXPECT_EQ(ChosenExercise(Operation::Subtraction, 0.5, 1234.75).Exercise.ShowSolution(), "-1.234,25");
}

// With operands of six digits and decimals, doubles come to lie farther apart than the tolerance, and what the solution
// lost when it was rounded can be more than that.
TEST(ColumnExercise, TheShownSolutionIsRightUpToSixIntegerDigits)
{
    forAllOptions(60, [](Operation, ColumnExercise& exercise) {
        if (exercise.Solution() < 1000000 && (exercise.Digits <= 5 || exercise.Decimals == 0)) {
            ASSERT_TRUE(Check(exercise, exercise.ShowSolution()).Right)
                << exercise.Operand1 << " and " << exercise.Operand2;
        }
    });
}

struct SolutionCase {
    Operation Sort;
    double Operand1;
    double Operand2;
    const char* Solution;
    bool ReadsBack;
};

TEST(ColumnExercise, TheShownSolutionReadsBackAsAnotherNumberFromSevenIntegerDigitsOn)
{
    const SolutionCase cases[] = {
        { Operation::Addition, 500000, 499999, "999.999", true },
        { Operation::Addition, 600000, 634567, "1.123.567", false },
        { Operation::Addition, 999999.5, 999999.5, "1.199.999", false },
        { Operation::Addition, 5000000, 7345678, "12.234.678", false },
        { Operation::Addition, 1000000.25, 234567.5, "1.123.567,75", false },
        { Operation::Addition, 555555, 555655, "1.111.210", true }, // its first four digits are equal
        { Operation::Addition, 9999000, 0.5, "9.999.000,5", true },
        { Operation::Addition, 5000000, 6111111, "11.111.111", true },
        { Operation::Subtraction, 9345678, 2111111, "7.723.567", false },
        { Operation::Subtraction, 9345678, 8345679, "999.999", true },
        { Operation::Subtraction, 1, 123457, "-.-12.456", false }, // a sign and six digits are seven characters
        { Operation::Subtraction, 1, 12346, "-12.345", true },
    };
    for (const auto& [operation, operand1, operand2, solution, readsBack] : cases) {
        SCOPED_TRACE(solution);
        ChosenExercise chosen(operation, operand1, operand2);
        const std::string shown = chosen.Exercise.ShowSolution();
        EXPECT_EQ(shown, solution);
        EXPECT_EQ(Check(chosen.Exercise, shown).Right, readsBack);
        EXPECT_EQ(chosen.Exercise.Score.Line(), "Ejercicios:  0; Errores:  0");
    }
}

TEST(ColumnExercise, ChecksTheTrueValueAndNotTheTextOfSevenDigitOperands)
{
    ChosenExercise chosen(Operation::Addition, 1234567, 2000000);
    ASSERT_EQ(chosen.Exercise.DrawnTexts().Upper, "1.123.567");
    EXPECT_FALSE(Check(chosen.Exercise, "3123567").Right);
    EXPECT_TRUE(Check(chosen.Exercise, "3234567").Right);
    EXPECT_TRUE(Check(chosen.Exercise, "3.234.567").Right);
}

// ------------------------------------------------------------------------------------------- arithmetic on paper

// Two numbers of equally many digits, added digit by digit from the right with a carry. One digit longer than they are.
std::string addedOnPaper(const std::string& upper, const std::string& lower)
{
    std::string sum(upper.size() + 1, '0');
    int carry = 0;
    for (std::size_t place = upper.size(); place > 0; --place) {
        const int column = (upper[place - 1] - '0') + (lower[place - 1] - '0') + carry;
        sum[place] = static_cast<char>('0' + column % 10);
        carry = column / 10;
    }
    sum[0] = static_cast<char>('0' + carry);
    return sum;
}

// The lower number, which is not above the upper one, taken away digit by digit from the right with a borrow.
std::string takenAwayOnPaper(const std::string& upper, const std::string& lower)
{
    std::string difference(upper.size(), '0');
    int borrowed = 0;
    for (std::size_t place = upper.size(); place > 0; --place) {
        int column = (upper[place - 1] - '0') - (lower[place - 1] - '0') - borrowed;
        borrowed = column < 0 ? 1 : 0;
        column += borrowed * 10;
        difference[place - 1] = static_cast<char>('0' + column);
    }
    return difference;
}

// A result on paper, taken apart: no leading zeros but the one before the comma, no trailing zeros behind it.
struct PaperNumber {
    PaperNumber(const std::string& digits, int decimals)
    {
        const std::size_t comma = digits.size() - static_cast<std::size_t>(decimals);
        Integer = digits.substr(0, comma);
        Integer.erase(0, std::min(Integer.find_first_not_of('0'), Integer.size() - 1));
        Fraction = digits.substr(comma);
        Fraction.erase(Fraction.find_last_not_of('0') + 1);
    }

    std::string WithSeparator(const std::string& separator) const
    {
        return Fraction.empty() ? Integer : Integer + separator + Fraction;
    }

    double Value() const { return nearestTo(WithSeparator(".")); }

    bool IsZero() const { return Integer == "0" && Fraction.empty(); }

    // As the program shows it.
    std::string Display() const { return DisplayedByTheRule(WithSeparator(",")); }

    std::string Integer;
    std::string Fraction;
};

std::string digitsOf(double operand, int decimals)
{
    std::string digits = fixedText(operand, decimals);
    std::erase(digits, '.');
    return digits;
}

// The same number with another last digit.
std::string lastDigitChanged(std::string text)
{
    text.back() = text.back() == '9' ? '0' : static_cast<char>(text.back() + 1);
    return text;
}

// What one unit of the fifteenth significant digit of a number is worth; next to nothing for what is not above 0.
double fifteenthDigit(double value)
{
    return value > 0 ? std::pow(10, std::floor(std::log10(value)) - 14) : 0;
}

constexpr int exercisesForEachOption = 410; // about 20,000 of either operation

TEST(ColumnExercise, SolutionsOfAdditionsAreThoseOnPaper)
{
    forAllOptions(exercisesForEachOption, [](Operation operation, ColumnExercise& exercise) {
        if (operation != Operation::Addition) {
            return;
        }
        const std::string upper = digitsOf(exercise.Operand1, exercise.Decimals);
        const std::string lower = digitsOf(exercise.Operand2, exercise.Decimals);
        const PaperNumber sum(addedOnPaper(upper, lower), exercise.Decimals);
        ASSERT_EQ(exercise.ShowSolution(), sum.Display()) << upper << " + " << lower;
    });
}

// A difference much smaller than its operands carries their rounding in its last digits: 905,16 - 904,15 is not quite
// 1,01. Only where 15 significant digits do not reach so far is its text that of the result on paper.
TEST(ColumnExercise, SolutionsOfSubtractionsAreThoseOnPaper)
{
    int exercises = 0;
    int exactTexts = 0;
    forAllOptions(exercisesForEachOption, [&](Operation operation, ColumnExercise& exercise) {
        if (operation != Operation::Subtraction) {
            return;
        }
        const std::string upper = digitsOf(exercise.Operand1, exercise.Decimals);
        const std::string lower = digitsOf(exercise.Operand2, exercise.Decimals);
        const std::string onPaper = takenAwayOnPaper(upper, lower);
        const PaperNumber difference(onPaper, exercise.Decimals);

        ASSERT_EQ(PaperNumber(digitsOf(exercise.Solution(), exercise.Decimals), exercise.Decimals).Display(),
            difference.Display())
            << upper << " - " << lower;

        const double spacing
            = std::nextafter(exercise.Operand1, std::numeric_limits<double>::infinity()) - exercise.Operand1;
        const double rounding = 1.5 * spacing; // half of it for each operand and for the difference, at most
        ++exercises;
        if (difference.IsZero() || rounding < 0.5 * fifteenthDigit(difference.Value() - rounding)) {
            ++exactTexts;
            ASSERT_EQ(exercise.ShowSolution(), difference.Display()) << upper << " - " << lower;
        }
    });
    EXPECT_GT(exactTexts, exercises * 8 / 10);
}

TEST(ColumnExercise, AnswersOnPaperAreRightAndOthersAreWrong)
{
    forAllOptions(60, [](Operation operation, ColumnExercise& exercise) {
        const std::string upper = digitsOf(exercise.Operand1, exercise.Decimals);
        const std::string lower = digitsOf(exercise.Operand2, exercise.Decimals);
        const PaperNumber result(
            operation == Operation::Addition ? addedOnPaper(upper, lower) : takenAwayOnPaper(upper, lower),
            exercise.Decimals);
        const std::string answer = result.WithSeparator(",");

        // From six digits on, decimal numbers may be rounded by more than the tolerance.
        const bool alwaysRight = exercise.Digits <= 5 || exercise.Decimals == 0;
        const double solution = operation == Operation::Addition ? exercise.Operand1 + exercise.Operand2
                                                                 : exercise.Operand1 - exercise.Operand2;
        ASSERT_EQ(Check(exercise, answer).Right, alwaysRight || std::fabs(result.Value() - solution) < 1e-10) << answer;
        ASSERT_FALSE(Check(exercise, lastDigitChanged(answer)).Right) << answer;
        const std::string oneMoreDecimal = answer + (result.Fraction.empty() ? ",000001" : "1");
        ASSERT_FALSE(Check(exercise, oneMoreDecimal).Right) << oneMoreDecimal;
    });
}

TEST(ColumnExercise, TypedOperandsOfDifferentLengthsAreCalculatedAsOnPaper)
{
    constexpr int most = 6; // places before and behind the comma
    std::mt19937 chance(31);
    const auto drawDigits = [&](std::size_t count) {
        std::string digits;
        while (digits.size() < count) {
            digits += static_cast<char>('0' + chance() % 10);
        }
        return digits;
    };
    for (int i = 0; i < 4000; ++i) {
        std::array<std::string, 2> onPaper;
        std::array<std::string, 2> typed;
        for (std::size_t operand = 0; operand < 2; ++operand) {
            const std::string integer = drawDigits(1 + chance() % (most - 1));
            const std::string fraction = drawDigits(chance() % (most + 1));
            onPaper.at(operand) = std::string(most - integer.size(), '0') + integer + fraction
                + std::string(most - fraction.size(), '0');
            typed.at(operand) = fraction.empty() ? integer : integer + "," + fraction;
        }
        const auto& [upper, lower] = onPaper;
        SCOPED_TRACE(typed[0] + " and " + typed[1]);

        ChosenExercise addition(Operation::Addition, 0, 0);
        ASSERT_TRUE(addition.Exercise.EnterOperand1(typed[0]).Accepted);
        ASSERT_TRUE(addition.Exercise.EnterOperand2(typed[1]).Accepted);
        const PaperNumber sum(addedOnPaper(upper, lower), most);
        ASSERT_TRUE(Check(addition.Exercise, sum.WithSeparator(",")).Right);
        ASSERT_EQ(addition.Exercise.ShowSolution(), sum.Display());

        // Digits equally long compare as the numbers do.
        ChosenExercise subtraction(Operation::Subtraction, 0, 0);
        ASSERT_TRUE(subtraction.Exercise.EnterOperand1(typed[0]).Accepted);
        ASSERT_TRUE(subtraction.Exercise.EnterOperand2(typed[1]).Accepted);
        const bool negative = lower > upper;
        const PaperNumber distance(negative ? takenAwayOnPaper(lower, upper) : takenAwayOnPaper(upper, lower), most);
        const std::string answer = distance.WithSeparator(",");
        ASSERT_EQ(Check(subtraction.Exercise, answer).Right, !negative);
        ASSERT_EQ(Check(subtraction.Exercise, "-" + answer).Right, negative || distance.IsZero());
    }
}

// ----------------------------------------------------------------------------------------------------------- scoring

enum class Act { Right, Wrong, Continue, ShowSolution, ChangeDigits, ChangeDecimals, TypeOperand, CancelTyping };

constexpr Act allActs[] = { Act::Right, Act::Wrong, Act::Continue, Act::ShowSolution, Act::ChangeDigits,
    Act::ChangeDecimals, Act::TypeOperand, Act::CancelTyping };

void perform(ColumnExercise& exercise, Act act)
{
    switch (act) {
    case Act::Right:
        EXPECT_TRUE(Check(exercise, PlainDecimalText(exercise.Solution())).Right);
        break;
    case Act::Wrong:
        EXPECT_FALSE(Check(exercise, PlainDecimalText(exercise.Solution() + 1)).Right);
        break;
    case Act::Continue:
        exercise.Continue();
        break;
    case Act::ShowSolution:
        exercise.ShowSolution();
        break;
    case Act::ChangeDigits:
        exercise.Digits = 4;
        exercise.Generate();
        break;
    case Act::ChangeDecimals:
        exercise.Decimals = 1;
        exercise.Generate();
        break;
    case Act::TypeOperand:
        EXPECT_TRUE(exercise.EnterOperand1("77,5").Accepted);
        break;
    case Act::CancelTyping:
        EXPECT_FALSE(exercise.EnterOperand2("").Accepted);
        break;
    }
}

// What counts, told without the exercise.
struct Expected {
    int Exercises = 0;
    int Errors = 0;
    bool Scorable = true;

    void Perform(Act act)
    {
        if (act == Act::Right) {
            Exercises += Scorable ? 1 : 0;
            Scorable = false;
        } else if (act == Act::Wrong) {
            Exercises += Scorable ? 1 : 0;
            Errors += Scorable ? 1 : 0;
        } else if (act == Act::ShowSolution) {
            Scorable = false;
        } else if (act == Act::Continue) {
            Scorable = true;
        }
    }
};

void expectScoreAfterEveryContinuation(const ColumnExercise& exercise, const Expected& expected, int actsLeft)
{
    ASSERT_EQ(exercise.Score.Scorable, expected.Scorable);
    ASSERT_EQ(exercise.Score.ExerciseCount, expected.Exercises);
    ASSERT_EQ(exercise.Score.ErrorCount, expected.Errors);
    if (actsLeft == 0) {
        return;
    }
    for (const Act act : allActs) {
        ColumnExercise next = exercise;
        perform(next, act);
        Expected expectedNext = expected;
        expectedNext.Perform(act);
        expectScoreAfterEveryContinuation(next, expectedNext, actsLeft - 1);
        if (::testing::Test::HasFailure()) {
            FAIL() << "after act " << static_cast<int>(act) << " with " << actsLeft << " acts left";
        }
    }
}

TEST(ColumnExercise, CountsRightAfterEveryOrderOfFiveActs)
{
    for (const Operation operation : bothOperations) {
        SeededRandom random(1);
        ColumnExercise exercise(operation, random);
        exercise.Generate();
        expectScoreAfterEveryContinuation(exercise, {}, operation == Operation::Addition ? 5 : 4);
    }
}

struct ScoreCase {
    const char* What;
    std::vector<Act> Acts;
    const char* Line;
    bool Scorable;
};

TEST(ColumnExercise, KeepsTheScore)
{
    const ScoreCase cases[] = {
        { "load", {}, "Ejercicios:  0; Errores:  0", true },
        { "a right answer", { Act::Right }, "Ejercicios:  1; Errores:  0", false },
        { "a right answer checked again", { Act::Right, Act::Right }, "Ejercicios:  1; Errores:  0", false },
        { "a wrong answer", { Act::Wrong }, "Ejercicios:  1; Errores:  1", true },
        { "two wrong answers, then a right one", { Act::Wrong, Act::Wrong, Act::Right }, "Ejercicios:  3; Errores:  2",
            false },
        { "a wrong answer after a right one", { Act::Right, Act::Wrong }, "Ejercicios:  1; Errores:  0", false },
        { "the solution", { Act::ShowSolution }, "Ejercicios:  0; Errores:  0", false },
        { "the solution checked", { Act::ShowSolution, Act::Right }, "Ejercicios:  0; Errores:  0", false },
        { "the solution spoilt", { Act::ShowSolution, Act::Wrong }, "Ejercicios:  0; Errores:  0", false },
        { "the solution after a wrong answer", { Act::Wrong, Act::ShowSolution, Act::Right },
            "Ejercicios:  1; Errores:  1", false },
        { "the next exercise", { Act::Right, Act::Continue, Act::Right }, "Ejercicios:  2; Errores:  0", false },
        { "the next exercise after the solution", { Act::ShowSolution, Act::Continue, Act::Wrong },
            "Ejercicios:  1; Errores:  1", true },
        { "continuing without an answer", { Act::Continue, Act::Continue }, "Ejercicios:  0; Errores:  0", true },
        { "other digits after a right answer", { Act::Right, Act::ChangeDigits, Act::Right },
            "Ejercicios:  1; Errores:  0", false },
        { "other decimals after a right answer", { Act::Right, Act::ChangeDecimals, Act::Wrong },
            "Ejercicios:  1; Errores:  0", false },
        { "other digits after the solution", { Act::ShowSolution, Act::ChangeDigits, Act::Right },
            "Ejercicios:  0; Errores:  0", false },
        { "other digits, then continuing", { Act::Right, Act::ChangeDigits, Act::Continue, Act::Right },
            "Ejercicios:  2; Errores:  0", false },
        { "other digits at the start", { Act::ChangeDigits, Act::Right }, "Ejercicios:  1; Errores:  0", false },
        { "other decimals after a wrong answer", { Act::Wrong, Act::ChangeDecimals, Act::Wrong },
            "Ejercicios:  2; Errores:  2", true },
        { "a typed operand", { Act::TypeOperand, Act::Right }, "Ejercicios:  1; Errores:  0", false },
        { "a typed operand after a right answer", { Act::Right, Act::TypeOperand, Act::Right },
            "Ejercicios:  1; Errores:  0", false },
        { "a typed operand after the solution", { Act::ShowSolution, Act::TypeOperand, Act::Wrong },
            "Ejercicios:  0; Errores:  0", false },
        { "a typed operand after a wrong answer", { Act::Wrong, Act::TypeOperand, Act::Wrong },
            "Ejercicios:  2; Errores:  2", true },
        { "cancelled typing", { Act::CancelTyping, Act::Right }, "Ejercicios:  1; Errores:  0", false },
    };
    for (const Operation operation : bothOperations) {
        for (const auto& [what, acts, line, scorable] : cases) {
            SCOPED_TRACE(what);
            SeededRandom random(2);
            ColumnExercise exercise(operation, random);
            exercise.Generate();
            for (const Act act : acts) {
                perform(exercise, act);
            }
            EXPECT_EQ(exercise.Score.Line(), line);
            EXPECT_EQ(exercise.Score.Scorable, scorable);
        }
    }
}

TEST(ColumnExercise, TwoExercisesKeepScoresOfTheirOwn)
{
    SeededRandom random(2);
    ColumnExercise first(Operation::Addition, random);
    first.Generate();
    perform(first, Act::Wrong);
    const ColumnExercise second(Operation::Addition, random);
    EXPECT_EQ(first.Score.Line(), "Ejercicios:  1; Errores:  1");
    EXPECT_EQ(second.Score.Line(), "Ejercicios:  0; Errores:  0");
}

TEST(ColumnExercise, TheScoreLineEndsAt999)
{
    ChosenExercise chosen(Operation::Addition, 3, 4);
    for (int i = 0; i < 999; ++i) {
        Check(chosen.Exercise, "8");
    }
    EXPECT_EQ(chosen.Exercise.Score.Line(), "Ejercicios:999; Errores:999");
    EXPECT_EQ(KindThrownBy([&] { Check(chosen.Exercise, "8"); }), RunTimeError::Kind::InvalidArgument);
    EXPECT_EQ(chosen.Exercise.Score.Line(), "Ejercicios:999; Errores:999");
}

TEST(ColumnExercise, TheThousandthRightAnswerHasNoScoreLine)
{
    SeededRandom random(4);
    ColumnExercise exercise(Operation::Subtraction, random);
    for (int i = 0; i < 999; ++i) {
        exercise.Continue();
        perform(exercise, Act::Right);
    }
    EXPECT_EQ(exercise.Score.Line(), "Ejercicios:999; Errores:  0");
    exercise.Continue();
    EXPECT_EQ(KindThrownBy([&] { perform(exercise, Act::Right); }), RunTimeError::Kind::InvalidArgument);
    EXPECT_EQ(exercise.Score.Line(), "Ejercicios:999; Errores:  0");
    EXPECT_TRUE(exercise.Score.Scorable);
}

TEST(ColumnExercise, CountersOverflowPast32767)
{
    for (const char* answer : { "7", "8" }) {
        ChosenExercise chosen(Operation::Addition, 3, 4);
        chosen.Exercise.Score.ExerciseCount = 32767;
        EXPECT_EQ(KindThrownBy([&] { Check(chosen.Exercise, answer); }), RunTimeError::Kind::Overflow) << answer;
        EXPECT_EQ(chosen.Exercise.Score.ExerciseCount, 32767);
    }
    ChosenExercise errors(Operation::Addition, 3, 4);
    errors.Exercise.Score.ErrorCount = 32767;
    EXPECT_EQ(KindThrownBy([&] { Check(errors.Exercise, "8"); }), RunTimeError::Kind::Overflow);
    EXPECT_EQ(errors.Exercise.Score.ErrorCount, 32767);
}

// ------------------------------------------------------------------------------------------------------------ locale

std::string aWholeLesson()
{
    SeededRandom random(7161);
    ColumnExercise exercise(Operation::Subtraction, random);
    setOptions(exercise, 5, 3);
    std::string lesson;
    for (int i = 0; i < 20; ++i) {
        exercise.Continue();
        const auto [upper, lower] = exercise.DrawnTexts();
        lesson += upper + " - " + lower + " = " + PlainDecimalText(exercise.Solution());
        lesson += Check(exercise, PlainDecimalText(exercise.Solution())).Text;
        lesson += exercise.ShowSolution() + "\n";
    }
    exercise.EnterOperand1("1.234,5");
    exercise.EnterOperand2("905,16");
    return lesson + exercise.AlignedTexts().Upper + exercise.AlignedTexts().Lower + exercise.Score.Line();
}

TEST(ColumnExercise, IsTheSameUnderEveryLocale)
{
    const std::string expected = aWholeLesson();
    EXPECT_NE(expected.find("1.234,5   905,16Ejercicios: 20; Errores:  0"), std::string::npos) << expected;

    const std::locale strange(std::locale::classic(), new StrangePunctuation);
    for (const char* name : { "C", "de_DE.UTF-8", "es_ES.UTF-8", "de-DE", "es-ES" }) {
        std::string lesson;
        {
            const ForeignLocale foreign(name, strange);
            lesson = aWholeLesson();
        }
        EXPECT_EQ(lesson, expected) << name;
    }
}

} // namespace

} // namespace numbrela

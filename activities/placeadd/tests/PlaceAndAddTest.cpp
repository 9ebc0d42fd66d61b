#include "activities/placeadd/core/PlaceAndAdd.h"

#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"
#include "tests/support/ExpectError.h"
#include "tests/support/ForeignLocale.h"
#include "tests/support/KindThrownBy.h"
#include "tests/support/OptionCaptions.h"
#include "tests/support/ScriptedRandom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace numbrela {

namespace {

using namespace testing;

constexpr double greatestDraw = 1 - 0x1p-53;

// An exercise whose addends are these, however they were drawn.
PlaceAndAdd exerciseOf(RandomSource& random, const std::vector<float>& addends)
{
    PlaceAndAdd exercise(random);
    exercise.AddendCount = static_cast<int>(addends.size());
    exercise.AddendSum = 0;
    for (std::size_t i = 0; i < addends.size(); ++i) {
        exercise.Addends.at(i) = addends[i];
        exercise.AddendSum += addends[i];
    }
    return exercise;
}

std::vector<std::string> textsOf(const PlaceAndAdd& exercise)
{
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < static_cast<std::size_t>(exercise.AddendCount); ++i) {
        texts.push_back(PlainDecimalText(exercise.Addends.at(i)));
    }
    return texts;
}

// How many digits, without the zeros before and behind the others.
int significantDigitsOf(std::string text)
{
    std::erase(text, ',');
    const std::size_t first = text.find_first_not_of('0');
    return static_cast<int>(text.find_last_not_of('0') + 1 - first);
}

int decimalsOf(const std::string& text)
{
    const std::size_t comma = text.find(',');
    return comma == std::string::npos ? 0 : static_cast<int>(text.size() - comma - 1);
}

TEST(PlaceAndAdd, StartsWithFourAddendsOfThreeDigitsAndOffersTwoToSixOfTwoToFive)
{
    ScriptedRandom random {};
    const PlaceAndAdd exercise(random);
    EXPECT_EQ(exercise.AddendCount, 4);
    EXPECT_EQ(exercise.MaxDigits, 3);
    EXPECT_EQ(OptionCaptions(PlaceAndAdd::AddendCountChoices), "&2&3&4&5&6");
    EXPECT_EQ(OptionCaptions(PlaceAndAdd::MaxDigitsChoices), "&2&3&4&5");
    EXPECT_EQ(PlaceAndAdd::AddendCountChoices.ValueAt(4), static_cast<int>(PlaceAndAdd::MostAddends));
}

// The draws of one addend of an exercise with at most three digits: how many digits, the number, how many decimals.
using Draws = std::vector<double>;

Draws threeDigits(int number, int decimals)
{
    return { greatestDraw, DrawOf(number, 1000), DrawOf(decimals + 1, 3) };
}

Draws twoDigits(int number, int decimals)
{
    return { 0.5, DrawOf(number, 100), DrawOf(decimals + 1, 3) };
}

Draws oneDigit(int number)
{
    return { 0.0, DrawOf(number, 10) };
}

ScriptedRandom scripted(const std::vector<Draws>& addends)
{
    Draws draws;
    for (const Draws& addend : addends) {
        draws.insert(draws.end(), addend.begin(), addend.end());
    }
    return ScriptedRandom(draws);
}

struct DrawCase {
    const char* What;
    int AddendCount;
    int MaxDigits;
    std::vector<Draws> Addends;
    const char* Line;
    float Sum;
};

void expectDraws(const std::vector<DrawCase>& cases)
{
    for (const auto& [what, addendCount, maxDigits, addends, line, sum] : cases) {
        SCOPED_TRACE(what);
        ScriptedRandom random = scripted(addends);
        PlaceAndAdd exercise(random);
        exercise.AddendCount = addendCount;
        exercise.MaxDigits = maxDigits;
        exercise.NewPlaceAndAdd();
        EXPECT_EQ(exercise.DataLine(), line);
        EXPECT_EQ(exercise.AddendSum, sum);
        EXPECT_TRUE(random.AllDrawn());
    }
}

TEST(PlaceAndAdd, DrawsLengthNumberAndDecimalsOfEachAddend)
{
    expectDraws({
        { "two addends", 2, 3, { threeDigits(123, 1), twoDigits(45, 2) }, "12,3 + 0,45", 12.3F + 0.45F },
        { "whole numbers", 2, 3, { threeDigits(123, 0), twoDigits(45, 0) }, "123 + 45", 168 },
        { "decimals that end in 0", 2, 3, { threeDigits(120, 1), twoDigits(50, 2) }, "12 + 0,5", 12.5F },
        { "one digit becomes tenths without a draw", 3, 3, { oneDigit(1), oneDigit(9), oneDigit(7) }, "0,1 + 0,9 + 0,7",
            0.1F + 0.9F + 0.7F },
        { "one digit drawn by a longer draw becomes tenths too", 2, 3,
            { { 0.5, DrawOf(7, 100) }, { greatestDraw, DrawOf(3, 1000) } }, "0,7 + 0,3", 0.7F + 0.3F },
        { "ten is no single digit", 2, 3,
            { { 0.0, DrawOf(10, 10), DrawOf(1, 3) }, { 0.0, DrawOf(10, 10), DrawOf(2, 3) } }, "10 + 1", 11 },
        { "a number with a digit too many is kept", 2, 3, { threeDigits(1000, 1), twoDigits(45, 2) }, "100 + 0,45",
            100.45F },
        { "the least draws of all", 2, 3, { { 0, 0 }, { 0, 0 } }, "0,1 + 0,1", 0.2F },
        { "six addends", 6, 3,
            { twoDigits(11, 0), twoDigits(12, 1), twoDigits(13, 2), twoDigits(14, 0), twoDigits(15, 0),
                twoDigits(16, 0) },
            "11 + 1,2 + 0,13 + 14 + 15 + 16", 11 + 1.2F + 0.13F + 14 + 15 + 16 },
        { "two digits at most", 2, 2, { { greatestDraw, DrawOf(99, 100), greatestDraw }, oneDigit(7) }, "9,9 + 0,7",
            9.9F + 0.7F },
        { "five digits at most", 2, 5,
            { { greatestDraw, DrawOf(98765, 100000), greatestDraw },
                { DrawOf(4, 5), DrawOf(1234, 10000), DrawOf(3, 5) } },
            "9,8765 + 12,34", 9.8765F + 12.34F },
        { "five digits, whole", 2, 5, { { greatestDraw, DrawOf(98765, 100000), 0 }, oneDigit(7) }, "98765 + 0,7",
            98765.0F + 0.7F },
    });
}

TEST(PlaceAndAdd, DrawsTheLastAddendAgainWhenNoneWasShort)
{
    expectDraws({
        { "all long", 2, 3, { threeDigits(123, 1), { greatestDraw, DrawOf(456, 1000), DrawOf(78, 100), DrawOf(1, 3) } },
            "12,3 + 78", 12.3F + 78 },
        { "100 is long", 2, 3,
            { threeDigits(100, 0), { greatestDraw, DrawOf(100, 1000), DrawOf(78, 100), DrawOf(1, 3) } }, "100 + 78",
            178 },
        { "99 is short", 2, 3, { threeDigits(99, 0), threeDigits(456, 0) }, "99 + 456", 555 },
        { "the last one is short already", 2, 3, { threeDigits(123, 0), threeDigits(99, 0) }, "123 + 99", 222 },
        { "the first one is short", 3, 3, { oneDigit(7), threeDigits(456, 0), threeDigits(789, 0) }, "0,7 + 456 + 789",
            0.7F + 456 + 789 },
        { "the middle one is short", 3, 3, { threeDigits(456, 0), twoDigits(12, 0), threeDigits(789, 0) },
            "456 + 12 + 789", 1257 },
        { "drawn again as a single digit", 2, 3,
            { threeDigits(123, 0), { greatestDraw, DrawOf(456, 1000), DrawOf(8, 100) } }, "123 + 0,8", 123.8F },
        { "drawn again as 1 and zeros", 2, 3,
            { threeDigits(123, 0), { greatestDraw, DrawOf(456, 1000), greatestDraw, DrawOf(1, 3) } }, "123 + 100",
            223 },
        { "two digits at most", 2, 2,
            { { greatestDraw, DrawOf(55, 100), 0.0 }, { greatestDraw, DrawOf(10, 100), DrawOf(4, 10) } }, "55 + 0,4",
            55.4F },
        { "judged before the comma is set", 2, 3,
            { threeDigits(123, 2), { greatestDraw, DrawOf(456, 1000), DrawOf(78, 100), DrawOf(3, 3) } }, "1,23 + 0,78",
            1.23F + 0.78F },
    });
}

TEST(PlaceAndAdd, AddsInSinglePrecisionInOrder)
{
    ScriptedRandom random = scripted({ twoDigits(76, 0), threeDigits(162, 1), twoDigits(96, 2), threeDigits(540, 0),
        oneDigit(1), threeDigits(246, 0) });
    PlaceAndAdd exercise(random);
    exercise.AddendCount = 6;
    exercise.NewPlaceAndAdd();
    ASSERT_EQ(exercise.DataLine(), "76 + 16,2 + 0,96 + 540 + 0,1 + 246");
    volatile float sum = 0; // rounded after every step
    for (const float addend : { 76.0F, 16.2F, 0.96F, 540.0F, 0.1F, 246.0F }) {
        sum = sum + addend;
    }
    EXPECT_EQ(exercise.AddendSum, sum);
    EXPECT_NE(exercise.AddendSum, 879.26F) << "added up exactly and rounded once";
    EXPECT_EQ(exercise.Solution().Sum, " 879,2599");
}

TEST(PlaceAndAdd, EveryNewExerciseStartsItsSumAnewAndLeavesOutAddendsOfALongerOne)
{
    SeededRandom random(4);
    PlaceAndAdd exercise(random);
    exercise.AddendCount = 6;
    exercise.NewPlaceAndAdd();
    const float leftOver = exercise.Addends[5];
    exercise.AddendCount = 2;
    exercise.NewPlaceAndAdd();
    EXPECT_EQ(exercise.Addends[5], leftOver);
    EXPECT_EQ(exercise.AddendSum, exercise.Addends[0] + exercise.Addends[1]);
    EXPECT_EQ(exercise.DataLine(), textsOf(exercise)[0] + " + " + textsOf(exercise)[1]);
}

// Calls back with an exercise of each combination of options, drawn so many times.
template <typename Examine>
void forAllOptions(int timesEach, Examine examine)
{
    for (int addendCount = 2; addendCount <= 6; ++addendCount) {
        for (int maxDigits = 2; maxDigits <= 5; ++maxDigits) {
            SeededRandom random(addendCount * 10 + maxDigits);
            PlaceAndAdd exercise(random);
            exercise.AddendCount = addendCount;
            exercise.MaxDigits = maxDigits;
            for (int i = 0; i < timesEach; ++i) {
                exercise.NewPlaceAndAdd();
                examine(exercise);
            }
        }
    }
}

// A number does not show how many digits it was drawn with: 120 and 12 both count as two here. So this sees only gross
// breaches of the rule that one addend is short. The scripted draws above test it exactly.
TEST(PlaceAndAdd, AddendsKeepToTheirDigitsAndDecimalsAndAreNamedInOrder)
{
    forAllOptions(500, [](const PlaceAndAdd& exercise) {
        bool hasShort = false;
        std::string line;
        for (const std::string& text : textsOf(exercise)) {
            SCOPED_TRACE(text);
            ASSERT_GT(ParseDisplayNumber(text), 0);
            ASSERT_LE(ParseDisplayNumber(text), std::pow(10, static_cast<int>(exercise.MaxDigits)));
            ASSERT_LE(significantDigitsOf(text), exercise.MaxDigits);
            ASSERT_LE(decimalsOf(text), exercise.MaxDigits - 1);
            hasShort = hasShort || significantDigitsOf(text) < exercise.MaxDigits;
            line += line.empty() ? text : " + " + text;
        }
        ASSERT_TRUE(hasShort) << exercise.DataLine();
        ASSERT_EQ(exercise.DataLine(), line);
    });
}

TEST(PlaceAndAdd, NumbersHaveADecimalCommaInEveryCountry)
{
    const ForeignLocale foreign("de_DE.UTF-8", std::locale(std::locale(), new StrangePunctuation));
    ScriptedRandom random {};
    const PlaceAndAdd exercise = exerciseOf(random, { 1234.5F, 0.75F });
    EXPECT_EQ(exercise.DataLine(), "1234,5 + 0,75");
    EXPECT_EQ(exercise.Solution().Sum, "1235,25");
    EXPECT_EQ(exerciseOf(random, { 1200.5F, 34.5F }).Judge("1235", "").Text, "Resultado correcto ");
}

TEST(PlaceAndAdd, JudgesTheWholePartOfWhatIsWritten)
{
    const std::tuple<float, float, const char*, bool> cases[] = { // What stands behind the comma is not read.
        { 120, 3, "123", true }, { 120, 3, "    123", true }, { 120, 3, "123    ", true }, { 120, 3, " 1 2 3 ", true },
        { 120, 3, "  00123", true }, { 120, 3, "123,", true }, { 120, 3, "123,5", true }, { 120, 3, "123,999", true },
        { 120, 3, "124", false }, { 120, 3, "12", false }, { 120, 3, "12,3", false }, { 120, 3, "", false },
        { 120, 3, "       ", false }, { 120, 3, ",123", false }, { 98765, 1, "98766", true },
        { 98765, 1, "98765", false },
        // A point is read, and the number kept as precisely as the sum is.
        { 2.4F, 0.8F, "3.2", true }, { 2.4F, 0.8F, "3,2", false }, { 120.5F, 3, "123.5", true },
        // A sum with decimals, typed with its comma, is never right.
        { 120.5F, 3, "123,5", false }, { 120.5F, 3, "123", false }, { 120.5F, 3, "1235", false },
        { 120.5F, 3, "124", false },
        // Decimals that add up to a whole number.
        { 120.5F, 2.5F, "123", true }, { 0.5F, 0.5F, "1", true }, { 0.6F, 0.4F, "1", true }
    };
    ScriptedRandom random {};
    for (const auto& [addend1, addend2, answer, right] : cases) {
        SCOPED_TRACE(std::to_string(addend1) + " + " + std::to_string(addend2) + ", answered " + answer);
        const Verdict verdict = exerciseOf(random, { addend1, addend2 }).Judge(answer, "");
        EXPECT_EQ(verdict.Right, right);
        EXPECT_EQ(verdict.Text, right ? "Resultado correcto " : "Resultado incorrecto");
    }
}

TEST(PlaceAndAdd, ASumWithDecimalsInSinglePrecisionTypedWithItsCommaIsNeverJudgedRight)
{
    forAllOptions(100, [](const PlaceAndAdd& exercise) {
        const std::string sum = PlainDecimalText(exercise.AddendSum);
        const bool isWhole = exercise.AddendSum == std::floor(exercise.AddendSum);
        ASSERT_EQ(exercise.Judge(sum, "").Right, isWhole) << sum;
    });
    // In single precision this is a little less than the 52 that it is shown as.
    ScriptedRandom random {};
    const PlaceAndAdd exercise = exerciseOf(random, { 51.1F, 0.8F, 0.1F });
    EXPECT_EQ(exercise.Solution().Sum, "  52");
    EXPECT_FALSE(exercise.Judge("52", "").Right);
}

TEST(PlaceAndAdd, AVerdictThatIsRepeatedGainsABlank)
{
    ScriptedRandom random {};
    const PlaceAndAdd exercise = exerciseOf(random, { 120, 3 });
    std::string shown;
    for (const auto& [answer, text] :
        { std::pair("123", "Resultado correcto "), { "123", "Resultado correcto  " }, { "123", "Resultado correcto " },
            { "124", "Resultado incorrecto" }, { "124", "Resultado incorrecto " }, { "124", "Resultado incorrecto" },
            { "124", "Resultado incorrecto " }, { "123", "Resultado correcto " } }) {
        shown = exercise.Judge(answer, shown).Text;
        EXPECT_EQ(shown, text);
    }
}

TEST(PlaceAndAdd, PlacesTheUnitsInTheFourthColumn)
{
    ScriptedRandom random {};
    const PlaceAndAdd exercise = exerciseOf(random, { 1234, 0.5F, 76.25F, 123, 7.125F, 0.0625F });
    const PlaceAndAdd::Placement solution = exercise.Solution();
    EXPECT_EQ(
        solution.Addends, (std::vector<std::string> { "1234", "   0,5", "  76,25", " 123", "   7,125", "   0,0625" }));
    EXPECT_EQ(solution.Sum, "1440,938"); // seven significant digits
}

TEST(PlaceAndAdd, EverySolutionThatFitsHasItsUnitsInTheFourthColumn)
{
    int tooLong = 0;
    forAllOptions(200, [&tooLong](const PlaceAndAdd& exercise) {
        if (exercise.AddendSum >= 10000) {
            ++tooLong;
            ASSERT_EQ(KindThrownBy([&] { exercise.Solution(); }), RunTimeError::Kind::InvalidArgument);
            return;
        }
        std::vector<std::string> texts = textsOf(exercise);
        texts.push_back(PlainDecimalText(exercise.AddendSum));
        for (std::string& text : texts) {
            const std::size_t integerDigits = std::min(text.find(','), text.size());
            ASSERT_LE(integerDigits, 4U);
            text.insert(0, 4 - integerDigits, ' ');
        }
        PlaceAndAdd::Placement solution = exercise.Solution();
        solution.Addends.push_back(solution.Sum);
        ASSERT_EQ(solution.Addends, texts);
    });
    EXPECT_GT(tooLong, 100);
}

TEST(PlaceAndAdd, ASumOfFiveIntegerDigitsHasNoColumns)
{
    ScriptedRandom random {};
    EXPECT_EQ(exerciseOf(random, { 9999, 0.5F }).Solution().Sum, "9999,5");
    const std::pair<std::vector<float>, std::string> tooLong[]
        = { { { 9999, 1 }, "10000" }, { { 12345, 0.5F }, "12345,5" }, { { 5000, 5000, 1 }, "10001" } };
    for (const auto& [addends, sum] : tooLong) {
        ExpectError(RunTimeError::Kind::InvalidArgument,
            "La suma es " + sum + ".\n\nTiene más de cuatro cifras enteras: la solución no cabe en las columnas.",
            [&, addends = addends] { exerciseOf(random, addends).Solution(); });
    }
}

TEST(PlaceAndAdd, TenthsComeAsOftenAsEqualLengthsMakeThem)
{
    constexpr int draws = 9000;
    SeededRandom random(7);
    PlaceAndAdd exercise(random);
    exercise.AddendCount = 6;
    int tenths = 0;
    for (int i = 0; i < draws; ++i) {
        exercise.NewPlaceAndAdd();
        tenths += exercise.Addends[0] < 1 && decimalsOf(textsOf(exercise)[0]) == 1 ? 1 : 0;
    }
    // Of each length, drawn a third of the time: the numbers 1 to 9 (9 of 10, 9 of 100, 9 of 1000), and the tens below
    // 100 (1 of 10, 9 of 100, 9 of 1000), a third of which are given two decimals.
    const double share = ((0.9 + 0.1 / 3) + (0.09 + 0.09 / 3) + (0.009 + 0.009 / 3)) / 3;
    EXPECT_NEAR(tenths, draws * share, 270); // six standard deviations
}

} // namespace

} // namespace numbrela

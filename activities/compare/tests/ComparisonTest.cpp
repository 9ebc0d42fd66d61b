#include "activities/compare/core/Comparison.h"

#include "tests/support/ForeignLocale.h"
#include "tests/support/KindThrownBy.h"
#include "tests/support/ScriptedRandom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace numbrela {

namespace {

using numbrela::testing::ForeignLocale;
using numbrela::testing::KindThrownBy;
using numbrela::testing::ScriptedRandom;
using numbrela::testing::StrangePunctuation;

constexpr const char* pool = "12345679";
constexpr double greatest = 0.25; // any draw below a half asks for the greatest number
constexpr double smallest = 0.75;

// The draw that takes this digit from the pool.
double drawOf(char digit)
{
    return (static_cast<double>(std::strchr(pool, digit) - pool) + 0.5) / 10;
}

Comparison drawn(ScriptedRandom& random)
{
    Comparison comparison(random);
    comparison.NewComparison();
    EXPECT_TRUE(random.AllDrawn());
    return comparison;
}

using Captions = std::array<std::string, Comparison::ButtonCount>;

// ----------------------------------------------------------------------------------------------------------- drawing

TEST(Comparison, DrawsFourDigitsAndThenWhatToAskFor)
{
    const char* major = "Pulsa sobre el número MAYOR";
    const char* minor = "Pulsa sobre el número MENOR";
    struct {
        const char* What;
        ScriptedRandom Random;
        const char* Instruction;
        int CorrectButton;
    } cases[] = {
        { "the least draws", { 0, 0.1, 0.2, 0.3, 0 }, major, 5 },
        { "a draw of exactly a half", { 0, 0.1, 0.2, 0.3, 0.5 }, minor, 0 },
        { "a draw just below a half", { 0, 0.1, 0.2, 0.3, 0.5 - 0x1p-24 }, major, 5 },
        { "a draw that single precision rounds up to a half", { 0, 0.1, 0.2, 0.3, 0.5 - 0x1p-54 }, minor, 0 },
        { "digits whose draws single precision would round up to the next",
            { 0.1 - 0x1p-50, 0.2 - 0x1p-50, 0.3 - 0x1p-50, 0.4 - 0x1p-50, greatest }, major, 5 },
        { "the greatest draw of all", { 0, 0.1, 0.2, 0.3, 1 - 0x1p-24 }, minor, 0 },
    };
    for (auto& [what, random, instruction, correctButton] : cases) {
        SCOPED_TRACE(what);
        const Comparison comparison = drawn(random);
        EXPECT_EQ(comparison.Instruction, instruction);
        EXPECT_EQ(comparison.Captions[0], "1,234");
        EXPECT_EQ(comparison.CorrectButton, correctButton);
    }
}

TEST(Comparison, DrawsADigitAgainThatIsUsedOrLiesBehindThePool)
{
    const double four = drawOf('4');
    const double one = drawOf('1');
    const double two = drawOf('2');
    const double seven = drawOf('7');
    struct {
        const char* What;
        ScriptedRandom Random;
        const char* FirstCaption;
    } cases[] = {
        { "behind the pool", { 0.8, four, one, two, seven, greatest }, "4,127" },
        { "the greatest draw of all", { 1 - 0x1p-53, four, one, two, seven, greatest }, "4,127" },
        { "the last place of the pool", { 0.7999, one, two, seven, greatest }, "9,127" },
        { "the first digit again", { four, four, one, four, two, four, seven, greatest }, "4,127" },
        { "every digit used before the last one", { four, one, two, four, one, two, seven, greatest }, "4,127" },
    };
    for (auto& [what, random, firstCaption] : cases) {
        SCOPED_TRACE(what);
        EXPECT_EQ(drawn(random).Captions[0], firstCaption);
    }
}

// Calls back with every question that can be drawn: its four digits and what it asks for.
template <typename Examine>
void forAllQuestions(Examine examine)
{
    int questions = 0;
    for (int number = 1234; number <= 9765; ++number) {
        const std::string digits = std::to_string(number);
        if (digits.find_first_not_of(pool) == std::string::npos
            && std::set<char>(digits.begin(), digits.end()).size() == digits.size()) {
            examine(digits, true);
            examine(digits, false);
            ++questions;
        }
    }
    EXPECT_EQ(questions, 1680);
}

Comparison drawnWith(const std::string& digits, bool asksForGreatest)
{
    ScriptedRandom random { drawOf(digits[0]), drawOf(digits[1]), drawOf(digits[2]), drawOf(digits[3]),
        asksForGreatest ? greatest : smallest };
    return drawn(random);
}

TEST(Comparison, EveryQuestionShowsEveryOrderOfItsDecimalsAndHasTheRightAnswer)
{
    forAllQuestions([](const std::string& digits, bool asksForGreatest) {
        const Comparison comparison = drawnWith(digits, asksForGreatest);
        const std::string instruction = asksForGreatest ? "Pulsa sobre el número MAYOR" : "Pulsa sobre el número MENOR";
        ASSERT_EQ(comparison.Instruction, instruction);
        Captions expected;
        const char* orders[] = { "123", "132", "213", "231", "312", "321" };
        for (std::size_t button = 0; button < expected.size(); ++button) {
            expected.at(button) = { digits[0], ',' };
            for (const char place : std::string_view(orders[button])) {
                expected.at(button) += digits[static_cast<std::size_t>(place - '0')];
            }
        }
        ASSERT_EQ(comparison.Captions, expected);
        // Texts of equal length with the comma at the same place are ordered as their numbers are.
        const auto [smallestText, greatestText] = std::minmax_element(expected.begin(), expected.end());
        ASSERT_EQ(comparison.CorrectButton, (asksForGreatest ? greatestText : smallestText) - expected.begin())
            << digits;
    });
}

TEST(Comparison, EveryDigitIsEquallyLikelyAtEveryPlaceAndBothQuestionsAreToo)
{
    constexpr int perDigit = 1000;
    SeededRandom random(5);
    Comparison comparison(random);
    std::array<std::map<char, int>, 4> seen;
    int asksForGreatest = 0;
    for (int i = 0; i < 8 * perDigit; ++i) {
        comparison.NewComparison();
        const std::string& caption = comparison.Captions[0];
        for (const auto& [place, character] : { std::pair { 0, 0 }, { 1, 2 }, { 2, 3 }, { 3, 4 } }) {
            ++seen[static_cast<std::size_t>(place)][caption[static_cast<std::size_t>(character)]];
        }
        asksForGreatest += comparison.Instruction.ends_with("MAYOR") ? 1 : 0;
    }
    for (const auto& counts : seen) {
        ASSERT_EQ(counts.size(), 8U) << "no 0 and no 8";
        for (const auto& [digit, count] : counts) {
            EXPECT_NE(std::string(pool).find(digit), std::string::npos);
            EXPECT_NEAR(count, perDigit, 180) << digit; // six standard deviations
        }
    }
    EXPECT_NEAR(asksForGreatest, 4 * perDigit, 270);
}

TEST(Comparison, CaptionsHaveADecimalCommaInEveryCountry)
{
    const ForeignLocale foreign("de_DE.UTF-8", std::locale(std::locale(), new StrangePunctuation));
    EXPECT_EQ(drawnWith("4127", true).Captions[3], "4,271");
    EXPECT_EQ(drawnWith("4127", true).CorrectButton, 5);
}

TEST(Comparison, TheNextQuestionHasAllDigitsAgainAndKeepsTheCounts)
{
    ScriptedRandom random { 0, 0.1, 0.2, 0.3, greatest, 0.3, 0.2, 0.1, 0, smallest };
    Comparison comparison(random);
    EXPECT_EQ(comparison.ScoreLine(), "Aciertos: 0;   Errores: 0.");
    EXPECT_EQ(comparison.CorrectButton, 0);
    comparison.NewComparison();
    EXPECT_EQ(comparison.Captions[0], "1,234");
    for (int button = 0; button < 6; ++button) {
        EXPECT_EQ(comparison.Judge(button).Right, button == 5);
    }
    comparison.NewComparison();
    EXPECT_EQ(comparison.Captions[0], "4,321");
    EXPECT_EQ(comparison.CorrectButton, 5);
    EXPECT_EQ(comparison.ScoreLine(), "Aciertos: 1;   Errores: 5.") << "each wrong click has counted";
    EXPECT_TRUE(random.AllDrawn());
}

// ----------------------------------------------------------------------------------------------------------- judging

TEST(Comparison, JudgesAndCountsEveryButtonAsFarAsTheCountsFitSixteenBits)
{
    for (int correct = 0; correct < 6; ++correct) {
        for (int clicked = 0; clicked < 6; ++clicked) {
            ScriptedRandom random {};
            Comparison comparison(random);
            comparison.CorrectButton = correct;
            comparison.Hits = 12;
            comparison.Errors = 32766;
            const Verdict verdict = comparison.Judge(clicked);
            EXPECT_EQ(verdict.Right, clicked == correct);
            EXPECT_EQ(verdict.Text, clicked == correct ? "CORRECTO" : "ERROR");
            EXPECT_EQ(comparison.ScoreLine(),
                clicked == correct ? "Aciertos: 13;   Errores: 32766." : "Aciertos: 12;   Errores: 32767.");
            EXPECT_EQ(comparison.CorrectButton, correct);
            comparison.Hits = 32767;
            comparison.Errors = 32767;
            EXPECT_EQ(KindThrownBy([&] { comparison.Judge(clicked); }), RunTimeError::Kind::Overflow);
        }
    }
}

} // namespace

} // namespace numbrela

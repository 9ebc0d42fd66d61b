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

std::size_t positionOf(const Captions& captions, const std::string& caption)
{
    return static_cast<std::size_t>(std::find(captions.begin(), captions.end(), caption) - captions.begin());
}

// Texts of equal length with the comma at the same place are ordered as their numbers are.
std::size_t expectedButton(const Captions& captions, bool asksForGreatest)
{
    Captions sorted = captions;
    std::sort(sorted.begin(), sorted.end());
    return positionOf(captions, asksForGreatest ? sorted.back() : sorted.front());
}

// ----------------------------------------------------------------------------------------------------------- at load

// ----------------------------------------------------------------------------------------------------------- drawing

struct QuestionCase {
    const char* What;
    ScriptedRandom Random;
    const char* Instruction;
    Captions Numbers;
    int CorrectButton;
};

TEST(Comparison, DrawsFourDigitsAndThenWhatToAskFor)
{
    const std::string major = "Pulsa sobre el número MAYOR";
    const std::string minor = "Pulsa sobre el número MENOR";
    const Captions of4127 { "4,127", "4,172", "4,217", "4,271", "4,712", "4,721" };
    const Captions of1234 { "1,234", "1,243", "1,324", "1,342", "1,423", "1,432" };
    QuestionCase cases[] = {
        { "the greatest", { drawOf('4'), drawOf('1'), drawOf('2'), drawOf('7'), greatest }, major.c_str(), of4127, 5 },
        { "the smallest", { drawOf('4'), drawOf('1'), drawOf('2'), drawOf('7'), smallest }, minor.c_str(), of4127, 0 },
        { "the least draws", { 0, 0.1, 0.2, 0.3, 0 }, major.c_str(), of1234, 5 },
        { "a draw of exactly a half", { 0, 0.1, 0.2, 0.3, 0.5 }, minor.c_str(), of1234, 0 },
        { "a draw just below a half", { 0, 0.1, 0.2, 0.3, 0.5 - 0x1p-24 }, major.c_str(), of1234, 5 },
        { "a draw that single precision rounds up to a half", { 0, 0.1, 0.2, 0.3, 0.5 - 0x1p-54 }, minor.c_str(),
            of1234, 0 },
        { "digits whose draws single precision would round up to the next",
            { 0.1 - 0x1p-50, 0.2 - 0x1p-50, 0.3 - 0x1p-50, 0.4 - 0x1p-50, greatest }, major.c_str(), of1234, 5 },
        { "the greatest draw of all", { 0, 0.1, 0.2, 0.3, 1 - 0x1p-24 }, minor.c_str(), of1234, 0 },
    };
    for (auto& [what, random, instruction, numbers, correctButton] : cases) {
        SCOPED_TRACE(what);
        const Comparison comparison = drawn(random);
        EXPECT_EQ(comparison.Instruction, instruction);
        EXPECT_EQ(comparison.Captions, numbers);
        EXPECT_EQ(comparison.CorrectButton, correctButton);
    }
}

struct RedrawCase {
    const char* What;
    ScriptedRandom Random;
    const char* FirstCaption;
};

TEST(Comparison, DrawsADigitAgainThatIsUsedOrLiesBehindThePool)
{
    RedrawCase cases[] = {
        { "behind the pool", { 0.8, drawOf('4'), drawOf('1'), drawOf('2'), drawOf('7'), greatest }, "4,127" },
        { "at its very end", { 0.9, drawOf('4'), drawOf('1'), drawOf('2'), drawOf('7'), greatest }, "4,127" },
        { "the greatest draw of all", { 1 - 0x1p-53, drawOf('4'), drawOf('1'), drawOf('2'), drawOf('7'), greatest },
            "4,127" },
        { "the last place of the pool", { 0.7999, drawOf('1'), drawOf('2'), drawOf('7'), greatest }, "9,127" },
        { "the first digit again",
            { drawOf('4'), drawOf('4'), drawOf('1'), drawOf('4'), drawOf('2'), drawOf('4'), drawOf('7'), greatest },
            "4,127" },
        { "every digit used before the last one",
            { drawOf('4'), drawOf('1'), drawOf('2'), drawOf('4'), drawOf('1'), drawOf('2'), drawOf('7'), greatest },
            "4,127" },
        { "several times in a row",
            { 0.85, 0.95, 0.99, drawOf('4'), drawOf('1'), 0.8, drawOf('1'), drawOf('2'), 0.9, drawOf('2'), drawOf('7'),
                greatest },
            "4,127" },
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
        ASSERT_EQ(
            static_cast<std::size_t>(comparison.CorrectButton), expectedButton(comparison.Captions, asksForGreatest))
            << digits;
        ASSERT_EQ(
            comparison.Instruction, std::string("Pulsa sobre el número ") + (asksForGreatest ? "MAYOR" : "MENOR"));
        const char* orders[] = { "123", "132", "213", "231", "312", "321" };
        for (std::size_t button = 0; button < comparison.Captions.size(); ++button) {
            std::string caption { digits[0], ',' };
            for (const char* place = orders[button]; *place != '\0'; ++place) {
                caption += digits[static_cast<std::size_t>(*place - '0')];
            }
            ASSERT_EQ(comparison.Captions[button], caption);
        }
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

TEST(Comparison, JudgesAndCountsEveryButton)
{
    for (int correct = 0; correct < 6; ++correct) {
        for (int clicked = 0; clicked < 6; ++clicked) {
            ScriptedRandom random {};
            Comparison comparison(random);
            comparison.CorrectButton = correct;
            const Verdict verdict = comparison.Judge(clicked);
            EXPECT_EQ(verdict.Right, clicked == correct);
            EXPECT_EQ(verdict.Text, clicked == correct ? "CORRECTO" : "ERROR");
            EXPECT_EQ(comparison.Hits, clicked == correct ? 1 : 0);
            EXPECT_EQ(comparison.Errors, clicked == correct ? 0 : 1);
            EXPECT_EQ(comparison.CorrectButton, correct);
        }
    }
}

TEST(Comparison, WritesTheScoreInPlainDigits)
{
    const struct {
        int Hits;
        int Errors;
        const char* Line;
    } cases[] = {
        { 0, 0, "Aciertos: 0;   Errores: 0." },
        { 1, 0, "Aciertos: 1;   Errores: 0." },
        { 12, 345, "Aciertos: 12;   Errores: 345." },
        { 1000, 32767, "Aciertos: 1000;   Errores: 32767." },
    };
    for (const auto& [hits, errors, line] : cases) {
        ScriptedRandom random {};
        Comparison comparison(random);
        comparison.Hits = hits;
        comparison.Errors = errors;
        EXPECT_EQ(comparison.ScoreLine(), line);
    }
}

TEST(Comparison, ACountThatDoesNotFitSixteenBitsIsARunTimeError)
{
    ScriptedRandom random {};
    Comparison comparison(random);
    comparison.Hits = 32766;
    comparison.Errors = 32766;
    comparison.Judge(0);
    comparison.Judge(1);
    EXPECT_EQ(comparison.ScoreLine(), "Aciertos: 32767;   Errores: 32767.");
    EXPECT_EQ(KindThrownBy([&] { comparison.Judge(0); }), RunTimeError::Kind::Overflow);
    EXPECT_EQ(KindThrownBy([&] { comparison.Judge(1); }), RunTimeError::Kind::Overflow);
}

} // namespace

} // namespace numbrela

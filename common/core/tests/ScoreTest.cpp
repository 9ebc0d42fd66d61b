#include "common/core/Score.h"

#include "common/core/RunTimeError.h"

#include "tests/support/ForeignLocale.h"
#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

#include <locale>
#include <string>
#include <tuple>
#include <utility>

namespace numbrela {

namespace {

using namespace testing;

Score scoreOf(int exercises, int errors)
{
    Score score;
    score.ExerciseCount = exercises;
    score.ErrorCount = errors;
    return score;
}

TEST(Score, StartsAtNoExerciseAndNoErrorAndIsScorable)
{
    const Score score;
    EXPECT_EQ(score.ExerciseCount, 0);
    EXPECT_EQ(score.ErrorCount, 0);
    EXPECT_TRUE(score.Scorable);
    EXPECT_EQ(score.Line(), "Ejercicios:  0; Errores:  0");
}

TEST(Score, CountsEveryWrongAnswerAndARightOneOnce)
{
    const std::tuple<int, int, bool, bool, const char*, bool> cases[] = {
        { 0, 0, true, true, "Ejercicios:  1; Errores:  0", false },
        { 0, 0, true, false, "Ejercicios:  1; Errores:  1", true },
        { 2, 2, true, false, "Ejercicios:  3; Errores:  3", true },
        { 2, 2, true, true, "Ejercicios:  3; Errores:  2", false },
        { 5, 2, false, true, "Ejercicios:  5; Errores:  2", false },
        { 5, 2, false, false, "Ejercicios:  5; Errores:  2", false },
        { 998, 998, true, false, "Ejercicios:999; Errores:999", true },
        { 998, 0, true, true, "Ejercicios:999; Errores:  0", false },
        { 999, 999, false, true, "Ejercicios:999; Errores:999", false },
    };
    for (const auto& [exercises, errors, scorable, right, line, scorableAfterwards] : cases) {
        Score score = scoreOf(exercises, errors);
        score.Scorable = scorable;
        EXPECT_EQ(score.Count(right), line);
        EXPECT_EQ(score.Line(), line);
        EXPECT_EQ(score.Scorable, scorableAfterwards) << line;
    }
}

TEST(Score, LineAlignsEachCountRightInThreeCharactersUnderEveryLocale)
{
    const auto aligned = [](int count) {
        const std::string digits = std::to_string(count);
        return std::string(3 - digits.size(), ' ') + digits;
    };
    const ForeignLocale foreign("", std::locale(std::locale::classic(), new StrangePunctuation));
    for (int count = 0; count <= 999; ++count) {
        ASSERT_EQ(
            scoreOf(count, 999 - count).Line(), "Ejercicios:" + aligned(count) + "; Errores:" + aligned(999 - count));
    }
}

TEST(Score, LineRefusesCountsOfFourDigits)
{
    for (const auto& [exercises, errors] : { std::pair(1000, 0), { 0, 1000 }, { 1000, 999 }, { 32767, 32767 } }) {
        const Score score = scoreOf(exercises, errors);
        EXPECT_EQ(KindThrownBy([&] { score.Line(); }), RunTimeError::Kind::InvalidArgument) << exercises;
    }
}

// After the error the exercise is as it was before the answer.
TEST(Score, AnAnswerThatHasNoLineIsNotCounted)
{
    for (const bool right : { true, false }) {
        Score score = scoreOf(999, 12);
        for (int times = 0; times < 2; ++times) {
            EXPECT_EQ(KindThrownBy([&] { score.Count(right); }), RunTimeError::Kind::InvalidArgument) << right;
            EXPECT_EQ(score.Line(), "Ejercicios:999; Errores: 12");
            EXPECT_TRUE(score.Scorable);
        }
    }
    Score errors = scoreOf(12, 999);
    EXPECT_EQ(KindThrownBy([&] { errors.Count(false); }), RunTimeError::Kind::InvalidArgument);
    EXPECT_EQ(errors.Line(), "Ejercicios: 12; Errores:999");
    EXPECT_EQ(errors.Count(true), "Ejercicios: 13; Errores:999");
}

TEST(Score, CountsPastTheLast16BitNumberOverflow)
{
    for (const auto& [exercises, errors, right] :
        { std::tuple(32767, 0, true), { 32767, 0, false }, { 0, 32767, false } }) {
        Score score = scoreOf(exercises, errors);
        EXPECT_EQ(KindThrownBy([&score, right = right] { score.Count(right); }), RunTimeError::Kind::Overflow);
        EXPECT_EQ(score.ExerciseCount, exercises);
        EXPECT_EQ(score.ErrorCount, errors);
        EXPECT_TRUE(score.Scorable);
    }
}

} // namespace

} // namespace numbrela

#include "common/core/Score.h"

#include "common/core/RunTimeError.h"

#include "tests/support/ForeignLocale.h"
#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

#include <locale>
#include <optional>
#include <string>

namespace numbrela {

namespace {

using numbrela::testing::ForeignLocale;
using numbrela::testing::KindThrownBy;
using numbrela::testing::StrangePunctuation;

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

TEST(Score, ARightAnswerCountsOneExerciseAndNoError)
{
    Score score;
    EXPECT_EQ(score.Count(true), "Ejercicios:  1; Errores:  0");
    EXPECT_EQ(score.ExerciseCount, 1);
    EXPECT_EQ(score.ErrorCount, 0);
    EXPECT_FALSE(score.Scorable);
}

TEST(Score, AWrongAnswerCountsOneExerciseAndOneErrorAndStaysScorable)
{
    Score score;
    EXPECT_EQ(score.Count(false), "Ejercicios:  1; Errores:  1");
    EXPECT_EQ(score.ExerciseCount, 1);
    EXPECT_EQ(score.ErrorCount, 1);
    EXPECT_TRUE(score.Scorable);
}

TEST(Score, CountsARightAnswerOnce)
{
    Score score;
    score.Count(true);
    score.Count(true);
    EXPECT_EQ(score.Line(), "Ejercicios:  1; Errores:  0");
}

TEST(Score, CountsEveryWrongAnswerAnew)
{
    Score score;
    score.Count(false);
    score.Count(false);
    score.Count(false);
    EXPECT_EQ(score.Line(), "Ejercicios:  3; Errores:  3");
}

TEST(Score, TwoWrongAnswersAndARightOneAreThreeExercisesAndTwoErrors)
{
    Score score;
    score.Count(false);
    score.Count(false);
    score.Count(true);
    EXPECT_EQ(score.Line(), "Ejercicios:  3; Errores:  2");
    EXPECT_FALSE(score.Scorable);
}

TEST(Score, CountsNothingOnceItIsUnscorable)
{
    Score score = scoreOf(5, 2);
    score.Scorable = false;
    score.Count(false);
    score.Count(true);
    score.Count(false);
    EXPECT_EQ(score.ExerciseCount, 5);
    EXPECT_EQ(score.ErrorCount, 2);
    EXPECT_FALSE(score.Scorable);
}

TEST(Score, CountsAgainWhenItIsScorableAgain)
{
    Score score;
    score.Count(true);
    score.Scorable = true;
    score.Count(false);
    EXPECT_EQ(score.Line(), "Ejercicios:  2; Errores:  1");
}

struct LineCase {
    int Exercises;
    int Errors;
    const char* Line;
};

TEST(Score, LineAlignsEachCountRightInThreeCharacters)
{
    const LineCase cases[] = {
        { 0, 0, "Ejercicios:  0; Errores:  0" },
        { 1, 0, "Ejercicios:  1; Errores:  0" },
        { 7, 12, "Ejercicios:  7; Errores: 12" },
        { 9, 9, "Ejercicios:  9; Errores:  9" },
        { 10, 9, "Ejercicios: 10; Errores:  9" },
        { 12, 5, "Ejercicios: 12; Errores:  5" },
        { 99, 99, "Ejercicios: 99; Errores: 99" },
        { 100, 99, "Ejercicios:100; Errores: 99" },
        { 123, 100, "Ejercicios:123; Errores:100" },
        { 999, 0, "Ejercicios:999; Errores:  0" },
        { 999, 999, "Ejercicios:999; Errores:999" },
    };
    for (const auto& [exercises, errors, line] : cases) {
        EXPECT_EQ(scoreOf(exercises, errors).Line(), line);
    }
}

TEST(Score, LineHasTheSameLengthForEveryCountItCanShow)
{
    for (int count = 0; count <= 999; ++count) {
        ASSERT_EQ(scoreOf(count, 999 - count).Line().size(), 27U) << count;
    }
}

TEST(Score, LineRefusesCountsOfFourDigits)
{
    const LineCase cases[] = { { 1000, 0, "" }, { 0, 1000, "" }, { 1000, 1000, "" }, { 1000, 999, "" },
        { 999, 1000, "" }, { 32767, 32767, "" } };
    for (const auto& [exercises, errors, line] : cases) {
        const Score score = scoreOf(exercises, errors);
        EXPECT_EQ(KindThrownBy([&] { score.Line(); }), RunTimeError::Kind::InvalidArgument)
            << exercises << " and " << errors;
    }
}

// Whoever goes on after the error finds the exercise as it was before the answer.
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

TEST(Score, CountsUpToThreeDigits)
{
    EXPECT_EQ(scoreOf(998, 998).Count(false), "Ejercicios:999; Errores:999");
    EXPECT_EQ(scoreOf(998, 0).Count(true), "Ejercicios:999; Errores:  0");
}

TEST(Score, AnUnscorableExerciseHasItsLineAt999)
{
    Score score = scoreOf(999, 999);
    score.Scorable = false;
    EXPECT_EQ(score.Count(true), "Ejercicios:999; Errores:999");
    EXPECT_EQ(score.Count(false), "Ejercicios:999; Errores:999");
}

TEST(Score, CountsPastTheLast16BitNumberOverflow)
{
    for (const bool right : { true, false }) {
        Score score = scoreOf(32767, 0);
        EXPECT_EQ(KindThrownBy([&] { score.Count(right); }), RunTimeError::Kind::Overflow) << right;
        EXPECT_EQ(score.ExerciseCount, 32767);
        EXPECT_EQ(score.ErrorCount, 0);
        EXPECT_TRUE(score.Scorable);
    }
    Score errors = scoreOf(0, 32767);
    EXPECT_EQ(KindThrownBy([&] { errors.Count(false); }), RunTimeError::Kind::Overflow);
    EXPECT_EQ(errors.ExerciseCount, 0);
    EXPECT_EQ(errors.ErrorCount, 32767);
}

TEST(Score, LineIsTheSameUnderEveryLocale)
{
    const ForeignLocale foreign("", std::locale(std::locale::classic(), new StrangePunctuation));
    EXPECT_EQ(scoreOf(999, 123).Line(), "Ejercicios:999; Errores:123");
}

} // namespace

} // namespace numbrela

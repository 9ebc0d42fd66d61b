#include "activities/divide/tests/DivisionSupport.h"

#include "common/core/RunTimeError.h"
#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

namespace numbrela {

namespace {

using namespace testing;

TEST(DivisionEntry, ANumberIsTheWholePartOfWhatWasTyped)
{
    const struct {
        const char* Typed;
        double Value;
        int Length;
    } cases[] = { { "97", 97, 2 }, { "1", 1, 1 }, { "  97  ", 97, 2 }, { "1,9", 1, 3 }, { "12,5", 12, 4 },
        { "2.9", 2, 3 }, { "-8", -8, 2 }, { "-8,7", -8, 4 }, { "- 8", -8, 3 }, { "+8", 8, 2 }, { "007", 7, 3 },
        { "1 2", 12, 3 }, { "12abc", 12, 5 }, { "12ñü", 12, 4 }, { "1e3", 1000, 3 }, { "1234567890", 1234567890, 10 },
        { "123456789012345", 123456789012345, 15 } };
    for (const auto& [typed, value, length] : cases) {
        SCOPED_TRACE(typed);
        DrawnDivision drawn({ 2, 0, 1, 0 }, 84, 4);
        EXPECT_TRUE(drawn.Exercise.EnterDividend(typed));
        EXPECT_EQ(drawn.Exercise.Dividend, value);
        EXPECT_EQ(drawn.Exercise.DividendDigits, length);
        EXPECT_EQ(drawn.Exercise.Grid.LineWidth, length + 4);
        EXPECT_EQ(drawn.Exercise.Statement(), PlainDecimalText(value) + " ÷ 4");
        EXPECT_TRUE(drawn.Exercise.EnterDivisor(typed));
        EXPECT_EQ(drawn.Exercise.Divisor, value);
        EXPECT_EQ(drawn.Exercise.DivisorDigits, length);
        EXPECT_EQ(drawn.Exercise.Statement(), PlainDecimalText(value) + " ÷ " + PlainDecimalText(value));
    }
}

// 0,9 is 0 as far as it is read.
TEST(DivisionEntry, NothingHappensWithoutANumberOtherThanZero)
{
    for (const char* typed :
        { "", " ", "    ", "0", "-0", "00", "0,9", ",5", "abc", "a12", "-", "+", "--5", "1e-400", "0e9" }) {
        SCOPED_TRACE(typed);
        DrawnDivision drawn({ 2, 2, 1, 0 }, 9725, 4);
        typeRow(drawn.Exercise.Grid, 1, " 17");
        EXPECT_FALSE(drawn.Exercise.EnterDividend(typed));
        EXPECT_FALSE(drawn.Exercise.EnterDivisor(typed));
        EXPECT_EQ(drawn.Exercise.Statement(), "97,25 ÷ 4");
        EXPECT_EQ(drawn.Exercise.DividendDigits, 2);
        EXPECT_EQ(drawn.Exercise.DivisorDigits, 1);
        EXPECT_EQ(rowsOf(drawn.Exercise.Grid), (std::vector<std::string> { " 97,25", " 17" }));
    }
}

TEST(DivisionEntry, ANumberBelowOneIsADividendOfZeroAndNoDivisor)
{
    for (const char* typed : { "0.9", "-0.9", "1e-3" }) {
        SCOPED_TRACE(typed);
        DrawnDivision drawn({ 2, 0, 1, 0 }, 84, 4);
        EXPECT_FALSE(drawn.Exercise.EnterDivisor(typed));
        EXPECT_EQ(drawn.Exercise.Statement(), "84 ÷ 4");
        EXPECT_TRUE(drawn.Exercise.EnterDividend(typed));
        EXPECT_EQ(drawn.Exercise.Statement(), "0 ÷ 4");
        EXPECT_EQ(drawn.Exercise.DividendDigits, static_cast<int>(std::string_view(typed).size()));
        EXPECT_TRUE(drawn.Exercise.Judge("0")->Right);
        EXPECT_TRUE(drawn.Exercise.Judge(drawn.Exercise.ShowDivisionSolution())->Right);
    }
}

TEST(DivisionEntry, ADividendBeginsACleanGridWithoutRoomForDecimals)
{
    DrawnDivision drawn({ 2, 2, 1, 3 }, 9725, 4);
    typeRow(drawn.Exercise.Grid, 1, " 17");
    EXPECT_EQ(drawn.Exercise.Grid.LineWidth, 11);
    ASSERT_TRUE(drawn.Exercise.EnterDividend("86,5"));
    EXPECT_EQ(drawn.Exercise.Grid.Text, u" 86" + std::u16string(2000, u' '));
    EXPECT_EQ(drawn.Exercise.Grid.LineWidth, 8);
    EXPECT_EQ(drawn.Exercise.Grid.Caret, 9) << "below the first digit";
    ASSERT_TRUE(drawn.Exercise.EnterDividend("-865"));
    EXPECT_EQ(drawn.Exercise.Grid.Caret, 10) << "which a sign moves to the right";
}

TEST(DivisionEntry, ADividendAndADivisorLeaveTheRestAsItWas)
{
    for (const bool scorable : { true, false }) {
        DrawnDivision drawn({ 2, 2, 1, 3 }, 9725, 4);
        DivisionExercise& exercise = drawn.Exercise;
        typeRow(exercise.Grid, 1, " 17");
        const int caret = exercise.Grid.Caret;
        exercise.Score.Count(false);
        exercise.Score.Scorable = scorable;
        ASSERT_TRUE(exercise.EnterDivisor("12"));
        EXPECT_EQ(exercise.Statement(), "97,25 ÷ 12");
        EXPECT_EQ(exercise.DividendDigits, 2);
        EXPECT_EQ(rowsOf(exercise.Grid), (std::vector<std::string> { " 97,25", " 17" }));
        EXPECT_EQ(exercise.Grid.Caret, caret);
        EXPECT_EQ(exercise.Grid.LineWidth, 11);
        ASSERT_TRUE(exercise.EnterDividend("1234"));
        EXPECT_EQ(exercise.Statement(), "1234 ÷ 12");
        EXPECT_EQ(exercise.DividendDecimals, 2);
        EXPECT_EQ(exercise.QuotientDecimals, 3);
        EXPECT_EQ(exercise.Grid.CommaColumn, 3);
        EXPECT_EQ(exercise.DivisorDigits, 2);
        EXPECT_EQ(exercise.Score.Scorable, scorable);
        EXPECT_EQ(exercise.Score.Line(), "Ejercicios:  1; Errores:  1");
    }
}

TEST(DivisionEntry, ANumberThatDoesNotFitIsRefusedAndNothingIsLost)
{
    const auto expectRefused = [](bool (DivisionExercise::*enter)(std::string_view), const std::string& typed) {
        SCOPED_TRACE(typed);
        DrawnDivision drawn({ 2, 2, 1, 0 }, 9725, 4);
        typeRow(drawn.Exercise.Grid, 1, " 17");
        EXPECT_EQ(KindThrownBy([&] { (drawn.Exercise.*enter)(typed); }), RunTimeError::Kind::Overflow);
        EXPECT_EQ(drawn.Exercise.Statement(), "97,25 ÷ 4");
        EXPECT_EQ(drawn.Exercise.DividendDigits, 2);
        EXPECT_EQ(drawn.Exercise.DivisorDigits, 1);
        EXPECT_EQ(rowsOf(drawn.Exercise.Grid), (std::vector<std::string> { " 97,25", " 17" }));
    };
    for (const std::string& typed : { std::string("1e400"), std::string("-1e400"), std::string(400, '9') }) {
        expectRefused(&DivisionExercise::EnterDividend, typed);
        expectRefused(&DivisionExercise::EnterDivisor, typed);
    }
    expectRefused(&DivisionExercise::EnterDividend, std::string(194, '0') + "1"); // too wide
    expectRefused(&DivisionExercise::EnterDivisor, std::string(40000, '0') + "1"); // longer than a counter
}

TEST(DivisionEntry, ALongDividendFillsAGridOf198ColumnsOrRunsOverSeveralRows)
{
    DrawnDivision drawn({ 2, 0, 1, 0 }, 84, 4);
    ASSERT_TRUE(drawn.Exercise.EnterDividend(std::string(193, '0') + "1"));
    EXPECT_EQ(drawn.Exercise.Grid.LineWidth, 198);
    ASSERT_TRUE(drawn.Exercise.EnterDividend("1e20"));
    EXPECT_EQ(rowsOf(drawn.Exercise.Grid), (std::vector<std::string> { " 1000000", "00000000", "000000" }));
}

TEST(DivisionEntry, TheNextDivisionHasAsManyDigitsAsWereTyped)
{
    SeededRandom random(7);
    bool commaShift = false;
    DivisionExercise exercise(random, commaShift);
    setOptions(exercise, { 2, 0, 1, 0 });
    ASSERT_TRUE(exercise.EnterDividend("1234"));
    ASSERT_TRUE(exercise.EnterDivisor("12"));
    exercise.GenerateDivision();
    EXPECT_EQ(exercise.DividendText().size(), 4U);
    EXPECT_EQ(exercise.DivisorText().size(), 2U);
}

} // namespace

} // namespace numbrela

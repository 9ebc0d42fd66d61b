#include "activities/multiply/core/Multiplication.h"

#include "tests/support/KindThrownBy.h"
#include "tests/support/ScriptedRandom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace numbrela {

namespace {

using numbrela::testing::KindThrownBy;
using numbrela::testing::ScriptedRandom;

// An exercise whose factors were typed.
class TypedExercise {
public:
    TypedExercise(std::string_view factor1, std::string_view factor2)
        : Exercise(random_)
    {
        EXPECT_TRUE(Exercise.EnterFactor1(factor1).Accepted);
        EXPECT_TRUE(Exercise.EnterFactor2(factor2).Accepted);
    }

private:
    ScriptedRandom random_ {};

public:
    Multiplication Exercise;
};

// -------------------------------------------------------------------------------------------------------------- rows

TEST(Multiplication, HasOneRowForEachDigitAndWithoutZerosFewerByThoseOfTheShownFactor)
{
    const struct {
        int Digits;
        int Decimals;
        const char* Shown;
        int Rows;
        int RowsWithoutZeros;
    } cases[] = {
        { 1, 1, "", 2, 2 },
        { 1, 1, "4,6", 2, 2 },
        { 1, 0, "8", 1, 1 },
        { 2, 2, "12,05", 4, 3 },
        { 3, 1, "100,5", 4, 2 },
        { 10, 5, "1234567891,23456", 15, 15 },
        { 1, 2, "0,05", 3, 1 },
        { 1, 0, "105", 1, 0 },
        { 1, 0, "1000", 1, -2 },
        { 2, 0, "1002003", 2, -2 },
    };
    for (const auto& [digits, decimals, shown, rows, rowsWithoutZeros] : cases) {
        ScriptedRandom random {};
        Multiplication exercise(random);
        if (exercise.EnterFactor2(shown).Accepted) {
            EXPECT_EQ(exercise.ShowFactors()[1], shown);
            EXPECT_TRUE(exercise.EnterFactor2("900").Accepted) << "not shown, so its zeros do not count";
        }
        exercise.Digits2 = digits;
        exercise.Decimals2 = decimals;
        exercise.HideZeros = false;
        EXPECT_EQ(exercise.RowCount(), rows) << shown;
        exercise.HideZeros = true;
        EXPECT_EQ(exercise.RowCount(), rowsWithoutZeros) << shown;
        EXPECT_EQ(exercise.HasSingleRow(), digits + decimals == 1);
    }
    ScriptedRandom random {};
    Multiplication exercise(random);
    exercise.Digits2 = 32767;
    exercise.Decimals2 = 0;
    EXPECT_EQ(exercise.RowCount(), 32767);
    exercise.Decimals2 = 1;
    EXPECT_EQ(KindThrownBy([&] { exercise.RowCount(); }), RunTimeError::Kind::Overflow) << "beyond sixteen bits";
}

// ---------------------------------------------------------------------------------------------------------- judging

struct AnswerCase {
    const char* Factor1;
    const char* Factor2;
    std::string Answer;
    bool Right;
};

void expectVerdicts(const std::vector<AnswerCase>& cases)
{
    for (const auto& [factor1, factor2, answer, right] : cases) {
        EXPECT_EQ(TypedExercise(factor1, factor2).Exercise.Judge(answer, "").Right, right)
            << factor1 << " x " << factor2 << ": " << answer;
    }
}

// A point is a decimal point here.
TEST(Multiplication, ComparesTheResultAsANumber)
{
    expectVerdicts({ { "0,5", "0,5", "0,25", true }, { "0,5", "0,5", "0,250", true }, { "0,5", "0,5", "0.25", true },
        { "0,5", "0,5", ",25", true }, { "0,5", "0,5", " 0,25 ", true }, { "0,5", "0,5", "0,25 euros", true },
        { "0,5", "0,5", "+0,25", true }, { "0,5", "0,5", "2,5e-1", true }, { "0,5", "0,5", "-0,25", false },
        { "0,5", "0,5", "0,26", false }, { "0,5", "0,5", "025", false }, { "0,5", "0,5", "", false },
        { "7,3", "4,6", "33,58", true }, { "7", "123", "861", true }, { "12,5", "100", "1250", true },
        { "12,5", "100", "1.250", false }, { "12,5", "100", "1.250,0", false }, { "0", "5", "", true },
        { "0", "5", "hola", true }, { "-3", "4", "-12", true }, { "-3", "4", "12", false } });
}

TEST(Multiplication, RightIsOnlyWhatLiesCloserThanTheTolerance)
{
    // The product 0 leaves the distance unrounded.
    expectVerdicts({
        { "0", "1", "0,000000000001", false }, // exactly as far away as the tolerance
        { "0", "1", "-0,000000000001", false },
        { "0", "1", "0,000000000000999999", true },
        { "0", "1", "-0,000000000000999999", true },
        { "0", "1", "0,00000000000100001", false },
        { "1", "1", "1,0000000000009", true },
        { "1", "1", "1,0000000000011", false },
        { "1", "1", "0,9999999999991", true },
        { "1", "1", "0,9999999999989", false },
        { "1000", "1000", "1000000,000000001", false },
    });
}

TEST(Multiplication, ARepeatedVerdictIsWrittenOtherwise)
{
    const struct {
        const char* Answer; // to 7 x 3
        const char* Shown;
        const char* Verdict;
    } cases[] = {
        { "21", "", "Resultado correcto " },
        { "21", "Resultado correcto ", " Resultado correcto " },
        { "21", " Resultado correcto ", "Resultado correcto " },
        { "21", "Resultado correcto", "Resultado correcto " },
        { "21", "resultado correcto ", "Resultado correcto " },
        { "21", "resultado incorrecto", "Resultado correcto " },
        { "22", "", "resultado incorrecto" },
        { "22", "resultado incorrecto", " resultado incorrecto" },
        { "22", " resultado incorrecto", "resultado incorrecto" },
        { "22", "resultado incorrecto ", "resultado incorrecto" },
        { "22", "Resultado correcto ", "resultado incorrecto" },
    };
    for (const auto& [answer, shown, verdict] : cases) {
        EXPECT_EQ(TypedExercise("7", "3").Exercise.Judge(answer, shown).Text, verdict) << "after " << shown;
    }
}

TEST(Multiplication, NeitherJudgingNorRowsCountNorAResultThatADoubleCannotHold)
{
    TypedExercise typed("7", "3");
    for (const std::string& answer : { std::string("1e400"), std::string("-1e400"), std::string(400, '9') }) {
        EXPECT_EQ(KindThrownBy([&] { typed.Exercise.Judge(answer, ""); }), RunTimeError::Kind::Overflow);
    }
    typed.Exercise.Judge("21", "");
    typed.Exercise.Judge("22", "");
    typed.Exercise.RowCount();
    EXPECT_EQ(typed.Exercise.Score.Line(), "Ejercicios:  0; Errores:  0");
    EXPECT_TRUE(typed.Exercise.Score.Scorable);
}

// -------------------------------------------------------------------------------------------------- factors typed in

// A sign counts as a digit. Which texts are numbers is tested with the number readers.
TEST(Multiplication, ATypedFactorSetsTheDigitsAndDecimalsToDrawWith)
{
    const struct {
        const char* Typed;
        double Value;
        const char* Text;
        int Digits;
        int Decimals;
    } cases[] = { { "7", 7, "7", 1, 0 }, { "12,05", 12.05, "12,05", 2, 2 }, { "12,50", 12.5, "12,5", 2, 1 },
        { "1.234,5", 1234.5, "1234,5", 4, 1 }, { "1.5", 15, "15", 2, 0 }, { " 7 ", 7, "7", 1, 0 },
        { "0,05", 0.05, "0,05", 1, 2 }, { ",5", 0.5, "0,5", 1, 1 }, { "-0", 0, "0", 1, 0 },
        { "007,50", 7.5, "7,5", 1, 1 }, { "-7,25", -7.25, "-7,25", 2, 2 }, { "1e3", 1000, "1000", 4, 0 },
        { "0,123456789", 0.123456789, "0,123456789", 1, 9 }, { "12345678901", 12345678901, "12345678901", 11, 0 },
        { "12345678901234567890", 12345678901234567890.0, "12345678901234600000", 20, 0 },
        { "1e-12", 1e-12, "0,000000000001", 1, 12 } };
    for (const auto& [typed, value, text, digits, decimals] : cases) {
        SCOPED_TRACE(typed);
        TypedExercise first("2", "3");
        EXPECT_TRUE(first.Exercise.EnterFactor1(typed).Accepted);
        EXPECT_EQ(first.Exercise.EnterFactor1(typed).Message, "");
        EXPECT_EQ(first.Exercise.Factor1, value);
        EXPECT_EQ(first.Exercise.Factor1Text(), text);
        EXPECT_EQ(first.Exercise.Digits1, digits);
        EXPECT_EQ(first.Exercise.Decimals1, decimals);
        EXPECT_EQ(first.Exercise.Digits2, 1);
        EXPECT_EQ(first.Exercise.Decimals2, 0);
        EXPECT_EQ(first.Exercise.Factor2, 3);
        EXPECT_EQ(first.Exercise.Product, value * 3);

        TypedExercise second("2", "3");
        EXPECT_TRUE(second.Exercise.EnterFactor2(typed).Accepted);
        EXPECT_EQ(second.Exercise.Factor2Text(), text);
        EXPECT_EQ(second.Exercise.Digits2, digits);
        EXPECT_EQ(second.Exercise.Decimals2, decimals);
        EXPECT_EQ(second.Exercise.Digits1, 1);
        EXPECT_EQ(second.Exercise.Factor1, 2);
        EXPECT_EQ(second.Exercise.Product, 2 * value);
        EXPECT_EQ(second.Exercise.RowCount(), digits + decimals);
    }
}

void expectRefusal(const char* typed, const char* message)
{
    SCOPED_TRACE(typed);
    for (const auto enter : { &Multiplication::EnterFactor1, &Multiplication::EnterFactor2 }) {
        TypedExercise exercise("2,5", "12");
        const Multiplication::FactorEntry entry = (exercise.Exercise.*enter)(typed);
        EXPECT_FALSE(entry.Accepted);
        EXPECT_EQ(entry.Message, message);
        EXPECT_EQ(exercise.Exercise.Factor1Text() + " x " + exercise.Exercise.Factor2Text(), "2,5 x 12");
        EXPECT_EQ(exercise.Exercise.Product, 30);
        EXPECT_EQ(exercise.Exercise.Digits1, 1);
        EXPECT_EQ(exercise.Exercise.Decimals1, 1);
        EXPECT_EQ(exercise.Exercise.Digits2, 2);
        EXPECT_EQ(exercise.Exercise.Decimals2, 0);
    }
}

TEST(Multiplication, RefusesWhatIsNoNumberAndAFactorWhoseProductIsTooLarge)
{
    for (const char* typed : { "", "   ", "hola", "12a", "1,2,3", "--1", "-", ",", "1e", "1 2", "1e400", "-1e400" }) {
        expectRefusal(typed, "El dato introducido no es válido");
    }
    for (const char* typed : { "1e308", "-1e308", "1,7e308" }) {
        expectRefusal(typed, "el producto de los dos factores produce un resultado demasiado grande");
    }
    TypedExercise exercise("2", "1e200");
    EXPECT_FALSE(exercise.Exercise.EnterFactor1("1e200").Accepted) << "the other factor decides";
    EXPECT_TRUE(exercise.Exercise.EnterFactor2("1e300").Accepted);
    TypedExercise turned("1e200", "2");
    EXPECT_FALSE(turned.Exercise.EnterFactor2("1e200").Accepted);
    EXPECT_TRUE(turned.Exercise.EnterFactor1("1e300").Accepted);
}

TEST(Multiplication, ATypedFactorLeavesTheScoreAlone)
{
    for (const bool scorable : { true, false }) {
        TypedExercise exercise("2", "3");
        exercise.Exercise.Score.Scorable = scorable;
        exercise.Exercise.EnterFactor1("7");
        exercise.Exercise.EnterFactor2("nada");
        EXPECT_EQ(exercise.Exercise.Score.Scorable, scorable);
        EXPECT_EQ(exercise.Exercise.Score.Line(), "Ejercicios:  0; Errores:  0");
    }
}

TEST(Multiplication, TheNextDrawHasTheDigitsThatWereTypedAsFarAsTheOptionsOfferThem)
{
    const struct {
        const char* Typed;
        int Digits;
        int Decimals;
    } cases[] = { { "123,45", 3, 2 }, { "12", 2, 0 }, { "12345678901234567890", 10, 0 }, { "1e300", 10, 0 },
        { "-1e300", 10, 0 }, { "0,123456789", 1, 5 }, { "1e-300", 1, 5 }, { "1e-320", 1, 5 } };
    for (const auto& [typed, digits, decimals] : cases) {
        SCOPED_TRACE(typed);
        SeededRandom random(4);
        Multiplication exercise(random);
        EXPECT_TRUE(exercise.EnterFactor2("0").Accepted);
        EXPECT_TRUE(exercise.EnterFactor1(typed).Accepted);
        exercise.NewMultiplication();
        EXPECT_EQ(exercise.Digits1, digits);
        EXPECT_EQ(exercise.Decimals1, decimals);

        EXPECT_TRUE(exercise.EnterFactor1("0").Accepted);
        EXPECT_TRUE(exercise.EnterFactor2(typed).Accepted);
        exercise.NewMultiplication();
        EXPECT_EQ(exercise.Digits2, digits);
        EXPECT_EQ(exercise.Decimals2, decimals);
    }
}

} // namespace

} // namespace numbrela

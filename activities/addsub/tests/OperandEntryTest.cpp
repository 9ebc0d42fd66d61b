#include "activities/addsub/core/ColumnExercise.h"

#include "activities/addsub/tests/Answering.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"
#include "tests/support/ScriptedRandom.h"

#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <string_view>

namespace numbrela {

namespace {

using numbrela::testing::KindThrownBy;
using numbrela::testing::ScriptedRandom;

constexpr const char* notValid = "El dato introducido no es válido";
constexpr const char* sumTooLarge = "La suma de los datos introducidos  produce un resultado demasiado grande";
constexpr const char* differenceTooLarge
    = "La diferencia de los datos introducidos  produce un resultado demasiado grande";

constexpr Operation bothOperations[] = { Operation::Addition, Operation::Subtraction };

// An exercise 482,37 over 905,16 in the middle of a lesson.
class EnteredExercise {
public:
    explicit EnteredExercise(Operation operation)
        : Exercise(operation, random_)
    {
        Exercise.Operand1 = 482.37;
        Exercise.Operand2 = 905.16;
        Exercise.Score.ExerciseCount = 7;
        Exercise.Score.ErrorCount = 3;
    }

    // Types into the first or the second operand.
    OperandEntry Type(int operand, std::string_view text)
    {
        return operand == 1 ? Exercise.EnterOperand1(text) : Exercise.EnterOperand2(text);
    }

    double Operand(int operand) const { return operand == 1 ? Exercise.Operand1 : Exercise.Operand2; }
    double OtherOperand(int operand) const { return Operand(3 - operand); }

private:
    ScriptedRandom random_ {};

public:
    ColumnExercise Exercise;
};

// Runs a check for both operands of both operations.
template <typename Examine>
void forBothOperands(Examine examine)
{
    for (const Operation operation : bothOperations) {
        for (const int operand : { 1, 2 }) {
            SCOPED_TRACE(std::string(operation == Operation::Addition ? "addition" : "subtraction") + ", operand "
                + std::to_string(operand));
            examine(operation, operand);
        }
    }
}

void expectNothingToSay(const OperandEntry& entry)
{
    EXPECT_EQ(entry.Message, "");
    EXPECT_EQ(entry.MessageTitle, "");
}

struct TypedCase {
    std::string_view Text;
    double Value;
};

TEST(OperandEntry, ATypedNumberReplacesTheOperandAndNothingElse)
{
    const TypedCase cases[] = {
        { "1234,5", 1234.5 },
        { "1.234,5", 1234.5 },
        { "1.5", 15 },
        { "1,5", 1.5 },
        { "0", 0 },
        { "0,0", 0 },
        { "-0", 0 },
        { "-3", -3 },
        { "-1.234,25", -1234.25 },
        { "+7", 7 },
        { "  12,5 ", 12.5 },
        { ",5", 0.5 },
        { "5,", 5 },
        { "007", 7 },
        { "1e3", 1000 },
        { "1,5E-2", 0.015 },
        { "1e+2", 100 },
        { "120", 120 },
        { "12,50", 12.5 },
        { "123456789", 123456789 }, // longer than any drawn operand
        { "12345678901234567890", 12345678901234567890.0 },
        { "0,1234567890123", 0.1234567890123 },
        { "1,00000000000000000001", 1 },
        { "1e300", 1e300 },
        { "-1e300", -1e300 },
        { "1e-300", 1e-300 },
        { "1e-400", 0 }, // too small for anything but 0
        { "-1e-400", 0 },
    };
    forBothOperands([&](Operation operation, int operand) {
        for (const auto& [text, value] : cases) {
            SCOPED_TRACE(text);
            EnteredExercise entered(operation);
            const double other = entered.OtherOperand(operand);
            const OperandEntry entry = entered.Type(operand, text);
            EXPECT_TRUE(entry.Accepted);
            expectNothingToSay(entry);
            EXPECT_EQ(entered.Operand(operand), value);
            EXPECT_EQ(entered.OtherOperand(operand), other);
        }
    });
}

TEST(OperandEntry, TouchesNeitherTheOptionsNorTheScore)
{
    forBothOperands([](Operation operation, int operand) {
        for (const char* text : { "123456789,123456789", "0", "", "hola", "1e400" }) {
            for (const bool scorable : { true, false }) {
                EnteredExercise entered(operation);
                entered.Exercise.Score.Scorable = scorable;
                entered.Type(operand, text);
                EXPECT_EQ(entered.Exercise.Digits, 3);
                EXPECT_EQ(entered.Exercise.Decimals, 2);
                EXPECT_EQ(entered.Exercise.Score.Scorable, scorable);
                EXPECT_EQ(entered.Exercise.Score.ExerciseCount, 7);
                EXPECT_EQ(entered.Exercise.Score.ErrorCount, 3);
            }
        }
    });
}

TEST(OperandEntry, IgnoresWhatIsNoNumber)
{
    forBothOperands([](Operation operation, int operand) {
        for (const char* text : { "", " ", "     ", "hola", "12a", "a12", "1,2,3", "1,5.3", "--1", "5-", "-", "+", ",",
                 ".", "e3", "1e", "1e+", "1e400x", "1 2", "ñ", "inf", "nan", "0x10" }) {
            SCOPED_TRACE(text);
            EnteredExercise entered(operation);
            const OperandEntry entry = entered.Type(operand, text);
            EXPECT_FALSE(entry.Accepted);
            expectNothingToSay(entry);
            EXPECT_EQ(entered.Exercise.Operand1, 482.37);
            EXPECT_EQ(entered.Exercise.Operand2, 905.16);
        }
    });
}

TEST(OperandEntry, RefusesANumberThatADoubleCannotHold)
{
    forBothOperands([](Operation operation, int operand) {
        for (const std::string& text : { std::string("1e400"), std::string("-1e400"), std::string(" 1e309 "),
                 std::string("1,8E308"), std::string(400, '9'), std::string("1e99999999999999999999") }) {
            SCOPED_TRACE(text);
            EnteredExercise entered(operation);
            const OperandEntry entry = entered.Type(operand, text);
            EXPECT_FALSE(entry.Accepted);
            EXPECT_EQ(entry.Message, notValid);
            EXPECT_EQ(entry.MessageTitle, "") << "the application's own title";
            EXPECT_EQ(entered.Exercise.Operand1, 482.37);
            EXPECT_EQ(entered.Exercise.Operand2, 905.16);
        }
    });
}

struct OverflowCase {
    Operation Sort;
    const char* First;
    const char* Second;
    const char* Message;
};

constexpr OverflowCase overflowCases[] = {
    { Operation::Addition, "1e308", "1e308", sumTooLarge },
    { Operation::Addition, "-1e308", "-1e308", sumTooLarge },
    { Operation::Addition, "1,7e308", "1e307", sumTooLarge },
    { Operation::Subtraction, "1e308", "-1e308", differenceTooLarge },
    { Operation::Subtraction, "-1e308", "1e308", differenceTooLarge },
};

TEST(OperandEntry, ReportsAResultTooLargeAndKeepsTheTypedOperand)
{
    for (const auto& [operation, first, second, message] : overflowCases) {
        SCOPED_TRACE(std::string(first) + ", " + second);
        EnteredExercise entered(operation);
        EXPECT_TRUE(entered.Exercise.EnterOperand1(first).Accepted);
        const OperandEntry entry = entered.Exercise.EnterOperand2(second);
        EXPECT_FALSE(entry.Accepted);
        EXPECT_EQ(entry.Message, message);
        EXPECT_EQ(entry.MessageTitle, "Error");
        EXPECT_EQ(entered.Exercise.Operand1, *ParseTypedNumber(first));
        EXPECT_EQ(entered.Exercise.Operand2, *ParseTypedNumber(second));
    }
}

TEST(OperandEntry, ReportsAResultTooLargeWhicheverOperandIsTypedLast)
{
    for (const auto& [operation, first, second, message] : overflowCases) {
        SCOPED_TRACE(std::string(first) + ", " + second);
        EnteredExercise entered(operation);
        EXPECT_TRUE(entered.Exercise.EnterOperand2(second).Accepted);
        const OperandEntry entry = entered.Exercise.EnterOperand1(first);
        EXPECT_FALSE(entry.Accepted);
        EXPECT_EQ(entry.Message, message);
        EXPECT_EQ(entry.MessageTitle, "Error");
        EXPECT_EQ(entered.Exercise.Operand1, *ParseTypedNumber(first));
        EXPECT_EQ(entered.Exercise.Operand2, *ParseTypedNumber(second));
    }
}

TEST(OperandEntry, AResultTooLargeCanBeNeitherCheckedNorShown)
{
    for (const auto& [operation, first, second, message] : overflowCases) {
        SCOPED_TRACE(std::string(first) + ", " + second);
        EnteredExercise entered(operation);
        entered.Exercise.EnterOperand1(first);
        entered.Exercise.EnterOperand2(second);
        EXPECT_EQ(KindThrownBy([&] { entered.Exercise.Solution(); }), RunTimeError::Kind::Overflow);
        for (const char* answer : { "", "7", "1e308", "1e400", "-1e400" }) {
            EXPECT_EQ(KindThrownBy([&] { Check(entered.Exercise, answer); }), RunTimeError::Kind::Overflow) << answer;
        }
        EXPECT_EQ(KindThrownBy([&] { entered.Exercise.ShowSolution(); }), RunTimeError::Kind::Overflow);
        EXPECT_TRUE(entered.Exercise.Score.Scorable);
        EXPECT_EQ(entered.Exercise.Score.Line(), "Ejercicios:  7; Errores:  3");
    }
}

TEST(OperandEntry, ASmallerOperandMakesTheExerciseGoodAgain)
{
    for (const auto& [operation, first, second, message] : overflowCases) {
        EnteredExercise entered(operation);
        entered.Exercise.EnterOperand1(first);
        entered.Exercise.EnterOperand2(second);
        // What is ignored or refused changes nothing about it.
        expectNothingToSay(entered.Exercise.EnterOperand2("hola"));
        EXPECT_EQ(entered.Exercise.EnterOperand2("1e400").Message, notValid);
        EXPECT_EQ(entered.Exercise.EnterOperand2(second).Message, message);

        const OperandEntry entry = entered.Exercise.EnterOperand2("5");
        EXPECT_TRUE(entry.Accepted);
        expectNothingToSay(entry);
        EXPECT_EQ(entered.Exercise.Solution(), *ParseTypedNumber(first)); // 5 is nothing beside it
        EXPECT_TRUE(Check(entered.Exercise, first).Right);
    }
}

TEST(OperandEntry, TheNextDrawnExerciseIsGoodAgainAfterAResultTooLarge)
{
    ScriptedRandom random { 0.482365, 0.905155 };
    ColumnExercise exercise(Operation::Addition, random);
    exercise.EnterOperand1("1e308");
    exercise.EnterOperand2("1e308");
    exercise.Continue();
    EXPECT_EQ(exercise.Operand1, 482.37);
    EXPECT_EQ(exercise.Operand2, 905.16);
    EXPECT_TRUE(Check(exercise, "1387,53").Right);
}

TEST(OperandEntry, AcceptsLargeOperandsWhoseResultFits)
{
    EnteredExercise sum(Operation::Addition);
    EXPECT_TRUE(sum.Exercise.EnterOperand1("8,9e307").Accepted);
    EXPECT_TRUE(sum.Exercise.EnterOperand2("8,9e307").Accepted);
    EXPECT_EQ(sum.Exercise.Solution(), 1.78e308);
    EXPECT_TRUE(sum.Exercise.EnterOperand2("-1,7e308").Accepted);

    EnteredExercise difference(Operation::Subtraction);
    EXPECT_TRUE(difference.Exercise.EnterOperand1("1,7e308").Accepted);
    EXPECT_TRUE(difference.Exercise.EnterOperand2("1,7e308").Accepted);
    EXPECT_EQ(difference.Exercise.Solution(), 0);
}

TEST(OperandEntry, ATypedExerciseIsScoredAsTheOneItReplaces)
{
    EnteredExercise scored(Operation::Addition);
    scored.Exercise.EnterOperand1("1234,5");
    EXPECT_TRUE(Check(scored.Exercise, "2.139,66").Right);
    EXPECT_EQ(scored.Exercise.Score.Line(), "Ejercicios:  8; Errores:  3");

    EnteredExercise wrong(Operation::Addition);
    wrong.Exercise.EnterOperand1("1234,5");
    EXPECT_FALSE(Check(wrong.Exercise, "1.387,53").Right) << "the sum of the operands before";
    EXPECT_EQ(wrong.Exercise.Score.Line(), "Ejercicios:  8; Errores:  4");

    EnteredExercise unscored(Operation::Addition);
    unscored.Exercise.ShowSolution();
    unscored.Exercise.EnterOperand1("1234,5");
    EXPECT_TRUE(Check(unscored.Exercise, "2.139,66").Right);
    EXPECT_EQ(unscored.Exercise.Score.Line(), "Ejercicios:  7; Errores:  3");
}

TEST(OperandEntry, ATypedSubtrahendMayBeTheGreaterOne)
{
    EnteredExercise entered(Operation::Subtraction);
    EXPECT_TRUE(entered.Exercise.EnterOperand1("12").Accepted);
    const OperandEntry entry = entered.Exercise.EnterOperand2("12,5");
    EXPECT_TRUE(entry.Accepted);
    expectNothingToSay(entry);
    EXPECT_EQ(entered.Exercise.Operand1, 12) << "typed operands are not exchanged";
    EXPECT_EQ(entered.Exercise.Operand2, 12.5);
    EXPECT_EQ(entered.Exercise.Solution(), -0.5);
    EXPECT_FALSE(Check(entered.Exercise, "0,5").Right);
    EXPECT_TRUE(Check(entered.Exercise, "-0,5").Right);
    EXPECT_EQ(entered.Exercise.ShowSolution(), "-0,5");
}

struct SolutionCase {
    Operation Sort;
    const char* First;
    const char* Second;
    const char* Solution;
};

TEST(OperandEntry, SolutionsOfTypedOperandsAreShownAsDisplayNumbers)
{
    const SolutionCase cases[] = {
        { Operation::Addition, "1.5", "1,5", "16,5" },
        { Operation::Addition, "1234,5", "905,16", "2.139,66" },
        { Operation::Addition, "-3", "-4", "-7" },
        { Operation::Addition, "-3", "3", "0" },
        { Operation::Addition, "-0", "-0", "0" },
        { Operation::Addition, "0", "0", "0" },
        { Operation::Addition, "1e3", "1,5E-2", "1.000,015" },
        { Operation::Addition, "1234567", "0", "1.123.567" },
        { Operation::Addition, "0,000000001", "0", "0,000000001" },
        { Operation::Subtraction, "5", "128", "-.123" },
        { Operation::Subtraction, "5", "-128", "133" },
        { Operation::Subtraction, "0", "1234", "-1.234" },
        { Operation::Subtraction, "0", "123456", "-.-12.456" },
        { Operation::Subtraction, "7,25", "7,25", "0" },
        { Operation::Subtraction, "0", "0", "0" },
    };
    for (const auto& [operation, first, second, solution] : cases) {
        SCOPED_TRACE(std::string(first) + ", " + second);
        EnteredExercise entered(operation);
        ASSERT_TRUE(entered.Exercise.EnterOperand1(first).Accepted);
        ASSERT_TRUE(entered.Exercise.EnterOperand2(second).Accepted);
        EXPECT_EQ(entered.Exercise.ShowSolution(), solution);
    }
}

TEST(OperandEntry, AnEmptyAnswerIsRightWhenTheTypedOperandsGiveZero)
{
    EnteredExercise entered(Operation::Subtraction);
    entered.Exercise.EnterOperand1("7,25");
    entered.Exercise.EnterOperand2("7,25");
    EXPECT_TRUE(Check(entered.Exercise, "").Right);
}

// ------------------------------------------------------------------------------------------------- commas in columns

struct AlignmentCase {
    const char* First;
    const char* Second;
    const char* Upper;
    const char* Lower;
};

constexpr AlignmentCase alignmentCases[] = {
    { "1234,5", "905,16", "1.234,5 ", "  905,16" },
    { "905,16", "1234,5", "  905,16", "1.234,5 " },
    { "482,37", "905,16", "482,37", "905,16" },
    { "5", "7", "5", "7" },
    { "5", "12", " 5", "12" },
    { "12", "5", "12", " 5" },
    { "12", "3,25", "12   ", " 3,25" }, // the comma of a whole number is a blank too
    { "3,25", "12", " 3,25", "12   " },
    { "1,5", "2,125", "1,5  ", "2,125" },
    { "1,125", "22,5", " 1,125", "22,5  " },
    { "1234567,5", "1", "1.123.567,5", "        1  " },
    { "-5", "10,25", "-5   ", "10,25" },
    { "-5,5", "3", "-5,5", " 3  " },
    { "-123", "7", "-.123", "    7" },
    { "0", "0,001", "0    ", "0,001" },
    { "-0", "10", " 0", "10" },
    { "12,500", "1", "12,5", " 1  " }, // zeros that were typed are not kept
    { "1.5", "1,5", "15  ", " 1,5" },
    { "1e3", "1,5E-2", "1.000    ", "    0,015" },
    { "  7  ", "12", " 7", "12" },
};

TEST(OperandEntry, PutsTheDecimalCommasOfBothOperandsUnderEachOther)
{
    for (const Operation operation : bothOperations) {
        for (const auto& [first, second, upper, lower] : alignmentCases) {
            SCOPED_TRACE(std::string(first) + " over " + second);
            EnteredExercise entered(operation);
            ASSERT_TRUE(entered.Exercise.EnterOperand1(first).Accepted);
            ASSERT_TRUE(entered.Exercise.EnterOperand2(second).Accepted);
            EXPECT_EQ(entered.Exercise.AlignedTexts().Upper, upper);
            EXPECT_EQ(entered.Exercise.AlignedTexts().Lower, lower);
        }
    }
}

TEST(OperandEntry, ATypedOperandIsAlignedWithTheDrawnOne)
{
    ScriptedRandom random { 0.482365, 0.905155 };
    ColumnExercise exercise(Operation::Addition, random);
    exercise.Generate();
    ASSERT_TRUE(exercise.EnterOperand1("1234,5").Accepted);
    EXPECT_EQ(exercise.AlignedTexts().Upper, "1.234,5 ");
    EXPECT_EQ(exercise.AlignedTexts().Lower, "  905,16");
}

// Where the comma stands, counted from the right edge, or would stand.
std::size_t commaFromTheRight(std::string_view text)
{
    const std::size_t comma = text.find(',');
    if (comma != std::string_view::npos) {
        return text.size() - comma;
    }
    return text.size() - (text.find_last_not_of(' ') + 1);
}

TEST(OperandEntry, AlignedTextsAreEquallyLongWithTheirCommasInOneColumn)
{
    std::mt19937 chance(41);
    const auto drawOperand = [&] {
        const double whole = std::floor(std::pow(10, static_cast<double>(chance() % 13)) * 1.2345678901234);
        const double scale = std::pow(10, static_cast<double>(chance() % 9));
        return whole / scale * (chance() % 4 == 0 ? -1 : 1);
    };
    for (int i = 0; i < 3000; ++i) {
        EnteredExercise entered(Operation::Addition);
        entered.Exercise.Operand1 = drawOperand();
        entered.Exercise.Operand2 = drawOperand();
        const OperandTexts plain = entered.Exercise.DrawnTexts();
        const OperandTexts aligned = entered.Exercise.AlignedTexts();
        SCOPED_TRACE(plain.Upper + " over " + plain.Lower);

        ASSERT_EQ(aligned.Upper.size(), aligned.Lower.size());
        ASSERT_EQ(Trimmed(aligned.Upper), plain.Upper);
        ASSERT_EQ(Trimmed(aligned.Lower), plain.Lower);
        const bool bothWhole = plain.Upper.find(',') == std::string::npos && plain.Lower.find(',') == std::string::npos;
        if (bothWhole) {
            ASSERT_NE(aligned.Upper.back(), ' ');
            ASSERT_NE(aligned.Lower.back(), ' ');
        } else {
            ASSERT_EQ(commaFromTheRight(aligned.Upper), commaFromTheRight(aligned.Lower));
        }
        // No more blanks than it takes: some text reaches each edge.
        ASSERT_TRUE(aligned.Upper.front() != ' ' || aligned.Lower.front() != ' ');
        ASSERT_TRUE(aligned.Upper.back() != ' ' || aligned.Lower.back() != ' ');
    }
}

TEST(OperandEntry, AlignsTheLargestAndTheSmallestNumbers)
{
    EnteredExercise entered(Operation::Addition);
    ASSERT_TRUE(entered.Exercise.EnterOperand1("1e308").Accepted);
    ASSERT_TRUE(entered.Exercise.EnterOperand2("1e-300").Accepted);
    const OperandTexts aligned = entered.Exercise.AlignedTexts();
    EXPECT_EQ(aligned.Upper.size(), 309U + 6 + 301); // digits, points between them, the comma and decimals of the lower
    EXPECT_EQ(aligned.Lower.size(), aligned.Upper.size());
    EXPECT_EQ(aligned.Lower.substr(309 + 6 - 1), "0," + std::string(299, '0') + "1");
    EXPECT_EQ(aligned.Upper.substr(309 + 6), std::string(301, ' '));
}

TEST(OperandEntry, ContinuingDrawsByTheOptionsAgain)
{
    SeededRandom random(9);
    ColumnExercise exercise(Operation::Addition, random);
    exercise.EnterOperand1("123456789,123456789");
    exercise.EnterOperand2("-7");
    exercise.Continue();
    for (const double operand : { exercise.Operand1, exercise.Operand2 }) {
        EXPECT_GE(operand, 100);
        EXPECT_LT(operand, 1000);
    }
}

} // namespace

} // namespace numbrela

#include "activities/addsub/core/ColumnExercise.h"

#include "activities/addsub/tests/Answering.h"
#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"
#include "tests/support/ScriptedRandom.h"

#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace numbrela {

namespace {

using namespace testing;

constexpr Operation addition = Operation::Addition;
constexpr Operation subtraction = Operation::Subtraction;
constexpr const char* notValid = "El dato introducido no es válido";

// An exercise 482,37 over 905,16 in the middle of a lesson.
class EnteredExercise {
public:
    explicit EnteredExercise(Operation operation)
        : Exercise(operation, random_)
    {
        Exercise.Operand1 = 482.37;
        Exercise.Operand2 = 905.16;
        Exercise.Score = { .ExerciseCount = 7, .ErrorCount = 3, .Scorable = true };
    }

    // Types into the first or the second operand.
    OperandEntry Type(int operand, std::string_view text)
    {
        return operand == 1 ? Exercise.EnterOperand1(text) : Exercise.EnterOperand2(text);
    }

    void TypeBoth(std::string_view first, std::string_view second)
    {
        EXPECT_TRUE(Exercise.EnterOperand1(first).Accepted);
        EXPECT_TRUE(Exercise.EnterOperand2(second).Accepted);
    }

private:
    ScriptedRandom random_ {};

public:
    ColumnExercise Exercise;
};

// Which texts are numbers is tested with the number readers.
TEST(OperandEntry, TakesANumberPassesOverWhatIsNoneAndRefusesWhatIsTooLarge)
{
    const struct {
        std::string Text;
        bool Accepted;
        double Value; // of the operand afterwards, when it was accepted
        const char* Message; // under the application's own title
    } cases[] = {
        { "1.234,5", true, 1234.5, "" },
        { "1.5", true, 15, "" },
        { "  12,50 ", true, 12.5, "" },
        { "-0", true, 0, "" },
        { "12345678901234567890", true, 12345678901234567890.0, "" },
        { "-1e300", true, -1e300, "" },
        { "1e-400", true, 0, "" },
        { "", false, 0, "" },
        { "     ", false, 0, "" },
        { "12a", false, 0, "" },
        { "1e400x", false, 0, "" },
        { "1e400", false, 0, notValid },
        { " -1,8E308 ", false, 0, notValid },
        { std::string(400, '9'), false, 0, notValid },
    };
    for (const auto& [text, accepted, value, message] : cases) {
        for (const Operation operation : { addition, subtraction }) {
            for (const int operand : { 1, 2 }) {
                SCOPED_TRACE(text + ", operand " + std::to_string(operand));
                EnteredExercise entered(operation);
                entered.Exercise.Score.Scorable = accepted;
                const OperandEntry entry = entered.Type(operand, text);
                EXPECT_EQ(entry.Accepted, accepted);
                EXPECT_EQ(entry.Message, message);
                EXPECT_EQ(entry.MessageTitle, "");
                EXPECT_EQ(entered.Exercise.Operand1, accepted && operand == 1 ? value : 482.37);
                EXPECT_EQ(entered.Exercise.Operand2, accepted && operand == 2 ? value : 905.16);
                EXPECT_EQ(entered.Exercise.Digits, 3);
                EXPECT_EQ(entered.Exercise.Decimals, 2);
                EXPECT_EQ(entered.Exercise.Score.Line(), "Ejercicios:  7; Errores:  3");
                EXPECT_EQ(entered.Exercise.Score.Scorable, accepted);
            }
        }
    }
}

TEST(OperandEntry, ReportsAResultTooLargeAndKeepsTheOperandUntilASmallerOneMakesTheExerciseGoodAgain)
{
    const struct {
        Operation Sort;
        const char* First;
        const char* Second;
    } cases[] = {
        { addition, "1e308", "1e308" },
        { addition, "-1e308", "-1e308" },
        { addition, "1,7e308", "1e307" },
        { subtraction, "1e308", "-1e308" },
        { subtraction, "-1e308", "1e308" },
    };
    for (const auto& [operation, first, second] : cases) {
        const std::string message = std::string(operation == addition ? "La suma" : "La diferencia")
            + " de los datos introducidos  produce un resultado demasiado grande";
        for (const int last : { 1, 2 }) {
            SCOPED_TRACE(std::string(first) + ", " + second + ", last " + std::to_string(last));
            EnteredExercise entered(operation);
            ColumnExercise& exercise = entered.Exercise;
            EXPECT_TRUE(entered.Type(3 - last, last == 1 ? second : first).Accepted);
            const OperandEntry entry = entered.Type(last, last == 1 ? first : second);
            EXPECT_FALSE(entry.Accepted);
            EXPECT_EQ(entry.Message, message);
            EXPECT_EQ(entry.MessageTitle, "Error");
            EXPECT_EQ(exercise.Operand1, ParseTypedNumber(first));
            EXPECT_EQ(exercise.Operand2, ParseTypedNumber(second));

            EXPECT_EQ(KindThrownBy([&] { exercise.Solution(); }), RunTimeError::Kind::Overflow);
            EXPECT_EQ(KindThrownBy([&] { exercise.ShowSolution(); }), RunTimeError::Kind::Overflow);
            for (const char* answer : { "", "7", "1e400" }) {
                EXPECT_EQ(KindThrownBy([&] { Check(exercise, answer); }), RunTimeError::Kind::Overflow) << answer;
            }
            EXPECT_TRUE(exercise.Score.Scorable);
            EXPECT_EQ(exercise.Score.Line(), "Ejercicios:  7; Errores:  3");
            EXPECT_EQ(entered.Type(last, "hola").Message, "");
            EXPECT_EQ(entered.Type(last, "1e400").Message, notValid);
            EXPECT_EQ(exercise.EnterOperand2(second).Message, message);
            EXPECT_TRUE(exercise.EnterOperand2("5").Accepted);
            EXPECT_TRUE(Check(exercise, first).Right) << "5 is nothing beside it";
        }
    }
}

TEST(OperandEntry, AcceptsLargeOperandsWhoseResultFits)
{
    EnteredExercise sum(addition);
    sum.TypeBoth("8,9e307", "8,9e307");
    EXPECT_EQ(sum.Exercise.Solution(), 1.78e308);
    EnteredExercise difference(subtraction);
    difference.TypeBoth("1,7e308", "1,7e308");
    EXPECT_EQ(difference.Exercise.Solution(), 0);
}

TEST(OperandEntry, ATypedExerciseIsScoredAsTheOneItReplaces)
{
    EnteredExercise entered(addition);
    entered.Exercise.EnterOperand1("1234,5");
    EXPECT_FALSE(Check(entered.Exercise, "1.387,53").Right) << "the sum of the operands before";
    EXPECT_EQ(entered.Exercise.Score.Line(), "Ejercicios:  8; Errores:  4");
    EXPECT_TRUE(Check(entered.Exercise, "2.139,66").Right);
    EXPECT_EQ(entered.Exercise.Score.Line(), "Ejercicios:  9; Errores:  4");
    entered.Exercise.EnterOperand1("7");
    EXPECT_TRUE(Check(entered.Exercise, "912,16").Right);
    EXPECT_EQ(entered.Exercise.Score.Line(), "Ejercicios:  9; Errores:  4");
}

// --- Commas in columns -----------------------------------------------------------------------------------------------

TEST(OperandEntry, PutsTheDecimalCommasOfBothOperandsUnderEachOther)
{
    const struct {
        const char* First;
        const char* Second;
        const char* Upper;
        const char* Lower;
    } cases[] = {
        { "1234,5", "905,16", "1.234,5 ", "  905,16" },
        { "905,16", "1234,5", "  905,16", "1.234,5 " },
        { "482,37", "905,16", "482,37", "905,16" },
        { "5", "12", " 5", "12" },
        { "12", "3,25", "12   ", " 3,25" }, // the comma of a whole number is a blank too
        { "3,25", "12", " 3,25", "12   " },
        { "1,125", "22,5", " 1,125", "22,5  " },
        { "1234567,5", "1", "1.123.567,5", "        1  " },
        { "-123", "7", "-.123", "    7" },
        { "-0", "10", " 0", "10" },
        { "12,500", "1", "12,5", " 1  " }, // zeros that were typed are not kept
        { "1e3", "1,5E-2", "1.000    ", "    0,015" },
    };
    for (const Operation operation : { addition, subtraction }) {
        for (const auto& [first, second, upper, lower] : cases) {
            SCOPED_TRACE(std::string(first) + " over " + second);
            EnteredExercise entered(operation);
            entered.TypeBoth(first, second);
            EXPECT_EQ(entered.Exercise.AlignedTexts().Upper, upper);
            EXPECT_EQ(entered.Exercise.AlignedTexts().Lower, lower);
        }
    }
}

TEST(OperandEntry, AlignsTheLargestAndTheSmallestNumbers)
{
    EnteredExercise entered(addition);
    entered.TypeBoth("1e308", "1e-300");
    const OperandTexts aligned = entered.Exercise.AlignedTexts();
    EXPECT_EQ(aligned.Upper.size(), 309U + 6 + 301); // digits, points between them, the comma and decimals of the lower
    EXPECT_EQ(aligned.Lower.size(), aligned.Upper.size());
    EXPECT_EQ(aligned.Lower.substr(309 + 6 - 1), "0," + std::string(299, '0') + "1");
    EXPECT_EQ(aligned.Upper.substr(309 + 6), std::string(301, ' '));
}

} // namespace

} // namespace numbrela

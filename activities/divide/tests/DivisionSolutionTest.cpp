#include "activities/divide/tests/DivisionSupport.h"

#include "activities/divide/core/WorkedDivision.h"
#include "common/core/RunTimeError.h"
#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

#include <memory>

namespace numbrela {

namespace {

using namespace testing;

// A division, and what its solution looks like when it has been worked out on squared paper, cell by cell; "|" stands
// between rows.
struct SolutionCase {
    const char* What;
    DivisionOptions Options;
    double DividendDigits; // the dividend without its comma
    double Divisor;
    const char* Quotient;
    std::string Paper;
    std::string PaperWithSubtractions {}; // empty: not looked at
};

DivisionOptions whole(int dividendDigits, int divisorDigits = 1, int quotientDecimals = 0)
{
    return { dividendDigits, 0, divisorDigits, quotientDecimals };
}

DivisionOptions decimal(int digits, int decimals, int divisorDigits = 1, int quotientDecimals = 0)
{
    return { digits, decimals, divisorDigits, quotientDecimals };
}

std::string paperOf(const WorkingGrid& grid)
{
    std::string paper;
    for (const std::string& row : rowsOf(grid)) {
        paper += paper.empty() ? row : "|" + row;
    }
    return paper;
}

void expectSolution(const SolutionCase& solution, bool& commaShift)
{
    SCOPED_TRACE(solution.What);
    DrawnDivision drawn(solution.Options, solution.DividendDigits, solution.Divisor);
    drawn.CommaShift = commaShift;
    EXPECT_EQ(drawn.Exercise.ShowDivisionSolution(), solution.Quotient);
    EXPECT_EQ(paperOf(drawn.Exercise.Grid), solution.Paper);
    commaShift = drawn.CommaShift;
}

void expectFirstSolutions(const std::vector<SolutionCase>& solutions)
{
    for (SolutionCase solution : solutions) {
        bool commaShift = false;
        expectSolution(solution, commaShift);
        if (!solution.PaperWithSubtractions.empty()) {
            SCOPED_TRACE("with subtractions");
            solution.Options.ShowSubtractions = true;
            solution.Paper = solution.PaperWithSubtractions;
            commaShift = false;
            expectSolution(solution, commaShift);
        }
    }
}

TEST(DivisionSolution, OfWholeNumbersWritesEachRemainderWithTheNextDigitAndAboveItWhatIsSubtracted)
{
    expectFirstSolutions({
        { "without a remainder", whole(2), 84, 4, "21", " 84| 04| 0", " 84|-8| 04| -4| 0" },
        { "with a remainder", whole(2), 97, 6, "16", " 97| 37| 1", " 97|-6| 37|-36| 1" },
        { "three digits", whole(3), 845, 4, "211", " 845| 04|  05|  1" },
        { "the first digit is too small", whole(3, 2), 156, 12, "13", " 156|  36|  0", " 156|-12|  36| -36|  0" },
        { "five digits", whole(5, 2), 98765, 43, "2296", " 98765| 127|  416|   295|   37" },
        { "nine digits", whole(9), 987654321, 9, "109739369",
            " 987654321| 087|   66|    35|     84|      33|       62|        81|        0" },
    });
}

TEST(DivisionSolution, BringsTheNextDigitDownToTheSameRowAfterAZero)
{
    expectFirstSolutions({
        { "inside", whole(3), 816, 4, "204", " 816| 016|  0", " 816|-8| 016| -16|  0" },
        { "at the end", whole(3), 840, 7, "120", " 840| 14|  00", " 840|-7| 14|-14|  00" },
        { "two behind the comma", decimal(2, 2), 8406, 7, "12,00", " 84,06| 14|  0 06", " 84,06|-7| 14|-14|  0 06" },
        { "before the comma", decimal(3, 2, 2), 12345, 12, "10,28", " 123,45|  03 4|   1 05|      9",
            " 123,45|-12|  03 4|  -2 4|   1 05|   - 96|      9" },
        { "as the last decimal", decimal(4, 1, 3), 10005, 125, "8,0", " 1000,5|    0 5" },
        { "among decimals of the quotient alone", decimal(1, 1, 1, 3), 81, 4, "2,025", " 8,1| 0 1|    2|    0",
            " 8,1|-8| 0 1|   -8|    2|   -20|    0" },
        { "at the end of the quotient's decimals", whole(2, 1, 3), 90, 8, "11,250", " 90| 10|  2|   4|    0" },
    });
}

TEST(DivisionSolution, OfADecimalDividendStepsOverTheCommasColumn)
{
    expectFirstSolutions({
        { "two digits, two decimals", decimal(2, 2), 9725, 4, "24,31", " 97,25| 17|  1 2|    05|     1",
            " 97,25|-8| 17|-16|  1 2| -1 2|    05|    -4|     1" },
        { "one digit, one decimal", decimal(1, 1), 95, 2, "4,7", " 9,5| 1 5|   1", " 9,5|-8| 1 5|-1 4|   1" },
        { "one digit more than asked for", decimal(2, 2), 10003, 7, "1,42", " 100,03|  30|   2 0|     6" },
    });
}

TEST(DivisionSolution, WorksTheQuotientToTheDecimalsAskedFor)
{
    expectFirstSolutions({
        { "of a whole dividend", whole(1, 1, 2), 7, 4, "1,75", " 7| 3|  2|  0", " 7|-4| 3|-28|  2| -20|  0" },
        { "more than the dividend has", decimal(1, 1, 1, 2), 95, 4, "2,37", " 9,5| 1 5|   3|   2",
            " 9,5|-8| 1 5|-1 2|   3| - 28|   2" },
        { "but not to fewer than the dividend has", decimal(1, 2, 1, 1), 925, 4, "2,31", " 9,25| 1 2|   05|   1" },
    });
}

TEST(DivisionSolution, OfADividendSmallerThanTheDivisorBeginsWithAZero)
{
    expectFirstSolutions({
        { "one digit", whole(1), 7, 9, "0", " 7" },
        { "two digits", whole(2, 2), 45, 67, "0", " 45" },
        { "with a decimal in the quotient", whole(1, 1, 1), 7, 9, "0,7", " 7| 7", " 7|-63| 7" },
        { "with three decimals in the quotient", whole(1, 2, 3), 5, 16, "0,312", " 5|  2|   4|   8",
            " 5|-48|  2| -16|   4|  -32|   8" },
        { "with a zero behind the comma", whole(1, 2, 2), 2, 37, "0,05", " 2| 15", " 2|-185| 15" },
        { "with a decimal in the dividend", decimal(1, 1), 75, 9, "0,8", " 7,5|   3", " 7,5|-7 2|   3" },
        { "with three decimals in the dividend", decimal(1, 3), 3125, 5, "0,625", " 3,125|   12|    25|     0",
            " 3,125|-3 0|   12| - 10|    25|   -25|     0" },
        { "nine digits by nine", decimal(9, 1, 9), 2147483647, 987654321, "0,2", " 214748364,7|  17217500 5" },
    });
}

// A first zero behind the comma brings the next digit down to the only row there is, the dividend's, and its place
// there depends on how the previous solution ended.
TEST(DivisionSolution, AZeroBehindTheFirstZeroBringsDownToTheDividendsRow)
{
    expectFirstSolutions({
        { "not shifted", decimal(1, 2, 2), 205, 37, "0,05", " 2,5|   20", " 2,5|-1 85|   20" },
        { "never shifted", decimal(1, 2, 2), 123, 41, "0,03", " 1,3|   0" },
    });
    const std::vector<SolutionCase> afterDecimals {
        { "shifted", decimal(1, 2, 2), 205, 37, "0,05", " 2,05|   20" },
        { "always shifted", decimal(1, 2, 2), 123, 41, "0,03", " 1,23|    0" },
    };
    for (const SolutionCase& solution : afterDecimals) {
        bool commaShift = true;
        expectSolution(solution, commaShift);
        EXPECT_TRUE(commaShift);
    }
}

TEST(DivisionSolution, TheShiftBehindACommaLastsUntilARowBeginsLeftOfOne)
{
    bool commaShift = false;
    const std::vector<std::pair<SolutionCase, bool>> lesson {
        { { "whole numbers shift nothing", whole(2), 97, 6, "16", " 97| 37| 1" }, false },
        { { "a decimal dividend ends shifted", decimal(1, 1), 95, 2, "4,7", " 9,5| 1 5|   1" }, true },
        { { "whole numbers are shifted now", whole(2), 84, 4, "21", " 84|  04|  0" }, true },
        { { "and so are subtractions", { 2, 0, 1, 0, true }, 97, 6, "16", " 97| -6|  37| -36|  1" }, true },
        { { "and decimals of a quotient", whole(1, 1, 2), 7, 4, "1,75", " 7|  3|   2|   0" }, true },
        { { "a row left of a comma ends it, the next steps over the comma anew", decimal(2, 2), 9725, 4, "24,31",
              " 97,25| 17|  1 2|    05|     1" },
            true },
        { { "a row that begins behind the comma is shifted still", decimal(1, 2, 2), 205, 37, "0,05", " 2,05|   20" },
            true },
        { { "and one that begins on the comma", decimal(1, 1), 75, 9, "0,8", " 7,5|   3" }, true },
    };
    for (const auto& [solution, shiftAfterwards] : lesson) {
        expectSolution(solution, commaShift);
        EXPECT_EQ(commaShift, shiftAfterwards) << solution.What;
    }
}

TEST(DivisionSolution, ReplacesTheWorkingEndsTheScoringAndIsTheSameWhenItIsShownAgain)
{
    DrawnDivision drawn(whole(2), 84, 4);
    DivisionExercise& exercise = drawn.Exercise;
    typeRow(exercise.Grid, 1, " 99999"); // what stands left of a line stays
    typeRow(exercise.Grid, 2, "999999");
    typeRow(exercise.Grid, 7, "999999");
    for (int times = 0; times < 2; ++times) {
        EXPECT_EQ(exercise.ShowDivisionSolution(), "21");
        EXPECT_EQ(paperOf(exercise.Grid), " 84| 04| 0");
        EXPECT_EQ(exercise.Grid.Caret, exercise.Grid.LineWidth + 1) << "where it begins";
        EXPECT_FALSE(exercise.Score.Scorable);
        EXPECT_EQ(exercise.Score.Line(), "Ejercicios:  0; Errores:  0");
    }
    EXPECT_EQ(exercise.Judge("21")->Text, "resultado correcto");
    EXPECT_EQ(exercise.Judge("5")->Text, "Resultado incorrecto");
}

// ------------------------------------------------------------------------------------------------- entered dividends

TEST(DivisionSolution, OfEnteredNumbersReadsASignAsAZeroAndFindsNoDigitForANegativeDivisor)
{
    const struct {
        const char* What;
        DivisionOptions Options;
        double Drawn; // by 4
        const char* Dividend; // as typed; "" leaves the one that was drawn
        const char* Divisor;
        const char* Quotient;
        const char* Paper;
    } cases[] = {
        { "the decimals of the options are kept", decimal(2, 2), 1234, "97", "4", "24,25", " 97| 17|  1|    2|    0" },
        { "a negative dividend", whole(2), 84, "-97", "4", "24", " -97|  17|  1" },
        { "a negative divisor", whole(2), 84, "", "-4", "0", " 84" },
        // After the first 0, whatever the division gives is written, and each negative digit brings down the next one
        // as a 0 does.
        { "a negative divisor with decimals", decimal(2, 2), 9725, "", "-4", "0,-3-1", " 97,5" },
    };
    for (const auto& [what, options, digits, dividend, divisor, quotient, paper] : cases) {
        SCOPED_TRACE(what);
        DrawnDivision drawn(options, digits, 4);
        EXPECT_EQ(drawn.Exercise.EnterDividend(dividend), *dividend != '\0');
        EXPECT_TRUE(drawn.Exercise.EnterDivisor(divisor));
        EXPECT_EQ(drawn.Exercise.ShowDivisionSolution(), quotient);
        EXPECT_EQ(paperOf(drawn.Exercise.Grid), paper);
    }
}

// ---------------------------------------------------------------------------------------------------------- overflow

TEST(DivisionSolution, OverflowsWhenARunningRemainderNeedsMoreThan32Bits)
{
    DrawnDivision drawn(decimal(9, 1, 9), 2147483648, 987654321);
    typeRow(drawn.Exercise.Grid, 1, " 12");
    drawn.CommaShift = true;
    EXPECT_EQ(KindThrownBy([&] { drawn.Exercise.ShowDivisionSolution(); }), RunTimeError::Kind::Overflow);
    EXPECT_EQ(paperOf(drawn.Exercise.Grid), " 214748364,8| 12") << "nothing is lost";
    EXPECT_TRUE(drawn.CommaShift);
    EXPECT_TRUE(drawn.Exercise.Score.Scorable);
}

TEST(DivisionSolution, OverflowsWhenTheDivisorNeedsMoreThan32Bits)
{
    DrawnDivision drawn(whole(2), 84, 4);
    for (const char* tooLong : { "2147483648", "-2147483649" }) {
        ASSERT_TRUE(drawn.Exercise.EnterDivisor(tooLong));
        EXPECT_EQ(KindThrownBy([&] { drawn.Exercise.ShowDivisionSolution(); }), RunTimeError::Kind::Overflow);
    }
    for (const char* longest : { "2147483647", "-2147483648" }) {
        ASSERT_TRUE(drawn.Exercise.EnterDivisor(longest));
        EXPECT_EQ(drawn.Exercise.ShowDivisionSolution(), "0");
    }
}

// ------------------------------------------------------------------------------------------------------------ oracle

// The number that the last row of a working is; the dividend when there is no row.
int lastRemainderOf(const WorkedDivision& worked, int dividend)
{
    if (worked.Lines.empty()) {
        return dividend;
    }
    std::string row;
    for (const WorkedLine& line : worked.Lines) {
        row = line.Row == worked.Lines.back().Row ? row + line.Text : std::string();
    }
    return std::stoi(row);
}

// Quotient and remainder by integer division of the processor.
TEST(DivisionSolution, IsRightForEveryDividendOfFourDigitsAndEveryDivisorOfTwo)
{
    for (int dividend = 1; dividend <= 9999; ++dividend) {
        const std::string digits = std::to_string(dividend);
        DivisionTask task { digits + " ", 1, static_cast<int>(digits.size()), 0, 0, dividend % 2 == 0 };
        for (int divisor = 1; divisor <= 99; ++divisor) {
            task.Divisor = divisor;
            const WorkedDivision worked = WorkOut(task);
            ASSERT_EQ(worked.Quotient, std::to_string(dividend / divisor)) << dividend << " / " << divisor;
            ASSERT_EQ(lastRemainderOf(worked, dividend), dividend % divisor) << dividend << " / " << divisor;
        }
    }
}

} // namespace

} // namespace numbrela

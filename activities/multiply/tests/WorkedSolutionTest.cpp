#include "activities/multiply/core/Multiplication.h"

#include "tests/support/Schoolbook.h"
#include "tests/support/ScriptedRandom.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace numbrela {

namespace {

using namespace numbrela::testing;

Multiplication::WorkedSolution solutionOf(std::string_view factor1, std::string_view factor2, bool hideZeros = false)
{
    ScriptedRandom random {};
    Multiplication exercise(random);
    EXPECT_TRUE(exercise.EnterFactor1(factor1).Accepted);
    EXPECT_TRUE(exercise.EnterFactor2(factor2).Accepted);
    exercise.HideZeros = hideZeros;
    Multiplication::WorkedSolution solution = exercise.ShowSolution();
    EXPECT_FALSE(exercise.Score.Scorable);
    EXPECT_EQ(exercise.Score.Line(), "Ejercicios:  0; Errores:  0");
    return solution;
}

TEST(WorkedSolution, WritesARowForEachDigitOneColumnFurtherLeftEachTime)
{
    const struct {
        const char* Factor1;
        const char* Factor2;
        const char* Result;
        std::vector<std::string> Rows;
        std::vector<std::string> RowsWithoutZeros;
    } cases[] = {
        { "7", "123", "861", { "21", "14 ", "7  " }, { "21", "14 ", "7  " } },
        { "7,3", "4,6", "33,58", { "438", "292 " }, { "438" } },
        { "7", "8", "56", { "56" }, { "56" } },
        { "7,5", "8", "60,0", { "600" }, { "600" } },
        { "0,5", "0,5", "0,25", { "25", "0 " }, { "25" } },
        { "0,05", "3", "0,15", { "15" }, { "15" } },
        { "12", "0", "0", { "0" }, {} },
        // The comma counts as a zero, and left of it the digit one place to the right decides.
        { "7", "12,05", "84,35", { "35", "0 ", "14  ", "7   " }, { "35", "7   " } },
        { "7", "10,5", "73,5", { "35", "0 ", "7  " }, { "35" } },
        { "7", "105", "735", { "35", "0 ", "7  " }, { "35", "7  " } },
        { "7", "100,5", "703,5", { "35", "0 ", "0  ", "7   " }, { "35" } },
        { "7", "0,05", "0,35", { "35", "0 ", "0  " }, { "35" } },
        { "7", "23,4", "163,8", { "28", "21 ", "14  " }, { "28", "14  " } },
        { "7", "30,4", "212,8", { "28", "0 ", "21  " }, { "28" } },
        { "7", "3400", "23.800", { "0", "0 ", "28  ", "21   " }, { "28  ", "21   " } },
        { "1234,5", "100", "123.450,0", { "0", "0 ", "12345  " }, { "12345  " } },
        // A sign counts as a digit and is worth nothing.
        { "-7", "12", "-84", { "-14", "-7 " }, { "-14", "-7 " } },
        { "7", "-12", "-84", { "14", "7 ", "0  " }, { "14", "7 " } },
        { "-7", "-12", "84", { "-14", "-7 ", "0  " }, { "-14", "-7 " } },
    };
    for (const auto& [factor1, factor2, result, rows, rowsWithoutZeros] : cases) {
        SCOPED_TRACE(std::string(factor1) + " x " + factor2);
        EXPECT_EQ(solutionOf(factor1, factor2).Result, result);
        EXPECT_EQ(solutionOf(factor1, factor2).Rows, rows);
        EXPECT_EQ(solutionOf(factor1, factor2, true).Result, result);
        EXPECT_EQ(solutionOf(factor1, factor2, true).Rows, rowsWithoutZeros);
    }
}

TEST(WorkedSolution, KeepsAllDigitsOfTheLongestFactors)
{
    const auto solution = solutionOf("9999999999,99999", "9999999999,99999");
    EXPECT_EQ(solution.Result, "99.999.999.999.999.800.000,0000000001");
    ASSERT_EQ(solution.Rows.size(), 15U);
    EXPECT_EQ(solution.Rows.front(), "8999999999999991");
    EXPECT_EQ(solution.Rows.back(), "8999999999999991" + std::string(14, ' '));
}

// The rows for factors without comma, from the top.
std::vector<std::string> rowsOnPaper(Whole factor1, const std::string& digits2)
{
    std::vector<std::string> rows;
    for (auto digit = digits2.rbegin(); digit != digits2.rend(); ++digit) {
        rows.push_back(DigitsOf(factor1 * (*digit - '0')) + std::string(rows.size(), ' '));
    }
    return rows;
}

TEST(WorkedSolution, IsTheSchoolbooksForEveryPairOfFactorsUpToThreeDigits)
{
    ScriptedRandom random {};
    Multiplication exercise(random);
    exercise.EnterFactor1("0");
    for (int number1 = 0; number1 < 1000; ++number1) {
        exercise.Factor1 = number1;
        for (int number2 = 0; number2 < 1000; ++number2) {
            const std::string digits2 = std::to_string(number2);
            exercise.Factor2 = number2;
            exercise.Digits2 = static_cast<long long>(digits2.size());
            exercise.Decimals2 = 0;
            const Multiplication::WorkedSolution solution = exercise.ShowSolution();
            ASSERT_TRUE(solution.Rows == rowsOnPaper(number1, digits2)) << number1 << " x " << number2;
            ASSERT_EQ(Without(solution.Result, "."), std::to_string(number1 * number2)) << number1 << " x " << number2;
        }
    }
}

} // namespace

} // namespace numbrela

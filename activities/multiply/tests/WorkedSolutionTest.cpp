#include "activities/multiply/core/Multiplication.h"

#include "tests/support/ScriptedRandom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace numbrela {

namespace {

using numbrela::testing::ScriptedRandom;

Multiplication::WorkedSolution solutionOf(std::string_view factor1, std::string_view factor2, bool hideZeros = false)
{
    ScriptedRandom random {};
    Multiplication exercise(random);
    EXPECT_TRUE(exercise.EnterFactor1(factor1).Accepted);
    EXPECT_TRUE(exercise.EnterFactor2(factor2).Accepted);
    exercise.HideZeros = hideZeros;
    return exercise.ShowSolution();
}

struct SolutionCase {
    const char* Factor1;
    const char* Factor2;
    const char* Result;
    std::vector<std::string> Rows;
    std::vector<std::string> RowsWithoutZeros;
};

TEST(WorkedSolution, WritesARowForEachDigitOneColumnFurtherLeftEachTime)
{
    const SolutionCase cases[] = {
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

TEST(WorkedSolution, AShownSolutionIsNotScored)
{
    ScriptedRandom random {};
    Multiplication exercise(random);
    exercise.EnterFactor1("7");
    exercise.EnterFactor2("8");
    exercise.ShowSolution();
    EXPECT_FALSE(exercise.Score.Scorable);
    EXPECT_EQ(exercise.Score.Line(), "Ejercicios:  0; Errores:  0");
}

// -------------------------------------------------------------------------------------------- schoolbook on the text
//
// Nothing here multiplies. A row is the first factor added up, once for each unit of its digit; the product is the sum
// of the rows as they stand under each other. Numbers are texts of digits, added column by column.

std::string sum(const std::string& number1, const std::string& number2)
{
    const std::size_t width = std::max(number1.size(), number2.size()) + 1;
    std::string upper = std::string(width - number1.size(), '0') + number1;
    const std::string lower = std::string(width - number2.size(), '0') + number2;
    int carry = 0;
    for (std::size_t column = width; column-- > 0;) {
        const int total = (upper[column] - '0') + (lower[column] - '0') + carry;
        upper[column] = static_cast<char>('0' + total % 10);
        carry = total / 10;
    }
    upper.erase(0, std::min(upper.find_first_not_of('0'), upper.size() - 1));
    return upper;
}

// The number taken 0 to 9 times.
using Multiples = std::array<std::string, 10>;

Multiples multiplesOf(const std::string& number)
{
    Multiples multiples { "0" };
    for (std::size_t times = 1; times < multiples.size(); ++times) {
        multiples.at(times) = sum(multiples.at(times - 1), number);
    }
    return multiples;
}

std::string without(std::string text, char character)
{
    std::erase(text, character);
    return text;
}

// The rows for a second factor of these digits, from the top.
std::vector<std::string> schoolbookRows(const Multiples& multiplesOfFactor1, const std::string& digits2)
{
    std::vector<std::string> rows;
    for (auto digit = digits2.rbegin(); digit != digits2.rend(); ++digit) {
        rows.push_back(multiplesOfFactor1.at(static_cast<std::size_t>(*digit - '0')) + std::string(rows.size(), ' '));
    }
    return rows;
}

std::string schoolbookTotal(const std::vector<std::string>& rows)
{
    std::string total = "0";
    for (std::string row : rows) {
        std::replace(row.begin(), row.end(), ' ', '0');
        total = sum(total, row);
    }
    return total;
}

TEST(WorkedSolution, IsTheSchoolbooksForEveryPairOfFactorsUpToThreeDigits)
{
    ScriptedRandom random {};
    Multiplication exercise(random);
    exercise.EnterFactor1("0");
    for (int number1 = 0; number1 < 1000; ++number1) {
        exercise.Factor1 = number1;
        const Multiples multiples = multiplesOf(std::to_string(number1));
        for (int number2 = 0; number2 < 1000; ++number2) {
            const std::string digits2 = std::to_string(number2);
            exercise.Factor2 = number2;
            exercise.Digits2 = static_cast<long long>(digits2.size());
            exercise.Decimals2 = 0;
            const Multiplication::WorkedSolution solution = exercise.ShowSolution();
            const std::vector<std::string> rows = schoolbookRows(multiples, digits2);
            ASSERT_TRUE(solution.Rows == rows) << number1 << " x " << number2;
            ASSERT_EQ(without(solution.Result, '.'), schoolbookTotal(rows)) << number1 << " x " << number2;
        }
    }
}

// A factor with so many digits, the first and the last of them not 0, and a comma before so many of them.
std::string drawFactor(std::mt19937& chance, std::size_t digits, std::size_t decimals)
{
    std::string text;
    while (text.size() < digits + decimals) {
        text += static_cast<char>('0' + chance() % 10);
    }
    text.front() = static_cast<char>('1' + chance() % 9);
    text.back() = static_cast<char>('1' + chance() % 9);
    if (decimals > 0) {
        text.insert(digits, ",");
    }
    return text;
}

std::size_t decimalsOf(const std::string& text)
{
    const std::size_t comma = text.find(',');
    return comma == std::string::npos ? 0 : text.size() - comma - 1;
}

void expectSchoolbook(const std::string& factor1, const std::string& factor2)
{
    const auto solution = solutionOf(factor1, factor2);
    const auto rows = schoolbookRows(multiplesOf(without(factor1, ',')), without(factor2, ','));
    ASSERT_EQ(solution.Rows, rows) << factor1 << " x " << factor2;
    const std::string result = without(solution.Result, '.');
    ASSERT_EQ(decimalsOf(result), decimalsOf(factor1) + decimalsOf(factor2)) << factor1 << " x " << factor2;
    ASSERT_EQ(without(result, ','), schoolbookTotal(rows)) << factor1 << " x " << factor2;
    for (std::size_t fromTheRight = std::min(solution.Result.find(','), solution.Result.size()); fromTheRight > 4;) {
        fromTheRight -= 4;
        ASSERT_EQ(solution.Result[fromTheRight], '.') << solution.Result;
    }
}

TEST(WorkedSolution, IsTheSchoolbooksForFactorsUpToFifteenDigits)
{
    std::mt19937 chance(1905);
    for (int i = 0; i < 20000; ++i) {
        const std::string factor1 = drawFactor(chance, 1 + chance() % 10, chance() % 6);
        const std::string factor2 = drawFactor(chance, 1 + chance() % 10, chance() % 6);
        ASSERT_NO_FATAL_FAILURE(expectSchoolbook(factor1, factor2));
    }
}

// As long as a double holds every digit, the solution is the number that the answer is compared with.
TEST(WorkedSolution, IsTheProductRoundedToItsDecimals)
{
    std::mt19937 chance(7);
    for (int i = 0; i < 20000; ++i) {
        const std::size_t digits1 = 1 + chance() % 4;
        const std::size_t digits2 = 1 + chance() % 4;
        const std::string factor1 = drawFactor(chance, digits1, chance() % (8 - digits1));
        const std::string factor2 = drawFactor(chance, digits2, chance() % (8 - digits2));
        ScriptedRandom random {};
        Multiplication exercise(random);
        exercise.EnterFactor1(factor1);
        exercise.EnterFactor2(factor2);
        std::array<char, 64> buffer {};
        const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), exercise.Product,
            std::chars_format::fixed, exercise.Decimals1 + exercise.Decimals2);
        std::string rounded(buffer.data(), written.ptr);
        std::replace(rounded.begin(), rounded.end(), '.', ',');
        ASSERT_EQ(without(exercise.ShowSolution().Result, '.'), rounded) << factor1 << " x " << factor2;
    }
}

// The rows that are shown with hidden zeros, computed in another way: for each character of the factor with its comma
// that is neither a zero nor the comma, the digit that is as far from the right in the factor without comma.
TEST(WorkedSolution, HidesTheRowsWhoseCharacterInTheFactorWithCommaIsNoDigitAboveZero)
{
    std::mt19937 chance(3);
    for (int i = 0; i < 5000; ++i) {
        const std::string factor1 = drawFactor(chance, 1 + chance() % 4, chance() % 3);
        std::string factor2 = drawFactor(chance, 1 + chance() % 5, chance() % 4);
        const std::string reversed(factor2.rbegin(), factor2.rend());
        const auto allRows = solutionOf(factor1, factor2).Rows;
        std::vector<std::string> expected;
        for (std::size_t place = 0; place < allRows.size(); ++place) {
            if (reversed[place] >= '1' && reversed[place] <= '9') {
                expected.push_back(allRows[place]);
            }
        }
        ASSERT_EQ(solutionOf(factor1, factor2, true).Rows, expected) << factor1 << " x " << factor2;
    }
}

} // namespace

} // namespace numbrela

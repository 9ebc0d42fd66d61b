#include "activities/divide/tests/DivisionSupport.h"

#include <gtest/gtest.h>

namespace numbrela {

namespace {

using namespace testing;

struct CheckCase {
    const char* What;
    double DividendDigits; // without its comma
    double Divisor;
    std::vector<std::string> Rows; // from row 1 on
    const char* Quotient;
    bool Right;
};

void expectChecks(DivisionOptions options, const std::vector<CheckCase>& cases)
{
    for (const auto& [what, dividendDigits, divisor, rows, quotient, right] : cases) {
        SCOPED_TRACE(what);
        DrawnDivision drawn(options, dividendDigits, divisor);
        for (std::size_t i = 0; i < rows.size(); ++i) {
            typeRow(drawn.Exercise.Grid, static_cast<int>(i) + 1, rows[i]);
        }
        const Verdict verdict = drawn.Exercise.Judge(quotient).value();
        EXPECT_EQ(verdict.Right, right);
        EXPECT_EQ(verdict.Text, right ? "resultado correcto" : "Resultado incorrecto");
    }
}

constexpr DivisionOptions wholeNumbers { 2, 0, 1, 0 };
constexpr DivisionOptions twoDecimals { 2, 2, 1, 0 };

TEST(DivisionCheck, IsRightWhenQuotientAndLastRemainderGiveTheDividend)
{
    expectChecks(wholeNumbers,
        {
            { "the whole working", 97, 6, { " 37", "  1" }, "16", true },
            { "the last remainder alone", 97, 6, { "  1" }, "16", true },
            { "the layout does not matter", 97, 6, { "1" }, "16", true },
            { "nor does a larger remainder", 97, 6, { "7" }, "15", true },
            { "another remainder", 97, 6, { " 37", "  2" }, "16", false },
            { "another quotient", 97, 6, { " 37", "  1" }, "17", false },
            { "no quotient", 97, 6, { " 37", "  1" }, "", false },
            { "letters for a quotient", 97, 6, { " 37", "  1" }, "abc", false },
            { "no remainder", 84, 4, { " 04", "  0" }, "21", true },
            { "with its subtractions", 97, 6, { "-6", " 37", "-36", "  1" }, "16", true },
            { "the decimals of the exact quotient", 90, 8, { "0" }, "11,25", true },
            { "an endless quotient", 97, 6, { "0" }, "1e999", false },
        });
}

TEST(DivisionCheck, ReadsTheRemainderInUnitsOfTheLastDecimal)
{
    expectChecks(twoDecimals,
        {
            { "two decimals", 9725, 4, { " 17", "  12", "   05", "     1" }, "24,31", true },
            { "the remainder of the integer part is too large", 9725, 4, { " 17", "  1" }, "24", false },
            { "the quotient without decimals, and all the rest", 9725, 4, { " 125" }, "24", true },
        });
    expectChecks({ 9, 5, 1, 0 },
        {
            { "five decimals", 12345678912345, 7, { "6" }, "17636684,16049", false },
            { "five decimals, right", 12345678912345, 7, { "2" }, "17636684,16049", true },
        });
}

TEST(DivisionCheck, ReadsRowsUpToTheFirstBlankOneAndAnUntouchedGridAsTheDividendsIntegerDigits)
{
    expectChecks(wholeNumbers,
        {
            { "the last row before a blank one", 97, 6, { "  1", "", "5" }, "16", true },
            { "not what stands below", 97, 6, { "  5", "", "1" }, "16", false },
            { "the first row is blank: the dividend is the remainder", 97, 6, { "", "1" }, "0", true },
            { "the first row is blank", 97, 6, { "", "1" }, "16", false },
            { "a whole dividend is its own remainder", 97, 6, {}, "0", true },
            { "and so with no quotient", 97, 6, {}, "", true },
            { "a quotient alone is not enough", 84, 4, {}, "21", false },
        });
    expectChecks(twoDecimals,
        {
            { "a decimal dividend counts in hundredths", 9725, 4, {}, "24,07", true }, // 96,28 + 0,97
            { "a decimal dividend is not its own remainder", 9725, 4, {}, "0", false },
        });
}

TEST(DivisionCheck, TakesADifferenceOfLessThanATenthOfTheLastPlace)
{
    expectChecks(wholeNumbers,
        {
            { "a tenth too much", 84, 2, { "0" }, "42,05", false },
            { "a tenth too little", 84, 2, { "0" }, "41,95", false },
            { "a little less than a tenth too much", 84, 2, { "0" }, "42,0499", true },
            { "a little less than a tenth too little", 84, 2, { "0" }, "41,9501", true },
        });
    expectChecks(twoDecimals,
        {
            { "a thousandth too much", 8402, 2, { "0" }, "42,0105", false },
            { "a thousandth too little", 8402, 2, { "0" }, "42,0095", false },
            { "less than a thousandth too much", 8402, 2, { "0" }, "42,0104", true },
            { "less than a thousandth too little", 8402, 2, { "0" }, "42,0096", true },
        });
}

TEST(DivisionCheck, JudgingCountsNothing)
{
    DrawnDivision drawn({ 2, 0, 1, 0 }, 84, 4);
    typeRow(drawn.Exercise.Grid, 1, "0");
    EXPECT_FALSE(drawn.Exercise.Judge("22")->Right);
    EXPECT_TRUE(drawn.Exercise.Judge("21")->Right);
    EXPECT_EQ(drawn.Exercise.Score.Line(), "Ejercicios:  0; Errores:  0");
    EXPECT_TRUE(drawn.Exercise.Score.Scorable);
}

TEST(DivisionCheck, IsNotOfferedForAQuotientWithDecimals)
{
    for (int decimals = 1; decimals <= 5; ++decimals) {
        DrawnDivision drawn({ 2, 0, 1, decimals }, 84, 4);
        typeRow(drawn.Exercise.Grid, 1, "0");
        EXPECT_EQ(drawn.Exercise.Judge("21"), std::nullopt) << decimals;
    }
}

} // namespace

} // namespace numbrela

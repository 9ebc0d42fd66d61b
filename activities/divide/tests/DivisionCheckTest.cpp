#include "activities/divide/tests/DivisionSupport.h"

#include "common/core/RunTimeError.h"
#include "tests/support/KindThrownBy.h"

#include <gtest/gtest.h>

namespace numbrela {

namespace {

using namespace testing;

struct CheckCase {
    const char* What;
    DivisionOptions Options;
    double DividendDigits;
    double Divisor;
    std::vector<std::string> Rows; // from row 1 on
    const char* Quotient;
    bool Right;
};

void expectChecks(const std::vector<CheckCase>& cases)
{
    for (const CheckCase& check : cases) {
        SCOPED_TRACE(check.What);
        DrawnDivision drawn(check.Options, check.DividendDigits, check.Divisor);
        for (std::size_t i = 0; i < check.Rows.size(); ++i) {
            typeRow(drawn.Exercise.Grid, static_cast<int>(i) + 1, check.Rows[i]);
        }
        const Verdict verdict = drawn.Exercise.Judge(check.Quotient).value();
        EXPECT_EQ(verdict.Right, check.Right);
        EXPECT_EQ(verdict.Text, check.Right ? "resultado correcto" : "Resultado incorrecto");
    }
}

TEST(DivisionCheck, IsRightWhenQuotientAndLastRemainderGiveTheDividend)
{
    expectChecks({
        { "the whole working", { 2, 0, 1, 0 }, 97, 6, { " 37", "  1" }, "16", true },
        { "the last remainder alone", { 2, 0, 1, 0 }, 97, 6, { "  1" }, "16", true },
        { "the layout does not matter", { 2, 0, 1, 0 }, 97, 6, { "1" }, "16", true },
        { "nor does a larger remainder", { 2, 0, 1, 0 }, 97, 6, { "7" }, "15", true },
        { "another remainder", { 2, 0, 1, 0 }, 97, 6, { " 37", "  2" }, "16", false },
        { "another quotient", { 2, 0, 1, 0 }, 97, 6, { " 37", "  1" }, "17", false },
        { "no quotient", { 2, 0, 1, 0 }, 97, 6, { " 37", "  1" }, "", false },
        { "letters for a quotient", { 2, 0, 1, 0 }, 97, 6, { " 37", "  1" }, "abc", false },
        { "no remainder", { 2, 0, 1, 0 }, 84, 4, { " 04", "  0" }, "21", true },
        { "with its subtractions", { 2, 0, 1, 0 }, 97, 6, { "-6", " 37", "-36", "  1" }, "16", true },
        { "the decimals of the exact quotient", { 2, 0, 1, 0 }, 90, 8, { "0" }, "11,25", true },
        { "an endless quotient", { 2, 0, 1, 0 }, 97, 6, { "0" }, "1e999", false },
    });
}

TEST(DivisionCheck, ReadsTheRemainderInUnitsOfTheLastDecimal)
{
    expectChecks({
        { "two decimals", { 2, 2, 1, 0 }, 9725, 4, { " 17", "  12", "   05", "     1" }, "24,31", true },
        { "the remainder of the integer part is too large", { 2, 2, 1, 0 }, 9725, 4, { " 17", "  1" }, "24", false },
        { "the quotient without decimals, and all the rest", { 2, 2, 1, 0 }, 9725, 4, { " 125" }, "24", true },
        { "five decimals", { 9, 5, 1, 0 }, 12345678912345, 7, { "6" }, "17636684,16049", false },
        { "five decimals, right", { 9, 5, 1, 0 }, 12345678912345, 7, { "2" }, "17636684,16049", true },
    });
}

TEST(DivisionCheck, ReadsRowsUpToTheFirstBlankOne)
{
    expectChecks({
        { "the last row before a blank one", { 2, 0, 1, 0 }, 97, 6, { "  1", "", "5" }, "16", true },
        { "not what stands below", { 2, 0, 1, 0 }, 97, 6, { "  5", "", "1" }, "16", false },
        { "the first row is blank: the dividend is the remainder", { 2, 0, 1, 0 }, 97, 6, { "", "1" }, "0", true },
        { "the first row is blank", { 2, 0, 1, 0 }, 97, 6, { "", "1" }, "16", false },
    });
}

TEST(DivisionCheck, ReadsDigitsWithBlanksBetweenThemALeadingMinusAndNothingElse)
{
    expectChecks({
        { "blanks between digits", { 2, 0, 1, 0 }, 97, 6, { "  1 3" }, "14", true },
        { "a minus sign", { 2, 0, 1, 0 }, 97, 6, { "-5" }, "17", true },
        { "a minus sign apart", { 2, 0, 1, 0 }, 97, 6, { " - 5" }, "17", true },
        { "a comma ends it", { 2, 0, 1, 0 }, 97, 6, { "1,5" }, "16", true },
        { "a letter ends it", { 2, 0, 1, 0 }, 97, 6, { "1x5" }, "16", true },
        { "a letter before it", { 2, 0, 1, 0 }, 96, 6, { "x5" }, "16", true },
        { "two minus signs", { 2, 0, 1, 0 }, 96, 6, { "--5" }, "16", true },
        { "a plus sign ends it too", { 2, 0, 1, 0 }, 96, 6, { "+5" }, "16", true },
    });
}

TEST(DivisionCheck, ReadsAnUntouchedGridAsTheDividendsIntegerDigits)
{
    expectChecks({
        { "a whole dividend is its own remainder", { 2, 0, 1, 0 }, 97, 6, {}, "0", true },
        { "and so with no quotient", { 2, 0, 1, 0 }, 97, 6, {}, "", true },
        { "a quotient alone is not enough", { 2, 0, 1, 0 }, 84, 4, {}, "21", false },
        { "a decimal dividend counts in hundredths", { 2, 2, 1, 0 }, 9725, 4, {}, "24,07", true }, // 96,28 + 0,97
        { "a decimal dividend is not its own remainder", { 2, 2, 1, 0 }, 9725, 4, {}, "0", false },
    });
}

TEST(DivisionCheck, TakesADifferenceOfLessThanATenthOfTheLastPlace)
{
    expectChecks({
        { "a tenth too much", { 2, 0, 1, 0 }, 84, 2, { "0" }, "42,05", false },
        { "a tenth too little", { 2, 0, 1, 0 }, 84, 2, { "0" }, "41,95", false },
        { "a little less than a tenth too much", { 2, 0, 1, 0 }, 84, 2, { "0" }, "42,0499", true },
        { "a little less than a tenth too little", { 2, 0, 1, 0 }, 84, 2, { "0" }, "41,9501", true },
        { "a tenth of a small one too little", { 1, 0, 1, 0 }, 7, 2, { "0" }, "3,45", false },
        { "a thousandth too much", { 2, 2, 1, 0 }, 8402, 2, { "0" }, "42,0105", false },
        { "a thousandth too little", { 2, 2, 1, 0 }, 8402, 2, { "0" }, "42,0095", false },
        { "less than a thousandth too much", { 2, 2, 1, 0 }, 8402, 2, { "0" }, "42,0104", true },
        { "less than a thousandth too little", { 2, 2, 1, 0 }, 8402, 2, { "0" }, "42,0096", true },
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

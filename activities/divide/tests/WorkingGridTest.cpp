#include "activities/divide/core/WorkingGrid.h"

#include "activities/divide/tests/DivisionSupport.h"

#include <gtest/gtest.h>

namespace numbrela {

namespace {

using namespace testing;

using Rows = std::vector<std::string>;

// A grid of eight columns with a dividend on it; the comma, if any, is in column 3.
class WorkingGridTest : public ::testing::Test {
protected:
    WorkingGridTest()
        : Grid(commaShift_)
    {
        Grid.LineWidth = 8;
        Grid.CommaColumn = 3;
        Grid.Begin("97,25");
    }

    void withoutComma()
    {
        Grid.CommaColumn = -1;
        Grid.Begin("97");
    }

    bool commaShift_ = false;
    WorkingGrid Grid;
};

constexpr char16_t backspace = 8;

TEST_F(WorkingGridTest, BeginsWithTheCaretBelowTheFirstDigitOfTheDividend)
{
    for (const char* dividend : { "97,25", "8", "" }) {
        Grid.MoveCaretTo(100);
        Grid.Begin(dividend);
        EXPECT_EQ(Grid.Caret, 9) << dividend;
    }
    Grid.CommaColumn = 2;
    Grid.Begin("-97");
    EXPECT_EQ(Grid.Caret, 11) << "the digit stands above the comma's column, which takes no writing";
    Grid.CommaColumn = -1;
    Grid.Begin("-97");
    EXPECT_EQ(Grid.Caret, 10) << "the sign is no digit";
    Grid.TypeCharacter(u'5');
    EXPECT_EQ(rowsOf(Grid), (Rows { " -97", "  5" }));
}

TEST_F(WorkingGridTest, BeginsWithABlankTheDividendAndTwoThousandBlanksCutIntoRowsOfItsWidth)
{
    EXPECT_EQ(Grid.Text, u" 97,25" + std::u16string(2000, u' '));
    EXPECT_EQ(Grid.Row(0), u" 97,25  ");
    EXPECT_EQ(Grid.DividendCells(), u"97,25");
    EXPECT_EQ(Grid.Row(1), u"        ");
    EXPECT_EQ(Grid.Row(250), u"      ") << "2006 cells end with six of them";
    EXPECT_EQ(Grid.Row(251), u"");
    EXPECT_EQ(Grid.Row(5000), u"");
    EXPECT_EQ(Grid.WrittenRows(), 1);
    typeRow(Grid, 4, "     1");
    EXPECT_EQ(Grid.WrittenRows(), 5);
    typeRow(Grid, 4, "       ");
    EXPECT_EQ(Grid.WrittenRows(), 1);
    Grid.Begin("");
    EXPECT_EQ(Grid.WrittenRows(), 0);
}

// ------------------------------------------------------------------------------------------------------------ arrows

TEST_F(WorkingGridTest, ArrowsMoveByACellAndOverTheCommaOfEveryRow)
{
    for (const int comma : { -1, 3, 8 }) { // a row of eight cells has no column 8
        Grid.CommaColumn = comma;
        for (int cell = 1; cell < 2005; ++cell) {
            Grid.MoveCaretTo(cell);
            Grid.StepRight();
            ASSERT_EQ(Grid.Caret, (cell + 1) % 8 == comma ? cell + 2 : cell + 1) << cell << ", comma " << comma;
            Grid.MoveCaretTo(cell);
            Grid.StepLeft();
            ASSERT_EQ(Grid.Caret, (cell - 1) % 8 == comma ? cell - 2 : cell - 1) << cell << ", comma " << comma;
        }
    }
}

TEST_F(WorkingGridTest, TheCaretStaysWithinTheText)
{
    Grid.MoveCaretTo(0);
    Grid.StepLeft();
    EXPECT_EQ(Grid.Caret, 0);
    Grid.MoveCaretTo(2005);
    for (int times = 0; times < 2; ++times) {
        Grid.StepRight();
        EXPECT_EQ(Grid.Caret, 2006);
    }
    Grid.MoveCaretTo(-5);
    EXPECT_EQ(Grid.Caret, 0);
    Grid.MoveCaretTo(100000);
    EXPECT_EQ(Grid.Caret, 2006);
    Grid.MoveCaretTo(5);
    const std::pair<int, int> moves[]
        = { { -1, 5 }, { 1, 13 }, { 19, 165 }, { -1, 157 }, { 1000, 2005 }, { -1000, 5 } };
    for (const auto& [rows, caret] : moves) {
        Grid.MoveCaretByRows(rows);
        EXPECT_EQ(Grid.Caret, caret) << "in its column, after " << rows;
    }
}

// ------------------------------------------------------------------------------------------------------------ typing

TEST_F(WorkingGridTest, WritesAnyCharacterOverWhatStandsThereAndABlankForBackspaceAndPoint)
{
    for (const char16_t character : std::u16string(u"7-,xñ÷ .\b")) {
        typeRow(Grid, 1, "12");
        EXPECT_EQ(Grid.Caret, 10);
        Grid.MoveCaretTo(8);
        Grid.TypeCharacter(character);
        const bool isWritten = character != u'.' && character != backspace;
        EXPECT_EQ(Grid.Row(1), std::u16string(1, isWritten ? character : u' ') + u"2      ") << int { character };
        EXPECT_EQ(Grid.Caret, 9);
        EXPECT_EQ(Grid.Text.size(), 2006U);
    }
}

TEST_F(WorkingGridTest, StepsOverTheCommaAsItWrites)
{
    typeRow(Grid, 1, "1234567");
    EXPECT_EQ(rowText(Grid, 1), "123 4567");
    EXPECT_EQ(Grid.Caret, 16);
    typeRow(Grid, 2, "123");
    EXPECT_EQ(Grid.Caret, 20) << "it moves on at once, not with the next character";
    Grid.MoveCaretTo(27);
    Grid.TypeCharacter(u'5');
    EXPECT_EQ(rowText(Grid, 3), "    5") << "right of the comma, on which the caret was put";
    EXPECT_EQ(Grid.Caret, 29);
    withoutComma();
    typeRow(Grid, 1, "12345678");
    EXPECT_EQ(rowText(Grid, 1), "12345678");
}

TEST_F(WorkingGridTest, TheDividendsRowTakesNoWriting)
{
    for (int cell = 0; cell < 8; ++cell) {
        for (const char16_t character : { u'5', u' ', u'.', backspace }) {
            Grid.MoveCaretTo(cell);
            Grid.TypeCharacter(character);
            EXPECT_EQ(Grid.Caret, cell);
        }
    }
    EXPECT_EQ(Grid.Text, u" 97,25" + std::u16string(2000, u' '));
}

TEST_F(WorkingGridTest, TheEndOfTheTextTakesNoWritingNorDoesACommasColumnThere)
{
    for (const int comma : { 5, -1 }) { // column 5 is that of the last of the 2006 cells
        Grid.CommaColumn = comma;
        Grid.MoveCaretTo(2005);
        for (int times = 0; times < 5; ++times) {
            Grid.TypeCharacter(u'8');
            EXPECT_EQ(Grid.Caret, 2006);
        }
        EXPECT_EQ(Grid.Text, u" 97,25" + std::u16string(1999, u' ') + (comma == 5 ? u' ' : u'8'));
    }
}

// ---------------------------------------------------------------------------------------------------------- row value

TEST_F(WorkingGridTest, ReadsTheNumberThatARowBeginsWith)
{
    withoutComma();
    const std::pair<const char*, double> cases[] = { { "15", 15 }, { "  1 5", 15 }, { "   1 5 ", 15 },
        { "      15", 15 }, { "007", 7 }, { "0", 0 }, { "-7", -7 }, { "  - 7", -7 }, { "-1 2 3", -123 }, { "--7", 0 },
        { "7-", 7 }, { "7-2", 7 }, { "3,14", 3 }, { ",5", 0 }, { "1e5", 1 }, { "+5", 0 }, { "5+5", 5 }, { "12a34", 12 },
        { "a12", 0 }, { "-a1", 0 }, { "x", 0 }, { "", 0 }, { "99999999", 99999999 } };
    for (const auto& [text, value] : cases) {
        Grid.Begin("97");
        typeRow(Grid, 1, text);
        EXPECT_EQ(Grid.RowValue(1), value) << text;
    }
    EXPECT_EQ(Grid.RowValue(5000), 0) << "below the paper";
    Grid.Begin("97,25");
    EXPECT_EQ(Grid.RowValue(0), 97);
    typeRow(Grid, 1, "1");
    Grid.TypeCharacter(u'\u0661'); // an Arabic-Indic digit
    EXPECT_EQ(Grid.RowValue(1), 1);
}

// --------------------------------------------------------------------------------------------------- lines of working

TEST_F(WorkingGridTest, ALineEndsInItsColumnKeepsWhatStandsBeforeItAndClearsWhatStandsBehind)
{
    withoutComma();
    Grid.WriteWorkingLine("37", 2, 1);
    Grid.WriteWorkingLine("-36", 2, 2);
    Grid.WriteWorkingLine("1", 7, 3);
    EXPECT_EQ(rowsOf(Grid), (Rows { " 97", " 37", "-36", "       1" }));
    for (const int row : { 1, 2, 3 }) {
        typeRow(Grid, row, "12345678");
    }
    Grid.WriteWorkingLine("99", 4, 2);
    EXPECT_EQ(rowsOf(Grid), (Rows { " 97", "12345678", "12399" }));
    EXPECT_EQ(Grid.Text.size(), 8U + 8U + 5U + 2000U);
    Grid.WriteWorkingLine("", 4, 1);
    EXPECT_EQ(rowsOf(Grid), (Rows { " 97", "12345" })) << "so does an empty one";
}

TEST_F(WorkingGridTest, TheShiftBeginsWhereALineReachesTheCommaAndEndsWhereOneBeginsLeftOfIt)
{
    const struct {
        const char* What;
        bool Shift;
        const char* Line;
        int Column;
        const char* Row;
        bool ShiftAfterwards;
    } cases[] = {
        { "left of the comma", true, "17", 2, " 17", false },
        { "parted at the comma", false, "12", 3, "  1 2", true },
        { "parted at the comma, longer", true, "1234", 5, "  1 234", true },
        { "on the comma it moves right of it", false, "12", 4, "    12", true },
        { "and by the shift only once", true, "34", 4, "    34", true },
        { "right of the comma", false, "1", 5, "     1", false },
        { "right of the comma, shifted", true, "1", 5, "      1", true },
        { "a blank on the comma", false, "1 ", 3, "  1", false },
    };
    for (const auto& [what, shift, line, column, row, shiftAfterwards] : cases) {
        Grid.Begin("97,25");
        commaShift_ = shift;
        Grid.WriteWorkingLine(line, column, 1);
        EXPECT_EQ(rowText(Grid, 1), row) << what;
        EXPECT_EQ(commaShift_, shiftAfterwards) << what;
    }
    WorkingGrid next(commaShift_ = true); // grids of one program share the shift
    next.LineWidth = 6;
    next.Begin("97");
    next.WriteWorkingLine("37", 2, 1);
    EXPECT_EQ(rowText(next, 1), "  37");
}

TEST_F(WorkingGridTest, APartedLineThatFillsItsRowWritesItsLastCellOverTheNext)
{
    for (const std::string& line : { std::string("123456"), std::string("1234567") }) { // 6 is written over 7
        Grid.Begin("97,25");
        Grid.WriteWorkingLine(line, static_cast<int>(line.size()) + 1, 1);
        EXPECT_EQ(Grid.Row(1), u"  1 2345") << line;
        EXPECT_EQ(rowText(Grid, 2), "6") << line;
        EXPECT_EQ(Grid.Text.size(), 8U + 2U + line.size() + 2000U) << "parting makes it no longer";
    }
}

// The search for a character on the comma starts where the line would begin without the shift: on the dividend's row
// that finds the comma itself.
TEST_F(WorkingGridTest, AShiftedLineTakesAlongWhatStandsOnTheComma)
{
    commaShift_ = true;
    Grid.WriteWorkingLine("0", 3, 0);
    EXPECT_EQ(rowText(Grid, 0), " 97 ,0");
    EXPECT_TRUE(commaShift_);
}

TEST_F(WorkingGridTest, WithoutACommaTheShiftLasts)
{
    withoutComma();
    commaShift_ = true;
    Grid.WriteWorkingLine("37", 2, 1);
    Grid.WriteWorkingLine("1", 1, 2);
    EXPECT_EQ(rowsOf(Grid), (Rows { " 97", "  37", "  1" }));
    EXPECT_TRUE(commaShift_);
}

// Nothing outside the text is read or written; the sanitizers would notice.
TEST_F(WorkingGridTest, TakesLinesThatItHasNoRoomFor)
{
    for (const int width : { 1, 5, 8, 198 }) {
        for (const int comma : { -1, 1, 3, 7, 197, 300 }) {
            for (const int column : { 0, 1, 7, 197, 500 }) {
                for (const int row : { 0, 1, 60, 5000 }) {
                    Grid.LineWidth = width;
                    Grid.CommaColumn = comma;
                    Grid.Begin("97");
                    Grid.WriteWorkingLine("123456789", column, row);
                    EXPECT_NE(Grid.Text.find(u'1'), std::u16string::npos);
                    EXPECT_GE(Grid.Text.size(), 2009U);
                    Grid.WriteWorkingLine("", column, row);
                    EXPECT_GE(Grid.Text.size(), 2000U);
                }
            }
        }
    }
}

} // namespace

} // namespace numbrela

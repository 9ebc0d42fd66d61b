#include "activities/divide/core/DivisionExercise.h"

#include "common/core/NumberText.h"
#include "common/core/RunTimeError.h"

#include "tests/fuzz/FuzzInput.h"
#include "tests/fuzz/TypedNumber.h"
#include "tests/support/KindThrownBy.h"
#include "tests/support/Schoolbook.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>

// What a pupil can do with a division, a byte for each act; the first byte seeds the draws.
//
//   O 2 2 1 0 1   options: item of the dividend's digits, its decimals, the divisor's digits, the quotient's decimals,
//                 and whether subtractions are shown; then a new division
//   N             new division
//   D..., V...    a dividend, a divisor typed, up to the end of the line
//   H...          "Hecho" with the quotient up to the end of the line
//   S, C          solution, clear
//   < > ^ _       the caret goes left, right, up, down
//   @ row column  the caret goes to a cell
//   anything else is typed into the grid
namespace numbrela::testing {

namespace {

constexpr int cellsBesideDigits = 4;
constexpr int mostDigits = 194; // that a row of the grid has room for

class DivisionRun {
public:
    explicit DivisionRun(FuzzInput input)
        : input_(input)
        , random_(input_.TakeByte())
    {
    }

    void Run()
    {
        generate();
        while (!input_.AtEnd()) {
            act(static_cast<char>(input_.TakeByte()));
            EXPECT_TRUE(grid().Caret >= 0 && grid().Caret <= end());
            EXPECT_TRUE(grid().LineWidth > cellsBesideDigits && grid().LineWidth <= mostDigits + cellsBesideDigits);
        }
    }

private:
    WorkingGrid& grid() { return exercise_.Grid; }
    int end() { return static_cast<int>(grid().Text.size()); }

    // Whether this is the grid's text, compared as bytes: libFuzzer watches every comparison of characters.
    bool stands(const std::u16string& text)
    {
        return text.size() == grid().Text.size()
            && std::memcmp(text.data(), grid().Text.data(), text.size() * sizeof(char16_t)) == 0;
    }

    bool isCommaCell(int cell) { return grid().CommaColumn > -1 && cell % grid().LineWidth == grid().CommaColumn; }

    void act(char byte)
    {
        static constexpr std::array<Act<DivisionRun>, 12> acts { {
            { 'O', [](auto& run) { run.chooseOptions(); } },
            { 'N', [](auto& run) { run.generate(); } },
            { 'D', [](auto& run) { run.enterDividend(run.input_.TakeLine()); } },
            { 'V', [](auto& run) { run.enterDivisor(run.input_.TakeLine()); } },
            { 'H', [](auto& run) { run.check(run.input_.TakeLine()); } },
            { 'S', [](auto& run) { run.solve(); } },
            { 'C', [](auto& run) { run.clear(); } },
            { '<', [](auto& run) { run.stepLeft(); } },
            { '>', [](auto& run) { run.stepRight(); } },
            { '^', [](auto& run) { run.moveByRow(-1); } },
            { '_', [](auto& run) { run.moveByRow(1); } },
            { '@', [](auto& run) { run.moveToCell(); } },
        } };
        if (!Do(acts, byte, *this)) {
            type(static_cast<unsigned char>(byte));
        }
    }

    void chooseOptions()
    {
        exercise_.DividendDigits = input_.TakeChoice(DivisionExercise::DividendDigitChoices);
        exercise_.DividendDecimals = input_.TakeChoice(DivisionExercise::DividendDecimalChoices);
        exercise_.DivisorDigits = input_.TakeChoice(DivisionExercise::DivisorDigitChoices);
        exercise_.QuotientDecimals = input_.TakeChoice(DivisionExercise::QuotientDecimalChoices);
        exercise_.ShowSubtractions = input_.TakeIndex(2) == 1;
        generate();
    }

    void clear()
    {
        exercise_.ClearWorking();
        checkCleanSheet();
    }

    void stepLeft()
    {
        const int before = grid().Caret;
        grid().StepLeft();
        EXPECT_EQ(grid().Caret, std::max(before - (isCommaCell(std::max(before - 1, 0)) ? 2 : 1), 0));
    }

    void stepRight()
    {
        const int expected = steppedRight(grid().Caret);
        grid().StepRight();
        EXPECT_EQ(grid().Caret, expected);
    }

    // In the same column, and not beyond the first row, the row of the end or the end itself.
    void moveByRow(int step)
    {
        const int before = grid().Caret;
        const int moved = before + step * grid().LineWidth;
        const bool stays = moved < 0 || moved / grid().LineWidth > end() / grid().LineWidth;
        grid().MoveCaretByRows(step);
        EXPECT_EQ(grid().Caret, stays ? before : std::min(moved, end()));
    }

    void moveToCell()
    {
        const int row = input_.TakeIndex(256);
        const int cell = row * grid().LineWidth + input_.TakeIndex(256);
        grid().MoveCaretTo(cell);
        EXPECT_EQ(grid().Caret, std::min(cell, end()));
    }

    int steppedRight(int caret)
    {
        const int next = std::min(caret + 1, end());
        return isCommaCell(next) ? std::min(next + 1, end()) : next;
    }

    // One cell changes at most, never one of the dividend's row or of the comma's column.
    void type(char16_t character)
    {
        std::u16string expected = grid().Text;
        int caret = grid().Caret;
        if (caret >= grid().LineWidth) {
            caret = isCommaCell(caret) ? std::min(caret + 1, end()) : caret;
            if (caret < end()) {
                expected[static_cast<std::size_t>(caret)] = character == 8 || character == u'.' ? u' ' : character;
                caret = steppedRight(caret);
            }
        }
        grid().TypeCharacter(character);
        blank_ = false;
        EXPECT_TRUE(stands(expected));
        EXPECT_EQ(grid().Caret, caret);
    }

    void generate()
    {
        constexpr int greatestPowerOfTen = 308;
        if (exercise_.DividendDigits + exercise_.DividendDecimals + exercise_.QuotientDecimals > mostDigits
            || exercise_.DivisorDigits > greatestPowerOfTen) {
            EXPECT_EQ(KindThrownBy([&] { exercise_.GenerateDivision(); }), RunTimeError::Kind::Overflow);
            return;
        }
        exercise_.GenerateDivision();
        drawn_ = true;
        checkCleanSheet();
        if (exercise_.DividendDigits + exercise_.DividendDecimals <= 15 && exercise_.DivisorDigits <= 15) {
            checkDrawnNumbers();
        }
    }

    void checkDrawnNumbers()
    {
        const std::string dividend = exercise_.DividendText();
        const int comma = static_cast<int>(std::min(dividend.find(','), dividend.size()));
        EXPECT_GE(comma, exercise_.DividendDigits);
        EXPECT_LE(comma, exercise_.DividendDigits + (exercise_.DividendDecimals > 0 ? 1 : 0));
        EXPECT_EQ(static_cast<int>(dividend.size()) - comma,
            exercise_.DividendDecimals + (exercise_.DividendDecimals > 0 ? 1 : 0));
        EXPECT_EQ(grid().CommaColumn, exercise_.DividendDecimals > 0 ? comma + 1 : -1);
        EXPECT_GT(exercise_.Divisor, 1);
        EXPECT_EQ(exercise_.DivisorText().size(), static_cast<std::size_t>(exercise_.DivisorDigits));
        EXPECT_EQ(grid().LineWidth,
            exercise_.DividendDigits + exercise_.DividendDecimals + exercise_.QuotientDecimals + cellsBesideDigits);
    }

    void checkCleanSheet()
    {
        const std::string dividend = exercise_.DividendText();
        std::u16string clean = u" ";
        clean.append(dividend.begin(), dividend.end());
        clean.append(2000, u' ');
        EXPECT_TRUE(stands(clean));
        const int firstDigit = dividend.front() == '-' ? 2 : 1;
        EXPECT_EQ(grid().Caret, grid().LineWidth + firstDigit + (firstDigit == grid().CommaColumn ? 1 : 0));
        blank_ = true;
    }

    // What is typed is a number by its whole part, and as wide as its characters. A dividend of 0.9 is 0, a divisor is
    // none.
    void enterDividend(const std::string& typed)
    {
        const double before = exercise_.Dividend;
        bool taken = false;
        const auto kind = KindThrownBy([&] { taken = exercise_.EnterDividend(typed); });
        checkEntry(typed, NumberAtTheStart(typed) != 0, kind, taken, exercise_.Dividend, before, mostDigits);
        if (taken) {
            drawn_ = false;
            checkCleanSheet();
            EXPECT_EQ(grid().LineWidth, exercise_.DividendDigits + cellsBesideDigits);
        }
    }

    void enterDivisor(const std::string& typed)
    {
        const double before = exercise_.Divisor;
        bool taken = false;
        const auto kind = KindThrownBy([&] { taken = exercise_.EnterDivisor(typed); });
        checkEntry(typed, std::trunc(NumberAtTheStart(typed)) != 0, kind, taken, exercise_.Divisor, before, INT16_MAX);
    }

    static void checkEntry(const std::string& typed, bool counts, std::optional<RunTimeError::Kind> kind, bool taken,
        double number, double before, std::size_t mostCharacters)
    {
        const double value = std::trunc(NumberAtTheStart(typed));
        const bool tooLarge = counts && (std::isinf(value) || CharactersIn(Trimmed(typed)) > mostCharacters);
        EXPECT_EQ(kind, tooLarge ? std::optional(RunTimeError::Kind::Overflow) : std::nullopt);
        EXPECT_EQ(taken, counts && !tooLarge);
        EXPECT_EQ(number, taken ? value : before);
    }

    int scale() const { return std::max<int>(exercise_.DividendDecimals, exercise_.QuotientDecimals); }

    double rowValue(int row)
    {
        std::string digits = Without(narrowed(grid().Row(row)), " ");
        digits.resize(std::min(digits.find_first_not_of("-0123456789"), digits.size()));
        return std::strtod(digits.c_str(), nullptr);
    }

    long double lastRemainder()
    {
        long double remainder = 0;
        for (int row = 0; !Without(narrowed(grid().Row(row)), " ").empty(); ++row) {
            const double value = rowValue(row);
            EXPECT_NEAR(grid().RowValue(row), value, std::fabs(value) * 1e-13);
            remainder = value;
        }
        return remainder / powl(10, scale());
    }

    static std::string narrowed(std::u16string_view cells)
    {
        std::string text;
        for (const char16_t cell : cells) {
            text += cell < 0x80 ? static_cast<char>(cell) : '?';
        }
        return text;
    }

    // Right is what gives back the dividend. Too near to the tolerance a double cannot tell.
    void check(const std::string& quotient)
    {
        const numbrela::Score before = exercise_.Score;
        const std::optional<Verdict> judged = exercise_.Judge(quotient);
        EXPECT_EQ(judged.has_value(), exercise_.QuotientDecimals == 0);
        if (!judged) {
            return;
        }
        const Verdict& verdict = *judged;
        exercise_.Score.Count(verdict.Right);
        const long double product = static_cast<long double>(FirstCommaNumberAtTheStart(quotient)) * exercise_.Divisor;
        const long double remainder = lastRemainder();
        const long double tolerance = powl(10, -(scale() + 1));
        const long double difference = fabsl(exercise_.Dividend - (product + remainder));
        const long double slack
            = (fabsl(product) + fabsl(remainder) + std::fabs(exercise_.Dividend)) * 1e-15L + tolerance * 2e-6L;
        if (!std::isfinite(static_cast<double>(product))) {
            EXPECT_FALSE(verdict.Right);
        } else if (fabsl(difference - tolerance) > slack) {
            EXPECT_EQ(verdict.Right, difference < tolerance) << exercise_.Statement() << " = " << quotient;
        }
        EXPECT_EQ(exercise_.Score.ExerciseCount, before.ExerciseCount + (before.Scorable ? 1 : 0));
        EXPECT_EQ(exercise_.Score.ErrorCount, before.ErrorCount + (before.Scorable && !verdict.Right ? 1 : 0));
        EXPECT_EQ(exercise_.Score.Scorable, before.Scorable && !verdict.Right);
    }

    // What is divided: what stands behind the first cell of the dividend's row, as far as two cells before its end, and
    // blanks if that is not enough.
    std::string dividedCells(int count)
    {
        std::string cells = narrowed(grid().Row(0)).substr(1, static_cast<std::size_t>(grid().LineWidth) - 3);
        if (const std::size_t comma = cells.find(','); comma != std::string::npos) {
            cells.erase(comma, 1);
        }
        cells.resize(static_cast<std::size_t>(count), ' ');
        return cells;
    }

    void solve()
    {
        const int steps = exercise_.DividendDigits + scale();
        const std::string cells = dividedCells(steps);
        const bool tooLong = steps > 37 || std::fabs(exercise_.Divisor) > 1e18;
        if (exercise_.Divisor < 0 || tooLong) {
            KindThrownBy([&] { exercise_.ShowDivisionSolution(); });
            blank_ = false;
            return;
        }
        const auto divisor = static_cast<Whole>(exercise_.Divisor);
        std::string digits = cells;
        std::replace_if(
            digits.begin(), digits.end(), [](char cell) { return cell < '0' || cell > '9'; }, '0');
        const LongDivision paper(digits, divisor);
        const std::u16string before = grid().Text;
        std::string quotient;
        const auto kind = KindThrownBy([&] { quotient = exercise_.ShowDivisionSolution(); });
        if (!paper.FitsIn32Bits) {
            EXPECT_EQ(kind, RunTimeError::Kind::Overflow);
            EXPECT_TRUE(stands(before));
            return;
        }
        EXPECT_EQ(kind, std::nullopt);
        EXPECT_EQ(quotient, CommaText(paper.Quotient, scale())) << cells << " / " << DigitsOf(divisor);
        EXPECT_FALSE(exercise_.Score.Scorable);
        // A blank is brought down as a zero, yet written as a blank; what stood left of the working stays there.
        if (drawn_ && blank_ && cells == digits && paper.Quotient > 0) {
            EXPECT_EQ(rowValue(grid().WrittenRows() - 1), static_cast<double>(paper.Remainder));
        }
        blank_ = false;
    }

    FuzzInput input_;
    SeededRandom random_;
    bool commaShift_ = false;
    DivisionExercise exercise_ { random_, commaShift_ };
    bool blank_ = false; // nothing stands below the dividend
    bool drawn_ = false; // the grid was laid out for this dividend, with its comma and its decimals
};

} // namespace

void Check(FuzzInput input)
{
    DivisionRun(input).Run();
}

} // namespace numbrela::testing

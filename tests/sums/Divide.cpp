#include "tests/sums/Activities.h"

#include "activities/divide/core/DivisionExercise.h"
#include "common/core/RunTimeError.h"

#include "tests/support/KindThrownBy.h"
#include "tests/support/Schoolbook.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>
#include <vector>

namespace numbrela::testing {

namespace {

// The division on paper, in units of the dividend's last decimal.
class PaperDivision {
public:
    explicit PaperDivision(const DivisionExercise& exercise)
        : Dividend(UnitsOf(exercise.Dividend, exercise.DividendDecimals))
        , Divisor(static_cast<Whole>(exercise.Divisor))
        , Decimals(exercise.DividendDecimals)
        , Scale(std::max<int>(exercise.DividendDecimals, exercise.QuotientDecimals))
        , IsTooLong(Dividend >= PowerOfTenOnPaper(exercise.DividendDigits + exercise.DividendDecimals))
    {
        // As many digits are divided as were asked for. A dividend that was drawn with one more loses its last.
        std::string digits = DigitsOf(Dividend);
        digits.resize(static_cast<std::size_t>(exercise.DividendDigits + Scale), '0');
        const LongDivision division(digits, Divisor);
        FitsIn32Bits = division.FitsIn32Bits;
        Quotient = division.Quotient; // in units of its last decimal
        Remainder = division.Remainder;
        work(digits, exercise.ShowSubtractions);
    }

    // Without a row of working the last row is the dividend's, which is read up to its comma.
    bool HasWorking() const { return Quotient > 0; }

    Whole LastRow() const { return HasWorking() ? Remainder : Dividend / PowerOfTenOnPaper(Decimals); }

    // Whether a quotient and the last row give back the dividend. Both are in units of its last decimal.
    bool GivesBackTheDividend(Whole quotient) const { return quotient * Divisor + LastRow() == Dividend; }

    // The rows below the dividend, one a line, without their blanks.
    std::string Working() const
    {
        std::string lines;
        for (const std::string& row : rows_) {
            lines += row + "\n";
        }
        return lines;
    }

    std::string Description() const { return CommaText(Dividend, Decimals) + " / " + DigitsOf(Divisor); }

    Whole Dividend;
    Whole Divisor;
    int Decimals;
    int Scale; // decimals that the quotient is worked to
    bool IsTooLong; // has one digit more than asked for
    bool FitsIn32Bits;
    Whole Quotient;
    Whole Remainder;

private:
    // From left to right: a digit of the quotient takes its product away and leaves a remainder, behind which the next
    // digit is written. A "0" in the quotient adds no row. The zeros behind the dividend's end are not written.
    void work(const std::string& digits, bool showSubtractions)
    {
        const std::string written = DigitsOf(Dividend);
        Whole rest = 0;
        for (std::size_t step = 0; step < digits.size(); ++step) {
            const Whole broughtDown = rest * 10 + (digits[step] - '0');
            const Whole product = broughtDown / Divisor * Divisor;
            const std::string next = step + 1 < written.size() ? written.substr(step + 1, 1) : std::string();
            rest = broughtDown - product;
            if (product > 0 && showSubtractions) {
                rows_.push_back("-" + DigitsOf(product));
            }
            if (product > 0) {
                rows_.push_back(DigitsOf(rest) + next);
            } else if (!rows_.empty()) {
                rows_.back() += next;
            }
        }
    }

    std::vector<std::string> rows_;
};

std::string workingIn(const WorkingGrid& grid)
{
    std::string lines;
    for (int row = 1; row < grid.WrittenRows(); ++row) {
        const std::u16string_view cells = grid.Row(row);
        lines += Without(std::string(cells.begin(), cells.end()), " ") + "\n";
    }
    return lines;
}

void tallyVerdicts(DivisionExercise& exercise, const std::string& quotient, const PaperDivision& paper, Tally& tally)
{
    const bool fromTheDividend = !paper.HasWorking() && paper.Decimals > 0;
    const char* cause = paper.IsTooLong ? "the dividend was drawn with a digit more than is divided"
        : fromTheDividend               ? "without working the integer part of the dividend counts as the remainder"
                                        : nullptr;
    tally.Require(paper.GivesBackTheDividend(paper.Quotient) == (cause == nullptr), "the cause is another");
    tally.CountVerdict("solution", exercise.Judge(quotient)->Right, cause == nullptr, cause);

    const bool accepted = paper.GivesBackTheDividend(paper.Quotient + 1);
    tally.Require(!accepted || cause != nullptr, "the cause is another");
    tally.CountVerdict("quotient one unit off",
        exercise.Judge(WithoutLastZeros(CommaText(paper.Quotient + 1, paper.Scale)))->Right, accepted,
        accepted ? "by chance it makes up for the remainder that is read" : nullptr);
}

void tallySolution(DivisionExercise& exercise, const PaperDivision& paper, Tally& tally)
{
    std::string quotient;
    const auto kind = KindThrownBy([&] { quotient = exercise.ShowDivisionSolution(); });
    if (!paper.FitsIn32Bits) {
        tally.Note("no solution: a remainder with its next digit is beyond 32 bits");
        tally.Require(kind == RunTimeError::Kind::Overflow, "there is a solution beyond 32 bits");
        return;
    }
    tally.Require(!kind, "there is no solution");
    tally.Compare("the quotient", quotient, CommaText(paper.Quotient, paper.Scale));
    if (!paper.IsTooLong) { // what is not divided of such a dividend is in sight all the same
        tally.Compare("the working", workingIn(exercise.Grid), paper.Working());
    }
    if (exercise.QuotientDecimals > 0) {
        tally.Note("solution not judged: the quotient was to have decimals of its own");
        tally.Require(!exercise.Judge(quotient), "it is judged all the same");
        return;
    }
    tally.Require(exercise.Grid.RowValue(exercise.Grid.WrittenRows() - 1) == static_cast<double>(paper.LastRow()),
        "the remainder is another");
    tallyVerdicts(exercise, quotient, paper, tally);
}

bool isDrawnWell(const PaperDivision& paper, const DivisionExercise& exercise)
{
    const std::string divisor = DigitsOf(paper.Divisor);
    const std::string dividend = DigitsOf(paper.Dividend);
    const int digits = exercise.DividendDigits + exercise.DividendDecimals;
    return static_cast<int>(divisor.size()) == exercise.DivisorDigits && paper.Divisor > 1
        && static_cast<int>(dividend.size()) == digits + (paper.IsTooLong ? 1 : 0)
        && (exercise.DividendDecimals == 0 || dividend.back() != '0')
        && (!paper.IsTooLong || (exercise.DividendDecimals > 0 && paper.Dividend <= PowerOfTenOnPaper(digits) + 8));
}

} // namespace

void TryDivision(RandomSource& random, Tally& tally)
{
    static bool commaShift = false; // one for all, as in the program
    DivisionExercise exercise(random, commaShift);
    exercise.DividendDigits = DrawChoice(DivisionExercise::DividendDigitChoices, random);
    exercise.DividendDecimals = DrawChoice(DivisionExercise::DividendDecimalChoices, random);
    exercise.DivisorDigits = DrawChoice(DivisionExercise::DivisorDigitChoices, random);
    exercise.QuotientDecimals = DrawYes(random) ? 0 : DrawChoice(DivisionExercise::QuotientDecimalChoices, random);
    exercise.ShowSubtractions = DrawYes(random);
    exercise.GenerateDivision();
    tally.CountExercise({ exercise.DividendDigits, exercise.DividendDecimals, exercise.DivisorDigits,
        exercise.QuotientDecimals, exercise.ShowSubtractions });

    const PaperDivision paper(exercise);
    tally.Describe(paper.Description());
    tally.Require(isDrawnWell(paper, exercise), "a number has other digits than asked for");
    tally.Compare("the statement", exercise.Statement(),
        CommaText(paper.Dividend, paper.Decimals) + " ÷ " + DigitsOf(paper.Divisor));
    tallySolution(exercise, paper, tally);
}

} // namespace numbrela::testing

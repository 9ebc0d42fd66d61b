#include "tests/sums/Activities.h"

#include "activities/multiply/core/Multiplication.h"

#include "tests/support/Schoolbook.h"

#include <cmath>
#include <string>
#include <vector>

namespace numbrela::testing {

namespace {

constexpr double tolerance = 1e-12;

// Below this limit, the double nearest to a product on paper differs from the computed one by less than the tolerance.
constexpr double fine = 2'048;

// The exercise on paper, in units of the last decimals.
struct PaperProduct {
    explicit PaperProduct(const Multiplication& exercise)
        : Factor1(UnitsOf(exercise.Factor1, exercise.Decimals1))
        , Factor2(UnitsOf(exercise.Factor2, exercise.Decimals2))
        , Product(Factor1 * Factor2)
        , Decimals(exercise.Decimals1 + exercise.Decimals2)
        , Text1(CommaText(Factor1, exercise.Decimals1))
        , Text2(CommaText(Factor2, exercise.Decimals2))
    {
    }

    // What the judge compares with a text, and whether that is near enough.
    bool IsAccepted(const std::string& text, const Multiplication& exercise) const
    {
        return std::fabs(exercise.Factor2 * exercise.Factor1 - CommaNumberAtTheStart(text)) < tolerance;
    }

    Whole Factor1;
    Whole Factor2;
    Whole Product;
    int Decimals;
    std::string Text1;
    std::string Text2;
};

std::string joined(const std::vector<std::string>& rows)
{
    std::string text;
    for (const std::string& row : rows) {
        text += row + "\n";
    }
    return text;
}

Whole sumOf(const std::vector<std::string>& rows)
{
    Whole sum = 0;
    for (const std::string& row : rows) {
        Whole number = 0;
        for (const char cell : row) {
            number = number * 10 + (cell == ' ' ? 0 : cell - '0');
        }
        sum += number;
    }
    return sum;
}

// The rows add up to the product, unless the comma has hidden one that is needed.
void tallyRows(
    const std::vector<std::string>& rows, const Multiplication& exercise, const PaperProduct& paper, Tally& tally)
{
    tally.Compare("the working", joined(rows), joined(PartialProducts(paper.Text1, paper.Text2, exercise.HideZeros)));
    if (sumOf(rows) == paper.Product) {
        return;
    }
    tally.Note("working without a row that the comma hides");
    tally.Require(exercise.HideZeros && exercise.Decimals2 > 0, "the rows do not add up");
}

void tallyAnswers(const std::string& shown, Multiplication& exercise, const PaperProduct& paper, Tally& tally)
{
    const auto accepts = [&](const std::string& text) { return exercise.Judge(text, "").Right; };
    const bool grouped = paper.Product >= 1000 * PowerOfTenOnPaper(paper.Decimals);
    tally.CountVerdict("solution", accepts(shown), !grouped,
        grouped ? "its point between thousands is read as a decimal point" : nullptr);

    const std::string answer = CommaText(paper.Product, paper.Decimals);
    const bool near = paper.IsAccepted(answer, exercise);
    tally.Require(near || exercise.Product >= fine, "doubles are fine");
    tally.CountVerdict("answer on paper", accepts(answer), near,
        near ? nullptr : "from 2.048 on the tolerance is finer than doubles are");

    const std::string wrong = CommaText(paper.Product + 1, paper.Decimals);
    const bool same = paper.IsAccepted(wrong, exercise);
    tally.Require(!same || exercise.Product >= fine, "doubles are fine");
    tally.CountVerdict(
        "answer one unit off", accepts(wrong), same, same ? "doubles cannot tell it from the product" : nullptr);
}

void setOptions(Multiplication& exercise, RandomSource& random)
{
    exercise.Digits1 = DrawChoice(Multiplication::DigitChoices, random);
    exercise.Digits2 = DrawChoice(Multiplication::DigitChoices, random);
    exercise.Decimals1 = DrawChoice(Multiplication::DecimalChoices, random);
    exercise.Decimals2 = DrawChoice(Multiplication::DecimalChoices, random);
    exercise.HideZeros = DrawYes(random);
    std::string tables;
    if (DrawYes(random)) {
        for (char table = '1'; table <= '9'; ++table) {
            tables += DrawYes(random) ? std::string(1, table) : "";
        }
    }
    exercise.ChooseTables(tables);
}

// Free digits never make a power of ten: its last digit is 0, and 1 is left out.
bool isDrawnWell(Whole factor, int digits, bool fromTables, bool mayEndInZero)
{
    const std::string text = DigitsOf(factor);
    return static_cast<int>(text.size()) == digits && (mayEndInZero || text.back() != '0')
        && (fromTables || factor > PowerOfTenOnPaper(digits - 1));
}

} // namespace

void TryMultiplication(RandomSource& random, Tally& tally)
{
    Multiplication exercise(random);
    setOptions(exercise, random);
    exercise.NewMultiplication();
    tally.CountExercise({ exercise.Digits1, exercise.Digits2, exercise.Decimals1, exercise.Decimals2,
        exercise.HideZeros, exercise.AnyDigits });

    const PaperProduct paper(exercise);
    tally.Describe(paper.Text1 + " x " + paper.Text2);
    const bool endInZero = !exercise.AnyDigits && exercise.Decimals2 == 0;
    tally.Require(isDrawnWell(paper.Factor1, exercise.Digits1 + exercise.Decimals1, false, false)
            && isDrawnWell(paper.Factor2, exercise.Digits2 + exercise.Decimals2, !exercise.AnyDigits, endInZero),
        "a factor has other digits than asked for");
    tally.Require(exercise.AnyDigits
            || DigitsOf(paper.Factor2).find_first_not_of("0" + exercise.SelectedTables) == std::string::npos,
        "a digit is of no chosen table");
    tally.Compare("the first factor", exercise.Factor1Text(), paper.Text1);
    tally.Compare("the second factor", exercise.Factor2Text(), paper.Text2);

    const Multiplication::WorkedSolution solution = exercise.ShowSolution();
    tally.Compare("the solution", solution.Result, GroupedInThousands(CommaText(paper.Product, paper.Decimals)));
    tallyRows(solution.Rows, exercise, paper, tally);
    tallyAnswers(solution.Result, exercise, paper, tally);
}

} // namespace numbrela::testing

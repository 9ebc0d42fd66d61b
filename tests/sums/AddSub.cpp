#include "tests/sums/Activities.h"

#include "activities/addsub/core/ColumnExercise.h"

#include "tests/support/Schoolbook.h"

#include <cmath>
#include <string>

namespace numbrela::testing {

namespace {

constexpr double tolerance = 1e-10;

// From here on neighbouring doubles lie further apart than the tolerance.
constexpr double coarse = 524'288;

// The exercise on paper, in units of its last decimal.
class PaperExercise {
public:
    PaperExercise(const ColumnExercise& exercise, Operation operation)
        : Decimals(exercise.Decimals)
        , Operand1(unitsOf(exercise.Operand1))
        , Operand2(unitsOf(exercise.Operand2))
        , Result(operation == Operation::Addition ? Operand1 + Operand2 : Operand1 - Operand2)
        , Computed(operation == Operation::Addition ? exercise.Operand1 + exercise.Operand2
                                                    : exercise.Operand1 - exercise.Operand2)
        , operation_(operation)
    {
    }

    // The double that is written like that.
    double ValueOf(Whole units) const
    {
        return static_cast<double>(units) / static_cast<double>(PowerOfTenOnPaper(Decimals));
    }

    std::string TextOf(Whole units) const { return WithoutLastZeros(CommaText(units, Decimals)); }

    std::string Description() const
    {
        return TextOf(Operand1) + (operation_ == Operation::Addition ? " + " : " - ") + TextOf(Operand2);
    }

    int Decimals;
    Whole Operand1;
    Whole Operand2;
    Whole Result;
    double Computed; // the result as the doubles of both operands have it

private:
    Whole unitsOf(double operand) const
    {
        return static_cast<Whole>(std::llround(operand * static_cast<double>(PowerOfTenOnPaper(Decimals))));
    }

    Operation operation_;
};

bool isDrawnWell(Whole operand, double value, const ColumnExercise& exercise, const PaperExercise& paper)
{
    const std::string digits = DigitsOf(operand);
    return value == paper.ValueOf(operand) && static_cast<int>(digits.size()) == exercise.Digits + exercise.Decimals
        && (exercise.Decimals == 0 || digits.back() != '0');
}

// Whether an integer part of so many digits, grouped by the rule, is read as another number.
bool isMisread(const std::string& text)
{
    return Without(DisplayedByTheRule(text), ".") != text;
}

double readAsDisplayed(const std::string& text)
{
    return NumberAtTheStart(Replaced(Without(text, "."), ',', '.'));
}

void tallySolution(ColumnExercise& exercise, const PaperExercise& paper, Operation operation, Tally& tally)
{
    const auto describe = [&] { return paper.Description(); };
    const std::string plain = RoundedText(paper.Computed, 15);
    const std::string shown = exercise.ShowSolution();
    tally.Compare("the solution", shown, DisplayedByTheRule(plain), describe);
    if (plain != paper.TextOf(paper.Result)) {
        tally.Note("solution shown with what the doubles of its operands are off by");
        tally.Require(operation == Operation::Subtraction, "a sum is shown inexactly", describe);
    }

    const bool misread = isMisread(plain);
    const bool finer = std::fabs(readAsDisplayed(DisplayedByTheRule(plain)) - paper.Computed) >= tolerance;
    tally.Require(!misread || finer, "another number is as good", describe);
    tally.Require(
        !finer || misread || exercise.Operand1 >= coarse || paper.Computed >= coarse, "doubles are fine", describe);
    const char* cause = misread ? "from seven integer digits on a digit is repeated"
        : finer                 ? "from 524.288 on the tolerance is finer than doubles are"
                                : nullptr;
    tally.CountVerdict("solution", exercise.Judge(shown).Right, !finer, cause, describe);
}

void tallyPaperAnswers(ColumnExercise& exercise, const PaperExercise& paper, Tally& tally)
{
    const auto describe = [&] { return paper.Description(); };
    const bool finer = std::fabs(paper.ValueOf(paper.Result) - paper.Computed) >= tolerance;
    tally.Require(!finer || exercise.Operand1 >= coarse || paper.Computed >= coarse, "doubles are fine", describe);
    tally.CountVerdict("answer on paper", exercise.Judge(paper.TextOf(paper.Result)).Right, !finer,
        finer ? "from 524.288 on the tolerance is finer than doubles are" : nullptr, describe);
    tally.CountVerdict(
        "answer one unit off", exercise.Judge(paper.TextOf(paper.Result + 1)).Right, false, nullptr, describe);
}

void tryColumns(Operation operation, RandomSource& random, Tally& tally)
{
    ColumnExercise exercise(operation, random);
    exercise.Digits = DrawChoice(ColumnExercise::DigitChoices, random);
    exercise.Decimals = DrawChoice(ColumnExercise::DecimalChoices, random);
    exercise.Generate();
    tally.CountExercise(std::to_string(exercise.Digits) + "," + std::to_string(exercise.Decimals));

    const PaperExercise paper(exercise, operation);
    const auto describe = [&] { return paper.Description(); };
    tally.Require(isDrawnWell(paper.Operand1, exercise.Operand1, exercise, paper)
            && isDrawnWell(paper.Operand2, exercise.Operand2, exercise, paper),
        "an operand has other digits than asked for", describe);
    tally.Require(paper.Result >= 0, "the subtrahend is the greater one", describe);
    tally.Compare(
        "the upper operand", exercise.DrawnTexts().Upper, DisplayedByTheRule(paper.TextOf(paper.Operand1)), describe);
    tally.Compare(
        "the lower operand", exercise.DrawnTexts().Lower, DisplayedByTheRule(paper.TextOf(paper.Operand2)), describe);
    tallyPaperAnswers(exercise, paper, tally);
    tallySolution(exercise, paper, operation, tally);
}

} // namespace

void TryAddition(RandomSource& random, Tally& tally)
{
    tryColumns(Operation::Addition, random, tally);
}

void TrySubtraction(RandomSource& random, Tally& tally)
{
    tryColumns(Operation::Subtraction, random, tally);
}

} // namespace numbrela::testing

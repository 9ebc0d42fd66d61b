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
        , Operand1(UnitsOf(exercise.Operand1, Decimals))
        , Operand2(UnitsOf(exercise.Operand2, Decimals))
        , Result(operation == Operation::Addition ? Operand1 + Operand2 : Operand1 - Operand2)
        , Computed(operation == Operation::Addition ? exercise.Operand1 + exercise.Operand2
                                                    : exercise.Operand1 - exercise.Operand2)
        , operation_(operation)
    {
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
    Operation operation_;
};

bool isDrawnWell(Whole operand, double value, const ColumnExercise& exercise)
{
    const std::string digits = DigitsOf(operand);
    return value == ValueOf(operand, exercise.Decimals)
        && static_cast<int>(digits.size()) == exercise.Digits + exercise.Decimals
        && (exercise.Decimals == 0 || digits.back() != '0');
}

// Whether an integer part of so many digits, grouped by the rule, is read as another number.
bool isMisread(const std::string& text)
{
    return Without(DisplayedByTheRule(text), ".") != text;
}

void tallySolution(ColumnExercise& exercise, const PaperExercise& paper, Operation operation, Tally& tally)
{
    const std::string plain = RoundedText(paper.Computed, 15);
    const std::string shown = exercise.ShowSolution();
    tally.Compare("the solution", shown, DisplayedByTheRule(plain));
    if (plain != paper.TextOf(paper.Result)) {
        tally.Note("solution shown with what the doubles of its operands are off by");
        tally.Require(operation == Operation::Subtraction, "a sum is shown inexactly");
    }

    const bool misread = isMisread(plain);
    const bool finer
        = std::fabs(CommaNumberAtTheStart(Without(DisplayedByTheRule(plain), ".")) - paper.Computed) >= tolerance;
    tally.Require(!misread || finer, "another number is as good");
    tally.Require(!finer || misread || exercise.Operand1 >= coarse || paper.Computed >= coarse, "doubles are fine");
    const char* cause = misread ? "from seven integer digits on a digit is repeated"
        : finer                 ? "from 524.288 on the tolerance is finer than doubles are"
                                : nullptr;
    tally.CountVerdict("solution", exercise.Judge(shown).Right, !finer, cause);
}

void tallyPaperAnswers(ColumnExercise& exercise, const PaperExercise& paper, Tally& tally)
{
    const bool finer = std::fabs(ValueOf(paper.Result, paper.Decimals) - paper.Computed) >= tolerance;
    tally.Require(!finer || exercise.Operand1 >= coarse || paper.Computed >= coarse, "doubles are fine");
    tally.CountVerdict("answer on paper", exercise.Judge(paper.TextOf(paper.Result)).Right, !finer,
        finer ? "from 524.288 on the tolerance is finer than doubles are" : nullptr);
    tally.CountVerdict("answer one unit off", exercise.Judge(paper.TextOf(paper.Result + 1)).Right, false);
}

void tryColumns(Operation operation, RandomSource& random, Tally& tally)
{
    ColumnExercise exercise(operation, random);
    exercise.Digits = DrawChoice(ColumnExercise::DigitChoices, random);
    exercise.Decimals = DrawChoice(ColumnExercise::DecimalChoices, random);
    exercise.Generate();
    tally.CountExercise({ exercise.Digits, exercise.Decimals });

    const PaperExercise paper(exercise, operation);
    tally.Describe(paper.Description());
    tally.Require(isDrawnWell(paper.Operand1, exercise.Operand1, exercise)
            && isDrawnWell(paper.Operand2, exercise.Operand2, exercise),
        "an operand has other digits than asked for");
    tally.Require(paper.Result >= 0, "the subtrahend is the greater one");
    tally.Compare("the upper operand", exercise.DrawnTexts().Upper, DisplayedByTheRule(paper.TextOf(paper.Operand1)));
    tally.Compare("the lower operand", exercise.DrawnTexts().Lower, DisplayedByTheRule(paper.TextOf(paper.Operand2)));
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

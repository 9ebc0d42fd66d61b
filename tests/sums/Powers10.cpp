#include "tests/sums/Activities.h"

#include "activities/powers10/core/PowersOfTen.h"

#include "tests/support/Schoolbook.h"

#include <string>

namespace numbrela::testing {

namespace {

constexpr int mostDecimals = 4; // of the number, as many as it has digits

// The number in units of its fourth decimal; the comma of the result is that many places further on.
struct PaperShift {
    explicit PaperShift(const PowersOfTen& exercise)
        : Number(UnitsOf(exercise.Factor1, mostDecimals))
        , Power(UnitsOf(exercise.Factor2, 0))
        , Multiplies(exercise.Sign() == " × ")
        , Places(static_cast<int>(DigitsOf(Power).size()) - 1)
        , Result(Multiplies ? Number * Power : Number)
        , Decimals(Multiplies ? mostDecimals : mostDecimals + Places)
    {
    }

    std::string Description() const
    {
        return CommaText(Number, mostDecimals) + (Multiplies ? " x " : " / ") + DigitsOf(Power);
    }

    Whole Number;
    Whole Power;
    bool Multiplies;
    int Places;
    Whole Result;
    int Decimals;
};

bool isDrawnWell(const PaperShift& paper, const PowersOfTen& exercise)
{
    // With at least one decimal of its digits the number stays below the power with one zero less.
    const bool number = paper.Number >= 1 && paper.Number < PowerOfTenOnPaper(exercise.Digits1 - 1 + mostDecimals)
        && paper.Number % PowerOfTenOnPaper(mostDecimals - exercise.Digits1) == 0
        && exercise.Factor1 == ValueOf(paper.Number, mostDecimals);
    const bool power
        = paper.Places >= 1 && paper.Places <= exercise.Digits2 && paper.Power == PowerOfTenOnPaper(paper.Places);
    return number && power && (paper.Multiplies || exercise.Sign() == " ÷ ");
}

} // namespace

void TryPowersOfTen(RandomSource& random, Tally& tally)
{
    PowersOfTen exercise(random);
    exercise.Digits1 = DrawChoice(PowersOfTen::Digits1Choices, random);
    exercise.NewPowerOfTenExercise();
    tally.CountExercise({ exercise.Digits1 });

    const PaperShift paper(exercise);
    tally.Describe(paper.Description());
    tally.Require(isDrawnWell(paper, exercise), "a factor is not of the kind asked for");
    const std::string answer = WithoutLastZeros(CommaText(paper.Result, paper.Decimals));
    tally.Compare("the number", exercise.Factor1Text(), WithoutLastZeros(CommaText(paper.Number, mostDecimals)));
    tally.Compare("the power", exercise.Factor2Text(), DigitsOf(paper.Power));
    tally.Compare("the solution", exercise.Solution(), answer);
    tally.CountVerdict("solution", exercise.Judge(exercise.Solution()).Right, true);
    tally.CountVerdict("answer with all decimals", exercise.Judge(CommaText(paper.Result, paper.Decimals)).Right, true);
    tally.CountVerdict("answer one unit off", exercise.Judge(CommaText(paper.Result + 1, paper.Decimals)).Right, false);
}

} // namespace numbrela::testing

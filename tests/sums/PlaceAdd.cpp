#include "tests/sums/Activities.h"

#include "activities/placeadd/core/PlaceAndAdd.h"
#include "common/core/RunTimeError.h"

#include "tests/support/KindThrownBy.h"
#include "tests/support/Schoolbook.h"

#include <algorithm>
#include <string>
#include <vector>

namespace numbrela::testing {

namespace {

constexpr int mostDecimals = 4;

// The addends in units of the fourth decimal, added up on paper, and their sum as singles have it.
struct PaperSum {
    explicit PaperSum(const PlaceAndAdd& exercise)
    {
        for (int index = 0; index < exercise.AddendCount; ++index) {
            const float addend = exercise.Addends.at(static_cast<std::size_t>(index));
            Addends.push_back(unitsOf(addend));
            AreSingles = AreSingles && addend == static_cast<float>(ValueOf(Addends.back(), mostDecimals));
            Sum += Addends.back();
            SingleSum += addend;
        }
    }

    static std::string TextOf(Whole units) { return WithoutLastZeros(CommaText(units, mostDecimals)); }

    std::string Line() const
    {
        std::string line;
        for (const Whole addend : Addends) {
            line += (line.empty() ? "" : " + ") + TextOf(addend);
        }
        return line;
    }

    // Only the whole part of an answer is read.
    bool IsAccepted(const std::string& text) const
    {
        return static_cast<float>(NumberAtTheStart(text.substr(0, text.find(',')))) == SingleSum;
    }

    // Whether one of them can have been drawn with one digit less than the longest, or as the smallest number of that
    // length.
    bool HasShort(int maxDigits) const
    {
        return std::any_of(Addends.begin(), Addends.end(), [maxDigits](Whole addend) {
            const std::string digits = DigitsOf(addend);
            return static_cast<int>(digits.find_last_not_of('0')) + 1 < maxDigits;
        });
    }

    bool IsWhole() const { return Sum % PowerOfTenOnPaper(mostDecimals) == 0; }

    std::vector<Whole> Addends;
    Whole Sum = 0;
    float SingleSum = 0;
    bool AreSingles = true; // the addends of the exercise are the singles that are written so

private:
    // An addend is drawn with five digits at most; what a single has behind them is its own.
    static Whole unitsOf(float addend)
    {
        return UnitsOf(CommaNumberAtTheStart(RoundedText(static_cast<double>(addend), 5)), mostDecimals);
    }
};

// Why an answer is judged otherwise than by the rule that whole sums are right and others wrong.
const char* causeFor(const PaperSum& paper, bool accepted)
{
    if (accepted) {
        return paper.IsWhole() ? nullptr : "singles lose its decimals";
    }
    return paper.IsWhole() ? "singles miss the whole sum" : "only the whole part of an answer is read";
}

void tallySolution(const PlaceAndAdd& exercise, const PaperSum& paper, Tally& tally)
{
    const std::string shown = RoundedText(static_cast<double>(paper.SingleSum), 7);
    const bool fits = std::min(shown.find(','), shown.size()) <= 4;
    PlaceAndAdd::Placement placement;
    const auto kind = KindThrownBy([&] { placement = exercise.Solution(); });
    if (!fits) {
        tally.Note("no solution: the sum has more than four integer digits");
        tally.Require(kind == RunTimeError::Kind::InvalidArgument, "there is a solution all the same");
        return;
    }
    tally.Require(!kind, "there is no solution");
    if (shown != PaperSum::TextOf(paper.Sum)) {
        tally.Note("solution shown with what singles are off by");
    }
    const auto inColumns
        = [](const std::string& text) { return std::string(4 - std::min(text.find(','), text.size()), ' ') + text; };
    tally.Compare("the sum", placement.Sum, inColumns(shown));
    for (std::size_t index = 0; index < placement.Addends.size(); ++index) {
        tally.Compare("an addend", placement.Addends[index], inColumns(PaperSum::TextOf(paper.Addends.at(index))));
    }
    const bool accepted = paper.IsAccepted(shown);
    tally.CountVerdict("solution", exercise.Judge(placement.Sum, "").Right, accepted, causeFor(paper, accepted));
}

} // namespace

void TryPlaceAndAdd(RandomSource& random, Tally& tally)
{
    PlaceAndAdd exercise(random);
    exercise.AddendCount = DrawChoice(PlaceAndAdd::AddendCountChoices, random);
    exercise.MaxDigits = DrawChoice(PlaceAndAdd::MaxDigitsChoices, random);
    exercise.NewPlaceAndAdd();
    tally.CountExercise({ exercise.AddendCount, exercise.MaxDigits });

    const PaperSum paper(exercise);
    tally.Describe(paper.Line());
    tally.Require(paper.AreSingles, "an addend is not the single that is written so");
    tally.Require(exercise.AddendSum == paper.SingleSum, "the singles are added up otherwise");
    tally.Require(paper.HasShort(exercise.MaxDigits), "all addends are equally long");
    tally.Compare("the line", exercise.DataLine(), paper.Line());

    const bool accepted = paper.IsAccepted(PaperSum::TextOf(paper.Sum));
    const auto isRight = [&](Whole sum) { return exercise.Judge(PaperSum::TextOf(sum), "").Right; };
    tally.CountVerdict("answer on paper", isRight(paper.Sum), accepted, causeFor(paper, accepted));
    const Whole wrong = paper.Sum + PowerOfTenOnPaper(mostDecimals);
    const bool same = paper.IsAccepted(PaperSum::TextOf(wrong));
    tally.Require(!same || !paper.IsWhole(), "singles cannot tell one more");
    tally.CountVerdict(
        "answer greater by one", isRight(wrong), same, same ? "singles round the sum up to its whole part" : nullptr);
    tallySolution(exercise, paper, tally);
}

} // namespace numbrela::testing

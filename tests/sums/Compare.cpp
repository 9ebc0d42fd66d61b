#include "tests/sums/Activities.h"

#include "activities/compare/core/Comparison.h"

#include "tests/support/Schoolbook.h"

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace numbrela::testing {

namespace {

// One digit, a comma and three digits; the same four in every number, all different, none of them 0 or 8.
bool areDrawnWell(const std::array<std::string, Comparison::ButtonCount>& captions)
{
    std::set<std::string> numbers;
    std::set<std::string> digitSets;
    for (const std::string& caption : captions) {
        std::string digits = Without(caption, ",");
        if (caption.find(',') != 1 || digits.size() != 4 || caption.front() != captions.front().front()) {
            return false;
        }
        numbers.insert(digits);
        std::sort(digits.begin(), digits.end());
        digitSets.insert(digits);
    }
    const std::string digits = *digitSets.begin();
    return numbers.size() == captions.size() && digitSets.size() == 1
        && digits.find_first_not_of("12345679") == std::string::npos
        && std::adjacent_find(digits.begin(), digits.end()) == digits.end();
}

} // namespace

void TryComparison(RandomSource& random, Tally& tally)
{
    Comparison exercise(random);
    exercise.NewComparison();
    tally.Describe(exercise.Instruction + " " + exercise.Captions[0]);
    tally.Require(areDrawnWell(exercise.Captions), "the numbers are not of the kind asked for");

    // All are equally long, so that they stand in the order of their texts.
    const auto [least, greatest] = std::minmax_element(exercise.Captions.begin(), exercise.Captions.end());
    const bool asksForGreatest = exercise.Instruction == "Pulsa sobre el número MAYOR";
    tally.CountExercise({ asksForGreatest });
    tally.Require(asksForGreatest || exercise.Instruction == "Pulsa sobre el número MENOR", "it asks something else");
    const auto right = (asksForGreatest ? greatest : least) - exercise.Captions.begin();
    tally.Require(exercise.CorrectButton == right, "the right button is another");
    tally.CountVerdict("solution", exercise.Judge(exercise.CorrectButton).Right, true);
    for (int button = 0; button < static_cast<int>(Comparison::ButtonCount); ++button) {
        if (button != right) {
            tally.CountVerdict("other button", exercise.Judge(button).Right, false);
        }
    }
    tally.Compare("the score", exercise.ScoreLine(), "Aciertos: 1;   Errores: 5.");
}

} // namespace numbrela::testing

#pragma once

#include "common/core/OptionList.h"
#include "common/core/Random.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace numbrela::testing {

// What became of the exercises of one activity. What differs from the sums on paper, in either direction, is printed at
// once, as far as it helps, and counted.
class Tally {
public:
    explicit Tally(std::string activity)
        : activity_(std::move(activity))
    {
    }

    // One exercise more, drawn with this setting of all options.
    void CountExercise(std::vector<int> setting);

    // What is compared from now on, for whoever reads of a difference: "12,5 + 7".
    void Describe(std::string exercise) { exercise_ = std::move(exercise); }

    // The verdict on an answer, for example on "the solution". `cause` says why an answer on paper is to be judged
    // otherwise than it deserves; null when it is not.
    void CountVerdict(const char* answer, bool accepted, bool toBeAccepted, const char* cause = nullptr);

    // What the program says, and what is to be said on paper.
    void Compare(const char* what, const std::string& said, const std::string& onPaper);

    void Require(bool holds, const char* what);

    // Counts what is neither right nor wrong.
    void Note(const char* what) { ++counts_[what]; }

    long Exercises() const { return exercises_; }
    long Differences() const { return differences_; }
    void Print() const;

private:
    void differ(const std::string& what);

    std::string activity_;
    std::string exercise_;
    std::map<std::string, long> counts_;
    std::set<std::vector<int>> settings_;
    long exercises_ = 0;
    long differences_ = 0;
};

// One of the values that a list of options offers.
inline int DrawChoice(const OptionList& choices, RandomSource& random)
{
    return choices.ValueAt(static_cast<int>(random.Next() * choices.Count));
}

inline bool DrawYes(RandomSource& random)
{
    return random.Next() < 0.5;
}

} // namespace numbrela::testing

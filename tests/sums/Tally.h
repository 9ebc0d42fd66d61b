#pragma once

#include "common/core/OptionList.h"
#include "common/core/Random.h"

#include <map>
#include <set>
#include <string>

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
    void CountExercise(const std::string& setting)
    {
        ++exercises_;
        settings_.insert(setting);
    }

    // The verdict on an answer, for example on "the solution". `cause` says why an answer on paper is to be judged
    // otherwise than it deserves; null when it is not.
    template <typename Describe>
    void CountVerdict(const char* answer, bool accepted, bool toBeAccepted, const char* cause, Describe describe)
    {
        ++counts_[std::string(answer) + (toBeAccepted ? " accepted" : " refused") + (cause ? ": " : "")
            + (cause ? cause : "")];
        if (accepted != toBeAccepted) {
            differ(std::string(answer) + (accepted ? " is accepted" : " is refused"), describe());
        }
    }

    // What the program says, and what is to be said on paper.
    template <typename Describe>
    void Compare(const char* what, const std::string& said, const std::string& onPaper, Describe describe)
    {
        if (said != onPaper) {
            differ(std::string(what) + " is \"" + said + "\", on paper \"" + onPaper + "\"", describe());
        }
    }

    template <typename Describe>
    void Require(bool holds, const char* what, Describe describe)
    {
        if (!holds) {
            differ(what, describe());
        }
    }

    // Counts what is neither right nor wrong.
    void Note(const char* what) { ++counts_[what]; }

    long Exercises() const { return exercises_; }
    long Differences() const { return differences_; }
    void Print() const;

private:
    void differ(const std::string& what, const std::string& exercise);

    std::string activity_;
    std::map<std::string, long> counts_;
    std::set<std::string> settings_;
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

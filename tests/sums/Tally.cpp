#include "tests/sums/Tally.h"

#include <cstdio>

namespace numbrela::testing {

void Tally::CountExercise(std::vector<int> setting)
{
    ++exercises_;
    settings_.insert(std::move(setting));
}

void Tally::CountVerdict(const char* answer, bool accepted, bool toBeAccepted, const char* cause)
{
    const std::string verdict = std::string(answer) + (toBeAccepted ? " accepted" : " refused");
    ++counts_[cause == nullptr ? verdict : verdict + ": " + cause];
    if (accepted != toBeAccepted) {
        differ(std::string(answer) + (accepted ? " is accepted" : " is refused"));
    }
}

void Tally::Compare(const char* what, const std::string& said, const std::string& onPaper)
{
    if (said != onPaper) {
        differ(std::string(what) + " is \"" + said + "\", on paper \"" + onPaper + "\"");
    }
}

void Tally::Require(bool holds, const char* what)
{
    if (!holds) {
        differ(what);
    }
}

void Tally::differ(const std::string& what)
{
    constexpr long mostPrinted = 10;
    if (++differences_ <= mostPrinted) {
        std::printf("%s: %s: %s\n", activity_.c_str(), exercise_.c_str(), what.c_str());
    }
}

void Tally::Print() const
{
    std::printf("%s: %ld exercises, %zu settings, %ld differences\n", activity_.c_str(), exercises_, settings_.size(),
        differences_);
    for (const auto& [what, count] : counts_) {
        std::printf("%12ld  %s\n", count, what.c_str());
    }
}

} // namespace numbrela::testing

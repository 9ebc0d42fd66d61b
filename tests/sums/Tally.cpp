#include "tests/sums/Tally.h"

#include <cstdio>

namespace numbrela::testing {

void Tally::differ(const std::string& what, const std::string& exercise)
{
    constexpr long mostPrinted = 10;
    if (++differences_ <= mostPrinted) {
        std::printf("%s: %s: %s\n", activity_.c_str(), exercise.c_str(), what.c_str());
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

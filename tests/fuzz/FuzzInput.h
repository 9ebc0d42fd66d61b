#pragma once

#include "common/core/OptionList.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace numbrela::testing {

// The bytes of one run of a fuzzer, taken off from the front. Behind their end there are zeros. They stay the caller's.
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size)
        : rest_(data, size)
    {
    }

    bool AtEnd() const { return rest_.empty(); }

    unsigned TakeByte()
    {
        if (rest_.empty()) {
            return 0;
        }
        const unsigned byte = rest_.front();
        rest_ = rest_.subspan(1);
        return byte;
    }

    // A value that a list of options offers. The digits "0", "1", ... stand for its first, second, ... item.
    int TakeChoice(const OptionList& choices) { return choices.ValueAt(TakeIndex(choices.Count)); }

    // 0 to count - 1, written as a digit where that is enough.
    int TakeIndex(int count) { return static_cast<int>((TakeByte() - '0') & 0xFFU) % count; }

    // The bytes up to the end of the line, which is taken off too.
    std::string TakeLine()
    {
        const auto end = std::find(rest_.begin(), rest_.end(), '\n');
        std::string line(rest_.begin(), end);
        rest_ = rest_.subspan(std::min(line.size() + 1, rest_.size()));
        return line;
    }

    template <typename Number>
    Number TakeNumber()
    {
        std::array<std::uint8_t, sizeof(Number)> bytes {};
        for (std::uint8_t& byte : bytes) {
            byte = static_cast<std::uint8_t>(TakeByte());
        }
        return std::bit_cast<Number>(bytes);
    }

    // All bytes that are left.
    std::string TakeAll()
    {
        std::string all(rest_.begin(), rest_.end());
        rest_ = {};
        return all;
    }

private:
    std::span<const std::uint8_t> rest_;
};

// One of the things that can be done in a run, and the byte that stands for it.
template <typename Run>
struct Act {
    char Byte;
    void (*Do)(Run& run);
};

// Does what the byte stands for; false when it stands for nothing.
template <typename Run, std::size_t Count>
bool Do(const std::array<Act<Run>, Count>& acts, char byte, Run& run)
{
    const auto found = std::find_if(acts.begin(), acts.end(), [byte](const Act<Run>& act) { return act.Byte == byte; });
    if (found != acts.end()) {
        found->Do(run);
    }
    return found != acts.end();
}

// What each fuzzer does with an input: checks what comes of it.
void Check(FuzzInput input);

} // namespace numbrela::testing

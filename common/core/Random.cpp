#include "common/core/Random.h"

#include <bit>
#include <cstdint>

namespace numbrela {

SeededRandom::SeededRandom(double seed)
    : engine_(std::bit_cast<std::uint64_t>(seed))
{
}

double SeededRandom::Next()
{
    return static_cast<double>(engine_() >> 11) * 0x1p-53;
}

float SeededRandom::NextSingle()
{
    return static_cast<float>(engine_() >> 40) * 0x1p-24F;
}

} // namespace numbrela

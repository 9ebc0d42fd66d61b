#pragma once

#include "common/core/RunTimeError.h"

#include <cstdint>
#include <string>

namespace numbrela {

// A counter or small setting: a whole number from -32768 to 32767.
// It computes as an int and is checked whenever a result is stored in it: what does not fit throws
// RunTimeError::Overflow and leaves the old value.
class Int16 {
public:
    constexpr Int16() = default;
    constexpr Int16(long long value) // NOLINT(google-explicit-constructor): usable wherever a number is
        : value_(checked(value))
    {
    }

    constexpr operator int() const { return value_; } // NOLINT(google-explicit-constructor)

    constexpr Int16& operator+=(int amount) { return *this = Int16(static_cast<long long>(value_) + amount); }
    constexpr Int16& operator-=(int amount) { return *this = Int16(static_cast<long long>(value_) - amount); }
    constexpr Int16& operator++() { return *this += 1; }

private:
    static constexpr std::int16_t checked(long long value)
    {
        if (value < INT16_MIN || value > INT16_MAX) {
            throw RunTimeError(RunTimeError::Kind::Overflow,
                "El número " + std::to_string(value) + " no cabe en un contador de 16 bits.");
        }
        return static_cast<std::int16_t>(value);
    }

    std::int16_t value_ = 0;
};

} // namespace numbrela

#pragma once

#include "common/core/TimeOfDay.h"

namespace numbrela::testing {

// A clock that a test sets by hand.
class FixedClock : public Clock {
public:
    explicit FixedClock(TimeOfDay time = { 10, 20, 30, 37230 })
        : Time(time)
    {
    }

    TimeOfDay Now() const override { return Time; }

    TimeOfDay Time;
};

} // namespace numbrela::testing

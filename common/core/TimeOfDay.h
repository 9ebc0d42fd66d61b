#pragma once

namespace numbrela {

// A moment of a day on the clock of the machine.
struct TimeOfDay {
    int Hour = 0; // 0 to 23
    int Minute = 0; // 0 to 59
    int Second = 0; // 0 to 59
    double SecondsSinceMidnight = 0; // with its fraction

    // (hour + 1) × (minute + 1) × (second + 1), 1 to 86400: the seed of most activities.
    int SeedProduct() const { return (Hour + 1) * (Minute + 1) * (Second + 1); }
};

// Tells the time. Tests use a clock of their own.
class Clock {
public:
    virtual ~Clock() = default;
    virtual TimeOfDay Now() const = 0;
};

// The local time of the machine.
class SystemClock : public Clock {
public:
    TimeOfDay Now() const override;
};

} // namespace numbrela

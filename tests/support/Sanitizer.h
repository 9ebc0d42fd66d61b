#pragma once

namespace numbrela::testing {

// What the tests ask of AddressSanitizer. In a build without it, nothing of this does anything.

// Prints to the standard error output where the program is.
void PrintStack();

// While one is there, what is allocated and then lost is not reported.
class UnreportedLeaks {
public:
    UnreportedLeaks();
    ~UnreportedLeaks();
    UnreportedLeaks(const UnreportedLeaks&) = delete;
    UnreportedLeaks& operator=(const UnreportedLeaks&) = delete;
};

} // namespace numbrela::testing

#include "activities/shopping/tests/Beeps.h"

namespace {

int beeps = 0;

} // namespace

int numbrela::testing::Beeps()
{
    return beeps;
}

// The name is the linker's, of QApplication::beep().
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" void __wrap__ZN12QApplication4beepEv();

void __wrap__ZN12QApplication4beepEv()
{
    ++beeps;
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

#pragma once

#include "tests/support/Harness.h"

#if defined(SANITIZED)
#include <sanitizer/lsan_interface.h>
#endif

#include <vector>

namespace numbrela::testing {

// The run-time errors that reach the application during an action. Qt is built without clean-up for exceptions: what it
// holds while one passes through it is lost. The program ends then, but a test goes on, and must not be reported for
// the leak. So the action must also make whatever the error passes through, above all the window.
template <typename Action>
std::vector<RunTimeError> RunTimeErrorsOf(Action action)
{
#if defined(SANITIZED)
    const __lsan::ScopedDisabler unblamed;
#endif
    action();
    return TakeRunTimeErrors();
}

} // namespace numbrela::testing

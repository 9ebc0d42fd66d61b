#pragma once

namespace numbrela::testing {

// Has a warning of the toolkit's printed and the process aborted, for programs that are no test of GoogleTest's.
void AbortOnWarnings();

} // namespace numbrela::testing

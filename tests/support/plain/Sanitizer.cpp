#include "tests/support/Sanitizer.h"

namespace numbrela::testing {

void PrintStack() { }

UnreportedLeaks::UnreportedLeaks() = default;

UnreportedLeaks::~UnreportedLeaks() = default;

} // namespace numbrela::testing

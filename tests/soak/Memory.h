#pragma once

namespace numbrela::testing {

// How much memory the process holds, in KiB: how much of it is resident, when what has been freed was given back to the
// system, because what the allocator only keeps to use again is no leak. The sanitizer's allocator keeps all that for
// long; under it, what has been allocated and not freed is counted.
long HeldMemory();

} // namespace numbrela::testing

#pragma once

namespace numbrela::testing {

// How much of the process is in memory, in KiB. What only waits to be used again is no leak, and goes first: the
// toolkit's cache of pictures, which keeps those of windows that are gone until it is full (10 MiB), with its list of
// their names, and what the allocator has not given back to the system.
long ResidentMemory();

} // namespace numbrela::testing

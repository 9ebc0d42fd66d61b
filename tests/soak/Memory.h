#pragma once

namespace numbrela::testing {

// How much of the process is in memory, in KiB. What has been freed is given back to the system first: what the
// allocator only keeps to use again is no leak.
long ResidentMemory();

} // namespace numbrela::testing

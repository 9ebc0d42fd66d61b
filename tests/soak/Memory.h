#pragma once

namespace numbrela::testing {

// How much memory the process holds, in KiB: its resident memory after freed memory has been given back to the system,
// because what the allocator keeps for reuse is no leak. The sanitizer's allocator keeps freed memory for long; with
// it, this counts what is allocated and not freed.
long HeldMemory();

} // namespace numbrela::testing

#include "tests/fuzz/FuzzInput.h"

#include <gtest/gtest.h>

// Runs once before the first input. A check that fails outside a test is only printed unless it throws.
extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    testing::GTEST_FLAG(throw_on_failure) = true; // GoogleTest 1.11 has no other way
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    numbrela::testing::Check({ data, size });
    return 0;
}

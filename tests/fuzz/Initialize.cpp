#include <gtest/gtest.h>

// Runs once before the first input. A check that fails outside a test is only printed unless it throws.
extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    testing::GTEST_FLAG(throw_on_failure) = true; // GoogleTest 1.11 has no other way
    return 0;
}

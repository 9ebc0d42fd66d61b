#include <gtest/gtest.h>

// Runs once before the first input. A check that fails outside a test is only printed unless it throws.
extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    GTEST_FLAG_SET(throw_on_failure, true);
    return 0;
}

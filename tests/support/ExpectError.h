#pragma once

#include "common/core/RunTimeError.h"

#include <gtest/gtest.h>

#include <string>

namespace numbrela::testing {

// Expects an action to throw a run-time error of this kind that says this.
template <typename Action>
void ExpectError(RunTimeError::Kind kind, const std::string& text, Action action)
{
    try {
        action();
        ADD_FAILURE() << "nothing was thrown instead of: " << text;
    } catch (const RunTimeError& error) {
        EXPECT_EQ(error.ErrorKind(), kind);
        EXPECT_EQ(error.what(), text);
    }
}

} // namespace numbrela::testing

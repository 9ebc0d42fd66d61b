#pragma once

#include "common/core/RunTimeError.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace numbrela::testing {

// The kind of the run-time error that an action throws; nothing when it throws none.
template <typename Action>
std::optional<RunTimeError::Kind> KindThrownBy(Action action)
{
    try {
        action();
    } catch (const RunTimeError& error) {
        return error.ErrorKind();
    }
    return std::nullopt;
}

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

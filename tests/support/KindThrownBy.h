#pragma once

#include "common/core/RunTimeError.h"

#include <optional>

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

} // namespace numbrela::testing

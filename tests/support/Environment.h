#pragma once

#include <cstdlib>

namespace numbrela::testing {

#ifdef _WIN32

// Sets a variable of the environment, or removes it where there is no value.
inline void SetEnvironment(const char* name, const char* value)
{
    ::_putenv_s(name, value != nullptr ? value : "");
}

#else

// Sets a variable of the environment, or removes it where there is no value.
inline void SetEnvironment(const char* name, const char* value)
{
    if (value != nullptr) {
        ::setenv(name, value, 1);
    } else {
        ::unsetenv(name);
    }
}

#endif

} // namespace numbrela::testing

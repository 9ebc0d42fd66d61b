#pragma once

#include <windows.h>

// Errors of the system that the compiler's headers have no names for.
namespace numbrela {

inline constexpr DWORD NoSuchDevice = 433;
inline constexpr DWORD DiskQuotaExceeded = 1295;

} // namespace numbrela

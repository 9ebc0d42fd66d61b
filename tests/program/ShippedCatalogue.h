#pragma once

#include <filesystem>

namespace numbrela::testing {

// Writes the catalogue that a new installation starts with.
void SaveShippedCatalogue(const std::filesystem::path& path);

} // namespace numbrela::testing

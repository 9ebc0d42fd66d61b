#include "tests/program/ShippedCatalogue.h"

#include "activities/shopping/catalogue/CatalogueSource.h"

#include <fstream>

namespace numbrela::testing {

void SaveShippedCatalogue(const std::filesystem::path& path)
{
    std::ifstream source(SHOPPING_CATALOGUE_SOURCE);
    SaveCatalogue(path, ReadCatalogueSource(source));
}

} // namespace numbrela::testing

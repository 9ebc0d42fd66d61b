#include "activities/shopping/core/CatalogueReplacement.h"

namespace numbrela {

bool ReplaceCatalogue(const std::filesystem::path& path, const std::string& bytes, const Consent& consent)
{
    CatalogueReplacement file(path);
    file.Write(bytes);
    if (consent && !consent(file.Replaced())) {
        return false;
    }
    file.Commit();
    return true;
}

} // namespace numbrela

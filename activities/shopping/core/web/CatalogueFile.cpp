#include "activities/shopping/core/CatalogueFile.h"

#include "activities/shopping/core/FileParts.h"
#include "activities/shopping/core/posix/Files.h"
#include "common/core/web/Page.h"

#include <fcntl.h>

#include <fstream>

namespace numbrela {

namespace {

constexpr const char* notStored
    = "El catálogo no se ha podido guardar: este navegador no lo permite o no tiene sitio. "
      "Para no perder los cambios, guárdelos en un archivo con el enlace de debajo del programa.";

// Puts what this browser keeps beside the file for which it stands.
std::filesystem::path fileOf(const std::filesystem::path& path, const std::string& bytes)
{
    std::filesystem::path stored = path;
    stored += ".guardado";
    std::ofstream(stored, std::ios::binary) << bytes;
    return stored;
}

CatalogueContent contentNow(const std::filesystem::path& path)
{
    CatalogueContent stored = Page::StoredCatalogue();
    const Descriptor file(::open(path.c_str(), O_RDONLY));
    if (stored || !file.IsOpen()) {
        return stored;
    }
    return ReadToEnd(ReaderOf(file, "leer", path));
}

} // namespace

// The files here live in memory, and as long as the program. The page has put the school's catalogue among them. What
// somebody has saved is kept by the browser and, as long as it is, stands for that file; any tab may give it up.
int OpenOrCreate(const std::filesystem::path& path)
{
    Page::ForgetUnsaved();
    const CatalogueContent stored = Page::StoredCatalogue();
    return ::open((stored ? fileOf(path, *stored) : path).c_str(), O_RDONLY | O_CREAT, 0666);
}

// A browser's storage replaces whole, but knows no lock: of two saves within the same milliseconds the later one
// stands. All tabs that share a storage are before one person, who has to turn from one to the other between two saves.
bool ReplaceCatalogue(const std::filesystem::path& path, const std::string& bytes, const Consent& consent)
{
    if (consent && !consent(contentNow(path))) {
        return false;
    }
    if (!Page::StoreCatalogue(bytes)) {
        throw RunTimeError(RunTimeError::Kind::File, notStored);
    }
    return true;
}

} // namespace numbrela

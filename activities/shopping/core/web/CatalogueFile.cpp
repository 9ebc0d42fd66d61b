#include "activities/shopping/core/CatalogueFile.h"

#include "activities/shopping/core/FileParts.h"
#include "common/core/web/Page.h"

#include <fcntl.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

namespace numbrela {

namespace {

// The files here live in memory, and as long as the program. The page has put the school's catalogue among them. What
// somebody has saved is kept by the browser and, as long as it is, stands for that file; any tab may give it up.
std::filesystem::path fileOf(const std::filesystem::path& path, const std::string& bytes)
{
    std::filesystem::path stored = path;
    stored += ".guardado";
    std::ofstream(stored, std::ios::binary) << bytes;
    return stored;
}

int open(const std::filesystem::path& path)
{
    const std::optional<std::string> stored = Page::StoredCatalogue();
    return ::open((stored ? fileOf(path, *stored) : path).c_str(), O_RDONLY | O_CREAT, 0666);
}

std::string contentOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return { std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>() };
}

} // namespace

std::string TextOf(const std::filesystem::path& path)
{
    return path.string();
}

void Descriptor::Close()
{
    if (IsOpen()) {
        ::close(number_);
        number_ = -1;
    }
}

CatalogueReader::CatalogueReader(const std::filesystem::path& path)
    : path_(path)
    , file_(open(path))
{
    if (!file_.IsOpen()) {
        FailAt(path_, "leer", Reason::NoFolder);
    }
    size_ = static_cast<std::size_t>(::lseek(file_.Number(), 0, SEEK_END));
    ::lseek(file_.Number(), 0, SEEK_SET);
}

std::size_t CatalogueReader::Read(std::span<char> buffer)
{
    return Fill(buffer, [this](std::span<char> part) {
        return static_cast<std::size_t>(::read(file_.Number(), part.data(), part.size())); // from memory: never fails
    });
}

// Another tab may run at the same time, and a browser's storage knows no lock: of two saves within the same
// milliseconds the later one stands. Nobody works in two tabs that fast.
CatalogueReplacement::CatalogueReplacement(const std::filesystem::path& path)
    : path_(path)
    , nameNow_(std::filesystem::path(path) += NewNameMark)
    , folder_(-1)
    , file_(-1)
{
}

CatalogueReplacement::~CatalogueReplacement()
{
    std::error_code ignored;
    std::filesystem::remove(nameNow_, ignored);
}

void CatalogueReplacement::Write(std::span<const char> bytes)
{
    std::ofstream(nameNow_, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

CatalogueContent CatalogueReplacement::Replaced() const
{
    const std::optional<std::string> stored = Page::StoredCatalogue();
    if (stored || !std::filesystem::exists(path_)) {
        return stored;
    }
    return contentOf(path_);
}

void CatalogueReplacement::Commit()
{
    if (!Page::StoreCatalogue(contentOf(nameNow_))) {
        FailAt(path_, "escribir", Reason::DiskFull);
    }
}

} // namespace numbrela

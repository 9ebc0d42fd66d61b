#include "activities/shopping/core/posix/Files.h"

#include "activities/shopping/core/FileParts.h"

#include <sys/stat.h>

#include <cstring>

namespace numbrela {

std::string ReasonOf(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return Reason::NoFolder;
    case EACCES:
    case EPERM:
        return Reason::NoRight;
    case EROFS:
        return Reason::ReadOnlyDisk;
    case ENOSPC:
    case EDQUOT:
        return Reason::DiskFull;
    case EFBIG:
        return Reason::TooLarge;
    case EISDIR:
        return Reason::IsFolder;
    case EIO:
        return Reason::DiskFails;
    case ENAMETOOLONG:
        return Reason::NameTooLong;
    case EINVAL:
        return Reason::NoDataFile;
    default:
        return Reason::Unknown(error, std::strerror(error));
    }
}

void FailTo(const char* action, const std::filesystem::path& path)
{
    FailAt(path, action, ReasonOf(errno));
}

std::string TextOf(const std::filesystem::path& path)
{
    return path.string();
}

// Whatever close() answers, the file is closed then, and what was written has been flushed before.
void Descriptor::Close()
{
    if (IsOpen()) {
        ::close(number_);
        number_ = -1;
    }
}

CatalogueReader::CatalogueReader(const std::filesystem::path& path)
    : path_(path)
    , file_(OpenOrCreate(path))
{
    struct stat status { };
    if (!file_.IsOpen() || ::fstat(file_.Number(), &status) != 0) {
        FailTo("leer", path_);
    }
    if (!S_ISREG(status.st_mode)) {
        FailAt(path_, "leer", ReasonOf(S_ISDIR(status.st_mode) ? EISDIR : EINVAL));
    }
    size_ = static_cast<std::size_t>(status.st_size);
}

std::size_t CatalogueReader::Read(std::span<char> buffer)
{
    return Fill(buffer, ReaderOf(file_, "leer", path_));
}

} // namespace numbrela

#include "activities/shopping/core/Catalogue.h"

#include "activities/shopping/tests/TemporaryFolder.h"
#include "activities/shopping/tests/TestTables.h"
#include "tests/support/ExpectError.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <sys/stat.h>

#include <string>

namespace numbrela {

namespace {

using namespace testing;

mode_t permissionsOf(const std::filesystem::path& path)
{
    struct stat status { };
    EXPECT_EQ(::stat(path.c_str(), &status), 0);
    return status.st_mode & 07777;
}

// New files do not get these rights for as long as this lives, however that ends.
class Umask {
public:
    explicit Umask(mode_t mask)
        : before_(::umask(mask))
    {
    }
    ~Umask() { ::umask(before_); }
    Umask(const Umask&) = delete;
    Umask& operator=(const Umask&) = delete;

private:
    const mode_t before_;
};

class CatalogueFileTest : public ::testing::Test {
protected:
    // Makes the catalogue by a save and, when it is gone, by reading it, with this umask.
    void ExpectNewFilesToHave(mode_t permissions, mode_t mask) const
    {
        std::filesystem::remove(path_);
        const Umask umask(mask);
        SaveCatalogue(path_, ProductTable(1));
        EXPECT_EQ(permissionsOf(path_), permissions);
        std::filesystem::remove(path_);
        LoadCatalogue(path_);
        EXPECT_EQ(permissionsOf(path_), permissions);
    }

    TemporaryFolder folder_;
    std::filesystem::path path_ = folder_ / "productos.dat";
};

TEST_F(CatalogueFileTest, NamesAPipeAsNoFileAndDoesNotWaitForIt)
{
    ASSERT_EQ(::mkfifo(path_.c_str(), 0600), 0); // nobody writes into it
    const std::string rest = " el archivo «" + path_.string() + "»: no es un archivo de datos.";
    ExpectError(RunTimeError::Kind::File, "No se puede leer" + rest, [this] { LoadCatalogue(path_); });
    ExpectError(
        RunTimeError::Kind::File, "No se puede escribir" + rest, [this] { SaveCatalogue(path_, ProductTable(1)); });
    EXPECT_EQ(folder_.Names(), std::vector<std::string> { "productos.dat" });
}

TEST_F(CatalogueFileTest, KeepsThePermissionsOfTheFileAndGivesANewOneThoseThatTheUserGives)
{
    for (const mode_t permissions : { 0600, 0640, 0664, 0666 }) {
        WriteBytes(path_, "");
        ASSERT_EQ(::chmod(path_.c_str(), permissions), 0);
        SaveCatalogue(path_, ProductTable(1));
        EXPECT_EQ(permissionsOf(path_), permissions);
    }
    ExpectNewFilesToHave(0640, 027);
}

TEST_F(CatalogueFileTest, GivesANewFileTheRightsOfAFolderThatAGroupShares)
{
    path_ = folder_ / "shared" / "productos.dat";
    std::filesystem::create_directory(path_.parent_path());
    ASSERT_EQ(::chmod(path_.parent_path().c_str(), 02775), 0);
    ExpectNewFilesToHave(0664, 077);
}

TEST_F(CatalogueFileTest, WritesThroughALinkThatHasTheNameOfTheFile)
{
    std::filesystem::create_directory(folder_ / "elsewhere");
    const std::filesystem::path target = folder_ / "elsewhere" / "real.dat";
    WriteBytes(target, "");
    std::filesystem::create_symlink(target, path_);
    SaveCatalogue(path_, { ProductOf("a", "x") });
    EXPECT_TRUE(std::filesystem::is_symlink(path_));
    EXPECT_EQ(LoadCatalogue(target), (ProductTable { ProductOf("a", "x") }));

    std::filesystem::rename(target, target.string() + ".completo");
    EXPECT_EQ(LoadCatalogue(path_), (ProductTable { ProductOf("a", "x") }));
    SaveCatalogue(path_, { ProductOf("b", "y") });
    EXPECT_TRUE(std::filesystem::is_symlink(path_));
    EXPECT_EQ(LoadCatalogue(target), (ProductTable { ProductOf("b", "y") }));
    EXPECT_EQ(folder_.Names(), (std::vector<std::string> { "elsewhere", "productos.dat" }));
}

TEST_F(CatalogueFileTest, WritesWhereAStoppedSaveOfAProcessWithTheSameNumberHasLeftItsFile)
{
    WriteBytes(path_.string() + ".nuevo-" + std::to_string(::getpid()), "half");
    SaveCatalogue(path_, { ProductOf("a", "x") });
    EXPECT_EQ(LoadCatalogue(path_), (ProductTable { ProductOf("a", "x") }));
    EXPECT_EQ(folder_.Names(), std::vector<std::string> { "productos.dat" });
}

} // namespace

} // namespace numbrela
